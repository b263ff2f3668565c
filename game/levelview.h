// The level view: what the game screen and the level editor show between the
// display panels. Both draw it through drawLevelView so the level always
// looks the same wherever it is seen; the camera functions are in camera.h.
#pragma once

#include "game/camera.h"

#include <cstdint>

// Backdrop with its stars, the tutorial panel, the normalised terrain with
// its edges, the structures and, by `screen`: in Playing the preview of the
// tool in hand at the cursor cell (white where it would fit, pulsing red
// where not); in LevelEditor the editor's highlight on the cursor cell.
// Entities (explosions, rockets, bubblemen) are the caller's to draw on top.
void drawLevelView(uint32_t screen);
// The same over a chosen range of cells, for pictures of a whole level
// (levelshot); the game always draws visibleCells().
void drawLevelViewCells(uint32_t screen, const VisibleCells &cells);

// The view's terrain cells and their edges alone, each as one batch of
// squares, for timing them apart.
void drawTerrainCells(const VisibleCells &cells, float ox, float oy);
void drawTerrainEdges(const VisibleCells &cells, float ox, float oy);

// The display's two panels, above and below the level, drawn over it.
void drawDisplayPanels();
// The display's credits and pods icons, on the lower panel.
void drawDisplayIcons();

// The per-frame upkeep of the view without drawing: the pod count and the
// normalisation of the grid. The headless driver runs it where the view
// would be drawn.
void levelViewUpkeep();

