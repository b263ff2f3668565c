"""TERRAIN/<planet>/PLANET: the four turning globes of the selection screen
(73 frames of 64 x 64 each; frame 0 is the still icon, frames 1 to 72 turn
once, 5 degrees a step, so the loop has no seam). They are drawn at their
own size on the planet buttons over black, with the texture's own smooth
filtering, so their edges are soft and they need no outline.

Each world must be told apart at a glance, by shape as much as by colour:
  FIELD     a blue and green world with ice caps and clouds;
  ICE       a white shell crazed with long rust-red cracks;
  ASTEROID  a potato-shaped, cratered rock that tumbles as it turns;
  SOFT      a rose-pink banded world with a ring.
The selection screen shows the ASTEROID globe on planet 4's button and the
SOFT globe on planet 3's (object slots 5 and 6): BUTTON_GLOBE says which
globe stands for each planet number, for every other picture of a planet.
Light from the upper left, as everywhere in the game."""
import math

import numpy as np

import common
from common import rng, fbm, ramp

FOLDERS = {1: "TERRAIN/FIELD/PLANET", 2: "TERRAIN/ICE/PLANET",
           3: "TERRAIN/ASTEROID/PLANET", 4: "TERRAIN/SOFT/PLANET"}
WORDS = {1: "blue and green field world", 2: "cracked ice world", 3: "tumbling cratered asteroid",
         4: "ringed rose-pink world"}
# planet number (as the player counts) -> the globe on its button; planet 3
# is the soft world and planet 4 the asteroid, as its water says too
BUTTON_GLOBE = {1: 1, 2: 2, 3: 4, 4: 3}

MAP_W, MAP_H = 256, 128
SIZE = 64
SS = 3
# image coordinates: x right, y down, z toward the viewer
LIGHT = np.array([-0.62, -0.52, 0.59])
LIGHT = LIGHT / np.linalg.norm(LIGHT)


# ---------------------------------------------------------------- surface maps

def lat_grid():
    lat = (np.arange(MAP_H)[:, None] + 0.5) / MAP_H * 2 - 1      # -1 north .. 1 south
    lon = (np.arange(MAP_W)[None, :] + 0.5) / MAP_W                # 0..1
    return lat, lon


def field_map():
    """Oceans, green and ochre continents, white caps; clouds in a second
    layer with their own alpha."""
    r = rng("planet", "field")
    lat, lon = lat_grid()
    n = fbm(MAP_W, MAP_H, 4, 6, r)
    n = (n - n.min()) / (n.max() - n.min())
    sea = 0.56
    land = n > sea
    elev = np.clip((n - sea) / (1 - sea), 0, 1)
    depth = np.clip((sea - n) / sea, 0, 1)
    ocean = ramp(depth ** 0.6, ["#3b86c8", "#2a64a8", "#1c4888", "#14356a"])
    dry = fbm(MAP_W, MAP_H, 6, 3, r)
    green = ramp(elev ** 0.8, ["#5a9a3c", "#4a8634", "#6e8a3e", "#8a7a58", "#b0a48c"], steps=6)
    desert = ramp(elev, ["#b8a060", "#a88a50", "#8a7048"], steps=4)
    belt = np.exp(-(np.abs(lat) - 0.35) ** 2 / 0.02)
    dmix = np.clip((dry - 0.55) * 4 + belt * 0.6 - 0.3, 0, 1)[..., None]
    col = np.where(land[..., None], green * (1 - dmix) + desert * dmix, ocean)
    cap = np.clip((np.abs(lat) - 0.78 - 0.08 * (fbm(MAP_W, MAP_H, 8, 2, r) - 0.5)) * 12, 0, 1)[..., None]
    col = col * (1 - cap) + np.array([236, 244, 250]) * cap
    cl = fbm(MAP_W, MAP_H, 6, 5, rng("planet", "field", "clouds"))
    swirl = np.clip((cl - 0.52) * 3.2, 0, 0.9) * (0.6 + 0.4 * np.abs(np.sin(lat * 5.5)))
    return col, swirl, None


