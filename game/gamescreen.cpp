// The level in play. The order of a tick and the order of a frame's clicks
// are written here once; the headless driver runs these same functions, so a
// level proven by levelcheck is proven through what a player's mouse reaches.
#include "game/gamescreen.h"

#include "app/log.h"
#include "app/screens.h"
#include "frontend/layout.h"
#include "game/camera.h"
#include "game/toolbar.h"
#include "game/levelview.h"
#include "game/mission.h"
#include "game/status.h"
#include "render/draw.h"
#include "render/present.h"
#include "render/stars.h"
#include "render/text.h"
#include "sim/bubblemen.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "game/entitydraw.h"
#include "game/launchpanel.h"
#include "sim/rockets.h"
#include "sim/tools.h"
#include "world/level.h"

#include <GL/gl.h>

// Until a level from the selection screen arms it the banner is idle and a
// tutorial panel shows at full strength: the editor's test-play arms none.
IntroBanner introBanner = {false, 0, 0, 0, false, 0, 1, 0};
int32_t levelTick = 0;
uint32_t levelReturnScreen = GameSelect;
std::vector<ScriptAction> playRecord;
bool recordingPlay = false;

static const float BANNER_MIDDLE_Y = 218;
static const float BANNER_OPEN_HALF_HEIGHT = 15;

void armLevelBanner()
{
    introBanner = IntroBanner{true, 30, 0, 80, false, 0, 0, 120};
}

void stepIntroBanner()
{
    IntroBanner &b = introBanner;
    if (b.tutorialDelay > 0)
        b.tutorialDelay--;
    else if (b.tutorialAlpha < 1.0f)
        b.tutorialAlpha += 0.1f;
    if (b.delay > 0) {
        b.delay--;
        return;
    }
    if (!b.active)
        return;
    if (!b.closing) {
        if (b.halfHeight < BANNER_OPEN_HALF_HEIGHT) {
            b.halfHeight += 1;
            b.textAlpha += 0.07f;
        } else {
            b.closing = true;
            b.textAlpha = 1.0f;
        }
    }
    if (b.closing)
        b.hold -= 1;
    if (b.hold <= 15) {
        b.halfHeight = b.hold;
        b.textAlpha = 0;
        if (b.hold < 0)
            b.active = false;
    }
}

static void record(int32_t step, int32_t kind, int32_t tool = 0, int32_t x = 0, int32_t y = 0)
{
    if (recordingPlay)
        playRecord.push_back(ScriptAction{step, kind, tool, x, y, 0});
}

void gameTick()
{
    levelTick++;
    stepIntroBanner();
    // The level also ticks under the fade that brings it in; its screen
    // changes wait until the fade is over, since a fade abandoned half way
    // would leave the panels' buttons dead under a veil.
    const bool onScreen = currentScreen == Playing;
    if (onScreen && mission.rocketsGone == mission.rocketCount)
        setScreen(MissionComplete);
    tickDriftingStars();
    if (onScreen && mission.bubblemanLost)
        setScreen(MissionFailed);
    tickDriftingStars();
    if (onScreen && input.escape)
        setScreen(Paused);
    tickStatus();
    const bool launchClicked = updateLaunchButton();
    // The button reports its click on the tick after the press, and a script
    // names the step of the press. The button lies over the level, so the
    // same press was taken as a click on the cell beneath: the script's
    // launch makes that click itself.
    if (launchClicked && recordingPlay) {
        if (!playRecord.empty() && playRecord.back().kind == ClickCellAction && playRecord.back().step == levelTick - 1)
            playRecord.pop_back();
        record(levelTick - 1, LaunchAction);
    }
    tickLaunchPanelWith(launchClicked);
    updateBubblemen();
    updateExplosions();
    removeFinishedExplosions();
    updateFlyingRockets();
    removeGoneRockets();
    launchRockets();
    tickCostLabels();
}

// ---------------------------------------------------------------------------
// The frame

static const float LABEL_GREY = 0.9f;

