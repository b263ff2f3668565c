// The level record and the upkeep that keeps the grid's invariants: borders
// on the ring, open sky in the top rows, and support under everything that
// would otherwise float. The level view runs it every frame, so whatever the
// simulation or the editor writes into the grid is set right before it is
// drawn.
#include "world/level.h"

Level currentLevel;
int32_t editorPodCount;

void countEditorPods(const Level &level)
{
    int32_t pods = 0;
    for (int x = 0; x < level.width; x++) {
        const std::vector<int32_t> &column = level.terrain[x];
        for (int y = 0; y < level.height; y++)
            pods += column[y] == Pod;
    }
    editorPodCount = pods;
}

void setBorderRing(Level &level)
{
    const int w = level.width, h = level.height;
    if (w <= 0 || h <= 0)
        return;
    for (int x = 0; x < w; x++) {
        level.terrain[x][0] = Border;
        level.terrain[x][h - 1] = Border;
    }
    for (int y = 0; y < h; y++) {
        level.terrain[0][y] = Border;
        level.terrain[w - 1][y] = Border;
    }
}

static void clearSkyRows(Level &level)
{
    // The loaders refuse levels shorter than the sky; the guard only keeps a
    // record that was never loaded (or shrunk by a test) from being overrun.
    const int rows = level.height < SKY_ROWS ? level.height : SKY_ROWS;
    for (int x = 0; x < level.width; x++)
        for (int y = 0; y < rows; y++)
            if (!isSkyKeep(level.terrain[x][y]))
                level.terrain[x][y] = Empty;
}

static void supportItems(Level &level)
{
    const int w = level.width, h = level.height;
    for (int x = 0; x < w; x++) {
        std::vector<int32_t> &column = level.terrain[x];
        for (int y = 0; y < h - 1; y++)
            if (isNeedsSupport(column[y]) && !isSupport(column[y + 1]))
                column[y + 1] = Dirt1;
    }
}

static void fillUnlessSupport(int32_t &cell)
{
    if (!isSupport(cell))
        cell = Dirt1;
}

// Water must sit in a basin: solid below, below-left and below-right, and at
// its sides unless more water continues there. Column 0 is never touched from
// column 1 (x > 1), which the ring makes harmless anyway.
static void containWater(Level &level)
{
    const int w = level.width, h = level.height;
    for (int x = 0; x < w; x++) {
        for (int y = 0; y < h; y++) {
            if (level.terrain[x][y] != Water)
                continue;
            const bool hasBelow = y < h - 1;
            if (hasBelow)
                fillUnlessSupport(level.terrain[x][y + 1]);
            if (x > 1 && level.terrain[x - 1][y] != Water)
                fillUnlessSupport(level.terrain[x - 1][y]);
            if (x < w - 1 && level.terrain[x + 1][y] != Water)
                fillUnlessSupport(level.terrain[x + 1][y]);
            if (x > 1 && hasBelow)
                fillUnlessSupport(level.terrain[x - 1][y + 1]);
            if (x < w - 1 && hasBelow)
                fillUnlessSupport(level.terrain[x + 1][y + 1]);
        }
    }
}

// Every change takes effect at once: later checks of the same scan see it,
// which is what lets a column of spikes or water settle in one pass.
void normaliseTerrain(Level &level)
{
    setBorderRing(level);
    clearSkyRows(level);
    supportItems(level);
    containWater(level);
}
