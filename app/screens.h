// The screen-state machine: every screen of the game is one GameScreen value
// with a logic handler (per tick) and a render handler (per frame). Screens
// change only through setScreen and startTransition.
#pragma once

#include "app/clock.h"

#include <cstdint>

typedef uint32_t u32;
typedef uint8_t byte;

enum GameScreen : u32 {
    MainMenu = 0,
    CreditsScreen = 1,
    Playing = 2,
    LevelEditor = 3,
    Paused = 4,
    GameSelect = 6,
    Options = 9,
    MissionComplete = 10,
    Help = 11,
    MissionFailed = 16,
    Transition = 17,
    Intro = 19,
    SlowDriverWarning = 20,
    PasswordEntry = 21,
    ExitScreen = 23,
};

enum StarfieldMode : u32 {
    StarfieldKeep = 0,
    StarfieldMenu = 1,
    StarfieldGame = 2,
};

struct TransitionState {
    float alpha;        // opacity of the black veil; 0 exactly when no transition runs
    u32 from;
    u32 to;
    byte phase;         // 0 fading out `from`, 1 fading in `to`
    byte switchLatch;   // set for the one tick in which alpha first exceeds 1.2
    u32 starfieldMode;
    byte quitWhenDark;
};

struct InputSnapshot {
    byte escape;
    byte up, down, left, right;
    byte keyA, keyZ;
    byte space;
    byte leftPressed, rightPressed;
    byte leftHeld, rightHeld;
    float pointerX, pointerY;
    // Set while a screen runs behind a fade's veil or under a panel laid
    // over it: it hears nothing, and none of its buttons reports a click.
    byte veiled;
};

// What sampleInputFrom reads; the game fills it from Allegro's key[] and mouse_b,
// tests fill it by hand.
struct RawInput {
    byte escape, up, down, left, right, keyA, keyZ, space;
    int mouseButtons;   // bit 0 left, bit 1 right
    int mouseX, mouseY; // Allegro's y-down window coordinates
};

extern u32 currentScreen;
extern TransitionState transition;
extern InputSnapshot input;

extern float pulseA, pulseB;

extern byte quitRequested;
extern byte openManualRequested;
extern byte openWebsiteAfterExit;

// One row per screen id in use; the dispatchers do nothing for an id without
// a row or a row without that handler. The table stands above every screen
// (app/screentable.cpp), so no screen needs to know another.
struct ScreenHandlers {
    u32 id;
    void (*logic)();
    void (*render)();
    void (*enter)();    // setScreen's entry action
    void (*arrive)();   // the switch action at the darkest point of a fade into it
};
ScreenHandlers *handlersFor(u32 id);

void setScreen(u32 id);
void startTransition(u32 from, u32 to, u32 starfieldMode);
void runScreenLogic(u32 id);
void renderScreen(u32 id);
// Runs a handler behind the veil: every key flag and press edge cleared, the
// pointer and the held latches kept, so the screen draws as it would but can
// act on nothing. The fade runs both of its screens this way, so no screen
// has to remember not to act in one.
void runBehindVeil(void (*handler)());

// The main menu and the credits are wiped to black before they draw.
void clearToBlackFor(u32 screen);

void samplePointer();
// The snapshot's rules on the given device state; the pointer is set apart.
void sampleInputFrom(const RawInput &raw);
// The keyboard and mouse as Allegro sees them now.
RawInput readDeviceInput();

// One pass of the loop, in its one order: the input sampled once from `raw`
// with the pointer at (pointerX, pointerY), the ticks owed, the frame. The
// game's loop plays every owed tick in full (runOwedTicks) and draws
// (drawFrame); the headless driver owes one tick of the level's logic at a
// time and runs the frame without drawing. A null `ticks` owes none.
void runLoopPass(const RawInput &raw, float pointerX, float pointerY, void (*ticks)(), void (*frame)());
// The frame of the game's loop: the current screen drawn and presented.
void drawFrame();

void advancePulses();
void resetPulses();
void blackoutWait(int n);
// One frame of blackoutWait: black, flipped, the processor yielded. Tests put
// their own here, which also stands in for the timer.
extern void (*presentBlackFrame)();
// The counting of blackoutWait: consumes every owed tick; false once the
// countdown has fallen below zero.
bool consumeBlackoutTicks(int *countdown);

void transitionTick();
void transitionFrame();
void introTick();
void introFrame();
void resetIntro();

// One turn of the main loop's tick section: screen logic, shared animations,
// audio, for every tick owed, but never more than MAX_TICKS_PER_FRAME.
extern const int32_t MAX_TICKS_PER_FRAME;
void runOwedTicks();
