"""TERRAIN/ROCKET/LANDED and FLYING: the rocket standing on the surface and
the rocket climbing out of the level (41 frames each, 32 x 32; frame 0 is
the still icon, frames 1 to 40 loop once a second, both folders on one
counter).

The rocket stands in a sky cell with its feet on the cell's bottom rows,
where the grass lip of the ground below is drawn over them, so the feet sit
a little above the bottom edge. White hull, red nose and fins: it must read
against the night sky and against dirt once it smashes upward, so it keeps
a dark outline. Light from the upper left."""
import math

import numpy as np
from PIL import ImageFilter

import common
from common import Canvas

HULL = [(250, 252, 255), (222, 228, 238), (176, 184, 200), (126, 134, 152)]
RED = [(255, 120, 96), (222, 64, 52), (160, 34, 36), (104, 22, 28)]
STEEL = [(190, 198, 212), (128, 136, 152), (80, 86, 100), (44, 48, 58)]


def _outline(img, colour=(12, 10, 16), strength=0.9):
    """A dark rim one pixel wide around the rocket's silhouette."""
    rgb, a = common.to_float(img)
    grown = a.copy()
    padded = np.pad(a, 1)
    h, w = a.shape
    for dy, dx in ((-1, 0), (1, 0), (0, -1), (0, 1)):
        grown = np.maximum(grown, padded[1 + dy:1 + dy + h, 1 + dx:1 + dx + w])
    ring = np.clip(grown - a, 0, 1) * strength
    out_a = a + ring * (1 - a)
    col = rgb * a[..., None] + np.array(colour, float) * (ring * (1 - a))[..., None]
    col = col / np.maximum(out_a[..., None], 1e-6)
    return common.rgba_image(col, out_a)


def _rgba(c, a=255):
    return tuple(int(v) for v in c) + (a,)


