// The campaign's passwords. Progress is not saved between runs; the player
// writes down the word the mission-complete panel shows and types it next time.

#include "world/passwords.h"
#include "app/screens.h"
#include "audio/audio.h"
#include "render/draw.h"
#include "render/text.h"
#include "render/textures.h"
#include "world/catalogue.h"
#include "world/level.h"

#include <GL/gl.h>

// Entry i opens missions 1 to i + 1. Words a player can read aloud and copy
// without mistakes; the first four are the ones a new player meets.
static const char *const PASSWORDS[PASSWORD_COUNT] = {
    "BURROWS", "BEDROCKS", "GIRDER", "LANTERN", "DIG_UP",  "ORE7",   "PODS",    "LIFTS",  "QUARRY", "ROCK_ON",
    "DUSTY",   "SPADE9",   "GEODE",  "CAVERN",  "SHAFT",   "MAGMA",  "BASALT",  "FLINT",  "TUNNEL", "AUGER",
    "DRILL",   "COBALT",   "PUMICE", "QUARTZ",  "SLATE",   "CHALK",  "GNEISS",  "ONYX",   "AMBER",  "JASPER",
    "GARNET",  "TOPAZ",    "BORE_2", "CRUST",   "MANTLE",  "CORE",   "FAULT",   "STRATA", "VEIN",   "NUGGET",
    "PYRITE",  "GALENA",   "MICA",   "SHALE",   "LODE",    "SEAM",   "ADIT",    "ZIRCON", "BERYL",  "OPAL",
    "RUBY",    "JADE",     "IOLITE", "SPINEL",  "AGATE",   "TALC",   "GYPSUM",  "COAL",   "TIN_42", "LAUNCH",
};

std::string passwordTable[PASSWORD_COUNT];
std::string savedPassword;
std::string enteredText;
bool passwordAccepted = false;

void buildPasswordTable()
{
    for (int i = 0; i < PASSWORD_COUNT; i++)
        passwordTable[i] = PASSWORDS[i];
    savedPassword = passwordTable[0];
}

void showNextPassword()
{
    if (!campaignMode)
        return;
    if (currentLevel.missionNumber < missionsUnlocked || missionsUnlocked >= PASSWORD_COUNT ||
        missionsUnlocked < 0)
        return;
    savedPassword = passwordTable[missionsUnlocked];
    drawTexture(320, 240 - 165, SpriteTextures[44], 1, 1, 1, 1);
    glColor4f(pulseB, 1, 1, 1);
    drawTextCentred(MediumFont, 320, 240 - 180, "%s", savedPassword.c_str());
}

void checkPassword()
{
    bool matched = false;
    for (int i = 1; i <= PASSWORD_COUNT; i++) {
        if (enteredText != passwordTable[i - 1])
            continue;
        matched = true;
        SoundRequest = PasswordAcceptedSound;
        savedPassword = enteredText;
        missionsUnlocked = i;
        int planet = planetOfMission(i);
        if (planet > 0)
            planetProgress = planet;
        passwordAccepted = true;
    }
    if (!matched)
        SoundRequest = WrongPasswordSound;
}
