// Whole levels through the headless driver: winning, losing, the level that
// is over before it starts, the solution format, and that a run repeats
// exactly.
#include "support/sim_levels.h"

#include <sstream>

namespace {

//                      x: 0123456789ABCD
const std::vector<std::string> liftLevel = {"B.........T..B",
                                            "B......######B",
                                            "B......######B",
                                            "BP.$...######B",
                                            "BBBBBBBBBBBBBB"};

const char liftSolution[] =
    "# hatch the pod, build the lift up to the platform, then go\n"
    "1 hatcher 1 10\n"
    "3 lift 6 10\n"
    "5 lift 6 9   # stacked\n"
    "7 lift 6 8\n"
    "9 right-exit 6 7\n"
    "\n"
    "11 hatch\n"
    "600 launch\n";

bool parseFails(const std::string &text, const std::string &expected)
{
    Solution solution;
    std::istringstream in(text);
    std::string error;
    const bool parsed = parseSolution(in, solution, &error);
    EXPECT_NE(error.find(expected), std::string::npos) << "error: " << error;
    return !parsed;
}

} // namespace

TEST(SimDriver, WinsWithEveryoneAboardAndLosesOnOneDeath)
{
    loadLevel(liftLevel, 2000);
    RunResult won = run(liftSolution, 5000);
    EXPECT_EQ(won.outcome, RunWon) << describeRun(won);
    EXPECT_EQ(won.savedCount, 1);
    EXPECT_EQ(won.credits, 2000 - 1800 + 500);
    // Pressed at step 600, heard by the tick of step 601; the rocket climbs
    // from y 208 to -200.
    EXPECT_EQ(won.ticks, 601 + 204 + 1);
    EXPECT_EQ(describeRun(won), "won after 806 ticks with 700 credits left");

    // Two pods: one walks into the rocket, the other off a ledge onto spikes.
    //           x: 0123456789
    loadLevel({"B........B",
               "BP.T.P...B",
               "B###.####B",
               "B###^####B",
               "BBBBBBBBBB"});
    RunResult lost = run("1 hatcher 1 8\n3 hatcher 5 8\n5 hatch\n", 2000);
    EXPECT_EQ(lost.outcome, RunLost) << describeRun(lost);
    EXPECT_EQ(lost.savedCount, 1) << "the other boarded before his fall ended";
    EXPECT_LT(lost.ticks, 200);
}

TEST(SimDriver, RunsRepeatExactly)
{
    // Chains, a pick-up, a lift and boarding sounds that draw random numbers.
    std::vector<std::string> level = liftLevel;
    level[1] = "B.X....######B";
    level[2] = "B.XX...######B";
    std::string solution = liftSolution;
    // Put down before the launch: the Launch button lies over the level, and
    // a press on it with dynamite in hand would blast the cell beneath.
    solution.replace(solution.find("600 launch"), 0, "300 dynamite 3 9\n302 cancel\n");
    RunResult first, second;
    for (RunResult *result : {&first, &second}) {
        loadLevel(level, 3000);
        *result = run(solution, 700, true);
    }
    EXPECT_EQ(first.outcome, RunUnfinished);
    EXPECT_EQ(first.credits, 3000 - 1800 - 400 + 500);
    EXPECT_EQ(first.terrain[2][8], Empty) << "the chain ran";
    EXPECT_EQ(first.terrain[10][7], Empty) << "the rocket is on its way";
    EXPECT_EQ(first.ticks, second.ticks);
    EXPECT_EQ(first.credits, second.credits);
    EXPECT_TRUE(first.terrain == second.terrain);
    EXPECT_TRUE(first.structures == second.structures);
    ASSERT_EQ(first.bubblemen.size(), second.bubblemen.size());
    for (size_t i = 0; i < first.bubblemen.size(); i++) {
        EXPECT_EQ(first.bubblemen[i].x, second.bubblemen[i].x);
        EXPECT_EQ(first.bubblemen[i].y, second.bubblemen[i].y);
        EXPECT_EQ(first.bubblemen[i].heading, second.bubblemen[i].heading);
    }
    ASSERT_EQ(first.notes.size(), second.notes.size());
    for (size_t i = 0; i < first.notes.size(); i++)
        EXPECT_EQ(first.notes[i].text, second.notes[i].text);
    EXPECT_EQ(first.terrain.size(), currentLevel.terrain.size());
}

