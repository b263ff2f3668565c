// The level editor as a player uses it: the mouse and keys go through the
// real screen handlers (editorTick, editorFrame), and what is saved is read
// back by the game's own loader and proven by the game's own driver.

#include "app/atomic_write.h"
#include "app/screens.h"
#include "app/startup.h"
#include "render/draw.h"
#include "editor/editor.h"
#include "editor/editorscreen.h"
#include "editor/paint.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/screens.h"
#include "game/camera.h"
#include "game/driver.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "game/status.h"
#include "world/catalogue.h"
#include "world/level.h"
#include "world/level_writer.h"
#include "support/scratch.h"
#include "support/scripted_input.h"

#include <allegro.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fs = std::filesystem;

static void frame(float px, float py, int buttons)
{
    handFrame(px, py, buttons);
}

static void click(float px, float py)
{
    frame(px, py, 1);
    frame(px, py, 0);
}

static void clickButton(const Button &b)
{
    click(b.x, b.y);
}

static void chooseTool(int32_t tool)
{
    clickButton(paletteButton(tool));
    ASSERT_EQ(currentTool, tool);
}

// With the view at camX = 0, camY = -400, where rows 2 to 11 lie in the
// band between the panels.
static float cellPointerX(int x) { return 32.0f * x + 16 - camX; }
static float cellPointerY(int y) { return 416.0f - 32 * y; }

static void paintAt(int x, int y)
{
    frame(cellPointerX(x), cellPointerY(y), 1);
    ASSERT_EQ(currentLevel.cursorX, x);
    ASSERT_EQ(currentLevel.cursorY, y);
    frame(cellPointerX(x), cellPointerY(y), 0);
}

static void type(const std::string &text)
{
    for (char c : text)
        typedKeys.push_back((unsigned char)c);
}

static void typeScancode(int scancode)
{
    typedKeys.push_back(scancode << 8);
}

static int countPods()
{
    countEditorPods(currentLevel);
    return editorPodCount;
}

struct Editor : ::testing::Test {
    // Every save flushes to disk; in memory that costs nothing, and the
    // suite saves often.
    ScratchFolder scratch{"delvemoor-editor", access("/dev/shm", W_OK) == 0 ? "/dev/shm" : ""};
    const std::string root = scratch.path;

    void SetUp() override
    {
        static bool allegroStarted = false;
        if (!allegroStarted)
            allegroStarted = install_allegro(SYSTEM_NONE, &errno, atexit) == 0;
        buildCampaignLevelNames();
        snprintf(DataRoot, sizeof DataRoot, "%s", root.c_str());
        // The campaign lives in the built game's datafile.
        const char *gameDir = std::getenv("DELVEMOOR_GAME_DIR");
        if (gameDir)
            fs::create_directory_symlink(std::string(gameDir) + "/DATA", root + "/DATA");
        readMouseButtons = scriptedMouse;
        nextTypedKey = scriptedKey;
        typedKeys.clear();
        scriptedButtons = 0;
        for (auto &list : levelLists)
            list.clear();
        editorDoc = EditorDocument();
        editorScreen = EditorScreen();
        paintMode = PaintCells;
        areaDrag = AreaDrag{false, 0, 0};
        transition = TransitionState();
        input = InputSnapshot();
        resetStatusLine();
        resetMission();
        std::srand(7);
        currentScreen = LevelEditor;
        frame(320, 200, 0);     // the first frame opens a blank level
        camX = 0;
        camY = -400;
        frame(320, 200, 0);
    }

    void TearDown() override
    {
        chmod((root + "/custom").c_str(), 0755);  // so that it can be removed
    }

    std::string folder() const { return root + "/custom"; }

