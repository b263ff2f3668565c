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

} // namespace
