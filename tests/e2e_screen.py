#!/usr/bin/env python3
"""What the game's window shows, for the end-to-end scripts to wait on
instead of sleeping for a fixed time.

usage: e2e_screen.py mean
       e2e_screen.py settle <most seconds> <mean before the click>
       e2e_screen.py changed <most seconds> <mean before the click>

`mean` prints the window's mean brightness (0 to 255). `settle` waits until
the picture has changed from the brightness measured before a click (a fade
or a new screen) and has then held still for a second and a half; it gives up after the
most seconds. `changed` waits only for the change and a second more, for
screens that never hold still (a level, with its glowing cells). The display is
$DISPLAY; the window is the one named Delvemoor, or the whole screen.
"""
import subprocess
import sys
import time

from PIL import Image, ImageStat


def window_origin():
    try:
        wid = subprocess.run(["xdotool", "search", "--name", "^Delvemoor$"], capture_output=True,
                             text=True, timeout=10).stdout.split()
        if not wid:
            return 0, 0
        shell = subprocess.run(["xdotool", "getwindowgeometry", "--shell", wid[0]], capture_output=True,
                               text=True, timeout=10).stdout
        values = dict(line.split("=", 1) for line in shell.split() if "=" in line)
        return int(values.get("X", 0)), int(values.get("Y", 0))
    except (subprocess.SubprocessError, ValueError):
        return 0, 0


def grab(origin):
    """The window's 640 x 480 picture, or None when the server gives none."""
    try:
        data = subprocess.run(["xwd", "-root", "-silent"], capture_output=True, timeout=20).stdout
    except subprocess.SubprocessError:
        return None
    if len(data) < 100:
        return None
    header = [int.from_bytes(data[i:i + 4], "big") for i in range(0, 100, 4)]
    header_size, width, height = header[0], header[4], header[5]
    bits_per_pixel, bytes_per_line, ncolors = header[11], header[12], header[19]
    start = header_size + ncolors * 12
    pixels = data[start:start + bytes_per_line * height]
    if len(pixels) < bytes_per_line * height:
        return None
    mode, raw = ("RGB", "BGR") if bits_per_pixel == 24 else ("RGBX", "BGRX")
    image = Image.frombuffer(mode, (width, height), pixels, "raw", raw, bytes_per_line, 1)
    x, y = origin
    return image.convert("L").crop((x, y, x + 640, y + 480))


def mean(origin, box=None):
    """The mean brightness of the window, or of a box (left, top, right,
    bottom) of it."""
    picture = grab(origin)
    if picture and box:
        picture = picture.crop(box)
    return ImageStat.Stat(picture).mean[0] if picture else -1.0


def settle(most, before, still=True, box=None):
    origin = window_origin()
    start = time.monotonic()
    changed = None  # when the picture first differed from before the click
    steady = []  # (time, brightness) since the picture last moved
    while time.monotonic() - start < most:
        now = mean(origin, box)
        if now < 0:
            time.sleep(0.2)
            continue
        # A fade's dark frames count as a change; a new screen must not be black.
        # A screen as bright as the last one may show no change at all: after
        # a few seconds it only has to hold still.
        if changed is None and (abs(now - before) > 3 and (still or now > 4) or
                                (still and time.monotonic() - start > 4)):
            changed = time.monotonic()
        if changed is not None and not still and time.monotonic() - changed >= 1.0:
            print("  (the screen changed after %.1f s of at most %g)" % (changed - start, most))
            return 0
        if changed is not None and still:
            if steady and abs(now - steady[0][1]) > 1.5:
                steady = []
            steady.append((time.monotonic(), now))
            if now > 4 and steady[-1][0] - steady[0][0] >= 1.5 and len(steady) >= 4:
                print("  (the screen settled after %.1f s of at most %g)" % (time.monotonic() - start, most))
                return 0
        time.sleep(0.2)
    print("  (the screen did not settle within %g s)" % most)
    return 0


def main():
    if len(sys.argv) == 2 and sys.argv[1] == "mean":
        print("%.2f" % mean(window_origin()))
        return 0
    if len(sys.argv) == 4 and sys.argv[1] in ("settle", "changed"):
        return settle(float(sys.argv[2]), float(sys.argv[3]), sys.argv[1] == "settle")
    sys.exit(__doc__)


if __name__ == "__main__":
    sys.exit(main())
