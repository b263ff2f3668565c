// The request slots, the volume levels and the music cross-fade, with the
// sample calls counted instead of played.

#include "app/config.h"
#include "app/log.h"
#include "app/startup.h"
#include "audio/audio.h"
#include "support/scratch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <unistd.h>

struct Call {
    char what;  // 'p' play, 'a' adjust, 's' stop
    int sample; // 0..26 sounds, 100..102 music
    int volume, pan, frequency, loop;
};
static std::vector<Call> calls;

// Stand-in samples: only their addresses matter, nothing reads them.
static char soundStore[SOUND_COUNT], musicStore[MUSIC_COUNT];

static int sampleNumber(const SAMPLE *s)
{
    const char *p = reinterpret_cast<const char *>(s);
    if (p >= soundStore && p < soundStore + SOUND_COUNT)
        return (int)(p - soundStore);
    return 100 + (int)(p - musicStore);
}

static int fakePlay(const SAMPLE *s, int volume, int pan, int frequency, int loop)
{
    calls.push_back({'p', sampleNumber(s), volume, pan, frequency, loop});
    return 0;
}
static void fakeAdjust(const SAMPLE *s, int volume, int pan, int frequency, int loop)
{
    calls.push_back({'a', sampleNumber(s), volume, pan, frequency, loop});
}
static void fakeStop(const SAMPLE *s)
{
    calls.push_back({'s', sampleNumber(s), 0, 0, 0, 0});
}

static std::vector<std::string> loadedPaths;
static int failAtLoad = -1;
static SAMPLE *fakeLoad(const char *path)
{
    int n = (int)loadedPaths.size();
    loadedPaths.push_back(path);
    if (n == failAtLoad)
        return nullptr;
    return reinterpret_cast<SAMPLE *>(n < MUSIC_COUNT ? &musicStore[n] : &soundStore[n - MUSIC_COUNT]);
}

// A fresh audio state at the given levels, with every sample "loaded".
static void freshAudio(int soundLevel, int musicLevel)
{
    sampleCalls = {fakeLoad, fakePlay, fakeAdjust, fakeStop};
    for (int n = 0; n < SOUND_COUNT; n++)
        SoundSamples[n] = reinterpret_cast<SAMPLE *>(&soundStore[n]);
    for (int n = 0; n < MUSIC_COUNT; n++)
        MusicSamples[n] = reinterpret_cast<SAMPLE *>(&musicStore[n]);
    settings.soundVolume = soundLevel;
    settings.musicVolume = musicLevel;
    SoundRequest = SoundRequestIdle;
    EffectSoundRequest = 0;
    InterfaceSoundRequest = 0;
    effectVolume = 255;
    musicVolume = 255;
    currentTrack = pendingTrack = NoTrack;
    musicFadingOut = musicFadingIn = musicStopping = 0;
    calls.clear();
}

static std::vector<Call> plays()
{
    std::vector<Call> out;
    for (const Call &c : calls)
        if (c.what == 'p')
            out.push_back(c);
    return out;
}

TEST(Audio, SlotsPlayOncePerTickInterfaceThenEffectThenGame)
{
    freshAudio(10, 10);
    EffectSoundRequest = 3;
    EffectSoundRequest = 15;  // a later write in the same tick wins
    InterfaceSoundRequest = 11;
    SoundRequest = 26;
    audioUpdate();
    std::vector<Call> p = plays();
    ASSERT_EQ(p.size(), 3u);
    EXPECT_EQ(p[0].sample, 11);
    EXPECT_EQ(p[1].sample, 15);
    EXPECT_EQ(p[2].sample, 26);
    EXPECT_EQ(SoundRequest, 100);
    EXPECT_EQ(EffectSoundRequest, 0);
    EXPECT_EQ(InterfaceSoundRequest, 0);

    // Values outside each slot's range are cleared without a sound, and a
    // negative game request reads as a huge unsigned one.
    calls.clear();
    InterfaceSoundRequest = 12;
    EffectSoundRequest = 26;
    SoundRequest = -1;
    audioUpdate();
    EXPECT_TRUE(plays().empty());
    EXPECT_EQ(InterfaceSoundRequest, 0);
    EXPECT_EQ(EffectSoundRequest, 0);
    EXPECT_EQ(SoundRequest, 100);
}

TEST(Audio, LevelsSetTheVolumesAndOddLevelsChangeNothing)
{
    // The effect volume follows the setting at the next tick; level 1 is silent.
    freshAudio(1, 10);
    SoundRequest = 1;
    audioUpdate();
    ASSERT_EQ(plays().size(), 1u);
    EXPECT_EQ(plays()[0].volume, 0);

    // A level outside 1..10 keeps the last volume.
    settings.soundVolume = 4;
    audioUpdate();
    settings.soundVolume = 42;
    calls.clear();
    SoundRequest = 1;
    audioUpdate();
    EXPECT_EQ(plays()[0].volume, 105);

    // The setters adjust every sample of their kind at once, music looping.
    calls.clear();
    setSoundLevel(7);
    setMusicLevel(3);
    EXPECT_EQ(effectVolume, 180);
    EXPECT_EQ(musicVolume, 80);
    EXPECT_EQ(calls.size(), (size_t)(SOUND_COUNT + MUSIC_COUNT));
    calls.clear();
    setSoundLevel(0);
    setMusicLevel(11);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(effectVolume, 180);
    EXPECT_EQ(musicVolume, 80);
}

