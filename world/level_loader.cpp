// The two level loaders. Campaign levels are read through Allegro's packed
// files (they live inside DATA/DATA.DAT) a line at a time; custom levels
// through an ordinary file stream, whose number extraction differs: values may
// be split by any white space, and a number it cannot read stops the reading
// without a word instead of failing the load.
//
// Custom levels come from players, so whatever a file holds the load stays
// inside the grids and allocates at most the bounded grid sizes of level.h.
#include <allegro.h>

#include <cmath>
#include <cstdarg>
#include <cstring>
#include <fstream>
#include <istream>
#include <limits>
#include <memory>
#include <vector>

#include "app/config.h"
#include "app/log.h"
#include "game/mission.h"
#include "render/textures.h"
#include "world/level.h"
#include "world/level_warnings.h"

namespace {

// A line never holds more than this (the packed reader's zero-filled buffer,
// less its terminator); the stream reader keeps a title to the same length.
const int LINE_BUFFER_SIZE = 10000;
const size_t MAX_TITLE_LENGTH = LINE_BUFFER_SIZE - 1;
// Enough of a bad line to recognise it in the log.
const size_t MAX_QUOTED_LENGTH = 60;

void setError(std::string *error, const std::string &text)
{
    if (error)
        *error = text;
}

// Numbers are truncated toward zero; values beyond 32 bits (and NaN, which
// the conversion can produce from text such as "nan") saturate instead of
// being undefined.
int32_t truncateToInt32(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= 2147483647.0)
        return std::numeric_limits<int32_t>::max();
    if (value <= -2147483648.0)
        return std::numeric_limits<int32_t>::min();
    return static_cast<int32_t>(value);
}

// A bad line goes into the log, so keep it short and printable.
std::string quoteForLog(const std::string &text)
{
    std::string out;
    for (size_t i = 0; i < text.size() && i < MAX_QUOTED_LENGTH; i++) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        out += (c >= 32 && c < 127) ? static_cast<char>(c) : '?';
    }
    if (text.size() > MAX_QUOTED_LENGTH)
        out += "...";
    return out;
}

// The header as both loaders read it; width and height stay 32-bit until
// they have passed the bounds, so a value beyond 16 bits is refused rather
// than wrapped into a small one.
struct LevelHeader {
    std::string title;
    int32_t planet;
    int32_t missionNumber;
    int32_t campaignLevel;
    int32_t reserved;
    int32_t credits;
    int32_t width;
    int32_t height;
    int32_t toolLocked[LOCKABLE_TOOL_COUNT];
};

// The header fields in file order, for naming the one the stream reader
// stopped at.
enum HeaderField {
    TitleField, PlanetField, MissionField, CampaignField, ReservedField, CreditsField,
    WidthField, HeightField, LockField, NoField,
};
const char *const headerFieldNames[] = {
    "title", "planet", "mission number", "campaign flag", "reserved number", "credits",
    "width", "height", "tool lock",
};

// Where the stream reader stopped: the first field it could not read and the
// text the file held there (empty at the end of the file).
struct StreamStop {
    HeaderField field = NoField;
    std::string text;
};

// A field the stream reader never read still holds an older value, and
// naming that value would send the designer looking for a number the file
// does not hold: the message names what the file does hold.
std::string unreadFieldProblem(HeaderField checked, const StreamStop &stop, const std::string &range)
{
    const std::string name = headerFieldNames[checked];
    if (stop.text.empty())
        return std::string("the file ends before the ") + headerFieldNames[stop.field];
    if (stop.field == checked)
        return name + " \"" + stop.text + "\" is not a number from " + range;
    return std::string("the ") + headerFieldNames[stop.field] + " \"" + stop.text +
           "\" is not a number, so the " + name + " was never read";
}

