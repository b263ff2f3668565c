// The mouse buttons held and the keys typed that a test scripts, handed to
// the game through its input hooks (readMouseButtons, nextTypedKey), and one
// pass of the main loop as a hand makes it.
#pragma once

#include "app/screens.h"

#include <deque>

inline int scriptedButtons = 0;
inline std::deque<int> typedKeys;

inline int scriptedMouse() { return scriptedButtons; }

inline int scriptedKey()
{
    if (typedKeys.empty())
        return -1;
    const int key = typedKeys.front();
    typedKeys.pop_front();
    return key;
}

// The buttons held as given (bit 0 left, bit 1 right) with the pointer at
// (px, py) in the screen's y-up coordinates, and `keys` holding Escape, Space
// and the Right arrow down; then one tick of the current screen and its frame.
inline void handFrame(float px, float py, int buttons, bool keys = false)
{
    scriptedButtons = buttons;
    RawInput raw = {};
    raw.mouseButtons = buttons;
    raw.escape = raw.space = raw.right = keys;
    sampleInputFrom(raw);
    input.pointerX = px;
    input.pointerY = py;
    runScreenLogic(currentScreen);
    advancePulses();
    renderScreen(currentScreen);
}
