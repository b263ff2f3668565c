// The datafile the build makes, read the way the game reads it: every object
// by its nested path, decoded by load_tga / load_jpg / load_wav / pack_fopen,
// and checked against assets/manifest.tsv and against what the loaders and
// screens expect of it.
#include <allegro.h>
#include <jpgalleg.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
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

// Every picture decodes, as the game reads it, at the size the manifest lists
// and with its alpha. The generator has held each to its size, its alpha and
// (for the font sheets) its glyph cells before writing it; the checks below
// hold each to where the game draws it.
TEST_F(Datafile, PicturesDecodeAtTheirSizeWithTheirAlpha) {
    for (const ManifestLine &m : *manifest) {
        if (m.kind != "tga" && m.kind != "jpg") continue;
        std::string path = datafilePath(m.path);
        BITMAP *bmp = m.kind == "tga" ? load_tga(path.c_str(), nullptr) : load_jpg(path.c_str(), nullptr);
        ASSERT_NE(bmp, nullptr) << "cannot decode " << m.path;
        EXPECT_EQ(bmp->w, m.width) << m.path;
        EXPECT_EQ(bmp->h, m.height) << m.path;
        if (m.kind == "tga") {
            ASSERT_EQ(bitmap_color_depth(bmp), 32) << m.path << " must keep its alpha channel";
            int clear = 0;
            for (int y = 0; y < bmp->h; ++y)
                for (int x = 0; x < bmp->w; ++x) clear += geta32(getpixel(bmp, x, y)) == 0;
            const int all = bmp->w * bmp->h;
            EXPECT_LT(clear, all) << m.path << " is invisible";
        }
        destroy_bitmap(bmp);
    }
}

// A picture as the game decodes it, TGA or JPEG, in rows from the top.
struct Picture {
    int w = 0, h = 0;
    std::vector<int> px;  // r, g, b, a per pixel
    int c(int x, int y, int k) const { return px[(static_cast<size_t>(y) * w + x) * 4 + k]; }
    int a(int x, int y) const { return c(x, y, 3); }
};

Picture readPicture(const std::string &object) {
    Picture p;
    const bool jpg = object.size() > 4 && object.compare(object.size() - 4, 4, "_JPG") == 0;
    const std::string path = datafilePath(object);
    BITMAP *bmp = jpg ? load_jpg(path.c_str(), nullptr) : load_tga(path.c_str(), nullptr);
    if (!bmp) return p;
    const int depth = bitmap_color_depth(bmp);
    p.w = bmp->w;
    p.h = bmp->h;
    for (int y = 0; y < bmp->h; ++y) {
        for (int x = 0; x < bmp->w; ++x) {
            const int v = getpixel(bmp, x, y);
            p.px.insert(p.px.end(), {getr_depth(depth, v), getg_depth(depth, v), getb_depth(depth, v),
                                     depth == 32 ? geta32(v) : 255});
        }
    }
    destroy_bitmap(bmp);
    return p;
}

std::string pictureName(const char *folder, int frame, const char *kind = "TGA") {
    char name[96];
    std::snprintf(name, sizeof name, "%s/DATA%02d_%s", folder, frame, kind);
    return name;
}

// How many pixels of [x0, x1) x [y0, y1) are wholly opaque.
int countOpaque(const Picture &p, int x0, int y0, int x1, int y1) {
    int n = 0;
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x) n += p.a(x, y) == 255;
    return n;
}

// Rows (or columns) of a picture holding any ink, as [first, last]; -1 if none.
std::pair<int, int> inkSpan(const Picture &p, bool rows) {
    int first = -1, last = -1;
    const int len = rows ? p.h : p.w;
    for (int i = 0; i < len; ++i) {
        bool any = false;
        for (int t = 0; t < (rows ? p.w : p.h) && !any; ++t) any = (rows ? p.a(t, i) : p.a(i, t)) > 0;
        if (any) {
            if (first < 0) first = i;
            last = i;
        }
    }
    return {first, last};
}

