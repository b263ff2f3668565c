// The headless driver feeds a script into the game screen's own functions:
// each step is the main loop at twice the tick rate, one pass with the
// level's tick and one without, and each action is the player's mouse: the
// pointer put on the button or the cell, the button pressed in the first
// pass and released in the second. So a script can click nothing a player
// could not, and the game's order of a tick and of a frame is the only one.
#include "game/driver.h"

#include "app/screens.h"
#include "frontend/layout.h"
#include "game/camera.h"
#include "game/gamescreen.h"
#include "game/toolbar.h"
#include "game/mission.h"
#include "game/status.h"
#include "sim/bubblemen.h"
#include "render/draw.h"
#include "sim/cells.h"
#include "game/launchpanel.h"
#include "sim/rockets.h"
#include "sim/tools.h"

#include <cstdlib>
#include <sstream>

namespace {

// Where the pointer rests at the start, and where a right click on the level
// is made: in the middle of the play band, away from every edge and button.
const float REST_X = 320, REST_Y = 200;
// The pointer stays this far inside the screen, short of the edge scrolling.
const float EDGE_KEEP = 15;

} // namespace

bool loadRunLevelFile(const char *path, std::string *error)
{
    return tryLoadLevelFromFile(currentLevel, path, error);
}

bool loadRunLevelPack(const char *datafile, const char *name, std::string *error)
{
    const std::string path = std::string(datafile) + "#LEVELS/" + name;
    return tryLoadLevelFromPack(currentLevel, path.c_str(), error);
}

bool loadRunLevelText(const std::string &text, std::string *error)
{
    resetMission();
    std::istringstream in(text);
    return parseLevelStream(in, currentLevel, mission, error);
}

// The driver's mouse: where the pointer is and whether the left or the right
// button is down. The game's buttons read the live state through
// readMouseButtons, so during a step it points here.
static float pointerX = REST_X, pointerY = REST_Y;
static int mouseButtons = 0;
static int drivenMouseButtons()
{
    return mouseButtons;
}

// The launch click is heard by the tick after its press; its note waits.
static const ScriptAction *pendingLaunch = nullptr;

void beginRun(uint32_t seed)
{
    transition.alpha = 0;
    setScreen(Playing);
    input = InputSnapshot();
    pointerX = REST_X;
    pointerY = REST_Y;
    mouseButtons = 0;
    pendingLaunch = nullptr;
    levelTick = 0;
    std::srand(seed);
    resetStatusLine();
}

static void note(RunResult &result, const ScriptAction &a, const std::string &text)
{
    result.notes.push_back(ActionNote{a.step, a.line, text});
}

static int32_t clampInt(int32_t v, int32_t lo, int32_t hi)
{
    return v < lo ? lo : v > hi ? hi : v;
}

// Takes the view to the cell, as a player scrolls to it, and puts the
// pointer on the cell inside the band between the panels. False for a cell
// outside the level or one that only lies behind a panel.
static bool pointAtCell(const ScriptAction &a, RunResult &result)
{
    const std::string cell = "cell (" + std::to_string(a.x) + ", " + std::to_string(a.y) + ")";
    if (!inGrid(a.x, a.y)) {
        result.error = solutionLineError(a.line, cell + " is outside the " + std::to_string(currentLevel.width) +
                                             " x " + std::to_string(currentLevel.height) + " level");
        return false;
    }
    // Centred where the camera may go: the middle of the play band.
    camX = 32.0f * a.x + 16 - SCREEN_WIDTH / 2;
    camY = -(32.0f * a.y - 16 + 196);
    clampCamera();
    const int32_t left = static_cast<int32_t>(viewOriginX()) - 16 + 32 * a.x;
    const int32_t top = static_cast<int32_t>(viewOriginY()) - 16 - 32 * (a.y - 1);
    const int32_t px = clampInt(left + 16, static_cast<int32_t>(EDGE_KEEP), SCREEN_WIDTH - EDGE_KEEP);
    const int32_t py = clampInt(top - 16, 41, 351);
    int32_t cx, cy;
    cursorCellAt(static_cast<float>(px), static_cast<float>(py), &cx, &cy);
    if (cx != a.x || cy != a.y || !pointerInPlayBand(static_cast<float>(py))) {
        result.error = solutionLineError(a.line, cell + " lies behind the display panels, out of the pointer's reach");
        return false;
    }
    pointerX = static_cast<float>(px);
    pointerY = static_cast<float>(py);
    return true;
}

static void pointAtButton(const Button &b)
{
    pointerX = b.x;
    pointerY = b.y;
}

// The Launch button on the 640-pixel screen: its visible part nearest the
// panel's middle.
static void pointAtLaunchButton()
{
    const float halfWidth = static_cast<float>(launchButton.width / 2);
    float px = launchButton.x;
    if (px > SCREEN_WIDTH - 1)
        px = static_cast<float>(static_cast<int32_t>(launchButton.x - halfWidth) + 1);
    pointerX = px < SCREEN_WIDTH - 1 ? px : SCREEN_WIDTH - 1;
    pointerY = launchButton.y;
}

