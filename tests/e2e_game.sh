#!/usr/bin/env bash
# End-to-end runs of the real game executable in a real X server (Xvfb), each
# from a scratch copy of the game directory.
#   e2e_game.sh <game dir> <close_window tool> <work dir>
set -u
GAME_DIR=$1
CLOSE_WINDOW=$2
WORK=$3
SOURCE_DIR=${DELVEMOOR_SOURCE_DIR:-$(cd "$(dirname "$0")/.." && pwd)}
SHIPPED_CONFIG=$SOURCE_DIR/assets/gamedir/gameconfig.cfg
PY=/usr/bin/python3
failures=0

rm -rf "$WORK"
mkdir -p "$WORK/bin"

# A fatal message box would wait for a click: this stand-in for xmessage
# records the message and returns at once.
cat > "$WORK/bin/xmessage" <<'STUB'
#!/bin/sh
printf '%s\n' "$*" >> "$XMESSAGE_LOG"
exit 0
STUB
chmod +x "$WORK/bin/xmessage"
export PATH="$WORK/bin:$PATH"

check() {  # check <description> <command...>
    local what=$1; shift
    if "$@"; then echo "ok   - $what"; else echo "FAIL - $what"; failures=$((failures + 1)); fi
}

fresh_copy() {  # fresh_copy <dir>
    rm -rf "$1"
    mkdir -p "$1"
    cp -r "$GAME_DIR"/. "$1"/
    rm -f "$1/gamelog.txt"
    cp "$SHIPPED_CONFIG" "$1/gameconfig.cfg"
}

wait_for_line() {  # wait_for_line <file> <text> <seconds>
    local i
    for ((i = 0; i < $3 * 10; i++)); do
        grep -qF -- "$2" "$1" 2>/dev/null && return 0
        sleep 0.1
    done
    return 1
}

wait_for_exit() {  # wait_for_exit <pid> <seconds>; sets exit_status (runs in this shell: only it can wait)
    local i
    for ((i = 0; i < $2 * 10; i++)); do
        if ! kill -0 "$1" 2>/dev/null; then
            wait "$1"
            exit_status=$?
            return 0
        fi
        sleep 0.1
    done
    kill -9 "$1" 2>/dev/null
    wait "$1" 2>/dev/null
    exit_status=timeout
}

# The screenshot as PNG and the number of distinct colours in it.
screenshot() {  # screenshot <png>
    xwd -root -silent -display "$DISPLAY" > "$1.xwd" 2>/dev/null || { echo 0; return; }
    local origin=0,0 wid
    wid=$(xdotool search --name '^Delvemoor$' 2>/dev/null | head -n 1)
    if [ -n "$wid" ]; then
        origin=$(xdotool getwindowgeometry --shell "$wid" | awk -F= '/^X=/{x=$2} /^Y=/{y=$2} END{print x "," y}')
    fi
    "$PY" - "$1.xwd" "$1" "$origin" <<'PYEOF'
import struct, sys
from PIL import Image
data = open(sys.argv[1], 'rb').read()
header_size, _, _, depth, width, height = struct.unpack('>6I', data[:24])
bits_per_pixel = struct.unpack('>I', data[44:48])[0]
bytes_per_line = struct.unpack('>I', data[48:52])[0]
ncolors = struct.unpack('>I', data[76:80])[0]
start = header_size + ncolors * 12
pixels = data[start:start + bytes_per_line * height]
if bits_per_pixel == 24:
    img = Image.frombuffer('RGB', (width, height), pixels, 'raw', 'BGR', bytes_per_line, 1)
else:
    img = Image.frombuffer('RGBX', (width, height), pixels, 'raw', 'BGRX', bytes_per_line, 1)
x, y = (int(v) for v in sys.argv[3].split(',')) if len(sys.argv) > 3 else (0, 0)
img = img.convert('RGB').crop((x, y, x + 640, y + 480))
img.save(sys.argv[2])
print(len(img.getcolors(1 << 20) or []))
PYEOF
}

# ---------------------------------------------------------------------------
# The X server
exec 3>"$WORK/display"
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp > "$WORK/xvfb.log" 2>&1 &
XVFB=$!
for ((i = 0; i < 100; i++)); do [ -s "$WORK/display" ] && break; sleep 0.1; done
export DISPLAY=:$(cat "$WORK/display")
trap 'kill $XVFB 2>/dev/null' EXIT
echo "Xvfb on $DISPLAY"

