// Handing things to the operating system: starting a program, opening a
// document or address in the user's browser.
#pragma once

// 0 started, 1 no copy of the command line could be made, 2 the start failed.
int launchProcess(const char *path, const char *commandLine, int waitSeconds);
// Opens a file or address with xdg-open, started in workingDirectory (or the
// game's own when null); does not wait.
void openWithShell(const char *target, const char *workingDirectory = nullptr);
