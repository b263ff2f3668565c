// How bubblemen find their own way: walking, turning, falling, lifts, exits,
// pick-ups and the hazards that kill them. Every level is played through the
// headless driver from a script, as a player would play it.
#include "support/sim_levels.h"

#include "audio/audio.h"
#include "sim/costlabels.h"

#include <algorithm>
#include <climits>
#include <functional>

namespace {

// Runs a script step by step, calling `watch` after every step.
RunResult playWatching(const std::string &text, int tickLimit, const std::function<void(int)> &watch)
{
    Solution solution = script(text);
    RunResult result;
    beginRun(1);
    size_t next = 0;
    for (int step = 1; step <= tickLimit; step++) {
        const ScriptAction *action = nullptr;
        if (next < solution.actions.size() && solution.actions[next].step == step)
            action = &solution.actions[next++];
        result.outcome = runStep(step, action, result);
        watch(step);
        if (result.outcome != RunUnfinished)
            break;
    }
    return result;
}

const Bubbleman &onlyBubbleman()
{
    EXPECT_EQ(bubblemen.size(), 1u);
    return bubblemen.front();
}

} // namespace

TEST(SimBubblemen, EmergesThenWalksLeftAcrossGirdersAndTurnsAtWalls)
{
    //           x: 0123456789ABCD
    loadLevel({"B.T..........B",    // row 7: a rocket out of his way
               "B....P.......B",    // row 8: the pod
               "B#####..#####B",    // row 9: a gap bridged by girders
               "BBBBBBBBBBBBBB"});
    const std::string solution =
        "1 hatcher 5 8\n"
        "3 girder 6 9\n"
        "5 girder 7 9\n"
        "7 girder 9 8       # in his own row: walked through\n"
        "9 left-girder 12 8 # hangs from the border; walked into\n"
        "11 hatch\n";
    int firstMove = 0;
    float minX = 1e9f, maxX = -1e9f;
    bool alwaysInRow = true;
    bool firstStepLeft = false;
    RunResult result = playWatching(solution, 1000, [&](int step) {
        if (bubblemen.empty())
            return;
        const Bubbleman &b = onlyBubbleman();
        if (!firstMove && b.x != centreX(5)) {
            firstMove = step;
            firstStepLeft = b.x < centreX(5);
        }
        minX = std::min(minX, b.x);
        maxX = std::max(maxX, b.x);
        alwaysInRow = alwaysInRow && b.y == centreY(8);
    });
    EXPECT_EQ(result.outcome, RunUnfinished);
    // Hatched in the frame of step 11: sixteen updates of emerging, the last
    // of which already takes the first step, to the left.
    EXPECT_EQ(firstMove, 11 + 16);
    EXPECT_TRUE(firstStepLeft);
    EXPECT_TRUE(alwaysInRow) << "he fell or rose on a level floor";
    EXPECT_EQ(minX, centreX(1));
    EXPECT_EQ(maxX, centreX(12));
}

TEST(SimBubblemen, HaltsBetweenTwoWallsAndWalksOffWhenOneIsBlasted)
{
    //           x: 0123456789
    loadLevel({"B.T......B",
               "B...#P#..B",    // row 8: walled in on both sides
               "B########B",
               "BBBBBBBBBB"});
    bool haltedBeforeBlast = false;
    float xBeforeBlast = 0;
    RunResult result = playWatching("1 hatcher 5 8\n3 hatch\n100 dynamite 6 8\n", 150, [&](int step) {
        if (step == 99) {
            haltedBeforeBlast = onlyBubbleman().heading == Halted;
            xBeforeBlast = onlyBubbleman().x;
        }
    });
    EXPECT_EQ(result.outcome, RunUnfinished);
    EXPECT_TRUE(haltedBeforeBlast);
    EXPECT_EQ(xBeforeBlast, centreX(5));
    EXPECT_EQ(currentLevel.terrain[6][8], Empty);
    // The wall on the right is gone: he is off to the right at once.
    EXPECT_EQ(onlyBubbleman().heading, HeadingRight);
    EXPECT_EQ(onlyBubbleman().x, centreX(5) + (150 - 101));
}

