// The game log, gamelog.txt. Every line is flushed as it
// is written, so a crash keeps everything logged up to it.
#pragma once

#include <cstdarg>

extern const char GAME_VERSION[];

// openLog writes where the player's log belongs (app/paths.h).
void openLog();
void openLogAt(const char *path);
void logLine(const char *format, ...) __attribute__((format(printf, 1, 2)));
void closeLog();
bool logIsOpen();

// Shows the message (xmessage under X, stderr without a display), leaves the
// library and ends the process with status -1. Callers log their own error line.
[[noreturn]] void fatalError(const char *format, ...) __attribute__((format(printf, 1, 2)));

// Tests replace the exit of fatalError so they can observe it; the hook must not return.
typedef void (*FatalHook)(const char *message);
void setFatalHook(FatalHook hook);
