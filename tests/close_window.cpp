// Asks the game's window to close the way a window manager's close button
// does (a WM_DELETE_WINDOW message), so tests can end the game as a player would.
// Usage: close_window <window name>. Exit status 0 when the request was sent.

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <cstring>

static Window findByName(Display *display, Window window, const char *name)
{
    char *windowName = nullptr;
    if (XFetchName(display, window, &windowName) && windowName) {
        bool match = strcmp(windowName, name) == 0;
        XFree(windowName);
        if (match)
            return window;
    }
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    Window found = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count)) {
        for (unsigned i = 0; i < count && !found; i++)
            found = findByName(display, children[i], name);
        if (children)
            XFree(children);
    }
    return found;
}

int main(int argc, char **argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: close_window <window name>\n");
        return 2;
    }
    Display *display = XOpenDisplay(nullptr);
    if (!display) {
        fprintf(stderr, "close_window: no display\n");
        return 1;
    }
    Window window = findByName(display, DefaultRootWindow(display), argv[1]);
    if (!window) {
        fprintf(stderr, "close_window: no window named %s\n", argv[1]);
        XCloseDisplay(display);
        return 1;
    }
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = (long)XInternAtom(display, "WM_DELETE_WINDOW", False);
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(display, window, False, NoEventMask, &event);
    XFlush(display);
    XCloseDisplay(display);
    return 0;
}
