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
#include "sim/toolinfo.h"
#include "world/level.h"

static const float PLAY_BAND_BOTTOM = 40;
static const float PLAY_BAND_TOP = 480 - 128;

static void refuse(const char *message)
{
    setStatus(message);
    SoundRequest = RefusalSound;
}

static void charge(int32_t tool, int x, int y)
{
    mission.credits -= toolCost(tool);
    spawnCostLabel(cellCentreX(x), cellCentreY(y), tool);
}

// What the placement rules look at in a cell, read once for the click and
// for the preview alike.
struct CellFit {
    bool target;        // empty (a structure), a pod, diggable or blastable
    bool held;          // BuildRule: something holds the structure up
    bool freeAbove;     // DigRule, BlastRule
    bool dry;           // DigRule, BlastRule
};

static CellFit fitOf(const ToolInfo &t, int x, int y)
{
    CellFit f = {false, true, true, true};
    switch (t.rule) {
    case BuildRule:
        f.target = !isOccupied(x, y);
        f.held = t.cellTest(x, y);
        break;
    case HatchRule:
        f.target = t.cellTest(x, y);
        break;
    case DigRule:
    case BlastRule:
        f.target = t.cellTest(x, y);
        f.freeAbove = isFreeAbove(x, y);
        f.dry = isAwayFromWater(x, y);
        break;
    default:
        f.held = false;
        break;
    }
    return f;
}

static bool fits(const CellFit &f)
{
    return f.target && f.held && f.freeAbove && f.dry;
}

// The refusals every placement opens with, the cell before the purse; true
// when the tool acts. What a rule refuses after this outweighs both.
static bool paysAndFits(const ToolInfo &t, const CellFit &f, const char *offTarget)
{
    if (!f.target)
        refuse(offTarget);
    else if (mission.credits < t.cost)
        refuse(StatusNotEnoughCredits);
    return mission.credits >= t.cost && fits(f);
}

// Standing structures and hanging girders share one rule; only what holds
// them up differs.
static void buildStructure(const ToolInfo &t, int x, int y, const CellFit &f)
{
    if (paysAndFits(t, f, StatusCannotBuildHere)) {
        setStructure(x, y, t.id);
        charge(t.id, x, y);
        SoundRequest = BuildSound;
        setStatus(t.doneMessage);
    }
    if (!f.held)
        refuse(t.untestedMessage);
}

static void buildHatcher(const ToolInfo &t, int x, int y, const CellFit &f)
{
    if (paysAndFits(t, f, t.untestedMessage)) {
        setStatus(t.doneMessage);
        SoundRequest = BuildSound;
        setStructure(x, y, Hatcher);
        setTerrain(x, y, Empty);
        mission.credits -= t.cost;
        mission.podsWithoutHatcher--;
        spawnCostLabel(cellCentreX(x), cellCentreY(y), Hatcher);
    }
}

// Digging and blasting share the refusals; the blast brings its own sound
// with the explosion.
static void clearCell(const ToolInfo &t, int x, int y, const CellFit &f)
{
    if (paysAndFits(t, f, t.untestedMessage)) {
        setStatus(t.doneMessage);
        if (t.rule == DigRule) {
            SoundRequest = DigSound;
            setTerrain(x, y, Empty);
        } else {
            detonateRadioactive(x, y);
            detonateExplosive(x, y);
            spawnExplosion(cellCentreX(x), cellCentreY(y), BlastExplosion);
            setStructure(x, y, 0);
            setTerrain(x, y, Empty);
        }
        charge(t.id, x, y);
    }
    if (!f.freeAbove)
        refuse(t.rule == DigRule ? StatusDigUnderStructure : StatusBlastUnderStructure);
    if (!f.dry)
        refuse(t.rule == DigRule ? StatusDigNearWater : StatusBlastNearWater);
}

void useToolOnCell(int32_t tool, int x, int y)
{
    if (!inGrid(x, y))
        return;
    const ToolInfo &t = infoOf(tool);
    const CellFit f = fitOf(t, x, y);
    switch (t.rule) {
    case BuildRule:
        buildStructure(t, x, y, f);
        break;
    case HatchRule:
        buildHatcher(t, x, y, f);
        break;
    case DigRule:
    case BlastRule:
        clearCell(t, x, y, f);
        break;
    default:
        break;
    }
}

bool toolFitsCell(int32_t tool, int x, int y)
{
    return inGrid(x, y) && fits(fitOf(infoOf(tool), x, y));
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
