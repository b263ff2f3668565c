// gamelog.txt: a header naming the game, the system and the library, one line
// per noteworthy step, and a trailer when the game ends normally.

#include "app/log.h"
#include "app/startup.h"

#include <allegro.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

const char GAME_VERSION[] = GAME_VERSION_TEXT;

static std::ofstream logStream;
static FatalHook fatalHook = nullptr;

struct OsName {
    int type;
    const char *name;
};

static const OsName osNames[] = {
    {OSTYPE_UNKNOWN, "Unknown"},
    {OSTYPE_WIN3, "Windows 3.1 or earlier MSDOS"},
    {OSTYPE_WIN95, "Windows 95"},
    {OSTYPE_WIN98, "Windows 98"},
    {OSTYPE_WINME, "Windows ME"},
    {OSTYPE_WINNT, "Windows NT"},
    {OSTYPE_WIN2000, "Windows 2000"},
    {OSTYPE_WINXP, "Windows XP"},
    {OSTYPE_OS2, "OS/2"},
    {OSTYPE_WARP, "OS/2 Warp 3"},
    {OSTYPE_DOSEMU, "Linux DOSEMU"},
    {OSTYPE_OPENDOS, "Caldera OpenDOS"},
    {OSTYPE_LINUX, "Linux"},
    {OSTYPE_FREEBSD, "FreeBSD"},
    {OSTYPE_UNIX, "Unknown Unix variant"},
    {OSTYPE_BEOS, "BeOS"},
    {OSTYPE_QNX, "QNX"},
    {OSTYPE_MACOS, "MacOS"},
};

static const char *osTypeName(int type)
{
    for (const OsName &os : osNames)
        if (os.type == type)
            return os.name;
    return "";
}

void openLog()
{
    char path[1100];
    snprintf(path, sizeof path, "%s/gamelog.txt", DataRoot);
    openLogAt(path);
}

void openLogAt(const char *path)
{
    logStream.open(path, std::ios::out | std::ios::trunc);
    if (!logStream.good())
        fatalError("Cannot create gamelog.txt!");
    logStream << ":: Delvemoor Game Log\n";
    logStream << "GAME_VERSION: " << GAME_VERSION << "\n";
    logStream << "OS: " << osTypeName(os_type) << " (v" << os_version << "." << os_revision << ")\n";
    logStream << "ALLEGRO VERSION: " << allegro_id << "\n";
    logStream.flush();
}

bool logIsOpen()
{
    return logStream.is_open();
}

// Every line starts with a break, so the first one leaves an empty line below
// the header. Flushed at once: a crash must not lose the lines leading up to it.
void logLine(const char *format, ...)
{
    char line[10000];
    va_list args;
    va_start(args, format);
    uvszprintf(line, sizeof line, format, args);
    va_end(args);
    if (!logStream.is_open())
        return;
    logStream << "\n" << line;
    logStream.flush();
}

void closeLog()
{
    if (!logStream.is_open())
        return;
    logStream << "\n" << "Stopping logs..." << "\n" << "\n" << ":: End Of LogFile";
    logStream.close();
}

void setFatalHook(FatalHook hook)
{
    fatalHook = hook;
}

void fatalError(const char *format, ...)
{
    char message[10000];
    va_list args;
    va_start(args, format);
    uvszprintf(message, sizeof message, format, args);
    va_end(args);

    if (fatalHook)
        fatalHook(message);

    if (logStream.is_open())
        logStream.flush();
    // Back to text mode first so the message box is not hidden behind a
    // full-screen window. Allegro shows the box with xmessage under X and
    // prints to stderr without a display.
    if (system_driver && gfx_driver)
        set_gfx_mode(GFX_TEXT, 0, 0, 0, 0);
    if (system_driver)
        allegro_message("%s\n", message);
    else
        fprintf(stderr, "%s\n", message);
    allegro_exit();
    exit(-1);
}
