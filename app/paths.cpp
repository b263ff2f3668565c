// Where the player's files live. A game unpacked into a folder of one's own
// (or run from the build tree) keeps everything together, as it always has;
// a game installed for the system is read-only, so each player's settings,
// levels and log go to that player's XDG folders instead.

#include "app/paths.h"
#include "app/atomic_write.h"
#include "app/log.h"
#include "app/gamedir.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <pwd.h>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

const char SYSTEM_INSTALL_MARK[] = "installed-for-system.txt";

static const char GAME_FOLDER_NAME[] = "delvemoor";

bool playerFilesBesideGame()
{
    const std::string mark = std::string(DataRoot) + "/" + SYSTEM_INSTALL_MARK;
    if (access(mark.c_str(), F_OK) == 0)
        return false;
    return access(DataRoot[0] ? DataRoot : "/", W_OK) == 0;
}

static std::string homeFolder()
{
    const char *home = getenv("HOME");
    if (home && home[0] == '/')
        return home;
    const struct passwd *pw = getpwuid(getuid());
    if (pw && pw->pw_dir && pw->pw_dir[0] == '/')
        return pw->pw_dir;
    return "/tmp";
}

// A relative value is not a base directory and is passed over, as the XDG
// rules ask, rather than landing the files wherever the game was started.
static std::string xdgFolder(const char *variable, const char *underHome)
{
    const char *value = getenv(variable);
    std::string base = value && value[0] == '/' ? std::string(value) : homeFolder() + "/" + underHome;
    return base + "/" + GAME_FOLDER_NAME;
}

// Every missing folder on the way, private to the player as the XDG rules
// ask of the ones we make. A failure shows up when the file is opened.
static void makeFolders(const std::string &folder)
{
    for (size_t slash = folder.find('/', 1);; slash = folder.find('/', slash + 1)) {
        const std::string part = folder.substr(0, slash);
        if (mkdir(part.c_str(), 0700) != 0 && errno != EEXIST)
            return;
        if (slash == std::string::npos)
            return;
    }
}

std::string playerFilePath(PlayerFile which)
{
    const bool beside = playerFilesBesideGame();
    std::string folder, name;
    switch (which) {
    case PlayerConfig:
        folder = beside ? DataRoot : xdgFolder("XDG_CONFIG_HOME", ".config");
        name = "gameconfig.cfg";
        break;
    case PlayerLog:
        folder = beside ? DataRoot : xdgFolder("XDG_STATE_HOME", ".local/state");
        name = "gamelog.txt";
        break;
    case PlayerCustomFolder:
        folder = beside ? std::string(DataRoot) + "/custom" : xdgFolder("XDG_DATA_HOME", ".local/share") + "/custom";
        break;
    }
    if (!beside)
        makeFolders(folder);
    return name.empty() ? folder : folder + "/" + name;
}

std::string shippedCustomFolder()
{
    return std::string(DataRoot) + "/custom";
}

// The shipped settings are the player's starting point; a copy that is
// already there is the player's and is never replaced.
static void seedPlayerConfig(const std::string &path)
{
    struct stat info;
    if (lstat(path.c_str(), &info) == 0)
        return;
    const std::string shipped = std::string(DataRoot) + "/gameconfig.cfg";
    std::ifstream in(shipped, std::ios::binary);
    if (!in.is_open()) {
        logLine("# ERROR! # The game's own gameconfig.cfg is missing from %s", DataRoot);
        return;
    }
    std::ostringstream text;
    text << in.rdbuf();
    std::string detail;
    const WriteFailure failure = writeFileAtomically(path, text.str(), false, &detail);
    if (failure == WriteOk)
        logLine("Copied the game's settings to %s", path.c_str());
    else if (failure != WriteExists)
        logLine("# ERROR! # Cannot copy the game's settings to %s: %s", path.c_str(), detail.c_str());
}

void preparePlayerFiles()
{
    logLine("Game folder: %s", DataRoot);
    if (playerFilesBesideGame()) {
        logLine("Settings, log and custom levels are kept in the game folder");
        return;
    }
    const std::string config = playerFilePath(PlayerConfig);
    logLine("Settings: %s", config.c_str());
    logLine("Log: %s", playerFilePath(PlayerLog).c_str());
    logLine("Custom levels: %s (examples from %s)", playerFilePath(PlayerCustomFolder).c_str(),
            shippedCustomFolder().c_str());
    seedPlayerConfig(config);
}
