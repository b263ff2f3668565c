// Levels drawn as text, the way they look on screen (top row first), for
// every test that builds one, and level files written from them. One
// character a cell, the same in every test:
//   . Empty      # Dirt1      % Dirt2        X Radioactive1  R Rock
//   * Diamond    H HiddenBlock B Border      P Pod           T Rocket
//   ^ Spikes     V Vortex     x Radioactive2 $ Credits       ~ Water
//   1-4 WorldItem1-4          E Explosive
#pragma once

#include "world/level.h"

#include <string>
#include <vector>

// Cell code n is drawn as character n; of three rocks or diamonds, the first.
const char CELL_CHARS[] = ".#%XRRR***HBPT^Vx$~1234E";
static_assert(sizeof CELL_CHARS == CELL_CODE_COUNT + 1, "one character for every cell code");

inline int32_t cellFromChar(char c)
{
    const char *found = c ? std::char_traits<char>::find(CELL_CHARS, CELL_CODE_COUNT, c) : nullptr;
    return found ? (int32_t)(found - CELL_CHARS) : Empty;
}

inline char charFromCell(int32_t code)
{
    return code >= 0 && code < CELL_CODE_COUNT ? CELL_CHARS[code] : '?';
}

inline Level levelFromRows(const std::vector<std::string> &rows, int planet = 1)
{
    Level level = Level();
    level.planet = planet;
    level.height = static_cast<int16_t>(rows.size());
    level.width = static_cast<int16_t>(rows[0].size());
    level.terrain.assign(level.width, std::vector<int32_t>(level.height, Empty));
    level.structures.assign(level.width, std::vector<int32_t>(level.height, 0));
    for (int y = 0; y < level.height; y++)
        for (int x = 0; x < level.width; x++)
            level.terrain[x][y] = cellFromChar(rows[y][x]);
    return level;
}

inline std::vector<std::string> rowsOf(const Level &level)
{
    std::vector<std::string> rows(level.height, std::string(level.width, ' '));
    for (int y = 0; y < level.height; y++)
        for (int x = 0; x < level.width; x++)
            rows[y][x] = charFromCell(level.terrain[x][y]);
    return rows;
}

// A level file: title, planet, mission, campaign flag, reserved, credits,
// width, height, nine tool locks, then the cells column by column.
struct LevelFile {
    std::string title = "Test Level";
    std::string planet = "1";
    std::string missionNumber = "3";
    std::string campaignLevel = "1";
    std::string reserved = "77";
    std::string credits = "1000";
    std::string width, height;
    std::vector<std::string> locks = std::vector<std::string>(9, "0");
    std::vector<std::string> cells;
    std::string lineEnd = "\n";

    explicit LevelFile(const std::vector<std::string> &rows)
    {
        width = std::to_string(rows[0].size());
        height = std::to_string(rows.size());
        for (size_t x = 0; x < rows[0].size(); x++)
            for (size_t y = 0; y < rows.size(); y++)
                cells.push_back(std::to_string(cellFromChar(rows[y][x])));
    }

    std::string text() const
    {
        std::string out = title + lineEnd;
        for (const std::string *s : {&planet, &missionNumber, &campaignLevel, &reserved,
                                     &credits, &width, &height})
            out += *s + lineEnd;
        for (const std::string &s : locks)
            out += s + lineEnd;
        for (const std::string &s : cells)
            out += s + lineEnd;
        return out;
    }
};

// An open 10 x 10 level: sky, a surface of dirt, border round the ground.
inline std::vector<std::string> plainRows()
{
    return {
        "..........",
        "..........",
        "..........",
        "..........",
        "..........",
        "..........",
        "..........",
        "B#######.B",
        "B........B",
        "BBBBBBBBBB",
    };
}
