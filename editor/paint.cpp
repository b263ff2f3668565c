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

#include <algorithm>
#include <cstdlib>
#include <vector>

const char StatusMaxPods[] = "Maximum number of pods placed";
const char StatusNothingToPick[] = "No paint tool paints that";

int32_t paintMode = PaintCells;
AreaDrag areaDrag = {false, 0, 0};

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

// A flood fill reacts to the first frame of a press only.
bool floodLatch = false;

int32_t podsOnMap()
{
    int32_t pods = 0;
    for (const std::vector<int32_t> &column : currentLevel.terrain)
        for (int32_t code : column)
            pods += code == Pod;
    return pods;
}

// One cell of an area, as a click on it would paint it; *pods follows the map.
bool paintAreaCell(int32_t x, int32_t y, int32_t *pods, bool *refused)
{
    if (currentTool == PaintPod && *pods >= EDITOR_POD_LIMIT) {
        *refused = true;
        return false;
    }
    const int32_t code = paintedCode(currentTool, std::rand());
    int32_t &cell = currentLevel.terrain[x][y];
    if (cell == code)
        return false;
    openUndoStep();
    *pods += (code == Pod) - (cell == Pod);
    cell = code;
    return true;
}

// What makes two cells alike for the flood fill: the tool that paints them
// (any dirt is dirt), or the very code where no tool paints it.
int32_t cellKind(int32_t code)
{
    const int32_t tool = toolForCode(code);
    return tool != NoTool ? tool : 1000 + code;
}

bool paintCells(const std::vector<std::pair<int32_t, int32_t>> &cells)
{
    int32_t pods = podsOnMap();
    bool painted = false, refused = false;
    for (const auto &c : cells)
        painted = paintAreaCell(c.first, c.second, &pods, &refused) || painted;
    endStroke();
    setStatus(refused ? StatusMaxPods : paintMessage(currentTool));
    return painted;
}

} // namespace

int32_t toolForCode(int32_t code)
{
    if (code == Radioactive1 || code == Radioactive2)
        return PaintRadioactive;
    for (int i = 0; i < PAINT_TOOL_COUNT; i++) {
        const PaintTool &row = paintTools[i];
        if (i + FIRST_PAINT_TOOL != PaintRadioactive && code >= row.firstCode && code < row.firstCode + row.choices)
            return FIRST_PAINT_TOOL + i;
    }
    return NoTool;
}

bool paintRectangle(int32_t x0, int32_t y0, int32_t x1, int32_t y1)
{
    if (!isPaintTool(currentTool))
        return false;
    const int32_t left = x0 < x1 ? x0 : x1, right = x0 < x1 ? x1 : x0;
    const int32_t top = y0 < y1 ? y0 : y1, bottom = y0 < y1 ? y1 : y0;
    std::vector<std::pair<int32_t, int32_t>> cells;
    for (int32_t x = left; x <= right; x++)
        for (int32_t y = top; y <= bottom; y++)
            if (x >= 0 && y >= 0 && x < currentLevel.width && y < currentLevel.height)
                cells.push_back({x, y});
    return paintCells(cells);
}

bool floodPaint(int32_t x, int32_t y)
{
    const Level &level = currentLevel;
    if (!isPaintTool(currentTool) || x < 0 || y < 0 || x >= level.width || y >= level.height)
        return false;
    const int32_t kind = cellKind(level.terrain[x][y]);
    // Dirt poured on dirt would only shuffle the ground's look.
    if (kind == currentTool) {
        setStatus(paintMessage(currentTool));
        return false;
    }
    std::vector<std::vector<bool>> seen(level.width, std::vector<bool>(level.height, false));
    std::vector<std::pair<int32_t, int32_t>> stack = {{x, y}}, cells;
    seen[x][y] = true;
    while (!stack.empty()) {
        const auto c = stack.back();
        stack.pop_back();
        cells.push_back(c);
        const int32_t next[4][2] = {{c.first - 1, c.second}, {c.first + 1, c.second},
                                    {c.first, c.second - 1}, {c.first, c.second + 1}};
        for (const auto &n : next)
            if (n[0] >= 0 && n[1] >= 0 && n[0] < level.width && n[1] < level.height && !seen[n[0]][n[1]] &&
                cellKind(level.terrain[n[0]][n[1]]) == kind) {
                seen[n[0]][n[1]] = true;
                stack.push_back({n[0], n[1]});
            }
    }
    // Column by column, as the rectangle goes: the same cells in the same order.
    std::sort(cells.begin(), cells.end());
    return paintCells(cells);
}

bool pickToolAt(int32_t x, int32_t y)
{
    if (x < 0 || y < 0 || x >= currentLevel.width || y >= currentLevel.height)
        return false;
    const int32_t tool = toolForCode(currentLevel.terrain[x][y]);
    if (tool == NoTool) {
        setStatus(StatusNothingToPick);
        return false;
    }
    currentTool = tool;
    setStatus(paintMessage(tool));
    return true;
}

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
    const int32_t x = currentLevel.cursorX, y = currentLevel.cursorY;
    if (!leftPressed)
        floodLatch = false;
    // A rectangle ends where the button comes up, wherever the pointer is then.
    if (areaDrag.active && !leftPressed) {
        areaDrag.active = false;
        return paintRectangle(areaDrag.x0, areaDrag.y0, x, y);
    }
    if (!pointerInPlayBand(pointerY) || !isPaintTool(currentTool))
        return false;
    bool painted = false;
    if (leftPressed && paintMode == PaintRectangle) {
        if (!areaDrag.active)
            areaDrag = AreaDrag{true, x, y};
    } else if (leftPressed && paintMode == PaintFlood) {
        if (!floodLatch)
            painted = floodPaint(x, y);
        floodLatch = true;
    } else if (leftPressed) {
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
        areaDrag.active = false;
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
