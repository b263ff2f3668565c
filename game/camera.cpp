// The camera follows the pointer to the screen's edges and never shows more
// than a sliver beyond the level, so the player cannot lose the level off
// the screen.
#include "game/camera.h"

#include "app/screens.h"
#include "render/draw.h"
#include "world/level.h"

// Where the view looks before any level has set it.
float camX = 200.0f;
float camY = -700.0f;
float scrollSpeed = 250.0f;

static const float EDGE_MARGIN = 14;

static int32_t truncated(float v)
{
    return static_cast<int32_t>(v);
}

static int32_t clampInt(int32_t v, int32_t lo, int32_t hi)
{
    return v < lo ? lo : v > hi ? hi : v;
}

void edgeScroll()
{
    // The frame rate of the last second: the first second of a run has none.
    const int32_t fps = framesPerSecond.load();
    const float s = scrollSpeed / static_cast<float>(fps < 1 ? 1 : fps);
    const float px = input.pointerX, py = input.pointerY;
    if (py < EDGE_MARGIN)
        camY -= s;
    if (py > SCREEN_HEIGHT - EDGE_MARGIN)
        camY += s;
    if (px < EDGE_MARGIN)
        camX -= s;
    if (px > SCREEN_WIDTH - EDGE_MARGIN)
        camX += s;
}

void clampCamera()
{
    const float w = 32.0f * currentLevel.width, h = 32.0f * currentLevel.height;
    if (camX < 0)
        camX = 0;
    if (camX > w - SCREEN_WIDTH)
        camX = w - SCREEN_WIDTH;
    if (camY > -400)
        camY = -400;
    if (camY < -h + 10)
        camY = -h + 10;
}

void cursorCellAt(float px, float py, int32_t *cellX, int32_t *cellY)
{
    const int32_t cx0 = truncated(camX), cy0 = truncated(-camY);
    const int32_t x = truncated((px + cx0) / 32.0f);
    const int32_t y = truncated((cy0 - py + 32) / 32.0f);
    // An empty level (none loaded yet) has no cell to clamp to; stay at 0.
    *cellX = clampInt(x, 0, currentLevel.width > 0 ? currentLevel.width - 1 : 0);
    *cellY = clampInt(y, 0, currentLevel.height > 0 ? currentLevel.height - 1 : 0);
}

void pickCursorCell()
{
    cursorCellAt(input.pointerX, input.pointerY, &currentLevel.cursorX, &currentLevel.cursorY);
}

VisibleCells visibleCells()
{
    const int32_t w = currentLevel.width, h = currentLevel.height;
    VisibleCells v;
    v.x0 = clampInt(truncated(camX / 32), 0, w);
    v.x1 = clampInt(truncated(camX / 32 + 21), 0, w);
    v.y0 = clampInt(truncated(-camY / 32 - 11), 0, h);
    v.y1 = clampInt(truncated(-camY / 32 + 2), 0, h);
    return v;
}

float viewOriginX()
{
    return static_cast<float>(truncated(-camX) + 16);
}

float viewOriginY()
{
    return static_cast<float>(truncated(-camY) + 16);
}
