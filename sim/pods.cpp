#include "sim/pods.h"

#include "sim/bubblemen.h"
#include "sim/cells.h"
#include "world/level.h"

void hatchPods()
{
    const int w = currentLevel.width, h = currentLevel.height;
    for (int x = 0; x < w; x++)
        for (int y = 0; y < h; y++)
            if (structureAt(x, y) == Hatcher)
                spawnBubbleman(cellCentreX(x), cellCentreY(y));
}