// Ticks until the next track starts, and until its fade-in ends.
struct Fade {
    int startTick = -1, settledTick = -1;
    int startVolume = -1;
    int highest = -1000, lowest = 1000;  // volumes handed to Allegro
};

static Fade runFade(int maxTicks)
{
    Fade f;
    for (int tick = 1; tick <= maxTicks; tick++) {
        calls.clear();
        audioUpdate();
        for (const Call &c : calls) {
            if (c.what == 'p' && c.sample >= 100) {
                f.startTick = tick;
                f.startVolume = c.volume;
                EXPECT_EQ(c.loop, 1);
            }
            if (c.what != 's') {
                f.highest = std::max(f.highest, c.volume);
                f.lowest = std::min(f.lowest, c.volume);
            }
        }
        if (f.startTick > 0 && !musicFadingIn && f.settledTick < 0)
            f.settledTick = tick;
    }
    return f;
}

TEST(Audio, MusicCrossFadesOutThenIn)
{
    freshAudio(10, 10);
    requestMusic(0);
    EXPECT_EQ(pendingTrack, 0);
    Fade first = runFade(80);
    EXPECT_EQ(first.startTick, 26) << "255 falls by 10 a tick";
    EXPECT_EQ(first.startVolume, 0);
    EXPECT_EQ(first.settledTick - first.startTick, 26);
    EXPECT_EQ(musicVolume, 255);
    EXPECT_EQ(currentTrack, 0);
    EXPECT_LE(first.highest, 255);
    EXPECT_GE(first.lowest, 0);

    // The track playing is asked for again: nothing happens.
    calls.clear();
    requestMusic(0);
    audioUpdate();
    EXPECT_TRUE(calls.empty());

    // Menu to level: the old track stops when the new one starts.
    requestMusic(2);
    for (int tick = 1; tick <= 26; tick++) {
        calls.clear();
        audioUpdate();
        if (tick == 25)
            requestMusic(2);  // mid-fade, already pending: the fade restarts from the setting
    }
    EXPECT_EQ(currentTrack, 0) << "the repeated request restarted the fade-out";
    bool stoppedAll = false;
    for (int tick = 1; tick <= 30 && currentTrack != 2; tick++) {
        calls.clear();
        audioUpdate();
        int stops = 0;
        for (const Call &c : calls)
            stops += c.what == 's';
        stoppedAll = stops == 3;
    }
    EXPECT_EQ(currentTrack, 2);
    EXPECT_TRUE(stoppedAll);

    // Music level 1 fades the new track in to silence.
    freshAudio(10, 1);
    requestMusic(1);
    Fade quiet = runFade(10);
    EXPECT_EQ(quiet.startTick, 1);
    EXPECT_EQ(quiet.highest, 0);
    EXPECT_GT(quiet.settledTick, 0);

    // A level outside 1..10 and the stop at the end: never above full
    // volume, never below silence.
    freshAudio(10, 0);
    requestMusic(1);
    stopMusic();
    Fade bounded = runFade(200);
    EXPECT_TRUE(bounded.highest <= 255 && bounded.lowest >= 0);
}

static void throwingFatal(const char *message)
{
    throw std::runtime_error(message);
}

TEST(Audio, LoadsMusicThenSoundsByNestedPathAndStopsOnAMissingOne)
{
    freshAudio(10, 10);
    strcpy(DataRoot, "/games/delvemoor");
    loadedPaths.clear();
    failAtLoad = -1;
    loadSounds();
    ASSERT_EQ(loadedPaths.size(), 30u);
    EXPECT_EQ(loadedPaths[0], "/games/delvemoor/DATA/DATA.DAT#MUSIC/MUSIC00_WAV");
    EXPECT_EQ(loadedPaths[29], "/games/delvemoor/DATA/DATA.DAT#SOUND/SOUND26_WAV");

    ScratchFolder dir("delvemoor-audio");
    const std::string logPath = dir / "gamelog.txt";
    openLogAt(logPath.c_str());
    setFatalHook(throwingFatal);
    struct Case {
        int failAt;
        const char *line, *message;
    } cases[] = {
        {1, "# ERROR! # Cannot load music data", "Cannot load music data"},
        {8, "# ERROR! # Cannot load sound data", "Cannot load sound data"},
    };
    for (const Case &c : cases) {
        loadedPaths.clear();
        failAtLoad = c.failAt;
        std::string message;
        try {
            loadSounds();
        } catch (const std::runtime_error &e) {
            message = e.what();
        }
        EXPECT_EQ(message, c.message);
        EXPECT_EQ(loadedPaths.size(), (size_t)c.failAt + 1) << "nothing is tried after the failure";
        EXPECT_NE(readFile(logPath).find(c.line), std::string::npos) << c.line;
    }
    setFatalHook(nullptr);
    closeLog();
    failAtLoad = -1;
}
