// Help: the manual is an HTML page, read in the browser once the game has
// closed, so the two never fight over the screen.

#include "app/screens.h"
#include "audio/audio.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "render/draw.h"

#include <allegro.h>
#include <alleggl.h>

void helpFrame()
{
    drawMenuBackdrop();
    drawTexture(320, 230, SpriteTextures[12], 1, 1, 1, 1);

    updateButton(dialogUpperButton, input.pointerX, input.pointerY);
    updateButton(dialogLowerButton, input.pointerX, input.pointerY);
    if (wasClicked(dialogUpperButton)) {
        startTransition(Help, Help, StarfieldMenu);
        openManualRequested = 1;
        stopMusic();
    } else if (wasClicked(dialogLowerButton)) {
        startTransition(Help, MainMenu, StarfieldMenu);
    }
    drawLabelledButton(dialogUpperButton, "View Manual");
    drawLabelledButton(dialogLowerButton, "Main Menu");

    glColor4f(1, 1, 1, 1);
    drawMediumCentred(320, 310, "View Manual");
    static const char *const lines[] = {
        "In order to view the HTML",      "manual, this game will shut",   "down and open your web browser.",
        "",                               "If the manual does not open",   "10 seconds after exit, you can",
        "easily open it manually from",   "your start menu.",
    };
    for (int i = 0; i < 8; i++)
        drawSmallCentred(320, 290 - 10 * i, lines[i]);
    drawPointer();
}
