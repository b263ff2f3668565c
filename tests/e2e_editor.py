#!/usr/bin/python3
"""The level editor end to end, as a player reaches it: the real game in a
real X server (Xvfb), driven by mouse and keys through the X test extension.

    e2e_editor.py <game dir> <work dir>

Main menu -> Editor -> a new level with a typed title -> a rectangle of rock
dragged, a pod and a rocket painted -> a test play, left again -> saved with
Ctrl+S -> a test play won: its proof is saved -> renamed -> main menu -> New
Game -> custom mode: the level is listed as proven, starts and is won there.
Screenshots of every stage are kept in the work dir.
"""
import os
import shutil
import signal
import subprocess
import sys
import time

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
from e2e_window import GameWindow, launch_panel_in, mission_end_up  # noqa: E402

GAME_DIR, WORK = sys.argv[1], sys.argv[2]
SOURCE_DIR = os.environ.get("DELVEMOOR_SOURCE_DIR",
                            os.path.dirname(os.path.dirname(os.path.abspath(__file__))))
TITLE = "Proof Of Concept"
LEVEL_FILE = "proof-of-concept.level"
RENAMED = "Proven Crossing"
RENAMED_FILE = "proven-crossing.level"
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


def log_count(text):
    try:
        with open(os.path.join(GAME, "gamelog.txt"), errors="replace") as f:
            return f.read().count(text)
    except OSError:
        return 0


def win_level(name):
    """A hatcher over the pod at (10, 9), Hatch Pods, and Launch once the
    bubbleman has boarded the rocket three cells to the right; then the
    mission-end panel's Continue."""
    player.click(225, 48)                       # the hatcher
    player.click(*cell(10, 9))
    player.click(311, 463)                      # "Hatch Pods"
    if player.wait_for_look("the launch panel", launch_panel_in, 90):
        player.wait_frames(3, 0.15)             # the last steps of its slide
    player.click(502, 410)                      # "Launch"
    player.wait_for_look("the mission-end panel", mission_end_up, 60)
    shot(name)
    player.click_to(320, 348)                   # "Continue"


def shot(name):
    """The game window as a PNG; returns how many colours it shows."""
    return player.shot(os.path.join(WORK, name + ".png"))


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
    player = GameWindow()
    click, key = player.click, player.key
    player.wait_until_still(20)
    if log_has("OpenGL Card: llvmpipe"):
        player.click_to(320, 332)               # "No Thanks" on the slow-driver warning

    player.click_to(320, 241)                   # "Editor"
    colours = shot("1-editor")
    check("the editor opens on a level (%d colours)" % colours, colours > 100)

    click(570, 463)                             # the editor's "Menu"
    click(250, 204)                             # "New Level"
    player.wait_until_still(10)                 # typing goes to the panel once it is up
    colours = shot("2-new-level")
    check("the new-level panel is on show (%d colours)" % colours, colours > 20)
    player.type(TITLE)
    shot("3-title-typed")
    key("Return")

    click(99, 48)                               # rocks, as a rectangle
    key("r")
    player.drag([cell(16, 7), cell(18, 8), cell(20, 8)])
    key("b")                                    # back to cell by cell
    click(225, 48)                              # a pod on the ground
    click(*cell(10, 9))
    click(288, 48)                              # a rocket beside it
    click(*cell(13, 9))
    key("g")                                    # the grid, for the picture
    shot("4-painted")
    key("g")

    player.click_to(320, 463)                   # "Test Play"
    shot("4a-test-play")
    click(552, 463)                             # the game's "Menu": the pause panel
    player.click_to(320, 340)                   # "Exit": back to the editor
    check("the test play was left for the editor", wait_for(lambda: log_has("Exiting level..."), 10))
    shot("4b-back-in-editor")

    key("ctrl+s")
    wait_for(lambda: log_has("Saved level: "), 10)
    shot("5-saved")
    saved = os.path.join(GAME, "custom", LEVEL_FILE)
    check("the level is saved as custom/" + LEVEL_FILE, os.path.isfile(saved))
    if os.path.isfile(saved):
        with open(saved) as f:
            lines = f.read().split("\n")
        check("its first line is the typed title", lines[0] == TITLE)
        width, height = int(lines[6]), int(lines[7])
        cells = [int(v) for v in lines[17:17 + width * height]]
        check("it holds one pod and one rocket", cells.count(12) == 1 and cells.count(13) == 1)
        check("the dragged rectangle is rock", all(cells[x * height + y] in (4, 5, 6)
                                                   for x in range(16, 21) for y in (7, 8)))
    check("the editor logged the save", log_has("Saved level: "))

    player.click_to(320, 463)                   # "Test Play", to win it
    win_level("5a-test-play-won")
    shot("5b-proven")
    check("the won test play is saved as the level's proof",
          wait_for(lambda: log_has("Saved the winning run beside " + saved), 10))

    click(570, 463)                             # "Menu"
    shot("5c-menu")
    click(390, 204)                             # "Rename"
    player.wait_until_still(10)
    for _ in TITLE:
        key("BackSpace")
    player.type(RENAMED)
    shot("5d-rename-panel")
    key("Return")
    renamed = os.path.join(GAME, "custom", RENAMED_FILE)
    check("the rename moved the level and its proof",
          wait_for(lambda: os.path.isfile(renamed) and os.path.isfile(renamed[:-6] + ".solution") and
                   not os.path.exists(saved), 10))
    shot("5d-renamed-done")
    saved = renamed

    click(570, 463)                             # "Menu"
    click(250, 238)                             # "Open Level"
    player.move(250, 100)
    player.wait_until_still(10)
    shot("5e-open-list")                        # the level pictured, marked Proven
    click(320, 463)                             # "Back"

    key("Escape")                               # back to the main menu
    player.wait_until_still(30, since=time.monotonic() + 0.8)
    shot("6-main-menu")
    player.click_to(320, 205)                   # "New Game"
    player.click_to(190, 319)                   # "Custom Game"
    colours = shot("7-custom-list")
    check("the custom list is on show (%d colours)" % colours, colours > 100)
    click(190, 372)                             # the start button
    check("the saved level is the one that loads",
          wait_for(lambda: log_has("Successfully loaded level: " + saved), 20))
    player.wait_until_still(30, since=time.monotonic() + 0.5)
    colours = shot("8-playing")
    check("the level plays (%d colours)" % colours, colours > 100)
    listings = log_count("Loading levels...")
    win_level("9-won-in-custom-game")
    check("the level is won in Custom Game and the list is back",
          wait_for(lambda: log_count("Loading levels...") > listings, 10))
    shot("10-back-in-list")
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
