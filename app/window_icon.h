// How the game's window presents itself to the desktop.
#pragma once

// Before the library starts: the window's class and name ("delvemoor",
// "Delvemoor").
void nameGameWindow();

// Once the video mode is set: the icon pictures on the window.
void setGameWindowIcon();
