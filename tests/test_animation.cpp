// The per-tick frame cycling and the link steps, on fake texture ids that
// name their table and frame, and the load screen's fade timing.

#include "game/mission.h"
#include "render/loadscreen.h"
#include "render/textures.h"

#include <gtest/gtest.h>

#include <vector>

// Table t, frame f gets the id 1000 t + f, so a slot shows where it came from.
static void fill(TextureId *table, int frames, int t)
{
    for (int f = 0; f < frames; f++)
        table[f] = 1000 * t + f;
}

enum { Girder = 1, GirderLeft, GirderRight, Harvester, HarvesterOn, LiftUp, LiftLeft, LiftRight, Blocker, Shovel,
       Dynamite, Pod, RocketLanded, RocketFlying, Planet1, Planet2, Planet3, Planet4, Water, Field, Background,
       Sprite };

static void fakeTables()
{
    fill(GirderTextures, 1, Girder);
    fill(GirderLeftTextures, 1, GirderLeft);
    fill(GirderRightTextures, 1, GirderRight);
    fill(HarvesterTextures, 20, Harvester);
    fill(HarvesterOnTextures, 20, HarvesterOn);
    fill(TransportUpTextures, 21, LiftUp);
    fill(TransportLeftTextures, 21, LiftLeft);
    fill(TransportRightTextures, 21, LiftRight);
    fill(BlockerTextures, 1, Blocker);
    fill(ShovelTextures, 1, Shovel);
    fill(DynamiteTextures, 6, Dynamite);
    fill(PodTextures, 21, Pod);
    fill(RocketLandedTextures, 41, RocketLanded);
    fill(RocketFlyingTextures, 41, RocketFlying);
    fill(Planet1Textures, 73, Planet1);
    fill(Planet2Textures, 73, Planet2);
    fill(Planet3Textures, 73, Planet3);
    fill(Planet4Textures, 73, Planet4);
    fill(WaterTextures, 11, Water);
    fill(FieldTextures, 23, Field);
    fill(FieldBackgroundTextures, 6, Background);
    fill(SpriteTextures, 45, Sprite);
    animation = {};
    mission.hatched = false;
}

static int frameOf(TextureId id) { return (int)(id % 1000); }
static int tableOf(TextureId id) { return (int)(id / 1000); }

TEST(Animation, LinkingGivesFrameZeroExceptTheBurningDynamite)
{
    fakeTables();
    linkImageData();
    const int objects[7] = {Pod, RocketLanded, RocketFlying, Planet1, Planet2, Planet3, Planet4};
    for (int slot = 0; slot < 7; slot++) {
        EXPECT_EQ(ObjectFrameTable[slot], 1000u * objects[slot]) << slot;
        EXPECT_EQ(ObjectIconTable[slot], 1000u * objects[slot]) << slot;
    }
    const int structures[9] = {Girder, GirderLeft, GirderRight, Harvester, LiftUp, LiftLeft, LiftRight, Blocker,
                               Shovel};
    for (int slot = 0; slot < 9; slot++) {
        EXPECT_EQ(StructureFrameTable[slot], 1000u * structures[slot]) << slot;
        EXPECT_EQ(StructureIconTable[slot], 1000u * structures[slot]) << slot;
    }
    EXPECT_EQ(StructureFrameTable[9], 1000u * Dynamite + 1);
    EXPECT_EQ(StructureIconTable[9], 1000u * Dynamite);
    // Credits and the water of planets 2 to 4 must never draw as blank squares.
    EXPECT_EQ(ObjectFrameTable[7], 1000u * Sprite + 4);
    for (int planet = 2; planet <= 4; planet++)
        EXPECT_EQ(ObjectFrameTable[7 + planet], 1000u * Water + planet - 1) << planet;

    linkTerrainSet(3);  // any planet: there is one set
    for (int slot = 0; slot < 23; slot++)
        EXPECT_EQ(TerrainSetTextures[slot], 1000u * Field + slot);
    for (int slot = 0; slot < 6; slot++)
        EXPECT_EQ(BackgroundSetTextures[slot], 1000u * Background + slot);
}

