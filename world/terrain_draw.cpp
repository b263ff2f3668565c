// How terrain looks: one picture (or a dirt tile with something over it) per
// cell code, the soft edges that solid ground casts onto open cells, and the
// parallax backdrop behind the level.
#include <cmath>

#include "app/screens.h"
#include "render/draw.h"
#include "render/stars.h"
#include "world/level.h"

namespace {

const int NONE = -1;

// The second picture is drawn over the first: dirt shows behind a pod and
// behind the glowing radioactive veins.
struct CellPicture {
    int8_t tile;
    int8_t glowTile;
    int8_t object;
};

const CellPicture cellPictures[CELL_CODE_COUNT] = {
    /* Empty        */ {NONE, NONE, NONE},
    /* Dirt1        */ {1, NONE, NONE},
    /* Dirt2        */ {6, NONE, NONE},
    /* Radioactive1 */ {1, 7, NONE},
    /* Rock1        */ {8, NONE, NONE},
    /* Rock2        */ {9, NONE, NONE},
    /* Rock3        */ {10, NONE, NONE},
    /* Diamond1     */ {12, NONE, NONE},
    /* Diamond2     */ {13, NONE, NONE},
    /* Diamond3     */ {14, NONE, NONE},
    /* HiddenBlock  */ {NONE, NONE, NONE},
    /* Border       */ {11, NONE, NONE},
    /* Pod          */ {1, NONE, 0},
    /* Rocket       */ {NONE, NONE, 1},
    /* Spikes       */ {15, NONE, NONE},
    /* Vortex       */ {16, NONE, NONE},
    /* Radioactive2 */ {1, 17, NONE},
    /* Credits      */ {NONE, NONE, 7},
    /* Water        */ {NONE, NONE, NONE},   // the planet's own water, below
    /* WorldItem1   */ {18, NONE, NONE},
    /* WorldItem2   */ {19, NONE, NONE},
    /* WorldItem3   */ {20, NONE, NONE},
    /* WorldItem4   */ {21, NONE, NONE},
    /* Explosive    */ {22, NONE, NONE},
};

// Each planet has its own water picture, object slots 8 to 11.
const int WATER_OBJECT_BASE = 7;

// The four neighbours that can cast an edge, in drawing order.
struct EdgeOverlay {
    int dx, dy;     // grid step to the neighbour (y grows downward)
    int tile;
    float ox, oy;   // screen shift toward it (y grows upward)
};

const EdgeOverlay edgeOverlays[4] = {
    {1, 0, 5, 4, 0},
    {-1, 0, 3, -4, 0},
    {0, -1, 4, 0, 4},
    {0, 1, 2, 0, -4},
};

const float BACKDROP_TOP = 150;
const float BACKDROP_ROW = 256;
const int BACKDROP_TILES_ACROSS = 5;
// The far layer drifts a little faster than the terrain for a sense of depth.
const double FAR_LAYER_SCALE = 0.95;

} // namespace

void drawTerrainCell(const Level &level, int x, int y, float sx, float sy)
{
    const int32_t code = level.terrain[x][y];
    if (code < 0 || code >= CELL_CODE_COUNT)
        return;
    if (code == Water) {
        if (level.planet >= LEVEL_MIN_PLANET && level.planet <= LEVEL_MAX_PLANET)
            drawObject(sx, sy, WATER_OBJECT_BASE + level.planet, 1, 1, 1, 1);
        return;
    }
    // Each of a cell's pictures has a batch layer of its own: cells never
    // overlap, so only the pictures of one cell need keep their order.
    const CellPicture &picture = cellPictures[code];
    if (picture.tile != NONE)
        drawTile(sx, sy, picture.tile, 1, 1, 1, 1);
    setBatchLayer(1);
    if (picture.glowTile != NONE)
        drawTile(sx, sy, picture.glowTile, pulseB, 1, pulseB + 0.7f, 1);
    setBatchLayer(2);
    if (picture.object != NONE)
        drawObject(sx, sy, picture.object, 1, 1, 1, 1);
    setBatchLayer(0);
}

void drawEdgeOverlays(const Level &level, int x, int y, float sx, float sy)
{
    if (x <= 0 || x >= level.width - 1 || y <= 0 || y >= level.height - 1)
        return;
    if (!isEdgeReceiving(level.terrain[x][y]))
        return;
    // A cell's edges overlap at its corners, so each keeps a batch layer of
    // its own. The edges of two cells of one column never overlap: one
    // reaches into the other only when that one casts, and a cell that casts
    // receives none.
    int layer = 0;
    for (const EdgeOverlay &edge : edgeOverlays) {
        setBatchLayer(layer++);
        if (isEdgeCasting(level.terrain[x + edge.dx][y + edge.dy]))
            drawTile(sx + edge.ox, sy + edge.oy, edge.tile, 1, 1, 1, 1);
    }
    setBatchLayer(0);
}

// The surface's two ends get the below-neighbour edge of cells (0, 6) and
// (29, 6) whatever the level holds there, so the ground line of a standard
// 30-column level is closed off at both ends.
void drawSurfaceEndOverlays(float ox, float oy)
{
    drawTile(ox, oy - 196, 2, 1, 1, 1, 1);
    drawTile(ox + 928, oy - 196, 2, 1, 1, 1, 1);
}

void drawLevelBackdrop(float ox, float oy)
{
    const float farX = std::trunc(ox / FAR_LAYER_SCALE);
    for (int k = 0; k < BACKDROP_TILES_ACROSS; k++)
        drawBackgroundTile(farX + BACKDROP_ROW * k, oy - BACKDROP_TOP, 5, 1, 1, 1, 1);

    drawStars(ox, oy);

    const float nearX = std::trunc(ox);
    for (int k = 0; k < BACKDROP_TILES_ACROSS; k++) {
        const float x = nearX + BACKDROP_ROW * k;
        drawBackgroundTile(x, oy - BACKDROP_TOP, 2, 1, 1, 1, 1);
        drawBackgroundTile(x, oy - BACKDROP_TOP, 1, 1, 1, 1, 1);
        drawBackgroundTile(x, oy - BACKDROP_TOP - BACKDROP_ROW, 0, 1, 1, 1, 1);
        drawBackgroundTile(x, oy - BACKDROP_TOP - 2 * BACKDROP_ROW, 4, 1, 1, 1, 1);
        drawBackgroundTile(x, oy - BACKDROP_TOP - 3 * BACKDROP_ROW, 3, 1, 1, 1, 1);
    }
}
