"""The shared look of the game: palettes and the painters of things that
appear in more than one folder (dirt, the bubbleman, the rocket, the pod,
panels and bevels). Folder modules build their frames from these."""
import math

import numpy as np
from PIL import Image, ImageDraw, ImageFilter

import common
from common import Canvas, rgba_image, rng, fbm, ramp

# ---------------------------------------------------------------- palettes

DIRT = ["#2e1c14", "#4a2e1d", "#643f26", "#7d5230", "#96683c"]
DIRT2 = ["#2a1a15", "#45291f", "#5e3a29", "#764c33", "#8c5e3f"]
CAVE = ["#130c0b", "#1d1311", "#281a16", "#33221c", "#3d2a22"]
ROCK = ["#2b2d37", "#3f4250", "#565a69", "#707586", "#8d93a4", "#aab0c0"]
MOSS = ["#3e5a22", "#5d7f2c", "#82a63a", "#a9c957"]
STEEL = ["#2b313d", "#46505f", "#65728a", "#8e9bb2", "#c3ccdb"]
PANEL = ["#10151f", "#182031", "#22304a", "#2f4366", "#3f5a88"]
SKY = ["#05060e", "#0b0d1f", "#17143a", "#2a1f52", "#43306b"]
CYAN = (95, 215, 255)
AMBER = (255, 182, 72)
GREEN = (110, 230, 90)
RED = (235, 70, 60)


def rgb(h):
    h = h.lstrip("#")
    return tuple(int(h[i:i + 2], 16) for i in (0, 2, 4))


# ---------------------------------------------------------------- dirt and rock

