// The player's tools on the level: building the structures, digging and
// blasting, with their costs and every refusal. A click of the game screen
// and a scripted action reach the same rules.
#pragma once

#include <cstdint>

// The rule of `tool` for a left click on cell (x, y): builds, digs or blasts
// and charges for it, or refuses on the status line with the refusal sound.
// NoTool, anything that is not a tool, and cells outside the level do nothing.
void useToolOnCell(int32_t tool, int x, int y);

// Whether `tool` could be used on (x, y) as things stand, credits aside: the
// test behind the preview drawn at the cursor cell.
bool toolFitsCell(int32_t tool, int x, int y);

// Whether the pointer's y lies in the band between the two display panels
// (strictly between 40 and 352), where clicks reach the level rather than
// the panels; the editor's paint step shares the band.
bool pointerInPlayBand(float pointerY);

// The clicks of one frame on the level, for the current tool and the level's
// cursor cell. Clicks outside the band between the two display panels
// (pointerY not strictly between 40 and 352) are the panels' own.
void applyToolClicks(bool leftPressed, bool rightPressed, float pointerY);
