#include "app/game.h"
#include "app/atomic_write.h"
#include "app/config.h"
#include "app/launch.h"
#include "app/log.h"
#include "app/paths.h"
#include "app/screens.h"
#include "app/signals.h"
#include "app/startup.h"
#include "app/xsession.h"
#include "app/gamedir.h"
#include "app/window_scale.h"
#include "editor/editor.h"
#include "frontend/frontend.h"
#include "frontend/widgets.h"
#include "render/draw.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>
#include <vector>


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
        if (gameWindowGone() && !quitRequested) {
            logLine("The game's window was destroyed");
            quitRequested = 1;
        }
        if (quitSignalReceived() && !quitRequested) {
            logLine("Asked to end by signal %d", quitSignalReceived());
            quitRequested = 1;
        }
    }
}

// The display may be lost in the middle of a normal shut-down: the player's
// level is kept once, not twice. (The configuration may well be written
// twice; each write replaces the file whole.) The level comes first, so a
// configuration that cannot be written (a fatal stop) does not lose it.
static std::atomic<int> editorWorkKept{0};

static void keepEditorWorkOnce()
{
    if (editorWorkKept.exchange(1) == 0)
        keepUnsavedEditorWork();
}

// The X display has gone: everything that needs no X is done here and the
// process ends at once (see app/xsession.cpp for why it cannot return). No
// message box can be shown any more, so a configuration that cannot be
// written is only logged.
static void endWithoutDisplay()
{
    logLine("The X display has gone: ending without it");
    keepEditorWorkOnce();
    tryWriteConfig();
    sealLog();
    _exit(0);
}

void shutDown()
{
    endFrame2D();
    logLine("Starting shutdown routines...");
    keepEditorWorkOnce();
    writeConfig();
    releaseGameData();
    // Leaving graphics mode destroys the window; when someone else already
    // has, the library's clean-up meets X errors, and the OpenGL layer has
    // put back Xlib's default handling of them by then, which ends the
    // process with status 1 and the log still open. Everything worth keeping
    // is on disk at this point.
    if (gameWindowGone()) {
        closeLog();
        _exit(0);
    }
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

// A save cut short by a kill leaves its hidden temporary file behind; the
// file it was to replace is whole, so the leftover only takes up room.
static void removeLeftoversOfInterruptedSaves()
{
    const std::string config = playerFilePath(PlayerConfig);
    const std::string folders[] = {config.substr(0, config.find_last_of('/')), playerFilePath(PlayerCustomFolder)};
    for (const std::string &folder : folders) {
        std::vector<std::string> removed;
        removeStaleTemporaries(folder, &removed);
        for (const std::string &name : removed)
            logLine("Removed %s/%s, left by a save that was cut short", folder.c_str(), name.c_str());
    }
}

int runGame()
{
    noteInheritedSignals();
    startLibraries();
    installQuitSignals();
    removeLeftoversOfInterruptedSaves();
    readConfig();
    setVideoMode();
    // A click on the black border around an enlarged picture reaches no widget.
    readMouseButtons = gameMouseButtons;
    LOCK_VARIABLE(closeButtonPressed);
    LOCK_FUNCTION(onCloseButton);
    set_close_button_callback(onCloseButton);
    watchXSession(endWithoutDisplay);
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
