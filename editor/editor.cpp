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
#include "game/proof.h"
#include "game/status.h"
#include "world/catalogue.h"
#include "world/level_warnings.h"
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
const char StatusSavedProven[] = "Level saved with its winning run";
const char StatusProofDropped[] = "Saved: the change needs a new winning test-play";
const char StatusProofNotSaved[] = "Level saved, but not its winning run (see gamelog.txt)";
const char StatusNeverSaved[] = "This level has no file yet";
const char StatusLevelDeleted[] = "Level deleted";
const char StatusDeleteFailed[] = "Cannot delete the level (see gamelog.txt)";
const char StatusRenamed[] = "Level renamed";
const char StatusBadMission[] = "The mission number must be 1 to 999";
const char StatusProofKept[] = "Level won! Save the level to keep its winning run";
const char StatusTestPlayNotWon[] = "Test play over: the level was not won";
const char StatusTestPlayFailed[] = "Cannot test-play this level";
const char StatusBadTitle[] = "The level needs a title";
const char StatusBadSize[] = "Width must be 3 to 256 and height 8 to 256";
const char StatusBadCredits[] = "Credits must be 0 to 999999";

namespace {

// Open air under the sky before a new level's ground begins.
const int NEW_GROUND_ROW = SKY_ROWS + 3;

std::vector<EditorContent> undoSteps, redoSteps;
bool strokeOpen = false;

struct TestPlay {
    bool running;
    EditorContent content;      // the painting the run was started on
    int32_t tool;
    float camX, camY;
};
TestPlay testPlay = {false, {}, NoTool, 0, 0};
// The painting as its file would read, for the test-play's start and its Retry.
std::string testPlayText;
void (*retryOutsideTestPlay)() = nullptr;

// Whether currentLevel holds the painting (the editor is on screen).
bool paintingInCurrentLevel = false;

// Where the view stood when the editor was last left.
float editorCamX = START_CAM_X, editorCamY = START_CAM_Y;

// The note that names the work kept at the last shut-down, in the custom
// folder (hidden, so the catalogue passes it by).
const char RecoveryNote[] = "/.recovered";
std::string recoveredMessage;

Level &painting()
{
    return paintingInCurrentLevel ? currentLevel : editorDoc.level;
}

void forgetHistory()
{
    undoSteps.clear();
    redoSteps.clear();
    strokeOpen = false;
    editorProof = EditorProof{false, {}, {}, {}, {}};
}

// The grid's shape follows its columns: undo may bring back another size.
void setTerrain(TerrainGrid terrain)
{
    Level &level = painting();
    level.terrain = std::move(terrain);
    level.width = (int16_t)level.terrain.size();
    level.height = (int16_t)(level.width > 0 ? level.terrain[0].size() : 0);
    level.structures.assign(level.width, std::vector<int32_t>(level.height, 0));
    if (level.cursorX >= level.width)
        level.cursorX = level.width - 1;
    if (level.cursorY >= level.height)
        level.cursorY = level.height - 1;
}

void restoreContent(const EditorContent &c)
{
    Level &level = painting();
    level.title = c.level.title;
    level.planet = c.level.planet;
    level.missionNumber = c.level.missionNumber;
    level.campaignLevel = c.level.campaignLevel;
    level.reserved = c.level.reserved;
    setTerrain(c.level.terrain);
    editorDoc.credits = c.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        editorDoc.toolLocked[i] = c.toolLocked[i];
}

std::string paintingText()
{
    return levelText(painting(), editorDoc.credits, editorDoc.toolLocked);
}

// What a new level holds at (x, y) before the ring is put round it.
int32_t freshCell(int y)
{
    return y >= NEW_GROUND_ROW ? paintedCode(PaintDirt, std::rand()) : Empty;
}

// A level without a pod has nobody to save, and one without a rocket is over
// before it starts: saved all the same, but the player hears of it.
bool hasPodAndRocket()
{
    bool pod = false, rocket = false;
    for (const std::vector<int32_t> &column : painting().terrain)
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

// The replay runs the game headless in the very globals the editor lives
// in; everything it touches that the editor or the player can notice is put
// back as it was.
bool replayProves(const std::string &text, const std::string &script, const char **why)
{
    const Level level = currentLevel;
    const u32 screen = currentScreen;
    const TransitionState fade = transition;
    const InputSnapshot pointer = input;
    const IntroBanner banner = introBanner;
    const float x = camX, y = camY;
    const int32_t tool = currentTool, tick = levelTick;
    const int32_t sound = SoundRequest, effect = EffectSoundRequest, click = InterfaceSoundRequest;
    const bool recording = recordingPlay;
    recordingPlay = false;
    const bool proven = runProvesLevel(text, script, why);
    resetMission();
    currentLevel = level;
    currentScreen = screen;
    transition = fade;
    input = pointer;
    introBanner = banner;
    camX = x;
    camY = y;
    currentTool = tool;
    levelTick = tick;
    SoundRequest = sound;
    EffectSoundRequest = effect;
    InterfaceSoundRequest = click;
    recordingPlay = recording;
    return proven;
}

// Whether the proof in hand wins the level as text would save it: at once
// when it was proven on exactly that text, else by replaying it there (a new
// title or more credits may well leave it a proof; a moved rocket not).
bool proofHoldsFor(const std::string &text)
{
    if (!editorProof.valid)
        return false;
    if (editorProof.verifiedText == text)
        return true;
    // Each save of a changed level would otherwise replay the lost run again.
    if (editorProof.refutedText == text)
        return false;
    const char *why = nullptr;
    if (!replayProves(text, editorProof.script, &why)) {
        editorProof.refutedText = text;
        return false;
    }
    editorProof.content = paintingContent();
    editorProof.verifiedText = text;
    return true;
}

// The level and its proof go to disk in that order: the level is the
// player's work, and the proof names the level's bytes. A crash between the
// two writes leaves the new level beside the old proof, whose digest no
// longer matches: the level shows as not proven (levelcheck says why), and
// nothing claims a proof the files do not hold.
bool writeProofBeside(const std::string &levelPath, const std::string &text)
{
    std::string detail;
    const WriteFailure failure = writeFileAtomically(
        solutionPathFor(levelPath), solutionWithDigest(editorProof.script, levelDigest(text)), true, &detail);
    if (failure != WriteOk) {
        logLine("# ERROR! # Cannot save the winning run: %s", detail.c_str());
        return false;
    }
    logLine("Saved the winning run beside %s", levelPath.c_str());
    return true;
}

std::string makeCustomFolder()
{
    const std::string folder = customLevelFolder();
    if (mkdir(folder.c_str(), 0755) != 0 && errno != EEXIST)
        logLine("# ERROR! # Cannot make the custom folder %s", folder.c_str());
    return folder;
}

// Writes the painting to path, replacing the file there, or (path empty) to
// a new file named after the title that takes no other file's place; then
// settles the proof beside it. Says the outcome on the status line.
bool writePainting(std::string path)
{
    endStroke();
    const std::string folder = makeCustomFolder();
    painting().campaignLevel = 0;
    const std::string text = paintingText();
    const bool hadProof = editorProof.valid;
    const bool proven = proofHoldsFor(text);

    // A level opened from elsewhere (an example shipped in the read-only
    // game folder) is saved as a new level of the player's.
    if (path.rfind(folder + "/", 0) != 0)
        path.clear();
    std::string detail;
    WriteFailure failure;
    if (!path.empty()) {
        failure = writeFileAtomically(path, text, true, &detail);
    } else {
        // Another program may take the name between the choice and the
        // write; the write then refuses and the next free name is tried.
        int tries = 0;
        do {
            path = folder + "/" + newLevelFileName(folder, painting().title);
            failure = writeFileAtomically(path, text, false, &detail);
        } while (failure == WriteExists && ++tries < 5);
    }
    if (failure != WriteOk) {
        logLine("# ERROR! # Cannot save level: %s", detail.c_str());
        setStatus(saveFailureMessage(failure));
        return false;
    }
    logLine("Saved level: %s", path.c_str());
    editorDoc.path = path;
    editorDoc.baseline = paintingContent();

    if (proven) {
        setStatus(writeProofBeside(path, text) ? StatusSavedProven : StatusProofNotSaved);
        return true;
    }
    // A run won on an older painting proves nothing about this one.
    if (unlink(solutionPathFor(path).c_str()) != 0 && errno != ENOENT)
        logLine("# ERROR! # Cannot remove the old winning run of %s", path.c_str());
    if (hadProof)
        setStatus(StatusProofDropped);
    else
        setStatus(hasPodAndRocket() ? StatusLevelSaved : StatusSavedUnplayable);
    return true;
}

// A title change is a change of the level like any other: undo takes it back.
void setTitle(const std::string &title)
{
    if (painting().title == title)
        return;
    openUndoStep();
    endStroke();
    painting().title = title;
}

// The work kept at the last shut-down, if the note names some: opened as the
// editor's level, once.
bool openRecoveredWork()
{
    const std::string note = customLevelFolder() + RecoveryNote;
    std::string name;
    if (!readWholeFile(note, &name))
        return false;
    unlink(note.c_str());
    while (!name.empty() && (name.back() == '\n' || name.back() == '\r'))
        name.pop_back();
    if (name.empty() || name.find('/') != std::string::npos)
        return false;
    struct stat st;
    const std::string path = customLevelFolder() + "/" + name;
    if (stat(path.c_str(), &st) != 0 || !openEditorLevel(path, false))
        return false;
    recoveredMessage = currentLevel.title;
    setStatus(recoveredMessage.c_str());
    return true;
}

} // namespace

EditorContent paintingContent()
{
    EditorContent c;
    const Level &level = painting();
    c.level.title = level.title;
    c.level.planet = level.planet;
    c.level.missionNumber = level.missionNumber;
    c.level.campaignLevel = level.campaignLevel;
    c.level.reserved = level.reserved;
    c.level.width = level.width;
    c.level.height = level.height;
    c.level.terrain = level.terrain;
    c.credits = editorDoc.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        c.toolLocked[i] = editorDoc.toolLocked[i];
    return c;
}

bool paintingMatches(const EditorContent &c)
{
    const Level &level = painting();
    if (level.title != c.level.title || level.planet != c.level.planet ||
        level.missionNumber != c.level.missionNumber || level.reserved != c.level.reserved ||
        editorDoc.credits != c.credits || level.terrain != c.level.terrain)
        return false;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        if (editorDoc.toolLocked[i] != c.toolLocked[i])
            return false;
    return true;
}

int32_t nextCustomMissionNumber(int32_t planet)
{
    // The custom list numbers its levels; a new one goes to the end of its planet.
    int32_t highest = 0;
    const int list = LEVEL_LIST_COUNT / 2 + planet - 1;
    if (list >= 0 && list < LEVEL_LIST_COUNT)
        for (const CatalogueEntry &entry : levelLists[list])
            if (entry.missionNumber > highest)
                highest = entry.missionNumber;
    return highest + 1 > MAX_MISSION_NUMBER ? MAX_MISSION_NUMBER : highest + 1;
}

// ---------------------------------------------------------------------------
// The session

void openEditorSession()
{
    if (!editorDoc.exists) {
        paintingInCurrentLevel = true;
        if (!openRecoveredWork()) {
            LevelSettings blank;
            blank.title = "New Level";
            blank.planet = 1;
            blank.width = NEW_LEVEL_WIDTH;
            blank.height = NEW_LEVEL_HEIGHT;
            blank.credits = NEW_LEVEL_CREDITS;
            blank.missionNumber = 0;
            for (int32_t &lock : blank.toolLocked)
                lock = 0;
            newEditorLevel(blank);
        }
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
    return editorDoc.exists && !paintingMatches(editorDoc.baseline);
}

// ---------------------------------------------------------------------------
// New level and settings

void newEditorLevel(const LevelSettings &settings)
{
    Level &level = painting();
    level.title = settings.title;
    level.planet = settings.planet;
    level.missionNumber =
        settings.missionNumber > 0 ? settings.missionNumber : nextCustomMissionNumber(settings.planet);
    level.campaignLevel = 0;
    level.reserved = 0;
    level.terrain.assign(settings.width, std::vector<int32_t>(settings.height, Empty));
    for (int x = 0; x < settings.width; x++)
        for (int y = 0; y < settings.height; y++)
            level.terrain[x][y] = freshCell(y);
    setTerrain(level.terrain);
    setBorderRing(level);
    // As the first frame would leave it: a fresh level is not "Unsaved".
    normaliseTerrain(level);
    level.cursorX = level.cursorY = 0;

    editorDoc.exists = true;
    editorDoc.credits = settings.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        editorDoc.toolLocked[i] = settings.toolLocked[i];
    editorDoc.path.clear();
    // Nothing of the player's is in a fresh level yet: leaving it asks nothing.
    editorDoc.baseline = paintingContent();
    forgetHistory();
    currentTool = NoTool;
    editorCamX = camX = START_CAM_X;
    editorCamY = camY = START_CAM_Y;
    setStatus(StatusNewLevel);
}

LevelSettings currentLevelSettings()
{
    const Level &level = painting();
    LevelSettings s;
    s.title = level.title;
    s.planet = level.planet;
    s.width = level.width;
    s.height = level.height;
    s.credits = editorDoc.credits;
    s.missionNumber = level.missionNumber;
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
    if (s.missionNumber < 1 || s.missionNumber > MAX_MISSION_NUMBER) {
        setStatus(StatusBadMission);
        return false;
    }
    return true;
}

void applyLevelSettings(const LevelSettings &s)
{
    Level &level = painting();
    const LevelSettings before = currentLevelSettings();
    bool same = s.title == before.title && s.planet == before.planet && s.width == before.width &&
                s.height == before.height && s.credits == before.credits &&
                s.missionNumber == before.missionNumber;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        same = same && s.toolLocked[i] == before.toolLocked[i];
    if (same)
        return;
    openUndoStep();
    endStroke();
    if (s.width != level.width || s.height != level.height) {
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
    level.title = s.title;
    level.planet = s.planet;
    level.missionNumber = s.missionNumber;
    editorDoc.credits = s.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        editorDoc.toolLocked[i] = s.toolLocked[i];
    setStatus(StatusSettingsChanged);
}

// ---------------------------------------------------------------------------
// Open, save, and the files

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
    forgetHistory();
    // The view settles what a file left unsettled; that is no change of the player's.
    normaliseTerrain(currentLevel);
    // Opened while the editor is closed, the level waits in the document.
    if (!paintingInCurrentLevel)
        editorDoc.level = currentLevel;
    editorDoc.baseline = paintingContent();
    // A proof that names these very bytes comes along: saving the level
    // unchanged keeps it, and test-playing it again is not needed.
    std::string bytes, solution;
    if (!campaign && levelProvenOnDisk(path) && readWholeFile(path, &bytes) &&
        readWholeFile(solutionPathFor(path), &solution))
        editorProof = EditorProof{true, editorDoc.baseline, bytes, solution, {}};
    resetMission();
    editorCamX = camX = START_CAM_X;
    editorCamY = camY = START_CAM_Y;
    setStatus(StatusLevelOpened);
    return true;
}

// Plain letters and digits travel through every file system and shell.
static std::string fileStem(const std::string &title)
{
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
    return stem.empty() ? "level" : stem;
}

static std::string numberedName(const std::string &stem, int n)
{
    return n == 1 ? stem + ".level" : stem + "-" + std::to_string(n) + ".level";
}

std::string newLevelFileName(const std::string &folder, const std::string &title)
{
    const std::string stem = fileStem(title);
    for (int n = 1;; n++) {
        const std::string name = numberedName(stem, n);
        struct stat st;
        if (stat((folder + "/" + name).c_str(), &st) != 0 &&
            stat((folder + "/" + solutionPathFor(name)).c_str(), &st) != 0)
            return name;
    }
}

// Whether the file already bears a name the title would give it ("Cave" and
// "CAVE!" both make cave.level): renaming then leaves the name alone.
static bool fileNamedAfter(const std::string &path, const std::string &title)
{
    const std::string name = path.substr(path.find_last_of('/') + 1);
    const std::string stem = fileStem(title);
    for (int n = 1; n <= 99; n++)
        if (name == numberedName(stem, n))
            return true;
    return false;
}

bool saveEditorLevel()
{
    return writePainting(editorDoc.path);
}

bool saveEditorLevelAs(const std::string &title)
{
    setTitle(title);
    return writePainting(std::string());
}

bool duplicateEditorLevel()
{
    std::string title = painting().title + " copy";
    if (title.size() > MAX_TITLE_CHARS)
        title = painting().title.substr(0, MAX_TITLE_CHARS - 5) + " copy";
    return saveEditorLevelAs(title);
}

bool renameEditorLevel(const std::string &title)
{
    const std::string oldPath = editorDoc.path;
    setTitle(title);
    if (oldPath.empty())
        return writePainting(std::string());
    if (fileNamedAfter(oldPath, title)) {
        const bool saved = writePainting(oldPath);
        if (saved && statusTarget() != StatusProofDropped && statusTarget() != StatusProofNotSaved)
            setStatus(StatusRenamed);
        return saved;
    }
    // The new files are whole before the old ones go: a crash between leaves
    // two copies of the level, never none.
    if (!writePainting(std::string()))
        return false;
    const char *status = statusTarget();
    if (unlink(solutionPathFor(oldPath).c_str()) != 0 && errno != ENOENT)
        logLine("# ERROR! # Cannot remove %s", solutionPathFor(oldPath).c_str());
    if (unlink(oldPath.c_str()) != 0)
        logLine("# ERROR! # Cannot remove %s after renaming it", oldPath.c_str());
    logLine("Renamed %s to %s", oldPath.c_str(), editorDoc.path.c_str());
    // A proof that came along, or was dropped, is the news; else the rename.
    setStatus(status == StatusLevelSaved || status == StatusSavedUnplayable || status == StatusSavedProven
                  ? StatusRenamed
                  : status);
    return true;
}

bool deleteEditorLevel()
{
    if (editorDoc.path.empty()) {
        setStatus(StatusNeverSaved);
        return false;
    }
    const std::string path = editorDoc.path;
    // The proof first: whatever stops the second removal, no proof is left
    // standing for a level that is gone.
    if (unlink(solutionPathFor(path).c_str()) != 0 && errno != ENOENT) {
        logLine("# ERROR! # Cannot delete %s", solutionPathFor(path).c_str());
        setStatus(StatusDeleteFailed);
        return false;
    }
    if (unlink(path.c_str()) != 0) {
        logLine("# ERROR! # Cannot delete %s", path.c_str());
        setStatus(StatusDeleteFailed);
        return false;
    }
    logLine("Deleted level: %s", path.c_str());
    LevelSettings blank = currentLevelSettings();
    blank.title = "New Level";
    blank.missionNumber = 0;
    newEditorLevel(blank);
    setStatus(StatusLevelDeleted);
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
    const Level &work = painting();
    const std::string folder = customLevelFolder();
    mkdir(folder.c_str(), 0755);
    Level copy = work;
    copy.campaignLevel = 0;
    std::string title = work.title;
    if (title.compare(0, sizeof RECOVERED_TITLE_PREFIX - 1, RECOVERED_TITLE_PREFIX) != 0)
        title = RECOVERED_TITLE_PREFIX + title;
    copy.title = title.substr(0, MAX_TITLE_CHARS);
    const std::string name = newLevelFileName(folder, work.title + " unsaved");
    const std::string path = folder + "/" + name;
    std::string detail;
    if (writeFileAtomically(path, levelText(copy, editorDoc.credits, editorDoc.toolLocked), false, &detail) !=
        WriteOk) {
        logLine("# ERROR! # Cannot keep the editor's unsaved level: %s", detail.c_str());
        return;
    }
    logLine("The editor's unsaved level is kept as %s", path.c_str());
    if (writeFileAtomically(folder + RecoveryNote, name + "\n", true, &detail) != WriteOk)
        logLine("# ERROR! # Cannot note the kept level for the next start: %s", detail.c_str());
}

// ---------------------------------------------------------------------------
// Undo and redo

void openUndoStep()
{
    if (strokeOpen)
        return;
    strokeOpen = true;
    undoSteps.push_back(paintingContent());
    if (undoSteps.size() > UNDO_LIMIT)
        undoSteps.erase(undoSteps.begin());
    redoSteps.clear();
}

void endStroke()
{
    strokeOpen = false;
}

static bool stepHistory(std::vector<EditorContent> &from, std::vector<EditorContent> &to)
{
    endStroke();
    if (from.empty())
        return false;
    to.push_back(paintingContent());
    restoreContent(from.back());
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
    return editorProof.valid && paintingMatches(editorProof.content);
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
    const EditorContent content = paintingContent();
    closeEditorSession();
    testPlayText = levelText(currentLevel, editorDoc.credits, editorDoc.toolLocked);
    resetMission();
    if (!loadTestPlayLevel()) {
        currentLevel = editorDoc.level;
        paintingInCurrentLevel = true;
        setStatus(StatusTestPlayFailed);
        return false;
    }
    retryOutsideTestPlay = reloadLevelForRetry;
    reloadLevelForRetry = retryTestPlay;
    testPlay = TestPlay{true, content, currentTool, camX, camY};
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
    std::ostringstream script;
    if (won) {
        script << "# " << editorDoc.level.title << ": a winning run played in the level editor\n";
        writeSolution(playRecord, script);
    }
    recordingPlay = false;
    levelReturnScreen = GameSelect;
    reloadLevelForRetry = retryOutsideTestPlay;
    testPlay.running = false;

    currentLevel = editorDoc.level;
    paintingInCurrentLevel = true;
    resetMission();
    currentTool = testPlay.tool;
    camX = testPlay.camX;
    camY = testPlay.camY;
    requestMusic(MenuMusic);

    if (!won) {
        setStatus(StatusTestPlayNotWon);
        return;
    }
    // Rockets gone is not yet a proof: a level without pods or rockets is
    // "won" at once. The run must also replay to a win, as levelcheck will.
    const char *why = nullptr;
    if (!replayProves(testPlayText, script.str(), &why)) {
        setStatus(why);
        return;
    }
    editorProof = EditorProof{true, testPlay.content, testPlayText, script.str(), {}};
    // Won on exactly what is on disk: the proof can go beside it at once.
    if (!editorDoc.path.empty() && !editorHasUnsavedChanges() && proofMatchesPainting()) {
        if (writePainting(editorDoc.path) && statusTarget() == StatusSavedProven)
            setStatus(StatusProofSaved);
    } else {
        setStatus(StatusProofKept);
    }
}
