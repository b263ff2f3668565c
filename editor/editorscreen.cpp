// The level editor's screen. The level fills the view between the panels as
// it does in play; the palette stands where the game's toolbar stands, so a
// player who knows the game knows where to reach. Everything that could lose
// the player's work (a new level, another level, leaving) goes through one
// question first.
#include "editor/editorscreen.h"

#include "app/screens.h"
#include "editor/editor.h"
#include "editor/paint.h"
#include "frontend/frontend.h"
#include "frontend/layout.h"
#include "frontend/menuparts.h"
#include "frontend/textentry.h"
#include "game/camera.h"
#include "game/levelview.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "render/stars.h"
#include "render/text.h"
#include "sim/toolinfo.h"
#include "sim/tools.h"

#include <allegro.h>
#include <GL/gl.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sys/stat.h>

EditorScreen editorScreen = {};

const char StatusModeCells[] = "Paint cell by cell";
const char StatusModeRectangle[] = "Paint rectangles: drag from corner to corner";
const char StatusModeFlood[] = "Fill areas: click a cell to fill all like it around";
const char StatusGridOn[] = "Grid on";
const char StatusGridOff[] = "Grid off";

namespace {

const float TICKS_PER_SECOND = 40.0f;

// The paint tools in palette order, with their captions.
const char *const paletteCaptions[PAINT_TOOL_COUNT] = {
    "Dirt", "Rocks", "Clear", "Pod", "Rocket", "Diamond", "Credits",
    "Spikes", "Vortex", "Radiation", "Explosive", "Items", "Water",
};
const int WIDE_PALETTE = 10;

// The menu in two columns: making and keeping a level on the left, the
// file's name and fate and the way out on the right.
const char *const menuCaptions[5] = {"New Level", "Open Level", "Save Level", "Save As", "Duplicate"};
const char *const fileCaptions[4] = {"Rename", "Delete", "Settings", "Main Menu"};
const float MENU_LEFT_X = 250;

// Typed fields: where they stand on the settings panel and what they take.
struct FieldBox {
    const char *label;
    float x0, y0, x1, y1;       // the box, y-up
    size_t maxChars;
    bool digitsOnly;
};
const FieldBox fieldBoxes[SETTINGS_FIELD_COUNT] = {
    {"Title", 200, 396, 600, 416, MAX_TITLE_CHARS, false},
    {"Width", 520, 290, 600, 310, 3, true},
    {"Height", 520, 250, 600, 270, 3, true},
    {"Credits", 520, 210, 600, 230, 6, true},
    {"Mission", 520, 330, 600, 350, 3, true},
};

// Settings panel buttons, clear of the lock column and the planet grid.
Button &settingsOkButton = editorPanelButtons[0];       // (406, 160)
Button &settingsCancelButton = editorPanelButtons[2];   // (406, 86)
// The question's answers. Its "Cancel" stands where the settings panel's
// "Cancel" stands, and the answer that throws work away where no panel has
// a "Cancel" or a "Back": a click from habit keeps the work.
Button &questionSaveButton = editorPanelButtons[4];     // (320, 176)
Button &questionDiscardButton = editorPanelButtons[1];  // (166, 86)
Button &questionCancelButton = editorPanelButtons[3];   // (406, 86), the twin of settingsCancelButton
// The buttons under the level.
Button &undoButton = editorBottomPairButtons[0];
Button &redoButton = editorBottomPairButtons[1];
Button &testPlayButton = editorCentreButton;
Button &menuButton = editorTopRightButton;
// The open panel: a row button per level, pages, the list's source, back.
Button &previousPageButton = editorBottomPairButtons[0];
Button &nextPageButton = editorBottomPairButtons[1];
Button &sourceButton = editorTopRightButton;
Button &openBackButton = editorCentreButton;
Button &menuBackButton = editorBottomCentreButton;

// A planet button of the 2 x 2 grid.
Button &planetButton(int32_t planet)
{
    return editorGridButtons[planet - 1];
}

// The table's grid stands 40 pixels a row, so its 64-pixel buttons overlap
// and a click between two rows would choose both; on the settings panel the
// rows stand apart, placed every frame as the selection screen places its
// planets, and in the selection screen's order: 1 and 2 above, 3 and 4 below.
void placePlanetButtons()
{
    static const float x[4] = {322, 390, 322, 390};
    static const float y[4] = {284, 284, 216, 216};
    for (int32_t p = 1; p <= 4; p++) {
        planetButton(p).x = x[p - 1];
        planetButton(p).y = y[p - 1];
    }
}

// The turning globe of each planet, as the selection screen shows it.
TextureId planetGlobe(int32_t planet)
{
    return ObjectFrameTable[planetGlobeSlot(planet)];
}

bool interactive()
{
    return currentScreen == LevelEditor;
}

bool enteringEditor()
{
    // The logic and frame of the screen a fade leads to run only once it
    // has passed its darkest point.
    return currentScreen == LevelEditor || (currentScreen == Transition && transition.to == LevelEditor);
}

void ensureSession()
{
    if ((editorScreen.sessionOpen && !testPlayRunning()) || !enteringEditor())
        return;
    openEditorSession();
    editorScreen.sessionOpen = true;
    editorScreen.entryMessage = statusTarget();
    // The line starts empty: the last game's message must not show through
    // the fade, nor stay once the editor is on screen.
    resetStatusLine();
    editorScreen.panel = NoPanel;
    editorScreen.escapeWasDown = true;     // the Escape that brought us here is not ours
    clearTypedKeys();
}

void leaveEditor()
{
    closeEditorSession();
    editorScreen.sessionOpen = false;
    editorScreen.panel = NoPanel;
    startTransition(LevelEditor, MainMenu, StarfieldMenu);
}

void carryOut(int32_t action)
{
    editorScreen.panel = NoPanel;
    switch (action) {
    case NewLevelAction: openSettingsPanel(true); break;
    case OpenLevelAction: openOpenPanel(); break;
    case LeaveEditorAction: leaveEditor(); break;
    default: break;
    }
}

std::string numberText(int32_t value)
{
    return std::to_string(value);
}

// The line editor of the game's text entry, with the rules of the field:
// printable characters of the font (digits only for numbers) up to its
// length, Left, Right, Backspace and Delete.
void typeIntoField(int32_t field, int key)
{
    std::string &text = editorScreen.fields[field];
    int32_t &cursor = editorScreen.cursor[field];
    const FieldBox &box = fieldBoxes[field];
    const int c = key & 0xff, scancode = key >> 8;
    int column, row;
    const bool printable = c >= 0x20 && c < 0x7f && fontCell((unsigned char)c, &column, &row);
    if (printable && (!box.digitsOnly || (c >= '0' && c <= '9'))) {
        if (text.size() < box.maxChars) {
            text.insert(text.begin() + cursor, (char)c);
            cursor++;
        }
        return;
    }
    if (editLineKey(text, cursor, scancode))
        return;
    switch (scancode) {
    case KEY_HOME:
        cursor = 0;
        break;
    case KEY_END:
        cursor = (int32_t)text.size();
        break;
    default:
        break;
    }
}

void focusField(int32_t field)
{
    editorScreen.focus = field;
    editorScreen.cursor[field] = (int32_t)editorScreen.fields[field].size();
}

void readSettingsFields(LevelSettings &s)
{
    // The fields hold digits only, at most six: atoi cannot overflow.
    s.title = editorScreen.fields[TitleField];
    s.width = std::atoi(editorScreen.fields[WidthField].c_str());
    s.height = std::atoi(editorScreen.fields[HeightField].c_str());
    s.credits = std::atoi(editorScreen.fields[CreditsField].c_str());
    s.missionNumber = std::atoi(editorScreen.fields[MissionField].c_str());
}

bool pointerIn(float x0, float y0, float x1, float y1)
{
    return input.pointerX > x0 && input.pointerX < x1 && input.pointerY > y0 && input.pointerY < y1;
}

// ---------------------------------------------------------------------------
// Drawing pieces

void setColour(float r, float g, float b, float a)
{
    glColor4f(r, g, b, a);
}

void drawSmallText(float x, float y, const char *text)
{
    drawText(SmallFont, x, y, "%s", text);
}

void drawMediumText(float x, float y, const char *text)
{
    drawText(MediumFont, x, y, "%s", text);
}

void drawOutline(float x0, float y0, float x1, float y1, float r, float g, float b, float a)
{
    drawRect(x0, y0, x1, y0 + 2, r, g, b, a);
    drawRect(x0, y1 - 2, x1, y1, r, g, b, a);
    drawRect(x0, y0, x0 + 2, y1, r, g, b, a);
    drawRect(x1 - 2, y0, x1, y1, r, g, b, a);
}

// A one-cell level that lends the palette the game's own cell pictures.
void drawCellPicture(int32_t code, float x, float y)
{
    static Level swatch;
    if (swatch.terrain.empty())
        swatch.terrain.assign(1, std::vector<int32_t>(1, Empty));
    swatch.planet = currentLevel.planet;
    swatch.terrain[0][0] = code;
    drawTerrainCell(swatch, 0, 0, x, y);
}

// The small square buttons have no room for words: the pointer resting on
// one names it just above.
void drawHoverCaption(const Button &b, const char *text)
{
    if (!b.hovered || editorScreen.panel != NoPanel)
        return;
    const float width = 6.0f * (float)std::string(text).size() + 8;
    const float x0 = b.x - width / 2 < 2 ? 2 : b.x - width / 2;
    drawRect(x0, b.y + 20, x0 + width, b.y + 34, 0, 0, 0, 0.75f);
    setColour(1, 1, 1, 1);
    drawSmallText(x0 + 4, b.y + 23, text);
}

void drawPalette()
{
    for (int i = 0; i < PAINT_TOOL_COUNT; i++) {
        const int32_t tool = FIRST_PAINT_TOOL + i;
        Button &b = paletteButton(tool);
        const bool chosen = currentTool == tool;
        if (chosen)
            drawButtonTinted(b, 0.6f, 1.0f, 0.6f, 1.0f);
        else
            drawButton(b);
        const float shift = visualState(b) == 2 ? 1.0f : 0.0f;
        if (i < WIDE_PALETTE) {
            if (tool == ClearTerrain)
                drawTexture(b.x - shift, b.y + 6 - shift, CursorTextures[1], 1, 1, 1, 0.7f);
            else
                drawCellPicture(paletteCode(tool), b.x - shift, b.y + 6 - shift);
            setColour(1, 1, 1, 1);
            drawTextCentred(SmallFont, b.x - shift, b.y - 24 - shift, "%s",
                            paletteCaptions[i]);
        } else {
            drawCellPicture(paletteCode(tool), b.x - shift, b.y - shift);
        }
        if (chosen)
            drawOutline(b.x - b.width / 2, b.y - b.height / 2, b.x + b.width / 2, b.y + b.height / 2, 0.4f,
                        1.0f, 0.4f, 1.0f);
    }
    for (int i = WIDE_PALETTE; i < PAINT_TOOL_COUNT; i++)
        drawHoverCaption(paletteButton(FIRST_PAINT_TOOL + i), paletteCaptions[i]);
}

void drawBottomButtons()
{
    drawButton(undoButton);
    drawSmallCentredLabel(undoButton, "<");
    drawButton(redoButton);
    drawSmallCentredLabel(redoButton, ">");
    drawLabelledButton(testPlayButton, "Test Play");
    drawLabelledButton(menuButton, "Menu");
    drawHoverCaption(undoButton, "Undo");
    drawHoverCaption(redoButton, "Redo");

    // What a player checks while painting: the pods against the limit, and
    // whether the painting is on disk.
    setColour(0.1f, 1.0f, 0.1f, 1.0f);
    drawText(SmallFont, 112, 20, "Pods %d/%d", editorPodCount, EDITOR_POD_LIMIT);
    setColour(0.9f, 0.9f, 0.9f, 1.0f);
    drawText(SmallFont, 112, 8, "%dx%d", currentLevel.width, currentLevel.height);
    // The cell under the pointer, counted as the level file and the
    // solutions count them: x from the left, y from the top row.
    if (pointerInPlayBand(input.pointerY))
        drawText(SmallFont, 164, 8, "%d,%d", currentLevel.cursorX, currentLevel.cursorY);
    drawSmallText(164, 20, paintMode == PaintRectangle ? "Rect" : paintMode == PaintFlood ? "Fill" : "Cell");
    setColour(1.0f, 1.0f, 0.0f, 1.0f);
    drawText(SmallFont, 428, 20, "%d", editorDoc.credits);
    if (editorHasUnsavedChanges()) {
        setColour(1.0f, 0.6f, 0.2f, 1.0f);
        drawSmallText(428, 8, "Unsaved");
    } else if (proofMatchesPainting()) {
        setColour(0.3f, 1.0f, 0.3f, 1.0f);
        drawSmallText(428, 8, "Proven");
    }
    setColour(1, 1, 1, 1);
}

// The grid over the cells, and the rectangle being dragged.
void drawPaintingAids()
{
    const VisibleCells v = visibleCells();
    const float ox = viewOriginX() - 16, oy = viewOriginY() + 16;
    if (editorScreen.grid) {
        // Every fifth line a little stronger, for counting cells.
        for (int32_t x = v.x0; x <= v.x1; x++)
            drawRect(ox + 32.0f * x, 0, ox + 32.0f * x + 1, SCREEN_HEIGHT, 1, 1, 1, x % 5 ? 0.15f : 0.35f);
        for (int32_t y = v.y0; y <= v.y1; y++)
            drawRect(0, oy - 32.0f * y - 1, SCREEN_WIDTH, oy - 32.0f * y, 1, 1, 1, y % 5 ? 0.15f : 0.35f);
    }
    if (areaDrag.active) {
        const int32_t x0 = std::min(areaDrag.x0, currentLevel.cursorX), x1 = std::max(areaDrag.x0, currentLevel.cursorX);
        const int32_t y0 = std::min(areaDrag.y0, currentLevel.cursorY), y1 = std::max(areaDrag.y0, currentLevel.cursorY);
        const float left = ox + 32.0f * x0, right = ox + 32.0f * (x1 + 1);
        const float top = oy - 32.0f * y0, bottom = oy - 32.0f * (y1 + 1);
        drawRect(left, bottom, right, top, 0.4f, 1.0f, 0.4f, 0.15f);
        drawOutline(left, bottom, right, top, 0.4f, 1.0f, 0.4f, 0.9f);
    }
}

void dimLevel(float alpha)
{
    resetDrawState();
    drawRect(0, 0, SCREEN_WIDTH, SCREEN_HEIGHT, 0, 0, 0, alpha);
}

void drawPanelBox(float x0, float y0, float x1, float y1)
{
    drawRect(x0, y0, x1, y1, 0.05f, 0.07f, 0.12f, 0.92f);
    drawOutline(x0, y0, x1, y1, 0.9f, 0.6f, 0.15f, 1.0f);
}

// ---------------------------------------------------------------------------
// The panels: each draws itself and, when the editor is on screen, acts on
// its buttons.

// The column of five serves this menu alone; it stands left of centre to
// make room for the second column, from the moment the menu opens.
void openMenuPanel()
{
    for (Button &b : editorColumnButtons)
        b.x = MENU_LEFT_X;
    editorScreen.panel = MenuPanel;
}

void menuPanelFrame()
{
    dimLevel(0.5f);
    drawPanelBox(170, 110, 470, 330);
    setColour(1, 1, 1, 1);
    drawMediumCentred(320, 304, "Editor");
    for (int i = 0; i < 5; i++) {
        drawLabelledButton(editorColumnButtons[i], menuCaptions[i]);
    }
    for (int i = 0; i < 4; i++) {
        drawLabelledButton(editorFileButtons[i], fileCaptions[i]);
    }
    drawLabelledButton(menuBackButton, "Back");
    if (!interactive())
        return;
    for (Button &b : editorColumnButtons)
        updateButton(b, input.pointerX, input.pointerY);
    for (Button &b : editorFileButtons)
        updateButton(b, input.pointerX, input.pointerY);
    updateButton(menuBackButton, input.pointerX, input.pointerY);
    if (wasClicked(editorColumnButtons[0]))
        requestEditorAction(NewLevelAction);
    else if (wasClicked(editorColumnButtons[1]))
        requestEditorAction(OpenLevelAction);
    else if (wasClicked(editorColumnButtons[2])) {
        editorScreen.panel = NoPanel;
        saveEditorLevel();
    } else if (wasClicked(editorColumnButtons[3]))
        openTitlePanel(SaveAsAction);
    else if (wasClicked(editorColumnButtons[4])) {
        editorScreen.panel = NoPanel;
        duplicateEditorLevel();
    } else if (wasClicked(editorFileButtons[0]))
        openTitlePanel(RenameAction);
    else if (wasClicked(editorFileButtons[1])) {
        editorScreen.pendingAction = DeleteLevelAction;
        editorScreen.panel = editorDoc.path.empty() ? NoPanel : QuestionPanel;
        if (editorDoc.path.empty())
            deleteEditorLevel();    // says there is no file
    } else if (wasClicked(editorFileButtons[2]))
        openSettingsPanel(false);
    else if (wasClicked(editorFileButtons[3]))
        requestEditorAction(LeaveEditorAction);
    else if (wasClicked(menuBackButton))
        editorScreen.panel = NoPanel;
}

// Save As and Rename: the title alone, on a small panel.
void titlePanelFrame()
{
    dimLevel(0.6f);
    drawPanelBox(90, 60, 550, 300);
    setColour(1, 1, 1, 1);
    const bool rename = editorScreen.pendingAction == RenameAction;
    drawMediumCentred(320, 266, rename ? "Rename Level" : "Save Level As");
    setColour(0.8f, 0.8f, 0.8f, 1);
    drawSmallCentred(320, 240, rename ? "The title and the file name change together"
                                      : "A new file: the level's old file stays as it is");
    const float x0 = 110, y0 = 196, x1 = 530, y1 = 216;
    drawRect(x0, y0, x1, y1, 0, 0, 0, 0.8f);
    drawOutline(x0, y0, x1, y1, 1.0f, 0.75f, 0.2f, 1.0f);
    setColour(0.85f, 0.85f, 0.85f, 1);
    drawMediumText(x0 + 6, y0 + 4, editorScreen.fields[TitleField].c_str());
    drawRect(x0 + 6 + 10 * editorScreen.cursor[TitleField], y0 + 3, x0 + 8 + 10 * editorScreen.cursor[TitleField],
             y1 - 3, 1, 0.75f, 0.2f, pulseA);
    drawLabelledButton(settingsOkButton, rename ? "Rename" : "Save");
    drawLabelledButton(settingsCancelButton, "Cancel");
    if (!interactive())
        return;
    updateButton(settingsOkButton, input.pointerX, input.pointerY);
    updateButton(settingsCancelButton, input.pointerX, input.pointerY);
    if (wasClicked(settingsOkButton))
        confirmTitlePanel();
    else if (wasClicked(settingsCancelButton))
        editorScreen.panel = NoPanel;
}

void settingsPanelFrame()
{
    LevelSettings &s = editorScreen.settings;
    dimLevel(0.6f);
    drawPanelBox(20, 60, 620, 460);
    setColour(1, 1, 1, 1);
    drawMediumCentred(320, 436, editorScreen.settingsForNew ? "New Level" : "Level Settings");

    for (int f = 0; f < SETTINGS_FIELD_COUNT; f++) {
        const FieldBox &box = fieldBoxes[f];
        const bool focused = editorScreen.focus == f;
        setColour(1, 1, 1, 1);
        drawMediumText(box.x0 - 10 * (float)std::string(box.label).size() - 12, box.y0 + 4, box.label);
        drawRect(box.x0, box.y0, box.x1, box.y1, 0, 0, 0, 0.8f);
        drawOutline(box.x0, box.y0, box.x1, box.y1, focused ? 1.0f : 0.4f, focused ? 0.75f : 0.4f,
                    focused ? 0.2f : 0.5f, 1.0f);
        setColour(0.85f, 0.85f, 0.85f, 1);
        drawMediumText(box.x0 + 6, box.y0 + 4, editorScreen.fields[f].c_str());
        // The caret blinks with the shared pulse.
        if (focused)
            drawRect(box.x0 + 6 + 10 * editorScreen.cursor[f], box.y0 + 3,
                     box.x0 + 8 + 10 * editorScreen.cursor[f], box.y1 - 3, 1, 0.75f, 0.2f, pulseA);
    }

    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++) {
        Button &b = editorLeftColumnButtons[i];
        const bool locked = s.toolLocked[i] != 0;
        drawButton(b);
        drawStructureIcon(b.x, b.y, toolOfLock(i) - 1, 1, 1, 1, locked ? 0.25f : 1.0f);
        if (locked) {
            drawRect(b.x - 12, b.y - 1, b.x + 12, b.y + 1, 1, 0.2f, 0.2f, 1);
        }
        setColour(locked ? 0.5f : 0.9f, locked ? 0.5f : 0.9f, locked ? 0.5f : 0.9f, 1);
        drawSmallText(b.x + 22, b.y + 1, infoOf(toolOfLock(i)).caption);
        drawSmallText(b.x + 22, b.y - 9, locked ? "locked" : "offered");
    }

