// The game screen played through its real handlers, as the main loop runs
// them: the pointer and the mouse button set frame by frame, the screen's
// logic once a tick, its render handler once a frame into an offscreen
// OpenGL context. The pictures are the real datafile's; DELVEMOOR_SHOTS
// names a folder to keep the frames in as PNG files.
#include "support/offscreen_gl.h"
#include "support/sim_levels.h"

#include "app/screens.h"
#include "app/startup.h"
#include "frontend/layout.h"
#include "frontend/screens.h"
#include "game/camera.h"
#include "game/gamescreen.h"
#include "game/levelview.h"
#include "game/tutorial.h"
#include "audio/audio.h"
#include "sim/tools.h"
#include "render/draw.h"
#include "render/offscreen.h"
#include "render/textures.h"
#include "sim/costlabels.h"
#include "game/launchpanel.h"
#include "sim/rockets.h"
#include "world/catalogue.h"
#include "support/scratch.h"
#include "support/scripted_input.h"

#include <allegro.h>
#include <jpgalleg.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

struct Rgb {
    int r, g, b;
};

class PlayScreen : public ::testing::Test {
public:
    static bool pictures;

    static void SetUpTestSuite()
    {
        useOffscreenContext();
        // The real pictures when the build has made the datafile, loaded once
        // for the program and linked afresh for each run of the tests.
        const char *gameDir = std::getenv("DELVEMOOR_GAME_DIR");
        const std::string data = std::string(gameDir ? gameDir : ".") + "/DATA/DATA.DAT";
        if (!pictures && install_allegro(SYSTEM_NONE, &errno, atexit) == 0 && exists(data.c_str())) {
            jpgalleg_init();
            std::snprintf(DataRoot, sizeof DataRoot, "%s", gameDir);
            makeTexture = uploadPictureOffscreen;
            loadFontData();
            loadImageData();
            pictures = true;
        }
        if (pictures) {
            linkImageData();
            linkTerrainSet(1);
            linkObjectData();
        }
    }

    void SetUp() override
    {
        readMouseButtons = scriptedMouse;
        scriptedButtons = 0;
        transition.alpha = 0;
        input = InputSnapshot();
        levelReturnScreen = GameSelect;
        framesPerSecond = 40;
    }

    // One pass of the main loop: input, the ticks owed, the frame.
    void pass(float px, float py, int buttons, int ticks = 1)
    {
        scriptedButtons = buttons;
        RawInput raw = {};
        raw.mouseButtons = buttons;
        sampleInputFrom(raw);
        input.pointerX = px;
        input.pointerY = py;
        for (int i = 0; i < ticks; i++) {
            runScreenLogic(currentScreen);
            advancePulses();
        }
        glClear(GL_COLOR_BUFFER_BIT);
        beginFrame2D();
        renderScreen(currentScreen);
        endFrame2D();
        glFinish();
    }

    void idle(int ticks)
    {
        for (int i = 0; i < ticks; i++)
            pass(320, 200, 0);
    }

    // Pressed in one frame and released in the next, as a hand clicks.
    void click(float px, float py)
    {
        pass(px, py, 1);
        pass(px, py, 0);
    }

    void clickButton(const Button &b)
    {
        click(b.x, b.y);
    }

    // A left click on a cell the view shows.
    void clickCell(int x, int y)
    {
        const float px = viewOriginX() + 32.0f * x, py = viewOriginY() - 32.0f * y;
        ASSERT_TRUE(px > 14 && px < 626 && pointerInPlayBand(py)) << "cell not on the screen";
        click(px, py);
    }

    void play(const std::vector<std::string> &ground, int credits = 5000,
              const std::vector<int> &locks = std::vector<int>(9, 0))
    {
        loadLevel(ground, credits, locks);
        camX = 200;
        camY = -550;
        setScreen(Playing);
        resetStatusLine();
    }

    Rgb pixel(int x, int y) const
    {
        const unsigned char *p = &offscreenFrame()[((size_t)y * SCREEN_WIDTH + x) * 4];
        return Rgb{p[0], p[1], p[2]};
    }

    void shot(const char *name)
    {
        const char *dir = std::getenv("DELVEMOOR_SHOTS");
        if (dir)
            writePng(std::string(dir) + "/" + name + ".png", SCREEN_WIDTH, SCREEN_HEIGHT, readFrameRgb());
    }
};

bool PlayScreen::pictures = false;

//                      x: 0123456789ABCD
const std::vector<std::string> liftLevel = {"B.........T..B",
                                            "B......######B",
                                            "B......######B",
                                            "BP.$...######B",
                                            "BBBBBBBBBBBBBB"};

