// The texture tables, the link steps that fill the tables drawing code reads,
// and the per-tick frame cycling that makes every object of one kind animate
// in step.

#include "render/textures.h"

#include "app/log.h"

TextureId CursorTextures[3];
TextureId IntroTextures[2];
TextureId FieldTextures[23];
TextureId FieldBackgroundTextures[6];
TextureId SpriteTextures[45];
TextureId PodTextures[21];
TextureId RocketLandedTextures[41];
TextureId RocketFlyingTextures[41];
TextureId WaterTextures[11];
TextureId Planet1Textures[73];
TextureId Planet2Textures[73];
TextureId Planet3Textures[73];
TextureId Planet4Textures[73];
TextureId GirderTextures[1];
TextureId GirderLeftTextures[1];
TextureId GirderRightTextures[1];
TextureId HarvesterTextures[20];
TextureId HarvesterOnTextures[20];
TextureId TransportUpTextures[21];
TextureId TransportLeftTextures[21];
TextureId TransportRightTextures[21];
TextureId BlockerTextures[1];
TextureId ShovelTextures[1];
TextureId DynamiteTextures[6];
TextureId GuiTextures[32];
TextureId GreenmanWalkTextures[21];
TextureId GreenmanEnterTextures[17];
TextureId GreenmanSuckedTextures[21];
TextureId GreenmanFallTextures[21];
TextureId ExplosionSmallTextures[10];
TextureId StarTextures[3];
TextureId FontTextures[3];

TextureId TerrainSetTextures[23];
TextureId BackgroundSetTextures[6];
TextureId ObjectFrameTable[16];
TextureId ObjectIconTable[8];
TextureId StructureFrameTable[16];
TextureId StructureIconTable[16];

int tileRotationAngle = 0;
float backdropAngle = 0.0f;

AnimationCounters animation;

// Object slots 0..6 and structure slots 0..8 all start from frame 0 of one
// table; the tables are listed once here in slot order.
static TextureId *const objectSources[7] = {
    PodTextures, RocketLandedTextures, RocketFlyingTextures,
    Planet1Textures, Planet2Textures, Planet3Textures, Planet4Textures,
};
static TextureId *const structureSources[9] = {
    GirderTextures, GirderLeftTextures, GirderRightTextures,
    HarvesterTextures, TransportUpTextures, TransportLeftTextures, TransportRightTextures,
    BlockerTextures, ShovelTextures,
};

void linkImageData()
{
    for (int slot = 0; slot < 7; slot++) {
        ObjectFrameTable[slot] = objectSources[slot][0];
        ObjectIconTable[slot] = objectSources[slot][0];
    }
    for (int slot = 0; slot < 9; slot++) {
        StructureFrameTable[slot] = structureSources[slot][0];
        StructureIconTable[slot] = structureSources[slot][0];
    }
    // The toolbar shows the unlit stick; a placed stick is already burning.
    StructureFrameTable[9] = DynamiteTextures[1];
    StructureIconTable[9] = DynamiteTextures[0];

    // The credits pick-up and the water of planets 2 to 4 have no folder of
    // their own: the datafile carries them as SPRITES frame 4 (a frame no
    // screen draws) and WATER frames 1 to 3.
    ObjectFrameTable[7] = SpriteTextures[4];
    ObjectFrameTable[9] = WaterTextures[1];
    ObjectFrameTable[10] = WaterTextures[2];
    ObjectFrameTable[11] = WaterTextures[3];
}

// There is one terrain set; the argument stays so that level loaders can name
// the planet they are loading without caring.
void linkTerrainSet(int terrainSet)
{
    (void)terrainSet;
    logLine("Linking field terrain set...");
    for (int slot = 0; slot < 23; slot++)
        TerrainSetTextures[slot] = FieldTextures[slot];
    for (int slot = 0; slot < 6; slot++)
        BackgroundSetTextures[slot] = FieldBackgroundTextures[slot];
    logLine("Field set linked");
}

// A counter running from `first` to `last`: incremented while below `last`,
// otherwise back to `first`. Starting at 0 below `first` is what keeps frame 0
// out of the lift, dynamite, rocket and planet cycles after the first tick.
static void cycle(int &counter, int first, int last)
{
    if (counter < last)
        counter++;
    else
        counter = first;
}

void advanceAnimationFrames(bool podsHatched)
{
    AnimationCounters &c = animation;
    cycle(c.hatcher, 0, 19);
    for (int &lift : c.lift)
        cycle(lift, 1, 20);
    cycle(c.dynamite, 1, 5);
    cycle(c.pod, 0, 20);
    cycle(c.rocket, 1, 40);
    for (int &planet : c.planet)
        cycle(planet, 1, 72);

    StructureFrameTable[0] = GirderTextures[0];
    StructureFrameTable[1] = GirderLeftTextures[0];
    StructureFrameTable[2] = GirderRightTextures[0];
    StructureFrameTable[3] = podsHatched ? HarvesterOnTextures[c.hatcher] : HarvesterTextures[c.hatcher];
    StructureFrameTable[4] = TransportUpTextures[c.lift[0]];
    StructureFrameTable[5] = TransportLeftTextures[c.lift[1]];
    StructureFrameTable[6] = TransportRightTextures[c.lift[2]];
    StructureFrameTable[7] = BlockerTextures[0];
    StructureFrameTable[8] = ShovelTextures[0];
    StructureFrameTable[9] = DynamiteTextures[c.dynamite];

    ObjectFrameTable[0] = PodTextures[c.pod];
    ObjectFrameTable[1] = RocketLandedTextures[c.rocket];
    ObjectFrameTable[2] = RocketFlyingTextures[c.rocket];
    ObjectFrameTable[3] = Planet1Textures[c.planet[0]];
    ObjectFrameTable[4] = Planet2Textures[c.planet[1]];
    ObjectFrameTable[5] = Planet3Textures[c.planet[2]];
    ObjectFrameTable[6] = Planet4Textures[c.planet[3]];
    ObjectFrameTable[8] = WaterTextures[0];

    // Kept within one turn: only the angle modulo 360 is ever drawn.
    tileRotationAngle = (tileRotationAngle - 4) % 360;
    backdropAngle += 0.05f;
    if (backdropAngle >= 360.0f)
        backdropAngle = 0.0f;
}
