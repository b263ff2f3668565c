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
source "$SOURCE_DIR/tests/shell_checks.sh"

rm -rf "$WORK"
mkdir -p "$WORK/bin"

# A fatal message box would wait for a click: this stand-in for xmessage
# records the message, one box a line, and returns at once (as the first
# button would).
cat > "$WORK/bin/xmessage" <<'STUB'
#!/bin/sh
printf '%s' "$*" | tr '\n' ' ' >> "$XMESSAGE_LOG"
echo >> "$XMESSAGE_LOG"
exit 0
STUB
# The desktop's opener: records what it was asked to open, from which folder
# and with which descriptors open (listed with its output moved for good, so
# the list holds only what it was given).
cat > "$WORK/bin/xdg-open" <<'STUB'
#!/bin/sh
exec > "$XDG_OPEN_LOG.fds"
ls -l /proc/$$/fd/
exec > "$XDG_OPEN_LOG"
for a in "$@"; do printf 'arg %s\n' "$a"; done
printf 'cwd %s\n' "$(pwd)"
exit 0
STUB
chmod +x "$WORK/bin/xmessage" "$WORK/bin/xdg-open"
export PATH="$WORK/bin:$PATH"
export XDG_OPEN_LOG=$WORK/xdg-open.log


fresh_copy() {  # fresh_copy <dir>
    rm -rf "$1"
    mkdir -p "$1"
    cp -r "$GAME_DIR"/. "$1"/
    rm -f "$1/gamelog.txt"
    cp "$SHIPPED_CONFIG" "$1/gameconfig.cfg"
}


# The boxes a player saw, one a line; the video mode's notice is the one box
# a software renderer shows on every start, and the sound's the one a machine
# without a sound device shows.
VIDEO_BOX="Failed to set requested Video Mode. Trying alternatives..."
SOUND_BOX="Could not initialize sound devices."
boxes_other_than_video() {  # boxes_other_than_video <xmessage log>
    grep -vF -e "$VIDEO_BOX" -e "$SOUND_BOX" "$1" 2>/dev/null
}
errors_logged_twice() {  # errors_logged_twice <gamelog>
    grep '^# ERROR! #' "$1" | sort | uniq -d
}
video_boxes_fit_log() {  # video_boxes_fit_log <xmessage log> <gamelog>: one box exactly when the mode failed
    local want=0 got
    grep -qF "Failed to set requested Video Mode" "$2" && want=1
    got=$(grep -cF -- "$VIDEO_BOX" "$1" 2>/dev/null)
    test "${got:-0}" = "$want"
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
    player shot "$1"
}

# ---------------------------------------------------------------------------
# The X server
start_x_server "$WORK/display" "$WORK/xvfb.log" 1024x768
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
player ready 20
colours=$(screenshot "$WORK/first-screen.png")
check "the first screen is not blank ($colours colours)" test "${colours:-0}" -gt 8
if grep -qF "OpenGL Card: llvmpipe" "$G/gamelog.txt"; then
    # Mesa's software renderer: the game opens on the slow-driver warning;
    # "No Thanks" goes on to the intro and the main menu.
    player click-to 320 332 20
    colours=$(screenshot "$WORK/after-no-thanks.png")
    check "after No Thanks the screen is not blank ($colours colours)" test "${colours:-0}" -gt 8
fi
check "close_window finds the window" "$CLOSE_WINDOW" Delvemoor
wait_for_exit "$GAME" 120
check "closing the window ends the game with status 0 (got $exit_status)" test "$exit_status" = 0
check "the log ends with its trailer" test "$(tail -c 17 "$G/gamelog.txt")" = ":: End Of LogFile"
check "the log has no OpenGL error" bash -c "! grep -q 'ERROR: GL_' '$G/gamelog.txt'"
check "the configuration has sixteen lines" test "$(awk 'END { print NR }' "$G/gameconfig.cfg")" = 16
check "the configuration is still readable" grep -qx "SCREENMODE = WINDOWED" "$G/gameconfig.cfg"
check "the video mode's box shows once, when the mode failed" video_boxes_fit_log "$XMESSAGE_LOG" "$G/gamelog.txt"
check "no other box was shown" test -z "$(boxes_other_than_video "$XMESSAGE_LOG")"
check "no error line is logged twice" test -z "$(errors_logged_twice "$G/gamelog.txt")"

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
    check "$name: exactly its own box" test "$(boxes_other_than_video "$XMESSAGE_LOG" | grep -cF -- "$message")" = 1 -a \
        "$(boxes_other_than_video "$XMESSAGE_LOG" | wc -l)" = 1
    check "$name: the video mode's box only if the mode failed" video_boxes_fit_log "$XMESSAGE_LOG" "$dir/gamelog.txt"
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

