// The editor's document: the one level the player is making, kept whole
// while the rest of the game borrows currentLevel, saved so that nothing on
// disk is ever half-written or written over without being chosen, and proven
// winnable by the player's own winning run.
#include "editor/editor.h"

#include "app/atomic_write.h"
#include "app/log.h"
#include "app/screens.h"
#include "audio/audio.h"
#include "editor/paint.h"
#include "game/camera.h"
#include "game/mission.h"
#include "game/status.h"
#include "world/catalogue.h"
#include "world/level_writer.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

EditorDocument editorDoc;
EditorProof editorProof;

const char StatusLevelSaved[] = "Level saved";
const char StatusSavedUnplayable[] = "Level saved: it needs a pod and a rocket to be played";
const char StatusSaveReadOnly[] = "Cannot save: the custom folder is read-only";
const char StatusSaveDiskFull[] = "Cannot save: the disk is full";
const char StatusSaveFailed[] = "Cannot save the level (see gamelog.txt)";
const char StatusLevelOpened[] = "Level opened";
const char StatusOpenFailed[] = "Cannot open that level (see gamelog.txt)";
const char StatusNewLevel[] = "New level";
const char StatusSettingsChanged[] = "Level settings changed";
const char StatusNothingToUndo[] = "Nothing to undo";
const char StatusNothingToRedo[] = "Nothing to redo";
const char StatusUndone[] = "Undone";
const char StatusRedone[] = "Redone";
const char StatusProofSaved[] = "Level won! Its winning run is saved beside it";
const char StatusProofKept[] = "Level won! Save the level to keep its winning run";
const char StatusTestPlayNotWon[] = "Test play over: the level was not won";
const char StatusTestPlayFailed[] = "Cannot test-play this level";
const char StatusBadTitle[] = "The level needs a title";
const char StatusBadSize[] = "Width must be 3 to 256 and height 8 to 256";
const char StatusBadCredits[] = "Credits must be 0 to 999999";

namespace {

// Open air under the sky before a new level's ground begins.
const int NEW_GROUND_ROW = SKY_ROWS + 3;

struct UndoStep {
    TerrainGrid terrain;
    uint32_t generation;
};
std::vector<UndoStep> undoSteps, redoSteps;
bool strokeOpen = false;
uint32_t generationCounter = 0;

struct TestPlay {
    bool running;
    uint32_t generation;
    int32_t tool;
    float camX, camY;
};
TestPlay testPlay = {false, 0, NoTool, 0, 0};
// The painting as its file would read, for the test-play's start and its Retry.
std::string testPlayText;
void (*retryOutsideTestPlay)() = nullptr;

// Whether currentLevel holds the painting (the editor is on screen).
bool paintingInCurrentLevel = false;

// Where the view stood when the editor was last left.
float editorCamX = START_CAM_X, editorCamY = START_CAM_Y;

uint32_t newGeneration()
{
    return ++generationCounter;
}

void forgetHistory()
{
    undoSteps.clear();
    redoSteps.clear();
    strokeOpen = false;
    editorProof = EditorProof{false, 0, {}};
}

// The grid's shape follows its columns: undo may bring back another size.
void setTerrain(TerrainGrid terrain)
{
    Level &level = currentLevel;
    level.terrain = std::move(terrain);
    level.width = (int16_t)level.terrain.size();
    level.height = (int16_t)(level.width > 0 ? level.terrain[0].size() : 0);
    level.structures.assign(level.width, std::vector<int32_t>(level.height, 0));
    if (level.cursorX >= level.width)
        level.cursorX = level.width - 1;
    if (level.cursorY >= level.height)
        level.cursorY = level.height - 1;
}

// What a new level holds at (x, y) before the ring is put round it.
int32_t freshCell(int y)
{
    return y >= NEW_GROUND_ROW ? paintedCode(PaintDirt, std::rand()) : Empty;
}

// The custom list numbers its levels; a new one goes to the end of its planet.
int32_t nextCustomMissionNumber(int32_t planet)
{
    int32_t highest = 0;
    const int list = LEVEL_LIST_COUNT / 2 + planet - 1;
    if (list >= 0 && list < LEVEL_LIST_COUNT)
        for (const CatalogueEntry &entry : levelLists[list])
            if (entry.missionNumber > highest)
                highest = entry.missionNumber;
    return highest + 1;
}

// A level without a pod has nobody to save, and one without a rocket is over
// before it starts: saved all the same, but the player hears of it.
bool hasPodAndRocket()
{
    bool pod = false, rocket = false;
    for (const std::vector<int32_t> &column : currentLevel.terrain)
        for (int32_t code : column) {
            pod = pod || code == Pod;
            rocket = rocket || code == Rocket;
        }
    return pod && rocket;
}

const char *saveFailureMessage(WriteFailure failure)
{
    switch (failure) {
    case WriteReadOnly: return StatusSaveReadOnly;
    case WriteDiskFull: return StatusSaveDiskFull;
    default: return StatusSaveFailed;
    }
}

bool saveProofBeside(const std::string &levelPath)
{
    std::string detail;
    const WriteFailure failure =
        writeFileAtomically(solutionPathFor(levelPath), editorProof.script, true, &detail);
    if (failure != WriteOk) {
        logLine("# ERROR! # Cannot save the winning run: %s", detail.c_str());
        return false;
    }
    logLine("Saved the winning run beside %s", levelPath.c_str());
    return true;
}

} // namespace

