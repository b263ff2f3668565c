// Handing things to the operating system: starting a program, opening a
// document or address in the user's browser.
#pragma once

#include <string>
#include <vector>

// 0 started, 1 no copy of the command line could be made, 2 the start failed.
int launchProcess(const char *path, const char *commandLine, int waitSeconds);
// Opens a file or address with xdg-open, started in workingDirectory (or the
// game's own when null); does not wait.
void openWithShell(const char *target, const char *workingDirectory = nullptr);
// Runs a program found in PATH (args[0]) and waits for it: its exit status,
// or -1 when it could not be started or did not exit normally.
int runAndWait(const std::vector<std::string> &args);
// The main loop's answer to "View Manual": the game directory's manual.html
// is opened and the loop is told to end.
void openManualAndQuit();
