#!/usr/bin/env bash
# The installed game as a player meets it: started by its command from
# another folder, with a home of its own and a game folder nobody may write.
# A setting changed in Options must land in the player's XDG folders, the
# log beside it, and nothing at all in the game folder.
#   e2e_install.sh <stage dir> <close_window tool> <work dir>
set -u
STAGE=$(cd "$1" && pwd)
CLOSE_WINDOW=$2
WORK=$(realpath -m "$3")
PY=/usr/bin/python3
source "$(dirname "$0")/shell_checks.sh"

LAUNCHER=$(find "$STAGE" -path '*/games/delvemoor' -type l | head -n 1)
[ -n "$LAUNCHER" ] || { echo "FAIL - no installed command under $STAGE"; exit 1; }
GAME_FOLDER=$(dirname "$(readlink -f "$LAUNCHER")")

rm -rf "$WORK"
mkdir -p "$WORK/bin" "$WORK/home" "$WORK/elsewhere"
cat > "$WORK/bin/xmessage" <<'STUB'
#!/bin/sh
printf '%s\n' "$*" >> "$XMESSAGE_LOG"
STUB
printf '#!/bin/sh\nexit 0\n' > "$WORK/bin/xdg-open"
chmod +x "$WORK/bin/xmessage" "$WORK/bin/xdg-open"
export PATH="$WORK/bin:$PATH" XMESSAGE_LOG=$WORK/xmessage.log
export HOME=$WORK/home
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_STATE_HOME
CONFIG=$HOME/.config/delvemoor/gameconfig.cfg
LOG=$HOME/.local/state/delvemoor/gamelog.txt
CUSTOM=$HOME/.local/share/delvemoor/custom

# A level of the player's own, as the editor saves it, on planet 1 where no
# example lies: Custom Game must offer it from the player's folder.
MINE=$CUSTOM/my-crossing.level
mkdir -p "$CUSTOM"
sed -e '1s/.*/My Own Crossing/' -e '2s/.*/1/' "$GAME_FOLDER/custom/crossing.level" > "$MINE"

chmod -R a-w "$GAME_FOLDER"
trap 'chmod -R u+w "$GAME_FOLDER"' EXIT
find "$GAME_FOLDER" -printf '%p %s %T@\n' | sort > "$WORK/game-folder-before"

start_x_server "$WORK/display" "$WORK/xvfb.log" 1024x768
trap 'kill $XVFB 2>/dev/null; chmod -R u+w "$GAME_FOLDER"' EXIT

(cd "$WORK/elsewhere" && exec "$LAUNCHER" > "$WORK/game.out" 2>&1) &
GAME=$!
check "the log is in the player's state folder" wait_for_line "$LOG" "Load Screen Done" 240
player ready 20
grep -qF "OpenGL Card: llvmpipe" "$LOG" && player click-to 320 332 20   # No Thanks
player click-to 320 313 20    # Options
player click 264 280          # the second step of Scroll Speed
player shot "$WORK/options.png" > /dev/null
player click-to 320 420 20    # Return To Menu
player click-to 320 205 20    # New Game
player click-to 190 319 20    # Custom Game
player click 190 372          # start the first level of planet 1
check "Custom Game starts the player's own level" wait_for_line "$LOG" "Successfully loaded level: $MINE" 30
# Desktops group the window by its class and show its icon in the task list.
window_props=$(for w in $(xdotool search --name '^Delvemoor$' 2>/dev/null); do xprop -id "$w" WM_CLASS _NET_WM_ICON; done)
check "the window's class is the game's" grep -qF 'WM_CLASS(STRING) = "delvemoor", "Delvemoor"' <<< "$window_props"
check "the window carries the game's icon" grep -qF "Icon (48 x 48)" <<< "$window_props"
check "close_window finds the window" "$CLOSE_WINDOW" Delvemoor
for ((i = 0; i < 600; i++)); do kill -0 "$GAME" 2>/dev/null || break; sleep 0.1; done
kill -9 "$GAME" 2>/dev/null
wait "$GAME"
status=$?
check "the game ends with status 0 (got $status)" test "$status" = 0
check "the log ends with its trailer" test "$(tail -c 17 "$LOG")" = ":: End Of LogFile"
check "the log names the folders" grep -qxF "Settings: $CONFIG" "$LOG"
check "the changed setting is in the player's configuration" grep -qx "SCROLLSPEED = 2" "$CONFIG"
# The video mode's notice shows on a software renderer, the sound's on a
# machine without a sound device: no other box (each box's record starts
# with the stand-in's first argument).
check "no message box was shown but the video mode's and the sound's" \
    test -z "$(grep '^-buttons' "$XMESSAGE_LOG" 2>/dev/null |
        grep -vF -e 'Failed to set requested Video Mode' -e 'Could not initialize sound devices.')"
chmod -R u+w "$GAME_FOLDER"
find "$GAME_FOLDER" -printf '%p %s %T@\n' | sort > "$WORK/game-folder-after"
check "nothing in the game folder was written" cmp -s "$WORK/game-folder-before" "$WORK/game-folder-after"
check "no sanitizer report" bash -c "! grep -q Sanitizer '$WORK/game.out'"

finish "the installed game keeps the player's files in the player's folders"
