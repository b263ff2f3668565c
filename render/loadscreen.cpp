#include "render/loadscreen.h"

#include "app/log.h"
#include "app/clock.h"
#include "render/draw.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>

void loadScreenTick(LoadScreenState &s, void (*loadAll)())
{
    if (!s.aDone)
        s.alphaA += 0.02f;
    if (s.delay >= 0)
        s.delay--;
    if (s.alphaA > 1.0f && s.phase == 0) {
        s.aDone = true;
        s.delay = 20;
        s.phase = 1;
    }
    if (s.phase == 3)
        s.finished = true;
    if (s.phase == 2) {
        loadAll();
        s.phase = 3;
    }
    if (s.phase == 1 && s.delay < 1)
        s.alphaB += 0.02f;
    if (s.alphaB > 1.0f && s.phase == 1)
        s.phase = 2;
}

// A black screen for 61 ticks while the player's display settles on the mode.
static void blackPause()
{
    int countdown = 60;
    bool waiting = true;
    while (waiting) {
        while (tickCounter > 0) {
            tickCounter--;
            if (--countdown < 0)
                waiting = false;
        }
        drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, 1);
        presentFrame();
        rest(0);
    }
}

static void drawLoadScreen(const LoadScreenState &s)
{
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0.3f, 0.3f, 0.3f, 1);
    drawTexture(320, SCREEN_HEIGHT / 2 + 20, IntroTextures[0], 1, 1, 1, s.alphaA);
    drawTexture(320, SCREEN_HEIGHT / 2 - 80, IntroTextures[1], 1, 1, 1, s.alphaB);
}

void runLoadScreen(void (*loadEverything)())
{
    set_color_conversion(COLORCONV_NONE);
    allegro_gl_set_texture_format(GL_RGBA8);
    logLine("Color converters set");
    loadFontData();
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, 1);
    loadIntroData();

    installTimers();
    blackPause();

    // Ticks that pile up during the blocking load are consumed afterwards by
    // the same rules, so the screen finishes at once once the data is in.
    installTimers();
    LoadScreenState s = {};
    for (;;) {
        while (tickCounter > 0) {
            loadScreenTick(s, loadEverything);
            tickCounter--;
        }
        drawLoadScreen(s);
        presentFrame();
        framesThisSecond++;
        checkGlError();
        if (s.finished)
            break;
        // Nothing to wait for between ticks; give the processor back as the
        // main loop does, rather than spin on flips.
        rest(0);
    }
    logLine("Load Screen Done");
}
