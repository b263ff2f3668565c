// The placement rules, costs and refusals of every tool, the message the
// player reads when several refusals apply, and the toolbar's own rules.
#include "support/sim_levels.h"

#include "audio/audio.h"
#include "game/toolbar.h"
#include "sim/cells.h"
#include "sim/costlabels.h"
#include "sim/explosions.h"
#include "sim/tools.h"

namespace {

// One click of `tool` on a cell: the message it leaves on the status line.
const char *click(int32_t tool, int x, int y)
{
    resetStatusLine();
    SoundRequest = SoundRequestIdle;
    useToolOnCell(tool, x, y);
    return statusTarget();
}

struct Refusal {
    int32_t tool;
    int x, y;
    const char *message;
};

// A refusal changes nothing, costs nothing and sounds the refusal.
void expectRefusals(const std::vector<Refusal> &refusals)
{
    for (const Refusal &r : refusals) {
        SCOPED_TRACE(std::string(toolName(r.tool)) + " at " + std::to_string(r.x) + "," + std::to_string(r.y));
        const TerrainGrid terrain = currentLevel.terrain;
        const StructureGrid structures = currentLevel.structures;
        const int32_t credits = mission.credits;
        const size_t labels = costLabels.size();
        EXPECT_MESSAGE(click(r.tool, r.x, r.y), r.message);
        EXPECT_EQ(SoundRequest, 12);
        EXPECT_EQ(mission.credits, credits);
        EXPECT_TRUE(currentLevel.terrain == terrain);
        EXPECT_TRUE(currentLevel.structures == structures);
        EXPECT_EQ(costLabels.size(), labels);
    }
}

// A success is paid in full, with a label of the tool's kind at the cell.
void expectBuilt(int32_t tool, int x, int y, const char *message)
{
    SCOPED_TRACE(std::string(toolName(tool)) + " at " + std::to_string(x) + "," + std::to_string(y));
    const int32_t credits = mission.credits;
    EXPECT_MESSAGE(click(tool, x, y), message);
    EXPECT_EQ(mission.credits, credits - toolCost(tool));
    ASSERT_FALSE(costLabels.empty());
    EXPECT_EQ(costLabels.front().kind, tool);
    EXPECT_EQ(costLabels.front().x, centreX(x) - 1);
    EXPECT_EQ(costLabels.front().y, centreY(y) - 10);
}

} // namespace

TEST(SimTools, StandingStructuresNeedFreeCellsFootingAndCredits)
{
    //           x: 0123456789AB
    loadLevel({"B..........B",
               "B#~#...P..$B",      // row 8: water, a pod, credits
               "B###.R#*#.^B",      // row 9: a hole at 4, spikes under the credits
               "BBBBBBBBBBBB"});
    expectRefusals({
        {Girder, 4, 8, StatusNeedsFooting},         // over the hole
        {Girder, 1, 8, StatusCannotBuildHere},      // on dirt, with footing
        {Girder, 10, 8, StatusNeedsFooting},        // occupied and on spikes: the later message
        {Girder, 2, 7, StatusNeedsFooting},         // water holds nothing up
        {EnergyLift, 9, 8, StatusNeedsFooting},
    });
    expectBuilt(Girder, 4, 9, StatusGirderBuilt);
    EXPECT_EQ(SoundRequest, 1);
    EXPECT_EQ(currentLevel.structures[4][9], Girder);
    // Every structure gives footing to the next.
    expectBuilt(EnergyLift, 4, 8, StatusEnergyLiftBuilt);
    expectBuilt(LeftLiftExit, 4, 7, StatusLeftLiftExitBuilt);
    expectBuilt(Blocker, 5, 8, StatusBlockerBuilt);
    expectBuilt(RightLiftExit, 5, 7, StatusRightLiftExitBuilt);
    expectBuilt(Hatcher, 7, 8, StatusHatcherBuilt);
    EXPECT_EQ(currentLevel.terrain[7][8], Empty);
    EXPECT_EQ(mission.podsWithoutHatcher, 0);
    expectBuilt(Girder, 7, 7, StatusGirderBuilt);

    mission.credits = 50;
    expectRefusals({
        {Girder, 6, 8, StatusNotEnoughCredits},
        {Girder, 9, 8, StatusNeedsFooting},         // too poor and no footing: footing
        {Girder, 1, 8, StatusCannotBuildHere},
    });
    // Exactly enough is enough.
    mission.credits = 100;
    expectBuilt(Girder, 6, 8, StatusGirderBuilt);
    EXPECT_EQ(mission.credits, 0);
}

