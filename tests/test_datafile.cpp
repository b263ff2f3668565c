// The datafile the build makes, read the way the game reads it: every object
// by its nested path, decoded by load_tga / load_jpg / load_wav / pack_fopen,
// and checked against assets/manifest.tsv and against what the loaders and
// screens expect of it.
#include <allegro.h>
#include <jpgalleg.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct ManifestLine {
    std::string path;   // object path inside the datafile, e.g. MOUSE/DATA00_TGA
    std::string kind;   // tga, jpg, wav, level
    int width = 0;      // pixels, samples or cells
    int height = 0;     // pixels, sample rate or cells
    std::string alpha;  // clear, solid, soft, -
};

std::string envOr(const char *name, const char *fallback) {
    const char *v = std::getenv(name);
    return v ? v : fallback;
}

std::string datafilePath(const std::string &object) {
    return envOr("DELVEMOOR_GAME_DIR", ".") + "/DATA/DATA.DAT#" + object;
}

std::vector<ManifestLine> readManifest() {
    std::vector<ManifestLine> out;
    std::ifstream in(envOr("DELVEMOOR_SOURCE_DIR", ".") + "/assets/manifest.tsv");
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        ManifestLine m;
        std::string w, h;
        std::getline(fields, m.path, '\t');
        std::getline(fields, m.kind, '\t');
        std::getline(fields, w, '\t');
        std::getline(fields, h, '\t');
        std::getline(fields, m.alpha, '\t');
        m.width = std::atoi(w.c_str());
        m.height = std::atoi(h.c_str());
        out.push_back(m);
    }
    return out;
}

class Datafile : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(install_allegro(SYSTEM_NONE, &errno, atexit), 0);
        jpgalleg_init();
        // As the game loads: keep each picture's own depth, so TGA alpha survives.
        set_color_conversion(COLORCONV_NONE);
        manifest = new std::vector<ManifestLine>(readManifest());
    }
    static void TearDownTestSuite() {
        delete manifest;
        manifest = nullptr;
    }
    static std::vector<ManifestLine> *manifest;
};
std::vector<ManifestLine> *Datafile::manifest = nullptr;

bool isPowerOfTwo(int v) { return v > 0 && (v & (v - 1)) == 0; }

// Folders, frame counts and JPEG frames exactly as the loaders ask for them.
struct Folder {
    const char *path;
    int frames;
    std::set<int> jpeg;
};
const std::vector<Folder> &pictureFolders() {
    static const std::vector<Folder> folders = {
        {"MOUSE", 3, {}}, {"SPRITES2/INTRO", 2, {}}, {"TERRAIN/FIELD", 23, {}},
        {"TERRAIN/FIELD/BACKGROUND", 6, {0, 3, 4}}, {"SPRITES", 45, {39}},
        {"TERRAIN/POD", 21, {}}, {"TERRAIN/ROCKET/LANDED", 41, {}},
        {"TERRAIN/ROCKET/FLYING", 41, {}}, {"TERRAIN/FIELD/WATER", 11, {}},
        {"TERRAIN/FIELD/PLANET", 73, {}}, {"TERRAIN/ICE/PLANET", 73, {}},
        {"TERRAIN/ASTEROID/PLANET", 73, {}}, {"TERRAIN/SOFT/PLANET", 73, {}},
        {"BUILDING/GIRDER", 1, {}}, {"BUILDING/GIRDERLEFT", 1, {}},
        {"BUILDING/GIRDERRIGHT", 1, {}}, {"BUILDING/HARVESTER", 20, {}},
        {"BUILDING/HARVESTERON", 20, {}}, {"BUILDING/TRANSPORTUP", 21, {}},
        {"BUILDING/TRANSPORTLEFT", 21, {}}, {"BUILDING/TRANSPORTRIGHT", 21, {}},
        {"BUILDING/BLOCKER", 1, {}}, {"BUILDING/SHOVEL", 1, {}},
        {"BUILDING/DYNAMITE", 6, {}}, {"GUI", 32, {}},
        {"SPRITES2/GREENMAN/WALK", 21, {}}, {"SPRITES2/GREENMAN/ENTER", 17, {}},
        {"SPRITES2/GREENMAN/SUCKED", 21, {}}, {"SPRITES2/GREENMAN/FALL", 21, {}},
        {"SPRITES2/EXPLOSIONS/SMALL", 10, {}}, {"SPRITES2/STARS", 3, {}},
        {"FONT", 3, {}},
    };
    return folders;
}

