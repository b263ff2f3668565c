"""SPRITES2/EXPLOSIONS/SMALL: the blast animation (64 x 64, drawn at its own
size over the cell; frames 1 to 9 are shown, one per tick)."""
import math

import numpy as np

import common
from common import rgba_image, rng, fbm

S = 64


def blast(t, key):
    """t from 0 (flash) to 1 (last wisp of smoke)."""
    r = rng("blast", key)
    ss = 2
    n = S * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs + 0.5) / ss - S / 2
    y = (ys + 0.5) / ss - S / 2
    rr = np.hypot(x, y)
    th = np.arctan2(y, x)
    noise = fbm(n, n, 6, 4, rng("blastnoise"))
    lumps = 1 + 0.25 * np.sin(5 * th + 1.3) + 0.15 * np.sin(9 * th + 0.4) + 0.35 * (noise - 0.5)
    radius = 6 + 24 * (1 - (1 - t) ** 2)
    d = rr / (radius * lumps)
    fire = np.clip(1 - d, 0, 1)
    heat = np.clip(1.15 - t * 1.3, 0, 1)
    col_hot = np.array([255, 250, 210.0])
    col_fire = np.array([255, 150, 40.0])
    col_smoke = np.array([70, 60, 60.0])
    mix_h = np.clip(fire * 2.2 * heat, 0, 1)[..., None]
    col = col_fire * mix_h + col_smoke * (1 - mix_h)
    core = np.clip((fire - 0.55) * 3 * heat, 0, 1)[..., None]
    col = col * (1 - core) + col_hot * core
    a = np.clip(fire * 3, 0, 1) * np.clip(1.25 - t, 0, 1)
    # hollow smoke ring late in the blast
    if t > 0.5:
        a *= np.clip(0.4 + d * 0.8, 0, 1)
    # sparks flying outwards
    for i in range(14):
        ang = r.random() * 2 * math.pi
        dist = (8 + 26 * r.random()) * (0.3 + t)
        sx, sy = math.cos(ang) * dist, math.sin(ang) * dist
        sp = np.exp(-((x - sx) ** 2 + (y - sy) ** 2) / 1.2) * (1 - t)
        a = np.maximum(a, np.clip(sp, 0, 1))
        col = col * (1 - sp[..., None]) + np.array([255, 220, 120.0]) * sp[..., None]
    col = common.downsample(col * a[..., None], ss)
    a = common.downsample(a, ss)
    col = col / np.maximum(a[..., None], 1e-6)
    return common.clean_alpha(rgba_image(col, a), 8)


def generate(reg):
    folder = "SPRITES2/EXPLOSIONS/SMALL"
    reg.picture(folder, 0, blast(0.0, 0), "blast: first flash (not shown by the game)")
    for i in range(1, 10):
        reg.picture(folder, i, blast((i - 1) / 8.0 * 0.95, i), "blast frame %d of 9" % i)
