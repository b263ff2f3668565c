// The first three missions of the campaign, as the built datafile holds them,
// against the instructions the game writes over them: each panel must lie
// over open cells (terrain is drawn after the panel and would hide its
// words), the tools each text sends the player to must be offered, and no
// other mission may borrow a tutorial title and show a panel that does not
// belong to it.
#include "game/driver.h"
#include "game/toolbar.h"
#include "game/mission.h"
#include "game/tutorial.h"
#include "world/level.h"

#include <allegro.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

std::string datafile()
{
    const char *dir = std::getenv("DELVEMOOR_GAME_DIR");
    return std::string(dir ? dir : ".") + "/DATA/DATA.DAT";
}

class TutorialMissions : public ::testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_EQ(install_allegro(SYSTEM_NONE, &errno, nullptr), 0); }

    static void load(const char *name)
    {
        std::string error;
        ASSERT_TRUE(loadRunLevelPack(datafile().c_str(), name, &error)) << name << ": " << error;
    }

    // Cells the panel covers with more than an edge, whose code is not Empty.
    static std::string cellsUnderPanel()
    {
        float left, right, bottom, top;
        if (!tutorialPanelArea(currentLevel.title, &left, &right, &bottom, &top))
            return "no panel for \"" + currentLevel.title + "\"";
        std::string hidden;
        // cell (x, y) is drawn centred at (32x, -32y) from the view origin
        for (int x = 0; x < currentLevel.width; x++) {
            for (int y = 0; y < currentLevel.height; y++) {
                const bool under = 32 * x + 16 > left && 32 * x - 16 < right && -32 * y + 16 > bottom &&
                                   -32 * y - 16 < top;
                if (under && currentLevel.terrain[x][y] != Empty)
                    hidden += " (" + std::to_string(x) + "," + std::to_string(y) + ")";
            }
        }
        return hidden;
    }

    static bool offered(ToolId tool) { return !toolIsLocked(tool); }
};

TEST_F(TutorialMissions, EachPanelLiesOverOpenCellsAndItsToolsAreOffered)
{
    load("P1M01_LEV");
    EXPECT_EQ(currentLevel.title, "Intro");
    EXPECT_EQ(cellsUnderPanel(), "");
    // "build it over the pod located in the lower righthand corner": the
    // hatcher alone, and the pod in the lower right quarter
    for (ToolId t : {Girder, LeftHangingGirder, RightHangingGirder, EnergyLift, LeftLiftExit, RightLiftExit,
                     Blocker, Shovel, Dynamite})
        EXPECT_FALSE(offered(t)) << "Intro offers tool " << t;
    ASSERT_EQ(mission.podCount, 1);
    for (int x = 0; x < currentLevel.width; x++)
        for (int y = 0; y < currentLevel.height; y++)
            if (currentLevel.terrain[x][y] == Pod) {
                EXPECT_GT(x, currentLevel.width / 2) << "the pod is not on the right";
                EXPECT_GT(y, currentLevel.height / 2) << "the pod is not low down";
            }

    load("P1M02_LEV");
    EXPECT_EQ(currentLevel.title, "More Tools");
    EXPECT_EQ(cellsUnderPanel(), "");
    EXPECT_TRUE(offered(RightHangingGirder));
    EXPECT_TRUE(offered(EnergyLift));

    load("P1M03_LEV");
    EXPECT_EQ(currentLevel.title, "See Double");
    EXPECT_EQ(cellsUnderPanel(), "");
    EXPECT_TRUE(offered(Shovel));
    EXPECT_TRUE(offered(Dynamite));
    EXPECT_EQ(mission.podCount, 2);
}

TEST_F(TutorialMissions, NoLaterMissionBorrowsATutorialTitle)
{
    char name[16];
    for (int planet = 1; planet <= 4; planet++) {
        for (int m = 1; m <= 15; m++) {
            if (planet == 1 && m <= 3)
                continue;
            std::snprintf(name, sizeof name, "P%dM%02d_LEV", planet, m);
            load(name);
            EXPECT_FALSE(hasTutorial(currentLevel.title)) << name << " is titled \"" << currentLevel.title << "\"";
        }
    }
}

// A tutorial's text played as a player reading it would: its steps, in its
// order, on the cells its words point at, then "Hatch Pods" and "Launch"
// pressed until the rockets are gone. The text is fixed, so the map must
// make it work as written.
class TutorialPlay {
public:
    void use(int32_t tool, int x, int y)
    {
        add(ScriptAction{step, ChooseToolAction, tool, 0, 0, 0});
        add(ScriptAction{step, ClickCellAction, 0, x, y, 0});
    }

