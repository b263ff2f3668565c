// Bringing the game up before the main loop and taking it down afterwards.

#include "app/startup.h"
#include "app/config.h"
#include "app/log.h"
#include "app/paths.h"
#include "app/screens.h"
#include "app/window_icon.h"
#include "app/window_scale.h"
#include "audio/audio.h"
#include "frontend/frontend.h"
#include "frontend/widgets.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/textures.h"
#include "world/catalogue.h"
#include "world/passwords.h"

#include <allegro.h>
#include <alleggl.h>
#include <jpgalleg.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

static unsigned char soundRetryPending = 0;

// Shown when the sound device cannot be opened twice.
static const char SUPPORT_ADDRESS[] = "the Delvemoor issue tracker (see README.md)";

static void installOrDie(bool failed, const char *logText, const char *fatalText, const char *okText)
{
    if (failed) {
        logLine("%s", logText);
        fatalError("%s", fatalText);
    }
    logLine("%s", okText);
}

// Without a sound device the library's autodetection settles on its silent
// driver and reports success: the player would hear nothing and be told
// nothing. The silent driver counts as the failure it is.
static bool startSound()
{
    if (install_sound(DIGI_AUTODETECT, MIDI_NONE, NULL) == -1)
        return false;
    if (digi_driver && digi_driver->id != DIGI_NONE)
        return true;
    remove_sound();
    return false;
}

void startLibraries()
{
    nameGameWindow();
    if (allegro_init() != 0) {
        // No log and no message box can exist yet (under Linux this is what
        // happens without an X display), so the terminal is told why.
        fprintf(stderr,
                "Delvemoor: the Allegro library could not start%s%s.\n"
                "The game needs an X display: start it from your desktop, or under Xvfb.\n",
                allegro_error[0] ? ": " : "", allegro_error);
        exit(-1);
    }

    char executable[1024];
    get_executable_name(executable, sizeof executable);
    setDataRootFromExecutable(executable);

    openLog();
    preparePlayerFiles();

    set_window_title("Delvemoor");
    logLine("Window title set");

    installOrDie(install_keyboard() != 0, "# ERROR! # Could not initialize keyboard!",
                 "Could not install keyboard.\n", "Keyboard installed");
    installOrDie(install_timer() == -1, "# ERROR! # Could not initialize timer!",
                 "Could not install timer.\n", "Timer installed");
    installOrDie(install_mouse() == -1, "# ERROR! # Could not initialize mouse!",
                 "Could not install mouse.\n", "Mouse installed");
    installOrDie(install_allegro_gl() == -1, "# ERROR! # Could not initialize AllegroGL!",
                 "Could not initialize AllegroGL.\n", "AllegroGL initialized");
    installOrDie(jpgalleg_init() == -1, "# ERROR! # Could not initialize JPGAlleg!",
                 "Could not initialize JPGAlleg.\n", "JPGAlleg initialized");

    if (!startSound()) {
        soundRetryPending = 1;
        logLine("Could Not Initialize Sound. Will Try Again Later");
    } else {
        logLine("Sound initialized");
    }

    srand((unsigned)time(NULL));
    logLine("Random seed set successfully!");

    if (soundRetryPending) {
        if (!startSound()) {
            logLine("# ERROR! # Could not initialize sound devices. Continuing with them disabled.");
            allegro_message("Could not initialize sound devices.\nSound support disabled.\n\n"
                            "Try restarting the program,\nif the problem persists contact support:\n%s",
                            SUPPORT_ADDRESS);
        } else {
            logLine("Sound initialized");
        }
    }
}

// The renderers that mean "no real driver": the Windows ones the game has
// always warned about and Mesa's software rasterisers.
bool isSoftwareRenderer(const char *renderer)
{
    static const char *const names[] = {"GDI Generic", "Microsoft Corporation", "llvmpipe", "softpipe",
                                        "Software Rasterizer"};
    if (!renderer)
        return false;
    for (const char *name : names)
        if (strstr(renderer, name))
            return true;
    return false;
}

static int tryMode(int driver, int depth, int requireFlags, int suggestFlags)
{
    allegro_gl_set(AGL_COLOR_DEPTH, depth);
    set_color_depth(depth);
    allegro_gl_set(AGL_DOUBLEBUFFER, -1);
    allegro_gl_set(AGL_RENDERMETHOD, -1);
    allegro_gl_set(AGL_REQUIRE, requireFlags);
    allegro_gl_set(AGL_SUGGEST, suggestFlags);
    return set_gfx_mode(driver, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0);
}

struct FallbackMode {
    unsigned char fullscreen;
    unsigned char colorDepth32;
    const char *failLine;  // null: nothing logged when it fails
};

static const FallbackMode fullscreenChain[4] = {
    {1, 1, "Failed to set 32-bit Fullscreen. Attempting 16-bit Fullscreen..."},
    {1, 0, "Failed to set 16-bit Fullscreen. Attempting 32-bit Windowed..."},
    {0, 1, "Failed to set 32-bit Windowed. Attempting 16-bit Windowed..."},
    {0, 0, nullptr},
};
static const FallbackMode windowedChain[4] = {
    {0, 1, "Failed to set 32-bit Windowed. Attempting 16-bit Windowed..."},
    {0, 0, nullptr},
    {1, 1, "Failed to set 32-bit Fullscreen. Attempting 16-bit Fullscreen..."},
    {1, 0, nullptr},
};