def paint_rocket(w=32, h=32, frame=0, flying=False, scale=1.0, cx=None, base=None):
    """The rocket at `frame` of its one-second cycle (0..39). Landed: on
    three legs, porthole light breathing, nose beacon blinking once a cycle.
    Flying: legs folded, a flickering flame under the nozzle."""
    ss = 4
    # in flight the hull is drawn a tenth smaller, so hull and flame fit the cell
    k = scale * h / 32.0 * (0.9 if flying else 0.95)
    cx = w / 2 if cx is None else cx
    base = (h - 3.1 if not flying else h - 0.5) if base is None else base
    c = Canvas(w, h, ss)
    t = frame / 40.0

    # everything is laid out in the 32 x 32 design and scaled by k about
    # the feet (landed) or the flame's tip (flying)
    def P(x, y):
        return (cx + (x - 16) * k, base + (y - 28.8) * k) if not flying else \
            (cx + (x - 16) * k, base + (y - 31.5) * k)

    def poly(pts, col):
        c.polygon([P(x, y) for x, y in pts], _rgba(col) if len(col) == 3 else col)

    def ell(x0, y0, x1, y1, col):
        a, b = P(x0, y0), P(x1, y1)
        c.ellipse((a[0], a[1], b[0], b[1]), _rgba(col) if len(col) == 3 else col)

    def rect(x0, y0, x1, y1, col, radius=0):
        a, b = P(x0, y0), P(x1, y1)
        c.rect((a[0], a[1], b[0], b[1]), _rgba(col) if len(col) == 3 else col, radius=radius * k)

    lift = -3.5 if flying else 0.0          # the flying rocket rides higher: room for its flame
    y = lambda v: v + lift                   # noqa: E731

    if flying:
        # flame: three tongues, the outer red, the core white; length and
        # wobble from a few sines of the cycle, so the loop joins up
        flick = 0.5 + 0.5 * (0.55 * math.sin(t * 2 * math.pi * 5) + 0.45 * math.sin(t * 2 * math.pi * 7 + 1.3))
        ln = 8.0 + 3.0 * flick
        sway = 0.8 * math.sin(t * 2 * math.pi * 3 + 0.5)
        for width, length, col in ((4.4, ln, (255, 96, 40, 170)), (3.2, ln * 0.8, (255, 180, 60, 235)),
                                   (1.8, ln * 0.55, (255, 246, 210, 255))):
            poly([(16 - width, y(24.5)), (16 + width, y(24.5)), (16 + width * 0.55, y(24.5) + length * 0.45),
                  (16 + sway, y(24.5) + length), (16 - width * 0.55, y(24.5) + length * 0.45)], col)
        # glow round the flame's root
        g = Canvas(w, h, ss)
        a, b = P(10, y(22)), P(22, y(24.5) + ln * 0.7)
        g.ellipse((a[0], a[1], b[0], b[1]), (255, 150, 60, 90))
        glow = g.image().filter(ImageFilter.GaussianBlur(1.5))
    else:
        glow = None
        # legs: struts from the hull out to broad feet
        for side in (-1, 1):
            poly([(16 + side * 3.5, y(19)), (16 + side * 4.8, y(19)), (16 + side * 10.6, y(28.2)),
                  (16 + side * 9.2, y(28.2))], STEEL[1])
            poly([(16 + side * 3.5, y(19)), (16 + side * 4.1, y(19)), (16 + side * 9.9, y(28.2)),
                  (16 + side * 9.2, y(28.2))], STEEL[0] if side < 0 else STEEL[2])
            rect(16 + side * 10.2 - 2.2, y(27.6), 16 + side * 10.2 + 2.2, y(29.2), STEEL[2], 0.6)
            rect(16 + side * 10.2 - 2.2, y(27.6), 16 + side * 10.2 + 2.2, y(28.2), STEEL[0], 0.3)
    # nozzle
    poly([(13.2, y(22)), (18.8, y(22)), (19.8, y(25)), (12.2, y(25))], STEEL[2])
    poly([(13.2, y(22)), (15.6, y(22)), (14.8, y(25)), (12.2, y(25))], STEEL[1])
    # fins, the left one lit
    for side in (-1, 1):
        shade = RED[1] if side < 0 else RED[2]
        poly([(16 + side * 4.2, y(13.5)), (16 + side * 9.6, y(21.5)), (16 + side * 9.8, y(25.2)),
              (16 + side * 5.5, y(22.5)), (16 + side * 4.2, y(22.5))], shade)
        poly([(16 + side * 4.2, y(13.5)), (16 + side * 9.6, y(21.5)), (16 + side * 8.8, y(21.8)),
              (16 + side * 4.2, y(15.5))], RED[0] if side < 0 else RED[1])
    # hull: a long capsule, bright on the left, shading to the right
    rect(10.6, y(7.0), 21.4, y(23.2), HULL[2], 3.2)
    rect(10.6, y(7.0), 19.4, y(23.2), HULL[1], 3.2)
    rect(11.4, y(7.5), 15.6, y(22.4), HULL[0], 2.2)
    rect(19.4, y(8.0), 21.4, y(22.6), HULL[3], 1.0)
    # a red band round the hull
    rect(10.6, y(18.2), 21.4, y(20.0), RED[1])
    rect(10.6, y(18.2), 14.0, y(20.0), RED[0])
    rect(19.6, y(18.2), 21.4, y(20.0), RED[2])
    # nose cone
    poly([(10.9, y(8.2)), (21.1, y(8.2)), (19.2, y(4.0)), (16.0, y(0.8)), (12.8, y(4.0))], RED[2])
    poly([(10.9, y(8.2)), (17.0, y(8.2)), (16.6, y(1.2)), (16.0, y(0.8)), (12.8, y(4.0))], RED[1])
    poly([(12.0, y(7.6)), (14.2, y(7.6)), (15.6, y(1.8)), (13.2, y(4.4))], RED[0])
    # porthole: a steel ring round blue glass whose light breathes
    if flying:
        lights = 1.0
    else:
        lights = 0.5 + 0.5 * math.cos(t * 2 * math.pi)
    ell(12.4, y(9.6), 19.6, y(16.8), STEEL[1])
    ell(12.8, y(10.0), 19.2, y(16.4), STEEL[2])
    glass = (int(40 + 90 * lights), int(110 + 110 * lights), int(190 + 65 * lights))
    ell(13.6, y(10.8), 18.4, y(15.6), glass)
    ell(14.3, y(11.4), 16.2, y(13.3), (235, 250, 255))
    img = c.image()
    if not flying:
        # the lamp on the nose tip blinks for a tenth of each second
        if frame % 40 < 4:
            b = Canvas(w, h, ss)
            a0, a1 = P(14.3, y(1.4)), P(17.7, y(4.8))
            b.ellipse((a0[0], a0[1], a1[0], a1[1]), (255, 236, 200, 255))
            a0, a1 = P(15.0, y(2.1)), P(17.0, y(4.1))
            b.ellipse((a0[0], a0[1], a1[0], a1[1]), (255, 255, 255, 255))
            img = common.over(img, b.image())
    if glow is not None:
        img = common.over(glow, img)
    return common.clean_alpha(_outline(common.clean_alpha(img, 6)), 6)


def generate(reg):
    for i in range(41):
        role = "landed rocket, still icon" if i == 0 else \
            "landed rocket frame %d: porthole light breathing, nose beacon" % i
        reg.picture("TERRAIN/ROCKET/LANDED", i, paint_rocket(32, 32, 5 if i == 0 else i - 1), role)
    for i in range(41):
        role = "flying rocket, still icon" if i == 0 else "flying rocket frame %d: flame flickering" % i
        reg.picture("TERRAIN/ROCKET/FLYING", i, paint_rocket(32, 32, 10 if i == 0 else i - 1, flying=True),
                    role)
