// One step of the simulation (the logic tick and the frame's terrain upkeep,
// as the headless driver runs them) on the largest level the loader accepts
// and on an ordinary 30 x 20 level, each with nine bubblemen walking and a
// dozen explosions going off. The budget is 25 ms a tick.
#include <benchmark/benchmark.h>

#include "game/mission.h"
#include "sim/bubblemen.h"
#include "game/driver.h"
#include "sim/explosions.h"
#include "world/level.h"

#include <sstream>
#include <string>

namespace {

const int WALKED_FLOOR_LAST = 15;       // rows 9, 12 and 15
const int FIRST_EXPLOSION_ROW = 17;     // below every walked floor

// Floors every three rows: solid under the bubblemen's first three floors,
// below them a crust of dirt, rock and radioactive seams with water pools.
// One rocket, so the level is not over.
std::string crustLevel(int width, int height)
{
    std::ostringstream out;
    out << "Bench\n1\n1\n0\n0\n100000\n" << width << "\n" << height << "\n";
    for (int i = 0; i < 9; i++)
        out << "0\n";
    for (int x = 0; x < width; x++)
        for (int y = 0; y < height; y++) {
            int code = Empty;
            if (y >= SKY_ROWS && y % 3 == 0 && y <= WALKED_FLOOR_LAST) {
                code = Rock1;
            } else if (y > WALKED_FLOOR_LAST && y % 3 == 0) {
                const int pick = (x * 7 + y * 13) % 11;
                code = pick < 5 ? Dirt1 : pick < 8 ? Rock1 : pick < 9 ? Radioactive1 : pick < 10 ? Water : Dirt2;
            }
            if (x == width / 2 && y == SKY_ROWS - 1)
                code = Rocket;
            out << code << "\n";
        }
    return out.str();
}

void setUpLevel(benchmark::State &state, int width, int height)
{
    std::string error;
    if (!loadRunLevelText(crustLevel(width, height), &error)) {
        state.SkipWithError(error.c_str());
        return;
    }
    beginRun(1);
    // Nine bubblemen on the first three floors, already out of their hatchers.
    for (int i = 0; i < 9; i++) {
        spawnBubbleman(32.0f * (3 + 4 * (i % 3)) + 16, 32.0f * (8 + 3 * (i / 3)) - 16);
        bubblemen.front().emerging = false;
    }
}

// Keeps a dozen explosions going below the walked floors, half of them chain
// explosions that clear the ground around them.
void topUpExplosions(int width, int height, int &next)
{
    while (explosions.size() < 12) {
        const int x = 1 + (next * 5) % (width - 2);
        const int y = FIRST_EXPLOSION_ROW + (next * 3) % (height - FIRST_EXPLOSION_ROW - 1);
        spawnExplosion(32.0f * x + 16, 32.0f * y - 16, next % 2 ? BlastExplosion : RadioactiveExplosion);
        next++;
    }
}

void runSteps(benchmark::State &state, int width, int height)
{
    setUpLevel(state, width, height);
    RunResult result;
    int step = 1, next = 0;
    for (auto _ : state) {
        topUpExplosions(width, height, next);
        runStep(step++, nullptr, result);
        benchmark::DoNotOptimize(currentLevel.terrain.data());
    }
    state.counters["bubblemen"] = static_cast<double>(bubblemen.size());
    state.counters["explosions"] = static_cast<double>(explosions.size());
}

void BM_StepLargestLevel(benchmark::State &state)
{
    runSteps(state, LEVEL_MAX_WIDTH, LEVEL_MAX_HEIGHT);
}

void BM_StepOrdinaryLevel(benchmark::State &state)
{
    runSteps(state, 30, 20);
}

} // namespace

BENCHMARK(BM_StepLargestLevel)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_StepOrdinaryLevel)->Unit(benchmark::kMicrosecond);
