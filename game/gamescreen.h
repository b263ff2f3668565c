// The game screen: the level in play with its toolbar, counters, status line
// and banner. The selection screen's start arms the banner as the level loads.
#pragma once

// Shows the level's name banner from its start, as a freshly entered level does.
void armLevelBanner();
