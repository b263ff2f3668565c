// The bubblemen: released by the hatchers, they walk, fall and ride lifts on
// their own, and either board a rocket or die.
#pragma once

#include "render/textures.h"

#include <cstdint>
#include <list>

const int WALK_FRAME_COUNT = 21;
const int ENTER_FRAME_COUNT = 17;
const int SUCKED_FRAME_COUNT = 21;
const int DYING_FRAME_COUNT = 21;

enum BubblemanMotion : int32_t {
    OnGround = 0,
    Falling = 1,
    Rising = 2,
    Parked = 3,     // on top of a lift: never moves again
};

enum BubblemanHeading : int32_t {
    HeadingRight = 0,
    HeadingLeft = 1,
    Halted = 2,     // a wall on both sides; walks off when one goes
    Stopped = 3,    // boarding or dying
};

struct Bubbleman {
    TextureId walkFrames[WALK_FRAME_COUNT];
    int32_t walkCount;
    TextureId enterFrames[ENTER_FRAME_COUNT];
    int32_t enterCount;
    TextureId suckedFrames[SUCKED_FRAME_COUNT];
    int32_t suckedCount;
    TextureId dyingFrames[DYING_FRAME_COUNT];
    int32_t dyingCount;
    float x, y;         // world pixels, always whole numbers
    float alpha;
    int32_t motion;
    int32_t heading;
    int32_t cellX, cellY;
    int32_t walkFrame, enterFrame, suckedFrame, dyingFrame;
    bool entering, emerging, sucked, dying;
    bool boarded, dead;
};

// Newest first.
extern std::list<Bubbleman> bubblemen;

bool blocksWalk(int x, int y);
bool blocksRise(int x, int y);
bool canStandOn(int x, int y);

void spawnBubbleman(float x, float y);
void updateBubblemen();
void clearBubblemen();
