#include "render/datafile.h"

#include <allegro.h>

#include <cctype>
#include <cstring>
#include <unordered_set>

// Deeper nesting than this is a damaged or hostile file, not our data.
static const int MAX_FOLDER_DEPTH = 16;
// No property of ours comes near this; a larger size means a damaged file.
static const long MAX_PROPERTY_SIZE = 1 << 16;

static std::string upperCase(std::string text)
{
    for (char &c : text)
        c = (char)toupper((unsigned char)c);
    return text;
}

bool splitNestedPath(const char *nestedPath, std::string *file, std::string *object)
{
    const char *hash = strrchr(nestedPath, '#');
    if (!hash)
        return false;
    file->assign(nestedPath, hash - nestedPath);
    object->assign(upperCase(hash + 1));
    return true;
}

struct CacheWalk {
    DataObjectCache &cache;
    std::unordered_set<std::string> wanted;
    std::unordered_set<std::string> seenFolders;
};

// Exactly the object's own length, as Allegro's datafile loader reads it: a
// packed chunk read on to its end can yield bytes past the object. Read in
// blocks, so a damaged length cannot claim memory the file does not fill.
static bool readChunkBytes(PACKFILE *chunk, std::vector<unsigned char> &bytes)
{
    long size = chunk->normal.todo;
    if (size < 0)
        return false;
    const long BLOCK = 1 << 16;
    bytes.clear();
    while ((long)bytes.size() < size) {
        long want = size - (long)bytes.size() < BLOCK ? size - (long)bytes.size() : BLOCK;
        size_t at = bytes.size();
        bytes.resize(at + (size_t)want);
        if (pack_fread(bytes.data() + at, want, chunk) != want)
            return false;
    }
    return true;
}

// The properties in front of an object: its name, and then its type.
static bool readObjectHeader(PACKFILE *f, std::string &name, long &type)
{
    name.clear();
    for (;;) {
        type = pack_mgetl(f);
        if (pack_feof(f) || pack_ferror(f))
            return false;
        if (type != DAT_PROPERTY)
            return true;
        long propertyType = pack_mgetl(f);
        long size = pack_mgetl(f);
        if (size < 0 || size > MAX_PROPERTY_SIZE)
            return false;
        std::string value((size_t)size, '\0');
        if (size > 0 && pack_fread(&value[0], size, f) != size)
            return false;
        if (propertyType == DAT_NAME)
            name = value;
    }
}

// Walks the objects of one (nested) datafile whose object count comes next.
static bool walkObjects(PACKFILE *f, const std::string &prefix, int depth, CacheWalk &walk)
{
    long count = pack_mgetl(f);
    if (pack_ferror(f) || count < 0)
        return false;
    for (long i = 0; i < count && !walk.wanted.empty(); i++) {
        std::string name;
        long type;
        if (!readObjectHeader(f, name, type))
            return false;
        PACKFILE *chunk = pack_fopen_chunk(f, FALSE);
        if (!chunk)
            return false;
        std::string path = prefix + upperCase(name);
        bool ok = true;
        if (type == DAT_FILE) {
            // A second folder of the same name is never reached by a path.
            if (depth < MAX_FOLDER_DEPTH && !name.empty() && walk.seenFolders.insert(path).second)
                ok = walkObjects(chunk, path + "/", depth + 1, walk);
        } else if (walk.wanted.count(path)) {
            std::vector<unsigned char> &bytes = walk.cache.objects[path];
            ok = readChunkBytes(chunk, bytes);
            walk.wanted.erase(path);
            if (!ok)
                walk.cache.objects.erase(path);
        }
        pack_fclose_chunk(chunk);
        if (!ok || pack_ferror(f))
            return false;
    }
    return true;
}

void fillDataObjectCache(DataObjectCache &cache, const std::vector<std::string> &nestedPaths)
{
    CacheWalk walk{cache, {}, {}};
    for (const std::string &nested : nestedPaths) {
        std::string file, object;
        if (!splitNestedPath(nested.c_str(), &file, &object))
            continue;
        if (cache.datafile.empty())
            cache.datafile = file;
        if (file == cache.datafile && !cache.objects.count(object))
            walk.wanted.insert(object);
    }
    if (walk.wanted.empty())
        return;

    PACKFILE *f = pack_fopen(cache.datafile.c_str(), F_READ_PACKED);
    if (!f)
        return;
    if (pack_mgetl(f) == DAT_MAGIC)
        walkObjects(f, "", 0, walk);
    pack_fclose(f);
}

const std::vector<unsigned char> *findDataObject(const DataObjectCache &cache, const char *nestedPath)
{
    std::string file, object;
    if (!splitNestedPath(nestedPath, &file, &object) || file != cache.datafile)
        return nullptr;
    auto found = cache.objects.find(object);
    return found == cache.objects.end() ? nullptr : &found->second;
}

// The memory packfile: Allegro's loaders only ever read, step forward and
// put back the byte they just read.
struct MemoryFile {
    const unsigned char *data;
    long size;
    long pos;
};

static int memoryClose(void *userdata)
{
    delete (MemoryFile *)userdata;
    return 0;
}

static int memoryGetc(void *userdata)
{
    MemoryFile *m = (MemoryFile *)userdata;
    return m->pos < m->size ? m->data[m->pos++] : EOF;
}

static int memoryUngetc(int c, void *userdata)
{
    MemoryFile *m = (MemoryFile *)userdata;
    if (m->pos == 0 || c == EOF)
        return EOF;
    m->pos--;
    return c;
}

static long memoryRead(void *p, long n, void *userdata)
{
    MemoryFile *m = (MemoryFile *)userdata;
    long left = m->size - m->pos;
    if (n > left)
        n = left;
    if (n <= 0)
        return 0;
    memcpy(p, m->data + m->pos, (size_t)n);
    m->pos += n;
    return n;
}

static int memoryPutc(int, void *)
{
    return EOF;
}

static long memoryWrite(const void *, long, void *)
{
    return 0;
}

static int memorySeek(void *userdata, int offset)
{
    MemoryFile *m = (MemoryFile *)userdata;
    if (offset < 0)
        return -1;
    m->pos = offset > m->size - m->pos ? m->size : m->pos + offset;
    return 0;
}

static int memoryEof(void *userdata)
{
    MemoryFile *m = (MemoryFile *)userdata;
    return m->pos >= m->size;
}

static int memoryError(void *)
{
    return 0;
}

static const PACKFILE_VTABLE memoryVtable = {
    memoryClose, memoryGetc, memoryUngetc, memoryRead, memoryPutc,
    memoryWrite, memorySeek, memoryEof, memoryError,
};

PACKFILE *openMemoryPackfile(const std::vector<unsigned char> &bytes)
{
    MemoryFile *m = new MemoryFile{bytes.data(), (long)bytes.size(), 0};
    PACKFILE *f = pack_fopen_vtable(&memoryVtable, m);
    if (!f)
        delete m;
    return f;
}
