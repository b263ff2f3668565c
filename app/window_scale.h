// The game's window on a modern desktop: opened at the largest whole
// multiple of 640 x 480 that fits, resizable by the player, and the pointer
// taken back from window pixels to the 640 x 480 picture.
#pragma once

#include "render/present.h"

// The whole factor the window opens at on a desktop whose usable area is
// this large: the largest that leaves room for the window's frame, at least 1.
int openingScale(int areaWidth, int areaHeight);

// A window pixel taken to the picture's own pixels (y down, as the mouse
// counts). A point on the black border lands on the nearest edge pixel of
// the picture, so pushing the pointer into the border scrolls the view, and
// is marked as on the border.
struct PicturePoint {
    int x, y;
    bool onBorder;
};
PicturePoint picturePointAt(const PictureRect &picture, int windowX, int windowY);

// A click on the border reaches nothing: a button pressed while the pointer
// is on the border reads as up until it is let go, wherever the pointer goes
// meanwhile. A button pressed on the picture is untouched. Returns the new
// set of such buttons (bit 0 left, bit 1 right).
int buttonsPressedOnBorder(int pressedOnBorder, int buttons, int previousButtons, bool onBorder);

// Start-up, once the video mode is set: a window is made resizable and, where
// the desktop has room, enlarged and centred; the frames and the pointer then
// follow the window's size whatever the player does to it.
void fitWindowToDesktop(bool windowed);

// The player's pointer for this frame in the picture's pixels, from the
// library's pointer in window pixels; call once a frame.
PicturePoint samplePicturePointer();
// The mouse buttons as the game should see them: those pressed on the
// border left out.
int gameMouseButtons();

// Sets the window to this size and waits (briefly) until the server has
// done it; the benchmark's scaled runs. False if the size did not take.
bool resizeGameWindow(int width, int height);
