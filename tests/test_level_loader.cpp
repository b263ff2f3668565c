// Both level loaders: what a good file gives, the order in which the ring,
// the counters and the sky are settled, how each reader treats untidy
// files, and that a bad or hostile file goes through the error path with
// the previous level intact.
#include <gtest/gtest.h>

#include <allegro.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

#include "app/log.h"
#include "game/mission.h"
#include "support/level_grid.h"
#include "support/scratch.h"

namespace {

typedef bool (*TryLoader)(Level &, const char *, std::string *);

struct NamedLoader {
    const char *name;
    TryLoader load;
};

const NamedLoader loaders[] = {
    {"pack", tryLoadLevelFromPack},
    {"file", tryLoadLevelFromFile},
};

class LevelLoader : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        install_allegro(SYSTEM_NONE, &errno, atexit);
    }

    void SetUp() override
    {
        openLogAt((dir + "/gamelog.txt").c_str());
        level = Level();
    }

    void TearDown() override { closeLog(); }

    std::string write(const std::string &name, const std::string &text)
    {
        const std::string path = dir + "/" + name;
        std::ofstream out(path, std::ios::binary);
        out << text;
        return path;
    }

    std::string log()
    {
        closeLog();
        const std::string text = readFile(dir + "/gamelog.txt");
        openLogAt((dir + "/gamelog-more.txt").c_str());
        return text;
    }

    ScratchFolder scratch{"delvemoor-levels"};
    const std::string dir = scratch.path;
    Level level;
};

// Twelve columns: pods on the ring (column 0 and the top row) and in the sky
// away from the ring, rockets on the surface and in the sky, junk in the sky.
std::vector<std::string> orderRows()
{
    return {
        "....P.......",
        "..T.........",
        "...P..R.....",
        ".....$......",
        "..........V.",
        "....^.......",
        "...........#",
        "B####T####.B",
        "P..P.......B",
        "B#*RRR~###.B",
        "BBBBBBBBBBBB",
    };
}

} // namespace

TEST_F(LevelLoader, BothLoadersGiveTheSameLevelAndSettleItInOrder)
{
    for (const NamedLoader &loader : loaders) {
        SCOPED_TRACE(loader.name);
        LevelFile file(orderRows());
        file.title = "  Caverns of  Ice ";
        file.planet = "3";
        file.credits = "1250";
        file.locks = {"0", "1", "0", "0", "2", "0", "0", "-1", "0"};
        const std::string path = write(std::string(loader.name) + ".txt", file.text());

        level.structures.assign(4, std::vector<int32_t>(4, Girder));
        level.cursorX = 200;
        level.cursorY = 5;
        mission.savedCount = 4;
        currentTool = Dynamite;
        std::string error;
        ASSERT_TRUE(loader.load(level, path.c_str(), &error)) << error;

        EXPECT_EQ("  Caverns of  Ice ", level.title);
        EXPECT_EQ(3, level.planet);
        EXPECT_EQ(3, level.missionNumber);
        EXPECT_EQ(1, level.campaignLevel);
        EXPECT_EQ(77, level.reserved);
        EXPECT_EQ(12, level.width);
        EXPECT_EQ(11, level.height);
        EXPECT_EQ(1250, mission.credits);
        const int32_t locks[9] = {0, 1, 0, 0, 2, 0, 0, -1, 0};
        for (int i = 0; i < 9; i++)
            EXPECT_EQ(locks[i], mission.toolLocked[i]) << "lock " << i;
        // The reset before the load cleared the last attempt.
        EXPECT_EQ(0, mission.savedCount);
        EXPECT_EQ(NoTool, currentTool);
        // The cursor of a bigger level no longer points outside the grid.
        EXPECT_EQ(0, level.cursorX);
        EXPECT_EQ(5, level.cursorY);

        // Ring pods became Border before counting; the pod in the sky was
        // counted, then cleared with the rest of the sky; so were rockets on
        // the ring, but not the one in the sky.
        EXPECT_EQ(2, mission.podCount);
        EXPECT_EQ(2, mission.podsWithoutHatcher);
        EXPECT_EQ(2, mission.rocketCount);
        const std::vector<std::string> expected = {
            "............",
            "..T.........",
            "............",
            ".....$......",
            "..........V.",
            "............",
            "............",
            "B####T####.B",
            "B..P.......B",
            "B#*RRR~###.B",
            "BBBBBBBBBBBB",
        };
        EXPECT_EQ(expected, rowsOf(level));
        ASSERT_EQ(12u, level.structures.size());
        for (const std::vector<int32_t> &column : level.structures)
            EXPECT_EQ(std::vector<int32_t>(11, 0), column);
    }
    const std::string text = log();
    EXPECT_NE(std::string::npos, text.find("Successfully loaded level: " + dir + "/pack.txt"));
    EXPECT_NE(std::string::npos, text.find("Successfully loaded level: " + dir + "/file.txt"));
}

