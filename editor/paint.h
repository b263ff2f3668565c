// The editor's paint tools: which cell code each writes under the pointer,
// what it says on the status line, and the pod limit.
#pragma once

#include <cstdint>

// Values of the shared current tool; 11 to 20 are left unused between the
// game's tools and these.
enum PaintToolId : int32_t {
    PaintDirt = 21,
    PaintRocks = 22,
    ClearTerrain = 23,
    PaintPod = 24,
    PaintRocket = 25,
    PaintDiamonds = 26,
    PaintCredits = 27,
    PaintSpikes = 28,
    PaintVortex = 29,
    PaintRadioactive = 30,
    PaintExplosive = 31,
    PaintWorldItem = 32,
    PaintWater = 33,
};
const int32_t FIRST_PAINT_TOOL = PaintDirt;
const int32_t PAINT_TOOL_COUNT = 13;

// A map holds at most this many pods painted in the editor.
const int32_t EDITOR_POD_LIMIT = 9;

bool isPaintTool(int32_t tool);
// The cell code the tool writes, given the one random number drawn for the
// cell (tools with a single code ignore it).
int32_t paintedCode(int32_t tool, int r);
// "Placing Dirt..." and the rest: the message of the tool while it paints.
const char *paintMessage(int32_t tool);
// A code the tool may write, for its picture on the palette.
int32_t paletteCode(int32_t tool);

extern const char StatusMaxPods[];

// How a left press paints: the cell under the pointer (the classic rule), a
// rectangle dragged from corner to corner, or the area of like cells joined
// to the one clicked.
enum PaintMode : int32_t {
    PaintCells = 0,
    PaintRectangle = 1,
    PaintFlood = 2,
};
extern int32_t paintMode;

// The rectangle being dragged: from its first corner to the cursor cell.
struct AreaDrag {
    bool active;
    int32_t x0, y0;
};
extern AreaDrag areaDrag;

// The paint tool that writes the code; NoTool for codes no tool paints.
int32_t toolForCode(int32_t code);
// The area tools paint cell by cell exactly as the same cells clicked one
// by one, in column order: one random number per written cell, the pod limit
// counted as they go. Each is one undo step; true when a cell changed.
bool paintRectangle(int32_t x0, int32_t y0, int32_t x1, int32_t y1);
bool floodPaint(int32_t x, int32_t y);
// The eyedropper: the tool that paints what the cell holds becomes current.
bool pickToolAt(int32_t x, int32_t y);
extern const char StatusNothingToPick[];

// The paint rule of one frame: with the pointer in the band between the two
// panels and a paint tool in hand, a left press paints the cursor cell (the
// pod limit read from editorPodCount) and a right press puts the tool down;
// in the area modes the press starts a rectangle or fills an area instead.
// Returns true when a cell was written; the first write of a stroke opens
// an undo step.
bool applyPaintClicks(bool leftPressed, bool rightPressed, float pointerY);

// The editor's paint step, once per rendered frame after the level view:
// scroll at the screen edges, the paint rule, then the painting pointer.
void paintEditorCell();