# ---------------------------------------------------------------------------
# 1. A normal run: load screen, a picture on screen, closing the window.
G=$WORK/normal
fresh_copy "$G"
export XMESSAGE_LOG=$WORK/normal-xmessage.log
(cd "$G" && exec ./Delvemoor > "$WORK/normal.out" 2>&1) &
GAME=$!
check "reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
sleep 3
colours=$(screenshot "$WORK/first-screen.png")
check "the first screen is not blank ($colours colours)" test "$colours" -gt 8
if grep -qF "OpenGL Card: llvmpipe" "$G/gamelog.txt"; then
    # Mesa's software renderer: the game opens on the slow-driver warning;
    # "No Thanks" goes on to the intro and the main menu.
    xdotool search --name '^Delvemoor$' > "$WORK/window-id" 2>/dev/null
    WID=$(head -n 1 "$WORK/window-id")
    if [ -n "$WID" ]; then
        # A player's click lasts a while; the game samples the button once a frame.
        xdotool mousemove --window "$WID" 320 332 mousedown 1
        sleep 0.5
        xdotool mouseup 1
        sleep 6
        colours=$(screenshot "$WORK/after-no-thanks.png")
        check "after No Thanks the screen is not blank ($colours colours)" test "$colours" -gt 8
    fi
fi
check "close_window finds the window" "$CLOSE_WINDOW" Delvemoor
wait_for_exit "$GAME" 120
check "closing the window ends the game with status 0 (got $exit_status)" test "$exit_status" = 0
check "the log ends with its trailer" test "$(tail -c 17 "$G/gamelog.txt")" = ":: End Of LogFile"
check "the log has no OpenGL error" bash -c "! grep -q 'ERROR: GL_' '$G/gamelog.txt'"
check "the configuration has sixteen lines" test "$(awk 'END { print NR }' "$G/gameconfig.cfg")" = 16
check "the configuration is still readable" grep -qx "SCREENMODE = WINDOWED" "$G/gameconfig.cfg"

# ---------------------------------------------------------------------------
# 2. Fatal starts: the game's own log line and message, status 255, no crash.
fatal_case() {  # fatal_case <name> <log line> <message> <env...>; the copy is $WORK/<name>
    local name=$1 logText=$2 message=$3; shift 3
    local dir=$WORK/$name
    export XMESSAGE_LOG=$WORK/$name-xmessage.log
    (cd "$dir" && exec env "$@" ./Delvemoor > "$WORK/$name.out" 2>&1)
    local status=$?
    check "$name: exit status 255 (got $status)" test "$status" = 255
    check "$name: log line '$logText'" grep -qF -- "$logText" "$dir/gamelog.txt"
    check "$name: message '$message'" grep -qF -- "$message" "$WORK/$name.out" "$XMESSAGE_LOG"
    check "$name: no sanitizer report" bash -c "! grep -q 'Sanitizer' '$WORK/$name.out'"
}

# Without an X display the library itself cannot start: nothing can be
# logged yet, so the reason goes to the terminal.
fresh_copy "$WORK/nodisplay"
(cd "$WORK/nodisplay" && exec env -u DISPLAY ./Delvemoor > "$WORK/nodisplay.out" 2>&1)
status=$?
check "nodisplay: exit status 255 (got $status)" test "$status" = 255
check "nodisplay: says it needs an X display" grep -qF "The game needs an X display" "$WORK/nodisplay.out"
check "nodisplay: no sanitizer report" bash -c "! grep -q 'Sanitizer' '$WORK/nodisplay.out'"

fresh_copy "$WORK/badconfig"
sed -i 's/^SCREENMODE = WINDOWED$/SCREENMODE = Windowed/' "$WORK/badconfig/gameconfig.cfg"
fatal_case badconfig "# ERROR! # Config file corrupted. Please reinstall." "Config file corrupted. Please reinstall."

fresh_copy "$WORK/badnumber"
sed -i 's/^SCROLLSPEED = .*/SCROLLSPEED = fast/' "$WORK/badnumber/gameconfig.cfg"
fatal_case badnumber "# ERROR! # Config file corrupted. Please reinstall." "Config file corrupted. Please reinstall."

fresh_copy "$WORK/noconfig"
rm "$WORK/noconfig/gameconfig.cfg"
fatal_case noconfig "# ERROR! # Cannot load gameconfig.cfg!" "Cannot load gameconfig.cfg!"

fresh_copy "$WORK/nodata"
rm "$WORK/nodata/DATA/DATA.DAT"
fatal_case nodata "# ERROR! # Cannot load FONT data" "Cannot load data"

if [ -x /usr/bin/dat ]; then
    fresh_copy "$WORK/nostars"
    # A datafile without the last star picture: the loss shows at the very end of the load.
    dat -d "$WORK/nostars/DATA/DATA.DAT" SPRITES2/STARS/DATA02_TGA > /dev/null 2>&1
    if dat -l "$WORK/nostars/DATA/DATA.DAT" 2>/dev/null | grep -q DATA02_TGA; then :; fi
    fatal_case nostars "# ERROR! # Cannot load STAR data" "Cannot load data"
fi

echo
if [ "$failures" -gt 0 ]; then
    echo "$failures check(s) failed"
    exit 1
fi
echo "all end-to-end checks passed"
