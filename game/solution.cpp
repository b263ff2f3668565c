// The one text form of a run: parsed for the driver and levelcheck, written
// for the editor's test-play proof. Both sides live here so they cannot drift.
#include "game/solution.h"

#include "sim/toolinfo.h"
#include "world/level.h"

#include <cctype>
#include <cinttypes>
#include <cstdio>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <ostream>
#include <sstream>

namespace {

// Far beyond any tick limit, and small enough that step + 1 cannot overflow.
const long MAX_STEP = 100000000;

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

bool parseCell(const std::vector<std::string> &words, size_t first, ScriptAction &a, int line,
               std::string *error)
{
    long x, y;
    if (words.size() != first + 2 || !parseNumber(words[first], 0, INT_MAX, &x) ||
        !parseNumber(words[first + 1], 0, INT_MAX, &y)) {
        if (error)
            *error = solutionLineError(line, "expected a cell as two numbers, column and row");
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
            *error = solutionLineError(line, "the step \"" + words[0] + "\" is not a number from 1 up");
        return false;
    }
    if (words.size() < 2) {
        if (error)
            *error = solutionLineError(line, "an action is missing after the step");
        return false;
    }
    ScriptAction a = {};
    a.step = static_cast<int32_t>(step);
    a.line = line;
    const std::string action = lowered(words[1]);
    if (action == "hatch" || action == "launch" || action == "cancel") {
        if (words.size() != 2) {
            if (error)
                *error = solutionLineError(line, "\"" + action + "\" takes no cell");
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
                *error = solutionLineError(line, "\"tool\" needs the name of a tool");
            return false;
        }
        out.push_back(a);
        return true;
    }
    const int32_t tool = toolFromName(action);
    if (tool == NoTool) {
        if (error)
            *error = solutionLineError(line, "unknown action \"" + words[1] + "\"");
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

std::string solutionLineError(int line, const std::string &text)
{
    return "line " + std::to_string(line) + ": " + text;
}

int32_t toolFromName(const std::string &name)
{
    for (const ToolInfo &t : toolInfo)
        if (t.id != NoTool && name == t.scriptName)
            return t.id;
    return NoTool;
}

const char *toolName(int32_t tool)
{
    return infoOf(tool).scriptName;
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
                    *error = solutionLineError(line, "step " + std::to_string(a.step) +
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

void writeSolution(const std::vector<ScriptAction> &actions, std::ostream &out)
{
    int32_t last = 0;
    for (const ScriptAction &a : actions) {
        const int32_t step = a.step > last ? a.step : last + 1;
        last = step;
        out << step << ' ';
        switch (a.kind) {
        case ChooseToolAction: out << "tool " << toolName(a.tool); break;
        case ClickCellAction: out << "click " << a.x << ' ' << a.y; break;
        case CancelAction: out << "cancel"; break;
        case HatchPodsAction: out << "hatch"; break;
        default: out << "launch"; break;
        }
        out << '\n';
    }
}

static const char DigestHeader[] = "# level digest ";

// FNV-1a: not a guard against forgery (the player owns both files), but no
// edit a person or a crash makes leaves it unchanged by chance.
std::string levelDigest(const std::string &levelBytes)
{
    uint64_t hash = 0xcbf29ce484222325ull;
    for (unsigned char c : levelBytes) {
        hash ^= c;
        hash *= 0x100000001b3ull;
    }
    char text[17];
    std::snprintf(text, sizeof text, "%016" PRIx64, hash);
    return text;
}

std::string solutionWithDigest(const std::string &script, const std::string &digest)
{
    std::string rest = script;
    if (rest.compare(0, sizeof DigestHeader - 1, DigestHeader) == 0) {
        const size_t end = rest.find('\n');
        rest = end == std::string::npos ? std::string() : rest.substr(end + 1);
    }
    return DigestHeader + digest + "\n" + rest;
}

std::string solutionDigest(const std::string &solutionText)
{
    if (solutionText.compare(0, sizeof DigestHeader - 1, DigestHeader) != 0)
        return std::string();
    const size_t start = sizeof DigestHeader - 1;
    size_t end = solutionText.find_first_of("\r\n", start);
    if (end == std::string::npos)
        end = solutionText.size();
    return solutionText.substr(start, end - start);
}
