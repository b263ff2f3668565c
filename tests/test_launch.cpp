// What the game hands to other programs: a stand-in xdg-open first in PATH
// records what it was asked to open, with what arguments, from which folder
// and with which descriptors open. Whatever the game has open (the log it is
// writing, a file of its own) must not be among them.
#include <gtest/gtest.h>

#include "app/launch.h"
#include "app/log.h"
#include "app/screens.h"
#include "app/startup.h"
#include "support/scratch.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

// The record of one start of a stand-in, once it has finished writing it:
// its arguments and folder, then "ls -l" of its descriptors.
std::string waitForRecord(const std::string &base)
{
    for (int i = 0; i < 100; i++) {
        if (access((base + ".done").c_str(), F_OK) == 0)
            return readFile(base + ".txt") + readFile(base + ".fds");
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return "(no record)";
}

class Launch : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(dir.empty());
        ASSERT_EQ(0, mkdir((dir + "/bin").c_str(), 0755));
        ASSERT_EQ(0, mkdir((dir + "/elsewhere").c_str(), 0755));
        // A stand-in for xdg-open and for any other program: one argument a
        // line, then the folder. Its descriptors are listed first, with its
        // output moved for good (a redirection of one command would keep a
        // saved copy of the old output open and spoil the list).
        const std::string recorder = "#!/bin/sh\n"
                                     "record=\"$RECORD_DIR/${0##*/}\"\n"
                                     "exec > \"$record.fds\"\n"
                                     "ls -l /proc/$$/fd/\n"
                                     "exec > \"$record.txt\"\n"
                                     "for a in \"$@\"; do printf 'arg %s\\n' \"$a\"; done\n"
                                     "printf 'cwd %s\\n' \"$(pwd)\"\n"
                                     "touch \"$record.done\"\n"
                                     "exit 3\n";
        for (const char *name : {"xdg-open", "GfxDriverTool"}) {
            const std::string path = dir + "/bin/" + name;
            std::ofstream(path) << recorder;
            ASSERT_EQ(0, chmod(path.c_str(), 0755));
        }
        oldPath = getenv("PATH");
        setenv("PATH", (dir + "/bin:" + oldPath).c_str(), 1);
        setenv("RECORD_DIR", dir.c_str(), 1);

        // What a running game holds: its log, and a plain descriptor opened
        // without any care for children.
        openLogAt((dir + "/gamelog.txt").c_str());
        plainFd = open((dir + "/gameconfig.cfg").c_str(), O_WRONLY | O_CREAT, 0644);
        ASSERT_GE(plainFd, 0);
    }

    void TearDown() override
    {
        closeLog();
        close(plainFd);
        setenv("PATH", oldPath.c_str(), 1);
    }

    // Only standard input, output and error, and the stand-in's own script.
    void expectOnlyStandardDescriptors(const std::string &record)
    {
        EXPECT_EQ(std::string::npos, record.find("gamelog.txt")) << record;
        EXPECT_EQ(std::string::npos, record.find("gameconfig.cfg")) << record;
        std::istringstream lines(record);
        std::string line;
        int listed = 0;
        while (std::getline(lines, line)) {
            const size_t arrow = line.find(" -> ");
            if (arrow == std::string::npos)
                continue;
            const size_t space = line.rfind(' ', arrow - 1);
            const int fd = atoi(line.c_str() + space + 1);
            listed++;
            EXPECT_TRUE(fd <= 2 || line.find(dir + "/bin/") != std::string::npos) << line;
        }
        EXPECT_GE(listed, 3) << record;
    }

    ScratchFolder scratch{"delvemoor launch"};
    const std::string dir = scratch.path;
    std::string oldPath;
    int plainFd = -1;
};

} // namespace

TEST_F(Launch, OpenedDocumentsAndStartedProgramsGetTheirArgumentsAndNothingElse)
{
    // The web page after shut-down: started in the folder asked for.
    const std::string target = dir + "/a page with 'quotes' and spaces.html";
    openWithShell(target.c_str(), (dir + "/elsewhere").c_str());
    std::string record = waitForRecord(dir + "/xdg-open");
    EXPECT_NE(std::string::npos, record.find("arg " + target + "\ncwd " + dir + "/elsewhere\n")) << record;
    expectOnlyStandardDescriptors(record);

    // "Update Drivers": the tool by its full path, its own path as its name;
    // an argument in quotes reaches it whole, spaces and quotes included.
    const std::string tool = dir + "/bin/GfxDriverTool";
    EXPECT_EQ(0, launchProcess(tool.c_str(), ("\"" + tool + "\" \"" + target + "\"").c_str(), 0));
    record = waitForRecord(dir + "/GfxDriverTool");
    EXPECT_NE(std::string::npos, record.find("arg " + target + "\ncwd ")) << record;
    expectOnlyStandardDescriptors(record);
    EXPECT_EQ(launchProcess("/nonexistent/GfxDriverTool", "GfxDriverTool", 0), 2);
    EXPECT_EQ(launchProcess(tool.c_str(), nullptr, 0), 1);

    // Programs started some other way (the library's own message boxes)
    // must not inherit the log either.
    bool logFound = false;
    for (int fd = 3; fd < 1024; fd++) {
        char link[64], target[4096];
        snprintf(link, sizeof link, "/proc/self/fd/%d", fd);
        const ssize_t n = readlink(link, target, sizeof target - 1);
        if (n <= 0)
            continue;
        target[n] = 0;
        if (std::string(target) != dir + "/gamelog.txt")
            continue;
        logFound = true;
        EXPECT_TRUE(fcntl(fd, F_GETFD) & FD_CLOEXEC) << "the log is not close-on-exec";
    }
    EXPECT_TRUE(logFound);

    // A program the caller waits for reports its exit status.
    EXPECT_EQ(3, runAndWait({"GfxDriverTool", "one"}));
    EXPECT_EQ(-1, runAndWait({"no-such-program-anywhere"}));
}

TEST_F(Launch, ViewManualOpensTheGamesOwnManualAndEndsTheLoop)
{
    snprintf(DataRoot, sizeof DataRoot, "%s", dir.c_str());
    quitRequested = 0;
    openManualRequested = 1;
    openManualAndQuit();
    EXPECT_EQ(1, quitRequested);
    EXPECT_EQ(0, openManualRequested);
    const std::string record = waitForRecord(dir + "/xdg-open");
    EXPECT_NE(std::string::npos, record.find("arg " + dir + "/manual.html\ncwd ")) << record;
    expectOnlyStandardDescriptors(record);
    quitRequested = 0;
}