// The hatcher over the pod and the lift up to the rocket's platform, built
// with the toolbar and clicks; then "Hatch Pods".
void buildLiftRoute(PlayScreen &t)
{
    t.clickButton(toolButtons[Hatcher - 1]);
    t.clickCell(1, 10);
    for (int y = 10; y >= 8; y--) {
        t.clickButton(toolButtons[EnergyLift - 1]);
        t.clickCell(6, y);
    }
    t.clickButton(toolButtons[RightLiftExit - 1]);
    t.clickCell(6, 7);
    t.clickButton(hatchPodsButton);
}


} // namespace

TEST_F(PlayScreen, ToolbarChoosesBuildsAndRefusesAsThePlayerSeesIt)
{
    // The girder is locked here; every other tool is offered.
    play(liftLevel, 900, {1, 0, 0, 0, 0, 0, 0, 0, 0});
    clickButton(toolButtons[Girder - 1]);
    EXPECT_EQ(currentTool, NoTool) << "a locked tool's button does nothing";
    EXPECT_MESSAGE(statusTarget(), StatusEmpty);

    // Hatch refused while a pod has no hatcher.
    clickButton(hatchPodsButton);
    EXPECT_MESSAGE(statusTarget(), StatusCannotHatchYet);
    EXPECT_FALSE(mission.hatched);

    clickButton(toolButtons[Hatcher - 1]);
    EXPECT_EQ(currentTool, Hatcher);
    EXPECT_MESSAGE(statusTarget(), StatusPlaceHatcher);
    clickCell(1, 10);
    EXPECT_EQ(currentLevel.structures[1][10], Hatcher);
    EXPECT_EQ(mission.credits, 400);
    EXPECT_EQ(mission.podsWithoutHatcher, 0);
    EXPECT_MESSAGE(statusTarget(), StatusHatcherBuilt);
    EXPECT_FALSE(costLabels.empty());

    // A press on the panels is theirs, not the level's.
    clickButton(toolButtons[EnergyLift - 1]);
    EXPECT_EQ(currentTool, EnergyLift);
    click(180, 36);
    EXPECT_EQ(mission.credits, 400);
    clickCell(6, 10);
    EXPECT_EQ(mission.credits, 100);
    // Too dear: refused, nothing spent.
    clickCell(6, 9);
    EXPECT_EQ(currentLevel.structures[6][9], 0);
    EXPECT_MESSAGE(statusTarget(), StatusNotEnoughCredits);

    clickButton(hatchPodsButton);
    EXPECT_TRUE(mission.hatched);
    EXPECT_MESSAGE(statusTarget(), StatusHatchingPods);
    clickButton(hatchPodsButton);
    EXPECT_MESSAGE(statusTarget(), StatusPodsAlreadyHatched);
    clickButton(toolButtons[Hatcher - 1]);
    EXPECT_EQ(currentTool, EnergyLift) << "no hatcher after hatching; the tool in hand stays";
    EXPECT_MESSAGE(statusTarget(), StatusNoMoreHatchers);

    // Dragged off a button before the release: no click.
    pass(toolButtons[Blocker - 1].x, toolButtons[Blocker - 1].y, 1);
    pass(320, 200, 1);
    pass(320, 200, 0);
    EXPECT_EQ(currentTool, EnergyLift);

    // Spent out: every tool is refused, "Menu" still pauses.
    mission.credits = 0;
    idle(1);
    EXPECT_EQ(currentTool, NoTool);
    clickButton(toolButtons[Blocker - 1]);
    EXPECT_EQ(currentTool, NoTool);
    EXPECT_MESSAGE(statusTarget(), StatusOutOfCredits);
    clickButton(gameMenuButton);
    EXPECT_EQ(currentScreen, Paused);
}

