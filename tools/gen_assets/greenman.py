"""SPRITES2/GREENMAN/*: the bubbleman's four animations, 32 x 32.

The game draws each frame centred on his position, which is a cell centre
when he stands still, so his feet rest on the picture's bottom row, which is
the floor of his cell. He is never mirrored: he faces the player and waddles,
so one walk serves both directions.

`figure(pose)` paints him in any pose; the animations below only choose the
poses, so every frame shares one drawing of the hero."""
import math

import numpy as np
from PIL import Image

import common
import ink
from ink import Ink, lit_ellipse

BODY = ["#1d5a24", "#2f8a34", "#4fbf45", "#86e067", "#c4f59a"]
OUTLINE = (12, 38, 18)
BOOT = ["#2b313d", "#46505f", "#65728a", "#8e9bb2"]
COLLAR = ["#46505f", "#65728a", "#8e9bb2", "#c3ccdb", "#e6ecf5"]
GLASS = (190, 235, 255)
EYE_DARK = (16, 30, 24)

CX = 16.0
FLOOR = 31.7           # the underside of his boots: the cell's floor
HIP = 26.4             # where the legs meet the body
HEAD = (16.0, 13.0)    # centre of his head and of the bubble round it
BUBBLE_R = 8.4

DEFAULT_POSE = dict(bob=0.0, sway=0.0, lean=0.0, lift_l=0.0, lift_r=0.0, arm_l=0.0, arm_r=0.0,
                    squash=0.0, eyes="open", mouth="smile", look=(0.0, 0.0), helmet=1.0,
                    cracks=0.0)


def pose(**kw):
    p = dict(DEFAULT_POSE)
    p.update(kw)
    return p


# ---------------------------------------------------------------- the painter

def _face(up, p):
    hx, hy = HEAD
    lx, ly = p["look"]
    eyes = p["eyes"]
    for side in (-1, 1):
        ex = hx + side * 2.45
        ey = hy - 0.2
        if eyes == "shut":
            up.arc((ex - 1.5, ey - 1.0, ex + 1.5, ey + 1.2), 200, 340, EYE_DARK, 0.8)
            continue
        if eyes == "x":
            up.line([(ex - 1.2, ey - 1.2), (ex + 1.2, ey + 1.2)], EYE_DARK, 0.8)
            up.line([(ex - 1.2, ey + 1.2), (ex + 1.2, ey - 1.2)], EYE_DARK, 0.8)
            continue
        wide = eyes == "wide"
        w, h = (3.5, 4.6) if wide else (3.2, 4.2)
        up.ellipse((ex - w / 2, ey - h / 2, ex + w / 2, ey + h / 2), (250, 253, 255))
        pw, ph = (1.4, 1.7) if wide else (1.9, 2.5)
        if eyes == "dizzy":
            # pupils rolled apart
            a = side * 1.6
            px, py = ex + 0.5 * math.cos(a), ey + 0.5 * math.sin(a)
        else:
            px, py = ex + lx + side * 0.15, ey + 0.35 + ly
        up.ellipse((px - pw / 2, py - ph / 2, px + pw / 2, py + ph / 2), EYE_DARK)
        up.ellipse((px - pw / 2 + 0.05, py - ph / 2 + 0.05, px - pw / 2 + 0.75, py - ph / 2 + 0.75),
                   (255, 255, 255))
    mouth = p["mouth"]
    my = hy + 3.0
    if mouth == "smile":
        up.arc((hx - 1.7, my - 1.4, hx + 1.7, my + 0.8), 15, 165, OUTLINE, 0.9)
    elif mouth == "o":
        up.ellipse((hx - 0.9, my - 0.7, hx + 0.9, my + 1.3), OUTLINE)
    elif mouth == "frown":
        up.arc((hx - 1.5, my - 0.1, hx + 1.5, my + 1.9), 200, 340, OUTLINE, 0.75)
    else:
        up.line([(hx - 1.2, my + 0.3), (hx + 1.2, my + 0.3)], OUTLINE, 0.7)


