#!/bin/sh
# levelcheck_strict.sh <levelcheck> <sim_data dir> <work dir>
LEVELCHECK=$1
DATA=$2
WORK=$3
failures=0
rm -rf "$WORK" && mkdir -p "$WORK"

expect() {  # expect <description> <wanted status> <wanted text or ""> <levelcheck args...>
    what=$1 want=$2 text=$3
    shift 3
    "$LEVELCHECK" "$@" > "$WORK/out" 2>&1
    got=$?
    if [ "$got" != "$want" ]; then
        echo "FAIL - $what: status $got, wanted $want"; cat "$WORK/out"; failures=$((failures + 1))
    elif [ -n "$text" ] && ! grep -qF -- "$text" "$WORK/out"; then
        echo "FAIL - $what: no line '$text'"; cat "$WORK/out"; failures=$((failures + 1))
    else
        echo "ok   - $what"
    fi
}

# The header is 17 lines and the level 14 x 12: 83 of its 168 cells survive
# the cut, and the rocket's column is lost with the rest. By the rules that
# level is won at once, which is why the checker speaks up.
head -n 100 "$DATA/lift.level" > "$WORK/cut.level"
expect "a sound level passes --strict" 0 "lift.level: won after" \
    "$DATA/lift.level" "$DATA/lift.solution" --strict
expect "a cut level is run, with a warning" 0 \
    "cut.level: warning: the file holds 83 of its 14 x 12 = 168 cells" \
    "$WORK/cut.level" "$DATA/lift.solution"
expect "the cut level's lost rocket is named" 0 "cut.level: warning: no rockets" \
    "$WORK/cut.level" "$DATA/lift.solution"
expect "--strict refuses the cut level" 2 "cut.level: error: the file holds 83" \
    "$WORK/cut.level" "$DATA/lift.solution" --strict
if grep -q ": won after\|: lost after\|: not finished" "$WORK/out"; then
    echo "FAIL - --strict still ran the cut level"; failures=$((failures + 1))
fi
exit $failures
