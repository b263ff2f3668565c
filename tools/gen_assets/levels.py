"""LEVELS: the sixty campaign levels, P1M01 .. P4M15 (objects P1M01_LEV ...).

Each is made from its map, levels/maps/P1M01.map and so on, by
tools/levelmaps.py, the tool a designer uses to look at one mission. A map
that is missing or cannot be read stops the build: the campaign ships
whole or not at all."""
import os
import sys

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
import levelmaps  # noqa: E402


def level_names():
    return ["P%dM%02d" % (p, m) for p in range(1, 5) for m in range(1, 16)]


def generate(reg):
    # The manifest names each level and nothing more: the missions are
    # designed and redesigned in levels/maps while the art stays put, and
    # their own record is levels/CAMPAIGN.md.
    maps = os.path.join(reg.levels_dir, "maps")
    missing = [name for name in level_names() if not os.path.isfile(os.path.join(maps, name + ".map"))]
    if missing:
        raise SystemExit("gen_assets: the campaign has no map for %s (looked in %s)" % (", ".join(missing), maps))
    for name in level_names():
        try:
            level = levelmaps.parse_map(os.path.join(maps, name + ".map"))
        except levelmaps.MapError as e:
            raise SystemExit("gen_assets: %s" % e)
        reg.level(name, levelmaps.level_text(level).encode("ascii"), 0, 0, "campaign level %s" % name)