TEST_F(Datafile, ManifestListsEveryObjectTheGameLoads) {
    std::map<std::string, const ManifestLine *> byPath;
    for (const ManifestLine &m : *manifest) {
        EXPECT_TRUE(byPath.emplace(m.path, &m).second) << "listed twice: " << m.path;
    }
    std::set<std::string> expected;
    char name[64];
    for (const Folder &f : pictureFolders()) {
        for (int i = 0; i < f.frames; ++i) {
            bool jpg = f.jpeg.count(i) > 0;
            std::snprintf(name, sizeof name, "/DATA%02d_%s", i, jpg ? "JPG" : "TGA");
            expected.insert(f.path + std::string(name));
        }
    }
    for (int i = 0; i < 27; ++i) {
        std::snprintf(name, sizeof name, "SOUND/SOUND%02d_WAV", i);
        expected.insert(name);
    }
    for (int i = 0; i < 3; ++i) {
        std::snprintf(name, sizeof name, "MUSIC/MUSIC%02d_WAV", i);
        expected.insert(name);
    }
    for (int p = 1; p <= 4; ++p) {
        for (int m = 1; m <= 15; ++m) {
            std::snprintf(name, sizeof name, "LEVELS/P%dM%02d_LEV", p, m);
            expected.insert(name);
        }
    }
    for (const std::string &path : expected) EXPECT_TRUE(byPath.count(path)) << "missing: " << path;
    for (const auto &entry : byPath) EXPECT_TRUE(expected.count(entry.first)) << "unexpected: " << entry.first;
    EXPECT_EQ(byPath.size(), expected.size());
}

// Sizes the game draws at: pictures it draws through fixed-size primitives must
// have that size, or they would be stretched.
TEST_F(Datafile, PicturesDecodeAtTheirSizeWithTheirAlpha) {
    const std::map<std::string, std::pair<int, int>> drawnSize = {
        {"TERRAIN/FIELD/", {32, 32}}, {"TERRAIN/FIELD/BACKGROUND/", {256, 256}},
        {"TERRAIN/POD/", {32, 32}}, {"TERRAIN/ROCKET/LANDED/", {32, 32}},
        {"TERRAIN/FIELD/WATER/", {32, 32}}, {"TERRAIN/FIELD/PLANET/", {64, 64}},
        {"TERRAIN/ICE/PLANET/", {64, 64}}, {"TERRAIN/ASTEROID/PLANET/", {64, 64}},
        {"TERRAIN/SOFT/PLANET/", {64, 64}}, {"BUILDING/", {32, 32}},
        {"SPRITES2/STARS/", {8, 8}}, {"FONT/", {256, 128}},
    };
    int pictures = 0;
    for (const ManifestLine &m : *manifest) {
        if (m.kind != "tga" && m.kind != "jpg") continue;
        ++pictures;
        std::string path = datafilePath(m.path);
        BITMAP *bmp = m.kind == "tga" ? load_tga(path.c_str(), nullptr) : load_jpg(path.c_str(), nullptr);
        ASSERT_NE(bmp, nullptr) << "cannot decode " << m.path;
        EXPECT_EQ(bmp->w, m.width) << m.path;
        EXPECT_EQ(bmp->h, m.height) << m.path;
        EXPECT_TRUE(isPowerOfTwo(bmp->w) && isPowerOfTwo(bmp->h)) << m.path;
        std::string folder = m.path.substr(0, m.path.rfind('/') + 1);
        auto fixed = drawnSize.find(folder);
        if (fixed != drawnSize.end()) {
            EXPECT_EQ(bmp->w, fixed->second.first) << m.path;
            EXPECT_EQ(bmp->h, fixed->second.second) << m.path;
        }
        if (m.kind == "tga") {
            ASSERT_EQ(bitmap_color_depth(bmp), 32) << m.path << " must keep its alpha channel";
            int clear = 0, opaque = 0;
            for (int y = 0; y < bmp->h; ++y) {
                for (int x = 0; x < bmp->w; ++x) {
                    int a = geta32(getpixel(bmp, x, y));
                    clear += a == 0;
                    opaque += a == 255;
                }
            }
            int all = bmp->w * bmp->h;
            if (m.alpha == "clear") {
                EXPECT_GT(clear, 0) << m.path << " should have see-through pixels";
            }
            if (m.alpha == "solid") {
                EXPECT_EQ(opaque, all) << m.path << " should be opaque";
            }
            EXPECT_LT(clear, all) << m.path << " is invisible";
        }
        destroy_bitmap(bmp);
    }
    EXPECT_EQ(pictures, 727);
}

