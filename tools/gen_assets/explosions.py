"""SPRITES2/EXPLOSIONS/SMALL: the blast, 64 x 64, drawn white and opaque at
its own size centred on the blasted cell, one frame per tick: frames 1 to 9
are shown, so the whole blast lasts under a quarter of a second and each
frame has to read at a glance. Frame 0 is the first spark, never shown.

The blast is a cluster of puffs thrown outwards from the cell centre. Each
puff carries heat that the picture maps to a few flat shades, white-hot to
ember to smoke; dirt and stone chips fly out of the cell as it goes."""
import math

import numpy as np

import common
from common import rng, fbm

S = 64
SS = 2
# cold smoke to white heat
SMOKE_SHADES = 4
FIRE = np.array([[40, 34, 34], [70, 62, 60], [106, 96, 90], [146, 136, 126],
                 [168, 48, 26], [228, 102, 30], [255, 172, 52], [255, 230, 126], [255, 252, 235]],
                np.float32)


def puffs():
    r = rng("blast", "puffs")
    out = []
    for j in range(16):
        ang = 2 * math.pi * (j + 0.5 * r.random()) / 16
        out.append(dict(ang=ang, reach=0.55 + 0.6 * r.random(), size=0.7 + 0.5 * r.random(),
                        rise=0.5 + r.random()))
    return out


PUFFS = puffs()
NOISE = None


def _noise():
    global NOISE
    if NOISE is None:
        NOISE = fbm(S * SS, S * SS, 6, 4, rng("blast", "noise"))
    return NOISE


def blast(t):
    """t from 0 (the flash) to 1 (the last smoke)."""
    n = S * SS
    ys, xs = np.mgrid[0:n, 0:n].astype(np.float32)
    x = (xs + 0.5) / SS - S / 2
    y = (ys + 0.5) / SS - S / 2
    noise = _noise()
    grow = 1 - (1 - min(1.0, t * 1.6)) ** 2        # fast out, then slows
    density = np.zeros((n, n), np.float32)
    heat = np.zeros((n, n), np.float32)
    hot = max(0.0, 1.0 - t * 1.25)
    for p in PUFFS:
        d = 4 + 17 * p["reach"] * grow
        px = math.cos(p["ang"]) * d
        py = math.sin(p["ang"]) * d * 0.85 - 5 * p["rise"] * t * t
        rad = (4.5 + 7.5 * grow + 2.5 * t) * p["size"]
        q = ((x - px) ** 2 + (y - py) ** 2) / (rad * rad)
        blob = np.clip(1 - q, 0, 1) ** 1.5
        density = np.maximum(density, blob)
        heat = np.maximum(heat, blob * (1.0 - 0.6 * p["reach"] * grow))
    # the core of the blast, hottest at the start
    core_r = 10 + 11 * grow
    core = np.clip(1 - (x * x + y * y) / (core_r * core_r), 0, 1)
    density = np.maximum(density, core * (1 - t * 0.7))
    heat = np.maximum(heat, core)
    density *= 0.8 + 0.45 * noise
    heat = heat * hot * (0.75 + 0.5 * noise)
    # fire where it is hot; smoke, lit from the upper left, where it has cooled
    gy, gx = np.gradient(density)
    lit = np.clip(0.55 + (-gx - gy) * 6, 0, 1)
    smoke_level = np.clip(lit * SMOKE_SHADES - 0.01, 0, SMOKE_SHADES - 0.01)
    fire_level = SMOKE_SHADES + np.clip(heat * 1.6 - 0.15, 0, 1) * (len(FIRE) - SMOKE_SHADES - 0.01)
    level = np.where(heat > 0.18, fire_level, smoke_level).astype(int)
    level = np.clip(level, 0, len(FIRE) - 1)
    col = FIRE[level]
    edge = 0.22 + 0.2 * t
    alpha = np.clip((density - edge) * 5.0, 0, 1)
    # smoke is thinner than fire
    alpha *= np.where(heat > 0.18, 1.0, 0.82)
    # smoke thins out at the end
    alpha *= np.clip(1.25 - t, 0, 1) if t > 0.5 else 1.0
    if t > 0.6:
        alpha *= np.clip((noise - (t - 0.6) * 1.4) * 3 + 0.5, 0, 1)
    img = _compose(col, alpha)
    return common.over(img, _bits(t))


def _compose(col, alpha):
    col = common.downsample(col * alpha[..., None], SS)
    a = common.downsample(alpha, SS)
    col = col / np.maximum(a[..., None], 1e-6)
    return common.rgba_image(col, a)


def _bits(t):
    """The shock ring, sparks and chips of dirt and stone."""
    c = common.Canvas(S, S, 4)
    r = rng("blast", "bits")
    if t < 0.2:
        # the flash: rays from the centre
        k = t / 0.2
        for j in range(8):
            ang = j * math.pi / 4 + 0.3
            ln = (22 if j % 2 else 14) * (1 - 0.3 * k)
            w = 0.16
            c.polygon([(32 + math.cos(ang - w) * 7, 32 + math.sin(ang - w) * 7),
                       (32 + math.cos(ang) * ln, 32 + math.sin(ang) * ln),
                       (32 + math.cos(ang + w) * 7, 32 + math.sin(ang + w) * 7)],
                      (255, 244, 200, int(240 * (1 - k))))
    if t < 0.35:
        k = t / 0.35
        rad = 12 + 18 * k
        c.ellipse((32 - rad, 32 - rad, 32 + rad, 32 + rad), None,
                  outline=(255, 240, 200, int(200 * (1 - k))), width=1.2)
    for j in range(10):
        ang = 2 * math.pi * r.random()
        speed = 10 + 7 * r.random()
        u = t * 1.1
        d = 9 + speed * u
        x = 32 + math.cos(ang) * d
        y = 32 + math.sin(ang) * d * 0.9 + 12 * u * u
        if math.hypot(x - 32, y - 32) > 28:
            continue        # gone past the picture's edge: never cut a chip in half
        if j < 6 and 0.05 < t < 0.5:
            # a spark: a short bright streak along its path
            tx, ty = x - math.cos(ang) * 3, y - math.sin(ang) * 3
            c.line([(tx, ty), (x, y)], (255, 236, 150, 255), 1.0)
        elif j >= 6 and 0.2 < t < 0.95:
            s = 1.2 + 0.7 * r.random()
            col = (120, 82, 50, 255) if j % 2 else (120, 124, 138, 255)
            c.rect((x - s - 0.5, y - s - 0.5, x + s + 0.5, y + s + 0.5), (24, 16, 12, 255))
            c.rect((x - s, y - s, x + s, y + s), col)
            c.rect((x - s, y - s, x, y), tuple(min(255, v + 50) for v in col[:3]) + (255,))
    return common.clean_alpha(c.image(), 8)


def flash():
    """Frame 0: the spark at the moment of the blast."""
    c = common.Canvas(S, S, 4)
    c.ellipse((24, 24, 40, 40), (255, 200, 90, 120))
    c.ellipse((27, 27, 37, 37), (255, 250, 220, 255))
    return common.clean_alpha(c.image(), 8)


def generate(reg):
    folder = "SPRITES2/EXPLOSIONS/SMALL"
    reg.picture(folder, 0, flash(), "blast: first flash (not shown by the game)", alpha="clear")
    for i in range(1, 10):
        reg.picture(folder, i, blast((i - 1) / 8.0), "blast frame %d of 9" % i, alpha="clear")
