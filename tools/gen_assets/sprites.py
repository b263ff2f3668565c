"""SPRITES: the 45 pictures of the screens and panels. Most are drawn at
their own size, centred where the screens put them, so each is sized to
fit around the widgets and text that the screens draw over it. Frame 39,
the turning backdrop, is a JPEG; all others are TGA.

Frames no screen draws (21, 28, 29, 31, 37, 40, 41) are small blanks kept
so the folder stays complete. Frame 4 is not drawn by any screen either: it
holds the credits pick-up (32 x 32) for the level view."""
import math

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

import art
import common
from common import Canvas, rgba_image, rng, fbm, ramp

F = "SPRITES"


def paste(dst, src, xy):
    dst = dst.copy()
    dst.alpha_composite(src.convert("RGBA"), (int(xy[0]), int(xy[1])))
    return dst


# ---------------------------------------------------------------- game display

def display_top():
    """Frame 0: the toolbar panel over the top 128 lines (stretched from
    512 to 640 wide). The ten tool buttons sit in its bay; the status line
    is written in the dark strip along its lower edge (screen y 367)."""
    w, h = 512, 128
    img = art.panel(w, 122, key="top", radius=4, inner_alpha=1.0)
    out = common.blank(w, h)
    out = paste(out, img, (0, 0))
    out = art.inset(out, (6, 8, w - 6, 90), colour=(10, 15, 26), alpha=255, radius=4)
    out = art.inset(out, (20, 96, w - 20, 117), colour=(3, 6, 10), alpha=255, radius=3)
    c = Canvas(w, h)
    for x in (10, w - 10):
        c.ellipse((x - 2, 104, x + 2, 108), (255, 180, 70, 255))
    # a soft shadow below the panel onto the level
    c.rect((0, 122, w, 124), (0, 0, 0, 150))
    c.rect((0, 124, w, 126), (0, 0, 0, 80))
    c.rect((0, 126, w, 127), (0, 0, 0, 30))
    return common.over(out, c.image())


def display_bottom():
    """Frame 2: the bottom bar (stretched from 512 to 640 wide): opaque in
    its lowest 40 lines, where the credits, pods, Hatch Pods and Menu sit;
    see-through above, with a soft shadow onto the level."""
    w, h = 512, 128
    bar = art.panel(w, 40, key="bottom", radius=4, inner_alpha=1.0)
    out = paste(common.blank(w, h), bar, (0, 88))
    c = Canvas(w, h)
    c.rect((0, 84, w, 86), (0, 0, 0, 40))
    c.rect((0, 86, w, 88), (0, 0, 0, 110))
    return common.over(out, c.image())


def launch_panel():
    """Frame 1 (256 x 128): slides in from the right; the game writes
    "Ready for launch" in its display and puts the Launch button in its bay."""
    w, h = 256, 128
    body = art.panel(w, h, key="launch", fill=["#1a1410", "#2a2018", "#3a2c1e", "#4a3826", "#5c4630"],
                     rim=(235, 160, 70))
    out = art.inset(body, (24, 12, 244, 40), colour=(12, 4, 4), alpha=255)
    out = art.inset(out, (44, 44, 188, 86), colour=(8, 8, 12), alpha=200)
    c = Canvas(w, h)
    for i in range(14):
        x = 8 + i * 18
        c.polygon([(x, 104), (x + 9, 104), (x + 1, 120), (x - 8, 120)], (240, 190, 40, 255))
        c.polygon([(x + 9, 104), (x + 18, 104), (x + 10, 120), (x + 1, 120)], (30, 26, 24, 255))
    c.rect((4, 102, w - 4, 122), None, outline=(90, 70, 40, 255), width=1)
    out = common.over(out, c.image())
    rk = art.rocket(32, 48, lights=1.0, scale=0.95)
    return paste(out, rk, (202, 46))


