"""SPRITES: the 45 pictures of the screens and panels. Each is drawn at its
own size (frames 0 and 2 stretched to 640 x 128), centred where a screen
puts it, so each is laid out around the widgets and text the screen draws
over it or, in places, under it. The row and column numbers in the notes
below are the picture's own, counted from its top-left corner.

All of them share gui.py's bevelled plates: dark space-blue steel lit from
the upper left, amber lamps and hairlines as the warm accent. Frame 39, the
turning backdrop, is a JPEG; all others are TGA.

Frames no screen draws (21, 28, 29, 31, 37, 40, 41) are small blanks kept
so the folder stays complete. Frame 4 is not drawn by any screen either: it
holds the credits pick-up (32 x 32) for the level view."""
import math

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

import art
import common
import greenman
import gui
import planets
import pod
import rockets
from common import Canvas, rgba_image, rng, fbm, ramp
from gui import plate, ring, drop_shadow, stack, rivet

F = "SPRITES"

PANEL_FACE = ((36, 50, 76), (15, 22, 37))
RECESS_FACE = ((5, 8, 14), (11, 16, 27))
HAIR = (104, 136, 186)
WARM = gui.WARM
GOOD = (110, 230, 120)
BAD = (240, 86, 70)


def paste(dst, src, xy):
    dst = dst.copy()
    dst.alpha_composite(src.convert("RGBA"), (int(round(xy[0])), int(round(xy[1]))))
    return dst


# ---------------------------------------------------------------- the cast

# The hero, the pod, the rocket and the globes come from the painters of the
# level and of the planet buttons, so every screen shows the same fellow, the
# same rocket and the same worlds the player meets there, only larger.

_GLOBES = {}


def globe(num, size, turn):
    """Globe `num` as on the planet buttons (datafile order: look it up in
    planets.BUTTON_GLOBE when a planet number is meant), size x size."""
    if num not in _GLOBES:
        _GLOBES[num] = (planets.MAPS[num](), {})
    maps, caches = _GLOBES[num]
    return planets.render(num, turn, maps, caches.setdefault(size, {}), size)


def hero(size=32, phase=None, **kw):
    """The bubbleman standing on the picture's bottom row; `phase` (0..1)
    catches him mid-waddle, other keywords are greenman poses."""
    p = greenman.walk_pose(phase) if phase is not None else {}
    p.update(kw)
    return greenman.still(size, **p)


def rocket(times, frame=5, flying=False):
    """The level's rocket `times` as large as in its cell, at `frame` of its
    cycle (landed: frame 20 has the porthole dark), cropped to what it
    covers, so callers place it by its feet or its middle."""
    n = int(math.ceil(40 * times)) + 8
    k = times * (0.9 if flying else 0.95)
    # the design's middle row (15 landed, 14.6 flying) goes to the middle
    base = n / 2 + (16.9 if flying else 13.8) * k
    img = rockets.paint_rocket(n, n, frame, flying=flying, scale=times * 32.0 / n, base=base)
    return img.crop(img.getbbox())


def hatched_pod(size, frame=0):
    """The pod with its shell split across the top: the one the hatcher
    has opened. The crack follows the shell's outline in pod.py."""
    img = pod.paint_pod(size, frame)
    s = size / 32.0
    cx, cy, rw, rh = size / 2, size / 2 - 0.5 * s, 8.6 * s, 11.0 * s
    # a jagged split from rim to rim above the sleeper's head, and two short
    # branches, each with a lit lower lip where the glass breaks
    main = [(-0.97, -0.30), (-0.70, -0.46), (-0.52, -0.36), (-0.28, -0.58), (-0.05, -0.44),
            (0.16, -0.66), (0.38, -0.50), (0.62, -0.62), (0.97, -0.34)]
    branches = [[(-0.28, -0.58), (-0.34, -0.74)], [(0.38, -0.50), (0.50, -0.38)]]
    c = Canvas(size, size)
    for line in [main] + branches:
        pts = [(cx + u * rw, cy + v * rh) for u, v in line]
        c.line([(x, y + 0.6 * s) for x, y in pts], (210, 255, 220, 190), 0.6 * s)
        c.line(pts, (10, 30, 16, 255), 0.7 * s)
    return Image.alpha_composite(img, c.image())


def stand(dst, img, cx, floor):
    """Pastes `img` centred on column `cx` with its bottom row just above
    row `floor` (the ground it stands on)."""
    return paste(dst, img, (cx - img.size[0] / 2.0, floor - img.size[1]))


def centre(dst, img, cx, cy):
    return paste(dst, img, (cx - img.size[0] / 2.0, cy - img.size[1] / 2.0))


# ---------------------------------------------------------------- shared pieces

def texture(w, h, key, amount=7.0):
    """A faint mottling that keeps large panels from looking flat."""
    n = fbm(w, h, 6, 4, rng("mottle", key, w, h)) - 0.5
    return n * amount


def panel(w, h, box=None, radius=10, face=PANEL_FACE, key="panel", rivets=True, bevel=3.0,
          hairline=HAIR, shadow=True, lamp=True):
    """The common frame of dialogs and plates: a drop shadow, a bevelled
    steel plate, a hairline just inside the bevel, screw heads in the
    corners and a small amber lamp strip along the top."""
    box = box or (0.5, 0.5, w - 0.5, h - 0.5)
    x0, y0, x1, y1 = box
    layers = [common.blank(w, h)]
    if shadow:
        layers.append(drop_shadow(w, h, box, radius, offset=(1.5, 2.5), blur=2.5, strength=0.55))
    body = plate(w, h, box, radius, face, bevel=bevel, sheen=0.12, grain=3.0, key=key,
                 light=(190, 214, 248, 0.55), dark=(0, 0, 0, 0.7))
    a = np.asarray(body).astype(float)
    a[:, :, :3] += texture(w, h, key)[..., None]
    layers.append(Image.fromarray(np.clip(a, 0, 255).astype(np.uint8), "RGBA"))
    if hairline:
        layers.append(ring(w, h, box, radius, hairline, width=1.0, inset=bevel + 3.0, alpha=0.35))
    img = stack(*layers)
    if rivets and x1 - x0 > 40 and y1 - y0 > 40:
        for x, y in ((x0 + 8, y0 + 8), (x1 - 8, y0 + 8), (x0 + 8, y1 - 8), (x1 - 8, y1 - 8)):
            img = rivet(img, x, y, 2.0)
    if lamp and x1 - x0 > 100:
        img = lamp_strip(img, (x0 + x1) / 2, y0 + 4.5, min(56, (x1 - x0) * 0.25))
    return img


def lamp_strip(img, cx, cy, half, colour=WARM):
    """A thin warm light set into a panel's top bevel."""
    w, h = img.size
    c = Canvas(w, h)
    c.rect((cx - half - 1, cy - 1.8, cx + half + 1, cy + 1.8), (6, 8, 12, 230), radius=1.8)
    c.rect((cx - half, cy - 0.9, cx + half, cy + 0.9), tuple(colour) + (255,), radius=0.9)
    c.rect((cx - half * 0.6, cy - 0.5, cx + half * 0.6, cy + 0.2), (255, 240, 200, 200), radius=0.5)
    return Image.alpha_composite(img, common.glow(c.image(), 2.0, colour, 0.5))


def recess(img, box, radius=4, face=RECESS_FACE, rim=HAIR, rim_alpha=0.35):
    """A window sunk into a plate: dark glass with a reversed bevel."""
    w, h = img.size
    lay = plate(w, h, box, radius, face, bevel=1.5, sunk=True, light=(170, 196, 236, 0.5),
                dark=(0, 0, 0, 0.85), outline=(2, 3, 6), outline_w=0.8)
    img = Image.alpha_composite(img, lay)
    if rim_alpha:
        img = Image.alpha_composite(img, ring(w, h, box, radius, rim, 1.0, inset=-0.6, alpha=rim_alpha))
    return img


