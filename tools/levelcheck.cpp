// levelcheck: plays a level from its solution, headless, and says in one line
// whether the solution wins it. Exit status 0 only for a win, 1 for a loss or
// a run that does not finish, 2 when the level or the solution cannot be read.
// A level that loads but is odd (no pods, no rockets, pods where the load
// clears them, cells missing) gets a warning line; --strict makes each an
// error, so a campaign build cannot ship one by accident. A solution that
// names the digest of the level it was won on (the editor's proofs do) is
// refused for any other version of the level file.
//
//   levelcheck <level file or LEVELS name> <solution file> [--datafile path]
//              [--ticks n] [--seed n] [--notes] [--grids] [--strict]
#include "game/driver.h"
#include "game/proof.h"
#include "world/level_warnings.h"

#include <allegro.h>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <sys/stat.h>
#include <vector>

#ifndef LEVELCHECK_DATAFILE
#define LEVELCHECK_DATAFILE "DATA/DATA.DAT"
#endif

namespace {

struct Arguments {
    const char *level = nullptr;
    const char *solution = nullptr;
    const char *datafile = LEVELCHECK_DATAFILE;
    long ticks = 20000;
    long seed = 1;
    bool notes = false;
    bool grids = false;
    bool strict = false;
};

// The same bound as a solution's steps: far beyond any level, and the run's
// step counter can never wrap.
const long MAX_TICKS = 100000000;

void usage()
{
    std::fprintf(stderr,
                 "usage: levelcheck <level file or LEVELS name> <solution file> [--datafile path]\n"
                 "                  [--ticks n] [--seed n] [--notes] [--grids] [--strict]\n");
}

bool readNumber(const char *text, long lo, long hi, long *value)
{
    errno = 0;
    char *end = nullptr;
    const long v = std::strtol(text, &end, 10);
    if (errno != 0 || end == text || *end != '\0' || v < lo || v > hi)
        return false;
    *value = v;
    return true;
}

bool parseArguments(int argc, char **argv, Arguments &args)
{
    for (int i = 1; i < argc; i++) {
        const char *a = argv[i];
        const bool hasValue = i + 1 < argc;
        if (std::strcmp(a, "--datafile") == 0 && hasValue) {
            args.datafile = argv[++i];
        } else if (std::strcmp(a, "--ticks") == 0 && hasValue) {
            if (!readNumber(argv[++i], 1, MAX_TICKS, &args.ticks))
                return false;
        } else if (std::strcmp(a, "--seed") == 0 && hasValue) {
            if (!readNumber(argv[++i], 0, UINT_MAX, &args.seed))
                return false;
        } else if (std::strcmp(a, "--notes") == 0) {
            args.notes = true;
        } else if (std::strcmp(a, "--grids") == 0) {
            args.grids = true;
        } else if (std::strcmp(a, "--strict") == 0) {
            args.strict = true;
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

bool isFile(const char *path)
{
    struct stat st;
    return stat(path, &st) == 0 && S_ISREG(st.st_mode);
}

// A campaign level is read from the datafile through Allegro's packed files,
// which need the library but no display, keyboard or sound.
bool loadLevel(const Arguments &args, std::string *error)
{
    if (isFile(args.level))
        return loadRunLevelFile(args.level, error);
    if (install_allegro(SYSTEM_NONE, &errno, atexit) != 0) {
        *error = "Allegro could not start";
        return false;
    }
    if (!isFile(args.datafile)) {
        *error = std::string("no level file ") + args.level + ", and no datafile " + args.datafile;
        return false;
    }
    return loadRunLevelPack(args.datafile, args.level, error);
}

void printGrid(const char *name, const TerrainGrid &grid)
{
    std::printf("%s:\n", name);
    const size_t height = grid.empty() ? 0 : grid[0].size();
    for (size_t y = 0; y < height; y++) {
        for (size_t x = 0; x < grid.size(); x++)
            std::printf("%s%2d", x ? " " : "", grid[x][y]);
        std::printf("\n");
    }
}

void printDetails(const Arguments &args, const RunResult &result)
{
    if (args.notes)
        for (const ActionNote &n : result.notes)
            std::printf("step %d (line %d): %s\n", n.step, n.line, n.text.c_str());
    if (!args.grids)
        return;
    printGrid("terrain", result.terrain);
    printGrid("structures", result.structures);
    std::printf("bubblemen: %zu\n", result.bubblemen.size());
    for (const BubblemanState &b : result.bubblemen)
        std::printf("  at (%g, %g) motion %d heading %d%s%s%s%s\n", b.x, b.y, b.motion, b.heading,
                    b.entering ? " entering" : "", b.emerging ? " emerging" : "", b.sucked ? " sucked" : "",
                    b.dying ? " dying" : "");
}

// The run may well win another version of the level too; it is still no
// proof of this one, which is what the player was told it proves.
bool solutionNamesThisLevel(const Arguments &args)
{
    std::string solutionText, levelBytes;
    if (!readWholeFile(args.solution, &solutionText))
        return true;
    const std::string named = solutionDigest(solutionText);
    if (named.empty() || !isFile(args.level) || !readWholeFile(args.level, &levelBytes))
        return true;
    const std::string actual = levelDigest(levelBytes);
    if (named == actual)
        return true;
    std::printf("%s: error: the solution was won on another version of this level (digest %s, the file's is %s)\n",
                args.level, named.c_str(), actual.c_str());
    return false;
}

} // namespace

int main(int argc, char **argv)
{
    Arguments args;
    if (!parseArguments(argc, argv, args)) {
        usage();
        return 2;
    }
    std::string error;
    Solution solution;
    if (!loadSolutionFile(args.solution, solution, &error)) {
        std::printf("%s: error: %s\n", args.level, error.c_str());
        return 2;
    }
    if (!loadLevel(args, &error)) {
        std::printf("%s: error: %s\n", args.level, error.c_str());
        return 2;
    }
    if (!solutionNamesThisLevel(args))
        return 1;
    const std::vector<std::string> warnings = levelWarnings(currentLevel, loadedLevelFacts);
    for (const std::string &w : warnings)
        std::printf("%s: %s: %s\n", args.level, args.strict ? "error" : "warning", w.c_str());
    if (args.strict && !warnings.empty())
        return 2;
    RunOptions options;
    options.tickLimit = static_cast<int32_t>(args.ticks);
    options.seed = static_cast<uint32_t>(args.seed);
    options.keepFinalState = args.grids;
    const RunResult result = runSolution(solution, options);
    std::printf("%s: %s\n", args.level, describeRun(result).c_str());
    printDetails(args, result);
    if (result.outcome == RunError)
        return 2;
    return result.outcome == RunWon ? 0 : 1;
}
END_OF_MAIN()
