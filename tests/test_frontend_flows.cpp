// The screens around the level as a player clicks through them: the real
// handlers, fed frame by frame with a scripted pointer and mouse button,
// drawing into an offscreen OSMesa context. The campaign comes from the
// build's own datafile; the custom folder is made fresh for each test.

#include "app/config.h"
#include "app/log.h"
#include "app/screens.h"
#include "app/startup.h"
#include "audio/audio.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/screens.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "world/catalogue.h"
#include "world/level.h"
#include "world/passwords.h"
#include "support/level_grid.h"
#include "support/offscreen_gl.h"
#include "support/scratch.h"
#include "support/scripted_input.h"

#include <allegro.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

// Each black frame of a blackout lets one tick of the timer pass.
static void blackFramePassesATick() { tickCounter++; }

// A small custom level that the loader accepts: a rocket on the surface and
// one pod under it, on the given planet.
static std::string smallLevel(const std::string &title, int planet, int mission)
{
    LevelFile f({"B...B", "B...B", "B...B", "B...B", "B...B", "B...B", "BT..B", "B##PB", "BBBBB"});
    f.title = title;
    f.planet = std::to_string(planet);
    f.missionNumber = std::to_string(mission);
    f.campaignLevel = f.reserved = "0";
    f.credits = "500";
    return f.text();
}

class FrontEnd : public ::testing::Test {
protected:
    ScratchFolder scratch{"delvemoor-frontend"};
    const std::string root = scratch.path;

    static void SetUpTestSuite()
    {
        install_allegro(SYSTEM_NONE, &errno, atexit);
        useOffscreenContext();
        readMouseButtons = scriptedMouse;
        nextTypedKey = scriptedKey;
        presentBlackFrame = blackFramePassesATick;
        buildCampaignLevelNames();
        buildPasswordTable();
    }
    void SetUp() override
    {
        const char *gameDir = getenv("DELVEMOOR_GAME_DIR");
        ASSERT_NE(gameDir, nullptr);
        ASSERT_EQ(symlink((std::string(gameDir) + "/DATA").c_str(), (root + "/DATA").c_str()), 0);
        ASSERT_EQ(mkdir((root + "/custom").c_str(), 0755), 0);
        snprintf(DataRoot, sizeof DataRoot, "%s", root.c_str());
        openLogAt((root + "/gamelog.txt").c_str());

        // A fresh run of the game.
        campaignMode = 1;
        missionsUnlocked = 1;
        planetProgress = 1;
        memset(newPlanetFlag, 0, sizeof newPlanetFlag);
        missionJustUnlocked = false;
        savedPassword = passwordTable[0];
        enteredText.clear();
        cursorPos = 0;
        selectedPlanet = 1;
        missionList.currentIndex = 0;
        selectScreen.messageAlpha = selectScreen.modeAlpha = 1;
        selectScreen.messageChangePending = selectScreen.modeChangePending = false;
        selectScreen.arrowHint = selectScreen.hintPanel = 0;
        transition = {};
        scriptedButtons = 0;
        typedKeys.clear();
        SoundRequest = SoundRequestIdle;
        InterfaceSoundRequest = 0;
        tickCounter = 0;
        levelReturnScreen = GameSelect;
        for (std::list<CatalogueEntry> &list : levelLists)
            list.clear();
        setScreen(MainMenu);
    }

    void TearDown() override { closeLog(); }

    void frame(float x, float y, bool down, bool keys = false) { handFrame(x, y, down ? 1 : 0, keys); }

    void click(float x, float y)
    {
        frame(x, y, true);
        frame(x, y, false);
    }
    void click(const Button &b) { click(b.x, b.y); }

    // Idle frames until the screen is reached; false if it never is.
    bool settleOn(u32 screen, int frames = 200)
    {
        for (int i = 0; i < frames; i++) {
            if (currentScreen == screen && transition.alpha == 0.0f)
                return true;
            frame(0, 0, false);
        }
        return currentScreen == screen;
    }