def cut(img, box, radius=4, rim=(150, 176, 214), rim_alpha=0.8):
    """A see-through window, for text the game draws under the picture:
    the plate is removed inside `box` and the window's edge is bevelled."""
    w, h = img.size
    inside = gui.coverage(w, h, box, radius)
    a = np.asarray(img).astype(float)
    a[:, :, 3] *= 1 - inside
    img = Image.fromarray(a.astype(np.uint8), "RGBA")
    # the sunk edge: dark along the top, lit along the bottom
    edge = plate(w, h, (box[0] - 1.5, box[1] - 1.5, box[2] + 1.5, box[3] + 1.5), radius + 1.5,
                 ((0, 0, 0), (0, 0, 0)), bevel=1.5, sunk=True, light=rim + (rim_alpha,),
                 dark=(0, 0, 0, 0.9), outline=(2, 3, 6), outline_w=0.6)
    ea = np.asarray(edge).astype(float)
    ea[:, :, 3] *= 1 - inside
    # keep only the frame, not the black face
    ea[:, :, 3] *= 1 - gui.coverage(w, h, (box[0] + 1.7, box[1] + 1.7, box[2] - 1.7, box[3] - 1.7),
                                    max(1, radius - 1.7))
    return Image.alpha_composite(img, Image.fromarray(ea.astype(np.uint8), "RGBA"))


def heading(img, text, cx, cy, size, colour=(255, 240, 214), glow_col=WARM, strength=0.9):
    """A title baked into a picture: warm white letters with a dark edge and
    a soft glow, readable over any of the panels."""
    w, h = img.size
    c = Canvas(w, h)
    c.text((cx + 1, cy + 1.5), text, size, (0, 0, 0, 220))
    c.text((cx, cy), text, size, tuple(colour) + (255,))
    t = common.glow(c.image(), 3.0, glow_col, strength * 0.6)
    return Image.alpha_composite(img, t)


def hairline(img, x0, x1, y, colour=WARM, alpha=200, width=1.0):
    w, h = img.size
    c = Canvas(w, h)
    c.line([(x0, y), (x1, y)], tuple(colour) + (alpha,), width)
    return Image.alpha_composite(img, c.image())


def stars_on(img, box, count, key, bright=200):
    """Pin-prick stars inside `box` of a picture (for windows onto space)."""
    r = rng("stars", key)
    a = np.asarray(img).copy()
    x0, y0, x1, y1 = box
    for _ in range(count):
        x, y = int(r.integers(x0, x1)), int(r.integers(y0, y1))
        v = int(bright * (0.4 + 0.6 * r.random() ** 2))
        a[y, x, :3] = np.maximum(a[y, x, :3], (v, v, min(255, v + 20)))
    return Image.fromarray(a, "RGBA")


def mask_to(img, box, radius):
    """Keeps only the part of `img` inside a rounded box."""
    w, h = img.size
    a = np.asarray(img).astype(float)
    a[:, :, 3] *= gui.coverage(w, h, box, radius)
    return Image.fromarray(a.astype(np.uint8), "RGBA")


# ---------------------------------------------------------------- game display

def display_top():
    """Frame 0 (512 x 128, stretched to 640 x 128 at the top of the game
    screen): the toolbar. The ten tool buttons stand in its trough (rows 16
    to 80). The status line is drawn BEFORE this picture, at rows 101 to 113
    from column 27, so everything below row 96 stays see-through; a small
    green status lamp hangs at its left end. The stretch doubles every fourth
    column, so the picture keeps to horizontal detail."""
    w, h = 512, 128
    body_box = (-12, -12, 524, 95.5)
    img = panel(w, h, body_box, radius=10, key="top", rivets=False, lamp=False, hairline=None)
    img = recess(img, (1.5, 11.5, 510.5, 84.5), radius=6, rim_alpha=0.3)
    # a steel rail along the lower edge, with amber lamps at its ends
    rail = plate(w, h, (-4, 87.5, 516, 94.5), 2, ((120, 138, 166), (50, 62, 84)), bevel=1.0,
                 light=(230, 240, 255, 0.6), dark=(0, 0, 0, 0.6), outline=(6, 8, 14), outline_w=0.8)
    img = Image.alpha_composite(img, rail)
    for cx in (40, 472):
        img = lamp_strip(img, cx, 91, 16)
    # the status lamp: a small housing on the left end of the status line
    c = Canvas(w, h)
    c.rect((7, 95, 21, 110), (10, 14, 22, 255), radius=3)
    c.rect((7.8, 95.8, 20.2, 109.2), None, outline=(110, 136, 176, 200), width=0.8, radius=2.5)
    c.ellipse((10.5, 99, 17.5, 106), (40, 240, 90, 255))
    c.ellipse((11.5, 99.6, 14.5, 102.4), (220, 255, 220, 230))
    img = Image.alpha_composite(img, common.glow(c.image(), 1.5, (60, 255, 100), 0.45))
    # a soft shadow onto the level, ending above the status text
    a = np.asarray(img).astype(float)
    for row, alpha in ((96, 0.42), (97, 0.26), (98, 0.14), (99, 0.06)):
        keep = a[row, :, 3] / 255.0
        a[row, :, :3] = (a[row, :, :3] * keep[:, None])
        a[row, :, 3] = np.maximum(a[row, :, 3], alpha * 255)
    return common.clean_alpha(Image.fromarray(a.astype(np.uint8), "RGBA"), 4)


def display_bottom():
    """Frame 2 (512 x 128, stretched to 640 x 128 along the bottom): opaque
    in its lowest 40 rows, under the credits box, the hatch bar and Menu;
    see-through above, with a soft shadow onto the level. It is drawn after
    the launch panel, so it also hides that panel's lower part."""
    w, h = 512, 128
    img = panel(w, h, (-12, 88.5, 524, 140), radius=8, key="bottom", rivets=False, lamp=False,
                hairline=None, shadow=False)
    rail = plate(w, h, (-4, 88.5, 516, 92.5), 1.5, ((140, 158, 186), (70, 84, 108)), bevel=0.8,
                 light=(240, 246, 255, 0.6), dark=(0, 0, 0, 0.5), outline=(6, 8, 14), outline_w=0.6)
    img = Image.alpha_composite(img, rail)
    # sockets under the three groups, so they look set into the bar
    for x0, x1 in ((3, 109), (144, 352), (388, 496)):
        img = recess(img, (x0, 95, x1, 125), radius=5, face=((8, 12, 20), (14, 20, 32)), rim_alpha=0.2)
    for cx in (126, 370, 504):
        c = Canvas(w, h)
        c.ellipse((cx - 2.5, 106, cx + 2.5, 111), (255, 182, 72, 255))
        img = Image.alpha_composite(img, common.glow(c.image(), 1.5, WARM, 0.5))
    a = np.asarray(img).astype(float)
    for row, alpha in ((87, 0.45), (86, 0.3), (85, 0.16), (84, 0.07)):
        a[row, :, 3] = np.maximum(a[row, :, 3], alpha * 255)
    return common.clean_alpha(Image.fromarray(a.astype(np.uint8), "RGBA"), 4)


