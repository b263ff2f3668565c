// The starfield: how long each kind of star lives, where the two spawners put
// new stars, and that the list stays bounded however long a screen runs.

#include "render/stars.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

// Runs before any other drifting tick in this program: the counter starts
// full, so the very first call spawns.
TEST(Stars, DriftingSpawnerSpawnsAtOnceThenEveryTenthCall)
{
    EXPECT_EQ(starSpawnCounter, 10);
    clearStars();
    srand(7);
    int r1 = rand();
    int r2 = rand();
    srand(7);

    tickDriftingStars();
    ASSERT_EQ(StarList.size(), 1u);
    const Star &first = StarList.back();
    unsigned rawKind = 3 + r1 % 6;
    EXPECT_EQ(first.kind, rawKind < 6 ? rawKind : rawKind - 3);
    EXPECT_EQ(first.frame, rawKind % 3) << "a folded kind keeps its picture";
    EXPECT_EQ(first.x, 1000.0f);
    EXPECT_EQ(first.y, (float)(r2 % 210 - 210));

    std::vector<int> spawnCalls;
    for (int call = 2; call <= 41; call++) {
        size_t before = StarList.size();
        tickDriftingStars();
        if (StarList.size() > before)
            spawnCalls.push_back(call);
    }
    EXPECT_EQ(spawnCalls, (std::vector<int>{11, 21, 31, 41}));
    for (const Star &s : StarList) {
        EXPECT_GE(s.kind, 3u);
        EXPECT_LE(s.kind, 5u);
        EXPECT_GE(s.y, -210.0f);
        EXPECT_LE(s.y, -1.0f);
    }
}

TEST(Stars, FallingSpawnerTakesKindFromTheFirstRandAndXFromTheSecond)
{
    clearStars();
    for (unsigned seed = 1; seed <= 20; seed++) {
        srand(seed);
        int r1 = rand();
        int r2 = rand();
        srand(seed);
        tickFallingStars();
        const Star &s = StarList.back();
        EXPECT_EQ(s.kind, (unsigned)(r1 % 3)) << seed;
        EXPECT_EQ(s.frame, s.kind);
        EXPECT_EQ(s.x, (float)(r2 % 1200)) << seed;
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
    EXPECT_NEAR(updatesUntilGone(makeStar(1000, -100, 7)), 2200, 2);
    EXPECT_EQ(updatesUntilGone(makeStar(1000, -100, 8)), 1100);
    Star odd = makeStar(0, 0, 8);
    EXPECT_EQ(odd.kind, 5u);
    EXPECT_EQ(odd.frame, 2u);
}

TEST(Stars, PrefillsSpreadOverTheSkyAndTheListStaysBounded)
{
    srand(1234);
    prefillStars();
    ASSERT_GT(StarList.size(), 300u);
    ASSERT_LT(StarList.size(), 1000u) << "the oldest stars have left";
    float lowest = 1000, highest = -1000;
    for (const Star &s : StarList) {
        EXPECT_EQ(s.dead, 0);
        EXPECT_LE(s.kind, 2u);
        EXPECT_GT(s.x, -100.0f);
        EXPECT_GT(s.y, -10.0f);
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
    for (int i = 0; i < 20000; i++) {
        tickDriftingStars();
        most = std::max(most, StarList.size());
    }
    EXPECT_LE(most, 551u);
}
