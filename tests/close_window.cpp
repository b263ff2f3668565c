// Asks the game's window to close the way a window manager's close button
// does (a WM_DELETE_WINDOW message), so tests can end the game as a player would.
// Usage: close_window [--destroy] <window name>. Exit status 0 when the
// request was sent. With --destroy the window is destroyed outright, the way
// a window manager may do it without asking.

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstdio>
#include <cstring>

// With viewableOnly, a window of that name that is not on screen (the
// library keeps a hidden one of the game's name) is passed over.
static Window findByName(Display *display, Window window, const char *name, bool viewableOnly)
{
    char *windowName = nullptr;
    if (XFetchName(display, window, &windowName) && windowName) {
        bool match = strcmp(windowName, name) == 0;
        XWindowAttributes attributes;
        if (match && viewableOnly)
            match = XGetWindowAttributes(display, window, &attributes) && attributes.map_state == IsViewable;
        XFree(windowName);
        if (match)
            return window;
    }
    Window root, parent, *children = nullptr;
    unsigned count = 0;
    Window found = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count)) {
        for (unsigned i = 0; i < count && !found; i++)
            found = findByName(display, children[i], name, viewableOnly);
        if (children)
            XFree(children);
    }
    return found;
}

int main(int argc, char **argv)
{
    const bool destroy = argc == 3 && strcmp(argv[1], "--destroy") == 0;
    if (argc != 2 && !destroy) {
        fprintf(stderr, "usage: close_window [--destroy] <window name>\n");
        return 2;
    }
    const char *name = argv[argc - 1];
    Display *display = XOpenDisplay(nullptr);
    if (!display) {
        fprintf(stderr, "close_window: no display\n");
        return 1;
    }
    Window window = findByName(display, DefaultRootWindow(display), name, destroy);
    if (!window) {
        fprintf(stderr, "close_window: no window named %s\n", name);
        XCloseDisplay(display);
        return 1;
    }
    if (destroy) {
        XDestroyWindow(display, window);
        XSync(display, False);
        XCloseDisplay(display);
        return 0;
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