def pause_panel():
    """Frame 3 (256 x 256) behind Resume, Retry and Exit."""
    img = art.panel(256, 256, key="pause")
    img = art.heading(img, "PAUSED", 30, 22)
    c = Canvas(256, 256)
    c.line([(40, 50), (216, 50)], (96, 170, 235, 160), 1)
    c.ellipse((108, 141, 148, 181), (15, 22, 36, 255), outline=(96, 170, 235, 255), width=1.5)
    c.rect((119, 151, 125, 171), (150, 220, 255, 255), radius=1)
    c.rect((131, 151, 137, 171), (150, 220, 255, 255), radius=1)
    return common.over(img, c.image())


def coin(size=32):
    """Frame 4: a credits pick-up, a small stack of gold chips."""
    c = Canvas(size, size)
    k = size / 32.0
    for i, y in enumerate((24, 19, 14)):
        c.ellipse((6 * k, (y - 3) * k, 26 * k, (y + 4) * k), (150, 100, 20, 255))
        c.ellipse((6 * k, (y - 4) * k, 26 * k, (y + 2) * k), (250, 200, 60, 255))
        c.ellipse((10 * k, (y - 3) * k, 22 * k, (y + 1) * k), (255, 235, 150, 255))
    c.text((16 * k, 11 * k), "$", 7 * k, (150, 100, 20, 255))
    return common.glow(c.image(), 1.2 * k, (255, 210, 90), 0.5)


def credits_box():
    """Frame 5 (128 x 32) at (70, 17): the coin and the window in which the
    game writes the credits (from x 34, the picture's column 28)."""
    img = art.panel(128, 32, key="credits", radius=5, fill=["#1a160c", "#2a2212", "#3a3018", "#4a3e20", "#5a4c28"],
                    rim=(230, 190, 80))
    img = art.inset(img, (26, 5, 123, 27), colour=(6, 5, 2), alpha=255)
    return paste(img, coin(24), (2, 4))


def hatch_bar(hatched):
    """Frames 15 and 16 (256 x 32) at (310, 17), behind the Hatch Pods button:
    a pod, the window of the pod counter (from x 217) and a lamp that is
    amber while pods wait and green once they are hatched."""
    img = art.panel(256, 32, key="hatchbar", radius=5)
    img = art.inset(img, (30, 5, 64, 27), colour=(2, 8, 4), alpha=255)
    img = paste(img, art.pod(28, 0.8 if hatched else 0.4, crack=1.0 if hatched else 0.0), (2, 2))
    c = Canvas(256, 32)
    lamp = art.GREEN if hatched else art.AMBER
    c.ellipse((214, 7, 232, 25), (20, 20, 20, 255))
    c.ellipse((216, 9, 230, 23), tuple(lamp) + (255,))
    c.ellipse((218.5, 11, 223.5, 16), (255, 255, 255, 200))
    c.text((242, 16), "\u2713" if hatched else "\u2026", 11, tuple(lamp) + (255,), font="DejaVuSans.ttf")
    return common.over(img, common.glow(c.image(), 2.0, lamp, 0.5))


# ---------------------------------------------------------------- select screen

def window_frame(title, key, sockets=()):
    """A 256 x 256 bezel around a 200 x 200 window that stays see-through,
    so what the screen drew beneath (black panel, highlights, text) shows."""
    w = 256
    c = Canvas(w, w)
    c.rect((14, 14, 242, 242), None, outline=(50, 70, 100, 255), width=12, radius=10)
    c.rect((14, 14, 242, 242), None, outline=(96, 170, 235, 255), width=1.5, radius=10)
    c.rect((26.5, 26.5, 229.5, 229.5), None, outline=(20, 28, 44, 255), width=2, radius=4)
    for x, y in sockets:
        c.ellipse((x - 36, y - 36, x + 36, y + 36), None, outline=(96, 170, 235, 140), width=1.2)
        for a in range(0, 360, 90):
            ra = math.radians(a + 45)
            c.line([(x + math.cos(ra) * 36, y + math.sin(ra) * 36),
                    (x + math.cos(ra) * 41, y + math.sin(ra) * 41)], (150, 220, 255, 200), 1.5)
    img = c.image()
    img = art.rivets(img, [(20, 20), (236, 20), (20, 236), (236, 236)], 2.0)
    # the top 8 rows fall off the screen at the frames' positions
    plate = art.panel(120, 18, key="plate" + key, radius=4)
    img = paste(img, plate, (68, 10))
    return art.heading(img, title, 19, 10)


