"""TERRAIN/FIELD: the 23 terrain tiles (32 x 32), TERRAIN/FIELD/BACKGROUND:
the six 256 x 256 backdrop layers behind the level, TERRAIN/FIELD/WATER:
water cells.

Every tile is seen hundreds of times in a grid, so the textures wrap at the
tile's edges, keep their shades in fixed shares (no blotch that would mark
the 32-pixel repeat) and carry only small features. Light comes from the
upper left: bumps are lit on that side and shadowed on the other."""
import math

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

import art
import common
from common import Canvas, rgba_image, rng, fbm, ramp

T = 32
FIELD = "TERRAIN/FIELD"

# From the upper left and a little toward the viewer (x right, y down, z out).
LIGHT = np.array([-0.55, -0.62, 0.56])
LIGHT = LIGHT / np.linalg.norm(LIGHT)

STONE = ["#16171d", "#272a33", "#3a3e4a", "#4f5463", "#676d7e", "#858c9e", "#aab1c1"]
SLATE = ["#15181f", "#232833", "#323a48", "#46505f", "#5d6979", "#7b8899", "#a0acbb"]
SAND = ["#24180f", "#44301f", "#5e452d", "#7a5c3b", "#957249", "#b08b5a", "#c9a673"]
CLAY = ["#2e1913", "#56321f", "#643a27", "#70432d", "#7e4e34", "#9a6142"]
# Dirt1's shades: the middle ones close together, so the 32-pixel repeat
# does not stand out across a wall of earth.
EARTH = ["#2e1c14", "#563722", "#644029", "#6f4a2f", "#7e5636", "#9a6d42"]
MOSS = ["#25391a", "#3e5a22", "#5d7f2c", "#82a63a", "#a9c957"]


# ---------------------------------------------------------------- helpers

def hexcols(colours):
    return np.array([common.hexrgb(c) for c in colours])


def lambert(height, wrap=True):
    """Light on a height field (bigger is nearer the viewer). np.roll keeps the
    slopes of wrapping textures right across the tile's edges."""
    if wrap:
        gx = (np.roll(height, -1, 1) - np.roll(height, 1, 1)) * 0.5
        gy = (np.roll(height, -1, 0) - np.roll(height, 1, 0)) * 0.5
    else:
        gy, gx = np.gradient(height)
    n = np.dstack([-gx, -gy, np.ones_like(height)])
    n /= np.linalg.norm(n, axis=2, keepdims=True)
    return n @ LIGHT


def equalise(v):
    """Ranks in 0..1: fixed shares of each shade, whatever the noise did."""
    flat = v.ravel()
    ranks = np.empty(flat.size)
    ranks[flat.argsort(kind="stable")] = np.arange(flat.size)
    return (ranks / max(1, flat.size - 1)).reshape(v.shape)


def wrapped_dist(xs, ys, cx, cy, w, h):
    dx = (xs - cx + w / 2) % w - w / 2
    dy = (ys - cy + h / 2) % h - h / 2
    return dx, dy


def spread_points(r, count, w, h, min_gap, margin=0):
    """Points at least min_gap apart on a wrapping w x h field, so small
    features cover a tile evenly instead of clumping."""
    pts = []
    tries = 0
    while len(pts) < count and tries < count * 200:
        tries += 1
        x = margin + r.random() * (w - 2 * margin)
        y = margin + r.random() * (h - 2 * margin)
        ok = True
        for px, py in pts:
            dx = abs(px - x)
            dy = abs(py - y)
            dx = min(dx, w - dx)
            dy = min(dy, h - dy)
            if dx * dx + dy * dy < min_gap * min_gap:
                ok = False
                break
        if ok:
            pts.append((x, y))
    return pts


def outline_of(a, strength=0.85):
    """How much of a one-pixel rim just outside a shape each pixel holds:
    a dark rim there lets the shape read on busy ground and dark backdrops
    alike."""
    grown = a.copy()
    padded = np.pad(a, 1)
    h, w = a.shape
    for dy, dx in ((-1, 0), (1, 0), (0, -1), (0, 1)):
        grown = np.maximum(grown, padded[1 + dy:1 + dy + h, 1 + dx:1 + dx + w])
    return np.clip(grown - a, 0, 1) * strength


def add_outline(img, colour=(14, 10, 12), strength=0.85):
    rgb, a = common.to_float(img)
    ring = outline_of(a, strength)
    out_a = a + ring * (1 - a)
    col = rgb * a[..., None] + np.array(colour, float) * (ring * (1 - a))[..., None]
    col = col / np.maximum(out_a[..., None], 1e-6)
    return rgba_image(col, out_a)


# ---------------------------------------------------------------- soil

def soil(key, colours, strata=0.0, pebbles=3):
    """Packed earth as a wrapping 32 x 32 texture: shades in fixed shares,
    small lit clods, a few pebbles. `strata` lays it down in beds that run
    on across neighbouring cells."""
    r = rng("soil", key)
    ys, xs = np.mgrid[0:T, 0:T].astype(float)
    v = 0.3 * fbm(T, T, 4, 1, r) + 0.7 * fbm(T, T, 8, 2, r)
    if strata:
        wob = fbm(T, 1, 2, 2, r)[0] * 4.0
        beds = np.sin((ys + wob[None, :]) * (2 * math.pi * 2 / T))
        v = (1 - strata) * v + strata * (0.5 + 0.5 * beds)
    level = equalise(v)
    idx = np.digitize(level, [0.16, 0.62, 0.93]) + 1.0       # shades 1..4
    # clods: little mounds lit from the upper left
    height = np.zeros((T, T))
    for cx, cy in spread_points(r, 12, T, T, 7.0):
        rad = 1.2 + r.random() * 1.2
        dx, dy = wrapped_dist(xs, ys, cx, cy, T, T)
        height += np.exp(-(dx * dx + dy * dy) / (2 * rad * rad)) * (0.8 + 0.6 * r.random())
    lam = lambert(height * 2.0)
    idx += np.where(lam > 0.88, 1, 0) - np.where(lam < 0.3, 1, 0)
    cols = hexcols(colours)
    idx = np.clip(idx, 0, len(cols) - 1).astype(int)
    col = cols[idx].astype(float)
    # pebbles: small stones with a lit top-left and a dark lower-right
    pebble = hexcols(["#3b2a20", "#5a4636", "#77614d", "#937d63"])
    for cx, cy in spread_points(r, pebbles, T, T, 12.0):
        rx = 1.3 + r.random() * 1.0
        ry = rx * (0.7 + 0.25 * r.random())
        dx, dy = wrapped_dist(xs + 0.5, ys + 0.5, cx, cy, T, T)
        d = (dx / rx) ** 2 + (dy / ry) ** 2
        inside = d <= 1.0
        lit = -(dx / rx + dy / ry)
        shade = np.clip(np.round(1.5 + lit * 0.9), 1, 3).astype(int)
        col = np.where(inside[..., None], pebble[shade], col)
        rim = (d > 1.0) & (d <= 2.0) & (dx + dy > 0)
        col = np.where(rim[..., None], cols[0], col)
    return col


