// levelshot: draws a level the way the level view draws it, through the
// game's own drawing code and the pictures of the built DATA/DATA.DAT, into
// an offscreen OpenGL context, and writes the 640 x 480 frame as a PNG. It is
// how the terrain, structures and sprites are judged together, as the
// player sees them, without a display.
//
//   levelshot [--sample | --level FILE | --campaign P1M01] [--out FILE.png]
//             [--cam X Y] [--ticks N] [--glow G] [--planet N] [--hud] [--full]
//             [--game-dir DIR] [--verbose]
//
// The built-in sample holds every terrain code, every structure, pods,
// rockets landed and flying, water, bubblemen and an explosion.

#include <GL/osmesa.h>

#include "app/log.h"
#include "app/screens.h"
#include "app/startup.h"
#include "game/camera.h"
#include "game/levelview.h"
#include "game/mission.h"
#include "render/draw.h"
#include "render/offscreen.h"
#include "render/stars.h"
#include "render/textures.h"
#include "sim/bubblemen.h"
#include "sim/cells.h"
#include "sim/explosions.h"
#include "game/entitydraw.h"
#include "sim/rockets.h"
#include "world/level.h"

#include <allegro.h>
#include <jpgalleg.h>

#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#ifndef LEVELSHOT_GAME_DIR
#define LEVELSHOT_GAME_DIR "."
#endif