// Sprites the game places with no offset of their own: a bubbleman centred
// on his cell's centre, a pointer on the pointer, a blast on its cell, a
// structure over its cell. Ink cut by a picture's edge, feet above the
// floor, a hot spot off the centre or a lift exit opening the wrong way
// would all show in play.
TEST_F(Datafile, SpritesSitWhereTheGameDrawsThem) {
    for (const ManifestLine &m : *manifest) {
        const std::string &object = m.path;
        const std::string folder = object.substr(0, object.rfind('/'));
        const bool greenman = folder.rfind("SPRITES2/GREENMAN/", 0) == 0;
        const bool loose = greenman || folder == "SPRITES2/EXPLOSIONS/SMALL" || folder == "SPRITES2/STARS";
        const int size = folder == "SPRITES2/EXPLOSIONS/SMALL" ? 64 : folder == "SPRITES2/STARS" ? 8 : 32;
        if (m.kind != "tga" || (!loose && folder.rfind("BUILDING/", 0) != 0 && folder != "MOUSE")) continue;
        const Picture ink = readPicture(object);
        ASSERT_EQ(ink.w, size) << object;
        ASSERT_EQ(ink.h, size) << object;
        if (!loose) continue;
        int top = 0, sides = 0, bottom = 0;
        for (int k = 0; k < size; ++k) {
            top += ink.a(k, 0);
            sides += ink.a(0, k) + ink.a(size - 1, k);
            bottom += ink.a(k, size - 1);
        }
        EXPECT_EQ(top + sides, 0) << object << " is cut by the picture's edge";
        // Only a bubbleman may touch the bottom row: it is his cell's floor.
        if (!greenman) {
            EXPECT_EQ(bottom, 0) << object << " is cut by the picture's edge";
        }
        if (folder == "SPRITES2/GREENMAN/WALK") {
            EXPECT_GT(bottom, 0) << object << ": his feet must rest on the cell's floor";
            const std::pair<int, int> columns = inkSpan(ink, false);
            EXPECT_NEAR((columns.first + columns.second) / 2.0, 15.5, 2.5) << object << " walks off his cell's centre";
        }
    }

    // Pointers are centred on the pointer: the arrow's tip is pixel (16, 16)
    // and nothing of the arrow lies above or left of it.
    const Picture arrow = readPicture("MOUSE/DATA00_TGA");
    ASSERT_EQ(arrow.w, 32);
    EXPECT_EQ(arrow.a(16, 16), 255);
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            if (y < 15 || x < 15) {
                EXPECT_EQ(arrow.a(x, y), 0) << "arrow ink at " << x << "," << y;
            }
        }
    }
    EXPECT_EQ(readPicture("MOUSE/DATA02_TGA").a(16, 16), 255) << "the crosshair's centre is its hot spot";

    // Girders carry bubblemen and other pieces on their top edge; a hanging
    // girder is bolted to its anchor's side only.
    for (const char *girder : {"BUILDING/GIRDER", "BUILDING/GIRDERLEFT", "BUILDING/GIRDERRIGHT"}) {
        const Picture g = readPicture(pictureName(girder, 0));
        ASSERT_EQ(g.w, 32);
        EXPECT_EQ(countOpaque(g, 0, 0, 32, 3), 96) << girder << " needs a solid deck along its top";
    }
    const Picture heldRight = readPicture("BUILDING/GIRDERLEFT/DATA00_TGA");
    const Picture heldLeft = readPicture("BUILDING/GIRDERRIGHT/DATA00_TGA");
    EXPECT_GT(countOpaque(heldRight, 28, 6, 32, 18), 30) << "the left hanging girder hangs from its right neighbour";
    EXPECT_EQ(countOpaque(heldRight, 0, 8, 4, 32), 0);
    EXPECT_GT(countOpaque(heldLeft, 0, 6, 4, 18), 30) << "the right hanging girder hangs from its left neighbour";
    EXPECT_EQ(countOpaque(heldLeft, 28, 8, 32, 32), 0);
}

