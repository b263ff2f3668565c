// Dynamite, the chain reactions through radioactive ground and explosive
// items, the launch panel, and the flying rockets that smash their way out.
#include "support/sim_levels.h"

#include "audio/audio.h"
#include "sim/explosions.h"
#include "game/launchpanel.h"
#include "sim/rockets.h"
#include "sim/tools.h"

#include <algorithm>

namespace {

int chainExplosions()
{
    return static_cast<int>(std::count_if(explosions.begin(), explosions.end(),
                                          [](const Explosion &e) { return e.type == ChainType; }));
}

void updateExplosionsTimes(int n)
{
    for (int i = 0; i < n; i++) {
        updateExplosions();
        removeFinishedExplosions();
    }
}

} // namespace

TEST(SimExplosions, RadioactiveChainClearsSideNeighboursOnItsSeventhUpdate)
{
    //           x: 0123456789
    loadLevel({"B........B",
               "B........B",
               "B#X##.##.B",        // row 9: radioactive at 2, two cells from the blast
               "B####X#X#B",        // row 10: radioactive at 5, and at 7 two cells further
               "BBBBBBBBBB"});
    useToolOnCell(Dynamite, 4, 9);
    EXPECT_EQ(currentLevel.terrain[4][9], Empty);
    EXPECT_EQ(currentLevel.terrain[5][10], Empty) << "one cell away diagonally: set off";
    EXPECT_EQ(currentLevel.terrain[2][9], Radioactive1) << "two cells away: untouched";
    EXPECT_EQ(currentLevel.terrain[7][10], Radioactive1);
    EXPECT_EQ(chainExplosions(), 1);

    updateExplosionsTimes(6);
    EXPECT_EQ(currentLevel.terrain[4][10], Dirt1);
    EXPECT_EQ(currentLevel.terrain[6][10], Dirt1);

    updateExplosionsTimes(1);
    // The sides go; the diagonals stay; the border below is blast proof.
    EXPECT_EQ(currentLevel.terrain[4][10], Empty);
    EXPECT_EQ(currentLevel.terrain[6][10], Empty);
    EXPECT_EQ(currentLevel.terrain[6][9], Dirt1);
    EXPECT_EQ(currentLevel.terrain[3][9], Dirt1);
    EXPECT_EQ(currentLevel.terrain[5][11], Border);
    // Radioactive ground two cells from a chain explosion carries it on.
    EXPECT_EQ(currentLevel.terrain[7][10], Empty);
    EXPECT_EQ(chainExplosions(), 2);
    EXPECT_EQ(currentLevel.terrain[2][9], Radioactive1);

    // The second chain clears its own sides seven updates later.
    updateExplosionsTimes(6);
    EXPECT_EQ(currentLevel.terrain[8][10], Dirt1);
    updateExplosionsTimes(1);
    EXPECT_EQ(currentLevel.terrain[8][10], Empty);
    EXPECT_EQ(currentLevel.terrain[7][9], Empty);
    // Nine frames each, then they are gone.
    updateExplosionsTimes(2);
    EXPECT_TRUE(explosions.empty());
}

TEST(SimExplosions, ChainsSpareStructuresItemsUnderfootAndWater)
{
    //           x: 0123456789AB
    loadLevel({"B..........B",
               "B..1.......B",      // row 8: an item over the dirt at (3,9)
               "B#.#X#~##X#B",      // row 9: radioactive at 4 and 9; water at 6
               "B##########B",
               "BBBBBBBBBBBB"});
    useToolOnCell(Girder, 4, 8);
    useToolOnCell(Dynamite, 5, 9);  // next to water on its right: refused
    EXPECT_EQ(currentLevel.terrain[5][9], Dirt1);
    useToolOnCell(Dynamite, 8, 9);
    EXPECT_EQ(currentLevel.terrain[9][9], Empty);
    // A radioactive cell lit beside water is cleared, and the upkeep of the
    // next frame fills it again.
    currentLevel.terrain[7][9] = Radioactive2;
    updateExplosionsTimes(7);
    EXPECT_EQ(currentLevel.terrain[7][9], Empty);
    normaliseTerrain(currentLevel);
    EXPECT_EQ(currentLevel.terrain[7][9], Dirt1);
    // Set off from beneath its girder, the radioactive cell clears itself, but
    // the girder stays and so does the dirt under the item.
    currentLevel.terrain[4][10] = Radioactive1;
    currentLevel.terrain[4][9] = Radioactive1;
    detonateRadioactive(4, 10);
    updateExplosionsTimes(7);
    EXPECT_EQ(currentLevel.terrain[4][9], Empty);
    EXPECT_EQ(currentLevel.structures[4][8], Girder);
    EXPECT_EQ(currentLevel.terrain[3][9], Dirt1) << "an item stands on it";
    EXPECT_EQ(currentLevel.terrain[5][9], Dirt1) << "beside water";
}

TEST(SimExplosions, OnlyABlastAimedAtAnExplosiveSetsItOff)
{
    //           x: 0123456789
    loadLevel({"B........B",
               "B...EE...B",        // row 8: two explosive items side by side
               "B########B",
               "BBBBBBBBBB"});
    useToolOnCell(Dynamite, 4, 8);
    EXPECT_EQ(currentLevel.terrain[4][8], Empty);
    ASSERT_EQ(explosions.size(), 2u);
    EXPECT_EQ(explosions.front().type, BlastType);
    EXPECT_EQ(explosions.back().type, ChainType);
    updateExplosionsTimes(7);
    // The neighbour is simply removed, with no explosion of its own; the
    // ground under the first goes too.
    EXPECT_EQ(currentLevel.terrain[5][8], Empty);
    EXPECT_EQ(currentLevel.terrain[4][9], Empty);
    EXPECT_EQ(chainExplosions(), 1);
}

