// shortcut_search: plays a level again and again from variations of its
// shipped solution, looking for a win that leaves more credits than the
// solution does. A mission whose intended idea is not its cheapest way is a
// mission a player can skip; this finds the skip before a player does.
//
//   shortcut_search <level file> <solution file> [--seconds s] [--runs n]
//                   [--seed n] [--out file] [--fail-above credits] [--quiet]
//
// The variations are what a player trying to save credits would try:
// dropping an action, doing it with a cheaper structure or with the shovel
// or dynamite, doing it one cell over, doing it earlier or later, and adding
// a few actions near the bubblemen's paths, also starting from nothing but
// the hatchers. Every run is the game's own, through the headless driver; a
// route is only reported once a full run of its written script, launch and
// all, has won.
//
// It prints one line, "<level>: shipped N credits left, best found M (+D)",
// then the best script. --fail-above makes it exit 1 when the best beats the
// shipped solution by more than that many credits.
#include "game/driver.h"
#include "game/launchpanel.h"
#include "game/mission.h"
#include "game/proof.h"
#include "game/solution.h"
#include "game/toolbar.h"
#include "sim/bubblemen.h"
#include "sim/toolinfo.h"
#include "world/level.h"

#include <allegro.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

// One thing the player does before every bubbleman is aboard: a tool put
// to a cell, or "Hatch Pods" (tool 0). A move takes its step and the next.
struct Move {
    int32_t step;
    int32_t tool;
    int32_t x, y;
};

typedef std::vector<Move> Plan;

struct Outcome {
    bool won = false;       // every bubbleman aboard: the launch cannot fail after that
    int32_t credits = 0;
    int32_t saved = 0;      // aboard when the run ended
    int32_t boardedAt = 0;  // the step on which the last one boarded
};

struct Arguments {
    const char *level = nullptr;
    const char *solution = nullptr;
    const char *out = nullptr;
    double seconds = 10;
    long runs = 0;          // 0: no limit but the time
    long seed = 1;
    long failAbove = -1;
    bool quiet = false;
};

std::string levelText;
int32_t stepLimit = 4000;
std::set<std::pair<int32_t, int32_t>> pathCells;
std::vector<int32_t> offeredTools;
long runCount = 0;

// How long the bubblemen may all stand still, with nothing left for the
// player to do, before the run is given up as stuck.
const int32_t STILL_STEPS = 160;

bool loadLevel()
{
    std::string error;
    if (!loadRunLevelText(levelText, &error)) {
        std::fprintf(stderr, "shortcut_search: %s\n", error.c_str());
        return false;
    }
    return true;
}

// The plan as the driver's actions, each move at its step or, when an
// earlier move still holds the mouse, as soon after as it can be.
std::vector<ScriptAction> actionsOf(const Plan &plan)
{
    std::vector<ScriptAction> out;
    int32_t free = 1;
    for (const Move &m : plan) {
        const int32_t step = std::max(m.step, free);
        if (m.tool == 0) {
            out.push_back(ScriptAction{step, HatchPodsAction, 0, 0, 0, 0});
            free = step + 1;
        } else {
            out.push_back(ScriptAction{step, ChooseToolAction, m.tool, 0, 0, 0});
            out.push_back(ScriptAction{step + 1, ClickCellAction, 0, m.x, m.y, 0});
            free = step + 2;
        }
    }
    return out;
}

// Plays the plan until every bubbleman is aboard, one is lost, or nothing
// can change any more. Paths, when asked for, collect the cells the
// bubblemen pass through.
Outcome play(const Plan &plan, std::set<std::pair<int32_t, int32_t>> *paths = nullptr)
{
    Outcome o;
    runCount++;
    if (!loadLevel())
        return o;
    const std::vector<ScriptAction> actions = actionsOf(plan);
    beginRun(1);
    RunResult result;
    size_t next = 0;
    std::vector<std::pair<float, float>> last;
    int32_t stillFor = 0;
    for (int32_t step = 1; step <= stepLimit; step++) {
        const ScriptAction *action = nullptr;
        if (next < actions.size() && actions[next].step == step)
            action = &actions[next++];
        const int32_t outcome = runStep(step, action, result);
        o.saved = mission.savedCount;
        o.credits = mission.credits;
        if (outcome != RunUnfinished || mission.bubblemanLost)
            return o;
        if (mission.hatched && mission.savedCount == mission.podCount) {
            o.won = true;
            o.credits = mission.credits;
            o.boardedAt = step;
            return o;
        }
        if (!mission.hatched)
            continue;
        std::vector<std::pair<float, float>> now;
        for (const Bubbleman &b : bubblemen) {
            now.push_back(std::make_pair(b.x, b.y));
            if (paths)
                paths->insert(std::make_pair(static_cast<int32_t>(b.x) / 32,
                                             (static_cast<int32_t>(b.y) + 32) / 32));
        }
        stillFor = now == last ? stillFor + 1 : 0;
        last.swap(now);
        if (stillFor >= STILL_STEPS && next >= actions.size())
            return o;
    }
    return o;
}

