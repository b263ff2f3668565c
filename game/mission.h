// The running state of the level in play and the reset that starts every
// attempt at a level from a clean slate.
#pragma once

#include <cstdint>

const int LOCKABLE_TOOL_COUNT = 9;

struct MissionState {
    int32_t credits;
    bool outOfCredits;          // credits < 1, set each frame by the game screen
    int32_t podCount;           // Pod cells counted at load
    int32_t podsWithoutHatcher;
    int32_t rocketCount;        // Rocket cells counted at load
    int32_t rocketsGone;
    int32_t savedCount;
    bool bubblemanLost;
    bool hatched;
    bool launchRequested;
    // Girder, LeftHangingGirder, RightHangingGirder, EnergyLift, LeftLiftExit,
    // RightLiftExit, Blocker, Shovel, Dynamite: non-zero locks the tool.
    int32_t toolLocked[LOCKABLE_TOOL_COUNT];
};

extern MissionState mission;

// The tool in use (a ToolId, or an editor paint tool 21 to 33).
extern int32_t currentTool;

// Zeroes the mission, resets the launch panel, empties the bubblemen, flying
// rockets, explosions and cost labels, and puts the tool down. The level grid
// is left as it is until the next load replaces it.
void resetMission();
