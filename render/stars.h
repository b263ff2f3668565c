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
// World stars are placed from the level view's origin (the screen position
// of cell (0, 0)'s centre); screen stars stay where they are.
void drawStars(float originX, float originY);
void tickFallingStars();
void tickDriftingStars();
void prefillStars();
void prefillGameStars();