def launch_panel():
    """Frame 1 (256 x 128): slides in from the right to (515, 70). The game
    writes "Ready for launch" BEFORE drawing it, at rows 20 to 32 from column
    34, so that stretch is a see-through window; the Launch button sits in
    the bay at rows 48 to 80, columns 51 to 179. The bottom bar covers every
    row below 94."""
    w, h = 256, 128
    img = panel(w, h, (3.5, 2.5, 270, 140), radius=12, key="launch", rivets=False, lamp=False)
    img = rivet(img, 12, 11, 2.0)
    img = rivet(img, 12, 86, 2.0)
    img = cut(img, (27.5, 15.5, 205.5, 37.5), radius=5)
    img = recess(img, (44.5, 43.5, 186.5, 85.5), radius=9, rim_alpha=0.3)
    # hazard stripes down the leading edge
    c = Canvas(w, h)
    c.rect((6, 22, 19, 92), (26, 20, 12, 255), radius=2)
    for i in range(-2, 12):
        y = 22 + i * 9
        c.polygon([(6, y), (19, y - 7), (19, y - 2.5), (6, y + 4.5)], (240, 180, 40, 255))
    stripes = mask_to(c.image(), (6, 22, 19, 92), 2)
    img = Image.alpha_composite(img, stripes)
    img = Image.alpha_composite(img, ring(w, h, (5.5, 21, 19.5, 93), 2.5, (10, 8, 6), 1.0, alpha=0.9))
    # a beacon and the rocket that waits for the button
    b = Canvas(w, h)
    b.ellipse((218, 10, 234, 26), (16, 10, 8, 255))
    b.ellipse((220, 12, 232, 24), (255, 120, 50, 255))
    b.ellipse((222, 13.5, 227, 18.5), (255, 230, 190, 230))
    img = Image.alpha_composite(img, common.glow(b.image(), 3.0, (255, 110, 40), 0.8))
    img = recess(img, (196, 34, 246, 92), radius=6, face=((6, 10, 20), (16, 24, 40)), rim_alpha=0.3)
    img = stars_on(img, (199, 37, 243, 70), 14, "launchstars")
    return stand(img, rocket(1.6, frame=0), 221, 90)


def pause_panel():
    """Frame 3 (256 x 256) at (320, 220): behind Resume (rows 62 to 94),
    Retry (98 to 130) and Exit (192 to 224), all at columns 64 to 192."""
    img = panel(256, 256, (2.5, 2.5, 253.5, 249.5), radius=14, key="pause")
    img = heading(img, "PAUSED", 128, 29, 24)
    img = hairline(img, 56, 200, 48.5)
    img = recess(img, (57.5, 56.5, 198.5, 136.5), radius=8, rim_alpha=0.25)
    img = recess(img, (57.5, 186.5, 198.5, 230.5), radius=8, rim_alpha=0.25)
    # a pause sign in a round socket between the groups
    c = Canvas(256, 256)
    c.ellipse((111, 144, 145, 178), (6, 9, 16, 255))
    c.ellipse((111, 144, 145, 178), None, outline=(110, 140, 190, 220), width=1.2)
    c.rect((120, 152, 125.5, 170), WARM + (255,), radius=1.2)
    c.rect((130.5, 152, 136, 170), WARM + (255,), radius=1.2)
    img = Image.alpha_composite(img, common.glow(c.image(), 2.0, WARM, 0.5))
    img = hairline(img, 30, 98, 161.5, HAIR, 120)
    img = hairline(img, 158, 226, 161.5, HAIR, 120)
    return img


def coin(size=32):
    """Frame 4: a credits pick-up, a small stack of gold chips."""
    c = Canvas(size, size)
    k = size / 32.0
    for y in (24, 19, 14):
        c.ellipse((6 * k, (y - 3) * k, 26 * k, (y + 4) * k), (140, 90, 20, 255))
        c.ellipse((6 * k, (y - 4) * k, 26 * k, (y + 2) * k), (250, 196, 60, 255))
        c.ellipse((10 * k, (y - 3) * k, 22 * k, (y + 1) * k), (255, 232, 150, 255))
    c.text((16 * k, 11 * k), "$", 7 * k, (150, 96, 20, 255))
    return common.glow(c.image(), 1.2 * k, (255, 210, 90), 0.5)


def credits_box():
    """Frame 5 (128 x 32) at (70, 17): a coin and the window in which the
    game writes the credits in yellow 16-pixel digits (from column 28, rows
    9 to 25)."""
    img = panel(128, 32, (0.5, 0.5, 127.5, 31.5), radius=6, key="credits", rivets=False, lamp=False,
                hairline=None, shadow=False, bevel=2.0)
    img = recess(img, (25.5, 4.5, 123.5, 28.5), radius=4, face=((8, 7, 2), (16, 13, 6)), rim=WARM,
                 rim_alpha=0.25)
    return paste(img, coin(24), (2, 4))


def hatch_bar(hatched):
    """Frames 15 and 16 (256 x 32) at (310, 17). The game writes the count of
    pods still without a hatcher in green from column 35 (rows 9 to 25) and
    lays the Hatch Pods button over columns 65 to 193. Left: a pod; right: a
    lamp, amber while pods wait, green once they have hatched."""
    img = panel(256, 32, (0.5, 0.5, 255.5, 31.5), radius=6, key="hatchbar", rivets=False, lamp=False,
                hairline=None, shadow=False, bevel=2.0)
    img = recess(img, (31.5, 4.5, 66.5, 28.5), radius=4, face=((2, 8, 4), (6, 16, 9)), rim=GOOD,
                 rim_alpha=0.2)
    img = paste(img, hatched_pod(28, 0) if hatched else pod.paint_pod(28, 6), (2, 2))
    img = recess(img, (199.5, 4.5, 251.5, 28.5), radius=5, rim_alpha=0.2)
    lamp = art.GREEN if hatched else art.AMBER
    c = Canvas(256, 32)
    c.ellipse((205, 8, 221, 24), (12, 12, 14, 255))
    c.ellipse((206.5, 9.5, 219.5, 22.5), tuple(lamp) + (255,))
    c.ellipse((209, 11, 214, 16), (255, 255, 240, 210))
    # a tick when hatched, three waiting dots before
    if hatched:
        c.line([(229, 16.5), (234, 21.5), (244, 10.5)], tuple(lamp) + (255,), 2.4)
    else:
        for i in range(3):
            c.ellipse((228 + i * 6.5, 14.5, 231 + i * 6.5, 17.5), tuple(lamp) + (255,))
    return Image.alpha_composite(img, common.glow(c.image(), 2.0, lamp, 0.5))


# ---------------------------------------------------------------- select screen

def window_frame(title, key, sockets=()):
    """A 256 x 256 bezel around a 200 x 200 window (rows and columns 28 to
    228) that stays see-through: the screen has drawn an opaque black panel,
    the planet highlights and the mission list beneath it. Its top 8 rows
    fall off the screen at the positions the game uses, so the title plate
    starts below them."""
    w = 256
    img = panel(w, w, (13.5, 13.5, 242.5, 242.5), radius=12, key="frame" + key, lamp=False, hairline=None)
    img = cut(img, (28, 28, 228, 228), radius=6)
    for x, y in sockets:
        c = Canvas(w, w)
        c.ellipse((x - 37, y - 37, x + 37, y + 37), None, outline=(110, 140, 190, 110), width=1.0)
        for a in range(0, 360, 90):
            ra = math.radians(a + 45)
            c.line([(x + math.cos(ra) * 35, y + math.sin(ra) * 35),
                    (x + math.cos(ra) * 40, y + math.sin(ra) * 40)], (255, 190, 90, 200), 1.4)
        img = Image.alpha_composite(img, c.image())
    tp = panel(w, w, (66.5, 8.5, 189.5, 29.5), radius=5, key="title" + key, rivets=False, lamp=False,
               hairline=None, bevel=2.0)
    img = Image.alpha_composite(img, tp)
    img = heading(img, title, 128, 19.5, 11, strength=0.6)
    return img


def mission_frame():
    """Frame 11 at (190, 360): the mission list's window. The current mission
    is written on rows 122 to 134 (from column 62); amber pointers mark it."""
    img = window_frame("MISSIONS", "m")
    c = Canvas(256, 256)
    c.polygon([(30, 122), (38, 128), (30, 134)], WARM + (255,))
    c.polygon([(226, 122), (218, 128), (226, 134)], WARM + (255,))
    img = Image.alpha_composite(img, common.glow(c.image(), 1.5, WARM, 0.6))
    img = hairline(img, 42, 214, 119.5, WARM, 70)
    img = hairline(img, 42, 214, 137.5, WARM, 70)
    return img


