// Fixed-pitch bitmap-font text from the three font sheets.
#pragma once

#include "render/textures.h"

void drawText(const TextureId &fontSlot, float x, float y, float sheetWidth, float sheetHeight,
              float cellWidth, float cellHeight, float spacing, const char *format, ...)
    __attribute__((format(printf, 9, 10)));
void drawTextCentred(const TextureId &fontSlot, float x, float y, float sheetWidth, float sheetHeight,
                     float cellWidth, float cellHeight, float spacing, const char *format, ...)
    __attribute__((format(printf, 9, 10)));

// The cell of a character in the sheets' mapping: false for characters without one.
bool fontCell(unsigned char c, int *column, int *row);
