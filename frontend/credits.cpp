// The credits: pairs of a style and a line, rising slowly over the backdrop.

#include "app/config.h"
#include "app/screens.h"
#include "frontend/frontend.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/text.h"

#include <allegro.h>
#include <alleggl.h>

float creditScroll = SCREEN_HEIGHT;

// Style 1 headings in light blue, style 2 names in grey. Only real things are
// credited: the game's own makers by their role, and the libraries, tools
// and fonts it stands on, with their licences.
const char *const CreditLines[CREDIT_STRING_COUNT] = {
    "1", "Delvemoor",
    "2", "Made by the Delvemoor team",
    "2", "Free software, free to share",
    "1", "",
    "1", "Game Design, Programming, Art, Sound:",
    "2", "The Delvemoor engineers",
    "2", "with pictures and tunes from code",
    "1", "",
    "1", "Testing, Additional Design:",
    "2", "levelcheck plays every mission",
    "1", "",
    "1", "More Testing:",
    "2", "GoogleTest and libFuzzer",
    "1", "",
    "1", "Beta Testers:",
    "2", "AddressSanitizer",
    "2", "UndefinedBehaviorSanitizer",
    "2", "Xvfb, the virtual X server",
    "2", "xdotool",
    "2", "Mesa llvmpipe (MIT licence)",
    "2", "Google Benchmark",
    "2", "Clang and GCC",
    "2", "CMake (BSD licence)",
    "2", "Python, Pillow and NumPy",
    "1", "",
    "1", "Special Thanks:",
    "2", "Debian and its packagers",
    "2", "DejaVu fonts (Bitstream Vera",
    "2", "licence, changes public domain)",
    "2", "And you for playing!",
    "1", "",
    "1", "Extra Special Thanks:",
    "2", "Allegro and AllegroGL: giftware",
    "2", "JPGAlleg: zlib licence",
    "1", "",
    "1", "Delvemoor makes use of the",
    "1", "following advanced technologies:",
    "2", "Allegro",
    "2", "OpenGL",
    "2", "AllegroGL",
    "2", "JPGAlleg",
    "1", "",
    "1", "More from the makers:",
    "2", "Your own levels, in the Editor!",
};

void creditsTick()
{
    if (input.escape || input.space)
        startTransition(CreditsScreen, MainMenu, StarfieldKeep);
    creditScroll += 0.5f;
    if (creditScroll > 1400)
        creditScroll = -30;
    tickFallingStars();
}

void creditsFrame()
{
    drawMenuBackdrop();
    bool styleNext = true;
    int style = 0;
    for (int i = 0; i < CREDIT_STRING_COUNT; i++) {
        if (styleNext) {
            style = (int)convertToDouble(CreditLines[i]);
            styleNext = false;
            continue;
        }
        styleNext = true;
        if (style == 1)
            glColor4f(0.8f, 0.8f, 1, 1);
        else if (style == 2)
            glColor4f(0.8f, 0.8f, 0.8f, 1);
        else
            continue;
        drawTextCentred(LargeFont, 321, creditScroll - 10.0f * i, "%s", CreditLines[i]);
    }
    drawRect(0, -40, SCREEN_WIDTH, 24, 0, 0.5f, 1, 0.4f);
    glColor4f(pulseB, 0, 1, 1);
    drawText(MediumFont, 188, 6, "Press 'Escape' To Continue");
}