def mission_frame():
    img = window_frame("MISSIONS", "m")
    c = Canvas(256, 256)
    # markers beside the current mission's line (rows 122..134)
    c.polygon([(30, 121), (38, 128), (30, 135)], (150, 230, 255, 255))
    c.polygon([(226, 121), (218, 128), (226, 135)], (150, 230, 255, 255))
    c.line([(40, 137.5), (216, 137.5)], (96, 170, 235, 90), 1)
    c.line([(40, 119.5), (216, 119.5)], (96, 170, 235, 90), 1)
    return common.over(img, common.glow(c.image(), 1.5, art.CYAN, 0.6))


def bezel():
    """Frame 42 (256 x 256): the screen on which the selected planet's
    picture appears; dark inside while a picture fades."""
    img = art.panel(256, 256, key="bezel", radius=12)
    img = art.inset(img, (26, 26, 230, 230), colour=(4, 6, 12), alpha=255, radius=8)
    img = art.rivets(img, [(12, 12), (244, 12), (12, 244), (244, 244)], 2.2)
    c = Canvas(256, 256)
    c.ellipse((123, 236, 133, 246), (60, 220, 120, 255))
    return common.over(img, c.image())


def planet_picture(num):
    """Frames 7 to 10 (256 x 256): a view of each planet's surface, in the
    window of the bezel (frame 42)."""
    p = art.PLANETS[num]
    w = 256
    cols = p["cols"]
    r = rng("postcard", num)
    ys = np.arange(w)[:, None].astype(float)
    sky = ramp(np.clip(ys / 150, 0, 1), ["#05060e", "#10142a", art.SKY[3], "#6a4f88"])
    sky = sky * np.ones((1, w, 1))
    img = rgba_image(sky)
    # stars
    a = np.asarray(img).copy()
    for _ in range(90):
        x, y = int(r.integers(0, w)), int(r.integers(0, 120))
        v = int(150 + 105 * r.random())
        a[y, x, :3] = v
    img = Image.fromarray(a, "RGBA")
    # the planet's own globe hangs in the sky
    img = paste(img, art.globe(num, 96, 0.3), (140, 30))
    # ground: two ridges in the planet's colours, a rocket on the near one
    land = common.blank(w, w)
    d = ImageDraw.Draw(land)
    for layer, (base, amp, shade) in enumerate(((170, 30, 0.45), (200, 22, 0.8))):
        prof = fbm(w, 1, 3 + layer * 2, 4, rng("pc", num, layer))[0]
        pts = [(x, base - prof[x] * amp) for x in range(w)] + [(w, w), (0, w)]
        colr = tuple(int(v * shade) for v in art.rgb(cols[2 + layer]))
        d.polygon(pts, fill=colr + (255,))
    img = Image.alpha_composite(img, land)
    img = paste(img, art.rocket(32, 48, scale=1.0), (60, 150))
    bm = art.bubbleman(32)
    img = paste(img, bm, (100, 175))
    img = paste(img, art.pod(32, 0.7), (170, 205))
    names = {1: "FIELD", 2: "ICE", 3: "ASTEROID", 4: "SOFT"}
    img = art.heading(img, "PLANET %d \u00b7 %s" % (num, names[num]), 214, 13)
    # only the window of the bezel shows the picture
    mask = Canvas(w, w)
    mask.rect((28, 28, 228, 228), (255, 255, 255, 255), radius=6)
    m = np.asarray(mask.image())[:, :, 3]
    arr = np.asarray(img).copy()
    arr[:, :, 3] = np.minimum(arr[:, :, 3], m)
    return common.clean_alpha(Image.fromarray(arr, "RGBA"))


def chevron(up):
    """Frames 13 and 14 (32 x 16), over the mission arrows: earlier missions
    are listed above the current one, later ones below."""
    c = Canvas(32, 16)
    pts = [(8, 11), (16, 4), (24, 11)] if up else [(8, 5), (16, 12), (24, 5)]
    c.line(pts, (20, 30, 50, 255), 4.0)
    c.line(pts, (210, 240, 255, 255), 2.0)
    return c.image()


