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

// Reads the level at path into currentLevel and the mission with the loader
// the mode calls for (campaign levels from the datafile, custom levels from
// ordinary files). The one rule both the selection screen's start and the
// pause panel's "Retry" follow.
void loadLevelAt(const std::string &path);
