// Showing the finished 640 x 480 frame in a window of any size: whole-pixel
// enlarged and centred on black, or shrunk to fit a window smaller than it.
// Every screen still draws into the 640 x 480 space; only the last step of a
// frame knows about the window.
#pragma once

// Where the picture lies in the window, in window pixels from its top-left
// corner, and by how much it is enlarged (0 when it is shrunk to fit).
struct PictureRect {
    int x, y, width, height;
    int scale;
};

// The largest whole factor whose picture fits the window, centred; a window
// smaller than 640 x 480 gets the picture shrunk to fit, its shape kept.
PictureRect pictureRectFor(int windowWidth, int windowHeight);

// The window the frames are shown in, measured anew for the frame to come.
// Sets the viewport the screens draw through.
void setPresentationWindow(int windowWidth, int windowHeight);
const PictureRect &currentPicture();
int presentationWindowWidth();
int presentationWindowHeight();

// glScissor for a rectangle of the 640 x 480 picture (x, y from its lower
// left), wherever the frame is being drawn in the window.
void scissorPicture(int x, int y, int width, int height);

// The part of presentFrame before the buffer flip: the frame, drawn at
// 640 x 480 in the lower-left corner, is enlarged over the whole window.
// Nothing to do when the window is the picture.
void enlargeFrame();
// Its two steps, for the frame-rate benchmark's figures.
void copyFrameToTexture();
void drawEnlargedFrame();
// After the flip: the border of a window the picture does not fill is black
// again before the next frame draws.
void prepareNextFrame();

// How the window's size is read, once a frame, after the flip; start-up
// points it at the real window, tools and tests leave it alone.
extern void (*measureWindow)(int *width, int *height);