# ---------------------------------------------------------------------------
# 3. Suspend and signals: a stopped game draws again at once, and a logout,
# kill or Ctrl+C ends it like the close box (configuration written, trailer,
# status 0).
# A script's background job starts with SIGINT ignored, which the game
# honours; the player's terminal does not, so the default is put back first.
launch() {  # launch <name> [folder to start in]: runs $WORK/<name>/Delvemoor in the background as $GAME
    G=$WORK/$1
    export XMESSAGE_LOG=$WORK/$1-xmessage.log
    (cd "${2:-$G}" && exec "$PY" -c 'import os, signal, sys; signal.signal(signal.SIGINT, signal.SIG_DFL); os.execv(sys.argv[1], sys.argv[1:])' "$G/Delvemoor" > "$WORK/$1.out" 2>&1) &
    GAME=$!
}
ended_normally() {  # ended_normally <name> <signal number>
    wait_for_exit "$GAME" 60
    check "$1: status 0 (got $exit_status)" test "$exit_status" = 0
    check "$1: the signal is logged" grep -qF "Asked to end by signal $2" "$G/gamelog.txt"
    check "$1: the configuration is written" grep -qF "Successfully wrote gameconfig.cfg" "$G/gamelog.txt"
    check "$1: the log ends with its trailer" test "$(tail -c 17 "$G/gamelog.txt")" = ":: End Of LogFile"
}
# Standard input, output and error, and its own script: nothing else.
opener_holds_only_its_own() {
    grep -q " 0 -> " "$XDG_OPEN_LOG.fds" &&
        test -z "$(awk -v bin="$WORK/bin/" '/ -> / && $(NF-2) > 2 && index($NF, bin) != 1' "$XDG_OPEN_LOG.fds")"
}
SOFTWARE=0
grep -qF "OpenGL Card: llvmpipe" "$WORK/normal/gamelog.txt" && SOFTWARE=1

fresh_copy "$WORK/suspend"
launch suspend
check "suspend: reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
# The slow-driver warning holds still; the menu's stars move.
player ready 20
[ "$SOFTWARE" = 1 ] && player click-to 320 332 20
# Stopped for longer than the three seconds of ticks one frame may play.
kill -STOP "$GAME"
sleep 4.5
kill -CONT "$GAME"
check "suspend: the pause's ticks are skipped, not played" wait_for_line "$G/gamelog.txt" "Skipped" 30
screenshot "$WORK/suspend-1.png" > /dev/null
sleep 0.3
screenshot "$WORK/suspend-2.png" > /dev/null
check "suspend: the game draws again within a second" bash -c "! cmp -s '$WORK/suspend-1.png' '$WORK/suspend-2.png'"
kill -INT "$GAME"
ended_normally "SIGINT" 2

# The level line's extra words go when the game writes the file back. Full
# screen is asked for, which Xvfb cannot give: the game ends up in a window,
# says why once, and stores the mode it got.
fresh_copy "$WORK/sigterm"
sed -i -e 's/^GAME_LEVEL = \(.*\)/GAME_LEVEL = \1 (edited)/' -e 's/^SCREENMODE = .*/SCREENMODE = FULLSCREEN/' \
    "$WORK/sigterm/gameconfig.cfg"
launch sigterm
check "sigterm: reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
kill -TERM "$GAME"
ended_normally "SIGTERM" 15
check "SIGTERM: the configuration is the game's own again" bash -c "! grep -q edited '$G/gameconfig.cfg'"
if grep -qF "Failed to set requested Video Mode" "$G/gamelog.txt"; then
    check "full screen refused: the window's mode is stored" grep -qx "SCREENMODE = WINDOWED" "$G/gameconfig.cfg"
fi
check "full screen: no error line is logged twice" test -z "$(errors_logged_twice "$G/gamelog.txt")"
check "full screen: the video mode's box once, when the mode failed" video_boxes_fit_log "$XMESSAGE_LOG" "$G/gamelog.txt"

# A hang-up while the data is still loading ends the game once the loop starts.
fresh_copy "$WORK/sighup"
launch sighup
check "sighup: starts loading" wait_for_line "$G/gamelog.txt" "Loading game data..." 120
kill -HUP "$GAME"
ended_normally "SIGHUP" 1

# "View Manual" in Help: the manual opens as the game ends normally.
fresh_copy "$WORK/manual"
rm -f "$XDG_OPEN_LOG" "$XDG_OPEN_LOG.fds"
launch manual
check "manual: reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
player ready 20
[ "$SOFTWARE" = 1 ] && player click-to 320 332 20
player click-to 320 277 20   # Help
player click 320 296         # View Manual
wait_for_exit "$GAME" 60
check "manual: the game ends with status 0 (got $exit_status)" test "$exit_status" = 0
check "manual: the log ends with its trailer" test "$(tail -c 17 "$G/gamelog.txt")" = ":: End Of LogFile"
check "manual: the game's own manual is opened" grep -qxF "arg $G/manual.html" "$XDG_OPEN_LOG"
check "manual: nothing of the game is open in the opener" opener_holds_only_its_own