def bezel():
    """Frame 42 (256 x 256) at (440, 140): the screen on which the planet
    pictures fade; dark inside while one fades. It ends at row 242 so the
    message strip below it stays in view."""
    img = panel(256, 256, (13.5, 13.5, 242.5, 242.5), radius=12, key="bezel", lamp=False, hairline=None)
    img = recess(img, (26.5, 26.5, 229.5, 229.5), radius=8, face=((3, 5, 10), (6, 9, 16)), rim_alpha=0.3)
    c = Canvas(256, 256)
    for i, x in enumerate((112, 128, 144)):
        col = (60, 230, 120, 255) if i == 1 else (255, 182, 72, 200)
        c.ellipse((x - 2, 234, x + 2, 238), col)
    return Image.alpha_composite(img, common.glow(c.image(), 1.5, (120, 220, 140), 0.4))


POSTCARD = {
    # by globe (datafile order): sky top, sky low, far ridge, near ground top,
    # near ground deep, accent
    1: dict(sky=("#07142c", "#2c5a7c"), far="#2c4d3a", near=("#6f9a3a", "#3d2a1c"), glow=(255, 200, 120)),
    2: dict(sky=("#050d1e", "#3c6a92"), far="#6c8fb4", near=("#e4f2fb", "#7fa5c8"), glow=(200, 235, 255)),
    3: dict(sky=("#04040a", "#1c1c2c"), far="#3c3834", near=("#8a8078", "#3a3431"), glow=(255, 210, 170)),
    4: dict(sky=("#160818", "#6a2c60"), far="#7c3068", near=("#f0a6c0", "#7a2f5e"), glow=(255, 170, 210)),
}


WORLD = {1: "FIELD", 2: "ICE", 3: "ASTEROID", 4: "SOFT"}


def planet_picture(planet):
    """Frames 7 to 10 (256 x 256) at (440, 140), over the bezel's window
    (rows and columns 28 to 228), with the alpha of the message fade: a
    view across the planet's surface, with a rocket waiting, and its name.
    It shows the world whose globe the player has just clicked, so planet 3
    is the soft world and planet 4 the asteroid."""
    # looks and seeds go by the world (datafile order), the caption by the number
    num = planets.BUTTON_GLOBE[planet]
    p = POSTCARD[num]
    w = 256
    r = rng("postcard", num)
    ys = np.arange(w)[:, None].astype(float)
    sky = ramp(np.clip((ys - 28) / 150, 0, 1), [p["sky"][0], p["sky"][1]]) * np.ones((1, w, 1))
    img = rgba_image(sky)
    img = stars_on(img, (28, 28, 228, 120), 70, ("pc", num), 230)
    # a sun low in the sky, and a neighbour planet
    c = Canvas(w, w)
    c.ellipse((52, 70, 66, 84), tuple(p["glow"]) + (255,))
    img = Image.alpha_composite(img, common.glow(c.image(), 8.0, p["glow"], 0.8))
    other = {1: 2, 2: 4, 3: 1, 4: 3}[num]
    img = paste(img, globe(other, 40, 0.2 + num * 0.17), (170, 40))
    land = common.blank(w, w)
    d = ImageDraw.Draw(land)
    # a far ridge, then the near ground in the planet's colours
    far = fbm(w, 1, 4, 4, rng("pc-far", num))[0]
    d.polygon([(x, 150 - far[x] * 36) for x in range(w)] + [(w, w), (0, w)], fill=art.rgb(p["far"]) + (255,))
    img = Image.alpha_composite(img, land)
    # haze over the far ridge, thinning toward the near ground
    hz = np.asarray(img).astype(float)
    fade = np.clip(1 - (ys - 118) / 40, 0, 1)[..., None] * 0.25
    hz[:, :, :3] = hz[:, :, :3] * (1 - fade) + art.rgb(p["sky"][1]) * fade
    img = Image.fromarray(np.clip(hz, 0, 255).astype(np.uint8), "RGBA")
    near = fbm(w, 1, 3, 4, rng("pc-near", num))[0]
    top = 178 - near * 22
    ground = np.clip((ys - top[None, :]) / 60, 0, 1)
    col = ramp(ground, [p["near"][0], p["near"][1]])
    # light from the upper left on the ground's crest
    slope = np.gradient(top)
    crest = np.exp(-((ys - top[None, :]) / 3.0) ** 2) * np.clip(-slope * 0.8 + 0.4, 0, 1)[None, :]
    col = col + crest[..., None] * 70
    if num == 1:
        col = col + (np.sin(np.arange(w) * 1.7)[None, :] * 6)[..., None] * (ys < top[None, :] + 4)[..., None]
    if num == 3:
        for _ in range(6):
            cx, cy, rad = 30 + r.random() * 200, 200 + r.random() * 30, 5 + r.random() * 8
            dist = np.hypot(np.arange(w)[None, :] - cx, (ys - cy) * 2.2) / rad
            col = col - (np.clip(1 - dist, 0, 1) * 40)[..., None] + (np.exp(-(dist - 1) ** 2 * 8) * 25)[..., None]
    a = (ys >= top[None, :]).astype(float)
    img = Image.alpha_composite(img, rgba_image(np.clip(col, 0, 255), a))
    # each planet's own details on the ground
    det = Canvas(w, w)
    if num == 1:
        for x in range(34, 226, 7):
            y = top[x]
            h2 = 3 + r.random() * 4
            det.line([(x, y + 1), (x + 1, y - h2)], (120, 170, 60, 255), 1.2)
    elif num == 2:
        for x in (44, 150, 205):
            y = top[x]
            det.polygon([(x - 6, y + 3), (x, y - 18), (x + 5, y + 3)], (235, 248, 255, 255))
            det.polygon([(x, y - 18), (x + 5, y + 3), (x + 1, y + 3)], (150, 190, 225, 255))
    elif num == 4:
        for x in (40, 140, 208):
            y = top[x]
            det.rect((x - 1.5, y - 10, x + 1.5, y + 2), (255, 220, 230, 255))
            det.ellipse((x - 8, y - 17, x + 8, y - 7), (250, 110, 170, 255))
            det.ellipse((x - 5, y - 16, x + 1, y - 12), (255, 200, 226, 255))
    img = Image.alpha_composite(img, det.image())
    x_r = 76
    img = stand(img, rocket(1.5), x_r, int(top[x_r]) + 3)
    x_b = 112
    img = stand(img, hero(32), x_b, int(top[x_b]) + 3)
    x_p = 160
    img = paste(img, pod.paint_pod(32, 3), (x_p - 16, int(top[x_p]) - 14))
    # the caption
    cap = plate(w, w, (46.5, 202.5, 209.5, 222.5), 5, ((20, 28, 44), (10, 14, 24)), bevel=1.2,
                light=(190, 214, 248, 0.5), dark=(0, 0, 0, 0.6), alpha=0.85)
    img = Image.alpha_composite(img, cap)
    img = heading(img, "PLANET %d \u00b7 %s" % (planet, WORLD[num]), 128, 212.5, 11, strength=0.6)
    return common.clean_alpha(mask_to(img, (28, 28, 228, 228), 6))


def chevron(up):
    """Frames 13 and 14 (32 x 16), over the mission arrows: earlier missions
    are listed above the current one, later ones below."""
    c = Canvas(32, 16)
    pts = [(8.5, 11), (16, 4.5), (23.5, 11)] if up else [(8.5, 5), (16, 11.5), (23.5, 5)]
    c.line([(x + 0.5, y + 1) for x, y in pts], (0, 0, 0, 200), 4.2)
    c.line(pts, (250, 236, 210, 255), 2.2)
    return c.image()


def message_strip():
    """Frame 32 (512 x 32) at (315, 16): under the game-select message line
    (16-pixel text at rows 12 to 28, from column 45). Its plate starts at row
    6; the panels above it end there."""
    img = panel(512, 32, (1.5, 5.5, 510.5, 40), radius=8, key="msg", rivets=False, lamp=False,
                hairline=None, shadow=False, bevel=2.0)
    return recess(img, (30.5, 9.5, 481.5, 31), radius=5, rim_alpha=0.25)


