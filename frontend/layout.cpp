// The layout table: where every control stands, how big it is, which GUI
// frames it shows and whether it clicks. It is the one place a widget is
// built; the screens only use these instances.

#include "frontend/layout.h"

static const int LOUD = 1, SILENT = 0;

Button mainNewGameButton = makeButton(320, 275, 256, 32, LOUD);
Button mainEditorButton = makeButton(320, 239, 256, 32, LOUD);
Button mainHelpButton = makeButton(320, 203, 256, 32, LOUD);
Button mainOptionsButton = makeButton(320, 167, 256, 32, LOUD);
Button mainCreditsButton = makeButton(320, 131, 256, 32, LOUD);
Button mainExitButton = makeButton(320, 59, 256, 32, LOUD);

Button dialogUpperButton = makeButton(320, 184, 256, 32, LOUD);
Button dialogLowerButton = makeButton(320, 148, 256, 32, LOUD);

// The toolbar stands 63 pixels apart from x = 36; the editor's palette shares it.
#define ROW_OF_TEN(y, w, h, sound)                                                      \
    {makeButton(36, y, w, h, sound), makeButton(99, y, w, h, sound),                    \
     makeButton(162, y, w, h, sound), makeButton(225, y, w, h, sound),                  \
     makeButton(288, y, w, h, sound), makeButton(351, y, w, h, sound),                  \
     makeButton(414, y, w, h, sound), makeButton(477, y, w, h, sound),                  \
     makeButton(540, y, w, h, sound), makeButton(603, y, w, h, sound)}

Button toolButtons[TOOL_BUTTON_COUNT] = ROW_OF_TEN(432, 64, 64, LOUD);
Button hatchPodsButton = makeButton(311, 17, 128, 32, LOUD);
Button gameMenuButton = makeButton(552, 17, 128, 32, LOUD);
Button launchButton = makeButton(0, -110, 128, 32, LOUD);

Button pauseResumeButton = makeButton(320, 270, 128, 32, LOUD);
Button pauseRetryButton = makeButton(320, 234, 128, 32, LOUD);
Button pauseExitButton = makeButton(320, 140, 128, 32, LOUD);
Button missionContinueButton = makeButton(320, 132, 128, 32, LOUD);

Button planetButtons[PLANET_COUNT] = {
    makeButton(390, 260, 64, 64, SILENT),
    makeButton(320, 220, 64, 64, SILENT),
    makeButton(390, 220, 64, 64, SILENT),
    makeButton(320, 260, 64, 64, SILENT),
};
Button previousMissionButton = makeButton(150, 264, 64, 16, LOUD);
Button nextMissionButton = makeButton(230, 264, 64, 16, LOUD);
Button enterPasswordButton = makeButton(190, 225, 256, 32, LOUD);
Button gameModeButton = makeButton(190, 161, 256, 32, LOUD);
Button startMissionButton = makeButton(190, 108, 256, 64, LOUD);
Button selectReturnButton = makeButton(190, 55, 256, 32, LOUD);

Button windowedModeButton = makeButton(320, 420, 256, 32, LOUD);
Button fullscreenModeButton = makeButton(320, 380, 256, 32, LOUD);
Button color32Button = makeButton(320, 320, 256, 32, LOUD);
Button color16Button = makeButton(320, 280, 256, 32, LOUD);
Button optionsReturnButton = makeButton(320, 60, 256, 32, LOUD);
Slider scrollSpeedSlider = makeSlider(248, 200, "Scroll Speed", 16, 16);
Slider musicVolumeSlider = makeSlider(248, 150, "Music Volume", 16, 16);
Slider soundVolumeSlider = makeSlider(248, 100, "Sound Volume", 16, 16);

Button exitWebPageButton = makeButton(160, 18, 256, 32, LOUD);
Button exitGameButton = makeButton(480, 18, 256, 32, LOUD);

