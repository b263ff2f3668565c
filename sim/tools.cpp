// Each rule sets its messages in a fixed order and the status line keeps the
// last one asked for, so when several refusals apply the later one is what
// the player reads: a missing footing outweighs an occupied cell.
#include "sim/tools.h"

#include "audio/audio.h"
#include "game/mission.h"
#include "game/status.h"
#include "sim/cells.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "world/level.h"

static const int REFUSAL_SOUND = 12;
static const int BUILD_SOUND = 1;
static const int DIG_SOUND = 26;
static const float PLAY_BAND_BOTTOM = 40;
static const float PLAY_BAND_TOP = 480 - 128;

static void refuse(const char *message)
{
    setStatus(message);
    SoundRequest = REFUSAL_SOUND;
}

static void charge(int32_t tool, int x, int y)
{
    mission.credits -= toolCost(tool);
    spawnCostLabel(cellCentreX(x), cellCentreY(y), tool);
}

static const char *builtMessage(int32_t tool)
{
    switch (tool) {
    case Girder: return StatusGirderBuilt;
    case LeftHangingGirder: return StatusLeftHangingGirderBuilt;
    case RightHangingGirder: return StatusRightHangingGirderBuilt;
    case EnergyLift: return StatusEnergyLiftBuilt;
    case LeftLiftExit: return StatusLeftLiftExitBuilt;
    case RightLiftExit: return StatusRightLiftExitBuilt;
    case Blocker: return StatusBlockerBuilt;
    default: return StatusEmpty;
    }
}

// Standing structures and hanging girders share one rule; only what holds
// them up differs.
static void buildStructure(int32_t tool, int x, int y, bool held, const char *notHeld)
{
    const int32_t cost = toolCost(tool);
    const bool occupied = isOccupied(x, y);
    if (occupied)
        refuse(StatusCannotBuildHere);
    else if (mission.credits < cost)
        refuse(StatusNotEnoughCredits);
    if (mission.credits >= cost && !occupied && held) {
        setStructure(x, y, tool);
        charge(tool, x, y);
        SoundRequest = BUILD_SOUND;
        setStatus(builtMessage(tool));
    }
    if (!held)
        refuse(notHeld);
}

static void buildHatcher(int x, int y)
{
    const int32_t cost = toolCost(Hatcher);
    const bool pod = isPod(x, y);
    if (!pod)
        refuse(StatusHatcherOverPod);
    else if (mission.credits < cost)
        refuse(StatusNotEnoughCredits);
    if (mission.credits >= cost && pod) {
        setStatus(StatusHatcherBuilt);
        SoundRequest = BUILD_SOUND;
        setStructure(x, y, Hatcher);
        setTerrain(x, y, Empty);
        mission.credits -= cost;
        mission.podsWithoutHatcher--;
        spawnCostLabel(cellCentreX(x), cellCentreY(y), Hatcher);
    }
}

static void dig(int x, int y)
{
    const int32_t cost = toolCost(Shovel);
    const bool diggable = isDiggable(x, y);
    const bool freeAbove = isFreeAbove(x, y);
    const bool dry = isAwayFromWater(x, y);
    if (!diggable)
        refuse(StatusCannotDig);
    else if (mission.credits < cost)
        refuse(StatusNotEnoughCredits);
    if (mission.credits >= cost && diggable && freeAbove && dry) {
        setStatus(StatusDigging);
        SoundRequest = DIG_SOUND;
        setTerrain(x, y, Empty);
        charge(Shovel, x, y);
    }
    if (!freeAbove)
        refuse(StatusDigUnderStructure);
    if (!dry)
        refuse(StatusDigNearWater);
}

// The blast brings its own sound with the explosion.
static void blast(int x, int y)
{
    const int32_t cost = toolCost(Dynamite);
    const bool blastable = isBlastable(x, y);
    const bool freeAbove = isFreeAbove(x, y);
    const bool dry = isAwayFromWater(x, y);
    if (!blastable)
        refuse(StatusCannotDestroy);
    else if (mission.credits < cost)
        refuse(StatusNotEnoughCredits);
    if (mission.credits >= cost && blastable && freeAbove && dry) {
        setStatus(StatusDestroying);
        detonateRadioactive(x, y);
        detonateExplosive(x, y);
        spawnExplosion(cellCentreX(x), cellCentreY(y), BlastExplosion);
        setStructure(x, y, 0);
        setTerrain(x, y, Empty);
        charge(Dynamite, x, y);
    }
    if (!freeAbove)
        refuse(StatusBlastUnderStructure);
    if (!dry)
        refuse(StatusBlastNearWater);
}

void useToolOnCell(int32_t tool, int x, int y)
{
    if (!inGrid(x, y))
        return;
    switch (tool) {
    case Girder: case EnergyLift: case LeftLiftExit: case RightLiftExit: case Blocker:
        buildStructure(tool, x, y, hasFootingBelow(x, y), StatusNeedsFooting);
        break;
    case LeftHangingGirder:
        buildStructure(tool, x, y, hasRightAnchor(x, y), StatusNeedsAnchor);
        break;
    case RightHangingGirder:
        buildStructure(tool, x, y, hasLeftAnchor(x, y), StatusNeedsAnchor);
        break;
    case Hatcher:
        buildHatcher(x, y);
        break;
    case Shovel:
        dig(x, y);
        break;
    case Dynamite:
        blast(x, y);
        break;
    default:
        break;
    }
}

bool toolFitsCell(int32_t tool, int x, int y)
{
    if (!inGrid(x, y))
        return false;
    switch (tool) {
    case Girder: case EnergyLift: case LeftLiftExit: case RightLiftExit: case Blocker:
        return !isOccupied(x, y) && hasFootingBelow(x, y);
    case LeftHangingGirder:
        return !isOccupied(x, y) && hasRightAnchor(x, y);
    case RightHangingGirder:
        return !isOccupied(x, y) && hasLeftAnchor(x, y);
    case Hatcher:
        return isPod(x, y);
    case Shovel:
        return isDiggable(x, y) && isFreeAbove(x, y) && isAwayFromWater(x, y);
    case Dynamite:
        return isBlastable(x, y) && isFreeAbove(x, y) && isAwayFromWater(x, y);
    default:
        return false;
    }
}

bool pointerInPlayBand(float pointerY)
{
    return pointerY > PLAY_BAND_BOTTOM && pointerY < PLAY_BAND_TOP;
}

void applyToolClicks(bool leftPressed, bool rightPressed, float pointerY)
{
    if (!pointerInPlayBand(pointerY) || currentTool == NoTool)
        return;
    if (leftPressed)
        useToolOnCell(currentTool, currentLevel.cursorX, currentLevel.cursorY);
    if (rightPressed) {
        setStatus(StatusCancelled);
        currentTool = NoTool;
    }
}