// ---------------------------------------------------------------------------
// The session

void openEditorSession()
{
    if (!editorDoc.exists) {
        LevelSettings blank;
        blank.title = "New Level";
        blank.planet = 1;
        blank.width = NEW_LEVEL_WIDTH;
        blank.height = NEW_LEVEL_HEIGHT;
        blank.credits = NEW_LEVEL_CREDITS;
        for (int32_t &lock : blank.toolLocked)
            lock = 0;
        newEditorLevel(blank);
    } else {
        currentLevel = editorDoc.level;
    }
    camX = editorCamX;
    camY = editorCamY;
    paintingInCurrentLevel = true;
    if (testPlay.running)
        finishTestPlay();
    // A campaign mission's tutorial words are for its players: while
    // painting, the view stays clear (the banner's clock runs only in play).
    introBanner.tutorialAlpha = 0;
}

void closeEditorSession()
{
    endStroke();
    editorDoc.level = currentLevel;
    editorCamX = camX;
    editorCamY = camY;
    paintingInCurrentLevel = false;
}

bool editorHasUnsavedChanges()
{
    return editorDoc.exists && editorDoc.generation != editorDoc.savedGeneration;
}

// ---------------------------------------------------------------------------
// New level and settings

void newEditorLevel(const LevelSettings &settings)
{
    Level &level = currentLevel;
    level.title = settings.title;
    level.planet = settings.planet;
    level.missionNumber = nextCustomMissionNumber(settings.planet);
    level.campaignLevel = 0;
    level.reserved = 0;
    level.terrain.assign(settings.width, std::vector<int32_t>(settings.height, Empty));
    for (int x = 0; x < settings.width; x++)
        for (int y = 0; y < settings.height; y++)
            level.terrain[x][y] = freshCell(y);
    setTerrain(level.terrain);
    setBorderRing(level);
    level.cursorX = level.cursorY = 0;

    editorDoc.exists = true;
    editorDoc.credits = settings.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        editorDoc.toolLocked[i] = settings.toolLocked[i];
    editorDoc.path.clear();
    // Nothing of the player's is in a fresh level yet: leaving it asks nothing.
    editorDoc.generation = editorDoc.savedGeneration = newGeneration();
    forgetHistory();
    currentTool = NoTool;
    editorCamX = camX = START_CAM_X;
    editorCamY = camY = START_CAM_Y;
    setStatus(StatusNewLevel);
}

LevelSettings currentLevelSettings()
{
    LevelSettings s;
    s.title = currentLevel.title;
    s.planet = currentLevel.planet;
    s.width = currentLevel.width;
    s.height = currentLevel.height;
    s.credits = editorDoc.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        s.toolLocked[i] = editorDoc.toolLocked[i];
    return s;
}

bool levelSettingsValid(const LevelSettings &s)
{
    if (s.title.find_first_not_of(' ') == std::string::npos) {
        setStatus(StatusBadTitle);
        return false;
    }
    if (s.width < LEVEL_MIN_WIDTH || s.width > LEVEL_MAX_WIDTH || s.height < LEVEL_MIN_HEIGHT ||
        s.height > LEVEL_MAX_HEIGHT) {
        setStatus(StatusBadSize);
        return false;
    }
    if (s.credits < 0 || s.credits > MAX_LEVEL_CREDITS) {
        setStatus(StatusBadCredits);
        return false;
    }
    return true;
}

void applyLevelSettings(const LevelSettings &s)
{
    Level &level = currentLevel;
    if (s.width != level.width || s.height != level.height) {
        openUndoStep();
        endStroke();
        TerrainGrid grid(s.width, std::vector<int32_t>(s.height, Empty));
        for (int x = 0; x < s.width; x++)
            for (int y = 0; y < s.height; y++) {
                const bool kept = x < level.width && y < level.height;
                // The old ring is no border once the level has grown past it.
                const bool oldRing =
                    kept && (x == 0 || y == 0 || x == level.width - 1 || y == level.height - 1);
                grid[x][y] = kept && !oldRing ? level.terrain[x][y] : freshCell(y);
            }
        setTerrain(std::move(grid));
        setBorderRing(level);
    }
    if (s.planet != level.planet)
        level.missionNumber = nextCustomMissionNumber(s.planet);
    level.title = s.title;
    level.planet = s.planet;
    editorDoc.credits = s.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        editorDoc.toolLocked[i] = s.toolLocked[i];
    editorDoc.generation = newGeneration();
    setStatus(StatusSettingsChanged);
}