    setColour(1, 1, 1, 1);
    drawSmallCentred(356, 326, "Planet");
    placePlanetButtons();
    for (int32_t p = 1; p <= 4; p++) {
        Button &b = planetButton(p);
        if (s.planet == p)
            drawButtonTinted(b, 0.6f, 1.0f, 0.6f, 1);
        else
            drawButton(b);
        drawTextureSized((int)b.x, (int)b.y, planetGlobe(p), 1, 1, 1, 1, 44, 44);
        setColour(1, 1, 1, 1);
        drawTextCentred(SmallFont, b.x + 20, b.y - 28, "%d", p);
    }

    drawLabelledButton(settingsOkButton, editorScreen.settingsForNew ? "Create" : "Apply");
    drawLabelledButton(settingsCancelButton, "Cancel");
    setColour(0.7f, 0.7f, 0.7f, 1);
    drawSmallText(440, 186, "Width 3-256, height 8-256");
    drawSmallText(440, 176, editorScreen.settingsForNew ? "" : "A new size keeps the top left");

    if (!interactive())
        return;
    if (input.leftPressed)
        for (int f = 0; f < SETTINGS_FIELD_COUNT; f++) {
            const FieldBox &box = fieldBoxes[f];
            if (pointerIn(box.x0, box.y0, box.x1, box.y1))
                focusField(f);
        }
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++) {
        Button &b = editorLeftColumnButtons[i];
        updateButton(b, input.pointerX, input.pointerY);
        if (wasClicked(b))
            s.toolLocked[i] = s.toolLocked[i] ? 0 : 1;
    }
    for (int32_t p = 1; p <= 4; p++) {
        Button &b = planetButton(p);
        updateButton(b, input.pointerX, input.pointerY);
        if (wasClicked(b) && s.planet != p) {
            s.planet = p;
            // A level moved to another planet goes to the end of its list
            // there, unless the player numbers it himself.
            const LevelSettings now = currentLevelSettings();
            const int32_t number =
                !editorScreen.settingsForNew && p == now.planet ? now.missionNumber : nextCustomMissionNumber(p);
            editorScreen.fields[MissionField] = numberText(number);
            editorScreen.cursor[MissionField] = (int32_t)editorScreen.fields[MissionField].size();
        }
    }
    updateButton(settingsOkButton, input.pointerX, input.pointerY);
    updateButton(settingsCancelButton, input.pointerX, input.pointerY);
    if (wasClicked(settingsOkButton))
        confirmSettingsPanel();
    else if (wasClicked(settingsCancelButton))
        editorScreen.panel = NoPanel;
}

