// The one level record, its two grids, the cell codes and the code sets every
// placement, movement and drawing rule tests against, and the two loaders.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

// Allegro's packed file, declared here so that users of the level need not
// pull in allegro.h and its macros.
struct PACKFILE;
struct MissionState;

// Columns of cells: grid[x][y], x = 0 the left-most column, y = 0 the top row.
typedef std::vector<std::vector<int32_t>> TerrainGrid;
typedef std::vector<std::vector<int32_t>> StructureGrid;

struct Level {
    std::string title;
    int32_t planet;
    int32_t missionNumber;
    int32_t campaignLevel;  // 1 for a campaign level, anything else is custom
    int32_t reserved;       // read from the file and kept; nothing uses it
    TerrainGrid terrain;
    StructureGrid structures;
    int32_t cursorX, cursorY;
    int16_t width, height;
};

extern Level currentLevel;

const int CELL_SIZE = 32;
const int SKY_ROWS = 7;     // rows 0 to 6 are open sky

// Levels come from players too, so the loaders refuse shapes the game cannot
// use and sizes that would make the per-frame whole-grid scans (pod count and
// normalisation) or the grids' memory grow without bound: 256 x 256 cells is
// 512 KiB for both grids and a few hundred microseconds per frame at most.
const int LEVEL_MIN_WIDTH = 3;
const int LEVEL_MIN_HEIGHT = 8;
const int LEVEL_MAX_WIDTH = 256;
const int LEVEL_MAX_HEIGHT = 256;
const int LEVEL_MIN_PLANET = 1;
const int LEVEL_MAX_PLANET = 4;

enum CellCode : int32_t {
    Empty = 0,
    Dirt1 = 1,
    Dirt2 = 2,
    Radioactive1 = 3,
    Rock1 = 4,
    Rock2 = 5,
    Rock3 = 6,
    Diamond1 = 7,
    Diamond2 = 8,
    Diamond3 = 9,
    HiddenBlock = 10,
    Border = 11,
    Pod = 12,
    Rocket = 13,
    Spikes = 14,
    Vortex = 15,
    Radioactive2 = 16,
    Credits = 17,
    Water = 18,
    WorldItem1 = 19,
    WorldItem2 = 20,
    WorldItem3 = 21,
    WorldItem4 = 22,
    Explosive = 23,
};

const int32_t CELL_CODE_COUNT = 24;

// The tool in use; 1 to 8 are also the structure codes stored in the
// StructureGrid (0 there means no structure). 9 and 10 are never stored.
enum ToolId : int32_t {
    NoTool = 0,
    Girder = 1,
    LeftHangingGirder = 2,
    RightHangingGirder = 3,
    Hatcher = 4,
    EnergyLift = 5,
    LeftLiftExit = 6,
    RightLiftExit = 7,
    Blocker = 8,
    Shovel = 9,
    Dynamite = 10,
};
typedef int32_t StructureCode;

// The code sets. Any int is safe to ask about: codes outside 0..23 never occur
// in a valid level, belong to no set but Ground and draw as nothing.
bool isGround(int32_t code);
bool isEdgeCasting(int32_t code);
bool isEdgeReceiving(int32_t code);
bool isSupport(int32_t code);
bool isNeedsSupport(int32_t code);
bool isSkyKeep(int32_t code);
bool isDiggable(int32_t code);
bool isBlastProof(int32_t code);
bool isRadioactive(int32_t code);

// The number of Pod cells in the whole grid, counted afresh every level view;
// the editor's pod limit reads it.
extern int32_t editorPodCount;
void countEditorPods(const Level &level);

// Every cell of the outer ring becomes Border.
void setBorderRing(Level &level);

// Borders on the ring, clear sky, support under items and water; run every frame.
void normaliseTerrain(Level &level);

// Drawing, at the cell's centre (sx, sy) in the y-up screen coordinates.
void drawTerrainCell(const Level &level, int x, int y, float sx, float sy);
void drawEdgeOverlays(const Level &level, int x, int y, float sx, float sy);
void drawSurfaceEndOverlays(float ox, float oy);
void drawLevelBackdrop(float ox, float oy);

// The game-facing loaders: the path is built printf-style from format; any
// failure logs "# ERROR! # ..." and ends the game with "Cannot load Level!".
// Both start with resetMission and fill currentLevel's counters in `mission`.
void loadLevelFromPack(Level &level, const char *format, ...);
void loadLevelFromFile(Level &level, const char *format, ...);

// The same loads without ending the program: false with the log line's text
// (without the "# ERROR! # " prefix) in *error, and `level` left untouched.
// The headless driver and the tools use these.
bool tryLoadLevelFromPack(Level &level, const char *path, std::string *error);
bool tryLoadLevelFromFile(Level &level, const char *path, std::string *error);

// The parsing cores on an open source, for the two above and the fuzzers.
// They read into `level` and `state` only on success; `level`'s header fields
// are the "values held before" that the stream loader keeps when a number
// cannot be read.
bool parseLevelPackfile(PACKFILE *file, Level &level, MissionState &state, std::string *error);
bool parseLevelStream(std::istream &in, Level &level, MissionState &state, std::string *error);
