// The drawing primitives. Each one reloads the model-view matrix, so no call
// depends on the transform another left behind; the only lasting effect is the
// nearest filtering some of them set on the texture they bind.

#include "render/draw.h"

#include "app/screens.h"

#include <allegro.h>
#include <alleggl.h>
#include <GL/gl.h>

#include <cmath>
#include <unordered_map>
#include <vector>

void beginFrame2D()
{
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadIdentity();
    glOrtho(0, SCREEN_WIDTH, 0, SCREEN_HEIGHT, -10, 10);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadIdentity();
}

void endFrame2D()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

void resetDrawState()
{
    glLoadIdentity();
    glColor4f(1, 1, 1, 1);
    glBindTexture(GL_TEXTURE_2D, 0);
    glTranslatef(0, 0, 0);
}

void presentFrame()
{
    glFlush();
    allegro_gl_flip();
}

void drawRect(float x0, float y0, float x1, float y1, float r, float g, float b, float a)
{
    resetDrawState();
    glTranslatef(0, 0, 1);
    glColor4f(r, g, b, a);
    glBegin(GL_QUADS);
    glVertex2f(x0, y0);
    glVertex2f(x1, y0);
    glVertex2f(x1, y1);
    glVertex2f(x0, y1);
    glEnd();
}

// The main menu and the credits are wiped to black before they draw; a clear
// gives the same black as a screen-wide quad for a fraction of the work a
// software renderer puts into a blended one.
void clearToBlack()
{
    if (currentScreen == MainMenu || currentScreen == CreditsScreen) {
        glClearColor(0, 0, 0, 0);
        glClear(GL_COLOR_BUFFER_BIT);
    }
}

// Steps 1 to 5 of every textured primitive: reset, place (and turn), colour,
// bind, and optionally switch the texture to nearest filtering for good.
static void placeTexture(float x, float y, float angle, TextureId texture, float r, float g, float b, float a,
                         bool nearest)
{
    resetDrawState();
    glTranslatef(x, y, 1);
    if (angle != 0)
        glRotatef(angle, 0, 0, 1);
    glColor4f(r, g, b, a);
    glBindTexture(GL_TEXTURE_2D, texture);
    if (nearest) {
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    }
}

// The whole texture over the quad, counter-clockwise from the bottom-left.
static void texturedQuad(float left, float bottom, float right, float top)
{
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(left, bottom);
    glTexCoord2f(1, 0);
    glVertex2f(right, bottom);
    glTexCoord2f(1, 1);
    glVertex2f(right, top);
    glTexCoord2f(0, 1);
    glVertex2f(left, top);
    glEnd();
}

// A batch: the squares between beginQuadBatch and endQuadBatch that share a
// texture go to the renderer as one run of quads, each with its own colour
// and its corners worked out here, which is what the translation would give.
// A software renderer pays for every glBegin and every bind; a screen of
// terrain is hundreds of squares, most of them beside one of the same kind.
static bool batching = false;
static bool batchOpen = false;
static TextureId batchTexture = 0;
static bool batchNearest = false;

static void closeBatchRun()
{
    if (batchOpen)
        glEnd();
    batchOpen = false;
}

void beginQuadBatch()
{
    resetDrawState();
    batching = true;
    batchOpen = false;
}

void endQuadBatch()
{
    closeBatchRun();
    batching = false;
    resetDrawState();
}

static void batchedSquare(float x, float y, TextureId texture, float r, float g, float b, float a, float half,
                          bool nearest)
{
    if (!batchOpen || texture != batchTexture || (nearest && !batchNearest)) {
        closeBatchRun();
        glLoadIdentity();
        glBindTexture(GL_TEXTURE_2D, texture);
        if (nearest) {
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        }
        glBegin(GL_QUADS);
        batchOpen = true;
        batchTexture = texture;
        batchNearest = nearest;
    }
    glColor4f(r, g, b, a);
    glTexCoord2f(0, 0);
    glVertex3f(x - half, y - half, 1);
    glTexCoord2f(1, 0);
    glVertex3f(x + half, y - half, 1);
    glTexCoord2f(1, 1);
    glVertex3f(x + half, y + half, 1);
    glTexCoord2f(0, 1);
    glVertex3f(x - half, y + half, 1);
}

static void drawSquare(float x, float y, float angle, TextureId texture, float r, float g, float b, float a,
                       float size, bool nearest)
{
    float half = size / 2;
    if (batching && angle == 0) {
        batchedSquare(x, y, texture, r, g, b, a, half, nearest);
        return;
    }
    if (batching)
        closeBatchRun();
    placeTexture(x, y, angle, texture, r, g, b, a, nearest);
    texturedQuad(-half, -half, half, half);
}

// Many pictures are mostly see-through (the menu's console stands on a
// 512 x 512 sheet, panels have round corners), and a software renderer
// shades every pixel of a quad only to throw the clear ones away. So each
// texture's box of texels that are not wholly clear is read once from the
// texture itself, and only that box is drawn. A texel of alpha 0 adds nothing
// under any colour, so the picture on screen is the same. Textures are never
// deleted or refilled, so a box stays true for the whole run.
struct VisibleBox {
    int width, height;   // of the texture the box was read from
    int x0, y0, x1, y1;  // texels, upper bounds exclusive; empty when x0 >= x1
};
static std::unordered_map<TextureId, VisibleBox> visibleBoxes;

