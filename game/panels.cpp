// The pause and mission-end panels lie over the frozen level: the game
// screen draws underneath, its tick does not run, and only the panel's own
// buttons listen. None of them acts while a fade is running.
#include "app/log.h"
#include "app/screens.h"
#include "frontend/layout.h"
#include "game/gamescreen.h"
#include "game/panels.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "render/text.h"
#include "world/catalogue.h"
#include "world/passwords.h"

#include <GL/gl.h>

static void dimLevel()
{
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, 0.5f);
}

static void drawPanelButton(const Button &b, float dx, float dy, const char *label)
{
    drawButton(b);
    const float shift = visualState(b) == 2 ? 1 : 0;
    resetDrawState();
    glColor4f(0.9f, 0.9f, 0.9f, 1);
    drawText(MediumFont, b.x + dx - shift, b.y + dy - shift, "%s", label);
}

static void drawPointer()
{
    drawTexture(input.pointerX, input.pointerY, CursorTextures[0], 1, 1, 1, 1);
}

void pausePanelFrame()
{
    dimLevel();
    drawTexture(320, 220, SpriteTextures[3], 1, 1, 1, 1);
    const float px = input.pointerX, py = input.pointerY;
    updateButton(pauseResumeButton, px, py);
    updateButton(pauseRetryButton, px, py);
    updateButton(pauseExitButton, px, py);
    if (wasClicked(pauseResumeButton)) {
        setScreen(Playing);
    } else if (wasClicked(pauseRetryButton)) {
        // A fresh copy of the level under the same view; the banner has
        // been seen already.
        resetMission();
        if (reloadLevelForRetry()) {
            setScreen(Playing);
            setStatus(StatusMissionRestarted);
        } else {
            // The file went away or changed during play: with nothing
            // loaded the empty counters would read as a win.
            leaveLevel(Paused);
        }
    } else if (wasClicked(pauseExitButton)) {
        leaveLevel(Paused);
    }
    drawPanelButton(pauseResumeButton, -46, -6, "Resume");
    drawPanelButton(pauseRetryButton, -46, -6, "Retry");
    drawPanelButton(pauseExitButton, -46, -6, "Exit");
    drawPointer();
}

void missionFailedPanelFrame()
{
    dimLevel();
    drawTexture(320, 230, SpriteTextures[33], 1, 1, 1, 1);
    updateButton(missionContinueButton, input.pointerX, input.pointerY);
    // Losing changes nothing in the campaign.
    if (wasClicked(missionContinueButton))
        leaveLevel(MissionFailed);
    drawPanelButton(missionContinueButton, -40, -6, "Continue");
    drawPointer();
}

void missionCompletePanelFrame()
{
    dimLevel();
    drawTexture(320, 230, SpriteTextures[17], 1, 1, 1, 1);
    // A level tried out from the editor is no mission of the campaign.
    const bool fromSelection = levelReturnScreen == GameSelect;
    if (fromSelection)
        showNextPassword();
    updateButton(missionContinueButton, input.pointerX, input.pointerY);
    if (wasClicked(missionContinueButton)) {
        if (fromSelection)
            advanceCampaign();
        leaveLevel(MissionComplete);
    }
    drawPanelButton(missionContinueButton, -40, -6, "Continue");
    drawPointer();
}
