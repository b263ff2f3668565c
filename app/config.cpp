// gameconfig.cfg: sixteen fixed lines. The reader takes every setting from its
// own line and every number from its own column; it never searches for keys.

#include "app/config.h"
#include "app/atomic_write.h"
#include "app/log.h"
#include "app/paths.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <locale>
#include <sstream>

GameSettings settings = {0, 1, 5, 1, 10, 10};

// Only the longest prefix that is a plain decimal number is read: "12eggs" and
// "8e" are 8 and 12 with words after them, not damaged exponents. Words that
// merely start like numbers ("nan", "inf", "0x1f" beyond its 0) are not read as
// numbers, and no locale can turn the decimal point into a comma.
static size_t decimalPrefixEnd(const std::string &text, size_t start)
{
    size_t i = start;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        i++;
    size_t digits = 0;
    while (i < text.size() && isdigit((unsigned char)text[i]))
        i++, digits++;
    if (i < text.size() && text[i] == '.') {
        i++;
        while (i < text.size() && isdigit((unsigned char)text[i]))
            i++, digits++;
    }
    if (digits == 0)
        return start;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        size_t e = i + 1;
        if (e < text.size() && (text[e] == '+' || text[e] == '-'))
            e++;
        if (e < text.size() && isdigit((unsigned char)text[e])) {
            while (e < text.size() && isdigit((unsigned char)text[e]))
                e++;
            i = e;
        }
    }
    return i;
}

double convertToDouble(const std::string &text)
{
    size_t start = 0;
    while (start < text.size() && isspace((unsigned char)text[start]))
        start++;
    const size_t end = decimalPrefixEnd(text, start);
    if (end == start)
        throw BadConversion("convertToDouble(\"" + text + "\")");
    // The prefix is plain ASCII decimal, which the classic-locale stream reads
    // whole. A value beyond the double range fails the stream but is still a
    // number: the stream leaves it at the largest double of its sign, and the
    // readers bound it like any other large value.
    std::istringstream in(text.substr(start, end - start));
    in.imbue(std::locale::classic());
    double value = 0;
    in >> value;
    return value;
}

static const char *const corruptedLog = "# ERROR! # Config file corrupted. Please reinstall.";
static const char *const corruptedMessage = "Config file corrupted. Please reinstall.";

static std::string valueFrom(const std::string &line, size_t column)
{
    return line.size() > column ? line.substr(column) : std::string();
}

// Truncated toward zero as the game has always read them. A value outside the
// int range cannot have come from this game, so it counts as damage too.
static bool readNumber(const std::string &line, size_t column, int *out)
{
    double value;
    try {
        value = convertToDouble(valueFrom(line, column));
    } catch (const BadConversion &) {
        return false;
    }
    if (!(value > -2147483648.0 && value < 2147483648.0))
        return false;
    *out = (int)value;
    return true;
}

bool readConfigFrom(const char *path, std::string *error)
{
    std::ifstream in(path);
    if (!in.is_open()) {
        logLine("# ERROR! # Cannot load gameconfig.cfg!");
        *error = "Cannot load gameconfig.cfg!";
        return false;
    }

    GameSettings read = settings;
    std::string line;
    for (int number = 1; number <= 14; number++) {
        if (!std::getline(in, line))
            line.clear();  // a short file reads as empty lines, which then fail their checks
        if (!line.empty() && line.back() == '\r')
            line.pop_back();

        bool ok = true;
        switch (number) {
        case 5:
            if (line == "SCREENMODE = FULLSCREEN")
                read.fullscreen = 1;
            else if (line == "SCREENMODE = WINDOWED")
                read.fullscreen = 0;
            else
                ok = false;
            break;
        case 6:
            if (line == "COLORDEPTH = 32")
                read.colorDepth32 = 1;
            else if (line == "COLORDEPTH = 16")
                read.colorDepth32 = 0;
            else
                ok = false;
            break;
        case 9:  ok = readNumber(line, 14, &read.scrollSpeed); break;
        case 10: ok = readNumber(line, 13, &read.gameLevel); break;
        case 13: ok = readNumber(line, 15, &read.soundVolume); break;
        case 14: ok = readNumber(line, 15, &read.musicVolume); break;
        default: break;
        }
        if (!ok) {
            logLine("%s", corruptedLog);
            *error = corruptedMessage;
            return false;
        }
    }
    settings = read;
    return true;
}

void readConfig()
{
    logLine("Reading gameconfig.cfg...");
    const std::string path = playerFilePath(PlayerConfig);
    std::string error;
    if (!readConfigFrom(path.c_str(), &error))
        fatalError("%s", error.c_str());
    logLine("Successfully read gameconfig.cfg");
}

std::string configText()
{
    std::string s;
    s += ":: Delvemoor Config File\n";
    s += std::string(":: GAME_VERSION: ") + GAME_VERSION + "\n";
    s += "\n";
    s += ":: GRAPHICS MODE\n";
    s += settings.fullscreen ? "SCREENMODE = FULLSCREEN\n" : "SCREENMODE = WINDOWED\n";
    s += settings.colorDepth32 ? "COLORDEPTH = 32\n" : "COLORDEPTH = 16\n";
    s += "\n";
    s += ":: GAME\n";
    s += "SCROLLSPEED = " + std::to_string(settings.scrollSpeed) + "\n";
    s += "GAME_LEVEL = " + std::to_string(settings.gameLevel) + "\n";
    s += "\n";
    s += ":: SOUND\n";
    s += "SOUND VOLUME = " + std::to_string(settings.soundVolume) + "\n";
    s += "MUSIC VOLUME = " + std::to_string(settings.musicVolume) + "\n";
    s += "\n";
    s += ":: EOF";
    return s;
}

// Written beside the old file and renamed over it only once it is complete
// and on disk, so a crash or a full disk during the write leaves the previous
// settings intact.
bool writeConfigTo(const char *path)
{
    std::string detail;
    if (writeFileAtomically(path, configText(), true, &detail) == WriteOk)
        return true;
    logLine("%s", detail.c_str());
    return false;
}

void writeConfig()
{
    logLine("Writing gameconfig.cfg...");
    const std::string path = playerFilePath(PlayerConfig);
    if (!writeConfigTo(path.c_str())) {
        logLine("# ERROR! # Cannot save to gameconfig.cfg!");
        fatalError("Cannot save to gameconfig.cfg!");
    }
    logLine("Successfully wrote gameconfig.cfg");
}
