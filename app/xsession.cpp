// The X session ending under the game.
//
// When the X server goes away, Xlib calls the IO-error handler and, when that
// returns, exit(). exit() runs the library's own shut-down, which waits for
// the lock its input thread holds while it talks to the (dead) display: the
// game would hang for good. So the handler never returns: it hands over to the
// game's display-lost action, which saves what can be saved without X and
// ends the process with _exit. A longjmp back into the main loop is no way
// out: the handler often runs on the library's input thread, and the main
// thread may be stuck waiting for that thread's lock.
//
// A window destroyed by someone else (a window manager, a killed client)
// leaves the connection alive: the game then only learns of it from a
// DestroyNotify, or from X refusing to draw into a window that no longer
// exists, whose default handling would again be exit(). A second, private
// connection watches the window, so the main thread can see the destruction
// without taking the library's lock.

#include "app/xsession.h"
#include "app/log.h"

#include <allegro.h>
#include <xalleg.h>

#include <atomic>
#include <csignal>
#include <unistd.h>

static DisplayLostAction displayLostAction = nullptr;
static std::atomic<int> displayLostClaimed{0};
static std::atomic<int> windowGone{0};
static Display *watcher = nullptr;
static Window watchedWindow = 0;

static int onIoError(Display *)
{
    // Both the main thread and the input thread may find the display gone at
    // once: the first one ends the game, the other waits to be ended with it.
    if (displayLostClaimed.exchange(1) == 0 && displayLostAction)
        displayLostAction();
    for (;;)
        pause();
}

// Errors about a window that is gone are expected from then on (the library
// still draws into it and destroys it at shut-down); any other error is logged
// and the game goes on, since Xlib's default would end the process through
// the same hanging exit().
static int onXError(Display *, XErrorEvent *error)
{
    if (windowGone)
        return 0;
    if (watchedWindow != 0 && error->resourceid == watchedWindow) {
        windowGone = 1;
        return 0;
    }
    logLine("# ERROR! # X refused request %d.%d with error %d", error->request_code, error->minor_code,
            error->error_code);
    return 0;
}

// A killed client's connection is closed by the server under it: the next
// frame's write into it must fail, so Xlib hands the loss to the IO-error
// handler, instead of the process dying of SIGPIPE with nothing saved. A
// handler that does nothing rather than SIG_IGN: the programs the game starts
// get the default action back when they begin.
static void onBrokenPipe(int)
{
}

void watchXSession(DisplayLostAction onDisplayLost)
{
    displayLostAction = onDisplayLost;
    struct sigaction brokenPipe = {};
    brokenPipe.sa_handler = onBrokenPipe;
    sigemptyset(&brokenPipe.sa_mask);
    brokenPipe.sa_flags = SA_RESTART;
    sigaction(SIGPIPE, &brokenPipe, nullptr);
    XSetIOErrorHandler(onIoError);
    XSetErrorHandler(onXError);
    if (!_xwin.display || !_xwin.window)
        return;
    watchedWindow = _xwin.window;
    watcher = XOpenDisplay(DisplayString(_xwin.display));
    if (!watcher)
        return;
    XSelectInput(watcher, watchedWindow, StructureNotifyMask);
    XFlush(watcher);
}

bool gameWindowGone()
{
    if (watcher) {
        // A dead server shows here as an IO error, which ends the game.
        while (!windowGone && XPending(watcher) > 0) {
            XEvent event;
            XNextEvent(watcher, &event);
            if (event.type == DestroyNotify && event.xdestroywindow.window == watchedWindow)
                windowGone = 1;
        }
    }
    return windowGone != 0;
}
