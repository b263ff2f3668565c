"""BUILDING/*: the structures the player builds and the two tools, all
32 x 32, drawn in the cell (and as toolbar icons).

HARVESTER is the hatcher, TRANSPORT the energy lift."""
import math

from PIL import Image

import art
import common
from common import Canvas

T = 32
ORANGE = (232, 150, 40, 255)
ORANGE_D = (160, 92, 24, 255)
STEEL = (150, 160, 178, 255)
STEEL_D = (82, 90, 106, 255)
STEEL_L = (205, 214, 228, 255)


def truss(c, x0, y0, x1, y1, bars=True):
    """A steel box with cross bracing."""
    c.rect((x0, y0, x1, y1), None, outline=ORANGE_D, width=3.2)
    c.rect((x0 + 0.6, y0 + 0.6, x1 - 0.6, y1 - 0.6), None, outline=ORANGE, width=1.6)
    if bars:
        c.line([(x0 + 2, y0 + 2), (x1 - 2, y1 - 2)], ORANGE_D, 2.0)
        c.line([(x0 + 2, y1 - 2), (x1 - 2, y0 + 2)], ORANGE, 1.6)


def girder():
    """A standing girder: a braced steel block that fills the cell, flat on
    top so that bubblemen and other structures can stand on it."""
    c = Canvas(T, T)
    truss(c, 0.5, 2.5, 31.5, 31.5)
    c.rect((0, 0, 32, 4), STEEL)
    c.rect((0, 0, 32, 1.2), STEEL_L)
    c.rect((0, 3.2, 32, 4), STEEL_D)
    img = c.image()
    return art.rivets(img, [(3, 2), (16, 2), (29, 2)], 0.9)


def hanging(side):
    """A hanging girder: a deck along the top of the cell, carried by a
    diagonal strut from a plate bolted to the neighbour on `side`."""
    c = Canvas(T, T)
    c.rect((0, 0, 32, 4), STEEL)
    c.rect((0, 0, 32, 1.2), STEEL_L)
    c.rect((0, 3.2, 32, 4), STEEL_D)
    plate_x = 28 if side == "right" else 0
    c.rect((plate_x, 0, plate_x + 4, 20), STEEL_D)
    c.rect((plate_x + 0.8, 0.8, plate_x + 3.2, 19.2), STEEL)
    far = 3 if side == "right" else 29
    near = 29 if side == "right" else 3
    c.line([(far, 4), (near, 18)], ORANGE_D, 3.2)
    c.line([(far, 4), (near, 18)], ORANGE, 1.6)
    c.line([((far + near) / 2, 4), ((far + near) / 2, 11)], ORANGE_D, 2.2)
    img = c.image()
    return art.rivets(img, [(plate_x + 2, 6), (plate_x + 2, 15)], 0.9)


def hatcher(t, on):
    """The hatcher that sits over a pod: a clamp with a glass dome; idle it
    blinks slowly, switched on it glows and its claws pump."""
    c = Canvas(T, T)
    pump = math.sin(t * 2 * math.pi) if on else 0.0
    glow = 0.5 + 0.5 * math.sin(t * 2 * math.pi)
    # base ring
    c.rect((2, 25, 30, 31), STEEL_D, radius=2)
    c.rect((3, 25.5, 29, 28), STEEL, radius=1.5)
    # claws
    for side in (-1, 1):
        x = 16 + side * (11 - pump * 1.5)
        c.line([(16 + side * 13, 26), (x, 12), (16 + side * 6, 6)], STEEL_D, 3.0)
        c.line([(16 + side * 13, 26), (x, 12), (16 + side * 6, 6)], STEEL_L, 1.2)
    img_pod = None if on else art.pod(32, 0.3 + 0.4 * glow, scale=0.62)
    # dome (while waiting, the pod shows through it)
    if img_pod is not None:
        c.paste(img_pod.resize((T * c.ss, T * c.ss), Image.NEAREST).transform(
            (T * c.ss, T * c.ss), Image.AFFINE, (1, 0, 0, 0, 1, -2 * c.ss)))
    dome = (120, 255, 160) if on else (120, 200, 255)
    a = int(90 + 110 * glow) if on else 60
    c.ellipse((7, 7, 25, 29), dome + (a,), outline=(220, 250, 255, 220), width=1.0)
    c.ellipse((10, 9.5, 15, 14), (255, 255, 255, 170))
    # lamps
    lamp_on = on or (t < 0.1)
    lamp = (120, 255, 120, 255) if on else ((255, 190, 70, 255) if lamp_on else (110, 80, 40, 255))
    for x in (6, 26):
        c.ellipse((x - 1.6, 26.6, x + 1.6, 29.8), lamp)
    img = c.image()
    if on:
        img = common.glow(img, 1.6, (120, 255, 160), 0.6 + 0.4 * glow)
    return img