TEST_F(PlayScreen, PauseResumesTheSameLevelAndRetryStartsItAfresh)
{
    play(liftLevel, 2000);
    campaignMode = 0;
    ScratchFolder dir("delvemoor-play");
    writeFile(dir / "level.txt", levelText(liftLevel, 2000));
    missionList.currentPath = dir / "level.txt";
    buildLiftRoute(*this);
    idle(80);
    ASSERT_EQ(bubblemen.size(), 1u);
    const float walkedTo = bubblemen.front().x;

    input.escape = 0;
    RawInput raw = {};
    raw.escape = 1;
    sampleInputFrom(raw);
    runScreenLogic(currentScreen);
    EXPECT_EQ(currentScreen, Paused);
    const float pausedAt = bubblemen.front().x;
    EXPECT_GT(pausedAt, walkedTo);
    idle(30);
    shot("paused");
    EXPECT_EQ(bubblemen.front().x, pausedAt) << "the level is frozen under the panel";
    EXPECT_EQ(currentTool, RightLiftExit) << "the tool in hand survives the pause";
    clickButton(pauseResumeButton);
    EXPECT_EQ(currentScreen, Playing);
    idle(5);
    EXPECT_GT(bubblemen.front().x, pausedAt) << "the very same bubbleman walks on";

    // Everyone aboard, launched, then back to the start with Retry.
    idle(600);
    ASSERT_EQ(mission.savedCount, 1);
    ASSERT_TRUE(launchButtonReachable());
    pass(launchButton.x, launchButton.y, 1);
    pass(launchButton.x, launchButton.y, 0);
    idle(20);
    ASSERT_FALSE(flyingRockets.empty()) << "launched";
    clickButton(gameMenuButton);
    ASSERT_EQ(currentScreen, Paused);
    const float viewX = camX, viewY = camY;
    clickButton(pauseRetryButton);
    EXPECT_EQ(currentScreen, Playing);
    EXPECT_MESSAGE(statusTarget(), StatusMissionRestarted);
    EXPECT_EQ(mission.credits, 2000);
    EXPECT_EQ(mission.podsWithoutHatcher, 1);
    EXPECT_EQ(mission.rocketCount, 1);
    EXPECT_FALSE(mission.hatched);
    EXPECT_TRUE(bubblemen.empty());
    EXPECT_TRUE(flyingRockets.empty());
    EXPECT_EQ(currentLevel.terrain[10][7], Rocket);
    EXPECT_EQ(currentLevel.structures[1][10], 0);
    EXPECT_EQ(camX, viewX) << "the view stays where it was";
    EXPECT_EQ(camY, viewY);

    // Exit fades back to the selection screen.
    clickButton(gameMenuButton);
    clickButton(pauseExitButton);
    EXPECT_EQ(currentScreen, Transition);
    EXPECT_EQ(transition.to, GameSelect);
    transition = TransitionState{0, 0, 0, 0, 0, 0, 0};
}

TEST_F(PlayScreen, WinningAndLosingLeadToTheirPanels)
{
    // Won: every rocket gone.
    play(liftLevel, 5000);
    mission.rocketsGone = mission.rocketCount;
    idle(1);
    EXPECT_EQ(currentScreen, MissionComplete);
    EXPECT_EQ(SoundRequest, 8);
    clickButton(missionContinueButton);
    EXPECT_EQ(currentScreen, Transition);
    EXPECT_EQ(transition.from, MissionComplete);
    EXPECT_EQ(transition.to, GameSelect);

    // Lost: one bubbleman down.
    transition = TransitionState{0, 0, 0, 0, 0, 0, 0};
    play(liftLevel, 5000);
    mission.bubblemanLost = true;
    idle(1);
    EXPECT_EQ(currentScreen, MissionFailed);
    EXPECT_EQ(SoundRequest, 7);
    pass(330, 140, 0, 0);
    shot("mission-failed");

    // Escape held in the losing tick: paused first, and the loss waits.
    play(liftLevel, 5000);
    mission.bubblemanLost = true;
    RawInput raw = {};
    raw.escape = 1;
    sampleInputFrom(raw);
    runScreenLogic(currentScreen);
    EXPECT_EQ(currentScreen, Paused);
    input.escape = 0;
    clickButton(pauseResumeButton);
    idle(1);
    EXPECT_EQ(currentScreen, MissionFailed);

    // The editor's test-play comes back to the editor, and wins nothing.
    transition = TransitionState{0, 0, 0, 0, 0, 0, 0};
    levelReturnScreen = LevelEditor;
    play(liftLevel, 5000);
    mission.rocketsGone = mission.rocketCount;
    idle(1);
    clickButton(missionContinueButton);
    EXPECT_EQ(transition.to, LevelEditor);
    transition = TransitionState{0, 0, 0, 0, 0, 0, 0};
}