TEST(SimBubblemen, TurnsAtBlockersAndWalksThroughSpikesOnTheGround)
{
    //           x: 0123456789
    loadLevel({"B........B",
               "B........B",
               "B........B",
               "B.^P..T..B",    // row 10: spikes left, a rocket far right
               "BBBBBBBBBB"});
    float minX = 1e9f, maxX = -1e9f;
    RunResult result = playWatching("1 hatcher 3 10\n3 blocker 5 10\n5 hatch\n", 600, [&](int) {
        if (bubblemen.empty())
            return;
        minX = std::min(minX, bubblemen.front().x);
        maxX = std::max(maxX, bubblemen.front().x);
    });
    EXPECT_EQ(result.outcome, RunUnfinished) << "walking into spikes must not kill";
    ASSERT_EQ(bubblemen.size(), 1u);
    EXPECT_EQ(minX, centreX(1));
    EXPECT_EQ(maxX, centreX(4)) << "the blocker at column 5 turns him";
    EXPECT_FALSE(mission.bubblemanLost);
}

TEST(SimBubblemen, RidesLiftsThroughCreditsAndOutOfAnExitToTheRocket)
{
    //           x: 0123456789ABCD
    loadLevel({"B.........T..B",    // row 7: the rocket on the upper platform
               "B......######B",
               "B......######B",
               "BP.$...######B",    // row 10: pod, credits, the lift's foot at 6
               "BBBBBBBBBBBBBB"},
              2000);
    const std::string solution =
        "1 hatcher 1 10\n"
        "3 lift 6 10\n"
        "5 lift 6 9\n"
        "7 lift 6 8\n"
        "9 right-exit 6 7\n"
        "11 hatch\n";
    int creditsPicked = 0, firstRise = 0, leftExit = 0;
    int32_t creditsBefore = 0;
    RunResult result = playWatching(solution, 700, [&](int step) {
        if (step == 11)
            creditsBefore = mission.credits;
        if (bubblemen.empty())
            return;
        const Bubbleman &b = bubblemen.front();
        if (!creditsPicked && currentLevel.terrain[3][10] == Empty)
            creditsPicked = step;
        if (!firstRise && b.motion == Rising)
            firstRise = step;
        if (!leftExit && b.y == centreY(7) && b.x > centreX(6))
            leftExit = step;
    });
    EXPECT_EQ(creditsBefore, 2000 - 500 - 3 * 300 - 400);
    EXPECT_GT(creditsPicked, 0);
    EXPECT_LT(creditsPicked, firstRise);
    EXPECT_LT(firstRise, leftExit);
    EXPECT_EQ(mission.savedCount, 1);
    EXPECT_TRUE(bubblemen.empty());
    EXPECT_EQ(result.outcome, RunUnfinished);
    EXPECT_EQ(mission.credits, creditsBefore + CREDITS_PICKUP_VALUE);
}

TEST(SimBubblemen, ParksOnTopOfALiftWithoutExitAfterRisingIntoCredits)
{
    //           x: 0123456789
    loadLevel({"B........B",
               "B....$...B",    // row 8: credits above the lift's top
               "B........B",
               "BP.....T.B",
               "BBBBBBBBBB"});
    RunResult result = run("1 hatcher 1 10\n3 lift 5 10\n5 lift 5 9\n7 hatch\n", 900);
    EXPECT_EQ(result.outcome, RunUnfinished);
    const Bubbleman &b = onlyBubbleman();
    EXPECT_EQ(b.x, centreX(5));
    EXPECT_EQ(b.y, centreY(8));
    EXPECT_EQ(b.motion, Parked);
    EXPECT_EQ(currentLevel.terrain[5][8], Empty);
    EXPECT_EQ(result.credits, 5000 - 500 - 600 + CREDITS_PICKUP_VALUE);
    // The pick-up's label rises from the cell and fades away.
    EXPECT_TRUE(costLabels.empty());
}

