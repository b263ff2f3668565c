#!/usr/bin/env bash
# The game laid out for a system, as a package would install it: every file
# where the install manifest says, the menu entries, the description for
# software centres and the icon valid, and the command leading to the game.
#   install_layout.sh <build dir> <stage dir>
set -u
BUILD=$1
STAGE=$2
source "$(dirname "$0")/shell_checks.sh"

if [ -d "$STAGE" ]; then chmod -R u+w "$STAGE"; rm -rf "$STAGE"; fi
PREFIX=$(sed -n 's/^CMAKE_INSTALL_PREFIX:PATH=//p' "$BUILD/CMakeCache.txt")
DESTDIR=$STAGE cmake --install "$BUILD" > "$STAGE.log" 2>&1
check "cmake --install succeeds" test $? = 0
ROOT=$STAGE$PREFIX
# The manifest names the files as the system will see them, without DESTDIR.
MANIFEST=$STAGE.manifest
awk -v stage="$STAGE" '{ print stage $0 }' "$BUILD/install_manifest.txt" > "$MANIFEST"

missing=$(while read -r f; do [ -e "$f" ] || [ -L "$f" ] || echo "$f"; done < "$MANIFEST")
check "every file of the manifest is installed${missing:+: $missing}" test -z "$missing"
stray=$(find "$STAGE" ! -type d | sort | comm -23 - <(sort "$MANIFEST"))
check "nothing is installed beside the manifest${stray:+: $stray}" test -z "$stray"

expected="games/delvemoor lib/games/delvemoor/Delvemoor lib/games/delvemoor/GfxDriverTool
lib/games/delvemoor/DATA/DATA.DAT lib/games/delvemoor/gameconfig.cfg lib/games/delvemoor/manual.html
lib/games/delvemoor/about.html lib/games/delvemoor/installed-for-system.txt
lib/games/delvemoor/custom/crossing.level lib/games/delvemoor/custom/crossing.solution
share/applications/delvemoor.desktop share/applications/delvemoor-manual.desktop
share/metainfo/io.github.delvemoor.Delvemoor.metainfo.xml share/man/man6/delvemoor.6"
for size in 16 22 24 32 48 64 128 256; do
    expected="$expected share/icons/hicolor/${size}x${size}/apps/delvemoor.png"
done
for f in $expected; do
    check "$f is in the manifest" grep -qxF "$ROOT/$f" "$MANIFEST"
done

check "the command leads to the game" test "$(readlink -f "$ROOT/games/delvemoor")" = "$(readlink -f "$ROOT/lib/games/delvemoor/Delvemoor")"
check "the command is a relative link, valid wherever the tree is unpacked" \
    test "$(readlink "$ROOT/games/delvemoor")" = ../lib/games/delvemoor/Delvemoor
check "the game entry starts the installed command" grep -qxF "Exec=$PREFIX/games/delvemoor" "$ROOT/share/applications/delvemoor.desktop"
check "the manual entry opens the installed manual" \
    grep -qxF "Exec=xdg-open $PREFIX/lib/games/delvemoor/manual.html" "$ROOT/share/applications/delvemoor-manual.desktop"
for entry in "$ROOT"/share/applications/*.desktop; do
    check "desktop-file-validate $(basename "$entry")" desktop-file-validate "$entry"
done
check "appstreamcli validate" appstreamcli validate --no-net "$ROOT/share/metainfo/io.github.delvemoor.Delvemoor.metainfo.xml"
check "the manual page reads without warnings" test -z "$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -l "$ROOT/share/man/man6/delvemoor.6" 2>&1 >/dev/null)"
sizes=$(/usr/bin/python3 - "$ROOT/share/icons/hicolor" <<'PY'
import glob, os, sys
from PIL import Image
for path in sorted(glob.glob(os.path.join(sys.argv[1], "*", "apps", "delvemoor.png"))):
    folder = path.split(os.sep)[-3]
    img = Image.open(path)
    if "%dx%d" % img.size != folder or img.mode != "RGBA" or img.getextrema()[3][1] == 0:
        print(folder)
PY
)
check "every icon is the size its folder names, and not blank${sizes:+: $sizes}" test -z "$sizes"

finish "the installed layout is complete"
