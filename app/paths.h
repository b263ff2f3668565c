// Where the player's own files live: beside the game when the game directory
// is the player's to write (a build tree, a folder unpacked in one's home),
// otherwise in the player's XDG folders. The one place that decides it.
#pragma once

#include <string>

enum PlayerFile {
    PlayerConfig,           // gameconfig.cfg
    PlayerLog,              // gamelog.txt
    PlayerCustomFolder,     // custom/, the levels the editor saves
};

// A game directory holding this file was installed for the whole system: the
// player's files never go into it, not even for root, who may write anywhere.
extern const char SYSTEM_INSTALL_MARK[];

bool playerFilesBesideGame();

// The path of one of the player's files (for the custom folder, the folder).
// In the XDG folders the folder it lives in is created on the way, so the
// caller can open the path at once.
std::string playerFilePath(PlayerFile which);

// The example levels that ship with the game. The same folder as the
// player's custom folder when the player's files live beside the game.
std::string shippedCustomFolder();

// At start-up, once the log is open: names the folders in the log and seeds
// the player's gameconfig.cfg from the shipped one the first time.
void preparePlayerFiles();