// The script a player would write for the plan: the moves, the tool put
// down so the launch click cannot use it, and "Launch" as soon as the
// button is on the screen.
std::string scriptOf(const Plan &plan, const Outcome &o)
{
    std::vector<ScriptAction> written;
    for (const ScriptAction &a : actionsOf(plan))
        if (a.step <= o.boardedAt)
            written.push_back(a);
    // the panel starts in on the tick after the last boarding and its button
    // is reachable 14 ticks later; find the step the way the game does
    int32_t launch = o.boardedAt + 2;
    loadLevel();
    beginRun(1);
    RunResult result;
    const std::vector<ScriptAction> actions = actionsOf(plan);
    size_t next = 0;
    for (int32_t step = 1; step <= o.boardedAt + 200; step++) {
        const ScriptAction *action = nullptr;
        if (next < actions.size() && actions[next].step == step)
            action = &actions[next++];
        runStep(step, action, result);
        if (step > o.boardedAt + 1 && launchButtonReachable()) {
            launch = step + 1;
            break;
        }
    }
    written.push_back(ScriptAction{o.boardedAt + 1, CancelAction, 0, 0, 0, 0});
    written.push_back(ScriptAction{launch, LaunchAction, 0, 0, 0, 0});
    std::ostringstream out;
    writeSolution(written, out);
    return out.str();
}

bool verify(const std::string &script, int32_t *credits)
{
    std::istringstream in(script);
    Solution solution;
    std::string error;
    if (!parseSolution(in, solution, &error) || !loadLevel())
        return false;
    RunOptions options;
    options.tickLimit = stepLimit + 400;
    const RunResult r = runSolution(solution, options);
    *credits = r.credits;
    return r.outcome == RunWon;
}

// The shipped script as moves: a tool's button and the click after it make
// one move; a click with the tool still in hand is a move with that tool.
Plan planOf(const Solution &solution)
{
    Plan plan;
    int32_t tool = NoTool;
    for (const ScriptAction &a : solution.actions) {
        if (a.kind == ChooseToolAction) {
            tool = a.tool;
        } else if (a.kind == CancelAction) {
            tool = NoTool;
        } else if (a.kind == ClickCellAction && tool != NoTool) {
            plan.push_back(Move{a.step - 1, tool, a.x, a.y});
        } else if (a.kind == HatchPodsAction) {
            plan.push_back(Move{a.step, 0, 0, 0});
        }
    }
    return plan;
}

int32_t hatchStep(const Plan &plan)
{
    for (const Move &m : plan)
        if (m.tool == 0)
            return m.step;
    return 1;
}

void sortPlan(Plan &plan)
{
    std::stable_sort(plan.begin(), plan.end(), [](const Move &a, const Move &b) { return a.step < b.step; });
}

// Which moves a variation may touch: not the hatchers, which have one
// place each, and not "Hatch Pods" itself.
std::vector<size_t> mutableMoves(const Plan &plan)
{
    std::vector<size_t> out;
    for (size_t i = 0; i < plan.size(); i++)
        if (plan[i].tool != 0 && plan[i].tool != Hatcher)
            out.push_back(i);
    return out;
}

struct Search {
    std::mt19937 rng;
    Plan best;
    Outcome bestOutcome;
    Plan shipped;
    int32_t boardedAt = 0;
    std::chrono::steady_clock::time_point deadline;
    long runLimit = 0;

