// The screen-state machine's fades and their switch actions, the input
// snapshot's press edges and the small start-up rules.

#include "app/screens.h"
#include "app/startup.h"
#include "audio/audio.h"
#include "frontend/screens.h"
#include "world/catalogue.h"

#include <allegro.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

static int fromTicks, toTicks;
static void countFrom() { fromTicks++; }
static void countTo() { toTicks++; }

// Two screens without switch actions stand in for any pair.
struct PatchedScreens {
    ScreenHandlers saved[2];
    PatchedScreens()
    {
        saved[0] = *handlersFor(Options);
        saved[1] = *handlersFor(Help);
        *handlersFor(Options) = {Options, countFrom, nullptr, nullptr, nullptr};
        *handlersFor(Help) = {Help, countTo, nullptr, nullptr, nullptr};
        fromTicks = toTicks = 0;
    }
    ~PatchedScreens()
    {
        *handlersFor(Options) = saved[0];
        *handlersFor(Help) = saved[1];
    }
};

TEST(Transition, FadesOutFifteenTicksSwitchesOnTheSixteenthThenFadesIn)
{
    PatchedScreens patch;
    transition = {};
    startTransition(Options, Help, StarfieldKeep);
    EXPECT_EQ(currentScreen, (u32)Transition);

    for (int tick = 1; tick <= 15; tick++) {
        transitionTick();
        transitionFrame();
        EXPECT_EQ(transition.phase, 0) << tick;
    }
    EXPECT_EQ(fromTicks, 15);
    EXPECT_EQ(toTicks, 0);
    EXPECT_EQ((double)transition.alpha, 1.2000000476837158);

    transitionTick();  // the 16th: the target's logic runs from now on
    EXPECT_EQ(toTicks, 1);
    EXPECT_EQ(transition.phase, 1);
    EXPECT_EQ(transition.switchLatch, 0) << "the latch lasts one tick only";

    int fadeIn = 1;
    while (currentScreen == Transition && fadeIn < 100) {
        transitionFrame();
        if (currentScreen != Transition)
            break;
        transitionTick();
        fadeIn++;
    }
    EXPECT_EQ(currentScreen, (u32)Help);
    EXPECT_EQ(transition.alpha, 0.0f) << "alpha is 0 exactly when no transition runs";
    EXPECT_EQ(transition.phase, 0);
    EXPECT_GE(fadeIn, 15);
    EXPECT_LE(fadeIn, 17);
    EXPECT_EQ(fromTicks, 15);
}

// Each black frame of a blackout lets one tick of the timer pass.
static int ticksPassed;
static void blackFramePassesATick()
{
    ticksPassed++;
    tickCounter++;
}

