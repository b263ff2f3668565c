#include "app/game.h"
#include "app/config.h"
#include "app/launch.h"
#include "app/log.h"
#include "app/screens.h"
#include "app/signals.h"
#include "app/startup.h"
#include "app/window_scale.h"
#include "editor/editor.h"
#include "frontend/frontend.h"
#include "frontend/widgets.h"
#include "render/draw.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>

#include <cstdio>
#include <cstdlib>


// Closing the window is the player's way of saying "quit now": the game ends
// through the same shut-down as the exit screen.
static volatile int closeButtonPressed = 0;

static void onCloseButton()
{
    closeButtonPressed = 1;
}
END_OF_FUNCTION(onCloseButton)

void runMainLoop()
{
    while (!quitRequested) {
        // The pointer first: the buttons leave out a press made on the
        // border around the picture.
        const PicturePoint pointer = samplePicturePointer();
        runLoopPass(readDeviceInput(), (float)pointer.x, (float)(SCREEN_HEIGHT - pointer.y), runOwedTicks, drawFrame);
        rest(0);
        checkGlError();
        if (openManualRequested)
            openManualAndQuit();
        if (closeButtonPressed)
            quitRequested = 1;
        if (quitSignalReceived() && !quitRequested) {
            logLine("Asked to end by signal %d", quitSignalReceived());
            quitRequested = 1;
        }
    }
}

void shutDown()
{
    endFrame2D();
    logLine("Starting shutdown routines...");
    writeConfig();
    keepUnsavedEditorWork();
    releaseGameData();
    set_gfx_mode(GFX_TEXT, 0, 0, 0, 0);
    allegro_exit();
    // The browser starts in the user's home rather than in the game directory,
    // which may go away with an uninstall while the browser still runs.
    if (openWebsiteAfterExit) {
        char page[1100];
        snprintf(page, sizeof page, "%s/%s", DataRoot, MAKERS_PAGE_FILE);
        openWithShell(page, getenv("HOME"));
    }
    closeLog();
}

int runGame()
{
    noteInheritedSignals();
    startLibraries();
    installQuitSignals();
    readConfig();
    setVideoMode();
    // A click on the black border around an enlarged picture reaches no widget.
    readMouseButtons = gameMouseButtons;
    LOCK_VARIABLE(closeButtonPressed);
    LOCK_FUNCTION(onCloseButton);
    set_close_button_callback(onCloseButton);
    logSoundStartup();

    beginFrame2D();
    runLoadScreen(loadEverything);
    endFrame2D();

    beginFrame2D();
    installTimers();
    if (!quitRequested)
        runMainLoop();
    shutDown();
    return 0;
}
