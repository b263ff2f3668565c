// The logic (per tick) and render (per frame) handlers of the screens around
// the level, as the screen table (app/screentable.cpp) calls them.
#pragma once

#include <cstdint>
#include <string>

void mainMenuTick();
void mainMenuFrame();
void creditsTick();
void creditsFrame();
void gameSelectTick();
void gameSelectFrame();
void optionsTick();
void optionsFrame();
void helpFrame();
void passwordEntryTick();
void passwordPanelFrame();
void exitScreenTick();
void exitScreenFrame();

// The switch actions at the darkest point of a fade.
void enterChosenLevel(bool fromGameSelect);  // into Playing
void enterGameSelect();                      // into GameSelect

// The game-select screen's notice: 1 is "Select A Mission To Play!".
extern int32_t missionMessage;

// The selection screen's list view; the pause panel's "Retry" reloads its
// current path.
struct MissionListView {
    float x, y;
    float r, g, b, a;
    int32_t currentIndex;
    std::string currentPath;
};
extern MissionListView missionList;
// The path of the level the start button chose; the switch into Playing loads it.
extern std::string chosenLevelPath;
