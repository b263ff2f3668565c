// The drawing primitives. Each one reloads the model-view matrix, so no call
// depends on the transform another left behind; the only lasting effect is the
// nearest filtering some of them set on the texture they bind.

#include "render/draw.h"
#include "render/present.h"

#include "app/log.h"

#include <allegro.h>
#include <alleggl.h>
#include <GL/gl.h>

#include <algorithm>
#include <cmath>
#include <malloc.h>
#include <unordered_map>
#include <vector>

static void forgetTextureFacts();

void setDrawingState()
{
    forgetTextureFacts();
    glAlphaFunc(GL_GREATER, 0.01f);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glEnable(GL_ALPHA_TEST);
    glDisable(GL_CULL_FACE);
    glShadeModel(GL_SMOOTH);
    glViewport(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

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

// A software renderer builds every frame in memory it allocates and frees
// again: tens of blocks, some of them larger than the allocator's threshold
// for mapping a block of its own, and freed memory at the top of the heap is
// handed back to the system. Each frame then pays the kernel to map, clear
// and unmap the same pages, a third of the processor time of a busy game
// frame. Keeping what was freed (up to 64 MB, far above what a frame needs)
// lets the next frame reuse it.
void keepFrameMemory()
{
    mallopt(M_MMAP_THRESHOLD, 32 * 1024 * 1024);
    mallopt(M_TRIM_THRESHOLD, 64 * 1024 * 1024);
}

void presentFrame()
{
    enlargeFrame();
    glFlush();
    allegro_gl_flip();
    prepareNextFrame();
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

// A clear gives the same black as a screen-wide quad for a fraction of the
// work a software renderer puts into a blended one.
void clearToBlack()
{
    glClearColor(0, 0, 0, 0);
    glClear(GL_COLOR_BUFFER_BIT);
}

// What a texture's texels are made of, read once from the texture itself;
// textures are never deleted or refilled, so what was read stays true while
// their context lives. A new context hands out the same names for other
// pictures, so setting up its drawing state forgets them.
//
// Many pictures are mostly see-through (the menu's console stands on a
// 512 x 512 sheet, panels have round corners), and a software renderer
// shades every pixel of a quad only to throw the clear ones away. So each
// texture's box of texels that are not wholly clear is kept, and only that
// box is drawn. A texel of alpha 0 adds nothing under any colour, so the
// picture on screen is the same.
//
// Most pictures are wholly opaque (terrain, the level's backdrop, buttons) or
// opaque with wholly clear holes. Blending such a picture at full strength
// gives back exactly its own colour, and the alpha test throws away exactly
// its holes, so neither needs the renderer's per-pixel blend, which on a
// software renderer reads every covered pixel back. The alpha test stays on
// for wholly opaque pictures drawn in a colour: without it Mesa's software
// renderer takes a shortcut for large plain textured quads that rounds some
// colours a step differently, and the screen must not change by a shade.
// Drawn in white at their own size they can go without it (blendingFor says
// when).
enum TextureAlpha { SoftAlpha, HolesAlpha, OpaqueAlpha };

struct TextureFacts {
    int width, height;   // of the texture the facts were read from
    int x0, y0, x1, y1;  // texels not wholly clear, upper bounds exclusive; empty when x0 >= x1
    TextureAlpha alpha;
    int ix0, iy0, ix1, iy1;  // the largest box of wholly opaque texels; empty when ix0 >= ix1
};
static std::unordered_map<TextureId, TextureFacts> textureFacts;

// The largest box of texels of alpha 255, row by row over the heights of the
// opaque columns standing on each row.
static void findOpaqueBox(const std::vector<unsigned char> &alpha, int width, int height, TextureFacts *facts)
{
    std::vector<int> columnHeight(width + 1, 0), stack;
    long best = 0;
    for (int y = 0; y < height; y++) {
        for (int x = 0; x < width; x++)
            columnHeight[x] = alpha[(size_t)y * width + x] == 255 ? columnHeight[x] + 1 : 0;
        stack.clear();
        for (int x = 0; x <= width; x++) {
            const int h = x < width ? columnHeight[x] : 0;
            while (!stack.empty() && columnHeight[stack.back()] >= h) {
                const int top = columnHeight[stack.back()];
                stack.pop_back();
                const int left = stack.empty() ? 0 : stack.back() + 1;
                if ((long)top * (x - left) > best) {
                    best = (long)top * (x - left);
                    facts->ix0 = left, facts->ix1 = x, facts->iy0 = y + 1 - top, facts->iy1 = y + 1;
                }
            }
            stack.push_back(x);
        }
    }
}

static TextureFacts readTextureFacts(int width, int height)
{
    TextureFacts facts = {width, height, 0, 0, width, height, SoftAlpha, 0, 0, 0, 0};
    // A read that fails leaves the buffer opaque: the whole texture is drawn,
    // and blended, as if nothing were known.
    std::vector<unsigned char> alpha((size_t)width * height, 255);
    GLint packAlignment = 4;
    glGetIntegerv(GL_PACK_ALIGNMENT, &packAlignment);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_ALPHA, GL_UNSIGNED_BYTE, alpha.data());
    if (glGetError() != GL_NO_ERROR) {
        glPixelStorei(GL_PACK_ALIGNMENT, packAlignment);
        return facts;
    }
    glPixelStorei(GL_PACK_ALIGNMENT, packAlignment);
    int x0 = width, y0 = height, x1 = 0, y1 = 0;
    bool clearTexels = false, partTexels = false;
    for (int y = 0; y < height; y++)
        for (int x = 0; x < width; x++) {
            const unsigned char a = alpha[(size_t)y * width + x];
            clearTexels |= a == 0;
            partTexels |= a != 0 && a != 255;
            if (a) {
                x0 = x < x0 ? x : x0;
                x1 = x + 1 > x1 ? x + 1 : x1;
                y0 = y < y0 ? y : y0;
                y1 = y + 1 > y1 ? y + 1 : y1;
            }
        }
    facts.x0 = x0, facts.y0 = y0, facts.x1 = x1, facts.y1 = y1;
    facts.alpha = partTexels ? SoftAlpha : clearTexels ? HolesAlpha : OpaqueAlpha;
    if (facts.alpha == SoftAlpha)
        findOpaqueBox(alpha, width, height, &facts);
    return facts;
}

// The texture must be bound.
static const TextureFacts &factsOfBound(TextureId texture, int width, int height)
{
    auto found = textureFacts.find(texture);
    if (found == textureFacts.end() || found->second.width != width || found->second.height != height)
        found = textureFacts.insert_or_assign(texture, readTextureFacts(width, height)).first;
    return found->second;
}

static void boundSize(GLint *width, GLint *height)
{
    *width = *height = 0;
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, width);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, height);
}