// Files written on other systems, and one with a cell the folder reader
// cannot read: that cell and every one after it repeat the last one read.
TEST_F(LevelLoader, ForeignLineEndsAndAnUnreadableCell)
{
    for (const NamedLoader &loader : loaders) {
        SCOPED_TRACE(loader.name);
        for (const std::string lineEnd : {"\r\n", "\n", "\r"}) {
            // The folder reader takes the title as a line of its own.
            if (lineEnd == "\r" && loader.load == tryLoadLevelFromFile)
                continue;
            LevelFile file(plainRows());
            file.lineEnd = lineEnd;
            file.title = "";
            file.planet = "4";
            const std::string path = write("lineends.txt", file.text());
            std::string error;
            ASSERT_TRUE(loader.load(level, path.c_str(), &error)) << error;
            EXPECT_EQ("", level.title);
            EXPECT_EQ(4, level.planet);
            EXPECT_EQ(rowsOf(levelFromRows(plainRows())), rowsOf(level));
        }
    }

    // Column 3 row 7 is Dirt1, so the rest of the level is dirt inside the ring.
    LevelFile broken(plainRows());
    broken.cells[3 * 10 + 8] = "rock";
    const std::string path = write("broken.txt", broken.text());
    std::string error;
    ASSERT_TRUE(tryLoadLevelFromFile(level, path.c_str(), &error)) << error;
    EXPECT_EQ("B########B", rowsOf(level)[7]);
    EXPECT_EQ("B..######B", rowsOf(level)[8]);
}