def message_strip():
    """Frame 32 (512 x 32) at (315, 16): under the game-select message line."""
    img = art.panel(512, 32, key="msg", radius=6, inner_alpha=0.85)
    return art.inset(img, (8, 5, 504, 27), colour=(4, 6, 12), alpha=200)


def label_plate():
    """Frame 18 (128 x 32): behind a short text (the current video choices,
    the password on the game-select screen)."""
    img = art.panel(128, 32, key="label", radius=6)
    return art.inset(img, (6, 6, 122, 26), colour=(4, 6, 12), alpha=235)


def text_field():
    """Frame 30 (128 x 32) at (320, 210): the field in which a typed
    password appears."""
    img = art.panel(128, 32, key="field", radius=4, rim=(150, 220, 255))
    img = art.inset(img, (4, 4, 124, 28), colour=(0, 0, 0), alpha=255)
    c = Canvas(128, 32)
    c.rect((4, 4, 124, 28), None, outline=(150, 220, 255, 120), width=1, radius=3)
    return common.over(img, c.image())


def password_plate():
    """Frame 44 (256 x 64) under the mission-complete panel; the game writes
    the next password in its window (screen y 60, the picture's row 35)."""
    img = art.panel(256, 64, key="pwd", radius=8)
    img = art.heading(img, "PASSWORD", 13, 11)
    return art.inset(img, (48, 28, 208, 54), colour=(2, 4, 10), alpha=255)


# ---------------------------------------------------------------- mission end

def mission_end(won):
    """Frames 17 and 33 (256 x 256) at (320, 230); the Continue button sits
    on their lower edge (picture rows 210 to 242)."""
    if won:
        img = art.panel(256, 256, key="won", rim=(120, 230, 140),
                        fill=["#0e1a12", "#15281c", "#1e3826", "#284a32", "#335c3e"])
        img = art.heading(img, "MISSION COMPLETE", 28, 19, glow_col=(80, 220, 110))
    else:
        img = art.panel(256, 256, key="lost", rim=(235, 100, 90),
                        fill=["#1c0e0e", "#2c1616", "#3c1e1e", "#4c2828", "#5e3232"])
        img = art.heading(img, "MISSION FAILED", 28, 20, glow_col=(235, 80, 70))
    img = art.inset(img, (36, 52, 220, 196), colour=(6, 8, 16), alpha=255, radius=6)
    # a small scene in the window
    scene = common.blank(256, 256)
    d = ImageDraw.Draw(scene)
    prof = fbm(256, 1, 4, 3, rng("endscene", won))[0]
    d.polygon([(x, 170 - prof[x] * 14) for x in range(38, 219)] + [(218, 194), (38, 194)],
              fill=(75, 50, 32, 255))
    img = Image.alpha_composite(img, scene)
    r = rng("endstars", won)
    arr = np.asarray(img).copy()
    for _ in range(40):
        x, y = int(r.integers(40, 216)), int(r.integers(56, 140))
        arr[y, x, :3] = 200
    img = Image.fromarray(arr, "RGBA")
    if won:
        img = paste(img, art.rocket(48, 96, flame=1.0, key=7, legs=False, scale=0.9), (104, 62))
        for x in (60, 170):
            img = paste(img, art.bubbleman(32), (x, 136))
    else:
        img = paste(img, art.rocket(48, 48, lights=0.0), (150, 120))
        c = Canvas(256, 256)
        c.ellipse((62, 150, 102, 168), tuple(art.rgb(art.BODY[1])) + (255,))
        c.ellipse((70, 152, 86, 160), tuple(art.rgb(art.BODY[3])) + (255,))
        c.ellipse((58, 110, 106, 158), None, outline=(200, 240, 255, 120), width=1)
        img = common.over(img, c.image())
    return img


# ---------------------------------------------------------------- options