def label_plate():
    """Frame 18 (128 x 32): behind a short 12-pixel text on rows 10 to 22 (the
    video choices on the options screen; the password on the game-select
    screen, where it is tinted from blue to white, so its rim is neutral
    steel that takes the tint)."""
    img = panel(128, 32, (0.5, 0.5, 127.5, 31.5), radius=7, key="label", rivets=False, lamp=False,
                hairline=None, shadow=False, bevel=2.0,
                face=((126, 136, 154), (66, 74, 90)))
    return recess(img, (6.5, 6, 121.5, 26), radius=4, face=((4, 6, 10), (10, 13, 20)), rim_alpha=0.0)


def text_field():
    """Frame 30 (128 x 32) at (320, 210): the field in which a typed password
    appears (12-pixel text, rows 10 to 22)."""
    img = panel(128, 32, (0.5, 0.5, 127.5, 31.5), radius=6, key="field", rivets=False, lamp=False,
                hairline=None, shadow=False, bevel=2.0)
    img = recess(img, (4.5, 4.5, 123.5, 27.5), radius=4, face=((0, 0, 0), (6, 8, 12)), rim=WARM,
                 rim_alpha=0.45)
    c = Canvas(128, 32)
    c.rect((10, 23, 118, 24), (255, 182, 72, 90))
    return Image.alpha_composite(img, c.image())


def password_plate():
    """Frame 44 (256 x 64) at (320, 75), under the mission-complete panel: the
    game writes the next password on rows 35 to 47, centred."""
    img = panel(256, 64, (20.5, 2.5, 235.5, 61.5), radius=9, key="pwd", rivets=False, lamp=False,
                hairline=None, bevel=2.0)
    img = heading(img, "PASSWORD", 128, 16, 11, strength=0.5)
    img = recess(img, (60.5, 28.5, 195.5, 54.5), radius=5, face=((2, 4, 8), (6, 9, 14)), rim_alpha=0.3)
    for x in (30, 226):
        img = rivet(img, x, 32, 2.0)
    return img


# ---------------------------------------------------------------- mission end

def mission_end(won):
    """Frames 17 and 33 (256 x 256) at (320, 230); the Continue button sits
    at rows 210 to 242, columns 64 to 192; the password plate (frame 44)
    overlaps the last rows when a password is shown."""
    accent = GOOD if won else BAD
    img = panel(256, 256, (2.5, 2.5, 253.5, 253.5), radius=14, key="end%d" % won, lamp=False,
                hairline=accent)
    img = lamp_strip(img, 128, 7, 56, accent)
    img = heading(img, "MISSION COMPLETE" if won else "MISSION FAILED", 128, 29, 19,
                  glow_col=accent, strength=0.8)
    img = hairline(img, 40, 216, 46.5, accent, 170)
    win = (20.5, 54.5, 235.5, 198.5)
    img = recess(img, win, radius=8, face=((4, 6, 14), (10, 12, 24)), rim_alpha=0.3)
    img = recess(img, (57.5, 204.5, 198.5, 247.5), radius=8, rim_alpha=0.2)
    scene = common.blank(256, 256)
    scene = stars_on(scene.convert("RGBA"), (22, 56, 234, 150), 60, ("end", won), 220)
    a = np.asarray(scene).copy()
    a[:, :, 3] = np.where(a[:, :, :3].max(axis=2) > 0, 255, 0)
    scene = Image.fromarray(a, "RGBA")
    prof = fbm(256, 1, 4, 3, rng("endscene", won))[0]
    ys = np.arange(256)[:, None].astype(float)
    top = 176 - prof * 14
    dirt = art.dirt_rgb(256, 256, "end%d" % won)
    g = (ys >= top[None, :]).astype(float)
    crest = (ys < top[None, :] + 3) & (ys >= top[None, :])
    col = np.where(crest[..., None], np.array(art.rgb(art.MOSS[2]), float), dirt)
    scene = Image.alpha_composite(scene, rgba_image(col, g))
    if won:
        scene = centre(scene, rocket(3.0, frame=7, flying=True), 128, 108)
        c = Canvas(256, 256)
        # a cloud of exhaust rolling out along the ground
        for i in range(14):
            x = 128 + math.cos(i * 0.45) * (20 + i * 3)
            y = 168 - i * 1.5
            c.ellipse((x - 4 - i * 0.6, y - 3, x + 4 + i * 0.6, y + 3), (200, 190, 180, 90))
        scene = Image.alpha_composite(scene, c.image())
        for x, arm in ((68, "arm_l"), (192, "arm_r")):
            scene = stand(scene, hero(32, **{arm: 4.5, "mouth": "o"}), x, int(top[x]) + 2)
    else:
        # the same ground in failing light, a rocket left waiting, and what
        # is left of a bubbleman: a puddle with two eyes and his burst bubble
        sa = np.asarray(scene).astype(float)
        sa[:, :, :3] *= np.array([0.82, 0.78, 0.86])
        scene = Image.fromarray(sa.astype(np.uint8), "RGBA")
        scene = stand(scene, rocket(1.7, frame=20), 184, int(top[184]) + 2)
        c = Canvas(256, 256)
        y0 = float(top[84]) + 1
        c.ellipse((58, y0 - 5, 110, y0 + 5), tuple(art.rgb(art.BODY[0])) + (255,))
        c.ellipse((62, y0 - 4.5, 104, y0 + 2.5), tuple(art.rgb(art.BODY[2])) + (255,))
        c.ellipse((68, y0 - 4, 84, y0 - 1.5), tuple(art.rgb(art.BODY[4])) + (200,))
        for ex in (78, 90):
            c.ellipse((ex - 3.5, y0 - 9, ex + 3.5, y0 - 2), (250, 252, 255, 255))
            c.ellipse((ex - 1.5, y0 - 6, ex + 1.5, y0 - 3), (20, 30, 40, 255))
        for a0, a1, rr in ((200, 250, 22), (280, 330, 19), (120, 160, 24)):
            c.line([(84 + rr * math.cos(math.radians(a)), y0 - 14 + rr * math.sin(math.radians(a)))
                    for a in range(a0, a1 + 1, 5)], (200, 240, 255, 160), 1.2)
        for dx, dy, rr in ((-30, -30, 2.5), (26, -36, 2), (8, -44, 1.5)):
            c.ellipse((84 + dx - rr, y0 + dy - rr, 84 + dx + rr, y0 + dy + rr), (200, 240, 255, 150))
        scene = Image.alpha_composite(scene, c.image())
    scene = mask_to(scene, (22.5, 56.5, 233.5, 196.5), 6)
    return Image.alpha_composite(img, scene)


# ---------------------------------------------------------------- options

def monitor_icon():
    """Frame 19 (128 x 128) at (164, 360), beside the video buttons: the
    buttons are drawn over its columns 50 and on (their faces from column
    114), so the monitor keeps to its left part."""
    w = 128
    img = common.blank(w, w)
    body = (2.5, 24.5, 98.5, 92.5)
    img = Image.alpha_composite(img, drop_shadow(w, w, body, 8, (2, 3), 2.5, 0.5))
    img = Image.alpha_composite(img, plate(w, w, body, 8, ((74, 88, 114), (34, 42, 58)),
                                           bevel=2.0, light=(210, 228, 255, 0.6), dark=(0, 0, 0, 0.6)))
    screen = (10.5, 31.5, 90.5, 83.5)
    ys = np.arange(w)[:, None].astype(float)
    sky = ramp(np.clip((ys - 31) / 52, 0, 1), ["#081428", "#2a4a78"]) * np.ones((1, w, 1))
    inner = rgba_image(sky)
    inner = stars_on(inner, (11, 32, 90, 58), 22, "monitor", 230)
    inner = paste(inner, globe(1, 48, 0.4), (44, 30))
    inner = centre(inner, rocket(1.1, frame=11, flying=True), 33, 58)
    inner = mask_to(inner, screen, 3)
    img = Image.alpha_composite(img, inner)
    img = Image.alpha_composite(img, ring(w, w, screen, 3, (0, 0, 0), 1.0, alpha=0.9))
    glare = Canvas(w, w)
    glare.polygon([(13, 33), (40, 33), (20, 58), (13, 58)], (255, 255, 255, 26))
    img = Image.alpha_composite(img, glare.image())
    stand = plate(w, w, (42.5, 92, 58.5, 104), 1, ((90, 102, 124), (50, 58, 74)), bevel=1.0)
    base = plate(w, w, (24.5, 103.5, 76.5, 110.5), 3, ((120, 132, 154), (60, 68, 86)), bevel=1.2)
    img = stack(img, stand, base)
    c = Canvas(w, w)
    c.ellipse((86, 86.5, 90, 90.5), (60, 240, 110, 255))
    return Image.alpha_composite(img, common.glow(c.image(), 1.5, (60, 240, 110), 0.6))