bool checkHeader(const LevelHeader &header, std::string *error, const StreamStop &stop = StreamStop())
{
    struct Bound {
        HeaderField field;
        int32_t value, lo, hi;
    };
    const Bound bounds[] = {
        {PlanetField, header.planet, LEVEL_MIN_PLANET, LEVEL_MAX_PLANET},
        {WidthField, header.width, LEVEL_MIN_WIDTH, LEVEL_MAX_WIDTH},
        {HeightField, header.height, LEVEL_MIN_HEIGHT, LEVEL_MAX_HEIGHT},
    };
    for (const Bound &b : bounds) {
        if (b.value >= b.lo && b.value <= b.hi)
            continue;
        const std::string range = std::to_string(b.lo) + " to " + std::to_string(b.hi);
        const std::string name = headerFieldNames[b.field];
        if (stop.field <= b.field)
            setError(error, unreadFieldProblem(b.field, stop, range));
        else if (b.field == PlanetField)
            setError(error, "planet " + std::to_string(b.value) + " is not " + range);
        else
            setError(error, name + " " + std::to_string(b.value) + " is outside " + range);
        return false;
    }
    return true;
}

void sizeGrids(Level &level, int width, int height)
{
    level.width = static_cast<int16_t>(width);
    level.height = static_cast<int16_t>(height);
    level.terrain.assign(width, std::vector<int32_t>(height, Empty));
    level.structures.assign(width, std::vector<int32_t>(height, 0));
}

// What both loaders do once the cells are in: the ring becomes border before
// the pods are counted (a pod on the ring is not a pod), but the sky is
// cleared only after counting (a pod in the sky is counted and then lost).
void finishLoad(Level &level, MissionState &state)
{
    const int w = level.width, h = level.height;
    setBorderRing(level);

    int32_t pods = 0, rockets = 0;
    for (int x = 0; x < w; x++)
        for (int y = 0; y < h; y++) {
            pods += level.terrain[x][y] == Pod;
            rockets += level.terrain[x][y] == Rocket;
        }
    state.podCount = pods;
    state.podsWithoutHatcher = pods;
    state.rocketCount = rockets;

    for (int x = 0; x < w; x++)
        for (int y = 0; y < SKY_ROWS; y++)
            if (!isSkyKeep(level.terrain[x][y]))
                level.terrain[x][y] = Empty;
}

// The new level replaces the old one only once it is whole.
void commitLevel(Level &target, Level &loaded, const LevelHeader &header, MissionState &state)
{
    target.title = header.title;
    target.planet = header.planet;
    target.missionNumber = header.missionNumber;
    target.campaignLevel = header.campaignLevel;
    target.reserved = header.reserved;
    target.width = loaded.width;
    target.height = loaded.height;
    target.terrain.swap(loaded.terrain);
    target.structures.swap(loaded.structures);
    // A cursor left over from a larger level would point outside this one
    // until the next frame picks it again.
    if (target.cursorX < 0 || target.cursorX >= target.width)
        target.cursorX = 0;
    if (target.cursorY < 0 || target.cursorY >= target.height)
        target.cursorY = 0;
    state.credits = header.credits;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        state.toolLocked[i] = header.toolLocked[i];
}

LevelHeader headerHeldBy(const Level &level, const MissionState &state)
{
    LevelHeader header;
    header.title = level.title;
    header.planet = level.planet;
    header.missionNumber = level.missionNumber;
    header.campaignLevel = level.campaignLevel;
    header.reserved = level.reserved;
    header.credits = state.credits;
    header.width = level.width;
    header.height = level.height;
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        header.toolLocked[i] = state.toolLocked[i];
    return header;
}

// ---- the packed-file reader ----

struct PackReader {
    PACKFILE *file;
    int lineNumber;
    char buffer[LINE_BUFFER_SIZE];
};

// At the end of the file the buffer stays empty, which the number conversion
// then refuses: a short file fails on its first missing line.
const char *readPackLine(PackReader &reader)
{
    std::memset(reader.buffer, 0, sizeof reader.buffer);
    pack_fgets(reader.buffer, LINE_BUFFER_SIZE, reader.file);
    reader.lineNumber++;
    return reader.buffer;
}

