"""TERRAIN/FIELD: the 23 terrain tiles (32 x 32), TERRAIN/FIELD/BACKGROUND:
the six 256 x 256 backdrop layers behind the level, TERRAIN/FIELD/WATER:
water cells."""
import math

import numpy as np
from PIL import Image, ImageDraw

import art
import common
from common import Canvas, rgba_image, rng, fbm, ramp

T = 32
FIELD = "TERRAIN/FIELD"


def solid(rgbarr):
    return rgba_image(rgbarr)


def dirt_tile(key, colours=art.DIRT):
    return solid(art.dirt_rgb(T, T, key, colours))


def rock_tile(key, cells):
    """A stone block set in the dirt: cobbles with a thin dirt margin so rock
    cells sit naturally among dirt cells."""
    stone = art.rock_rgb(T, T, key, cells)
    dirt = art.dirt_rgb(T, T, "rockdirt" + key)
    r = rng("rockmask", key)
    n = fbm(T, T, 4, 2, r)
    ys, xs = np.mgrid[0:T, 0:T].astype(float)
    edge = np.minimum(np.minimum(xs, T - 1 - xs), np.minimum(ys, T - 1 - ys))
    mask = (edge + n * 3) > 2.2
    return solid(np.where(mask[..., None], stone, dirt))


def border_tile():
    """The unbreakable ring: dark riveted bedrock plates, clearly not dirt."""
    r = rng("border")
    n = fbm(T, T, 4, 3, r)
    col = ramp(0.2 + 0.5 * n, ["#15161c", "#22242d", "#30333f", "#3e4252", "#505568"], steps=5)
    img = solid(col)
    c = Canvas(T, T)
    c.rect((1, 1, T - 1, T - 1), None, outline=(95, 102, 122, 255), width=1)
    c.line([(1.5, 1.5), (T - 1.5, 1.5)], (120, 128, 150, 255), 1)
    c.line([(1.5, T - 1.5), (T - 1.5, T - 1.5)], (8, 8, 12, 255), 1)
    c.line([(16, 2), (16, 30)], (12, 12, 16, 220), 1)
    c.line([(2, 16), (30, 16)], (12, 12, 16, 220), 1)
    img = common.over(img, c.image())
    return art.rivets(img, [(6, 6), (26, 6), (6, 26), (26, 26)], 1.5)


def gem_tile(key, colour):
    """A faceted gem in the dirt."""
    base = dirt_tile("gem" + key, art.DIRT)
    r = rng("gem", key)
    c = Canvas(T, T)
    cx, cy = 16 + r.integers(-2, 3), 17 + r.integers(-2, 3)
    col = np.array(colour, float)
    dark = tuple(int(v) for v in col * 0.45) + (255,)
    mid = tuple(int(v) for v in col * 0.8) + (255,)
    light = tuple(int(min(255, v * 1.2 + 40)) for v in col) + (255,)
    top = [(cx - 8, cy - 2), (cx - 4, cy - 7), (cx + 4, cy - 7), (cx + 8, cy - 2)]
    c.polygon(top + [(cx, cy + 9)], dark)
    c.polygon([(cx - 8, cy - 2), (cx - 4, cy - 7), (cx, cy - 2)], light)
    c.polygon([(cx - 4, cy - 7), (cx + 4, cy - 7), (cx, cy - 2)], mid)
    c.polygon([(cx + 4, cy - 7), (cx + 8, cy - 2), (cx, cy - 2)], light)
    c.polygon([(cx - 8, cy - 2), (cx, cy - 2), (cx, cy + 9)], mid)
    c.polygon([(cx, cy - 2), (cx + 8, cy - 2), (cx, cy + 9)], dark)
    c.line([(cx - 5, cy - 5), (cx - 3, cy - 5)], (255, 255, 255, 255), 1)
    gem = c.image()
    gem = common.glow(gem, 1.5, tuple(int(v) for v in col), 0.7)
    return common.over(base, gem)


def spikes_tile():
    c = Canvas(T, T)
    c.rect((0, 27, T, T), (70, 74, 86, 255))
    c.rect((0, 27, T, 28), (140, 146, 160, 255))
    for i, x in enumerate((4, 12, 20, 28)):
        hgt = 20 if i % 2 else 23
        c.polygon([(x - 4, 28), (x, 28 - hgt), (x + 4, 28)], (150, 156, 172, 255))
        c.polygon([(x, 28), (x, 28 - hgt), (x + 4, 28)], (96, 100, 116, 255))
        c.line([(x - 0.5, 27), (x - 0.3, 28 - hgt + 3)], (225, 230, 240, 255), 0.8)
        c.ellipse((x - 0.9, 28 - hgt - 0.6, x + 0.9, 28 - hgt + 1.4), (200, 60, 60, 255))
    return c.image()