def speaker_icon():
    """Frame 20 (128 x 128) at (476, 142), right of the sliders: a loudspeaker
    sending warm sound waves; it keeps to columns 38 on, beside the panel."""
    w = 128
    img = common.blank(w, w)
    box = plate(w, w, (40.5, 48.5, 62.5, 80.5), 3, ((120, 134, 160), (54, 62, 82)), bevel=1.5)
    cone = Canvas(w, w)
    cone.polygon([(60, 50), (84, 28), (88, 28), (88, 100), (84, 100), (60, 78)], (60, 70, 92, 255))
    cone.polygon([(62, 52), (84, 31), (86, 31), (86, 60), (62, 62)], (140, 156, 186, 255))
    cone.line([(60, 50), (84, 28), (88, 28), (88, 100), (84, 100), (60, 78)], (8, 10, 16, 255), 1.2)
    img = stack(img, drop_shadow(w, w, (40.5, 48.5, 62.5, 80.5), 3, (2, 3), 2, 0.5), box, cone.image())
    waves = Canvas(w, w)
    for i, rad in enumerate((14, 24, 34)):
        pts = [(90 + rad * math.cos(math.radians(a)), 64 + rad * math.sin(math.radians(a)))
               for a in range(-50, 51, 5)]
        waves.line(pts, (255, 190, 90, 255 - i * 55), 3.2)
    return Image.alpha_composite(img, common.glow(waves.image(), 2.5, WARM, 0.5))


# ---------------------------------------------------------------- main menu

def title():
    """Frame 35 (512 x 128): DELVEMOOR, sliding down to (320, 354)."""
    return lettering(512, 128, 70, (256, 66))


