#include "game/gametick.h"

#include "audio/audio.h"
#include "game/mission.h"
#include "game/status.h"
#include "sim/bubblemen.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "sim/pods.h"
#include "sim/rockets.h"
#include "sim/tools.h"
#include "world/level.h"

static const int HATCH_SOUND = 25;

// Index into MissionState::toolLocked, or -1 for a tool without a lock.
static int lockIndex(int32_t tool)
{
    switch (tool) {
    case Girder: return 0;
    case LeftHangingGirder: return 1;
    case RightHangingGirder: return 2;
    case EnergyLift: return 3;
    case LeftLiftExit: return 4;
    case RightLiftExit: return 5;
    case Blocker: return 6;
    case Shovel: return 7;
    case Dynamite: return 8;
    default: return -1;
    }
}

static const char *chosenMessage(int32_t tool)
{
    switch (tool) {
    case Girder: return StatusPlaceGirder;
    case LeftHangingGirder: return StatusPlaceLeftHangingGirder;
    case RightHangingGirder: return StatusPlaceRightHangingGirder;
    case Hatcher: return StatusPlaceHatcher;
    case EnergyLift: return StatusPlaceEnergyLift;
    case LeftLiftExit: return StatusPlaceLeftLiftExit;
    case RightLiftExit: return StatusPlaceRightLiftExit;
    case Blocker: return StatusPlaceBlocker;
    case Shovel: return StatusSelectGround;
    case Dynamite: return StatusSelectBlowUp;
    default: return nullptr;
    }
}

bool toolIsLocked(int32_t tool)
{
    const int i = lockIndex(tool);
    return i >= 0 && mission.toolLocked[i] != 0;
}

static bool isToolbarTool(int32_t tool)
{
    return tool >= Girder && tool <= Dynamite;
}

bool toolCanBeChosen(int32_t tool)
{
    if (!isToolbarTool(tool) || toolIsLocked(tool) || mission.outOfCredits)
        return false;
    return !(tool == Hatcher && mission.hatched);
}

void chooseTool(int32_t tool)
{
    if (!isToolbarTool(tool) || toolIsLocked(tool))
        return;
    if (mission.outOfCredits) {
        setStatus(StatusOutOfCredits);
        return;
    }
    if (tool == Hatcher && mission.hatched) {
        setStatus(StatusNoMoreHatchers);
        return;
    }
    currentTool = tool;
    setStatus(chosenMessage(tool));
}

void pressHatchPods()
{
    if (mission.hatched) {
        setStatus(StatusPodsAlreadyHatched);
    } else if (mission.podsWithoutHatcher >= 1) {
        setStatus(StatusCannotHatchYet);
    } else {
        hatchPods();
        mission.hatched = true;
        setStatus(StatusHatchingPods);
        SoundRequest = HATCH_SOUND;
    }
}

void dropHatcherAfterHatching()
{
    if (mission.hatched && currentTool == Hatcher)
        currentTool = NoTool;
}

// Credits can only run out, never go below nothing: the display shows 0 and
// every tool is refused until a pick-up brings some back.
void applyOutOfCreditsRule()
{
    const bool low = mission.credits < 1;
    if (low) {
        setStatus(StatusOutOfCredits);
        currentTool = NoTool;
        if (mission.credits < 0)
            mission.credits = 0;
    }
    mission.outOfCredits = low;
}
