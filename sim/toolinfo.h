// Every fact of a tool, in one row per ToolId: what it costs, which lock of
// the level withholds it, what the status line says when it is chosen and
// when it has done its work, its name in a solution script (tools/ read the
// names from this table's text too) and on the editor's settings panel, and
// the rule its click follows.
#pragma once

#include <cstdint>

enum ToolRule : int32_t {
    NoRule = 0,
    BuildRule,      // a structure on an empty cell that something holds up
    HatchRule,      // a hatcher over a pod
    DigRule,        // the shovel
    BlastRule,      // dynamite
};

struct ToolInfo {
    int32_t id;                 // a ToolId
    int32_t cost;
    int32_t lockIndex;          // into MissionState::toolLocked; -1 for none
    const char *scriptName;
    const char *caption;        // the editor's settings panel
    const char *chosenMessage;  // the toolbar click
    const char *doneMessage;    // built, digging, destroying
    int32_t rule;               // a ToolRule
    // BuildRule: what holds the structure up, with the refusal when nothing
    // does; the other rules: the cell the tool works on.
    bool (*cellTest)(int x, int y);
    const char *untestedMessage;
};

const int TOOL_COUNT = 10;
// Row t is ToolId t; row 0 is NoTool.
extern const ToolInfo toolInfo[TOOL_COUNT + 1];

// The row of `tool`; NoTool's for anything that is not a tool.
const ToolInfo &infoOf(int32_t tool);
// The price of a tool in credits; 0 for anything that is not a tool.
int32_t toolCost(int32_t tool);
// The tool that lock `index` withholds.
int32_t toolOfLock(int index);
