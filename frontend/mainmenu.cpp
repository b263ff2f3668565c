// The main menu: the hub every other screen returns to. The title slides in
// once per run; the six buttons each fade to their screen.

#include "frontend/frontend.h"
#include "app/screens.h"
#include "audio/audio.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/screens.h"
#include "render/draw.h"
#include "render/stars.h"
#include "world/passwords.h"

#include <allegro.h>

MainMenuState menu = {MENU_TITLE_START_Y, 1, 1, 0, 0};

static const int TITLE_REST_Y = 354;
static const int MARKER_SPACING = 28;
static const int MARKER_BASE_Y = 54;

static void stepMarkers()
{
    if (menu.markerTimer > 30) {
        menu.markerTimer = 0;
        menu.markerStep = menu.markerStep == 8 ? 0 : menu.markerStep + 1;
    } else {
        menu.markerTimer++;
    }
}

static void slideTitle()
{
    if (!menu.titleDropping)
        return;
    if (menu.titleSoundPending) {
        menu.titleSoundPending = 0;
        SoundRequest = TitleSound;
    }
    if (menu.titleY > 374)
        menu.titleY -= 3;
    else if (menu.titleY > 359)
        menu.titleY -= 2;
    else
        menu.titleY -= 1;
    if (menu.titleY <= TITLE_REST_Y) {
        menu.titleY = TITLE_REST_Y;
        menu.titleDropping = 0;
    }
}

void mainMenuTick()
{
    stepMarkers();
    // The shortcut waits for a finished fade (a fade's screens hear no keys):
    // taken during one, it would leave the veil over the credits, which can
    // only be left once the veil is gone.
    if (input.right) {
        setScreen(CreditsScreen);
        return;
    }
    tickFallingStars();
    slideTitle();
}

struct MenuEntry {
    Button *button;
    const char *label;
};

// Drawn in this order; the clicks are taken in the order of the table below.
static const MenuEntry DRAW_ORDER[] = {
    {&mainNewGameButton, "New Game"}, {&mainEditorButton, "Editor"}, {&mainCreditsButton, "Credits"},
    {&mainExitButton, "Exit Game"},   {&mainHelpButton, "Help"},     {&mainOptionsButton, "Options"},
};

static void newGame()
{
    selectedPlanet = 1;
    startTransition(MainMenu, GameSelect, StarfieldKeep);
    enteredText.clear();
    cursorPos = 0;
    clearTypedKeys();
}

static void handleButtons()
{
    Button *order[] = {&mainNewGameButton, &mainEditorButton, &mainCreditsButton,
                       &mainExitButton,    &mainHelpButton,   &mainOptionsButton};
    for (Button *b : order)
        updateButton(*b, input.pointerX, input.pointerY);
    // One click per frame: the first fade started wins.
    if (wasClicked(mainNewGameButton))
        newGame();
    else if (wasClicked(mainEditorButton))
        startTransition(MainMenu, LevelEditor, StarfieldKeep);
    else if (wasClicked(mainCreditsButton))
        startTransition(MainMenu, CreditsScreen, StarfieldKeep);
    else if (wasClicked(mainExitButton)) {
        startTransition(MainMenu, ExitScreen, StarfieldKeep);
        resetExitScreen();
    } else if (wasClicked(mainHelpButton))
        startTransition(MainMenu, Help, StarfieldKeep);
    else if (wasClicked(mainOptionsButton))
        startTransition(MainMenu, Options, StarfieldKeep);
}

void mainMenuFrame()
{
    drawMenuBackdrop();
    drawTexture(320, SCREEN_HEIGHT / 2 - 15, SpriteTextures[34], 1, 1, 1, 1);
    drawTexture(320, (float)menu.titleY, SpriteTextures[35], 1, 1, 1, 1);
    drawTexture(320, SCREEN_HEIGHT - 385, SpriteTextures[36], 1, 1, 1, 1);

    float markerY = (float)(MARKER_BASE_Y + MARKER_SPACING * menu.markerStep);
    drawTexture(205, markerY, SpriteTextures[43], 1, 1, 1, 1);
    drawTexture(436, markerY, SpriteTextures[43], 1, 1, 1, 1);

    for (const MenuEntry &e : DRAW_ORDER) {
        drawLabelledButton(*e.button, e.label);
    }

    // Behind the veil the menu is a still picture, without the pointer.
    if (!input.veiled)
        drawPointer();
    handleButtons();
    creditScroll = -30;
}
