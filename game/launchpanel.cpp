// The launch panel: it slides in once every bubbleman has boarded, and its
// "Launch" button asks the simulation to send the rockets up.
#include "game/launchpanel.h"

#include "app/screens.h"
#include "audio/audio.h"
#include "frontend/layout.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "render/text.h"

#include <GL/gl.h>

static const char LAUNCH_PANEL_TEXT[] = "Ready for launch";

LaunchPanel launchPanel = {
    LAUNCH_PANEL_TEXT, MediumFont, 768, 70, 1, 1, 1, 1, 0, true, false, false, false, 0, 256,
};

static const float PANEL_SLIDE_STEP = 4;
static const float PANEL_Y = 70;
static const float PANEL_MAX_OFFSET = 256;
// The button sits this far left of the panel's centre.
static const float BUTTON_OFFSET_X = 13;

void resetLaunchPanel()
{
    LaunchPanel &p = launchPanel;
    p.text = LAUNCH_PANEL_TEXT;
    p.font = MediumFont;
    p.maxOffset = PANEL_MAX_OFFSET;
    p.offset = 0;
    p.slidingIn = p.slidingOut = p.armed = false;
    p.r = p.g = p.b = p.alpha = 1;
    p.pulse = 0;
    p.pulseRising = true;
    p.y = PANEL_Y;
    // Hidden beyond the right edge, where the pointer cannot reach the button.
    p.x = 640 + 128;
    launchButton.x = p.x - BUTTON_OFFSET_X;
    launchButton.y = PANEL_Y;
}

static void stepPulse()
{
    LaunchPanel &p = launchPanel;
    if (p.pulseRising) {
        if (p.pulse > 0.5f)
            p.pulseRising = false;
        else
            p.pulse += 0.03f;
    } else {
        if (p.pulse < 0)
            p.pulseRising = true;
        else
            p.pulse -= 0.03f;
    }
}

void tickLaunchPanelWith(bool launchClicked)
{
    LaunchPanel &p = launchPanel;
    stepPulse();
    // Also true at once in a level without pods: nothing to wait for.
    if (!p.armed && mission.savedCount == mission.podCount) {
        p.slidingIn = true;
        EffectSoundRequest = LaunchSound;
        p.armed = true;
    }
    if (p.slidingIn && p.offset < p.maxOffset)
        p.offset += PANEL_SLIDE_STEP;
    if (launchClicked) {
        mission.launchRequested = true;
        EffectSoundRequest = LaunchSound;
        setStatus(StatusLaunching);
        p.slidingOut = true;
        p.slidingIn = false;
    }
    if (p.slidingOut && p.offset > 0)
        p.offset -= PANEL_SLIDE_STEP;
}

bool updateLaunchButton()
{
    updateButton(launchButton, input.pointerX, input.pointerY);
    return wasClicked(launchButton);
}

void tickLaunchPanel()
{
    tickLaunchPanelWith(updateLaunchButton());
}

// A panel that has not moved in is not drawn, and its button is left where
// it was: off the screen, out of the pointer's reach.
void placeLaunchPanel()
{
    LaunchPanel &p = launchPanel;
    p.x = 640 + 131 - p.offset;
    if (p.offset == 0)
        return;
    launchButton.x = p.x - BUTTON_OFFSET_X;
    launchButton.y = p.y;
}

bool launchButtonReachable()
{
    // The button's inside test is strict, and the pointer runs over the
    // whole pixels 0 to 639 of the screen.
    const int halfWidth = launchButton.width / 2;
    return launchButton.x - halfWidth < SCREEN_WIDTH - 1 && launchButton.x + halfWidth > 0;
}

void drawLaunchPanel()
{
    LaunchPanel &p = launchPanel;
    placeLaunchPanel();
    if (p.offset == 0)
        return;
    resetDrawState();
    glColor4f(p.pulse + 0.5f, 0.2f, 0.2f, p.alpha);
    drawText(p.font, p.x - 94, p.y + 32, "%s", p.text);
    drawTexture(p.x, p.y, SpriteTextures[1], 1, 1, 1, p.alpha);
    drawButton(launchButton);
    const float shift = visualState(launchButton) == 2 ? 1 : 0;
    resetDrawState();
    glColor4f(0.9f, 0.9f, 0.9f, 1);
    drawText(LargeFont, launchButton.x - 45 - shift, launchButton.y - 8 - shift, "Launch");
}
