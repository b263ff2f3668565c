// The rules of the toolbar and the "Hatch Pods" button, and the frame's rules
// after a click on the level. The game screen calls them in its fixed order
// (game/gamescreen.cpp).
#pragma once

#include <cstdint>

// Lock flags belong to the lockable tools only; the hatcher has none.
bool toolIsLocked(int32_t tool);
// Whether a click on the tool's toolbar button would make it the current
// tool: offered in this level, credits left, and no hatcher once hatched.
bool toolCanBeChosen(int32_t tool);
// A click on the toolbar button of `tool`; the button of a locked tool is
// never updated and so never reports one.
void chooseTool(int32_t tool);
// A click on "Hatch Pods".
void pressHatchPods();

// The frame's rules after the click on the level: a hatcher still in hand
// after hatching is put down, and without credits no tool stays in hand.
void dropHatcherAfterHatching();
void applyOutOfCreditsRule();