static VisibleBox readVisibleBox(int width, int height)
{
    VisibleBox box = {width, height, 0, 0, width, height};
    // A read that fails leaves the buffer opaque: the whole texture is drawn.
    std::vector<unsigned char> alpha((size_t)width * height, 255);
    GLint packAlignment = 4;
    glGetIntegerv(GL_PACK_ALIGNMENT, &packAlignment);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_ALPHA, GL_UNSIGNED_BYTE, alpha.data());
    glPixelStorei(GL_PACK_ALIGNMENT, packAlignment);
    int x0 = width, y0 = height, x1 = 0, y1 = 0;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++)
            if (alpha[(size_t)y * width + x]) {
                x0 = x < x0 ? x : x0;
                x1 = x + 1 > x1 ? x + 1 : x1;
                y0 = y < y0 ? y : y0;
                y1 = y + 1 > y1 ? y + 1 : y1;
            }
    box.x0 = x0, box.y0 = y0, box.x1 = x1, box.y1 = y1;
    return box;
}

static const VisibleBox &visibleBoxOf(TextureId texture, int width, int height)
{
    auto found = visibleBoxes.find(texture);
    if (found == visibleBoxes.end() || found->second.width != width || found->second.height != height)
        found = visibleBoxes.insert_or_assign(texture, readVisibleBox(width, height)).first;
    return found->second;
}

// The size is asked from OpenGL at every call rather than stored: it is the
// size of the texture AllegroGL made, which may differ from the picture's.
void drawTexture(float x, float y, TextureId texture, float r, float g, float b, float a)
{
    placeTexture(x, y, 0, texture, r, g, b, a, true);
    GLint width = 0, height = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &height);
    const float left = -width / 2.0f, bottom = -height / 2.0f;
    // Only where the texels meet whole pixels (every picture at a whole
    // position, as the screens place them) is the trimmed quad sure to pick
    // the very same texels; elsewhere the whole quad is drawn.
    if (width <= 0 || height <= 0 || x + left != floorf(x + left) || y + bottom != floorf(y + bottom)) {
        texturedQuad(left, bottom, -left, -bottom);
        return;
    }
    const VisibleBox &box = visibleBoxOf(texture, width, height);
    if (box.x0 >= box.x1 || box.y0 >= box.y1)
        return;
    glBegin(GL_QUADS);
    const float u0 = (float)box.x0 / width, u1 = (float)box.x1 / width;
    const float v0 = (float)box.y0 / height, v1 = (float)box.y1 / height;
    glTexCoord2f(u0, v0);
    glVertex2f(left + box.x0, bottom + box.y0);
    glTexCoord2f(u1, v0);
    glVertex2f(left + box.x1, bottom + box.y0);
    glTexCoord2f(u1, v1);
    glVertex2f(left + box.x1, bottom + box.y1);
    glTexCoord2f(u0, v1);
    glVertex2f(left + box.x0, bottom + box.y1);
    glEnd();
}

// Integer halves, so an odd size loses a pixel: widgets are laid out on these.
void drawTextureSized(int x, int y, TextureId texture, float r, float g, float b, float a, int w, int h)
{
    placeTexture((float)x, (float)y, 0, texture, r, g, b, a, true);
    texturedQuad((float)(-w / 2), (float)(-h / 2), (float)(w / 2), (float)(h / 2));
}

void drawStructure(float x, float y, int slot, float r, float g, float b, float a)
{
    if (slot < 0 || slot > 9)
        return;
    drawSquare(x, y, 0, StructureFrameTable[slot], r, g, b, a, 32, true);
}

void drawStructureIcon(float x, float y, int slot, float r, float g, float b, float a)
{
    if (slot < 0 || slot > 9)
        return;
    drawSquare(x, y, 0, StructureIconTable[slot], r, g, b, a, 32, true);
}

// The planet globes are twice the size of a cell and keep their smooth
// filtering, which suits a picture drawn larger than its detail.
void drawObject(float x, float y, int slot, float r, float g, float b, float a)
{
    if (slot < 0 || slot > 15)
        return;
    bool globe = slot >= 3 && slot <= 6;
    drawSquare(x, y, 0, ObjectFrameTable[slot], r, g, b, a, globe ? 64 : 32, !globe);
}

void drawTile(float x, float y, int slot, float r, float g, float b, float a)
{
    if (slot < 0 || slot > 22)
        return;
    float angle = slot == 16 ? (float)tileRotationAngle : 0;
    drawSquare(x, y, angle, TerrainSetTextures[slot], r, g, b, a, 32, true);
}

void drawBackgroundTile(float x, float y, int index, float r, float g, float b, float a)
{
    if (index < 0 || index > 5)
        return;
    drawSquare(x, y, 0, BackgroundSetTextures[index], r, g, b, a, 256, true);
}

// 1024 pixels overhang the 640 x 480 screen at every angle (its diagonal is
// 800), so the turning picture never shows a corner.
//
// It fills the screen on every menu, so on a software renderer it is most of
// a frame's cost. The picture is opaque: blending and the alpha test would
// only read back and test what it covers anyway. And it is never drawn
// smaller than its texture (512 pixels across), so only the magnifying filter
// is ever used: a plain bilinear minifying filter spares the renderer its
// per-pixel mipmap selection without changing a pixel.
void drawBackdrop()
{
    glDisable(GL_BLEND);
    glDisable(GL_ALPHA_TEST);
    placeTexture(SCREEN_WIDTH / 2, SCREEN_HEIGHT / 2, backdropAngle, SpriteTextures[39], 1, 1, 1, 1, false);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    texturedQuad(-512, -512, 512, 512);
    glEnable(GL_ALPHA_TEST);
    glEnable(GL_BLEND);
}