def ice_map():
    """A bright shell of ice, blue where it is thin, crazed with long
    rust-red cracks that wrap round the globe."""
    r = rng("planet", "ice")
    lat, lon = lat_grid()
    n = fbm(MAP_W, MAP_H, 4, 5, r)
    col = ramp(0.25 + 0.6 * n, ["#7fa6cc", "#a6c4e0", "#cfe2f0", "#eaf4fa", "#ffffff"], steps=7)
    xs = np.arange(MAP_W)[None, :].astype(float)
    ys = np.arange(MAP_H)[:, None].astype(float)
    crack = np.zeros((MAP_H, MAP_W))
    for i in range(14):
        y0 = MAP_H * (0.18 + 0.64 * r.random())
        amp = 6 + 18 * r.random()
        k = int(r.integers(1, 3))
        ph = r.random() * 2 * math.pi
        width = 0.55 + 0.5 * r.random()
        wob = (fbm(MAP_W, 1, 8, 3, r)[0][None, :] - 0.5) * 9
        path = y0 + amp * np.sin(xs / MAP_W * 2 * math.pi * k + ph) + wob
        # each crack runs for part of the way round, then peters out
        reach = np.clip(np.sin(xs / MAP_W * 2 * math.pi + r.random() * 6.3) * 2.5 + 0.6, 0, 1)
        crack = np.maximum(crack, np.exp(-((ys - path) / width) ** 2) * reach)
    col = col * (1 - crack[..., None] * 0.8) + np.array([150, 82, 60]) * crack[..., None] * 0.8
    # dark blue patches of refrozen slush
    chaos = np.clip((fbm(MAP_W, MAP_H, 8, 3, r) - 0.68) * 5, 0, 0.6)[..., None]
    col = col * (1 - chaos) + np.array([70, 110, 160]) * chaos
    return col, None, None


def asteroid_map():
    """Grey-brown rock; the craters are a height field that lights them."""
    r = rng("planet", "asteroid")
    lat, lon = lat_grid()
    n = fbm(MAP_W, MAP_H, 6, 5, r)
    col = ramp(0.2 + 0.6 * n, ["#5e5450", "#756a63", "#8c8077", "#a3968b", "#baac9f"], steps=6)
    ys = np.arange(MAP_H)[:, None].astype(float)
    xs = np.arange(MAP_W)[None, :].astype(float)
    height = fbm(MAP_W, MAP_H, 8, 4, r) * 0.6
    for i in range(46):
        y0 = MAP_H * (0.12 + 0.76 * r.random())
        x0 = MAP_W * r.random()
        rad = (2.5 + 11 * r.random() ** 2.2)
        squash = max(0.25, math.cos((y0 / MAP_H - 0.5) * math.pi))
        dx = ((xs - x0 + MAP_W / 2) % MAP_W - MAP_W / 2) * squash
        d = np.hypot(dx, ys - y0) / rad
        bowl = np.where(d < 1, -(1 - d ** 2), 0)
        rim = np.exp(-((d - 1.0) / 0.22) ** 2) * 0.45
        height += (bowl + rim) * rad * 0.16
        col = col * (1 - (np.clip(1 - d, 0, 1) * 0.25)[..., None])
    return col, None, height


