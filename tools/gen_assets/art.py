"""The shared look of the game: palettes and the painters of things that
appear in more than one folder (dirt, rock, panels and bevels). The hero,
the pod, the rocket and the globes have one painter each (greenman.py,
pod.py, rockets.py, planets.py), which the screens call at any size, so
they look the same everywhere. Folder modules build their frames from these."""

import numpy as np
from PIL import Image

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

# his greens; greenman.py paints him, the pod and the screens share them
BODY = ["#1d5a24", "#2f8a34", "#4fbf45", "#86e067", "#c4f59a"]
