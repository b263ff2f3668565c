// Every pixel a player sees is drawn anew each frame: a screen rendered over
// noise and the same screen rendered over black must come out the same. A
// pixel that differs is one the screen leaves as the last frame left it,
// which a player sees as streaks and as old text under new.
//
// The real pictures from the datafile, drawn into an offscreen OSMesa context.

#include "app/screens.h"
#include "app/startup.h"
#include "editor/editor.h"
#include "frontend/frontend.h"
#include "frontend/screens.h"
#include "game/camera.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "render/offscreen.h"
#include "render/stars.h"
#include "render/textures.h"
#include "world/catalogue.h"
#include "world/level.h"
#include "support/offscreen_gl.h"

#include <allegro.h>
#include <jpgalleg.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <list>
#include <string>
#include <vector>

class EveryPixel : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ASSERT_EQ(install_allegro(SYSTEM_NONE, &errno, atexit), 0);
        jpgalleg_init();
        const char *gameDir = getenv("DELVEMOOR_GAME_DIR");
        ASSERT_NE(gameDir, nullptr);
        snprintf(DataRoot, sizeof DataRoot, "%s", gameDir);
        useOffscreenContext();
        makeTexture = uploadPictureOffscreen;
        beginFrame2D();
        loadFontData();
        loadGameData();
        linkObjectData();
    }
    static void TearDownTestSuite() { endFrame2D(); }
};

// One frame of the main loop's drawing over what the buffer holds; the same
// random numbers each time, so only the old pixels can differ.
static std::vector<unsigned char> frameOver(bool noise)
{
    // Stars drift as they are drawn: both frames start from the same sky
    // and the same view.
    static std::list<Star> stars;
    static int spawnCounter;
    static float viewX, viewY;
    if (noise) {
        stars = StarList;
        spawnCounter = starSpawnCounter;
        viewX = camX;
        viewY = camY;
    } else {
        StarList = stars;
        starSpawnCounter = spawnCounter;
        camX = viewX;
        camY = viewY;
    }
    // The pointer over no button (a button lights up as it is pointed at),
    // and off the edges, where the view would scroll between the two.
    input.pointerX = 600;
    input.pointerY = 300;
    std::vector<unsigned char> &frame = offscreenFrame();
    srand(99);
    for (size_t i = 0; i < frame.size(); i++)
        frame[i] = noise ? (unsigned char)(rand() >> 7) : (i % 4 == 3 ? 255 : 0);
    srand(7);
    clearToBlack();
    renderScreen(currentScreen);
    glFinish();
    return readFrameRgb();
}

// The rows (counted from the top of the screen) and the first column where
// the two frames differ, for the failure message.
static std::string differences(const std::vector<unsigned char> &a, const std::vector<unsigned char> &b)
{
    int count = 0, top = -1, bottom = -1, left = SCREEN_WIDTH;
    for (int y = 0; y < SCREEN_HEIGHT; y++)
        for (int x = 0; x < SCREEN_WIDTH; x++) {
            const size_t i = ((size_t)y * SCREEN_WIDTH + x) * 3;
            if (a[i] != b[i] || a[i + 1] != b[i + 1] || a[i + 2] != b[i + 2]) {
                count++;
                if (top < 0)
                    top = y;
                bottom = y;
                left = std::min(left, x);
            }
        }
    if (count == 0)
        return "";
    return std::to_string(count) + " pixels keep the last frame, in rows " + std::to_string(top) + " to " +
           std::to_string(bottom) + " from the top, from column " + std::to_string(left);
}

static void expectEveryPixelDrawn(const char *name)
{
    const std::vector<unsigned char> overNoise = frameOver(true);
    const std::vector<unsigned char> overBlack = frameOver(false);
    EXPECT_EQ(differences(overNoise, overBlack), "") << name;
}

