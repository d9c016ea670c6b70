#include "Files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
FileStatus fromStat(const struct stat& info) {
    FileStatus status;
    status.regular = S_ISREG(info.st_mode);
    status.directory = S_ISDIR(info.st_mode);
    status.size = info.st_size > 0 ? std::uint64_t(info.st_size) : 0;
    status.device = std::uint64_t(info.st_dev);
    status.inode = std::uint64_t(info.st_ino);
    status.owner = info.st_uid;
    status.group = info.st_gid;
    status.mode = info.st_mode & 07777;
    return status;
}
}  // namespace

bool StatusOf(int fd, FileStatus& status) {
    struct stat info {};
    if (fstat(fd, &info) != 0) return false;
    status = fromStat(info);
    return true;
}

bool StatusOf(std::FILE* file, FileStatus& status) { return file && StatusOf(fileno(file), status); }

bool StatusAt(int folder, const char* name, FileStatus& status) {
    struct stat info {};
    if (fstatat(folder, name, &info, 0) != 0) return false;
    status = fromStat(info);
    return true;
}

bool RemoveFile(const char* path) { return ::unlink(path) == 0; }

bool RemoveFileAt(int folder, const char* name) { return unlinkat(folder, name, 0) == 0; }

bool TryLockExclusive(int fd) { return flock(fd, LOCK_EX | LOCK_NB) == 0; }

int OpenUnnamedFile(int folder) { return openat(folder, ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600); }

bool NameUnnamedFile(int fd, int folder, const char* name) {
    // The file's only path is its descriptor's entry under /proc.
    char self[64];
    std::snprintf(self, sizeof self, "/proc/self/fd/%d", fd);
    return linkat(AT_FDCWD, self, folder, name, AT_SYMLINK_FOLLOW) == 0;
}