    void settleFades()
    {
        for (int i = 0; i < 40; i++)
            frame(0, 0, false);
    }

    // From the main menu into the selection screen, as "New Game" does it.
    void newGame()
    {
        click(mainNewGameButton);
        ASSERT_TRUE(settleOn(GameSelect));
        settleFades();
    }

    void startShownMission()
    {
        ASSERT_TRUE(missionCanStart());
        click(startMissionButton);
        ASSERT_TRUE(settleOn(Playing));
    }

    // The level is won: the game screen hands over to its mission-complete
    // panel, and the player reads the password and presses "Continue".
    void winAndContinue()
    {
        setScreen(MissionComplete);
        frame(0, 0, false);
        click(missionContinueButton);
        ASSERT_TRUE(settleOn(GameSelect));
        settleFades();
    }

    static std::string nameOf(const std::string &path) { return path.substr(path.find_last_of("/#") + 1); }

    void typeText(const std::string &text)
    {
        for (char c : text)
            typedKeys.push_back((unsigned char)c);
    }
};


TEST_F(FrontEnd, CampaignFromNewGameThroughWinsToTheNextPlanet)
{
    newGame();
    ASSERT_EQ(levelLists[0].size(), 15u);
    int32_t previous = 0;
    for (const CatalogueEntry &e : levelLists[0]) {
        EXPECT_GE(e.missionNumber, previous) << "sorted by mission number";
        previous = e.missionNumber;
    }

    // Planet 1, its first mission, start.
    click(planetButtons[0]);
    settleFades();
    EXPECT_EQ(selectedPlanet, 1);
    EXPECT_EQ(nameOf(missionList.currentPath), "P1M01_LEV");
    startShownMission();
    EXPECT_EQ(nameOf(chosenLevelPath), "P1M01_LEV");
    EXPECT_EQ(currentLevel.missionNumber, 1);
    EXPECT_GT(mission.podCount, 0) << "the real counters replace the placeholders";
    EXPECT_TRUE(introBanner.active) << "the level opens with its banner";

    // Winning the newest mission shows the next password and opens mission 2.
    winAndContinue();
    EXPECT_EQ(savedPassword, passwordTable[1]);
    EXPECT_EQ(missionsUnlocked, 2);
    EXPECT_EQ(missionMessage, 2) << "New Mission Unlocked!";
    EXPECT_TRUE(selectScreen.arrowHint) << "the first unlock explains the arrow";
    click(nextMissionButton);
    EXPECT_FALSE(selectScreen.arrowHint);
    frame(0, 0, false);
    EXPECT_EQ(nameOf(missionList.currentPath), "P1M02_LEV");
    click(nextMissionButton);
    frame(0, 0, false);
    EXPECT_EQ(nameOf(missionList.currentPath), "P1M02_LEV") << "mission 3 is not open yet";

    // Winning an older mission changes nothing.
    click(previousMissionButton);
    frame(0, 0, false);
    EXPECT_EQ(nameOf(missionList.currentPath), "P1M01_LEV");
    startShownMission();
    winAndContinue();
    EXPECT_EQ(missionsUnlocked, 2);
    EXPECT_EQ(savedPassword, passwordTable[1]);

    // Planet 2 cannot be started before the campaign reaches it.
    click(planetButtons[1]);
    settleFades();
    EXPECT_EQ(selectedPlanet, 2);
    EXPECT_EQ(missionMessage, MessagePlanetLocked);
    EXPECT_FALSE(missionCanStart());

    // The fifteenth mission opens planet 2, which flashes until clicked.
    missionsUnlocked = 15;
    click(planetButtons[0]);
    settleFades();
    for (int i = 0; i < 20; i++)
        click(nextMissionButton);
    frame(0, 0, false);
    EXPECT_EQ(nameOf(missionList.currentPath), "P1M15_LEV");
    startShownMission();
    winAndContinue();
    EXPECT_EQ(missionsUnlocked, 16);
    EXPECT_EQ(planetProgress, 2);
    EXPECT_EQ(savedPassword, passwordTable[15]);
    EXPECT_TRUE(newPlanetFlag[1]);
    click(planetButtons[1]);
    settleFades();
    EXPECT_FALSE(newPlanetFlag[1]);
    EXPECT_EQ(missionMessage, 1);
    EXPECT_TRUE(missionCanStart());
    EXPECT_EQ(nameOf(missionList.currentPath), "P2M01_LEV");

    // Back to the menu and into the selection screen again: it reopens as left.
    click(selectReturnButton);
    ASSERT_TRUE(settleOn(MainMenu));
    newGame();
    EXPECT_EQ(selectedPlanet, 1) << "New Game starts on planet 1";
    EXPECT_EQ(missionsUnlocked, 16);
}