TEST_F(PlayScreen, AWinningRunRecordedInPlayIsProvenByTheChecker)
{
    play(liftLevel, 2000);
    recordingPlay = true;
    playRecord.clear();
    levelTick = 0;
    buildLiftRoute(*this);
    int ticks = 0;
    while (!launchButtonReachable() || launchPanel.offset < 200) {
        idle(1);
        ASSERT_LT(++ticks, 2000);
    }
    pass(launchButton.x, launchButton.y, 1);
    pass(launchButton.x, launchButton.y, 0);
    while (currentScreen == Playing && ticks < 3000) {
        idle(1);
        ticks++;
    }
    recordingPlay = false;
    ASSERT_EQ(currentScreen, MissionComplete);
    const int32_t wonAt = levelTick;
    const int32_t creditsLeft = mission.credits;

    std::ostringstream text;
    writeSolution(playRecord, text);
    loadLevel(liftLevel, 2000);
    RunResult proof = run(text.str(), 5000);
    EXPECT_EQ(proof.outcome, RunWon) << text.str() << describeRun(proof);
    EXPECT_EQ(proof.ticks, wonAt) << text.str();
    EXPECT_EQ(proof.credits, creditsLeft);
}

TEST_F(PlayScreen, CameraStaysOverTheLevelAndTheCursorInTheGrid)
{
    // Small: narrower and shorter than the screen.
    play({"B....B", "B.P..B", "B.T..B", "B####B", "BBBBBB"});
    camX = 500;
    camY = 0;
    clampCamera();
    EXPECT_EQ(camX, 32 * 6 - 640) << "the right-hand rule wins";
    EXPECT_EQ(camY, -32 * 12 + 10);
    int32_t cx, cy;
    cursorCellAt(0, 479, &cx, &cy);
    EXPECT_EQ(cx, 0);
    EXPECT_EQ(cy, 0);
    cursorCellAt(639, 0, &cx, &cy);
    EXPECT_EQ(cx, 5);
    EXPECT_EQ(cy, 11);

    // Large: the bounds of the level, and a pointer in a corner scrolls both ways.
    std::vector<std::string> big(40, "B" + std::string(78, '#') + "B");
    big.back() = std::string(80, 'B');
    play(big);
    camX = -50;
    camY = 100;
    clampCamera();
    EXPECT_EQ(camX, 0);
    EXPECT_EQ(camY, -400);
    cursorCellAt(5, 470, &cx, &cy);
    EXPECT_EQ(cx, 0);
    EXPECT_EQ(cy, 0) << "behind the top panel, still in the grid";
    camX = 1e6f;
    camY = -1e6f;
    clampCamera();
    EXPECT_EQ(camX, 32 * 80 - 640);
    EXPECT_EQ(camY, -32 * 47 + 10);
    cursorCellAt(639, 0, &cx, &cy);
    EXPECT_EQ(cx, 79);
    EXPECT_EQ(cy, 46);

    camX = 640;
    camY = -800;
    framesPerSecond = 50;
    pass(2, 2, 0, 0);
    EXPECT_EQ(camX, 640 - 5);
    EXPECT_EQ(camY, -800 - 5);
    pass(638, 478, 0, 0);
    EXPECT_EQ(camX, 640);
    EXPECT_EQ(camY, -800);
    clickButton(gameMenuButton);
    pass(2, 2, 0, 0);
    EXPECT_EQ(camX, 640) << "no scrolling under the pause panel";
}

// Pixels, with the real pictures.

