// Warnings about odd levels, for the level checker. The rules of the game
// accept every one of these levels (a level without pods is won at once, a
// truncated custom file repeats its last cell), which is exactly why a
// designer gets told.
#include "world/level_warnings.h"

LevelFileFacts loadedLevelFacts = {0, 0, 0, 0};

static bool onRing(const Level &level, int x, int y)
{
    return x == 0 || y == 0 || x == level.width - 1 || y == level.height - 1;
}

LevelFileFacts factsOfReadCells(const Level &asRead, int32_t cellsRead)
{
    LevelFileFacts facts = {0, cellsRead, 0, 0};
    facts.cellsExpected = static_cast<int32_t>(asRead.width) * asRead.height;
    for (int x = 0; x < asRead.width; x++)
        for (int y = 0; y < asRead.height; y++) {
            if (asRead.terrain[x][y] != Pod)
                continue;
            if (onRing(asRead, x, y))
                facts.podsOnRing++;
            else if (y < SKY_ROWS)
                facts.podsInSky++;
        }
    return facts;
}

static std::string count(int32_t n, const char *one, const char *many)
{
    return std::to_string(n) + " " + (n == 1 ? one : many);
}

std::vector<std::string> levelWarnings(const Level &level, const LevelFileFacts &facts)
{
    int32_t pods = 0, rockets = 0;
    for (int x = 0; x < level.width; x++)
        for (int y = 0; y < level.height; y++) {
            pods += level.terrain[x][y] == Pod;
            rockets += level.terrain[x][y] == Rocket;
        }

    std::vector<std::string> warnings;
    if (facts.cellsRead < facts.cellsExpected)
        warnings.push_back("the file holds " + std::to_string(facts.cellsRead) + " of its " +
                           std::to_string(level.width) + " x " + std::to_string(level.height) + " = " +
                           std::to_string(facts.cellsExpected) +
                           " cells; the game fills the rest with the last cell read");
    if (facts.podsInSky > 0)
        warnings.push_back(count(facts.podsInSky, "pod", "pods") +
                           " in the sky rows 0 to 6: counted, then cleared, so the level can never be won");
    if (facts.podsOnRing > 0)
        warnings.push_back(count(facts.podsOnRing, "pod", "pods") + " on the border ring: the load replaces them and does not count them");
    if (pods == 0)
        warnings.push_back("no pods: nothing to hatch; launching the empty rockets wins the level");
    if (rockets == 0)
        warnings.push_back("no rockets: the level is won on its first tick");
    return warnings;
}
