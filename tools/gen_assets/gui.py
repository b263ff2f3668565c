"""GUI: the 32 widget frames, and the bevelled-plate painter that the screen
pictures in sprites.py share, so that every panel, plate and button of the
interface is lit and edged the same way.

Buttons come in triples (normal, pointed at, pressed), each at the size the
layout stretches it to, so they are drawn one texel to one pixel:

  0-2   64 x 64   tool buttons (and the editor's 2 x 2 grid)
  3-5   128 x 32  small buttons (Hatch Pods, Menu, Launch, pause panel, Continue)
  6-8   256 x 32  menu and dialog buttons
  9-11  256 x 64  the game-select start button (the only button without a label)
  12-14 64 x 16   mission arrows (a chevron picture is drawn over them)
  15,16 16 x 16   slider cell, filled and empty
  17-19 256 x 32  exit-screen buttons (amber); the editor also squeezes them to 64 x 64
  20-22 128 x 32  editor buttons (green)
  23-25 32 x 32   small square buttons
  26-28 64 x 16   editor arrows (amber)
  29-31 32 x 32   small square buttons (amber)

The look: dark space-blue steel, lit from the upper left, with a warm amber
rim when the pointer is over a button. Pressed buttons sink (bevel reversed)
because the game draws their label one pixel left and down.
"""
import numpy as np
from PIL import Image

import common

SS = 4
LIGHT = (-0.55, -0.835)   # direction the light comes from, in picture axes (y down)

# Face colours (top, bottom of the face gradient) and rim accents of the three kinds.
BLUE = dict(face=((58, 80, 118), (27, 39, 62)), hover=((74, 100, 142), (36, 52, 82)),
            down=((20, 29, 47), (36, 51, 78)), edge=(112, 146, 196), glow=(255, 182, 72))
GREEN = dict(face=((50, 112, 70), (20, 56, 34)), hover=((66, 140, 88), (28, 72, 44)),
             down=((16, 42, 26), (34, 80, 50)), edge=(120, 206, 130), glow=(255, 200, 90))
AMBER = dict(face=((120, 78, 34), (58, 36, 16)), hover=((150, 100, 44), (74, 46, 20)),
             down=((44, 27, 12), (84, 54, 24)), edge=(236, 170, 84), glow=(255, 214, 130))

OUTLINE = (5, 8, 14)
WARM = (255, 182, 72)


# ---------------------------------------------------------------- the plate painter

def _window(w, h, box, margin):
    """The whole-pixel region around `box` (grown by `margin`) inside the
    picture: painters work only there, which keeps large pictures fast."""
    x0 = max(0, int(np.floor(box[0] - margin)))
    y0 = max(0, int(np.floor(box[1] - margin)))
    x1 = min(w, int(np.ceil(box[2] + margin)))
    y1 = min(h, int(np.ceil(box[3] + margin)))
    return x0, y0, max(x0 + 1, x1), max(y0 + 1, y1)


def _samples(box):
    """Samples per pixel: edges are antialiased from the distance itself, so
    big plates, whose edges are long and straight, need fewer samples."""
    return SS if (box[2] - box[0]) * (box[3] - box[1]) <= 160 * 64 else 2


def _field(w, h, box, radius, margin=2.0):
    """Distance in pixels inside a rounded box (negative outside), the
    outward normal, the sample rows, the window around the box and the
    samples per pixel used."""
    ss = _samples(box)
    win = _window(w, h, box, margin)
    wx0, wy0, wx1, wy1 = win
    x0, y0, x1, y1 = box
    ys, xs = np.mgrid[wy0 * ss:wy1 * ss, wx0 * ss:wx1 * ss].astype(np.float32)
    px = (xs + 0.5) / ss
    py = (ys + 0.5) / ss
    cx, cy = (x0 + x1) / 2.0, (y0 + y1) / 2.0
    radius = min(radius, (x1 - x0) / 2.0, (y1 - y0) / 2.0)
    dx, dy = px - cx, py - cy
    qx = np.abs(dx) - ((x1 - x0) / 2.0 - radius)
    qy = np.abs(dy) - ((y1 - y0) / 2.0 - radius)
    ox, oy = np.maximum(qx, 0), np.maximum(qy, 0)
    corner = np.hypot(ox, oy)
    outside = corner + np.minimum(np.maximum(qx, qy), 0) - radius
    safe = np.maximum(corner, 1e-9)
    in_corner = (qx > 0) & (qy > 0)
    nx = np.where(in_corner, ox / safe, np.where(qy > 0, 0.0, (qx >= qy) * 1.0))
    ny = np.where(in_corner, oy / safe, np.where(qy > 0, 1.0, (qy > qx) * 1.0))
    return -outside, nx * np.sign(dx), ny * np.sign(dy), py, win, ss


