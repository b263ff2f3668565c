// Frames per second of the intro, the main-menu backdrop and every screen
// around the level, drawn by the real render path into a real window (run it
// under Xvfb on a machine without a display). Each screen's budget is 4 ms a
// frame (250 frames per second) on Mesa's llvmpipe with two cores.
// Usage: frame_rate <game directory> [seconds per screen] [--dump-backdrop file.ppm]
//        frame_rate <game directory> 0 --dump-game file.png   (the busiest game screen)
//        frame_rate <game directory> [seconds] --game-only     (the game screen's figures alone)
//        frame_rate <game directory> 0 --dump-screens dir      (every measured screen as a PNG)
//        frame_rate <game directory> 0 --dump-scaled file.png  (the busiest game screen in a 2x window)
// Every screen is measured in a window of 1, 2 and 3 times 640 x 480 (the X
// screen must hold 1920 x 1440), and the busiest game screen's frame is taken
// apart: drawing, the copy into the frame texture, the enlarged quad, the flip.
// The dump is the backdrop alone at a fixed angle, to compare pictures
// before and after a change to its drawing.

#include "app/config.h"
#include "app/log.h"
#include "app/screens.h"
#include "app/startup.h"
#include "app/window_scale.h"
#include "frontend/frontend.h"
#include "frontend/screens.h"
#include "game/camera.h"
#include "game/levelview.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "sim/bubblemen.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "game/entitydraw.h"
#include "game/launchpanel.h"
#include "sim/rockets.h"
#include "world/level.h"
#include "render/draw.h"
#include "render/offscreen.h"
#include "render/present.h"
#include "render/stars.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>
#include <jpgalleg.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/resource.h>
#include <string>
#include <vector>

static const double BUDGET_MS = 4.0;

// The processor time of the whole process, the renderer's threads included:
// on a machine shared with other work the wall clock says more about the
// neighbours than about the game.
static double processorSeconds()
{
    rusage use;
    getrusage(RUSAGE_SELF, &use);
    return use.ru_utime.tv_sec + use.ru_stime.tv_sec + (use.ru_utime.tv_usec + use.ru_stime.tv_usec) * 1e-6;
}

static double measure(const char *name, void (*tick)(), void (*frame)(), double seconds)
{
    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    const double cpuStart = processorSeconds();
    long frames = 0;
    double elapsed = 0;
    while (elapsed < seconds) {
        if (tick)
            tick();
        advanceAnimationFrames(mission.hatched);
        frame();
        presentFrame();
        frames++;
        elapsed = std::chrono::duration<double>(Clock::now() - start).count();
    }
    glFinish();
    const double cpuMs = 1000.0 * (processorSeconds() - cpuStart) / frames;
    double fps = frames / elapsed;
    double ms = 1000.0 / fps;
    printf("%-28s %8.1f frames per second %6.2f ms a frame, %6.2f ms of processor (%ld frames in %.1f s)%s\n",
           name, fps, ms, cpuMs, frames, elapsed, ms > BUDGET_MS ? "  over the 4 ms budget" : "");
    return fps;
}

// The enlargement alone, over and over: its processor time without the
// frame's drawing or the flip.
static void measureEnlargement(double seconds)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    const double cpuStart = processorSeconds();
    long frames = 0;
    while (std::chrono::duration<double>(Clock::now() - start).count() < seconds) {
        enlargeFrame();
        glFinish();
        frames++;
    }
    const double wall = std::chrono::duration<double>(Clock::now() - start).count();
    printf("%-28s %6.2f ms a frame, %6.2f ms of processor\n", "  enlargement alone", 1000.0 * wall / frames,
           1000.0 * (processorSeconds() - cpuStart) / frames);
}

// One frame of a screen taken apart, each step finished before the next
// starts: where a scaled frame's time goes.
static void measureSteps(const char *name, void (*frame)(), double seconds)
{
    using Clock = std::chrono::steady_clock;
    const bool enlarged = currentPicture().scale >= 2;
    double draw = 0, copy = 0, quad = 0, flip = 0;
    long frames = 0;
    const auto start = Clock::now();
    while (std::chrono::duration<double>(Clock::now() - start).count() < seconds) {
        const auto t0 = Clock::now();
        advanceAnimationFrames(mission.hatched);
        frame();
        glFinish();
        const auto t1 = Clock::now();
        if (enlarged) {
            copyFrameToTexture();
            glFinish();
        }
        const auto t2 = Clock::now();
        if (enlarged) {
            drawEnlargedFrame();
            glFinish();
        }
        const auto t3 = Clock::now();
        glFlush();
        allegro_gl_flip();
        prepareNextFrame();
        glFinish();
        const auto t4 = Clock::now();
        draw += std::chrono::duration<double>(t1 - t0).count();
        copy += std::chrono::duration<double>(t2 - t1).count();
        quad += std::chrono::duration<double>(t3 - t2).count();
        flip += std::chrono::duration<double>(t4 - t3).count();
        frames++;
    }
    const double ms = 1000.0 / frames;
    printf("%-28s drawing %5.2f ms, copy %5.2f ms, enlarged quad %5.2f ms, flip %5.2f ms a frame\n", name,
           draw * ms, copy * ms, quad * ms, flip * ms);
}