TEST(SimExplosions, ExplosionCellsStayInsideTheLevel)
{
    loadLevel({"B....B", "B....B", "BXXXXB", "BBBBBB"});
    // Explosions far outside the level act on the cells inside the ring.
    spawnExplosion(-5000, -5000, RadioactiveExplosion);
    spawnExplosion(1e6f, 1e6f, ExplosiveItemExplosion);
    updateExplosionsTimes(7);
    EXPECT_EQ(currentLevel.terrain[1][1], Empty);
    EXPECT_EQ(currentLevel.terrain[4][8], Empty);
    // Out-of-grid cells given to the cell operations are ignored.
    detonateRadioactive(-3, 4);
    detonateRadioactive(99, 99);
    detonateExplosive(6, 0);
    for (int i = 0; i < 30; i++)
        updateExplosionsTimes(1);
    EXPECT_TRUE(explosions.empty());
}

TEST(SimExplosions, RocketsSmashEverythingAboveThemOnTheWayOut)
{
    //           x: 0123456789
    loadLevel({"B....#..TB",        // row 7: dirt over the left rocket; a second rocket at 8
               "B....#...B",
               "B....T..#B",        // row 9: the left rocket; dirt between the right two
               "B####R###B",
               "BBBBBBBBBB"});
    useToolOnCell(Girder, 8, 8);    // on the dirt between the right-hand rockets
    currentLevel.structures[5][6] = Girder;     // even in the sky
    currentLevel.terrain[8][9] = Rocket;
    mission.rocketCount = 3;
    // No pods: the panel comes at once. Its button can first be reached at
    // step 15, once it has slid in 56 pixels.
    RunResult early = run("14 launch\n", 20);
    ASSERT_EQ(early.notes.size(), 1u);
    EXPECT_EQ(early.notes[0].text, "(the Launch button is not on the screen)");
    EXPECT_TRUE(flyingRockets.empty());

    loadLevel({"B....#..TB", "B....#...B", "B....T..#B", "B####R###B", "BBBBBBBBBB"});
    useToolOnCell(Girder, 8, 8);
    currentLevel.structures[5][6] = Girder;
    currentLevel.terrain[8][9] = Rocket;
    mission.rocketCount = 3;
    int smashedAt = 0, blasts = 0;
    RunResult result;
    beginRun(1);
    Solution solution = script("15 launch\n");
    for (int step = 1; step <= 400 && result.outcome == RunUnfinished; step++) {
        result.outcome = runStep(step, step == 15 ? &solution.actions[0] : nullptr, result);
        if (!smashedAt && currentLevel.terrain[5][7] == Empty)
            smashedAt = step;
        blasts = std::max(blasts, static_cast<int>(explosions.size()));
    }
    ASSERT_EQ(result.notes.size(), 1u);
    EXPECT_EQ(result.notes[0].text, "Launching All Rockets!");
    EXPECT_EQ(result.outcome, RunWon);
    // Pressed at step 15 and launched in the tick of step 16; from y 272 two
    // pixels a tick up to -200.
    EXPECT_EQ(result.ticks, 16 + 236 + 1);
    EXPECT_GT(smashedAt, 15);
    EXPECT_GT(blasts, 0);
    EXPECT_EQ(currentLevel.terrain[5][8], Empty);
    EXPECT_EQ(currentLevel.structures[5][6], 0);
    EXPECT_EQ(currentLevel.terrain[5][10], Rock1) << "nothing below a rocket is touched";
    EXPECT_EQ(currentLevel.terrain[8][8], Empty);
    EXPECT_EQ(currentLevel.structures[8][8], 0);
    EXPECT_EQ(mission.rocketsGone, 3);
}

TEST(SimExplosions, LaunchPanelComesInOnceEveryoneIsAboardAndGoesAfterTheClick)
{
    loadLevel({"B......B", "B.P..T.B", "B######B", "BBBBBBBB"});
    ASSERT_EQ(mission.podCount, 1);
    auto ticks = [](int n) {
        for (int i = 0; i < n; i++) {
            tickLaunchPanelWith(false);
            placeLaunchPanel();
        }
    };
    ticks(5);
    EXPECT_FALSE(launchPanel.armed) << "nobody aboard yet";
    EXPECT_FALSE(launchButtonReachable());

    mission.savedCount = 1;
    EffectSoundRequest = 0;
    ticks(1);
    EXPECT_TRUE(launchPanel.armed);
    EXPECT_EQ(EffectSoundRequest, 14);
    ticks(80);
    EXPECT_TRUE(launchButtonReachable());
    EXPECT_FALSE(mission.launchRequested);

    resetStatusLine();
    EffectSoundRequest = 0;
    tickLaunchPanelWith(true);
    EXPECT_TRUE(mission.launchRequested);
    EXPECT_EQ(EffectSoundRequest, 14);
    EXPECT_MESSAGE(statusTarget(), StatusLaunching);
    // Gone again, its button out of the pointer's reach, and it does not come back.
    ticks(100);
    EXPECT_EQ(launchPanel.offset, 0);
    EXPECT_FALSE(launchButtonReachable());
}
