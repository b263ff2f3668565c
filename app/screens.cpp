// The spine of the game: screen states, the fade through black between them,
// the per-frame input snapshot, the shared pulses and the tick timer.

#include "app/screens.h"
#include "app/window_scale.h"
#include "app/log.h"
#include "audio/audio.h"
#include "game/mission.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>

u32 currentScreen = Intro;
TransitionState transition = {0.0f, 0, 0, 0, 0, 0, 0};
InputSnapshot input = {};

float pulseA = 0.0f, pulseB = 0.0f;
static float pulseSpeedA = 0.04f, pulseSpeedB = 0.02f;
static bool pulseRisingA = true, pulseRisingB = true;

byte quitRequested = 0;
byte openManualRequested = 0;
byte openWebsiteAfterExit = 0;

static bool introStarted = false;

// ---------------------------------------------------------------------------
// Dispatch through the screen table (app/screentable.cpp). A missing row or
// handler does nothing.

void runScreenLogic(u32 id)
{
    ScreenHandlers *row = handlersFor(id);
    if (row && row->logic)
        row->logic();
}

void renderScreen(u32 id)
{
    ScreenHandlers *row = handlersFor(id);
    if (row && row->render)
        row->render();
}

// ---------------------------------------------------------------------------
// Changing screens

void setScreen(u32 id)
{
    // The slow-driver warning belongs to start-up alone.
    if (id == SlowDriverWarning)
        return;
    if (id == Transition) {
        transition.alpha = 0.0f;
        transition.phase = 0;
    }
    ScreenHandlers *row = handlersFor(id);
    if (row && row->enter)
        row->enter();
    currentScreen = id;
}

void startTransition(u32 from, u32 to, u32 starfieldMode)
{
    currentScreen = Transition;
    transition.to = to;
    transition.from = from;
    transition.alpha = 0.0f;
    transition.starfieldMode = starfieldMode;
}

static InputSnapshot veiledCopy(const InputSnapshot &heard)
{
    InputSnapshot quiet = {};
    quiet.pointerX = heard.pointerX;
    quiet.pointerY = heard.pointerY;
    quiet.leftHeld = heard.leftHeld;
    quiet.rightHeld = heard.rightHeld;
    quiet.veiled = 1;
    return quiet;
}

void runBehindVeil(void (*handler)())
{
    const InputSnapshot heard = input;
    input = veiledCopy(heard);
    handler();
    input = heard;
}

static void runScreenBehindVeil(void (*run)(u32), u32 id)
{
    const InputSnapshot heard = input;
    input = veiledCopy(heard);
    run(id);
    input = heard;
}

void transitionTick()
{
    // The step is a double added to the float and stored back as a float, and
    // the test is in double precision: alpha passes 1.2 on the 16th tick.
    if ((double)transition.alpha > 1.2 && !transition.switchLatch)
        transition.switchLatch = 1;

    if ((double)transition.alpha > 1.2 || transition.phase == 1) {
        runScreenBehindVeil(runScreenLogic, transition.to);
        transition.alpha = (float)(transition.alpha - 0.08);
        transition.phase = 1;
        if (transition.switchLatch) {
            ScreenHandlers *row = handlersFor(transition.to);
            if (row && row->arrive)
                row->arrive();
        }
    } else {
        runScreenBehindVeil(runScreenLogic, transition.from);
        transition.alpha = (float)(transition.alpha + 0.08);
    }

    if (transition.starfieldMode == StarfieldMenu)
        prefillStars();
    else if (transition.starfieldMode == StarfieldGame)
        prefillGameStars();
    transition.starfieldMode = StarfieldKeep;
    transition.switchLatch = 0;
}

static void blackVeil(float alpha)
{
    resetDrawState();
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, alpha);
}

void transitionFrame()
{
    if (transition.phase == 0) {
        runScreenBehindVeil(renderScreen, transition.from);
        blackVeil(transition.alpha);
        return;
    }
    if (transition.quitWhenDark)
        quitRequested = 1;
    runScreenBehindVeil(renderScreen, transition.to);
    blackVeil(transition.alpha);
    if (transition.alpha <= 0.0f) {
        setScreen(transition.to);
        transition.alpha = 0.0f;
        transition.phase = 0;
    }
}

// Holds the screen black for n + 1 ticks without running any logic, and
// swallows the ticks that piled up while a level or the catalogue loaded.
bool consumeBlackoutTicks(int *countdown)
{
    bool active = true;
    while (tickCounter > 0) {
        tickCounter--;
        (*countdown)--;
        if (*countdown < 0)
            active = false;
    }
    return active;
}

void clearToBlackFor(u32 screen)
{
    if (screen == MainMenu || screen == CreditsScreen)
        clearToBlack();
}

static void drawBlackFrame()
{
    clearToBlackFor(currentScreen);
    blackVeil(1.0f);
    presentFrame();
    rest(0);
}

void (*presentBlackFrame)() = drawBlackFrame;

void blackoutWait(int n)
{
    int countdown = n;
    bool active = true;
    while (active) {
        active = consumeBlackoutTicks(&countdown);
        presentBlackFrame();
    }
}

