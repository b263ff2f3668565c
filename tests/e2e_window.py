#!/usr/bin/python3
"""The game's window for the end-to-end tests: a player's clicks and keys, and
waits on what the window shows, all measured in the frames the game presents
rather than in seconds.

The game reads the mouse and the keys once a loop pass and shows one frame a
pass, as fast as it can: hundreds a second on an idle machine, a few on a
loaded one running the sanitized build on a software renderer. A press held
for a fixed time is either far too long or, now and then, too short; one held
until the window has shown a few new frames (X's DAMAGE events on it) has
been seen, however fast or slow the game runs.

Points are in the picture's own 640 x 480 pixels (y down): a window enlarged
to a whole multiple shows the picture scaled and centred, and the points are
taken through that.

usage (the display is $DISPLAY):
  e2e_window.py click X Y [right]   a click, held until the game has seen it
  e2e_window.py key NAME            a key, as xdotool names it (Escape, ctrl+s, P)
  e2e_window.py type TEXT           one key after another
  e2e_window.py drag X Y X Y ...    pressed at the first point, released at the last
  e2e_window.py move X Y            the pointer only
  e2e_window.py ready [MOST]        until no fade runs: the picture holds still
  e2e_window.py click-to X Y [MOST] a click that starts a fade, then until the new
                                    screen holds still
  e2e_window.py launch-panel [MOST] until the level's launch panel has slid in
  e2e_window.py mission-end [MOST]  until the mission-end panel is up
  e2e_window.py shot PNG            the picture as a PNG; prints how many colours
Each wait gives up after MOST seconds (generous defaults) and says so; the
checks that follow tell whether the game got where it should.
"""
import select
import sys
import time

from PIL import Image, ImageStat
from Xlib import X, XK, display as xdisplay, error as xerror
from Xlib.ext import damage, xtest

PICTURE_W, PICTURE_H = 640, 480
# A press or release counts as seen once the window has shown this many new
# frames and this much time has passed: the first frame may have been drawn
# from input sampled before the press, and the menus act on the logic's ticks
# (40 a second), which a fast loop runs only every few passes.
HOLD_FRAMES = 3
HOLD_SECONDS = 0.1
# Still: the picture's brightness stays within a little over this long and
# this many frames. A fade through black moves it by a twelfth of the screen's
# brightness every tick, so no stretch of a fade passes for still.
STILL_SECONDS = 0.3
STILL_FRAMES = 3
# The fade's veil takes 0.8 s of ticks: after a click that starts one, the
# new screen is not waited for before this.
FADE_SECONDS = 0.8


def note(text):
    print("  (" + text + ")", flush=True)