TEST_F(PlayScreen, ToolbarCountersAndPreviewDrawWhatTheyMean)
{
    if (!pictures)
        GTEST_SKIP() << "no datafile built";
    play(liftLevel, 1234, {0, 0, 0, 0, 0, 0, 0, 0, 1});
    mission.podsWithoutHatcher = 7;
    idle(3);
    shot("toolbar");
    // Dynamite locked: its button is drawn empty, the shovel's is not. Each
    // is compared with its bare button drawn alone.
    std::vector<Rgb> frame;
    for (int y = 0; y < SCREEN_HEIGHT; y++)
        for (int x = 0; x < SCREEN_WIDTH; x++)
            frame.push_back(pixel(x, y));
    glClear(GL_COLOR_BUFFER_BIT);
    beginFrame2D();
    drawButton(toolButtons[Shovel - 1]);
    drawButton(toolButtons[Dynamite - 1]);
    endFrame2D();
    glFinish();
    auto marksOn = [&](const Button &b) {
        int differing = 0;
        for (int y = (int)b.y - 28; y <= (int)b.y + 28; y++)
            for (int x = (int)b.x - 28; x <= (int)b.x + 28; x++) {
                const Rgb was = frame[(size_t)y * SCREEN_WIDTH + x], bare = pixel(x, y);
                differing += std::abs(was.r - bare.r) + std::abs(was.g - bare.g) + std::abs(was.b - bare.b) > 40;
            }
        return differing;
    };
    EXPECT_GT(marksOn(toolButtons[Shovel - 1]), 100) << "the shovel's icon and cost";
    EXPECT_LT(marksOn(toolButtons[Dynamite - 1]), 10) << "a locked tool shows no icon or cost";
    idle(1);

    // The counters: credits in yellow, pods without hatcher in green.
    int yellow = 0, green = 0;
    for (int y = 4; y < 24; y++) {
        for (int x = 30; x < 100; x++) {
            const Rgb c = pixel(x, y);
            yellow += c.r > 200 && c.g > 200 && c.b < 80;
        }
        for (int x = 213; x < 240; x++) {
            const Rgb c = pixel(x, y);
            green += c.g > 200 && c.r < 80 && c.b < 80;
        }
    }
    EXPECT_GT(yellow, 40) << "1234 credits";
    EXPECT_GT(green, 10) << "7 pods";

    // The level is drawn only where the panels let it show: the same frame.
    pass(330, 200, 0, 0);
    const std::vector<unsigned char> clipped = offscreenFrame();
    clipLevelUnderPanels = false;
    pass(330, 200, 0, 0);
    clipLevelUnderPanels = true;
    size_t differing = 0;
    for (size_t i = 0; i < clipped.size(); i++)
        differing += offscreenFrame()[i] != clipped[i];
    EXPECT_EQ(differing, 0u) << "the clip under the panels changed the picture";

    // The preview: white where the girder fits, red where it does not.
    auto previewAt = [&](int x, int y, int32_t tool) {
        currentTool = NoTool;
        const float px = viewOriginX() + 32.0f * x, py = viewOriginY() - 32.0f * y;
        pass(px, py, 0, 0);
        std::vector<Rgb> before;
        for (int dy = -12; dy <= 12; dy++)
            for (int dx = -12; dx <= 12; dx++)
                before.push_back(pixel((int)px + dx, (int)py + dy));
        currentTool = tool;
        pass(px, py, 0, 0);
        int whiter = 0, redder = 0, i = 0;
        for (int dy = -12; dy <= 12; dy++)
            for (int dx = -12; dx <= 12; dx++, i++) {
                const Rgb now = pixel((int)px + dx, (int)py + dy);
                whiter += now.g > before[i].g + 30;
                redder += now.r > now.g + 60 && now.g <= before[i].g;
            }
        return std::make_pair(whiter, redder);
    };
    pulseB = 0.7f;
    const auto fits = previewAt(4, 10, Girder);
    shot("preview-white");
    EXPECT_GT(fits.first, 50);
    EXPECT_EQ(fits.second, 0);
    const auto refused = previewAt(9, 9, Girder);
    shot("preview-red");
    EXPECT_EQ(refused.first, 0);
    EXPECT_GT(refused.second, 50);
}

TEST_F(PlayScreen, TutorialPanelScrollsWithTheTerrainAndFadesInLate)
{
    if (!pictures)
        GTEST_SKIP() << "no datafile built";
    // The lit box of the panel drawn alone on black at view origin (ox, oy).
    struct Box {
        int x0 = SCREEN_WIDTH, y0 = SCREEN_HEIGHT, x1 = -1, y1 = -1;
    };
    auto panelAt = [&](const char *title, float alpha, float ox, float oy) {
        Level level;
        level.title = title;
        introBanner.tutorialAlpha = alpha;
        glClear(GL_COLOR_BUFFER_BIT);
        beginFrame2D();
        drawTutorialPanel(level, ox, oy);
        endFrame2D();
        glFinish();
        Box box;
        for (int y = 0; y < SCREEN_HEIGHT; y++)
            for (int x = 0; x < SCREEN_WIDTH; x++) {
                const Rgb c = pixel(x, y);
                if (c.r + c.g + c.b > 60) {
                    box.x0 = std::min(box.x0, x);
                    box.x1 = std::max(box.x1, x);
                    box.y0 = std::min(box.y0, y);
                    box.y1 = std::max(box.y1, y);
                }
            }
        return box;
    };
    const Box here = panelAt("Intro", 1, -100, 600);
    ASSERT_GT(here.x1, here.x0) << "the words show";
    const Box scrolled = panelAt("Intro", 1, -132, 640);
    EXPECT_EQ(scrolled.x0, here.x0 - 32);
    EXPECT_EQ(scrolled.y0, here.y0 + 40);
    EXPECT_EQ(panelAt("Intro", 0.15f, -100, 600).x1, -1) << "still fading in: nothing";
    EXPECT_EQ(panelAt("intro", 1, -100, 600).x1, -1) << "titles match exactly";
    introBanner.tutorialAlpha = 1;
}
