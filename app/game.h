#pragma once

// The whole life of the game: start-up, the main loop until a screen asks to
// quit, and the orderly shut-down. Returns the process's exit status.
int runGame();
void runMainLoop();
void shutDown();