// ---------------------------------------------------------------------------
// Open and save

bool openEditorLevel(const std::string &path, bool campaign)
{
    std::string error;
    const bool loaded = campaign ? tryLoadLevelFromPack(currentLevel, path.c_str(), &error)
                                 : tryLoadLevelFromFile(currentLevel, path.c_str(), &error);
    if (!loaded) {
        logLine("# ERROR! # %s", error.c_str());
        setStatus(StatusOpenFailed);
        return false;
    }
    if (campaign)
        currentLevel.campaignLevel = 0;
    editorDoc.exists = true;
    editorDoc.credits = mission.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        editorDoc.toolLocked[i] = mission.toolLocked[i];
    editorDoc.path = campaign ? std::string() : path;
    editorDoc.generation = editorDoc.savedGeneration = newGeneration();
    forgetHistory();
    resetMission();
    editorCamX = camX = START_CAM_X;
    editorCamY = camY = START_CAM_Y;
    setStatus(StatusLevelOpened);
    return true;
}

std::string solutionPathFor(const std::string &levelPath)
{
    const size_t slash = levelPath.find_last_of('/');
    const size_t dot = levelPath.find_last_of('.');
    const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    return (hasExtension ? levelPath.substr(0, dot) : levelPath) + ".solution";
}

std::string newLevelFileName(const std::string &folder, const std::string &title)
{
    // Plain letters and digits travel through every file system and shell.
    std::string stem;
    for (char c : title) {
        if (std::isalnum((unsigned char)c))
            stem += (char)std::tolower((unsigned char)c);
        else if (!stem.empty() && stem.back() != '-')
            stem += '-';
        if (stem.size() >= 32)
            break;
    }
    while (!stem.empty() && stem.back() == '-')
        stem.pop_back();
    if (stem.empty())
        stem = "level";
    for (int n = 1;; n++) {
        const std::string name = n == 1 ? stem + ".level" : stem + "-" + std::to_string(n) + ".level";
        struct stat st;
        if (stat((folder + "/" + name).c_str(), &st) != 0 &&
            stat((folder + "/" + solutionPathFor(name)).c_str(), &st) != 0)
            return name;
    }
}

bool saveEditorLevel()
{
    endStroke();
    const std::string folder = customLevelFolder();
    if (mkdir(folder.c_str(), 0755) != 0 && errno != EEXIST)
        logLine("# ERROR! # Cannot make the custom folder %s", folder.c_str());

    currentLevel.campaignLevel = 0;
    const std::string text = levelText(currentLevel, editorDoc.credits, editorDoc.toolLocked);
    // A level opened from elsewhere (an example shipped in the read-only
    // game folder) is saved as a new level of the player's.
    std::string path = editorDoc.path.rfind(folder + "/", 0) == 0 ? editorDoc.path : std::string(), detail;
    WriteFailure failure;
    if (!path.empty()) {
        failure = writeFileAtomically(path, text, true, &detail);
    } else {
        // Another program may take the name between the choice and the
        // write; the write then refuses and the next free name is tried.
        int tries = 0;
        do {
            path = folder + "/" + newLevelFileName(folder, currentLevel.title);
            failure = writeFileAtomically(path, text, false, &detail);
        } while (failure == WriteExists && ++tries < 5);
    }
    if (failure != WriteOk) {
        logLine("# ERROR! # Cannot save level: %s", detail.c_str());
        setStatus(saveFailureMessage(failure));
        return false;
    }
    logLine("Saved level: %s", path.c_str());

    const bool changed = editorDoc.path != path || editorDoc.generation != editorDoc.savedGeneration;
    editorDoc.path = path;
    editorDoc.savedGeneration = editorDoc.generation;
    if (proofMatchesPainting() && saveProofBeside(path)) {
        setStatus(StatusProofSaved);
        return true;
    }
    // A run won on an older painting proves nothing about this one.
    if (changed)
        unlink(solutionPathFor(path).c_str());
    setStatus(hasPodAndRocket() ? StatusLevelSaved : StatusSavedUnplayable);
    return true;
}

void discardEditorChanges()
{
    if (!editorHasUnsavedChanges())
        return;
    if (editorDoc.path.empty() || !openEditorLevel(editorDoc.path, false))
        editorDoc.exists = false;
}