static void drawLabel(const Button &b, float dx, float dy, const char *text)
{
    const float shift = visualState(b) == 2 ? 1 : 0;
    resetDrawState();
    glColor4f(LABEL_GREY, LABEL_GREY, LABEL_GREY, 1);
    drawText(MediumFont, b.x + dx - shift, b.y + dy - shift, "%s", text);
}

static void drawToolbar()
{
    for (int i = 0; i < TOOL_BUTTON_COUNT; i++) {
        const Button &b = toolButtons[i];
        const int32_t tool = i + 1;
        drawButton(b);
        if (toolIsLocked(tool))
            continue;
        const int state = visualState(b);
        // The hatcher's picture stops moving once there is nothing left to hatch.
        const bool animated = state != 0 && !(tool == Hatcher && mission.hatched);
        if (animated && state == 2)
            drawStructure(b.x - 1, b.y + 4 - 1, tool - 1, 1, 1, 1, 1);
        else if (animated)
            drawStructure(b.x, b.y + 4, tool - 1, 1, 1, 1, 1);
        else
            drawStructureIcon(b.x, b.y + 4, tool - 1, 1, 1, 1, 1);
        resetDrawState();
        glColor4f(LABEL_GREY, LABEL_GREY, LABEL_GREY, 1);
        drawText(MediumFont, b.x - 16, b.y - 24, "%d", toolCost(tool));
    }
    drawButton(hatchPodsButton);
    drawLabel(hatchPodsButton, -52, -5, "Hatch Pods");
    drawButton(gameMenuButton);
    drawLabel(gameMenuButton, -24, -5, "Menu");
}

static void drawBanner()
{
    const IntroBanner &b = introBanner;
    if (!b.active)
        return;
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    drawRect(0, BANNER_MIDDLE_Y - b.halfHeight, SCREEN_WIDTH, BANNER_MIDDLE_Y + b.halfHeight, 0.5f, 0.5f, 0.5f,
             0.4f);
    resetDrawState();
    glColor4f(1, 1, 1, b.textAlpha);
    drawTextCentred(LargeFont, 320, 210, "%s", currentLevel.title.c_str());
}

static void drawDisplay()
{
    drawDisplayPanels();
    drawDisplayIcons();
    resetDrawState();
    glColor4f(1, 1, 0, 1);
    drawText(LargeFont, 34, 8, "%d", mission.credits);
    glColor4f(0, 1, 0, 1);
    drawText(LargeFont, 217, 8, "%d", mission.podsWithoutHatcher);
}

// The clicks on the level, with the tool in hand, as the player's mouse
// makes them; the pointer is drawn over everything else.
static void applyTool(bool drawing)
{
    edgeScroll();
    if (pointerInPlayBand(input.pointerY) && currentTool != NoTool) {
        if (input.leftPressed)
            record(levelTick, ClickCellAction, 0, currentLevel.cursorX, currentLevel.cursorY);
        if (input.rightPressed)
            record(levelTick, CancelAction);
    }
    applyToolClicks(input.leftPressed, input.rightPressed, input.pointerY);
    if (drawing)
        drawTexture(input.pointerX, input.pointerY, CursorTextures[0], 1, 1, 1, 1);
}

void handleGameButtons()
{
    const float px = input.pointerX, py = input.pointerY;
    for (int i = 0; i < TOOL_BUTTON_COUNT; i++)
        if (!toolIsLocked(i + 1))
            updateButton(toolButtons[i], px, py);
    updateButton(hatchPodsButton, px, py);
    updateButton(gameMenuButton, px, py);

    for (int i = 0; i < TOOL_BUTTON_COUNT; i++) {
        const int32_t tool = i + 1;
        // A button left clicked in a level where its tool was free keeps its
        // flag; here, locked, it is never updated and must not be heard.
        if (toolIsLocked(tool) || !wasClicked(toolButtons[i]))
            continue;
        record(levelTick, ChooseToolAction, tool);
        chooseTool(tool);
    }
    if (wasClicked(hatchPodsButton)) {
        record(levelTick, HatchPodsAction);
        pressHatchPods();
    }
    if (wasClicked(gameMenuButton))
        setScreen(Paused);
}

