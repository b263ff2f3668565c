// The level editor's screen: the paint palette and the buttons under the
// level, and the panels that open over it (the editor's menu, the level
// settings, the list of levels to open, and the question about unsaved
// changes).
#pragma once

#include "editor/editor.h"
#include "world/catalogue.h"

#include <cstdint>
#include <string>
#include <vector>

// The LevelEditor row's handlers.
void editorTick();
void editorFrame();

enum EditorPanel : int32_t {
    NoPanel = 0,
    MenuPanel = 1,
    SettingsPanel = 2,
    OpenPanel = 3,
    QuestionPanel = 4,
    TitlePanel = 5,
};

// What waits behind the unsaved-changes question.
enum EditorAction : int32_t {
    NoAction = 0,
    NewLevelAction = 1,
    OpenLevelAction = 2,
    LeaveEditorAction = 3,
    // Behind the delete question and the title panel.
    DeleteLevelAction = 4,
    SaveAsAction = 5,
    RenameAction = 6,
};

// The typed fields of the settings panel, in the order Tab walks them.
enum SettingsField : int32_t {
    TitleField = 0,
    WidthField = 1,
    HeightField = 2,
    CreditsField = 3,
    MissionField = 4,
    SETTINGS_FIELD_COUNT = 5,
};

const int OPEN_ROWS_PER_PAGE = 9;
// openRowHeld for a press that began off the rows (or before the list).
const int32_t OPEN_ROW_PRESS_OUTSIDE = 1 << 30;

struct EditorScreen {
    bool sessionOpen;           // the document is in currentLevel
    // What the editor said as it opened (after a test-play), shown once the
    // fade is over: the screen's entry clears the status line.
    const char *entryMessage;
    int32_t panel;
    int32_t pendingAction;      // what the question (or the title panel) stands before
    bool escapeWasDown;
    // The settings panel: for a new level, or for the level on show.
    bool settingsForNew;
    LevelSettings settings;
    std::string fields[SETTINGS_FIELD_COUNT];
    int32_t cursor[SETTINGS_FIELD_COUNT];
    int32_t focus;
    // The open panel.
    bool openCampaign;
    int32_t openPage;
    std::vector<CatalogueEntry> openEntries;
    std::vector<bool> openProven;   // the proof beside the level names its very bytes
    int32_t openHighlight;          // the row under the pointer, whose picture is shown; -1 none
    int32_t openRowHeld;            // the row the held button went down on; -1 none
    // Painting aids.
    bool grid;
};
extern EditorScreen editorScreen;

extern const char StatusModeCells[];
extern const char StatusModeRectangle[];
extern const char StatusModeFlood[];
extern const char StatusGridOn[];
extern const char StatusGridOff[];

// Where each paint tool sits: the first ten on the wide palette row, the
// last three on the small buttons at the lower left.
struct Button;
Button &paletteButton(int32_t tool);

// A key as Allegro's readkey gives it (character in the low byte, scancode
// in the high byte), for the field in focus or the editor's shortcuts.
void editorKey(int key);
// Escape: closes the panel on show, or asks to leave.
void editorEscape();
// The actions behind the menu's buttons; each asks first about unsaved
// changes where something would be lost.
void requestEditorAction(int32_t action);
// The question's answers: for unsaved changes 0 save first, 1 discard,
// 2 cancel; before a delete 1 deletes and 2 cancels.
void answerQuestion(int32_t choice);
// Save As and Rename ask for the title first.
void openTitlePanel(int32_t action);
bool confirmTitlePanel();
void openSettingsPanel(bool forNew);
bool confirmSettingsPanel();
void openOpenPanel();
bool openListedLevel(int32_t index);
