#include "app/atomic_write.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

WriteFailure writeFileAtomically(const std::string &path, const std::string &text,
                                 bool replaceExisting, std::string *detail)
{
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
