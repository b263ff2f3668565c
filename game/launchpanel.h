// The launch panel that slides in once every bubbleman has boarded, with the
// "Launch" button (frontend/layout.h places it) that it carries.
#pragma once

#include "frontend/layout.h"
#include "render/text.h"

struct LaunchPanel {
    const char *text;
    FontSize font;
    float x, y;
    float r, g, b, alpha;
    float pulse;
    bool pulseRising;
    bool slidingIn, slidingOut;
    bool armed;         // called in once in this level
    float offset, maxOffset;
};

extern LaunchPanel launchPanel;

void resetLaunchPanel();
// Updates the Launch button from the pointer; true when it reports a click.
bool updateLaunchButton();
// The panel's step with the Launch button updated from the pointer first.
void tickLaunchPanel();
// The same step with the button's click already known: the game tick's own
// order (gameTick, which records the click for a solution).
void tickLaunchPanelWith(bool launchClicked);
// Where the panel stands for its current offset, with its button beside it
// while the panel shows; the first step of drawing it.
void placeLaunchPanel();
// Whether a pointer on the 640-pixel screen can reach the Launch button where
// it was last placed.
bool launchButtonReachable();
void drawLaunchPanel();
