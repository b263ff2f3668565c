"""GUI: the 32 widget frames. Buttons come in triples (normal, pointed at,
pressed), each at the size the layout stretches it to, so they are drawn
one texel to one pixel:

  0-2   64 x 64   tool buttons and planet buttons
  3-5   128 x 32  small buttons (Hatch Pods, Menu, pause panel, Continue)
  6-8   256 x 32  menu and dialog buttons
  9-11  256 x 64  the game-select start button
  12-14 64 x 16   mission arrows
  15,16 16 x 16   slider cell, filled and empty
  17-19 256 x 32  exit-screen buttons (amber)
  20-22 128 x 32  editor buttons (green)
  23-25 32 x 32   small square buttons
  26-28 64 x 16   editor arrows (amber)
  29-31 32 x 32   small square buttons (amber)
"""
import numpy as np
from PIL import Image

import art
import common
from common import Canvas, rgba_image

BLUE = dict(fill=("#1b2740", "#2c4168"), rim=(96, 170, 235), hot=(150, 225, 255))
GREEN = dict(fill=("#17321f", "#28583a"), rim=(100, 210, 120), hot=(170, 255, 170))
AMBER = dict(fill=("#3a2614", "#62401d"), rim=(230, 160, 70), hot=(255, 215, 130))


def button(w, h, state, accent, radius=None):
    """state 0 normal, 1 pointed at (brighter, glowing rim), 2 pressed
    (darker, bevel reversed)."""
    radius = min(6, h // 4) if radius is None else radius
    top, bottom = (art.rgb(c) for c in accent["fill"])
    top, bottom = np.array(top, float), np.array(bottom, float)
    ys = np.linspace(0, 1, h)[:, None, None]
    if state == 2:
        col = bottom * 0.7 * (1 - ys) + top * 0.8 * ys
    else:
        col = bottom * (1 - ys) + top * ys
        col = top * (1 - ys) + bottom * ys if state == 0 else col
    col = np.repeat(col, w, axis=1)
    if state == 1:
        col = col * 1.35 + 10
    # a fine horizontal brushed texture
    r = common.rng("brush", w, h)
    col += (r.random((h, 1, 1)) - 0.5) * 8
    body = rgba_image(np.clip(col, 0, 255))
    c = Canvas(w, h)
    c.img = body.resize((w * 4, h * 4), Image.NEAREST)
    rim = accent["hot"] if state else accent["rim"]
    light = (255, 255, 255, 110) if state != 2 else (0, 0, 0, 140)
    dark = (0, 0, 0, 150) if state != 2 else (255, 255, 255, 60)
    c.line([(radius, 1.5), (w - radius, 1.5)], light, 1)
    c.line([(radius, h - 1.5), (w - radius, h - 1.5)], dark, 1)
    c.rect((0.5, 0.5, w - 0.5, h - 0.5), None, outline=tuple(rim) + (255,), width=1, radius=radius)
    img = c.image()
    mask = Canvas(w, h)
    mask.rect((0, 0, w, h), (255, 255, 255, 255), radius=radius)
    m = np.asarray(mask.image())[:, :, 3]
    a = np.asarray(img).copy()
    a[:, :, 3] = np.minimum(a[:, :, 3], m)
    img = Image.fromarray(a, "RGBA")
    if state == 1:
        # a soft inner glow along the rim
        g = Canvas(w, h)
        g.rect((1.5, 1.5, w - 1.5, h - 1.5), None, outline=tuple(accent["hot"]) + (90,), width=2,
               radius=max(1, radius - 1))
        img = common.over(img, g.image())
    return common.clean_alpha(img, 4)


def tool_slot(state):
    """The 64 x 64 tool button: a recessed square on which the game draws
    the tool's icon and, below it, the cost."""
    img = button(64, 64, state, BLUE, radius=8)
    c = Canvas(64, 64)
    off = 1 if state == 2 else 0
    c.rect((14 + off, 8 + off, 50 + off, 44 + off), (5, 9, 16, 170), radius=4)
    c.rect((14 + off, 8 + off, 50 + off, 44 + off), None,
           outline=tuple(BLUE["hot"] if state else BLUE["rim"]) + (150,), width=1, radius=4)
    return common.over(img, c.image())


def slider_cell(filled):
    c = Canvas(16, 16)
    if filled:
        c.rect((1, 1, 15, 15), (60, 190, 240, 255), radius=3)
        c.rect((2.5, 2.5, 13.5, 8), (170, 235, 255, 255), radius=2)
        c.rect((1, 1, 15, 15), None, outline=(200, 245, 255, 255), width=1, radius=3)
        return common.glow(c.image(), 1.0, (60, 190, 240), 0.6)
    c.rect((1, 1, 15, 15), (14, 20, 32, 235), radius=3)
    c.rect((1, 1, 15, 15), None, outline=(70, 100, 140, 255), width=1, radius=3)
    return c.image()


def generate(reg):
    looks = ("normal", "pointed at", "pressed")
    groups = [
        (0, 64, 64, BLUE, "tool / planet button"),
        (3, 128, 32, BLUE, "small button"),
        (6, 256, 32, BLUE, "menu / dialog button"),
        (9, 256, 64, GREEN, "start button"),
        (12, 64, 16, BLUE, "mission arrow button"),
    ]
    later = [
        (17, 256, 32, AMBER, "exit-screen button"),
        (20, 128, 32, GREEN, "editor button"),
        (23, 32, 32, BLUE, "small square button"),
        (26, 64, 16, AMBER, "editor arrow button"),
        (29, 32, 32, AMBER, "small square button, amber"),
    ]
    for first, w, h, accent, words in groups:
        for s in range(3):
            img = tool_slot(s) if first == 0 else button(w, h, s, accent)
            reg.picture("GUI", first + s, img, "%s, %s" % (words, looks[s]))
    reg.picture("GUI", 15, slider_cell(True), "slider cell, filled")
    reg.picture("GUI", 16, slider_cell(False), "slider cell, empty")
    for first, w, h, accent, words in later:
        for s in range(3):
            reg.picture("GUI", first + s, button(w, h, s, accent), "%s, %s" % (words, looks[s]))