def soft_map():
    """Soft rose and cream bands stirred by slow eddies, with one pale
    storm; the world a gas giant would be if it were made of marshmallow."""
    r = rng("planet", "soft")
    lat, lon = lat_grid()
    warp = fbm(MAP_W, MAP_H, 6, 4, r) - 0.5
    v = lat * 6.5 + warp * 1.6
    bands = 0.5 + 0.32 * np.sin(v * math.pi) + 0.18 * np.sin(v * math.pi * 2.3 + 1.0)
    fine = fbm(MAP_W, MAP_H, 16, 2, r)
    col = ramp(np.clip(0.18 + bands * 0.55 + fine * 0.25, 0, 1),
               ["#7a2a5e", "#a84578", "#d06e94", "#eba0b2", "#ffd6d0"], steps=12)
    ys = np.arange(MAP_H)[:, None].astype(float)
    xs = np.arange(MAP_W)[None, :].astype(float)
    dx = (xs - MAP_W * 0.3 + MAP_W / 2) % MAP_W - MAP_W / 2
    storm = np.exp(-((dx / 16.0) ** 2 + ((ys - MAP_H * 0.64) / 6.0) ** 2))
    col = col * (1 - storm[..., None] * 0.85) + np.array([255, 238, 230]) * storm[..., None] * 0.85
    return col, None, None


MAPS = {1: field_map, 2: ice_map, 3: asteroid_map, 4: soft_map}

# shape and look of each globe: radius (pixels), semi-axes of the body,
# axis tilt toward the viewer, atmosphere colour, ring
LOOKS = {
    1: dict(radius=27.0, axes=(1.0, 1.0, 1.0), tilt=0.38, roll=0.2, atmosphere=(120, 190, 255), ring=None),
    2: dict(radius=26.5, axes=(1.0, 1.0, 1.0), tilt=0.30, roll=-0.25, atmosphere=(200, 235, 255), ring=None),
    3: dict(radius=28.5, axes=(1.0, 0.74, 0.62), tilt=0.55, roll=0.5, atmosphere=None, ring=None),
    4: dict(radius=17.5, axes=(1.0, 1.0, 1.0), tilt=0.42, roll=0.32, atmosphere=(255, 170, 210),
            ring=(1.38, 1.78)),
}


# ---------------------------------------------------------------- rendering

def sample(img, u, v):
    """Bilinear lookup in a map that wraps in longitude (u) and clamps at
    the poles (v); u, v in pixels."""
    h, w = img.shape[:2]
    u0 = np.floor(u).astype(int)
    v0 = np.clip(np.floor(v).astype(int), 0, h - 1)
    fu = (u - np.floor(u))[..., None] if img.ndim == 3 else u - np.floor(u)
    fv = (v - np.floor(v))[..., None] if img.ndim == 3 else v - np.floor(v)
    u1 = (u0 + 1) % w
    u0 %= w
    v1 = np.clip(v0 + 1, 0, h - 1)
    a = img[v0, u0] * (1 - fu) + img[v0, u1] * fu
    b = img[v1, u0] * (1 - fu) + img[v1, u1] * fu
    return a * (1 - fv) + b * fv


def rotation(turn, tilt, roll):
    """Body to view: spin about the body's z (its short axis, the pole),
    lay the pole into the picture's y, tip it toward the viewer by `tilt`
    and lean it sideways by `roll`."""
    a = turn * 2 * math.pi
    spin = np.array([[math.cos(a), -math.sin(a), 0], [math.sin(a), math.cos(a), 0], [0, 0, 1]])
    # body z (pole) -> view -y (up), body x -> view x, body y -> view z
    lay = np.array([[1, 0, 0], [0, 0, -1], [0, 1, 0]], float)
    ct, st = math.cos(tilt), math.sin(tilt)
    tip = np.array([[1, 0, 0], [0, ct, -st], [0, st, ct]])
    cr, sr = math.cos(roll), math.sin(roll)
    lean = np.array([[cr, -sr, 0], [sr, cr, 0], [0, 0, 1]])
    return lean @ tip @ lay @ spin


def view_grid(look, size=SIZE):
    n = size * SS
    # the radii are laid out for the 64-pixel buttons; larger pictures scale them
    R = look["radius"] * size / SIZE * SS
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    return (xs + 0.5 - n / 2) / R, (ys + 0.5 - n / 2) / R