def vortex_tile():
    """A swirl turned by the game (the tile is rotated every tick)."""
    ss = 4
    n = T * ss
    ys, xs = np.mgrid[0:n, 0:n].astype(float)
    x = (xs + 0.5) / ss - 16
    y = (ys + 0.5) / ss - 16
    rr = np.hypot(x, y)
    th = np.arctan2(y, x)
    arms = 0.5 + 0.5 * np.cos(3 * th + rr * 0.55)
    fade = np.clip(1 - rr / 15.5, 0, 1)
    core = np.exp(-(rr / 3.5) ** 2)
    a = np.clip(arms ** 2 * fade * 1.1 + core, 0, 1) * (rr < 15.5)
    col = np.stack([120 + 100 * arms + 135 * core, 60 + 60 * arms + 195 * core,
                    200 + 55 * arms], -1)
    col = np.clip(col, 0, 255)
    col = common.downsample(col * a[..., None], ss)
    a = common.downsample(a, ss)
    col = col / np.maximum(a[..., None], 1e-6)
    return common.clean_alpha(rgba_image(col, a), 6)


def radioactive_overlay(key, count):
    """Glowing crystals drawn over dirt in the game's pulsing glow colour:
    so they are pale grey-white here and take their tint from the code."""
    r = rng("radio", key)
    c = Canvas(T, T)
    for i in range(count):
        x = 6 + r.random() * 20
        y = 10 + r.random() * 16
        hgt = 5 + r.random() * 6
        wid = 2 + r.random() * 2
        lean = (r.random() - 0.5) * 4
        c.polygon([(x - wid, y + 2), (x + lean, y - hgt), (x + wid, y + 2)], (235, 240, 235, 255))
        c.polygon([(x, y + 2), (x + lean, y - hgt), (x + wid, y + 2)], (170, 178, 172, 255))
    img = c.image()
    img = common.glow(img, 2.0, (255, 255, 255), 0.9)
    return img


def item_tile(which):
    """World items standing on the ground (they need support below)."""
    c = Canvas(T, T)
    if which == 0:      # crystal cluster
        for x, hgt, col in ((11, 16, (150, 110, 230)), (17, 22, (185, 140, 255)), (23, 13, (130, 95, 210))):
            c.polygon([(x - 4, 31), (x - 3, 31 - hgt + 3), (x, 31 - hgt), (x + 3, 31 - hgt + 3), (x + 4, 31)],
                      col + (255,))
            c.polygon([(x, 31), (x, 31 - hgt), (x + 3, 31 - hgt + 3), (x + 4, 31)],
                      tuple(int(v * 0.7) for v in col) + (255,))
            c.line([(x - 1.5, 29), (x - 1.5, 31 - hgt + 4)], (235, 220, 255, 220), 0.8)
    elif which == 1:    # bleached fossil skull
        c.ellipse((7, 12, 25, 29), (222, 214, 190, 255))
        c.rect((10, 24, 22, 31), (210, 200, 175, 255), radius=2)
        c.ellipse((10, 17, 15, 22), (50, 40, 35, 255))
        c.ellipse((17, 17, 22, 22), (50, 40, 35, 255))
        c.polygon([(16, 22), (14.5, 25), (17.5, 25)], (70, 60, 50, 255))
        for x in (12, 15, 18):
            c.line([(x + 0.5, 27), (x + 0.5, 31)], (120, 110, 95, 255), 0.8)
        c.ellipse((9, 13, 14, 16), (245, 240, 225, 255))
    elif which == 2:    # glowing mushroom (diggable)
        c.rect((13, 19, 19, 31), (225, 215, 190, 255), radius=2)
        c.rect((13, 19, 15, 31), (245, 240, 225, 255), radius=1)
        c.ellipse((4, 8, 28, 23), (220, 80, 70, 255))
        c.ellipse((6, 9, 22, 18), (240, 120, 100, 255))
        for x, y in ((9, 13), (16, 11), (22, 15), (13, 17)):
            c.ellipse((x - 1.6, y - 1.2, x + 1.6, y + 1.2), (255, 240, 220, 255))
    else:               # alien shrub (diggable)
        for ang, ln in ((-60, 16), (-35, 20), (-90, 22), (-120, 19), (-145, 15)):
            a = math.radians(ang)
            x1, y1 = 16 + math.cos(a) * ln, 31 + math.sin(a) * ln
            c.line([(16, 31), (16 + math.cos(a) * ln * 0.5, 31 + math.sin(a) * ln * 0.55), (x1, y1)],
                   (70, 150, 60, 255), 2.0)
            c.ellipse((x1 - 2.2, y1 - 2.2, x1 + 2.2, y1 + 2.2), (160, 230, 90, 255))
            c.ellipse((x1 - 1.0, y1 - 1.4, x1 + 0.6, y1 + 0.2), (230, 255, 180, 255))
    return c.image()