// The highlighted level of the open list, read once per highlight and
// drawn by the level view's own cell pictures, scaled into a box.
const float THUMBNAIL_X0 = 400, THUMBNAIL_Y0 = 130, THUMBNAIL_X1 = 608, THUMBNAIL_Y1 = 390;
struct Thumbnail {
    std::string path;
    bool loaded;
    Level level;
};
Thumbnail thumbnail;

bool loadThumbnail(const CatalogueEntry &e)
{
    if (thumbnail.path == e.path)
        return thumbnail.loaded;
    thumbnail.path = e.path;
    // Read with a scratch mission: the list only looks.
    MissionState scratch = {};
    std::string error;
    if (editorScreen.openCampaign) {
        PACKFILE *file = pack_fopen(e.path.c_str(), F_READ);
        thumbnail.loaded = file && parseLevelPackfile(file, thumbnail.level, scratch, &error);
        if (file)
            pack_fclose(file);
    } else {
        std::ifstream in(e.path);
        thumbnail.loaded = in.good() && parseLevelStream(in, thumbnail.level, scratch, &error);
    }
    if (thumbnail.loaded)
        normaliseTerrain(thumbnail.level);
    return thumbnail.loaded;
}

void drawOpenThumbnail()
{
    drawRect(THUMBNAIL_X0, THUMBNAIL_Y0, THUMBNAIL_X1, THUMBNAIL_Y1, 0.02f, 0.03f, 0.08f, 1);
    drawOutline(THUMBNAIL_X0, THUMBNAIL_Y0, THUMBNAIL_X1, THUMBNAIL_Y1, 0.4f, 0.4f, 0.5f, 1);
    const int32_t index = editorScreen.openHighlight;
    setColour(0.7f, 0.7f, 0.7f, 1);
    if (index < 0 || index >= (int32_t)editorScreen.openEntries.size()) {
        drawSmallCentred((THUMBNAIL_X0 + THUMBNAIL_X1) / 2, (THUMBNAIL_Y0 + THUMBNAIL_Y1) / 2,
                         "Point at a level to see it");
        return;
    }
    if (!loadThumbnail(editorScreen.openEntries[index])) {
        drawSmallCentred((THUMBNAIL_X0 + THUMBNAIL_X1) / 2, (THUMBNAIL_Y0 + THUMBNAIL_Y1) / 2,
                         "This level cannot be read");
        return;
    }
    const Level &level = thumbnail.level;
    const float w = 32.0f * level.width, h = 32.0f * level.height;
    const float boxW = THUMBNAIL_X1 - THUMBNAIL_X0 - 8, boxH = THUMBNAIL_Y1 - THUMBNAIL_Y0 - 8;
    const float scale = std::min(boxW / w, boxH / h);
    const float left = (THUMBNAIL_X0 + THUMBNAIL_X1 - w * scale) / 2;
    const float top = (THUMBNAIL_Y0 + THUMBNAIL_Y1 + h * scale) / 2;
    // Every primitive starts from an identity model-view, so the shrinking
    // goes on the projection, for the cells drawn here alone.
    resetDrawState();
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glTranslatef(left, top, 0);
    glScalef(scale, scale, 1);
    glMatrixMode(GL_MODELVIEW);
    for (int32_t x = 0; x < level.width; x++)
        for (int32_t y = 0; y < level.height; y++)
            drawTerrainCell(level, x, y, 32.0f * x + 16, -32.0f * y - 16);
    for (int32_t x = 0; x < level.width; x++)
        for (int32_t y = 0; y < level.height; y++)
            drawEdgeOverlays(level, x, y, 32.0f * x + 16, -32.0f * y - 16);
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    resetDrawState();
}

