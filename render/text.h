// Fixed-pitch bitmap-font text from the three font sheets.
#pragma once

#include "render/textures.h"

#include <string>

void drawText(const TextureId &fontSlot, float x, float y, float sheetWidth, float sheetHeight,
              float cellWidth, float cellHeight, float spacing, const char *format, ...)
    __attribute__((format(printf, 9, 10)));
void drawTextCentred(const TextureId &fontSlot, float x, float y, float sheetWidth, float sheetHeight,
                     float cellWidth, float cellHeight, float spacing, const char *format, ...)
    __attribute__((format(printf, 9, 10)));

// The cell of a character in the sheets' mapping: false for characters without one.
bool fontCell(unsigned char c, int *column, int *row);

// Text from outside the game (a level's title) takes a cell per character:
// anything beyond ASCII draws as one '?' (a whole UTF-8 sequence too), so a
// title in another alphabet shows as marks rather than gaps.
int glyphCount(const char *text);
// The text as drawn in at most maxGlyphs cells: beyond ASCII as '?', and a
// longer text cut, with ".." at its end to say so.
std::string fitText(const std::string &text, int maxGlyphs);
