// GfxDriverTool: started by the game's "Update Drivers" button. It tells the
// player which OpenGL renderer the desktop gives the game, whether that is a
// software rasteriser, and how to install the distribution's GPU driver, then
// opens the manual's page about drivers. The game has already closed when this
// runs, and a player who started it from a desktop menu has no terminal: the
// advice goes into a message box as well as onto standard output.

#include "app/launch.h"
#include "app/startup.h"

#include <GL/gl.h>
#include <GL/glx.h>
#include <X11/Xlib.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>

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

// The game directory is where this program lies, whatever folder it was
// started from: the kernel's own link to the running file, or failing that
// argv[0] made absolute.
static std::string gameDirectory(const char *argv0)
{
    char exe[1024];
    const ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
    std::string path;
    if (n > 0) {
        exe[n] = 0;
        path = exe;
    } else if (argv0) {
        path = argv0;
        char cwd[1024];
        if (path[0] != '/' && getcwd(cwd, sizeof cwd))
            path = std::string(cwd) + "/" + path;
    }
    setDataRootFromExecutable(path.c_str());
    return DataRoot[0] ? DataRoot : "/";
}

static std::string advice(const std::string &renderer, const std::string &vendor, const std::string &version)
{
    std::string text = "OpenGL renderer: " + renderer + "\nOpenGL vendor:   " + vendor +
                       "\nOpenGL version:  " + version + "\n\n";
    if (isSoftwareRenderer(renderer.c_str()))
        text += "This is a software renderer: your graphics card's driver is not in use.\n\n"
                "On Debian and Ubuntu, install the driver for your card:\n"
                "  AMD:    sudo apt install firmware-amd-graphics libgl1-mesa-dri\n"
                "  Intel:  sudo apt install libgl1-mesa-dri intel-media-va-driver\n"
                "  NVIDIA: sudo apt install nvidia-driver   (from the non-free section)\n"
                "then log out and back in, and run this tool again.\n";
    else
        text += "This is a hardware renderer: Delvemoor should run smoothly.\n";
    return text;
}

int main(int argc, char **argv)
{
    const std::string manual = "file://" + gameDirectory(argc > 0 ? argv[0] : nullptr) + "/manual.html#drivers";
    std::string vendor, version;
    std::string renderer = queryRenderer(&vendor, &version);

    printf("Delvemoor graphics driver check\n\n");
    if (renderer.empty()) {
        printf("No X display could be opened, so no OpenGL renderer could be asked.\n"
               "Start this tool from your desktop session.\n");
        return 1;
    }
    const std::string text = advice(renderer, vendor, version);
    printf("%s\nThe manual's page about drivers: %s\n", text.c_str(), manual.c_str());
    fflush(stdout);

    // The box waits for the player. "Open Manual" opens the drivers page, and
    // so does a box that cannot be shown at all: the page then says it all.
    const int choice = runAndWait({"xmessage", "-center", "-title", "Delvemoor graphics driver check",
                                   "-buttons", "Open Manual:0,Close:1", "-default", "Open Manual",
                                   "Delvemoor graphics driver check\n\n" + text});
    if (choice == 0 || choice == -1)
        openWithShell(manual.c_str());
    return 0;
}
