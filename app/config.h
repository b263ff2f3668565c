// gameconfig.cfg: a fixed sixteen-line file read at start-up and written at shut-down.
#pragma once

#include <stdexcept>
#include <string>

struct GameSettings {
    unsigned char fullscreen;
    unsigned char colorDepth32;
    int scrollSpeed;
    int gameLevel;
    int soundVolume;
    int musicVolume;
};

extern GameSettings settings;

class BadConversion : public std::runtime_error {
public:
    explicit BadConversion(const std::string &s) : std::runtime_error(s) {}
};

// The number at the start of text (leading white space skipped, the rest ignored).
double convertToDouble(const std::string &text);

void readConfig();
void writeConfig();
// writeConfig without the fatal stop: false, with the error line logged, when
// the file cannot be written. For a shut-down that can no longer show a box.
bool tryWriteConfig();

// The same rules on an explicit path; false with the fatal message in *error.
bool readConfigFrom(const char *path, std::string *error);
bool writeConfigTo(const char *path);
std::string configText();
