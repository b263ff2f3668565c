// Every picture of the datafile as OpenGL texture names in fixed tables, one
// slot per animation frame, plus the derived tables drawing code reads.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

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

// The frame counters of advanceAnimationFrames. They start at 0 with the
// program and are never reset.
struct AnimationCounters {
    int hatcher;   // 0..19
    int lift[3];   // up, left exit, right exit: 1..20 each
    int dynamite;  // 1..5
    int pod;       // 0..20
    int rocket;    // 1..40, landed and flying together
    int planet[4]; // 1..72 each
};
extern AnimationCounters animation;

// Shared angles turned once per tick by advanceAnimationFrames.
extern int tileRotationAngle;   // whole degrees, for the turning tile 16
extern float backdropAngle;     // degrees, for SpriteTextures frame 39

// The load screen around `loadEverything`, the one blocking load of the data.
void runLoadScreen(void (*loadEverything)());
void loadImageData();
void linkImageData();
void linkTerrainSet(int terrainSet);
// One tick of every shared animation; the hatcher's picture changes once the
// pods are hatched.
void advanceAnimationFrames(bool podsHatched);

// The nested datafile paths of the bulk pass, in loading order.
std::vector<std::string> imageFramePaths();

// Loads FONT frames 0..2 into FontTextures, and SPRITES2/INTRO frames 0 and 1
// into IntroTextures: the load screen's own pictures, read before the bulk pass.
void loadFontData();
void loadIntroData();

struct BITMAP;
// How a decoded picture becomes a texture: allegro_gl_make_texture in the
// game. Tests put a counter here to load without an OpenGL context.
extern TextureId (*makeTexture)(BITMAP *picture);