def dirt_tile(key, colours, strata=0.0, pebbles=3):
    return rgba_image(soil(key, colours, strata, pebbles))


# ---------------------------------------------------------------- stones

def stone_field(ss):
    n = T * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    return (xs + 0.5) / ss, (ys + 0.5) / ss, n


def stone_colour(inside, h, ss, r, colours, cracks=2, flecks=0.0):
    """Quantised lighting of a stone's height field: a few flat shades, the
    face toward the light bright, the far side dark, cracks and flecks."""
    gy, gx = np.gradient(h)
    nx, ny = -gx * ss, -gy * ss
    norm = np.sqrt(nx * nx + ny * ny + 1)
    lam = (nx * LIGHT[0] + ny * LIGHT[1] + LIGHT[2]) / norm
    grain = fbm(h.shape[1], h.shape[0], 16, 2, r) - 0.5
    v = 0.5 + 1.5 * (lam - LIGHT[2]) + grain * 0.35
    cols = hexcols(colours)
    k = len(cols)
    idx = np.clip(np.round(1 + v * (k - 3)), 1, k - 2).astype(int)
    if flecks:
        f = fbm(h.shape[1], h.shape[0], 32, 1, r)
        idx = np.where(f > 1 - flecks, np.minimum(idx + 1, k - 1), idx)
        idx = np.where(f < flecks * 0.7, np.maximum(idx - 1, 1), idx)
    col = cols[idx].astype(float)
    for _ in range(cracks):
        x0, y0 = 7 + r.random() * 18, 7 + r.random() * 18
        ang = r.random() * math.pi
        pts = [(x0, y0)]
        for _ in range(3):
            ang += (r.random() - 0.5) * 1.3
            x0 += math.cos(ang) * 2.8
            y0 += math.sin(ang) * 2.8
            pts.append((x0, y0))
        lay = Image.new("L", (h.shape[1], h.shape[0]), 0)
        ImageDraw.Draw(lay).line([(px * ss, py * ss) for px, py in pts], fill=255,
                                 width=max(1, int(0.9 * ss)))
        m = np.asarray(lay) > 0
        lower = np.roll(m, ss, 0) & ~m
        col = np.where((m & inside)[..., None], cols[0], col)
        col = np.where((lower & inside)[..., None], cols[min(k - 1, 4)], col)
    return col


def compose_stone(col, inside, ss, ground):
    """Stone over the earth it sits in: its silhouette box-filtered down, a
    dark edge, and the earth (the Dirt1 texture, so it meets the neighbouring
    dirt cells without a seam) in the corners it leaves free."""
    a = common.downsample(inside.astype(float), ss)
    c = common.downsample(col * inside[..., None], ss) / np.maximum(a[..., None], 1e-6)
    g = ground.astype(float)
    # earth darkens where the stone presses on it
    edge = outline_of((a > 0.5).astype(float), 1.0)
    g = g * (1 - 0.45 * edge[..., None])
    out = g * (1 - a[..., None]) + c * a[..., None]
    rim = (a > 0.05) & (a < 0.95)
    out = np.where(rim[..., None], out * 0.55, out)
    return rgba_image(out)


def rock_granite(ground):
    """Rock1: one big rounded granite boulder filling the cell."""
    ss = 4
    r = rng("stone", "granite")
    x, y, n = stone_field(ss)
    ang = np.arctan2(y - 16.4, x - 16)
    wob = 1 + 0.05 * np.sin(ang * 3 + 0.7) + 0.035 * np.sin(ang * 5 + 2.0)
    e = (np.abs((x - 16) / 15.0) ** 2.4 + np.abs((y - 16.4) / 14.4) ** 2.4) / wob ** 2.4
    inside = e <= 1.0
    h = np.sqrt(np.clip(1 - e, 0, None)) * 9.0
    for _ in range(3):
        cx, cy = 6 + r.random() * 20, 6 + r.random() * 20
        rad = 4 + r.random() * 4
        h += np.exp(-((x - cx) ** 2 + (y - cy) ** 2) / (2 * rad * rad)) * 1.6
    h += fbm(n, n, 8, 3, r) * 1.0
    col = stone_colour(inside, h, ss, r, STONE, cracks=2, flecks=0.12)
    return compose_stone(col, inside, ss, ground)


def rock_cobbles(ground):
    """Rock2: dark slate stones of several sizes wedged together."""
    ss = 4
    r = rng("stone", "cobbles")
    x, y, n = stone_field(ss)
    stones = [(9.5, 9.5, 8.6, 8.0), (22.5, 8.5, 8.2, 7.2), (24.5, 21.5, 7.0, 9.2), (10.5, 23.5, 9.6, 7.6),
              (17.0, 16.0, 4.2, 3.8)]
    inside = np.zeros((n, n), bool)
    h = np.zeros((n, n))
    for cx, cy, rx, ry in stones:
        e = np.abs((x - cx) / rx) ** 2.3 + np.abs((y - cy) / ry) ** 2.3
        this = e <= 1.0
        hh = np.sqrt(np.clip(1 - e, 0, None)) * 7.0 + 0.01
        take = this & (hh > h)
        h = np.where(take, hh, h)
        inside |= this
    h += fbm(n, n, 8, 3, r) * 0.9
    col = stone_colour(inside, h, ss, r, SLATE, cracks=1)
    return compose_stone(col, inside, ss, ground)


