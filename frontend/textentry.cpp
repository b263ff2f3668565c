#include "frontend/textentry.h"

#include <allegro.h>

bool editLineKey(std::string &text, int32_t &cursor, int scancode)
{
    // Whatever happened to the cursor, an edit never reaches past either end.
    if (cursor < 0)
        cursor = 0;
    if (cursor > (int32_t)text.size())
        cursor = (int32_t)text.size();
    switch (scancode) {
    case KEY_LEFT:
        if (cursor > 0)
            cursor--;
        return true;
    case KEY_RIGHT:
        if (cursor < (int32_t)text.size())
            cursor++;
        return true;
    case KEY_BACKSPACE:
        if (cursor > 0)
            text.erase(--cursor, 1);
        return true;
    case KEY_DEL:
        if (cursor < (int32_t)text.size())
            text.erase(cursor, 1);
        return true;
    default:
        return false;
    }
}
