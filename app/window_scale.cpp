// The library opens the game's window at exactly 640 x 480 and pins it there
// (its size hints make the smallest and the largest size both 640 x 480). On
// a modern desktop that is a postage stamp, so once the mode is set the
// window is unpinned and grown here; the frames follow its size (see
// render/present.cpp) and so does the pointer.
//
// Allegro keeps its X display and the game's window in _xwin, and its own
// thread reads the window's events under the X lock; every call made here
// holds that lock too.

#include "app/window_scale.h"
#include "app/log.h"
#include "render/draw.h"

#include <allegro.h>
#include <xalleg.h>
#include <X11/Xatom.h>

#include <chrono>

// Room left around the window on the desktop for its frame and title bar,
// so the enlarged window is never pushed partly off the screen.
static const int FRAME_ROOM_WIDTH = 32;
static const int FRAME_ROOM_HEIGHT = 64;
// A window smaller than this is no use to anyone; the picture is shrunk to
// fit down to it.
static const int SMALLEST_WINDOW_WIDTH = 320;
static const int SMALLEST_WINDOW_HEIGHT = 240;

int openingScale(int areaWidth, int areaHeight)
{
    int scale = 1;
    while (SCREEN_WIDTH * (scale + 1) + FRAME_ROOM_WIDTH <= areaWidth &&
           SCREEN_HEIGHT * (scale + 1) + FRAME_ROOM_HEIGHT <= areaHeight)
        scale++;
    return scale;
}

static int clampInt(int v, int lo, int hi)
{
    return v < lo ? lo : v > hi ? hi : v;
}

PicturePoint picturePointAt(const PictureRect &picture, int windowX, int windowY)
{
    const int dx = windowX - picture.x, dy = windowY - picture.y;
    PicturePoint p;
    p.onBorder = dx < 0 || dy < 0 || dx >= picture.width || dy >= picture.height;
    p.x = (int)((long)clampInt(dx, 0, picture.width - 1) * SCREEN_WIDTH / picture.width);
    p.y = (int)((long)clampInt(dy, 0, picture.height - 1) * SCREEN_HEIGHT / picture.height);
    return p;
}

int buttonsPressedOnBorder(int pressedOnBorder, int buttons, int previousButtons, bool onBorder)
{
    if (onBorder)
        pressedOnBorder |= buttons & ~previousButtons;
    return pressedOnBorder & buttons;
}

// ---------------------------------------------------------------------------
// The real window

static int measuredWidth = SCREEN_WIDTH, measuredHeight = SCREEN_HEIGHT;
static int pressedOnBorder = 0, previousButtons = 0;

// The pointer follows the window: Allegro stops its pointer at the mouse
// range, which the mode set to 640 x 480.
static void followWindowSize(int width, int height)
{
    if (width == measuredWidth && height == measuredHeight)
        return;
    measuredWidth = width;
    measuredHeight = height;
    set_mouse_range(0, 0, width - 1, height - 1);
}

static bool windowSize(int *width, int *height)
{
    bool known = false;
    XLOCK();
    XWindowAttributes attributes;
    if (_xwin.display && _xwin.window != None && XGetWindowAttributes(_xwin.display, _xwin.window, &attributes)) {
        *width = attributes.width;
        *height = attributes.height;
        known = true;
    }
    XUNLOCK();
    return known;
}

// After every flip: the player may have resized or maximised the window
// since. Asking the X server is a round trip, so it is asked ten times a
// second at most; a new size shows a tenth of a second late at worst.
static void measureGameWindow(int *width, int *height)
{
    static std::chrono::steady_clock::time_point lastAsked;
    const auto now = std::chrono::steady_clock::now();
    if (now - lastAsked < std::chrono::milliseconds(100)) {
        *width = measuredWidth;
        *height = measuredHeight;
        return;
    }
    lastAsked = now;
    if (windowSize(width, height))
        followWindowSize(*width, *height);
}

