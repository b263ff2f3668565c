// The per-frame upkeep of the grid: what the player sees after the simulation
// or the editor has written something the level cannot hold.
#include <gtest/gtest.h>

#include <climits>

#include "support/level_grid.h"

namespace {

// The seven empty sky rows most cases start with, as wide as the rows below.
std::vector<std::string> underOpenSky(std::vector<std::string> rows)
{
    rows.insert(rows.begin(), SKY_ROWS, std::string(rows.front().size(), '.'));
    return rows;
}

std::vector<std::string> normalised(const std::vector<std::string> &rows)
{
    Level level = levelFromRows(rows);
    normaliseTerrain(level);
    return rowsOf(level);
}

} // namespace

TEST(Normalise, SkyKeepsOnlyRocketsCreditsAndVortexesAndRingBecomesBorder)
{
    const std::vector<std::string> result = normalised({
        "P#BTRV$*",
        "..XTx...",
        "......H.",
        "........",
        "........",
        "....^...",
        "T.$.V.#.",
        "........",
        "...~....",
        "#.......",
    });
    const std::vector<std::string> expected = {
        "........",  // the top row is ring: even its rocket went Border, then sky
        "...T....",
        "........",
        "........",
        "........",
        "........",  // spikes in the sky vanish before they could ask for support
        "..$.V...",
        "B......B",
        "B.#~#..B",
        "BBBBBBBB",
    };
    EXPECT_EQ(expected, result);
}

TEST(Normalise, ItemsNeedSupportAndScanOrderSettlesColumns)
{
    // Spikes on spikes: the lower one is no support and becomes dirt (column 1,
    // and column 7 under a Radioactive2). Explosive on Radioactive2: that
    // holds nothing up, so it is replaced by dirt. An item on Dirt1 stays; an
    // item on an item turns the lower one into dirt, which then holds.
    const std::vector<std::string> result = normalised(underOpenSky({
        "B^.1.E.x.3B",
        "B^.#.x.^.2B",
        "B......^..B",
        "B.........B",
        "BBBBBBBBBBB",
    }));
    EXPECT_EQ("B^.1.E.x.3B", result[7]);
    EXPECT_EQ("B#.#.#.^.#B", result[8]);
    EXPECT_EQ("B......#..B", result[9]);
    EXPECT_EQ("B.........B", result[10]);

    // Radioactive1 and rock hold items up; the bottom border does too.
    const std::vector<std::string> held = normalised(underOpenSky({
        "B^4..B",
        "BXR.EB",
        "BBBBBB",
    }));
    EXPECT_EQ("B^4..B", held[7]);
    EXPECT_EQ("BXR.EB", held[8]);
}

TEST(Normalise, WaterSitsInABasin)
{
    // A pool two wide: beside, under and diagonally under it fill with dirt;
    // side by side the two water cells leave each other alone.
    std::vector<std::string> result = normalised(underOpenSky({
        "B..~~..B",
        "B......B",
        "B......B",
        "BBBBBBBB",
    }));
    EXPECT_EQ("B.#~~#.B", result[7]);
    EXPECT_EQ("B.####.B", result[8]);
    EXPECT_EQ("B......B", result[9]);

    // Water above water, and water diagonally above water, turn the lower one
    // into dirt; rock already there stays rock. Column 4's water is scanned
    // (and fills below itself) before column 5's turns it into dirt.
    result = normalised(underOpenSky({
        "B.~..~.B",
        "B.~.~R.B",
        "B......B",
        "BBBBBBBB",
    }));
    EXPECT_EQ("B#~##~#B", result[7]);
    EXPECT_EQ("B####R#B", result[8]);
    EXPECT_EQ("B..###.B", result[9]);

    // Water in column 1 and beside the right border: the ring stays Border
    // (never turned into dirt), the open cells fill.
    result = normalised(underOpenSky({
        "B~..~B",
        "B....B",
        "BBBBBB",
    }));
    EXPECT_EQ("B~##~B", result[7]);
    EXPECT_EQ("B####B", result[8]);

    // Water cannot stay in the sky, and what it would have filled stays open.
    result = normalised({
        "......",
        "......",
        "......",
        "......",
        "......",
        "......",
        "..~...",
        "B....B",
        "B....B",
        "BBBBBB",
    });
    EXPECT_EQ("......", result[6]);
    EXPECT_EQ("B....B", result[7]);
}

TEST(Normalise, PodCountAndOddCodes)
{
    Level level = levelFromRows(plainRows());
    level.terrain[3][8] = Pod;
    level.terrain[5][8] = Pod;
    level.terrain[0][0] = Pod;  // counted wherever it is
    countEditorPods(level);
    EXPECT_EQ(3, editorPodCount);
    normaliseTerrain(level);
    countEditorPods(level);
    EXPECT_EQ(2, editorPodCount);

    // Codes no valid level holds stay in place (ground that draws as nothing)
    // but are never taken for support.
    level.terrain[4][7] = WorldItem1;
    level.terrain[4][8] = 99;
    level.terrain[6][8] = -5;
    normaliseTerrain(level);
    EXPECT_EQ(Dirt1, level.terrain[4][8]);
    EXPECT_EQ(-5, level.terrain[6][8]);
    // Any int is safe to ask about: solid to walkers, nothing else.
    for (int32_t odd : {-1, 24, INT_MIN, INT_MAX})
        EXPECT_TRUE(isGround(odd) && !isSupport(odd) && !isDiggable(odd) && !isNeedsSupport(odd) &&
                    !isSkyKeep(odd) && !isRadioactive(odd) && !isBlastProof(odd)) << odd;

    // A record never loaded, or one shorter than the sky, is safe to upkeep.
    Level empty = Level();
    normaliseTerrain(empty);
    countEditorPods(empty);
    EXPECT_EQ(0, editorPodCount);
    Level shallow = levelFromRows({"####", "#P##", "####"});
    normaliseTerrain(shallow);
    EXPECT_EQ(std::vector<std::string>({"....", "....", "...."}), rowsOf(shallow));
}