    // Every pod gets its hatcher first: each text builds on the one before.
    void hatchers()
    {
        for (const std::pair<int, int> &c : cellsOf(Pod))
            use(Hatcher, c.first, c.second);
    }

    // "Hatch Pods", then "Launch" as fast as the button answers.
    RunResult hatchAndLaunch()
    {
        add(ScriptAction{step, CancelAction, 0, 0, 0, 0});
        add(ScriptAction{step, HatchPodsAction, 0, 0, 0, 0});
        // the button hears a click only after a step with the mouse up
        for (int i = 0; i < 1500; i++) {
            add(ScriptAction{step, LaunchAction, 0, 0, 0, 0});
            step++;
        }
        RunOptions options;
        options.tickLimit = step;
        return runSolution(solution, options);
    }

    static std::vector<std::pair<int, int>> cellsOf(int32_t code)
    {
        std::vector<std::pair<int, int>> out;
        for (int x = 0; x < currentLevel.width; x++)
            for (int y = 0; y < currentLevel.height; y++)
                if (currentLevel.terrain[x][y] == code)
                    out.push_back(std::make_pair(x, y));
        return out;
    }

private:
    void add(const ScriptAction &a)
    {
        solution.actions.push_back(a);
        solution.actions.back().step = step++;
    }

    Solution solution;
    int32_t step = 1;
};

bool isRock(int32_t code)
{
    return code == Rock1 || code == Rock2 || code == Rock3;
}

TEST_F(TutorialMissions, EachTextPlayedAsWrittenWinsItsMission)
{
    // Intro: the hatcher over the pod, "Hatch Pods", "Launch".
    load("P1M01_LEV");
    TutorialPlay intro;
    intro.hatchers();
    EXPECT_EQ(intro.hatchAndLaunch().outcome, RunWon) << "Intro";

    // More Tools: a right hanging girder on the side of each of the two
    // cliffs leading down to the rocket, a lift under the rocket.
    load("P1M02_LEV");
    TutorialPlay moreTools;
    moreTools.hatchers();
    moreTools.use(RightHangingGirder, 9, 13);
    moreTools.use(RightHangingGirder, 18, 15);
    ASSERT_EQ(TutorialPlay::cellsOf(Rocket).size(), 1u);
    const std::pair<int, int> rocket = TutorialPlay::cellsOf(Rocket)[0];
    moreTools.use(EnergyLift, rocket.first, rocket.second + 1);
    EXPECT_EQ(moreTools.hatchAndLaunch().outcome, RunWon) << "More Tools";

    // See Double: the left bubbleman's pit takes the girder of the last
    // mission. On the right: blast the crates, dig a tunnel down where they
    // stood, blast the rocks just before the exit.
    load("P1M03_LEV");
    TutorialPlay seeDouble;
    seeDouble.hatchers();
    seeDouble.use(RightHangingGirder, 6, 15);
    const std::vector<std::pair<int, int>> crates = TutorialPlay::cellsOf(WorldItem2);
    ASSERT_EQ(crates.size(), 2u);
    for (const std::pair<int, int> &c : crates)
        seeDouble.use(Dynamite, c.first, c.second);
    std::vector<std::pair<int, int>> tunnel;
    for (const std::pair<int, int> &c : crates)
        for (int y = c.second + 1; currentLevel.terrain[c.first][y] == Dirt1 || currentLevel.terrain[c.first][y] == Dirt2;
             y++)
            tunnel.push_back(std::make_pair(c.first, y));
    ASSERT_FALSE(tunnel.empty()) << "no dirt to dig under the crates";
    for (const std::pair<int, int> &c : tunnel)
        seeDouble.use(Shovel, c.first, c.second);
    const std::pair<int, int> foot = tunnel.back();
    int rocks = 0;
    for (int dx = -1; dx <= 1; dx += 2)
        if (isRock(currentLevel.terrain[foot.first + dx][foot.second])) {
            seeDouble.use(Dynamite, foot.first + dx, foot.second);
            rocks++;
        }
    EXPECT_GT(rocks, 0) << "no rock at the tunnel's foot";
    EXPECT_EQ(seeDouble.hatchAndLaunch().outcome, RunWon) << "See Double";
}

} // namespace
