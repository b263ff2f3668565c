#!/usr/bin/env python3
"""Campaign maps -> level files.

A mission is written by hand in levels/maps/PnMmm.map: a few header lines and
then the map itself, one character a cell, rows from the top down, so that a
designer reads it as the player will see it. Its winning script sits beside it
as PnMmm.solution. This tool turns a map into the level text the game reads
(levels/FORMAT.md); the datafile generator packs the sixty of them.

    title: Intro
    credits: 1500
    locks: shovel dynamite          # tools the mission withholds, or "none"
    map:
    ##########
    #....A...#
    ...

Planet and mission number come from the file name. Lines starting with '#'
before "map:" are comments. The legend is levels/maps/LEGEND.md; LEGEND below
is the same table in code.

    levelmaps.py MAP            print the level text
    levelmaps.py --out DIR MAP...   write DIR/PnMmm.LEV for each map
"""
import os
import re
import sys

LEGEND = {
    ".": 0,                       # empty (open cave or sky)
    ":": 1, ";": 2,               # dirt (two looks)
    "%": 3, "&": 16,              # radioactive rock
    "r": 4, "R": 5, "Q": 6,       # rock (three looks)
    "a": 7, "b": 8, "c": 9,       # diamond
    "h": 10,                      # hidden block
    "#": 11,                      # border
    "P": 12,                      # pod
    "A": 13,                      # rocket
    "^": 14,                      # spikes
    "@": 15,                      # vortex
    "$": 17,                      # credits to pick up
    "~": 18,                      # water
    "1": 19, "2": 20, "3": 21, "4": 22,   # world items: amethyst, crate, mushroom, shrub (3 and 4 can be dug)
    "X": 23,                      # explosive
}
TOOL_TABLE = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "sim", "toolinfo.cpp")


def lockable_tool_names(table=TOOL_TABLE):
    """The script names of the tools a level can lock, in the order of its
    lock lines, read from the game's own tool table (one row a line: ToolId,
    cost, lock index, name)."""
    row = re.compile(r'^\s*\{\w+, \d+, (\d+), "([^"]+)"')
    with open(table) as f:
        rows = [row.match(line) for line in f]
    return [m.group(2) for m in sorted((m for m in rows if m), key=lambda m: int(m.group(1)))]


TOOLS = lockable_tool_names()
SKY_ROWS = 7
SKY_KEEP = {13, 15, 17}
NAME = re.compile(r"^P([1-4])M(0[1-9]|1[0-5])$")


class MapError(Exception):
    pass


def parse_map(path):
    """Returns a dict with title, planet, mission, credits, locks, width,
    height and grid (columns of codes, grid[x][y])."""
    name = os.path.splitext(os.path.basename(path))[0]
    m = NAME.match(name)
    if not m:
        raise MapError("%s: the name must be P<planet>M<01-15>.map" % path)
    planet, mission = int(m.group(1)), int(m.group(2))
    head, rows, in_map = {}, [], False
    with open(path, encoding="utf-8") as f:
        for number, line in enumerate(f, 1):
            line = line.rstrip("\n").rstrip("\r")
            if in_map:
                if line.strip():
                    rows.append((number, line.rstrip()))
                continue
            if not line.strip() or line.lstrip().startswith("#"):
                continue
            key, sep, value = line.partition(":")
            key = key.strip().lower()
            if not sep:
                raise MapError("%s:%d: expected 'key: value'" % (path, number))
            if key == "map":
                in_map = True
            elif key in ("title", "credits", "locks"):
                head[key] = value.strip()
            else:
                raise MapError("%s:%d: unknown key %r" % (path, number, key))
    for key in ("title", "credits", "locks"):
        if key not in head:
            raise MapError("%s: missing '%s:'" % (path, key))
    if not rows:
        raise MapError("%s: no map" % path)
    width = len(rows[0][1])
    height = len(rows)
    for number, row in rows:
        if len(row) != width:
            raise MapError("%s:%d: row is %d wide, the first is %d" % (path, number, len(row), width))
        for ch in row:
            if ch not in LEGEND:
                raise MapError("%s:%d: %r is not in the legend" % (path, number, ch))
    if not (3 <= width <= 256 and 8 <= height <= 256):
        raise MapError("%s: %d x %d is outside 3..256 x 8..256" % (path, width, height))
    grid = [[LEGEND[rows[y][1][x]] for y in range(height)] for x in range(width)]
    for x in range(width):
        for y in range(height):
            ring = x in (0, width - 1) or y == height - 1
            if ring and grid[x][y] != 11:
                raise MapError("%s: cell (%d, %d) must be border '#'" % (path, x, y))
            if not ring and grid[x][y] == 11:
                raise MapError("%s: border '#' inside the level at (%d, %d)" % (path, x, y))
            if y < SKY_ROWS and not ring and grid[x][y] not in SKY_KEEP | {0}:
                raise MapError("%s: row %d is sky; (%d, %d) would be cleared" % (path, y, x, y))
    # The ring's '#' runs up the sides for the eye; in the sky the game clears
    # it on loading, so the level file holds the cleared sky already.
    for x in (0, width - 1):
        for y in range(SKY_ROWS):
            grid[x][y] = 0
    locks = [] if head["locks"].lower() == "none" else head["locks"].lower().split()
    for tool in locks:
        if tool not in TOOLS:
            raise MapError("%s: unknown tool %r in locks (%s)" % (path, tool, " ".join(TOOLS)))
    try:
        credits = int(head["credits"])
    except ValueError:
        raise MapError("%s: credits must be a whole number" % path)
    return dict(title=head["title"], planet=planet, mission=(planet - 1) * 15 + mission,
                credits=credits, locks=locks, width=width, height=height, grid=grid)


def level_text(level):
    lines = [level["title"], str(level["planet"]), str(level["mission"]), "1", "0",
             str(level["credits"]), str(level["width"]), str(level["height"])]
    lines += ["1" if tool in level["locks"] else "0" for tool in TOOLS]
    for column in level["grid"]:
        lines += [str(code) for code in column]
    return "\n".join(lines) + "\n"


def main(argv):
    out = None
    if len(argv) >= 2 and argv[0] == "--out":
        out, argv = argv[1], argv[2:]
    if not argv:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        for path in argv:
            text = level_text(parse_map(path))
            if out is None:
                sys.stdout.write(text)
            else:
                os.makedirs(out, exist_ok=True)
                name = os.path.splitext(os.path.basename(path))[0] + ".LEV"
                with open(os.path.join(out, name), "w", encoding="ascii") as f:
                    f.write(text)
    except MapError as e:
        print("levelmaps: %s" % e, file=sys.stderr)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