int32_t readPackNumber(PackReader &reader)
{
    return truncateToInt32(convertToDouble(readPackLine(reader)));
}

void parsePackCells(PackReader &reader, Level &loaded)
{
    for (int x = 0; x < loaded.width; x++)
        for (int y = 0; y < loaded.height; y++)
            loaded.terrain[x][y] = readPackNumber(reader);
}

bool parsePack(PackReader &reader, LevelHeader &header, Level &loaded, std::string *error)
{
    header.title = readPackLine(reader);
    header.planet = readPackNumber(reader);
    linkTerrainSet(header.planet);
    header.missionNumber = readPackNumber(reader);
    header.campaignLevel = readPackNumber(reader);
    header.reserved = readPackNumber(reader);
    header.credits = readPackNumber(reader);
    header.width = readPackNumber(reader);
    header.height = readPackNumber(reader);
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        header.toolLocked[i] = readPackNumber(reader);
    if (!checkHeader(header, error))
        return false;
    sizeGrids(loaded, header.width, header.height);
    parsePackCells(reader, loaded);
    return true;
}

// ---- the stream reader ----

// The whole first line; a Windows line end loses its carriage return as it
// would in the text mode the format was made for.
std::string readTitleLine(std::istream &in)
{
    std::string title;
    int c;
    while ((c = in.get()) != std::char_traits<char>::eof() && c != '\n')
        if (title.size() < MAX_TITLE_LENGTH)
            title += static_cast<char>(c);
    if (!title.empty() && title.back() == '\r')
        title.pop_back();
    return title;
}

// The word the reader could not take, read again from where it started. The
// stream is left failed as the extraction left it.
std::string wordAt(std::istream &in, std::streampos start)
{
    std::string word;
    if (start == std::streampos(-1))
        return word;
    in.clear();
    if (in.seekg(start))
        in >> word;
    in.setstate(std::ios::failbit);
    return quoteForLog(word);
}

// A value that cannot be read leaves the field as it was; the stream stays
// failed, so every later field keeps its value too.
template <typename T>
void extractInto(std::istream &in, int32_t &field, HeaderField name, StreamStop &stop)
{
    const std::streampos start = in ? in.tellg() : std::streampos(-1);
    T value;
    if (in >> value) {
        field = value;
    } else if (stop.field == NoField) {
        stop.field = name;
        stop.text = wordAt(in, start);
    }
}

void parseStreamHeader(std::istream &in, LevelHeader &header, StreamStop &stop)
{
    header.title = readTitleLine(in);
    extractInto<int32_t>(in, header.planet, PlanetField, stop);
    linkTerrainSet(header.planet);
    extractInto<int32_t>(in, header.missionNumber, MissionField, stop);
    extractInto<int32_t>(in, header.campaignLevel, CampaignField, stop);
    extractInto<int32_t>(in, header.reserved, ReservedField, stop);
    extractInto<int32_t>(in, header.credits, CreditsField, stop);
    extractInto<int16_t>(in, header.width, WidthField, stop);
    extractInto<int16_t>(in, header.height, HeightField, stop);
    for (int i = 0; i < LOCKABLE_TOOL_COUNT; i++)
        extractInto<int32_t>(in, header.toolLocked[i], LockField, stop);
}

// Once a cell cannot be read, every remaining cell repeats the last value
// that could. Returns how many the file held.
int32_t parseStreamCells(std::istream &in, Level &loaded)
{
    int32_t last = 0, read = 0;
    for (int x = 0; x < loaded.width; x++)
        for (int y = 0; y < loaded.height; y++) {
            int32_t value;
            if (in >> value) {
                last = value;
                read++;
            }
            loaded.terrain[x][y] = last;
        }
    return read;
}