# ---------------------------------------------------------------------------
# 4. "Update Drivers", with the game started from another folder: the game
# ends with status 1 and no shut-down, the driver tool finds the game
# directory from its own path, shows its advice in a box and opens the
# manual's page about drivers with nothing of the game's left open.
if [ "$SOFTWARE" = 1 ]; then
    fresh_copy "$WORK/drivers"
    rm -f "$XDG_OPEN_LOG" "$XDG_OPEN_LOG.fds"
    launch drivers "$WORK"
    check "drivers: reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
    player ready 20
    player click 320 296
    wait_for_exit "$GAME" 60
    check "drivers: the game ends with status 1 (got $exit_status)" test "$exit_status" = 1
    check "drivers: no shut-down ran" bash -c "! grep -qF 'End Of LogFile' '$G/gamelog.txt'"
    check "drivers: the manual's drivers page opens" wait_for_line "$XDG_OPEN_LOG" "arg file://$G/manual.html#drivers" 30
    check "drivers: the advice reaches a box" grep -qF "software renderer" "$XMESSAGE_LOG"
    # Firmware is where Debian 12 keeps it; a video-decoding driver does
    # nothing for OpenGL.
    check "drivers: the firmware's section is named" grep -qF "non-free-firmware" "$XMESSAGE_LOG"
    check "drivers: no video-decoding driver is offered" bash -c "! grep -q 'va-driver' '$XMESSAGE_LOG'"
    check "drivers: nothing of the game is open in the opener" opener_holds_only_its_own
fi

# ---------------------------------------------------------------------------
# 5. The campaign as a player clicks it: the main menu, New Game, mission 1
# won with the mouse, "Continue", mission 2 in the list and started; then the
# exit screen, once through the maker's page and once through Exit Game.
lines_in() {  # lines_in <file> <text>: how many lines hold the text
    grep -cF -- "$2" "$1" 2>/dev/null
}
to_main_menu() {  # from the start of a run to the main menu
    check "$1: reaches Load Screen Done" wait_for_line "$G/gamelog.txt" "Load Screen Done" 240
    player ready 20
    [ "$SOFTWARE" = 1 ] && player click-to 320 332 20   # No Thanks
}
fresh_copy "$WORK/campaign"
rm -f "$XDG_OPEN_LOG"
launch campaign
to_main_menu campaign
screenshot "$WORK/campaign-1-main-menu.png" > /dev/null
player click-to 320 205 20                       # New Game
check "campaign: the selection screen reads the levels afresh" test "$(lines_in "$G/gamelog.txt" "Loading levels...")" = 2
screenshot "$WORK/campaign-2-selection.png" > /dev/null
player click-to 190 372 30                       # start: planet 1, its first mission
check "campaign: mission 1 loads" wait_for_line "$G/gamelog.txt" "LEVELS/P1M01_LEV" 30
# Its winning run with the mouse (the window is the picture here).
source "$SOURCE_DIR/tests/e2e_first_mission.sh"
hatch_first_mission
screenshot "$WORK/campaign-3-mission-1.png" > /dev/null
launch_first_mission
screenshot "$WORK/campaign-4-mission-complete.png" > /dev/null
player click-to 320 348 30                       # Continue
check "campaign: the level is left for the selection screen" wait_for_line "$G/gamelog.txt" "Exiting level..." 30
screenshot "$WORK/campaign-5-mission-2-unlocked.png" > /dev/null
player click 230 216                             # the next mission
player click-to 190 372 30                       # start
check "campaign: the win opened mission 2, which starts" wait_for_line "$G/gamelog.txt" "LEVELS/P1M02_LEV" 30
player key Escape
player ready 10                                  # the pause panel
player click-to 320 340 20                       # Exit on the pause panel
player click-to 190 425 20                       # Return To Menu
player click-to 320 421 20                       # Exit Game
screenshot "$WORK/campaign-6-exit-screen.png" > /dev/null
player click 160 462                             # Visit about.html
wait_for_exit "$GAME" 60
check "campaign: the game ends with status 0 (got $exit_status)" test "$exit_status" = 0
check "campaign: the configuration is written" grep -qF "Successfully wrote gameconfig.cfg" "$G/gamelog.txt"
check "campaign: the maker's page in the game directory opens" grep -qxF "arg $G/about.html" "$XDG_OPEN_LOG"
check "campaign: no sanitizer report" bash -c "! grep -q 'Sanitizer' '$WORK/campaign.out'"

fresh_copy "$WORK/exitgame"
rm -f "$XDG_OPEN_LOG"
launch exitgame
to_main_menu exitgame
player click-to 320 421 20                       # Exit Game
player click 480 462                             # the exit screen's Exit Game
wait_for_exit "$GAME" 60
check "exitgame: the game ends with status 0 (got $exit_status)" test "$exit_status" = 0
check "exitgame: the log ends with its trailer" test "$(tail -c 17 "$G/gamelog.txt")" = ":: End Of LogFile"
check "exitgame: nothing is opened" test ! -e "$XDG_OPEN_LOG"

echo
if [ "$failures" -gt 0 ]; then
    echo "$failures check(s) failed"
    exit 1
fi
echo "all end-to-end checks passed"
