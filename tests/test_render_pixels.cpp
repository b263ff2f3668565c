// The drawing primitives, text and stars rendered for real into an offscreen
// OSMesa context and checked pixel by pixel.

#include "app/screens.h"
#include "game/camera.h"
#include "game/levelview.h"
#include "render/draw.h"
#include "render/present.h"
#include "render/stars.h"
#include "render/text.h"
#include "render/textures.h"
#include "support/offscreen_gl.h"
#include "world/level.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

struct Rgba {
    unsigned char r, g, b, a;
    bool operator==(const Rgba &o) const { return r == o.r && g == o.g && b == o.b; }
};
static std::ostream &operator<<(std::ostream &out, const Rgba &c)
{
    return out << "(" << (int)c.r << "," << (int)c.g << "," << (int)c.b << ")";
}

static const Rgba Black = {0, 0, 0, 255};
static const Rgba White = {255, 255, 255, 255};
static const Rgba Red = {255, 0, 0, 255};
static const Rgba Green = {0, 255, 0, 255};
static const Rgba Blue = {0, 0, 255, 255};

// A texture from a picture given top row first, as pictures are drawn; it is
// stored bottom row first, as the game's textures are.
static TextureId makePicture(int w, int h, const std::function<Rgba(int x, int yFromTop)> &pixel)
{
    std::vector<Rgba> data((size_t)w * h);
    for (int y = 0; y < h; y++)
        for (int x = 0; x < w; x++)
            data[(size_t)(h - 1 - y) * w + x] = pixel(x, y);
    GLuint id;
    glGenTextures(1, &id);
    glBindTexture(GL_TEXTURE_2D, id);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA8, w, h, 0, GL_RGBA, GL_UNSIGNED_BYTE, data.data());
    glBindTexture(GL_TEXTURE_2D, 0);
    return id;
}

static TextureId solid(int w, int h, Rgba c)
{
    return makePicture(w, h, [c](int, int) { return c; });
}

static GLint filterOf(TextureId id)
{
    GLint mag = 0;
    glBindTexture(GL_TEXTURE_2D, id);
    glGetTexParameteriv(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, &mag);
    return mag;
}

class Pixels : public ::testing::Test {
protected:
    void SetUp() override
    {
        useOffscreenContext();
        beginFrame2D();
        fill(Black);
        ASSERT_EQ(at(320, 240), Black);
    }

    void TearDown() override { endFrame2D(); }

    static void fill(Rgba c)
    {
        glClearColor(c.r / 255.0f, c.g / 255.0f, c.b / 255.0f, 1);
        glClear(GL_COLOR_BUFFER_BIT);
    }

    static Rgba at(int x, int y)
    {
        Rgba c;
        glFinish();
        glReadPixels(x, y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, &c);
        return c;
    }

    // The pixels of row y (or column x) that differ from the background.
    static std::pair<int, int> covered(int at_, Rgba background, bool columns)
    {
        int first = -1, last = -1;
        for (int i = 0; i < (columns ? SCREEN_WIDTH : SCREEN_HEIGHT); i++)
            if (!(columns ? at(i, at_) == background : at(at_, i) == background)) {
                if (first < 0)
                    first = i;
                last = i;
            }
        return {first, last};
    }
    static std::pair<int, int> coveredColumns(int y, Rgba background) { return covered(y, background, true); }
    static std::pair<int, int> coveredRows(int x, Rgba background) { return covered(x, background, false); }
};


// Each cell of the sheet gets its own colour, so a glyph shows which cell it
// was cut from.
static Rgba cellColour(int column, int row)
{
    return Rgba{(unsigned char)(40 + column * 12), (unsigned char)(30 + row * 40), 200, 255};
}

