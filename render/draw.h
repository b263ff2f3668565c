// The quad-drawing primitives on the fixed 640 x 480 y-up screen. Positions
// are centres; colours multiply the texture.
#pragma once

#include "render/textures.h"

// Not SCREEN_W/SCREEN_H: Allegro defines those as macros for the real screen.
const int SCREEN_WIDTH = 640;
const int SCREEN_HEIGHT = 480;

// The fixed OpenGL state every primitive relies on: textures, blending, the
// alpha test, the 640 x 480 viewport. Set once by start-up, and by the tools
// and tests that draw into a context of their own.
void setDrawingState();

void beginFrame2D();
void endFrame2D();
void resetDrawState();
void presentFrame();
// Called once before the first frame; see draw.cpp.
void keepFrameMemory();
void clearToBlack();
// Logs the OpenGL error of the last frame, if any.
void checkGlError();

// Between these two only drawStructure, drawStructureIcon, drawObject,
// drawTile and drawBackgroundTile may draw: their squares are sent in runs
// that share a texture, the same picture for much less work. No other
// OpenGL call may come in between.
//
// The squares are sent group by group (nextBatchGroup ends one), each group
// layer by layer (setBatchLayer, 0 at the start of a group), and within a
// layer in whatever order joins the most squares of one picture. So squares
// of one layer of one group must never overlap; anything that must lie over
// another square of its group goes in a later layer or a later group.
void beginQuadBatch();
void setBatchLayer(int layer);
void nextBatchGroup();
void endQuadBatch();

void drawTexture(float x, float y, TextureId texture, float r, float g, float b, float a);
void drawTextureSized(int x, int y, TextureId texture, float r, float g, float b, float a, int w, int h);
void drawStructure(float x, float y, int slot, float r, float g, float b, float a);
void drawStructureIcon(float x, float y, int slot, float r, float g, float b, float a);
void drawObject(float x, float y, int slot, float r, float g, float b, float a);
void drawTile(float x, float y, int slot, float r, float g, float b, float a);
void drawBackgroundTile(float x, float y, int index, float r, float g, float b, float a);
void drawBackdrop();

// An untextured rectangle from (x0, y0) to (x1, y1), the inline panels and veils.
void drawRect(float x0, float y0, float x1, float y1, float r, float g, float b, float a);
