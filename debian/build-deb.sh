#!/usr/bin/env bash
# Builds the Debian package from a clean copy of the sources, so the working
# tree and its build folders stay as they are, and checks it with lintian.
#   build-deb.sh <output folder>
# The package and lintian's report (lintian.txt) end up in the output folder.
set -eu
SOURCE=$(cd "$(dirname "$0")/.." && pwd)
OUT=$(mkdir -p "$1" && cd "$1" && pwd)
WORK=$OUT/work
rm -rf "$WORK" "$OUT"/delvemoor_*
mkdir -p "$WORK/delvemoor"
# The tracked files when this is a git checkout (a build folder, or anything
# else lying in the tree, is no part of the package's source).
if git -C "$SOURCE" rev-parse --is-inside-work-tree > /dev/null 2>&1; then
    git -C "$SOURCE" ls-files -z --cached --others --exclude-standard |
        (cd "$SOURCE" && xargs -0 cp --parents -t "$WORK/delvemoor" 2>/dev/null || true)
else
    tar -C "$SOURCE" --exclude='./build*' -cf - . | tar -C "$WORK/delvemoor" -xf -
fi
cd "$WORK/delvemoor"
DEB_BUILD_OPTIONS="nocheck parallel=$(nproc)" dpkg-buildpackage -us -uc -b > "$OUT/dpkg-buildpackage.log" 2>&1 || {
    tail -n 40 "$OUT/dpkg-buildpackage.log"
    exit 1
}
mv "$WORK"/delvemoor_* "$WORK"/delvemoor-dbgsym_* "$OUT"/ 2>/dev/null || true
DEB=$(ls "$OUT"/delvemoor_*.deb)
lintian --info --display-info "$OUT"/delvemoor_*.changes > "$OUT/lintian.txt" 2>&1 || true
cat "$OUT/lintian.txt"
echo "Built $DEB"
rm -rf "$WORK"
