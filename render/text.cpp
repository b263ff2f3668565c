// Fixed-pitch text from the font sheets: one textured quad per character, the
// position depending only on the character's index in the line.

#include "render/text.h"

#include <allegro.h>
#include <GL/gl.h>

#include <cstdarg>
#include <cstring>

// Every sheet shares this grid, read from the picture's top-left corner.
// A space in a row string is an empty cell, except row 5 column 10, which is
// the space character itself.
static const char *const fontRows[6] = {
    "0123456789abcdef",
    "ghijklmnopqrstuv",
    "wxyzABCDEFGHIJKL",
    "MNOPQRSTUVWXYZ.,",
    ":;!?\"'@#$%& +-*/",
    "=<>()[]{}_      ",
};
static const int SPACE_COLUMN = 10;
static const int SPACE_ROW = 5;

// Callers keep every line under 512 characters; the bound only guards
// against a caller that does not.
static const int TEXT_BUFFER_SIZE = 520;

bool fontCell(unsigned char c, int *column, int *row)
{
    if (c == ' ') {
        *column = SPACE_COLUMN;
        *row = SPACE_ROW;
        return true;
    }
    for (int r = 0; r < 6; r++)
        for (int col = 0; col < 16; col++)
            if (fontRows[r][col] == (char)c) {
                *column = col;
                *row = r;
                return true;
            }
    return false;
}

struct TextStyle {
    TextureId texture;
    float x, y;
    float sheetWidth, sheetHeight;
    float cellWidth, cellHeight;
    float spacing;
};

static void bindFont(TextureId texture)
{
    glLoadIdentity();
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glBindTexture(GL_TEXTURE_2D, texture);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
}

// The v coordinates are negative: rows count from the top of the picture and
// the texture's v runs up from its bottom, and with the repeat wrap -v
// addresses the same texels as 1 - v. Called between glBegin and glEnd.
static void drawGlyph(const TextStyle &s, int index, int column, int row)
{
    float width = (float)(int)s.cellWidth;
    float height = (float)(int)s.cellHeight;
    float u0 = column * s.cellWidth / s.sheetWidth;
    float u1 = (column + 1) * s.cellWidth / s.sheetWidth;
    float vBottom = -(row + 1) * s.cellHeight / s.sheetHeight;
    float vTop = -row * s.cellHeight / s.sheetHeight;
    float x = s.x + index * (s.cellWidth + s.spacing), y = s.y;

    glTexCoord2f(u0, vBottom);
    glVertex3f(x, y, 1);
    glTexCoord2f(u1, vBottom);
    glVertex3f(x + width, y, 1);
    glTexCoord2f(u1, vTop);
    glVertex3f(x + width, y + height, 1);
    glTexCoord2f(u0, vTop);
    glVertex3f(x, y + height, 1);
}

// Characters without a cell draw nothing but keep their place in the line.
// A line is one batch of quads: a software renderer pays for every glBegin,
// and a screen of text is hundreds of glyphs.
static void drawLine(const TextStyle &s, const char *text)
{
    glLoadIdentity();
    glBegin(GL_QUADS);
    for (int i = 0; text[i]; i++) {
        int column, row;
        if (fontCell((unsigned char)text[i], &column, &row))
            drawGlyph(s, i, column, row);
    }
    glEnd();
}

// Every sheet is a 256 x 128 picture of 16 x 6 square cells, read with two
// pixels of each cell overlapping the next.
static const float SHEET_WIDTH = 256, SHEET_HEIGHT = 128;
static const float SPACING = -2;
static const float CELL_SIZE[3] = {16, 12, 8};

static TextStyle styleOf(FontSize size, float x, float y)
{
    const int sheet = size >= LargeFont && size <= SmallFont ? size : MediumFont;
    const float cell = CELL_SIZE[sheet];
    return TextStyle{FontTextures[sheet], x, y, SHEET_WIDTH, SHEET_HEIGHT, cell, cell, SPACING};
}

void drawText(FontSize size, float x, float y, const char *format, ...)
{
    char text[TEXT_BUFFER_SIZE];
    va_list args;
    va_start(args, format);
    uvszprintf(text, sizeof text, format, args);
    va_end(args);
    TextStyle style = styleOf(size, x, y);
    bindFont(style.texture);
    drawLine(style, text);
}

// Centred on n advances less two spacings, half a spacing more than the drawn
// width: with the spacing of -2 a line sits one pixel left of x.
void drawTextCentred(FontSize size, float x, float y, const char *format, ...)
{
    char text[TEXT_BUFFER_SIZE];
    va_list args;
    va_start(args, format);
    uvszprintf(text, sizeof text, format, args);
    va_end(args);
    TextStyle style = styleOf(size, x, y);
    bindFont(style.texture);
    float n = (float)strlen(text);
    float advance = style.cellWidth + style.spacing;
    style.x = x - (n * advance - 2 * style.spacing) * 0.5f;
    drawLine(style, text);
}
