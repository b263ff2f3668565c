#!/usr/bin/env python3
"""The shortcut search must find a shortcut that is surely there: "See
Double" copied with credits on the floor under the right bubbleman's tunnel,
which lead him into the rocket without the rock at its foot blasted, and
again with that rock turned to dirt, which the cheaper shovel digs. In both
the shipped solution still wins, paying for a blast it no longer needs, and
the route the search reports must be one that levelcheck, on its own,
confirms.

    shortcut_plant.py SHORTCUT_SEARCH LEVELCHECK
"""
import os
import re
import subprocess
import sys
import tempfile

REPO = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path.insert(0, os.path.join(REPO, "tools"))
import levelmaps  # noqa: E402

MAP = os.path.join(REPO, "levels", "maps", "P1M03.map")
SOLUTION = os.path.join(REPO, "levels", "maps", "P1M03.solution")
WON = re.compile(r": won after \d+ ticks with (\d+) credits left$")
FOUND = re.compile(r": shipped (\d+) credits left, best found (\d+) ")
DIRT, ROCKET, CREDITS = 1, 13, 17


def planted(change):
    level = levelmaps.parse_map(MAP)
    change(level["grid"])
    return levelmaps.level_text(level)


def right_rocket(grid):
    return max((x, y) for x in range(len(grid)) for y in range(len(grid[0])) if grid[x][y] == ROCKET)


def credits_under_tunnel(grid):
    # the cell left of the rocket, under the tunnel's foot
    x, y = right_rocket(grid)
    grid[x - 1][y] = CREDITS


def soft_rock(grid):
    # the rock over the rocket, at the tunnel's foot
    x, y = right_rocket(grid)
    grid[x][y - 1] = DIRT


def check(search, levelcheck, tmp, name, change, least_gain):
    lev = os.path.join(tmp, name + ".LEV")
    with open(lev, "w") as f:
        f.write(planted(change))
    route = os.path.join(tmp, name + ".solution")
    run = subprocess.run([search, lev, SOLUTION, "--runs", "80", "--seconds", "120", "--out", route],
                         stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    print(run.stdout)
    m = FOUND.search(run.stdout)
    if not m:
        return ["%s: the search said nothing of its result" % name]
    shipped, best = int(m.group(1)), int(m.group(2))
    faults = []
    if best < shipped + least_gain:
        faults.append("%s: the search found %d credits left, the planted shortcut leaves at least %d" %
                      (name, best, shipped + least_gain))
    confirm = subprocess.run([levelcheck, lev, route], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    print(confirm.stdout)
    w = WON.search(confirm.stdout.strip())
    if confirm.returncode != 0 or not w or int(w.group(1)) != best:
        faults.append("%s: levelcheck does not confirm the reported route" % name)
    return faults


def main(argv):
    if len(argv) != 2:
        print(__doc__)
        return 2
    with tempfile.TemporaryDirectory(prefix="plant-") as tmp:
        faults = check(argv[0], argv[1], tmp, "credits-on-the-floor", credits_under_tunnel, 400)
        faults += check(argv[0], argv[1], tmp, "soft-rock", soft_rock, 200)
    for f in faults:
        print(f)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