def monitor_icon():
    """Frame 19 (128 x 128) beside the video buttons."""
    c = Canvas(128, 128)
    c.rect((14, 20, 114, 92), (40, 48, 64, 255), radius=8)
    c.rect((22, 28, 106, 84), (10, 20, 40, 255), radius=3)
    c.rect((54, 92, 74, 106), (60, 68, 84, 255))
    c.rect((36, 104, 92, 112), (80, 90, 108, 255), radius=3)
    img = c.image()
    inner = common.blank(128, 128)
    inner = paste(inner, art.globe(1, 40, 0.4), (70, 34))
    inner = paste(inner, art.rocket(32, 48, flame=0.9, key=11, legs=False, scale=0.8), (34, 34))
    mask = Canvas(128, 128)
    mask.rect((22, 28, 106, 84), (255, 255, 255, 255), radius=3)
    m = np.asarray(mask.image())[:, :, 3]
    a = np.asarray(inner).copy()
    a[:, :, 3] = np.minimum(a[:, :, 3], m)
    img = common.over(img, Image.fromarray(a, "RGBA"))
    g = Canvas(128, 128)
    g.rect((14, 20, 114, 92), None, outline=(96, 170, 235, 255), width=1.5, radius=8)
    return common.over(img, g.image())


def speaker_icon():
    """Frame 20 (128 x 128) beside the sound sliders."""
    c = Canvas(128, 128)
    c.rect((22, 48, 46, 80), (70, 80, 100, 255), radius=3)
    c.polygon([(44, 48), (72, 24), (72, 104), (44, 80)], (90, 104, 130, 255))
    c.polygon([(44, 50), (70, 28), (70, 50)], (140, 156, 184, 255))
    for i, rad in enumerate((18, 30, 42)):
        c.line([(72 + rad * math.cos(math.radians(a)), 64 + rad * math.sin(math.radians(a)))
                for a in range(-45, 46, 5)], (120, 210, 255, 255 - i * 50), 3.5)
    return common.glow(c.image(), 2.0, art.CYAN, 0.4)


# ---------------------------------------------------------------- main menu

def title():
    """Frame 35 (512 x 128): the game's name, sliding into place at y 354."""
    w, h = 512, 128
    ss = 4
    from PIL import ImageFont
    f = ImageFont.truetype(common.FONT_DIR + "/DejaVuSans-Bold.ttf", 68 * ss)
    mask = Image.new("L", (w * ss, h * ss), 0)
    d = ImageDraw.Draw(mask)
    d.text((w * ss / 2, h * ss / 2 + 4 * ss), "DELVEMOOR", font=f, anchor="mm", fill=255)
    mask = mask.resize((w, h), Image.BOX)
    m = np.asarray(mask).astype(float) / 255
    ys = np.arange(h)[:, None].astype(float)
    # the letters are a slice of the crust: moss on top, dirt below
    dirt = art.dirt_rgb(w, h, "title")
    rows = np.nonzero(m.max(axis=1) > 0.5)[0]
    top, bot = rows.min(), rows.max()
    t = (ys - top) / max(1, bot - top)
    moss = np.array(art.rgb(art.MOSS[2]), float)
    col = np.where((t < 0.16)[..., None], moss + (0.16 - t)[..., None] * 300, dirt * 1.25)
    col = np.clip(col, 0, 255) * np.ones((1, w, 1))
    letters = rgba_image(col, m)
    # outline and shadow
    edge = mask.filter(ImageFilter.MaxFilter(5))
    shadow = Image.new("RGBA", (w, h), (18, 10, 6, 255))
    shadow.putalpha(edge)
    out = common.blank(w, h)
    sh2 = Image.new("RGBA", (w, h), (0, 0, 0, 255))
    sh2.putalpha(edge.filter(ImageFilter.GaussianBlur(4)))
    out.alpha_composite(sh2, (3, 5))
    out.alpha_composite(shadow)
    out.alpha_composite(letters)
    return common.clean_alpha(common.glow(out, 6, (120, 90, 200), 0.5))