void openPanelFrame()
{
    dimLevel(0.6f);
    drawPanelBox(20, 60, 620, 460);
    setColour(1, 1, 1, 1);
    drawMediumCentred(320, 430, editorScreen.openCampaign ? "Open a Campaign Mission" : "Open a Custom Level");
    setColour(0.7f, 0.7f, 0.7f, 1);
    drawSmallCentred(320, 412, editorScreen.openCampaign
                                   ? "A mission is a starting point: it is saved as a new custom level"
                                   : "Your levels in the custom folder");

    const std::vector<CatalogueEntry> &entries = editorScreen.openEntries;
    const int32_t first = editorScreen.openPage * OPEN_ROWS_PER_PAGE;
    const int32_t pages = ((int32_t)entries.size() + OPEN_ROWS_PER_PAGE - 1) / OPEN_ROWS_PER_PAGE;
    if (entries.empty()) {
        setColour(1, 1, 1, 1);
        drawMediumCentred(210, 240, "No levels here yet");
    }
    // The row under the pointer is the one pictured on the right.
    if (interactive())
        editorScreen.openHighlight = -1;
    for (int i = 0; i < OPEN_ROWS_PER_PAGE && first + i < (int32_t)entries.size(); i++) {
        const CatalogueEntry &e = entries[first + i];
        Button &b = editorLeftColumnButtons[i];
        if (interactive() && pointerIn(b.x - 16, b.y - 18, THUMBNAIL_X0 - 6, b.y + 18))
            editorScreen.openHighlight = first + i;
        if (editorScreen.openHighlight == first + i)
            drawRect(b.x - 18, b.y - 18, THUMBNAIL_X0 - 6, b.y + 18, 1, 1, 1, 0.08f);
        drawButton(b);
        setColour(0.9f, 0.9f, 0.9f, 1);
        drawSmallCentredLabel(b, ">");
        setColour(0.9f, 0.9f, 0.9f, 1);
        std::string title = e.title.substr(0, 24);
        drawMediumText(b.x + 24, b.y - 1, title.c_str());
        setColour(0.6f, 0.8f, 1.0f, 1);
        drawText(SmallFont, b.x + 24, b.y - 13, "Planet %d #%d", e.planet, e.missionNumber);
        if (editorScreen.openProven[first + i]) {
            setColour(0.3f, 1.0f, 0.3f, 1);
            drawSmallText(b.x + 124, b.y - 13, "Proven");
        }
    }
    if (!entries.empty())
        drawOpenThumbnail();
    drawButton(previousPageButton);
    drawSmallCentredLabel(previousPageButton, "<");
    drawButton(nextPageButton);
    drawSmallCentredLabel(nextPageButton, ">");
    setColour(0.9f, 0.9f, 0.9f, 1);
    drawTextCentred(SmallFont, 320, 36, "Page %d of %d", editorScreen.openPage + 1,
                    pages > 0 ? pages : 1);
    drawLabelledButton(openBackButton, "Back");
    drawLabelledButton(sourceButton, editorScreen.openCampaign ? "Custom" : "Campaign");

    if (!interactive())
        return;
    for (int i = 0; i < OPEN_ROWS_PER_PAGE && first + i < (int32_t)entries.size(); i++) {
        updateButton(editorLeftColumnButtons[i], input.pointerX, input.pointerY);
        if (wasClicked(editorLeftColumnButtons[i])) {
            openListedLevel(first + i);
            return;
        }
    }
    // The whole row is a button too: pressed and released on the same row.
    if (input.leftPressed) {
        if (editorScreen.openRowHeld < 0)
            editorScreen.openRowHeld =
                editorScreen.openHighlight >= 0 ? editorScreen.openHighlight : OPEN_ROW_PRESS_OUTSIDE;
    } else {
        const int32_t held = editorScreen.openRowHeld;
        editorScreen.openRowHeld = -1;
        if (held >= 0 && held == editorScreen.openHighlight) {
            openListedLevel(held);
            return;
        }
    }
    updateButton(previousPageButton, input.pointerX, input.pointerY);
    updateButton(nextPageButton, input.pointerX, input.pointerY);
    updateButton(openBackButton, input.pointerX, input.pointerY);
    updateButton(sourceButton, input.pointerX, input.pointerY);
    if (wasClicked(previousPageButton) && editorScreen.openPage > 0)
        editorScreen.openPage--;
    else if (wasClicked(nextPageButton) && editorScreen.openPage + 1 < pages)
        editorScreen.openPage++;
    else if (wasClicked(openBackButton))
        editorScreen.panel = NoPanel;
    else if (wasClicked(sourceButton)) {
        editorScreen.openCampaign = !editorScreen.openCampaign;
        openOpenPanel();
    }
}

