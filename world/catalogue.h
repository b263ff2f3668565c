// The level catalogue and the campaign's progress: the sixty campaign names,
// the eight lists the selection screen shows (campaign planets 1-4, then
// custom planets 1-4) and how far the player has come in this run.
#pragma once

#include <cstdint>
#include <list>
#include <string>

struct CatalogueEntry {
    std::string title;
    int32_t planet;
    std::string path;           // what the loaders open: a datafile path, or a custom file
    int32_t missionNumber;
};

const int CAMPAIGN_LEVEL_COUNT = 60;
const int LEVEL_LIST_COUNT = 8;     // campaign planets 1-4, then custom planets 1-4

extern std::string campaignLevelNames[CAMPAIGN_LEVEL_COUNT];
extern std::list<CatalogueEntry> levelLists[LEVEL_LIST_COUNT];

extern uint8_t campaignMode;        // 1 campaign, 0 custom games
extern int32_t missionsUnlocked;
extern int32_t planetProgress;
extern int32_t planetMissionCount[4];

void buildCampaignLevelNames();
void loadLevelCatalogue();
void addCatalogueEntry(const std::string &title, int32_t planet, int32_t missionNumber,
                       int32_t campaignLevel, const std::string &path);
void advanceCampaign();

// The folder of the player's own levels (app/paths.h says where): the
// catalogue files every level there into the custom lists, beside the
// examples shipped with the game; the editor saves into it.
std::string customLevelFolder();

// Planets the campaign has opened that the player has not clicked yet: the
// selection screen flashes their squares. Index 0 is planet 1, never set.
extern uint8_t newPlanetFlag[4];
// Raised by advanceCampaign when a new mission opens; the selection screen
// takes it as the news it announces.
extern bool missionJustUnlocked;

// The planet that campaign mission n lies on (1 to 4), or 0 beyond the last.
int planetOfMission(int32_t n);

// Custom files beyond these are left out with a log line: a folder of
// thousands of files, or of huge ones, must not stall the selection screen.
const int CUSTOM_LEVEL_LIMIT = 500;
const long CUSTOM_FILE_MAX_BYTES = 1L << 20;

// Reads the level at path into currentLevel and the mission with the loader
// the mode calls for (campaign levels from the datafile, custom levels from
// ordinary files). The one rule both the selection screen's start and the
// pause panel's "Retry" follow. A custom file that has become unreadable
// since the catalogue saw it is logged and reported by false; the level in
// play is then left as it was.
bool loadLevelAt(const std::string &path);
