// Explosions and the chain reactions that radioactive material and explosive
// items carry through the terrain. Explosions clear terrain only; they never
// hurt a bubbleman and never remove a structure.
#pragma once

#include "render/textures.h"

#include <cstdint>
#include <list>

const int EXPLOSION_FRAME_COUNT = 10;

enum ExplosionKind : int32_t {
    BlastExplosion = 1,         // dynamite and flying rockets
    RadioactiveExplosion = 2,
    ExplosiveItemExplosion = 3,
};

// The type an explosion keeps: a blast is only a picture and a sound, a
// chain explosion clears its surroundings on its seventh update.
const int32_t BlastType = 1;
const int32_t ChainType = 2;

struct Explosion {
    const TextureId *frames;
    int32_t frameCount;
    float x, y;
    int32_t cellX, cellY;
    int32_t frame;
    int32_t type;
    bool soundPlayed;
    bool finished;
};

// Newest first.
extern std::list<Explosion> explosions;

void spawnExplosion(float x, float y, int32_t kind);
void detonateRadioactive(int x, int y);
void detonateExplosive(int x, int y);
void updateExplosions();
void removeFinishedExplosions();
void clearExplosions();