void questionPanelFrame()
{
    const bool deleting = editorScreen.pendingAction == DeleteLevelAction;
    dimLevel(0.6f);
    drawPanelBox(90, 60, 550, 300);
    setColour(1, 1, 1, 1);
    drawMediumCentred(320, 266, deleting ? "Delete this level?" : "This level has unsaved changes");
    setColour(0.8f, 0.8f, 0.8f, 1);
    drawSmallCentred(320, 240, deleting ? "Its file and its winning run are removed for good"
                                        : "Save them before going on?");
    if (!deleting) {
        drawLabelledButton(questionSaveButton, "Save");
    }
    drawLabelledButton(questionDiscardButton, deleting ? "Delete" : "Discard");
    drawLabelledButton(questionCancelButton, "Cancel");
    if (!interactive())
        return;
    if (!deleting)
        updateButton(questionSaveButton, input.pointerX, input.pointerY);
    updateButton(questionDiscardButton, input.pointerX, input.pointerY);
    updateButton(questionCancelButton, input.pointerX, input.pointerY);
    if (!deleting && wasClicked(questionSaveButton))
        answerQuestion(0);
    else if (wasClicked(questionDiscardButton))
        answerQuestion(1);
    else if (wasClicked(questionCancelButton))
        answerQuestion(2);
}

