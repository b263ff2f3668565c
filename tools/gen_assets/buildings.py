"""BUILDING/*: the structures the player builds and the two tools, all
32 x 32. The level view draws each over its whole cell; the toolbar draws
the same pictures as icons over its 64 x 64 buttons (frame 0 still, the
cycle while the button is pointed at); the cursor cell shows the chosen one
at 60 % opacity, white where it may go and multiplied red where it may not,
so every piece keeps enough red in it to read in that tint.

HARVESTER is the hatcher, TRANSPORT the energy lift. Each kind has its own
colour so that a glance at a built level tells them apart: girders amber
steel, the hatcher grey steel with green life, lifts cyan energy, the
blocker yellow, black and red."""
import math

import common
import ink
from ink import Ink, lit_ellipse

T = 32
AMBER = ["#4a2a0e", "#8a4f16", "#c27a22", "#e8a53a", "#f8d27a"]
AMBER_LINE = (36, 20, 8)
STEEL = ["#2b313d", "#46505f", "#65728a", "#8e9bb2", "#c3ccdb", "#e6ecf5"]
STEEL_LINE = (14, 18, 28)
CYAN = (90, 210, 255)
GREEN = (120, 255, 150)
LAMP_AMBER = (255, 186, 70)


# ---------------------------------------------------------------- shared pieces

def plate(g, box, colours, radius=0.0):
    """A flat steel plate seen edge-on: lit top, dark underside."""
    x0, y0, x1, y1 = box
    h = y1 - y0
    g.rect(box, colours[1], radius)
    g.rect((x0, y0, x1, y0 + h * 0.72), colours[3], radius)
    g.rect((x0, y0 + h * 0.12, x1, y0 + h * 0.55), colours[2] if len(colours) > 4 else colours[3])
    g.rect((x0, y0, x1, y0 + min(0.9, h * 0.2)), colours[-1])
    g.rect((x0, y1 - min(1.0, h * 0.22), x1, y1), colours[0])
    return g


def post(g, box, colours):
    """An upright steel post, lit on its left face."""
    x0, y0, x1, y1 = box
    w = x1 - x0
    g.rect(box, colours[1])
    g.rect((x0, y0, x0 + w * 0.62, y1), colours[3])
    g.rect((x0 + w * 0.12, y0, x0 + w * 0.34, y1), colours[-1])
    g.rect((x1 - w * 0.2, y0, x1, y1), colours[0])
    return g


def rivet(g, x, y, r=0.8, colours=STEEL):
    g.ellipse((x - r, y - r + 0.25, x + r, y + r + 0.25), colours[0])
    g.ellipse((x - r, y - r, x + r * 0.8, y + r * 0.8), colours[4])
    g.ellipse((x - r * 0.55, y - r * 0.55, x, y), colours[5] if len(colours) > 5 else colours[-1])
    return g


# ---------------------------------------------------------------- girders

FLANGE = 5.0


def flange(g, y0, y1):
    plate(g, (0, y0, T, y1), AMBER)
    return g


def girder():
    """A Warren truss: a deck along the top (where bubblemen walk and other
    pieces stand), a foot along the bottom, a V of diagonals between them
    and thin end posts, so that a row of girders reads as one bridge."""
    g = Ink(T, T)
    for x0 in (0.0, T - 2.2):
        post(g, (x0, 3, x0 + 2.2, 29), AMBER)
    ink.shaded_bar(g, (2.0, 4.5), (16, 27.5), 3.0, AMBER)
    ink.shaded_bar(g, (16, 27.5), (30.0, 4.5), 3.0, AMBER)
    post(g, (14.9, 4, 17.1, 28), AMBER)
    flange(g, 0, FLANGE)
    flange(g, T - 4.5, T)
    for x in (3.5, 16, 28.5):
        rivet(g, x, 2.3, 0.85, AMBER + ["#fff0c0"])
        rivet(g, x, T - 2.2, 0.85, AMBER + ["#fff0c0"])
    g.outline(AMBER_LINE, 1.0)
    return g.image()