def _upper_body(p, ss):
    """Arms, body, collar and head: the part that leans and bobs."""
    up = Ink(32, 32, ss)
    hx, hy = HEAD
    for side, swing in ((-1, p["arm_l"]), (1, p["arm_r"])):
        ax = CX + side * (6.5 + max(0.0, swing) * 0.9)
        ay = 23.2 - swing * 1.6
        lit_ellipse(up, (ax - 1.7, ay - 2.5, ax + 1.7, ay + 2.5), BODY[:4])
    lit_ellipse(up, (CX - 5.9, 18.4, CX + 5.9, 27.6), BODY[:4], ambient=0.25)
    # a little lamp on his chest
    up.ellipse((CX + 1.4, 22.2, CX + 3.2, 24.0), (120, 230, 255))
    up.ellipse((CX + 1.6, 22.3, CX + 2.4, 23.1), (235, 252, 255))
    lit_ellipse(up, (CX - 5.4, 17.6, CX + 5.4, 20.8), COLLAR)
    # antenna inside the helmet
    up.line([(hx + 0.3, hy - 5.0), (hx + 0.8, hy - 6.6)], BODY[1], 0.7)
    lit_ellipse(up, (hx - 0.1, hy - 7.9, hx + 1.7, hy - 6.1), ["#c8a020", "#f0d040", "#fff0a0"])
    lit_ellipse(up, (hx - 5.7, hy - 5.7, hx + 5.7, hy + 5.4), BODY, ambient=0.22)
    _face(up, p)
    up.outline(OUTLINE, 0.9)
    return up


def _helmet(p, ss):
    """The glass bubble: faint fill, a bright rim towards the light and a
    window glint, so that it reads as glass and not as a disc."""
    g = Ink(32, 32, ss)
    hx, hy = HEAD
    r = BUBBLE_R
    box = (hx - r, hy - r, hx + r, hy + r)
    g.arc((box[0] - 0.5, box[1] - 0.5, box[2] + 0.5, box[3] + 0.5), 0, 360, (8, 24, 34, 150), 0.7)
    g.ellipse(box, GLASS + (52,))
    g.arc(box, 0, 360, (200, 240, 255, 150), 0.8)
    g.arc((box[0] + 0.2, box[1] + 0.2, box[2] - 0.2, box[3] - 0.2), 185, 265, (245, 252, 255, 235), 1.2)
    g.arc((box[0] + 0.3, box[1] + 0.3, box[2] - 0.3, box[3] - 0.3), 20, 75, (150, 215, 255, 150), 0.9)
    g.arc((box[0] + 1.5, box[1] + 1.5, box[2] - 1.5, box[3] - 1.5), 200, 245, (255, 255, 255, 235), 1.2)
    g.ellipse((hx - 2.6, hy - 7.3, hx - 1.4, hy - 6.1), (255, 255, 255, 220))
    if p["cracks"] > 0:
        k = p["cracks"]
        a = int(255 * min(1.0, k * 1.5))
        c = (240, 250, 255, a)
        pts = [(hx + 2.0, hy - 7.8), (hx + 2.8, hy - 4.6), (hx + 1.6, hy - 2.4), (hx + 3.4, hy + 0.2)]
        g.line(pts[:2 + int(k * 2)], c, 0.6)
        pts2 = [(hx - 7.6, hy + 2.0), (hx - 5.0, hy + 2.8), (hx - 4.0, hy + 5.2)]
        if k > 0.4:
            g.line(pts2, c, 0.6)
        if k > 0.7:
            g.line([(hx + 2.8, hy - 4.6), (hx + 5.2, hy - 4.0)], c, 0.5)
    return g


def _legs(p, ss):
    lo = Ink(32, 32, ss)
    for side, lift in ((-1, p["lift_l"]), (1, p["lift_r"])):
        fx = CX + side * 3.6
        fy = FLOOR - lift
        lo.rect((fx - 1.3, HIP - 1.5 - p["bob"], fx + 1.3, fy - 1.8), BODY[1], radius=1.0)
        lo.rect((fx - 1.3, HIP - 1.5 - p["bob"], fx - 0.2, fy - 1.8), BODY[2], radius=0.6)
        lit_ellipse(lo, (fx - 2.8 + side * 0.3, fy - 3.1, fx + 2.8 + side * 0.3, fy), BOOT)
    lo.outline(OUTLINE, 0.9)
    return lo


