// The log's layout: header, a break before every line, the trailer, and a
// fatal stop that leaves the log without a trailer.

#include "app/log.h"
#include "support/scratch.h"

#include <allegro.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

TEST(Log, HeaderLinesAndTrailer)
{
    ScratchFolder dir("delvemoor-log");
    const std::string path = dir / "gamelog.txt";
    openLogAt(path.c_str());
    logLine("Window title set");
    logLine("Loaded %d of %s", 3, "many");
    // Flushed at once: a crash right now would keep both lines.
    std::string live = readFile(path);
    EXPECT_NE(live.find("\nLoaded 3 of many"), std::string::npos);

    std::string longText(20000, 'x');
    logLine("%s", longText.c_str());  // bounded by the line buffer, never overflowing it
    closeLog();

    std::string text = readFile(path);
    std::string header = std::string(":: Delvemoor Game Log\nGAME_VERSION: ") + GAME_VERSION + "\nOS: ";
    ASSERT_EQ(text.compare(0, header.size(), header), 0) << text.substr(0, 200);
    size_t allegroLine = text.find("ALLEGRO VERSION: ");
    ASSERT_NE(allegroLine, std::string::npos);
    size_t afterHeader = text.find('\n', allegroLine) + 1;
    EXPECT_EQ(text.substr(afterHeader, 36), "\nWindow title set\nLoaded 3 of many\nx");
    EXPECT_LT(text.size(), afterHeader + 10000 + 200);
    const std::string trailer = "\nStopping logs...\n\n:: End Of LogFile";
    ASSERT_GE(text.size(), trailer.size());
    EXPECT_EQ(text.substr(text.size() - trailer.size()), trailer);
}

TEST(Log, FatalErrorEndsWithStatus255AndNoTrailer)
{
    ScratchFolder dir("delvemoor-log");
    const std::string path = dir / "gamelog.txt";
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // No display: the message goes to the terminal instead of a box.
        unsetenv("DISPLAY");
        openLogAt(path.c_str());
        logLine("# ERROR! # Cannot load gameconfig.cfg!");
        fatalError("Cannot load gameconfig.cfg!");
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 255);
    std::string text = readFile(path);
    EXPECT_NE(text.find("\n# ERROR! # Cannot load gameconfig.cfg!"), std::string::npos);
    EXPECT_EQ(text.find(":: End Of LogFile"), std::string::npos);
}

// A named pipe where the log belongs used to block the game before anything
// could be shown: now it is refused with the game's own message.
TEST(Log, ANamedPipeInTheLogsPlaceIsRefusedNotWaitedOn)
{
    const std::string path = "/tmp/delvemoor-log-pipe-" + std::to_string(getpid());
    ASSERT_EQ(mkfifo(path.c_str(), 0644), 0);
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        unsetenv("DISPLAY");
        alarm(10);
        openLogAt(path.c_str());
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    unlink(path.c_str());
    ASSERT_TRUE(WIFEXITED(status)) << "the game waited on the pipe";
    EXPECT_EQ(WEXITSTATUS(status), 255);
}
