// The configuration file: its fixed lines and columns, every way it can be
// damaged, and a write that never leaves a half-written file behind.

#include "app/atomic_write.h"
#include "app/config.h"
#include "app/log.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <vector>
#include <unistd.h>

// The configuration file's place in a scratch folder, written with `text`.
static std::string writeConfig(const ScratchFolder &dir, const std::string &text)
{
    writeFile(dir / "gameconfig.cfg", text);
    return dir / "gameconfig.cfg";
}

static std::string configWith(int line, const std::string &text)
{
    const char *lines[] = {":: Delvemoor Config File", ":: GAME_VERSION: 1.0.0", "", ":: GRAPHICS MODE",
                           "SCREENMODE = WINDOWED", "COLORDEPTH = 32", "", ":: GAME", "SCROLLSPEED = 6",
                           "GAME_LEVEL = 1", "", ":: SOUND", "SOUND VOLUME = 8", "MUSIC VOLUME = 7", "",
                           ":: EOF"};
    std::string s;
    for (int i = 1; i <= 16; i++) {
        s += (i == line) ? text : lines[i - 1];
        if (i < 16)
            s += "\n";
    }
    return s;
}

TEST(Config, ConvertToDoubleReadsTheLeadingNumberOrThrows)
{
    // What players and level editors actually write. A partial exponent is
    // text after the number, not a broken number.
    const struct {
        const char *text;
        double value;
    } numbers[] = {
        {" 12abc", 12},  {"7.9", 7.9},     {"-3", -3},   {"12eggs", 12}, {"8e", 8},     {"12E+", 12},
        {"12e-x", 12},   {"1e3", 1000},    {"1E+2 ", 100}, {"12e", 12},  {"+5", 5},     {"-0", 0},
        {".5", 0.5},     {"5.", 5},        {"\t 42\r", 42}, {"0x1f", 0}, {"3,5", 3},    {"2.5e-1x", 0.25},
        {"007", 7},      {"1e999", 1.7976931348623157e308},
    };
    for (const auto &n : numbers)
        EXPECT_DOUBLE_EQ(convertToDouble(n.text), n.value) << '"' << n.text << '"';
    EXPECT_TRUE(std::signbit(convertToDouble("-0")));

    const char *notNumbers[] = {"", "   ", "x1", "nan", "inf", "-inf", "infinity", ".", "-", "+.", "e5", "- 5"};
    for (const char *text : notNumbers) {
        try {
            convertToDouble(text);
            ADD_FAILURE() << '"' << text << "\" read as a number";
        } catch (const BadConversion &e) {
            EXPECT_EQ(std::string(e.what()), std::string("convertToDouble(\"") + text + "\")");
        }
    }
    EXPECT_THROW(convertToDouble("   "), std::runtime_error);
}

TEST(Config, ReadsEachSettingFromItsLineAndColumn)
{
    ScratchFolder dir("delvemoor-config");
    std::string error;
    settings = {};
    std::string text = configWith(5, "SCREENMODE = FULLSCREEN");
    text = text.substr(0, text.find("COLORDEPTH = 32")) + "COLORDEPTH = 16" +
           text.substr(text.find("COLORDEPTH = 32") + 15);
    ASSERT_TRUE(readConfigFrom(writeConfig(dir, text).c_str(), &error)) << error;
    EXPECT_EQ(settings.fullscreen, 1);
    EXPECT_EQ(settings.colorDepth32, 0);
    EXPECT_EQ(settings.scrollSpeed, 6);
    EXPECT_EQ(settings.gameLevel, 1);
    EXPECT_EQ(settings.soundVolume, 8);
    EXPECT_EQ(settings.musicVolume, 7);

    // Only the column counts: another key, a fraction, text after the number,
    // CR LF line ends and lines after the end marker are all accepted.
    text = configWith(9, "ANYTHING_ELSE 7.9") + "\nextra line\n";
    ASSERT_TRUE(readConfigFrom(writeConfig(dir, text).c_str(), &error)) << error;
    EXPECT_EQ(settings.scrollSpeed, 7);
    std::string crlf;
    for (char c : configWith(14, "MUSIC VOLUME = -4")) {
        if (c == '\n')
            crlf += '\r';
        crlf += c;
    }
    ASSERT_TRUE(readConfigFrom(writeConfig(dir, crlf).c_str(), &error)) << error;
    EXPECT_EQ(settings.musicVolume, -4);
    EXPECT_EQ(settings.fullscreen, 0);
}

TEST(Config, EveryDamageStopsWithTheGamesOwnMessage)
{
    ScratchFolder dir("delvemoor-config");
    std::string error;
    const std::string corrupted = "Config file corrupted. Please reinstall.";
    struct Case {
        int line;
        const char *text;
    } cases[] = {
        {5, "SCREENMODE = FullScreen"}, {5, ""},         {6, "COLORDEPTH = 24"}, {6, "COLORDEPTH=32"},
        {9, "SCROLLSPEED = fast"},      {9, "SCROLL"},   {10, "GAME_LEVEL = "},  {13, "SOUND VOLUME = 1e99"},
        {14, "MUSIC VOLUME = nan"},
    };
    GameSettings before = {1, 1, 3, 2, 4, 5};
    for (const Case &c : cases) {
        settings = before;
        EXPECT_FALSE(readConfigFrom(writeConfig(dir, configWith(c.line, c.text)).c_str(), &error))
            << "line " << c.line << ": " << c.text;
        EXPECT_EQ(error, corrupted);
        EXPECT_EQ(settings.scrollSpeed, 3) << "a damaged file must not change the settings half-way";
    }
    // A file cut short after line 6.
    std::string cut = configWith(0, "");
    cut = cut.substr(0, cut.find(":: GAME\n"));
    EXPECT_FALSE(readConfigFrom(writeConfig(dir, cut).c_str(), &error));
    EXPECT_EQ(error, corrupted);
    EXPECT_FALSE(readConfigFrom((dir / "missing.cfg").c_str(), &error));
    EXPECT_EQ(error, "Cannot load gameconfig.cfg!");
}

