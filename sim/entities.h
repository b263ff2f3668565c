// The simulation's entity lists as a whole.
#pragma once

// Empties every entity list of one attempt at a level (bubblemen, flying
// rockets, explosions, floating cost labels).
void clearEntityLists();