def surface(look, turn, size=SIZE):
    """Where the view rays meet the body at `turn`: the flat indices of the
    pixels hit, the body-space points, the body-space normals and the
    rotation. A round world looks the same from every turn, so only its
    map turns; the asteroid's outline changes, so it is solved anew."""
    x, y = view_grid(look, size)
    rot = rotation(turn, look["tilt"], look["roll"])
    ax = np.array(look["axes"], float)
    A = 1.0 / ax ** 2
    near = (x * x + y * y).ravel() < ax.max() ** 2
    idx = np.nonzero(near)[0]
    xv, yv = x.ravel()[idx], y.ravel()[idx]
    # the view ray o + s d in body space, o = inv (x, y, 0), d = inv (0, 0, 1)
    inv = rot.T
    o = np.stack([xv, yv, np.zeros_like(xv)], -1) @ inv.T
    d = inv @ np.array([0.0, 0.0, 1.0])
    qa = float(np.sum(A * d * d))
    qb = 2 * (o * (A * d)).sum(-1)
    qc = (o * o * A).sum(-1) - 1
    disc = qb * qb - 4 * qa * qc
    hit = disc > 0
    idx, o, qb, disc = idx[hit], o[hit], qb[hit], disc[hit]
    s_ = (-qb + np.sqrt(disc)) / (2 * qa)          # the nearer surface
    p = o + s_[:, None] * d
    nb = p * A
    nb /= np.linalg.norm(nb, axis=-1, keepdims=True)
    return idx, p, nb, rot


def render(num, turn, maps, cache, size=SIZE):
    """Globe `num` (datafile order) at `turn`, size x size. `maps` is
    MAPS[num](); `cache` is a dict kept for one globe at one size."""
    look = LOOKS[num]
    col_map, cloud_map, height_map = maps
    n = size * SS
    if look["axes"] == (1.0, 1.0, 1.0):
        if "sphere" not in cache:
            idx, p, nb, rot0 = surface(look, 0.0, size)
            cache["sphere"] = (idx, p @ rot0.T)              # view-space points = view normals
        idx, pv = cache["sphere"]
        rot = rotation(turn, look["tilt"], look["roll"])
        nb = pv @ rot                                         # body space
        p = nb
    else:
        idx, p, nb, rot = surface(look, turn, size)
    dirb = p / np.linalg.norm(p, axis=-1, keepdims=True)
    lon = (np.arctan2(dirb[:, 1], dirb[:, 0]) / (2 * math.pi)) % 1.0
    lat = np.arcsin(np.clip(dirb[:, 2], -1, 1)) / math.pi          # -0.5 south .. 0.5 north
    u = lon * MAP_W - 0.5
    v = (0.5 - lat) * MAP_H - 0.5
    col = sample(col_map, u, v)
    if height_map is not None:
        # craters: tilt the normal by the height field's slopes
        if "slopes" not in cache:
            cache["slopes"] = ((np.roll(height_map, -1, 1) - np.roll(height_map, 1, 1)) * 0.5,
                               (np.roll(height_map, -1, 0) - np.roll(height_map, 1, 0)) * 0.5)
        gu, gv = cache["slopes"]
        du = sample(gu, u, v)
        dv = sample(gv, u, v)
        east = np.stack([-np.sin(lon * 2 * math.pi), np.cos(lon * 2 * math.pi), np.zeros_like(lon)], -1)
        north = np.cross(nb, east)
        nb = nb - 0.5 * (du[:, None] * east - dv[:, None] * north)
        nb /= np.linalg.norm(nb, axis=-1, keepdims=True)
    nv = nb @ rot.T
    lam = np.clip(nv @ LIGHT, 0, 1)
    col = col * (0.08 + 1.05 * lam ** 0.9)[:, None]
    if cloud_map is not None:
        cl = sample(cloud_map, u, v)
        col = col * (1 - cl[:, None]) + np.array([250, 252, 255]) * ((0.1 + 1.0 * lam) * cl)[:, None]
    atm = look["atmosphere"]
    if atm is not None:
        # the atmosphere brightens the limb on the day side
        limb = np.clip(1 - np.abs(nv[:, 2]), 0, 1) ** 3
        day = np.clip(nv @ LIGHT + 0.25, 0, 1)
        col = col + np.array(atm) * (limb * day * 0.8)[:, None]
    rgb = np.zeros((n * n, 3))
    alpha = np.zeros(n * n)
    rgb[idx] = col
    alpha[idx] = 1.0
    rgb = rgb.reshape(n, n, 3)
    alpha = alpha.reshape(n, n)
    if "around" not in cache:
        cache["around"] = around(look, size)
    halo, ring_col, ring_a, ring_z = cache["around"]
    if halo is not None:
        # a thin haze just outside the disc, toward the light
        rgb = np.where(alpha[..., None] > 0, rgb, np.array(atm, float))
        alpha = np.maximum(alpha, halo)
    if ring_a is not None:
        # the ring shows where it lies in front of the planet or beside it
        zs = np.full(n * n, -1e9)
        zs[idx] = (p @ rot.T)[:, 2]
        ra = np.where(ring_z > zs.reshape(n, n), ring_a, 0.0)
        new_a = ra + alpha * (1 - ra)
        pre = rgb * (alpha * (1 - ra))[..., None] + ring_col * ra[..., None]
        rgb = pre / np.maximum(new_a[..., None], 1e-6)
        alpha = new_a
    rgb = np.clip(rgb, 0, 255)
    c = common.downsample(rgb * alpha[..., None], SS)
    a = common.downsample(alpha, SS)
    c = c / np.maximum(a[..., None], 1e-6)
    return common.clean_alpha(common.rgba_image(c, a), 6)