// The palette and the buttons under the level, when no panel is open.
void handleEditorButtons()
{
    for (int i = 0; i < PAINT_TOOL_COUNT; i++) {
        const int32_t tool = FIRST_PAINT_TOOL + i;
        Button &b = paletteButton(tool);
        updateButton(b, input.pointerX, input.pointerY);
        if (wasClicked(b)) {
            currentTool = tool;
            setStatus(paintMessage(tool));
        }
    }
    updateButton(undoButton, input.pointerX, input.pointerY);
    updateButton(redoButton, input.pointerX, input.pointerY);
    updateButton(testPlayButton, input.pointerX, input.pointerY);
    updateButton(menuButton, input.pointerX, input.pointerY);
    if (wasClicked(undoButton))
        undoEdit();
    else if (wasClicked(redoButton))
        redoEdit();
    else if (wasClicked(testPlayButton)) {
        startTestPlay();
    } else if (wasClicked(menuButton))
        openMenuPanel();
}

} // namespace

// ---------------------------------------------------------------------------

Button &paletteButton(int32_t tool)
{
    const int i = tool - FIRST_PAINT_TOOL;
    return i < WIDE_PALETTE ? editorPaletteButtons[i] : editorTopLeftButtons[i - WIDE_PALETTE];
}

void requestEditorAction(int32_t action)
{
    if (editorHasUnsavedChanges()) {
        editorScreen.pendingAction = action;
        editorScreen.panel = QuestionPanel;
        return;
    }
    carryOut(action);
}

