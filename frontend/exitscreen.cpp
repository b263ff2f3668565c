// The exit screen: pictures fade in one after another, a slide show turns,
// and either button fades the game to black and ends it.

#include "app/screens.h"
#include "audio/audio.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "render/draw.h"

#include <allegro.h>
#include <alleggl.h>

// The game has no site on the web: its page ships beside the executable and
// opens offline, so the button can never lead to a dead address.
const char MAKERS_PAGE_FILE[] = "about.html";

ExitScreenState exitScreen;

void resetExitScreen()
{
    exitScreen = {};
    exitScreen.stageSlide = 1;
    exitScreen.slideTimer = 199;
}

static void stepFadeIns()
{
    ExitScreenState &s = exitScreen;
    if (s.stageLeft) {
        s.leftAlpha += 0.02f;
        if (s.leftAlpha >= 1) {
            s.stageLeft = 0;
            s.slideShowOn = 1;
        }
    }
    if (s.stageRight) {
        s.rightAlpha += 0.02f;
        if (s.rightAlpha >= 1) {
            s.stageLeft = 1;
            s.stageRight = 0;
        }
    }
    if (s.stageSlide) {
        s.slideAlpha += 0.02f;
        if (s.slideAlpha >= 1) {
            s.stageRight = 1;
            s.stageSlide = 0;
        }
    }
}

static void stepSlideShow()
{
    ExitScreenState &s = exitScreen;
    if (!s.slideShowOn)
        return;
    s.slideTimer++;
    if (s.slideTimer > 199) {
        s.slideFadingOut = 1;
        s.slideTimer = 0;
        s.nextSlide = s.nextSlide >= 3 ? 0 : s.nextSlide + 1;
    }
    if (!s.slideFadingOut) {
        if (s.slideAlpha <= 1)
            s.slideAlpha += 0.02f;
    } else {
        if (s.slideAlpha <= 0) {
            s.slideFadingOut = 0;
            s.currentSlide = s.nextSlide;
        }
        s.slideAlpha -= 0.02f;
    }
}

void exitScreenTick()
{
    stepFadeIns();
    stepSlideShow();
}

static void leave()
{
    startTransition(ExitScreen, ExitScreen, StarfieldKeep);
    transition.quitWhenDark = 1;
}

void exitScreenFrame()
{
    const ExitScreenState &s = exitScreen;
    drawMenuBackdrop();
    drawRect(34, 46, 298, 226, 0, 0, 0, s.leftAlpha - 0.6f);
    drawRect(332, 56, 636, 460, 0, 0, 0, s.rightAlpha - 0.6f);
    drawTexture(287, 100, SpriteTextures[23], 1, 1, 1, s.leftAlpha);
    int slide = s.currentSlide < 0 || s.currentSlide > 3 ? 0 : s.currentSlide;
    drawTexture(80, 352, SpriteTextures[24 + slide], 1, 1, 1, s.slideAlpha);
    drawTexture(586, 206, SpriteTextures[22], 1, 1, 1, s.rightAlpha);
    drawTextureSized(320, 64, SpriteTextures[36], 1, 1, 1, 1, 640, 128);

    updateButton(exitWebPageButton, input.pointerX, input.pointerY);
    updateButton(exitGameButton, input.pointerX, input.pointerY);
    if (wasClicked(exitWebPageButton)) {
        openWebsiteAfterExit = 1;
        leave();
        stopMusic();
    } else if (wasClicked(exitGameButton)) {
        leave();
        musicStopping = 1;
    }
    char caption[64];
    snprintf(caption, sizeof caption, "Visit %s", MAKERS_PAGE_FILE);
    drawButton(exitWebPageButton);
    drawSmallCentredLabel(exitWebPageButton, caption);
    drawButton(exitGameButton);
    drawSmallCentredLabel(exitGameButton, "Exit Game");
    drawPointer();
}