// Screen pictures laid over something the game has already drawn must let it
// through: the status line under the toolbar, "Ready for launch" under the
// launch panel, the planet highlights and the mission list under the select
// screen's frames, the main menu's markers climbing past the menu buttons.
// A planet picture is drawn over its bezel and must keep to the window.
TEST_F(Datafile, ScreenPicturesLetThroughWhatIsDrawnUnderThem) {
    struct Area {
        const char *folder;
        int frame;
        int x0, y0, x1, y1;  // picture columns and rows, [x0, x1) x [y0, y1)
        int opaquePerMille;  // how much of the area may be fully opaque
        const char *what;
    };
    const Area areas[] = {
        {"SPRITES", 0, 26, 100, 400, 115, 0, "the status line, drawn before the toolbar"},
        {"SPRITES", 1, 34, 20, 197, 33, 0, "\"Ready for launch\", drawn before the launch panel"},
        {"SPRITES", 6, 30, 30, 226, 226, 20, "the planet highlights under their frame"},
        {"SPRITES", 11, 30, 30, 226, 226, 20, "the mission list under its frame"},
        // the markers pass the 256 x 32 menu buttons at their columns 5 to 21 and 236 to 252
        {"GUI", 6, 0, 0, 22, 32, 0, "the left menu marker"},
        {"GUI", 6, 235, 0, 256, 32, 0, "the right menu marker"},
    };
    for (Area a : areas) for (int k = 0; k < (a.folder[0] == 'G' ? 3 : 1); ++k, ++a.frame) {
        const std::string name = pictureName(a.folder, a.frame);
        const Picture ink = readPicture(name);
        ASSERT_GT(ink.w, 0) << name;
        int faint = 0;
        for (int y = a.y0; y < a.y1; ++y)
            for (int x = a.x0; x < a.x1; ++x) faint += ink.a(x, y) > 24;
        const int area = (a.x1 - a.x0) * (a.y1 - a.y0);
        if (a.opaquePerMille == 0) {
            EXPECT_EQ(faint, 0) << name << " hides " << a.what;
        } else {
            EXPECT_LE(countOpaque(ink, a.x0, a.y0, a.x1, a.y1) * 1000, area * a.opaquePerMille)
                << name << " hides " << a.what;
        }
    }
    for (int frame = 7; frame <= 10; ++frame) {
        const std::string name = pictureName("SPRITES", frame);
        const Picture ink = readPicture(name);
        ASSERT_EQ(ink.w, 256) << name;
        int outside = 0, inside = 0;
        for (int y = 0; y < ink.h; ++y) {
            for (int x = 0; x < ink.w; ++x) {
                // the bezel's dark window runs from 27 to 229
                const bool window = x >= 27 && x < 229 && y >= 27 && y < 229;
                (window ? inside : outside) += ink.a(x, y) > 0;
            }
        }
        EXPECT_EQ(outside, 0) << name << " spills over its bezel";
        EXPECT_GT(inside, 190 * 190) << name << " leaves its window empty";
    }
}

// A sound as load_wav hands it to the game, as signed samples. Allegro keeps
// 16-bit samples unsigned, centred on 0x8000.
struct Pcm {
    std::vector<int> s;
    int rate = 0;
    int peak = 0;
};

::testing::AssertionResult decodeSound(const ManifestLine &m, Pcm &out) {
    SAMPLE *smp = load_wav(datafilePath(m.path).c_str());
    if (!smp) return ::testing::AssertionFailure() << "cannot decode " << m.path;
    ::testing::AssertionResult ok = ::testing::AssertionSuccess();
    if (smp->bits != 16 || smp->stereo || smp->freq != m.height || static_cast<int>(smp->len) != m.width)
        ok = ::testing::AssertionFailure() << m.path << " is not 16-bit mono at the listed rate and length";
    const unsigned short *data = static_cast<const unsigned short *>(smp->data);
    out.s.resize(smp->len);
    out.rate = smp->freq;
    out.peak = 0;
    for (unsigned long i = 0; i < smp->len; ++i) {
        out.s[i] = int(data[i]) - 0x8000;
        out.peak = std::max(out.peak, std::abs(out.s[i]));
    }
    destroy_sample(smp);
    if (out.s.size() < 4) ok = ::testing::AssertionFailure() << m.path << " is empty";
    return ok;
}

