// The level the editor works on, and what the player does with it beyond
// painting: new, open, save, undo and redo, test-play and the proof of a won
// test-play. None of this draws; the editor screen (editorscreen.cpp) calls
// it from its buttons and keys, and the tests call it directly.
#pragma once

#include "game/gamescreen.h"
#include "game/mission.h"
#include "world/level.h"

#include <cstdint>
#include <string>
#include <vector>

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
    uint32_t generation;        // names the painted state; every edit makes a new one
    uint32_t savedGeneration;   // the state that is on disk (or was opened)
};
extern EditorDocument editorDoc;

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
};

// Puts the document into currentLevel as the editor screen opens (a blank
// level the first time), and keeps it when the editor is left.
void openEditorSession();
void closeEditorSession();

bool editorHasUnsavedChanges();

// A blank level: sky over a flat ground of dirt from row 10 down, the ring
// of border. Replaces the document (the caller asks about unsaved changes).
void newEditorLevel(const LevelSettings &settings);
// The settings of the level on show, and changing them: a new size keeps
// the cells of the top-left corner and fills the rest like a new level; the
// resize is one undo step.
LevelSettings currentLevelSettings();
void applyLevelSettings(const LevelSettings &settings);
// Checks typed settings; false with the reason on the status line.
bool levelSettingsValid(const LevelSettings &settings);

// Opens a level of the catalogue. A campaign mission is only a starting
// point: it is saved as a new custom level, never over the campaign.
bool openEditorLevel(const std::string &path, bool campaign);

// Saves into the custom folder: over the file it came from, or a new file
// named after the title that takes the place of no other. A proof recorded
// for exactly this painting is saved beside it; an older one is removed.
// Every outcome is said on the status line.
bool saveEditorLevel();
// The file name a never-saved level gets in folder: its title in plain
// letters, with a number added until no file has it.
std::string newLevelFileName(const std::string &folder, const std::string &title);
// The proof beside a level file: "x.level" has "x.solution".
std::string solutionPathFor(const std::string &levelPath);

// Undo and redo of painting: a stroke of the held button is one step. The
// paint step opens a step before its first write of a stroke; the frame
// without a press closes it.
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

// The winning run of the painting with the given generation, if any, as the
// solution script levelcheck reads.
struct EditorProof {
    bool valid;
    uint32_t generation;
    std::string script;
};
extern EditorProof editorProof;
bool proofMatchesPainting();

// The player chose to throw the changes away: the level goes back to its
// file, or, never saved, is forgotten (the next visit starts a blank one).
void discardEditorChanges();

// At shut-down (the window closed, a signal) with the painting unsaved: it
// is saved as a new custom level beside the others, named after its title
// with "unsaved", so quitting never loses it and never writes over a file.
void keepUnsavedEditorWork();

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
extern const char StatusProofKept[];
extern const char StatusTestPlayNotWon[];
extern const char StatusTestPlayFailed[];
extern const char StatusBadTitle[];
extern const char StatusBadSize[];
extern const char StatusBadCredits[];
