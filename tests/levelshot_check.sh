#!/usr/bin/env bash
# levelshot_check.sh <levelshot> <work dir>: renders pictures through the
# game's level view and checks that each is a whole, varied picture.
set -u
LEVELSHOT=$1
WORK=$2
rm -rf "$WORK"
mkdir -p "$WORK"
failures=0
shot() {  # shot <name> <levelshot options...>
    local name=$1; shift
    if ! "$LEVELSHOT" --out "$WORK/$name.png" "$@" > "$WORK/$name.log" 2>&1; then
        echo "FAIL - levelshot $name: $(tail -n 3 "$WORK/$name.log")"
        failures=$((failures + 1))
        return
    fi
    # Enough colours (terrain, sprites, backdrop), and no large blank or
    # pure-white area (a missing texture draws as a white square).
    if /usr/bin/python3 - "$WORK/$name.png" <<'PYEOF'
import sys
from PIL import Image
img = Image.open(sys.argv[1]).convert('RGB')
assert img.size == (640, 480), img.size
colours = img.getcolors(1 << 20) or []
most = max(count for count, _ in colours)
white = sum(count for count, c in colours if c == (255, 255, 255))
print(f"{len(colours)} colours, largest single colour {most} px, pure white {white} px")
sys.exit(0 if len(colours) > 500 and most < 640 * 480 // 4 and white < 32 * 32 else 1)
PYEOF
    then echo "ok   - $name"; else echo "FAIL - $name"; failures=$((failures + 1)); fi
}
shot sample --full
shot campaign --campaign P1M01 --hud
for planet in 2 3 4; do shot "water-planet$planet" --full --planet "$planet"; done
[ "$failures" -eq 0 ] || { echo "$failures picture(s) failed"; exit 1; }
