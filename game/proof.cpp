// Proofs bound to the bytes of the level they prove.
#include "game/proof.h"

#include "app/log.h"
#include "game/driver.h"
#include "game/mission.h"
#include "world/level_warnings.h"

#include <fstream>
#include <sstream>

const char ProofNeedsPodAndRocket[] = "Not a proof: the level needs a pod and a rocket";
const char ProofFailsStrictCheck[] = "Not a proof: levelcheck --strict refuses the level";
const char ProofDoesNotReplay[] = "Not a proof: the run does not replay to a win";

bool readWholeFile(const std::string &path, std::string *text)
{
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream s;
    s << in.rdbuf();
    *text = s.str();
    return !in.bad();
}

std::string solutionPathFor(const std::string &levelPath)
{
    const size_t slash = levelPath.find_last_of('/');
    const size_t dot = levelPath.find_last_of('.');
    const bool hasExtension = dot != std::string::npos && (slash == std::string::npos || dot > slash);
    return (hasExtension ? levelPath.substr(0, dot) : levelPath) + ".solution";
}

bool levelProvenOnDisk(const std::string &levelPath)
{
    std::string level, solution;
    if (!readWholeFile(levelPath, &level) || !readWholeFile(solutionPathFor(levelPath), &solution))
        return false;
    const std::string named = solutionDigest(solution);
    return !named.empty() && named == levelDigest(level);
}

bool runProvesLevel(const std::string &levelText, const std::string &script, const char **why)
{
    *why = ProofDoesNotReplay;
    Solution solution;
    std::string error;
    std::istringstream in(script);
    if (!parseSolution(in, solution, &error) || !loadRunLevelText(levelText, &error)) {
        logLine("# ERROR! # The winning run is no proof: %s", error.c_str());
        return false;
    }
    const std::vector<std::string> warnings = levelWarnings(currentLevel, loadedLevelFacts);
    if (!warnings.empty()) {
        for (const std::string &w : warnings)
            logLine("The winning run is no proof: %s", w.c_str());
        *why = mission.podCount < 1 || mission.rocketCount < 1 ? ProofNeedsPodAndRocket : ProofFailsStrictCheck;
        return false;
    }
    // The rockets are gone long before this after the last action of a
    // winning run; a run that has not won by then never will.
    RunOptions options;
    const int32_t lastStep = solution.actions.empty() ? 0 : solution.actions.back().step;
    options.tickLimit = lastStep + 4000 < options.tickLimit ? lastStep + 4000 : options.tickLimit;
    const RunResult run = runSolution(solution, options);
    // A level the rules call won before anyone flew is no proof of anything.
    const bool proven = run.outcome == RunWon && mission.hatched && mission.podCount >= 1 &&
                        mission.rocketCount >= 1 && mission.rocketsGone == mission.rocketCount;
    if (!proven)
        logLine("The winning run is no proof: its replay is %s", describeRun(run).c_str());
    return proven;
}
