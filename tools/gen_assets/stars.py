"""SPRITES2/STARS: the three 8 x 8 stars of the starfield, drawn as 8 x 8
quads behind the terrain. They make three layers of depth: frame 0 far,
faint and slow; frame 1 in the middle; frame 2 near, bright and fast. The
star sits on the picture's centre (between pixels 3 and 4) and never
touches the border, so smooth filtering cannot smear a hard edge."""
import numpy as np

import common
from common import rgba_image


def star(core, halo, rays, colour, peak):
    """`core` and `halo` are radii in pixels, `rays` the reach of the four
    twinkle spikes (0 for none), `peak` the opacity at the centre."""
    ss = 8
    n = 8 * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs + 0.5) / ss - 4
    y = (ys + 0.5) / ss - 4
    rr = np.hypot(x, y)
    a = np.exp(-(rr / core) ** 4) + 0.35 * np.exp(-(rr / halo) ** 2)
    if rays:
        spike = np.exp(-(x / 0.45) ** 2) * np.clip(1 - np.abs(y) / rays, 0, 1) ** 1.5
        spike += np.exp(-(y / 0.45) ** 2) * np.clip(1 - np.abs(x) / rays, 0, 1) ** 1.5
        a += 0.8 * spike
    a = np.clip(a, 0, 1) * peak
    # white at the heart, the star's own tint towards its rim
    white = np.clip(np.exp(-(rr / (core * 0.9)) ** 2), 0, 1)[..., None]
    col = np.array(colour, float) * (1 - white) + 255 * white
    col = common.downsample(col, ss)
    a = common.downsample(a, ss)
    a[0, :] = a[-1, :] = a[:, 0] = a[:, -1] = 0
    return common.clean_alpha(rgba_image(col, a), 10)


def generate(reg):
    reg.picture("SPRITES2/STARS", 0, star(0.75, 1.1, 0, (150, 170, 255), 0.6),
                "star: faint, slow", alpha="clear")
    reg.picture("SPRITES2/STARS", 1, star(0.95, 1.5, 2.6, (170, 215, 255), 0.85),
                "star: medium, bluish", alpha="clear")
    reg.picture("SPRITES2/STARS", 2, star(1.2, 1.9, 3.6, (255, 236, 190), 1.0),
                "star: bright, with rays", alpha="clear")
