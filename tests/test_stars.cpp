// The starfield: how long each kind of star lives, where the two spawners put
// new stars, and that the list stays bounded however long a screen runs.

#include "render/stars.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

TEST(Stars, SpawnersPutNewStarsWhereTheirSkyBegins)
{
    // A drifting sky spawns at once, then every tenth tick, at the world's
    // right edge and above the ground.
    clearStars();
    starSpawnCounter = 10;
    std::vector<int> spawnCalls;
    for (int call = 1; call <= 41; call++) {
        const size_t before = StarList.size();
        tickDriftingStars();
        if (StarList.size() > before) {
            spawnCalls.push_back(call);
            const Star &s = StarList.back();
            EXPECT_EQ(s.x, 1000.0f);
            EXPECT_GE(s.y, -210.0f);
            EXPECT_LE(s.y, -1.0f);
            EXPECT_GE(s.kind, 3u);
            EXPECT_LE(s.kind, 5u);
            EXPECT_EQ(s.frame, s.kind % 3) << "a folded kind keeps its picture";
        }
    }
    EXPECT_EQ(spawnCalls, (std::vector<int>{1, 11, 21, 31, 41}));

    // A falling sky spawns every tick, along the top of the screen.
    clearStars();
    for (int call = 0; call < 50; call++) {
        tickFallingStars();
        const Star &s = StarList.back();
        EXPECT_LE(s.kind, 2u);
        EXPECT_EQ(s.frame, s.kind);
        EXPECT_GE(s.x, 0.0f);
        EXPECT_LT(s.x, 1200.0f);
        EXPECT_EQ(s.y, 480.0f);
        EXPECT_EQ(s.dead, 0);
    }
}

static int updatesUntilGone(Star star)
{
    clearStars();
    StarList.push_back(star);
    int updates = 0;
    while (!StarList.empty() && updates < 100000) {
        updateStars();
        purgeStars();
        updates++;
    }
    return updates;
}

TEST(Stars, EveryKindLeavesTheSkyOnTime)
{
    // 490 pixels of fall at 0.4 per update; float steps may cost one more.
    EXPECT_NEAR(updatesUntilGone(makeStar(600, 480, 0)), 1225, 1);
    // Kind 2 reaches x -100 before y -10 when it starts close to the left.
    EXPECT_EQ(updatesUntilGone(makeStar(50, 480, 2)), 150);
    EXPECT_EQ(updatesUntilGone(makeStar(1000, -100, 5)), 1100);
    EXPECT_NEAR(updatesUntilGone(makeStar(1000, -100, 3)), 5500, 2);
    // World stars ignore height: a drifting star high above the sky still
    // crosses and leaves.
    EXPECT_EQ(updatesUntilGone(makeStar(1000, -5000, 5)), 1100);
    // The spawner's kinds 6 to 8 move as 3 to 5 instead of standing still.
    EXPECT_NEAR(updatesUntilGone(makeStar(1000, -100, 6)), 5500, 2);
    EXPECT_EQ(updatesUntilGone(makeStar(1000, -100, 8)), 1100);
}

TEST(Stars, PrefillsSpreadOverTheSkyAndTheListStaysBounded)
{
    prefillStars();
    ASSERT_GT(StarList.size(), 300u);
    ASSERT_LT(StarList.size(), 1000u) << "the oldest stars have left";
    float lowest = 1000, highest = -1000;
    for (const Star &s : StarList) {
        EXPECT_LE(s.kind, 2u);
        EXPECT_GT(s.x, -100.0f);
        lowest = std::min(lowest, s.y);
        highest = std::max(highest, s.y);
    }
    EXPECT_EQ(highest, 480.0f) << "the newest star is still at the top";
    EXPECT_LT(lowest, 40.0f) << "the slowest layer has reached the bottom";

    prefillGameStars();
    ASSERT_FALSE(StarList.empty());
    for (const Star &s : StarList) {
        EXPECT_GE(s.kind, 3u);
        EXPECT_LE(s.kind, 5u);
        EXPECT_GT(s.x, -100.0f);
        EXPECT_LE(s.x, 1000.0f);
    }

    // A long level: a star lives at most 5500 updates and one is spawned
    // every ten, so nothing can pile up.
    size_t most = 0;
    for (int i = 0; i < 6000; i++) {
        tickDriftingStars();
        most = std::max(most, StarList.size());
    }
    EXPECT_LE(most, 551u);
}
