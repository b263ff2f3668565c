// Start-up, video mode and shut-down.
#pragma once

extern char DataRoot[1024];

void setDataRootFromExecutable(const char *executablePath);
void startLibraries();
void setVideoMode();
void logSoundStartup();
void loadGameData();
void releaseGameData();

// True for renderer texts that name a software rasteriser.
bool isSoftwareRenderer(const char *renderer);