static void runLevelTick()
{
    runScreenLogic(currentScreen);
}

// One pass of the main loop, with the level's tick when it is owed.
static void loopPass(bool tick)
{
    int (*const realMouse)() = readMouseButtons;
    readMouseButtons = drivenMouseButtons;
    RawInput raw = {};
    raw.mouseButtons = mouseButtons;
    runLoopPass(raw, pointerX, pointerY, tick ? runLevelTick : nullptr, runGameFrameWithoutDrawing);
    readMouseButtons = realMouse;
}

static int32_t outcomeOfScreen()
{
    if (currentScreen == MissionFailed)
        return RunLost;
    if (currentScreen == MissionComplete)
        return RunWon;
    return RunUnfinished;
}

// Puts the pointer where the action clicks and says which button goes down;
// 0 when nothing is pressed (the action is noted as ignored).
static int aimAction(const ScriptAction &a, RunResult &result, const char **remark)
{
    switch (a.kind) {
    case ClickCellAction:
        return pointAtCell(a, result) ? 1 : -1;
    case CancelAction:
        pointerX = REST_X;
        pointerY = REST_Y;
        return 2;
    case ChooseToolAction:
        pointAtButton(toolButtons[a.tool - 1]);
        // A locked tool's button is never updated, so its click goes unheard.
        if (toolIsLocked(a.tool))
            *remark = "(the tool is locked in this level)";
        return 1;
    case HatchPodsAction:
        pointAtButton(hatchPodsButton);
        return 1;
    case LaunchAction:
        if (!launchButtonReachable()) {
            *remark = "(the Launch button is not on the screen)";
            return 0;
        }
        pointAtLaunchButton();
        return 1;
    default:
        return 0;
    }
}

int32_t runStep(int32_t step, const ScriptAction *action, RunResult &result)
{
    const char *remark = nullptr;
    mouseButtons = 0;
    if (action) {
        const int buttons = aimAction(*action, result, &remark);
        if (buttons < 0)
            return RunError;
        mouseButtons = buttons;
    }

    // The pass with the tick: the button goes down.
    loopPass(true);
    result.ticks = step;
    if (pendingLaunch) {
        note(result, *pendingLaunch, statusTarget());
        pendingLaunch = nullptr;
    }
    const int32_t outcome = outcomeOfScreen();
    // The pass without: the button comes up, and a click is complete.
    mouseButtons = 0;
    loopPass(false);
    if (outcome != RunUnfinished)
        return outcome;

    if (action && action->kind == LaunchAction && !remark)
        pendingLaunch = action;
    else if (action)
        note(result, *action, remark ? remark : statusTarget());
    return RunUnfinished;
}

static void keepFinalState(RunResult &result)
{
    result.terrain = currentLevel.terrain;
    result.structures = currentLevel.structures;
    result.bubblemen.clear();
    for (const Bubbleman &b : bubblemen)
        result.bubblemen.push_back(
            BubblemanState{b.x, b.y, b.motion, b.heading, b.entering, b.emerging, b.sucked, b.dying});
}

RunResult runSolution(const Solution &solution, const RunOptions &options)
{
    RunResult result;
    beginRun(options.seed);
    size_t next = 0;
    for (int32_t step = 1; step <= options.tickLimit; step++) {
        const ScriptAction *action = nullptr;
        if (next < solution.actions.size() && solution.actions[next].step == step)
            action = &solution.actions[next++];
        result.outcome = runStep(step, action, result);
        if (result.outcome != RunUnfinished)
            break;
    }
    result.credits = mission.credits;
    result.savedCount = mission.savedCount;
    result.podCount = mission.podCount;
    if (options.keepFinalState)
        keepFinalState(result);
    return result;
}

const char *outcomeName(int32_t outcome)
{
    switch (outcome) {
    case RunWon: return "won";
    case RunLost: return "lost";
    case RunError: return "error";
    default: return "not finished";
    }
}

std::string describeRun(const RunResult &result)
{
    std::ostringstream out;
    switch (result.outcome) {
    case RunWon:
        out << "won after " << result.ticks << " ticks with " << result.credits << " credits left";
        break;
    case RunLost:
        out << "lost after " << result.ticks << " ticks: a bubbleman died (" << result.savedCount
            << " aboard, " << result.credits << " credits left)";
        break;
    case RunError:
        out << "error after " << result.ticks << " ticks: " << result.error;
        break;
    default:
        out << "not finished after " << result.ticks << " ticks (" << result.savedCount << " of "
            << result.podCount << " aboard, " << result.credits << " credits left)";
        break;
    }
    return out.str();
}
