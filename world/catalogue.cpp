// The level catalogue: which levels the selection screen can offer, read
// afresh from the level files on every visit, and how far the campaign has
// come in this run.

#include "world/catalogue.h"
#include "app/log.h"
#include "app/gamedir.h"
#include "app/paths.h"
#include "game/mission.h"
#include "world/level.h"

#include <allegro.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fstream>
#include <sys/stat.h>
#include <vector>

std::string campaignLevelNames[CAMPAIGN_LEVEL_COUNT];
std::list<CatalogueEntry> levelLists[LEVEL_LIST_COUNT];

uint8_t campaignMode = 1;
int32_t missionsUnlocked = 1;
int32_t planetProgress = 1;
int32_t planetMissionCount[4] = {15, 15, 15, 15};

uint8_t newPlanetFlag[4] = {0, 0, 0, 0};
bool missionJustUnlocked = false;

void buildCampaignLevelNames()
{
    for (int i = 0; i < CAMPAIGN_LEVEL_COUNT; i++) {
        char name[16];
        snprintf(name, sizeof name, "P%dM%02d_LEV", i / 15 + 1, i % 15 + 1);
        campaignLevelNames[i] = name;
    }
}

std::string customLevelFolder()
{
    return playerFilePath(PlayerCustomFolder);
}

int planetOfMission(int32_t n)
{
    int32_t total = 0;
    for (int k = 0; k < 4; k++) {
        total += planetMissionCount[k];
        if (n <= total)
            return k + 1;
    }
    return 0;
}

void addCatalogueEntry(const std::string &title, int32_t planet, int32_t missionNumber, int32_t campaignLevel,
                       const std::string &path)
{
    if (planet < 1 || planet > 4)
        return;
    CatalogueEntry entry = {title, planet, path, missionNumber};
    int list = (campaignLevel == 1 ? 0 : 4) + planet - 1;
    levelLists[list].push_back(entry);
}

// The header of a level the loader accepts, read through the loader itself so
// that the catalogue never offers a level the game would then refuse.
static bool readCampaignHeader(const std::string &path, Level &header)
{
    PACKFILE *file = pack_fopen(path.c_str(), F_READ);
    if (!file) {
        logLine("# ERROR! # Error Loading LEVELS");
        fatalError("Error Loading Levels!");
    }
    MissionState scratch = {};
    std::string problem;
    bool ok = parseLevelPackfile(file, header, scratch, &problem);
    pack_fclose(file);
    if (!ok)
        logLine("# ERROR! # %s is left out of the campaign: %s", path.c_str(), problem.c_str());
    return ok;
}

static void catalogueCampaign()
{
    for (const std::string &name : campaignLevelNames) {
        char path[10000];
        snprintf(path, sizeof path, "%s/DATA/DATA.DAT#LEVELS/%s", DataRoot, name.c_str());
        Level header{};
        if (readCampaignHeader(path, header))
            addCatalogueEntry(header.title, header.planet, header.missionNumber, header.campaignLevel, path);
    }
}

// Only ordinary files are read: a directory, a pipe or a device named like a
// level is passed over (a pipe would block the game for ever).
static bool customFileUsable(const std::string &path, std::string *why)
{
    struct stat info;
    if (stat(path.c_str(), &info) != 0) {
        *why = "it cannot be read";
        return false;
    }
    if (!S_ISREG(info.st_mode)) {
        *why = "it is not an ordinary file";
        return false;
    }
    if (info.st_size == 0) {
        *why = "it is empty";
        return false;
    }
    if (info.st_size > CUSTOM_FILE_MAX_BYTES) {
        *why = "it is larger than any level can be";
        return false;
    }
    return true;
}

static bool readCustomHeader(const std::string &path, Level &header, std::string *why)
{
    if (!customFileUsable(path, why))
        return false;
    std::ifstream in(path);
    if (!in.is_open()) {
        *why = "it cannot be opened";
        return false;
    }
    MissionState scratch = {};
    if (!parseLevelStream(in, header, scratch, why))
        return false;
    if (header.title.empty())
        header.title = path.substr(path.find_last_of('/') + 1);
    return true;
}

