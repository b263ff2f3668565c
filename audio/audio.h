// Sound effects and music. Other parts of the game ask for a sound by writing
// its number into a request slot; audioUpdate plays it once per tick.
#pragma once

#include <cstdint>

const int SOUND_COUNT = 27;
const int MUSIC_COUNT = 3;
const int SoundRequestIdle = 100;

extern int32_t SoundRequest;           // idle 100
extern int32_t EffectSoundRequest;     // idle 0
extern int32_t InterfaceSoundRequest;  // idle 0

extern int32_t effectVolume;
extern int32_t musicVolume;
extern int32_t currentTrack;
extern int32_t pendingTrack;

void loadSounds();
void audioUpdate();
void requestMusic(int track);
void stopMusic();
void setSoundLevel(int level);
void setMusicLevel(int level);
int volumeForLevel(int level);  // the level-to-volume table; -1 outside 1..10