TEST_F(LevelLoader, BadAndHostileFilesFailWithTheLevelIntact)
{
    LevelFile good(plainRows());
    good.title = "Kept";
    const std::string goodPath = write("good.txt", good.text());

    // What each reader says. The stream reader keeps a header field it
    // cannot read, so some files fail on the bounds only from a fresh record
    // (from the 10 x 10 level they would load as a 10 x 10 level); a missing
    // message means the stream reader loads the file.
    struct Case {
        const char *what;
        std::string text;
        const char *pack;
        const char *file;
        bool fileFromFresh;
    };
    std::vector<Case> cases;
    auto with = [&](const char *what, void (*edit)(LevelFile &), const char *pack,
                    const char *file, bool fileFromFresh) {
        LevelFile f(plainRows());
        edit(f);
        cases.push_back({what, f.text(), pack, file, fileFromFresh});
    };
    with("narrow", [](LevelFile &f) { f.width = "2"; }, "(width 2 is outside 3 to 256)",
         "(width 2 is outside 3 to 256)", false);
    // What the stream reader cannot read is named as the file holds it, not
    // as the value the field kept.
    with("wraps to 3 in 16 bits", [](LevelFile &f) { f.width = "65539"; }, "width 65539",
         "(width \"65539\" is not a number from 3 to 256)", true);
    with("shallow", [](LevelFile &f) { f.height = "7"; }, "(height 7 is outside 8 to 256)",
         "height 7", false);
    with("deep", [](LevelFile &f) { f.height = "40000"; }, "height 40000",
         "(height \"40000\" is not a number from 8 to 256)", true);
    with("huge", [](LevelFile &f) { f.height = "1e20"; }, "height 2147483647",
         "height 1 is outside", false);
    with("planet 5", [](LevelFile &f) { f.planet = "5"; }, "planet 5", "planet 5", false);
    with("short", [](LevelFile &f) { f.cells.resize(40); },
         "(line 58 is not a number: convertToDouble(\"\"))", nullptr, false);
    with("malformed width", [](LevelFile &f) { f.width = "ten"; },
         "line 7 is not a number: convertToDouble(\"ten\")", "(width \"ten\" is not a number from 3 to 256)",
         true);
    with("malformed mission number", [](LevelFile &f) { f.missionNumber = "nine"; },
         "line 3 is not a number",
         "(the mission number \"nine\" is not a number, so the width was never read)", true);
    with("cut in the header", [](LevelFile &f) { f.locks.clear(), f.cells.clear(), f.height = "", f.width = ""; },
         "line 7 is not a number", "(the file ends before the width)", true);
    cases.push_back({"empty", "", "line 2 is not a number", "(the file ends before the planet)", true});

    for (const NamedLoader &loader : loaders) {
        const bool pack = loader.load == tryLoadLevelFromPack;
        for (const Case &c : cases) {
            SCOPED_TRACE(std::string(loader.name) + ": " + c.what);
            std::string error;
            ASSERT_TRUE(loader.load(level, goodPath.c_str(), &error)) << error;
            const std::string path = write("bad.txt", c.text);
            const char *expected = pack ? c.pack : c.file;
            if (!expected) {
                EXPECT_TRUE(loader.load(level, path.c_str(), &error)) << error;
                EXPECT_EQ(10u, level.terrain.size());
                EXPECT_EQ(10u, level.terrain[9].size());
                continue;
            }
            Level fresh = Level();
            Level &target = !pack && c.fileFromFresh ? fresh : level;
            EXPECT_FALSE(loader.load(target, path.c_str(), &error));
            EXPECT_EQ(0u, error.find("Cannot load Level: " + path + " (")) << error;
            EXPECT_NE(std::string::npos, error.find(expected)) << error;
            EXPECT_EQ("Kept", level.title);
            EXPECT_EQ(10, level.width);
            EXPECT_EQ(10u, level.terrain.size());
            EXPECT_EQ(rowsOf(levelFromRows(plainRows())), rowsOf(level));
            EXPECT_TRUE(fresh.terrain.empty());
        }
        std::string error;
        EXPECT_FALSE(loader.load(level, (dir + "/missing.txt").c_str(), &error));
        EXPECT_EQ("Cannot load Level: " + dir + "/missing.txt", error);
    }
}

TEST_F(LevelLoader, GameFacingLoadersEndThroughTheFatalPath)
{
    setFatalHook([](const char *message) { throw std::runtime_error(message); });
    LevelFile good(plainRows());
    write("good.txt", good.text());
    loadLevelFromPack(level, "%s/%s", dir.c_str(), "good.txt");
    EXPECT_EQ(10, level.width);

    for (auto load : {loadLevelFromPack, loadLevelFromFile}) {
        try {
            load(level, "%s/%s", dir.c_str(), "missing.txt");
            ADD_FAILURE() << "a missing level must not load";
        } catch (const std::runtime_error &fatal) {
            EXPECT_STREQ("Cannot load Level!", fatal.what());
        }
    }
    LevelFile planet(plainRows());
    planet.planet = "9";
    write("planet.txt", planet.text());
    EXPECT_THROW(loadLevelFromFile(level, "%s/planet.txt", dir.c_str()), std::runtime_error);
    setFatalHook(nullptr);

    const std::string text = log();
    EXPECT_NE(std::string::npos, text.find("# ERROR! # Cannot load Level: " + dir + "/missing.txt\n"))
        << text;
    EXPECT_NE(std::string::npos,
              text.find("# ERROR! # Cannot load Level: " + dir + "/planet.txt (planet 9 is not 1 to 4)"))
        << text;
}