// The texture must be bound.
static const TextureFacts &factsOfBound(TextureId texture)
{
    auto found = textureFacts.find(texture);
    if (found != textureFacts.end())
        return found->second;
    GLint width, height;
    boundSize(&width, &height);
    return factsOfBound(texture, width, height);
}

// Blend and alpha test as a picture needs them, and whether the texture's
// colour stands alone instead of being multiplied by the vertex colour.
// Every primitive leaves the blend and the alpha test switched on and the
// colour multiplying, as the screens' own drawing expects.
struct Blending {
    bool blend, alphaTest, textureOnly;
};
static const Blending FullBlending = {true, true, false};
static Blending blendingNow = FullBlending;

// setDrawingState switches both on in a new context.
static void forgetTextureFacts()
{
    textureFacts.clear();
    blendingNow = FullBlending;
}

static void setBlending(Blending wanted)
{
    if (wanted.blend != blendingNow.blend)
        wanted.blend ? glEnable(GL_BLEND) : glDisable(GL_BLEND);
    if (wanted.alphaTest != blendingNow.alphaTest)
        wanted.alphaTest ? glEnable(GL_ALPHA_TEST) : glDisable(GL_ALPHA_TEST);
    if (wanted.textureOnly != blendingNow.textureOnly)
        glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, wanted.textureOnly ? GL_REPLACE : GL_MODULATE);
    blendingNow = wanted;
}

// Only at full strength does blending give back the picture's own colour.
// Holes need the nearest texel: a smooth filter would make soft edges of them.
//
// A white colour multiplies the texture by one, so the texture alone gives
// the same picture. And an opaque picture in white, with the nearest texel,
// no blend and no alpha test, is one that Mesa's software renderer copies
// straight out of the texture, row by row, where the picture meets the
// screen's pixels one to one, instead of shading every pixel: the level's
// backdrop and most terrain. Only there, and only with sides of a power of
// two (a texel an exact fraction of the texture), is the copy sure to start
// on the very texel the shading would pick; elsewhere the picture keeps the
// alpha test, which the shortcut does not take.
static bool isWhite(float r, float g, float b)
{
    return r == 1.0f && g == 1.0f && b == 1.0f;
}

static bool isPowerOfTwo(int n)
{
    return n > 0 && (n & (n - 1)) == 0;
}