def explosive_tile():
    c = Canvas(T, T)
    c.rect((8, 9, 24, 31), (190, 40, 35, 255), radius=2)
    c.rect((8, 9, 13, 31), (230, 80, 65, 255), radius=2)
    c.rect((19, 9, 24, 31), (140, 25, 25, 255), radius=2)
    for y in (12, 27):
        c.rect((7.5, y, 24.5, y + 2), (70, 70, 80, 255))
    c.rect((10, 16, 22, 23), (250, 210, 60, 255))
    c.polygon([(16, 17), (13, 22), (19, 22)], (30, 30, 30, 255))
    c.rect((13, 6, 19, 9), (90, 90, 100, 255))
    c.line([(16, 6), (18, 3), (21, 2)], (200, 190, 160, 255), 1)
    c.ellipse((20, 0.5, 23, 3.5), (255, 220, 120, 255))
    return c.image()


def edge_overlay(side):
    """The lip a ground cell casts onto an open neighbour. The game draws the
    tile 4 pixels from the open cell's centre toward the ground, so the lip
    sits in the 8 pixels that straddle the shared edge."""
    r = rng("edge", side)
    ss = 4
    n = T * ss
    lay = Image.new("RGBA", (n, n), (0, 0, 0, 0))
    d = ImageDraw.Draw(lay)
    # Work as if the ground were below (side "below") and rotate afterwards.
    prof = fbm(n, 1, 6, 3, r)[0]
    top = 23.0 + prof * 4.0           # ragged crust line, in pixels
    for xs in range(n):
        y0 = top[xs] * ss
        d.line([(xs, y0), (xs, n)], fill=(90, 60, 35, 255))
    if side == "below":
        # moss and grass on the surface of the ground below
        for xs in range(n):
            y0 = top[xs] * ss
            d.line([(xs, y0), (xs, y0 + 2.2 * ss)], fill=art.rgb(art.MOSS[2]) + (255,))
            d.line([(xs, y0), (xs, y0 + 0.7 * ss)], fill=art.rgb(art.MOSS[3]) + (255,))
        for i in range(14):
            x = (r.random() * T) * ss
            hgt = (2.5 + r.random() * 4) * ss
            base = top[int(x) % n] * ss + 1 * ss
            lean = (r.random() - 0.5) * 2.5 * ss
            d.polygon([(x - 0.9 * ss, base), (x + lean, base - hgt), (x + 0.9 * ss, base)],
                      fill=art.rgb(art.MOSS[1 + i % 3]) + (255,))
    else:
        for xs in range(n):
            y0 = top[xs] * ss
            d.line([(xs, y0), (xs, y0 + 1.0 * ss)], fill=(130, 92, 56, 255))
        for i in range(6):
            x = (r.random() * T) * ss
            y = (top[int(x) % n] - 1.2) * ss
            d.ellipse([x - 1.2 * ss, y - 1.0 * ss, x + 1.2 * ss, y + 1.2 * ss], fill=(110, 78, 48, 255))
    # the part beyond the shared edge fades into the ground cell
    img = lay.resize((T, T), Image.BOX)
    a = np.asarray(img).astype(float)
    a[29:, :, 3] *= np.array([0.9, 0.6, 0.3])[:, None]
    img = Image.fromarray(a.astype(np.uint8), "RGBA")
    if side == "above":
        img = img.transpose(Image.FLIP_TOP_BOTTOM)
        # roots hang from a ceiling
        c = Canvas(T, T)
        for i in range(4):
            x = 3 + r.random() * 26
            ln = 3 + r.random() * 6
            c.line([(x, 7), (x + (r.random() - 0.5) * 2, 7 + ln)], (150, 120, 80, 230), 0.8)
        img = common.over(img, c.image())
    elif side == "left":
        img = img.rotate(-90)
    elif side == "right":
        img = img.rotate(90)
    return common.clean_alpha(img, 10)


# ---------------------------------------------------------------- backgrounds

