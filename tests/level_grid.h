// Small helpers the level tests share: a grid drawn as text, and a level file
// written from a grid.
#pragma once

#include <string>
#include <vector>

#include "world/level.h"

// Rows of text, top row first; one character per cell:
//   . Empty  d Dirt1  D Dirt2  r Radioactive1  R Radioactive2  k Rock1
//   B Border  P Pod  T Rocket  ^ Spikes  V Vortex  $ Credits  ~ Water
//   1..4 WorldItem1..4  X Explosive  H HiddenBlock  * Diamond1
inline int32_t cellFromChar(char c)
{
    switch (c) {
    case 'd': return Dirt1;
    case 'D': return Dirt2;
    case 'r': return Radioactive1;
    case 'R': return Radioactive2;
    case 'k': return Rock1;
    case 'B': return Border;
    case 'P': return Pod;
    case 'T': return Rocket;
    case '^': return Spikes;
    case 'V': return Vortex;
    case '$': return Credits;
    case '~': return Water;
    case '1': return WorldItem1;
    case '2': return WorldItem2;
    case '3': return WorldItem3;
    case '4': return WorldItem4;
    case 'X': return Explosive;
    case 'H': return HiddenBlock;
    case '*': return Diamond1;
    default: return Empty;
    }
}

inline char charFromCell(int32_t code)
{
    const char *chars = ".dDrkkk***HBPT^VR$~1234X";
    if (code < 0 || code > Explosive)
        return '?';
    if (code == Rock2 || code == Rock3)
        return 'k';
    return chars[code];
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
        "Bddddddd.B",
        "B........B",
        "BBBBBBBBBB",
    };
}
