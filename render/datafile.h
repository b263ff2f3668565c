// Reading many objects of one Allegro datafile in a single pass over it.
//
// Opening "file.dat#A/B/C" makes Allegro read the datafile from its start and
// step over every object before the one named, anew for each object: with a
// few hundred pictures that walk costs far more than decoding them, and with
// a globally compressed file it decompresses the file again for every one. A
// DataObjectCache walks the file once, keeps the bytes of the objects it was
// asked for, and hands them out by the same nested paths. Names match as
// Allegro matches them: without regard to case, the first object of a name in
// its folder wins.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

struct PACKFILE;

struct DataObjectCache {
    std::string datafile;  // the part of the paths before '#'
    std::unordered_map<std::string, std::vector<unsigned char>> objects;  // upper-case object path -> bytes
};

// Splits "file#OBJECT/PATH" at its last '#'; false when there is none.
bool splitNestedPath(const char *nestedPath, std::string *file, std::string *object);

// Reads the objects named by `nestedPaths`, which must all lie in one
// datafile, in one pass. A missing object, and everything behind a damaged
// part of the file, is simply absent from the cache afterwards.
void fillDataObjectCache(DataObjectCache &cache, const std::vector<std::string> &nestedPaths);

// The bytes of one object, or null when the cache does not hold it.
const std::vector<unsigned char> *findDataObject(const DataObjectCache &cache, const char *nestedPath);

// A read-only PACKFILE over bytes that outlive it, for Allegro's *_pf loaders.
PACKFILE *openMemoryPackfile(const std::vector<unsigned char> &bytes);
