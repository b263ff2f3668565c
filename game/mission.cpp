// The mission state and the reset that runs before every attempt at a level,
// so a retry can never inherit a bubbleman, an explosion or a counter from
// the attempt before it.
#include "game/mission.h"

#include "game/gamescreen.h"
#include "game/launchpanel.h"
#include "sim/entities.h"
#include "world/level.h"

MissionState mission;
int32_t currentTool;

void resetMission()
{
    mission = MissionState();
    clearEntityLists();
    resetLaunchPanel();
    currentTool = NoTool;
    // A solution counts from the load; a retry is a new run to record.
    levelTick = 0;
    playRecord.clear();
}
