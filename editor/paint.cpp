// The paint step. The editor writes terrain only: the structure grid belongs
// to play. Whatever a stroke leaves that the level cannot keep (dirt in the
// sky, a border cell painted over, spikes in mid-air) the next frame's
// normalisation sets right, so the rule here stays a plain write.
#include "editor/paint.h"

#include "editor/editor.h"

#include "app/screens.h"
#include "game/camera.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "sim/tools.h"
#include "world/level.h"

#include <cstdlib>

const char StatusMaxPods[] = "Maximum number of pods placed";

namespace {

const char PlacingDirt[] = "Placing Dirt...";
const char PlacingRocks[] = "Placing Rocks...";
const char ClearingTerrain[] = "Clearing Terrain...";
const char PlacingPods[] = "Placing Pods...";
const char PlacingRockets[] = "Placing Rockets...";
const char PlacingDiamonds[] = "Placing Diamonds...";
const char PlacingCredits[] = "Placing Credits...";
const char PlacingSpikes[] = "Placing Spikes...";
const char PlacingVortexes[] = "Placing Vortexes...";
const char PlacingRadioactive[] = "Placing Radioactive Material...";
const char PlacingExplosives[] = "Placing Explosive Items...";
const char PlacingWorldItems[] = "Placing World Items...";
const char PlacingWater[] = "Placing Water...";

// One row per paint tool, in tool order: the codes it chooses among (the
// random number picks one; radioactive is the odd one out, see below) and
// its message.
struct PaintTool {
    int32_t firstCode;
    int32_t choices;
    const char *message;
};

const PaintTool paintTools[PAINT_TOOL_COUNT] = {
    /* PaintDirt        */ {Dirt1, 2, PlacingDirt},
    /* PaintRocks       */ {Rock1, 3, PlacingRocks},
    /* ClearTerrain     */ {Empty, 1, ClearingTerrain},
    /* PaintPod         */ {Pod, 1, PlacingPods},
    /* PaintRocket      */ {Rocket, 1, PlacingRockets},
    /* PaintDiamonds    */ {Diamond1, 3, PlacingDiamonds},
    /* PaintCredits     */ {Credits, 1, PlacingCredits},
    /* PaintSpikes      */ {Spikes, 1, PlacingSpikes},
    /* PaintVortex      */ {Vortex, 1, PlacingVortexes},
    /* PaintRadioactive */ {Radioactive1, 2, PlacingRadioactive},
    /* PaintExplosive   */ {Explosive, 1, PlacingExplosives},
    /* PaintWorldItem   */ {WorldItem1, 4, PlacingWorldItems},
    /* PaintWater       */ {Water, 1, PlacingWater},
};

const PaintTool &paintTool(int32_t tool)
{
    return paintTools[tool - FIRST_PAINT_TOOL];
}

} // namespace

bool isPaintTool(int32_t tool)
{
    return tool >= FIRST_PAINT_TOOL && tool < FIRST_PAINT_TOOL + PAINT_TOOL_COUNT;
}

int32_t paintedCode(int32_t tool, int r)
{
    // The two radioactive codes are not neighbours: an even number gives the
    // glowing rock that holds nothing up, an odd one the solid kind.
    if (tool == PaintRadioactive)
        return (r % 2 == 0) ? Radioactive2 : Radioactive1;
    const PaintTool &row = paintTool(tool);
    return row.firstCode + r % row.choices;
}

const char *paintMessage(int32_t tool)
{
    return paintTool(tool).message;
}

int32_t paletteCode(int32_t tool)
{
    return paintTool(tool).firstCode;
}

bool applyPaintClicks(bool leftPressed, bool rightPressed, float pointerY)
{
    if (!pointerInPlayBand(pointerY) || !isPaintTool(currentTool))
        return false;
    bool painted = false;
    if (leftPressed) {
        const int32_t x = currentLevel.cursorX, y = currentLevel.cursorY;
        if (currentTool == PaintPod && editorPodCount >= EDITOR_POD_LIMIT) {
            setStatus(StatusMaxPods);
        } else {
            const int32_t code = paintedCode(currentTool, std::rand());
            if (currentLevel.terrain[x][y] != code) {
                openUndoStep();
                currentLevel.terrain[x][y] = code;
                painted = true;
            }
            setStatus(paintMessage(currentTool));
        }
    }
    if (rightPressed) {
        currentTool = NoTool;
        setStatus(StatusCancelled);
    }
    return painted;
}

void paintEditorCell()
{
    edgeScroll();
    applyPaintClicks(input.leftPressed, input.rightPressed, input.pointerY);
    drawTexture(input.pointerX, input.pointerY, CursorTextures[2], 1, 1, 1, 1);
}
