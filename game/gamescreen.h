// The game screen: the level in play with its toolbar, counters, status line
// and banner. The selection screen's start arms the banner as the level loads.
#pragma once

#include <cstdint>
#include <vector>

// Shows the level's name banner from its start, as a freshly entered level does.
void armLevelBanner();

// What the player did in the level, in the terms of a solution script
// (levels/SOLUTIONS.md): step N is the level's Nth tick. The game screen
// appends while recordingPlay is set, so the editor's test-play can save the
// winning run as the level's proof.
enum PlayActionKind : int32_t { ActTool, ActClick, ActCancel, ActHatch, ActLaunch };
struct PlayAction {
    int32_t step;
    int32_t kind;       // a PlayActionKind
    int32_t tool;       // ActTool: the ToolId chosen
    int32_t x, y;       // ActClick: the cell
};
extern std::vector<PlayAction> playRecord;
extern bool recordingPlay;