// A level of the editor's smallest kind: the camera at its top shows the
// space above the backdrop.
static void openShortLevel()
{
    resetMission();
    Level &l = currentLevel;
    l.title = "Short";
    l.planet = 1;
    l.width = 30;
    l.height = 12;
    l.campaignLevel = 0;
    l.terrain.assign(l.width, std::vector<int32_t>(l.height, Empty));
    l.structures.assign(l.width, std::vector<int32_t>(l.height, 0));
    for (int x = 0; x < l.width; x++)
        for (int y = SKY_ROWS; y < l.height; y++)
            l.terrain[x][y] = Dirt1;
    setBorderRing(l);
    mission.podCount = mission.rocketCount = 1;
    mission.podsWithoutHatcher = 1;
}

TEST_F(EveryPixel, EveryScreenDrawsEveryPixel)
{
    const struct {
        const char *name;
        u32 id;
    } frontEnd[] = {
        {"intro", Intro},          {"slow-driver warning", SlowDriverWarning},
        {"main menu", MainMenu},   {"game select", GameSelect},
        {"password panel", PasswordEntry}, {"options", Options},
        {"help", Help},            {"credits", CreditsScreen},
        {"exit screen", ExitScreen},
    };
    for (const auto &screen : frontEnd) {
        currentScreen = screen.id;
        expectEveryPixelDrawn(screen.name);
    }

    linkTerrainSet(1);
    openShortLevel();
    prefillGameStars();
    setScreen(Playing);
    setStatus("Launching All Rockets!");
    camX = 0;
    camY = -400;
    expectEveryPixelDrawn("game at the top of a short level");
    camX = 32.0f * 30 - 640;
    camY = -400;
    expectEveryPixelDrawn("game at the top right");
    currentScreen = Paused;
    expectEveryPixelDrawn("pause");
    currentScreen = MissionComplete;
    expectEveryPixelDrawn("mission complete");
    currentScreen = MissionFailed;
    expectEveryPixelDrawn("mission failed");

    openEditorSession();
    setScreen(LevelEditor);
    camX = 0;
    camY = -400;
    expectEveryPixelDrawn("editor at the top of its level");
    closeEditorSession();
}

// The selection screen with one custom level of the given title.
static std::vector<unsigned char> listWithTitle(const char *title)
{
    campaignMode = 0;
    selectedPlanet = 1;
    missionList.currentIndex = 0;
    levelLists[4].assign(1, CatalogueEntry{title, 1, "/custom/a.lev", 1});
    currentScreen = GameSelect;
    return frameOver(false);
}

// Whether two frames differ in the columns from x0 to x1.
static bool differIn(const std::vector<unsigned char> &a, const std::vector<unsigned char> &b, int x0, int x1)
{
    for (int y = 0; y < SCREEN_HEIGHT; y++)
        for (int x = x0; x < x1; x++)
            for (int k = 0; k < 3; k++)
                if (a[((size_t)y * SCREEN_WIDTH + x) * 3 + k] != b[((size_t)y * SCREEN_WIDTH + x) * 3 + k])
                    return true;
    return false;
}

// A level's title is the player's own text: it stays inside the list's
// panel whatever its length, and every character of it shows.
TEST_F(EveryPixel, ACustomTitleStaysInTheListAndShowsEveryCharacter)
{
    const int panelRight = 292;
    const std::vector<unsigned char> shortTitle = listWithTitle("A");
    const std::vector<unsigned char> longTitle =
        listWithTitle("A Title Far Too Long For The List That Would Cross The Whole Screen");
    EXPECT_TRUE(differIn(shortTitle, longTitle, 0, panelRight));
    EXPECT_FALSE(differIn(shortTitle, longTitle, panelRight, SCREEN_WIDTH)) << "the title leaves its panel";

    const std::vector<unsigned char> blank = listWithTitle(" ");
    EXPECT_TRUE(differIn(blank, listWithTitle("\xc3\xa9"), 0, panelRight)) << "an accented letter draws as a gap";
    EXPECT_TRUE(differIn(blank, listWithTitle("\xff"), 0, panelRight)) << "a stray byte draws as a gap";
    levelLists[4].clear();
    campaignMode = 1;
}