static void backdropOnly()
{
    resetDrawState();
    drawBackdrop();
}

static void dumpBackdrop(const char *path)
{
    backdropAngle = 33.0f;
    backdropOnly();
    std::vector<unsigned char> pixels(SCREEN_WIDTH * SCREEN_HEIGHT * 3);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, GL_RGB, GL_UNSIGNED_BYTE, pixels.data());
    FILE *out = fopen(path, "wb");
    if (!out)
        return;
    fprintf(out, "P6\n%d %d\n255\n", SCREEN_WIDTH, SCREEN_HEIGHT);
    for (int y = SCREEN_HEIGHT - 1; y >= 0; y--)
        fwrite(&pixels[(size_t)y * SCREEN_WIDTH * 3], 1, SCREEN_WIDTH * 3, out);
    fclose(out);
}

// The busiest game screen a player meets: the view full of cells of every
// kind with their edges, every structure, nine bubblemen, a dozen
// explosions, rockets in flight, the cost labels, the launch panel, the name
// banner, the tutorial panel and the preview under the pointer.
static void buildBusiestLevel()
{
    const int w = 48, h = 40;
    resetMission();
    Level &l = currentLevel;
    l.title = "Intro";
    l.planet = 1;
    l.width = w;
    l.height = h;
    l.terrain.assign(w, std::vector<int32_t>(h, Empty));
    l.structures.assign(w, std::vector<int32_t>(h, 0));
    for (int x = 0; x < w; x++)
        for (int y = SKY_ROWS; y < h; y++) {
            // Caves every few cells, so most cells have an edge to draw.
            const int k = (x * 7 + y * 5) % 26;
            l.terrain[x][y] = (k >= 23 || (x + y) % 4 == 0) ? Empty : k;
        }
    for (int i = 0; i < 40; i++)
        l.structures[14 + i % 20][20 + i / 20 * 3] = 1 + i % 8;
    setBorderRing(l);
    mission.credits = 12345;
    mission.podsWithoutHatcher = 3;
    mission.podCount = mission.rocketCount = 9;
    camX = 14 * 32;
    camY = -30 * 32;
    for (int i = 0; i < 9; i++)
        spawnBubbleman(32.0f * (15 + 2 * i) + 16, 32.0f * (22 + i % 3) - 16);
    for (int i = 0; i < 12; i++)
        spawnExplosion(32.0f * (15 + i) + 16, 32.0f * (24 + i % 4) - 16, 1 + i % 3);
    for (int i = 0; i < 3; i++)
        flyingRockets.push_front(
            FlyingRocket{RocketFlyingTextures, ROCKET_FLYING_FRAME_COUNT, 32.0f * (18 + 4 * i) + 16,
                         32.0f * 23 - 16, i * 5, 18 + 4 * i, 23, -200, false});
    for (int i = 0; i < 10; i++)
        spawnCostLabel(32.0f * (16 + i) + 16, 32.0f * 25 - 16, 1 + i % 11);
    launchPanel.offset = launchPanel.maxOffset;
    launchPanel.slidingIn = true;
    introBanner = IntroBanner{true, 0, 15, 60, true, 1, 1, 0};
    currentTool = Girder;
    currentScreen = Playing;
    prefillGameStars();
}

// The frame alone: the banner and everything in the level stay as built.
static void busiestFrame()
{
    samplePointer();
    input.pointerX = 330;
    input.pointerY = 200;
    drawGameScreen();
}

