// The per-tick frame cycling and the link steps, on fake texture ids that
// name their table and frame, and the load screen's fade timing.

#include "game/mission.h"
#include "render/loadscreen.h"
#include "render/textures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
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

// Every picture a level draws comes from its own table and stays inside it;
// the lifts and planets turn in step, and a lift or a burning stick of
// dynamite never shows its still frame 0 once it moves.
TEST(Animation, EveryCycleStaysInsideItsTableAndSkipsStillFrames)
{
    fakeTables();
    linkImageData();
    // Credits and the water of planets 2 to 4 must never draw as blank squares.
    EXPECT_EQ(ObjectFrameTable[7], 1000u * Sprite + 4);
    for (int planet = 2; planet <= 4; planet++)
        EXPECT_EQ(ObjectFrameTable[7 + planet], 1000u * Water + planet - 1) << planet;
    EXPECT_EQ(StructureFrameTable[9], 1000u * Dynamite + 1) << "a stick is lit from the start";

    const struct {
        const TextureId *slot;
        int table, frames;
        bool skipsFrameZero;
    } cycles[] = {
        {&StructureFrameTable[3], Harvester, 20, false}, {&StructureFrameTable[4], LiftUp, 21, true},
        {&StructureFrameTable[5], LiftLeft, 21, true},   {&StructureFrameTable[6], LiftRight, 21, true},
        {&StructureFrameTable[9], Dynamite, 6, true},    {&ObjectFrameTable[0], Pod, 21, false},
        {&ObjectFrameTable[1], RocketLanded, 41, true},  {&ObjectFrameTable[2], RocketFlying, 41, true},
        {&ObjectFrameTable[3], Planet1, 73, true},       {&ObjectFrameTable[6], Planet4, 73, true},
    };
    std::vector<std::vector<int>> shown(std::size(cycles));
    for (int tick = 0; tick < 150; tick++) {
        advanceAnimationFrames(false);
        for (size_t i = 0; i < std::size(cycles); i++) {
            const TextureId id = *cycles[i].slot;
            ASSERT_EQ(tableOf(id), cycles[i].table) << i;
            ASSERT_LT(frameOf(id), cycles[i].frames) << i;
            if (cycles[i].skipsFrameZero)
                EXPECT_NE(frameOf(id), 0) << i;
            shown[i].push_back(frameOf(id));
        }
        EXPECT_EQ(frameOf(StructureFrameTable[5]), frameOf(StructureFrameTable[4]));
        EXPECT_EQ(frameOf(ObjectFrameTable[5]), frameOf(ObjectFrameTable[3]));
        EXPECT_EQ(StructureFrameTable[0], 1000u * Girder) << "still pictures stay still";
    }
    // Each cycle runs through all its frames, so none is cut short.
    for (size_t i = 0; i < std::size(cycles); i++)
        EXPECT_EQ(*std::max_element(shown[i].begin(), shown[i].end()), cycles[i].frames - 1) << i;
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

// Only the angle modulo a turn is drawn; a long level must not run it away.
TEST(Animation, AnglesStayWithinOneTurn)
{
    fakeTables();
    for (int i = 0; i < 20000; i++) {
        advanceAnimationFrames(false);
        ASSERT_GT(tileRotationAngle, -360);
        ASSERT_LE(tileRotationAngle, 0);
        ASSERT_GE(backdropAngle, 0.0f);
        ASSERT_LT(backdropAngle, 360.0f);
    }
}

static int loads;
static void countLoad() { loads++; }

TEST(LoadScreen, LogosFadeInOneAfterTheOtherThenTheDataLoadsOnce)
{
    LoadScreenState s = {};
    loads = 0;
    int loadTick = 0, secondLogoTick = 0;
    for (int tick = 1; tick <= 400 && !s.finished; tick++) {
        loadScreenTick(s, countLoad);
        if (s.alphaB > 0 && !secondLogoTick)
            secondLogoTick = tick;
        if (loads == 1 && !loadTick)
            loadTick = tick;
    }
    EXPECT_TRUE(s.finished);
    EXPECT_TRUE(secondLogoTick > 0 && secondLogoTick < loadTick) << "both logos show before the load";
    // Ticks owed after the load change nothing more.
    loadScreenTick(s, countLoad);
    EXPECT_EQ(loads, 1);
}
