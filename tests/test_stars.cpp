// The starfield: where the two spawners put new stars, and that every star
// leaves, so the list stays bounded however long a screen runs.

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
    // every ten, so nothing can pile up; a kind that never left, the
    // spawner's folded kinds 6 to 8 included, would.
    size_t most = 0;
    for (int i = 0; i < 6000; i++) {
        tickDriftingStars();
        most = std::max(most, StarList.size());
    }
    EXPECT_LE(most, 551u);
}
