// The main menu's backdrop: the slowly turning picture with falling stars.
// Its title and buttons are built on top of this.

#include "app/screens.h"
#include "frontend/screens.h"
#include "render/draw.h"
#include "render/stars.h"

void mainMenuTick()
{
    tickFallingStars();
}

void mainMenuFrame()
{
    drawBackdrop();
    drawStars();
    drawTexture(input.pointerX, input.pointerY, CursorTextures[0], 1, 1, 1, 1);
}