TEST(SimDriver, ActionsGoThroughTheToolbarAsAPlayersWould)
{
    loadLevel(liftLevel, 600, {0, 0, 0, 1, 0, 0, 0, 0, 0});
    RunResult result = run("1 hatcher 1 10\n"
                           "3 lift 6 10      # locked: the click goes unheard\n"
                           "5 click 6 10     # the hatcher is still in hand\n"
                           "7 girder 6 10    # spends the last credits\n"
                           "9 hatch          # still works without credits\n"
                           "10 tool hatcher  # refused\n"
                           "12 cancel\n",
                           40);
    const std::vector<std::string> expected = {
        "Place Hatcher Over Pod",
        "Hatcher built",
        "(the tool is locked in this level)",
        "You Must Build Hatchers Over The Pods...",
        "You Must Build Hatchers Over The Pods...",
        "Place Girder",
        "Out Of Credits!",  // built, and then nothing is left
        "Hatching Pods...",
        "Out Of Credits!",
        "Out Of Credits!",  // nothing in hand: a right click says nothing
    };
    ASSERT_EQ(result.notes.size(), expected.size());
    for (size_t i = 0; i < expected.size(); i++)
        EXPECT_EQ(result.notes[i].text, expected[i]) << "note " << i;
    EXPECT_EQ(result.notes[2].line, 2);
    EXPECT_EQ(result.notes[2].step, 3);
    EXPECT_EQ(result.credits, 0);
    EXPECT_EQ(currentLevel.structures[6][10], Girder);
    EXPECT_EQ(bubblemen.size(), 1u);

    // A click beyond the level stops the run with the script's line.
    loadLevel(liftLevel);
    RunResult outside = run("1 girder 14 3\n", 10);
    EXPECT_EQ(outside.outcome, RunError);
    EXPECT_NE(outside.error.find("line 1"), std::string::npos) << outside.error;
}

TEST(SimDriver, SolutionTextIsCheckedLineByLine)
{
    Solution solution = script("  # nothing but a comment\n"
                               "10 Girder 3 4\n"
                               "12\tLAUNCH # shouting is fine\n"
                               "20 click 0 0\n");
    ASSERT_EQ(solution.actions.size(), 4u);
    EXPECT_EQ(solution.actions[0].kind, ChooseToolAction);
    EXPECT_EQ(solution.actions[0].tool, Girder);
    EXPECT_EQ(solution.actions[1].kind, ClickCellAction);
    EXPECT_EQ(solution.actions[1].step, 11);
    EXPECT_EQ(solution.actions[1].x, 3);
    EXPECT_EQ(solution.actions[1].y, 4);
    EXPECT_EQ(solution.actions[2].kind, LaunchAction);
    EXPECT_EQ(solution.actions[3].line, 4);

    EXPECT_TRUE(parseFails("10 girder 3 4\n11 hatch\n", "line 2: step 11"));
    EXPECT_TRUE(parseFails("5 hatch\n5 launch\n", "line 2"));
    EXPECT_TRUE(parseFails("-3 hatch\n", "line 1"));
    EXPECT_TRUE(parseFails("99999999999999999999 hatch\n", "line 1"));
    EXPECT_TRUE(parseFails("\n\n7\n", "line 3"));
    EXPECT_TRUE(parseFails("7 fly 3 4\n", "unknown action"));
    EXPECT_TRUE(parseFails("7 girder 3\n", "cell"));
    EXPECT_TRUE(parseFails("7 girder 3 4 5\n", "cell"));
    EXPECT_TRUE(parseFails("7 girder -3 4\n", "cell"));
    EXPECT_TRUE(parseFails("7 tool spoon\n", "tool"));
    EXPECT_TRUE(parseFails("7 hatch 3 4\n", "takes no cell"));
}

TEST(SimDriver, ThePointerReachesOnlyWhatAPlayersCould)
{
    // A tall level: with the view at its top, rows 0 and 1 lie behind the
    // toolbar, so no click can reach them; row 2 shows its lowest pixels.
    std::vector<std::string> tall(30, "B............B");
    tall.back() = "BBBBBBBBBBBBBB";
    tall[10][1] = 'P';
    tall[20][9] = 'T';
    loadLevel(tall);
    RunResult behind = run("1 girder 5 1\n", 10);
    EXPECT_EQ(behind.outcome, RunError);
    EXPECT_NE(behind.error.find("behind the display panels"), std::string::npos) << behind.error;
    loadLevel(tall);
    RunResult below = run("1 girder 5 2\n3 girder 6 35\n", 10);
    EXPECT_NE(below.outcome, RunError) << below.error;
    ASSERT_GE(below.notes.size(), 2u);
    EXPECT_EQ(below.notes[1].text, StatusNeedsFooting) << "reached, and refused: nothing under it";
    EXPECT_EQ(currentLevel.structures[6][35], Girder) << "the bottom row above the border is in reach";

    // Launch is heard by the tick after its press, and the press falls on the
    // level under the button too: with the shovel in hand it digs there.
    loadLevel({"B......B", "B.....TB", "B######B", "BBBBBBBB"});
    const int32_t credits = mission.credits;
    RunResult launched = run("1 tool shovel\n80 launch\n", 400);
    EXPECT_EQ(launched.outcome, RunWon) << describeRun(launched);
    EXPECT_EQ(launched.credits, credits - 200) << "the dig under the Launch button was paid for";
    ASSERT_EQ(launched.notes.size(), 2u);
    EXPECT_EQ(launched.notes[1].text, "Launching All Rockets!");
}