// The game draws each character in its full cell but advances the cell width
// minus 2: a glyph must leave the last three columns of its cell empty, or it
// would touch its neighbour, and every mapped character needs ink.
TEST_F(Datafile, FontSheetsFollowTheCharacterGrid) {
    static const char *rows[6] = {"0123456789abcdef", "ghijklmnopqrstuv", "wxyzABCDEFGHIJKL",
                                  "MNOPQRSTUVWXYZ.,", ":;!?\"'@#$%&.+-*/", "=<>()[]{}_ ....."};
    const int cells[3] = {16, 12, 8};
    for (int sheet = 0; sheet < 3; ++sheet) {
        char name[32];
        std::snprintf(name, sizeof name, "FONT/DATA%02d_TGA", sheet);
        BITMAP *bmp = load_tga(datafilePath(name).c_str(), nullptr);
        ASSERT_NE(bmp, nullptr);
        ASSERT_EQ(bitmap_color_depth(bmp), 32);
        const int c = cells[sheet];
        for (int row = 0; row * c < bmp->h; ++row) {
            for (int col = 0; col * c < bmp->w; ++col) {
                bool mapped = row < 6 && col < 16;
                char ch = mapped ? rows[row][col] : '.';
                // The dots past the grid's own "." and "," cells mark empty cells.
                bool needsInk = mapped && ch != ' ' &&
                                !(ch == '.' && !(row == 3 && col == 14));
                int ink = 0, spill = 0, light = 0;
                for (int y = row * c; y < (row + 1) * c && y < bmp->h; ++y) {
                    for (int x = col * c; x < (col + 1) * c && x < bmp->w; ++x) {
                        int p = getpixel(bmp, x, y);
                        if (geta32(p) == 0) continue;
                        ++ink;
                        spill += x - col * c >= c - 3;
                        light += getr32(p) == 255 && getg32(p) == 255 && getb32(p) == 255;
                    }
                }
                if (needsInk) {
                    EXPECT_GT(ink, 0) << "no glyph for '" << ch << "' on sheet " << sheet;
                } else {
                    EXPECT_EQ(ink, 0) << "ink in empty cell " << row << "," << col << " of sheet " << sheet;
                }
                EXPECT_EQ(spill, 0) << "'" << ch << "' reaches into the next character on sheet " << sheet;
                EXPECT_EQ(light, ink) << "glyphs must be white so callers can colour them";
            }
        }
        destroy_bitmap(bmp);
    }
}

TEST_F(Datafile, SoundsDecodeWithoutClippingOrClicks) {
    int sounds = 0;
    for (const ManifestLine &m : *manifest) {
        if (m.kind != "wav") continue;
        ++sounds;
        SAMPLE *s = load_wav(datafilePath(m.path).c_str());
        ASSERT_NE(s, nullptr) << "cannot decode " << m.path;
        EXPECT_EQ(s->bits, 16) << m.path;
        EXPECT_EQ(s->stereo, 0) << m.path;
        EXPECT_EQ(s->freq, m.height) << m.path;
        ASSERT_EQ(static_cast<int>(s->len), m.width) << m.path;
        // Allegro keeps 16-bit samples unsigned, centred on 0x8000.
        const unsigned short *data = static_cast<const unsigned short *>(s->data);
        int peak = 0;
        for (unsigned long i = 0; i < s->len; ++i) peak = std::max(peak, std::abs(int(data[i]) - 0x8000));
        EXPECT_LT(peak, 32000) << m.path << " clips";
        EXPECT_GT(peak, 3000) << m.path << " is nearly silent";
        int first = int(data[0]) - 0x8000;
        int last = int(data[s->len - 1]) - 0x8000;
        bool music = m.path.compare(0, 6, "MUSIC/") == 0;
        if (music) {
            // A loop restarts from its first sample: the seam must be as smooth
            // as any other step of the waveform.
            EXPECT_LT(std::abs(last - first), peak / 8) << m.path << " clicks at the loop point";
            EXPECT_GT(s->len, 15ul * s->freq) << m.path << " is too short a loop";
        } else {
            EXPECT_LT(std::abs(first), 200) << m.path << " starts with a click";
            EXPECT_LT(std::abs(last), 200) << m.path << " ends with a click";
            EXPECT_LT(s->len, 3ul * s->freq) << m.path << " is too long for an effect";
        }
        destroy_sample(s);
    }
    EXPECT_EQ(sounds, 30);
}

