// The mouse buttons held and the keys typed that a test scripts, handed to
// the game through its input hooks (readMouseButtons, nextTypedKey).
#pragma once

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
