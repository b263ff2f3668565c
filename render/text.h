// Fixed-pitch bitmap-font text from the three font sheets.
#pragma once

#include "render/textures.h"

#include <cstdint>

// The three sheets by the height of their square cells: 16, 12 and 8 pixels.
// The value is the sheet's FontTextures slot.
enum FontSize : int32_t {
    LargeFont = 0,
    MediumFont = 1,
    SmallFont = 2,
};

// printf-style text from (x, y), its lower left corner.
void drawText(FontSize size, float x, float y, const char *format, ...) __attribute__((format(printf, 4, 5)));
// The same centred on x.
void drawTextCentred(FontSize size, float x, float y, const char *format, ...) __attribute__((format(printf, 4, 5)));

// The cell of a character in the sheets' mapping: false for characters without one.
bool fontCell(unsigned char c, int *column, int *row);