// Most of the display's two panels is opaque, and the level drawn under those
// rows is only painted over: a software renderer would shade it for nothing.
// The opaque rows are read once from the panel pictures themselves (drawn
// texel for texel, nearest filtering), so other art keeps the frame exact.
bool clipLevelUnderPanels = true;

struct LevelBand {
    bool read;
    int32_t bottom, top;    // screen rows the level can show through: bottom <= y < top
};
static LevelBand levelBand = {false, 0, SCREEN_HEIGHT};

// Rows of the picture, counted from its top (fromTop) or its bottom, whose
// every texel is wholly opaque.
static int32_t opaqueRows(TextureId texture, bool fromTop, int32_t *height)
{
    GLint w = 0, h = 0;
    glBindTexture(GL_TEXTURE_2D, texture);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &w);
    glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_HEIGHT, &h);
    *height = h;
    if (texture == 0 || w <= 0 || h <= 0)
        return 0;
    std::vector<unsigned char> alpha((size_t)w * h, 0);
    GLint packAlignment = 4;
    glGetIntegerv(GL_PACK_ALIGNMENT, &packAlignment);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_ALPHA, GL_UNSIGNED_BYTE, alpha.data());
    glPixelStorei(GL_PACK_ALIGNMENT, packAlignment);
    glBindTexture(GL_TEXTURE_2D, 0);
    int32_t rows = 0;
    for (; rows < h; rows++) {
        // Stored bottom row first.
        const int32_t row = fromTop ? h - 1 - rows : rows;
        for (int32_t x = 0; x < w; x++)
            if (alpha[(size_t)row * w + x] != 255)
                return rows;
    }
    return rows;
}

static void readLevelBand()
{
    int32_t h = 0;
    const int32_t topRows = opaqueRows(SpriteTextures[0], true, &h);
    // The top panel covers screen rows 352 to 480 with its h texel rows; a
    // pixel row is hidden when the texel it samples is opaque. One row of
    // margin keeps rounding on the safe side.
    levelBand.top = h > 0 ? SCREEN_HEIGHT - (topRows * 128) / h + 1 : SCREEN_HEIGHT;
    const int32_t bottomRows = opaqueRows(SpriteTextures[2], false, &h);
    levelBand.bottom = h > 0 ? (bottomRows * 128) / h - 1 : 0;
    if (levelBand.top > SCREEN_HEIGHT)
        levelBand.top = SCREEN_HEIGHT;
    if (levelBand.bottom < 0)
        levelBand.bottom = 0;
    levelBand.read = true;
}

static void clipToLevelBand(bool on)
{
    if (!clipLevelUnderPanels)
        return;
    if (!on) {
        glDisable(GL_SCISSOR_TEST);
        return;
    }
    if (!levelBand.read)
        readLevelBand();
    scissorPicture(0, levelBand.bottom, SCREEN_WIDTH, levelBand.top - levelBand.bottom);
    glEnable(GL_SCISSOR_TEST);
}

// The one order of a game-screen frame. Drawing never changes the level, so
// the frame without drawing keeps every step that does, in the same place.
static void gameFrame(bool drawing)
{
    clampCamera();
    pickCursorCell();
    if (drawing) {
        clipToLevelBand(true);
        drawLevelView(currentScreen);
        drawExplosions();
        drawFlyingRockets();
        drawBubblemen();
        clipToLevelBand(false);
        resetDrawState();
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        drawStatus();
        drawLaunchPanel();
        drawBanner();
        drawDisplay();
        drawToolbar();
        drawCostLabels();
    } else {
        levelViewUpkeep();
        placeLaunchPanel();
    }
    if (currentScreen != Playing)
        return;
    applyTool(drawing);
    dropHatcherAfterHatching();
    applyOutOfCreditsRule();
    handleGameButtons();
}

void drawGameScreen()
{
    gameFrame(true);
}

void runGameFrameWithoutDrawing()
{
    gameFrame(false);
}

// ---------------------------------------------------------------------------
// Leaving

void leaveLevel(uint32_t from)
{
    startTransition(from, levelReturnScreen, StarfieldMenu);
    logLine("Exiting level...");
}
