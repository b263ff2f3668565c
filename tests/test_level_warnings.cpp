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

    // Each odd level: one or two cells changed, and the one warning it gets.
    // A pod in the sky is counted and then cleared: the level keeps its other
    // pod, so only the sky is named. The ring below the sky and the corners
    // of the sky rows are both ring.
    const struct {
        int row1, column1;
        char code1;
        int row2, column2;  // row2 -1: one cell only
        char code2;
        const char *warning;
    } cases[] = {
        {8, 3, '#', -1, 0, 0, "no pods"},
        {6, 5, '.', -1, 0, 0, "no rockets"},
        {3, 4, 'P', 2, 6, 'P', "2 pods in the sky rows"},
        {8, 0, 'P', 0, 9, 'P', "2 pods on the border ring"},
    };
    for (const auto &c : cases) {
        std::vector<std::string> rows = soundRows();
        rows[c.row1][c.column1] = c.code1;
        if (c.row2 >= 0)
            rows[c.row2][c.column2] = c.code2;
        const std::vector<std::string> w = warningsFor(LevelFile(rows).text());
        ASSERT_EQ(w.size(), 1u) << c.warning;
        EXPECT_TRUE(mentions(w, c.warning)) << w[0];
    }
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
