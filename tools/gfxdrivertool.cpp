// GfxDriverTool: started by the game's "Update Drivers" button. It tells the
// player which OpenGL renderer the desktop gives the game, whether that is a
// software rasteriser, and how to install the distribution's GPU driver, then
// opens the manual's page about drivers.

#include "app/launch.h"
#include "app/startup.h"

#include <GL/gl.h>
#include <GL/glx.h>
#include <X11/Xlib.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>

// The renderer the X server's default screen gives a plain GLX context, which
// is what the game's window gets too. Empty when there is no display.
static std::string queryRenderer(std::string *vendor, std::string *version)
{
    Display *display = XOpenDisplay(nullptr);
    if (!display)
        return "";
    int attributes[] = {GLX_RGBA, GLX_DOUBLEBUFFER, None};
    XVisualInfo *visual = glXChooseVisual(display, DefaultScreen(display), attributes);
    std::string renderer;
    if (visual) {
        Window root = RootWindow(display, visual->screen);
        XSetWindowAttributes wa = {};
        wa.colormap = XCreateColormap(display, root, visual->visual, AllocNone);
        Window window = XCreateWindow(display, root, 0, 0, 16, 16, 0, visual->depth, InputOutput,
                                      visual->visual, CWColormap, &wa);
        GLXContext context = glXCreateContext(display, visual, nullptr, True);
        if (context && glXMakeCurrent(display, window, context)) {
            const char *r = (const char *)glGetString(GL_RENDERER);
            const char *v = (const char *)glGetString(GL_VENDOR);
            const char *ver = (const char *)glGetString(GL_VERSION);
            renderer = r ? r : "";
            *vendor = v ? v : "";
            *version = ver ? ver : "";
            glXMakeCurrent(display, None, nullptr);
        }
        if (context)
            glXDestroyContext(display, context);
        XDestroyWindow(display, window);
        XFreeColormap(display, wa.colormap);
        XFree(visual);
    }
    XCloseDisplay(display);
    return renderer;
}

int main(int argc, char **argv)
{
    (void)argc;
    std::string vendor, version;
    std::string renderer = queryRenderer(&vendor, &version);

    printf("Delvemoor graphics driver check\n\n");
    if (renderer.empty()) {
        printf("No X display could be opened, so no OpenGL renderer could be asked.\n"
               "Start this tool from your desktop session.\n");
        return 1;
    }
    printf("OpenGL renderer: %s\nOpenGL vendor:   %s\nOpenGL version:  %s\n\n", renderer.c_str(),
           vendor.c_str(), version.c_str());

    if (isSoftwareRenderer(renderer.c_str())) {
        printf("This is a software renderer: your graphics card's driver is not in use.\n\n"
               "On Debian and Ubuntu, install the driver for your card:\n"
               "  AMD:    sudo apt install firmware-amd-graphics libgl1-mesa-dri\n"
               "  Intel:  sudo apt install libgl1-mesa-dri intel-media-va-driver\n"
               "  NVIDIA: sudo apt install nvidia-driver   (from the non-free section)\n"
               "then log out and back in, and run this tool again.\n");
    } else {
        printf("This is a hardware renderer: Delvemoor should run smoothly.\n");
    }

    // The manual lives beside this tool in the game directory.
    char path[2048];
    setDataRootFromExecutable(argv[0]);
    snprintf(path, sizeof path, "%s/manual.html#drivers", DataRoot[0] ? DataRoot : ".");
    if (path[0] != '/') {
        char cwd[1024];
        if (getcwd(cwd, sizeof cwd)) {
            std::string full = std::string(cwd) + "/" + path;
            snprintf(path, sizeof path, "%s", full.c_str());
        }
    }
    printf("\nOpening the manual's page about drivers: %s\n", path);
    openWithShell((std::string("file://") + path).c_str());
    return 0;
}
