// The camera of the level view: the world offset that scrolls with the
// pointer, and the conversions between the pointer and the cells under it.
#pragma once

#include <cstdint>

extern float camX, camY;
// Where the view of a level starts, in the game and in the editor alike;
// clampCamera brings it over a small level.
const float START_CAM_X = 200, START_CAM_Y = -550;
// Pixels a second; the options screen sets it from its slider while shown.
extern float scrollSpeed;

// Moves the view when the pointer rests within 14 pixels of a screen edge,
// at scrollSpeed whatever the frame rate. Per frame, Playing only.
void edgeScroll();
// Keeps the view over the level: first the left and right bounds (a level
// narrower than the screen ends up with a negative camX), then the top and
// the bottom.
void clampCamera();
// The cell under a screen point through the current camera, clamped to the
// level's grid.
void cursorCellAt(float px, float py, int32_t *cellX, int32_t *cellY);
// Writes the cell under the pointer into currentLevel's cursor cell.
void pickCursorCell();

// The columns and rows the level view draws this frame, upper bounds
// exclusive, already clamped to the level. The rows above lie behind the top
// panel.
struct VisibleCells {
    int32_t x0, x1, y0, y1;
};
VisibleCells visibleCells();
// Screen position of the centre of cell (0, 0); cell (x, y) is drawn at
// (originX + 32x, originY - 32y).
float viewOriginX();
float viewOriginY();