std::string formatPath(const char *format, va_list args)
{
    // uvszprintf counts characters, which may take up to six bytes each in
    // Allegro's UTF-8: measure, then format again into room enough.
    char small[256];
    va_list measure;
    va_copy(measure, args);
    const int count = uvszprintf(small, sizeof small, format, measure);
    va_end(measure);
    if (count < 0)
        return std::string();
    const size_t needed = (static_cast<size_t>(count) + 1) * 6 + 1;
    if (needed <= sizeof small)
        return small;
    std::vector<char> large(needed, 0);
    va_list again;
    va_copy(again, args);
    uvszprintf(large.data(), static_cast<int>(large.size()), format, again);
    va_end(again);
    return large.data();
}

std::string cannotLoad(const char *path)
{
    return std::string("Cannot load Level: ") + path;
}

} // namespace

bool parseLevelPackfile(PACKFILE *file, Level &level, MissionState &state, std::string *error)
{
    // The reader holds the 10,000-byte line buffer: keep it off the stack.
    std::unique_ptr<PackReader> reader(new PackReader());
    reader->file = file;
    reader->lineNumber = 0;
    LevelHeader header = headerHeldBy(level, state);
    Level loaded;
    try {
        if (!parsePack(*reader, header, loaded, error))
            return false;
    } catch (const BadConversion &bad) {
        setError(error, "line " + std::to_string(reader->lineNumber) + " is not a number: " +
                            quoteForLog(bad.what()));
        return false;
    }
    // The packed reader refuses a short file, so every cell was in it.
    const LevelFileFacts facts = factsOfReadCells(loaded, loaded.width * loaded.height);
    finishLoad(loaded, state);
    commitLevel(level, loaded, header, state);
    loadedLevelFacts = facts;
    return true;
}

bool parseLevelStream(std::istream &in, Level &level, MissionState &state, std::string *error)
{
    LevelHeader header = headerHeldBy(level, state);
    StreamStop stop;
    parseStreamHeader(in, header, stop);
    if (!checkHeader(header, error, stop))
        return false;
    Level loaded;
    sizeGrids(loaded, header.width, header.height);
    const LevelFileFacts facts = factsOfReadCells(loaded, parseStreamCells(in, loaded));
    finishLoad(loaded, state);
    commitLevel(level, loaded, header, state);
    loadedLevelFacts = facts;
    return true;
}

bool tryLoadLevelFromPack(Level &level, const char *path, std::string *error)
{
    resetMission();
    PACKFILE *file = pack_fopen(path, F_READ);
    if (!file) {
        setError(error, cannotLoad(path));
        return false;
    }
    logLine("Successfully loaded level: %s", path);
    std::string problem;
    const bool loaded = parseLevelPackfile(file, level, mission, &problem);
    pack_fclose(file);
    if (!loaded)
        setError(error, cannotLoad(path) + " (" + problem + ")");
    return loaded;
}

bool tryLoadLevelFromFile(Level &level, const char *path, std::string *error)
{
    resetMission();
    std::ifstream in(path);
    if (!in.is_open() || !in.good()) {
        setError(error, cannotLoad(path));
        return false;
    }
    logLine("Successfully loaded level: %s", path);
    std::string problem;
    if (!parseLevelStream(in, level, mission, &problem)) {
        setError(error, cannotLoad(path) + " (" + problem + ")");
        return false;
    }
    return true;
}

static void failLoad(const std::string &error)
{
    logLine("# ERROR! # %s", error.c_str());
    fatalError("Cannot load Level!");
}

void loadLevelFromPack(Level &level, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    const std::string path = formatPath(format, args);
    va_end(args);
    std::string error;
    if (!tryLoadLevelFromPack(level, path.c_str(), &error))
        failLoad(error);
}

void loadLevelFromFile(Level &level, const char *format, ...)
{
    va_list args;
    va_start(args, format);
    const std::string path = formatPath(format, args);
    va_end(args);
    std::string error;
    if (!tryLoadLevelFromFile(level, path.c_str(), &error))
        failLoad(error);
}