def coverage(w, h, box, radius):
    """How much of each pixel lies inside a rounded box (0..1, full size)."""
    d, _, _, _, win, ss = _field(w, h, box, radius, margin=1.0)
    out = np.zeros((h, w))
    out[win[1]:win[3], win[0]:win[2]] = common.downsample(np.clip(d * ss + 0.5, 0, 1), ss)
    return out


def _image(w, h, win, rgb, alpha, ss):
    """Supersampled colour and coverage of a window to a full-size PIL
    picture (premultiplied box filter, so edges take no dark fringe)."""
    a = common.downsample(alpha, ss)
    c = common.downsample(rgb * alpha[..., None], ss) / np.maximum(a[..., None], 1e-6)
    out = common.blank(w, h)
    out.paste(common.rgba_image(c, a), (win[0], win[1]))
    return out


def plate(w, h, box, radius, face, bevel=2.0, light=(200, 220, 250, 0.55), dark=(0, 0, 0, 0.6),
          outline=OUTLINE, outline_w=1.0, sunk=False, sheen=0.0, grain=0.0, key="plate",
          alpha=1.0):
    """A rounded plate inside `box` of a w x h picture: a 1-pixel outline, a
    bevel whose brightness follows the light from the upper left (reversed
    when `sunk`), and a face shaded from face[0] at the top to face[1] at the
    bottom. `sheen` adds a soft glassy band over the upper half; `grain` a
    faint brushed-metal texture."""
    d, nx, ny, py, win, ss = _field(w, h, box, radius)
    y0, y1 = box[1], box[3]
    t = np.clip((py - y0) / max(1e-6, y1 - y0), 0, 1)[..., None]
    top, bottom = np.array(face[0], float), np.array(face[1], float)
    rgb = top * (1 - t) + bottom * t
    if sheen:
        band = np.exp(-((t - 0.18) / 0.16) ** 2) * sheen
        rgb = rgb + band * 60
    if grain:
        r = common.rng("grain", key, w, h)
        rows = np.repeat(r.random(h) - 0.5, ss)[win[1] * ss:win[3] * ss, None, None]
        rgb = rgb + rows * grain
    facing = nx * LIGHT[0] + ny * LIGHT[1]
    if sunk:
        facing = -facing
    ring = (d >= outline_w) & (d < outline_w + bevel)
    lit = np.clip(facing, 0, 1)[..., None] * light[3]
    shade = np.clip(-facing, 0, 1)[..., None] * dark[3]
    bev = rgb * (1 - lit) + np.array(light[:3], float) * lit
    bev = bev * (1 - shade) + np.array(dark[:3], float) * shade
    rgb = np.where(ring[..., None], bev, rgb)
    if outline is not None:
        rgb = np.where((d < outline_w)[..., None], np.array(outline, float), rgb)
    cov = np.clip(d * ss + 0.5, 0, 1) * alpha
    return _image(w, h, win, np.clip(rgb, 0, 255), cov, ss)


def ring(w, h, box, radius, colour, width=1.0, inset=0.0, alpha=1.0):
    """A thin line along the inside of a rounded box, e.g. an accent rim."""
    d, _, _, _, win, ss = _field(w, h, box, radius, margin=max(2.0, -inset + 1))
    inside = np.clip((d - inset) * ss + 0.5, 0, 1) * np.clip((inset + width - d) * ss + 0.5, 0, 1)
    rgb = np.ones(d.shape + (3,)) * np.array(colour, float)
    return _image(w, h, win, rgb, inside * alpha, ss)


def inner_glow(w, h, box, radius, colour, width=3.0, strength=0.5, inset=1.0):
    """Light spilling inward from a rounded box's rim: the pointed-at look."""
    d, _, _, _, win, ss = _field(w, h, box, radius)
    a = np.where(d > inset, np.exp(-(d - inset) / width), 0.0) * strength
    rgb = np.ones(d.shape + (3,)) * np.array(colour, float)
    return _image(w, h, win, rgb, np.clip(a, 0, 1), ss)


def drop_shadow(w, h, box, radius, offset=(1.0, 1.5), blur=1.5, strength=0.5):
    """A soft shadow of a rounded box, cast down and to the right."""
    x0, y0, x1, y1 = box
    b = (x0 + offset[0], y0 + offset[1], x1 + offset[0], y1 + offset[1])
    d, _, _, _, win, ss = _field(w, h, b, radius, margin=blur + 1)
    a = np.clip(0.5 + d / (2 * blur), 0, 1) * strength
    return _image(w, h, win, np.zeros(d.shape + (3,)), a, ss)


def stack(*layers):
    out = layers[0]
    for lay in layers[1:]:
        out = Image.alpha_composite(out, lay)
    return out


