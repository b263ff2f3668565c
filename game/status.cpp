// The status line fades the old message out before the new one fades in; a
// request made while it fades only changes what will come in.
#include "game/status.h"

#include "render/text.h"

#include <GL/gl.h>

const char StatusEmpty[] = "";
const char StatusCannotBuildHere[] = "Cannot build here";
const char StatusNotEnoughCredits[] = "You dont have enough credits";
const char StatusNeedsFooting[] = "Structures need to be built on top of something stable";
const char StatusNeedsAnchor[] = "Hanging girders need to be attached to something...";
const char StatusHatcherOverPod[] = "You Must Build Hatchers Over The Pods...";
const char StatusCannotDig[] = "Cannot dig here";
const char StatusDigUnderStructure[] = "You cannot dig this up with a structure overtop";
const char StatusDigNearWater[] = "You cannot dig this up with water so close";
const char StatusCannotDestroy[] = "Cannot destroy this...";
const char StatusBlastUnderStructure[] = "You cannot blow this up with a structure overtop";
const char StatusBlastNearWater[] = "You cannot blow this up with water so close";
const char StatusGirderBuilt[] = "Girder built";
const char StatusLeftHangingGirderBuilt[] = "Left Hanging Girder built";
const char StatusRightHangingGirderBuilt[] = "Right hanging Girder built";
const char StatusHatcherBuilt[] = "Hatcher built";
const char StatusEnergyLiftBuilt[] = "Energy lift built";
const char StatusLeftLiftExitBuilt[] = "Left energy lift exit built";
const char StatusRightLiftExitBuilt[] = "Right energy lift exit built";
const char StatusBlockerBuilt[] = "Blocker built";
const char StatusDigging[] = "Digging...";
const char StatusDestroying[] = "Destroying...";
const char StatusCancelled[] = "Cancelled";
const char StatusPlaceGirder[] = "Place Girder";
const char StatusPlaceLeftHangingGirder[] = "Place Left Hanging Girder";
const char StatusPlaceRightHangingGirder[] = "Place Right Hanging Girder";
const char StatusPlaceHatcher[] = "Place Hatcher Over Pod";
const char StatusPlaceEnergyLift[] = "Place Energy Lift";
const char StatusPlaceLeftLiftExit[] = "Place Left Energy Lift Exit";
const char StatusPlaceRightLiftExit[] = "Place Right Energy Lift Exit";
const char StatusPlaceBlocker[] = "Place Blocker";
const char StatusSelectGround[] = "Select Ground to Unearth";
const char StatusSelectBlowUp[] = "Select Something to Blow Up";
const char StatusOutOfCredits[] = "Out Of Credits!";
const char StatusNoMoreHatchers[] = "Cannot Build Anymore Hatchers";
const char StatusCannotHatchYet[] = "Cannot Hatch Until All Pods Have Hatchers";
const char StatusPodsAlreadyHatched[] = "Pods Already Hatched";
const char StatusHatchingPods[] = "Hatching Pods...";
const char StatusLaunching[] = "Launching All Rockets!";
const char StatusMissionRestarted[] = "Mission Restarted...";

StatusLine statusLine = {
    StatusEmpty, StatusEmpty, MediumFont, 34, 367, 0.1f, 1.0f, 0.1f, 1.0f, false, false,
};

void setStatus(const char *text)
{
    if (text == statusLine.current)
        return;
    statusLine.pending = text;
    statusLine.changeRequested = true;
}

void tickStatus()
{
    StatusLine &s = statusLine;
    if (s.changeRequested) {
        s.changeRequested = false;
        s.fadingOut = true;
    }
    if (s.fadingOut) {
        s.alpha -= 0.1f;
        if (s.alpha < 0) {
            s.fadingOut = false;
            s.current = s.pending;
        }
    } else if (s.alpha < 1.0f) {
        s.alpha += 0.1f;
    }
}

void resetStatusLine()
{
    statusLine.current = StatusEmpty;
    statusLine.pending = StatusEmpty;
    statusLine.alpha = 1.0f;
    statusLine.changeRequested = false;
    statusLine.fadingOut = false;
}

const char *statusTarget()
{
    const StatusLine &s = statusLine;
    return (s.changeRequested || s.fadingOut) ? s.pending : s.current;
}

void drawStatus()
{
    const StatusLine &s = statusLine;
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glColor4f(s.r, s.g, s.b, s.alpha);
    // The text is an argument, never the format: a message with a percent
    // sign must draw as it reads.
    drawText(s.font, s.x, s.y, "%s", s.current ? s.current : "");
}
