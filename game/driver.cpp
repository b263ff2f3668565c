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
#include "game/gametick.h"
#include "game/mission.h"
#include "game/status.h"
#include "sim/bubblemen.h"
#include "render/draw.h"
#include "sim/cells.h"
#include "sim/rockets.h"
#include "sim/tools.h"

#include <cctype>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {

struct ToolName {
    int32_t tool;
    const char *name;
};

const ToolName toolNames[] = {
    {Girder, "girder"},
    {LeftHangingGirder, "left-girder"},
    {RightHangingGirder, "right-girder"},
    {Hatcher, "hatcher"},
    {EnergyLift, "lift"},
    {LeftLiftExit, "left-exit"},
    {RightLiftExit, "right-exit"},
    {Blocker, "blocker"},
    {Shovel, "shovel"},
    {Dynamite, "dynamite"},
};

// Far beyond any tick limit, and small enough that step + 1 cannot overflow.
const long MAX_STEP = 100000000;
// Where the pointer rests at the start, and where a right click on the level
// is made: in the middle of the play band, away from every edge and button.
const float REST_X = 320, REST_Y = 200;
// The pointer stays this far inside the screen, short of the edge scrolling.
const float EDGE_KEEP = 15;

std::string lowered(std::string s)
{
    for (char &c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

bool parseNumber(const std::string &word, long lo, long hi, long *value)
{
    if (word.empty())
        return false;
    errno = 0;
    char *end = nullptr;
    const long v = std::strtol(word.c_str(), &end, 10);
    if (errno != 0 || *end != '\0' || v < lo || v > hi)
        return false;
    *value = v;
    return true;
}

std::string lineError(int line, const std::string &text)
{
    return "line " + std::to_string(line) + ": " + text;
}

bool parseCell(const std::vector<std::string> &words, size_t first, ScriptAction &a, int line,
               std::string *error)
{
    long x, y;
    if (words.size() != first + 2 || !parseNumber(words[first], 0, INT_MAX, &x) ||
        !parseNumber(words[first + 1], 0, INT_MAX, &y)) {
        if (error)
            *error = lineError(line, "expected a cell as two numbers, column and row");
        return false;
    }
    a.x = static_cast<int32_t>(x);
    a.y = static_cast<int32_t>(y);
    return true;
}

// One line into one or two actions; a tool with a cell is the toolbar click
// followed by the click on the cell in the next step.
bool parseActionLine(const std::vector<std::string> &words, int line, std::vector<ScriptAction> &out,
                     std::string *error)
{
    long step;
    if (!parseNumber(words[0], 1, MAX_STEP, &step)) {
        if (error)
            *error = lineError(line, "the step \"" + words[0] + "\" is not a number from 1 up");
        return false;
    }
    if (words.size() < 2) {
        if (error)
            *error = lineError(line, "an action is missing after the step");
        return false;
    }
    ScriptAction a = {};
    a.step = static_cast<int32_t>(step);
    a.line = line;
    const std::string action = lowered(words[1]);
    if (action == "hatch" || action == "launch" || action == "cancel") {
        if (words.size() != 2) {
            if (error)
                *error = lineError(line, "\"" + action + "\" takes no cell");
            return false;
        }
        a.kind = action == "hatch" ? HatchPodsAction : action == "launch" ? LaunchAction : CancelAction;
        out.push_back(a);
        return true;
    }
    if (action == "click") {
        a.kind = ClickCellAction;
        if (!parseCell(words, 2, a, line, error))
            return false;
        out.push_back(a);
        return true;
    }
    if (action == "tool") {
        a.kind = ChooseToolAction;
        a.tool = words.size() == 3 ? toolFromName(lowered(words[2])) : NoTool;
        if (a.tool == NoTool) {
            if (error)
                *error = lineError(line, "\"tool\" needs the name of a tool");
            return false;
        }
        out.push_back(a);
        return true;
    }
    const int32_t tool = toolFromName(action);
    if (tool == NoTool) {
        if (error)
            *error = lineError(line, "unknown action \"" + words[1] + "\"");
        return false;
    }
    ScriptAction choose = a;
    choose.kind = ChooseToolAction;
    choose.tool = tool;
    ScriptAction click = a;
    click.kind = ClickCellAction;
    click.step = a.step + 1;
    if (!parseCell(words, 2, click, line, error))
        return false;
    out.push_back(choose);
    out.push_back(click);
    return true;
}

std::vector<std::string> splitWords(const std::string &text)
{
    std::vector<std::string> words;
    std::istringstream in(text);
    std::string w;
    while (in >> w)
        words.push_back(w);
    return words;
}

} // namespace

int32_t toolFromName(const std::string &name)
{
    for (const ToolName &t : toolNames)
        if (name == t.name)
            return t.tool;
    return NoTool;
}

const char *toolName(int32_t tool)
{
    for (const ToolName &t : toolNames)
        if (tool == t.tool)
            return t.name;
    return "none";
}

bool parseSolution(std::istream &in, Solution &solution, std::string *error)
{
    Solution parsed;
    std::string text;
    int line = 0;
    while (std::getline(in, text)) {
        line++;
        const size_t hash = text.find('#');
        if (hash != std::string::npos)
            text.erase(hash);
        const std::vector<std::string> words = splitWords(text);
        if (words.empty())
            continue;
        std::vector<ScriptAction> actions;
        if (!parseActionLine(words, line, actions, error))
            return false;
        for (const ScriptAction &a : actions) {
            // The pointer is in one place at a time: one action per frame.
            if (!parsed.actions.empty() && a.step <= parsed.actions.back().step) {
                if (error)
                    *error = lineError(line, "step " + std::to_string(a.step) +
                                                 " comes at or before an earlier action's step " +
                                                 std::to_string(parsed.actions.back().step));
                return false;
            }
            parsed.actions.push_back(a);
        }
    }
    if (in.bad()) {
        if (error)
            *error = "the solution could not be read";
        return false;
    }
    solution = parsed;
    return true;
}

bool loadSolutionFile(const char *path, Solution &solution, std::string *error)
{
    std::ifstream in(path);
    if (!in.is_open()) {
        if (error)
            *error = std::string("cannot open the solution ") + path;
        return false;
    }
    return parseSolution(in, solution, error);
}

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
        result.error = lineError(a.line, cell + " is outside the " + std::to_string(currentLevel.width) +
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
        result.error = lineError(a.line, cell + " lies behind the display panels, out of the pointer's reach");
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

// One pass of the main loop: the input sampled, the level's tick when it is
// owed, the frame.
static void loopPass(bool tick)
{
    int (*const realMouse)() = readMouseButtons;
    readMouseButtons = drivenMouseButtons;
    RawInput raw = {};
    raw.mouseButtons = mouseButtons;
    sampleInputFrom(raw);
    input.pointerX = pointerX;
    input.pointerY = pointerY;
    if (tick)
        runScreenLogic(currentScreen);
    runGameFrameWithoutDrawing();
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