def rock_slab(ground):
    """Rock3: an angular block of ochre sandstone, its broken faces each
    catching the light at their own angle."""
    ss = 4
    r = rng("stone", "slab")
    x, y, n = stone_field(ss)
    outline = [(2.0, 9.0), (9.0, 1.6), (23.0, 2.2), (30.4, 10.0), (30.0, 24.5), (22.5, 30.6),
               (8.0, 30.2), (1.6, 22.0)]
    peak = (13.5, 12.5, 9.0)
    lay = Image.new("L", (n, n), 0)
    ImageDraw.Draw(lay).polygon([(px * ss, py * ss) for px, py in outline], fill=255)
    inside = np.asarray(lay) > 127
    cols = hexcols(SAND)
    col = np.zeros((n, n, 3))
    for i in range(len(outline)):
        p0 = np.array(outline[i] + (0.0,))
        p1 = np.array(outline[(i + 1) % len(outline)] + (0.0,))
        pk = np.array(peak)
        nrm = np.cross(p1 - p0, pk - p0)
        nrm = nrm / np.linalg.norm(nrm)
        if nrm[2] < 0:
            nrm = -nrm
        lam = float(nrm @ LIGHT)
        k = int(np.clip(round(1 + (0.5 + 1.7 * (lam - LIGHT[2])) * (len(cols) - 3)), 1, len(cols) - 2))
        tri = Image.new("L", (n, n), 0)
        ImageDraw.Draw(tri).polygon([(p0[0] * ss, p0[1] * ss), (p1[0] * ss, p1[1] * ss),
                                     (pk[0] * ss, pk[1] * ss)], fill=255)
        m = np.asarray(tri) > 127
        col = np.where(m[..., None], cols[k], col)
        # the ridge between faces catches a bright line on its lit side
        col = np.where((m & ~np.roll(m, ss, 1))[..., None] & (k >= 3), cols[min(k + 1, len(cols) - 1)], col)
    grain = fbm(n, n, 16, 2, r)
    col = np.where(((grain > 0.7) & inside)[..., None], col * 0.86, col)
    col = np.where(((grain < 0.22) & inside)[..., None], col * 1.1, col)
    return compose_stone(np.clip(col, 0, 255), inside, ss, ground)


# ---------------------------------------------------------------- border

def border_tile():
    """The unbreakable ring: a dark bolted bedrock plate, lit from the upper
    left, clearly not something a shovel or dynamite could touch."""
    r = rng("border")
    ys, xs = np.mgrid[0:T, 0:T].astype(float)
    n = fbm(T, T, 4, 3, r)
    base = hexcols(["#15161c", "#1e2028", "#262933", "#30343f", "#3d4250", "#555b6c", "#7b8296"])
    idx = np.clip(np.round(2 + (n - 0.5) * 2.2), 1, 3)
    # bevel: top and left faces catch the light, bottom and right fall away
    idx = np.where((ys < 2) | (xs < 2), 5, idx)
    idx = np.where((ys < 1) | (xs < 1), 6, idx)
    idx = np.where((ys > 29) | (xs > 29), 0, idx)
    idx = np.where(((ys == 29) & (xs > 0)) | ((xs == 29) & (ys > 0)), 1, idx)
    # a diagonal brace in relief
    d = np.abs((xs - ys))
    brace = (d < 2.2) & (xs > 3) & (xs < 28)
    idx = np.where(brace, 3, idx)
    idx = np.where(brace & (xs - ys > 1.2), 1, idx)
    idx = np.where(brace & (xs - ys < -1.2), 4, idx)
    col = base[idx.astype(int)].astype(float)
    img = rgba_image(col)
    return art.rivets(img, [(5.5, 5.5), (26.5, 5.5), (5.5, 26.5), (26.5, 26.5)], 1.6)


# ---------------------------------------------------------------- gems

def gem_tile(ground, colour, shape):
    """A large crystal set in the earth: facets lit from the upper left, a
    glint, a dark setting. The three gems differ in cut as well as colour."""
    ss = 4
    c = Canvas(T, T, ss)
    col = np.array(colour, float)

    def tone(k):
        v = np.clip(col * k + (40 if k > 1.0 else 0) * (k - 1.0) * 4, 0, 255)
        return tuple(int(t) for t in v) + (255,)

    cx, cy = 16, 16.5
    if shape == "brilliant":
        # crown on top, pavilion pointing down
        crown = [(cx - 12, cy - 2), (cx - 7, cy - 9), (cx + 7, cy - 9), (cx + 12, cy - 2)]
        tip = (cx, cy + 12)
        c.polygon(crown + [tip], tone(0.45))
        c.polygon([(cx - 12, cy - 2), (cx - 7, cy - 9), (cx - 2, cy - 2)], tone(1.25))
        c.polygon([(cx - 7, cy - 9), (cx + 7, cy - 9), (cx + 2, cy - 2), (cx - 2, cy - 2)], tone(1.05))
        c.polygon([(cx + 7, cy - 9), (cx + 12, cy - 2), (cx + 2, cy - 2)], tone(0.8))
        c.polygon([(cx - 12, cy - 2), (cx - 2, cy - 2), tip], tone(0.95))
        c.polygon([(cx - 2, cy - 2), (cx + 2, cy - 2), tip], tone(0.75))
        c.polygon([(cx + 2, cy - 2), (cx + 12, cy - 2), tip], tone(0.5))
        glint = (cx - 6, cy - 6)
    elif shape == "hexagon":
        # a long hexagonal prism lying on its side, end-on facets lit left
        pts = [(cx - 12, cy), (cx - 7, cy - 9), (cx + 7, cy - 9), (cx + 12, cy), (cx + 7, cy + 9),
               (cx - 7, cy + 9)]
        c.polygon(pts, tone(0.5))
        c.polygon([(cx - 8, cy), (cx - 4.5, cy - 6), (cx + 4.5, cy - 6), (cx + 8, cy), (cx + 4.5, cy + 6),
                   (cx - 4.5, cy + 6)], tone(0.95))
        c.polygon([(cx - 12, cy), (cx - 7, cy - 9), (cx - 4.5, cy - 6), (cx - 8, cy)], tone(1.25))
        c.polygon([(cx - 7, cy - 9), (cx + 7, cy - 9), (cx + 4.5, cy - 6), (cx - 4.5, cy - 6)], tone(1.12))
        c.polygon([(cx + 7, cy - 9), (cx + 12, cy), (cx + 8, cy), (cx + 4.5, cy - 6)], tone(0.75))
        c.polygon([(cx + 12, cy), (cx + 7, cy + 9), (cx + 4.5, cy + 6), (cx + 8, cy)], tone(0.5))
        c.polygon([(cx + 7, cy + 9), (cx - 7, cy + 9), (cx - 4.5, cy + 6), (cx + 4.5, cy + 6)], tone(0.6))
        c.polygon([(cx - 7, cy + 9), (cx - 12, cy), (cx - 8, cy), (cx - 4.5, cy + 6)], tone(0.85))
        glint = (cx - 5, cy - 4)
    else:
        # octahedron: two pyramids base to base, seen a little from the left
        top, bot = (cx + 1, cy - 13), (cx - 1, cy + 13)
        left, right, front = (cx - 11, cy), (cx + 11, cy - 1), (cx - 2, cy + 2)
        c.polygon([top, left, front], tone(1.25))
        c.polygon([top, front, right], tone(0.85))
        c.polygon([bot, front, left], tone(0.7))
        c.polygon([bot, right, front], tone(0.45))
        glint = (cx - 4, cy - 5)
    gem = c.image()
    rgb, a = common.to_float(gem)
    # the setting: a dark hollow around the stone, then the earth
    ring = np.asarray(gem.split()[3].filter(ImageFilter.MaxFilter(5))).astype(float) / 255
    g = ground.astype(float) * (1 - 0.55 * ring[..., None])
    out = g * (1 - a[..., None]) + rgb * a[..., None]
    img = rgba_image(out)
    s = Canvas(T, T, ss)
    gx, gy = glint
    s.polygon([(gx, gy - 3.2), (gx + 0.8, gy - 0.8), (gx + 3.2, gy), (gx + 0.8, gy + 0.8), (gx, gy + 3.2),
               (gx - 0.8, gy + 0.8), (gx - 3.2, gy), (gx - 0.8, gy - 0.8)], (255, 255, 255, 255))
    return common.over(img, s.image())


