// Writing a level back out in the text format the loaders read.
#pragma once

#include "game/mission.h"
#include "world/level.h"

#include <cstdint>
#include <string>

// The level text: the header lines, then the cells column by column. The
// structure grid is not part of the format. Credits and the nine tool locks
// live in the mission state while a level is played, so they are passed in.
std::string levelText(const Level &level, int32_t credits, const int32_t toolLocked[LOCKABLE_TOOL_COUNT]);
