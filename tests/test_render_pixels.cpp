// The drawing primitives, text and stars rendered for real into an offscreen
// OSMesa context and checked pixel by pixel.

#include "app/screens.h"
#include "game/camera.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/text.h"
#include "render/textures.h"

#include <GL/osmesa.h>
#include <gtest/gtest.h>

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
    static OSMesaContext context;
    static std::vector<unsigned char> buffer;

    static void SetUpTestSuite()
    {
        context = OSMesaCreateContextExt(OSMESA_RGBA, 0, 0, 0, nullptr);
        ASSERT_NE(context, nullptr);
        buffer.assign(SCREEN_WIDTH * SCREEN_HEIGHT * 4, 0);
        ASSERT_TRUE(OSMesaMakeCurrent(context, buffer.data(), GL_UNSIGNED_BYTE, SCREEN_WIDTH, SCREEN_HEIGHT));
        // The state start-up sets and every primitive relies on.
        glViewport(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
        glAlphaFunc(GL_GREATER, 0.01f);
        glEnable(GL_TEXTURE_2D);
        glEnable(GL_BLEND);
        glEnable(GL_ALPHA_TEST);
        glDisable(GL_CULL_FACE);
        glShadeModel(GL_SMOOTH);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
        beginFrame2D();
    }

    static void TearDownTestSuite()
    {
        endFrame2D();
        OSMesaDestroyContext(context);
    }

    void SetUp() override
    {
        // If libGL had taken the gl* symbols, these calls would go nowhere.
        ASSERT_NE(glGetString(GL_RENDERER), nullptr);
        fill(Black);
        ASSERT_EQ(at(320, 240), Black);
    }

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
    static std::pair<int, int> coveredColumns(int y, Rgba background)
    {
        int first = -1, last = -1;
        for (int x = 0; x < SCREEN_WIDTH; x++)
            if (!(at(x, y) == background)) {
                if (first < 0)
                    first = x;
                last = x;
            }
        return {first, last};
    }
    static std::pair<int, int> coveredRows(int x, Rgba background)
    {
        int first = -1, last = -1;
        for (int y = 0; y < SCREEN_HEIGHT; y++)
            if (!(at(x, y) == background)) {
                if (first < 0)
                    first = y;
                last = y;
            }
        return {first, last};
    }
};

OSMesaContext Pixels::context;
std::vector<unsigned char> Pixels::buffer;

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
    drawText(FontTextures[1], 100, 50, 256, 128, 12, 12, -2, "Ok");
    EXPECT_EQ(coveredColumns(55, Black), std::make_pair(100, 121)) << "O at 100..112, k at 110..122";
    EXPECT_EQ(coveredRows(105, Black), std::make_pair(50, 61));
    EXPECT_EQ(at(105, 55), cellColour(2, 3)) << "O is row 3, column 2";
    EXPECT_EQ(at(111, 55), cellColour(4, 1)) << "k, drawn later, covers the overlap";
    EXPECT_EQ(at(121, 61), cellColour(4, 1));
    EXPECT_EQ(filterOf(sheet), GL_NEAREST);

    fill(Black);
    glColor4f(1, 1, 1, 1);
    drawTextCentred(FontTextures[1], 320, 50, 256, 128, 12, 12, -2, "Ok");
    EXPECT_EQ(coveredColumns(55, Black), std::make_pair(308, 329));

    // A character without a cell leaves a gap one advance wide.
    fill(Black);
    glColor4f(1, 1, 1, 1);
    drawText(FontTextures[1], 100, 50, 256, 128, 12, 12, -2, "O|k");
    EXPECT_EQ(at(105, 55), cellColour(2, 3));
    EXPECT_EQ(at(115, 55), Black);
    EXPECT_EQ(at(125, 55), cellColour(4, 1)) << "k at index 2";
    EXPECT_EQ(at(132, 55), Black);

    // Formatted, including the minus sign and the space cell.
    fill(Black);
    glColor4f(1, 1, 1, 1);
    drawText(FontTextures[1], 100, 50, 256, 128, 12, 12, -2, "%d %s", -12, "\xE9z");
    EXPECT_EQ(at(105, 55), cellColour(13, 4)) << "-";
    EXPECT_EQ(at(115, 55), cellColour(1, 0)) << "1";
    EXPECT_EQ(at(125, 55), cellColour(2, 0)) << "2";
    EXPECT_EQ(at(135, 55), cellColour(10, 5)) << "the space has a cell of its own";

    // The text takes the colour set before the call.
    fill(Black);
    glColor4f(1, 0, 0, 1);
    drawText(FontTextures[1], 100, 50, 256, 128, 12, 12, -2, "O");
    EXPECT_EQ(at(105, 55), (Rgba{cellColour(2, 3).r, 0, 0, 255}));

    // Nothing to draw draws nothing.
    fill(Black);
    drawTextCentred(FontTextures[1], 320, 50, 256, 128, 12, 12, -2, "%s", "");
    drawText(FontTextures[1], 320, 50, 256, 128, 12, 12, -2, "%s", "");
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

TEST_F(Pixels, ClearToBlackOnlyInTheMenuAndCredits)
{
    const struct {
        u32 screen;
        Rgba after;
    } cases[] = {
        {MainMenu, Black}, {CreditsScreen, Black}, {Playing, White}, {Options, White}, {Transition, White},
    };
    for (const auto &c : cases) {
        fill(White);
        currentScreen = c.screen;
        clearToBlack();
        EXPECT_EQ(at(0, 0), c.after) << c.screen;
        EXPECT_EQ(at(639, 479), c.after) << c.screen;
    }
    currentScreen = Intro;
}

TEST_F(Pixels, ResetDrawStateGivesPlainOpaqueWhiteUntextured)
{
    // Leave a red texture bound and a dim colour set, as a previous draw would.
    TextureId red = solid(8, 8, Red);
    drawTexture(50, 50, red, 0.2f, 0.2f, 0.2f, 0.5f);

    resetDrawState();
    glBegin(GL_QUADS);
    glVertex2f(100, 100);
    glVertex2f(120, 100);
    glVertex2f(120, 120);
    glVertex2f(100, 120);
    glEnd();
    EXPECT_EQ(at(110, 110), White);

    drawRect(200, 200, 220, 220, 0, 0, 1, 1);
    EXPECT_EQ(at(210, 210), Blue);
    EXPECT_EQ(at(199, 210), Black);

    // Half-transparent colours blend with what is below.
    drawRect(300, 300, 320, 320, 1, 1, 1, 0.5f);
    Rgba half = at(310, 310);
    EXPECT_NEAR(half.r, 128, 2);
}

TEST_F(Pixels, WorldStarsScrollWithTheCameraScreenStarsDoNot)
{
    StarTextures[0] = solid(8, 8, White);
    clearStars();
    StarList.push_back(makeStar(100, 100, 3));  // in the world
    StarList.push_back(makeStar(300, 60, 0));   // on the screen
    camX = 40.7f;
    camY = -20.2f;
    drawStars();
    // 100 + trunc(-40.7) + 16 = 76, 100 + trunc(20.2) + 16 = 136; 8 x 8 around it.
    EXPECT_EQ(coveredColumns(136, Black), std::make_pair(72, 79));
    EXPECT_EQ(coveredRows(76, Black), std::make_pair(132, 139));
    EXPECT_EQ(coveredColumns(60, Black), std::make_pair(296, 303));
    camX = camY = 0;
    clearStars();
}
