// gamelog.txt: a header naming the game, the system and the library, one line
// per noteworthy step, and a trailer when the game ends normally.

#include "app/log.h"
#include "app/paths.h"

#include <allegro.h>

#include <cstdio>
#include <cstdlib>

const char GAME_VERSION[] = GAME_VERSION_TEXT;

// Opened close-on-exec ("e"): a program started while the game runs must not
// hold the log open after the game has gone.
static FILE *logFile = nullptr;
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
    openLogAt(playerFilePath(PlayerLog).c_str());
}

void openLogAt(const char *path)
{
    if (logFile)
        fclose(logFile);
    logFile = fopen(path, "we");
    if (!logFile)
        fatalError("Cannot create gamelog.txt!");
    fprintf(logFile, ":: Delvemoor Game Log\n");
    fprintf(logFile, "GAME_VERSION: %s\n", GAME_VERSION);
    fprintf(logFile, "OS: %s (v%d.%d)\n", osTypeName(os_type), os_version, os_revision);
    fprintf(logFile, "ALLEGRO VERSION: %s\n", allegro_id);
    fflush(logFile);
}

bool logIsOpen()
{
    return logFile != nullptr;
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
    if (!logFile)
        return;
    fprintf(logFile, "\n%s", line);
    fflush(logFile);
}

void closeLog()
{
    if (!logFile)
        return;
    fputs("\nStopping logs...\n\n:: End Of LogFile", logFile);
    fclose(logFile);
    logFile = nullptr;
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

    if (logFile)
        fflush(logFile);
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
