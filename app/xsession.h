// The X session ending under the game: the X server going away (a logout)
// and the game's window being destroyed by someone else.
#pragma once

// What the game does when the display is gone for good. It runs in whichever
// thread noticed, must not touch X or wait on the library's locks, and must
// end the process itself (it never returns).
typedef void (*DisplayLostAction)();

// Once the window exists: installs Xlib's error handlers and starts watching
// the window for its destruction.
void watchXSession(DisplayLostAction onDisplayLost);
// Once a frame, on the main thread: true once the window has been destroyed
// (not asked to close) or X has refused to draw into it.
bool gameWindowGone();