// The loudest 50 ms of a sound as RMS in dB of full scale: how present it is
// when played, which is what effects are balanced by. Squares of 16-bit
// samples and their running sums are whole numbers a double holds exactly.
double loudestStretchDb(const Pcm &p) {
    size_t w = std::min(p.s.size(), static_cast<size_t>(p.rate / 20));
    double sum = 0, best = 0;
    for (size_t i = 0; i < p.s.size(); ++i) {
        sum += double(p.s[i]) * p.s[i];
        if (i >= w) sum -= double(p.s[i - w]) * p.s[i - w];
        if (i + 1 >= w) best = std::max(best, sum / w);
    }
    return 10 * std::log10(best / (32768.0 * 32768.0) + 1e-12);
}

double rmsDb(const Pcm &p) {
    double sum = 0;
    for (int v : p.s) sum += double(v) * v;
    return 10 * std::log10(sum / p.s.size() / (32768.0 * 32768.0) + 1e-12);
}

bool isEffect(const ManifestLine &m) { return m.kind == "wav" && m.path.compare(0, 6, "SOUND/") == 0; }
bool isMusic(const ManifestLine &m) { return m.kind == "wav" && m.path.compare(0, 6, "MUSIC/") == 0; }

// Effects no event plays, and the vortex swish that is replayed every tick
// while a bubbleman is sucked away: these stay quiet.
bool isQuietEffect(const ManifestLine &m) {
    static const std::set<int> quiet = {9, 10, 16, 21, 22, 23};
    return quiet.count(std::atoi(m.path.substr(11, 2).c_str())) > 0;  // SOUND/SOUNDnn_WAV
}

TEST_F(Datafile, EffectsAreCleanShortAndBalanced) {
    int effects = 0;
    double loudest = -100, softest = 0;
    for (const ManifestLine &m : *manifest) {
        if (!isEffect(m)) continue;
        ++effects;
        Pcm p;
        ASSERT_TRUE(decodeSound(m, p));
        const size_t n = p.s.size();
        EXPECT_LT(n, 3u * p.rate) << m.path << " is too long for an effect";
        EXPECT_LT(p.peak, 31000) << m.path << " reaches full scale";
        EXPECT_GT(p.peak, 1000) << m.path << " is nearly silent";
        // The mixer starts and stops a sample wherever its data begins and
        // ends: anything but a fade from and to silence is a click.
        EXPECT_LE(std::abs(p.s.front()), 64) << m.path << " starts with a click";
        EXPECT_LE(std::abs(p.s.back()), 64) << m.path << " ends with a click";
        // A fade of a few milliseconds keeps the first and last third of a
        // millisecond close to silence; a sound that jumps in does not.
        const size_t edge = 8;
        int head = 0, tail = 0;
        long long sum = 0;
        for (size_t i = 0; i < n; ++i) {
            if (i < edge) head = std::max(head, std::abs(p.s[i]));
            if (i + edge >= n) tail = std::max(tail, std::abs(p.s[i]));
            sum += p.s[i];
        }
        EXPECT_LE(head, p.peak / 8) << m.path << " jumps in instead of fading in";
        EXPECT_LE(tail, p.peak / 8) << m.path << " is cut off instead of fading out";
        EXPECT_LT(std::abs(double(sum) / n), 200.0) << m.path << " has a DC offset, which thumps";
        const double loud = loudestStretchDb(p);
        if (isQuietEffect(m)) {
            EXPECT_LT(loud, -20.0) << m.path << " should stay in the background";
        } else {
            loudest = std::max(loudest, loud);
            softest = std::min(softest, loud);
        }
    }
    EXPECT_EQ(effects, 27);
    // From a slider tick to an explosion: different, but none drowns the rest.
    EXPECT_GT(softest, -24.0) << "an effect the game plays is too quiet";
    EXPECT_LT(loudest, -8.0) << "an effect is too loud against the others";
    EXPECT_LT(loudest - softest, 14.0) << "effects are out of balance";
}

