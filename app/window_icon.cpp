// The game window's name, class and icon under X: without them a desktop
// groups the window under the library's "allegro" and shows a blank picture
// instead of the icon in its menu entry.

#include "app/window_icon.h"
#include "app/log.h"

#include <allegro.h>
#include <xalleg.h>

#include <X11/Xatom.h>

#include "window_icon_data.inc"

void nameGameWindow()
{
    // Read by the library when it makes its window: the WM_CLASS pair the
    // desktop entry's StartupWMClass names.
    xwin_set_window_name("delvemoor", "Delvemoor");
}

void setGameWindowIcon()
{
    Display *display = _xwin.display;
    if (!display)
        return;
    XLOCK();
    Window window = _xwin.window;
    if (window) {
        const Atom icon = XInternAtom(display, "_NET_WM_ICON", False);
        XChangeProperty(display, window, icon, XA_CARDINAL, 32, PropModeReplace,
                        (const unsigned char *)windowIconData, sizeof windowIconData / sizeof windowIconData[0]);
        XClassHint hint;
        hint.res_name = (char *)"delvemoor";
        hint.res_class = (char *)"Delvemoor";
        XSetClassHint(display, window, &hint);
        XFlush(display);
    }
    XUNLOCK();
    logLine(window ? "Window icon set" : "# ERROR! # No window to give the icon to");
}
