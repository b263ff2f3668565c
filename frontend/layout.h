// Every control of every screen: fixed global widgets, placed once by the
// layout table in layout.cpp before main runs. Screens update, test and draw
// these instances; none of them builds a widget of its own.
#pragma once

#include "frontend/widgets.h"

// Main menu, top to bottom.
extern Button mainNewGameButton;
extern Button mainEditorButton;
extern Button mainHelpButton;
extern Button mainOptionsButton;
extern Button mainCreditsButton;
extern Button mainExitButton;

// dialogUpperButton and dialogLowerButton (widgets.h) serve the slow-driver,
// help and password dialogs.

// Game screen: the toolbar in tool order (Girder first, Dynamite last), then
// the two buttons under the level.
const int TOOL_BUTTON_COUNT = 10;
extern Button toolButtons[TOOL_BUTTON_COUNT];
extern Button hatchPodsButton;
extern Button gameMenuButton;
// Placed off the screen; the launch panel (game/launchpanel.h) moves it.
extern Button launchButton;

// Pause panel and the mission-end panels.
extern Button pauseResumeButton;
extern Button pauseRetryButton;
extern Button pauseExitButton;
extern Button missionContinueButton;

// Game select. The planet buttons are silent and placed every frame.
const int PLANET_COUNT = 4;
extern Button planetButtons[PLANET_COUNT];
extern Button previousMissionButton;
extern Button nextMissionButton;
extern Button enterPasswordButton;
extern Button gameModeButton;
extern Button startMissionButton;
extern Button selectReturnButton;

// Options.
extern Button windowedModeButton;
extern Button fullscreenModeButton;
extern Button color32Button;
extern Button color16Button;
extern Button optionsReturnButton;
extern Slider scrollSpeedSlider;
extern Slider musicVolumeSlider;
extern Slider soundVolumeSlider;

// Exit screen.
extern Button exitWebPageButton;
extern Button exitGameButton;

// The further widgets, which no screen outside the level editor uses; the
// editor gives them their roles. Named by where they stand.
extern Button editorTopLeftButtons[3];        // (22,17) (56,17) (90,17), 32 x 32
extern Button editorTopRightButton;           // (570,17), 128 x 32
extern Button editorPaletteButtons[10];       // the toolbar positions, 64 x 64
extern Button editorLeftColumnButtons[9];     // x 130, y 380 down to 92, 32 x 32
extern Button editorBottomCentreButton;       // (320,18), 128 x 32
extern Button editorPanelButtons[6];          // (406,160) (166,86) (406,86) x2 (320,176) x2
extern Button editorGridButtons[4];           // 2 x 2 grid, 64 x 64
extern Button editorArrowButtons[2];          // (160,240) (240,240), 64 x 16
extern Button editorColumnButtons[5];         // x 320, y 276 down to 140, 128 x 32
extern Button editorFileButtons[4];           // x 390, y 276 down to 174, 128 x 32
extern Button editorBottomPairButtons[2];     // (234,17) (405,17), 32 x 32
extern Button editorCentreButton;             // (320,17), 128 x 32, the game's small frames

// Gives every widget of the table its GUI frames (part of the object link).
void linkLayoutFrames();
