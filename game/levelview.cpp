// Only the cells on the screen are drawn: a large level costs no more per
// frame than a small one. The grid is normalised every frame, though, so
// what a tool or an explosion changed is tidy before anyone sees it.
#include "game/levelview.h"

#include "app/screens.h"
#include "game/camera.h"
#include "game/mission.h"
#include "game/tutorial.h"
#include "render/draw.h"
#include "sim/tools.h"
#include "world/level.h"

#include <GL/gl.h>

// The highlight leaves the editor's own buttons along the bottom alone.
static const float EDITOR_HIGHLIGHT_TOP = SCREEN_HEIGHT - 100;

void levelViewUpkeep()
{
    countEditorPods(currentLevel);
    normaliseTerrain(currentLevel);
}

void drawDisplayPanels()
{
    drawTextureSized(320, 416, SpriteTextures[0], 1, 1, 1, 1, 640, 128);
    drawTextureSized(320, 64, SpriteTextures[2], 1, 1, 1, 1, 640, 128);
}

void drawDisplayIcons()
{
    drawTexture(70, 17, SpriteTextures[5], 1, 1, 1, 1);
    drawTexture(310, 17, mission.hatched ? SpriteTextures[16] : SpriteTextures[15], 1, 1, 1, 1);
}

static bool isVisible(const VisibleCells &v, int32_t x, int32_t y)
{
    return x >= v.x0 && x < v.x1 && y >= v.y0 && y < v.y1;
}

// White where the tool would take, red pulsing where it would not; what the
// credits allow is left to the click, which says so.
static void drawToolPreview(float ox, float oy)
{
    const int32_t tool = currentTool;
    if (tool < Girder || tool > Dynamite)
        return;
    const int32_t x = currentLevel.cursorX, y = currentLevel.cursorY;
    const float sx = ox + 32.0f * x, sy = oy - 32.0f * y;
    if (toolFitsCell(tool, x, y))
        drawStructure(sx, sy, tool - 1, 1, 1, 1, 0.6f);
    else
        drawStructure(sx, sy, tool - 1, pulseB + 0.3f, 0, 0, 0.6f);
}

static void drawEditorHighlight(const VisibleCells &v, float ox, float oy)
{
    const int32_t x = currentLevel.cursorX, y = currentLevel.cursorY;
    if (currentTool == NoTool || input.pointerY > EDITOR_HIGHLIGHT_TOP || !isVisible(v, x, y))
        return;
    drawTexture(ox + 32.0f * x, oy - 32.0f * y, CursorTextures[1], 1, 1, 1, 0.3f);
}

// Cells never overlap, so the whole view is one batch group.
static void queueTerrainCells(const VisibleCells &v, float ox, float oy)
{
    for (int32_t x = v.x0; x < v.x1; x++)
        for (int32_t y = v.y0; y < v.y1; y++)
            drawTerrainCell(currentLevel, x, y, ox + 32.0f * x, oy - 32.0f * y);
    nextBatchGroup();
}

// Edges reach four pixels into the next column, where the corners of two
// columns' edges meet: a column is a batch group.
static void queueTerrainEdges(const VisibleCells &v, float ox, float oy)
{
    for (int32_t x = v.x0; x < v.x1; x++) {
        for (int32_t y = v.y0; y < v.y1; y++)
            drawEdgeOverlays(currentLevel, x, y, ox + 32.0f * x, oy - 32.0f * y);
        nextBatchGroup();
    }
}

void drawTerrainCells(const VisibleCells &v, float ox, float oy)
{
    beginQuadBatch();
    queueTerrainCells(v, ox, oy);
    endQuadBatch();
}

void drawTerrainEdges(const VisibleCells &v, float ox, float oy)
{
    beginQuadBatch();
    queueTerrainEdges(v, ox, oy);
    endQuadBatch();
}

void drawLevelView(uint32_t screen)
{
    drawLevelViewCells(screen, visibleCells());
}

void drawLevelViewCells(uint32_t screen, const VisibleCells &v)
{
    Level &level = currentLevel;
    const float ox = viewOriginX(), oy = viewOriginY();

    levelViewUpkeep();
    drawLevelBackdrop(ox, oy);
    drawTutorialPanel(level, ox, oy);

    beginQuadBatch();
    queueTerrainCells(v, ox, oy);
    queueTerrainEdges(v, ox, oy);
    drawSurfaceEndOverlays(ox, oy);
    nextBatchGroup();

    // Structures stand one to a cell and never overlap: one layer.
    for (int32_t x = v.x0; x < v.x1; x++)
        for (int32_t y = v.y0; y < v.y1; y++) {
            const int32_t code = level.structures[x][y];
            if (code >= Girder && code <= Blocker)
                drawStructure(ox + 32.0f * x, oy - 32.0f * y, code - 1, 1, 1, 1, 1);
        }
    endQuadBatch();

    if (screen == Playing)
        drawToolPreview(ox, oy);
    else if (screen == LevelEditor)
        drawEditorHighlight(v, ox, oy);
}