def menu_panel():
    """Frame 34 (512 x 512) at (320, 225): the frame around the menu
    buttons (screen x 170 to 470, y 36 to 296)."""
    out = common.blank(512, 512)
    p = art.panel(300, 264, key="menu", inner_alpha=0.82, radius=10)
    out = paste(out, p, (106, 182))
    return art.rivets(out, [(114, 190), (398, 190), (114, 438), (398, 438)], 2.2)


def lower_strip():
    """Frame 36 (512 x 128): a slice of the crust, the surface two thirds
    down; under the lowest menu buttons, and stretched along the bottom of
    the exit screen."""
    w, h = 512, 128
    surf = 72
    prof = fbm(w, 1, 8, 4, rng("strip"))[0]
    line = surf + (prof - 0.5) * 6
    ys = np.arange(h)[:, None].astype(float)
    dirt = art.dirt_rgb(w, h, "strip")
    ground = ys >= line[None, :]
    img = rgba_image(dirt, ground.astype(float))
    c = Canvas(w, h)
    for x in range(0, w, 2):
        y = line[x]
        c.line([(x, y), (x + 2, y)], tuple(art.rgb(art.MOSS[2])) + (255,), 2.0)
    r = rng("stripgrass")
    for _ in range(70):
        x = r.random() * w
        y = line[int(x) % w]
        c.line([(x, y + 1), (x + (r.random() - 0.5) * 3, y - 2 - r.random() * 4)],
               tuple(art.rgb(art.MOSS[1 + int(r.integers(0, 3))])) + (255,), 1.0)
    img = common.over(img, c.image())
    # a cave with a pod, stones, and a rocket on the surface
    cave = Canvas(w, h)
    cave.ellipse((70, 86, 150, 122), (24, 15, 12, 255))
    img = common.over(img, cave.image())
    img = paste(img, art.pod(32, 0.7), (96, 88))
    img = paste(img, art.rocket(32, 48), (420, int(line[436]) - 47))
    img = paste(img, art.bubbleman(32), (380, int(line[396]) - 31))
    for x, y in ((250, 96), (300, 112), (210, 118)):
        st = Canvas(w, h)
        st.ellipse((x - 7, y - 5, x + 7, y + 5), (90, 94, 108, 255))
        st.ellipse((x - 5, y - 4, x + 1, y), (140, 146, 160, 255))
        img = common.over(img, st.image())
    # soft ends, so the slice floats instead of ending in a cut
    a = np.asarray(img).astype(float)
    ramp_w = 40
    fade = np.clip(np.minimum(np.arange(w), w - 1 - np.arange(w)) / ramp_w, 0, 1)
    a[:, :, 3] *= fade[None, :]
    return common.clean_alpha(Image.fromarray(a.astype(np.uint8), "RGBA"))


def marker():
    """Frame 43 (16 x 16): the two markers that step up beside the menu."""
    c = Canvas(16, 16)
    c.polygon([(8, 2), (14, 8), (8, 14), (2, 8)], (120, 220, 255, 255))
    c.polygon([(8, 4.5), (11.5, 8), (8, 11.5), (4.5, 8)], (230, 250, 255, 255))
    return common.glow(c.image(), 1.2, art.CYAN, 0.8)


def hint_arrow():
    """Frame 38 (32 x 32): the arrow of the game-select hint, pointing down
    at the next-mission button."""
    c = Canvas(32, 32)
    c.polygon([(11, 2), (21, 2), (21, 16), (28, 16), (16, 30), (4, 16), (11, 16)], (40, 30, 10, 255))
    c.polygon([(12.5, 3.5), (19.5, 3.5), (19.5, 17.5), (24.5, 17.5), (16, 27.5), (7.5, 17.5), (12.5, 17.5)],
              (255, 215, 80, 255))
    return c.image()


# ---------------------------------------------------------------- exit screen

def exit_thanks():
    """Frame 23 (256 x 128) at (287, 100)."""
    img = common.blank(256, 128)
    img = art.heading(img, "THANKS FOR", 34, 22, glow_col=(120, 90, 200))
    img = art.heading(img, "PLAYING!", 64, 26, glow_col=(120, 90, 200))
    for i, x in enumerate((40, 112, 184)):
        img = paste(img, art.bubbleman(32, phase=i / 3.0), (x, 88))
    return img


