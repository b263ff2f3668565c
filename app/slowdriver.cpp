// The warning shown at start-up when OpenGL runs on a software renderer.

#include "app/launch.h"
#include "app/screens.h"
#include "app/startup.h"
#include "app/slowdriver.h"
#include "frontend/widgets.h"
#include "render/draw.h"
#include "render/text.h"

#include <allegro.h>
#include <alleggl.h>

#include <cstdio>
#include <cstdlib>
#include <string>

static void dialogLabel(const Button &b, float dx, const char *text)
{
    float shift = visualState(b) == 2 ? 1.0f : 0.0f;
    glColor4f(0.9f, 0.9f, 0.9f, 1.0f);
    drawText(MediumFont, b.x + dx - shift, b.y - 6 - shift, "%s", text);
}

void slowDriverFrame()
{
    resetDrawState();
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, 1);
    drawTexture(320, 230, SpriteTextures[12], 1, 1, 1, 1);

    char toolPath[1100];
    snprintf(toolPath, sizeof toolPath, "%s/GfxDriverTool", DataRoot);
    updateButtonThroughVeil(dialogUpperButton, input.pointerX, input.pointerY);
    updateButton(dialogLowerButton, input.pointerX, input.pointerY);

    if (wasClicked(dialogUpperButton)) {
        set_gfx_mode(GFX_TEXT, 0, 0, 0, 0);
        // Its full path goes in as its own name too, so the tool knows the
        // game directory whatever folder the game was started from.
        const std::string commandLine = std::string("\"") + toolPath + "\"";
        launchProcess(toolPath, commandLine.c_str(), 0);
        exit(1);
    } else if (wasClicked(dialogLowerButton)) {
        startTransition(SlowDriverWarning, Intro, StarfieldMenu);
    }

    drawButton(dialogUpperButton);
    drawButton(dialogLowerButton);
    dialogLabel(dialogUpperButton, -71, "Update Drivers");
    dialogLabel(dialogLowerButton, -47, "No Thanks");

    glColor4f(1, 1, 1, 1);
    drawTextCentred(MediumFont, 320, 300, "Slow Drivers");
    static const char *const lines[] = {
        "Software drivers have been", "detected! This may make", "the game slow and unplayable.", "",
        "To update your drivers,", "click the \"Update Drivers\"", "button below.",
    };
    for (int i = 0; i < 7; i++)
        drawTextCentred(SmallFont, 320, 280 - 10 * i, "%s", lines[i]);

    drawTexture(input.pointerX, input.pointerY, CursorTextures[0], 1, 1, 1, 1);
}
