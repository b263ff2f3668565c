// The rockets: the launch, and the rockets that climb out of the level.
#pragma once

#include "render/textures.h"

#include <cstdint>
#include <list>

const int ROCKET_FLYING_FRAME_COUNT = 41;

struct FlyingRocket {
    const TextureId *frames;
    int32_t frameCount;
    float x, y;
    int32_t frame;
    int32_t cellX, cellY;
    int32_t topY;
    bool gone;
};

// Newest first.
extern std::list<FlyingRocket> flyingRockets;

void launchRockets();
void updateFlyingRockets();
void removeGoneRockets();
void clearFlyingRockets();
