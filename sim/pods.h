// Hatching: every hatcher of the level releases its bubbleman at once.
#pragma once

// One bubbleman at the centre of every hatcher, leftmost column first and,
// within a column, from the top down.
void hatchPods();
