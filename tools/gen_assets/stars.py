"""SPRITES2/STARS: the three star pictures (8 x 8) of the starfield, from
faint and slow to bright and fast."""
import numpy as np

import common
from common import rgba_image


def star(radius, core, colour, rays):
    ss = 8
    n = 8 * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs + 0.5) / ss - 4
    y = (ys + 0.5) / ss - 4
    rr = np.hypot(x, y)
    a = np.exp(-(rr / radius) ** 2) + core * np.exp(-(rr / 0.7) ** 2)
    if rays:
        a += rays * (np.exp(-(x / 0.35) ** 2) + np.exp(-(y / 0.35) ** 2)) * np.clip(1 - rr / 4, 0, 1)
    a = np.clip(a, 0, 1)
    col = np.ones((n, n, 3)) * np.array(colour, float)
    white = np.clip(np.exp(-(rr / 1.0) ** 2), 0, 1)[..., None]
    col = col * (1 - white) + 255 * white
    col = common.downsample(col, ss)
    a = common.downsample(a, ss)
    return common.clean_alpha(rgba_image(col, a), 10)


def generate(reg):
    reg.picture("SPRITES2/STARS", 0, star(0.9, 0.3, (170, 180, 255), 0),
                "star: faint, slow")
    reg.picture("SPRITES2/STARS", 1, star(1.2, 0.6, (160, 210, 255), 0.35),
                "star: medium, bluish")
    reg.picture("SPRITES2/STARS", 2, star(1.4, 1.0, (255, 240, 200), 0.8),
                "star: bright, with rays")