# ---------------------------------------------------------------- hazards and items

# Things standing in an open cell rest on this row: the lip that the ground
# below casts (tile 2) covers the rows beneath it, so their feet sit in it.
FOOT = 28.5


def spikes_tile():
    """Steel spikes bolted into the ground below, lit from the left, their
    tips stained red."""
    c = Canvas(T, T)
    c.rect((0.5, FOOT - 3, T - 0.5, FOOT + 2), (52, 55, 66, 255), radius=1)
    c.rect((0.5, FOOT - 3, T - 0.5, FOOT - 2), (130, 136, 152, 255))
    for i, x in enumerate((4.5, 12.5, 20.5, 28)):
        hgt = 19 if i % 2 else 23
        base = FOOT - 2.5
        c.polygon([(x - 3.6, base), (x, base - hgt), (x + 3.6, base)], (74, 78, 92, 255))
        c.polygon([(x - 3.6, base), (x, base - hgt), (x - 0.2, base)], (168, 175, 192, 255))
        c.line([(x - 1.6, base - 1), (x - 0.3, base - hgt + 4)], (232, 238, 248, 255), 0.8)
        c.polygon([(x - 1.0, base - hgt + 4), (x, base - hgt), (x + 1.0, base - hgt + 4)], (190, 50, 50, 255))
    return add_outline(common.clean_alpha(c.image()), strength=0.7)


def vortex_tile():
    """A whirlpool in space, turned by the game: dark eye, bright spiral
    arms, soft edge inside the cell's circle so no corner shows as it turns."""
    ss = 4
    n = T * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs + 0.5) / ss - 16
    y = (ys + 0.5) / ss - 16
    rr = np.hypot(x, y)
    th = np.arctan2(y, x)
    arms = 0.5 + 0.5 * np.cos(3 * th - np.log(rr + 0.8) * 4.2)
    arms = arms ** 1.6
    fade = np.clip((15.5 - rr) / 4.0, 0, 1)
    eye = np.clip((rr - 2.2) / 2.0, 0, 1)
    halo = np.exp(-((rr - 3.6) / 1.6) ** 2)
    a = np.clip(0.25 + 0.75 * arms, 0, 1) * fade
    a = np.maximum(a, halo * 0.9) * (rr < 15.5)
    a = np.where(rr < 2.6, 0.95, a)
    t = np.clip(rr / 15.5, 0, 1)
    inner = np.array([235, 225, 255.0])
    mid = np.array([170, 90, 240.0])
    outer = np.array([60, 40, 150.0])
    col = np.where((t < 0.4)[..., None], inner + (mid - inner) * (t / 0.4)[..., None],
                   mid + (outer - mid) * ((t - 0.4) / 0.6)[..., None])
    col = col * (0.55 + 0.45 * arms[..., None]) + halo[..., None] * np.array([90, 200, 255])
    col = np.where((rr < 2.6)[..., None], np.array([12, 6, 30.0]) * eye[..., None] + 0, col)
    col = np.clip(col, 0, 255)
    col = common.downsample(col * a[..., None], ss)
    a = common.downsample(a, ss)
    col = col / np.maximum(a[..., None], 1e-6)
    return common.clean_alpha(rgba_image(col, a), 6)


def radioactive_overlay(key, kind):
    """Glowing ore drawn over dirt in the game's pulsing glow colour
    (g, 1, g + 0.7): so it is drawn in greys here, white where it burns
    brightest, and takes its green from the game. Dark rims stay dark under
    any tint and hold the shapes together on the earth; a soft halo lets the
    glow spill onto the dirt."""
    r = rng("radio", key)
    ss = 4
    n = T * ss
    body = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    d = ImageDraw.Draw(body)
    rims = Image.new("L", (n, n), 0)
    dr = ImageDraw.Draw(rims)

    def S(pts):
        return [(px * ss, py * ss) for px, py in pts]

    if kind == "crystals":
        # Radioactive1: a fan of crystals grown out of the earth, each with a
        # bright face toward the light and a dim one away from it
        for x, y, hgt, lean, wid in ((9.5, 27, 12, -4.0, 3.6), (22.5, 26, 11, 4.0, 3.4), (12.5, 24, 15, -1.2, 3.8),
                                     (19.0, 25, 17, 1.6, 4.0), (15.5, 28, 9, 0.2, 3.0)):
            top = (x + lean, y - hgt)
            sh = y - hgt + wid * 1.1
            outline = [(x - wid, y), (x - wid + lean * 0.8, sh), top, (x + wid + lean * 0.8, sh), (x + wid, y)]
            dr.polygon(S(outline), fill=255)
            d.polygon(S(outline), fill=(138, 146, 140, 255))
            d.polygon(S([(x - wid, y), (x - wid + lean * 0.8, sh), top, (x + lean * 0.85 - 0.3, sh),
                         (x - 0.3, y)]), fill=(228, 234, 228, 255))
            d.line(S([(x - wid * 0.45, y - 1), (x - wid * 0.45 + lean * 0.8, sh)]), fill=(255, 255, 255, 255),
                   width=int(0.8 * ss))
    else:
        # Radioactive2: loose, hot nuggets of ore in crumbly earth
        for x0, y0 in spread_points(r, 6, 24, 24, 7.0):
            x0 += 4
            y0 += 4
            rad = 2.0 + r.random() * 2.6
            k = int(r.integers(6, 9))
            pts = [(x0 + math.cos(j / k * 6.283 + r.random() * 0.4) * rad * (0.8 + 0.3 * r.random()),
                    y0 + math.sin(j / k * 6.283 + r.random() * 0.4) * rad * (0.8 + 0.3 * r.random()))
                   for j in range(k)]
            dr.polygon(S(pts), fill=255)
            d.polygon(S(pts), fill=(132, 140, 134, 255))
            d.polygon(S([(x0 + (px - x0) * 0.75 - 0.5, y0 + (py - y0) * 0.75 - 0.5) for px, py in pts]),
                      fill=(215, 222, 215, 255))
            d.ellipse(S([(x0 - rad * 0.45 - 0.5, y0 - rad * 0.45 - 0.5), (x0 + rad * 0.2 - 0.5, y0 + rad * 0.2 - 0.5)]),
                      fill=(255, 255, 255, 255))
    rim_a = rims.filter(ImageFilter.MaxFilter(9))
    halo_a = rim_a.filter(ImageFilter.GaussianBlur(2.5 * ss)).point(lambda v: int(v * 0.5))
    out = Image.new("RGBA", (n, n), (225, 232, 225, 0))
    out.putalpha(halo_a)
    dark = Image.new("RGBA", (n, n), (18, 22, 18, 0))
    dark.putalpha(rim_a)
    out = Image.alpha_composite(out, dark)
    out = Image.alpha_composite(out, body)
    return common.clean_alpha(out.resize((T, T), Image.BOX), 8)


