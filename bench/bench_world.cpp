// The level view scans the whole grid twice every frame (pod count and
// normalisation), so their cost on the largest level a loader accepts bounds
// the frame time the terrain upkeep can take.
#include <benchmark/benchmark.h>

#include "world/level.h"

namespace {

// A busy level: dirt and rock, water pools, items, pods and a few odd codes,
// so every rule of the upkeep has work to check.
Level makeLevel(int width, int height)
{
    Level level = Level();
    level.planet = 1;
    level.width = static_cast<int16_t>(width);
    level.height = static_cast<int16_t>(height);
    level.terrain.assign(width, std::vector<int32_t>(height, Empty));
    level.structures.assign(width, std::vector<int32_t>(height, 0));
    const int32_t pattern[] = {Dirt1, Dirt2, Rock1, Water, Water, Empty, Pod,
                               Spikes, WorldItem3, Radioactive2, Empty, Diamond2, Credits};
    const int patternSize = sizeof pattern / sizeof pattern[0];
    for (int x = 0; x < width; x++)
        for (int y = SKY_ROWS; y < height; y++)
            level.terrain[x][y] = pattern[(x * 7 + y * 3) % patternSize];
    normaliseTerrain(level);
    return level;
}

void upkeep(benchmark::State &state, int width, int height)
{
    Level level = makeLevel(width, height);
    for (auto _ : state) {
        countEditorPods(level);
        normaliseTerrain(level);
        benchmark::DoNotOptimize(editorPodCount);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(state.iterations() * int64_t(width) * height);
}

void BM_UpkeepStandardLevel(benchmark::State &state) { upkeep(state, 30, 20); }
void BM_UpkeepLargestLevel(benchmark::State &state)
{
    upkeep(state, LEVEL_MAX_WIDTH, LEVEL_MAX_HEIGHT);
}

} // namespace

BENCHMARK(BM_UpkeepStandardLevel);
BENCHMARK(BM_UpkeepLargestLevel);
