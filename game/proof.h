// What makes a winning run a proof of a level, and how a proof names the
// level it proves: the digest of the level file's bytes in a header line of
// the solution text. A level edited after its proof was won (in the editor,
// in a text editor, or by a crash between saving the level and its proof)
// no longer matches, and nobody is told it is proven.
#pragma once

#include "game/solution.h"

#include <string>

// Reads a whole file; false when it cannot be read.
bool readWholeFile(const std::string &path, std::string *text);

// The proof beside a level file: "x.level" has "x.solution".
std::string solutionPathFor(const std::string &levelPath);

// True when the solution beside the level file names exactly the file's
// bytes. The run itself was checked when the proof was written; levelcheck
// replays it.
bool levelProvenOnDisk(const std::string &levelPath);

// The strict rule for a proof, run headless on the level text: the level
// passes levelcheck's strict check (a pod and a rocket among the rest), and
// the script wins it with its pods hatched and every rocket launched. Runs
// the driver, so it leaves currentLevel, the mission and the screen state to
// the caller to put back. On false, *why says what failed in a few words
// (short enough for the status line), and the log has the details.
bool runProvesLevel(const std::string &levelText, const std::string &script, const char **why);

extern const char ProofNeedsPodAndRocket[];
extern const char ProofFailsStrictCheck[];
extern const char ProofDoesNotReplay[];
