// The game update of a level in play without any drawing: the steps of the
// logic tick that move the level, and the rules of the frame's clicks on the
// level, the toolbar and the "Hatch Pods" button. The game screen calls them
// in its fixed order; the headless driver calls the very same functions.
#pragma once

#include <cstdint>

// The end-of-level tests of the tick, made before anything moves: every
// rocket has left the level; a bubbleman has been lost.
bool missionCompleteReached();
bool missionFailedReached();

// The tick's steps from the status line on: the status line, the launch
// panel, the bubblemen, the explosions, the flying rockets, the launch and
// the cost labels. `launchClicked` is the Launch button's click of this tick:
// the game passes updateLaunchButton(), which touches nothing else the steps
// read, so updating the button first keeps the game's order.
void advanceLevel(bool launchClicked);

// Lock flags belong to the lockable tools only; the hatcher has none.
bool toolIsLocked(int32_t tool);
// Whether a click on the tool's toolbar button would make it the current
// tool: offered in this level, credits left, and no hatcher once hatched.
bool toolCanBeChosen(int32_t tool);
// A click on the toolbar button of `tool`; the button of a locked tool is
// never updated and so never reports one.
void chooseTool(int32_t tool);
// A click on "Hatch Pods".
void pressHatchPods();

// The frame's rules after the click on the level: a hatcher still in hand
// after hatching is put down, and without credits no tool stays in hand.
void dropHatcherAfterHatching();
void applyOutOfCreditsRule();

// What the player did with the mouse in one frame of play.
struct FrameClicks {
    bool leftPressed, rightPressed;     // press edges of the buttons
    float pointerY;                     // screen y, upwards
    int32_t toolButton;                 // the toolbar button clicked, NoTool for none
    bool hatchPods;                     // "Hatch Pods" clicked
};

// The frame's clicks in the game screen's order: the tool on the cursor
// cell, the hatcher put down, the out-of-credits rule, then the toolbar and
// "Hatch Pods". (Scrolling, drawing and the "Menu" button are the screen's.)
void applyFrameClicks(const FrameClicks &clicks);
