#!/usr/bin/python3
"""Delvemoor asset generator.

Writes every picture, sound, tune, font sheet and campaign level of the game
as a folder tree that mirrors DATA/DATA.DAT, then packs the tree with
Allegro's `dat` utility. Each datafile folder has its own module, so a folder's
art can be reworked without touching the others.

    gen_assets.py --out TREE [--dat DATA.DAT] [--contact DIR]
                  [--manifest assets/manifest.tsv] [--update-manifest]
                  [--levels levels/]

The build (cmake/datafile.cmake) runs it with --dat. After changing the art,
refresh the manifest with:  gen_assets.py --out /tmp/delvemoor-assets --update-manifest

The same sources give the same bytes: no time stamps, fixed seeds.
"""
import argparse
import os
import shutil
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
sys.dont_write_bytecode = True

import common  # noqa: E402

REPO = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# Folder modules in the order their objects are listed in the manifest.
MODULES = ["mouse", "intro", "terrain", "sprites", "pod", "rockets", "planets",
           "buildings", "gui", "greenman", "explosions", "stars", "font",
           "sound", "music", "levels"]

MANIFEST_HEADER = (
    "# Every object of DATA/DATA.DAT, written by tools/gen_assets (do not edit by hand;\n"
    "# run tools/gen_assets/gen_assets.py --update-manifest after changing the art).\n"
    "# path\tkind\twidth\theight\talpha\trole\n"
    "# Pictures: width and height in pixels; alpha is clear (has see-through\n"
    "# pixels), solid (opaque) or soft (translucent all over). Sounds: width is\n"
    "# the length in samples, height the sample rate. Levels: by name only.\n")


def manifest_text(reg):
    lines = [MANIFEST_HEADER]
    for e in reg.entries:
        lines.append("%s\t%s\t%d\t%d\t%s\t%s\n" % (e["path"], e["kind"], e["w"], e["h"],
                                                   e["alpha"], e["role"]))
    return "".join(lines)


def top_folders(out_dir):
    return sorted(d for d in os.listdir(out_dir) if os.path.isdir(os.path.join(out_dir, d)))


def build_datafile(out_dir, dat_path, dat_tool):
    """Packs the tree. -t DATA stores every file as raw bytes, which the game's
    load_tga / load_jpg / load_wav / pack_fopen read through '#' paths; -s1 drops
    the grabber's date and file-name properties, so the bytes never change; -n1
    sorts each nested datafile by name, so DATA00 comes first in every folder."""
    tmp = dat_path + ".tmp"
    if os.path.exists(tmp):
        os.remove(tmp)
    cmd = [dat_tool, "-a", "-r", "-t", "DATA", "-s1", "-n1", "-c0", os.path.abspath(tmp)]
    cmd += top_folders(out_dir)
    res = subprocess.run(cmd, cwd=out_dir, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                         text=True)
    if res.returncode != 0 or not os.path.exists(tmp):
        sys.stderr.write(res.stdout)
        raise SystemExit("gen_assets: dat failed")
    listing = subprocess.run([dat_tool, "-l", os.path.abspath(tmp)], stdout=subprocess.PIPE,
                             stderr=subprocess.STDOUT, text=True).stdout
    return tmp, listing


def check_listing(reg, listing):
    import re
    present = set()
    for line in listing.splitlines():
        m = re.match(r"^- DATA - (\S+)", line)
        if m:
            present.add(m.group(1))
    missing = [e["path"] for e in reg.entries if e["path"] not in present]
    extra = present - set(e["path"] for e in reg.entries)
    if missing or extra:
        raise SystemExit("gen_assets: datafile does not match the generated tree: "
                         "missing %s extra %s" % (missing[:5], sorted(extra)[:5]))


def main():
    ap = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    ap.add_argument("--out", required=True, help="folder tree to write (emptied first)")
    ap.add_argument("--dat", help="datafile to build from the tree")
    ap.add_argument("--dat-tool", default=shutil.which("dat") or "/usr/bin/dat")
    ap.add_argument("--contact", help="folder for contact sheets")
    ap.add_argument("--manifest", default=os.path.join(REPO, "assets", "manifest.tsv"),
                    help="the manifest to check against (default: the repository's)")
    ap.add_argument("--update-manifest", action="store_true",
                    help="rewrite --manifest instead of checking it")
    ap.add_argument("--levels", default=os.path.join(REPO, "levels"),
                    help="the levels folder, whose maps/ holds the sixty campaign maps (P1M01.map ...)")
    ap.add_argument("--only", help="comma-separated modules (for working on one folder)")
    ap.add_argument("--times", action="store_true", help="print the time of each module")
    args = ap.parse_args()

    start = time.time()
    marker = os.path.join(args.out, ".gen_assets_tree")
    if os.path.isdir(args.out) and os.listdir(args.out):
        # Only ever wipe a folder this tool made, never one given by mistake.
        if not os.path.exists(marker):
            raise SystemExit("gen_assets: %s exists and was not made by gen_assets; "
                             "give an empty or new folder" % args.out)
        shutil.rmtree(args.out)
    os.makedirs(args.out, exist_ok=True)
    open(marker, "w").close()
    reg = common.Registry(args.out)
    reg.levels_dir = args.levels
    names = args.only.split(",") if args.only else MODULES
    for name in names:
        t0 = time.time()
        module = __import__(name)
        module.generate(reg)
        if args.times:
            print("  %-10s %6.2f s" % (name, time.time() - t0))

    text = manifest_text(reg)
    if args.manifest and not args.only:
        if args.update_manifest:
            with open(args.manifest, "w", newline="\n") as f:
                f.write(text)
        else:
            old = open(args.manifest).read() if os.path.exists(args.manifest) else ""
            if old != text:
                with open(os.path.join(args.out, "manifest.generated.tsv"), "w") as f:
                    f.write(text)
                import difflib
                diff = list(difflib.unified_diff(old.splitlines(), text.splitlines(),
                                                 "assets/manifest.tsv", "generated", lineterm=""))
                sys.stderr.write("\n".join(diff[:40]) + "\n")
                raise SystemExit("gen_assets: %s is out of date; if the change is intended run "
                                 "/usr/bin/python3 tools/gen_assets/gen_assets.py "
                                 "--out /tmp/delvemoor-assets --update-manifest" % args.manifest)

    if args.contact:
        import contact
        contact.write_sheets(reg, args.contact)
        contact.write_sound_sheets(reg, args.contact)
        if getattr(reg, "font_preview", None):
            import font
            font.preview(reg.font_preview, os.path.join(args.contact, "FONT_preview.png"))

    if args.dat:
        tmp, listing = build_datafile(args.out, args.dat, args.dat_tool)
        if not args.only:
            check_listing(reg, listing)
        os.replace(tmp, args.dat)
        size = os.path.getsize(args.dat)
        print("gen_assets: %d objects, %s %.1f MB, %.1f s" % (
            len(reg.entries), args.dat, size / 1e6, time.time() - start))


if __name__ == "__main__":
    main()
