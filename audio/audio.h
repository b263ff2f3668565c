// Sound effects and music. Other parts of the game ask for a sound by writing
// its number into a request slot; audioUpdate plays it once per tick.
#pragma once

#include <cstdint>

struct SAMPLE;

const int SOUND_COUNT = 27;
const int MUSIC_COUNT = 3;
const int SoundRequestIdle = 100;
const int32_t NoTrack = 99999999;

extern int32_t SoundRequest;           // idle 100
extern int32_t EffectSoundRequest;     // idle 0
extern int32_t InterfaceSoundRequest;  // idle 0

extern SAMPLE *SoundSamples[SOUND_COUNT];
extern SAMPLE *MusicSamples[MUSIC_COUNT];

extern int32_t effectVolume;
extern int32_t musicVolume;
extern int32_t currentTrack;
extern int32_t pendingTrack;
extern uint8_t musicFadingOut;
extern uint8_t musicFadingIn;
extern uint8_t musicStopping;

void loadSounds();
void audioUpdate();
void requestMusic(int track);
void stopMusic();
void setSoundLevel(int level);
void setMusicLevel(int level);
int volumeForLevel(int level);  // the level-to-volume table; -1 outside 1..10

// Every call into Allegro's sample functions goes through here, so tests can
// count what is played without a sound device.
struct SampleCalls {
    SAMPLE *(*load)(const char *path);
    int (*play)(const SAMPLE *sample, int volume, int pan, int frequency, int loop);
    void (*adjust)(const SAMPLE *sample, int volume, int pan, int frequency, int loop);
    void (*stop)(const SAMPLE *sample);
};
extern SampleCalls sampleCalls;