def hanging(anchor):
    """A hanging girder: the deck along the top of the cell, carried by a
    bracket bolted to the neighbour on the `anchor` side."""
    g = Ink(T, T)
    right = anchor == "right"

    def X(x):
        return T - x if right else x
    # the bracket plate against the neighbour
    x0, x1 = sorted((X(0), X(5)))
    post(g, (x0, 2, x1, 22), AMBER)
    g.rect((x0, 20.5, x1, 22), AMBER[0])
    ink.shaded_bar(g, (X(4), 20.0), (X(29.5), 4.5), 3.0, AMBER)
    # short posts tie the strut to the deck
    for x in (11.0, 19.5):
        y = 20.0 - (x - 4.0) / 25.5 * 15.5
        xa, xb = sorted((X(x - 1.0), X(x + 1.0)))
        post(g, (xa, 4, xb, y), AMBER)
    flange(g, 0, FLANGE)
    rivet(g, X(2.5), 9.5, 0.9, AMBER + ["#fff0c0"])
    rivet(g, X(2.5), 16.5, 0.9, AMBER + ["#fff0c0"])
    for x in (6, 16, 27):
        rivet(g, X(x), 2.3, 0.85, AMBER + ["#fff0c0"])
    g.outline(AMBER_LINE, 1.0)
    return g.image()


# ---------------------------------------------------------------- the hatcher

POD_GLASS = ["#1f4a30", "#2f7a48", "#4fae62", "#86d88a", "#c8f5c0"]


def pod_in_cradle(g, pulse):
    """The pod the hatcher was built over, seen through its glass: the same
    green egg with the bubbleman asleep inside as in the ground, smaller."""
    g.ellipse((8.6, 10.6, 23.4, 27.0), GREEN + (int(30 + 60 * pulse),))
    egg = Ink(T, T)
    box = (10.2, 11.8, 21.8, 25.4)
    egg.ellipse(box, (44, 120, 66))
    fluid = tuple(int(a + (b - a) * pulse) for a, b in zip((70, 186, 104), (120, 228, 140)))
    egg.ellipse((box[0] + 1.0, box[1] + 1.0, box[2] - 1.8, box[3] - 1.8), fluid)
    egg.ellipse((box[0] + 1.6, 18.0, box[2] - 1.2, box[3] - 1.0), (40, 130, 72))
    # asleep, curled up
    body = ["#1d5a24", "#2f8a34", "#4fbf45", "#86e067"]
    lit_ellipse(egg, (12.2, 15.4, 19.8, 23.4), body, ambient=0.4)
    for x in (14.4, 17.0):
        egg.arc((x - 0.9, 17.2, x + 0.9, 18.8), 20, 160, (18, 52, 24), 0.6)
    egg.ellipse((11.4, 13.0, 14.2, 16.8), (236, 255, 236, 235))
    egg.outline((10, 24, 14), 0.7)
    g.paste(egg)
    # the pod's steel cradle
    g.polygon([(9.0, 23.6), (23.0, 23.6), (21.0, 26.6), (11.0, 26.6)], STEEL[2])
    g.rect((9.0, 23.6, 23.0, 24.5), STEEL[4])
    for x in (13.0, 16.0, 19.0):
        g.rect((x - 0.5, 25.0, x + 0.5, 26.0), (int(200 + 55 * pulse), 200, 90))
    return g