// The layers of that frame one at a time, for where the time goes.
static void nothingDrawn() {}
static void busiestBackdrop()
{
    drawLevelBackdrop(viewOriginX(), viewOriginY());
}
static void busiestTerrain()
{
    drawTerrainCells(visibleCells(), viewOriginX(), viewOriginY());
}
static void busiestEdges()
{
    drawTerrainEdges(visibleCells(), viewOriginX(), viewOriginY());
}
static void busiestLevelView()
{
    drawLevelView(Playing);
}
// Two yardsticks for the renderer: its cost per pixel filled and per quad.
static void fullQuad()
{
    drawTextureSized(320, 240, SpriteTextures[0], 1, 1, 1, 1, 640, 480);
}
static void manySmall()
{
    for (int i = 0; i < 300; i++)
        drawTextureSized(16 + (i % 20) * 32, 16 + (i / 20) * 32, SpriteTextures[5], 1, 1, 1, 1, 2, 2);
}
static void busiestEntities()
{
    drawExplosions();
    drawFlyingRockets();
    drawBubblemen();
}

// A designed mission (P2M04) as it opens, banner and all.
static bool openDesignedMission()
{
    std::string error;
    const std::string mission = std::string(DataRoot) + "/DATA/DATA.DAT#LEVELS/P2M04_LEV";
    if (!tryLoadLevelFromPack(currentLevel, mission.c_str(), &error))
        return false;
    camX = 200;
    camY = -550;
    armLevelBanner();
    setScreen(Playing);
    return true;
}

static const struct {
    const char *name;
    u32 id;
} frontEndScreens[] = {
    {"main menu", MainMenu},         {"game select", GameSelect}, {"password panel", PasswordEntry},
    {"options", Options},            {"help", Help},              {"credits", CreditsScreen},
    {"exit screen", ExitScreen},
};

// The same random numbers and the same number of ticks before each picture,
// so two builds' pictures can be compared byte for byte: a change to the
// drawing must leave every one of them as it was.
static void dumpOne(const std::string &dir, const char *name, void (*tick)(), void (*frame)(), int ticks)
{
    srand(7);
    for (int i = 0; i < ticks; i++) {
        if (tick)
            tick();
        advanceAnimationFrames(mission.hatched);
    }
    frame();
    glFinish();
    std::string path = dir + "/" + name + ".png";
    for (char &c : path)
        c = c == ' ' ? '_' : c;
    writePng(path, SCREEN_WIDTH, SCREEN_HEIGHT, readFrameRgb());
    presentFrame();
}

static void dumpScreens(const std::string &dir)
{
    currentScreen = MainMenu;
    resetExitScreen();
    for (const auto &screen : frontEndScreens) {
        currentScreen = screen.id;
        ScreenHandlers *row = handlersFor(screen.id);
        dumpOne(dir, screen.name, row->logic, row->render, 40);
    }
    linkTerrainSet(1);
    buildBusiestLevel();
    dumpOne(dir, "game busiest", nullptr, busiestFrame, 0);
    currentScreen = Paused;
    dumpOne(dir, "pause", nullptr, handlersFor(Paused)->render, 0);
    if (openDesignedMission())
        dumpOne(dir, "game P2M04", gameTick, busiestFrame, 40);
}

// Every screen once, in the window as it is.
static void measureScreens(double seconds, bool gameOnly)
{
    currentScreen = MainMenu;
    if (!gameOnly)
        measure("intro", nullptr, introFrame, seconds);
    if (!gameOnly)
        measure("main-menu backdrop", nullptr, backdropOnly, seconds);
    // Each screen as the player sees it, its own logic running every frame.
    resetExitScreen();
    for (const auto &screen : frontEndScreens) {
        if (gameOnly)
            break;
        currentScreen = screen.id;
        ScreenHandlers *row = handlersFor(screen.id);
        measure(screen.name, row->logic, row->render, seconds);
    }
    linkTerrainSet(1);
    buildBusiestLevel();
    measure("game screen, busiest", nullptr, busiestFrame, seconds);
    measureSteps("  its steps", busiestFrame, seconds);
    if (currentPicture().scale >= 2)
        measureEnlargement(seconds);
    if (gameOnly) {
        measure("  clear and present only", nullptr, nothingDrawn, seconds);
        measure("  backdrop and stars", nullptr, busiestBackdrop, seconds);
        measure("  terrain cells", nullptr, busiestTerrain, seconds);
        measure("  edge overlays", nullptr, busiestEdges, seconds);
        measure("  whole level view", nullptr, busiestLevelView, seconds);
        measure("  entities", nullptr, busiestEntities, seconds);
        measure("  yardstick: one 640x480 quad", nullptr, fullQuad, seconds);
        measure("  yardstick: 300 2x2 quads", nullptr, manySmall, seconds);
    }
    currentScreen = Paused;
    measure("pause panel over it", nullptr, handlersFor(Paused)->render, seconds);

    // A designed mission as it opens, with the game's own tick running.
    if (openDesignedMission())
        measure("game screen, mission P2M04", gameTick, busiestFrame, seconds);
}

