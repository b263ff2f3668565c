#!/usr/bin/env bash
# The first mission played in the real window with the real mouse, as a new
# player would: past the driver warning, "New Game", the start button, the
# hatcher from the toolbar onto the pod, "Hatch Pods", "Launch" once the
# bubbleman is aboard, and "Continue" on the mission-complete panel. The
# campaign must then open mission 2.
#   e2e_play.sh <game dir> <work dir>
set -u
GAME_DIR=$1
WORK=$2
SOURCE_DIR=${DELVEMOOR_SOURCE_DIR:-$(cd "$(dirname "$0")/.." && pwd)}
MAP=$SOURCE_DIR/levels/maps/P1M01.map
SOLUTION=$SOURCE_DIR/levels/maps/P1M01.solution
failures=0

ok() { echo "ok   - $1"; }
bad() { echo "FAIL - $1"; failures=$((failures + 1)); }
expect() { local what=$1; shift; if "$@"; then ok "$what"; else bad "$what"; fi; }

rm -rf "$WORK"
mkdir -p "$WORK/bin" "$WORK/game"
printf '#!/bin/sh\nprintf "%%s\\n" "$*" >> "%s/boxes.log"\n' "$WORK" > "$WORK/bin/xmessage"
chmod +x "$WORK/bin/xmessage"
export PATH="$WORK/bin:$PATH"
cp -r "$GAME_DIR"/. "$WORK/game"/
cp "$SOURCE_DIR/assets/gamedir/gameconfig.cfg" "$WORK/game/"
rm -f "$WORK/game/gamelog.txt"
LOG=$WORK/game/gamelog.txt

exec 4>"$WORK/display"
Xvfb -displayfd 4 -screen 0 1024x768x24 -nolisten tcp > "$WORK/xvfb.log" 2>&1 &
XVFB=$!
trap 'kill "$XVFB" 2>/dev/null; [ -n "${GAME:-}" ] && kill -9 "$GAME" 2>/dev/null' EXIT
for ((i = 0; i < 100; i++)); do [ -s "$WORK/display" ] && break; sleep 0.1; done
export DISPLAY=:$(cat "$WORK/display")

logged() {  # logged <text> <seconds>
    for ((i = 0; i < $2 * 10; i++)); do grep -qF -- "$1" "$LOG" 2>/dev/null && return 0; sleep 0.1; done
    return 1
}
press() {  # press <x> <y>: in window pixels, held for a few frames like a hand's click
    local wid
    wid=$(xdotool search --name '^Delvemoor$' 2>/dev/null | head -n 1)
    [ -n "$wid" ] || return 1
    xdotool mousemove --window "$wid" "$1" "$2" mousedown 1
    sleep 0.3
    xdotool mouseup 1
    sleep 0.3
}

shoot() {  # shoot <name>: the window as $WORK/<name>.png, to look at after a run
    local wid origin
    wid=$(xdotool search --name '^Delvemoor$' 2>/dev/null | head -n 1)
    [ -n "$wid" ] || return 0
    origin=$(xdotool getwindowgeometry --shell "$wid" | awk -F= '/^X=/{x=$2} /^Y=/{y=$2} END{print x, y}')
    xwd -root -silent > "$WORK/$1.xwd" 2>/dev/null || return 0
    /usr/bin/python3 - "$WORK/$1.xwd" "$WORK/$1.png" $origin <<'PYEOF'
import struct, sys
from PIL import Image
data = open(sys.argv[1], 'rb').read()
header, _, _, _, width, height = struct.unpack('>6I', data[:24])
bpp, stride = struct.unpack('>2I', data[44:52])
start = header + struct.unpack('>I', data[76:80])[0] * 12
mode = ('RGB', 'BGR') if bpp == 24 else ('RGBX', 'BGRX')
img = Image.frombuffer(mode[0], (width, height), data[start:start + stride * height], 'raw', mode[1], stride, 1)
x, y = int(sys.argv[3]), int(sys.argv[4])
img.convert('RGB').crop((x, y, x + 640, y + 480)).save(sys.argv[2])
PYEOF
    rm -f "$WORK/$1.xwd"
}

# Where the pod's cell lies in the window: the view a level opens with
# (200, -550) kept inside the level as the camera keeps it.
read -r POD_X POD_Y < <(/usr/bin/python3 - "$MAP" "$SOLUTION" <<'PYEOF'
import sys
rows = open(sys.argv[1]).read().split("map:\n", 1)[1].splitlines()
width, height = len(rows[0]), len(rows)
cx, cy = next((int(w[2]), int(w[3])) for w in (l.split() for l in open(sys.argv[2]))
              if len(w) == 4 and w[1] == "hatcher")
cam_x = min(max(200.0, 0.0), 32 * width - 640)
cam_y = max(min(-550.0, -400.0), -32 * height + 10)
sx = 32 * cx + 16 + int(-cam_x)
sy = int(-cam_y) - (32 * cy - 16)
print(sx, 480 - sy)
PYEOF
)

(cd "$WORK/game" && exec ./Delvemoor > "$WORK/game.out" 2>&1) &
GAME=$!
expect "the game loads" logged "Load Screen Done" 240
sleep 2
# A software renderer is warned about first; "No Thanks" goes on.
grep -qF "OpenGL Card: llvmpipe" "$LOG" && press 320 332 && sleep 2
press 320 205                       # "New Game"
sleep 3
press 190 372                       # the start button: mission 1
expect "the level is entered" logged "Entering Level..." 20
sleep 4
press 225 48                        # the hatcher's toolbar button
press "$POD_X" "$POD_Y"             # over the pod
press 311 463                       # "Hatch Pods"
shoot hatched
sleep 22                            # the walk to the rocket and the panel sliding in
shoot aboard
press 502 410                       # "Launch"
sleep 16                            # the rocket's climb out of the level
shoot complete
press 320 346                       # "Continue" on the mission-complete panel
expect "Continue leaves the level" logged "Exiting level..." 20
sleep 3
shoot selection
press 230 216                       # the next-mission arrow: open now
press 190 372                       # and the start button
expect "the won mission opens mission 2" logged "LEVELS/P1M02_LEV" 20
sleep 3
kill -TERM "$GAME"
for ((i = 0; i < 600; i++)); do kill -0 "$GAME" 2>/dev/null || break; sleep 0.1; done
expect "the game ends" bash -c "! kill -0 $GAME 2>/dev/null"
expect "no message box but the video mode's" \
    bash -c "! grep -v 'Video Mode' '$WORK/boxes.log' 2>/dev/null | grep -q ."

if [ "$failures" -gt 0 ]; then
    echo "$failures check(s) failed; the log:"
    tail -20 "$LOG"
    exit 1
fi
echo "mission 1 played to the end"
