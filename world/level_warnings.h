// The checker's honest word about a level that loads but cannot be played as
// its designer drew it: the game loads such files as it always has, so the
// warning has to come before a level ships, not while a player sits in it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "world/level.h"

// What the level file held, as read, before the ring and the sky were settled.
struct LevelFileFacts {
    int32_t cellsExpected;  // width x height
    int32_t cellsRead;      // cell values the file actually held
    int32_t podsInSky;      // in rows 0 to 6 inside the ring: counted, then cleared
    int32_t podsOnRing;     // on the border ring: they become border and do not count
};

// Filled by every successful load of either loader.
extern LevelFileFacts loadedLevelFacts;

// Takes stock of the cells as read, before the load settles them.
LevelFileFacts factsOfReadCells(const Level &asRead, int32_t cellsRead);

// One plain sentence per problem; empty for a level a player can finish.
std::vector<std::string> levelWarnings(const Level &level, const LevelFileFacts &facts);
