#include "app/atomic_write.h"

#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// mkstemp's six characters after the name.
static const size_t TEMPORARY_SUFFIX = 6;
static const time_t STALE_AFTER_SECONDS = 60;

static WriteFailure failureOf(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
        return WriteReadOnly;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return WriteDiskFull;
    default:
        return WriteOtherError;
    }
}

static WriteFailure fail(int error, const char *what, const std::string &path, std::string *detail)
{
    if (detail)
        *detail = std::string(what) + " " + path + ": " + std::strerror(error);
    return failureOf(error);
}

static std::string folderOf(const std::string &path)
{
    const size_t slash = path.find_last_of('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

int (*renameWrittenFile)(const char *from, const char *to) = rename;

WriteFailure writeFileAtomically(const std::string &linkOrPath, const std::string &text,
                                 bool replaceExisting, std::string *detail)
{
    std::string path = linkOrPath;
    struct stat given;
    if (lstat(linkOrPath.c_str(), &given) == 0 && S_ISLNK(given.st_mode)) {
        char *target = realpath(linkOrPath.c_str(), nullptr);
        if (!target)
            return fail(errno, "cannot follow the link", linkOrPath, detail);
        path = target;
        free(target);
    }
    // Hidden, so a folder listing taken during the write (the level
    // catalogue's) passes over it.
    const size_t slash = path.find_last_of('/');
    const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    std::string temp = folder + "." + name + ".XXXXXX";
    int fd = mkostemp(&temp[0], O_CLOEXEC);
    if (fd < 0)
        return fail(errno, "cannot create a file beside", path, detail);
    // mkstemp makes the file private; a level is an ordinary file of the player's.
    fchmod(fd, 0644);

    size_t written = 0;
    while (written < text.size()) {
        const ssize_t n = write(fd, text.data() + written, text.size() - written);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            const int error = n < 0 ? errno : ENOSPC;
            close(fd);
            unlink(temp.c_str());
            return fail(error, "cannot write", temp, detail);
        }
        written += (size_t)n;
    }
    if (fsync(fd) != 0) {
        const int error = errno;
        close(fd);
        unlink(temp.c_str());
        return fail(error, "cannot flush", temp, detail);
    }
    if (close(fd) != 0) {
        const int error = errno;
        unlink(temp.c_str());
        return fail(error, "cannot close", temp, detail);
    }
    // A hard link fails rather than replace: the no-overwrite twin of rename.
    const int placed = replaceExisting ? renameWrittenFile(temp.c_str(), path.c_str())
                                       : link(temp.c_str(), path.c_str());
    if (placed != 0) {
        const int error = errno;
        unlink(temp.c_str());
        if (error == EEXIST) {
            if (detail)
                *detail = path + " already exists";
            return WriteExists;
        }
        return fail(error, "cannot put the file in place at", path, detail);
    }
    if (!replaceExisting)
        unlink(temp.c_str());
    // The rename itself lives in the folder: flush it too, or a crash just
    // after could bring back the old name.
    const int dir = open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        fsync(dir);
        close(dir);
    }
    return WriteOk;
}

int openPlainFile(const char *path, int flags, std::string *why)
{
    // Not truncated before it is known to be a plain file: a device might
    // take the truncation as an order.
    const bool truncate = (flags & O_TRUNC) != 0;
    const int fd = open(path, (flags & ~O_TRUNC) | O_NONBLOCK | O_CLOEXEC, 0644);
    if (fd < 0) {
        if (why)
            *why = std::strerror(errno);
        return -1;
    }
    struct stat st = {};
    if (fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        close(fd);
        if (why)
            *why = S_ISDIR(st.st_mode) ? "it is a folder, not a file" : "it is not a plain file";
        return -1;
    }
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    if (truncate && ftruncate(fd, 0) != 0) {
        if (why)
            *why = std::strerror(errno);
        close(fd);
        return -1;
    }
    return fd;
}

// ".<name>.XXXXXX" with a name that is not hidden itself and has an
// extension, as every file the game writes does.
static bool looksLikeOurTemporary(const std::string &name)
{
    if (name.size() < TEMPORARY_SUFFIX + 4 || name[0] != '.' || name[1] == '.')
        return false;
    const size_t dot = name.size() - TEMPORARY_SUFFIX - 1;
    if (name[dot] != '.')
        return false;
    for (size_t i = dot + 1; i < name.size(); i++)
        if (!isalnum((unsigned char)name[i]))
            return false;
    const std::string original = name.substr(1, dot - 1);
    return original.find('.') != std::string::npos && original.find('/') == std::string::npos;
}

void removeStaleTemporaries(const std::string &folder, std::vector<std::string> *removed)
{
    DIR *dir = opendir(folder.c_str());
    if (!dir)
        return;
    const time_t now = time(nullptr);
    while (const dirent *entry = readdir(dir)) {
        const std::string name = entry->d_name;
        if (!looksLikeOurTemporary(name))
            continue;
        const std::string path = folder + "/" + name;
        struct stat st;
        if (lstat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode) || now - st.st_mtime < STALE_AFTER_SECONDS)
            continue;
        if (unlink(path.c_str()) == 0 && removed)
            removed->push_back(name);
    }
    closedir(dir);
}