    bool timeLeft() const
    {
        return std::chrono::steady_clock::now() < deadline && (runLimit == 0 || runCount < runLimit);
    }

    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng); }

    // Takes the plan when it wins with more credits, or as many with fewer
    // moves; the plan is kept sorted by step.
    bool offer(Plan plan)
    {
        sortPlan(plan);
        const Outcome o = play(plan);
        if (!o.won)
            return false;
        if (o.credits > bestOutcome.credits ||
            (o.credits == bestOutcome.credits && plan.size() < best.size())) {
            best = plan;
            bestOutcome = o;
            return true;
        }
        return false;
    }

    // Every single change of one move: gone, another tool, one cell over.
    // Starts again from the top whenever one pays.
    void neighbourhood()
    {
        bool better = true;
        while (better && timeLeft()) {
            better = false;
            const Plan base = best;
            for (size_t i : mutableMoves(base)) {
                Plan p = base;
                p.erase(p.begin() + static_cast<long>(i));
                if ((better = offer(p)))
                    break;
                for (int32_t t : offeredTools) {
                    if (t == base[i].tool || toolCost(t) > toolCost(base[i].tool) || !timeLeft())
                        continue;
                    p = base;
                    p[i].tool = t;
                    if ((better = offer(p)))
                        break;
                }
                if (better)
                    break;
                for (int dx = -1; dx <= 1 && !better; dx++)
                    for (int dy = -1; dy <= 1 && !better; dy++) {
                        if ((dx == 0 && dy == 0) || !timeLeft())
                            continue;
                        p = base;
                        p[i].x += dx;
                        p[i].y += dy;
                        better = inside(p[i]) && offer(p);
                    }
                if (better || !timeLeft())
                    break;
            }
            if (better)
                continue;
            const bool canDig = std::find(offeredTools.begin(), offeredTools.end(), Shovel) != offeredTools.end();
            for (size_t i : mutableMoves(base)) {
                for (int dx = -4; dx <= 4 && !better && timeLeft(); dx++)
                    for (int dig = 0; dig <= (canDig ? 1 : 0) && !better; dig++) {
                        Plan p = base;
                        if ((dx != 0 || dig) && shifted(p, i, dx, 0, dig != 0))
                            better = offer(p);
                    }
                if (better || !timeLeft())
                    break;
            }
        }
    }

    // The moves that make one thing with move i: those touching it, and
    // those touching them (a hole dug two deep, a lift and its exit).
    std::vector<size_t> cluster(const Plan &p, size_t i) const
    {
        std::vector<size_t> in(1, i);
        for (size_t k = 0; k < in.size(); k++)
            for (size_t j : mutableMoves(p))
                if (std::find(in.begin(), in.end(), j) == in.end() && std::abs(p[j].x - p[in[k]].x) <= 1 &&
                    std::abs(p[j].y - p[in[k]].y) <= 1)
                    in.push_back(j);
        return in;
    }

    // The cluster moved along by (dx, dy), and, when asked, dug with the
    // shovel throughout: the same way down, opened somewhere else.
    bool shifted(Plan &p, size_t i, int32_t dx, int32_t dy, bool dig) const
    {
        for (size_t j : cluster(p, i)) {
            p[j].x += dx;
            p[j].y += dy;
            if (dig)
                p[j].tool = Shovel;
            if (!inside(p[j]))
                return false;
        }
        return true;
    }

    bool inside(const Move &m) const
    {
        return m.x >= 1 && m.y >= 7 && m.x < currentLevel.width - 1 && m.y < currentLevel.height - 1;
    }

    int32_t randomTool()
    {
        return offeredTools[static_cast<size_t>(pick(static_cast<int>(offeredTools.size())))];
    }

    Move randomMove(int32_t latest)
    {
        std::vector<std::pair<int32_t, int32_t>> cells(pathCells.begin(), pathCells.end());
        const std::pair<int32_t, int32_t> c = cells[static_cast<size_t>(pick(static_cast<int>(cells.size())))];
        Move m;
        m.x = c.first + pick(5) - 2;
        m.y = c.second + pick(5) - 2;
        m.tool = randomTool();
        m.step = 1 + pick(std::max(1, latest));
        return m;
    }

    void mutate(Plan &p)
    {
        const int changes = 1 + pick(4);
        for (int c = 0; c < changes; c++) {
            const std::vector<size_t> moves = mutableMoves(p);
            const int kind = moves.empty() ? 4 : pick(8);
            const size_t i = moves.empty() ? 0 : moves[static_cast<size_t>(pick(static_cast<int>(moves.size())))];
            switch (kind) {
            case 0:
                p.erase(p.begin() + static_cast<long>(i));
                break;
            case 1:
                p[i].tool = randomTool();
                break;
            case 2:
                p[i].x += pick(3) - 1;
                p[i].y += pick(3) - 1;
                if (!inside(p[i]))
                    p.erase(p.begin() + static_cast<long>(i));
                break;
            case 3: {
                const int32_t shifts[] = {-80, -20, -5, -1, 1, 5, 20, 80};
                p[i].step = std::max(1, p[i].step + shifts[pick(8)]);
                break;
            }
            case 5:
                for (Move &m : p)
                    if (m.tool == 0)
                        m.step = std::max(1, m.step + (pick(2) ? 1 : -1) * (1 + pick(60)));
                break;
            case 6:
                if (!shifted(p, i, pick(9) - 4, pick(3) - 1, pick(2) != 0))
                    p.erase(p.begin() + static_cast<long>(i));
                break;
            case 7:
                // the same idea a few cells along: another tool, elsewhere
                p[i].x += pick(7) - 3;
                p[i].y += pick(5) - 2;
                if (pick(2))
                    p[i].tool = randomTool();
                if (!inside(p[i]))
                    p.erase(p.begin() + static_cast<long>(i));
                break;
            default:
                if (!pathCells.empty() && !offeredTools.empty())
                    p.push_back(randomMove(boardedAt));
                break;
            }
            sortPlan(p);
        }
    }

    // Nothing but the hatchers and "Hatch Pods", as a player starting
    // afresh would, with a few moves added near the paths.
    Plan fresh()
    {
        Plan p;
        int32_t step = 1;
        for (const Move &m : shipped)
            if (m.tool == Hatcher) {
                p.push_back(Move{step, Hatcher, m.x, m.y});
                step += 2;
            }
        const int32_t hatch = step + pick(std::max(1, hatchStep(shipped)));
        p.push_back(Move{hatch, 0, 0, 0});
        const int extra = pick(6);
        for (int i = 0; i < extra && !pathCells.empty() && !offeredTools.empty(); i++)
            p.push_back(randomMove(boardedAt));
        sortPlan(p);
        return p;
    }

    // A wander that may pass through plans that lose: a shortcut often
    // needs two or three changes together, each of which alone strands a
    // bubbleman. A plan is worth its bubblemen aboard first, then its credits.
    static double worth(const Outcome &o)
    {
        return (o.won ? 1e7 : 0) + 1e4 * o.saved + o.credits;
    }

    void randomPhase()
    {
        Plan walker = best;
        double walkerWorth = worth(bestOutcome);
        long sinceBetter = 0;
        while (timeLeft()) {
            const int from = pick(8);
            Plan p = from == 0 ? fresh() : from == 1 ? shipped : from == 2 ? best : walker;
            mutate(p);
            sortPlan(p);
            const Outcome o = play(p);
            if (o.won && (o.credits > bestOutcome.credits ||
                          (o.credits == bestOutcome.credits && p.size() < best.size()))) {
                best = p;
                bestOutcome = o;
                neighbourhood();
                walker = best;
                walkerWorth = worth(bestOutcome);
                sinceBetter = 0;
                continue;
            }
            // a worse plan is taken now and then, less the longer it is
            const double w = worth(o);
            if (w >= walkerWorth || std::uniform_real_distribution<double>(0, 1)(rng) < 0.05) {
                walker = p;
                walkerWorth = w;
            }
            if (++sinceBetter % 400 == 0) {
                walker = best;
                walkerWorth = worth(bestOutcome);
            }
        }
    }
};