def hatcher(frame, on):
    """The hatcher: a steel frame over the pod with a hood, an emitter that
    points down at the pod and a glass chamber between two pillars.
    Waiting (HARVESTER), the pod glows softly under the emitter's amber
    light and the amber lamps take turns. Hatched (HARVESTERON), the pod has opened and a
    green beam fills the chamber with rising sparks."""
    t = frame / 20.0
    pulse = 0.5 + 0.5 * math.sin(t * 2 * math.pi)
    g = Ink(T, T)
    # chamber glass and what is inside
    inner = Ink(T, T)
    if on:
        inner.rect((6.5, 9, 25.5, 27), GREEN + (int(70 + 40 * pulse),))
        # the opened shell: its lower cup remains on the cradle
        shell = Ink(T, T)
        lit_ellipse(shell, (10.2, 13.0, 21.8, 27.0), POD_GLASS, ambient=0.35)
        shell.ellipse((11.6, 18.2, 20.4, 22.4), (22, 70, 36, 255))
        cut = Ink(T, T)
        cut.polygon([(9, 27.5), (9, 19.5), (11.5, 18.0), (13.5, 20.5), (16, 17.8), (18.5, 20.5),
                     (20.5, 18.0), (23, 19.5), (23, 27.5)], (255, 255, 255, 255))
        shell.clip(cut)
        shell.outline((14, 46, 24), 0.7)
        inner.paste(shell)
        inner.polygon([(9.5, 24.0), (22.5, 24.0), (20.5, 26.5), (11.5, 26.5)], STEEL[2])
        # beam from the emitter
        w = 2.4 + 0.8 * pulse
        inner.rect((16 - w, 10, 16 + w, 21), (190, 255, 200, int(110 + 50 * pulse)))
        inner.rect((16 - w * 0.4, 10, 16 + w * 0.4, 21), (240, 255, 240, 230))
        # rings of light climb the beam
        for j in range(2):
            phase = (t + j / 2.0) % 1.0
            y = 23 - phase * 12
            a = int(230 * math.sin(phase * math.pi))
            inner.arc((10.5, y - 1.4, 21.5, y + 1.4), 0, 360, (210, 255, 215, a), 0.9)
        r = common.rng("hatcher-sparks")
        for j in range(6):
            x = 9.0 + (j % 3) * 6.2 + r.random() * 1.6 + (0 if j < 3 else 2.5)
            phase = (t + j / 6.0) % 1.0
            y = 25 - phase * 15
            a = 255 * math.sin(phase * math.pi)
            s = 0.6 + r.random() * 0.4
            inner.ellipse((x - s, y - s, x + s, y + s), (220, 255, 210, int(a)))
    else:
        inner.rect((6.5, 9, 25.5, 27), (90, 190, 230, 60))
        pod_in_cradle(inner, pulse)
        # the emitter's soft amber light falls on the pod
        inner.polygon([(14, 10.5), (18, 10.5), (23.5, 26), (8.5, 26)], LAMP_AMBER + (int(20 + 30 * pulse),))
    # glass sheen along the left
    inner.rect((7.6, 10, 8.6, 25), (255, 255, 255, 80))
    g.paste(inner)
    # frame: pillars, hood, emitter and base
    post(g, (2, 7, 6.5, 27), STEEL)
    post(g, (25.5, 7, 30, 27), STEEL)
    plate(g, (1, 1, 31, 8.5), STEEL, radius=1.5)
    g.rect((5, 3.6, 27, 4.4), STEEL[1])
    g.polygon([(11.5, 8), (20.5, 8), (19, 10.2), (13, 10.2)], STEEL[1])
    g.polygon([(11.5, 8), (16, 8), (15, 10.2), (13, 10.2)], STEEL[3])
    lens = GREEN if on else LAMP_AMBER
    lens_a = 255 if on else int(140 + 115 * pulse)
    g.ellipse((14.2, 8.8, 17.8, 10.8), lens + (lens_a,))
    g.ellipse((14.8, 9.0, 16.0, 9.9), (255, 255, 240, 230))
    plate(g, (0.5, 26, 31.5, 32), STEEL, radius=1.0)
    g.rect((11, 28.6, 21, 29.6), STEEL[0])
    # lamps on the base: amber taking turns while waiting, green once hatched
    for k, x in enumerate((4.5, 27.5)):
        lit = on or (frame // 10) == k
        col = GREEN if on else (LAMP_AMBER if lit else (110, 70, 30))
        g.ellipse((x - 1.5, 27.4, x + 1.5, 30.4), col + (255,))
        if lit:
            g.ellipse((x - 0.8, 27.8, x, 28.8), (255, 255, 230))
    for x in (4, 28):
        rivet(g, x, 4.0, 0.8)
    g.outline(STEEL_LINE, 1.0)
    return g.image()


# ---------------------------------------------------------------- the energy lift

def rail(g, x0, y0, y1, inward):
    """One rail of a lift with its emitter clamps (one every 16 pixels, so
    stacked lifts keep the rhythm)."""
    post(g, (x0, y0, x0 + 4.5, y1), STEEL)
    for y in (3.0, 19.0):
        if y0 <= y <= y1 - 3:
            cx = x0 + 4.5 if inward > 0 else x0
            g.rect((cx - 1.2, y, cx + 1.2, y + 3.2), STEEL[1])
            g.rect((cx - 1.2, y, cx + 1.2, y + 1.0), STEEL[4])


def emitters(g, x, y0, y1, pulse):
    for y in (4.6, 20.6):
        if y0 <= y <= y1 - 2:
            g.ellipse((x - 1.1, y - 1.1, x + 1.1, y + 1.1), CYAN + (int(180 + 75 * pulse),))
            g.ellipse((x - 0.5, y - 0.5, x + 0.3, y + 0.3), (235, 252, 255, 255))


def field(g, box, alpha=70):
    """The beam between the rails: stronger in the middle, faint at its edges."""
    x0, y0, x1, y1 = box
    w = x1 - x0
    for k in range(5):
        f = k / 5.0
        g.rect((x0 + w * f * 0.5, y0, x1 - w * f * 0.5, y1), CYAN + (int(alpha * (0.35 + 0.13 * k)),))


def chevron(g, x, y, size, direction, a):
    """A bright arrowhead pointing `direction` ('up', 'left' or 'right')."""
    s = size
    if direction == "up":
        pts = [(x - s, y + s * 0.55), (x, y - s * 0.45), (x + s, y + s * 0.55)]
    else:
        d = -1 if direction == "left" else 1
        pts = [(x - d * s * 0.55, y - s), (x + d * s * 0.45, y), (x - d * s * 0.55, y + s)]
    g.line(pts, (40, 150, 220, int(a * 0.6)), 2.6)
    g.line(pts, (200, 245, 255, int(a)), 1.3)


def lift(kind, t):
    """The energy lift and its exits. The lift is two rails with a beam of
    light between them in which arrowheads climb; the pattern repeats every
    16 pixels, so a shaft of stacked lifts flows as one. An exit has a hood
    that ends the shaft, a rail on the closed side only, and arrowheads that
    turn out through the open side."""
    g = Ink(T, T)
    pulse = 0.5 + 0.5 * math.cos(t * 2 * math.pi)
    if kind == "up":
        field(g, (6.0, 0, 26.0, T))
        beam = Ink(T, T)
        for k in range(3):
            y = 16 * k + 8 - (32 * t) % 16
            chevron(beam, 16, y, 5.0, "up", 235)
        # motes rise twice as fast as the arrowheads
        r = common.rng("lift-motes")
        for j in range(4):
            x = 8.5 + r.random() * 15
            y = (r.random() * 32 - 64 * t) % 32
            for yy in (y, y - 32, y + 32):
                beam.ellipse((x - 0.6, yy - 1.1, x + 0.6, yy + 1.1), (220, 250, 255, 200))
        beam.clip(_box_mask((6.0, 0, 26.0, T)))
        g.paste(beam)
        rails = Ink(T, T)
        rail(rails, 2, 0, T, 1)
        rail(rails, 25.5, 0, T, -1)
        # the rails run off the top and bottom rows, so their outline only
        # shows at the sides and stacked lifts join without a seam
        rails.outline(STEEL_LINE, 1.0)
        g.paste(rails)
        emitters(g, 7.6, 0, T, pulse)
        emitters(g, 24.4, 0, T, pulse)
        return g.image()
    d = -1 if kind == "left" else 1

    def X(x):
        return x if d < 0 else T - x
    # the beam rises from below and turns out through the open side
    fa, fb = sorted((X(0), X(26.5)))
    field(g, (min(X(6), X(26)), 7, max(X(6), X(26)), T))
    band = Ink(T, T)
    for k in range(5):
        band.rect((fa, 10 + k * 1.6, fb, 30 - k * 1.6), CYAN + (int(16 + 9 * k),))
    beam = Ink(T, T)
    for k in range(3):
        off = (k * 10 + 30 * t) % 30
        x = X(24 - off)
        a = 255 * min(1.0, (30 - off) / 7.0) * min(1.0, off / 5.0 + 0.2)
        chevron(beam, x, 20, 4.6, kind, a)
    band.paste(beam)
    band.clip(_box_mask((fa, 7, fb, T)))
    g.paste(band)
    frame = Ink(T, T)
    # the closed side's rail lines up with the rails of the lift below
    rail(frame, 25.5 if d < 0 else 2.0, 0, T, d)
    xa, xb = sorted((X(2.0), X(6.5)))
    post(frame, (xa, 0, xb, 9), STEEL)
    plate(frame, (1, 0, 31, 7), STEEL, radius=1.0)
    # an amber arrow on the hood shows the way out
    ax = 16
    frame.polygon([(ax + d * 4.5, 3.5), (ax - d * 0.5, 0.9), (ax - d * 0.5, 6.1)], LAMP_AMBER + (255,))
    frame.rect((min(ax - d * 0.5, ax - d * 5), 2.5, max(ax - d * 0.5, ax - d * 5), 4.5), LAMP_AMBER + (255,))
    frame.outline(STEEL_LINE, 1.0)
    g.paste(frame)
    emitters(g, X(24.4), 7, T, pulse)
    return g.image()


def _box_mask(box):
    m = Ink(T, T)
    m.rect(box, (255, 255, 255, 255))
    return m


# ---------------------------------------------------------------- blocker and tools

def blocker():
    """A barrier that turns bubblemen round: a no-entry disc over a striped
    board on two posts."""
    g = Ink(T, T)
    post(g, (7, 12, 10, 29), STEEL)
    post(g, (22, 12, 25, 29), STEEL)
    post(g, (14.8, 10, 17.2, 16), STEEL)
    plate(g, (3.5, 28, 28.5, 32), STEEL, radius=1.0)
    board = Ink(T, T)
    board.rect((2, 15.5, 30, 23.5), (250, 200, 40), radius=1.2)
    for i in range(-2, 8):
        x = i * 6.0
        board.polygon([(x, 23.5), (x + 8, 15.5), (x + 11, 15.5), (x + 3, 23.5)], (34, 30, 30, 255))
    board.clip(_rounded_mask((2, 15.5, 30, 23.5), 1.2))
    board.rect((2, 15.5, 30, 16.4), (255, 240, 170, 140))
    board.rect((2, 22.6, 30, 23.5), (0, 0, 0, 90))
    g.paste(board)
    lit_ellipse(g, (8.8, 0.8, 23.2, 15.2), ["#7a1410", "#b02418", "#d83a26", "#ef5a3c"], ambient=0.45)
    g.ellipse((10.4, 2.4, 21.6, 13.6), (214, 48, 34))
    g.rect((11.2, 6.6, 20.8, 9.4), (250, 248, 240), radius=0.6)
    g.rect((11.2, 8.6, 20.8, 9.4), (200, 196, 190), radius=0.4)
    g.arc((9.4, 1.4, 22.6, 14.6), 190, 260, (255, 150, 120, 220), 0.8)
    g.outline((30, 14, 12), 1.0)
    return g.image()


WOOD = ["#4e2c14", "#7a4a22", "#a86c34", "#d09a58", "#ecc488"]


def shovel():
    """The shovel, handle up to the right and blade down to the left, a bit
    of earth still on it."""
    g = Ink(T, T)
    d = (-0.645, 0.764)
    p = (0.764, 0.645)
    top = (26.0, 4.0)
    s0 = (13.2, 19.2)
    # grip crossbar
    ink.shaded_bar(g, (top[0] - p[0] * 3.6, top[1] - p[1] * 3.6), (top[0] + p[0] * 3.6, top[1] + p[1] * 3.6),
                   2.4, WOOD)
    ink.shaded_bar(g, top, (s0[0] - d[0] * 1.5, s0[1] - d[1] * 1.5), 2.6, WOOD)
    # blade
    def P(a, b):
        return (s0[0] + d[0] * a + p[0] * b, s0[1] + d[1] * a + p[1] * b)
    blade = [P(0, -4.6), P(0, 4.6), P(7.5, 4.4), P(10.5, 2.6), P(12.2, 0), P(10.5, -2.6), P(7.5, -4.4)]
    g.polygon(blade, STEEL[2])
    g.polygon([P(0, -4.6), P(0, 0), P(12.2, 0), P(10.5, -2.6), P(7.5, -4.4)], STEEL[3])
    g.line([P(0.6, -4.0), P(7.3, -3.9), P(10.0, -2.3)], STEEL[5], 0.8)
    g.line([P(1, 0), P(9.5, 0)], STEEL[1], 0.7)
    # the socket where handle meets blade
    ink.shaded_bar(g, P(-2.2, 0), P(0.8, 0), 3.4, STEEL[1:])
    # earth on the blade
    for a, b, s in ((9.5, 1.2, 1.5), (7.6, 2.6, 1.1), (10.8, -0.6, 1.0)):
        x, y = P(a, b)
        lit_ellipse(g, (x - s, y - s, x + s, y + s), ["#3a2416", "#643f26", "#96683c"], ambient=0.3)
    g.outline((18, 14, 14), 1.0)
    return g.image()


RED = ["#5a100c", "#a02818", "#d04430", "#f07a5a", "#ffb4a0"]


def dynamite(frame):
    """Three sticks taped together with a lit fuse. Frame 0 is the still
    toolbar icon; frames 1 to 5 loop the fuse's sparks."""
    g = Ink(T, T)
    for x0, y0 in ((6.5, 12.5), (19.5, 12.5), (13, 10.5)):
        g.rect((x0, y0, x0 + 6.5, y0 + 18.5), RED[1], radius=1.6)
        g.rect((x0 + 0.6, y0, x0 + 4.2, y0 + 18.5), RED[2], radius=1.4)
        g.rect((x0 + 1.2, y0 + 0.8, x0 + 2.2, y0 + 17.5), RED[3], radius=0.5)
        g.rect((x0 + 5.2, y0 + 0.5, x0 + 6.5, y0 + 18), RED[0], radius=0.6)
        g.ellipse((x0 + 0.4, y0, x0 + 6.1, y0 + 2.6), RED[3])
        g.ellipse((x0 + 1.6, y0 + 0.6, x0 + 4.9, y0 + 2.0), (70, 40, 30))
    plate(g, (5.8, 20.5, 26.7, 24.5), ["#1a1614", "#2e2824", "#3e3630", "#5a524a", "#807468"])
    # fuse
    fuse = [(16.2, 11.2), (16.6, 7.5), (19.0, 5.0), (22.8, 4.6)]
    g.line(fuse, (235, 222, 180), 1.1)
    g.outline((24, 10, 10), 1.0)
    img = g.image()
    x, y = 23.6, 4.4
    s = Ink(T, T)
    r = common.rng("fuse", frame)
    n = 6 if frame == 0 else 5 + frame % 3
    for j in range(n):
        a = (j + (0.0 if frame == 0 else r.random() * 0.8)) * 2 * math.pi / n
        ln = 2.6 if frame == 0 else 1.8 + r.random() * 2.8
        s.line([(x, y), (x + math.cos(a) * ln, y + math.sin(a) * ln)], (255, 226, 110, 255), 0.7)
    s.ellipse((x - 1.4, y - 1.4, x + 1.4, y + 1.4), (255, 170, 60, 255))
    s.ellipse((x - 0.8, y - 0.8, x + 0.8, y + 0.8), (255, 252, 230, 255))
    spark = common.glow(s.image(), 1.3, (255, 150, 40), 0.9)
    return common.over(img, spark)


def _rounded_mask(box, radius):
    m = Ink(T, T)
    m.rect(box, (255, 255, 255, 255), radius=radius)
    return m


def generate(reg):
    B = "BUILDING/"
    reg.picture(B + "GIRDER", 0, girder(), "girder (standing structure and icon)", alpha="clear")
    reg.picture(B + "GIRDERLEFT", 0, hanging("right"),
                "left hanging girder: deck held from the neighbour on the right", alpha="clear")
    reg.picture(B + "GIRDERRIGHT", 0, hanging("left"),
                "right hanging girder: deck held from the neighbour on the left", alpha="clear")
    for i in range(20):
        reg.picture(B + "HARVESTER", i, hatcher(i, False),
                    "hatcher, waiting (frame %d of 20)" % i, alpha="clear")
    for i in range(20):
        reg.picture(B + "HARVESTERON", i, hatcher(i, True),
                    "hatcher, pods hatched (frame %d of 20)" % i, alpha="clear")
    for folder, kind, words in (("TRANSPORTUP", "up", "energy lift"),
                                ("TRANSPORTLEFT", "left", "energy lift left exit"),
                                ("TRANSPORTRIGHT", "right", "energy lift right exit")):
        for i in range(21):
            # frame 0, the toolbar icon, is the same picture as the first step
            t = 0.0 if i == 0 else (i - 1) / 20.0
            role = "%s, %s" % (words, "still icon" if i == 0 else "cycle frame %d" % i)
            reg.picture(B + folder, i, lift(kind, t), role, alpha="clear")
    reg.picture(B + "BLOCKER", 0, blocker(), "blocker barrier", alpha="clear")
    reg.picture(B + "SHOVEL", 0, shovel(), "shovel tool icon and preview", alpha="clear")
    for i in range(6):
        role = "dynamite, still icon" if i == 0 else "dynamite fuse burning frame %d" % i
        reg.picture(B + "DYNAMITE", i, dynamite(i), role, alpha="clear")
