"""SPRITES2/GREENMAN/*: the bubbleman's four animations, 32 x 32, drawn
centred on his position (cell centre), feet on the bottom row. He faces
the player, so one walk serves both directions."""
import math


import art
import common


def walk(i):
    phase = 0.0 if i == 0 else (i - 1) / 20.0
    return art.bubbleman(32, phase=phase)


def enter(i):
    """Frame 0/1 he stands, by 16 he has shrunk into a sparkle: boarding
    plays it forwards, emerging from a hatcher backwards."""
    t = i / 16.0
    scale = max(0.05, 1.0 - t ** 1.4)
    img = art.bubbleman(32, scale=scale, walk=False, alpha=max(0.0, 1.0 - t ** 3))
    c = common.Canvas(32, 32)
    r = common.rng("enter", i)
    for _ in range(int(2 + 6 * t)):
        x = 16 + (r.random() - 0.5) * 20 * (1 - t * 0.5)
        y = 31 - r.random() * 26
        s = 0.6 + r.random() * 0.8
        c.line([(x - s * 1.5, y), (x + s * 1.5, y)], (200, 255, 220, 220), 0.7)
        c.line([(x, y - s * 1.5), (x, y + s * 1.5)], (200, 255, 220, 220), 0.7)
    return common.over(img, c.image()) if t > 0 else img


def sucked(i):
    """Spun round and drawn into a vortex."""
    t = i / 20.0
    return art.bubbleman(32, scale=max(0.08, 1 - t * 0.9), walk=False, angle=t * 720,
                         eyes_open=0.2 if t > 0.1 else 1.0, base=31 - t * 13)


def fall(i):
    """Water and spikes: the bubble pops and he collapses into a puddle."""
    t = i / 20.0
    if t < 0.35:
        k = t / 0.35
        img = art.bubbleman(32, walk=False, squash=0.4 * k, eyes_open=1 - k)
        c = common.Canvas(32, 32)
        rad = 9 + 6 * k
        c.ellipse((16 - rad, 15 - rad, 16 + rad, 15 + rad), None,
                  outline=(220, 245, 255, int(220 * (1 - k))), width=1.0)
        return common.over(img, c.image())
    k = (t - 0.35) / 0.65
    c = common.Canvas(32, 32)
    w = 9 + 6 * k
    hgt = 6 * (1 - k) + 2
    a = int(255 * (1 - 0.8 * k ** 2))    # a last faint puddle stays on the final frame
    c.ellipse((16 - w, 31 - hgt, 16 + w, 31.5), tuple(art.rgb(art.BODY[1])) + (a,))
    c.ellipse((16 - w * 0.6, 31 - hgt, 16 + w * 0.2, 31 - hgt * 0.4), tuple(art.rgb(art.BODY[3])) + (a,))
    r = common.rng("drops", 1)
    for j in range(5):
        ang = math.pi * (0.15 + 0.7 * r.random())
        dist = 6 + 10 * k
        x = 16 - math.cos(ang) * dist
        y = 28 - math.sin(ang) * dist * 1.2 + 14 * k * k
        if y < 31:
            c.ellipse((x - 1.2, y - 1.2, x + 1.2, y + 1.2), tuple(art.rgb(art.BODY[2])) + (a,))
    return c.image()


def generate(reg):
    G = "SPRITES2/GREENMAN/"
    for i in range(21):
        reg.picture(G + "WALK", i, walk(i),
                    "bubbleman walking, %s" % ("at birth" if i == 0 else "step %d of 20" % i))
    for i in range(17):
        reg.picture(G + "ENTER", i, enter(i), "bubbleman boarding/emerging, frame %d of 16" % i)
    for i in range(21):
        reg.picture(G + "SUCKED", i, sucked(i), "bubbleman sucked into a vortex, frame %d" % i)
    for i in range(21):
        reg.picture(G + "FALL", i, fall(i), "bubbleman lost in water or on spikes, frame %d" % i)
