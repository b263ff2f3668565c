#!/usr/bin/env python3
"""The campaign as a whole: its proof, its table and its contact sheet.

Every mission is a map in levels/maps with its winning script beside it
(levels/maps/LEGEND.md). This tool looks at all of them together:

    campaign.py prove --levelcheck BIN --datafile DAT NAME [--strict]
        NAME (P1M04 ...) from the built datafile: its solution wins it, doing
        nothing does not, and from the campaign's fourth mission on neither
        does the naive play (a hatcher over every pod, "Hatch Pods", then
        "Launch" clicked as fast as it answers).
    campaign.py naive MAP [--ticks N]
        print that naive play as a script.
    campaign.py table --levelcheck BIN [--out FILE | --check FILE]
        the campaign table, levels/CAMPAIGN.md: each mission's size, pods,
        rockets, credits, tools, and what its solution spends and takes.
    campaign.py sheet --levelshot BIN --out PNG [--work DIR]
        one picture with every mission in it, drawn by levelshot.
    campaign.py search --shortcut-search BIN [--seconds S] [--runs N] [--jobs J]
                       [--record FILE] [--fail-above C] [NAME ...]
        plays variations of every mission's solution (or the named ones),
        looking for a win with more credits left; --record writes what it
        found to the file the table reads (levels/SHORTCUTS.tsv).

--maps DIR names the maps folder (default: the repository's levels/maps).
"""
import argparse
import os
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import levelmaps  # noqa: E402

REPO = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
MAPS = os.path.join(REPO, "levels", "maps")
SHORTCUTS = os.path.join(REPO, "levels", "SHORTCUTS.tsv")
POD, ROCKET = 12, 13
TICK_LIMIT = 20000          # levelcheck's own default: 500 seconds of play
IDLE_TICKS = 2000           # nothing in a level moves until the player acts
NAIVE_FROM = 4              # the first campaign mission the naive play must not win
RESULT = re.compile(r": won after (\d+) ticks with (\d+) credits left$")
SHORT_TOOL = {"girder": "girder", "left-girder": "left hanging", "right-girder": "right hanging",
              "lift": "lift", "left-exit": "left exit", "right-exit": "right exit",
              "blocker": "blocker", "shovel": "shovel", "dynamite": "dynamite"}


def map_path(maps, name):
    return os.path.join(maps, name + ".map")


def mission_maps(maps):
    """The maps present, in campaign order."""
    return sorted(f[:-4] for f in os.listdir(maps) if f.endswith(".map") and levelmaps.NAME.match(f[:-4]))


def cells(level, code):
    return [(x, y) for x in range(level["width"]) for y in range(level["height"])
            if level["grid"][x][y] == code]


def naive_script(level, ticks=TICK_LIMIT):
    """A hatcher over every pod (each takes the tool click and the cell
    click), "Hatch Pods" on the next step, then "Launch" until the checker's
    limit: the play of someone who ignores the puzzle. The button answers a
    click only after a step with the mouse up, so the fastest clicking is
    every other step."""
    lines = ["# the naive play: hatch every pod where it lies and launch at once"]
    step = 1
    for x, y in cells(level, POD):
        lines.append("%d hatcher %d %d" % (step, x, y))
        step += 2
    lines.append("%d hatch" % step)
    lines += ["%d launch" % s for s in range(step + 1, ticks + 1, 2)]
    return "\n".join(lines) + "\n"