TEST_F(Pixels, TextIsFixedPitchAndCutFromTheRightCells)
{
    const int cell = 12;
    TextureId sheet = makePicture(256, 128, [](int x, int y) {
        int column = x / cell, row = y / cell;
        return column < 16 && row < 6 ? cellColour(column, row) : Rgba{0, 0, 0, 0};
    });
    FontTextures[1] = sheet;

    glColor4f(1, 1, 1, 1);
    drawText(MediumFont, 100, 50, "Ok");
    EXPECT_EQ(coveredColumns(55, Black), std::make_pair(100, 121)) << "O at 100..112, k at 110..122";
    EXPECT_EQ(coveredRows(105, Black), std::make_pair(50, 61));
    EXPECT_EQ(at(105, 55), cellColour(2, 3)) << "O is row 3, column 2";
    EXPECT_EQ(at(111, 55), cellColour(4, 1)) << "k, drawn later, covers the overlap";
    EXPECT_EQ(at(121, 61), cellColour(4, 1));
    EXPECT_EQ(filterOf(sheet), GL_NEAREST);

    fill(Black);
    glColor4f(1, 1, 1, 1);
    drawTextCentred(MediumFont, 320, 50, "Ok");
    EXPECT_EQ(coveredColumns(55, Black), std::make_pair(308, 329));

    // A character without a cell leaves a gap one advance wide.
    fill(Black);
    glColor4f(1, 1, 1, 1);
    drawText(MediumFont, 100, 50, "O|k");
    EXPECT_EQ(at(105, 55), cellColour(2, 3));
    EXPECT_EQ(at(115, 55), Black);
    EXPECT_EQ(at(125, 55), cellColour(4, 1)) << "k at index 2";
    EXPECT_EQ(at(132, 55), Black);

    // Formatted, including the minus sign and the space cell.
    fill(Black);
    glColor4f(1, 1, 1, 1);
    drawText(MediumFont, 100, 50, "%d %s", -12, "\xE9z");
    EXPECT_EQ(at(105, 55), cellColour(13, 4)) << "-";
    EXPECT_EQ(at(115, 55), cellColour(1, 0)) << "1";
    EXPECT_EQ(at(125, 55), cellColour(2, 0)) << "2";
    EXPECT_EQ(at(135, 55), cellColour(10, 5)) << "the space has a cell of its own";

    // The text takes the colour set before the call.
    fill(Black);
    glColor4f(1, 0, 0, 1);
    drawText(MediumFont, 100, 50, "O");
    EXPECT_EQ(at(105, 55), (Rgba{cellColour(2, 3).r, 0, 0, 255}));

    // Nothing to draw draws nothing.
    fill(Black);
    drawTextCentred(MediumFont, 320, 50, "%s", "");
    drawText(MediumFont, 320, 50, "%s", "");
    EXPECT_EQ(coveredColumns(55, Black), std::make_pair(-1, -1));
}

TEST_F(Pixels, QuadsCoverTheirSizeAroundTheCentre)
{
    TextureId button = solid(256, 32, White);
    drawTextureSized(320, 240, button, 1, 1, 1, 1, 256, 32);
    EXPECT_EQ(coveredColumns(240, Black), std::make_pair(192, 447));
    EXPECT_EQ(coveredRows(320, Black), std::make_pair(224, 255));
    EXPECT_EQ(filterOf(button), GL_NEAREST);

    // Odd sizes are halved toward zero: 5 wide spans -2..2, four pixels.
    fill(Black);
    drawTextureSized(100, 100, button, 1, 1, 1, 1, 5, 5);
    EXPECT_EQ(coveredColumns(100, Black), std::make_pair(98, 101));

    // drawTexture takes the texture's own size.
    fill(Black);
    TextureId logo = solid(64, 16, Green);
    drawTexture(300, 200, logo, 1, 1, 1, 1);
    EXPECT_EQ(coveredColumns(200, Black), std::make_pair(268, 331));
    EXPECT_EQ(coveredRows(300, Black), std::make_pair(192, 207));
    EXPECT_EQ(at(300, 200), Green);

    // Globes are 64 x 64 and keep their filtering; other objects are a cell.
    fill(Black);
    TextureId globe = solid(16, 16, Blue), pod = solid(16, 16, Red);
    ObjectFrameTable[4] = globe;
    ObjectFrameTable[0] = pod;
    drawObject(100, 100, 4, 1, 1, 1, 1);
    drawObject(300, 100, 0, 1, 1, 1, 1);
    EXPECT_EQ(coveredRows(100, Black), std::make_pair(68, 131));
    EXPECT_EQ(coveredRows(300, Black), std::make_pair(84, 115));
    EXPECT_EQ(filterOf(globe), GL_LINEAR);
    EXPECT_EQ(filterOf(pod), GL_NEAREST);

    // The colour multiplies the picture.
    fill(Black);
    drawTexture(300, 200, solid(8, 8, White), 0, 1, 0, 1);
    EXPECT_EQ(at(300, 200), Green);
}

