// Ending on a signal: a desktop logout, kill or Ctrl+C asks the game to end
// the way the window's close box does.
#pragma once

// Called first thing: which of SIGTERM, SIGHUP and SIGINT the game was
// started with ignored.
void noteInheritedSignals();
// Once the library has started: replaces its handlers for those signals.
void installQuitSignals();
// The signal that asked the game to end, or 0.
int quitSignalReceived();