TEST_F(Datafile, MusicLoopsSeamlesslyUnderTheEffects) {
    std::vector<double> effects;
    for (const ManifestLine &m : *manifest) {
        if (!isEffect(m) || isQuietEffect(m)) continue;
        Pcm p;
        ASSERT_TRUE(decodeSound(m, p));
        effects.push_back(loudestStretchDb(p));
    }
    ASSERT_FALSE(effects.empty());
    std::sort(effects.begin(), effects.end());
    const double typicalEffect = effects[effects.size() / 2];

    int tracks = 0;
    for (const ManifestLine &m : *manifest) {
        if (!isMusic(m)) continue;
        ++tracks;
        Pcm p;
        ASSERT_TRUE(decodeSound(m, p));
        const std::vector<int> &s = p.s;
        const size_t n = s.size();
        EXPECT_GE(n, 60u * p.rate) << m.path << " is shorter than a minute";
        ASSERT_GT(n, 2u * p.rate);
        // The game loops the sample: the last sample is followed by the
        // first. A jump or a kink at the join puts a burst of high frequencies there that no
        // other moment of the second around it has.
        auto at = [&](long i) { return s[static_cast<size_t>((i % long(n) + long(n)) % long(n))]; };
        auto burst = [&](long centre) {
            double e = 0;
            for (long i = centre - 128; i < centre + 128; ++i) {
                double d = at(i + 1) - at(i);
                e += d * d;
            }
            return e;
        };
        double around = 0;
        for (long c = -p.rate; c <= p.rate; c += 128)
            if (std::labs(c) >= 256) around = std::max(around, burst(c));
        EXPECT_LE(burst(0), around) << m.path << " clicks at the loop point";
        // Whatever rings at the end rings on into the start: a start much
        // quieter than the end means tails were cut or the loop fades in.
        const long w = p.rate / 20;
        double endEnergy = 0, startEnergy = 0;
        for (long i = 0; i < w; ++i) {
            endEnergy += double(at(-1 - i)) * at(-1 - i);
            startEnergy += double(at(i)) * at(i);
        }
        EXPECT_GE(startEnergy * 8, endEnergy) << m.path << " drops out at the loop point";
        // Mixed under the effects: a sound effect must stand out over the tune.
        EXPECT_LT(p.peak, 18000) << m.path << " peaks too high for background music";
        EXPECT_LT(rmsDb(p), typicalEffect - 6.0) << m.path << " is too loud against the effects";
        EXPECT_LT(loudestStretchDb(p), typicalEffect) << m.path << " has moments louder than the effects";
    }
    EXPECT_EQ(tracks, 3);
}

// ---------------------------------------------------------------- the level's world


// Mean colour step between column x0 of one picture and column x1 of another
// (rows where both are solid), or between rows when `rows` is set.
double step(const Picture &p, int i0, const Picture &q, int i1, bool rows) {
    double sum = 0;
    int n = 0;
    const int len = rows ? p.w : p.h;
    for (int t = 0; t < len; ++t) {
        const int px = rows ? t : i0, py = rows ? i0 : t, qx = rows ? t : i1, qy = rows ? i1 : t;
        if (p.a(px, py) < 255 || q.a(qx, qy) < 255) continue;
        for (int k = 0; k < 3; ++k) sum += std::abs(p.c(px, py, k) - q.c(qx, qy, k));
        ++n;
    }
    return n ? sum / n : 0.0;
}

// The step from the last column (or row) of `p` round to the first of `q`
// must look like any step inside them: otherwise the tiling shows a seam.
void expectSeamless(const Picture &p, const Picture &q, bool rows, const std::string &what) {
    const int len = rows ? p.h : p.w;
    double inner = 0;
    for (int i = 0; i + 1 < len; ++i) inner += step(p, i, p, i + 1, rows);
    inner /= len - 1;
    EXPECT_LE(step(p, len - 1, q, 0, rows), 1.6 * inner + 4) << what << " shows a seam";
}