def dirt_rgb(w, h, key, colours=DIRT, pebbles=True):
    """Packed earth: tileable noise in a few flat shades with pebbles and
    specks, so that neighbouring dirt cells join without seams."""
    r = rng("dirt", key)
    n = fbm(w, h, 4, 4, r)
    n = (n - n.min()) / max(1e-6, n.max() - n.min())
    col = ramp(0.15 + 0.7 * n, colours, steps=5)
    if pebbles:
        for _ in range(w * h // 90):
            x, y = int(r.integers(0, w)), int(r.integers(0, h))
            s = int(r.integers(1, 3))
            light = np.array(rgb(colours[-1]), float) * (0.9 + 0.2 * r.random())
            for dy in range(s):
                for dx in range(s):
                    col[(y + dy) % h, (x + dx) % w] = light
            col[(y + s) % h, (x + s - 1) % w] = np.array(rgb(colours[0]), float)
        for _ in range(w * h // 60):
            x, y = int(r.integers(0, w)), int(r.integers(0, h))
            col[y, x] = np.array(rgb(colours[1]), float)
    return col


def rock_rgb(w, h, key, cells=5, colours=ROCK):
    """Cobbled stone: cells of a wrapped Voronoi pattern, each lit from the
    upper left, with dark mortar cracks."""
    r = rng("rock", key)
    pts = r.random((cells, 2)) * [w, h]
    ys, xs = np.mgrid[0:h, 0:w].astype(float)
    best = np.full((h, w), 1e9)
    second = np.full((h, w), 1e9)
    owner = np.zeros((h, w), int)
    for i, (px, py) in enumerate(pts):
        for ox in (-w, 0, w):
            for oy in (-h, 0, h):
                d = np.hypot(xs - px - ox, ys - py - oy)
                closer = d < best
                second = np.where(closer, best, np.minimum(second, d))
                owner = np.where(closer, i, owner)
                best = np.where(closer, d, best)
    edge = second - best
    shade = r.random(cells)[owner] * 0.35 + 0.35
    # light from the upper left: brighter towards the stone's upper-left side
    cx = pts[owner, 0]
    cy = pts[owner, 1]
    dx = ((xs - cx + w / 2) % w) - w / 2
    dy = ((ys - cy + h / 2) % h) - h / 2
    shade += np.clip(-(dx + dy) / (w * 0.5), -0.25, 0.25)
    grain = fbm(w, h, 8, 2, r) - 0.5
    shade += grain * 0.15
    shade = np.where(edge < 1.2, 0.05, shade)
    shade = np.where((edge >= 1.2) & (edge < 2.0), shade - 0.15, shade)
    return ramp(shade, colours, steps=6)


# ---------------------------------------------------------------- bevelled panels

def panel(w, h, fill=PANEL, rim=(120, 170, 230), radius=6, inner_alpha=0.94,
          key="panel", border=3):
    """A dark sci-fi panel with a bevelled rim and rounded corners; the
    common frame of dialogs, plates and the display."""
    r = rng("panel", key, w, h)
    n = fbm(w, h, 8, 3, r)
    brush = r.random((h, 1)) * 0.04
    body = ramp(0.42 + 0.10 * (n - 0.5) + brush, fill)
    ys, xs = np.mgrid[0:h, 0:w].astype(float)
    # a faint vertical sheen so big panels are not flat
    body *= (1.05 - 0.18 * ys / h)[:, :, None]
    alpha = np.full((h, w), inner_alpha)
    img = rgba_image(body, alpha)
    c = Canvas(w, h)
    c.img = img.resize((w * 4, h * 4), Image.NEAREST)
    rr = tuple(rim)
    c.rect((0.5, 0.5, w - 0.5, h - 0.5), None, outline=rr + (255,), width=border * 0.5,
           radius=radius)
    c.rect((border * 0.5 + 0.5, border * 0.5 + 0.5, w - border * 0.5 - 0.5,
            h - border * 0.5 - 0.5), None, outline=(10, 14, 22, 200), width=1, radius=max(1, radius - 2))
    out = c.image()
    mask = Canvas(w, h)
    mask.rect((0, 0, w, h), (255, 255, 255, 255), radius=radius)
    m = np.asarray(mask.image())[:, :, 3].astype(float) / 255
    a = np.asarray(out).astype(float)
    a[:, :, 3] *= m
    # top edge highlight, bottom shadow: the bevel
    a[1:3, radius:w - radius, :3] = a[1:3, radius:w - radius, :3] * 0.4 + np.array(rim) * 0.6 + 40
    a[h - 3:h - 1, radius:w - radius, :3] *= 0.55
    a[:, :, :3] = np.clip(a[:, :, :3], 0, 255)
    return common.clean_alpha(Image.fromarray(a.astype(np.uint8), "RGBA"))


def inset(img, box, colour=(6, 10, 18), alpha=235, radius=3, rim=(70, 100, 140)):
    """A recessed window (a display or text field) cut into a panel."""
    w, h = img.size
    c = Canvas(w, h)
    x0, y0, x1, y1 = box
    c.rect((x0, y0, x1, y1), tuple(colour) + (alpha,), radius=radius)
    c.line([(x0 + 1, y0 + 0.5), (x1 - 1, y0 + 0.5)], (0, 0, 0, 200), 1)
    c.line([(x0 + 1, y1 - 0.5), (x1 - 1, y1 - 0.5)], tuple(rim) + (220,), 1)
    return common.over(img, c.image())


def rivets(img, points, size=1.6):
    w, h = img.size
    c = Canvas(w, h)
    for x, y in points:
        c.ellipse((x - size, y - size, x + size, y + size), (150, 160, 178, 255))
        c.ellipse((x - size * 0.4 - 0.3, y - size * 0.4 - 0.3, x, y), (225, 230, 240, 255))
    return common.over(img, c.image())


def heading(img, text, y, size, colour=(230, 240, 255), glow_col=CYAN, x=None):
    """Text baked into a picture (panel titles), with a soft glow."""
    w, h = img.size
    c = Canvas(w, h)
    c.text((w / 2 if x is None else x, y), text, size, tuple(colour) + (255,))
    t = c.image()
    t = common.glow(t, 2.5, glow_col, 1.2)
    return common.over(img, t)


# ---------------------------------------------------------------- the bubbleman

BODY = ["#1d5a24", "#2f8a34", "#4fbf45", "#86e067", "#c4f59a"]


def bubbleman(size=32, phase=0.0, squash=0.0, scale=1.0, walk=True, eyes_open=1.0,
              angle=0.0, alpha=1.0, bubble=True, cx=None, base=None):
    """A small green bubbleman seen from the front: round body, big eyes,
    short legs, a glassy bubble around his head. `phase` (0..1) is the
    walking cycle; `squash` flattens him; he stands on `base` (pixel row)."""
    ss = 4
    n = size * ss
    img = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    d = ImageDraw.Draw(img)
    k = ss * scale * size / 32.0
    cx = (size / 2 if cx is None else cx) * ss
    base = (size - 0.5 if base is None else base) * ss
    step = math.sin(phase * 2 * math.pi)
    bob = abs(math.cos(phase * 2 * math.pi)) * 1.0 * k if walk else 0
    sq = 1.0 - squash
    body_h = 13 * k * sq
    body_w = 12 * k * (1 + squash * 0.6)
    leg = 4 * k * sq
    by1 = base - leg - bob * 0.5
    by0 = by1 - body_h
    # legs
    for side, lift in ((-1, max(0, step)), (1, max(0, -step))):
        lx = cx + side * 3.2 * k
        ly1 = base - lift * 2.0 * k
        d.rounded_rectangle([lx - 1.6 * k, by1 - 2 * k, lx + 1.6 * k, ly1], radius=1.5 * k,
                            fill=rgb(BODY[1]))
        d.ellipse([lx - 2.6 * k, ly1 - 2.0 * k, lx + 2.4 * k, ly1 + 0.2 * k], fill=rgb(BODY[0]))
    # arms swing opposite to the legs
    for side in (-1, 1):
        ax = cx + side * body_w * 0.5
        ay = by0 + body_h * 0.45 + side * step * 1.2 * k
        d.ellipse([ax - 2.0 * k, ay - 2.0 * k, ax + 2.0 * k, ay + 2.8 * k], fill=rgb(BODY[1]))
    # body
    d.ellipse([cx - body_w / 2, by0, cx + body_w / 2, by1 + 1 * k], fill=rgb(BODY[1]))
    d.ellipse([cx - body_w / 2 + 1.2 * k, by0 + 0.8 * k, cx + body_w / 2 - 2.0 * k,
               by1 - 2.0 * k], fill=rgb(BODY[2]))
    d.ellipse([cx - body_w / 2 + 2.4 * k, by0 + 1.6 * k, cx - 0.5 * k, by0 + 5.5 * k],
              fill=rgb(BODY[3]))
    # eyes
    ey = by0 + body_h * 0.38
    eh = 3.4 * k * max(0.15, eyes_open)
    for side in (-1, 1):
        ex = cx + side * 2.6 * k
        d.ellipse([ex - 2.2 * k, ey - eh / 2, ex + 2.2 * k, ey + eh / 2], fill=(250, 252, 255))
        if eyes_open > 0.3:
            d.ellipse([ex - 0.9 * k + side * 0.4 * k, ey - 1.1 * k, ex + 0.9 * k + side * 0.4 * k,
                       ey + 1.1 * k], fill=(20, 30, 40))
    # mouth
    d.arc([cx - 2.2 * k, ey + 1.8 * k, cx + 2.2 * k, ey + 4.4 * k], 20, 160, fill=rgb(BODY[0]),
          width=max(1, int(0.9 * k)))
    if bubble:
        lay = Image.new("RGBA", (n, n), (0, 0, 0, 0))
        dl = ImageDraw.Draw(lay)
        br = 8.6 * k * (1 + squash * 0.3)
        bcx, bcy = cx, by0 + body_h * 0.42
        dl.ellipse([bcx - br, bcy - br * sq, bcx + br, bcy + br * sq], fill=(170, 230, 255, 55),
                   outline=(200, 240, 255, 170), width=max(1, int(0.8 * k)))
        dl.ellipse([bcx - br * 0.62, bcy - br * 0.78 * sq, bcx - br * 0.12, bcy - br * 0.35 * sq],
                   fill=(255, 255, 255, 150))
        img = Image.alpha_composite(img, lay)
    if angle:
        img = img.rotate(angle, resample=Image.BICUBIC, center=(cx, base - 9 * k))
    out = img.resize((size, size), Image.BOX)
    if alpha < 1.0:
        a = np.asarray(out).astype(float)
        a[:, :, 3] *= alpha
        out = Image.fromarray(a.astype(np.uint8), "RGBA")
    return common.clean_alpha(out, 4)


# ---------------------------------------------------------------- the rocket

def rocket(w=32, h=32, flame=0.0, key=0, lights=1.0, legs=True, scale=1.0, cx=None, base=None):
    """A stubby white rocket with a red nose, fins and a porthole, standing
    on its legs at the bottom of the picture; `flame` (0..1) adds exhaust."""
    ss = 4
    img = Image.new("RGBA", (w * ss, h * ss), (0, 0, 0, 0))
    d = ImageDraw.Draw(img)
    k = ss * scale * (h / 32.0)
    cx = (w / 2 if cx is None else cx) * ss
    base = (h - 0.5 if base is None else base) * ss
    bottom = base - (3.5 * k if legs else 0) - (7 * k if flame and not legs else 0)
    top = bottom - 23 * k
    bw = 5.2 * k
    if flame:
        r = rng("flame", key)
        fl = (7 + 5 * flame * (0.7 + 0.6 * r.random())) * k
        for i, col in enumerate(((255, 120, 40, 200), (255, 200, 70, 230), (255, 250, 210, 255))):
            f = 1 - i * 0.3
            jitter = (r.random() - 0.5) * 1.2 * k
            d.polygon([(cx - bw * 0.75 * f, bottom), (cx + bw * 0.75 * f, bottom),
                       (cx + jitter, bottom + fl * f)], fill=col)
    # fins
    for side in (-1, 1):
        d.polygon([(cx + side * bw * 0.8, bottom - 9 * k), (cx + side * (bw + 4.5 * k), bottom + 0.5 * k),
                   (cx + side * bw * 0.6, bottom)], fill=(200, 50, 45))
    if legs:
        for side in (-1, 1):
            d.line([(cx + side * bw * 0.8, bottom - 2 * k), (cx + side * (bw + 3 * k), base - 0.5 * k)],
                   fill=(120, 128, 140), width=max(1, int(1.2 * k)))
            d.line([(cx + side * (bw + 2 * k), base - 0.5 * k), (cx + side * (bw + 4.2 * k), base - 0.5 * k)],
                   fill=(150, 158, 170), width=max(1, int(1.2 * k)))
    # body: lit from the left
    d.rounded_rectangle([cx - bw, top + 6 * k, cx + bw, bottom], radius=2 * k, fill=(200, 206, 218))
    d.rounded_rectangle([cx - bw + 0.8 * k, top + 6 * k, cx - 0.2 * k, bottom - 0.8 * k], radius=1.5 * k,
                        fill=(240, 244, 250))
    d.rectangle([cx + bw * 0.45, top + 7 * k, cx + bw - 0.6 * k, bottom - 1 * k], fill=(160, 166, 180))
    # nose cone
    d.polygon([(cx - bw, top + 6.5 * k), (cx + bw, top + 6.5 * k), (cx, top - 2 * k)], fill=(215, 60, 50))
    d.polygon([(cx - bw + 0.8 * k, top + 6.5 * k), (cx - 0.2 * k, top + 6.5 * k), (cx - 0.2 * k, top - 1 * k)],
              fill=(240, 100, 80))
    # stripe and porthole
    d.rectangle([cx - bw, bottom - 5 * k, cx + bw, bottom - 3.8 * k], fill=(215, 60, 50))
    pr = 2.6 * k
    py = top + 11 * k
    d.ellipse([cx - pr - 0.6 * k, py - pr - 0.6 * k, cx + pr + 0.6 * k, py + pr + 0.6 * k], fill=(90, 98, 112))
    glass = (int(70 + 120 * lights), int(150 + 80 * lights), 255)
    d.ellipse([cx - pr, py - pr, cx + pr, py + pr], fill=glass)
    d.ellipse([cx - pr * 0.7, py - pr * 0.7, cx - pr * 0.05, py - pr * 0.05], fill=(235, 250, 255))
    return common.clean_alpha(img.resize((w, h), Image.BOX), 4)


# ---------------------------------------------------------------- the pod

def pod(size=32, pulse=0.5, crack=0.0, scale=1.0):
    """An egg-shaped pod of green glass in a metal cradle, with a curled-up
    bubbleman inside and a core light that pulses."""
    ss = 4
    n = size * ss
    img = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    d = ImageDraw.Draw(img)
    k = ss * scale * size / 32.0
    cx = n / 2
    cy = n / 2 + 1.5 * k
    rw, rh = 9.5 * k, 12.0 * k
    # glow around the shell
    lay = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    dl = ImageDraw.Draw(lay)
    g = int(60 + 120 * pulse)
    dl.ellipse([cx - rw - 3 * k, cy - rh - 3 * k, cx + rw + 3 * k, cy + rh + 3 * k], fill=(120, 255, 150, g))
    lay = lay.filter(ImageFilter.GaussianBlur(2.5 * k))
    img = Image.alpha_composite(img, lay)
    d = ImageDraw.Draw(img)
    # shell
    d.ellipse([cx - rw, cy - rh, cx + rw, cy + rh], fill=(40, 90, 60))
    inner = (int(70 + 60 * pulse), int(160 + 70 * pulse), int(100 + 40 * pulse))
    d.ellipse([cx - rw + 1.4 * k, cy - rh + 1.4 * k, cx + rw - 1.4 * k, cy + rh - 1.4 * k], fill=inner)
    # the curled creature inside
    d.ellipse([cx - 4.5 * k, cy - 2 * k, cx + 4.5 * k, cy + 6.5 * k], fill=rgb(BODY[1]))
    d.ellipse([cx - 3.0 * k, cy - 0.5 * k, cx + 1.0 * k, cy + 3.0 * k], fill=rgb(BODY[3]))
    d.ellipse([cx - 1.8 * k, cy - 6.5 * k, cx + 2.2 * k, cy - 2.5 * k], fill=rgb(BODY[2]))
    # highlight
    d.ellipse([cx - rw * 0.65, cy - rh * 0.75, cx - rw * 0.15, cy - rh * 0.2], fill=(230, 255, 235))
    if crack > 0:
        pts = [(cx - rw * 0.9, cy - rh * 0.1), (cx - rw * 0.4, cy - rh * 0.3), (cx - rw * 0.05, cy),
               (cx + rw * 0.4, cy - rh * 0.35), (cx + rw * 0.9, cy - rh * 0.1)]
        d.line(pts, fill=(20, 40, 25), width=max(1, int(1.0 * k * crack)))
    # cradle
    d.chord([cx - rw - 1.5 * k, cy + rh * 0.2, cx + rw + 1.5 * k, cy + rh + 2.5 * k], 0, 180,
            fill=(110, 118, 132))
    d.chord([cx - rw - 0.5 * k, cy + rh * 0.2 + 1 * k, cx + rw + 0.5 * k, cy + rh + 1.2 * k], 0, 180,
            fill=(150, 160, 176))
    for side in (-1, 0, 1):
        x = cx + side * rw * 0.6
        d.ellipse([x - 1 * k, cy + rh * 0.62, x + 1 * k, cy + rh * 0.62 + 2 * k], fill=(int(255 * pulse), 220, 90))
    return common.clean_alpha(img.resize((size, size), Image.BOX), 4)


# ---------------------------------------------------------------- planets

PLANETS = {
    # name: (surface colours low..high, sea level, cloud amount, rim glow)
    1: dict(name="FIELD", cols=["#1f3f6e", "#2f6aa0", "#4f8a3a", "#7da64a", "#a07c4a", "#e8e4d0"],
            rim=(120, 200, 255), clouds=0.5, craters=0),
    2: dict(name="ICE", cols=["#3a5a8a", "#6f9ac8", "#a8cce6", "#d6ecf8", "#f4fbff", "#ffffff"],
            rim=(190, 230, 255), clouds=0.25, craters=0),
    3: dict(name="ASTEROID", cols=["#2e2b2c", "#45403e", "#5e5753", "#7a716a", "#958b82", "#b3aaa0"],
            rim=(200, 180, 160), clouds=0.0, craters=14),
    4: dict(name="SOFT", cols=["#4a1f4f", "#7a2f6e", "#b04d86", "#d9789c", "#f2a6b4", "#ffd9d2"],
            rim=(255, 160, 210), clouds=0.35, craters=0),
}


def planet_map(num, w=256, h=128):
    """An equirectangular surface map for planet `num`, wrapping in longitude."""
    p = PLANETS[num]
    r = rng("planetmap", num)
    n = fbm(w, h, 4, 6, r)
    n = (n - n.min()) / (n.max() - n.min())
    n = np.clip((n - 0.5) * 1.7 + 0.5, 0, 1)
    lat = np.abs(np.linspace(-1, 1, h))[:, None]
    if num == 2:
        n = 0.55 * n + 0.45 * np.clip(lat * 1.3, 0, 1)
    if num == 4:
        bands = 0.5 + 0.5 * np.sin(np.linspace(0, 9 * np.pi, h))[:, None]
        n = 0.6 * n + 0.4 * bands
    col = ramp(n, p["cols"], steps=10)
    if num == 1:
        ice = np.clip((lat - 0.8) * 6, 0, 1)[..., None]
        col = col * (1 - ice) + 240 * ice
    if p["craters"]:
        ys, xs = np.mgrid[0:h, 0:w].astype(float)
        for _ in range(p["craters"] * 4):
            x0, y0 = r.random() * w, h * (0.15 + 0.7 * r.random())
            rad = 3 + r.random() * 9
            dx = np.minimum(np.abs(xs - x0), w - np.abs(xs - x0)) * math.cos((y0 / h - 0.5) * math.pi)
            dist = np.hypot(dx, ys - y0) / rad
            rim_ = np.exp(-((dist - 1.0) ** 2) * 12) * 35
            pit = np.where(dist < 1.0, -25 * (1 - dist ** 2), 0)
            col += (rim_ + pit)[..., None]
    if p["clouds"]:
        c = fbm(w, h, 6, 5, rng("clouds", num))
        c = np.clip((c - (1 - p["clouds"])) * 3.0, 0, 0.85)[..., None]
        col = col * (1 - c) + 250 * c
    return np.clip(col, 0, 255)


def globe(num, size, turn, surface=None, radius=None):
    """Planet `num` as a lit globe turned by `turn` (0..1 of a revolution)."""
    p = PLANETS[num]
    surf = planet_map(num) if surface is None else surface
    mh, mw = surf.shape[:2]
    radius = size * 0.43 if radius is None else radius
    x, y, z, lam, inside, ss = common.shade_sphere(size, radius)
    tilt = 0.35
    # rotate about a slightly tilted axis: tilt the view first
    yy = y * math.cos(tilt) - z * math.sin(tilt)
    zz = y * math.sin(tilt) + z * math.cos(tilt)
    lon = np.arctan2(x, zz) / (2 * math.pi) + turn
    lat = np.arcsin(np.clip(yy, -1, 1)) / math.pi + 0.5
    u = ((lon % 1.0) * mw).astype(int) % mw
    v = np.clip((lat * mh).astype(int), 0, mh - 1)
    col = surf[v, u]
    shade = 0.22 + 0.95 * lam
    col = col * shade[..., None]
    # atmosphere rim
    rr = np.sqrt(x * x + y * y)
    rim = np.clip((rr - 0.75) / 0.25, 0, 1) ** 2 * 0.6
    col = col * (1 - rim[..., None]) + np.array(p["rim"]) * rim[..., None] * (0.4 + lam[..., None])
    alpha = inside.astype(float)
    # a thin outer haze
    halo = np.clip(1 - (rr - 1.0) / 0.08, 0, 1) * (rr >= 1.0) * 0.5
    col = np.where(inside[..., None], col, np.array(p["rim"], float))
    alpha = np.maximum(alpha, halo)
    col = common.downsample(col * alpha[..., None], ss)
    a = common.downsample(alpha, ss)
    col = col / np.maximum(a[..., None], 1e-6)
    return common.clean_alpha(rgba_image(col, a), 6)