bool readNumber(const char *text, double lo, double hi, double *value)
{
    char *end = nullptr;
    const double v = std::strtod(text, &end);
    if (end == text || *end != '\0' || !(v >= lo && v <= hi))
        return false;
    *value = v;
    return true;
}

bool parseArguments(int argc, char **argv, Arguments &args)
{
    for (int i = 1; i < argc; i++) {
        const char *a = argv[i];
        const bool hasValue = i + 1 < argc;
        double v = 0;
        if (std::strcmp(a, "--seconds") == 0 && hasValue) {
            if (!readNumber(argv[++i], 0, 1e6, &args.seconds))
                return false;
        } else if (std::strcmp(a, "--runs") == 0 && hasValue) {
            if (!readNumber(argv[++i], 0, 1e9, &v))
                return false;
            args.runs = static_cast<long>(v);
        } else if (std::strcmp(a, "--seed") == 0 && hasValue) {
            if (!readNumber(argv[++i], 0, 4e9, &v))
                return false;
            args.seed = static_cast<long>(v);
        } else if (std::strcmp(a, "--fail-above") == 0 && hasValue) {
            if (!readNumber(argv[++i], 0, 1e9, &v))
                return false;
            args.failAbove = static_cast<long>(v);
        } else if (std::strcmp(a, "--out") == 0 && hasValue) {
            args.out = argv[++i];
        } else if (std::strcmp(a, "--quiet") == 0) {
            args.quiet = true;
        } else if (a[0] == '-' && a[1] == '-') {
            return false;
        } else if (!args.level) {
            args.level = a;
        } else if (!args.solution) {
            args.solution = a;
        } else {
            return false;
        }
    }
    return args.level && args.solution;
}

} // namespace