namespace {

struct ShotOptions {
    std::string levelFile;      // a level text file
    std::string campaignLevel;  // or a campaign level inside the datafile, e.g. P1M01
    std::string out = "levelshot.png";
    std::string gameDir = LEVELSHOT_GAME_DIR;
    bool camGiven = false;
    float camX = 0, camY = 0;
    int ticks = 7;              // animation steps before the shot: mid-cycle frames
    float glow = 0.5f;          // pulseB, the radioactive glow's pulse
    int planet = 0;             // overrides the level's planet (its water) when 1 to 4
    bool hud = false;           // the display panels over the view, as in play
    bool full = false;          // every row, not only those the view draws under the panels
    bool verbose = false;
};

void usage()
{
    fprintf(stderr,
            "usage: levelshot [--sample | --level FILE | --campaign P1M01] [--out FILE.png]\n"
            "                 [--cam X Y] [--ticks N] [--glow G] [--planet N] [--hud] [--full]\n"
            "                 [--game-dir DIR] [--verbose]\n");
}

bool parseOptions(int argc, char **argv, ShotOptions &o)
{
    for (int i = 1; i < argc; i++) {
        const std::string a = argv[i];
        auto next = [&](int count) { return i + count < argc; };
        if (a == "--sample") {
            o.levelFile.clear();
            o.campaignLevel.clear();
        } else if (a == "--level" && next(1)) {
            o.levelFile = argv[++i];
        } else if (a == "--campaign" && next(1)) {
            o.campaignLevel = argv[++i];
        } else if (a == "--out" && next(1)) {
            o.out = argv[++i];
        } else if (a == "--cam" && next(2)) {
            o.camX = (float)atof(argv[++i]);
            o.camY = (float)atof(argv[++i]);
            o.camGiven = true;
        } else if (a == "--ticks" && next(1)) {
            o.ticks = atoi(argv[++i]);
        } else if (a == "--glow" && next(1)) {
            o.glow = (float)atof(argv[++i]);
        } else if (a == "--planet" && next(1)) {
            o.planet = atoi(argv[++i]);
        } else if (a == "--game-dir" && next(1)) {
            o.gameDir = argv[++i];
        } else if (a == "--hud") {
            o.hud = true;
        } else if (a == "--full") {
            o.full = true;
        } else if (a == "--verbose") {
            o.verbose = true;
        } else {
            return false;
        }
    }
    return o.ticks >= 0 && o.ticks < 100000;
}

[[noreturn]] void onFatal(const char *message)
{
    fprintf(stderr, "levelshot: %s (run with --verbose to see the log)\n", message);
    exit(1);
}

// ---------------------------------------------------------------- the sample

// Terrain by character; every cell code from 1 to 23 appears at least once.
int sampleCode(char c)
{
    switch (c) {
    case '1': return Dirt1;
    case '2': return Dirt2;
    case 'r': return Radioactive1;
    case 'a': return Rock1;
    case 'b': return Rock2;
    case 'c': return Rock3;
    case 'd': return Diamond1;
    case 'e': return Diamond2;
    case 'f': return Diamond3;
    case 'h': return HiddenBlock;
    case '#': return Border;
    case 'P': return Pod;
    case 'R': return Rocket;
    case '^': return Spikes;
    case 'V': return Vortex;
    case 'g': return Radioactive2;
    case '$': return Credits;
    case '~': return Water;
    case 'C': return WorldItem1;
    case 'S': return WorldItem2;
    case 'M': return WorldItem3;
    case 'T': return WorldItem4;
    case 'X': return Explosive;
    default: return Empty;
    }
}

int sampleStructure(char c)
{
    switch (c) {
    case 'G': return Girder;
    case 'L': return LeftHangingGirder;
    case 'R': return RightHangingGirder;
    case 'H': return Hatcher;
    case 'U': return EnergyLift;
    case '<': return LeftLiftExit;
    case '>': return RightLiftExit;
    case 'B': return Blocker;
    default: return 0;
    }
}

// A 30 x 20 level like the campaign's: sky rows 0 to 6 with rockets standing
// on the surface, three caves with the items, hazards, water and structures,
// and the pods, gems and rocks in the earth between them.
const char *const sampleTerrain[20] = {
    // 0         1         2
    // 012345678901234567890123456789
    "..............................",  // 0
    "..............................",  // 1
    "..............................",  // 2
    "..............................",  // 3
    "..............V...............",  // 4
    "......$.......................",  // 5
    "...R....R.................R...",  // 6
    "#1111111111111111222221111111#",  // 7
    "#111..........1abc12221111111#",  // 8
    "#11..CSMTX^....1111122211...1#",  // 9
    "#111111111111.....$.....11111#",  // 10
    "#1def11111.....1~~1..V..1h111#",  // 11
    "#11111rrgg11111111111111111a1#",  // 12
    "#111.......................11#",  // 13
    "#11......................P.11#",  // 14
    "#1111111111111111111111111111#",  // 15
    "#11111P111112222222222111b111#",  // 16
    "#2222222222222222222222222222#",  // 17
    "#111c1111111111111111111f1111#",  // 18
    "##############################",  // 19
};

const char *const sampleStructures[20] = {
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "........U>..GGGGR....L..B.....",
    "...H....U......G.....GG.......",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
    "..............................",
};

void buildSample(Level &level)
{
    level.title = "Levelshot Sample";
    level.planet = 1;
    level.missionNumber = 1;
    level.campaignLevel = 0;
    level.reserved = 0;
    level.width = 30;
    level.height = 20;
    level.terrain.assign(30, std::vector<int32_t>(20, Empty));
    level.structures.assign(30, std::vector<int32_t>(20, 0));
    for (int y = 0; y < 20; y++)
        for (int x = 0; x < 30; x++) {
            level.terrain[x][y] = sampleCode(sampleTerrain[y][x]);
            level.structures[x][y] = sampleStructure(sampleStructures[y][x]);
        }
}

// Bubblemen in the caves (walking, one climbing out of his hatcher), a
// rocket climbing through the sky and a blast in the top cave.
void addSampleSprites()
{
    const int walkers[][3] = {{6, 14, 3}, {11, 14, 11}, {17, 14, 17}, {20, 13, 7}};
    for (const auto &w : walkers) {
        spawnBubbleman(cellCentreX(w[0]), cellCentreY(w[1]));
        Bubbleman &b = bubblemen.front();
        b.emerging = false;
        b.walkFrame = w[2];
    }
    spawnBubbleman(cellCentreX(3), cellCentreY(14));
    bubblemen.front().enterFrame = 6;

    FlyingRocket r = {};
    r.frames = RocketFlyingTextures;
    r.frameCount = ROCKET_FLYING_FRAME_COUNT;
    r.x = cellCentreX(12);
    r.y = cellCentreY(5);
    r.frame = 9;
    r.topY = -200;
    flyingRockets.push_front(r);

    spawnExplosion(cellCentreX(13), cellCentreY(9), BlastExplosion);
    explosions.front().frame = 4;
}

// ---------------------------------------------------------------- pictures

// The game makes its textures with AllegroGL; here they go straight to the
// offscreen context, bottom row first as the game's are.
// ---------------------------------------------------------------- the view

// The level view as the game draws it (no preview: no screen of play), then
// the explosions, flying rockets and bubblemen; `full` takes every row and
// column rather than those the view shows.
void drawView(bool full)
{
    VisibleCells cells = visibleCells();
    if (full)
        cells = VisibleCells{0, currentLevel.width, 0, currentLevel.height};
    drawLevelViewCells(MainMenu, cells);
    drawExplosions();
    drawFlyingRockets();
    drawBubblemen();
}

static void drawDisplay()
{
    drawDisplayPanels();
    drawDisplayIcons();
}

bool loadLevel(const ShotOptions &o, Level &level, std::string *error)
{
    if (!o.levelFile.empty())
        return tryLoadLevelFromFile(level, o.levelFile.c_str(), error);
    if (!o.campaignLevel.empty()) {
        const std::string path = o.gameDir + "/DATA/DATA.DAT#LEVELS/" + o.campaignLevel + "_LEV";
        return tryLoadLevelFromPack(level, path.c_str(), error);
    }
    buildSample(level);
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    ShotOptions o;
    if (!parseOptions(argc, argv, o)) {
        usage();
        return 2;
    }
    setFatalHook(onFatal);
    if (install_allegro(SYSTEM_NONE, &errno, atexit) != 0) {
        fprintf(stderr, "levelshot: Allegro did not start\n");
        return 1;
    }
    jpgalleg_init();
    if (o.verbose)
        openLogAt("/dev/stderr");
    snprintf(DataRoot, sizeof DataRoot, "%s", o.gameDir.c_str());

    OSMesaContext context = OSMesaCreateContextExt(OSMESA_RGBA, 0, 0, 0, nullptr);
    std::vector<unsigned char> frame((size_t)SCREEN_WIDTH * SCREEN_HEIGHT * 4, 0);
    if (!context || !OSMesaMakeCurrent(context, frame.data(), GL_UNSIGNED_BYTE, SCREEN_WIDTH, SCREEN_HEIGHT)) {
        fprintf(stderr, "levelshot: no offscreen OpenGL context\n");
        return 1;
    }
    setDrawingState();
    glClearColor(0, 0, 0, 1);

    makeTexture = uploadPictureOffscreen;
    // The fonts too: the tutorial panels of the first levels are words.
    loadFontData();
    loadImageData();
    linkImageData();
    linkTerrainSet(1);

    Level &level = currentLevel;
    std::string error;
    if (!loadLevel(o, level, &error)) {
        fprintf(stderr, "levelshot: %s\n", error.c_str());
        return 1;
    }
    if (o.planet >= LEVEL_MIN_PLANET && o.planet <= LEVEL_MAX_PLANET)
        level.planet = o.planet;
    const bool sample = o.levelFile.empty() && o.campaignLevel.empty();
    if (sample)
        addSampleSprites();

    // The view a level opens with, or the sample's caves below the surface.
    camX = o.camGiven ? o.camX : sample ? 0.0f : 200.0f;
    camY = o.camGiven ? o.camY : sample ? -600.0f : -550.0f;
    for (int i = 0; i < o.ticks; i++)
        advanceAnimationFrames(mission.hatched);
    pulseB = o.glow;
    srand(7);
    prefillGameStars();

    glClear(GL_COLOR_BUFFER_BIT);
    beginFrame2D();
    drawView(o.full);
    if (o.hud)
        drawDisplay();
    endFrame2D();
    glFinish();

    const std::vector<unsigned char> rgb = readFrameRgb();
    OSMesaDestroyContext(context);
    if (!writePng(o.out, SCREEN_WIDTH, SCREEN_HEIGHT, rgb)) {
        fprintf(stderr, "levelshot: cannot write %s\n", o.out.c_str());
        return 1;
    }
    printf("levelshot: wrote %s\n", o.out.c_str());
    return 0;
}
