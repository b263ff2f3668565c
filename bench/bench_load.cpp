// How long start-up spends on the datafile: every picture decoded and made
// into a texture (with mipmaps, as the game makes them), and every sound.
// Needs an OpenGL window: run under Xvfb on a machine without a display,
// e.g. xvfb-run -a -s "-screen 0 1024x768x24" bench_load. The game directory
// comes from DELVEMOOR_GAME_DIR, else the build's own.

#include "app/log.h"
#include "app/startup.h"
#include "audio/audio.h"
#include "render/datafile.h"
#include "render/textures.h"

#include <allegro.h>
#include <alleggl.h>
#include <jpgalleg.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// Every texture table of the bulk pass, to give the textures back between runs.
static std::vector<std::pair<TextureId *, int>> allTables()
{
    return {{CursorTextures, 3}, {IntroTextures, 2}, {FieldTextures, 23}, {FieldBackgroundTextures, 6},
            {SpriteTextures, 45}, {PodTextures, 21}, {RocketLandedTextures, 41}, {RocketFlyingTextures, 41},
            {WaterTextures, 11}, {Planet1Textures, 73}, {Planet2Textures, 73}, {Planet3Textures, 73},
            {Planet4Textures, 73}, {GirderTextures, 1}, {GirderLeftTextures, 1}, {GirderRightTextures, 1},
            {HarvesterTextures, 20}, {HarvesterOnTextures, 20}, {TransportUpTextures, 21},
            {TransportLeftTextures, 21}, {TransportRightTextures, 21}, {BlockerTextures, 1}, {ShovelTextures, 1},
            {DynamiteTextures, 6}, {GuiTextures, 32}, {GreenmanWalkTextures, 21}, {GreenmanEnterTextures, 17},
            {GreenmanSuckedTextures, 21}, {GreenmanFallTextures, 21}, {ExplosionSmallTextures, 10},
            {StarTextures, 3}};
}

static void deleteTextures()
{
    for (auto &table : allTables()) {
        glDeleteTextures(table.second, table.first);
        for (int i = 0; i < table.second; i++)
            table.first[i] = 0;
    }
}

// Starts the libraries and a 640 x 480 OpenGL window once; false without one.
static bool startOnce(benchmark::State &state)
{
    static int started = 0;  // 0 not tried, 1 ready, -1 failed
    if (started == 0) {
        started = -1;
        const char *dir = getenv("DELVEMOOR_GAME_DIR");
        snprintf(DataRoot, sizeof DataRoot, "%s", dir ? dir : DELVEMOOR_BUILD_GAME_DIR);
        if (allegro_init() == 0 && install_allegro_gl() == 0 && jpgalleg_init() == 0) {
            allegro_gl_clear_settings();
            allegro_gl_set(AGL_COLOR_DEPTH, 32);
            allegro_gl_set(AGL_DOUBLEBUFFER, 1);
            allegro_gl_set(AGL_SUGGEST, AGL_COLOR_DEPTH | AGL_DOUBLEBUFFER);
            set_color_depth(32);
            if (set_gfx_mode(GFX_OPENGL_WINDOWED, 640, 480, 0, 0) == 0) {
                allegro_gl_use_mipmapping(TRUE);
                started = 1;
                fprintf(stderr, "renderer: %s\ndatafile: %s/DATA/DATA.DAT\n",
                        (const char *)glGetString(GL_RENDERER), DataRoot);
            }
        }
    }
    if (started < 0)
        state.SkipWithError("no OpenGL window (run under xvfb-run) or the libraries did not start");
    return started > 0;
}

// The whole bulk pass as start-up runs it.
static void LoadImageData(benchmark::State &state)
{
    if (!startOnce(state))
        return;
    for (auto _ : state) {
        loadImageData();
        state.PauseTiming();
        deleteTextures();
        state.ResumeTiming();
    }
    state.counters["frames"] = (double)imageFramePaths().size();
}
BENCHMARK(LoadImageData)->Unit(benchmark::kMillisecond)->Iterations(5);

static void LoadSounds(benchmark::State &state)
{
    if (!startOnce(state))
        return;
    for (auto _ : state) {
        loadSounds();
        state.PauseTiming();
        for (SAMPLE *&s : SoundSamples)
            destroy_sample(s);
        for (SAMPLE *&s : MusicSamples)
            destroy_sample(s);
        state.ResumeTiming();
    }
}
BENCHMARK(LoadSounds)->Unit(benchmark::kMillisecond)->Iterations(5);

// The parts of the pass: one walk through the datafile...
static void ReadPictureObjects(benchmark::State &state)
{
    if (!startOnce(state))
        return;
    std::vector<std::string> paths = imageFramePaths();
    for (auto _ : state) {
        DataObjectCache cache;
        fillDataObjectCache(cache, paths);
        benchmark::DoNotOptimize(cache.objects.size());
    }
}
BENCHMARK(ReadPictureObjects)->Unit(benchmark::kMillisecond)->Iterations(5);

// ...against what opening each object by its nested path would cost instead.
static void OpenEachNestedPath(benchmark::State &state)
{
    if (!startOnce(state))
        return;
    std::vector<std::string> paths = imageFramePaths();
    for (auto _ : state)
        for (const std::string &p : paths) {
            PACKFILE *f = pack_fopen(p.c_str(), F_READ);
            if (f)
                pack_fclose(f);
        }
}
BENCHMARK(OpenEachNestedPath)->Unit(benchmark::kMillisecond)->Iterations(5);

// The pass without the texture upload: decoding only.
static TextureId noTexture(BITMAP *)
{
    return 1;
}
static void DecodePicturesOnly(benchmark::State &state)
{
    if (!startOnce(state))
        return;
    TextureId (*saved)(BITMAP *) = makeTexture;
    makeTexture = noTexture;
    for (auto _ : state)
        loadImageData();
    makeTexture = saved;
}
BENCHMARK(DecodePicturesOnly)->Unit(benchmark::kMillisecond)->Iterations(5);
