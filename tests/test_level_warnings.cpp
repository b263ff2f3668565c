// The checker's warnings: every odd level a designer could ship by accident
// is named, through the real loaders, and a sound level gets none.
#include <gtest/gtest.h>

#include <sstream>

#include "game/mission.h"
#include "support/level_grid.h"
#include "world/level_warnings.h"

namespace {

// The open test level with a pod in the ground and a rocket on the surface.
std::vector<std::string> soundRows()
{
    std::vector<std::string> rows = plainRows();
    rows[6][5] = 'T';
    rows[8][3] = 'P';
    return rows;
}

std::vector<std::string> warningsFor(const std::string &text)
{
    std::istringstream in(text);
    Level level = Level();
    MissionState state = MissionState();
    std::string error;
    EXPECT_TRUE(parseLevelStream(in, level, state, &error)) << error;
    return levelWarnings(level, loadedLevelFacts);
}

bool mentions(const std::vector<std::string> &warnings, const std::string &text)
{
    for (const std::string &w : warnings)
        if (w.find(text) != std::string::npos)
            return true;
    return false;
}

} // namespace

TEST(LevelWarnings, OddLevelsAreNamedAndSoundOnesPass)
{
    EXPECT_TRUE(warningsFor(LevelFile(soundRows()).text()).empty());

    std::vector<std::string> rows = soundRows();
    rows[8][3] = '#';
    std::vector<std::string> w = warningsFor(LevelFile(rows).text());
    ASSERT_EQ(w.size(), 1u);
    EXPECT_TRUE(mentions(w, "no pods"));

    rows = soundRows();
    rows[6][5] = '.';
    w = warningsFor(LevelFile(rows).text());
    ASSERT_EQ(w.size(), 1u);
    EXPECT_TRUE(mentions(w, "no rockets"));

    // A pod in the sky is counted and then cleared: the level keeps its
    // other pod, so only the sky is named.
    rows = soundRows();
    rows[3][4] = 'P';
    rows[2][6] = 'P';
    w = warningsFor(LevelFile(rows).text());
    ASSERT_EQ(w.size(), 1u);
    EXPECT_TRUE(mentions(w, "2 pods in the sky rows")) << w[0];

    // The ring below the sky and the corners of the sky rows are both ring.
    rows = soundRows();
    rows[8][0] = 'P';
    rows[0][9] = 'P';
    w = warningsFor(LevelFile(rows).text());
    ASSERT_EQ(w.size(), 1u);
    EXPECT_TRUE(mentions(w, "2 pods on the border ring")) << w[0];
}

TEST(LevelWarnings, ACutFileSaysHowManyCellsItHeld)
{
    LevelFile file(soundRows());
    const size_t total = file.cells.size();
    // Cut before the rocket's column: the rest repeats the last sky cell.
    file.cells.resize(total / 2 - 3);
    std::vector<std::string> w = warningsFor(file.text());
    EXPECT_TRUE(mentions(w, "the file holds " + std::to_string(total / 2 - 3) + " of its 10 x " +
                                std::to_string(total / 10) + " = " + std::to_string(total) + " cells"))
        << (w.empty() ? "no warning" : w[0]);

    // A number that stops the reading counts as the end of the cells too.
    LevelFile damaged(soundRows());
    damaged.cells[total - 5] = "x";
    w = warningsFor(damaged.text());
    EXPECT_TRUE(mentions(w, "holds " + std::to_string(total - 5) + " of"));
}
