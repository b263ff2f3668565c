#!/usr/bin/env bash
# The game on a 1920 x 1080 screen: the window opens at twice 640 x 480, the
# first mission is won with clicks aimed in the picture's own 640 x 480
# pixels and taken through the window's scale, every picture pixel is a sharp
# 2 x 2 square, and a window the player makes larger shows the picture
# centred on black.
#   e2e_scaled.sh <game dir> <close_window tool> <work dir>
set -u
GAME_DIR=$1
CLOSE_WINDOW=$2
WORK=$3
SOURCE_DIR=${DELVEMOOR_SOURCE_DIR:-$(cd "$(dirname "$0")/.." && pwd)}
PY=/usr/bin/python3
source "$(dirname "$0")/shell_checks.sh"
wait_for_count() {  # wait_for_count <file> <text> <count> <seconds>: the text on that many lines
    local i
    for ((i = 0; i < $4 * 10; i++)); do
        [ "$(grep -cF -- "$2" "$1" 2>/dev/null)" -ge "$3" ] && return 0
        sleep 0.1
    done
    return 1
}

rm -rf "$WORK"
mkdir -p "$WORK/bin" "$WORK/game"
# A fatal message box would wait for a click; the video mode's notice is the
# one box a software renderer shows.
printf '#!/bin/sh\nexit 0\n' > "$WORK/bin/xmessage"
chmod +x "$WORK/bin/xmessage"
export PATH="$WORK/bin:$PATH"
G=$WORK/game
cp -r "$GAME_DIR"/. "$G"/
rm -f "$G/gamelog.txt"
cp "$SOURCE_DIR/assets/gamedir/gameconfig.cfg" "$G/gameconfig.cfg"
cp "$G/gameconfig.cfg" "$WORK/gameconfig.before"

start_x_server "$WORK/display" "$WORK/xvfb.log" 1920x1080
trap 'kill $XVFB 2>/dev/null' EXIT