TEST(Config, WriteIsTheSixteenLineLayoutAndReadsBack)
{
    ScratchFolder dir("delvemoor-config");
    std::string error;
    std::string path = dir / "gameconfig.cfg";
    settings = {1, 0, -7, 42, 1, 10};
    ASSERT_TRUE(writeConfigTo(path.c_str()));
    std::string text = readFile(path);
    EXPECT_EQ(text, std::string(":: Delvemoor Config File\n:: GAME_VERSION: ") + GAME_VERSION +
                        "\n\n:: GRAPHICS MODE\nSCREENMODE = FULLSCREEN\nCOLORDEPTH = 16\n\n:: GAME\n"
                        "SCROLLSPEED = -7\nGAME_LEVEL = 42\n\n:: SOUND\nSOUND VOLUME = 1\nMUSIC VOLUME = 10\n\n:: EOF");
    // Read back and written again, it is the same file.
    settings = {};
    ASSERT_TRUE(readConfigFrom(path.c_str(), &error)) << error;
    ASSERT_TRUE(writeConfigTo(path.c_str()));
    EXPECT_EQ(readFile(path), text);
    int files = 0;
    for (const auto &entry : std::filesystem::directory_iterator(dir.path))
        files += entry.path() != path;
    EXPECT_EQ(files, 0) << "no temporary file left behind";
}

TEST(Config, AFailedWriteKeepsThePreviousFile)
{
    ScratchFolder dir("delvemoor-config");
    std::string path = writeConfig(dir, configWith(9, "SCROLLSPEED = 3"));
    std::string before = readFile(path);
    // The temporary file cannot be created in a directory the game may not write.
    if (getuid() != 0) {
        chmod(dir.path.c_str(), 0555);
        settings = {1, 1, 9, 9, 9, 9};
        EXPECT_FALSE(writeConfigTo(path.c_str()));
        chmod(dir.path.c_str(), 0755);
        EXPECT_EQ(readFile(path), before);
    }
    // A disk that fills half way through the new file.
    struct rlimit saved, small;
    getrlimit(RLIMIT_FSIZE, &saved);
    small = saved;
    small.rlim_cur = before.size() / 2;
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    settings = {1, 1, 9, 9, 9, 9};
    const bool written = writeConfigTo(path.c_str());
    setrlimit(RLIMIT_FSIZE, &saved);
    EXPECT_FALSE(written);
    EXPECT_EQ(readFile(path), before);
}

// Only a plain file is read: a named pipe in the file's place used to hang
// the game for good before it could say anything. A link is written
// through, so the player's settings stay where the link points; and what a
// kill during a save left behind is swept up at the next start.
TEST(Config, OnlyAPlainFileIsReadALinkIsWrittenThroughAndLeftoversGo)
{
    const ScratchFolder scratch("delvemoor-config");
    const std::string dir = scratch.path;
    std::string error;
    const std::string pipe = dir + "/pipe.cfg";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0644), 0);
    ASSERT_EQ(mkdir((dir + "/folder.cfg").c_str(), 0755), 0);
    alarm(10);  // a hang ends the test as a failure
    for (const std::string &path : {pipe, dir + "/folder.cfg", std::string("/dev/zero")}) {
        EXPECT_FALSE(readConfigFrom(path.c_str(), &error)) << path;
        EXPECT_EQ(error, "Cannot load gameconfig.cfg!");
    }
    alarm(0);

    ASSERT_EQ(mkdir((dir + "/kept").c_str(), 0755), 0);
    const std::string target = dir + "/kept/gameconfig.cfg";
    writeFile(target, configWith(9, "SCROLLSPEED = 2"));
    const std::string link = dir + "/gameconfig.cfg";
    ASSERT_EQ(symlink(target.c_str(), link.c_str()), 0);
    settings = {0, 1, 9, 1, 4, 4};
    ASSERT_TRUE(writeConfigTo(link.c_str()));
    struct stat st;
    ASSERT_EQ(lstat(link.c_str(), &st), 0);
    EXPECT_TRUE(S_ISLNK(st.st_mode)) << "the link was replaced by a file of its own";
    EXPECT_EQ(readFile(target), configText());

    const std::string stale = dir + "/.gameconfig.cfg.Ab3xYz", fresh = dir + "/.gameconfig.cfg.Qw9rTy";
    const std::string hiddenOfPlayer = dir + "/.notes.abcdef", plain = dir + "/level.Ab3xYz";
    for (const std::string &path : {stale, fresh, hiddenOfPlayer, plain})
        std::ofstream(path) << "half";
    const struct timeval old[2] = {{time(nullptr) - 3600, 0}, {time(nullptr) - 3600, 0}};
    for (const std::string &path : {stale, hiddenOfPlayer, plain})
        ASSERT_EQ(utimes(path.c_str(), old), 0);
    std::vector<std::string> removed;
    removeStaleTemporaries(dir, &removed);
    EXPECT_EQ(removed, std::vector<std::string>{".gameconfig.cfg.Ab3xYz"});
    EXPECT_EQ(access(fresh.c_str(), F_OK), 0) << "a write in progress may own a fresh one";
    EXPECT_EQ(access(hiddenOfPlayer.c_str(), F_OK), 0);
    EXPECT_EQ(access(plain.c_str(), F_OK), 0);
}
