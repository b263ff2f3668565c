// Reading pictures out of the datafile: the one-pass object cache must find
// exactly what Allegro's own nested paths find, and the image pass must fill
// every table slot from the right object or stop with the folder's error.

#include "app/log.h"
#include "app/startup.h"
#include "render/datafile.h"
#include "render/textures.h"
#include "support/scratch.h"

#include <allegro.h>
#include <jpgalleg.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <unistd.h>

typedef std::vector<unsigned char> Bytes;

// One object of a datafile being written: a folder or a block of bytes.
struct Node {
    std::string name;
    bool folder;
    Bytes bytes;
    std::vector<Node> children;
};

enum Storage { Plain, PerObject, Global };

static void putName(PACKFILE *f, const std::string &name)
{
    pack_mputl(DAT_PROPERTY, f);
    pack_mputl(DAT_NAME, f);
    pack_mputl((long)name.size(), f);
    pack_fwrite(name.data(), (long)name.size(), f);
}

static void writeObjects(PACKFILE *f, const std::vector<Node> &nodes, bool compress)
{
    pack_mputl((long)nodes.size(), f);
    for (const Node &n : nodes) {
        putName(f, n.name);
        pack_mputl(n.folder ? DAT_FILE : DAT_DATA, f);
        // As the dat tool does it: each leaf packed on its own, folders not.
        PACKFILE *chunk = pack_fopen_chunk(f, compress && !n.folder);
        if (n.folder)
            writeObjects(chunk, n.children, compress);
        else if (!n.bytes.empty())
            pack_fwrite(n.bytes.data(), (long)n.bytes.size(), chunk);
        pack_fclose_chunk(chunk);
    }
}

static void writeDatafile(const std::string &path, const std::vector<Node> &root, Storage storage)
{
    PACKFILE *f = pack_fopen(path.c_str(), storage == Global ? F_WRITE_PACKED : F_WRITE_NOPACK);
    ASSERT_NE(f, nullptr) << path;
    pack_mputl(DAT_MAGIC, f);
    writeObjects(f, root, storage == PerObject);
    pack_fclose(f);
}

// Adds bytes at a slash-separated path, making the folders on the way.
static void put(std::vector<Node> &root, const std::string &path, const Bytes &bytes)
{
    size_t slash = path.find('/');
    if (slash == std::string::npos) {
        root.push_back({path, false, bytes, {}});
        return;
    }
    std::string folder = path.substr(0, slash);
    for (Node &n : root)
        if (n.folder && n.name == folder) {
            put(n.children, path.substr(slash + 1), bytes);
            return;
        }
    root.push_back({folder, true, {}, {}});
    put(root.back().children, path.substr(slash + 1), bytes);
}

// An uncompressed 32-bit TGA of w x h.
static Bytes tga(int w, int h)
{
    Bytes b = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, (unsigned char)w, (unsigned char)(w >> 8),
               (unsigned char)h, (unsigned char)(h >> 8), 32, 8};
    for (int i = 0; i < w * h; i++) {
        b.push_back(10);
        b.push_back(20);
        b.push_back(30);
        b.push_back(128);
    }
    return b;
}

static Bytes jpeg(int w, int h)
{
    BITMAP *picture = create_bitmap_ex(24, w, h);
    clear_to_color(picture, makecol_depth(24, 90, 60, 30));
    Bytes b((size_t)(w * h * 3 + 4096));
    int size = (int)b.size();
    int result = save_memory_jpg(b.data(), &size, picture, nullptr);
    destroy_bitmap(picture);
    EXPECT_EQ(result, 0);
    b.resize(result == 0 ? (size_t)size : 0);
    return b;
}

class Loader : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        // The loaders need Allegro's bitmaps, not a screen.
        if (!system_driver)
            install_allegro(SYSTEM_NONE, &errno, atexit);
        jpgalleg_init();
    }
    ScratchFolder scratch{"delvemoor-loader"};
    const std::string dir = scratch.path + "/";
};

static bool allegroFinds(const std::string &nested)
{
    PACKFILE *f = pack_fopen(nested.c_str(), F_READ);
    if (f)
        pack_fclose(f);
    return f != nullptr;
}