def rivet(img, x, y, r=1.6):
    """A small domed screw head, lit from the upper left."""
    w, h = img.size
    lay = plate(w, h, (x - r, y - r, x + r, y + r), r, ((196, 206, 222), (92, 102, 120)),
                bevel=0.8, light=(255, 255, 255, 0.7), dark=(20, 24, 32, 0.6),
                outline=(8, 10, 16), outline_w=0.6)
    return Image.alpha_composite(img, lay)


# ---------------------------------------------------------------- buttons

def button(w, h, state, kind, body=None, radius=None, bevel=2.0):
    """One look of a button: 0 normal, 1 pointed at (brighter face, warm rim
    and inner glow), 2 pressed (dark face, bevel reversed, dimmer warm rim)."""
    body = body or (0.5, 0.5, w - 0.5, h - 1.0)
    radius = min(6.0, (body[3] - body[1]) / 4.0) if radius is None else radius
    face = kind[("face", "hover", "down")[state]]
    layers = [common.blank(w, h)]
    if state != 2:
        layers.append(drop_shadow(w, h, body, radius, offset=(0.6, 1.0), blur=0.8, strength=0.45))
    layers.append(plate(w, h, body, radius, face, bevel=bevel, sunk=state == 2,
                        sheen=0.0 if state == 2 else 0.35, grain=6.0, key=(w, h, state),
                        light=(210, 228, 255, 0.6 if state != 2 else 0.35),
                        dark=(0, 0, 0, 0.65)))
    if state == 0:
        layers.append(ring(w, h, body, radius, kind["edge"], width=1.0, inset=1.0, alpha=0.45))
    else:
        glow = kind["glow"]
        layers.append(ring(w, h, body, radius, glow, width=1.0, inset=0.0, alpha=0.95 if state == 1 else 0.6))
        layers.append(inner_glow(w, h, body, radius, glow, width=2.2 if h <= 32 else 3.0,
                                 strength=0.42 if state == 1 else 0.22, inset=1.0))
    return common.clean_alpha(stack(*layers), 4)


def menu_button(state):
    """256 x 32: the face stops 22 pixels short of either end, so the main
    menu's two markers can climb past the buttons (they are drawn at x
    205 and 436, under the buttons); the whole 256 x 32 stays clickable."""
    img = button(256, 32, state, BLUE, body=(22.5, 0.5, 233.5, 31.0), radius=7)
    # screw heads at the ends of the face, clear of the longest label
    k = 1 if state == 2 else 0
    for x in (31.0, 225.0):
        img = rivet(img, x, 16.0 + k * 0.5, 1.7)
    return img


def start_button(state):
    """256 x 64, green: the game draws no label on it, so its face carries
    the picture of what it does: a glowing play mark between launch chevrons."""
    img = button(256, 64, state, GREEN, body=(22.5, 0.5, 233.5, 62.5), radius=9, bevel=2.5)
    w, h = 256, 64
    c = common.Canvas(w, h)
    k = 1 if state == 2 else 0
    cx, cy = 128 - k, 31 + k
    hot = state == 1
    mark = (255, 226, 150, 255) if hot else (236, 250, 230, 255)
    shade = (10, 30, 16, 200)
    # the socket
    c.ellipse((cx - 21, cy - 21, cx + 21, cy + 21), (8, 26, 14, 210))
    c.ellipse((cx - 21, cy - 21, cx + 21, cy + 21), None, outline=(150, 230, 160, 200), width=1.2)
    tri = [(cx - 7, cy - 12), (cx + 13, cy), (cx - 7, cy + 12)]
    c.polygon([(x + 1, y + 1.5) for x, y in tri], shade)
    c.polygon(tri, mark)
    # chevrons running outward from the socket: the way in
    for side in (-1, 1):
        for i in range(3):
            x = cx + side * (40 + i * 16)
            a = 230 - i * 60
            col = (255, 200, 90, a) if hot else (170, 235, 170, a)
            pts = [(x - 5, cy - 9), (x + 4, cy), (x - 5, cy + 9)]
            c.line([(x + 1, y + 1) for x, y in pts], (6, 20, 10, a), 3.2)
            c.line(pts, col, 2.4)
    art = c.image()
    if hot:
        art = common.glow(art, 2.0, WARM, 0.6)
    return common.clean_alpha(Image.alpha_composite(img, art), 4)