TEST(SimTools, HangingGirdersHoldOnToGroundWaterAndStandingStructures)
{
    //           x: 012345678
    loadLevel({"B.......B",
               "B.~..#..B",     // row 8: water at 2, dirt at 5
               "B#######B",
               "BBBBBBBBB"});
    expectBuilt(LeftHangingGirder, 1, 8, StatusLeftHangingGirderBuilt);
    expectBuilt(RightHangingGirder, 3, 8, StatusRightHangingGirderBuilt);
    expectRefusals({
        {RightHangingGirder, 4, 8, StatusNeedsAnchor},  // only another hanging girder to the left
        {LeftHangingGirder, 6, 7, StatusNeedsAnchor},
        {RightHangingGirder, 7, 7, StatusNeedsAnchor},
        {LeftHangingGirder, 1, 9, StatusCannotBuildHere},
        {LeftHangingGirder, 5, 8, StatusNeedsAnchor},   // occupied and unanchored: the later message
    });
    expectBuilt(LeftHangingGirder, 4, 8, StatusLeftHangingGirderBuilt);
    expectBuilt(RightHangingGirder, 6, 8, StatusRightHangingGirderBuilt);
    // A girder stands on a hanging girder, and a hanging girder holds on to it.
    expectBuilt(Girder, 1, 7, StatusGirderBuilt);
    expectBuilt(RightHangingGirder, 2, 7, StatusRightHangingGirderBuilt);
    // The cell they hang from cannot be taken from under them.
    expectRefusals({
        {Shovel, 5, 8, StatusDigUnderStructure},
        {Dynamite, 5, 8, StatusBlastUnderStructure},
    });
    // The right-hand border is the last column: nothing beyond it to hold.
    EXPECT_FALSE(hasRightAnchor(8, 8));
    EXPECT_FALSE(hasLeftAnchor(0, 8));
}

TEST(SimTools, ShovelDigsOnlyFreeDirtAwayFromWater)
{
    //           x: 0123456789
    loadLevel({"B.#.1....B",        // row 7: dirt over the water, an item at 4
               "B#~##R#3#B",        // row 8
               "B########B",
               "BBBBBBBBBB"});
    expectBuilt(Girder, 8, 7, StatusGirderBuilt);
    expectBuilt(Girder, 3, 7, StatusGirderBuilt);
    expectRefusals({
        {Shovel, 1, 8, StatusDigNearWater},
        {Shovel, 3, 8, StatusDigNearWater},     // under a girder too: water is said last
        {Shovel, 4, 8, StatusDigUnderStructure},// under an item
        {Shovel, 8, 8, StatusDigUnderStructure},
        {Shovel, 5, 8, StatusCannotDig},        // rock
        {Shovel, 2, 8, StatusCannotDig},        // water
        {Shovel, 5, 7, StatusCannotDig},        // nothing
        {Shovel, 4, 7, StatusCannotDig},        // an item that cannot be dug
    });
    expectBuilt(Shovel, 6, 8, StatusDigging);
    EXPECT_EQ(SoundRequest, 26);
    EXPECT_EQ(currentLevel.terrain[6][8], Empty);
    // Water directly below does not matter; the diggable item goes too.
    expectBuilt(Shovel, 2, 7, StatusDigging);
    expectBuilt(Shovel, 7, 8, StatusDigging);

    mission.credits = 199;
    expectRefusals({
        {Shovel, 5, 9, StatusNotEnoughCredits},
        {Shovel, 5, 8, StatusCannotDig},
    });
}