// The desktop's usable area (without panels and docks) as the window manager
// publishes it for the current desktop; the whole screen where none does.
static void usableArea(Display *display, int *x, int *y, int *width, int *height)
{
    const Window root = RootWindow(display, _xwin.screen);
    *x = 0;
    *y = 0;
    *width = DisplayWidth(display, _xwin.screen);
    *height = DisplayHeight(display, _xwin.screen);

    long desktop = 0;
    Atom type;
    int format;
    unsigned long count, remaining;
    unsigned char *data = nullptr;
    const Atom current = XInternAtom(display, "_NET_CURRENT_DESKTOP", True);
    if (current != None &&
        XGetWindowProperty(display, root, current, 0, 1, False, XA_CARDINAL, &type, &format, &count, &remaining,
                           &data) == Success &&
        data && format == 32 && count == 1)
        desktop = ((long *)data)[0];
    if (data)
        XFree(data);
    data = nullptr;

    const Atom workArea = XInternAtom(display, "_NET_WORKAREA", True);
    if (workArea != None &&
        XGetWindowProperty(display, root, workArea, desktop * 4, 4, False, XA_CARDINAL, &type, &format, &count,
                           &remaining, &data) == Success &&
        data && format == 32 && count == 4) {
        const long *area = (const long *)data;
        if (area[2] > 0 && area[3] > 0) {
            *x = (int)area[0];
            *y = (int)area[1];
            *width = (int)area[2];
            *height = (int)area[3];
        }
    }
    if (data)
        XFree(data);
}

// The window manager may take a moment to carry out a resize; a tenth of a
// second is plenty for one on the same machine.
static bool waitForSize(int width, int height)
{
    int w = 0, h = 0;
    for (int i = 0; i < 100; i++) {
        if (windowSize(&w, &h) && w == width && h == height)
            return true;
        rest(1);
    }
    return false;
}

bool resizeGameWindow(int width, int height)
{
    XLOCK();
    if (_xwin.display && _xwin.window != None) {
        XResizeWindow(_xwin.display, _xwin.window, width, height);
        XSync(_xwin.display, False);
    }
    XUNLOCK();
    const bool done = waitForSize(width, height);
    int w = width, h = height;
    if (windowSize(&w, &h))
        followWindowSize(w, h);
    setPresentationWindow(w, h);
    return done;
}

void fitWindowToDesktop(bool windowed)
{
    measureWindow = measureGameWindow;
    int scale = 1;
    if (windowed) {
        int width = SCREEN_WIDTH, height = SCREEN_HEIGHT;
        XLOCK();
        Display *display = _xwin.display;
        const Window window = _xwin.window;
        if (display && window != None) {
            int x, y;
            usableArea(display, &x, &y, &width, &height);
            scale = openingScale(width, height);
            XSizeHints *hints = XAllocSizeHints();
            if (hints) {
                hints->flags = PMinSize;
                hints->min_width = SMALLEST_WINDOW_WIDTH;
                hints->min_height = SMALLEST_WINDOW_HEIGHT;
                XSetWMNormalHints(display, window, hints);
                XFree(hints);
            }
            if (scale > 1)
                XMoveResizeWindow(display, window, x + (width - SCREEN_WIDTH * scale) / 2,
                                  y + (height - SCREEN_HEIGHT * scale) / 2, SCREEN_WIDTH * scale,
                                  SCREEN_HEIGHT * scale);
            XSync(display, False);
        }
        XUNLOCK();
        if (scale > 1) {
            waitForSize(SCREEN_WIDTH * scale, SCREEN_HEIGHT * scale);
            logLine("Window enlarged %d times for a %d x %d desktop", scale, width, height);
        }
    }
    int w = SCREEN_WIDTH, h = SCREEN_HEIGHT;
    if (windowSize(&w, &h))
        followWindowSize(w, h);
    setPresentationWindow(w, h);
}

PicturePoint samplePicturePointer()
{
    const PicturePoint p = picturePointAt(currentPicture(), mouse_x, mouse_y);
    const int buttons = mouse_b;
    pressedOnBorder = buttonsPressedOnBorder(pressedOnBorder, buttons, previousButtons, p.onBorder);
    previousButtons = buttons;
    return p;
}

int gameMouseButtons()
{
    return mouse_b & ~pressedOnBorder;
}
