"""LEVELS: the sixty campaign levels, P1M01 .. P4M15 (objects P1M01_LEV ...).

Until the real campaign is written these are generated placeholders: valid
levels of 30 x 20 cells with caves, pods on cave floors, rockets on the
surface and a sprinkling of the planet's hazards, harder further in. A file
named like the object (P1M01.LEV ...) in the repository's levels/ folder
replaces the placeholder of that name, byte for byte."""
import os
import sys

from common import rng, fbm

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import levelmaps  # noqa: E402

W, H = 30, 20
SKY = 7

# Cell codes of the level format.
EMPTY, DIRT1, DIRT2, RADIO1, ROCK1, ROCK2, ROCK3, DIA1, DIA2, DIA3 = range(10)
BORDER, POD, ROCKET, SPIKES, VORTEX, RADIO2, CREDITS, WATER = 11, 12, 13, 14, 15, 16, 17, 18
ITEM1, ITEM2, ITEM3, ITEM4, EXPLOSIVE = 19, 20, 21, 22, 23

SUPPORT = {1, 2, 3, 4, 5, 6, 7, 8, 9, 11}
NEEDS_SUPPORT = {14, 19, 20, 21, 22, 23}
SKY_KEEP = {13, 15, 17}

TITLES = {
    1: ["Intro", "More Tools", "See Double", "First Steps", "Soft Soil", "Twin Caves",
        "Gem Field", "Lift Off", "The Long Walk", "Pocket Caves", "Stone Garden", "Root Cellar",
        "Four Eggs", "Deep Meadow", "Field Finale"],
    2: ["Cold Start", "Frost Line", "Glacier Gap", "Ice Shelf", "Blue Caves", "Snow Blind",
        "Crystal Cold", "Frozen Pools", "Icicles", "Permafrost", "Drift", "White Out",
        "Cold Storage", "Thin Ice", "Ice Finale"],
    3: ["Rubble", "Crater Rim", "Loose Rock", "Dust Bowl", "Meteor Lane", "Hollow Rock",
        "Gravel Pit", "Shatter", "Tumble", "Orbit", "Fault Line", "Hard Place",
        "Boulder Run", "Deep Impact", "Asteroid Finale"],
    4: ["Squish", "Pink Mud", "Jelly Caves", "Soft Spot", "Bubble Bath", "Sticky Going",
        "Marsh", "Goo Lagoon", "Puddles", "Soft Landing", "Ooze", "Mellow Mire",
        "Wobble", "Sink Hole", "Soft Finale"],
}


def level_names():
    return ["P%dM%02d" % (p, m) for p in range(1, 5) for m in range(1, 16)]


def normalise(g):
    """The game's terrain upkeep, applied before writing so that a level file
    already holds its settled form: border ring, clear sky, dirt under
    things that need support and around water."""
    for x in range(W):
        for y in range(H):
            if x in (0, W - 1) or y in (0, H - 1):
                g[x][y] = BORDER
    for x in range(W):
        for y in range(SKY):
            if g[x][y] not in SKY_KEEP:
                g[x][y] = EMPTY
    for x in range(W):
        for y in range(H):
            if g[x][y] in NEEDS_SUPPORT and y < H - 1 and g[x][y + 1] not in SUPPORT:
                g[x][y + 1] = DIRT1
    for x in range(W):
        for y in range(H):
            if g[x][y] != WATER:
                continue
            if y < H - 1 and g[x][y + 1] not in SUPPORT:
                g[x][y + 1] = DIRT1
            if x > 1 and g[x - 1][y] != WATER and g[x - 1][y] not in SUPPORT:
                g[x - 1][y] = DIRT1
            if x < W - 1 and g[x + 1][y] != WATER and g[x + 1][y] not in SUPPORT:
                g[x + 1][y] = DIRT1
            if x > 1 and y < H - 1 and g[x - 1][y + 1] not in SUPPORT:
                g[x - 1][y + 1] = DIRT1
            if x < W - 1 and y < H - 1 and g[x + 1][y + 1] not in SUPPORT:
                g[x + 1][y + 1] = DIRT1


def carve_cave(g, cx, cy, rx, ry):
    for x in range(max(1, cx - rx), min(W - 1, cx + rx + 1)):
        for y in range(max(SKY + 1, cy - ry), min(H - 1, cy + ry + 1)):
            if ((x - cx) / (rx + 0.5)) ** 2 + ((y - cy) / (ry + 0.5)) ** 2 <= 1.0:
                g[x][y] = EMPTY


def floor_cells(g):
    """Open cells with solid support below and open space above."""
    out = []
    for x in range(2, W - 2):
        for y in range(SKY + 2, H - 2):
            if g[x][y] == EMPTY and g[x][y + 1] in SUPPORT and g[x][y - 1] == EMPTY:
                out.append((x, y))
    return out


