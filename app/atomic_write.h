// Putting a file the game writes on disk so that a crash mid-write loses
// nothing: the old file or the new one survives whole, never half of either.
#pragma once

#include <cstdint>
#include <string>

// Why a write failed, so the player can be told in words.
enum WriteFailure : int32_t {
    WriteOk = 0,
    WriteReadOnly = 1,      // the folder or the file may not be written
    WriteDiskFull = 2,      // no space (or quota) left
    WriteOtherError = 3,
    WriteExists = 4,        // a file of that name is there and was not to be replaced
};

// Writes text to path through a temporary file in the same folder, flushed to
// disk and then renamed over path: readers see the old file or the new one,
// never half of either. Without replaceExisting the finished file takes
// path only if no file has it (WriteExists otherwise), tested and taken in
// one step. On failure the temporary file is removed, path is untouched, and
// *detail (if given) says what the system reported.
WriteFailure writeFileAtomically(const std::string &path, const std::string &text,
                                 bool replaceExisting, std::string *detail);

// The rename that puts a finished file in place of the old one; a test puts
// a failing one here to stand for a crash between two saves.
extern int (*renameWrittenFile)(const char *from, const char *to);
