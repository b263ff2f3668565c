// Cell access and the placement tests of the simulation. Every rule reads the
// grid through these, so a neighbour beyond the edge of the level, or a level
// that was never loaded, reads as solid border instead of outside the grids.
#pragma once

#include <cstdint>

// True when (x, y) lies inside both grids of currentLevel.
bool inGrid(int x, int y);

// Terrain code of a cell; Border outside the grid.
int32_t terrainAt(int x, int y);
// Structure code of a cell; 0 outside the grid.
int32_t structureAt(int x, int y);
// Writes outside the grid are dropped.
void setTerrain(int x, int y, int32_t code);
void setStructure(int x, int y, int32_t code);

// World position of a cell's centre, in pixels.
inline float cellCentreX(int x) { return 32.0f * x + 16.0f; }
inline float cellCentreY(int y) { return 32.0f * y - 16.0f; }

// The cell an entity at world position (x, y) stands in, clamped to the cells
// inside the border ring; the same rule for bubblemen, rockets and explosions.
int entityCellX(float x);
int entityCellY(float y);

// The placement tests of the building, digging and blasting rules.
bool isOccupied(int x, int y);
bool hasFootingBelow(int x, int y);
bool hasRightAnchor(int x, int y);  // for a left hanging girder
bool hasLeftAnchor(int x, int y);   // for a right hanging girder
bool isPod(int x, int y);
bool isDiggable(int x, int y);
bool isBlastable(int x, int y);
bool isFreeAbove(int x, int y);
bool isAwayFromWater(int x, int y);
