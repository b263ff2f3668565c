// The load screen: the font and the two logos first, then the logos fade in
// and, while the second one stands, everything else loads in one blocking pass.
#pragma once

struct LoadScreenState {
    int phase;      // 0 first logo fading in, 1 second logo, 2 load now, 3 loaded
    float alphaA;   // first logo
    float alphaB;   // second logo
    int delay;      // ticks between the two fades
    bool aDone;
    bool finished;
};

// One 40 Hz tick of the fades; `loadAll` is the blocking load, run once.
void loadScreenTick(LoadScreenState &state, void (*loadAll)());