int main(int argc, char **argv)
{
    Arguments args;
    if (!parseArguments(argc, argv, args)) {
        std::fprintf(stderr, "usage: shortcut_search <level file> <solution file> [--seconds s] [--runs n]\n"
                             "                       [--seed n] [--out file] [--fail-above credits] [--quiet]\n");
        return 2;
    }
    std::string error;
    Solution solution;
    if (!readWholeFile(args.level, &levelText)) {
        std::printf("%s: error: cannot read the level\n", args.level);
        return 2;
    }
    if (!loadSolutionFile(args.solution, solution, &error) || !loadLevel()) {
        std::printf("%s: error: %s\n", args.level, error.c_str());
        return 2;
    }
    for (int32_t t = Girder; t <= Dynamite; t++)
        if (t != Hatcher && !toolIsLocked(t))
            offeredTools.push_back(t);

    // The shipped solution as it stands, launch and all, and then as moves.
    RunOptions options;
    const RunResult shippedRun = runSolution(solution, options);
    if (shippedRun.outcome != RunWon) {
        std::printf("%s: error: the solution does not win it (%s)\n", args.level, describeRun(shippedRun).c_str());
        return 2;
    }
    Search search;
    search.rng.seed(static_cast<uint32_t>(args.seed));
    search.shipped = planOf(solution);
    stepLimit = shippedRun.ticks + 400;
    const Outcome shippedOutcome = play(search.shipped, &pathCells);
    if (!shippedOutcome.won) {
        std::printf("%s: error: the solution's moves do not bring every bubbleman aboard\n", args.level);
        return 2;
    }
    // Routes that take much longer than the shipped one are still routes,
    // but a stuck run must not cost a long wait.
    stepLimit = std::max(shippedOutcome.boardedAt * 2, shippedOutcome.boardedAt + 600);
    search.boardedAt = shippedOutcome.boardedAt;
    search.best = search.shipped;
    search.bestOutcome = shippedOutcome;
    search.runLimit = args.runs;
    search.deadline = std::chrono::steady_clock::now() +
                      std::chrono::milliseconds(static_cast<long>(args.seconds * 1000));

    search.neighbourhood();
    search.randomPhase();

    // Only a route whose written script wins in a full run is reported.
    std::string script = scriptOf(search.best, search.bestOutcome);
    int32_t credits = 0;
    if (!verify(script, &credits)) {
        script = scriptOf(search.shipped, shippedOutcome);
        verify(script, &credits);
    }
    const long gain = static_cast<long>(credits) - shippedRun.credits;
    std::printf("%s: shipped %d credits left, best found %d (%+ld) in %ld runs\n", args.level, shippedRun.credits,
                credits, gain, runCount);
    if (!args.quiet)
        std::printf("%s", script.c_str());
    if (args.out) {
        std::ofstream f(args.out);
        f << "# found by shortcut_search: " << credits << " credits left\n" << script;
        if (!f) {
            std::printf("%s: error: cannot write %s\n", args.level, args.out);
            return 2;
        }
    }
    return args.failAbove >= 0 && gain > args.failAbove ? 1 : 0;
}
END_OF_MAIN()
