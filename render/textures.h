// Every picture of the datafile as OpenGL texture names in fixed tables, one
// slot per animation frame, plus the derived tables drawing code reads.
#pragma once

#include <cstdint>

typedef uint32_t TextureId;

extern TextureId CursorTextures[3];
extern TextureId IntroTextures[2];
extern TextureId FieldTextures[23];
extern TextureId FieldBackgroundTextures[6];
extern TextureId SpriteTextures[45];
extern TextureId PodTextures[21];
extern TextureId RocketLandedTextures[41];
extern TextureId RocketFlyingTextures[41];
extern TextureId WaterTextures[11];
extern TextureId Planet1Textures[73];
extern TextureId Planet2Textures[73];
extern TextureId Planet3Textures[73];
extern TextureId Planet4Textures[73];
extern TextureId GirderTextures[1];
extern TextureId GirderLeftTextures[1];
extern TextureId GirderRightTextures[1];
extern TextureId HarvesterTextures[20];
extern TextureId HarvesterOnTextures[20];
extern TextureId TransportUpTextures[21];
extern TextureId TransportLeftTextures[21];
extern TextureId TransportRightTextures[21];
extern TextureId BlockerTextures[1];
extern TextureId ShovelTextures[1];
extern TextureId DynamiteTextures[6];
extern TextureId GuiTextures[32];
extern TextureId GreenmanWalkTextures[21];
extern TextureId GreenmanEnterTextures[17];
extern TextureId GreenmanSuckedTextures[21];
extern TextureId GreenmanFallTextures[21];
extern TextureId ExplosionSmallTextures[10];
extern TextureId StarTextures[3];
extern TextureId FontTextures[3];

extern TextureId TerrainSetTextures[23];
extern TextureId BackgroundSetTextures[6];
extern TextureId ObjectFrameTable[16];
extern TextureId ObjectIconTable[8];
extern TextureId StructureFrameTable[16];
extern TextureId StructureIconTable[16];

// Shared angles turned once per tick by advanceAnimationFrames.
extern int tileRotationAngle;   // whole degrees, for the turning tile 16
extern float backdropAngle;     // degrees, for SpriteTextures frame 39

void runLoadScreen();
void loadImageData();
void linkImageData();
void linkTerrainSet(int terrainSet);
void linkObjectData();
void advanceAnimationFrames();