// ---------------------------------------------------------------------------
// Intro

void introTick()
{
    if (introStarted)
        return;
    introStarted = true;
    startTransition(Intro, MainMenu, StarfieldMenu);
    requestMusic(MenuMusic);
}

void introFrame()
{
    resetDrawState();
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0.3f, 0.3f, 0.3f, 1.0f);
    drawTexture(320, 260, IntroTextures[0], 1, 1, 1, 1);
    drawTexture(320, 160, IntroTextures[1], 1, 1, 1, 1);
}

void resetIntro()
{
    introStarted = false;
}

// ---------------------------------------------------------------------------
// Input

void samplePointer()
{
    const PicturePoint p = samplePicturePointer();
    input.pointerX = (float)p.x;
    input.pointerY = (float)(SCREEN_HEIGHT - p.y);
}

void sampleInputFrom(const RawInput &raw)
{
    if (input.leftPressed)
        input.leftHeld = 1;
    if (input.rightPressed)
        input.rightHeld = 1;
    if (!(raw.mouseButtons & 1))
        input.leftHeld = 0;
    if (!(raw.mouseButtons & 2))
        input.rightHeld = 0;

    input.escape = raw.escape;
    input.up = raw.up;
    input.down = raw.down;
    input.left = raw.left;
    input.right = raw.right;
    input.keyA = raw.keyA;
    input.keyZ = raw.keyZ;
    input.space = raw.space;
    input.leftPressed = 0;
    input.rightPressed = 0;

    // The editor paints while the button is held, so it sees a press every frame.
    if (currentScreen == LevelEditor) {
        input.leftHeld = 0;
        input.rightHeld = 0;
    }
    if (!input.leftHeld && (raw.mouseButtons & 1))
        input.leftPressed = 1;
    if (!input.rightHeld && (raw.mouseButtons & 2))
        input.rightPressed = 1;
}

RawInput readDeviceInput()
{
    RawInput raw;
    raw.escape = key[KEY_ESC] ? 1 : 0;
    raw.up = key[KEY_UP] ? 1 : 0;
    raw.down = key[KEY_DOWN] ? 1 : 0;
    raw.left = key[KEY_LEFT] ? 1 : 0;
    raw.right = key[KEY_RIGHT] ? 1 : 0;
    raw.keyA = key[KEY_A] ? 1 : 0;
    raw.keyZ = key[KEY_Z] ? 1 : 0;
    raw.space = key[KEY_SPACE] ? 1 : 0;
    raw.mouseButtons = gameMouseButtons();
    raw.mouseX = mouse_x;
    raw.mouseY = mouse_y;
    return raw;
}

void runLoopPass(const RawInput &raw, float pointerX, float pointerY, void (*ticks)(), void (*frame)())
{
    sampleInputFrom(raw);
    input.pointerX = pointerX;
    input.pointerY = pointerY;
    if (ticks)
        ticks();
    frame();
}

void drawFrame()
{
    clearToBlackFor(currentScreen);
    renderScreen(currentScreen);
    presentFrame();
    framesThisSecond++;
}

// ---------------------------------------------------------------------------
// Shared pulses: two glows that breathe between 0 and 1, slower near the ends.

static void advancePulse(float &value, float &speed, bool &rising)
{
    float step = 3.0f * speed;
    value += rising ? step : -step;
    if (value < 0.0f)
        rising = true;
    if (value > 1.0f)
        rising = false;
    if (value <= 0.1f)
        speed = 0.007f;
    else if (value > 0.1f && value < 0.9f)
        speed = 0.01f;
    else if (value > 0.9f && value <= 0.95f)
        speed = 0.008f;
    else if (value > 0.95f)
        speed = 0.007f;
}

void advancePulses()
{
    advancePulse(pulseA, pulseSpeedA, pulseRisingA);
    advancePulse(pulseB, pulseSpeedB, pulseRisingB);
}

void resetPulses()
{
    pulseA = pulseB = 0.0f;
    pulseSpeedA = 0.04f;
    pulseSpeedB = 0.02f;
    pulseRisingA = pulseRisingB = true;
}

// ---------------------------------------------------------------------------
// The tick section of the main loop

// A stopped process, or a machine waking from sleep, comes back owing every
// tick of the pause, and played out before the next picture they would be
// minutes or hours of logic with the window frozen. One frame plays at most
// three seconds' worth and forgets the rest, as if the game had been paused
// meanwhile; an ordinary slow frame owes far fewer and loses nothing.
extern const int32_t MAX_TICKS_PER_FRAME = 3 * 40;

void runOwedTicks()
{
    const int32_t owed = tickCounter;
    if (owed > MAX_TICKS_PER_FRAME) {
        tickCounter -= owed - MAX_TICKS_PER_FRAME;  // ticks counted meanwhile still count
        logLine("Skipped %d ticks owed after a pause", (int)(owed - MAX_TICKS_PER_FRAME));
    }
    while (tickCounter > 0) {
        runScreenLogic(currentScreen);
        advancePulses();
        advanceAnimationFrames(mission.hatched);
        audioUpdate();
        tickCounter--;
    }
}