def exit_rocket():
    """Frame 22 (128 x 256) at (586, 206): a rocket on its launch tower."""
    img = common.blank(128, 256)
    c = Canvas(128, 256)
    c.rect((14, 30, 24, 236), (70, 76, 90, 255))
    for y in range(40, 236, 16):
        c.line([(14, y), (24, y + 14)], (120, 130, 150, 255), 1.5)
    c.rect((24, 80, 48, 84), (120, 130, 150, 255))
    c.rect((0, 232, 128, 256), (60, 40, 28, 255))
    c.rect((0, 232, 128, 235), tuple(art.rgb(art.MOSS[2])) + (255,))
    img = common.over(img, c.image())
    return paste(img, art.rocket(96, 192, scale=1.0), (24, 42))


def slide(n):
    """Frames 24 to 27 (128 x 128): the exit screen's slide show."""
    img = art.panel(128, 128, key="slide%d" % n, radius=8)
    img = art.inset(img, (6, 6, 122, 122), colour=(6, 8, 16), alpha=255, radius=5)
    if n == 0:
        img = paste(img, art.bubbleman(96), (16, 20))
    elif n == 1:
        img = paste(img, art.pod(96, 0.9, crack=1.0), (16, 16))
    elif n == 2:
        img = paste(img, art.rocket(64, 112, flame=1.0, key=5, legs=False), (32, 8))
    else:
        img = paste(img, art.globe(4, 100, 0.6), (14, 14))
    return img


# ---------------------------------------------------------------- backdrop

def backdrop():
    """Frame 39 (512 x 512 JPEG, drawn 1024 x 1024 and turning): a spiral
    nebula whose centre looks right at any angle. Only the middle disc of
    radius 200 is ever on screen."""
    n = 512
    r = rng("backdrop")
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs - n / 2 + 0.5) / (n / 2)
    y = (ys - n / 2 + 0.5) / (n / 2)
    rr = np.hypot(x, y) + 1e-6
    th = np.arctan2(y, x)
    noise = fbm(n, n, 6, 6, r)
    arms = 0.5 + 0.5 * np.cos(2 * th - 5.5 * np.log(rr) + noise * 2.5)
    falloff = np.exp(-rr * 2.2)
    neb = arms ** 2 * falloff * 1.3 + np.exp(-(rr / 0.08) ** 2) * 0.9
    neb += 0.25 * (noise - 0.4) * falloff
    neb = np.clip(neb, 0, 1.2)
    col = ramp(np.clip(neb, 0, 1), ["#03040a", "#0d0c24", "#2a1c55", "#6a3a8a", "#c76aa8", "#ffe2d0"])
    # dust lanes
    lanes = np.clip(np.cos(2 * th - 5.5 * np.log(rr) + 1.2 + noise * 2.5), 0, 1) ** 6 * falloff
    col *= (1 - 0.5 * lanes)[..., None]
    # stars of several sizes
    for _ in range(900):
        sx, sy = r.random() * n, r.random() * n
        b = r.random() ** 3
        rad = 0.6 + b * 1.4
        x0, x1 = int(max(0, sx - 3)), int(min(n, sx + 4))
        y0, y1 = int(max(0, sy - 3)), int(min(n, sy + 4))
        dx = xs[y0:y1, x0:x1] - sx
        dy = ys[y0:y1, x0:x1] - sy
        s = np.exp(-(dx * dx + dy * dy) / (rad * rad)) * (0.4 + 0.6 * b)
        tint = np.array([200, 210, 255]) if r.random() < 0.6 else np.array([255, 230, 200])
        col[y0:y1, x0:x1] += s[..., None] * tint
    return rgba_image(np.clip(col, 0, 255))


def unused():
    """A small blank for frames that no screen draws."""
    c = Canvas(16, 16)
    c.ellipse((6, 6, 10, 10), (120, 140, 170, 120))
    return c.image()


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
        12: (art.rivets(art.panel(256, 256, key="dialog"), [(9, 9), (247, 9), (9, 247), (247, 247)], 2.0),
             "dialog / panel background"),
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