// The terrain set as the level view lays it out: cells side by side in a
// grid, lips drawn 4 pixels toward the ground that casts them, the glow
// tinted, the vortex turned, items standing on the ground below.
TEST_F(Datafile, TerrainTilesJoinAndSitWhereTheLevelViewDrawsThem) {
    std::vector<Picture> tile;
    for (int i = 0; i < 23; ++i) {
        tile.push_back(readPicture(pictureName("TERRAIN/FIELD", i)));
        ASSERT_EQ(tile.back().w, 32) << "tile " << i;
    }
    // Solid ground fills its cell: a see-through pixel would show the cave
    // behind solid earth. Earth runs on into the next cell without a seam.
    for (int i : {0, 1, 6, 8, 9, 10, 11, 12, 13, 14}) {
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 32; ++x) ASSERT_EQ(tile[i].a(x, y), 255) << "tile " << i << " at " << x << "," << y;
    }
    for (int i : {0, 1, 6}) {
        expectSeamless(tile[i], tile[i], false, "earth tile " + std::to_string(i) + " side by side");
        expectSeamless(tile[i], tile[i], true, "earth tile " + std::to_string(i) + " stacked");
    }

    // Each lip hugs the side of its open cell that faces the ground: 2 the
    // floor (row 28 once drawn 4 pixels down), 3 the left wall, 4 the
    // ceiling, 5 the right wall; the rest of the cell stays open.
    const std::pair<int, int> floorRows = inkSpan(tile[2], true);
    EXPECT_TRUE(floorRows.first >= 14 && floorRows.second >= 28) << "floor lip rows " << floorRows.first;
    const std::pair<int, int> ceilingRows = inkSpan(tile[4], true);
    EXPECT_TRUE(ceilingRows.first <= 3 && ceilingRows.second <= 17) << "ceiling lip rows " << ceilingRows.second;
    const std::pair<int, int> leftCols = inkSpan(tile[3], false);
    EXPECT_TRUE(leftCols.first <= 3 && leftCols.second <= 17) << "left lip columns " << leftCols.second;
    const std::pair<int, int> rightCols = inkSpan(tile[5], false);
    EXPECT_TRUE(rightCols.first >= 14 && rightCols.second >= 28) << "right lip columns " << rightCols.first;
    // A lip runs on into the lip of the next open cell along the same wall.
    for (int i : {2, 4}) {
        for (int y = 0; y < 32; ++y)
            EXPECT_NEAR(tile[i].a(0, y), tile[i].a(31, y), 140) << "lip " << i << " breaks at row " << y;
    }
    for (int i : {3, 5}) {
        for (int x = 0; x < 32; ++x)
            EXPECT_NEAR(tile[i].a(x, 0), tile[i].a(x, 31), 140) << "lip " << i << " breaks at column " << x;
    }

    // The vortex turns about its centre: nothing may lie outside its circle,
    // or the corners would sweep round with it.
    for (int y = 0; y < 32; ++y) {
        for (int x = 0; x < 32; ++x) {
            if (std::hypot(x - 15.5, y - 15.5) > 16.0) {
                EXPECT_EQ(tile[16].a(x, y), 0) << x << "," << y;
            }
        }
    }

    // Spikes, items and the drum stand on the ground below, down in the
    // floor lip, neither floating nor cut off at the top.
    for (int i : {15, 18, 19, 20, 21, 22}) {
        const std::pair<int, int> rows = inkSpan(tile[i], true);
        EXPECT_GE(rows.second, 27) << "tile " << i << " floats above the ground";
        EXPECT_GT(rows.first, 0) << "tile " << i << " is cut by the cell's top";
    }
}