class GameWindow:
    def __init__(self, most=60):
        self.display = xdisplay.Display()
        self.root = self.display.screen().root
        self.display.set_error_handler(lambda *args: None)
        self.window = None
        self.gone = False
        self.frames = 0
        end = time.monotonic() + most
        while self.window is None:
            self.window = self._find()
            if self.window is None:
                if time.monotonic() > end:
                    raise SystemExit("no window named Delvemoor")
                time.sleep(0.1)
        self.window.change_attributes(event_mask=X.StructureNotifyMask)
        self.display.damage_query_version()  # the server serves no DAMAGE request before it
        self.damage = self.window.damage_create(damage.DamageReportNonEmpty)
        self.display.sync()
        self._drain()
        self.frames = 0

    def _find(self):
        """The game's window on show (the library keeps a hidden one of the
        same name)."""
        def walk(window):
            try:
                if window.get_wm_name() == "Delvemoor" and window.get_attributes().map_state == X.IsViewable:
                    return window
                children = window.query_tree().children
            except xerror.XError:
                return None
            for child in children:
                found = walk(child)
                if found:
                    return found
            return None
        return walk(self.root)

    def _drain(self):
        while self.display.pending_events():
            event = self.display.next_event()
            if event.type == self.display.extension_event.DamageNotify:
                self.frames += 1
                self.display.damage_subtract(self.damage)
            elif event.type in (X.DestroyNotify, X.UnmapNotify):
                self.gone = True
        self.display.flush()

    def wait_frames(self, count, least=0.0, most=30.0):
        """Until the window has shown `count` new frames and `least` seconds
        have passed; False when it could not (gone, or too slow)."""
        start_frames, start = self.frames, time.monotonic()
        while True:
            self._drain()
            now = time.monotonic()
            if self.frames - start_frames >= count and now - start >= least:
                return True
            if self.gone or now - start > most:
                return False
            select.select([self.display.fileno()], [], [], 0.02)

    # -- the picture --------------------------------------------------------

    def geometry(self):
        """Where the picture lies: the window's origin on the screen, the
        scale and the picture's offset inside the window."""
        g = self.window.get_geometry()
        origin = self.root.translate_coords(self.window, 0, 0)
        scale = max(1, min(g.width // PICTURE_W, g.height // PICTURE_H))
        return (origin.x, origin.y), scale, ((g.width - PICTURE_W * scale) // 2, (g.height - PICTURE_H * scale) // 2)

    def picture(self, box=(0, 0, PICTURE_W, PICTURE_H)):
        """The picture (or a box of it: left, top, right, bottom) as RGB, at
        640 x 480 whatever the scale; None once the window is gone."""
        try:
            _, scale, (ox, oy) = self.geometry()
            left, top, right, bottom = box
            raw = self.window.get_image(ox + left * scale, oy + top * scale, (right - left) * scale,
                                        (bottom - top) * scale, X.ZPixmap, 0xffffffff)
        except xerror.XError:
            self.gone = True
            return None
        size = ((right - left) * scale, (bottom - top) * scale)
        image = Image.frombytes("RGB", size, raw.data, "raw", "BGRX")
        return image.resize((right - left, bottom - top), Image.NEAREST) if scale > 1 else image

    def brightness(self, box=(0, 0, PICTURE_W, PICTURE_H)):
        image = self.picture(box)
        return ImageStat.Stat(image.convert("L")).mean[0] if image else -1.0

    def wait_until_still(self, most, since=None):
        """Until the picture holds still, not black, over STILL_SECONDS and
        STILL_FRAMES; not sooner than `since` (a monotonic time)."""
        start = time.monotonic()
        steady = []  # (time, frames, brightness) since the picture last moved
        while time.monotonic() - start < most and not self.gone:
            if not self.wait_frames(1, most=max(0.1, most - (time.monotonic() - start))):
                break
            now, level = time.monotonic(), self.brightness()
            if since is not None and now < since:
                continue
            if steady and abs(level - steady[0][2]) > 0.5 + 0.01 * steady[0][2]:
                steady = []
            steady.append((now, self.frames, level))
            if (level > 2 and steady[-1][0] - steady[0][0] >= STILL_SECONDS and
                    steady[-1][1] - steady[0][1] >= STILL_FRAMES):
                return True
        note("the screen did not hold still within %g s" % most)
        return False

    def wait_for_look(self, what, test, most):
        """Until test(picture) holds, looked at once a new frame."""
        start = time.monotonic()
        while time.monotonic() - start < most and not self.gone:
            image = self.picture()
            if image and test(image):
                return True
            self.wait_frames(1, most=1.0)
        note("%s did not show within %g s" % (what, most))
        return False

    # -- input --------------------------------------------------------------

    def point(self, x, y):
        """A picture point to the screen pixel in the middle of its square."""
        (wx, wy), scale, (ox, oy) = self.geometry()
        return wx + ox + x * scale + scale // 2, wy + oy + y * scale + scale // 2

    def move(self, x, y):
        sx, sy = self.point(x, y)
        xtest.fake_input(self.display, X.MotionNotify, x=sx, y=sy)
        self.display.flush()
        self.wait_frames(HOLD_FRAMES, HOLD_SECONDS)

    def button(self, number, down):
        xtest.fake_input(self.display, X.ButtonPress if down else X.ButtonRelease, number)
        self.display.flush()
        self.wait_frames(HOLD_FRAMES, HOLD_SECONDS)

    def click(self, x, y, number=1):
        # The pointer is seen where it is before the press: a press that came
        # with the move could land where the pointer was.
        self.move(x, y)
        self.button(number, True)
        self.button(number, False)

    def key(self, name):
        """A key or a chord (ctrl+s), held until seen; upper-case letters and
        shifted signs are typed with Shift, as on a keyboard."""
        self.window.set_input_focus(X.RevertToParent, X.CurrentTime)
        codes = []
        for part in name.split("+"):
            part = {"ctrl": "Control_L", "shift": "Shift_L", "alt": "Alt_L"}.get(part, part)
            keysym = XK.string_to_keysym(part)
            code = self.display.keysym_to_keycode(keysym)
            if not code:
                raise SystemExit("no key for " + name)
            if self.display.keycode_to_keysym(code, 0) != keysym and self.display.keycode_to_keysym(code, 1) == keysym:
                codes.append(self.display.keysym_to_keycode(XK.XK_Shift_L))
            codes.append(code)
        for code in codes:
            xtest.fake_input(self.display, X.KeyPress, code)
        self.display.flush()
        self.wait_frames(HOLD_FRAMES, HOLD_SECONDS)
        for code in reversed(codes):
            xtest.fake_input(self.display, X.KeyRelease, code)
        self.display.flush()
        self.wait_frames(HOLD_FRAMES, HOLD_SECONDS)

    def type(self, text):
        for c in text:
            self.key("space" if c == " " else c)

    def drag(self, points):
        self.move(*points[0])
        self.button(1, True)
        for x, y in points[1:]:
            self.move(x, y)
        self.button(1, False)

    def click_to(self, x, y, most=30):
        """A click that starts a fade to another screen, and that screen, once
        it holds still."""
        self.click(x, y)
        return self.wait_until_still(most, since=time.monotonic() + FADE_SECONDS)

    def shot(self, path):
        image = self.picture()
        if image is None:
            return 0
        image.save(path)
        return len(image.getcolors(1 << 20) or [])


# The level's panels, told by their own near-white letters where they come to
# rest. The launch panel slides in from the right, so the first letter of
# "Launch" is the first near-white to reach its resting place; the mission-end
# panel shows whole at once, its "Continue" among the first things drawn.
def near_white(image, box):
    return sum(1 for r, g, b in image.crop(box).getdata() if r > 200 and g > 200 and b > 200)


def launch_panel_in(image):
    return near_white(image, (455, 405, 475, 418)) >= 20


def mission_end_up(image):
    return near_white(image, (285, 338, 355, 356)) >= 100


def run(game, command, args):
    most = float(args[-1]) if command in WAITS and args else None
    if command == "click" and len(args) in (2, 3):
        game.click(int(args[0]), int(args[1]), 3 if args[2:] == ["right"] else 1)
    elif command == "key" and len(args) == 1:
        game.key(args[0])
    elif command == "type" and len(args) == 1:
        game.type(args[0])
    elif command == "drag" and len(args) >= 4 and len(args) % 2 == 0:
        game.drag([(int(args[i]), int(args[i + 1])) for i in range(0, len(args), 2)])
    elif command == "move" and len(args) == 2:
        game.move(int(args[0]), int(args[1]))
    elif command == "ready" and len(args) <= 1:
        game.wait_until_still(most or 30)
    elif command == "click-to" and len(args) in (2, 3):
        game.click_to(int(args[0]), int(args[1]), float(args[2]) if len(args) == 3 else 30)
    elif command == "launch-panel" and len(args) <= 1:
        # Seen within a few ticks of its resting place: let it get there.
        if game.wait_for_look("the launch panel", launch_panel_in, most or 60):
            game.wait_frames(HOLD_FRAMES, 0.15)
    elif command == "mission-end" and len(args) <= 1:
        game.wait_for_look("the mission-end panel", mission_end_up, most or 60)
    elif command == "shot" and len(args) == 1:
        print(game.shot(args[0]))
    else:
        sys.exit(__doc__)


WAITS = ("ready", "launch-panel", "mission-end")


def main(argv):
    if len(argv) < 2:
        sys.exit(__doc__)
    game = GameWindow()
    try:
        run(game, argv[1], argv[2:])
    except (xerror.XError, xerror.ConnectionClosedError) as e:
        # A click that ends the game (Exit Game, View Manual) takes its
        # window with it before the release is seen.
        note("the window went away (%s)" % type(e).__name__)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
