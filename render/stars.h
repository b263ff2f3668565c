// The falling (front end) and drifting (in a level) starfields.
#pragma once

#include <list>

struct Star {
    float x, y;
    int dead;        // 0 or 1; purgeStars erases the dead
    unsigned kind;   // 0..2 fall across the screen, 3..5 drift through the world
    unsigned frame;  // StarTextures slot
};

// A live star of the given kind at (x, y); its picture is kind mod 3.
Star makeStar(float x, float y, unsigned kind);

extern std::list<Star> StarList;
extern int starSpawnCounter;

void clearStars();
void updateStars();
void purgeStars();
void drawStars();
void tickFallingStars();
void tickDriftingStars();
void prefillStars();
void prefillGameStars();
