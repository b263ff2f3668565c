// The driver keeps the game's own rhythm, one tick per frame: each step runs
// the logic tick (in which the launch panel sees the Launch button's click),
// then the frame's work in the game screen's order: the level view's terrain
// upkeep, then the click on the level, the out-of-credits rule, and the
// toolbar and "Hatch Pods" buttons. So a script can do nothing a player at
// the mouse could not.
#include "sim/driver.h"

#include "game/gametick.h"
#include "game/mission.h"
#include "game/status.h"
#include "sim/bubblemen.h"
#include "sim/cells.h"
#include "sim/rockets.h"

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
// The pointer's height for a click on the level: inside the play band.
const float LEVEL_POINTER_Y = 200;

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

void beginRun(uint32_t seed)
{
    std::srand(seed);
    resetStatusLine();
}

static void note(RunResult &result, const ScriptAction &a, const std::string &text)
{
    result.notes.push_back(ActionNote{a.step, a.line, text});
}

static bool pointAtCell(const ScriptAction &a, RunResult &result)
{
    if (!inGrid(a.x, a.y)) {
        result.error = lineError(a.line, "cell (" + std::to_string(a.x) + ", " + std::to_string(a.y) +
                                             ") is outside the " + std::to_string(currentLevel.width) +
                                             " x " + std::to_string(currentLevel.height) + " level");
        return false;
    }
    currentLevel.cursorX = a.x;
    currentLevel.cursorY = a.y;
    return true;
}

int32_t runStep(int32_t step, const ScriptAction *action, RunResult &result)
{
    const ScriptAction *launch = action && action->kind == LaunchAction ? action : nullptr;
    const bool launchClicked = launch && launchButtonReachable();

    // The tick. Its end-of-level tests come first; the screen they choose
    // takes over after the tick, which still runs to its end.
    const bool complete = missionCompleteReached();
    const bool failed = missionFailedReached();
    advanceLevel(launchClicked);
    result.ticks = step;
    if (launch)
        note(result, *launch, launchClicked ? statusTarget() : "(the Launch button is not on the screen)");

    // The frame. The mission-end panels still show the level underneath.
    placeLaunchPanel();
    normaliseTerrain(currentLevel);
    if (failed)
        return RunLost;     // the later of the two screen changes
    if (complete)
        return RunWon;

    FrameClicks clicks = {false, false, LEVEL_POINTER_Y, NoTool, false};
    const char *remark = nullptr;
    if (action && action->kind == ClickCellAction) {
        if (!pointAtCell(*action, result))
            return RunError;
        clicks.leftPressed = true;
    }
    if (action && action->kind == CancelAction)
        clicks.rightPressed = true;
    if (action && action->kind == ChooseToolAction) {
        // A locked tool's button is never updated, so its click goes unheard.
        if (toolIsLocked(action->tool))
            remark = "(the tool is locked in this level)";
        else
            clicks.toolButton = action->tool;
    }
    if (action && action->kind == HatchPodsAction)
        clicks.hatchPods = true;
    applyFrameClicks(clicks);
    if (action && action->kind != LaunchAction)
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