TEST(SimBubblemen, DiesFallingIntoSpikesWaterOrAVortex)
{
    struct Case {
        const char *what;
        std::vector<std::string> ground;
        bool sucked;
    };
    const std::vector<Case> cases = {
        //      x: 0123456789
        {"spikes", {"B........B", "BP......TB", "B###.####B", "B###^####B", "BBBBBBBBBB"}, false},
        {"water", {"B........B", "BP......TB", "B###.####B", "B###~####B", "BBBBBBBBBB"}, false},
        {"vortex", {"B........B", "B........B", "B........B", "BP..V..T.B", "BBBBBBBBBB"}, true},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        loadLevel(c.ground);
        const std::string hatch = std::string("1 hatcher 1 ") + (c.sucked ? "10" : "8") + "\n3 hatch\n";
        int dyingFrom = 0, lostAt = 0;
        float lastAlpha = 1;
        RunResult result = playWatching(hatch, 600, [&](int step) {
            if (!bubblemen.empty()) {
                const Bubbleman &b = bubblemen.front();
                if (!dyingFrom && (b.dying || b.sucked)) {
                    dyingFrom = step;
                    EXPECT_EQ(b.sucked, c.sucked);
                    EXPECT_EQ(b.x, centreX(4));
                }
                lastAlpha = b.alpha;
            }
            if (!lostAt && mission.bubblemanLost)
                lostAt = step;
        });
        EXPECT_EQ(result.outcome, RunLost);
        ASSERT_GT(dyingFrom, 0);
        // Twenty frames of the death, one more update to find the last,
        // then the next list update counts him lost; the screen changes a
        // tick later.
        EXPECT_EQ(lostAt, dyingFrom + 22);
        EXPECT_EQ(result.ticks, lostAt + 1);
        EXPECT_NEAR(lastAlpha, 0.4f, 1e-4);
    }
}

TEST(SimBubblemen, CellsBeyondTheLevelOrDamagedCountAsSolidAndCreditsNeverWrap)
{
    loadLevel({"B....B", "B.~..B", "B####B", "BBBBBB"});
    EXPECT_TRUE(blocksWalk(2, 8)) << "water is a wall";
    EXPECT_TRUE(blocksWalk(-1, 8));
    EXPECT_TRUE(blocksWalk(6, 8));
    EXPECT_TRUE(blocksRise(3, -1));
    EXPECT_TRUE(canStandOn(4, 500));
    currentLevel.terrain[3][8] = 99;
    currentLevel.terrain[4][8] = -7;
    EXPECT_TRUE(blocksWalk(3, 8));
    EXPECT_TRUE(blocksRise(3, 8));
    EXPECT_TRUE(canStandOn(4, 8));

    // A level file may start with any credits at all: pick-ups on top of the
    // largest keep it there instead of turning it into a debt.
    //           x: 0123456789
    loadLevel({"B........B", "B........B", "B........B", "BP.$$...TB", "BBBBBBBBBB"}, INT_MAX);
    RunResult result = run("1 hatcher 1 10\n3 hatch\n", 200);
    EXPECT_EQ(result.outcome, RunUnfinished);
    EXPECT_EQ(currentLevel.terrain[4][10], Empty) << "both pick-ups taken";
    EXPECT_EQ(mission.credits, INT_MAX);
}

TEST(SimBubblemen, BoardingPlaysItsSoundsAndCountsHimSaved)
{
    //           x: 0123456789
    loadLevel({"B........B", "B........B", "B........B", "BP.T.....B", "BBBBBBBBBB"});
    int enteringFrom = 0, savedAt = 0;
    bool heardStart = false;
    RunResult result = playWatching("1 hatcher 1 10\n3 hatch\n", 200, [&](int step) {
        if (!bubblemen.empty() && bubblemen.front().entering) {
            if (!enteringFrom)
                enteringFrom = step;
            if (bubblemen.front().enterFrame == 2)
                heardStart = heardStart || EffectSoundRequest == 20;
        }
        if (!savedAt && mission.savedCount == 1)
            savedAt = step;
    });
    EXPECT_EQ(result.outcome, RunUnfinished);
    EXPECT_TRUE(heardStart);
    ASSERT_GT(enteringFrom, 0);
    // Fifteen frames forward from the last emerging frame, one update to find
    // the last, and the next list update counts him.
    EXPECT_EQ(savedAt - enteringFrom, 17);
    EXPECT_TRUE(bubblemen.empty());
}