TEST(SimTools, DynamiteBlastsTerrainAndStructuresButNotHatchersOrBlastProof)
{
    //           x: 0123456789AB
    loadLevel({"B..........B",
               "B#~#.#*P..TB",      // row 8: water, diamond, pod, rocket
               "B##########B",
               "BBBBBBBBBBBB"});
    expectBuilt(Hatcher, 7, 8, StatusHatcherBuilt);
    expectBuilt(Girder, 8, 8, StatusGirderBuilt);
    expectRefusals({
        {Dynamite, 6, 8, StatusCannotDestroy},      // diamond
        {Dynamite, 7, 8, StatusCannotDestroy},      // hatcher
        {Dynamite, 2, 8, StatusCannotDestroy},      // water
        {Dynamite, 10, 8, StatusCannotDestroy},     // rocket
        {Dynamite, 4, 8, StatusCannotDestroy},      // nothing there
        {Dynamite, 0, 8, StatusCannotDestroy},      // border
        {Dynamite, 3, 8, StatusBlastNearWater},
        {Dynamite, 8, 9, StatusBlastUnderStructure},
    });
    // A structure goes as readily as terrain; the explosion brings its sound.
    expectBuilt(Dynamite, 8, 8, StatusDestroying);
    EXPECT_EQ(SoundRequest, SoundRequestIdle);
    EXPECT_EQ(currentLevel.structures[8][8], 0);
    ASSERT_FALSE(explosions.empty());
    EXPECT_EQ(explosions.front().type, BlastType);
    EXPECT_EQ(explosions.front().x, centreX(8));
    // Two cells from water is far enough.
    expectBuilt(Dynamite, 4, 9, StatusDestroying);
    EXPECT_EQ(currentLevel.terrain[4][9], Empty);

    mission.credits = 399;
    expectRefusals({
        {Dynamite, 5, 8, StatusNotEnoughCredits},
        {Dynamite, 6, 8, StatusCannotDestroy},
    });
}

TEST(SimTools, ClicksNeedAToolAndTheBandBetweenThePanels)
{
    loadLevel({"B.....B", "B.....B", "B#####B", "BBBBBBB"});
    resetStatusLine();
    currentLevel.cursorX = 2;
    currentLevel.cursorY = 8;
    applyToolClicks(true, true, 200);
    EXPECT_MESSAGE(statusTarget(), StatusEmpty) << "no tool: neither click says anything";
    currentTool = Girder;
    applyToolClicks(true, false, 40);
    applyToolClicks(true, false, 352);
    EXPECT_EQ(currentLevel.structures[2][8], 0) << "a click on the display panels";
    applyToolClicks(true, false, 41);
    EXPECT_EQ(currentLevel.structures[2][8], Girder);
    applyToolClicks(false, true, 300);
    EXPECT_MESSAGE(statusTarget(), StatusCancelled);
    EXPECT_EQ(currentTool, NoTool);
    // Cells beyond the level are never touched, whatever the tool.
    for (int32_t tool = 0; tool <= 12; tool++) {
        useToolOnCell(tool, -1, 8);
        useToolOnCell(tool, 7, 8);
        useToolOnCell(tool, 3, 11);
        EXPECT_FALSE(toolFitsCell(tool, 99, 99));
    }
    EXPECT_EQ(mission.credits, 5000 - 100);
}

// The toolbar as a player clicks it is the game screen's test; here what
// only a run out of money shows.
TEST(SimTools, OutOfCreditsRefusesToolsButThePodsStillHatch)
{
    //           x: 0123456789
    loadLevel({"B........B", "B.P.P..T.B", "B########B", "BBBBBBBBBB"}, 1000);
    resetStatusLine();
    useToolOnCell(Hatcher, 2, 8);
    useToolOnCell(Hatcher, 4, 8);
    EXPECT_EQ(mission.credits, 0);
    chooseTool(Hatcher);
    applyOutOfCreditsRule();
    EXPECT_TRUE(mission.outOfCredits);
    EXPECT_EQ(currentTool, NoTool) << "the hand is emptied";
    EXPECT_FALSE(toolCanBeChosen(Hatcher));
    pressHatchPods();
    EXPECT_MESSAGE(statusTarget(), StatusHatchingPods);
    EXPECT_EQ(bubblemen.size(), 2u);

    // Debts are wiped, never carried.
    mission.credits = -40;
    applyOutOfCreditsRule();
    EXPECT_EQ(mission.credits, 0);
    EXPECT_TRUE(mission.outOfCredits);
}

TEST(SimTools, StatusLineFadesOnlyBetweenDifferentMessages)
{
    resetStatusLine();
    setStatus(StatusGirderBuilt);
    setStatus(StatusDigging);
    EXPECT_MESSAGE(statusLine.pending, StatusDigging) << "the later request of a frame wins";
    for (int i = 0; i < 40; i++)
        tickStatus();
    EXPECT_MESSAGE(statusLine.current, StatusDigging);
    // The same message again, even as equal text elsewhere, does not restart it.
    setStatus(StatusDigging);
    EXPECT_FALSE(statusLine.changeRequested);
    static const char sameText[] = "Digging...";
    setStatus(sameText);
    EXPECT_TRUE(statusLine.changeRequested);
}