def item_tile(which):
    """World items standing on the ground (they need support below)."""
    c = Canvas(T, T)
    base = FOOT
    if which == 0:      # amethyst crystal cluster
        for x, hgt, lean, col in ((10.5, 14, -2.5, (140, 100, 220)), (22, 12, 2.5, (120, 85, 200)),
                                  (16, 21, 0.3, (178, 132, 250))):
            top = (x + lean, base - hgt)
            c.polygon([(x - 4, base), (x - 3.6 + lean * 0.8, base - hgt + 4), top,
                       (x + 3.6 + lean * 0.8, base - hgt + 4), (x + 4, base)], col + (255,))
            c.polygon([(x + 0.3, base), (x + lean * 0.9 + 0.3, base - hgt + 4), top,
                       (x + 3.6 + lean * 0.8, base - hgt + 4), (x + 4, base)],
                      tuple(int(v * 0.62) for v in col) + (255,))
            c.polygon([(x - 3.6 + lean * 0.8, base - hgt + 4), top, (x + lean * 0.9 + 0.3, base - hgt + 4)],
                      tuple(min(255, int(v * 1.25 + 30)) for v in col) + (255,))
            c.line([(x - 2.2, base - 1.5), (x - 2.2 + lean * 0.7, base - hgt + 5)], (235, 220, 255, 200), 0.8)
    elif which == 1:    # a crate of ore: planks bound in iron, too heavy to dig out
        top = 5.5
        c.rect((3, top, 29, base), (58, 36, 18, 255), radius=1)
        for k in range(4):                           # planks laid across, lit on top
            y0 = top + 1 + k * (base - top - 2) / 4
            y1 = y0 + (base - top - 2) / 4 - 0.8
            c.rect((4, y0, 28, y1), (150, 104, 56, 255) if k % 2 else (168, 118, 64, 255))
            c.rect((4, y0, 28, y0 + 0.9), (200, 152, 92, 255))
        c.line([(8, base - 2.5), (24, top + 2.5)], (58, 36, 18, 255), 3.4)
        c.line([(8, base - 2.5), (24, top + 2.5)], (122, 82, 42, 255), 2.2)
        for x0 in (3.5, 24.5):                       # iron bands and their rivets
            c.rect((x0 - 0.5, top - 0.5, x0 + 4.5, base), (30, 30, 36, 255))
            c.rect((x0, top, x0 + 4, base), (84, 86, 98, 255))
            c.rect((x0, top, x0 + 1, base), (160, 164, 178, 255))
            for y in (top + 3, (top + base) / 2, base - 3):
                c.ellipse((x0 + 1.2, y - 1.1, x0 + 3.4, y + 1.1), (196, 200, 212, 255))
    elif which == 2:    # glowing mushroom (diggable)
        c.rect((13, 18, 19.5, base), (222, 212, 188, 255), radius=2)
        c.rect((13, 18, 15, base), (246, 240, 226, 255), radius=1)
        c.rect((17.5, 19, 19.5, base), (176, 164, 140, 255), radius=1)
        c.ellipse((3.5, 7, 28.5, 22), (196, 58, 62, 255))
        c.ellipse((4.5, 7.5, 25, 17.5), (232, 96, 88, 255))
        c.ellipse((7, 8.5, 15, 12.5), (255, 150, 130, 255))
        c.rect((6, 18.5, 26, 21), (120, 30, 40, 255), radius=1)
        for x, y in ((9, 13.5), (16, 10.5), (22.5, 14), (13.5, 16.5), (20, 18)):
            c.ellipse((x - 1.5, y - 1.2, x + 1.5, y + 1.2), (255, 240, 220, 255))
    else:               # alien shrub (diggable): fronds with glowing bulbs
        for ang, ln in ((-58, 15), (-32, 17), (-88, 21), (-118, 18), (-146, 14)):
            a = math.radians(ang)
            x1, y1 = 16 + math.cos(a) * ln, base + math.sin(a) * ln
            mx, my = 16 + math.cos(a) * ln * 0.5 - math.sin(a) * 1.5, base + math.sin(a) * ln * 0.55
            c.line([(16, base), (mx, my), (x1, y1)], (52, 118, 48, 255), 2.2)
            c.line([(16, base), (mx - 0.5, my - 0.5), (x1 - 0.5, y1 - 0.5)], (96, 170, 70, 255), 0.9)
            c.ellipse((x1 - 2.5, y1 - 2.5, x1 + 2.5, y1 + 2.5), (150, 225, 90, 255))
            c.ellipse((x1 - 1.5, y1 - 1.8, x1 + 0.5, y1 + 0.2), (230, 255, 190, 255))
        c.ellipse((12, base - 3, 20, base + 1.5), (44, 92, 40, 255))
    return add_outline(common.clean_alpha(c.image()), strength=0.75)


def explosive_tile():
    """A red drum of blasting compound with a hazard plate, standing on the
    ground; it goes off in a chain with its neighbours."""
    c = Canvas(T, T)
    top, bot = 8.5, FOOT + 0.5
    c.rect((8, top, 24, bot), (168, 34, 32, 255), radius=2.5)
    c.rect((8, top, 13.5, bot), (222, 74, 60, 255), radius=2.5)
    c.rect((10, top, 12, bot), (246, 120, 100, 255), radius=1)
    c.rect((19.5, top, 24, bot), (118, 20, 24, 255), radius=2.5)
    for y in (top + 3, bot - 5):
        c.rect((7.5, y, 24.5, y + 1.8), (62, 60, 70, 255))
        c.rect((7.5, y, 24.5, y + 0.6), (140, 140, 152, 255))
    c.rect((10.5, 14.5, 21.5, 21.5), (250, 206, 54, 255), radius=1)
    c.polygon([(16, 15.6), (12.2, 20.6), (19.8, 20.6)], (26, 24, 24, 255))
    c.polygon([(16, 17.2), (14.4, 19.9), (17.6, 19.9)], (250, 206, 54, 255))
    c.ellipse((8, top - 2.2, 24, top + 2.2), (120, 24, 26, 255))
    c.ellipse((9, top - 1.6, 23, top + 1.4), (190, 60, 52, 255))
    c.rect((17, top - 3.6, 20.5, top - 0.8), (100, 100, 112, 255), radius=0.6)
    c.line([(18.7, top - 3.6), (20.5, top - 5.5), (23, top - 6.0)], (206, 196, 166, 255), 0.9)
    return add_outline(common.clean_alpha(c.image()), strength=0.75)