static bool tryFallbackChain()
{
    const FallbackMode *chain = settings.fullscreen ? fullscreenChain : windowedChain;
    for (int i = 0; i < 4; i++) {
        const FallbackMode &mode = chain[i];
        settings.fullscreen = mode.fullscreen;
        settings.colorDepth32 = mode.colorDepth32;
        int driver = mode.fullscreen ? GFX_OPENGL_FULLSCREEN : GFX_OPENGL_WINDOWED;
        if (tryMode(driver, mode.colorDepth32 ? 32 : 16, AGL_RENDERMETHOD, AGL_COLOR_DEPTH | AGL_DOUBLEBUFFER) >= 0)
            return true;
        if (mode.failLine)
            logLine("%s", mode.failLine);
    }
    return false;
}

// Mesa's software renderers refuse every mode that requires a render method;
// with the method only suggested they open a window, so this last try keeps
// the game playable on machines without a GPU driver. The library's reason
// for the requested mode is already in the log, and the fall-backs fail for
// the same cause: it is not repeated here.
static bool trySuggestedRenderMethod()
{
    logLine("Attempting 32-bit windowed video mode without a required render method...");
    settings.fullscreen = 0;
    settings.colorDepth32 = 1;
    if (tryMode(GFX_OPENGL_WINDOWED, 32, AGL_DOUBLEBUFFER, AGL_COLOR_DEPTH | AGL_RENDERMETHOD) >= 0)
        return true;
    logLine("Failed to set 32-bit Windowed without a required render method.");
    return false;
}

void setVideoMode()
{
    allegro_gl_clear_settings();
    int depth = settings.colorDepth32 ? 32 : 16;
    logLine(settings.colorDepth32 ? "Setting 32-bit video mode..." : "Setting 16-bit video mode...");
    allegro_gl_set(AGL_COLOR_DEPTH, depth);
    set_color_depth(depth);
    allegro_gl_set(AGL_DOUBLEBUFFER, -1);
    allegro_gl_set(AGL_RENDERMETHOD, -1);
    allegro_gl_set(AGL_REQUIRE, AGL_DOUBLEBUFFER | AGL_RENDERMETHOD);
    allegro_gl_set(AGL_SUGGEST, AGL_COLOR_DEPTH);
    logLine("Graphical options selected");

    logLine(settings.fullscreen ? "Attempting fullscreen video mode..." : "Attempting windowed video mode...");
    int driver = settings.fullscreen ? GFX_OPENGL_FULLSCREEN : GFX_OPENGL_WINDOWED;
    if (set_gfx_mode(driver, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0) >= 0) {
        logLine("Video mode set successfully!");
    } else {
        set_gfx_mode(GFX_TEXT, 0, 0, 0, 0);
        logLine("# ERROR! # %s", allegro_error);
        logLine("# ERROR! # Failed to set requested Video Mode. Attempting 16-bit Fullscreen...");
        // Only a real display can show the notice; without one it would
        // print to the terminal, which tells the player nothing new.
        allegro_message("Failed to set requested Video Mode. Trying alternatives...");
        if (tryFallbackChain() || trySuggestedRenderMethod()) {
            logLine("Substitute video mode set successfully!");
        } else {
            logLine("# ERROR! # %s", allegro_error);
            logLine("# ERROR! # Impossible to set graphics mode!");
            fatalError("Impossible to set graphics mode. Please refer to FAQ");
        }
    }

    logLine("READING OPENGL SPECIFICATIONS");
    const char *version = (const char *)glGetString(GL_VERSION);
    const char *vendor = (const char *)glGetString(GL_VENDOR);
    const char *renderer = (const char *)glGetString(GL_RENDERER);
    logLine("OpenGL Version: %s", version ? version : "");
    logLine("OpenGL Vendor: %s", vendor ? vendor : "");
    logLine("OpenGL Card: %s", renderer ? renderer : "");

    if (isSoftwareRenderer(renderer))
        currentScreen = SlowDriverWarning;

    allegro_gl_use_mipmapping(-1);
    keepFrameMemory();

    logLine("Setting up blender...");
    logLine("Setting up viewport...");
    logLine("Setting up polygon mode...");
    setDrawingState();
    glClearColor(0, 0, 0, 0);
    setGameWindowIcon();
    fitWindowToDesktop(!settings.fullscreen);
    logLine("Graphical/Video Mode setup completed!");
}

void logSoundStartup()
{
    logLine("Initializing sound devices...");
    logLine("Sound initialization complete!");
}

void loadGameData()
{
    logLine("Loading game data...");
    loadSounds();
    logLine("Sound data loaded");
    loadImageData();
    logLine("Image data loaded");
    linkImageData();
    logLine("Image data linked");
    buildCampaignLevelNames();
    buildPasswordTable();
    loadLevelCatalogue();
    syncOptionsWithSettings();
    linkTerrainSet(1);
    prefillStars();
}

void linkObjectData()
{
    logLine("Linking all object data...");
    // Buttons and sliders keep references to GuiTextures slots, so they draw
    // whatever those slots hold.
    linkWidgetFrames();
    // The status line and the launch panel name their sheet by its size, read
    // as they draw: nothing of theirs to link.
    logLine("All object data linked successfully!");
}

void loadEverything()
{
    loadGameData();
    linkObjectData();
}

void releaseGameData()
{
    logLine("De-allocating memory...");
    logLine("Memory de-allocation complete");
}
