// Fixed-pitch bitmap-font text from the three font sheets.
#pragma once

#include "render/textures.h"

#include <cstdint>
#include <string>

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

// Text from outside the game (a level's title) takes a cell per character:
// anything beyond ASCII draws as one '?' (a whole UTF-8 sequence too), so a
// title in another alphabet shows as marks rather than gaps.
int glyphCount(const char *text);
// The text as drawn in at most maxGlyphs cells: beyond ASCII as '?', and a
// longer text cut, with ".." at its end to say so.
std::string fitText(const std::string &text, int maxGlyphs);