def around(look, size=SIZE):
    """What lies round the body and never turns: the haze beyond the limb
    and the ring (colour, opacity and depth, and the planet's shadow on its
    far side)."""
    x, y = view_grid(look, size)
    rr = np.sqrt(x * x + y * y)
    halo = None
    if look["atmosphere"] is not None:
        lit = np.clip((-(x * LIGHT[0] + y * LIGHT[1]) / np.maximum(rr, 1e-6)) + 0.35, 0, 1)
        halo = np.clip(1 - (rr - 1.0) / 0.07, 0, 1) * (rr >= 1.0) * 0.7 * lit
    ring = look["ring"]
    if ring is None:
        return halo, None, None, None
    rot = rotation(0.0, look["tilt"], look["roll"])
    pole = rot @ np.array([0.0, 0.0, 1.0])
    zr = -(pole[0] * x + pole[1] * y) / pole[2]
    pts = np.stack([x, y, zr], -1)
    r_ = np.linalg.norm(pts, axis=-1)
    inner, outer = ring
    on = (r_ > inner) & (r_ < outer)
    t = np.clip((r_ - inner) / (outer - inner), 0, 1)
    bands = 0.75 + 0.25 * np.sin(t * 38) * np.sin(t * 11 + 1)
    gap = np.exp(-((t - 0.62) / 0.04) ** 2)
    dens = np.clip(bands * (1 - 0.85 * gap) * (0.55 + 0.45 * np.sin(t * math.pi)), 0, 1)
    rc = ramp(t, ["#f4d8c8", "#e8b8b0", "#d89aa8", "#c88aa0"])
    # the planet's shadow: ring points whose way to the light crosses it
    b = pts @ LIGHT
    cc = np.sum(pts * pts, -1) - 1
    shadowed = (b * b - cc > 0) & (b < 0)
    rc = rc * np.where(shadowed, 0.3, 0.95)[..., None]
    return halo, rc, np.where(on, dens * 0.9, 0.0), zr


def generate(reg):
    for num, folder in FOLDERS.items():
        maps = MAPS[num]()
        cache = {}
        for i in range(73):
            turn = 0.15 if i == 0 else (i - 1) / 72.0
            role = "%s globe, %s" % (WORDS[num], "still icon" if i == 0 else "turn step %d of 72" % i)
            reg.picture(folder, i, render(num, turn, maps, cache), role)