void answerQuestion(int32_t choice)
{
    const int32_t action = editorScreen.pendingAction;
    editorScreen.pendingAction = NoAction;
    editorScreen.panel = NoPanel;
    if (choice == 2)
        return;
    if (action == DeleteLevelAction) {
        if (choice == 1)
            deleteEditorLevel();
        return;
    }
    // A save that fails keeps the player here with the message on show:
    // going on would lose the very work the question was about.
    if (choice == 0 && !saveEditorLevel())
        return;
    // New and Open replace the level anyway; leaving must not keep what the
    // player threw away for the next visit (or for the rescue at quitting).
    if (choice == 1 && action == LeaveEditorAction)
        discardEditorChanges();
    carryOut(action);
}

void openSettingsPanel(bool forNew)
{
    EditorScreen &e = editorScreen;
    e.settingsForNew = forNew;
    if (forNew) {
        e.settings = currentLevelSettings();
        e.settings.missionNumber = nextCustomMissionNumber(e.settings.planet);
        e.settings.title = "";
        e.settings.width = NEW_LEVEL_WIDTH;
        e.settings.height = NEW_LEVEL_HEIGHT;
        e.settings.credits = NEW_LEVEL_CREDITS;
        for (int32_t &lock : e.settings.toolLocked)
            lock = 0;
    } else {
        e.settings = currentLevelSettings();
    }
    e.fields[TitleField] = e.settings.title.substr(0, MAX_TITLE_CHARS);
    e.fields[WidthField] = numberText(e.settings.width);
    e.fields[HeightField] = numberText(e.settings.height);
    e.fields[CreditsField] = numberText(e.settings.credits);
    e.fields[MissionField] = numberText(e.settings.missionNumber);
    for (int f = 0; f < SETTINGS_FIELD_COUNT; f++)
        e.cursor[f] = (int32_t)e.fields[f].size();
    e.focus = TitleField;
    e.panel = SettingsPanel;
    clearTypedKeys();
}

void openTitlePanel(int32_t action)
{
    EditorScreen &e = editorScreen;
    e.pendingAction = action;
    e.fields[TitleField] = currentLevelSettings().title.substr(0, MAX_TITLE_CHARS);
    focusField(TitleField);
    e.panel = TitlePanel;
    clearTypedKeys();
}

bool confirmTitlePanel()
{
    EditorScreen &e = editorScreen;
    const std::string title = e.fields[TitleField];
    if (title.find_first_not_of(' ') == std::string::npos) {
        setStatus(StatusBadTitle);
        return false;
    }
    e.panel = NoPanel;
    return e.pendingAction == RenameAction ? renameEditorLevel(title) : saveEditorLevelAs(title);
}

