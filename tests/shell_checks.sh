# Shared by the shell tests: one line per check, a count of the failures.
failures=0
check() {  # check <description> <command...>
    local what=$1; shift
    if "$@"; then echo "ok   - $what"; else echo "FAIL - $what"; failures=$((failures + 1)); fi
}
wait_for_line() {  # wait_for_line <file> <text> <seconds>
    local i
    for ((i = 0; i < $3 * 10; i++)); do
        grep -qF -- "$2" "$1" 2>/dev/null && return 0
        sleep 0.1
    done
    return 1
}
# An X server of the run's own: it picks a free display and writes the number
# into the file. Sets XVFB (the server's process) and DISPLAY.
start_x_server() {  # start_x_server <display file> <log> <width>x<height>
    local i
    Xvfb -displayfd 3 -screen 0 "$3x24" -nolisten tcp 3>"$1" > "$2" 2>&1 &
    XVFB=$!
    for ((i = 0; i < 100; i++)); do [ -s "$1" ] && break; sleep 0.1; done
    export DISPLAY=:$(cat "$1")
}
finish() {  # finish <what passing means>
    echo
    if [ "$failures" -gt 0 ]; then
        echo "$failures check(s) failed"
        exit 1
    fi
    echo "$1"
}
# The player's hands and eyes on the game's window, counted in the frames the
# game shows rather than in seconds (see e2e_window.py for the commands).
player() {  # player <command> [arguments]
    /usr/bin/python3 "$(dirname "${BASH_SOURCE[0]}")/e2e_window.py" "$@"
}