// The backdrop behind the level: six 256-pixel layers tiled sideways every
// 256 pixels, the near ones stacked from the surface down (1, 0, 4, 3).
TEST_F(Datafile, BackdropLayersTileSidewaysAndStackDownward) {
    std::vector<Picture> layer;
    for (int i = 0; i < 6; ++i) {
        const bool jpg = i == 0 || i == 3 || i == 4;
        layer.push_back(readPicture(pictureName("TERRAIN/FIELD/BACKGROUND", i, jpg ? "JPG" : "TGA")));
        ASSERT_EQ(layer.back().w, 256) << "layer " << i;
        ASSERT_EQ(layer.back().h, 256) << "layer " << i;
        expectSeamless(layer[i], layer[i], false, "backdrop layer " + std::to_string(i) + " tiled sideways");
    }
    expectSeamless(layer[1], layer[0], true, "backdrop layers 1 over 0");
    expectSeamless(layer[0], layer[4], true, "backdrop layers 0 over 4");
    expectSeamless(layer[4], layer[3], true, "backdrop layers 4 over 3");
    // The level's ground starts on row 186 of layer 1: the sky stays open
    // above its near ridge, the cave wall is solid under the surface.
    for (int x = 0; x < 256; ++x) {
        for (int y = 0; y < 150; ++y) ASSERT_EQ(layer[1].a(x, y), 0) << "layer 1 hides the sky at " << x << "," << y;
        for (int y = 190; y < 256; ++y) ASSERT_EQ(layer[1].a(x, y), 255) << "layer 1 open at " << x << "," << y;
        // Stars are drawn over the sky layer and behind the mountains.
        EXPECT_EQ(layer[5].a(x, 0), 0) << "the sky's top row must let the stars' black through";
        EXPECT_EQ(layer[2].a(x, 0), 0) << "the mountains' layer must be open at its top";
    }
}

// Water cells and the four selection-screen globes.
TEST_F(Datafile, WaterPoolsAndGlobesLookRightWhereTheyAreDrawn) {
    for (int i = 0; i < 4; ++i) {
        const Picture water = readPicture(pictureName("TERRAIN/FIELD/WATER", i));
        ASSERT_EQ(water.w, 32);
        for (int x = 0; x < 32; ++x) {
            EXPECT_EQ(water.a(x, 0), 0) << "water " << i << ": its surface lies below the cell's top";
            EXPECT_GE(water.a(x, 31), 180) << "water " << i << " is too thin at the bottom";
        }
        expectSeamless(water, water, false, "water " + std::to_string(i) + " side by side");
    }

    // Landed rockets stand on the ground, their feet in the floor lip.
    for (int i = 0; i < 41; ++i) {
        const std::pair<int, int> rows = inkSpan(readPicture(pictureName("TERRAIN/ROCKET/LANDED", i)), true);
        EXPECT_TRUE(rows.second >= 27 && rows.second <= 30) << "landed rocket " << i << " lowest row " << rows.second;
        EXPECT_GT(rows.first, 0) << "landed rocket " << i << " is cut by the cell's top";
    }

    const char *folders[4] = {"TERRAIN/FIELD/PLANET", "TERRAIN/ICE/PLANET", "TERRAIN/ASTEROID/PLANET",
                              "TERRAIN/SOFT/PLANET"};
    for (int p = 0; p < 4; ++p) {
        std::vector<Picture> turn;
        for (int i = 1; i <= 72; ++i) {
            turn.push_back(readPicture(pictureName(folders[p], i)));
            const Picture &g = turn.back();
            ASSERT_EQ(g.w, 64);
            EXPECT_EQ(g.a(0, 0) + g.a(63, 0) + g.a(0, 63) + g.a(63, 63), 0) << folders[p] << " frame " << i;
            EXPECT_EQ(g.a(32, 32), 255) << folders[p] << " frame " << i;
        }
        // The turn is even and closes on itself: frame 72 leads into frame 1
        // by the same step as any other pair.
        auto diff = [](const Picture &a, const Picture &b) {
            double d = 0;
            for (size_t k = 0; k < a.px.size(); ++k) d += std::abs(a.px[k] - b.px[k]);
            return d / a.px.size();
        };
        std::vector<double> steps;
        for (int i = 0; i + 1 < 72; ++i) steps.push_back(diff(turn[i], turn[i + 1]));
        std::sort(steps.begin(), steps.end());
        EXPECT_GT(steps[0], 0.0) << folders[p] << " does not turn";
        EXPECT_LE(diff(turn[71], turn[0]), 2 * steps[35] + 1) << folders[p] << " jumps where its turn loops";
    }
}

}  // namespace
