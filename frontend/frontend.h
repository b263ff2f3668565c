// The state of the screens around the level: the main menu, the selection
// screen and its password panel, options, help, credits and the exit screen.
// Each screen keeps its record for the whole run, so it reopens as it was
// left; the handlers themselves are in frontend/screens.h.
#pragma once

#include <cstdint>

// Main menu.
const int MENU_TITLE_START_Y = 510;
struct MainMenuState {
    int32_t titleY;
    uint8_t titleDropping;
    uint8_t titleSoundPending;
    int32_t markerStep;     // 0..8
    int32_t markerTimer;
};
extern MainMenuState menu;

// Selection screen.
extern int32_t selectedPlanet;   // 1..4
struct GameSelectState {
    float targetPlanet, targetMessage;
    bool messageChangePending;
    bool modeChangePending;
    int32_t rememberedMessage;   // the campaign's message while in custom mode
    float messageAlpha, modeAlpha;
    float passwordPulse;
    // The hint that explains the arrow the first time a mission opens.
    uint8_t arrowHint, hintPanel;
    float hintAlpha, hintDelay;
    float hintCounter, hintTint;
    int32_t hintStep;            // +1 or -1
    bool menuSoundPlayed;
};
extern GameSelectState selectScreen;

// The message line's ids beyond the fixed ones.
const int32_t MessagePlanetLocked = 4;
const int32_t MessageLevelUnreadable = 5;
const int32_t MessageCustomMode = 6;

// The object slot (ObjectFrameTable) of the turning globe that shows a planet.
int planetGlobeSlot(int32_t planet);

// Whether the start button may start the mission the screen shows.
bool missionCanStart();

// Password panel: the cursor in enteredText, and where typed keys come from
// (Allegro's keyboard buffer in the game: readkey's value, -1 when none).
extern int32_t cursorPos;
extern int (*nextTypedKey)();
void typePasswordKey(int key);
void clearTypedKeys();

// Options.
struct OptionsState {
    int32_t lastScroll, lastSound, lastMusic;
    float noticeFlash;
    uint8_t noticeRising;
};
extern OptionsState options;
// Sets the three sliders and their remembered values from the configuration.
void syncOptionsWithSettings();

// Credits.
const int CREDIT_STRING_COUNT = 88;
extern const char *const CreditLines[CREDIT_STRING_COUNT];
extern float creditScroll;

// Exit screen.
struct ExitScreenState {
    float slideAlpha, leftAlpha, rightAlpha;
    uint8_t stageSlide, stageRight, stageLeft, slideShowOn;
    int32_t currentSlide, nextSlide, slideTimer;
    uint8_t slideFadingOut;
};
extern ExitScreenState exitScreen;
void resetExitScreen();

// The maker's page: a page shipped in the game directory, which the exit
// screen's left button names and the shut-down opens.
extern const char MAKERS_PAGE_FILE[];