# ---------------------------------------------------------------- edge lips

def lip_profile(key, ss, lo, hi):
    """A ragged crust line that wraps every 32 pixels, so the lips of
    neighbouring cells run on into each other."""
    r = rng("lip", key)
    p = fbm(T * ss, 1, 4, 4, r)[0]
    p = (p - p.min()) / max(1e-6, p.max() - p.min())
    return lo + (hi - lo) * p, r


def edge_overlay(side):
    """The lip a ground cell casts onto an open neighbour. The game draws it
    4 pixels from the open cell's centre toward the ground, so the shared
    edge lies on row 28 of the picture as drawn here (ground below); the
    other three sides are this picture turned. The crust stands 1 to 4
    pixels proud of the edge and fades into the ground's first rows, which
    rounds off the square cut. The light from the upper left picks out a
    floor's top and the face of a wall on the right; ceilings hang in shade."""
    ss = 4
    n = T * ss
    edge = 28.0
    top, r = lip_profile(side, ss, edge - 4.6, edge - 0.8)
    ys = (np.arange(n)[:, None] + 0.5) / ss
    depth = ys - top[None, :]                 # pixels below the crust line
    solid_ = depth >= 0
    fade = np.clip(1.0 - (ys - edge) / 3.2, 0, 1)
    a = np.where(solid_, 1.0, 0.0) * np.where(ys > edge, fade ** 1.4 * 0.85, 1.0)
    crust = hexcols(art.DIRT)
    face = {"below": 3, "right": 3, "left": 2, "above": 1}[side]
    col = np.zeros((n, n, 3)) + crust[face]
    col = np.where((depth < 1.0)[..., None], crust[min(4, face + 1)], col)
    col = np.where(((depth >= 2.2) & (ys <= edge + 0.5))[..., None], crust[max(0, face - 1)], col)
    grain = fbm(n, n, 16, 2, r)
    col = np.where(((grain > 0.62) & (depth > 1.5))[..., None], crust[max(0, face - 1)], col)
    if side == "below":
        # a mat of moss on the floor, tufts of grass standing in it
        moss = hexcols(MOSS)
        mz = depth < 2.0
        col = np.where(mz[..., None], moss[2], col)
        col = np.where((depth < 0.9)[..., None], moss[3], col)
        col = np.where(((depth >= 1.4) & (depth < 2.2))[..., None], moss[1], col)
    # Ceilings and left-hand walls stand between the light and the open
    # cell: a soft shadow falls from them into it, which makes caves read
    # as hollows. Floors and right-hand walls face the light and cast none.
    shadow = {"above": 0.5, "left": 0.38}.get(side, 0.0)
    if shadow:
        sa = shadow * np.clip(1 + depth / 7.0, 0, 1) ** 2 * (depth < 0)
        col = np.where((depth < 0)[..., None], np.array([6.0, 4, 10]), col)
        a = np.where(depth < 0, sa, a)
    img = rgba_image(col, a)
    lay = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    d = ImageDraw.Draw(lay)
    if side == "below":
        moss = [tuple(int(v) for v in c) + (255,) for c in hexcols(MOSS)]
        for x in spread_points(r, 9, T, 1, 3.0):
            x = x[0]
            xs = int(x * ss) % n
            base = top[xs] + 0.8
            hgt = 1.8 + r.random() * 2.6
            lean = (r.random() - 0.5) * 2.4
            d.polygon([((x - 0.8) * ss, base * ss), ((x + lean) * ss, (base - hgt) * ss),
                       ((x + 0.8) * ss, base * ss)], fill=moss[2 + int(r.integers(0, 3))])
    elif side == "above":
        # roots and drips hang from a ceiling, in shade
        for x in spread_points(r, 4, T, 1, 6.0):
            x = x[0]
            xs = int(x * ss) % n
            y0 = top[xs]
            ln = 2.5 + r.random() * 4.0
            d.line([(x * ss, (y0 - 0.5) * ss), ((x + (r.random() - 0.5) * 1.5) * ss, (y0 - ln) * ss)],
                   fill=(70, 48, 32, 255), width=int(0.9 * ss))
    out = Image.alpha_composite(img, lay).resize((T, T), Image.BOX)
    if side == "above":
        # roots were drawn upward from the crust; after the flip they hang
        out = out.transpose(Image.FLIP_TOP_BOTTOM)
    elif side == "left":
        out = out.rotate(-90)
    elif side == "right":
        out = out.rotate(90)
    return common.clean_alpha(out, 10)


# ---------------------------------------------------------------- backgrounds