    std::vector<std::string> folderNames() const
    {
        std::vector<std::string> names;
        for (const auto &e : fs::directory_iterator(folder()))
            names.push_back(e.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }

    // A level a bubbleman walks out of: a pod on the ground at (3, 9) and a
    // rocket three cells to its right, painted with the palette.
    void paintSmallWinnableLevel()
    {
        chooseTool(PaintPod);
        paintAt(3, 9);
        chooseTool(PaintRocket);
        paintAt(6, 9);
    }
};

TEST_F(Editor, PaintRulesThroughTheScreen)
{
    // A blank level: sky, air, then dirt from row 10; the ring is border.
    ASSERT_EQ(currentLevel.width, NEW_LEVEL_WIDTH);
    ASSERT_EQ(currentLevel.height, NEW_LEVEL_HEIGHT);
    EXPECT_EQ(currentLevel.terrain[0][12], Border);
    EXPECT_EQ(currentLevel.terrain[5][8], Empty);
    EXPECT_TRUE(isSupport(currentLevel.terrain[5][10]));

    // Nine pods, then the limit.
    chooseTool(PaintPod);
    for (int i = 0; i < EDITOR_POD_LIMIT; i++) {
        paintAt(2 + i, 10);
        EXPECT_EQ(currentLevel.terrain[2 + i][10], Pod);
        EXPECT_EQ(statusTarget(), paintMessage(PaintPod));
    }
    paintAt(14, 10);
    EXPECT_EQ(statusTarget(), StatusMaxPods);
    EXPECT_NE(currentLevel.terrain[14][10], Pod);
    paintAt(2, 10);     // onto a pod: still nine, still refused
    EXPECT_EQ(countPods(), EDITOR_POD_LIMIT);

    // Clearing one pod makes room for exactly one more.
    chooseTool(ClearTerrain);
    paintAt(2, 10);
    EXPECT_EQ(currentLevel.terrain[2][10], Empty);
    EXPECT_EQ(statusTarget(), paintMessage(ClearTerrain));
    chooseTool(PaintPod);
    paintAt(3, 10);     // onto a pod with eight on the map: allowed, count unchanged
    EXPECT_EQ(countPods(), EDITOR_POD_LIMIT - 1);
    EXPECT_EQ(statusTarget(), paintMessage(PaintPod));
    paintAt(14, 10);
    EXPECT_EQ(currentLevel.terrain[14][10], Pod);
    EXPECT_EQ(countPods(), EDITOR_POD_LIMIT);

    // Dirt painted into the sky says so, and is gone at the next frame; a
    // rocket there stays.
    chooseTool(PaintDirt);
    frame(cellPointerX(5), cellPointerY(3), 1);
    EXPECT_TRUE(currentLevel.terrain[5][3] == Dirt1 || currentLevel.terrain[5][3] == Dirt2);
    EXPECT_EQ(statusTarget(), paintMessage(PaintDirt));
    frame(cellPointerX(5), cellPointerY(3), 0);
    EXPECT_EQ(currentLevel.terrain[5][3], Empty);
    chooseTool(PaintRocket);
    paintAt(6, 3);
    frame(320, 200, 0);
    EXPECT_EQ(currentLevel.terrain[6][3], Rocket);

    // Spikes in mid-air get dirt under them at the next frame.
    chooseTool(PaintSpikes);
    ASSERT_EQ(currentLevel.terrain[20][8], Empty);
    paintAt(20, 7);
    EXPECT_EQ(currentLevel.terrain[20][7], Spikes);
    EXPECT_EQ(currentLevel.terrain[20][8], Dirt1);

    // A right click in the band puts the tool down; over either panel it
    // does nothing.
    chooseTool(PaintVortex);
    frame(320, 400, 2);
    frame(320, 20, 2);
    EXPECT_EQ(currentTool, PaintVortex);
    frame(320, 200, 0);
    frame(cellPointerX(9), cellPointerY(8), 2);
    EXPECT_EQ(currentTool, NoTool);
    EXPECT_EQ(statusTarget(), StatusCancelled);
    frame(cellPointerX(9), cellPointerY(8), 0);
    EXPECT_EQ(currentLevel.terrain[9][8], Empty) << "the cancelling click paints nothing";

    // A held button paints the cell under the pointer in every frame, and
    // skips the cells it jumps over.
    chooseTool(PaintRocks);
    for (int x = 16; x <= 22; x += 2)
        frame(cellPointerX(x), cellPointerY(8), 1);
    frame(cellPointerX(22), cellPointerY(8), 0);
    for (int x = 16; x <= 22; x++) {
        const int32_t code = currentLevel.terrain[x][8];
        if (x % 2 == 0)
            EXPECT_TRUE(code >= Rock1 && code <= Rock3) << x;
        else
            EXPECT_EQ(code, Empty) << x;
    }

    // The editor never builds.
    for (const auto &column : currentLevel.structures)
        for (int32_t code : column)
            EXPECT_EQ(code, 0);
}

TEST_F(Editor, UndoAndRedoTakeWholeStrokes)
{
    const TerrainGrid blank = currentLevel.terrain;
    chooseTool(PaintWater);
    for (int x = 4; x <= 8; x++)
        frame(cellPointerX(x), cellPointerY(6), 1);
    frame(320, 200, 0);
    const TerrainGrid afterWater = currentLevel.terrain;
    chooseTool(PaintCredits);
    paintAt(12, 5);
    const TerrainGrid afterCredits = currentLevel.terrain;
    EXPECT_EQ(undoDepth(), 2u) << "a held stroke is one step";
    EXPECT_TRUE(editorHasUnsavedChanges());

    clickButton(editorBottomPairButtons[0]);    // undo
    EXPECT_EQ(currentLevel.terrain, afterWater);
    typedKeys.push_back(26);                    // Ctrl+Z
    frame(320, 200, 0);
    EXPECT_EQ(currentLevel.terrain, blank);
    EXPECT_FALSE(editorHasUnsavedChanges()) << "back where the level began";
    clickButton(editorBottomPairButtons[0]);
    EXPECT_EQ(statusTarget(), StatusNothingToUndo);

    clickButton(editorBottomPairButtons[1]);    // redo
    EXPECT_EQ(currentLevel.terrain, afterWater);
    typedKeys.push_back(25);                    // Ctrl+Y
    frame(320, 200, 0);
    EXPECT_EQ(currentLevel.terrain, afterCredits);
    EXPECT_TRUE(editorHasUnsavedChanges());

    // Settings are steps too: a new size and credits, undone as one and
    // redone; "Unsaved" follows the content, not the history.
    LevelSettings bigger = currentLevelSettings();
    bigger.width = 34;
    bigger.credits = 50;
    applyLevelSettings(bigger);
    EXPECT_EQ(undoDepth(), 3u);
    undoEdit();
    EXPECT_EQ(currentLevel.width, NEW_LEVEL_WIDTH);
    EXPECT_EQ(editorDoc.credits, NEW_LEVEL_CREDITS);
    EXPECT_EQ(currentLevel.terrain, afterCredits);
    redoEdit();
    EXPECT_EQ(currentLevel.width, 34);
    EXPECT_EQ(editorDoc.credits, 50);
    undoEdit();
    undoEdit();
    undoEdit();
    EXPECT_FALSE(editorHasUnsavedChanges()) << "strokes and settings all undone";
    redoEdit();
    redoEdit();

    // Painting after an undo drops what could have been redone.
    undoEdit();
    chooseTool(PaintDiamonds);
    paintAt(20, 9);
    EXPECT_FALSE(redoEdit());
    EXPECT_EQ(statusTarget(), StatusNothingToRedo);
}

TEST_F(Editor, NewLevelTypedSavedAndLoadedBack)
{
    // A fresh, untouched level asks nothing before a new one.
    clickButton(editorTopRightButton);
    ASSERT_EQ(editorScreen.panel, MenuPanel);
    clickButton(editorColumnButtons[0]);
    ASSERT_EQ(editorScreen.panel, SettingsPanel);

    type("Cave Run");
    typeScancode(KEY_TAB);
    typeScancode(KEY_BACKSPACE);
    typeScancode(KEY_BACKSPACE);
    type("4x0");        // letters do not go into a number
    typeScancode(KEY_TAB);
    typeScancode(KEY_BACKSPACE);
    typeScancode(KEY_BACKSPACE);
    type("16");
    typeScancode(KEY_TAB);
    typeScancode(KEY_HOME);
    typeScancode(KEY_DEL);
    type("3");          // 2000 becomes 3000
    frame(320, 460, 0);
    clickButton(editorLeftColumnButtons[7]);    // lock the shovel
    clickButton(editorGridButtons[2]);          // planet 3
    EXPECT_EQ(editorScreen.settings.planet, 3);
    typeScancode(KEY_ENTER);
    frame(320, 460, 0);
    ASSERT_EQ(editorScreen.panel, NoPanel);
    EXPECT_EQ(currentLevel.title, "Cave Run");
    EXPECT_EQ(currentLevel.width, 40);
    EXPECT_EQ(currentLevel.height, 16);
    EXPECT_EQ(currentLevel.planet, 3);
    EXPECT_EQ(editorDoc.credits, 3000);
    EXPECT_EQ(editorDoc.toolLocked[7], 1);

    camX = 0;
    camY = -400;
    paintSmallWinnableLevel();
    chooseTool(PaintWater);
    paintAt(10, 9);
    chooseTool(PaintExplosive);
    paintAt(14, 9);
    frame(320, 200, 0);

    clickButton(editorTopRightButton);
    clickButton(editorColumnButtons[2]);        // save
    EXPECT_EQ(statusTarget(), StatusLevelSaved);
    EXPECT_FALSE(editorHasUnsavedChanges());
    const std::string path = folder() + "/cave-run.level";
    ASSERT_EQ(editorDoc.path, path);

    Level loaded;
    MissionState state = {};
    std::ifstream in(path);
    std::string error;
    ASSERT_TRUE(parseLevelStream(in, loaded, state, &error)) << error;
    EXPECT_EQ(loaded.title, "Cave Run");
    EXPECT_EQ(loaded.planet, 3);
    EXPECT_NE(loaded.campaignLevel, 1);
    EXPECT_EQ(state.credits, 3000);
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        EXPECT_EQ(state.toolLocked[i], i == 7 ? 1 : 0) << i;
    EXPECT_EQ(state.podCount, 1);
    EXPECT_EQ(state.rocketCount, 1);
    EXPECT_EQ(loaded.terrain, currentLevel.terrain);

    // The catalogue lists it with the custom levels of its planet.
    if (std::getenv("DELVEMOOR_GAME_DIR")) {
        loadLevelCatalogue();
        bool listed = false;
        for (const CatalogueEntry &e : levelLists[LEVEL_LIST_COUNT / 2 + 2])
            listed = listed || e.path == path;
        EXPECT_TRUE(listed);
    }

    // A second level of the same title takes a name of its own.
    LevelSettings again = currentLevelSettings();
    newEditorLevel(again);
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(editorDoc.path, folder() + "/cave-run-2.level");
    EXPECT_EQ(readFile(path).find("Cave Run\n3\n"), 0u) << "the first file is untouched";
}

TEST_F(Editor, AFailedSaveLosesNothing)
{
    chooseTool(PaintPod);
    paintAt(4, 10);
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(statusTarget(), StatusSavedUnplayable) << "a pod but no rocket";
    const std::string path = editorDoc.path;
    const std::string before = readFile(path);

    // The disk fills half way through the new file.
    chooseTool(PaintRocks);
    for (int x = 6; x < 28; x++)
        paintAt(x, 9);
    struct rlimit saved;
    getrlimit(RLIMIT_FSIZE, &saved);
    struct rlimit small = saved;
    small.rlim_cur = before.size() / 2;
    signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    const bool saved1 = saveEditorLevel();
    setrlimit(RLIMIT_FSIZE, &saved);
    EXPECT_FALSE(saved1);
    EXPECT_EQ(statusTarget(), StatusSaveDiskFull);
    EXPECT_EQ(readFile(path), before);
    EXPECT_EQ(folderNames(), std::vector<std::string>{"new-level.level"}) << "no temporary file is left";
    EXPECT_TRUE(editorHasUnsavedChanges());

    // A folder the game may not write to. Root writes anywhere chmod allows
    // nothing, so root meets a file system that refuses everyone instead.
    if (geteuid() != 0) {
        chmod(folder().c_str(), 0555);
        EXPECT_FALSE(saveEditorLevel());
        EXPECT_EQ(statusTarget(), StatusSaveReadOnly);
        EXPECT_EQ(readFile(path), before);
        chmod(folder().c_str(), 0755);
    } else {
        std::string detail;
        EXPECT_EQ(writeFileAtomically("/sys/kernel/delvemoor.level", "x", true, &detail), WriteReadOnly)
            << detail;
    }

    // Leaving with the changes unsaved asks; a failing save keeps the player
    // in the editor; Discard leaves.
    ASSERT_TRUE(editorHasUnsavedChanges());
    input.escape = 0;
    frame(320, 200, 0);
    RawInput raw = {};
    raw.escape = 1;
    sampleInputFrom(raw);
    runScreenLogic(currentScreen);
    ASSERT_EQ(editorScreen.panel, QuestionPanel);
    setrlimit(RLIMIT_FSIZE, &small);
    clickButton(editorPanelButtons[4]);         // Save
    setrlimit(RLIMIT_FSIZE, &saved);
    EXPECT_EQ(currentScreen, (u32)LevelEditor);
    EXPECT_EQ(editorScreen.panel, NoPanel);
    EXPECT_EQ(statusTarget(), StatusSaveDiskFull);
    requestEditorAction(LeaveEditorAction);
    ASSERT_EQ(editorScreen.panel, QuestionPanel);
    clickButton(editorPanelButtons[1]);         // Discard
    EXPECT_EQ(currentScreen, (u32)Transition);
    EXPECT_EQ(transition.to, (u32)MainMenu);
    EXPECT_EQ(readFile(path), before);
    EXPECT_FALSE(editorHasUnsavedChanges()) << "the level is back as its file holds it";
    EXPECT_EQ(levelText(editorDoc.level, editorDoc.credits, editorDoc.toolLocked), before);
}

TEST_F(Editor, QuittingKeepsUnsavedWorkInANewFile)
{
    chooseTool(PaintPod);
    paintAt(4, 9);
    ASSERT_TRUE(saveEditorLevel());
    const std::string before = readFile(editorDoc.path);
    keepUnsavedEditorWork();
    EXPECT_EQ(folderNames(), std::vector<std::string>{"new-level.level"}) << "nothing unsaved, nothing kept";

    chooseTool(PaintRocket);
    paintAt(8, 9);
    const TerrainGrid painted = currentLevel.terrain;
    keepUnsavedEditorWork();
    EXPECT_EQ(folderNames(),
              (std::vector<std::string>{".recovered", "new-level-unsaved.level", "new-level.level"}));
    EXPECT_EQ(readFile(editorDoc.path), before);
    Level kept;
    std::string error;
    ASSERT_TRUE(tryLoadLevelFromFile(kept, (folder() + "/new-level-unsaved.level").c_str(), &error)) << error;
    EXPECT_EQ(kept.terrain, painted);
    EXPECT_EQ(kept.title, "Recovered: New Level");

    // The next start of the game: the editor's first opening offers it back, once.
    editorDoc = EditorDocument();
    editorScreen = EditorScreen();
    frame(320, 200, 0);
    EXPECT_EQ(editorDoc.path, folder() + "/new-level-unsaved.level");
    EXPECT_EQ(currentLevel.terrain, painted);
    EXPECT_EQ(std::string(statusTarget()), "Recovered: New Level");
    EXPECT_FALSE(fs::exists(folder() + "/.recovered"));
}

// Back from a test-play to the editor, through the fade.
static void backToEditor(uint32_t from)
{
    leaveLevel(from);
    for (int i = 0; i < 60 && currentScreen != LevelEditor; i++) {
        transitionTick();
        transitionFrame();
    }
    ASSERT_EQ(currentScreen, (u32)LevelEditor);
    frame(320, 200, 0);
}

TEST_F(Editor, TestPlayReturnsThePaintingUntouched)
{
    paintSmallWinnableLevel();
    chooseTool(PaintDirt);
    paintAt(10, 8);
    const TerrainGrid painted = currentLevel.terrain;
    const size_t steps = undoDepth();

    clickButton(editorCentreButton);            // Test Play
    ASSERT_EQ(currentScreen, (u32)Playing);
    EXPECT_TRUE(recordingPlay);
    EXPECT_EQ(levelReturnScreen, (u32)LevelEditor);
    EXPECT_EQ(mission.podCount, 1);
    EXPECT_EQ(mission.rocketCount, 1);
    EXPECT_EQ(mission.credits, NEW_LEVEL_CREDITS);

    // Play changes the level: a hatcher, a hole. Retry starts the painting
    // afresh, then a bubbleman is lost.
    currentLevel.structures[3][9] = Hatcher;
    currentLevel.terrain[10][8] = Empty;
    mission.credits = 100;
    resetMission();
    reloadLevelForRetry();
    EXPECT_EQ(currentLevel.terrain, painted);
    EXPECT_EQ(currentLevel.structures[3][9], 0);
    EXPECT_EQ(mission.credits, NEW_LEVEL_CREDITS);
    EXPECT_EQ(mission.podsWithoutHatcher, 1);
    currentLevel.structures[3][9] = Hatcher;
    currentLevel.terrain[10][8] = Empty;
    mission.bubblemanLost = true;
    backToEditor(MissionFailed);

    EXPECT_EQ(currentLevel.terrain, painted);
    for (const auto &column : currentLevel.structures)
        for (int32_t code : column)
            EXPECT_EQ(code, 0);
    EXPECT_FALSE(recordingPlay);
    EXPECT_EQ(levelReturnScreen, (u32)GameSelect);
    EXPECT_EQ(statusTarget(), StatusTestPlayNotWon) << statusTarget();
    EXPECT_FALSE(editorProof.valid);
    EXPECT_EQ(undoDepth(), steps) << "undo is kept across a test-play";
    EXPECT_TRUE(undoEdit());
}

// The player's winning run of the level on show: Test Play, the game
// screen driven through the headless driver (which records what it is
// clicked with as a player's clicks are recorded), Launch, and back.
static void winTestPlay()
{
    clickButton(editorCentreButton);            // Test Play
    ASSERT_EQ(currentScreen, (u32)Playing);
    std::istringstream script("1 hatcher 3 9\n5 hatch\n");
    Solution playerRun;
    std::string error;
    ASSERT_TRUE(parseSolution(script, playerRun, &error)) << error;
    RunOptions options;
    options.tickLimit = 400;
    const RunResult run = runSolution(playerRun, options);
    ASSERT_EQ(run.outcome, RunUnfinished) << "without Launch nobody flies";
    ASSERT_EQ(mission.savedCount, 1) << describeRun(run);
    ScriptAction launch = {run.ticks + 1, LaunchAction, 0, 0, 0, 0};
    RunResult rest;
    int32_t outcome = RunUnfinished;
    for (int32_t step = run.ticks + 1; step < run.ticks + 600 && outcome == RunUnfinished; step++)
        outcome = runStep(step, step == run.ticks + 1 ? &launch : nullptr, rest);
    ASSERT_EQ(outcome, RunWon);
    backToEditor(MissionComplete);
}

// What the Open list says of the level at path.
static bool listedProven(const std::string &path)
{
    openOpenPanel();
    editorScreen.panel = NoPanel;
    for (size_t i = 0; i < editorScreen.openEntries.size(); i++)
        if (editorScreen.openEntries[i].path == path)
            return editorScreen.openProven[i];
    ADD_FAILURE() << path << " is not listed";
    return false;
}

// levelcheck's exit status on the level and the proof beside it; -1 when
// the test runs without the tool.
static int levelcheck(const std::string &levelPath)
{
    const char *tool = std::getenv("DELVEMOOR_LEVELCHECK");
    if (!tool)
        return -1;
    const std::string command = std::string(tool) + " '" + levelPath + "' '" + solutionPathFor(levelPath) +
                                "' --strict > /dev/null";
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -2;
}

static int failRenamesAfter = -1;
static int failingRename(const char *from, const char *to)
{
    if (failRenamesAfter-- == 0) {
        errno = EIO;
        return -1;
    }
    return rename(from, to);
}

TEST_F(Editor, AProofIsBoundToTheLevelItWins)
{
    if (!std::getenv("DELVEMOOR_GAME_DIR"))
        GTEST_SKIP() << "the Open list needs the built datafile";
    const bool haveLevelcheck = std::getenv("DELVEMOOR_LEVELCHECK") != nullptr;
    // A pod and no rocket "wins" on its first tick: no proof.
    chooseTool(PaintPod);
    paintAt(3, 9);
    clickButton(editorCentreButton);            // Test Play
    ASSERT_EQ(currentScreen, (u32)Playing);
    runScreenLogic(currentScreen);
    ASSERT_EQ(currentScreen, (u32)MissionComplete);
    backToEditor(MissionComplete);
    EXPECT_EQ(statusTarget(), ProofNeedsPodAndRocket) << statusTarget();
    EXPECT_FALSE(editorProof.valid);
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(statusTarget(), StatusSavedUnplayable);
    const std::string levelPath = editorDoc.path;
    const std::string proofPath = solutionPathFor(levelPath);
    EXPECT_FALSE(fs::exists(proofPath));
    EXPECT_FALSE(listedProven(levelPath));

    // With a rocket, a won test-play waits for the save, then replays.
    chooseTool(PaintRocket);
    paintAt(6, 9);
    winTestPlay();
    EXPECT_EQ(statusTarget(), StatusProofKept) << statusTarget();
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(statusTarget(), StatusSavedProven);
    EXPECT_TRUE(listedProven(levelPath));
    if (haveLevelcheck)
        EXPECT_EQ(levelcheck(levelPath), 0);

    // Credits too few for a hatcher, typed into the settings: unsaved and
    // unproven; undone: saved and proven again, whatever the history says.
    clickButton(editorTopRightButton);
    clickButton(editorFileButtons[2]);          // Settings
    ASSERT_EQ(editorScreen.panel, SettingsPanel);
    for (int i = 0; i < 3; i++)
        typeScancode(KEY_TAB);
    for (int i = 0; i < 4; i++)
        typeScancode(KEY_BACKSPACE);
    type("100");
    typeScancode(KEY_ENTER);
    frame(320, 200, 0);
    ASSERT_EQ(editorDoc.credits, 100);
    EXPECT_TRUE(editorHasUnsavedChanges());
    EXPECT_FALSE(proofMatchesPainting());
    typedKeys.push_back(26);                    // Ctrl+Z
    frame(320, 200, 0);
    EXPECT_FALSE(editorHasUnsavedChanges());
    EXPECT_TRUE(proofMatchesPainting());
    typedKeys.push_back(25);                    // Ctrl+Y: 100 credits again

    // Saving it drops the proof and says so; the list agrees.
    typedKeys.push_back(19);                    // Ctrl+S
    frame(320, 200, 0);
    EXPECT_EQ(statusTarget(), StatusProofDropped) << statusTarget();
    EXPECT_FALSE(fs::exists(proofPath));
    EXPECT_FALSE(listedProven(levelPath));

    // Undone and saved: the run in hand wins it again, no test-play needed;
    // a new title keeps it too, proven afresh by its replay.
    undoEdit();
    LevelSettings renamed = currentLevelSettings();
    renamed.title = "Proven Twice";
    applyLevelSettings(renamed);
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(statusTarget(), StatusSavedProven) << statusTarget();
    EXPECT_TRUE(listedProven(levelPath));
    const std::string provenText = readFile(levelPath);

    // The level edited beside its proof in a text editor.
    std::string edited = provenText;
    edited.replace(edited.find("\n2000\n"), 6, "\n2500\n");
    std::ofstream(levelPath, std::ios::trunc) << edited;
    EXPECT_FALSE(listedProven(levelPath));
    if (haveLevelcheck)
        EXPECT_EQ(levelcheck(levelPath), 1) << "levelcheck names the mismatch";
    std::ofstream(levelPath, std::ios::trunc) << provenText;
    EXPECT_TRUE(listedProven(levelPath));

    // A crash between the level's and the proof's rename: the new level
    // stands beside the old proof, which names other bytes.
    renamed.credits = 3000;
    applyLevelSettings(renamed);
    failRenamesAfter = 1;
    renameWrittenFile = failingRename;
    const bool saved = saveEditorLevel();
    renameWrittenFile = rename;
    EXPECT_TRUE(saved);
    EXPECT_EQ(statusTarget(), StatusProofNotSaved);
    EXPECT_NE(readFile(levelPath), provenText);
    EXPECT_TRUE(fs::exists(proofPath));
    EXPECT_FALSE(listedProven(levelPath));
    if (haveLevelcheck)
        EXPECT_EQ(levelcheck(levelPath), 1);
    ASSERT_TRUE(saveEditorLevel());
    EXPECT_TRUE(listedProven(levelPath));
    if (haveLevelcheck)
        EXPECT_EQ(levelcheck(levelPath), 0);
}

// A menu item that asks for a title, the old one erased and a new one typed.
static void retitle(const Button &item, int erase, const std::string &title)
{
    clickButton(editorTopRightButton);
    clickButton(item);
    ASSERT_EQ(editorScreen.panel, TitlePanel);
    for (int i = 0; i < erase; i++)
        typeScancode(KEY_BACKSPACE);
    type(title);
    typeScancode(KEY_ENTER);
    frame(320, 200, 0);
}

TEST_F(Editor, SaveAsRenameDuplicateAndDelete)
{
    paintSmallWinnableLevel();
    winTestPlay();
    ASSERT_TRUE(saveEditorLevel());
    const std::string first = editorDoc.path;
    const std::string firstText = readFile(first);

    // Save As: a new file under the typed title, with the proof; the old
    // one stays as it was.
    retitle(editorColumnButtons[3], 9, "Second Cave");    // Save As
    EXPECT_EQ(editorDoc.path, folder() + "/second-cave.level");
    EXPECT_EQ(currentLevel.title, "Second Cave");
    EXPECT_EQ(statusTarget(), StatusSavedProven);
    EXPECT_EQ(readFile(first), firstText);
    EXPECT_TRUE(levelProvenOnDisk(first));
    EXPECT_TRUE(levelProvenOnDisk(editorDoc.path));

    // Rename: the title, the file and the proof move together.
    retitle(editorFileButtons[0], 11, "Third Cave");      // Rename
    EXPECT_EQ(statusTarget(), StatusRenamed);
    EXPECT_EQ(editorDoc.path, folder() + "/third-cave.level");
    EXPECT_TRUE(levelProvenOnDisk(editorDoc.path));
    EXPECT_EQ(folderNames(), (std::vector<std::string>{"new-level.level", "new-level.solution",
                                                       "third-cave.level", "third-cave.solution"}));
    EXPECT_EQ(readFile(editorDoc.path).find("Third Cave\n"), 0u);

    // Duplicate: a copy to go on with.
    clickButton(editorTopRightButton);
    clickButton(editorColumnButtons[4]);
    EXPECT_EQ(editorDoc.path, folder() + "/third-cave-copy.level");
    EXPECT_EQ(currentLevel.title, "Third Cave copy");
    EXPECT_TRUE(levelProvenOnDisk(editorDoc.path));

    // Delete asks; Cancel stands where the settings panel's Cancel does.
    const std::string copy = editorDoc.path;
    clickButton(editorTopRightButton);
    clickButton(editorFileButtons[1]);          // Delete
    ASSERT_EQ(editorScreen.panel, QuestionPanel);
    clickButton(editorPanelButtons[2]);
    EXPECT_TRUE(fs::exists(copy));
    clickButton(editorTopRightButton);
    clickButton(editorFileButtons[1]);
    clickButton(editorPanelButtons[1]);         // Delete
    EXPECT_EQ(statusTarget(), StatusLevelDeleted);
    EXPECT_FALSE(fs::exists(copy));
    EXPECT_FALSE(fs::exists(solutionPathFor(copy)));
    EXPECT_TRUE(editorDoc.path.empty());
    EXPECT_FALSE(editorHasUnsavedChanges());
    EXPECT_EQ(folderNames().size(), 4u);
}

// Cells by the tool that paints them: random variants count as the same.
static std::vector<std::vector<int32_t>> paintedKinds()
{
    std::vector<std::vector<int32_t>> kinds;
    for (const auto &column : currentLevel.terrain) {
        kinds.emplace_back();
        for (int32_t code : column)
            kinds.back().push_back(toolForCode(code) != NoTool ? toolForCode(code) : 1000 + code);
    }
    return kinds;
}

TEST_F(Editor, AreaToolsPaintWhatCellByCellWould)
{
    // A rectangle of twelve pods: nine fit, column by column, one step.
    chooseTool(PaintPod);
    typedKeys.push_back('r');
    frame(320, 200, 0);
    EXPECT_EQ(paintMode, PaintRectangle);
    frame(cellPointerX(4), cellPointerY(7), 1);
    frame(cellPointerX(6), cellPointerY(10), 1);
    EXPECT_TRUE(areaDrag.active);
    frame(cellPointerX(6), cellPointerY(10), 0);
    EXPECT_EQ(statusTarget(), StatusMaxPods);
    EXPECT_EQ(undoDepth(), 1u);
    const auto rectangle = paintedKinds();
    undoEdit();
    typedKeys.push_back('b');
    frame(320, 200, 0);
    for (int x = 4; x <= 6; x++)
        for (int y = 7; y <= 10; y++)
            paintAt(x, y);
    EXPECT_EQ(paintedKinds(), rectangle);
    EXPECT_EQ(countPods(), EDITOR_POD_LIMIT);

    // A pocket of air walled with rock, filled with diamonds from one click.
    while (undoDepth() > 0)
        undoEdit();
    chooseTool(PaintRocks);
    paintRectangle(10, 7, 16, 11);
    chooseTool(ClearTerrain);
    paintRectangle(11, 8, 15, 10);
    const size_t steps = undoDepth();
    chooseTool(PaintDiamonds);
    typedKeys.push_back('f');
    frame(320, 200, 0);
    frame(cellPointerX(13), cellPointerY(9), 1);
    frame(cellPointerX(13), cellPointerY(9), 1);    // held: still one fill
    frame(cellPointerX(13), cellPointerY(9), 0);
    EXPECT_EQ(undoDepth(), steps + 1);
    const auto filled = paintedKinds();
    undoEdit();
    paintMode = PaintCells;
    for (int x = 11; x <= 15; x++)
        for (int y = 8; y <= 10; y++)
            paintAt(x, y);
    EXPECT_EQ(paintedKinds(), filled);
    EXPECT_EQ(toolForCode(currentLevel.terrain[10][9]), PaintRocks) << "the wall is not flooded";

    // The eyedropper picks the tool of the cell under the pointer.
    frame(cellPointerX(10), cellPointerY(9), 0);
    typedKeys.push_back('e');
    frame(cellPointerX(10), cellPointerY(9), 0);
    EXPECT_EQ(currentTool, PaintRocks);
}

TEST_F(Editor, ACampaignMissionIsOnlyAStartingPoint)
{
    if (!std::getenv("DELVEMOOR_GAME_DIR"))
        GTEST_SKIP() << "needs the built datafile";
    clickButton(editorTopRightButton);
    clickButton(editorColumnButtons[1]);        // open
    ASSERT_EQ(editorScreen.panel, OpenPanel);
    clickButton(editorTopRightButton);          // the campaign's list
    ASSERT_TRUE(editorScreen.openCampaign);
    ASSERT_FALSE(editorScreen.openEntries.empty());
    const std::string campaignPath = editorScreen.openEntries[0].path;
    frame(300, editorLeftColumnButtons[0].y, 0);    // pictured on the right
    EXPECT_EQ(editorScreen.openHighlight, 0);
    click(300, editorLeftColumnButtons[0].y);       // a click on its title opens it
    ASSERT_EQ(editorScreen.panel, NoPanel);
    EXPECT_EQ(statusTarget(), StatusLevelOpened);
    EXPECT_TRUE(editorDoc.path.empty());
    EXPECT_FALSE(editorHasUnsavedChanges());

    ASSERT_TRUE(saveEditorLevel());
    EXPECT_EQ(editorDoc.path.rfind(folder() + "/", 0), 0u) << editorDoc.path;
    Level loaded;
    std::string error;
    ASSERT_TRUE(tryLoadLevelFromFile(loaded, editorDoc.path.c_str(), &error)) << error;
    EXPECT_NE(loaded.campaignLevel, 1) << "saved as a custom level";

    // Opening another level with unsaved changes asks first; Cancel keeps them.
    camX = 0;
    camY = -400;
    chooseTool(PaintVortex);
    paintAt(8, 5);
    requestEditorAction(OpenLevelAction);
    ASSERT_EQ(editorScreen.panel, QuestionPanel);
    clickButton(editorPanelButtons[2]);         // where the settings panel's Cancel stands
    EXPECT_EQ(editorScreen.panel, NoPanel);
    EXPECT_TRUE(editorHasUnsavedChanges()) << "a click from habit keeps the work";
    (void)campaignPath;
}
