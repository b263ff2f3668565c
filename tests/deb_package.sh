#!/usr/bin/env bash
# The Debian package built from the sources as a user would build it, then
# read back: lintian finds no error and no warning that is not explained in
# debian/delvemoor.lintian-overrides, the package holds the game and its menu
# entries, and it asks only for libraries and tools the game runs with.
#   deb_package.sh <source dir> <output dir>
set -u
SOURCE=$1
OUT=$2
source "$(dirname "$0")/shell_checks.sh"

bash "$SOURCE/debian/build-deb.sh" "$OUT" > "$OUT.log" 2>&1
check "dpkg-buildpackage builds the package" test $? = 0
DEB=$(ls "$OUT"/delvemoor_*.deb 2>/dev/null | head -n 1)
[ -n "$DEB" ] || { cat "$OUT.log"; exit 1; }

check "lintian reports no error" test -z "$(grep '^E:' "$OUT/lintian.txt")"
check "lintian reports no warning" test -z "$(grep '^W:' "$OUT/lintian.txt")"
grep -E '^(E|W):' "$OUT/lintian.txt"

contents=$(dpkg-deb -c "$DEB" | awk '{ print $6 }')
for f in ./usr/games/delvemoor ./usr/lib/games/delvemoor/Delvemoor ./usr/lib/games/delvemoor/DATA/DATA.DAT \
         ./usr/lib/games/delvemoor/installed-for-system.txt ./usr/share/applications/delvemoor.desktop \
         ./usr/share/applications/delvemoor-manual.desktop ./usr/share/icons/hicolor/48x48/apps/delvemoor.png \
         ./usr/share/metainfo/io.github.delvemoor.Delvemoor.metainfo.xml ./usr/share/man/man6/delvemoor.6.gz \
         ./usr/share/doc/delvemoor/copyright; do
    check "the package holds $f" grep -qxF "$f" <<< "$contents"
done
depends=$(dpkg-deb -f "$DEB" Depends)
echo "Depends: $depends"
check "it depends on the game's libraries" grep -q "liballeggl4.4" <<< "$depends"
check "it depends on nothing a build needs" test -z "$(tr ',' '\n' <<< "$depends" | grep -E -- '-dev\b|cmake|python|g\+\+|clang')"

finish "the package is built and clean"