static Blending blendingFor(const TextureFacts &facts, float r, float g, float b, float a, bool nearest,
                            bool oneToOne)
{
    if (a != 1.0f)
        return FullBlending;
    if (facts.alpha == OpaqueAlpha && nearest && oneToOne && isWhite(r, g, b) && isPowerOfTwo(facts.width) &&
        isPowerOfTwo(facts.height))
        return Blending{false, false, true};
    if (facts.alpha == OpaqueAlpha)
        return Blending{false, true, false};
    if (facts.alpha == HolesAlpha && nearest)
        return Blending{false, true, false};
    return FullBlending;
}

// Steps 1 to 5 of every textured primitive: reset, place (and turn), colour,
// bind, and optionally switch the texture to nearest filtering for good; then
// the blending the picture needs.
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
    setBlending(blendingFor(factsOfBound(texture), r, g, b, a, nearest, false));
}

// The whole texture over the quad, counter-clockwise from the bottom-left.
static void wholeTextureQuad(float left, float bottom, float right, float top)
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

static void texturedQuad(float left, float bottom, float right, float top)
{
    wholeTextureQuad(left, bottom, right, top);
    setBlending(FullBlending);
}

// The texels x0..x1, y0..y1 of a texture drawn at its own size with its
// bottom-left corner at (left, bottom); nothing when the box is empty.
// Called between glBegin and glEnd.
static void texelBox(float left, float bottom, int width, int height, int x0, int y0, int x1, int y1)
{
    if (x0 >= x1 || y0 >= y1)
        return;
    const float u0 = (float)x0 / width, u1 = (float)x1 / width;
    const float v0 = (float)y0 / height, v1 = (float)y1 / height;
    glTexCoord2f(u0, v0);
    glVertex2f(left + x0, bottom + y0);
    glTexCoord2f(u1, v0);
    glVertex2f(left + x1, bottom + y0);
    glTexCoord2f(u1, v1);
    glVertex2f(left + x1, bottom + y1);
    glTexCoord2f(u0, v1);
    glVertex2f(left + x0, bottom + y1);
}

// A batch: the squares between beginQuadBatch and endQuadBatch that share a
// texture go to the renderer as one run of quads, each with its own colour
// and its corners worked out here, which is what the translation would give.
// A software renderer pays for every glBegin and every bind; a screen of
// terrain is hundreds of squares, most of them beside one of the same kind.
//
// Neighbouring cells seldom share a picture, though, so the squares are kept
// until their group ends and then sent sorted by layer and picture. That
// changes no pixel as long as the squares of one layer of a group do not
// overlap: the order of squares matters only where they cover the same pixel.
struct QueuedSquare {
    int layer;
    TextureId texture;
    bool nearest;
    float x, y, half;
    float r, g, b, a;
};
static std::vector<QueuedSquare> queuedSquares;
static int batchLayer = 0;
static bool batching = false;
static bool batchOpen = false;
static TextureId batchTexture = 0;
static bool batchNearest = false;
static Blending batchBlending = FullBlending;
static const TextureFacts *batchFacts = nullptr;

static void closeBatchRun()
{
    if (batchOpen)
        glEnd();
    batchOpen = false;
}

static void batchedSquare(float x, float y, TextureId texture, float r, float g, float b, float a, float half,
                          bool nearest);

static void sendQueuedSquares()
{
    std::stable_sort(queuedSquares.begin(), queuedSquares.end(), [](const QueuedSquare &p, const QueuedSquare &q) {
        return p.layer != q.layer ? p.layer < q.layer : p.texture < q.texture;
    });
    for (const QueuedSquare &q : queuedSquares)
        batchedSquare(q.x, q.y, q.texture, q.r, q.g, q.b, q.a, q.half, q.nearest);
    queuedSquares.clear();
}

void beginQuadBatch()
{
    resetDrawState();
    batching = true;
    batchOpen = false;
    batchFacts = nullptr;
    batchLayer = 0;
    queuedSquares.clear();
}

void setBatchLayer(int layer)
{
    batchLayer = layer;
}

void nextBatchGroup()
{
    if (batching)
        sendQueuedSquares();
    batchLayer = 0;
}

void endQuadBatch()
{
    sendQueuedSquares();
    closeBatchRun();
    batching = false;
    setBlending(FullBlending);
    resetDrawState();
}