def tool_slot(state):
    """The 64 x 64 tool button: a dark glass window in which the game draws
    the tool's icon (32 x 32, 4 pixels above the centre) and under it the
    cost (12-pixel digits from 16 left of the centre, rows 44 to 56). A
    locked tool's button is drawn empty, so the window reads as a free slot."""
    w = h = 64
    img = button(w, h, state, BLUE, body=(0.5, 0.5, 63.5, 63.0), radius=8, bevel=2.0)
    k = 1 if state == 2 else 0
    win = (11.5 - k, 8.5 + k, 52.5 - k, 58.5 + k)
    glass = plate(w, h, win, 5, ((8, 12, 22), (14, 20, 34)), bevel=1.2, sunk=True,
                  light=(150, 180, 220, 0.45), dark=(0, 0, 0, 0.8), outline=(4, 6, 10), outline_w=0.8)
    img = Image.alpha_composite(img, glass)
    # a hairline between the icon and its price
    c = common.Canvas(w, h)
    col = (255, 182, 72, 150) if state else (110, 140, 190, 110)
    c.line([(16 - k, 45.5 + k), (48 - k, 45.5 + k)], col, 0.8)
    return Image.alpha_composite(img, c.image())


def arrow_button(state, kind):
    """64 x 16: the game lays a chevron picture over it; the forward arrow is
    also tinted between white and blue to blink, so the face keeps some red
    and green for the tint to take away."""
    return button(64, 16, state, kind, body=(0.5, 0.5, 63.5, 15.0), radius=4, bevel=1.5)


def square_button(state, kind):
    return button(32, 32, state, kind, body=(0.5, 0.5, 31.5, 31.0), radius=6, bevel=2.0)


def exit_button(state):
    """256 x 32, amber, with 8-pixel captions. The editor squeezes this
    picture into 64 x 64 tool slots, so its side walls are thick enough to
    survive a four-fold narrowing."""
    img = button(256, 32, state, AMBER, body=(0.5, 0.5, 255.5, 31.0), radius=6, bevel=2.0)
    c = common.Canvas(256, 32)
    k = 1 if state == 2 else 0
    for x0 in (3, 245):
        c.rect((x0 - k, 5 + k, x0 + 8 - k, 26 + k), (30, 18, 8, 150), radius=2)
        c.rect((x0 + 1 - k, 6 + k, x0 + 7 - k, 13 + k), (255, 220, 150, 60 if state == 0 else 110), radius=1.5)
    return Image.alpha_composite(img, c.image())


def slider_cell(filled):
    """16 x 16 cells laid edge to edge: each is a segment of a level meter,
    an amber lamp when filled, a dark socket when empty."""
    w = h = 16
    socket = plate(w, h, (1.0, 1.5, 15.0, 14.5), 3, ((8, 12, 20), (18, 26, 40)), bevel=1.2, sunk=True,
                   light=(150, 180, 220, 0.5), dark=(0, 0, 0, 0.8), outline=(3, 5, 9), outline_w=0.8)
    if not filled:
        c = common.Canvas(w, h)
        c.line([(4, 11.5), (12, 11.5)], (70, 96, 136, 120), 0.8)
        return Image.alpha_composite(socket, c.image())
    lamp = plate(w, h, (2.5, 3.0, 13.5, 13.0), 2.5, ((255, 226, 140), (226, 118, 32)), bevel=1.0,
                 light=(255, 250, 230, 0.7), dark=(120, 50, 10, 0.6), outline=None, sheen=0.6)
    img = Image.alpha_composite(socket, common.glow(lamp, 1.2, WARM, 0.35))
    c = common.Canvas(w, h)
    c.rect((4.5, 4.5, 11.5, 6.5), (255, 252, 236, 170), radius=1)
    return Image.alpha_composite(img, c.image())


def generate(reg):
    looks = ("normal", "pointed at", "pressed")
    makers = [
        (0, tool_slot, "tool / planet button"),
        (3, lambda s: button(128, 32, s, BLUE, radius=6), "small button"),
        (6, menu_button, "menu / dialog button"),
        (9, start_button, "start button"),
        (12, lambda s: arrow_button(s, BLUE), "mission arrow button"),
    ]
    later = [
        (17, exit_button, "exit-screen button"),
        (20, lambda s: button(128, 32, s, GREEN, radius=6), "editor button"),
        (23, lambda s: square_button(s, BLUE), "small square button"),
        (26, lambda s: arrow_button(s, AMBER), "editor arrow button"),
        (29, lambda s: square_button(s, AMBER), "small square button, amber"),
    ]
    for first, make, words in makers:
        for s in range(3):
            reg.picture("GUI", first + s, make(s), "%s, %s" % (words, looks[s]))
    reg.picture("GUI", 15, slider_cell(True), "slider cell, filled")
    reg.picture("GUI", 16, slider_cell(False), "slider cell, empty")
    for first, make, words in later:
        for s in range(3):
            reg.picture("GUI", first + s, make(s), "%s, %s" % (words, looks[s]))