TEST_F(Pixels, OnlyTileSixteenTurns)
{
    // Left half red, right half green.
    TextureId tile = makePicture(32, 32, [](int x, int) { return x < 16 ? Red : Green; });
    TerrainSetTextures[16] = tile;
    TerrainSetTextures[15] = tile;

    tileRotationAngle = 90;  // counter-clockwise: the left half goes down
    drawTile(200, 200, 16, 1, 1, 1, 1);
    drawTile(400, 200, 15, 1, 1, 1, 1);
    EXPECT_EQ(at(200, 190), Red);
    EXPECT_EQ(at(200, 210), Green);
    EXPECT_EQ(at(390, 200), Red);
    EXPECT_EQ(at(410, 200), Green);

    fill(Black);
    tileRotationAngle = -90;
    drawTile(200, 200, 16, 1, 1, 1, 1);
    EXPECT_EQ(at(200, 210), Red);
    EXPECT_EQ(at(200, 190), Green);
    tileRotationAngle = 0;

    // The backdrop overhangs every corner at any angle.
    fill(Black);
    SpriteTextures[39] = solid(16, 16, White);
    backdropAngle = 45;
    drawBackdrop();
    for (auto corner : {std::make_pair(0, 0), std::make_pair(639, 0), std::make_pair(0, 479), std::make_pair(639, 479)})
        EXPECT_EQ(at(corner.first, corner.second), White) << corner.first << "," << corner.second;
    backdropAngle = 0;
}

TEST_F(Pixels, WorldStarsScrollWithTheCameraScreenStarsDoNot)
{
    StarTextures[0] = solid(8, 8, White);
    clearStars();
    StarList.push_back(makeStar(100, 100, 3));  // in the world
    StarList.push_back(makeStar(300, 60, 0));   // on the screen
    camX = 40.7f;
    camY = -20.2f;
    drawStars(viewOriginX(), viewOriginY());
    // 100 + trunc(-40.7) + 16 = 76, 100 + trunc(20.2) + 16 = 136; 8 x 8 around it.
    EXPECT_EQ(coveredColumns(136, Black), std::make_pair(72, 79));
    EXPECT_EQ(coveredRows(76, Black), std::make_pair(132, 139));
    EXPECT_EQ(coveredColumns(60, Black), std::make_pair(296, 303));
    camX = camY = 0;
    clearStars();
}

// The shortcuts the drawing takes for a software renderer (squares sent
// sorted by picture, pictures drawn without blending, a panel's opaque middle
// drawn apart from its edge) must leave every pixel as plain drawing, in the
// order the game asks for, would have it.

// Half see-through, so any two pictures over one pixel show their order.
static TextureId softPicture(int w, int h, int seed)
{
    return makePicture(w, h, [seed](int x, int y) {
        return Rgba{(unsigned char)(seed * 37 + x * 5), (unsigned char)(seed * 91 + y * 7),
                    (unsigned char)(x * y + seed), (unsigned char)(60 + (x + y + seed) % 150)};
    });
}

// Opaque with a ring of soft texels and a few clear ones: the panels' kind.
static TextureId panelPicture(int w, int h)
{
    return makePicture(w, h, [w, h](int x, int y) {
        const int ring = std::min(std::min(x, y), std::min(w - 1 - x, h - 1 - y));
        const unsigned char a = ring == 0 ? 0 : ring < 4 ? (unsigned char)(ring * 60) : 255;
        return Rgba{(unsigned char)(x * 3), (unsigned char)(y * 3), (unsigned char)(x ^ y), a};
    });
}

