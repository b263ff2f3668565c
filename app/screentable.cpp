// The table of every screen: its logic and render handlers, what setScreen
// does on the way in, and what the fade into it does at its darkest point.
// It is the one file that names every screen, so it stands above them all
// and no screen has to include another.
#include "app/screens.h"
#include "app/slowdriver.h"
#include "audio/audio.h"
#include "editor/editorscreen.h"
#include "frontend/screens.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "game/panels.h"
#include "game/status.h"
#include "render/stars.h"

#include <allegro.h>

// ---------------------------------------------------------------------------
// Frames of the screens that lie over another

static void pausedFrame()
{
    drawGameScreen();
    pausePanelFrame();
}

static void missionCompleteFrame()
{
    drawGameScreen();
    missionCompletePanelFrame();
}

static void missionFailedFrame()
{
    drawGameScreen();
    missionFailedPanelFrame();
}

// The selection screen under the password panel takes no click.
static void passwordFrame()
{
    runBehindVeil(gameSelectFrame);
    passwordPanelFrame();
}

// ---------------------------------------------------------------------------
// Entry actions (setScreen)

static void enterMainMenu()
{
    missionMessage = 1;
    resetMission();
}

static void enterPlaying()
{
    setStatus(StatusEmpty);
    prefillGameStars();
}

static void enterLevelEditor()
{
    clear_keybuf();
    setStatus(StatusEmpty);
}

static void enterTransition()
{
    setStatus(StatusEmpty);
}

static void enterMissionComplete()
{
    SoundRequest = MissionCompleteSound;
}

static void enterMissionFailed()
{
    SoundRequest = MissionFailedSound;
}

// ---------------------------------------------------------------------------
// Switch actions at the darkest point of a fade

static void arriveAtMainMenu()
{
    if (transition.from == Intro)
        blackoutWait(10);
    requestMusic(MenuMusic);
}

// The last game's message must not show through the second half of the fade,
// whatever state the editor was left in.
static void arriveAtLevelEditor()
{
    resetStatusLine();
}

static void arriveAtCredits()
{
    requestMusic(CreditsMusic);
}

// The level's track is asked for by the level's start, once the level has
// loaded: one that fails leaves the menu's track playing.
static void arriveAtPlaying()
{
    enterChosenLevel(transition.from == GameSelect);
}

static void arriveAtGameSelect()
{
    // The selection screen has the menu's track: back from a level, the
    // level's track fades out here.
    enterGameSelect();
    requestMusic(MenuMusic);
}

static ScreenHandlers screenTable[] = {
    {MainMenu, mainMenuTick, mainMenuFrame, enterMainMenu, arriveAtMainMenu},
    {CreditsScreen, creditsTick, creditsFrame, nullptr, arriveAtCredits},
    {Playing, gameTick, drawGameScreen, enterPlaying, arriveAtPlaying},
    {LevelEditor, editorTick, editorFrame, enterLevelEditor, arriveAtLevelEditor},
    {Paused, nullptr, pausedFrame, nullptr, nullptr},
    {GameSelect, gameSelectTick, gameSelectFrame, nullptr, arriveAtGameSelect},
    {Options, optionsTick, optionsFrame, nullptr, nullptr},
    {MissionComplete, nullptr, missionCompleteFrame, enterMissionComplete, nullptr},
    {Help, nullptr, helpFrame, nullptr, nullptr},
    {MissionFailed, nullptr, missionFailedFrame, enterMissionFailed, nullptr},
    {Transition, transitionTick, transitionFrame, enterTransition, nullptr},
    {Intro, introTick, introFrame, nullptr, nullptr},
    {SlowDriverWarning, nullptr, slowDriverFrame, nullptr, nullptr},
    {PasswordEntry, passwordEntryTick, passwordFrame, nullptr, nullptr},
    {ExitScreen, exitScreenTick, exitScreenFrame, nullptr, nullptr},
};

ScreenHandlers *handlersFor(u32 id)
{
    for (ScreenHandlers &row : screenTable)
        if (row.id == id)
            return &row;
    return nullptr;
}
