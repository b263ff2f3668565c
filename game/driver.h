// The headless driver: plays a level tick by tick from a scripted list of
// player actions, through the same rules a player's clicks reach, and says
// how it ended. It is how a level is proven solvable.
#pragma once

#include "game/solution.h"
#include "world/level.h"

#include <cstdint>
#include <string>
#include <vector>

// Loading the level to run, into currentLevel and the mission state.
bool loadRunLevelFile(const char *path, std::string *error);
// A campaign level by its name in the datafile's LEVELS folder.
bool loadRunLevelPack(const char *datafile, const char *name, std::string *error);
bool loadRunLevelText(const std::string &text, std::string *error);

enum RunOutcome : int32_t {
    RunUnfinished = 0,
    RunWon = 1,
    RunLost = 2,
    RunError = 3,
};

struct RunOptions {
    int32_t tickLimit = 20000;
    uint32_t seed = 1;
    bool keepFinalState = false;    // copy the grids and bubblemen into the result
};

struct BubblemanState {
    float x, y;
    int32_t motion, heading;
    bool entering, emerging, sucked, dying;
};

// What an action led to: the status message it left (or the driver's own
// remark, in brackets, when the game ignored it).
struct ActionNote {
    int32_t step;
    int32_t line;
    std::string text;
};

struct RunResult {
    int32_t outcome = RunUnfinished;
    int32_t ticks = 0;
    int32_t credits = 0;
    int32_t savedCount = 0;
    int32_t podCount = 0;
    std::string error;
    std::vector<ActionNote> notes;
    TerrainGrid terrain;
    StructureGrid structures;
    std::vector<BubblemanState> bubblemen;
};

// Starts a run of the loaded level: the random numbers seeded, the status
// line empty. runSolution does this itself.
void beginRun(uint32_t seed);
// One step of the game: the logic tick, then the frame with the actions of
// this step (at most one). Returns the outcome so far.
int32_t runStep(int32_t step, const ScriptAction *action, RunResult &result);
// The whole run of the loaded level, until it is won or lost or the tick
// limit is reached.
RunResult runSolution(const Solution &solution, const RunOptions &options);

const char *outcomeName(int32_t outcome);
// One line for people: the outcome with ticks and credits.
std::string describeRun(const RunResult &result);
