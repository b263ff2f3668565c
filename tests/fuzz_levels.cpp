// Feeds arbitrary bytes to both level readers, as a player's custom level
// might, and checks that a load either fails leaving the level as it was or
// gives a level the rest of the game can rely on: bounded, correctly shaped,
// borders on the ring, only rockets, credits and vortexes in the sky, and
// counters that match the grid. The per-frame upkeep runs on every loaded
// level as the level view would.
#include <allegro.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

#include "game/mission.h"
#include "world/level.h"

namespace {

struct MemoryFile {
    const uint8_t *data;
    size_t size;
    size_t pos;
};

int memClose(void *) { return 0; }
int memGetc(void *user)
{
    MemoryFile *f = static_cast<MemoryFile *>(user);
    return f->pos < f->size ? f->data[f->pos++] : EOF;
}
int memUngetc(int c, void *user)
{
    MemoryFile *f = static_cast<MemoryFile *>(user);
    if (f->pos > 0)
        f->pos--;
    return c;
}
long memRead(void *p, long n, void *user)
{
    MemoryFile *f = static_cast<MemoryFile *>(user);
    long done = 0;
    for (; done < n && f->pos < f->size; done++)
        static_cast<uint8_t *>(p)[done] = f->data[f->pos++];
    return done;
}
int memPutc(int, void *) { return EOF; }
long memWrite(const void *, long, void *) { return 0; }
int memSeek(void *, int) { return -1; }
int memEof(void *user)
{
    MemoryFile *f = static_cast<MemoryFile *>(user);
    return f->pos >= f->size;
}
int memError(void *) { return 0; }

PACKFILE_VTABLE memoryVtable = {memClose, memGetc, memUngetc, memRead, memPutc,
                                memWrite, memSeek, memEof, memError};

void check(bool ok, const char *what)
{
    if (!ok) {
        fprintf(stderr, "level invariant broken: %s\n", what);
        abort();
    }
}

// A level loaded before the fuzzed one: the stream reader keeps its header
// values where the fuzzed text cannot be read.
Level previousLevel()
{
    Level level = Level();
    level.title = "Before";
    level.planet = 2;
    level.width = 12;
    level.height = 9;
    level.terrain.assign(12, std::vector<int32_t>(9, Dirt2));
    level.structures.assign(12, std::vector<int32_t>(9, 0));
    return level;
}

void checkLoaded(const Level &level, const MissionState &state)
{
    check(level.width >= LEVEL_MIN_WIDTH && level.width <= LEVEL_MAX_WIDTH, "width");
    check(level.height >= LEVEL_MIN_HEIGHT && level.height <= LEVEL_MAX_HEIGHT, "height");
    check(level.planet >= LEVEL_MIN_PLANET && level.planet <= LEVEL_MAX_PLANET, "planet");
    check(level.terrain.size() == size_t(level.width), "terrain columns");
    check(level.structures.size() == size_t(level.width), "structure columns");
    check(level.cursorX >= 0 && level.cursorX < level.width, "cursor x");
    check(level.cursorY >= 0 && level.cursorY < level.height, "cursor y");
    int32_t pods = 0, rockets = 0;
    for (int x = 0; x < level.width; x++) {
        check(level.terrain[x].size() == size_t(level.height), "terrain rows");
        check(level.structures[x].size() == size_t(level.height), "structure rows");
        for (int y = 0; y < level.height; y++) {
            const int32_t code = level.terrain[x][y];
            check(level.structures[x][y] == 0, "structures start empty");
            const bool ring = x == 0 || x == level.width - 1 || y == level.height - 1;
            if (y < SKY_ROWS)
                check(code == Empty || isSkyKeep(code), "sky");
            else if (ring)
                check(code == Border, "ring");
            pods += code == Pod;
            rockets += code == Rocket;
        }
    }
    check(state.podCount >= pods, "pods counted");
    check(state.podsWithoutHatcher == state.podCount, "pods without hatcher");
    check(state.rocketCount == rockets, "rockets counted");
}

void checkUnchanged(const Level &level, const Level &before)
{
    check(level.title == before.title && level.planet == before.planet, "header kept");
    check(level.width == before.width && level.height == before.height, "size kept");
    check(level.terrain == before.terrain, "terrain kept");
}

void upkeep(Level &level)
{
    normaliseTerrain(level);
    countEditorPods(level);
    int32_t pods = 0;
    for (int x = 0; x < level.width; x++)
        for (int y = 0; y < level.height; y++) {
            const int32_t code = level.terrain[x][y];
            pods += code == Pod;
            if (code == Water && y + 1 < level.height)
                check(isSupport(level.terrain[x][y + 1]), "water basin");
            if (isNeedsSupport(code) && y + 1 < level.height)
                check(isSupport(level.terrain[x][y + 1]), "support");
        }
    check(editorPodCount == pods, "editor pod count");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    install_allegro(SYSTEM_NONE, &errno, atexit);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const Level before = previousLevel();
    std::string error;

    {
        Level level = before;
        MissionState state = MissionState();
        MemoryFile memory = {data, size, 0};
        PACKFILE *file = pack_fopen_vtable(&memoryVtable, &memory);
        if (!file)
            abort();
        if (parseLevelPackfile(file, level, state, &error)) {
            checkLoaded(level, state);
            upkeep(level);
        } else {
            check(!error.empty(), "pack error message");
            checkUnchanged(level, before);
        }
        pack_fclose(file);
    }

    {
        Level level = before;
        MissionState state = MissionState();
        std::istringstream in(std::string(reinterpret_cast<const char *>(data), size));
        if (parseLevelStream(in, level, state, &error)) {
            checkLoaded(level, state);
            upkeep(level);
        } else {
            check(!error.empty(), "stream error message");
            checkUnchanged(level, before);
        }
    }
    return 0;
}
