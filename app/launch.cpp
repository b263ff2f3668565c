// Starting programs and opening documents. The arguments always travel as an
// argv array, never through a shell, so paths with spaces or quotes are safe.

#include "app/launch.h"

#include <cerrno>
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

static bool spawn(const char *path, const std::vector<std::string> &args, pid_t *pid)
{
    std::vector<char *> argv;
    for (const std::string &a : args)
        argv.push_back(const_cast<char *>(a.c_str()));
    argv.push_back(nullptr);
    return posix_spawn(pid, path, nullptr, nullptr, argv.data(), environ) == 0;
}

int launchProcess(const char *path, const char *commandLine, int waitSeconds)
{
    if (!path || !commandLine)
        return 1;
    std::vector<std::string> args = splitCommandLine(commandLine);
    if (args.empty())
        args.push_back(path);

    pid_t pid;
    if (!spawn(path, args, &pid))
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

// xdg-open hands the file or address to the desktop's own choice of program.
// Nothing waits for it: the game opens the manual and the web page only as it
// ends, so the child is reaped when the game's process goes.
void openWithShell(const char *target, const char *workingDirectory)
{
    if (!target)
        return;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (workingDirectory)
        posix_spawn_file_actions_addchdir_np(&actions, workingDirectory);
    pid_t pid;
    std::vector<std::string> args = {"xdg-open", target};
    std::vector<char *> argv;
    for (const std::string &a : args)
        argv.push_back(const_cast<char *>(a.c_str()));
    argv.push_back(nullptr);
    posix_spawnp(&pid, "xdg-open", &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
}