TEST_F(Loader, CacheFindsWhatAllegrosNestedPathsFind)
{
    std::vector<Node> root;
    put(root, "MOUSE/DATA00_TGA", Bytes{1, 2, 3});
    put(root, "MOUSE/DATA01_TGA", Bytes{4});
    put(root, "MOUSE/DATA01_TGA", Bytes{5});  // a second of the same name
    put(root, "TERRAIN/FIELD/DATA00_TGA", Bytes(70000, 7));
    put(root, "TERRAIN/FIELD/PLANET/DATA72_TGA", Bytes{9, 9});
    put(root, "TERRAIN/FIELD/EMPTY_TGA", Bytes{});
    put(root, "lower/data00_tga", Bytes{6});
    root.push_back({"TERRAIN", true, {}, {}});  // a second TERRAIN folder: unreachable
    put(root.back().children, "POD/DATA00_TGA", Bytes{8});

    // Each object path with the bytes it must yield; null where there is none.
    const Bytes big(70000, 7), empty;
    const Bytes first01{4}, mouse00{1, 2, 3}, planet{9, 9}, lower{6};
    const struct {
        const char *object;
        const Bytes *bytes;
    } objects[] = {
        {"MOUSE/DATA00_TGA", &mouse00},
        {"mouse/data00_tga", &mouse00},
        {"MOUSE/DATA01_TGA", &first01},
        {"MOUSE/DATA02_TGA", nullptr},
        {"TERRAIN/FIELD/DATA00_TGA", &big},
        {"TERRAIN/FIELD/PLANET/DATA72_TGA", &planet},
        {"TERRAIN/FIELD/EMPTY_TGA", &empty},
        {"LOWER/DATA00_TGA", &lower},
        {"TERRAIN/POD/DATA00_TGA", nullptr},
        {"NOWHERE/DATA00_TGA", nullptr},
    };
    for (Storage storage : {Plain, PerObject, Global}) {
        std::string file = dir + "cache" + std::to_string(storage) + ".dat";
        writeDatafile(file, root, storage);
        std::vector<std::string> paths;
        for (const auto &o : objects)
            paths.push_back(file + "#" + o.object);
        DataObjectCache cache;
        fillDataObjectCache(cache, paths);
        for (size_t i = 0; i < paths.size(); i++) {
            const Bytes *cached = findDataObject(cache, paths[i].c_str());
            EXPECT_EQ(cached != nullptr, allegroFinds(paths[i])) << storage << " " << paths[i];
            if (!objects[i].bytes) {
                EXPECT_EQ(cached, nullptr) << storage << " " << paths[i];
                continue;
            }
            ASSERT_NE(cached, nullptr) << storage << " " << paths[i];
            EXPECT_EQ(*cached, *objects[i].bytes) << storage << " " << paths[i];
        }
        // Allegro would open a folder as raw bytes; the cache holds only the
        // leaf objects, which is all a picture or a sound can be.
        DataObjectCache folders;
        fillDataObjectCache(folders, {file + "#TERRAIN/FIELD"});
        EXPECT_TRUE(folders.objects.empty());
        EXPECT_EQ(findDataObject(cache, "other.dat#MOUSE/DATA00_TGA"), nullptr);
        EXPECT_EQ(findDataObject(cache, "no hash at all"), nullptr);
    }

    // A damaged file: what lies before the damage is still found, and a
    // missing file gives nothing; neither crashes nor hangs.
    std::string file = dir + "cache0.dat";
    std::ifstream in(file, std::ios::binary);
    Bytes whole((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    std::string cut = dir + "cut.dat";
    std::ofstream(cut, std::ios::binary).write((const char *)whole.data(), (long)whole.size() / 2);
    DataObjectCache damaged;
    fillDataObjectCache(damaged, {cut + "#MOUSE/DATA00_TGA", cut + "#TERRAIN/FIELD/PLANET/DATA72_TGA"});
    EXPECT_NE(findDataObject(damaged, (cut + "#MOUSE/DATA00_TGA").c_str()), nullptr);
    EXPECT_EQ(findDataObject(damaged, (cut + "#TERRAIN/FIELD/PLANET/DATA72_TGA").c_str()), nullptr);

    Bytes hostile = {'s', 'l', 'h', '.', 'A', 'L', 'L', '.', 0x7f, 0xff, 0xff, 0xff};
    std::string bad = dir + "hostile.dat";
    std::ofstream(bad, std::ios::binary).write((const char *)hostile.data(), (long)hostile.size());
    DataObjectCache none;
    fillDataObjectCache(none, {bad + "#MOUSE/DATA00_TGA", dir + "missing.dat#MOUSE/DATA00_TGA"});
    EXPECT_TRUE(none.objects.empty());
}

// Picture number i of a pass is i % 100 + 1 wide and i / 100 + 1 high; the
// stand-in texture maker turns the size back into i, plus 100000 when the
// picture kept 32 bits.
static TextureId sizeAsId(BITMAP *picture)
{
    int depth = bitmap_color_depth(picture);
    return (TextureId)((picture->h - 1) * 100 + (picture->w - 1) + (depth == 32 ? 100000 : 0));
}

static void throwingFatal(const char *message)
{
    throw std::runtime_error(message);
}

static bool endsWith(const std::string &s, const std::string &tail)
{
    return s.size() >= tail.size() && s.compare(s.size() - tail.size(), tail.size(), tail) == 0;
}

TEST_F(Loader, ImagePassFillsEverySlotAndStopsAtTheFirstMissingFrame)
{
    std::string game = dir + "game";
    mkdir(game.c_str(), 0755);
    mkdir((game + "/DATA").c_str(), 0755);
    strcpy(DataRoot, game.c_str());
    const std::string datafile = game + "/DATA/DATA.DAT";
    const std::string prefix = datafile + "#";

    // 724 frames named by the game directory and folder, the frame number in
    // two digits and the picture's own format.
    std::vector<std::string> paths = imageFramePaths();
    ASSERT_EQ(paths.size(), 724u);
    auto indexOf = [&](const std::string &object) {
        return (int)(std::find(paths.begin(), paths.end(), prefix + object) - paths.begin());
    };
    const std::string fonts[3] = {"FONT/DATA00_TGA", "FONT/DATA01_TGA", "FONT/DATA02_TGA"};

    // The datafile: every frame of the pass and the font, optionally without
    // one object and with one more.
    auto build = [&](const std::string &skip, const std::string &extra) {
        std::vector<Node> root;
        for (int i = 0; i < 724 + 3; i++) {
            std::string object = i < 724 ? paths[i].substr(prefix.size()) : fonts[i - 724];
            int w = i % 100 + 1, h = i / 100 + 1;
            if (object != skip)
                put(root, object, endsWith(object, "_JPG") ? jpeg(w, h) : tga(w, h));
        }
        if (!extra.empty())
            put(root, extra, tga(1, 1));
        writeDatafile(datafile, root, PerObject);
    };

    makeTexture = sizeAsId;
    build("", "");
    loadImageData();
    // Made in order, each from its own object; JPEG has no alpha and
    // decodes to 24 bits, TGA keeps its 32.
    EXPECT_EQ(CursorTextures[0], 100000u);
    EXPECT_EQ(IntroTextures[1], 100004u);
    EXPECT_EQ(FieldBackgroundTextures[0], (TextureId)indexOf("TERRAIN/FIELD/BACKGROUND/DATA00_JPG"));
    EXPECT_EQ(FieldBackgroundTextures[1], 100000u + indexOf("TERRAIN/FIELD/BACKGROUND/DATA01_TGA"));
    EXPECT_EQ(SpriteTextures[39], (TextureId)indexOf("SPRITES/DATA39_JPG"));
    EXPECT_EQ(Planet4Textures[72], 100000u + indexOf("TERRAIN/SOFT/PLANET/DATA72_TGA"));
    EXPECT_EQ(GuiTextures[31], 100000u + indexOf("GUI/DATA31_TGA"));
    EXPECT_EQ(StarTextures[2], 100723u);
    loadFontData();
    EXPECT_EQ(FontTextures[2], 100726u);

    std::string logPath = dir + "loader_log.txt";
    openLogAt(logPath.c_str());
    setFatalHook(throwingFatal);
    struct Case {
        const char *skip, *extra, *line;
        void (*load)();
    } cases[] = {
        {"SPRITES/DATA39_JPG", "SPRITES/DATA39_TGA", "# ERROR! # Cannot load SPRITE data", loadImageData},
        {"SPRITES2/STARS/DATA02_TGA", "", "# ERROR! # Cannot load STAR data", loadImageData},
        {"TERRAIN/SOFT/PLANET/DATA72_TGA", "", "# ERROR! # Cannot load PLANET4 data", loadImageData},
        {"BUILDING/TRANSPORTLEFT/DATA20_TGA", "", "# ERROR! # Cannot load BUILDING (TRANSPORT LEFT) data",
         loadImageData},
        {"FONT/DATA01_TGA", "", "# ERROR! # Cannot load FONT data", loadFontData},
        {"SPRITES2/INTRO/DATA00_TGA", "", "# ERROR! # Cannot load INTRO data", loadIntroData},
        {"", "", "# ERROR! # Cannot load CURSOR data", loadImageData},  // no datafile at all
    };
    for (const Case &c : cases) {
        if (*c.skip)
            build(c.skip, c.extra);
        else
            remove(datafile.c_str());
        std::string message;
        try {
            c.load();
        } catch (const std::runtime_error &e) {
            message = e.what();
        }
        EXPECT_EQ(message, "Cannot load data") << c.line;
        EXPECT_NE(readFile(logPath).find(c.line), std::string::npos) << c.line;
    }
    setFatalHook(nullptr);
    closeLog();
}
