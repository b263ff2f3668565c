#include "frontend/menuparts.h"
#include "app/screens.h"
#include "render/draw.h"
#include "render/text.h"

#include <allegro.h>
#include <alleggl.h>

// The falling stars are ticked on these screens but drawn only in a level's
// sky: the backdrop has stars of its own, and hundreds of little quads would
// cost a software renderer more than the whole rest of a menu.
void drawMenuBackdrop()
{
    resetDrawState();
    drawBackdrop();
}

void drawPointer()
{
    drawTexture(input.pointerX, input.pointerY, CursorTextures[0], 1, 1, 1, 1);
}

static float pressShift(const Button &b)
{
    return visualState(b) == 2 ? 1.0f : 0.0f;
}

void drawCentredLabel(const Button &b, const char *text, float alpha)
{
    float shift = pressShift(b);
    glColor4f(LABEL_GREY, LABEL_GREY, LABEL_GREY, alpha);
    drawTextCentred(MediumFont, b.x - shift, b.y - 6 - shift, "%s", text);
}

void drawLabelledButton(const Button &b, const char *text)
{
    drawButton(b);
    drawCentredLabel(b, text);
}

void drawOffsetLabel(const Button &b, float dx, const char *text, float alpha)
{
    float shift = pressShift(b);
    glColor4f(LABEL_GREY, LABEL_GREY, LABEL_GREY, alpha);
    drawText(MediumFont, b.x + dx - shift, b.y - 6 - shift, "%s", text);
}

void drawSmallCentredLabel(const Button &b, const char *text)
{
    float shift = pressShift(b);
    glColor4f(1, 1, 1, 1);
    drawTextCentred(SmallFont, b.x - shift, b.y - 4 - shift, "%s", text);
}

void drawSmallCentred(float x, float y, const char *text)
{
    drawTextCentred(SmallFont, x, y, "%s", text);
}

void drawMediumCentred(float x, float y, const char *text)
{
    drawTextCentred(MediumFont, x, y, "%s", text);
}