bool confirmSettingsPanel()
{
    LevelSettings s = editorScreen.settings;
    readSettingsFields(s);
    if (!levelSettingsValid(s))
        return false;
    if (editorScreen.settingsForNew)
        newEditorLevel(s);
    else
        applyLevelSettings(s);
    editorScreen.panel = NoPanel;
    return true;
}

void openOpenPanel()
{
    EditorScreen &e = editorScreen;
    // The catalogue is read afresh: a level saved a moment ago is listed.
    loadLevelCatalogue();
    e.openEntries.clear();
    e.openProven.clear();
    const int firstList = e.openCampaign ? 0 : LEVEL_LIST_COUNT / 2;
    for (int list = firstList; list < firstList + LEVEL_LIST_COUNT / 2; list++)
        for (const CatalogueEntry &entry : levelLists[list]) {
            e.openEntries.push_back(entry);
            e.openProven.push_back(!e.openCampaign && levelProvenOnDisk(entry.path));
        }
    e.openPage = 0;
    e.openHighlight = -1;
    // A press that began before the list was up is not a click on a row.
    e.openRowHeld = input.leftPressed ? OPEN_ROW_PRESS_OUTSIDE : -1;
    thumbnail.path.clear();
    e.panel = OpenPanel;
}

bool openListedLevel(int32_t index)
{
    EditorScreen &e = editorScreen;
    if (index < 0 || index >= (int32_t)e.openEntries.size())
        return false;
    const CatalogueEntry entry = e.openEntries[index];
    e.panel = NoPanel;
    return openEditorLevel(entry.path, e.openCampaign);
}

void editorEscape()
{
    switch (editorScreen.panel) {
    case NoPanel:
        requestEditorAction(LeaveEditorAction);
        break;
    case QuestionPanel:
        answerQuestion(2);
        break;
    default:
        editorScreen.panel = NoPanel;
        break;
    }
}

void editorKey(int key)
{
    const int c = key & 0xff, scancode = key >> 8;
    EditorScreen &e = editorScreen;
    if (e.panel == SettingsPanel) {
        if (scancode == KEY_TAB)
            focusField((e.focus + 1) % SETTINGS_FIELD_COUNT);
        else if (scancode == KEY_ENTER || scancode == KEY_ENTER_PAD)
            confirmSettingsPanel();
        else if (scancode != KEY_ESC)
            typeIntoField(e.focus, key);
        return;
    }
    if (e.panel == TitlePanel) {
        if (scancode == KEY_ENTER || scancode == KEY_ENTER_PAD)
            confirmTitlePanel();
        else if (scancode != KEY_ESC && scancode != KEY_TAB)
            typeIntoField(TitleField, key);
        return;
    }
    if (e.panel != NoPanel)
        return;
    // Ctrl+Z, Ctrl+Y and Ctrl+S, as in every program that paints.
    if (c == 26)
        undoEdit();
    else if (c == 25)
        redoEdit();
    else if (c == 19)
        saveEditorLevel();
    else if (scancode == KEY_F5)
        startTestPlay();
    else
        switch (c >= 'A' && c <= 'Z' ? c + 32 : c) {
        case 'b': paintMode = PaintCells; setStatus(StatusModeCells); break;
        case 'r': paintMode = PaintRectangle; setStatus(StatusModeRectangle); break;
        case 'f': paintMode = PaintFlood; setStatus(StatusModeFlood); break;
        case 'e': pickToolAt(currentLevel.cursorX, currentLevel.cursorY); break;
        case 'g':
            e.grid = !e.grid;
            setStatus(e.grid ? StatusGridOn : StatusGridOff);
            break;
        default: break;
        }
}

void editorTick()
{
    ensureSession();
    tickStatus();
    tickDriftingStars();
    if (!interactive())
        return;
    // F5 may have started a test-play: the keys after it are the game's.
    for (int key = nextTypedKey(); key >= 0 && interactive(); key = nextTypedKey())
        editorKey(key);
    if (!interactive())
        return;
    // The arrows scroll as the screen edges do, at the same speed.
    if (editorScreen.panel == NoPanel) {
        const float step = scrollSpeed / TICKS_PER_SECOND;
        camX += step * (float)(input.right - input.left);
        camY += step * (float)(input.up - input.down);
    }
    if (input.escape && !editorScreen.escapeWasDown)
        editorEscape();
    editorScreen.escapeWasDown = input.escape != 0;
}

void editorFrame()
{
    ensureSession();
    clampCamera();
    pickCursorCell();
    drawLevelView(LevelEditor);

    resetDrawState();
    drawPaintingAids();
    drawStatus();
    drawDisplayPanels();
    drawPalette();
    drawBottomButtons();

    if (interactive() && editorScreen.entryMessage) {
        // The entry asked the line to fade to empty, perhaps from this very
        // message, which setStatus would then take as already on show.
        resetStatusLine();
        setStatus(editorScreen.entryMessage);
        editorScreen.entryMessage = nullptr;
    }

    switch (editorScreen.panel) {
    case MenuPanel: menuPanelFrame(); break;
    case SettingsPanel: settingsPanelFrame(); break;
    case OpenPanel: openPanelFrame(); break;
    case QuestionPanel: questionPanelFrame(); break;
    case TitlePanel: titlePanelFrame(); break;
    default:
        if (interactive()) {
            handleEditorButtons();
            // A test-play may have just begun: the level on show is no longer the painting.
            if (testPlayRunning())
                return;
            paintEditorCell();
            if (!input.leftPressed)
                endStroke();
        }
        return;
    }
    if (interactive())
        drawPointer();
}