void keepUnsavedEditorWork()
{
    if (!editorHasUnsavedChanges())
        return;
    const Level &painting = paintingInCurrentLevel ? currentLevel : editorDoc.level;
    const std::string folder = customLevelFolder();
    mkdir(folder.c_str(), 0755);
    Level copy = painting;
    copy.campaignLevel = 0;
    const std::string path = folder + "/" + newLevelFileName(folder, painting.title + " unsaved");
    std::string detail;
    if (writeFileAtomically(path, levelText(copy, editorDoc.credits, editorDoc.toolLocked), false, &detail) ==
        WriteOk)
        logLine("The editor's unsaved level is kept as %s", path.c_str());
    else
        logLine("# ERROR! # Cannot keep the editor's unsaved level: %s", detail.c_str());
}

// ---------------------------------------------------------------------------
// Undo and redo

void openUndoStep()
{
    if (strokeOpen)
        return;
    strokeOpen = true;
    undoSteps.push_back(UndoStep{currentLevel.terrain, editorDoc.generation});
    if (undoSteps.size() > UNDO_LIMIT)
        undoSteps.erase(undoSteps.begin());
    redoSteps.clear();
    editorDoc.generation = newGeneration();
}

void endStroke()
{
    strokeOpen = false;
}

static bool stepHistory(std::vector<UndoStep> &from, std::vector<UndoStep> &to)
{
    endStroke();
    if (from.empty())
        return false;
    to.push_back(UndoStep{currentLevel.terrain, editorDoc.generation});
    setTerrain(std::move(from.back().terrain));
    editorDoc.generation = from.back().generation;
    from.pop_back();
    return true;
}

bool undoEdit()
{
    const bool done = stepHistory(undoSteps, redoSteps);
    setStatus(done ? StatusUndone : StatusNothingToUndo);
    return done;
}

bool redoEdit()
{
    const bool done = stepHistory(redoSteps, undoSteps);
    setStatus(done ? StatusRedone : StatusNothingToRedo);
    return done;
}

size_t undoDepth()
{
    return undoSteps.size();
}

size_t redoDepth()
{
    return redoSteps.size();
}

// ---------------------------------------------------------------------------
// Test-play and proof

bool testPlayRunning()
{
    return testPlay.running;
}

bool proofMatchesPainting()
{
    return editorProof.valid && editorProof.generation == editorDoc.generation;
}

// The painting goes through the very reader its saved file will meet, in
// memory: the run the player wins is the run levelcheck replays.
static bool loadTestPlayLevel()
{
    std::istringstream in(testPlayText);
    std::string error;
    if (parseLevelStream(in, currentLevel, mission, &error))
        return true;
    logLine("# ERROR! # Test play: %s", error.c_str());
    return false;
}

// "Retry" on the pause panel starts the painting afresh (after its resetMission).
static void retryTestPlay()
{
    loadTestPlayLevel();
}

bool startTestPlay()
{
    closeEditorSession();
    testPlayText = levelText(currentLevel, editorDoc.credits, editorDoc.toolLocked);
    resetMission();
    if (!loadTestPlayLevel()) {
        currentLevel = editorDoc.level;
        setStatus(StatusTestPlayFailed);
        return false;
    }
    retryOutsideTestPlay = reloadLevelForRetry;
    reloadLevelForRetry = retryTestPlay;
    testPlay = TestPlay{true, editorDoc.generation, currentTool, camX, camY};
    currentTool = NoTool;
    playRecord.clear();
    recordingPlay = true;
    levelReturnScreen = LevelEditor;
    armLevelBanner();
    setScreen(Playing);
    requestMusic(LevelMusic);
    return true;
}

void finishTestPlay()
{
    // The mission state is still the run's: the way back loads nothing.
    const bool won = mission.rocketsGone == mission.rocketCount && !mission.bubblemanLost;
    if (won) {
        std::ostringstream script;
        script << "# " << editorDoc.level.title << ": a winning run played in the level editor\n";
        writeSolution(playRecord, script);
        editorProof = EditorProof{true, testPlay.generation, script.str()};
    }
    recordingPlay = false;
    levelReturnScreen = GameSelect;
    reloadLevelForRetry = retryOutsideTestPlay;
    testPlay.running = false;

    currentLevel = editorDoc.level;
    resetMission();
    currentTool = testPlay.tool;
    camX = testPlay.camX;
    camY = testPlay.camY;
    requestMusic(MenuMusic);

    if (!won)
        setStatus(StatusTestPlayNotWon);
    // Won on exactly what is on disk: the proof can go beside it at once.
    else if (!editorDoc.path.empty() && !editorHasUnsavedChanges() && proofMatchesPainting() &&
             saveProofBeside(editorDoc.path))
        setStatus(StatusProofSaved);
    else
        setStatus(StatusProofKept);
}
