#!/usr/bin/env bash
# make clean on a build tree a player has played from: the build's own files
# go, the player's settings and the levels they saved stay.
#   make_clean.sh <source dir> <work dir>
set -u
SOURCE=$1
WORK=$2
rm -rf "$WORK"
B=$WORK/build
mkdir -p "$B/game/DATA" "$B/game/custom" "$B/CMakeFiles"
touch "$B/CMakeCache.txt" "$B/game/Delvemoor" "$B/game/DATA/DATA.DAT" "$B/game/gamelog.txt" "$B/game/manual.html"
echo "SCROLLSPEED = 2" > "$B/game/gameconfig.cfg"
echo "My Level" > "$B/game/custom/my-level.level"
make -s -C "$SOURCE" clean BUILD_DIRS="$B $WORK/never-built" > "$WORK.out" 2>&1 || { cat "$WORK.out"; exit 1; }
left=$(cd "$WORK" && find . | sort | tr '\n' ' ')
want=". ./build ./build/game ./build/game/custom ./build/game/custom/my-level.level ./build/game/gameconfig.cfg "
if [ "$left" != "$want" ]; then
    echo "FAIL - make clean left: $left"
    echo "       expected:        $want"
    exit 1
fi
grep -q "Kept your settings and levels" "$WORK.out" || { echo "FAIL - make clean does not say what it kept"; exit 1; }
echo "ok   - make clean keeps the player's settings and levels and removes the rest"
