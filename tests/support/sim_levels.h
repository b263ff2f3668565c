// Small levels for the simulation tests, drawn as in level_grid.h, and the
// driver calls the tests share.
#pragma once

#include "game/mission.h"
#include "game/status.h"
#include "sim/bubblemen.h"
#include "game/driver.h"
#include "world/level.h"
#include "level_grid.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

// The level file text: the header, then the cells column by column. Only the
// rows below the sky are given; the seven sky rows above them are empty.
inline std::string levelText(const std::vector<std::string> &ground, int credits = 5000,
                             const std::vector<int> &locks = std::vector<int>(9, 0))
{
    for (const std::string &row : ground)
        EXPECT_EQ(row.size(), ground.at(0).size()) << "a ragged level: " << row;
    std::vector<std::string> rows(SKY_ROWS, std::string(ground.at(0).size(), '.'));
    rows.insert(rows.end(), ground.begin(), ground.end());
    std::ostringstream out;
    out << "Test level\n1\n1\n0\n0\n" << credits << "\n" << rows[0].size() << "\n" << rows.size() << "\n";
    for (int lock : locks)
        out << lock << "\n";
    for (size_t x = 0; x < rows[0].size(); x++)
        for (const std::string &row : rows)
            out << cellFromChar(row.at(x)) << "\n";
    return out.str();
}

inline void loadLevel(const std::vector<std::string> &ground, int credits = 5000,
                      const std::vector<int> &locks = std::vector<int>(9, 0))
{
    std::string error;
    ASSERT_TRUE(loadRunLevelText(levelText(ground, credits, locks), &error)) << error;
}

inline Solution script(const std::string &text)
{
    Solution solution;
    std::istringstream in(text);
    std::string error;
    EXPECT_TRUE(parseSolution(in, solution, &error)) << error;
    return solution;
}

inline RunResult run(const std::string &text, int tickLimit, bool keepState = false)
{
    RunOptions options;
    options.tickLimit = tickLimit;
    options.keepFinalState = keepState;
    return runSolution(script(text), options);
}

// Steps the loaded level from `first` to `last` without actions.
inline void idle(int first, int last)
{
    RunResult ignored;
    for (int step = first; step <= last; step++)
        runStep(step, nullptr, ignored);
}

// Messages are compared as the game compares them, by identity, but shown
// as text when they differ.
#define EXPECT_MESSAGE(actual, expected)                                                          \
    EXPECT_TRUE((actual) == (expected)) << "shows \"" << (actual) << "\" instead of \""           \
                                        << (expected) << "\""

// The world position of a cell's centre, as bubblemen stand on it.
inline float centreX(int x) { return 32.0f * x + 16; }
inline float centreY(int y) { return 32.0f * y - 16; }