static void batchedSquare(float x, float y, TextureId texture, float r, float g, float b, float a, float half,
                          bool nearest)
{
    // A run that keeps its texture keeps its filtering too.
    if (!(batchOpen && texture == batchTexture && (!nearest || batchNearest))) {
        closeBatchRun();
        glBindTexture(GL_TEXTURE_2D, texture);
        if (nearest) {
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        }
        batchTexture = texture;
        batchNearest = nearest;
        batchFacts = &factsOfBound(texture);
    }
    const TextureFacts &facts = *batchFacts;
    const float left = x - half, bottom = y - half;
    const bool oneToOne =
        facts.width == 2 * half && facts.height == 2 * half && left == floorf(left) && bottom == floorf(bottom);
    const Blending wanted = blendingFor(facts, r, g, b, a, batchNearest, oneToOne);
    if (!batchOpen || wanted.blend != batchBlending.blend || wanted.alphaTest != batchBlending.alphaTest ||
        wanted.textureOnly != batchBlending.textureOnly) {
        closeBatchRun();
        glLoadIdentity();
        glTranslatef(0, 0, 1);
        batchBlending = wanted;
        setBlending(batchBlending);
        glBegin(GL_QUADS);
        batchOpen = true;
    }
    glColor4f(r, g, b, a);
    if (batchNearest && oneToOne) {
        texelBox(left, bottom, facts.width, facts.height, facts.x0, facts.y0, facts.x1, facts.y1);
        return;
    }
    glTexCoord2f(0, 0);
    glVertex2f(x - half, y - half);
    glTexCoord2f(1, 0);
    glVertex2f(x + half, y - half);
    glTexCoord2f(1, 1);
    glVertex2f(x + half, y + half);
    glTexCoord2f(0, 1);
    glVertex2f(x - half, y + half);
}

static void drawPlacedTexture(float x, float y, TextureId texture, float r, float g, float b, float a, GLint width,
                              GLint height);

static void drawSquare(float x, float y, float angle, TextureId texture, float r, float g, float b, float a,
                       float size, bool nearest)
{
    float half = size / 2;
    if (batching && angle == 0) {
        queuedSquares.push_back(QueuedSquare{batchLayer, texture, nearest, x, y, half, r, g, b, a});
        return;
    }
    // A turned square reaches past its cell: it is drawn in its place among
    // the others, so it ends its group.
    if (batching) {
        sendQueuedSquares();
        closeBatchRun();
    }
    placeTexture(x, y, angle, texture, r, g, b, a, nearest);
    if (angle == 0 && nearest) {
        const TextureFacts &facts = factsOfBound(texture);
        if (facts.width == size && facts.height == size) {
            drawPlacedTexture(x, y, texture, r, g, b, a, facts.width, facts.height);
            return;
        }
    }
    texturedQuad(-half, -half, half, half);
}

// Below this many pixels the second draw costs more than the blending saved.
static const int MIN_OPAQUE_MIDDLE = 4096;

// The size is asked from OpenGL at every call rather than stored: it is the
// size of the texture AllegroGL made, which may differ from the picture's.
// The bound texture at its own size, centred on (x, y), where placeTexture put it.
static void drawPlacedTexture(float x, float y, TextureId texture, float r, float g, float b, float a, GLint width,
                              GLint height)
{
    const float left = -width / 2.0f, bottom = -height / 2.0f;
    // Only where the texels meet whole pixels (every picture at a whole
    // position, as the screens place them) is the trimmed quad sure to pick
    // the very same texels; elsewhere the whole quad is drawn.
    if (width <= 0 || height <= 0 || x + left != floorf(x + left) || y + bottom != floorf(y + bottom)) {
        texturedQuad(left, bottom, -left, -bottom);
        return;
    }
    const TextureFacts &box = factsOfBound(texture, width, height);
    if (box.x0 >= box.x1 || box.y0 >= box.y1) {
        setBlending(FullBlending);
        return;
    }
    setBlending(blendingFor(box, r, g, b, a, true, true));
    // A soft-edged picture with a large opaque middle (a panel, a button) is
    // drawn as that middle, without blending, and the frame around it,
    // blended: the two share no pixel, so the picture is the same.
    const bool splitMiddle =
        box.alpha == SoftAlpha && a == 1.0f && (box.ix1 - box.ix0) * (box.iy1 - box.iy0) >= MIN_OPAQUE_MIDDLE;
    glBegin(GL_QUADS);
    if (!splitMiddle) {
        texelBox(left, bottom, width, height, box.x0, box.y0, box.x1, box.y1);
    } else {
        texelBox(left, bottom, width, height, box.x0, box.y0, box.x1, box.iy0);
        texelBox(left, bottom, width, height, box.x0, box.iy1, box.x1, box.y1);
        texelBox(left, bottom, width, height, box.x0, box.iy0, box.ix0, box.iy1);
        texelBox(left, bottom, width, height, box.ix1, box.iy0, box.x1, box.iy1);
        glEnd();
        // The middle keeps the alpha test even in white: drawn as a copy, the
        // middles of the menu panels came out a shade off here and there.
        setBlending(Blending{false, true, false});
        glBegin(GL_QUADS);
        texelBox(left, bottom, width, height, box.ix0, box.iy0, box.ix1, box.iy1);
    }
    glEnd();
    setBlending(FullBlending);
}

