// Every picture of the datafile, decoded and made into an OpenGL texture at
// once: the game keeps nothing but the texture ids.

#include "render/datafile.h"
#include "render/textures.h"

#include "app/log.h"
#include "app/gamedir.h"

#include <allegro.h>
#include <alleggl.h>
#include <jpgalleg.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

struct ImageFolder {
    const char *folder;      // path inside the datafile
    int frames;
    TextureId *table;
    uint64_t jpegFrames;     // bit n set: frame n is the _JPG object, decoded as JPEG
    const char *failureLine;
};

static const uint64_t NO_JPEG = 0;

// The bulk pass, in loading order. HARVESTER is the datafile's word for the
// hatcher, TRANSPORT for the energy lift.
static const ImageFolder imageFolders[] = {
    {"MOUSE", 3, CursorTextures, NO_JPEG, "# ERROR! # Cannot load CURSOR data"},
    {"SPRITES2/INTRO", 2, IntroTextures, NO_JPEG, "# ERROR! # Cannot load INTRO data"},
    {"TERRAIN/FIELD", 23, FieldTextures, NO_JPEG, "# ERROR! # Cannot load FIELD TERRAIN data"},
    {"TERRAIN/FIELD/BACKGROUND", 6, FieldBackgroundTextures, (1u << 0) | (1u << 3) | (1u << 4),
     "# ERROR! # Cannot load FIELD TERRAIN BACKGROUND data"},
    {"SPRITES", 45, SpriteTextures, 1ull << 39, "# ERROR! # Cannot load SPRITE data"},
    {"TERRAIN/POD", 21, PodTextures, NO_JPEG, "# ERROR! # Cannot load SPECIAL (POD) data"},
    {"TERRAIN/ROCKET/LANDED", 41, RocketLandedTextures, NO_JPEG, "# ERROR! # Cannot load SPECIAL (ROCKET LAND) data"},
    {"TERRAIN/ROCKET/FLYING", 41, RocketFlyingTextures, NO_JPEG, "# ERROR! # Cannot load SPECIAL (ROCKET FLY) data"},
    {"TERRAIN/FIELD/WATER", 11, WaterTextures, NO_JPEG, "# ERROR! # Cannot load SPECIAL (PLANET1 WATER) data"},
    {"TERRAIN/FIELD/PLANET", 73, Planet1Textures, NO_JPEG, "# ERROR! # Cannot load PLANET1 data"},
    {"TERRAIN/ICE/PLANET", 73, Planet2Textures, NO_JPEG, "# ERROR! # Cannot load PLANET2 data"},
    {"TERRAIN/ASTEROID/PLANET", 73, Planet3Textures, NO_JPEG, "# ERROR! # Cannot load PLANET3 data"},
    {"TERRAIN/SOFT/PLANET", 73, Planet4Textures, NO_JPEG, "# ERROR! # Cannot load PLANET4 data"},
    {"BUILDING/GIRDER", 1, GirderTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (GIRDER) data"},
    {"BUILDING/GIRDERLEFT", 1, GirderLeftTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (GIRDER LEFT) data"},
    {"BUILDING/GIRDERRIGHT", 1, GirderRightTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (GIRDER RIGHT) data"},
    {"BUILDING/HARVESTER", 20, HarvesterTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (HARVESTER) data"},
    {"BUILDING/HARVESTERON", 20, HarvesterOnTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (HARVESTER ON) data"},
    {"BUILDING/TRANSPORTUP", 21, TransportUpTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (TRANSPORT UP) data"},
    {"BUILDING/TRANSPORTLEFT", 21, TransportLeftTextures, NO_JPEG,
     "# ERROR! # Cannot load BUILDING (TRANSPORT LEFT) data"},
    {"BUILDING/TRANSPORTRIGHT", 21, TransportRightTextures, NO_JPEG,
     "# ERROR! # Cannot load BUILDING (TRANSPORT RIGHT) data"},
    {"BUILDING/BLOCKER", 1, BlockerTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (BLOCKER) data"},
    {"BUILDING/SHOVEL", 1, ShovelTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (SHOVEL) data"},
    {"BUILDING/DYNAMITE", 6, DynamiteTextures, NO_JPEG, "# ERROR! # Cannot load BUILDING (DYNAMITE) data"},
    {"GUI", 32, GuiTextures, NO_JPEG, "# ERROR! # Cannot load GUI data"},
    {"SPRITES2/GREENMAN/WALK", 21, GreenmanWalkTextures, NO_JPEG, "# ERROR! # Cannot load GREENMAN (WALK) data"},
    {"SPRITES2/GREENMAN/ENTER", 17, GreenmanEnterTextures, NO_JPEG, "# ERROR! # Cannot load GREENMAN (ENTER) data"},
    {"SPRITES2/GREENMAN/SUCKED", 21, GreenmanSuckedTextures, NO_JPEG,
     "# ERROR! # Cannot load GREENMAN (SUCKED) data"},
    {"SPRITES2/GREENMAN/FALL", 21, GreenmanFallTextures, NO_JPEG, "# ERROR! # Cannot load GREENMAN (FALL) data"},
    {"SPRITES2/EXPLOSIONS/SMALL", 10, ExplosionSmallTextures, NO_JPEG, "# ERROR! # Cannot load EXPLOSION (SMALL) data"},
    {"SPRITES2/STARS", 3, StarTextures, NO_JPEG, "# ERROR! # Cannot load STAR data"},
};
static const int IMAGE_FOLDER_COUNT = sizeof imageFolders / sizeof imageFolders[0];
static const ImageFolder &introFolder = imageFolders[1];

static const ImageFolder fontFolder = {"FONT", 3, FontTextures, NO_JPEG, "# ERROR! # Cannot load FONT data"};

static TextureId makeGlTexture(BITMAP *picture)
{
    return allegro_gl_make_texture(picture);
}

TextureId (*makeTexture)(BITMAP *picture) = makeGlTexture;

static bool isJpegFrame(const ImageFolder &folder, int frame)
{
    return frame < 64 && (folder.jpegFrames >> frame) & 1;
}

static void framePath(char *path, size_t size, const ImageFolder &folder, int frame)
{
    snprintf(path, size, "%s/DATA/DATA.DAT#%s/DATA%02d_%s", DataRoot, folder.folder, frame,
             isJpegFrame(folder, frame) ? "JPG" : "TGA");
}

// Null when the object is missing or is not a picture of the expected kind.
static BITMAP *decodeFrame(const DataObjectCache &cache, const char *path, bool jpeg)
{
    const std::vector<unsigned char> *bytes = findDataObject(cache, path);
    if (!bytes || bytes->empty())
        return nullptr;
    if (jpeg)
        return load_memory_jpg(const_cast<unsigned char *>(bytes->data()), (int)bytes->size(), nullptr);
    PACKFILE *file = openMemoryPackfile(*bytes);
    if (!file)
        return nullptr;
    BITMAP *picture = load_tga_pf(file, nullptr);
    pack_fclose(file);
    return picture;
}

// The first frame that cannot be decoded stops the game: nothing is retried
// and no placeholder stands in for a picture.
static void loadFolder(const DataObjectCache &cache, const ImageFolder &folder)
{
    char path[10000];
    for (int frame = 0; frame < folder.frames; frame++) {
        framePath(path, sizeof path, folder, frame);
        BITMAP *picture = decodeFrame(cache, path, isJpegFrame(folder, frame));
        if (!picture) {
            logLine("%s", folder.failureLine);
            fatalError("Cannot load data");
        }
        folder.table[frame] = makeTexture(picture);
        destroy_bitmap(picture);
    }
}

static void appendFramePaths(std::vector<std::string> &paths, const ImageFolder *folders, int count)
{
    char path[10000];
    for (int i = 0; i < count; i++)
        for (int frame = 0; frame < folders[i].frames; frame++) {
            framePath(path, sizeof path, folders[i], frame);
            paths.push_back(path);
        }
}

std::vector<std::string> imageFramePaths()
{
    std::vector<std::string> paths;
    appendFramePaths(paths, imageFolders, IMAGE_FOLDER_COUNT);
    return paths;
}

// One walk through the datafile gathers the objects of all the given folders.
static void cacheFolders(DataObjectCache &cache, const ImageFolder *folders, int count)
{
    std::vector<std::string> paths;
    appendFramePaths(paths, folders, count);
    fillDataObjectCache(cache, paths);
}

// Conversion off keeps each picture at the depth it has in the file, so a
// 32-bit TGA keeps its alpha channel.
static void startPass()
{
    set_color_conversion(COLORCONV_NONE);
    allegro_gl_set_texture_format(GL_RGBA8);
}

// Where it can, AllegroGL has the driver generate the mipmaps. A software
// renderer (Mesa's llvmpipe) then waits for its rasteriser threads after every
// texture, which made the 724 small pictures take half a second; AllegroGL's
// other way, through GLU on the processor, takes a fifth of that and gives the
// same sizes, the same full-size level and the same smaller levels to within
// one step of rounding. The passes use it and put the flag back afterwards.
static int buildMipmapsOnProcessor()
{
    int driverMipmaps = allegro_gl_extensions_GL.SGIS_generate_mipmap;
    allegro_gl_extensions_GL.SGIS_generate_mipmap = 0;
    return driverMipmaps;
}

static void restoreMipmapBuilder(int driverMipmaps)
{
    allegro_gl_extensions_GL.SGIS_generate_mipmap = driverMipmaps;
}

// Each pass sets the conversion itself, so none depends on the order in
// which the load screen calls them.
static void loadFolders(const ImageFolder *folders, int count)
{
    startPass();
    int driverMipmaps = buildMipmapsOnProcessor();
    DataObjectCache cache;
    cacheFolders(cache, folders, count);
    for (int i = 0; i < count; i++) {
        // Set again before INTRO, whose frames the load screen already made
        // once: the bulk pass must not depend on what the load screen left.
        if (&folders[i] == &introFolder)
            allegro_gl_set_texture_format(GL_RGBA8);
        loadFolder(cache, folders[i]);
    }
    restoreMipmapBuilder(driverMipmaps);
}

void loadFontData()
{
    loadFolders(&fontFolder, 1);
}

void loadIntroData()
{
    loadFolders(&introFolder, 1);
}

void loadImageData()
{
    loadFolders(imageFolders, IMAGE_FOLDER_COUNT);
}
