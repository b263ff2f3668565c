// The instructions written into the first levels of the campaign, chosen by
// the level's title alone, so a custom level of the same name shows them too.
#pragma once

#include "world/level.h"

// Draws the block of the level's title, if it has one, relative to the
// screen position (ox, oy) of the centre of cell (0, 0), so it scrolls with
// the terrain. Faded by the banner's tutorial alpha.
void drawTutorialPanel(const Level &level, float ox, float oy);

// Whether a title carries a block (exact, case-sensitive).
bool hasTutorial(const std::string &title);

// The panel's rectangle of a title's block, relative to the view origin in
// screen coordinates (y up), so a mission can be checked to keep terrain
// from hiding it. False for a title without a block.
bool tutorialPanelArea(const std::string &title, float *left, float *right, float *bottom, float *top);
