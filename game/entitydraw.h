// The simulation's entities as the level view shows them: the simulation
// only moves them, the game screen draws them over the terrain.
#pragma once

void drawExplosions();
void drawFlyingRockets();
void drawBubblemen();
// The rising "-cost" and "+500" texts.
void drawCostLabels();
