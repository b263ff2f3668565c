// The frame is always drawn at 640 x 480. A larger window shows it enlarged
// by a whole factor, so every picture's pixels stay square and sharp; the
// enlargement is one copy of the finished frame into a texture and one quad
// over the window, because on a software renderer drawing every picture at
// the larger size would cost each picture's pixels four or nine times over.
//
// A window of exactly 640 x 480 takes none of this: the frame is drawn and
// flipped as it always was. A window that is only a little larger (less than
// twice as large) gets the picture at its own size, drawn straight into the
// middle through the viewport; a window smaller than the picture gets it
// drawn through a smaller viewport, shrunk. The frame cannot be copied there
// (the window's buffer is smaller than the frame), and shrinking cannot keep
// every pixel anyway: each picture keeps its own filtering, nearest for
// most, which drops whole rows and columns but keeps text sharp where a
// blurred copy would smear it. Both ways the screens' scissor goes through
// scissorPicture, which knows where the frame lies.

#include "render/present.h"
#include "render/draw.h"

#include <GL/gl.h>

void (*measureWindow)(int *width, int *height) = nullptr;

// The frame texture: the smallest powers of two that hold 640 x 480, as
// OpenGL 1.1 wants.
static const int FRAME_TEXTURE_WIDTH = 1024;
static const int FRAME_TEXTURE_HEIGHT = 512;

static int windowWidth = SCREEN_WIDTH;
static int windowHeight = SCREEN_HEIGHT;
static PictureRect picture = {0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 1};
static GLuint frameTexture = 0;

PictureRect pictureRectFor(int w, int h)
{
    if (w <= 0 || h <= 0)
        return PictureRect{0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 1};
    PictureRect p;
    const int scale = w / SCREEN_WIDTH < h / SCREEN_HEIGHT ? w / SCREEN_WIDTH : h / SCREEN_HEIGHT;
    if (scale >= 1) {
        p.width = SCREEN_WIDTH * scale;
        p.height = SCREEN_HEIGHT * scale;
        p.scale = scale;
    } else if ((long)w * SCREEN_HEIGHT <= (long)h * SCREEN_WIDTH) {
        p.width = w;
        p.height = (int)((long)w * SCREEN_HEIGHT / SCREEN_WIDTH);
        p.scale = 0;
    } else {
        p.width = (int)((long)h * SCREEN_WIDTH / SCREEN_HEIGHT);
        p.height = h;
        p.scale = 0;
    }
    if (p.width < 1)
        p.width = 1;
    if (p.height < 1)
        p.height = 1;
    p.x = (w - p.width) / 2;
    p.y = (h - p.height) / 2;
    return p;
}

static bool pictureFillsWindow()
{
    return picture.width == windowWidth && picture.height == windowHeight;
}

static bool enlarged()
{
    return picture.scale >= 2;
}

void setPresentationWindow(int w, int h)
{
    windowWidth = w > 0 ? w : SCREEN_WIDTH;
    windowHeight = h > 0 ? h : SCREEN_HEIGHT;
    picture = pictureRectFor(windowWidth, windowHeight);
    // OpenGL counts rows from the bottom.
    if (enlarged())
        glViewport(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    else
        glViewport(picture.x, windowHeight - picture.y - picture.height, picture.width, picture.height);
    if (!pictureFillsWindow()) {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }
}

const PictureRect &currentPicture()
{
    return picture;
}

int presentationWindowWidth()
{
    return windowWidth;
}

int presentationWindowHeight()
{
    return windowHeight;
}

void scissorPicture(int x, int y, int width, int height)
{
    if (enlarged()) {
        glScissor(x, y, width, height);
        return;
    }
    // Drawn straight into the window through the viewport: the scissor, in
    // window pixels, goes where the viewport puts the rectangle.
    const int left = picture.x, bottom = windowHeight - picture.y - picture.height;
    const int x0 = left + x * picture.width / SCREEN_WIDTH, x1 = left + (x + width) * picture.width / SCREEN_WIDTH;
    const int y0 = bottom + y * picture.height / SCREEN_HEIGHT;
    const int y1 = bottom + (y + height) * picture.height / SCREEN_HEIGHT;
    glScissor(x0, y0, x1 - x0, y1 - y0);
}

void copyFrameToTexture()
{
    if (!frameTexture) {
        glGenTextures(1, &frameTexture);
        glBindTexture(GL_TEXTURE_2D, frameTexture);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, FRAME_TEXTURE_WIDTH, FRAME_TEXTURE_HEIGHT, 0, GL_RGBA,
                     GL_UNSIGNED_BYTE, nullptr);
    }
    glBindTexture(GL_TEXTURE_2D, frameTexture);
    glCopyTexSubImage2D(GL_TEXTURE_2D, 0, 0, 0, 0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
}

// The window's own projection for the one quad, then back to exactly what the
// screens had: their matrices, viewport, blending and alpha test.
void drawEnlargedFrame()
{
    GLfloat projection[16], modelview[16];
    glGetFloatv(GL_PROJECTION_MATRIX, projection);
    glGetFloatv(GL_MODELVIEW_MATRIX, modelview);

    glViewport(0, 0, windowWidth, windowHeight);
    if (!pictureFillsWindow()) {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, windowWidth, 0, windowHeight, -1, 1);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    // The frame is opaque: no blending or alpha test to pay for.
    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    glColor4f(1, 1, 1, 1);
    glBindTexture(GL_TEXTURE_2D, frameTexture);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_REPLACE);

    const float x0 = (float)picture.x, y0 = (float)(windowHeight - picture.y - picture.height);
    const float x1 = x0 + picture.width, y1 = y0 + picture.height;
    const float u = (float)SCREEN_WIDTH / FRAME_TEXTURE_WIDTH, v = (float)SCREEN_HEIGHT / FRAME_TEXTURE_HEIGHT;
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(x0, y0);
    glTexCoord2f(u, 0);
    glVertex2f(x1, y0);
    glTexCoord2f(u, v);
    glVertex2f(x1, y1);
    glTexCoord2f(0, v);
    glVertex2f(x0, y1);
    glEnd();

    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    glBindTexture(GL_TEXTURE_2D, 0);
    glEnable(GL_BLEND);
    glEnable(GL_ALPHA_TEST);
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection);
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(modelview);
    glViewport(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
}

void enlargeFrame()
{
    if (!enlarged())
        return;
    copyFrameToTexture();
    drawEnlargedFrame();
}

void prepareNextFrame()
{
    int w = windowWidth, h = windowHeight;
    if (measureWindow)
        measureWindow(&w, &h);
    if (w != windowWidth || h != windowHeight) {
        setPresentationWindow(w, h);
        return;
    }
    // Drawn straight into a larger window: its border is whatever the last
    // buffer held, so it is wiped. An enlarged frame wipes it when it is
    // drawn.
    if (!enlarged() && !pictureFillsWindow()) {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }
}