def underground(w, h, key):
    """The wall of a dug-out cave: darker and cooler than the dirt in front,
    with faint strata, so open cells read as depth."""
    r = rng("cave", key)
    n = fbm(w, h, 8, 5, r)
    strata = 0.5 + 0.5 * np.sin(np.arange(h)[:, None] * 0.09 + fbm(w, h, 4, 3, r) * 6)
    v = 0.35 * n + 0.18 * strata + 0.15
    depth = np.linspace(0, 1, h)[:, None]
    col = ramp(v, art.CAVE, steps=6)
    col *= (1.0 - 0.35 * depth)[..., None]
    # a few embedded stones and glints
    for _ in range(w * h // 2600):
        x, y = int(r.integers(0, w)), int(r.integers(0, h))
        rad = int(r.integers(2, 6))
        ys, xs = np.ogrid[-rad:rad + 1, -rad:rad + 1]
        disc = xs * xs + ys * ys <= rad * rad
        for dy in range(-rad, rad + 1):
            yy = y + dy
            if 0 <= yy < h:
                for dx in range(-rad, rad + 1):
                    if disc[dy + rad, dx + rad]:
                        shade = 1.25 if dx + dy < 0 else 0.85
                        col[yy, (x + dx) % w] = col[yy, (x + dx) % w] * 0.4 + np.array([55, 52, 58]) * shade
    for _ in range(w * h // 1600):
        x, y = int(r.integers(0, w)), int(r.integers(0, h))
        col[y, x] = [150, 200, 230] if r.random() < 0.5 else [210, 170, 110]
    return col


def ridge(w, base, amp, key, octaves=4):
    r = rng("ridge", key)
    p = fbm(w, 1, 3, octaves, r)[0]
    return base - (p - p.min()) / (p.max() - p.min()) * amp


def background_layers():
    """Returns the six layers: 0, 4, 3 deep cave walls (opaque), 1 near ridge
    and the cave wall just under the surface, 2 middle hills, 5 far sky."""
    W = 256
    surface = 186            # the row of the tile where the level's ground begins
    cave = underground(W, 4 * 256, "wall")
    layers = {}
    # slot 5: far sky with distant mountains
    ys = np.arange(256)[:, None].astype(float)
    t = np.clip(ys / 200.0, 0, 1)
    sky = ramp(t, art.SKY)
    sky_a = np.clip((ys - 10) / 90.0, 0, 1) * np.ones((1, W))
    m = ridge(W, 175, 70, "far")
    shade = 0.75 - 0.55 * np.clip((ys - m[None, :]) / 70.0, 0, 1) + 0.25 * (fbm(W, 256, 8, 4, rng("farrock")) - 0.5)
    far = ramp(shade, ["#110f26", "#1b1838", "#27224c", "#352d62", "#463a78"], steps=5)
    mount = ys >= m[None, :]
    col = np.where(mount[..., None], far, sky)
    a = np.where(mount, 1.0, sky_a)
    # a soft glow on the ridge line
    rim = np.exp(-((ys - m[None, :]) ** 2) / 3.0) * 0.6
    col = col + rim[..., None] * np.array([110, 90, 170])
    layers[5] = rgba_image(col, a)
    # slot 2: middle hills, darker, transparent above
    m2 = ridge(W, 186, 38, "mid", 5)
    mid = ramp(0.4 + 0.3 * fbm(W, 256, 8, 4, rng("midrock")),
               ["#0f0c1c", "#1a1428", "#261c34", "#33253f"], steps=4)
    hill = ys >= m2[None, :]
    col = mid * (1 - 0.3 * np.clip((ys - m2[None, :]) / 60, 0, 1))[..., None]
    col = col + (np.exp(-((ys - m2[None, :]) ** 2) / 2.0) * 0.5)[..., None] * np.array([90, 70, 120])
    layers[2] = common.clean_alpha(rgba_image(col, hill.astype(float)))
    # slot 1: near ridge right above the ground and the cave wall beneath it
    m1 = ridge(W, surface + 1, 10, "near", 5)
    near = cave[:256].copy()
    top = ys < surface
    near = np.where(top[..., None], ramp(0.4 + 0.4 * fbm(W, 256, 16, 3, rng("nearrock")),
                                           ["#120c0c", "#1d1413", "#2a1d19"], steps=3), near)
    a1 = (ys >= m1[None, :]).astype(float)
    layers[1] = common.clean_alpha(rgba_image(near[:256], a1))
    # the deep layers continue the same wall downwards: 0, then 4, then 3
    layers[0] = rgba_image(cave[256:512])
    layers[4] = rgba_image(cave[512:768])
    layers[3] = rgba_image(cave[768:1024])
    return layers


# ---------------------------------------------------------------- water

WATER_COLOURS = {
    1: ((40, 120, 220), (120, 200, 255)),   # planet 1: blue water
    2: ((120, 190, 230), (220, 245, 255)),  # planet 2: icy slush
    3: ((60, 50, 70), (150, 120, 170)),     # planet 3: dark oily pool
    4: ((80, 190, 90), (190, 255, 150)),    # planet 4: green acid
}


def water_tile(planet, phase):
    deep, light = (np.array(c, float) for c in WATER_COLOURS[planet])
    ys, xs = np.mgrid[0:T, 0:T].astype(float)
    wave = 4.0 + 1.2 * np.sin((xs / T + phase) * 2 * math.pi) + 0.6 * np.sin((xs / T * 2 - phase) * 2 * math.pi)
    t = np.clip((ys - wave) / (T - wave), 0, 1)
    col = light * (1 - t[..., None]) * 0.6 + deep * (0.4 + 0.6 * t[..., None])
    shimmer = 0.5 + 0.5 * np.sin(xs * 0.7 + ys * 0.35 - phase * 2 * math.pi * 2)
    col += (shimmer * (ys > wave + 3) * 18)[..., None]
    crest = np.abs(ys - wave) < 1.0
    col = np.where(crest[..., None], light + 30, col)
    a = np.where(ys >= wave - 0.5, 0.86, 0.0)
    a = np.where(crest, 1.0, a)
    return common.clean_alpha(rgba_image(np.clip(col, 0, 255), a))


# ---------------------------------------------------------------- folder

def generate(reg):
    tiles = {
        0: (dirt_tile("spare", art.DIRT2), "spare dirt (not drawn)"),
        1: (dirt_tile("dirt1"), "Dirt1; also drawn behind pods and radioactive glow"),
        2: (edge_overlay("below"), "edge: ground below (grassy surface lip)"),
        3: (edge_overlay("left"), "edge: ground to the left"),
        4: (edge_overlay("above"), "edge: ground above (ceiling, roots)"),
        5: (edge_overlay("right"), "edge: ground to the right"),
        6: (dirt_tile("dirt2", art.DIRT2), "Dirt2"),
        7: (radioactive_overlay("r1", 4), "Radioactive1 glow overlay (tinted by the game)"),
        8: (rock_tile("r1", 4), "Rock1"),
        9: (rock_tile("r2", 6), "Rock2"),
        10: (rock_tile("r3", 3), "Rock3"),
        11: (border_tile(), "Border: unbreakable ring"),
        12: (gem_tile("g1", (90, 220, 255)), "Diamond1 (cyan gem)"),
        13: (gem_tile("g2", (255, 90, 200)), "Diamond2 (pink gem)"),
        14: (gem_tile("g3", (255, 215, 70)), "Diamond3 (gold gem)"),
        15: (spikes_tile(), "Spikes"),
        16: (vortex_tile(), "Vortex swirl (turned by the game)"),
        17: (radioactive_overlay("r2", 6), "Radioactive2 glow overlay (tinted by the game)"),
        18: (item_tile(0), "WorldItem1: crystal cluster"),
        19: (item_tile(1), "WorldItem2: fossil skull"),
        20: (item_tile(2), "WorldItem3: mushroom (diggable)"),
        21: (item_tile(3), "WorldItem4: alien shrub (diggable)"),
        22: (explosive_tile(), "Explosive barrel"),
    }
    for i in range(23):
        img, role = tiles[i]
        reg.picture(FIELD, i, img, "tile " + role)

    layers = background_layers()
    roles = {0: "backdrop: cave wall below the surface layers",
             1: "backdrop: near ridge and the cave wall under the surface",
             2: "backdrop: middle hills",
             3: "backdrop: deepest cave wall",
             4: "backdrop: deep cave wall",
             5: "backdrop: far sky and mountains (scrolls faster)"}
    for i in range(6):
        kind = "jpg" if i in (0, 3, 4) else "tga"
        reg.picture(FIELD + "/BACKGROUND", i, layers[i], roles[i], kind=kind, quality=88)

    reg.picture(FIELD + "/WATER", 0, water_tile(1, 0.0), "water cell, planet 1 (object slot 8)")
    for p in (2, 3, 4):
        reg.picture(FIELD + "/WATER", p - 1, water_tile(p, 0.0),
                    "water cell, planet %d (for object slot %d)" % (p, 7 + p))
    for i in range(4, 11):
        reg.picture(FIELD + "/WATER", i, water_tile(1, (i - 3) / 8.0),
                    "water cell, planet 1, ripple phase %d" % (i - 3))
