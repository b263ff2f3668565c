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

// What to do per maker of the card. A software renderer names no card (its
// strings say Mesa and llvmpipe), so the card is read from the kernel's list
// of display devices. Mesa's OpenGL drivers for AMD and Intel cards come in
// libgl1-mesa-dri, which is always installed where the software renderer
// runs: what is missing there is the card's firmware, which Debian 12 keeps
// in its non-free-firmware section. NVIDIA's own driver is in non-free.
struct CardAdvice {
    unsigned pciVendor;
    const char *text;
};
static const CardAdvice cardAdvice[] = {
    {0x1002,
     "  AMD:    add non-free-firmware to the Debian sources, then\n"
     "          sudo apt update && sudo apt install firmware-amd-graphics\n"},
    {0x8086,
     "  Intel:  the OpenGL driver (Mesa) is installed already; make sure the\n"
     "          kernel does not start with nomodeset, add non-free-firmware to the\n"
     "          Debian sources, then sudo apt install firmware-misc-nonfree\n"},
    {0x10de,
     "  NVIDIA: add non-free and non-free-firmware to the Debian sources, then\n"
     "          sudo apt update && sudo apt install linux-headers-amd64 nvidia-driver\n"},
};
static const char virtualMachineAdvice[] =
    "  In a virtual machine: turn on 3D acceleration in its display settings.\n";

// The makers of the display devices the kernel lists (PCI vendor ids).
static std::vector<unsigned> displayCardVendors()
{
    std::vector<unsigned> vendors;
    for (int card = 0; card < 8; card++) {
        char path[64];
        snprintf(path, sizeof path, "/sys/class/drm/card%d/device/vendor", card);
        FILE *f = fopen(path, "r");
        if (!f)
            continue;
        unsigned id = 0;
        if (fscanf(f, "%x", &id) == 1)
            vendors.push_back(id);
        fclose(f);
    }
    return vendors;
}

static std::string advice(const std::string &renderer, const std::string &vendor, const std::string &version)
{
    std::string text = "OpenGL renderer: " + renderer + "\nOpenGL vendor:   " + vendor +
                       "\nOpenGL version:  " + version + "\n\n";
    if (!isSoftwareRenderer(renderer.c_str()))
        return text + "This is a hardware renderer: Delvemoor should run smoothly.\n";
    text += "This is a software renderer: your graphics card's driver is not in use.\n\n"
            "On Debian 12, for your card:\n";
    const std::vector<unsigned> vendors = displayCardVendors();
    bool named = false;
    for (const CardAdvice &card : cardAdvice)
        for (unsigned id : vendors)
            if (id == card.pciVendor && !named) {
                text += card.text;
                named = true;
            }
    // No card this tool knows: every maker's advice, and the virtual
    // machine's, whose emulated cards are the usual unknown ones.
    if (!named) {
        for (const CardAdvice &card : cardAdvice)
            text += card.text;
        text += virtualMachineAdvice;
    }
    return text + "then log out and back in, and run this tool again.\n";
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
