// The falling (front end) and drifting (in a level) starfields.
#pragma once

#include <list>

struct Star {
    float x, y;
    int dead;
    unsigned kind;
    unsigned frame;
};

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
