// The level the editor works on, and what the player does with it beyond
// painting: new, open, save, undo and redo, test-play and the proof of a won
// test-play. None of this draws; the editor screen (editorscreen.cpp) calls
// it from its buttons and keys, and the tests call it directly.
#pragma once

#include "game/gamescreen.h"
#include "game/mission.h"
#include "game/proof.h"
#include "world/level.h"

#include <cstdint>
#include <string>
#include <vector>

// Everything a level file holds: the header, the credits, the locks and the
// terrain. Undo steps, "Unsaved" and the proof all compare these, so no
// counter can disagree with what the player sees.
struct EditorContent {
    Level level;                // the structure grid and the cursor play no part
    int32_t credits;
    int32_t toolLocked[9];
};

// The level being edited. While the editor is on screen its grid and header
// live in currentLevel (where the paint step and the level view work); the
// copy here keeps them while the player is elsewhere in the game, which
// loads other levels into currentLevel.
struct EditorDocument {
    bool exists;                // false until the editor first opens
    Level level;                // the level while the editor is not on screen
    int32_t credits;
    int32_t toolLocked[LOCKABLE_TOOL_COUNT];
    std::string path;           // the custom file it came from or was saved to; empty: never saved
    EditorContent baseline;     // what is on disk (or the fresh level): "Unsaved" means different
};
extern EditorDocument editorDoc;

// The content of the painting as it stands now.
EditorContent paintingContent();
bool paintingMatches(const EditorContent &content);

// What a new level starts as and what the settings allow.
const int NEW_LEVEL_WIDTH = 30;
const int NEW_LEVEL_HEIGHT = 20;
const int NEW_LEVEL_CREDITS = 2000;
const int MAX_LEVEL_CREDITS = 999999;
const size_t MAX_TITLE_CHARS = 40;

// The header a new level or the settings panel asks for.
struct LevelSettings {
    std::string title;
    int32_t planet;
    int32_t width, height;
    int32_t credits;
    int32_t toolLocked[LOCKABLE_TOOL_COUNT];
    int32_t missionNumber;      // orders the player's levels in Custom Game
};
const int MAX_MISSION_NUMBER = 999;
// The number after the last custom level of the planet.
int32_t nextCustomMissionNumber(int32_t planet);

// Puts the document into currentLevel as the editor screen opens (a blank
// level the first time), and keeps it when the editor is left.
void openEditorSession();
void closeEditorSession();

bool editorHasUnsavedChanges();

// A blank level: sky over a flat ground of dirt from row 10 down, the ring
// of border. Replaces the document (the caller asks about unsaved changes).
void newEditorLevel(const LevelSettings &settings);
// The settings of the level on show, and changing them: a new size keeps
// the cells of the top-left corner and fills the rest like a new level.
// A change is one undo step, as a stroke is.
LevelSettings currentLevelSettings();
void applyLevelSettings(const LevelSettings &settings);
// Checks typed settings; false with the reason on the status line.
bool levelSettingsValid(const LevelSettings &settings);

// Opens a level of the catalogue. A campaign mission is only a starting
// point: it is saved as a new custom level, never over the campaign.
bool openEditorLevel(const std::string &path, bool campaign);

// Saves into the custom folder: over the file it came from, or a new file
// named after the title that takes the place of no other. A winning run that
// still wins the level as saved goes beside it as its proof; otherwise the
// old proof is removed. Every outcome is said on the status line.
bool saveEditorLevel();
// A new file for the painting under a new title; the old file stays as it is.
bool saveEditorLevelAs(const std::string &title);
// Save As with the title marked as a copy.
bool duplicateEditorLevel();
// The title and the file name change together, the proof follows; an
// unsaved painting is saved on the way.
bool renameEditorLevel(const std::string &title);
// Removes the level's file and its proof; the editor goes on with a blank level.
bool deleteEditorLevel();
// The file name a never-saved level gets in folder: its title in plain
// letters, with a number added until no file has it.
std::string newLevelFileName(const std::string &folder, const std::string &title);

// Undo and redo: a stroke of the held button, an area fill or a settings
// change is one step. The paint step opens a step before its first write of
// a stroke; the frame without a press closes it.
void openUndoStep();
void endStroke();
bool undoEdit();
bool redoEdit();
size_t undoDepth();
size_t redoDepth();
const size_t UNDO_LIMIT = 64;

// Test-play: Playing on the painted level exactly as a saved file of it
// would load, without writing or reading any file; back in the editor the
// painting is as it was, whatever the run did to the grid.
bool startTestPlay();
bool testPlayRunning();
// Called as the editor opens again after a test-play: puts the painting
// back and, when the run was won, keeps its actions as the level's proof.
void finishTestPlay();

// The winning run of the painting, if any, as the solution script levelcheck
// reads: proven by replay on verifiedText, the level file as it was then.
struct EditorProof {
    bool valid;
    EditorContent content;
    std::string verifiedText;
    std::string script;
    std::string refutedText;    // the last level text its replay lost
};
extern EditorProof editorProof;
bool proofMatchesPainting();

// The player chose to throw the changes away: the level goes back to its
// file, or, never saved, is forgotten (the next visit starts a blank one).
void discardEditorChanges();

// At shut-down (the window closed, a signal) with the painting unsaved: it
// is saved as a new custom level beside the others, named after its title
// with "unsaved", so quitting never loses it and never writes over a file.
// Its title says it was recovered, and the editor opens it first at the next
// start of the game.
void keepUnsavedEditorWork();
const char RECOVERED_TITLE_PREFIX[] = "Recovered: ";

// The messages of the editor.
extern const char StatusLevelSaved[];
extern const char StatusSavedUnplayable[];
extern const char StatusSaveReadOnly[];
extern const char StatusSaveDiskFull[];
extern const char StatusSaveFailed[];
extern const char StatusLevelOpened[];
extern const char StatusOpenFailed[];
extern const char StatusNewLevel[];
extern const char StatusSettingsChanged[];
extern const char StatusNothingToUndo[];
extern const char StatusNothingToRedo[];
extern const char StatusUndone[];
extern const char StatusRedone[];
extern const char StatusProofSaved[];
extern const char StatusSavedProven[];
extern const char StatusProofDropped[];
extern const char StatusProofNotSaved[];
extern const char StatusNeverSaved[];
extern const char StatusLevelDeleted[];
extern const char StatusDeleteFailed[];
extern const char StatusRenamed[];
extern const char StatusBadMission[];
extern const char StatusProofKept[];
extern const char StatusTestPlayNotWon[];
extern const char StatusTestPlayFailed[];
extern const char StatusBadTitle[];
extern const char StatusBadSize[];
extern const char StatusBadCredits[];