static bool endsWith(const std::string &s, const char *tail)
{
    const size_t n = strlen(tail);
    return s.size() >= n && s.compare(s.size() - n, n, tail) == 0;
}

// File names in a fixed order (the folder's own order is the file system's
// whim). Hidden files (the editor's half-written saves among them), editor
// backups and the winning runs kept beside their levels are no levels.
static std::vector<std::string> customFileNames(const std::string &folder)
{
    std::vector<std::string> names;
    DIR *dir = opendir(folder.c_str());
    if (!dir)
        return names;
    while (struct dirent *e = readdir(dir)) {
        std::string name = e->d_name;
        if (name.empty() || name[0] == '.' || name.back() == '~' || endsWith(name, ".solution"))
            continue;
        names.push_back(name);
    }
    closedir(dir);
    std::sort(names.begin(), names.end());
    return names;
}

// A file in the player's folder hides a shipped example of the same name: the
// player's copy is the one they edited.
static void catalogueCustomFolder(const std::string &folder, std::vector<std::string> &taken, int &catalogued)
{
    std::vector<std::string> names = customFileNames(folder);
    for (size_t i = 0; i < names.size(); i++) {
        if (catalogued >= CUSTOM_LEVEL_LIMIT || (int)i >= 4 * CUSTOM_LEVEL_LIMIT) {
            logLine("# ERROR! # %s holds more files than the game reads; %d are left out", folder.c_str(),
                    (int)(names.size() - i));
            break;
        }
        if (std::find(taken.begin(), taken.end(), names[i]) != taken.end())
            continue;
        const std::string path = folder + "/" + names[i];
        Level header{};
        std::string why;
        if (!readCustomHeader(path, header, &why)) {
            logLine("# ERROR! # Custom level %s is left out: %s", names[i].c_str(), why.c_str());
            continue;
        }
        // Whatever its line 4 says, a file of this folder is the player's own.
        addCatalogueEntry(header.title, header.planet, header.missionNumber, 0, path);
        taken.push_back(names[i]);
        catalogued++;
    }
}

// The player's levels, then the examples that ship with the game when the
// player's folder is elsewhere.
static void catalogueCustomLevels()
{
    std::vector<std::string> taken;
    int catalogued = 0;
    const std::string own = customLevelFolder();
    catalogueCustomFolder(own, taken, catalogued);
    if (shippedCustomFolder() != own)
        catalogueCustomFolder(shippedCustomFolder(), taken, catalogued);
}

void loadLevelCatalogue()
{
    logLine("Deleting level lists...");
    for (std::list<CatalogueEntry> &list : levelLists)
        list.clear();
    logLine("Loading levels...");
    catalogueCampaign();
    catalogueCustomLevels();
    for (std::list<CatalogueEntry> &list : levelLists)
        list.sort([](const CatalogueEntry &a, const CatalogueEntry &b) { return a.missionNumber < b.missionNumber; });
}

void advanceCampaign()
{
    if (!campaignMode || currentLevel.missionNumber < missionsUnlocked)
        return;
    if (missionsUnlocked >= CAMPAIGN_LEVEL_COUNT)
        return;
    missionsUnlocked++;
    missionJustUnlocked = true;
    // The next planet opens with its first mission, as a password would open it.
    int planet = planetOfMission(missionsUnlocked);
    if (planet > planetProgress) {
        planetProgress = planet;
        newPlanetFlag[planet - 1] = 1;
    }
}

bool loadLevelAt(const std::string &path)
{
    if (campaignMode) {
        loadLevelFromPack(currentLevel, "%s", path.c_str());
        return true;
    }
    std::string error;
    if (tryLoadLevelFromFile(currentLevel, path.c_str(), &error))
        return true;
    logLine("# ERROR! # %s", error.c_str());
    return false;
}
