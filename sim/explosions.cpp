// A chain explosion waits until its seventh update before it clears the cells
// around it, so a chain through radioactive ground spreads visibly, a step
// every few ticks, instead of all at once.
#include "sim/explosions.h"

#include "audio/audio.h"
#include "sim/cells.h"
#include "world/level.h"

std::list<Explosion> explosions;

// The frame on which a chain explosion clears its neighbourhood.
static const int32_t CHAIN_CLEAR_FRAME = 8;
static const int32_t LAST_EXPLOSION_FRAME = 9;

void spawnExplosion(float x, float y, int32_t kind)
{
    Explosion e = {};
    // Every kind shows the small explosion: the data file has no other.
    e.frames = ExplosionSmallTextures;
    e.frameCount = EXPLOSION_FRAME_COUNT;
    e.x = x;
    e.y = y;
    e.frame = 1;
    e.type = kind == BlastExplosion ? BlastType : ChainType;
    // Added at the front, behind any update running now: its first update
    // is the next tick's.
    explosions.push_front(e);
}

static void detonateCell(int x, int y)
{
    if (!isRadioactive(terrainAt(x, y)))
        return;
    setTerrain(x, y, Empty);
    spawnExplosion(cellCentreX(x), cellCentreY(y), RadioactiveExplosion);
}

// The bounds are uneven on the left on purpose: column 0 is border in play
// and is looked at only diagonally above.
void detonateRadioactive(int x, int y)
{
    const int w = currentLevel.width, h = currentLevel.height;
    if (x > 0 && y > 0)
        detonateCell(x - 1, y - 1);
    if (y > 0)
        detonateCell(x, y - 1);
    if (y > 0 && x < w - 1)
        detonateCell(x + 1, y - 1);
    if (x < w - 1)
        detonateCell(x + 1, y);
    if (x > 1)
        detonateCell(x - 1, y);
    detonateCell(x, y);
    if (x < w - 1 && y < h - 1)
        detonateCell(x + 1, y + 1);
    if (x > 1 && y < h - 1)
        detonateCell(x - 1, y + 1);
    if (y < h - 1)
        detonateCell(x, y + 1);
}

void detonateExplosive(int x, int y)
{
    if (terrainAt(x, y) != Explosive)
        return;
    spawnExplosion(cellCentreX(x), cellCentreY(y), ExplosiveItemExplosion);
    setTerrain(x, y, Empty);
}

// A side neighbour loses its terrain to the chain under the same conditions
// as under dynamite; a structure in it stays.
static void chainNeighbour(int x, int y, bool blastTest)
{
    detonateRadioactive(x, y);
    if (blastTest && isBlastable(x, y) && isFreeAbove(x, y) && isAwayFromWater(x, y))
        setTerrain(x, y, Empty);
}

static void clearAround(int cx, int cy)
{
    const int w = currentLevel.width, h = currentLevel.height;
    setTerrain(cx, cy, Empty);
    if (cx > 0 && cy >= 1)
        chainNeighbour(cx - 1, cy - 1, false);
    if (cy > 0)
        chainNeighbour(cx, cy - 1, true);
    if (cy > 0 && cx < w - 1)
        chainNeighbour(cx + 1, cy - 1, false);
    if (cx < w - 1)
        chainNeighbour(cx + 1, cy, true);
    if (cx > 1)
        chainNeighbour(cx - 1, cy, true);
    if (cx < w - 1 && cy < h - 1)
        chainNeighbour(cx + 1, cy + 1, false);
    if (cx > 1 && cy < h - 1)
        chainNeighbour(cx - 1, cy + 1, false);
    if (cy < h - 1)
        chainNeighbour(cx, cy + 1, true);
}

void updateExplosions()
{
    for (Explosion &e : explosions) {
        if (!e.soundPlayed) {
            e.soundPlayed = true;
            EffectSoundRequest = e.type == BlastType ? BlastSound : ChainExplosionSound;
        }
        if (e.frame < LAST_EXPLOSION_FRAME) {
            e.frame++;
        } else {
            e.frame = 1;
            e.finished = true;
        }
        e.cellX = entityCellX(e.x);
        e.cellY = entityCellY(e.y);
        if (e.type == ChainType && e.frame == CHAIN_CLEAR_FRAME)
            clearAround(e.cellX, e.cellY);
    }
}

void removeFinishedExplosions()
{
    explosions.remove_if([](const Explosion &e) { return e.finished; });
}

void clearExplosions()
{
    explosions.clear();
}

