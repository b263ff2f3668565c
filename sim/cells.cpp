// The building tests. They are written as in the rules the player learns:
// standing structures want ground or another structure under them, hanging
// girders want a solid neighbour that is not itself hanging, and nothing may
// be dug or blasted from under what stands on it or from beside water, which
// the terrain upkeep would only fill again.
#include "sim/cells.h"

#include "world/level.h"

bool inGrid(int x, int y)
{
    const Level &l = currentLevel;
    if (x < 0 || y < 0 || x >= l.width || y >= l.height)
        return false;
    // The grids are sized by the loader; a record shaped by hand must still
    // not be read past its columns.
    const size_t ux = static_cast<size_t>(x), uy = static_cast<size_t>(y);
    return ux < l.terrain.size() && uy < l.terrain[ux].size() && ux < l.structures.size() &&
           uy < l.structures[ux].size();
}

int32_t terrainAt(int x, int y)
{
    return inGrid(x, y) ? currentLevel.terrain[x][y] : Border;
}

int32_t structureAt(int x, int y)
{
    return inGrid(x, y) ? currentLevel.structures[x][y] : 0;
}

void setTerrain(int x, int y, int32_t code)
{
    if (inGrid(x, y))
        currentLevel.terrain[x][y] = code;
}

void setStructure(int x, int y, int32_t code)
{
    if (inGrid(x, y))
        currentLevel.structures[x][y] = code;
}

static int clampInt(int v, int lo, int hi)
{
    // A level too small to have an inside keeps the low bound rather than
    // letting the range turn over.
    if (v > hi)
        v = hi;
    if (v < lo)
        v = lo;
    return v;
}

int entityCellX(float x)
{
    return clampInt(static_cast<int>(x) / 32, 1, currentLevel.width - 2);
}

int entityCellY(float y)
{
    return clampInt((static_cast<int>(y) + 32) / 32, 1, currentLevel.height - 2);
}

bool isOccupied(int x, int y)
{
    return terrainAt(x, y) != Empty || structureAt(x, y) != 0;
}

bool hasFootingBelow(int x, int y)
{
    if (y >= currentLevel.height - 1)
        return false;
    const int32_t below = terrainAt(x, y + 1);
    if (isGround(below))
        return true;
    return below == Empty && structureAt(x, y + 1) != 0;
}

// A hanging girder holds on to ground, water or a standing structure beside
// it, but never to another hanging girder: chains of them would float.
static bool anchorsHangingGirder(int x, int y)
{
    const int32_t t = terrainAt(x, y);
    const int32_t s = structureAt(x, y);
    const bool hanging = s == LeftHangingGirder || s == RightHangingGirder;
    if (isGround(t) || t == Water)
        return !hanging;
    if (t == Empty)
        return s != 0 && !hanging;
    return false;
}

bool hasRightAnchor(int x, int y)
{
    if (x >= currentLevel.width - 1)
        return false;
    return anchorsHangingGirder(x + 1, y);
}

bool hasLeftAnchor(int x, int y)
{
    if (x < 1)
        return false;
    return anchorsHangingGirder(x - 1, y);
}

bool isPod(int x, int y)
{
    return inGrid(x, y) && terrainAt(x, y) == Pod;
}

bool isDiggable(int x, int y)
{
    return inGrid(x, y) && isDiggable(terrainAt(x, y));
}

bool isBlastable(int x, int y)
{
    if (!inGrid(x, y))
        return false;
    const int32_t t = terrainAt(x, y);
    const int32_t s = structureAt(x, y);
    if (s == 0)
        return t != Empty && !isBlastProof(t);
    // Hatchers sit over the pods: blasting one would strand its bubbleman.
    return !(s == Hatcher && t == Empty);
}

static bool standsOnCell(int32_t structureAbove, int32_t terrainAbove)
{
    switch (structureAbove) {
    case Girder: case EnergyLift: case LeftLiftExit: case RightLiftExit: case Blocker:
        return true;
    default:
        break;
    }
    switch (terrainAbove) {
    case Spikes: case WorldItem1: case WorldItem2: case WorldItem3: case WorldItem4: case Explosive:
        return true;
    default:
        return false;
    }
}

bool isFreeAbove(int x, int y)
{
    if (y > 0 && standsOnCell(structureAt(x, y - 1), terrainAt(x, y - 1)))
        return false;
    if (x > 0 && structureAt(x - 1, y) == LeftHangingGirder)
        return false;
    if (x < currentLevel.width - 1 && structureAt(x + 1, y) == RightHangingGirder)
        return false;
    return true;
}

bool isAwayFromWater(int x, int y)
{
    static const int around[5][2] = {{0, -1}, {-1, -1}, {1, -1}, {-1, 0}, {1, 0}};
    for (const auto &d : around) {
        const int nx = x + d[0], ny = y + d[1];
        if (inGrid(nx, ny) && terrainAt(nx, ny) == Water)
            return false;
    }
    return true;
}
