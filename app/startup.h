// Start-up, video mode and shut-down.
#pragma once

#include "app/gamedir.h"

void startLibraries();
void setVideoMode();
void logSoundStartup();
void loadGameData();
// Points the widgets at their pictures once those are loaded.
void linkObjectData();
// The load screen's one blocking pass: the data, then the links into it.
void loadEverything();
void releaseGameData();

// True for renderer texts that name a software rasteriser.
bool isSoftwareRenderer(const char *renderer);
