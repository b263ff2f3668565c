// The game screen: the level in play with its toolbar, counters, status line
// and banner. The selection screen's start arms the banner as the level loads.
#pragma once

#include "game/solution.h"

#include <cstdint>
#include <vector>

// The name band that opens over a freshly entered level, and the fade-in of
// the tutorial panel that shares its clock.
struct IntroBanner {
    bool active;
    int32_t delay;          // ticks before the band opens
    float halfHeight;       // pixels above and below the band's middle
    float hold;
    bool closing;
    float textAlpha;
    float tutorialAlpha;
    int32_t tutorialDelay;  // ticks before the tutorial panel fades in
};
extern IntroBanner introBanner;

// Shows the level's name banner from its start, as a freshly entered level does.
void armLevelBanner();
void stepIntroBanner();

// The logic tick of a level in play (the Playing row's logic handler).
void gameTick();
// The frame of the game screen: the level view and the display, and in
// Playing the player's mouse on the level, the toolbar and the buttons under
// the level. The pause and mission-end panels draw it underneath themselves.
void drawGameScreen();
// The same frame with every drawing call left out: what the headless driver
// runs, so a scripted click meets the very rules and order a player's does.
void runGameFrameWithoutDrawing();
// The level view is drawn only between the opaque parts of the display's
// panels, where it can show; tests turn it off to compare the two frames.
extern bool clipLevelUnderPanels;
// The toolbar, "Hatch Pods" and "Menu": updated with the pointer and acted on.
void handleGameButtons();

// Ticks of the level since its last resetMission: the step numbers of a
// solution script.
extern int32_t levelTick;

// The screen a level is left for (Exit on the pause panel, Continue on the
// mission-end panels): the selection screen normally. The level editor's
// test-play sets it to LevelEditor before it starts Playing on the level it
// holds (the game screen's entry loads nothing) and puts it back afterwards.
extern uint32_t levelReturnScreen;
// Leaves the level by a fade from `from` to levelReturnScreen.
void leaveLevel(uint32_t from);
// What "Retry" on the pause panel loads after resetMission: the selection
// screen's current level normally (frontend/gameselect.cpp provides it); the
// editor's test-play points it at its own copy of the level.
extern void (*reloadLevelForRetry)();

// What the player did in the level, as a solution script: step N is the
// level's Nth tick. The game screen appends while recordingPlay is set, so
// the editor's test-play can save the winning run as the level's proof.
extern std::vector<ScriptAction> playRecord;
extern bool recordingPlay;
