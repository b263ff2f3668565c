// The level writer. Every value goes on a line of its own, so a written level
// reads the same through the line-by-line campaign reader and the
// whitespace-separated custom reader.
#include "world/level_writer.h"

std::string levelText(const Level &level, int32_t credits, const int32_t toolLocked[LOCKABLE_TOOL_COUNT])
{
    // A line break inside the title would shift every number after it.
    std::string title;
    for (char c : level.title)
        title += (c == '\n' || c == '\r') ? ' ' : c;

    std::string text;
    text.reserve(64 + title.size() + (size_t)level.width * level.height * 3);
    text += title + "\n";
    const int32_t header[] = {level.planet, level.missionNumber, level.campaignLevel,
                              level.reserved, credits, level.width, level.height};
    for (int32_t value : header)
        text += std::to_string(value) + "\n";
    for (int i = 0; i < 9; i++)
        text += std::to_string(toolLocked[i]) + "\n";
    for (int x = 0; x < level.width; x++)
        for (int y = 0; y < level.height; y++)
            text += std::to_string(level.terrain[x][y]) + "\n";
    return text;
}
