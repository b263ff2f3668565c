// The solution script: what a player did in a level, one action a step, in
// the words levels/SOLUTIONS.md describes. The game screen records a run in
// it, the headless driver plays one back, levelcheck proves levels with it.
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

enum ActionKind : int32_t {
    ChooseToolAction = 0,   // a click on a toolbar button
    ClickCellAction = 1,    // a left click on a cell with the tool in hand
    CancelAction = 2,       // a right click on the level
    HatchPodsAction = 3,    // "Hatch Pods"
    LaunchAction = 4,       // the launch panel's "Launch"
};

struct ScriptAction {
    int32_t step;       // 1 is the first tick of the level
    int32_t kind;       // an ActionKind
    int32_t tool;       // ChooseToolAction: the ToolId chosen
    int32_t x, y;       // ClickCellAction: the cell
    int32_t line;       // where it was written, for messages; 0 when played
};

// One action per step, in step order.
struct Solution {
    std::vector<ScriptAction> actions;
};

// The solution text: one action a line, "step action [cell]", # comments.
bool parseSolution(std::istream &in, Solution &solution, std::string *error);
bool loadSolutionFile(const char *path, Solution &solution, std::string *error);
// An error about a line of the script, as every message about one reads.
std::string solutionLineError(int line, const std::string &text);
// Actions as the text parseSolution reads. A player at a high frame rate can
// act twice within one tick, which a script cannot say: such an action moves
// to the next free step.
void writeSolution(const std::vector<ScriptAction> &actions, std::ostream &out);

// The tool for a name of the solution format; NoTool when there is none.
int32_t toolFromName(const std::string &name);
const char *toolName(int32_t tool);

// The level a solution proves: its first line may name the digest of the
// level file's bytes. To the reader it is a comment, so solutions without it
// (the campaign's) read as before.
// The digest of a level file's bytes, as 16 hex digits.
std::string levelDigest(const std::string &levelBytes);
// The script with its first line naming the level it proves (an old such
// line is replaced).
std::string solutionWithDigest(const std::string &script, const std::string &digest);
// The digest the solution text names; empty when it names none.
std::string solutionDigest(const std::string &solutionText);