def figure(p, ss=8):
    """The bubbleman in pose `p`, as an Ink of 32 x 32 pixels supersampled
    `ss` times (a larger `ss` paints him for bigger pictures)."""
    out = _legs(p, ss)
    up = _upper_body(p, ss)
    if p["helmet"]:
        up.paste(_helmet(p, ss).fade(p["helmet"]))
    sq = p["squash"]
    up.transform(scale=(1.0 + 0.35 * sq, 1.0 - sq), angle=p["lean"], pivot=(CX, HIP),
                 to=(CX + p["sway"], HIP - p["bob"]))
    return out.paste(up)


def still(size=32, **kw):
    """The hero standing (or in the pose `kw`) as a size x size picture, for
    the screens that show him larger than in a level."""
    img = figure(pose(**kw), ss=max(8, size // 4)).img
    # premultiplied, so the see-through surroundings lend no dark fringe
    return common.clean_alpha(img.convert("RGBa").resize((size, size), Image.BOX).convert("RGBA"), 6)


# ---------------------------------------------------------------- effects

def sparkle(g, x, y, r, colour, a=255):
    """A four-pointed twinkle."""
    c = colour[:3] + (int(a),)
    g.polygon([(x, y - r), (x + r * 0.22, y - r * 0.22), (x + r, y), (x + r * 0.22, y + r * 0.22),
               (x, y + r), (x - r * 0.22, y + r * 0.22), (x - r, y), (x - r * 0.22, y - r * 0.22)], c)
    g.ellipse((x - r * 0.28, y - r * 0.28, x + r * 0.28, y + r * 0.28), (255, 255, 255, int(a)))


def swirl(img, centre, twist, radius):
    """Turns each ring of the picture round `centre` by an angle that grows
    towards the middle: the pull of a vortex."""
    a = np.asarray(img).astype(np.float32)
    h, w = a.shape[:2]
    ss = w / 32.0
    cx, cy = centre[0] * ss, centre[1] * ss
    ys, xs = np.mgrid[0:h, 0:w].astype(np.float32)
    dx, dy = xs + 0.5 - cx, ys + 0.5 - cy
    r = np.hypot(dx, dy)
    phi = twist * np.clip(1.0 - r / (radius * ss), 0, 1) ** 2
    c, s = np.cos(phi), np.sin(phi)
    sx = np.clip((cx + c * dx - s * dy).astype(int), 0, w - 1)
    sy = np.clip((cy + s * dx + c * dy).astype(int), 0, h - 1)
    return Image.fromarray(a[sy, sx].astype(np.uint8), "RGBA")


# ---------------------------------------------------------------- the animations

def walk_pose(phase):
    """One step with each foot per cycle: the lifted foot lets the body rise
    a pixel and rock over the other, the arms swing against the feet."""
    s = math.sin(phase * 2 * math.pi)
    return pose(bob=abs(s) * 1.0, sway=s * 0.7, lean=-s * 6.0,
                lift_l=max(0.0, s) * 2.4, lift_r=max(0.0, -s) * 2.4, arm_l=-s, arm_r=s)


def walk(i):
    """Frame 0 he stands as born; 1 to 20 are two steps of a waddle, the
    body rocking over the foot that carries him."""
    if i == 0:
        return figure(pose()).image()
    return figure(walk_pose((i - 1) / 20.0)).image()


BEAM = (170, 255, 200)


def enter(i):
    """Boarding, frames 1 to 16: he crouches, springs up and is drawn into
    a column of light that closes to a point. Played backwards it is the
    hatcher setting him down: the point opens into a beam and he steps out
    of it. Frame 0 is the same standing pose as frame 1."""
    t = 0.0 if i <= 1 else (i - 1) / 15.0
    out = Ink(32, 32)
    if t < 0.2:
        k = t / 0.2
        fig = figure(pose(squash=0.16 * math.sin(k * math.pi), eyes="shut" if k > 0.3 else "open",
                          mouth="smile", arm_l=-0.6 * k, arm_r=-0.6 * k))
    elif t < 0.75:
        k = (t - 0.2) / 0.55
        fig = figure(pose(squash=-0.06 * (1 - k), eyes="shut", arm_l=1.0, arm_r=1.0))
        # squeezed sideways into the beam and washed out to its colour
        fig.transform(scale=(max(0.04, 1.0 - k ** 1.2), 1.0 + 0.08 * k), pivot=(CX, 20),
                      to=(CX, 20 - 0.5 * k))
        fig.tint(BEAM, min(1.0, k * 1.3))
    else:
        fig = None
    # the beam: bright at its middle, widest while he dissolves
    if 0.15 < t:
        k = (t - 0.15) / 0.85
        width = 5.5 * math.sin(min(1.0, k * 1.1) * math.pi) + 0.6
        top = max(2.0, 31.5 - 30 * k / 0.25) + 10 * max(0.0, k - 0.6) / 0.4
        bottom = 31.5 - 10 * max(0.0, k - 0.6) / 0.4
        a = 200 * (1 - max(0.0, k - 0.8) / 0.2)
        out.rect((CX - width, top, CX + width, bottom), BEAM + (int(a * 0.35),), radius=width)
        out.rect((CX - width * 0.45, top + 1, CX + width * 0.45, bottom - 1), (235, 255, 240, int(a * 0.7)),
                 radius=width * 0.45)
    if fig is not None:
        out.paste(fig)
    # sparkles drift up round him, gathering to the middle as he goes
    r = common.rng("enter")
    for j in range(9):
        born = j / 12.0
        if t < born:
            continue
        u = (t - born) / (1.0 - born)
        x0 = CX + (1 if j % 2 else -1) * (2.5 + r.random() * 6.5)
        x = CX + (x0 - CX) * (1.0 - 0.8 * u)
        y = max(5.0, 29 - r.random() * 8 - u * 18)
        s = 1.6 + r.random() * 1.0 - u * 0.6
        sparkle(out, x, y, s, BEAM, 240 * (1.0 - u ** 3))
    if t > 0.7:
        k = (t - 0.7) / 0.3
        out.ellipse((CX - 3.2, 14.8, CX + 3.2, 21.2), BEAM + (int(90 + 60 * (1 - k)),))
        out.ellipse((CX - 1.3, 16.7, CX + 1.3, 19.3), (255, 255, 255, 255))
        sparkle(out, CX, 18, 4.0 * (1 - k) + 2.6, (255, 255, 255), 255)
    return out.image()


def sucked(i):
    """Frame 0 he is startled on the vortex; then he is spun, twisted and
    shrunk into its middle (the picture's centre, where the vortex turns),
    leaving a last glint on frame 20."""
    t = i / 20.0
    eyes = "wide" if t < 0.15 else "dizzy"
    fig = figure(pose(eyes=eyes, mouth="o", arm_l=1.0, arm_r=1.0,
                      lift_l=1.2 * min(1.0, t * 6), lift_r=0.8 * min(1.0, t * 6), helmet=1.0))
    spin = 40 * t + 900 * t ** 2
    scale = max(0.03, 1.0 - t ** 1.1)
    fig.transform(scale=scale, angle=spin, pivot=(CX, 20), to=(CX, 20 - 4 * min(1.0, t * 2.5)))
    fig.img = swirl(fig.img, (CX, 16), math.radians(300) * t, 14)
    fig.tint((190, 130, 255), 0.3 * t)
    out = Ink(32, 32)
    # streaks of his colour being pulled round into the middle
    if t > 0.05:
        for j in range(4):
            a0 = j * 90 + spin * 0.8
            rr = 11 * (1 - t) + 3
            pts = []
            for k in range(6):
                ang = math.radians(a0 + k * 22)
                rad = rr * (1 - k * 0.11)
                pts.append((16 + math.cos(ang) * rad, 16 + math.sin(ang) * rad))
            out.line(pts, ink.rgba(BODY[3], int(170 * min(1.0, t * 4) * (1.1 - t))), 0.9)
    out.paste(fig)
    if t > 0.75:
        sparkle(out, 16, 16, 1.5 + 2.5 * (1 - t) / 0.25, (240, 220, 255), 255)
    return out.image()


def fall(i):
    """Lost in water or on spikes: startled, his helmet cracks and bursts,
    he goes limp and sinks out through the floor of the cell while the air
    of his bubble rises."""
    t = i / 20.0
    out = Ink(32, 32)
    if t < 0.2:
        k = t / 0.2
        fig = figure(pose(eyes="wide", mouth="o", arm_l=k, arm_r=k, cracks=k, squash=0.2 * (1 - k)))
    elif t < 0.35:
        fig = figure(pose(eyes="wide", mouth="o", arm_l=1.0, arm_r=1.0, helmet=0.0))
    else:
        k = (t - 0.35) / 0.65
        fig = figure(pose(eyes="x", mouth="frown", arm_l=1.0 - 1.6 * k, arm_r=1.0 - 1.6 * k,
                          helmet=0.0, squash=0.25 * min(1.0, k * 3)))
        fig.transform(scale=1.0, angle=8 * math.sin(k * 5), pivot=(CX, 31), to=(CX, 31 + 30 * k ** 1.3))
    out.paste(fig)
    # the bubble bursts: a ring and shards of glass flying out
    if 0.2 <= t < 0.5:
        k = (t - 0.2) / 0.3
        hx, hy = HEAD
        r = common.rng("fall", "shards")
        rad = BUBBLE_R + 3.2 * k
        out.arc((hx - rad, hy - rad, hx + rad, hy + rad), 0, 360, (230, 248, 255, int(230 * (1 - k))), 1.0)
        for j in range(7):
            ang = 2 * math.pi * (j + 0.3 * r.random()) / 7
            d = BUBBLE_R + 4.5 * k
            # the shards stay inside the picture: its edge would cut them
            x = min(29.5, max(2.5, hx + math.cos(ang) * d))
            y = max(2.5, hy + math.sin(ang) * d + 6 * k * k)
            s = 1.3 * (1 - k * 0.5)
            out.polygon([(x - s, y), (x, y - s * 1.4), (x + s * 0.8, y + s * 0.6)],
                        (215, 245, 255, int(240 * (1 - k))))
    # air rising from where he went under
    if t >= 0.4:
        k = (t - 0.4) / 0.6
        r = common.rng("fall", "air")
        for j in range(6):
            x = CX + (r.random() - 0.5) * 10
            s = 0.8 + r.random() * 1.0
            u = (k - j * 0.13) / 0.45
            if not 0.0 <= u <= 1.0:
                continue
            x += math.sin(u * 6 + j) * 1.2
            y = 30 - u * 22
            s += u * 0.5
            a = int(230 * (1 - u ** 3))
            out.ellipse((x - s, y - s, x + s, y + s), (210, 245, 255, a))
            # the far side of the bubble shows darker, a glint on the near side
            out.ellipse((x - s * 0.55, y - s * 0.55, x + s * 0.55, y + s * 0.55), (40, 90, 120, int(a * 0.35)))
            g0 = (x - s + 0.4, y - s + 0.4)
            out.ellipse((g0[0], g0[1], g0[0] + s * 0.7, g0[1] + s * 0.7), (255, 255, 255, a))
    return out.image()


def generate(reg):
    G = "SPRITES2/GREENMAN/"
    for i in range(21):
        reg.picture(G + "WALK", i, walk(i),
                    "bubbleman walking, %s" % ("at birth" if i == 0 else "step %d of 20" % i), alpha="clear")
    for i in range(17):
        reg.picture(G + "ENTER", i, enter(i), "bubbleman boarding/emerging, frame %d of 16" % i,
                    alpha="clear")
    for i in range(21):
        reg.picture(G + "SUCKED", i, sucked(i), "bubbleman sucked into a vortex, frame %d" % i, alpha="clear")
    for i in range(21):
        reg.picture(G + "FALL", i, fall(i), "bubbleman lost in water or on spikes, frame %d" % i,
                    alpha="clear")
