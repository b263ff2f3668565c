// Screens that are not built yet. Each keeps its place in the screen table so
// the state machine is whole; a screen's own file replaces its entry here.

#include "app/screens.h"
#include "frontend/screens.h"
#include "game/gamescreen.h"
#include "game/mission.h"
#include "world/catalogue.h"
#include "world/passwords.h"

int32_t missionMessage = 1;
MissionListView missionList = {124, 354, 1, 1, 1, 1, 0, ""};
std::string chosenLevelPath;

// The catalogue and passwords, until their own units replace these.
std::string campaignLevelNames[CAMPAIGN_LEVEL_COUNT];
std::list<CatalogueEntry> levelLists[LEVEL_LIST_COUNT];
uint8_t campaignMode = 1;
int32_t missionsUnlocked = 1;
int32_t planetProgress = 1;
int32_t planetMissionCount[4] = {15, 15, 15, 15};
void buildCampaignLevelNames() {}
void loadLevelCatalogue() {}
void addCatalogueEntry(const std::string &, int32_t, int32_t, int32_t, const std::string &) {}
void advanceCampaign() {}
void loadLevelAt(const std::string &) {}
std::string passwordTable[PASSWORD_COUNT];
std::string savedPassword;
std::string enteredText;
void buildPasswordTable() {}
void showNextPassword() {}
void checkPassword() {}
void armLevelBanner() {}
std::vector<PlayAction> playRecord;
bool recordingPlay = false;

void creditsTick() {}
void creditsFrame() {}
void gameUpdate() {}
void gameScreenFrame() {}
void editorTick() {}
void editorFrame() {}
void pausePanelFrame() {}
void missionCompletePanelFrame() {}
void missionFailedPanelFrame() {}
void gameSelectTick() {}
void gameSelectFrame() {}
void optionsTick() {}
void optionsFrame() {}
void helpFrame() {}
void passwordEntryTick() {}
void passwordPanelFrame() {}
void exitScreenTick() {}
void exitScreenFrame() {}

void enterChosenLevel(bool fromGameSelect)
{
    if (fromGameSelect)
        resetMission();
    blackoutWait(25);
}

void enterGameSelect()
{
    blackoutWait(25);
}