TEST_F(FrontEnd, PasswordsRestoreAPositionAndAWrongOneOnlySounds)
{
    newGame();
    const struct {
        std::string typed;
        int32_t unlocked, planet, sound;
    } cases[] = {
        {"girder", 3, 1, 5},                  // lower case comes out in capitals
        {"NOPE", 3, 1, 4},                    // wrong: only the sound
        {passwordTable[15], 16, 2, 5},        // opens planet 2
        {passwordTable[14], 15, 1, 5},        // and back
        {passwordTable[0], 1, 1, 5},          // the start of the campaign
        {passwordTable[59], 60, 4, 5},
        {"", 60, 4, 4},
    };
    for (const auto &c : cases) {
        click(enterPasswordButton);
        ASSERT_EQ(currentScreen, (u32)PasswordEntry) << c.typed;
        enteredText.clear();
        cursorPos = 0;
        typeText(c.typed);
        frame(0, 0, false);
        SoundRequest = SoundRequestIdle;
        std::string before = savedPassword;
        click(dialogLowerButton);
        EXPECT_EQ(currentScreen, (u32)GameSelect) << "Continue always closes the panel";
        EXPECT_EQ(missionsUnlocked, c.unlocked) << c.typed;
        EXPECT_EQ(planetProgress, c.planet) << c.typed;
        EXPECT_EQ(SoundRequest, c.sound) << c.typed;
        if (c.sound == 4)
            EXPECT_EQ(savedPassword, before);
        else
            EXPECT_EQ(savedPassword, enteredText);
        frame(0, 0, false);
    }
}