// A background of every shade, for blending to show against.
static void shadedBackground()
{
    glClearColor(0, 0, 0, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    static const TextureId shades = makePicture(64, 64, [](int x, int y) {
        return Rgba{(unsigned char)(x * 4), (unsigned char)(y * 4), (unsigned char)(128 + x - y), 255};
    });
    drawTextureSized(320, 240, shades, 1, 1, 1, 1, 640, 480);
}

static std::vector<unsigned char> wholeFrame()
{
    std::vector<unsigned char> pixels(SCREEN_WIDTH * SCREEN_HEIGHT * 4);
    glFinish();
    glReadPixels(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

// The window shows no alpha: only colours count.
static size_t differingPixels(const std::vector<unsigned char> &a, const std::vector<unsigned char> &b)
{
    size_t n = 0;
    for (size_t i = 0; i < a.size(); i += 4)
        n += a[i] != b[i] || a[i + 1] != b[i + 1] || a[i + 2] != b[i + 2];
    return n;
}

TEST_F(Pixels, BatchedTerrainAndEdgesLookAsDrawnOneByOne)
{
    for (int slot = 0; slot < 23; slot++)
        TerrainSetTextures[slot] = softPicture(32, 32, slot);
    for (int slot = 0; slot < 16; slot++)
        ObjectFrameTable[slot] = softPicture(32, 32, 40 + slot);
    tileRotationAngle = 30;  // the vortex reaches over its neighbours
    pulseB = 0.4f;

    // Every kind of cell, with open cells among them so edges fall on all
    // sides and meet at the corners of neighbouring columns.
    Level level;
    level.planet = 1;
    level.width = 20;
    level.height = 15;
    level.terrain.assign(level.width, std::vector<int32_t>(level.height, Empty));
    level.structures.assign(level.width, std::vector<int32_t>(level.height, 0));
    for (int x = 1; x < level.width - 1; x++)
        for (int y = 1; y < level.height - 1; y++) {
            const int k = (x * 7 + y * 5) % 26;
            level.terrain[x][y] = (k >= 23 || (x + y) % 3 == 0) ? Empty : k;
        }
    currentLevel = level;
    camX = -16;
    camY = -16;
    const VisibleCells cells = {0, level.width, 0, level.height};
    const float ox = viewOriginX(), oy = viewOriginY();

    shadedBackground();
    drawTerrainCells(cells, ox, oy);
    drawTerrainEdges(cells, ox, oy);
    const std::vector<unsigned char> batched = wholeFrame();
    shadedBackground();
    drawTerrainCells(cells, ox, oy);
    EXPECT_GT(differingPixels(batched, wholeFrame()), 2000u) << "the edges must show";

    shadedBackground();
    for (int x = cells.x0; x < cells.x1; x++)
        for (int y = cells.y0; y < cells.y1; y++)
            drawTerrainCell(level, x, y, ox + 32.0f * x, oy - 32.0f * y);
    for (int x = cells.x0; x < cells.x1; x++)
        for (int y = cells.y0; y < cells.y1; y++)
            drawEdgeOverlays(level, x, y, ox + 32.0f * x, oy - 32.0f * y);
    const std::vector<unsigned char> oneByOne = wholeFrame();

    EXPECT_EQ(differingPixels(batched, oneByOne), 0u);
}

// The reference: the whole texture, blended and alpha-tested as the screens
// were first drawn.
static void plainPicture(float x, float y, TextureId texture, int w, int h, float r, float g, float b, float a)
{
    glLoadIdentity();
    glTranslatef(x, y, 1);
    glColor4f(r, g, b, a);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0);
    glVertex2f(-w / 2.0f, -h / 2.0f);
    glTexCoord2f(1, 0);
    glVertex2f(w / 2.0f, -h / 2.0f);
    glTexCoord2f(1, 1);
    glVertex2f(w / 2.0f, h / 2.0f);
    glTexCoord2f(0, 1);
    glVertex2f(-w / 2.0f, h / 2.0f);
    glEnd();
    resetDrawState();
}

TEST_F(Pixels, PicturesDrawnUnblendedLookAsBlendedOnes)
{
    const TextureId opaque = makePicture(128, 128, [](int x, int y) {
        return Rgba{(unsigned char)(x * 2), (unsigned char)(255 - y), (unsigned char)(x + y), 255};
    });
    const TextureId holes = makePicture(64, 64, [](int x, int y) {
        return Rgba{(unsigned char)(x * 4), 90, (unsigned char)(y * 4), (unsigned char)((x / 8 + y / 8) % 2 ? 255 : 0)};
    });
    const TextureId panel = panelPicture(256, 200);
    const TextureId smallPanel = panelPicture(40, 40);
    // A ring round a clear window, a speck inside it and a dotted top row:
    // clear texels inside the box that is drawn must stay clear.
    const TextureId ringed = makePicture(64, 32, [](int x, int y) {
        const bool ring = x >= 4 && x < 60 && y >= 2 && y < 30 && !(x >= 14 && x < 50 && y >= 8 && y < 24);
        const bool seen = ring || (x == 30 && y == 15) || (y == 0 && x % 5 == 0);
        return Rgba{(unsigned char)(255 - x * 3), 90, (unsigned char)(y * 7), (unsigned char)(seen ? 100 + y * 4 : 0)};
    });
    const TextureId clear = makePicture(64, 32, [](int, int) { return Rgba{200, 10, 200, 0}; });
    struct Case {
        TextureId texture;
        int w, h;
        float x, y, r, g, b, a;
    };
    // Whole and half positions, full and part strength, white and tinted,
    // half off the screen.
    const Case cases[] = {
        {opaque, 128, 128, 100, 100, 1, 1, 1, 1},      {opaque, 128, 128, 240, 120, 0.3f, 0.8f, 1, 1},
        {opaque, 128, 128, 400, 100, 1, 1, 1, 0.5f},   {holes, 64, 64, 560, 100, 1, 1, 1, 1},
        {holes, 64, 64, 560, 200, 0.7f, 1, 0.2f, 1},   {holes, 64, 64, 560, 300, 1, 1, 1, 0.6f},
        {panel, 256, 200, 200, 330, 1, 1, 1, 1},       {panel, 256, 200, 330, 300, 0.9f, 0.6f, 1, 1},
        {panel, 256, 200, 420, 380, 1, 1, 1, 0.8f},    {smallPanel, 40, 40, 40, 440, 1, 1, 1, 1},
        {panel, 256, 200, 300.5f, 240, 1, 1, 1, 1},    {ringed, 64, 32, 200, 300, 1, 1, 1, 0.7f},
        {clear, 64, 32, 300, 200, 1, 1, 1, 1},          {holes, 64, 64, 639, 0, 1, 0.8f, 1, 0.4f},
        {panel, 256, 200, 639, 479, 1, 1, 1, 1},
    };
    for (const Case &c : cases) {
        shadedBackground();
        drawTexture(c.x, c.y, c.texture, c.r, c.g, c.b, c.a);
        const std::vector<unsigned char> drawn = wholeFrame();
        shadedBackground();
        plainPicture(c.x, c.y, c.texture, c.w, c.h, c.r, c.g, c.b, c.a);
        EXPECT_EQ(differingPixels(drawn, wholeFrame()), 0u) << "picture " << c.w << "x" << c.h << " at " << c.x << ", " << c.y
                                                        << " alpha " << c.a;
    }

    // Each primitive leaves blending and the alpha test on for what follows.
    drawTexture(100, 100, opaque, 1, 1, 1, 1);
    drawTexture(200, 330, panel, 1, 1, 1, 1);
    EXPECT_TRUE(glIsEnabled(GL_BLEND));
    EXPECT_TRUE(glIsEnabled(GL_ALPHA_TEST));
}

// A frame with a different colour in nearly every pixel, its corners marked.
static void drawPatternedFrame()
{
    static TextureId pattern = 0;
    if (!pattern)
        pattern = makePicture(512, 256, [](int x, int y) {
            return Rgba{(unsigned char)(x * 7 + y), (unsigned char)(y * 5 + x / 3), (unsigned char)(x ^ y), 255};
        });
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0.2f, 0.4f, 0.6f, 1);
    drawTexture(300, 250, pattern, 1, 1, 1, 1);
    drawRect(0, 0, 1, 1, 1, 0, 0, 1);
    drawRect(SCREEN_WIDTH - 1, SCREEN_HEIGHT - 1, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 1, 0, 1);
    // The game screen clips the level to the band between its panels.
    scissorPicture(40, 30, 100, 60);
    glEnable(GL_SCISSOR_TEST);
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 1, 1, 0, 1);
    glDisable(GL_SCISSOR_TEST);
}

