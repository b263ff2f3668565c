#include "sim/toolinfo.h"

#include "game/mission.h"
#include "game/status.h"
#include "sim/cells.h"
#include "world/level.h"

// tools/levelmaps.py reads the lock order and the script names from these
// rows: keep one row a line, in this order of columns.
const ToolInfo toolInfo[TOOL_COUNT + 1] = {
    {NoTool, 0, -1, "none", "", nullptr, StatusEmpty, NoRule, nullptr, nullptr},
    {Girder, 100, 0, "girder", "Girder", StatusPlaceGirder, StatusGirderBuilt, BuildRule, hasFootingBelow, StatusNeedsFooting},
    {LeftHangingGirder, 150, 1, "left-girder", "Left Hanging Girder", StatusPlaceLeftHangingGirder, StatusLeftHangingGirderBuilt, BuildRule, hasRightAnchor, StatusNeedsAnchor},
    {RightHangingGirder, 150, 2, "right-girder", "Right Hanging Girder", StatusPlaceRightHangingGirder, StatusRightHangingGirderBuilt, BuildRule, hasLeftAnchor, StatusNeedsAnchor},
    {Hatcher, 500, -1, "hatcher", "Hatcher", StatusPlaceHatcher, StatusHatcherBuilt, HatchRule, isPod, StatusHatcherOverPod},
    {EnergyLift, 300, 3, "lift", "Energy Lift", StatusPlaceEnergyLift, StatusEnergyLiftBuilt, BuildRule, hasFootingBelow, StatusNeedsFooting},
    {LeftLiftExit, 400, 4, "left-exit", "Left Lift Exit", StatusPlaceLeftLiftExit, StatusLeftLiftExitBuilt, BuildRule, hasFootingBelow, StatusNeedsFooting},
    {RightLiftExit, 400, 5, "right-exit", "Right Lift Exit", StatusPlaceRightLiftExit, StatusRightLiftExitBuilt, BuildRule, hasFootingBelow, StatusNeedsFooting},
    {Blocker, 250, 6, "blocker", "Blocker", StatusPlaceBlocker, StatusBlockerBuilt, BuildRule, hasFootingBelow, StatusNeedsFooting},
    {Shovel, 200, 7, "shovel", "Shovel", StatusSelectGround, StatusDigging, DigRule, isDiggable, StatusCannotDig},
    {Dynamite, 400, 8, "dynamite", "Dynamite", StatusSelectBlowUp, StatusDestroying, BlastRule, isBlastable, StatusCannotDestroy},
};

const ToolInfo &infoOf(int32_t tool)
{
    return tool >= 1 && tool <= TOOL_COUNT ? toolInfo[tool] : toolInfo[NoTool];
}

int32_t toolCost(int32_t tool)
{
    return infoOf(tool).cost;
}

int32_t toolOfLock(int index)
{
    for (const ToolInfo &t : toolInfo)
        if (t.lockIndex == index)
            return t.id;
    return NoTool;
}