// The line editor against every kind of key: the bound is on the cursor, the
// text never leaves the form the passwords have, and nothing reads past it.
TEST_F(FrontEnd, PasswordEntryTakesOnlyWhatAPasswordCanHold)
{
    auto key = [](int scancode, int c) { return (scancode << 8) | c; };
    struct Case {
        std::vector<int> keys;
        std::string text;
        int cursor;
    };
    const Case cases[] = {
        {{'a', 'b', '1', ' ', '_', '!'}, "AB1 _!", 6},
        {{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', 'I'}, "ABCDEFGH", 8},
        {{'A', 'B', 'C', 'D', 'E', 'F', 'G', 'H', key(KEY_LEFT, 0), key(KEY_LEFT, 0), 'X'}, "ABCDEFXGH", 7},
        {{key(KEY_BACKSPACE, 8), key(KEY_DEL, 127), 'Q'}, "Q", 1},
        {{'A', 'B', key(KEY_LEFT, 0), key(KEY_BACKSPACE, 8)}, "B", 0},
        {{'A', 'B', key(KEY_LEFT, 0), key(KEY_DEL, 127), key(KEY_RIGHT, 0), key(KEY_RIGHT, 0)}, "A", 1},
        {{key(KEY_F1, 0), key(KEY_ESC, 27), key(KEY_ENTER, 13), '{', '~', 0x7F, 0xE9, '`', 'z'}, "Z", 1},
        {{'[', '\\', ']', '^'}, "", 0},
    };
    for (const Case &c : cases) {
        enteredText.clear();
        cursorPos = 0;
        for (int k : c.keys)
            typePasswordKey(k);
        EXPECT_EQ(enteredText, c.text);
        EXPECT_EQ(cursorPos, c.cursor);
    }
    // Every byte a keyboard can send, in any order, keeps the cursor inside the text.
    srand(7);
    enteredText.clear();
    cursorPos = 0;
    for (int i = 0; i < 20000; i++) {
        typePasswordKey(rand() & 0xFFFF);
        ASSERT_GE(cursorPos, 0);
        ASSERT_LE(cursorPos, (int32_t)enteredText.size());
        ASSERT_LE(enteredText.size(), 9u + (size_t)i);
        for (char ch : enteredText)
            ASSERT_TRUE((ch >= ' ' && ch <= 'Z') || ch == '_') << (int)ch;
    }
    // A cursor knocked out of the text is brought back before any edit.
    enteredText = "AB";
    cursorPos = 40;
    typePasswordKey(KEY_BACKSPACE << 8);
    EXPECT_EQ(enteredText, "A");
    cursorPos = -3;
    typePasswordKey(KEY_DEL << 8);
    EXPECT_EQ(enteredText, "");
}

// A password that repeats or that the entry line cannot take restores nothing.
TEST_F(FrontEnd, ThePasswordTableHasSixtyDistinctTypeableEntries)
{
    std::set<std::string> seen;
    for (int i = 0; i < PASSWORD_COUNT; i++) {
        const std::string &p = passwordTable[i];
        EXPECT_TRUE(seen.insert(p).second) << p << " twice";
        EXPECT_TRUE(p.size() >= 2 && p.size() <= (size_t)PASSWORD_MAX_LENGTH) << p;
        for (char c : p)
            EXPECT_TRUE((c >= ' ' && c <= 'Z') || c == '_') << p;
    }
}

TEST_F(FrontEnd, CustomModeListsTheCustomFolderAndSkipsWhatItCannotRead)
{
    const std::string folder = root + "/custom";
    writeFile(folder + "/b-cave.lev", smallLevel("Second Cave", 2, 7));
    writeFile(folder + "/a-cave.lev", smallLevel("First Cave", 2, 3));
    writeFile(folder + "/campaign-flag.lev", [] {
        std::string s = smallLevel("Flagged", 1, 1);
        s.replace(s.find("\n0\n0\n500"), 8, "\n1\n0\n500");
        return s;
    }());
    writeFile(folder + "/empty.lev", "");
    writeFile(folder + "/binary.lev", std::string("\x7f" "ELF\0\0\xff\xfe", 8) + std::string(300, '\x01'));
    writeFile(folder + "/planet9.lev", smallLevel("Nowhere", 9, 1));
    writeFile(folder + "/.hidden.lev", smallLevel("Hidden", 1, 1));
    writeFile(folder + "/b-cave.solution", "1 hatcher 3 7\n");
    ASSERT_EQ(mkdir((folder + "/a-folder.lev").c_str(), 0755), 0);
    ASSERT_EQ(mkfifo((folder + "/pipe.lev").c_str(), 0644), 0);
    writeFile(folder + "/huge.lev", "");
    ASSERT_EQ(truncate((folder + "/huge.lev").c_str(), 64L << 20), 0);

    newGame();
    ASSERT_EQ(levelLists[4 + 1].size(), 2u);
    EXPECT_EQ(levelLists[4 + 1].front().title, "First Cave");
    EXPECT_EQ(levelLists[4 + 1].back().title, "Second Cave");
    ASSERT_EQ(levelLists[4].size(), 1u) << "a file of the folder is custom whatever its flag";
    EXPECT_EQ(levelLists[0].size(), 15u);
    const std::string log = readFile(root + "/gamelog.txt");
    for (const char *name : {"empty.lev", "binary.lev", "planet9.lev", "a-folder.lev", "pipe.lev", "huge.lev"})
        EXPECT_NE(log.find(std::string("Custom level ") + name + " is left out"), std::string::npos) << name;
    EXPECT_EQ(log.find("Hidden"), std::string::npos);
    EXPECT_EQ(log.find("b-cave.solution"), std::string::npos) << "a proof beside its level is no level";

    // Custom mode, planet 2, the second level; start it.
    click(gameModeButton);
    settleFades();
    ASSERT_EQ(campaignMode, 0);
    click(planetButtons[1]);
    settleFades();
    click(nextMissionButton);
    frame(0, 0, false);
    EXPECT_EQ(nameOf(missionList.currentPath), "b-cave.lev");
    startShownMission();
    EXPECT_EQ(currentLevel.title, "Second Cave");
    EXPECT_EQ(mission.podCount, 1);

    // A custom win touches no campaign progress.
    winAndContinue();
    EXPECT_EQ(missionsUnlocked, 1);
    EXPECT_EQ(savedPassword, passwordTable[0]);

    // A level deleted behind the game's back: back to the list, with a word why.
    click(nextMissionButton);
    frame(0, 0, false);
    ASSERT_EQ(nameOf(missionList.currentPath), "b-cave.lev");
    ASSERT_EQ(unlink((folder + "/b-cave.lev").c_str()), 0);
    click(startMissionButton);
    ASSERT_TRUE(settleOn(GameSelect));
    EXPECT_EQ(missionMessage, MessageLevelUnreadable);
    EXPECT_EQ(levelLists[4 + 1].size(), 1u);

    // Back to the campaign: its message comes back with it.
    click(gameModeButton);
    settleFades();
    EXPECT_EQ(campaignMode, 1);
}

// A custom level edited or removed behind the game's back, at its start and
// at a Retry: back to the list with the reason, the menu's music on, and no
// false win on the way.
TEST_F(FrontEnd, ALevelThatCannotBeReadAgainLeadsBackToTheListWithTheMenuMusic)
{
    const std::string folder = root + "/custom";
    writeFile(folder + "/a-cave.lev", smallLevel("First Cave", 1, 1));
    writeFile(folder + "/b-cave.lev", smallLevel("Second Cave", 1, 2));
    newGame();
    click(gameModeButton);
    settleFades();
    ASSERT_EQ(campaignMode, 0);
    currentTrack = pendingTrack = 0;  // the menu's music is playing

    ASSERT_EQ(nameOf(missionList.currentPath), "a-cave.lev");
    ASSERT_EQ(unlink((folder + "/a-cave.lev").c_str()), 0);
    click(startMissionButton);
    ASSERT_TRUE(settleOn(GameSelect));
    EXPECT_EQ(missionMessage, MessageLevelUnreadable);
    EXPECT_EQ(pendingTrack, 0) << "the level's music must not follow the player back to the list";

    ASSERT_EQ(nameOf(missionList.currentPath), "b-cave.lev");
    startShownMission();
    EXPECT_EQ(pendingTrack, 2);
    currentTrack = 2;
    setScreen(Paused);
    ASSERT_EQ(unlink((folder + "/b-cave.lev").c_str()), 0);
    click(pauseRetryButton);
    for (int i = 0; i < 200 && !(currentScreen == GameSelect && transition.alpha == 0.0f); i++) {
        frame(0, 0, false);
        ASSERT_NE(currentScreen, (u32)MissionComplete) << "a level that was not loaded is not won";
        ASSERT_NE(currentScreen, (u32)Playing);
    }
    EXPECT_EQ(currentScreen, (u32)GameSelect);
    EXPECT_EQ(missionMessage, MessageLevelUnreadable);
    EXPECT_EQ(pendingTrack, 0);

    // The editor opens on an empty status line, whatever the last game said.
    setStatus(StatusLaunching);
    for (int i = 0; i < 30; i++)
        tickStatus();
    ASSERT_EQ(statusLine.current, StatusLaunching);
    setScreen(MainMenu);
    click(mainEditorButton);
    for (int i = 0; i < 200 && !(currentScreen == LevelEditor && transition.alpha == 0.0f); i++) {
        frame(0, 0, false);
        if (transition.phase == 1 || currentScreen == LevelEditor)
            ASSERT_EQ(statusLine.current, StatusEmpty) << "the editor shows the last game's message";
    }
    EXPECT_EQ(currentScreen, (u32)LevelEditor);
}

TEST_F(FrontEnd, AFolderOfThousandsOfFilesIsReadOnlyAsFarAsTheLimit)
{
    const std::string folder = root + "/custom";
    const std::string level = smallLevel("Many", 3, 1);
    for (int i = 0; i < CUSTOM_LEVEL_LIMIT + 40; i++) {
        char name[64];
        snprintf(name, sizeof name, "/level%05d.lev", i);
        writeFile(folder + name, level);
    }
    loadLevelCatalogue();
    EXPECT_EQ(levelLists[4 + 2].size(), (size_t)CUSTOM_LEVEL_LIMIT);
    EXPECT_NE(readFile(root + "/gamelog.txt").find("40 are left out"), std::string::npos);
}

TEST_F(FrontEnd, OptionsApplyVolumesAtOnceAndVideoOnlyToTheWrittenConfiguration)
{
    settings = {0, 1, 5, 1, 4, 6};
    syncOptionsWithSettings();

    click(mainOptionsButton);
    ASSERT_TRUE(settleOn(Options));

    // Sound to 8, music to 2, scroll speed to 10: heard at once.
    InterfaceSoundRequest = 0;
    click(soundVolumeSlider.x + 7 * 16, soundVolumeSlider.y);
    EXPECT_EQ(settings.soundVolume, 8);
    EXPECT_EQ(effectVolume, volumeForLevel(8));
    EXPECT_EQ(InterfaceSoundRequest, 13);
    InterfaceSoundRequest = 0;
    click(soundVolumeSlider.x + 7 * 16, soundVolumeSlider.y);
    EXPECT_EQ(InterfaceSoundRequest, 0) << "no sound when the value stays";
    click(musicVolumeSlider.x + 16, musicVolumeSlider.y);
    EXPECT_EQ(settings.musicVolume, 2);
    EXPECT_EQ(musicVolume, volumeForLevel(2));
    click(scrollSpeedSlider.x + 9 * 16, scrollSpeedSlider.y);
    EXPECT_EQ(settings.scrollSpeed, 10);

    // Video choices wait for the next start: only the configuration changes.
    click(fullscreenModeButton);
    click(color16Button);
    EXPECT_EQ(settings.fullscreen, 1);
    EXPECT_EQ(settings.colorDepth32, 0);
    EXPECT_EQ(options.noticeRising, 1);
    const std::string path = root + "/gameconfig.cfg";
    ASSERT_TRUE(writeConfigTo(path.c_str()));
    const std::string written = readFile(path);
    for (const char *line : {"SCREENMODE = FULLSCREEN\n", "COLORDEPTH = 16\n", "SCROLLSPEED = 10\n",
                             "SOUND VOLUME = 8\n", "MUSIC VOLUME = 2\n"})
        EXPECT_NE(written.find(line), std::string::npos) << line;

    click(optionsReturnButton);
    EXPECT_TRUE(settleOn(MainMenu));
}

// Help, credits and the exit screen end where the player expects, and
// nothing acts on a click or a key during a fade.
// Behind a fade's veil no screen acts: with the buttons of both screens
// clicked in turn and every key held all through it, each fade runs once to
// the screen it set out for and changes nothing on the way.
TEST_F(FrontEnd, NothingActsBehindAFadesVeil)
{
    const GameSettings chosen = settings;
    options.noticeRising = openManualRequested = openWebsiteAfterExit = 0;
    auto clickThroughFade = [&](u32 to, std::vector<const Button *> buttons) {
        EXPECT_EQ(currentScreen, (u32)Transition);
        for (int i = 0; currentScreen == Transition && i < 200; i++) {
            const Button &b = *buttons[(size_t)(i / 2) % buttons.size()];
            frame(b.x, b.y, i % 2 == 0, true);
            ASSERT_TRUE(currentScreen != Transition || (transition.to == to && transition.alpha != 0))
                << "a fade to " << to << " was started again or turned aside";
        }
        frame(0, 0, false);
        EXPECT_EQ(currentScreen, to);
        EXPECT_FALSE(openManualRequested || transition.quitWhenDark || openWebsiteAfterExit || options.noticeRising);
        EXPECT_TRUE(settings.fullscreen == chosen.fullscreen && settings.colorDepth32 == chosen.colorDepth32);
        EXPECT_EQ(selectedPlanet, 1);
        EXPECT_FALSE(selectScreen.messageChangePending || selectScreen.modeChangePending);
    };
    const std::vector<const Button *> menu = {&mainNewGameButton, &mainEditorButton,  &mainHelpButton,
                                              &mainOptionsButton, &mainCreditsButton, &mainExitButton};
    auto with = [&](std::vector<const Button *> more) {
        more.insert(more.end(), menu.begin(), menu.end());
        return more;
    };

    click(mainHelpButton);
    clickThroughFade(Help, with({&dialogUpperButton, &dialogLowerButton}));
    click(dialogLowerButton);
    clickThroughFade(MainMenu, with({&dialogUpperButton, &dialogLowerButton}));
    click(mainOptionsButton);
    clickThroughFade(Options, with({&fullscreenModeButton, &color16Button, &optionsReturnButton}));
    click(optionsReturnButton);
    clickThroughFade(MainMenu, with({&fullscreenModeButton, &color16Button, &optionsReturnButton}));
    click(mainExitButton);
    clickThroughFade(ExitScreen, with({&exitWebPageButton, &exitGameButton}));

    setScreen(MainMenu);
    const std::vector<const Button *> select = {&planetButtons[1],   &nextMissionButton,  &gameModeButton,
                                                &startMissionButton, &selectReturnButton, &enterPasswordButton};
    click(mainNewGameButton);
    clickThroughFade(GameSelect, with(select));
    settleFades();
    click(startMissionButton);
    clickThroughFade(Playing, {&startMissionButton, &selectReturnButton, &gameMenuButton, &toolButtons[0]});
    setScreen(Paused);
    click(pauseExitButton);
    clickThroughFade(GameSelect, {&pauseResumeButton, &pauseRetryButton, &pauseExitButton, &selectReturnButton});
    setScreen(MissionFailed);
    click(missionContinueButton);
    clickThroughFade(GameSelect, {&missionContinueButton, &startMissionButton, &selectReturnButton});

    // Once the fade is over the keys act again: the Right arrow opens the
    // credits at once, Escape leaves them.
    setScreen(MainMenu);
    frame(0, 0, false, true);
    EXPECT_EQ(currentScreen, (u32)CreditsScreen);
    frame(0, 0, false, true);
    ASSERT_TRUE(settleOn(MainMenu));
    for (int i = 0; i < CREDIT_STRING_COUNT; i += 2)
        EXPECT_LE(strlen(CreditLines[i + 1]) * 14, 620u) << CreditLines[i + 1] << " is wider than the screen";

    // The help and exit screens' buttons act once they are on screen.
    click(mainHelpButton);
    ASSERT_TRUE(settleOn(Help));
    musicStopping = 0;
    click(dialogUpperButton);
    EXPECT_TRUE(openManualRequested && musicStopping);
    openManualRequested = musicStopping = 0;
    transition = {};
    setScreen(MainMenu);
    click(mainExitButton);
    ASSERT_TRUE(settleOn(ExitScreen));
    click(exitGameButton);
    for (int i = 0; i < 40 && !quitRequested; i++)
        frame(0, 0, false);
    EXPECT_TRUE(quitRequested);
    EXPECT_FALSE(openWebsiteAfterExit);
    quitRequested = 0;
    transition = {};
}