def run_levelcheck(levelcheck, level, script_text=None, script_path=None, extra=()):
    """Runs levelcheck and returns (won, ticks, credits left, output)."""
    with tempfile.TemporaryDirectory(prefix="campaign-") as tmp:
        if script_path is None:
            script_path = os.path.join(tmp, "script.solution")
            with open(script_path, "w") as f:
                f.write(script_text)
        run = subprocess.run([levelcheck, level, script_path] + list(extra),
                             stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    out = run.stdout.strip()
    first = out.splitlines()[-1] if out else ""
    for line in out.splitlines():
        if RESULT.search(line):
            first = line
    m = RESULT.search(first)
    if run.returncode == 0 and m:
        return True, int(m.group(1)), int(m.group(2)), out
    return False, None, None, out


def prove(args):
    name = args.name
    level = levelmaps.parse_map(map_path(args.maps, name))
    packed = name + "_LEV"
    common = ["--datafile", args.datafile] + (["--strict"] if args.strict else [])
    faults = []
    won, ticks, left, out = run_levelcheck(args.levelcheck, packed,
                                           script_path=os.path.join(args.maps, name + ".solution"),
                                           extra=common)
    print("solution: " + out.replace("\n", "\n  "))
    if not won:
        faults.append("its solution does not win it")
    won, _, _, out = run_levelcheck(args.levelcheck, packed, "# nothing\n",
                                    extra=common + ["--ticks", str(IDLE_TICKS)])
    print("doing nothing: " + out)
    if won:
        faults.append("it is won by doing nothing")
    if level["mission"] >= NAIVE_FROM:
        won, _, _, out = run_levelcheck(args.levelcheck, packed, naive_script(level), extra=common)
        print("naive play: " + out)
        if won:
            faults.append("it is won by the naive play (a hatcher over every pod, hatch, launch)")
    if args.shortcut_search:
        faults += short_search(args, name, level)
    for fault in faults:
        print("%s: %s" % (name, fault))
    return 1 if faults else 0


def offered_tools(level):
    offered = [t for t in levelmaps.TOOLS if t not in level["locks"]]
    if not offered:
        return "hatcher only"
    if len(offered) == len(levelmaps.TOOLS):
        return "all"
    locked = [t for t in levelmaps.TOOLS if t in level["locks"]]
    if len(locked) < len(offered):
        return "all but " + ", ".join(SHORT_TOOL[t] for t in locked)
    return ", ".join(SHORT_TOOL[t] for t in offered)


def count_actions(solution):
    """The player's moves: putting a tool down again is not one."""
    with open(solution) as f:
        words = [line.split("#", 1)[0].split() for line in f]
    return sum(1 for w in words if len(w) >= 2 and w[1].lower() != "cancel")


def tools_used(solution):
    """The kinds of tool the solution puts to a cell: how many of the
    game's mechanics the mission asks for together."""
    names = set(levelmaps.TOOLS) | {"hatcher"}
    with open(solution) as f:
        words = [line.split("#", 1)[0].lower().split() for line in f]
    return {w[1] if w[1] != "tool" else w[2] for w in words
            if len(w) >= 3 and (w[1] in names or (w[1] == "tool" and w[2] in names))}


def table_rows(levelcheck, maps):
    rows = []
    with tempfile.TemporaryDirectory(prefix="campaign-") as tmp:
        for name in mission_maps(maps):
            level = levelmaps.parse_map(map_path(maps, name))
            lev = os.path.join(tmp, name + ".LEV")
            with open(lev, "w") as f:
                f.write(levelmaps.level_text(level))
            solution = os.path.join(maps, name + ".solution")
            won, ticks, left = False, None, None
            if os.path.isfile(solution):
                won, ticks, left, _ = run_levelcheck(levelcheck, lev, script_path=solution)
            rows.append(dict(name=name, level=level, won=won, ticks=ticks, left=left,
                             actions=count_actions(solution) if os.path.isfile(solution) else None,
                             tools=tools_used(solution) if os.path.isfile(solution) else set()))
    return rows


def mean(values):
    return sum(values) / len(values) if values else 0.0


def planet_groups(rows, planet):
    """The won missions among a planet's first five and among its last five."""
    won = [r for r in rows if r["level"]["planet"] == planet and r["won"]]
    return ([r for r in won if int(r["name"][3:5]) <= 5], [r for r in won if int(r["name"][3:5]) >= 11])


def share_left(part):
    return mean([r["left"] / r["level"]["credits"] for r in part if r["level"]["credits"]])


def flat_planets(rows):
    """Planets whose last five missions do not ask more moves and leave less
    to spare than their first five."""
    out = []
    for planet in range(1, 5):
        first, last = planet_groups(rows, planet)
        if len(first) < 5 or len(last) < 5:
            continue
        if mean([r["actions"] for r in last]) <= mean([r["actions"] for r in first]):
            out.append("planet %d: its last five missions take no more moves than its first five" % planet)
        if share_left(last) >= share_left(first):
            out.append("planet %d: its last five missions leave no less of the credits than its first five" % planet)
    return out


def finale_of(rows, planet):
    last = [r for r in rows if r["level"]["planet"] == planet and r["name"][3:5] == "15" and r["won"]]
    return last[0] if last else None


def flat_campaign(rows):
    """Places where the campaign does not rise: a planet whose first five
    missions are not, on average, harder than the previous planet's first
    five (at least as many moves, less to spare), and a finale not bigger
    than the one before (more moves, no more to spare, at least as many
    kinds of tool together)."""
    out = []
    for planet in range(2, 5):
        before, now = planet_groups(rows, planet - 1)[0], planet_groups(rows, planet)[0]
        if len(before) == 5 and len(now) == 5:
            if mean([r["actions"] for r in now]) < mean([r["actions"] for r in before]):
                out.append("planet %d: its first five missions take fewer moves than planet %d's" % (planet, planet - 1))
            if share_left(now) >= share_left(before):
                out.append("planet %d: its first five missions leave no less to spare than planet %d's" % (
                    planet, planet - 1))
        a, b = finale_of(rows, planet - 1), finale_of(rows, planet)
        if a and b:
            if b["actions"] <= a["actions"]:
                out.append("planet %d: its finale takes no more moves than planet %d's" % (planet, planet - 1))
            if share_left([b]) > share_left([a]):
                out.append("planet %d: its finale leaves more to spare than planet %d's" % (planet, planet - 1))
            if len(b["tools"]) < len(a["tools"]):
                out.append("planet %d: its finale asks for fewer kinds of tool than planet %d's" % (planet, planet - 1))
    return out


def table_text(rows, found=None):
    found = found or {}
    out = ["# The campaign",
           "",
           "Made by `tools/campaign.py table` from the maps and solutions in",
           "`levels/maps`; the test suite checks that it is current. After changing a",
           "mission, write it anew:",
           "",
           "    python3 tools/campaign.py table --levelcheck build/tools/levelcheck --out levels/CAMPAIGN.md",
           "",
           "Actions are the solution's moves (a tool put down again is not one);",
           "credits left and ticks (40 a second) are what it ends the mission with.",
           "Best found is the most credits any win left that the shortcut search",
           "found (`tools/campaign.py search`, recorded in `levels/SHORTCUTS.tsv`).",
           "Each planet closes with its first five and its last five missions side by",
           "side: the later ones take more moves and leave less to spare; each planet",
           "opens harder than the one before, and each finale is bigger.",
           ""]
    for planet in range(1, 5):
        mine = [r for r in rows if r["level"]["planet"] == planet]
        if not mine:
            continue
        out += ["## Planet %d" % planet, "",
                "| mission | no. | title | size | pods | rockets | credits | tools offered | actions | credits left | best found | ticks |",
                "|---|---|---|---|---|---|---|---|---|---|---|---|"]
        for r in mine:
            lv = r["level"]
            if r["won"]:
                left = "%d (%d %%)" % (r["left"], round(100.0 * r["left"] / lv["credits"]) if lv["credits"] else 0)
                ticks = str(r["ticks"])
            else:
                left, ticks = "not won", "-"
            best = str(found[r["name"]][1]) if r["name"] in found else "-"
            out.append("| %s | %d | %s | %d x %d | %d | %d | %d | %s | %s | %s | %s | %s |" % (
                r["name"], lv["mission"], lv["title"], lv["width"], lv["height"],
                len(cells(lv, POD)), len(cells(lv, ROCKET)), lv["credits"], offered_tools(lv),
                "-" if r["actions"] is None else r["actions"], left, best, ticks))
        first, last = planet_groups(rows, planet)
        out.append("")
        for label, part in (("Missions 1 to 5", first), ("Missions 11 to 15", last)):
            if part:
                out.append("%s: %.1f actions on average, %.0f %% of the credits left." % (
                    label, mean([r["actions"] for r in part]), 100.0 * share_left(part)))
        finale = finale_of(rows, planet)
        if finale:
            out.append("Finale: %d actions, %.0f %% of the credits left, %d kinds of tool." % (
                finale["actions"], 100.0 * share_left([finale]), len(finale["tools"])))
        out.append("")
    return "\n".join(out)


def repeated_titles(rows):
    seen = {}
    for r in rows:
        seen.setdefault(r["level"]["title"], []).append(r["name"])
    return ["%s: %s" % (title, ", ".join(names)) for title, names in seen.items() if len(names) > 1]


def table(args):
    rows = table_rows(args.levelcheck, args.maps)
    found = read_shortcuts(args.shortcuts)
    text = table_text(rows, found)
    if args.check:
        faults = ["title used more than once: " + t for t in repeated_titles(rows)] + flat_planets(rows)
        faults += flat_campaign(rows) + stale_shortcuts(rows, found)
        for line in faults:
            print(line)
        if faults:
            return 1
        old = open(args.check).read() if os.path.isfile(args.check) else ""
        if old != text:
            import difflib
            sys.stdout.writelines(difflib.unified_diff(old.splitlines(True), text.splitlines(True),
                                                       args.check, "regenerated"))
            print("\n%s is not current; write it anew with\n  python3 tools/campaign.py table "
                  "--levelcheck build/tools/levelcheck --out levels/CAMPAIGN.md" % args.check)
            return 1
        print("%s is current" % args.check)
        return 0
    if args.out:
        with open(args.out, "w") as f:
            f.write(text)
    else:
        sys.stdout.write(text)
    return 0


# The shortcut search. A mission whose cheapest win is not its intended
# idea can be skipped; shortcut_search plays variations of the shipped
# solution to find such a win before a player does.
SEARCH_LINE = re.compile(r": shipped (-?\d+) credits left, best found (-?\d+) \(([+-]\d+)\) in (\d+) runs$")
MARGIN = 100                # what a player may save over the shipped solution by being clever
SHORT_RUNS = 60             # CI's short search: the single changes to each move, and a few more
SHORT_SECONDS = 20


def search_mission(tool, maps, name, seconds, runs, tmp, extra=()):
    """Runs the search on one mission; returns (shipped, best, script text)."""
    level = levelmaps.parse_map(map_path(maps, name))
    lev = os.path.join(tmp, name + ".LEV")
    with open(lev, "w") as f:
        f.write(levelmaps.level_text(level))
    command = [tool, lev, os.path.join(maps, name + ".solution"), "--seconds", str(seconds)]
    if runs:
        command += ["--runs", str(runs)]
    run = subprocess.run(command + list(extra), stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    lines = run.stdout.splitlines()
    m = SEARCH_LINE.search(lines[0]) if lines else None
    if not m:
        return None, None, run.stdout
    return int(m.group(1)), int(m.group(2)), "\n".join(lines[1:]) + "\n"


def short_search(args, name, level):
    with tempfile.TemporaryDirectory(prefix="campaign-") as tmp:
        shipped, best, script = search_mission(args.shortcut_search, args.maps, name, SHORT_SECONDS,
                                               SHORT_RUNS, tmp, ["--quiet"])
    if shipped is None:
        return ["the shortcut search did not run: " + script.strip()]
    print("short search: shipped %d credits left, best found %d" % (shipped, best))
    if best - shipped > MARGIN:
        return ["a route leaves %d credits more than its solution (run campaign.py search %s)" %
                (best - shipped, name)]
    return []


def read_shortcuts(path):
    """The search's last record: mission -> (shipped, best)."""
    found = {}
    if os.path.isfile(path):
        for line in open(path):
            words = line.split("#", 1)[0].split()
            if len(words) == 3:
                found[words[0]] = (int(words[1]), int(words[2]))
    return found


def search(args):
    import concurrent.futures
    names = args.names or mission_maps(args.maps)
    jobs = args.jobs or os.cpu_count() or 1
    results, faults = {}, []
    with tempfile.TemporaryDirectory(prefix="campaign-") as tmp:
        with concurrent.futures.ThreadPoolExecutor(max_workers=jobs) as pool:
            work = {name: pool.submit(search_mission, args.shortcut_search, args.maps, name,
                                      args.seconds, args.runs, tmp) for name in names}
            for name in names:
                shipped, best, script = work[name].result()
                if shipped is None:
                    faults.append("%s: the search did not run: %s" % (name, script.strip()))
                    continue
                results[name] = (shipped, best)
                print("%s: shipped %d credits left, best found %d (%+d)" % (name, shipped, best, best - shipped))
                if best > shipped:
                    print("  " + script.strip().replace("\n", "\n  "))
                if args.fail_above is not None and best - shipped > args.fail_above:
                    faults.append("%s: a route leaves %d credits more than its solution" % (name, best - shipped))
    if args.record:
        kept = read_shortcuts(args.record)
        kept.update(results)
        with open(args.record, "w") as f:
            f.write("# mission, credits its solution leaves, most the shortcut search found;\n"
                    "# written by tools/campaign.py search --record\n")
            for name in sorted(kept):
                f.write("%s %d %d\n" % (name, kept[name][0], kept[name][1]))
    for line in faults:
        print(line)
    return 1 if faults else 0


def stale_shortcuts(rows, found):
    """Missions whose solution no longer leaves what the search started from."""
    out = []
    for r in rows:
        if r["won"] and (r["name"] not in found or found[r["name"]][0] != r["left"]):
            out.append("%s: the shortcut search has no record of its solution as it is; run\n"
                       "  python3 tools/campaign.py search --shortcut-search build/tools/shortcut_search "
                       "--record levels/SHORTCUTS.tsv %s" % (r["name"], r["name"]))
    return out


def shoot_level(levelshot, lev, work, name):
    """The whole level, stitched from 640 x 480 shots of the game's own view."""
    from PIL import Image
    level_w = int(open(lev).read().splitlines()[6])
    level_h = int(open(lev).read().splitlines()[7])
    width, height = 32 * level_w, 32 * level_h
    whole = Image.new("RGB", (width, height))
    # a camera at (cx, cy) puts world point (x, y) at picture (x - cx, 480 + cy + y);
    # world y runs from -32 (the top of row 0)
    for top in range(0, height, 480):
        for left in range(0, width, 640):
            png = os.path.join(work, "%s-%d-%d.png" % (name, left, top))
            subprocess.run([levelshot, "--level", lev, "--full", "--out", png,
                            "--cam", str(left), str(-480 - (top - 32))],
                           check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            whole.paste(Image.open(png).convert("RGB"), (left, top))
            os.remove(png)
    return whole


def sheet(args):
    from PIL import Image, ImageDraw, ImageFont
    names = mission_maps(args.maps)
    # each 32-pixel cell drawn 8 pixels wide; a mission larger than 44 x 32
    # cells is drawn smaller to fit its box
    cell, columns = 8, 5
    box_w, box_h, label = 44 * cell + 12, 32 * cell + 28, 16
    rows = (len(names) + columns - 1) // columns
    out = Image.new("RGB", (columns * box_w, max(1, rows) * box_h), (24, 26, 32))
    draw = ImageDraw.Draw(out)
    font = ImageFont.load_default()
    work = args.work or tempfile.mkdtemp(prefix="campaign-sheet-")
    os.makedirs(work, exist_ok=True)
    for i, name in enumerate(names):
        level = levelmaps.parse_map(map_path(args.maps, name))
        lev = os.path.join(work, name + ".LEV")
        with open(lev, "w") as f:
            f.write(levelmaps.level_text(level))
        whole = shoot_level(args.levelshot, lev, work, name)
        scale = min(cell, (box_w - 12) / level["width"], (box_h - 28) / level["height"])
        thumb = whole.resize((int(level["width"] * scale), int(level["height"] * scale)), Image.LANCZOS)
        x0, y0 = (i % columns) * box_w + 6, (i // columns) * box_h + 4
        draw.text((x0, y0), "%s  %s  (%d x %d, %d credits)" % (
            name, level["title"], level["width"], level["height"], level["credits"]),
            fill=(230, 230, 240), font=font)
        out.paste(thumb, (x0, y0 + label))
        print("%s: %s" % (name, level["title"]))
    out.save(args.out)
    print("wrote %s (%d missions)" % (args.out, len(names)))
    return 0


def main(argv):
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--maps", default=MAPS)
    sub = ap.add_subparsers(dest="command", required=True)
    p = sub.add_parser("prove")
    p.add_argument("name")
    p.add_argument("--levelcheck", required=True)
    p.add_argument("--datafile", required=True)
    p.add_argument("--strict", action="store_true")
    p.add_argument("--shortcut-search")
    p = sub.add_parser("naive")
    p.add_argument("map")
    p.add_argument("--ticks", type=int, default=TICK_LIMIT)
    p = sub.add_parser("table")
    p.add_argument("--levelcheck", required=True)
    p.add_argument("--out")
    p.add_argument("--check")
    p.add_argument("--shortcuts", default=SHORTCUTS)
    p = sub.add_parser("sheet")
    p.add_argument("--levelshot", required=True)
    p.add_argument("--out", required=True)
    p.add_argument("--work")
    p = sub.add_parser("search")
    p.add_argument("names", nargs="*")
    p.add_argument("--shortcut-search", required=True)
    p.add_argument("--seconds", type=float, default=60)
    p.add_argument("--runs", type=int, default=0)
    p.add_argument("--jobs", type=int, default=0)
    p.add_argument("--record")
    p.add_argument("--fail-above", type=int)
    args = ap.parse_args(argv)
    try:
        if args.command == "prove":
            return prove(args)
        if args.command == "naive":
            sys.stdout.write(naive_script(levelmaps.parse_map(args.map), args.ticks))
            return 0
        if args.command == "table":
            return table(args)
        if args.command == "search":
            return search(args)
        return sheet(args)
    except levelmaps.MapError as e:
        print("campaign: %s" % e, file=sys.stderr)
        return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
