// World pixels (y down) to the y-up screen through the camera, for every
// sprite of the level view.
#pragma once

#include "game/camera.h"

inline float screenX(float worldX)
{
    return worldX + static_cast<float>(static_cast<int>(-camX));
}

inline float screenY(float worldY)
{
    return static_cast<float>(static_cast<int>(-camY)) - worldY;
}
