// Campaign passwords: each campaign position has one; the mission-complete
// panel shows the next, the password panel restores a position.
#pragma once

#include <string>

const int PASSWORD_COUNT = 60;
const int PASSWORD_MAX_LENGTH = 8;

extern std::string passwordTable[PASSWORD_COUNT];
extern std::string savedPassword;
extern std::string enteredText;

void buildPasswordTable();
void showNextPassword();
void checkPassword();

// Raised by checkPassword on a match: the selection screen restarts the glow
// of the password it shows.
extern bool passwordAccepted;