def lettering(w, h, size, centre, text="DELVEMOOR"):
    """The game's name as its title is drawn: the letters are a slice of the
    crust (a cap of moss, earth, then cobbled rock, with wavy seams),
    bevelled by light from the upper left, on a dark edge with a warm rim
    and a faint warm glow behind."""
    ss = 4
    from PIL import ImageFont
    f = ImageFont.truetype(common.FONT_DIR + "/DejaVuSans-Bold.ttf", size * ss)
    mask = Image.new("L", (w * ss, h * ss), 0)
    d = ImageDraw.Draw(mask)
    d.text((centre[0] * ss, centre[1] * ss), text, font=f, anchor="mm", fill=255)
    small = mask.resize((w, h), Image.BOX)
    m = np.asarray(small).astype(float) / 255
    rows = np.nonzero(m.max(axis=1) > 0.5)[0]
    top, bot = rows.min(), rows.max()
    ys = np.arange(h)[:, None].astype(float)
    wave = (fbm(w, 1, 10, 3, rng("title-seams"))[0] - 0.5)[None, :]
    t = (ys - top) / max(1, bot - top)
    dirt = art.dirt_rgb(w, h, "title") * 1.15
    rock = art.rock_rgb(w, h, "title", cells=max(8, 48 * size // 70)) * 1.05
    col = np.where((t < 0.66 + wave * 0.12)[..., None], dirt, rock)
    cap = t < 0.17 + wave * 0.08
    moss = ramp(np.clip(t / 0.17, 0, 1), [art.MOSS[3], art.MOSS[2], art.MOSS[1]])
    col = np.where(cap[..., None], moss, col)
    seam = (t >= 0.17 + wave * 0.08) & (t < 0.22 + wave * 0.08)
    col = np.where(seam[..., None], col * 0.55, col)
    # the bevel: a blurred copy of the letters gives each edge its slope
    soft = np.asarray(small.filter(ImageFilter.GaussianBlur(2.2 * size / 70.0))).astype(float) / 255
    gy, gx = np.gradient(soft)
    lit = 0.55 * gx + 0.83 * gy
    lit = lit / max(1e-6, np.abs(lit).max())
    col = col + np.clip(lit, 0, 1)[..., None] * np.array([120, 110, 90]) \
        - np.clip(-lit, 0, 1)[..., None] * col * 0.55
    letters = rgba_image(np.clip(col, 0, 255), m)
    edge = small.filter(ImageFilter.MaxFilter(5))
    outline = Image.new("RGBA", (w, h), (16, 9, 5, 255))
    outline.putalpha(edge)
    # a warm rim where the outline faces the light
    rim_a = np.asarray(edge).astype(float) / 255 * (1 - m)
    eg = np.asarray(edge.filter(ImageFilter.GaussianBlur(1.5))).astype(float) / 255
    ey, ex = np.gradient(eg)
    rim_a *= np.clip((0.55 * ex + 0.83 * ey) * 6, 0, 1)
    rim = rgba_image(np.ones((h, w, 3)) * np.array(WARM, float), rim_a * 0.6)
    shadow = Image.new("RGBA", (w, h), (0, 0, 0, 255))
    shadow.putalpha(edge.filter(ImageFilter.GaussianBlur(3)))
    halo = Image.new("RGBA", (w, h), WARM + (255,))
    halo.putalpha(edge.filter(ImageFilter.GaussianBlur(10)).point(lambda v: int(v * 0.35)))
    out = common.blank(w, h)
    out.alpha_composite(halo)
    out.alpha_composite(shadow, (3, 4))
    out.alpha_composite(outline)
    out.alpha_composite(rim)
    out.alpha_composite(letters)
    return common.clean_alpha(out)


def menu_panel():
    """Frame 34 (512 x 512) at (320, 225): the console behind the menu
    buttons (their faces span columns 150 to 362, rows 190 to 438). Two rails
    at columns 141 and 372 carry the markers that climb past the buttons;
    the crust strip (frame 36) is drawn over its foot."""
    out = common.blank(512, 512)
    box = (117.5, 173.5, 394.5, 450.5)
    p = panel(512, 512, box, radius=16, key="menu")
    out = Image.alpha_composite(out, p)
    for x in (141, 372):
        out = recess(out, (x - 5.5, 188.5, x + 5.5, 440.5), radius=5, rim_alpha=0.25)
        c = Canvas(512, 512)
        for y in range(196, 436, 28):
            c.ellipse((x - 1.2, y - 1.2, x + 1.2, y + 1.2), (255, 182, 72, 90))
        out = Image.alpha_composite(out, c.image())
    out = hairline(out, 160, 352, 386.5, WARM, 110)
    return out


def lower_strip():
    """Frame 36 (512 x 128): a floating slice of the crust. On the main menu
    it is drawn at its own size at (320, 95) with the menu console standing
    in its valley; on the exit screen it is stretched to 640 x 128 along the
    bottom, where the rocket tower (frame 22) stands on its right-hand hill
    (surface at row 50) and the two buttons cover the valley."""
    w, h = 512, 128
    xs = np.arange(w).astype(float)
    prof = fbm(w, 1, 8, 4, rng("strip"))[0] - 0.5
    # hills at both ends, a valley under the console
    valley = np.clip((np.abs(xs - 256) - 110) / 50, 0, 1)
    valley = valley * valley * (3 - 2 * valley)
    surf = 118 - valley * 62 + prof * 6
    surf[420:] = np.minimum(surf[420:], 50 + prof[420:] * 3)
    ys = np.arange(h)[:, None].astype(float)
    dirt = art.dirt_rgb(w, h, "strip")
    rock = art.rock_rgb(w, h, "strip", cells=30)
    depth = ys - surf[None, :]
    col = np.where((depth > 34)[..., None], rock, dirt)
    ground = (depth >= 0).astype(float)
    # floating: the underside tapers up to a ragged point at both ends
    end = np.minimum(xs, w - 1 - xs)
    jag = fbm(w, 1, 40, 3, rng("strip-under"))[0] - 0.5
    lift = np.clip(1 - end / 76.0, 0, 1) ** 1.4 * 96
    under = 127 - lift + jag * 14 * np.clip(1 - end / 90.0, 0, 1)
    ground *= (ys <= under[None, :]).astype(float)
    # moss along the surface and a shadow under it
    moss = (depth >= 0) & (depth < 3)
    col = np.where(moss[..., None], np.array(art.rgb(art.MOSS[2]), float), col)
    col = np.where(((depth >= 3) & (depth < 5))[..., None], col * 0.7, col)
    img = rgba_image(np.clip(col, 0, 255), ground)
    c = Canvas(w, h)
    r = rng("stripgrass")
    for _ in range(160):
        x = r.random() * w
        y = surf[int(x) % w]
        if ground[min(h - 1, int(y) + 1), int(x) % w] == 0:
            continue
        c.line([(x, y + 1), (x + (r.random() - 0.5) * 3, y - 2 - r.random() * 4)],
               tuple(art.rgb(art.MOSS[1 + int(r.integers(0, 3))])) + (255,), 1.0)
    img = common.over(img, c.image())
    # a cave with a pod in the left hill; crystals and a walker on the right
    cave = Canvas(w, h)
    cave.ellipse((60, 84, 126, 114), (22, 14, 11, 255))
    cave.ellipse((64, 86, 122, 99), (34, 22, 17, 255))
    img = common.over(img, cave.image())
    img = paste(img, pod.paint_pod(32, 3), (77, 82))
    # on the ledge just left of where the exit screen's tower stands
    img = stand(img, hero(32, phase=0.3), 414, int(surf[414]) + 1)
    gems = Canvas(w, h)
    for x, y, s, col in ((452, 84, 7, (255, 190, 90)), (464, 90, 5, (120, 220, 255)), (440, 94, 4, (255, 150, 70))):
        gems.polygon([(x, y - s * 1.6), (x + s * 0.7, y), (x, y + s * 0.6), (x - s * 0.7, y)], col + (255,))
        gems.polygon([(x, y - s * 1.6), (x - s * 0.7, y), (x, y - s * 0.2)],
                     tuple(min(255, v + 60) for v in col) + (255,))
    img = Image.alpha_composite(img, common.glow(gems.image(), 2.0, WARM, 0.5))
    for x, y in ((250, 122), (30, 92), (300, 124), (476, 108)):
        if ground[min(h - 1, y), x] == 0:
            continue
        st = Canvas(w, h)
        st.ellipse((x - 7, y - 5, x + 7, y + 5), (90, 94, 108, 255))
        st.ellipse((x - 5, y - 4, x + 1, y), (140, 146, 160, 255))
        img = common.over(img, st.image())
    # nothing may hang outside the ground's outline
    a = np.asarray(img).astype(float)
    a[:, :, 3] *= np.maximum(ground, (ys < surf[None, :]).astype(float))
    img = Image.fromarray(a.astype(np.uint8), "RGBA")
    return common.clean_alpha(img)


def marker():
    """Frame 43 (16 x 16): the two markers that climb the menu's rails."""
    c = Canvas(16, 16)
    c.polygon([(8, 1.5), (14.5, 8), (8, 14.5), (1.5, 8)], (20, 12, 4, 255))
    c.polygon([(8, 2.8), (13.2, 8), (8, 13.2), (2.8, 8)], WARM + (255,))
    c.polygon([(8, 4.5), (11.5, 8), (8, 11.5), (4.5, 8)], (255, 236, 190, 255))
    c.ellipse((6, 5.2, 8.6, 7.8), (255, 255, 255, 230))
    return common.glow(c.image(), 1.2, WARM, 0.8)


def hint_arrow():
    """Frame 38 (32 x 32) at (230, 300): the game-select hint's arrow,
    pointing down at the next-mission button."""
    c = Canvas(32, 32)
    c.polygon([(11, 2), (21, 2), (21, 16), (28, 16), (16, 30), (4, 16), (11, 16)], (30, 18, 6, 255))
    c.polygon([(12.5, 3.5), (19.5, 3.5), (19.5, 17.5), (24.5, 17.5), (16, 27.5), (7.5, 17.5), (12.5, 17.5)],
              (255, 196, 80, 255))
    c.polygon([(12.5, 3.5), (15.5, 3.5), (15.5, 19.5), (11, 19.5), (7.5, 17.5), (12.5, 17.5)],
              (255, 234, 170, 255))
    return common.glow(c.image(), 1.5, WARM, 0.6)


# ---------------------------------------------------------------- exit screen

def exit_thanks():
    """Frame 23 (256 x 128) at (287, 100): thanks, with three bubblemen
    waving from a small ledge of crust."""
    img = common.blank(256, 128)
    img = heading(img, "THANKS FOR", 128, 24, 26)
    img = heading(img, "PLAYING!", 128, 56, 30)
    ledge = Canvas(256, 128)
    ledge.polygon([(70, 112), (186, 112), (176, 122), (150, 126), (110, 125), (80, 120)], (74, 48, 30, 255))
    ledge.rect((70, 110, 186, 113), tuple(art.rgb(art.MOSS[2])) + (255,), radius=1.5)
    img = Image.alpha_composite(img, ledge.image())
    for x, arm in ((98, "arm_l"), (128, None), (158, "arm_r")):
        # the two at the ends wave with their outer arm
        pose = {arm: 4.5, "mouth": "o"} if arm else {}
        img = stand(img, hero(32, **pose), x, 112)
    return img


def exit_rocket():
    """Frame 22 (128 x 256) at (586, 206): the level's rocket, large, on the
    pad of its service tower; the pad's foot (row 256) meets the surface of
    the crust strip's right hill. The stubby rocket fills the width, so the
    tower stands behind it and the sky above stays open."""
    w, h = 128, 256
    rk = rocket(4.4)
    cx, floor = 72, 241
    top = floor - rk.size[1]
    img = common.blank(w, h)
    c = Canvas(w, h)
    # the tower: a lattice mast a third higher than the rocket, its top lamp red
    mast = top - 40
    c.rect((6, mast, 22, 246), (48, 56, 72, 255))
    c.rect((8, mast, 11, 246), (110, 124, 148, 255))
    for y in range(mast + 4, 238, 14):
        c.line([(8, y), (20, y + 12)], (120, 134, 160, 255), 1.3)
        c.line([(20, y), (8, y + 12)], (70, 80, 100, 255), 1.0)
    c.rect((4, mast - 6, 24, mast + 2), (70, 80, 100, 255), radius=2)
    c.ellipse((10, mast - 14, 18, mast - 6), (255, 90, 60, 255))
    # service arms reaching to the hull, which hides their ends
    for y in (top + 30, top + 62):
        c.rect((22, y, 56, y + 4), (120, 134, 160, 255))
        c.rect((22, y + 4, 56, y + 5), (40, 46, 60, 255))
    img = Image.alpha_composite(img, common.glow(c.image(), 1.0, (255, 90, 60), 0.2))
    pad = plate(w, h, (2.5, 240.5, 125.5, 256.5), 3, ((120, 130, 148), (54, 60, 72)), bevel=1.5)
    img = Image.alpha_composite(img, pad)
    for x in (14, 114):
        c2 = Canvas(w, h)
        c2.ellipse((x - 2.5, 245, x + 2.5, 250), WARM + (255,))
        img = Image.alpha_composite(img, common.glow(c2.image(), 1.5, WARM, 0.6))
    return stand(img, rk, cx, floor)


def slide(n):
    """Frames 24 to 27 (128 x 128) at (80, 352): the exit screen's slides."""
    img = panel(128, 128, (3.5, 3.5, 124.5, 124.5), radius=10, key="slide%d" % n, rivets=True, lamp=False,
                hairline=None)
    img = recess(img, (11.5, 11.5, 116.5, 116.5), radius=6, face=((6, 10, 22), (16, 22, 40)), rim_alpha=0.3)
    img = stars_on(img, (13, 13, 115, 70), 25, ("slide", n), 200)
    if n == 0:
        img = stand(img, hero(96), 64, 113)
    elif n == 1:
        img = paste(img, hatched_pod(96, 0), (16, 16))
    elif n == 2:
        img = centre(img, rocket(2.9, frame=12, flying=True), 64, 64)
    else:
        img = centre(img, globe(4, 100, 0.6), 64, 64)
    return img


# ---------------------------------------------------------------- backdrop

def backdrop():
    """Frame 39 (512 x 512 JPEG): drawn 1024 x 1024 centred on the screen and
    turned slowly behind every front-end screen, so only the disc of radius
    200 around its centre is ever seen, and at any angle. A deep-blue space
    with a soft two-armed swirl of gas and a warm glow at its heart; it stays
    dark where panels and text go."""
    n = 512
    r = rng("backdrop")
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs - n / 2 + 0.5) / (n / 2)
    y = (ys - n / 2 + 0.5) / (n / 2)
    rr = np.hypot(x, y) + 1e-6
    th = np.arctan2(y, x)
    warp = fbm(n, n, 5, 6, r)
    fine = fbm(n, n, 16, 4, rng("backdrop-fine"))
    arms = 0.5 + 0.5 * np.cos(2 * th - 4.2 * np.log(rr) + warp * 3.0)
    clumps = np.clip((fine - 0.3) * 1.6, 0, 1.2)
    gas = arms ** 1.6 * np.exp(-rr * 2.0) * (0.35 + 0.75 * clumps) * (1 - 0.45 * np.exp(-(rr / 0.16) ** 2))
    wide = np.exp(-rr * 1.3) * (0.35 + 0.5 * warp)
    base = np.array(art.rgb("#040812"), float)
    deep = np.array(art.rgb("#0f2446"), float)
    teal = np.array(art.rgb("#2a5c86"), float)
    warm = np.array(art.rgb("#ffb45a"), float)
    col = base + (deep - base) * np.clip(wide, 0, 1)[..., None] * 1.3
    col = col + (teal - base) * np.clip(gas * 1.25, 0, 1)[..., None]
    core = np.exp(-(rr / 0.12) ** 2)
    halo = np.exp(-(rr / 0.3) ** 2) * 0.26
    col = col + warm[None, None, :] * (core * 0.42 + halo * (0.5 + 0.5 * arms))[..., None]
    # dark dust lanes along the inner side of the arms
    lanes = np.clip(np.cos(2 * th - 4.2 * np.log(rr) + 1.1 + warp * 3.0), 0, 1) ** 5 * np.exp(-rr * 1.6)
    col *= (1 - 0.45 * lanes)[..., None]
    # warm knots of young stars strung along the arms
    knots = np.clip((fbm(n, n, 96, 2, rng("backdrop-knots")) - 0.68) * 8, 0, 1) * arms ** 3 * np.exp(-rr * 2.4)
    col = col + np.array([255, 176, 150])[None, None, :] * knots[..., None] * 0.35
    # stars: soft because the picture is drawn twice its size
    for _ in range(700):
        sx, sy = r.random() * n, r.random() * n
        b = r.random() ** 4
        rad = 0.5 + b * 0.9
        x0, x1 = int(max(0, sx - 3)), int(min(n, sx + 4))
        y0, y1 = int(max(0, sy - 3)), int(min(n, sy + 4))
        dx = xs[y0:y1, x0:x1] - sx
        dy = ys[y0:y1, x0:x1] - sy
        s = np.exp(-(dx * dx + dy * dy) / (rad * rad)) * (0.25 + 0.75 * b)
        tint = np.array([190, 210, 255]) if r.random() < 0.7 else np.array([255, 220, 170])
        col[y0:y1, x0:x1] += s[..., None] * tint
    return rgba_image(np.clip(col, 0, 255))


def unused():
    """A small blank for frames that no screen draws."""
    c = Canvas(16, 16)
    c.ellipse((6, 6, 10, 10), (120, 140, 170, 120))
    return c.image()


def dialog_panel():
    """Frame 12 (256 x 256): the dialog panel of the slow-driver warning,
    help and password screens (at (320, 230)), the two halves of the options
    screen (at (320, 360) and (320, 140)) and the game-select buttons (at
    (190, 140)). Its plate spans rows 16 to 240 only: so stacked on the
    options screen the two halves do not overlap, and on the game-select
    screen it clears the mission frame above and the message strip below.
    The 256-wide buttons laid across it show their faces inside its rim."""
    img = panel(256, 256, (1.5, 15.5, 254.5, 240.5), radius=14, key="dialog")
    return img


def generate(reg):
    frames = {
        0: (display_top(), "game display: top toolbar panel (drawn 640 x 128 at 320, 416)"),
        1: (launch_panel(), "launch panel, slides in from the right"),
        2: (display_bottom(), "game display: bottom bar (drawn 640 x 128 at 320, 64)"),
        3: (pause_panel(), "pause panel (320, 220)"),
        4: (coin(), "credits pick-up (not drawn by a screen; for the level view)"),
        5: (credits_box(), "credits counter box (70, 17)"),
        6: (window_frame("PLANETS", "p", [(75, 78), (181, 78), (75, 184), (181, 184)]),
            "game select: frame around the planet buttons (440, 360)"),
        11: (mission_frame(), "game select: frame around the mission list (190, 360)"),
        12: (dialog_panel(), "dialog / panel background"),
        13: (chevron(True), "previous-mission arrow picture"),
        14: (chevron(False), "next-mission arrow picture"),
        15: (hatch_bar(False), "pod counter and hatch lamp, pods waiting (310, 17)"),
        16: (hatch_bar(True), "pod counter and hatch lamp, pods hatched (310, 17)"),
        17: (mission_end(True), "mission complete panel (320, 230)"),
        18: (label_plate(), "label plate behind a short text"),
        19: (monitor_icon(), "options: video picture (164, 360)"),
        20: (speaker_icon(), "options: sound picture (476, 142)"),
        22: (exit_rocket(), "exit screen: rocket on its tower (586, 206)"),
        23: (exit_thanks(), "exit screen: thanks for playing (287, 100)"),
        30: (text_field(), "password entry field (320, 210)"),
        32: (message_strip(), "game select: strip under the message line (315, 16)"),
        33: (mission_end(False), "mission failed panel (320, 230)"),
        34: (menu_panel(), "main menu: frame around the buttons (320, 225)"),
        35: (title(), "main menu: the game's title (slides to 320, 354)"),
        36: (lower_strip(), "main menu / exit: crust strip along the bottom"),
        38: (hint_arrow(), "game select hint arrow, pointing down"),
        39: (backdrop(), "turning backdrop of the front-end screens (drawn 1024 x 1024)"),
        42: (bezel(), "game select: screen for the planet picture (440, 140)"),
        43: (marker(), "main menu marker"),
        44: (password_plate(), "mission complete: password plate (320, 75)"),
    }
    for n in range(4):
        frames[7 + n] = (planet_picture(n + 1), "game select: picture of planet %d (440, 140)" % (n + 1))
        frames[24 + n] = (slide(n), "exit screen slide %d (80, 352)" % n)
    for i in range(45):
        if i in frames:
            img, role = frames[i]
        else:
            img, role = unused(), "unused"
        reg.picture(F, i, img, role, kind="jpg" if i == 39 else "tga", quality=90)
