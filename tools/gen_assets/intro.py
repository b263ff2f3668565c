"""SPRITES2/INTRO: the two logos of the load screen and the intro. Both are
drawn at their own size on a flat grey (0.3, 0.3, 0.3) screen and faded in
one after the other: frame 0 centred at (320, 260), frame 1 at (320, 160).
So they carry their own dark edges and must read on mid grey, not on black."""
import math

import common
import sprites
from common import Canvas
from PIL import Image, ImageFilter


def emblem():
    """Frame 0 (512 x 128): the planet with a rocket climbing round it, and
    the game's name in the lettering of the title screen."""
    w, h = 512, 128
    img = common.blank(w, h)
    # the orbit behind the globe, the globe, then the orbit's near half
    orbit_far, orbit_near = Canvas(w, h), Canvas(w, h)
    cx, cy, rx, ry = 64, 66, 58, 20
    pts = [(cx + rx * math.cos(math.radians(a)), cy + ry * math.sin(math.radians(a)) - 0.35 * rx *
            math.cos(math.radians(a)) * 0.3) for a in range(0, 361, 4)]
    far = [p for p, a in zip(pts, range(0, 361, 4)) if 180 <= a <= 360]
    near = [p for p, a in zip(pts, range(0, 361, 4)) if a <= 180]
    orbit_far.line(far, (255, 196, 110, 150), 1.6)
    orbit_near.line(near, (255, 214, 140, 230), 1.8)
    img = Image.alpha_composite(img, orbit_far.image())
    shadow = Canvas(w, h)
    shadow.ellipse((22, 26, 110, 114), (0, 0, 0, 110))
    img = Image.alpha_composite(img, shadow.image().filter(ImageFilter.GaussianBlur(3)))
    img.alpha_composite(sprites.globe(1, 96, 0.15), (16, 18))
    img = Image.alpha_composite(img, common.glow(orbit_near.image(), 2.0, (255, 182, 72), 0.5))
    rk = sprites.rocket(1.05, frame=3, flying=True).rotate(-38, resample=Image.BICUBIC, expand=True)
    img = sprites.centre(img, rk, 118.5, 59.5)
    name = sprites.lettering(w, h, 52, (310, 62))
    return common.clean_alpha(Image.alpha_composite(img, name))


def tagline():
    """Frame 1 (512 x 64): what the game is, and what it is made with."""
    w, h = 512, 64
    c = Canvas(w, h)
    for dx, dy, col in ((1, 1.5, (0, 0, 0, 200)), (0, 0, (255, 238, 210, 255))):
        c.text((256 + dx, 20 + dy), "dig \u00b7 build \u00b7 hatch \u00b7 launch", 18, col)
    for dx, dy, col in ((1, 1, (0, 0, 0, 190)), (0, 0, (214, 222, 236, 255))):
        c.text((256 + dx, 46 + dy), "made with Allegro, AllegroGL and OpenGL", 12, col, font="DejaVuSans.ttf")
    line = Canvas(w, h)
    line.line([(150, 33.5), (362, 33.5)], (255, 182, 72, 200), 1.0)
    return common.clean_alpha(Image.alpha_composite(common.glow(c.image(), 2.0, (20, 20, 28), 0.9), line.image()))


def generate(reg):
    reg.picture("SPRITES2/INTRO", 0, emblem(), "intro: emblem and name (at 320, 260)")
    reg.picture("SPRITES2/INTRO", 1, tagline(), "intro: line under the emblem (at 320, 160)")
