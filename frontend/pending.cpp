// Screens that are not built yet. Each keeps its place in the screen table so
// the state machine is whole; a screen's own file replaces its entry here.

#include "app/screens.h"
#include "frontend/screens.h"
#include "game/mission.h"

int32_t missionMessage = 1;

void creditsTick() {}
void creditsFrame() {}
void gameUpdate() {}
void gameScreenFrame() {}
void editorTick() {}
void editorFrame() {}
void pausePanelFrame() {}
void missionCompletePanelFrame() {}
void missionFailedPanelFrame() {}
void gameSelectTick() {}
void gameSelectFrame() {}
void optionsTick() {}
void optionsFrame() {}
void helpFrame() {}
void passwordEntryTick() {}
void passwordPanelFrame() {}
void exitScreenTick() {}
void exitScreenFrame() {}

void enterChosenLevel(bool fromGameSelect)
{
    if (fromGameSelect)
        resetMission();
    blackoutWait(25);
}

void enterGameSelect()
{
    blackoutWait(25);
}