void drawTexture(float x, float y, TextureId texture, float r, float g, float b, float a)
{
    placeTexture(x, y, 0, texture, r, g, b, a, true);
    GLint width, height;
    boundSize(&width, &height);
    drawPlacedTexture(x, y, texture, r, g, b, a, width, height);
}

// The whole texture over a quad of the given size, in rows bottom..top of
// the screen only; nothing when there are none.
static void texturedQuadInRows(int w, int h, int bottom, int top)
{
    if (bottom >= top)
        return;
    scissorPicture(0, bottom, SCREEN_WIDTH, top - bottom);
    wholeTextureQuad((float)(-w / 2), (float)(-h / 2), (float)(w / 2), (float)(h / 2));
}

// A picture stretched across but drawn at its own height (the game screen's
// panels, 512 texels wide on 640 pixels) still meets the screen row for row:
// its wholly clear rows can go, and rows that are opaque from end to end
// need no blending. Its quad stays whole and the rows are cut by the
// scissor: a quad of other corners would place a column's texels by other
// roundings, and where a pixel's centre falls on the seam of two texels that
// picks the other one. Only where nothing else scissors the screen, and where
// the picture's rows are the screen's own; false if it was not drawn.
static bool drawStretchedAcross(int y, TextureId texture, float a, int w, GLint width, GLint height)
{
    GLboolean scissoring = GL_TRUE;
    glGetBooleanv(GL_SCISSOR_TEST, &scissoring);
    if (scissoring || currentPicture().scale < 1)
        return false;
    const TextureFacts &box = factsOfBound(texture, width, height);
    const int bottom = y - height / 2;
    glEnable(GL_SCISSOR_TEST);
    if (box.alpha == SoftAlpha && a == 1.0f && box.ix0 == 0 && box.ix1 == width &&
        (box.iy1 - box.iy0) * w >= MIN_OPAQUE_MIDDLE) {
        texturedQuadInRows(w, height, bottom + box.y0, bottom + box.iy0);
        texturedQuadInRows(w, height, bottom + box.iy1, bottom + box.y1);
        setBlending(Blending{false, true, false});
        texturedQuadInRows(w, height, bottom + box.iy0, bottom + box.iy1);
    } else {
        texturedQuadInRows(w, height, bottom + box.y0, bottom + box.y1);
    }
    glDisable(GL_SCISSOR_TEST);
    setBlending(FullBlending);
    return true;
}

// Integer halves, so an odd size loses a pixel: widgets are laid out on these.
// A widget drawn at its picture's own even size covers the very pixels
// drawTexture would, so it takes drawTexture's savings.
void drawTextureSized(int x, int y, TextureId texture, float r, float g, float b, float a, int w, int h)
{
    placeTexture((float)x, (float)y, 0, texture, r, g, b, a, true);
    GLint width, height;
    boundSize(&width, &height);
    if (w == width && h == height && w % 2 == 0 && h % 2 == 0) {
        drawPlacedTexture((float)x, (float)y, texture, r, g, b, a, width, height);
        return;
    }
    if (h == height && h % 2 == 0 && drawStretchedAcross(y, texture, a, w, width, height))
        return;
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
// a frame's cost. The picture is opaque, so it goes without blending like
// every opaque picture. And it is never drawn smaller than
// its texture (512 pixels across), so only the magnifying filter is ever
// used: a plain bilinear minifying filter spares the renderer its per-pixel
// mipmap selection without changing a pixel.
void drawBackdrop()
{
    placeTexture(SCREEN_WIDTH / 2, SCREEN_HEIGHT / 2, backdropAngle, SpriteTextures[39], 1, 1, 1, 1, false);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    // A turned picture never takes the renderer's shortcut: the alpha test
    // can go too (the same picture, checked against a dump of it), and the
    // white colour with it.
    setBlending(Blending{false, false, true});
    texturedQuad(-512, -512, 512, 512);
}

void checkGlError()
{
    static const char *const names[] = {"GL_INVALID_ENUM", "GL_INVALID_VALUE", "GL_INVALID_OPERATION",
                                        "GL_STACK_OVERFLOW", "GL_STACK_UNDERFLOW", "GL_OUT_OF_MEMORY"};
    GLenum error = glGetError();
    if (error >= 0x500 && error <= 0x505)
        logLine("# ERROR! # ERROR: %s", names[error - 0x500]);
}
