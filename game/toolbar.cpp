// The toolbar's rules: which tool a click may take up, what "Hatch Pods"
// does, and what a frame puts down again afterwards.
#include "game/toolbar.h"

#include "audio/audio.h"
#include "game/mission.h"
#include "game/status.h"
#include "sim/pods.h"
#include "sim/toolinfo.h"
#include "world/level.h"

bool toolIsLocked(int32_t tool)
{
    const int i = infoOf(tool).lockIndex;
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
    setStatus(infoOf(tool).chosenMessage);
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
        SoundRequest = HatchSound;
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
