// Frames per second of the intro and of the main-menu backdrop, drawn by the
// real render path into a real window (run it under Xvfb on a machine
// without a display). Usage: frame_rate <game directory> [seconds per screen]

#include "app/config.h"
#include "app/log.h"
#include "app/screens.h"
#include "app/startup.h"
#include "frontend/screens.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>
#include <jpgalleg.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>

static double measure(const char *name, void (*tick)(), void (*frame)(), double seconds)
{
    using Clock = std::chrono::steady_clock;
    auto start = Clock::now();
    long frames = 0;
    double elapsed = 0;
    while (elapsed < seconds) {
        if (tick)
            tick();
        advanceAnimationFrames();
        frame();
        presentFrame();
        frames++;
        elapsed = std::chrono::duration<double>(Clock::now() - start).count();
    }
    double fps = frames / elapsed;
    printf("%-28s %8.1f frames per second (%ld frames in %.1f s)\n", name, fps, frames, elapsed);
    return fps;
}

int main(int argc, char **argv)
{
    if (argc < 2) {
        fprintf(stderr, "usage: frame_rate <game directory> [seconds per screen]\n");
        return 2;
    }
    double seconds = argc > 2 ? atof(argv[2]) : 5.0;
    if (allegro_init() != 0 || install_timer() != 0 || install_allegro_gl() != 0 || jpgalleg_init() != 0) {
        fprintf(stderr, "frame_rate: the libraries did not start\n");
        return 1;
    }
    install_keyboard();
    install_mouse();
    install_sound(DIGI_NONE, MIDI_NONE, NULL);
    snprintf(DataRoot, sizeof DataRoot, "%s", argv[1]);
    openLogAt("/tmp/delvemoor-frame-rate.log");
    // The mode a software renderer accepts, set directly: the game's own
    // fall-back chain would stop at its notice box on such a machine.
    allegro_gl_clear_settings();
    allegro_gl_set(AGL_COLOR_DEPTH, 32);
    set_color_depth(32);
    allegro_gl_set(AGL_DOUBLEBUFFER, 1);
    allegro_gl_set(AGL_RENDERMETHOD, 1);
    allegro_gl_set(AGL_REQUIRE, AGL_DOUBLEBUFFER);
    allegro_gl_set(AGL_SUGGEST, AGL_COLOR_DEPTH | AGL_RENDERMETHOD);
    if (set_gfx_mode(GFX_OPENGL_WINDOWED, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0) < 0) {
        fprintf(stderr, "frame_rate: no OpenGL window: %s\n", allegro_error);
        return 1;
    }
    allegro_gl_use_mipmapping(-1);
    glAlphaFunc(GL_GREATER, 0.01f);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glEnable(GL_ALPHA_TEST);
    glDisable(GL_CULL_FACE);
    glViewport(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    printf("renderer: %s\n", (const char *)glGetString(GL_RENDERER));

    beginFrame2D();
    loadGameData();
    linkObjectData();
    currentScreen = MainMenu;
    measure("intro", nullptr, introFrame, seconds);
    measure("main-menu backdrop", mainMenuTick, mainMenuFrame, seconds);
    endFrame2D();
    closeLog();
    return 0;
}
END_OF_MAIN()
