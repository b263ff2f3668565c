#!/usr/bin/env bash
# The X session ending under the real game: the X server killed (a logout),
# the game's client killed by the desktop (xdotool windowkill) and its window
# destroyed outright. Each time the game must end within about a second, with
# status 0, its settings written and its log closed. On a machine without a
# sound device the same runs check that the player is told there is no sound.
#   e2e_xsession.sh <game dir> <close_window tool> <work dir>
set -u
GAME_DIR=$1
CLOSE_WINDOW=$2
WORK=$3
SOURCE_DIR=${DELVEMOOR_SOURCE_DIR:-$(cd "$(dirname "$0")/.." && pwd)}
source "$(dirname "$0")/shell_checks.sh"
# A sanitized build on a shared machine: the game itself needs well under a
# second, the margin is for a busy disk's flush of the configuration.
LIMIT_MS=2000

rm -rf "$WORK"
mkdir -p "$WORK/bin"
# A message box would wait for a click: this stand-in records it instead.
cat > "$WORK/bin/xmessage" <<'STUB'
#!/bin/sh
printf '%s\n' "$*" >> "$XMESSAGE_LOG"
exit 0
STUB
chmod +x "$WORK/bin/xmessage"
export PATH="$WORK/bin:$PATH"

XVFB=
GAME=
cleanup() {
    [ -n "$GAME" ] && kill -9 "$GAME" 2>/dev/null
    [ -n "$XVFB" ] && kill "$XVFB" 2>/dev/null
}
trap cleanup EXIT

# run_case <name> <how the session ends>: the game in a fresh copy of the game
# directory on a fresh X server of its own (the case may kill it).
run_case() {
    local name=$1 ending=$2 dir=$WORK/$1 i
    mkdir -p "$dir"
    cp -r "$GAME_DIR"/. "$dir"/
    rm -f "$dir/gamelog.txt"
    # The game writes its own lines back: the marker goes only if it does.
    sed -e 's/^GAME_LEVEL = \(.*\)/GAME_LEVEL = \1 (edited)/' "$SOURCE_DIR/assets/gamedir/gameconfig.cfg" \
        > "$dir/gameconfig.cfg"
    export XMESSAGE_LOG=$WORK/$name-xmessage.log

    start_x_server "$WORK/$name.display" "$WORK/$name.xvfb.log" 1024x768

    (cd "$dir" && exec ./Delvemoor > "$WORK/$name.out" 2>&1) &
    GAME=$!
    for ((i = 0; i < 2400; i++)); do
        grep -qF "Load Screen Done" "$dir/gamelog.txt" 2>/dev/null && break
        sleep 0.1
    done
    player ready 20   # well into the main loop

    local start=$(date +%s%N)
    case $ending in
        server) kill "$XVFB" ;;
        windowkill) xdotool windowkill "$(xdotool search --onlyvisible --name '^Delvemoor$' | head -n 1)" ;;
        destroy) "$CLOSE_WINDOW" --destroy Delvemoor ;;
    esac
    local status=timeout
    for ((i = 0; i < 200; i++)); do
        if ! kill -0 "$GAME" 2>/dev/null; then
            wait "$GAME"
            status=$?
            break
        fi
        sleep 0.02
    done
    local elapsed=$((($(date +%s%N) - start) / 1000000))
    [ "$status" = timeout ] && { kill -9 "$GAME"; wait "$GAME" 2>/dev/null; }
    GAME=
    kill "$XVFB" 2>/dev/null
    wait "$XVFB" 2>/dev/null
    XVFB=

    check "$name: the game ends with status 0 (got $status)" test "$status" = 0
    check "$name: it ends within ${LIMIT_MS} ms (took $elapsed ms)" test "$status" != timeout -a "$elapsed" -le "$LIMIT_MS"
    check "$name: the settings are written" bash -c "grep -qx 'GAME_LEVEL = 1' '$dir/gameconfig.cfg' && ! grep -q edited '$dir/gameconfig.cfg'"
    check "$name: the log ends with its trailer" test "$(tail -c 17 "$dir/gamelog.txt")" = ":: End Of LogFile"
    check "$name: no X error report" bash -c "! grep -q 'X Error of failed request' '$WORK/$name.out'"
    check "$name: no sanitizer report" bash -c "! grep -q 'Sanitizer' '$WORK/$name.out'"
    # Without a sound device the library's silent driver is no sound at all:
    # the player is told, in the log and in a box.
    if no_sound_device; then
        check "$name: no sound device is logged" grep -qF "# ERROR! # Could not initialize sound devices." "$dir/gamelog.txt"
        check "$name: no sound device is shown" grep -qF "Could not initialize sound devices." "$XMESSAGE_LOG"
    fi
}

no_sound_device() {
    ! compgen -G '/dev/snd/pcmC*' > /dev/null && [ -z "${PULSE_SERVER:-}" ] &&
        [ ! -S "${XDG_RUNTIME_DIR:-/nonexistent}/pulse/native" ]
}

run_case server server
run_case windowkill windowkill
run_case destroy destroy

finish "all X session checks passed"