TEST(Animation, EveryCounterFollowsItsCycle)
{
    fakeTables();
    linkImageData();
    std::vector<int> hatcher, lift, dynamite, pod, rocket, planet;
    for (int tick = 0; tick < 150; tick++) {
        advanceAnimationFrames(mission.hatched);
        hatcher.push_back(frameOf(StructureFrameTable[3]));
        lift.push_back(frameOf(StructureFrameTable[4]));
        dynamite.push_back(frameOf(StructureFrameTable[9]));
        pod.push_back(frameOf(ObjectFrameTable[0]));
        rocket.push_back(frameOf(ObjectFrameTable[1]));
        planet.push_back(frameOf(ObjectFrameTable[3]));

        // The lifts, planets and the two rockets each move in step.
        EXPECT_EQ(frameOf(StructureFrameTable[5]), lift.back());
        EXPECT_EQ(frameOf(StructureFrameTable[6]), lift.back());
        EXPECT_EQ(frameOf(ObjectFrameTable[2]), rocket.back());
        EXPECT_EQ(tableOf(ObjectFrameTable[2]), RocketFlying);
        for (int p = 4; p <= 6; p++)
            EXPECT_EQ(frameOf(ObjectFrameTable[p]), planet.back());
        // Still pictures stay on frame 0; water is not cycled here.
        for (int s : {0, 1, 2, 7, 8})
            EXPECT_EQ(frameOf(StructureFrameTable[s]), 0);
        EXPECT_EQ(ObjectFrameTable[8], 1000u * Water);
        EXPECT_EQ(tableOf(StructureFrameTable[3]), Harvester);
    }
    // Tick t (from 1) shows frame t of each cycle until it wraps.
    for (int t = 1; t <= 5; t++) {
        EXPECT_EQ(hatcher[t - 1], t);
        EXPECT_EQ(lift[t - 1], t);
        EXPECT_EQ(dynamite[t - 1], t);
        EXPECT_EQ(pod[t - 1], t);
        EXPECT_EQ(rocket[t - 1], t);
        EXPECT_EQ(planet[t - 1], t);
    }
    EXPECT_EQ(hatcher[18], 19);
    EXPECT_EQ(hatcher[19], 0);  // back to 0 on tick 20
    EXPECT_EQ(lift[19], 20);
    EXPECT_EQ(lift[20], 1);     // back to 1: frame 0 is never shown again
    EXPECT_EQ(dynamite[4], 5);
    EXPECT_EQ(dynamite[5], 1);
    EXPECT_EQ(pod[20], 0);
    EXPECT_EQ(pod[21], 1);
    EXPECT_EQ(rocket[39], 40);
    EXPECT_EQ(rocket[40], 1);
    EXPECT_EQ(planet[71], 72);
    EXPECT_EQ(planet[72], 1);
    EXPECT_EQ(planet[144], 1);
    for (int f : dynamite)
        EXPECT_NE(f, 0);
    for (int f : lift)
        EXPECT_NE(f, 0);
}

TEST(Animation, HatchedPodsSwitchTheHatcherToItsLitFramesInStep)
{
    fakeTables();
    for (int i = 0; i < 7; i++)
        advanceAnimationFrames(mission.hatched);
    EXPECT_EQ(StructureFrameTable[3], 1000u * Harvester + 7);
    mission.hatched = true;
    advanceAnimationFrames(mission.hatched);
    EXPECT_EQ(StructureFrameTable[3], 1000u * HarvesterOn + 8);
    mission.hatched = false;
}

TEST(Animation, AnglesTurnEveryTick)
{
    fakeTables();
    tileRotationAngle = 0;
    backdropAngle = 0;
    for (int i = 0; i < 100; i++)
        advanceAnimationFrames(mission.hatched);
    EXPECT_EQ(((tileRotationAngle % 360) + 360) % 360, 320) << "-400 degrees: clockwise";
    EXPECT_GT(tileRotationAngle, -360);
    EXPECT_NEAR(backdropAngle, 5.0f, 0.01f);

    backdropAngle = 359.97f;
    advanceAnimationFrames(mission.hatched);
    EXPECT_EQ(backdropAngle, 0.0f) << "reset once it reaches a full turn";
    for (int i = 0; i < 2000; i++)
        advanceAnimationFrames(mission.hatched);
    EXPECT_GT(tileRotationAngle, -360);
    EXPECT_LE(tileRotationAngle, 0);
}

static int loads;
static void countLoad() { loads++; }

TEST(LoadScreen, LogosFadeInOneAfterTheOtherThenTheDataLoadsOnce)
{
    LoadScreenState s = {};
    loads = 0;
    int secondLogoTick = 0, firstRiseOfB = 0, loadTick = 0, finishTick = 0;
    for (int tick = 1; tick <= 400 && !s.finished; tick++) {
        int phase = s.phase;
        float b = s.alphaB;
        loadScreenTick(s, countLoad);
        if (phase == 0 && s.phase == 1)
            secondLogoTick = tick;
        if (b == 0 && s.alphaB > 0)
            firstRiseOfB = tick;
        if (loads == 1 && !loadTick)
            loadTick = tick;
        if (s.finished)
            finishTick = tick;
    }
    EXPECT_EQ(loads, 1);
    EXPECT_GE(secondLogoTick, 50);
    EXPECT_LE(secondLogoTick, 51);
    EXPECT_GT(s.alphaA, 1.0f);
    EXPECT_EQ(firstRiseOfB - secondLogoTick, 20) << "the second logo waits 20 ticks";
    EXPECT_GE(loadTick - firstRiseOfB, 50);
    EXPECT_LE(loadTick - firstRiseOfB, 52);
    EXPECT_EQ(finishTick, loadTick + 1);

    // Ticks owed after the load change nothing more.
    loadScreenTick(s, countLoad);
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(s.finished);
}
