// Sound effects and music. Other parts of the game ask for a sound by writing
// its number into a request slot; audioUpdate plays it once per tick.
#pragma once

#include <cstdint>

struct SAMPLE;

// The sounds by their number in the datafile (SOUND00 to SOUND26), as the
// request slots take them.
enum SoundId : int32_t {
    TitleSound = 0,             // the main menu's title starts to slide in
    BuildSound = 1,             // a structure or a hatcher is built
    BlastSound = 2,             // an explosion of the first kind
    CreditsPickupSound = 3,
    WrongPasswordSound = 4,
    PasswordAcceptedSound = 5,
    PlanetSound = 6,            // a planet button on the selection screen
    MissionFailedSound = 7,
    MissionCompleteSound = 8,
    ButtonSound = 11,           // a button is pressed
    RefusalSound = 12,          // a build, dig or blast is refused
    SliderSound = 13,
    LaunchSound = 14,           // the launch panel slides in, or the rockets go
    ChainExplosionSound = 15,   // an explosion of the second kind
    SuckedSound = 16,           // a bubbleman is sucked away
    BoardingSound = 17,         // 17, 18 or 19, one at random: he enters a rocket
    EnteringSound = 20,         // his entering starts
    SelectScreenSound = 24,     // the first arrival at the selection screen
    HatchSound = 25,
    DigSound = 26,
};

// The three music tracks (MUSIC00 to MUSIC02).
enum MusicTrack : int32_t {
    MenuMusic = 0,
    CreditsMusic = 1,
    LevelMusic = 2,
};

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