def cave_wall(w, h, key):
    """The wall behind dug-out cells, from just under the surface down
    through the strata: warm earth near the top, cooler and darker rock
    deeper, always darker than the ground in front so open cells read as
    depth. Wraps every 256 pixels sideways; runs on without a seam from one
    256-row layer to the next."""
    r = rng("cave", key)
    ys = np.arange(h)[:, None].astype(float)
    depth = np.clip((ys - 186) / (h - 186), 0, 1)
    # beds: wavy horizontal strata whose thickness varies
    wav = fbm(w, 1, 3, 3, r)[0][None, :] * 14
    bed = np.sin((ys + wav) * 0.085) * 0.5 + np.sin((ys + wav * 0.6) * 0.23) * 0.25
    n = fbm(w, h, 8, 4, r)
    v = 0.42 + 0.22 * bed + 0.36 * (n - 0.5)
    warm = hexcols(["#100b0a", "#1a1210", "#251a15", "#31231b", "#3e2d22"])
    cool = hexcols(["#0a0b10", "#11131b", "#1a1d27", "#242834", "#2f3442"])
    steps = np.clip(np.floor(v * 5), 0, 4).astype(int)
    col = warm[steps] * (1 - depth[..., None]) + cool[steps] * depth[..., None]
    # embedded stones, lit from the upper left
    hf = np.zeros((h, w))
    pts = spread_points(r, w * h // 1500, w, h, 14)
    xs_ = np.arange(w)[None, :].astype(float)
    for cx, cy in pts:
        rad = 2.0 + r.random() * 4.5
        y0, y1 = int(max(0, cy - rad - 2)), int(min(h, cy + rad + 3))
        sub_y = ys[y0:y1]
        dx = (xs_ - cx + w / 2) % w - w / 2
        dy = sub_y - cy
        d = (dx / rad) ** 2 + (dy / (rad * 0.8)) ** 2
        hf[y0:y1] = np.maximum(hf[y0:y1], np.sqrt(np.clip(1 - d, 0, None)) * rad)
    lam = lambert(hf)
    inside = hf > 0
    stone = hexcols(["#1a1618", "#231e20", "#2e282a", "#3b3335"])
    si = np.clip(np.round(lam * 3.2), 0, 3).astype(int)
    col = np.where(inside[..., None], stone[si] * (1 - 0.35 * depth[..., None]), col)
    # glints of ore and crystal, more of them deeper down
    for _ in range(w * h // 900):
        x, y = int(r.integers(0, w)), int(r.integers(186, h))
        if r.random() < 0.3 + 0.5 * (y / h):
            c = [110, 170, 210] if r.random() < 0.6 else [200, 150, 90]
            col[y, x] = c
            if r.random() < 0.3:
                col[y, (x + 1) % w] = np.array(c) * 0.5
    return col


def ridge(w, base, amp, key, cells=3, octaves=4, sharp=0.0):
    """A skyline that wraps every `w` pixels; `sharp` pinches the tops of
    the noise into peaks."""
    r = rng("ridge", key)
    p = fbm(w, 1, cells, octaves, r)[0]
    p = (p - p.min()) / (p.max() - p.min())
    if sharp:
        peaks = 1 - np.abs(2 * fbm(w, 1, cells + 1, octaves, r)[0] - 1)
        p = (1 - sharp) * p + sharp * peaks ** 1.5 * (0.4 + 0.6 * p)
        p = (p - p.min()) / (p.max() - p.min())
    return base - p * amp


def background_layers():
    """The six layers: 5 the sky (drawn first, then the stars over it),
    2 the mountains, 1 the near ridge with the cave wall under the surface,
    0, 4 and 3 the cave wall further down. All but the sky are placed as one
    256-wide, 1024-tall strip; the surface is row 186 of layer 1."""
    W = 256
    surface = 186
    ys = np.arange(256)[:, None].astype(float)
    xs = np.arange(W)[None, :].astype(float)
    wall = cave_wall(W, 1024, "wall")
    layers = {}

    # slot 5: the sky. The drifting stars are drawn over this layer, so it
    # holds no solid shapes: only the glow of the horizon and a faint band of
    # nebula, see-through at the top where the stars are.
    t = np.clip((ys - 40) / 150.0, 0, 1)
    sky = ramp(t, ["#0b0a1e", "#17143a", "#2c1f55", "#4a2e6a", "#7a4277", "#b2617a"])
    a = np.clip((ys - 30) / 130.0, 0, 1) ** 1.3
    neb = fbm(W, 256, 4, 5, rng("nebula"))
    band = np.exp(-((ys - 95 - 25 * np.sin(xs / W * 2 * math.pi)) / 28.0) ** 2)
    glow = np.clip((neb - 0.45) * 2.2, 0, 1) * band
    sky = sky + glow[..., None] * np.array([70, 60, 120])
    a = np.clip(a + glow * 0.35, 0, 1)
    a = np.where(ys > surface + 10, 1.0, a)
    layers[5] = rgba_image(np.clip(sky, 0, 255), a * np.ones((1, W)))

    # slot 2: two ranges of mountains, the farther one hazy and taller, the
    # nearer one darker; slopes that face the upper left catch a rim of light.
    far = ridge(W, 170, 80, "far", 4, 4, sharp=0.45)
    near = ridge(W, 186, 36, "mid", 5, 4, sharp=0.2)
    col = np.zeros((256, W, 3))
    alpha = np.zeros((256, W))
    for skyline, colours, rimcol, key in ((far, ["#221a40", "#2c2250", "#372b5f", "#43366f", "#54457f"],
                                           (160, 120, 200), "farrock"),
                                          (near, ["#120d1d", "#181226", "#1f182f", "#281f39", "#322745"],
                                           (110, 80, 140), "nearrock")):
        body = ys >= skyline[None, :]
        below = ys - skyline[None, :]
        # gullies run down from the crest; faces that turn toward the upper
        # left are lit, the others stay in shade
        gul = fbm(W, 256, 24, 2, rng(key, "gullies"))
        slope = (np.roll(skyline, -3) - np.roll(skyline, 3)) / 6.0      # > 0: ground falls to the right
        face = np.clip(-slope * 1.5, -1, 1)[None, :] + (gul - 0.5) * 1.4
        v = 0.45 + 0.4 * face * np.exp(-below / 70.0) - 0.35 * np.clip(below / 90.0, 0, 1)
        shade = ramp(np.clip(v, 0, 1), colours, steps=5)
        rim = (below >= 0) & (below < 2.0)
        shade = np.where(rim[..., None], shade + np.clip(-slope, 0.2, 1)[None, :, None] * np.array(rimcol) * 0.6,
                         shade)
        col = np.where(body[..., None], shade, col)
        alpha = np.where(body, 1.0, alpha)
    layers[2] = common.clean_alpha(rgba_image(np.clip(col, 0, 255), alpha))

    # slot 1: the near ridge just above the surface (rocks and shrubs in
    # silhouette) and the cave wall under it.
    top = ridge(W, surface + 1, 11, "near", 6, 5)
    body = ys >= top[None, :]
    sil = ramp(0.3 + 0.4 * fbm(W, 256, 16, 3, rng("nearsil")), ["#0c0810", "#140e18", "#1c1420"], steps=3)
    rim = (ys - top[None, :] >= 0) & (ys - top[None, :] < 1.5)
    sil = np.where(rim[..., None], sil + np.array([40, 30, 45]), sil)
    # a few alien fronds against the sky
    lay = Image.new("RGBA", (W * 4, 256 * 4), (0, 0, 0, 0))
    d = ImageDraw.Draw(lay)
    r = rng("fronds")
    for x in spread_points(r, 7, W, 1, 24):
        x = x[0]
        base_y = top[int(x) % W] + 1
        for k in range(int(r.integers(2, 5))):
            ang = math.radians(-90 + (r.random() - 0.5) * 70)
            ln = 5 + r.random() * 9
            x1, y1 = x + math.cos(ang) * ln, base_y + math.sin(ang) * ln
            d.line([(x * 4, base_y * 4), (x1 * 4, y1 * 4)], fill=(16, 11, 20, 255), width=5)
            d.ellipse([(x1 - 1.3) * 4, (y1 - 1.3) * 4, (x1 + 1.3) * 4, (y1 + 1.3) * 4], fill=(16, 11, 20, 255))
    fr = np.asarray(lay.resize((W, 256), Image.BOX)).astype(float)
    fa = fr[:, :, 3] / 255.0
    near_col = np.where((ys >= surface)[..., None], wall[:256], sil)
    near_col = near_col * (1 - fa[..., None]) + fr[:, :, :3] * fa[..., None]
    a1 = np.maximum(body.astype(float), fa)
    # fronds sideways past the tile edge wrap round
    layers[1] = common.clean_alpha(rgba_image(near_col, a1))
    layers[0] = rgba_image(wall[256:512])
    layers[4] = rgba_image(wall[512:768])
    layers[3] = rgba_image(wall[768:1024])
    return layers


# ---------------------------------------------------------------- water

WATER_COLOURS = {
    # planet: (deep, surface light, crest)
    1: ((22, 70, 160), (70, 150, 230), (190, 235, 255)),    # field world: clear blue water
    2: ((90, 140, 185), (170, 210, 235), (245, 252, 255)),   # ice world: icy slush
    3: ((120, 30, 110), (215, 90, 170), (255, 190, 230)),    # soft world: pink jelly
    4: ((18, 16, 24), (60, 52, 70), (170, 150, 200)),        # asteroid: black oil
}


def water_tile(planet, phase):
    """A pool one cell deep (the ground holds it on three sides): a rippled
    surface a few rows below the cell's top, lighter near the top, deeper
    colour below, translucent so the wall behind shows through."""
    deep, light, crest_c = (np.array(c, float) for c in WATER_COLOURS[planet])
    ss = 4
    n = T * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs + 0.5) / ss
    y = (ys + 0.5) / ss
    ph = phase * 2 * math.pi
    wave = 5.0 + 0.9 * np.sin(x / T * 2 * math.pi * 2 + ph) + 0.5 * np.sin(x / T * 2 * math.pi * 3 - ph * 2)
    t = np.clip((y - wave) / (T - wave), 0, 1)
    col = light * (1 - t[..., None]) + deep * t[..., None]
    # light bands under the surface, drifting with the phase
    caust = np.sin(x * 0.55 + y * 0.28 + ph) * np.sin(x * 0.31 - y * 0.45 - ph)
    col += (np.clip(caust, 0, 1) ** 2 * 30 * (1 - t))[..., None]
    if planet == 4:
        # an oily rainbow sheen near the surface
        hue = (x / 9.0 + y / 13.0 + phase) % 1.0
        sheen = np.stack([np.sin(hue * 6.28), np.sin(hue * 6.28 + 2.1), np.sin(hue * 6.28 + 4.2)], -1)
        col += sheen * 30 * np.exp(-(y - wave - 2) ** 2 / 6)[..., None]
    body = y >= wave
    crest = body & (y < wave + 1.0)
    col = np.where(crest[..., None], crest_c, col)
    col = np.where((body & (y >= wave + 1.0) & (y < wave + 2.0))[..., None], light * 1.1, col)
    opacity = {1: 0.82, 2: 0.9, 3: 0.86, 4: 0.94}[planet]
    a = np.where(body, opacity + 0.12 * t, 0.0)
    a = np.where(crest, 1.0, a)
    col = np.clip(col, 0, 255)
    c2 = common.downsample(col * a[..., None], ss)
    a2 = common.downsample(a, ss)
    c2 = c2 / np.maximum(a2[..., None], 1e-6)
    return common.clean_alpha(rgba_image(c2, a2))


# ---------------------------------------------------------------- folder

def generate(reg):
    dirt1 = soil("dirt1", EARTH)
    tiles = {
        0: (dirt_tile("spare", CLAY), "spare earth (no cell code draws it)"),
        1: (rgba_image(dirt1), "Dirt1: packed brown earth; also behind pods and the radioactive glow"),
        2: (edge_overlay("below"), "edge lip of the ground below: mossy crust along row 28, drawn 4 px down"),
        3: (edge_overlay("left"), "edge lip of the ground to the left: crust along column 4, drawn 4 px left"),
        4: (edge_overlay("above"), "edge lip of the ground above: shaded crust and roots along row 4, drawn 4 px up"),
        5: (edge_overlay("right"), "edge lip of the ground to the right: lit crust along column 28, drawn 4 px right"),
        6: (dirt_tile("dirt2", CLAY, strata=0.45, pebbles=1), "Dirt2: red clay laid in thin beds"),
        7: (radioactive_overlay("r1", "crystals"), "Radioactive1 glow overlay: a crystal cluster in greys, tinted (g, 1, g+0.7)"),
        8: (rock_granite(dirt1), "Rock1: a rounded granite boulder"),
        9: (rock_cobbles(dirt1), "Rock2: three slate cobbles"),
        10: (rock_slab(dirt1), "Rock3: a bedded sandstone block"),
        11: (border_tile(), "Border: the bolted bedrock plate of the ring"),
        12: (gem_tile(dirt1, (80, 210, 255), "brilliant"), "Diamond1: cyan brilliant"),
        13: (gem_tile(dirt1, (240, 80, 200), "hexagon"), "Diamond2: magenta prism"),
        14: (gem_tile(dirt1, (255, 200, 60), "octahedron"), "Diamond3: gold octahedron"),
        15: (spikes_tile(), "Spikes: steel spikes on the ground below"),
        16: (vortex_tile(), "Vortex: a whirlpool, turned by the game"),
        17: (radioactive_overlay("r2", "seams"), "Radioactive2 glow overlay: glowing seams that join across cells, tinted"),
        18: (item_tile(0), "WorldItem1: amethyst cluster"),
        19: (item_tile(1), "WorldItem2: a crate of ore bound in iron (the tutorial's crates)"),
        20: (item_tile(2), "WorldItem3: mushroom (diggable)"),
        21: (item_tile(3), "WorldItem4: alien shrub (diggable)"),
        22: (explosive_tile(), "Explosive: red drum of blasting compound"),
    }
    for i in range(23):
        img, role = tiles[i]
        reg.picture(FIELD, i, img, "tile " + role)

    layers = background_layers()
    roles = {0: "backdrop: cave wall, 256 to 511 px under the top of layer 1",
             1: "backdrop: near ridge over the surface (row 186) and the cave wall under it",
             2: "backdrop: mountains",
             3: "backdrop: deepest cave wall",
             4: "backdrop: deep cave wall",
             5: "backdrop: sky glow, see-through at the top (scrolls a little faster)"}
    for i in range(6):
        kind = "jpg" if i in (0, 3, 4) else "tga"
        reg.picture(FIELD + "/BACKGROUND", i, layers[i], roles[i], kind=kind, quality=88)

    reg.picture(FIELD + "/WATER", 0, water_tile(1, 0.0), "water cell, planet 1 (object slot 8)")
    for p in (2, 3, 4):
        reg.picture(FIELD + "/WATER", p - 1, water_tile(p, 0.0),
                    "water cell, planet %d (for object slot %d)" % (p, 7 + p))
    for i in range(4, 11):
        reg.picture(FIELD + "/WATER", i, water_tile(1, (i - 3) / 8.0),
                    "water cell, planet 1, ripple phase %d" % (i - 3))
