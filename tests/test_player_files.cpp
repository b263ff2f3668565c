// Where a player's settings, log and levels end up: beside a game they
// unpacked themselves, in their XDG folders for a game installed for the
// system, and never lost or mixed up with the examples the game ships.

#include "app/config.h"
#include "app/log.h"
#include "app/paths.h"
#include "app/gamedir.h"
#include "editor/editor.h"
#include "game/mission.h"
#include "world/catalogue.h"
#include "support/scratch.h"

#include <allegro.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

static void writeText(const std::string &path, const std::string &text)
{
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path) << text;
}

struct PlayerFiles : ::testing::Test {
    ScratchFolder scratch{"delvemoor-playerfiles"};
    const std::string root = scratch.path;
    std::string game, source;

    void SetUp() override
    {
        static bool allegroStarted = false;
        if (!allegroStarted)
            allegroStarted = install_allegro(SYSTEM_NONE, &errno, atexit) == 0;
        game = root + "/game";
        fs::create_directories(game + "/custom");
        snprintf(DataRoot, sizeof DataRoot, "%s", game.c_str());
        const char *src = std::getenv("DELVEMOOR_SOURCE_DIR");
        source = src ? src : "..";
        fs::copy_file(source + "/assets/gamedir/gameconfig.cfg", game + "/gameconfig.cfg");
        setenv("HOME", (root + "/home").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (root + "/xdg-config").c_str(), 1);
        setenv("XDG_DATA_HOME", (root + "/xdg-data").c_str(), 1);
        setenv("XDG_STATE_HOME", (root + "/xdg-state").c_str(), 1);
    }

    void TearDown() override { closeLog(); }

    void installForSystem() { writeText(game + "/" + SYSTEM_INSTALL_MARK, "installed\n"); }
};

TEST_F(PlayerFiles, AGameFolderOfThePlayersOwnKeepsEverythingTogether)
{
    EXPECT_TRUE(playerFilesBesideGame());
    EXPECT_EQ(playerFilePath(PlayerConfig), game + "/gameconfig.cfg");
    EXPECT_EQ(playerFilePath(PlayerLog), game + "/gamelog.txt");
    EXPECT_EQ(playerFilePath(PlayerCustomFolder), game + "/custom");
    EXPECT_EQ(shippedCustomFolder(), playerFilePath(PlayerCustomFolder));
    openLog();
    preparePlayerFiles();
    closeLog();
    EXPECT_NE(readFile(game + "/gamelog.txt").find("kept in the game folder"), std::string::npos);
    EXPECT_FALSE(fs::exists(root + "/xdg-config")) << "nothing is made in the player's folders";
    EXPECT_FALSE(fs::exists(root + "/xdg-state"));
}

TEST_F(PlayerFiles, AnInstalledGameUsesThePlayersXdgFoldersAndSeedsTheSettingsOnce)
{
    installForSystem();
    EXPECT_FALSE(playerFilesBesideGame()) << "even for root, who may write into the game folder";

    const std::string config = root + "/xdg-config/delvemoor/gameconfig.cfg";
    const std::string log = root + "/xdg-state/delvemoor/gamelog.txt";
    openLog();
    preparePlayerFiles();
    closeLog();
    ASSERT_TRUE(fs::exists(log));
    const std::string logged = readFile(log);
    EXPECT_NE(logged.find("Settings: " + config), std::string::npos);
    EXPECT_NE(logged.find("Custom levels: " + root + "/xdg-data/delvemoor/custom"), std::string::npos);
    EXPECT_EQ(readFile(config), readFile(game + "/gameconfig.cfg")) << "seeded from the shipped copy";
    EXPECT_EQ(fs::status(root + "/xdg-state/delvemoor").permissions() & fs::perms::all, fs::perms::owner_all);

    // The player's settings are theirs from now on: a later start keeps them.
    std::string own = readFile(config);
    own.replace(own.find("SCROLLSPEED = "), own.find('\n', own.find("SCROLLSPEED = ")) - own.find("SCROLLSPEED = "),
                "SCROLLSPEED = 3");
    writeText(config, own);
    preparePlayerFiles();
    EXPECT_EQ(readFile(config), own);
    readConfig();
    EXPECT_EQ(settings.scrollSpeed, 3) << "the reader opens the player's copy, not the shipped one";
    EXPECT_FALSE(fs::exists(game + "/gamelog.txt"));

    // Unset or relative variables fall back to the XDG defaults under HOME.
    unsetenv("XDG_CONFIG_HOME");
    setenv("XDG_STATE_HOME", "relative/state", 1);
    unsetenv("XDG_DATA_HOME");
    EXPECT_EQ(playerFilePath(PlayerConfig), root + "/home/.config/delvemoor/gameconfig.cfg");
    EXPECT_EQ(playerFilePath(PlayerLog), root + "/home/.local/state/delvemoor/gamelog.txt");
    EXPECT_EQ(playerFilePath(PlayerCustomFolder), root + "/home/.local/share/delvemoor/custom");
    EXPECT_TRUE(fs::is_directory(root + "/home/.local/share/delvemoor/custom"));
    EXPECT_FALSE(fs::exists("relative"));
}

TEST_F(PlayerFiles, CustomGameListsThePlayersLevelsAndTheShippedExamples)
{
    const char *gameDir = std::getenv("DELVEMOOR_GAME_DIR");
    if (!gameDir)
        GTEST_SKIP() << "needs the built game's datafile";
    fs::create_directory_symlink(std::string(gameDir) + "/DATA", game + "/DATA");
    buildCampaignLevelNames();
    installForSystem();
    const std::string example = source + "/levels/custom/crossing.level";
    fs::copy_file(example, game + "/custom/crossing.level");
    fs::copy_file(source + "/levels/custom/up-and-over.level", game + "/custom/up-and-over.level");
    fs::permissions(game + "/custom", fs::perms::owner_write, fs::perm_options::remove);
    const std::string own = playerFilePath(PlayerCustomFolder);
    // The player's edited copy of an example shadows it; the rest are listed beside.
    std::string edited = readFile(example);
    edited.replace(0, edited.find('\n'), "My Crossing");
    writeText(own + "/crossing.level", edited);

    auto listed = [] {
        loadLevelCatalogue();
        std::vector<std::string> out;
        for (int list = LEVEL_LIST_COUNT / 2; list < LEVEL_LIST_COUNT; list++)
            for (const CatalogueEntry &e : levelLists[list])
                out.push_back(e.title + " @ " + e.path);
        std::sort(out.begin(), out.end());
        return out;
    };
    std::vector<std::string> entries = listed();
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0], "My Crossing @ " + own + "/crossing.level");
    EXPECT_NE(entries[1].find(" @ " + game + "/custom/up-and-over.level"), std::string::npos);

    // An example opened in the editor is saved as a new level of the player's.
    ASSERT_TRUE(openEditorLevel(game + "/custom/up-and-over.level", false));
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(editorDoc.path.rfind(own + "/", 0), 0u) << editorDoc.path;
    EXPECT_TRUE(fs::exists(editorDoc.path));
    entries = listed();
    ASSERT_EQ(entries.size(), 2u) << "the saved copy takes the example's place in the list";
    EXPECT_NE(entries[1].find(" @ " + editorDoc.path), std::string::npos) << entries[1];
    fs::permissions(game + "/custom", fs::perms::owner_write, fs::perm_options::add);
}