game_window() {
    xdotool search --name '^Delvemoor$' 2>/dev/null | tail -n 1
}
# The window's size and place, as X=.. Y=.. WIDTH=.. HEIGHT=.. lines.
window_geometry() {
    xdotool getwindowgeometry --shell "$(game_window)" 2>/dev/null
}
# Clicks are aimed in the picture's own 640 x 480 pixels; `player` takes
# them to the window pixel in the middle of each enlarged square (the picture
# is enlarged by the largest whole factor that fits, and centred).
# The window as the player sees it, as a PNG.
window_shot() {  # window_shot <png>
    local X Y WIDTH HEIGHT
    eval "$(window_geometry)"
    xwd -root -silent -display "$DISPLAY" > "$1.xwd" 2>/dev/null || return 1
    "$PY" "$SOURCE_DIR/tests/xwd_png.py" "$1.xwd" "$1" "$X,$Y,$WIDTH,$HEIGHT" > /dev/null
}
# Sharp: inside the picture every 2 x 2 square is one colour; around it the
# window is black. Prints what is wrong, nothing when all is well.
crisp_at_twice() {  # crisp_at_twice <png>
    "$PY" - "$1" <<'PYEOF'
import sys
from PIL import Image
img = Image.open(sys.argv[1]).convert('RGB')
w, h = img.size
scale = min(w // 640, h // 480)
ox, oy = (w - 640 * scale) // 2, (h - 480 * scale) // 2
px = img.load()
colours = set()
for y in range(h):
    for x in range(w):
        inside = ox <= x < ox + 640 * scale and oy <= y < oy + 480 * scale
        if not inside:
            if px[x, y] != (0, 0, 0):
                sys.exit(print(f"border pixel {x},{y} is {px[x, y]}"))
            continue
        sx, sy = ox + (x - ox) // scale * scale, oy + (y - oy) // scale * scale
        if px[x, y] != px[sx, sy]:
            sys.exit(print(f"pixel {x},{y} differs from its square's corner {sx},{sy}"))
        colours.add(px[x, y])
if scale != 2 or len(colours) < 50:
    print(f"scale {scale}, {len(colours)} colours: not the picture at twice its size")
PYEOF
}

(cd "$G" && exec ./Delvemoor > "$WORK/game.out" 2>&1) &
GAME=$!
check "reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
player ready 20
eval "$(window_geometry)"
check "the window opens at 1280 x 960 (got ${WIDTH:-?} x ${HEIGHT:-?})" test "${WIDTH:-0}x${HEIGHT:-0}" = 1280x960
check "the log says why" grep -qF "Window enlarged 2 times for a 1920 x 1080 desktop" "$G/gamelog.txt"

# The campaign's first mission, clicked as in the 640 x 480 window.
source "$SOURCE_DIR/tests/e2e_first_mission.sh"
menu_stars=2
if grep -qF "OpenGL Card: llvmpipe" "$G/gamelog.txt"; then
    player click-to 320 332 20                   # No Thanks
    menu_stars=3
fi
check "the main menu comes" wait_for_count "$G/gamelog.txt" "Starfield loaded" "$menu_stars" 120
player click-to 320 205 20                       # New Game
check "the selection screen comes" wait_for_count "$G/gamelog.txt" "Loading levels..." 2 60
player click-to 190 372 30                       # start: planet 1, its first mission
check "mission 1 loads" wait_for_line "$G/gamelog.txt" "LEVELS/P1M01_LEV" 30
hatch_first_mission
launch_first_mission
window_shot "$WORK/mission-complete.png"
check "the whole picture shows, every pixel a sharp 2 x 2 square" test -z "$(crisp_at_twice "$WORK/mission-complete.png")"
player click-to 320 348 30                       # Continue
check "the mission is won and left" wait_for_line "$G/gamelog.txt" "Exiting level..." 30
wait_for_count "$G/gamelog.txt" "Loading levels..." 3 60
player click 230 216                             # the next mission, opened by the win
player click-to 190 372 30                       # start
check "mission 2 starts" wait_for_line "$G/gamelog.txt" "LEVELS/P1M02_LEV" 30

# The player makes the window larger: the picture stays at twice its size,
# centred on black, and the pointer still finds the pause panel's buttons.
xdotool windowsize "$(game_window)" 1500 1000
for ((i = 0; i < 100; i++)); do eval "$(window_geometry)"; [ "${WIDTH}x${HEIGHT}" = 1500x1000 ] && break; sleep 0.1; done
player ready 20                                  # drawn afresh at the new size
window_shot "$WORK/larger-window.png"
check "a larger window: the picture centred on black, still sharp" test -z "$(crisp_at_twice "$WORK/larger-window.png")"
player key Escape
player ready 10                                  # the pause panel
player click 320 340                             # Exit on the pause panel
check "the pause panel's Exit is found in the larger window" \
    wait_for_count "$G/gamelog.txt" "Loading levels..." 4 60

"$CLOSE_WINDOW" Delvemoor
for ((i = 0; i < 600; i++)); do kill -0 "$GAME" 2>/dev/null || break; sleep 0.1; done
wait "$GAME"
status=$?
check "closing the window ends the game with status 0 (got $status)" test "$status" = 0
check "nothing new in the configuration: sixteen lines, the shipped layout" \
    test "$(sed 's/ = .*//' "$G/gameconfig.cfg")" = "$(sed 's/ = .*//' "$WORK/gameconfig.before")"
check "no OpenGL error" bash -c "! grep -q 'ERROR: GL_' '$G/gamelog.txt'"
check "no sanitizer report" bash -c "! grep -q Sanitizer '$WORK/game.out'"

# Full screen asked for: where the X server cannot give it, the window the
# game falls back to is the enlarged one.
sed 's/^SCREENMODE = .*/SCREENMODE = FULLSCREEN/' "$WORK/gameconfig.before" > "$G/gameconfig.cfg"
rm -f "$G/gamelog.txt"
(cd "$G" && exec ./Delvemoor > "$WORK/fullscreen.out" 2>&1) &
GAME=$!
check "full screen asked: reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
WIDTH=0 HEIGHT=0
eval "$(window_geometry)"
"$CLOSE_WINDOW" Delvemoor
for ((i = 0; i < 600; i++)); do kill -0 "$GAME" 2>/dev/null || break; sleep 0.1; done
wait "$GAME"
if grep -qx "SCREENMODE = WINDOWED" "$G/gameconfig.cfg"; then
    check "full screen refused: the window it fell back to is 1280 x 960 (got $WIDTH x $HEIGHT)" \
        test "${WIDTH}x${HEIGHT}" = 1280x960
fi
check "full screen asked: no sanitizer report" bash -c "! grep -q Sanitizer '$WORK/fullscreen.out'"

finish "the enlarged window plays like the small one"