def make_level(planet, mission):
    r = rng("level", planet, mission)
    hard = (planet - 1) * 15 + mission          # 1 .. 60
    g = [[EMPTY] * H for _ in range(W)]
    n = fbm(W, H, 4, 3, rng("levelrock", planet, mission))
    dirt_mix = r.random((W, H))
    for x in range(W):
        for y in range(SKY, H):
            rocky = n[y, x] > 0.68 - 0.002 * hard
            if rocky and y > SKY + 1:
                g[x][y] = [ROCK1, ROCK2, ROCK3][int(r.integers(0, 3))]
            else:
                g[x][y] = DIRT1 if dirt_mix[x, y] < 0.7 else DIRT2
    caves = 1 + min(3, hard // 12) + (1 if mission == 3 else 0)
    for i in range(caves):
        cx = int(4 + (i + 0.5) * (W - 8) / caves + r.integers(-2, 3))
        cy = int(r.integers(SKY + 4, H - 5))
        carve_cave(g, cx, cy, int(r.integers(3, 6)), int(r.integers(1, 3)))
    # gems in the rock and dirt
    for _ in range(3 + hard // 6):
        x, y = int(r.integers(2, W - 2)), int(r.integers(SKY + 2, H - 2))
        if g[x][y] in (DIRT1, DIRT2, ROCK1, ROCK2, ROCK3):
            g[x][y] = [DIA1, DIA2, DIA3][int(r.integers(0, 3))]
    # radioactive seams from the middle of the campaign on
    for _ in range(max(0, (hard - 10) // 8)):
        x, y = int(r.integers(3, W - 3)), int(r.integers(SKY + 3, H - 3))
        for dx, dy in ((0, 0), (1, 0), (0, 1)):
            if g[x + dx][y + dy] in (DIRT1, DIRT2):
                g[x + dx][y + dy] = RADIO1 if r.random() < 0.5 else RADIO2
    floors = floor_cells(g)
    r.shuffle(floors)
    pods = 2 if mission == 3 else min(4, 1 + hard // 15 + (1 if mission > 10 else 0))
    if mission == 1 and planet == 1:
        pods = 1
    used = set()
    placed = 0
    for x, y in floors:
        if placed == pods:
            break
        if any(abs(x - ux) < 3 and uy == y for ux, uy in used):
            continue
        g[x][y] = POD
        used.add((x, y))
        placed += 1
    # pick-ups and hazards on the remaining cave floors
    extras = [CREDITS] * (1 + hard // 20)
    if hard > 4:
        extras += [ITEM1 + int(r.integers(0, 4))] * 2
    if hard > 8:
        extras += [SPIKES] * (hard // 15)
    if hard > 14:
        extras += [EXPLOSIVE] * (1 + hard // 30)
    if hard > 20:
        extras += [WATER] * (1 + hard // 20)
    if hard > 30:
        extras += [VORTEX]
    for code in extras:
        for x, y in floors:
            if (x, y) in used or g[x][y] != EMPTY:
                continue
            if any(abs(x - ux) <= 1 and abs(y - uy) <= 1 for ux, uy in used):
                continue
            g[x][y] = code
            used.add((x, y))
            break
    # rockets stand on the surface
    rockets = 1 if hard < 20 else 2
    spots = [3 + int(r.integers(0, 4)), W - 4 - int(r.integers(0, 4))]
    for x in spots[:rockets] if r.random() < 0.5 else spots[::-1][:rockets]:
        g[x][SKY - 1] = ROCKET
    normalise(g)
    assert any(POD in col for col in g), (planet, mission)
    assert any(ROCKET in col for col in g), (planet, mission)
    return g


def level_text(planet, mission, g):
    hard = (planet - 1) * 15 + mission
    pods = sum(col.count(POD) for col in g)
    credits = 2500 + 800 * pods + 50 * hard
    locks = [0] * 9         # every tool offered until the real campaign decides
    lines = [TITLES[planet][mission - 1], str(planet), str(hard), "1", "0", str(credits),
             str(W), str(H)] + [str(v) for v in locks]
    for x in range(W):
        for y in range(H):
            lines.append(str(g[x][y]))
    return "\n".join(lines) + "\n"


def parse(text):
    """Header and size of a level file; raises ValueError if it is short."""
    lines = text.splitlines()
    if len(lines) < 17:
        raise ValueError("fewer than 17 lines")
    w, h = int(float(lines[6].split()[0])), int(float(lines[7].split()[0]))
    if len(lines) < 17 + w * h:
        raise ValueError("expected %d cells, found %d" % (w * h, len(lines) - 17))
    return lines[0], int(float(lines[1].split()[0])), w, h


def generate(reg):
    # The manifest names each level and nothing more: the missions are
    # designed and redesigned in levels/maps while the art stays put, and
    # their own record is levels/CAMPAIGN.md.
    hand = getattr(reg, "levels_dir", None)
    for name in level_names():
        planet, mission = int(name[1]), int(name[3:5])
        role = "campaign level %s" % name
        map_path = os.path.join(hand, "maps", name + ".map") if hand else None
        if map_path and os.path.isfile(map_path):
            try:
                level = levelmaps.parse_map(map_path)
            except levelmaps.MapError as e:
                raise SystemExit("gen_assets: %s" % e)
            reg.level(name, levelmaps.level_text(level).encode("ascii"), 0, 0, role)
            continue
        path = os.path.join(hand, name + ".LEV") if hand else None
        if path and os.path.isfile(path):
            data = open(path, "rb").read()
            try:
                parse(data.decode("latin-1"))
            except ValueError as e:
                raise SystemExit("gen_assets: %s: %s" % (path, e))
            reg.level(name, data, 0, 0, role)
            continue
        g = make_level(planet, mission)
        reg.level(name, level_text(planet, mission, g).encode("ascii"), 0, 0, role)
