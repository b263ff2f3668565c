#!/usr/bin/python3
"""The level editor end to end, as a player reaches it: the real game in a
real X server (Xvfb), driven by mouse and keys through xdotool.

    e2e_editor.py <game dir> <work dir>

Main menu -> Editor -> a new level with a typed title -> a pod, a rocket and
ground painted -> a test play, left again -> saved -> main menu -> New Game
-> custom mode: the level is listed and starts. Screenshots of every stage
are kept in the work dir.
"""
import os
import shutil
import signal
import subprocess
import sys
import time

from PIL import ImageGrab

import e2e_screen

GAME_DIR, WORK = sys.argv[1], sys.argv[2]
SOURCE_DIR = os.environ.get("DELVEMOOR_SOURCE_DIR",
                            os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TITLE = "Proof Of Concept"
LEVEL_FILE = "proof-of-concept.level"
failures = 0


def check(what, ok):
    global failures
    print(("ok   - " if ok else "FAIL - ") + what, flush=True)
    if not ok:
        failures += 1


def wait_for(predicate, seconds):
    end = time.time() + seconds
    while time.time() < end:
        if predicate():
            return True
        time.sleep(0.1)
    return predicate()


def log_has(text):
    try:
        with open(os.path.join(GAME, "gamelog.txt"), errors="replace") as f:
            return text in f.read()
    except OSError:
        return False


def xdo(*args):
    return subprocess.run(["xdotool", *args], capture_output=True, text=True).stdout.strip()


def click(x, y, button=1):
    """A player's click at (x, y) of the 640 x 480 window (y down), held long
    enough for the game, which samples the mouse once a frame, to see it even
    when a loaded machine draws only a few frames a second."""
    xdo("mousemove", "--window", window, str(x), str(y))
    time.sleep(0.2)
    xdo("mousedown", str(button))
    time.sleep(0.8)
    xdo("mouseup", str(button))
    time.sleep(0.5)


def drag(points):
    x, y = points[0]
    xdo("mousemove", "--window", window, str(x), str(y))
    time.sleep(0.2)
    xdo("mousedown", "1")
    for x, y in points:  # a cell a slow frame: the editor paints what is under the pointer
        xdo("mousemove", "--window", window, str(x), str(y))
        time.sleep(0.8)
    xdo("mouseup", "1")
    time.sleep(0.5)


def click_settle(x, y, most, still=True, box=None):
    """A click, then a wait for the screen it leads to: for the picture to
    change and hold still (or only to change, for a level that never holds
    still), however slowly a loaded machine draws it."""
    before = e2e_screen.mean(origin, box)
    click(x, y)
    e2e_screen.settle(most, before, still, box)


def key(name, held=0.3):
    xdo("keydown", name)
    time.sleep(held)
    xdo("keyup", name)
    time.sleep(0.3)


def shot(name):
    """The game window as a PNG; returns how many colours it shows."""
    time.sleep(0.5)
    picture = ImageGrab.grab(xdisplay=display).crop((origin[0], origin[1], origin[0] + 640, origin[1] + 480))
    picture.save(os.path.join(WORK, name + ".png"))
    return len(picture.getcolors(1 << 20) or [])


# The editor's cells with the view where a new level opens it (camera 200,
# -550): cell (x, y) has its centre at window (32x - 184, 32y - 86).
def cell(x, y):
    return 32 * x - 184, 32 * y - 86


shutil.rmtree(WORK, ignore_errors=True)
os.makedirs(os.path.join(WORK, "bin"))
# A fatal message box would wait for a click; this stand-in records it.
stub = os.path.join(WORK, "bin", "xmessage")
with open(stub, "w") as f:
    f.write('#!/bin/sh\nprintf "%s\\n" "$*" >> "$XMESSAGE_LOG"\nexit 0\n')
os.chmod(stub, 0o755)
os.environ["PATH"] = os.path.join(WORK, "bin") + ":" + os.environ["PATH"]
os.environ["XMESSAGE_LOG"] = os.path.join(WORK, "xmessage.log")

GAME = os.path.join(WORK, "game")
shutil.copytree(GAME_DIR, GAME, symlinks=True)
shutil.rmtree(os.path.join(GAME, "custom"), ignore_errors=True)
if os.path.exists(os.path.join(GAME, "gamelog.txt")):
    os.remove(os.path.join(GAME, "gamelog.txt"))
shutil.copy(os.path.join(SOURCE_DIR, "assets", "gamedir", "gameconfig.cfg"), GAME)

read_end, write_end = os.pipe()
xvfb = subprocess.Popen(["Xvfb", "-displayfd", str(write_end), "-screen", "0", "1024x768x24", "-nolisten", "tcp"],
                        pass_fds=(write_end,), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
os.close(write_end)
display = ":" + os.read(read_end, 16).decode().strip()
os.environ["DISPLAY"] = display
game = None
try:
    with open(os.path.join(WORK, "game.out"), "w") as out:
        game = subprocess.Popen(["./Delvemoor"], cwd=GAME, stdout=out, stderr=subprocess.STDOUT)
    check("the game reaches Load Screen Done", wait_for(lambda: log_has("Load Screen Done"), 240))
    time.sleep(3)
    window = xdo("search", "--name", "^Delvemoor$").split("\n")[0]
    geometry = dict(line.split("=") for line in xdo("getwindowgeometry", "--shell", window).split("\n") if "=" in line)
    origin = (int(geometry.get("X", 0)), int(geometry.get("Y", 0)))
    if log_has("OpenGL Card: llvmpipe"):
        click_settle(320, 332, 20)               # "No Thanks" on the slow-driver warning

    click_settle(320, 241, 20)                   # "Editor"
    colours = shot("1-editor")
    check("the editor opens on a level (%d colours)" % colours, colours > 100)

    click(570, 463)                             # the editor's "Menu"
    click(320, 204)                             # "New Level"
    colours = shot("2-new-level")
    check("the new-level panel is on show (%d colours)" % colours, colours > 20)
    xdo("type", "--delay", "150", TITLE)
    time.sleep(0.5)
    shot("3-title-typed")
    key("Return")

    click(36, 48)                               # dirt: a ledge of ground
    drag([cell(x, 8) for x in range(16, 21)])
    click(225, 48)                              # a pod on the ground
    click(*cell(10, 9))
    click(288, 48)                              # a rocket beside it
    click(*cell(13, 9))
    time.sleep(0.5)
    shot("4-painted")

    # "Test Play": the level looks the same, the toolbar above it does not.
    click_settle(320, 463, 20, still=False, box=(0, 0, 640, 90))
    shot("4a-test-play")
    click(552, 463)                             # the game's "Menu": the pause panel
    click_settle(320, 340, 20)                   # "Exit": back to the editor
    check("the test play was left for the editor", log_has("Exiting level..."))
    shot("4b-back-in-editor")

    click(570, 463)                             # "Menu"
    before = e2e_screen.mean(origin)
    click(320, 272)                             # "Save Level"
    saved = os.path.join(GAME, "custom", LEVEL_FILE)
    check("the level is saved as custom/" + LEVEL_FILE, wait_for(lambda: log_has("Saved level: "), 20))
    e2e_screen.settle(20, before)               # the panel closes
    shot("5-saved")
    if os.path.isfile(saved):
        with open(saved) as f:
            lines = f.read().split("\n")
        check("its first line is the typed title", lines[0] == TITLE)
        width, height = int(lines[6]), int(lines[7])
        cells = [int(v) for v in lines[17:17 + width * height]]
        check("it holds one pod and one rocket", cells.count(12) == 1 and cells.count(13) == 1)
        check("the painted ledge is ground", all(cells[x * height + 8] in (1, 2) for x in range(16, 21)))
    check("the saved file is where the log says", log_has("Saved level: " + saved))

    before = e2e_screen.mean(origin)
    key("Escape", held=1.0)                     # back to the main menu
    e2e_screen.settle(20, before)
    shot("6-main-menu")
    click_settle(320, 205, 20)                   # "New Game"
    click_settle(190, 319, 4)                   # "Custom Game": the list alone changes
    colours = shot("7-custom-list")
    check("the custom list is on show (%d colours)" % colours, colours > 100)
    click(190, 372)                             # the start button
    check("the saved level is the one that loads",
          wait_for(lambda: log_has("Successfully loaded level: " + saved), 20))
    e2e_screen.settle(4, -1000)
    colours = shot("8-playing")
    check("the level plays (%d colours)" % colours, colours > 100)
finally:
    if game and game.poll() is None:
        game.send_signal(signal.SIGTERM)
        try:
            game.wait(30)
        except subprocess.TimeoutExpired:
            game.kill()
            game.wait()
    xvfb.terminate()
    xvfb.wait()

with open(os.path.join(WORK, "game.out"), errors="replace") as f:
    check("no sanitizer report", "Sanitizer" not in f.read())
print("%d failure(s)" % failures)
sys.exit(1 if failures else 0)
