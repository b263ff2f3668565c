// Starting programs and opening documents. The arguments always travel as an
// argv array, never through a shell, so paths with spaces or quotes are safe.
// A started program gets the game's standard input and output and nothing
// else: every other descriptor (the log being written, the configuration,
// the X connection, the sound device) is closed in the child, whoever opened
// it and however, so a browser that outlives the game holds none of them.

#include "app/launch.h"
#include "app/screens.h"
#include "app/startup.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char **environ;

// Splits a command line at blanks; double quotes group words with spaces.
static std::vector<std::string> splitCommandLine(const char *commandLine)
{
    std::vector<std::string> words;
    std::string word;
    bool quoted = false, inWord = false;
    for (const char *p = commandLine; *p; p++) {
        if (*p == '"') {
            quoted = !quoted;
            inWord = true;
        } else if ((*p == ' ' || *p == '\t') && !quoted) {
            if (inWord)
                words.push_back(word);
            word.clear();
            inWord = false;
        } else {
            word += *p;
            inWord = true;
        }
    }
    if (inWord)
        words.push_back(word);
    return words;
}

// searchPath: file is a bare name looked up in PATH, as a shell would.
static bool spawn(const char *file, const std::vector<std::string> &args, const char *workingDirectory,
                  bool searchPath, pid_t *pid)
{
    std::vector<char *> argv;
    for (const std::string &a : args)
        argv.push_back(const_cast<char *>(a.c_str()));
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    if (posix_spawn_file_actions_init(&actions) != 0)
        return false;
    bool ready = posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1) == 0;
    if (ready && workingDirectory)
        ready = posix_spawn_file_actions_addchdir_np(&actions, workingDirectory) == 0;
    bool started = false;
    if (ready)
        started = (searchPath ? posix_spawnp(pid, file, &actions, nullptr, argv.data(), environ)
                              : posix_spawn(pid, file, &actions, nullptr, argv.data(), environ)) == 0;
    posix_spawn_file_actions_destroy(&actions);
    return started;
}

int launchProcess(const char *path, const char *commandLine, int waitSeconds)
{
    if (!path || !commandLine)
        return 1;
    std::vector<std::string> args = splitCommandLine(commandLine);
    if (args.empty())
        args.push_back(path);

    pid_t pid;
    if (!spawn(path, args, nullptr, false, &pid))
        return 2;

    if (waitSeconds != 0) {
        // Polls twice a second and gives up after the given time, as the
        // game waits for nothing longer than that.
        long waitedMs = 0;
        while (waitedMs <= waitSeconds * 1000L) {
            int status;
            if (waitpid(pid, &status, WNOHANG) != 0)
                break;
            struct timespec half = {0, 500000000L};
            nanosleep(&half, nullptr);
            waitedMs += 500;
        }
    }
    return 0;
}

int runAndWait(const std::vector<std::string> &args)
{
    if (args.empty())
        return -1;
    pid_t pid;
    if (!spawn(args[0].c_str(), args, nullptr, true, &pid))
        return -1;
    int status;
    while (waitpid(pid, &status, 0) < 0)
        if (errno != EINTR)
            return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// xdg-open hands the file or address to the desktop's own choice of program.
// Nothing waits for it: the game opens the manual and the web page only as it
// ends, so the child is reaped when the game's process goes.
void openWithShell(const char *target, const char *workingDirectory)
{
    if (!target)
        return;
    pid_t pid;
    spawn("xdg-open", {"xdg-open", target}, workingDirectory, true, &pid);
}

// The manual opens in the same frame as "View Manual" is clicked, and the
// game then ends: the player is reading in the browser, not looking at us.
void openManualAndQuit()
{
    char path[1100];
    snprintf(path, sizeof path, "%s/manual.html", DataRoot);
    openWithShell(path);
    openManualRequested = 0;
    quitRequested = 1;
}
