// A flying rocket takes the shortest way out: straight up, through whatever
// lies above it, each cell it smashes with a blast of its own.
#include "sim/rockets.h"

#include "audio/audio.h"
#include "game/mission.h"
#include "sim/cells.h"
#include "sim/explosions.h"
#include "world/level.h"

std::list<FlyingRocket> flyingRockets;

static const float ROCKET_TOP_Y = -200;

void launchRockets()
{
    if (!mission.launchRequested)
        return;
    const int w = currentLevel.width, h = currentLevel.height;
    for (int x = 0; x < w; x++)
        for (int y = 0; y < h; y++) {
            if (terrainAt(x, y) != Rocket)
                continue;
            setTerrain(x, y, Empty);
            FlyingRocket r = {};
            r.frames = RocketFlyingTextures;
            r.frameCount = ROCKET_FLYING_FRAME_COUNT;
            r.x = cellCentreX(x);
            r.y = cellCentreY(y);
            r.frame = 0;
            r.topY = static_cast<int32_t>(ROCKET_TOP_Y);
            r.gone = false;
            flyingRockets.push_front(r);
        }
    mission.launchRequested = false;
}

void updateFlyingRockets()
{
    for (FlyingRocket &r : flyingRockets) {
        r.frame++;
        if (r.frame >= r.frameCount)
            r.frame = 1;
        r.cellX = entityCellX(r.x);
        r.cellY = entityCellY(r.y);
        // Nothing stands in a rocket's way: border, diamond and water included.
        if (terrainAt(r.cellX, r.cellY) != Empty || structureAt(r.cellX, r.cellY) != 0) {
            setTerrain(r.cellX, r.cellY, Empty);
            setStructure(r.cellX, r.cellY, 0);
            spawnExplosion(cellCentreX(r.cellX), cellCentreY(r.cellY), BlastExplosion);
        }
        r.y -= 2;
    }
}

void removeGoneRockets()
{
    for (auto it = flyingRockets.begin(); it != flyingRockets.end();) {
        if (it->y <= it->topY) {
            it->gone = true;
            mission.rocketsGone++;
            it = flyingRockets.erase(it);
        } else {
            ++it;
        }
    }
}

void clearFlyingRockets()
{
    flyingRockets.clear();
}
