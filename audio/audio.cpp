// Sound effects and the three music tracks. Nothing else in the game touches
// the audio library: the rest of the game writes sound numbers into the
// request slots, and audioUpdate plays them and runs the music cross-fade.

#include "audio/audio.h"

#include "app/config.h"
#include "app/log.h"
#include "app/gamedir.h"

#include <allegro.h>

#include <cstdio>

int32_t SoundRequest = SoundRequestIdle;
int32_t EffectSoundRequest = 0;
int32_t InterfaceSoundRequest = 0;

SAMPLE *SoundSamples[SOUND_COUNT];
SAMPLE *MusicSamples[MUSIC_COUNT];

int32_t effectVolume = 255;
int32_t musicVolume = 255;
int32_t currentTrack = NoTrack;
int32_t pendingTrack = NoTrack;
uint8_t musicFadingOut = 0;
uint8_t musicFadingIn = 0;
uint8_t musicStopping = 0;

static const int PAN_CENTRE = 128;
static const int NORMAL_FREQUENCY = 1000;
static const int FADE_STEP = 10;
static const int STOP_STEP = 20;

// The stored music volume runs a fade below 0 and back; in-range levels keep
// it within -10..255. These bounds only stop a fade that never ends (a level
// outside 1..10 from an edited configuration) or the fade-out at exit from
// running away; Allegro itself is only ever handed 0..255.
static const int32_t MUSIC_VOLUME_FLOOR = -255;
static const int32_t MUSIC_VOLUME_CEILING = 255;

SampleCalls sampleCalls = {load_wav, play_sample, adjust_sample, stop_sample};

// Level 1 is silence, then 55 up to 255 in steps of 25.
static const int volumeTable[10] = {0, 55, 80, 105, 130, 155, 180, 205, 230, 255};

int volumeForLevel(int level)
{
    return level >= 1 && level <= 10 ? volumeTable[level - 1] : -1;
}

static int allegroVolume(int32_t volume)
{
    return volume < 0 ? 0 : volume > 255 ? 255 : (int)volume;
}

static void loadSampleSet(SAMPLE **samples, int count, const char *format, const char *errorLine,
                          const char *fatalText)
{
    char path[10000];
    for (int n = 0; n < count; n++) {
        snprintf(path, sizeof path, format, DataRoot, n);
        samples[n] = sampleCalls.load(path);
        if (!samples[n]) {
            logLine("%s", errorLine);
            fatalError("%s", fatalText);
        }
    }
}

// Read straight by their nested paths: thirty objects cost a few
// milliseconds, and the datafile is never loaded as a whole.
void loadSounds()
{
    loadSampleSet(MusicSamples, MUSIC_COUNT, "%s/DATA/DATA.DAT#MUSIC/MUSIC%02d_WAV",
                  "# ERROR! # Cannot load music data", "Cannot load music data");
    loadSampleSet(SoundSamples, SOUND_COUNT, "%s/DATA/DATA.DAT#SOUND/SOUND%02d_WAV",
                  "# ERROR! # Cannot load sound data", "Cannot load sound data");
}

// Without a sound device the samples still load and these calls do nothing;
// before loading there is nothing to play at all.
static void playEffect(int n)
{
    if (SoundSamples[n])
        sampleCalls.play(SoundSamples[n], allegroVolume(effectVolume), PAN_CENTRE, NORMAL_FREQUENCY, 0);
}

static void applyMusicVolume()
{
    for (SAMPLE *music : MusicSamples)
        if (music)
            sampleCalls.adjust(music, allegroVolume(musicVolume), PAN_CENTRE, NORMAL_FREQUENCY, 1);
}

static void changeMusicVolume(int32_t step)
{
    musicVolume += step;
    if (musicVolume < MUSIC_VOLUME_FLOOR)
        musicVolume = MUSIC_VOLUME_FLOOR;
    if (musicVolume > MUSIC_VOLUME_CEILING)
        musicVolume = MUSIC_VOLUME_CEILING;
    applyMusicVolume();
}

static void startPendingTrack()
{
    for (SAMPLE *music : MusicSamples)
        if (music)
            sampleCalls.stop(music);
    currentTrack = pendingTrack;
    if (currentTrack >= 0 && currentTrack < MUSIC_COUNT && MusicSamples[currentTrack])
        sampleCalls.play(MusicSamples[currentTrack], allegroVolume(musicVolume), PAN_CENTRE, NORMAL_FREQUENCY, 1);
}

// The old track fades out from the setting's volume, then the new one starts
// silent and fades in until it reaches the setting again.
static void runMusicFade()
{
    if (musicFadingOut) {
        changeMusicVolume(-FADE_STEP);
        if (musicVolume <= 0) {
            musicFadingOut = 0;
            startPendingTrack();
        }
    } else if (musicFadingIn) {
        changeMusicVolume(FADE_STEP);
        int target = volumeForLevel(settings.musicVolume);
        if (target >= 0 && musicVolume >= target)
            musicFadingIn = 0;
    }
}

// One request per slot and tick; the slots play interface first, then
// effects, then the game's own sounds.
void audioUpdate()
{
    int level = volumeForLevel(settings.soundVolume);
    if (level >= 0)
        effectVolume = level;

    int32_t ui = InterfaceSoundRequest;
    if (ui == 10 || ui == ButtonSound || ui == SliderSound)
        playEffect(ui);
    if (ui != 0)
        InterfaceSoundRequest = 0;

    int32_t effect = EffectSoundRequest;
    if (effect >= 1 && effect <= 25)
        playEffect(effect);
    if (effect != 0)
        EffectSoundRequest = 0;

    // Sound 20 is never played through this slot: it stays set until another
    // value replaces it. Compared unsigned, so a negative value is cleared.
    uint32_t request = (uint32_t)SoundRequest;
    if (request != (uint32_t)EnteringSound) {
        if (request <= 26)
            playEffect((int)request);
        SoundRequest = SoundRequestIdle;
    }

    runMusicFade();

    if (musicStopping)
        changeMusicVolume(-STOP_STEP);
}

// Asking for the track already playing changes nothing, even mid-fade; a
// track that does not exist is ignored rather than read past the table.
void requestMusic(int track)
{
    if (track == currentTrack || track < 0 || track >= MUSIC_COUNT)
        return;
    pendingTrack = track;
    musicFadingOut = 1;
    musicFadingIn = 1;
    int volume = volumeForLevel(settings.musicVolume);
    if (volume >= 0)
        musicVolume = volume;
}

void stopMusic()
{
    musicStopping = 1;
}

void setSoundLevel(int level)
{
    int volume = volumeForLevel(level);
    if (volume < 0)
        return;
    for (SAMPLE *sound : SoundSamples)
        if (sound)
            sampleCalls.adjust(sound, volume, PAN_CENTRE, NORMAL_FREQUENCY, 0);
    effectVolume = volume;
}

void setMusicLevel(int level)
{
    int volume = volumeForLevel(level);
    if (volume < 0)
        return;
    musicVolume = volume;
    applyMusicVolume();
}