static std::vector<Rgba> readRect(int w, int h)
{
    std::vector<Rgba> pixels((size_t)w * h);
    glFinish();
    glReadPixels(0, 0, w, h, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
    return pixels;
}

// The picture in a larger window: every pixel of the 640 x 480 frame becomes
// a square of scale x scale window pixels at its place, the rest is black,
// and the screens find their drawing state as they left it.
TEST_F(Pixels, APictureInALargerWindowIsTheFrameWithEveryPixelEnlarged)
{
    const OSMesaContext context = OSMesaGetCurrentContext();
    drawPatternedFrame();
    const std::vector<Rgba> frame = readRect(SCREEN_WIDTH, SCREEN_HEIGHT);
    ASSERT_EQ(frame[0], Red);
    ASSERT_EQ(frame.back(), Green);
    ASSERT_EQ(frame[(size_t)30 * SCREEN_WIDTH + 40], (Rgba{255, 255, 0, 255}));
    ASSERT_EQ(frame[(size_t)29 * SCREEN_WIDTH + 40], (Rgba{51, 102, 153, 255}));

    struct Case {
        int w, h, scale;
    } cases[] = {{1280, 960, 2}, {1300, 980, 2}, {1920, 1440, 3}, {700, 500, 1}};
    for (const Case &c : cases) {
        std::vector<unsigned char> window((size_t)c.w * c.h * 4, 77);
        ASSERT_TRUE(OSMesaMakeCurrent(context, window.data(), GL_UNSIGNED_BYTE, c.w, c.h));
        setPresentationWindow(c.w, c.h);
        const PictureRect p = currentPicture();
        ASSERT_EQ(p.scale, c.scale);
        GLfloat projection[16];
        glGetFloatv(GL_PROJECTION_MATRIX, projection);

        drawPatternedFrame();
        enlargeFrame();

        const std::vector<Rgba> shown = readRect(c.w, c.h);
        int wrong = 0;
        for (int y = 0; y < c.h; y++)
            for (int x = 0; x < c.w; x++) {
                // OpenGL's rows run upward: the picture's top is at window row p.y.
                const int px = x - p.x, py = y - (c.h - p.y - p.height);
                const bool inside = px >= 0 && py >= 0 && px < p.width && py < p.height;
                const Rgba want = inside ? frame[(size_t)(py / c.scale) * SCREEN_WIDTH + px / c.scale] : Black;
                if (!(shown[(size_t)y * c.w + x] == want) && wrong++ < 5)
                    ADD_FAILURE() << c.w << " x " << c.h << ": window pixel " << x << ", " << y << " is "
                                  << shown[(size_t)y * c.w + x] << ", not " << want;
            }
        EXPECT_EQ(wrong, 0) << c.w << " x " << c.h;

        GLint viewport[4];
        glGetIntegerv(GL_VIEWPORT, viewport);
        if (c.scale >= 2)
            EXPECT_EQ(std::vector<GLint>(viewport, viewport + 4), (std::vector<GLint>{0, 0, 640, 480}));
        GLfloat after[16];
        glGetFloatv(GL_PROJECTION_MATRIX, after);
        EXPECT_EQ(memcmp(projection, after, sizeof after), 0);
        EXPECT_TRUE(glIsEnabled(GL_BLEND));
        EXPECT_TRUE(glIsEnabled(GL_ALPHA_TEST));
    }

    setPresentationWindow(SCREEN_WIDTH, SCREEN_HEIGHT);
    ASSERT_TRUE(OSMesaMakeCurrent(context, offscreenFrame().data(), GL_UNSIGNED_BYTE, SCREEN_WIDTH, SCREEN_HEIGHT));
}