TEST(Transition, SwitchActionsRunOnceAtTheDarkestPoint)
{
    // The switches into a level and into the selection screen really load:
    // the build's own datafile and its first mission.
    install_allegro(SYSTEM_NONE, &errno, atexit);
    const char *gameDir = getenv("DELVEMOOR_GAME_DIR");
    ASSERT_NE(gameDir, nullptr);
    snprintf(DataRoot, sizeof DataRoot, "%s", gameDir);
    buildCampaignLevelNames();
    campaignMode = 1;
    chosenLevelPath = std::string(gameDir) + "/DATA/DATA.DAT#LEVELS/P1M01_LEV";
    void (*savedBlackFrame)() = presentBlackFrame;
    presentBlackFrame = blackFramePassesATick;
    const struct {
        u32 from, to;
        int blackTicks;  // ticks swallowed by the blackout of the switch
        int32_t track;   // music asked for at the switch
    } cases[] = {
        {Intro, MainMenu, 11, 0},        {Options, MainMenu, 0, 0},   {MainMenu, CreditsScreen, 0, 1},
        {GameSelect, Playing, 26, 2},    {Paused, GameSelect, 26, 0}, {MissionComplete, GameSelect, 26, 0},
        {MainMenu, Options, 0, NoTrack},
    };
    for (const auto &c : cases) {
        transition = {};
        if (c.from == Intro) {
            // As the game starts it: the intro's first tick.
            resetIntro();
            currentScreen = Intro;
            introTick();
            ASSERT_EQ(transition.to, (u32)MainMenu);
        } else {
            startTransition(c.from, c.to, StarfieldKeep);
        }
        currentTrack = pendingTrack = NoTrack;
        musicFadingOut = musicFadingIn = 0;
        tickCounter = 0;
        ticksPassed = 0;

        for (int tick = 1; tick <= 15; tick++)
            transitionTick();
        EXPECT_EQ(ticksPassed, 0) << c.to << ": nothing before the darkest point";
        EXPECT_EQ(pendingTrack, NoTrack) << c.to;

        transitionTick();  // the 16th: the switch
        EXPECT_EQ(ticksPassed - tickCounter.load(), c.blackTicks) << c.from << " to " << c.to;
        EXPECT_EQ(pendingTrack, c.track) << c.from << " to " << c.to;
        EXPECT_EQ(musicFadingOut, c.track != NoTrack) << c.to;

        pendingTrack = NoTrack;
        int before = ticksPassed;
        for (int tick = 0; tick < 5; tick++)
            transitionTick();
        EXPECT_EQ(ticksPassed, before) << c.to << ": the switch happens once";
        EXPECT_EQ(pendingTrack, NoTrack) << c.to;
    }
    presentBlackFrame = savedBlackFrame;
    transition = {};
    currentScreen = Intro;
    resetIntro();
    tickCounter = 0;
    currentTrack = pendingTrack = NoTrack;
    musicFadingOut = musicFadingIn = 0;
}

static RawInput rawWith(int buttons)
{
    RawInput raw = {};
    raw.mouseButtons = buttons;
    return raw;
}

TEST(Input, APressIsReportedInOneFrameOutsideTheEditorAndEveryFrameInIt)
{
    input = {};
    currentScreen = MainMenu;
    int pressedFrames = 0;
    for (int frame = 0; frame < 5; frame++) {
        sampleInputFrom(rawWith(1));
        pressedFrames += input.leftPressed;
    }
    EXPECT_EQ(pressedFrames, 1);
    sampleInputFrom(rawWith(0));
    EXPECT_EQ(input.leftHeld, 0);
    sampleInputFrom(rawWith(1));
    EXPECT_EQ(input.leftPressed, 1) << "a new push after a release is a new press";

    input = {};
    currentScreen = LevelEditor;
    pressedFrames = 0;
    for (int frame = 0; frame < 5; frame++) {
        sampleInputFrom(rawWith(1 | 2));
        pressedFrames += input.leftPressed;
        EXPECT_EQ(input.rightPressed, 1);
    }
    EXPECT_EQ(pressedFrames, 5);
}

TEST(Startup, GameDirectoryAndSoftwareRenderers)
{
    setDataRootFromExecutable("/opt/games/Delvemoor/Delvemoor");
    EXPECT_STREQ(DataRoot, "/opt/games/Delvemoor");
    setDataRootFromExecutable("D:\\Games\\Pods\\game.exe");
    EXPECT_STREQ(DataRoot, "D:\\Games\\Pods");
    setDataRootFromExecutable("game");
    EXPECT_STREQ(DataRoot, "");

    EXPECT_TRUE(isSoftwareRenderer("GDI Generic"));
    EXPECT_TRUE(isSoftwareRenderer("llvmpipe (LLVM 15.0.6, 256 bits)"));
    EXPECT_TRUE(isSoftwareRenderer("Mesa X11 softpipe"));
    EXPECT_TRUE(isSoftwareRenderer("Software Rasterizer"));
    EXPECT_FALSE(isSoftwareRenderer("AMD Radeon RX 6600 (radeonsi, navi23)"));
    EXPECT_FALSE(isSoftwareRenderer(nullptr));
}