Button editorTopLeftButtons[3] = {
    makeButton(22, 17, 32, 32, LOUD), makeButton(56, 17, 32, 32, LOUD), makeButton(90, 17, 32, 32, LOUD),
};
Button editorTopRightButton = makeButton(570, 17, 128, 32, LOUD);
Button editorPaletteButtons[10] = ROW_OF_TEN(432, 64, 64, LOUD);
Button editorLeftColumnButtons[9] = {
    makeButton(130, 380, 32, 32, LOUD), makeButton(130, 344, 32, 32, LOUD),
    makeButton(130, 308, 32, 32, LOUD), makeButton(130, 272, 32, 32, LOUD),
    makeButton(130, 236, 32, 32, LOUD), makeButton(130, 200, 32, 32, LOUD),
    makeButton(130, 164, 32, 32, LOUD), makeButton(130, 128, 32, 32, LOUD),
    makeButton(130, 92, 32, 32, LOUD),
};
Button editorBottomCentreButton = makeButton(320, 18, 128, 32, LOUD);
Button editorPanelButtons[6] = {
    makeButton(406, 160, 128, 32, LOUD), makeButton(166, 86, 128, 32, LOUD),
    makeButton(406, 86, 128, 32, LOUD),  makeButton(406, 86, 128, 32, LOUD),
    makeButton(320, 176, 128, 32, LOUD), makeButton(320, 176, 128, 32, LOUD),
};
Button editorGridButtons[4] = {
    makeButton(390, 260, 64, 64, LOUD), makeButton(320, 220, 64, 64, LOUD),
    makeButton(320, 260, 64, 64, LOUD), makeButton(390, 220, 64, 64, LOUD),
};
Button editorArrowButtons[2] = {makeButton(160, 240, 64, 16, LOUD), makeButton(240, 240, 64, 16, LOUD)};
Button editorColumnButtons[5] = {
    makeButton(320, 276, 128, 32, LOUD), makeButton(320, 242, 128, 32, LOUD),
    makeButton(320, 208, 128, 32, LOUD), makeButton(320, 174, 128, 32, LOUD),
    makeButton(320, 140, 128, 32, LOUD),
};
// The editor menu's second column: its file commands outnumber the column of five.
Button editorFileButtons[4] = {
    makeButton(390, 276, 128, 32, LOUD), makeButton(390, 242, 128, 32, LOUD),
    makeButton(390, 208, 128, 32, LOUD), makeButton(390, 174, 128, 32, LOUD),
};
Button editorBottomPairButtons[2] = {makeButton(234, 17, 32, 32, LOUD), makeButton(405, 17, 32, 32, LOUD)};
Button editorCentreButton = makeButton(320, 17, 128, 32, LOUD);

// The main menu, the options and the selection screen stand still behind a
// fade's veil: their buttons keep the look they had when it came down (and
// the selection screen's, under the password panel).
static bool holdLooksBehindVeil()
{
    Button *const menus[] = {&mainNewGameButton, &mainEditorButton, &mainHelpButton, &mainOptionsButton,
                             &mainCreditsButton, &mainExitButton, &windowedModeButton, &fullscreenModeButton,
                             &color32Button, &color16Button, &optionsReturnButton, &previousMissionButton,
                             &nextMissionButton, &enterPasswordButton, &gameModeButton, &startMissionButton,
                             &selectReturnButton};
    for (Button *b : menus)
        b->holdsLookBehindVeil = 1;
    for (Button &b : planetButtons)
        b.holdsLookBehindVeil = 1;
    return true;
}
// After the buttons above: one file's globals are built in the order written.
[[maybe_unused]] static const bool looksHeld = holdLooksBehindVeil();

// Which GUI triple each widget shows. Sliders take slots 15 (filled) and 16.
struct FrameRow {
    Button *buttons;
    int count;
    int firstSlot;
};

static const FrameRow FRAME_TABLE[] = {
    {&mainNewGameButton, 1, 6}, {&mainEditorButton, 1, 6}, {&mainHelpButton, 1, 6},
    {&mainOptionsButton, 1, 6}, {&mainCreditsButton, 1, 6}, {&mainExitButton, 1, 6},
    {&dialogUpperButton, 1, 6}, {&dialogLowerButton, 1, 6},
    {toolButtons, TOOL_BUTTON_COUNT, 0}, {&hatchPodsButton, 1, 3}, {&gameMenuButton, 1, 3},
    {&launchButton, 1, 3},
    {&pauseResumeButton, 1, 3}, {&pauseRetryButton, 1, 3}, {&pauseExitButton, 1, 3},
    {&missionContinueButton, 1, 3},
    {planetButtons, PLANET_COUNT, 0}, {&previousMissionButton, 1, 12}, {&nextMissionButton, 1, 12},
    {&enterPasswordButton, 1, 6}, {&gameModeButton, 1, 6}, {&startMissionButton, 1, 9},
    {&selectReturnButton, 1, 6},
    {&windowedModeButton, 1, 6}, {&fullscreenModeButton, 1, 6}, {&color32Button, 1, 6},
    {&color16Button, 1, 6}, {&optionsReturnButton, 1, 6},
    {&exitWebPageButton, 1, 17}, {&exitGameButton, 1, 17},
    {editorTopLeftButtons, 3, 23}, {&editorTopRightButton, 1, 20}, {editorPaletteButtons, 10, 17},
    {editorLeftColumnButtons, 9, 23}, {&editorBottomCentreButton, 1, 20}, {editorPanelButtons, 6, 20},
    {editorGridButtons, 4, 0}, {editorArrowButtons, 2, 26}, {editorColumnButtons, 5, 20},
    {editorFileButtons, 4, 20},
    {editorBottomPairButtons, 2, 29}, {&editorCentreButton, 1, 3},
};

void linkLayoutFrames()
{
    for (const FrameRow &row : FRAME_TABLE)
        for (int i = 0; i < row.count; i++)
            setButtonFrames(row.buttons[i], row.firstSlot);
    setSliderFrames(scrollSpeedSlider, 15, 16);
    setSliderFrames(musicVolumeSlider, 15, 16);
    setSliderFrames(soundVolumeSlider, 15, 16);
}
