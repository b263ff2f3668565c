// The one-line message under the toolbar. Messages are the game's constant
// texts and are compared by address, so asking again for the message already
// on show costs nothing and does not restart its fade.
#pragma once

#include "render/text.h"

struct StatusLine {
    const char *current;        // on show
    const char *pending;        // replaces current once it has faded out
    FontSize font;
    float x, y;
    float r, g, b;
    float alpha;
    bool changeRequested;
    bool fadingOut;
};

extern StatusLine statusLine;

void setStatus(const char *text);
void tickStatus();
void drawStatus();

// Back to the empty message at full opacity, with nothing pending.
void resetStatusLine();

// The message the line shows or is fading towards: the last one asked for
// that differed from the one on show.
const char *statusTarget();

// Every message of a level in play. Each is one object: code that sets a
// message names it here rather than writing the text again.
extern const char StatusEmpty[];
// Building, digging and blasting.
extern const char StatusCannotBuildHere[];
extern const char StatusNotEnoughCredits[];
extern const char StatusNeedsFooting[];
extern const char StatusNeedsAnchor[];
extern const char StatusHatcherOverPod[];
extern const char StatusCannotDig[];
extern const char StatusDigUnderStructure[];
extern const char StatusDigNearWater[];
extern const char StatusCannotDestroy[];
extern const char StatusBlastUnderStructure[];
extern const char StatusBlastNearWater[];
extern const char StatusGirderBuilt[];
extern const char StatusLeftHangingGirderBuilt[];
extern const char StatusRightHangingGirderBuilt[];
extern const char StatusHatcherBuilt[];
extern const char StatusEnergyLiftBuilt[];
extern const char StatusLeftLiftExitBuilt[];
extern const char StatusRightLiftExitBuilt[];
extern const char StatusBlockerBuilt[];
extern const char StatusDigging[];
extern const char StatusDestroying[];
extern const char StatusCancelled[];
// The toolbar and the display.
extern const char StatusPlaceGirder[];
extern const char StatusPlaceLeftHangingGirder[];
extern const char StatusPlaceRightHangingGirder[];
extern const char StatusPlaceHatcher[];
extern const char StatusPlaceEnergyLift[];
extern const char StatusPlaceLeftLiftExit[];
extern const char StatusPlaceRightLiftExit[];
extern const char StatusPlaceBlocker[];
extern const char StatusSelectGround[];
extern const char StatusSelectBlowUp[];
extern const char StatusOutOfCredits[];
extern const char StatusNoMoreHatchers[];
extern const char StatusCannotHatchYet[];
extern const char StatusPodsAlreadyHatched[];
extern const char StatusHatchingPods[];
// The launch and the pause panel.
extern const char StatusLaunching[];
extern const char StatusMissionRestarted[];