int main(int argc, char **argv)
{
    if (argc < 2) {
        fprintf(stderr, "usage: frame_rate <game directory> [seconds per screen]\n");
        return 2;
    }
    double seconds = argc > 2 ? atof(argv[2]) : 5.0;
    if (allegro_init() != 0 || install_timer() != 0 || install_allegro_gl() != 0 || jpgalleg_init() != 0) {
        fprintf(stderr, "frame_rate: the libraries did not start\n");
        return 1;
    }
    install_keyboard();
    install_mouse();
    install_sound(DIGI_NONE, MIDI_NONE, NULL);
    snprintf(DataRoot, sizeof DataRoot, "%s", argv[1]);
    openLogAt("/tmp/delvemoor-frame-rate.log");
    // The mode a software renderer accepts, set directly: the game's own
    // fall-back chain would stop at its notice box on such a machine.
    allegro_gl_clear_settings();
    allegro_gl_set(AGL_COLOR_DEPTH, 32);
    set_color_depth(32);
    allegro_gl_set(AGL_DOUBLEBUFFER, 1);
    allegro_gl_set(AGL_RENDERMETHOD, 1);
    allegro_gl_set(AGL_REQUIRE, AGL_DOUBLEBUFFER);
    allegro_gl_set(AGL_SUGGEST, AGL_COLOR_DEPTH | AGL_RENDERMETHOD);
    if (set_gfx_mode(GFX_OPENGL_WINDOWED, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0) < 0) {
        fprintf(stderr, "frame_rate: no OpenGL window: %s\n", allegro_error);
        return 1;
    }
    allegro_gl_use_mipmapping(-1);
    keepFrameMemory();
    setDrawingState();
    // The window follows its size as the game's does; the runs below set it.
    fitWindowToDesktop(false);
    printf("renderer: %s\n", (const char *)glGetString(GL_RENDERER));
    double load[1] = {0};
    if (getloadavg(load, 1) == 1)
        printf("load average: %.2f (figures from a busy machine are high)\n", load[0]);

    beginFrame2D();
    // The load screen brings the fonts in before the rest.
    loadFontData();
    loadGameData();
    linkObjectData();
    if (argc > 4 && strcmp(argv[3], "--dump-backdrop") == 0) {
        dumpBackdrop(argv[4]);
        endFrame2D();
        closeLog();
        return 0;
    }
    if (argc > 4 && strcmp(argv[3], "--dump-game") == 0) {
        linkTerrainSet(1);
        buildBusiestLevel();
        busiestFrame();
        glFinish();
        writePng(argv[4], SCREEN_WIDTH, SCREEN_HEIGHT, readFrameRgb());
        endFrame2D();
        closeLog();
        return 0;
    }
    if (argc > 4 && strcmp(argv[3], "--dump-scaled") == 0) {
        linkTerrainSet(1);
        buildBusiestLevel();
        resizeGameWindow(2 * SCREEN_WIDTH, 2 * SCREEN_HEIGHT);
        // The renderer learns the window's new size at a flip.
        presentFrame();
        busiestFrame();
        enlargeFrame();
        glFinish();
        writePng(argv[4], presentationWindowWidth(), presentationWindowHeight(),
                 readFrameRgb(presentationWindowWidth(), presentationWindowHeight()));
        endFrame2D();
        closeLog();
        return 0;
    }
    if (argc > 4 && strcmp(argv[3], "--dump-screens") == 0) {
        dumpScreens(argv[4]);
        endFrame2D();
        closeLog();
        return 0;
    }
    const bool gameOnly = argc > 3 && strcmp(argv[3], "--game-only") == 0;
    for (int scale = 1; scale <= 3; scale++) {
        if (!resizeGameWindow(scale * SCREEN_WIDTH, scale * SCREEN_HEIGHT)) {
            printf("the window could not be made %d x %d: the X screen is too small\n", scale * SCREEN_WIDTH,
                   scale * SCREEN_HEIGHT);
            break;
        }
        printf("-- window %d x %d (%d x)\n", presentationWindowWidth(), presentationWindowHeight(), scale);
        measureScreens(seconds, gameOnly);
    }
    endFrame2D();
    closeLog();
    return 0;
}
END_OF_MAIN()