def lift(kind, t):
    """The energy lift: two rails with a beam of light between them; chevrons
    stream upward, or out to the side for the exits."""
    c = Canvas(T, T)
    c.rect((2, 0, 6, 32), STEEL_D)
    c.rect((2.8, 0, 5.2, 32), STEEL)
    c.rect((26, 0, 30, 32), STEEL_D)
    c.rect((26.8, 0, 29.2, 32), STEEL)
    c.rect((6, 0, 26, 32), (80, 200, 255, 60))
    if kind == "up":
        for k in range(3):
            y = 32 - ((t + k / 3.0) % 1.0) * 40 + 4
            a = int(255 * min(1.0, max(0.0, (y + 4) / 12.0)))
            c.line([(9, y + 5), (16, y), (23, y + 5)], (150, 235, 255, a), 2.2)
    else:
        d = -1 if kind == "left" else 1
        # a closed cap above: the lift ends here
        c.rect((2, 0, 30, 3.5), STEEL_D)
        c.rect((2, 0.5, 30, 2), STEEL)
        for k in range(3):
            off = ((t + k / 3.0) % 1.0) * 30 - 7
            x = 16 + d * off
            a = int(255 * max(0.0, 1.0 - abs(off - 8) / 18.0))
            c.line([(x - d * 5, 10), (x, 17), (x - d * 5, 24)], (150, 235, 255, a), 2.2)
        # the open side of the exit
        xo = 0 if kind == "left" else 26
        c.rect((xo, 8, xo + 6, 26), (80, 200, 255, 90))
    c.rect((2, 30, 30, 32), STEEL_D)
    img = c.image()
    return common.glow(img, 1.2, (80, 200, 255), 0.5)


def blocker():
    """A barrier that turns bubblemen round: striped board on two posts."""
    c = Canvas(T, T)
    for x in (7, 25):
        c.rect((x - 1.6, 8, x + 1.6, 31), STEEL_D)
        c.rect((x - 0.8, 8, x + 0.4, 31), STEEL)
    c.rect((2, 9, 30, 19), (250, 205, 50, 255), radius=1.5)
    for i in range(-1, 6):
        x = 2 + i * 6
        c.polygon([(x, 19), (x + 4, 9), (x + 7, 9), (x + 3, 19)], (30, 30, 34, 255))
    c.rect((1.5, 8.5, 30.5, 19.5), None, outline=(60, 45, 20, 255), width=1)
    c.rect((3, 27, 29, 31), STEEL_D, radius=1)
    for x in (7, 25):
        c.ellipse((x - 2, 3, x + 2, 7), (255, 80, 60, 255))
    return c.image()


def shovel():
    c = Canvas(T, T)
    c.line([(22, 4), (10, 22)], (150, 100, 55, 255), 2.8)
    c.line([(21.5, 4.5), (10, 21.5)], (200, 145, 85, 255), 1.0)
    c.rect((19, 2, 27, 5), (110, 70, 40, 255), radius=1.5)
    c.polygon([(6, 19), (13, 24), (9, 31), (2, 29), (1, 24)], STEEL_D)
    c.polygon([(6, 20), (11.5, 24), (8.3, 29.5), (3, 28), (2.5, 24)], STEEL)
    c.line([(4, 23), (8, 26)], STEEL_L, 1.0)
    return c.image()


def dynamite(frame):
    """Frame 0 is the still icon; frames 1 to 5 loop a burning fuse."""
    c = Canvas(T, T)
    for x in (9, 15, 21):
        c.rect((x - 3, 12, x + 3, 30), (200, 45, 40, 255), radius=2)
        c.rect((x - 2.2, 12.5, x - 0.6, 29.5), (240, 100, 85, 255), radius=1)
    c.rect((5, 17, 27, 20), (60, 50, 40, 255))
    c.rect((5, 24, 27, 27), (60, 50, 40, 255))
    burn = 0 if frame == 0 else frame / 5.0
    fuse_end = (23 - 5 * burn, 3 + 4 * burn)
    c.line([(15, 12), (16, 7), (21, 5), fuse_end], (215, 205, 170, 255), 1.0)
    img = c.image()
    if frame:
        r = common.rng("fuse", frame)
        s = Canvas(T, T)
        x, y = fuse_end
        for _ in range(7):
            a = r.random() * 2 * math.pi
            ln = 2 + r.random() * 4
            s.line([(x, y), (x + math.cos(a) * ln, y + math.sin(a) * ln)], (255, 230, 120, 255), 0.8)
        s.ellipse((x - 2, y - 2, x + 2, y + 2), (255, 250, 220, 255))
        img = common.over(img, common.glow(s.image(), 1.5, (255, 160, 40), 0.8))
    return img


def generate(reg):
    B = "BUILDING/"
    reg.picture(B + "GIRDER", 0, girder(), "girder (standing structure and icon)")
    reg.picture(B + "GIRDERLEFT", 0, hanging("right"),
                "left hanging girder: deck held from the neighbour on the right")
    reg.picture(B + "GIRDERRIGHT", 0, hanging("left"),
                "right hanging girder: deck held from the neighbour on the left")
    for i in range(20):
        reg.picture(B + "HARVESTER", i, hatcher(i / 20.0, False),
                    "hatcher, waiting (frame %d of 20)" % i)
    for i in range(20):
        reg.picture(B + "HARVESTERON", i, hatcher(i / 20.0, True),
                    "hatcher, pods hatched (frame %d of 20)" % i)
    for folder, kind, words in (("TRANSPORTUP", "up", "energy lift"),
                                ("TRANSPORTLEFT", "left", "energy lift left exit"),
                                ("TRANSPORTRIGHT", "right", "energy lift right exit")):
        for i in range(21):
            t = 0.0 if i == 0 else (i - 1) / 20.0
            role = "%s, %s" % (words, "still icon" if i == 0 else "cycle frame %d" % i)
            reg.picture(B + folder, i, lift(kind, t), role)
    reg.picture(B + "BLOCKER", 0, blocker(), "blocker barrier")
    reg.picture(B + "SHOVEL", 0, shovel(), "shovel tool icon and preview")
    for i in range(6):
        role = "dynamite, still icon" if i == 0 else "dynamite fuse burning frame %d" % i
        reg.picture(B + "DYNAMITE", i, dynamite(i), role)