// A level read as the packed loader reads it: line by line through pack_fgets.
std::vector<std::string> readLevelLines(const std::string &object) {
    std::vector<std::string> lines;
    PACKFILE *f = pack_fopen(datafilePath(object).c_str(), "r");
    if (!f) return lines;
    std::vector<char> buf(10000, 0);
    while (pack_fgets(buf.data(), static_cast<int>(buf.size()), f)) lines.push_back(buf.data());
    pack_fclose(f);
    return lines;
}

bool isNumber(const std::string &s) {
    char *end = nullptr;
    std::strtod(s.c_str(), &end);
    return end != s.c_str();
}

TEST_F(Datafile, LevelsParseAndMatchTheirNames) {
    int levels = 0;
    for (const ManifestLine &m : *manifest) {
        if (m.kind != "level") continue;
        ++levels;
        std::vector<std::string> lines = readLevelLines(m.path);
        ASSERT_GE(lines.size(), 17u) << m.path << " cannot be opened or is short";
        for (size_t i = 1; i < lines.size(); ++i) ASSERT_TRUE(isNumber(lines[i])) << m.path << " line " << i + 1;
        const int planet = std::atoi(lines[1].c_str());
        const int mission = std::atoi(lines[2].c_str());
        const int w = std::atoi(lines[6].c_str());
        const int h = std::atoi(lines[7].c_str());
        // LEVELS/P<planet>M<nn>_LEV
        const int namePlanet = m.path[8] - '0';
        const int nameMission = std::atoi(m.path.substr(10, 2).c_str());
        EXPECT_EQ(planet, namePlanet) << m.path;
        EXPECT_EQ(mission, (namePlanet - 1) * 15 + nameMission) << m.path;
        EXPECT_EQ(std::atoi(lines[3].c_str()), 1) << m.path << " must be a campaign level";
        EXPECT_GT(std::atoi(lines[5].c_str()), 0) << m.path << " has no credits";
        EXPECT_EQ(w, m.width) << m.path;
        EXPECT_EQ(h, m.height) << m.path;
        ASSERT_GE(w, 3) << m.path;
        ASSERT_GE(h, 8) << m.path;
        ASSERT_EQ(lines.size(), static_cast<size_t>(17 + w * h)) << m.path;
        int pods = 0, rockets = 0;
        for (int x = 0; x < w; ++x) {
            for (int y = 0; y < h; ++y) {
                int code = std::atoi(lines[17 + x * h + y].c_str());
                ASSERT_TRUE(code >= 0 && code <= 23) << m.path << " cell " << x << "," << y;
                pods += code == 12;
                rockets += code == 13;
                if (y < 7) {
                    EXPECT_TRUE(code == 0 || code == 13 || code == 15 || code == 17)
                        << m.path << " keeps code " << code << " in the sky at " << x << "," << y;
                } else if (x == 0 || x == w - 1 || y == h - 1) {
                    EXPECT_EQ(code, 11) << m.path << " border ring open at " << x << "," << y;
                }
            }
        }
        EXPECT_GE(pods, 1) << m.path;
        EXPECT_GE(rockets, 1) << m.path;
    }
    EXPECT_EQ(levels, 60);
}

}  // namespace
