#include "Files.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

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

bool CanNameUnnamedFiles() { return access("/proc/self/fd", X_OK) == 0; }

int OpenForReading(const char* path) { return ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK); }

int OpenFolder(const char* path) {
    const int fd = ::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd >= 0 || errno != EACCES) return fd;
    return ::open(path, O_PATH | O_DIRECTORY | O_CLOEXEC);
}

int CreateNewFileAt(int folder, const char* name) {
    return openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
}

int OpenExistingAt(int folder, const char* name) {
    return openat(folder, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
}

bool CloseDescriptor(int fd) { return ::close(fd) == 0; }

std::size_t ReadAt(int fd, char* buffer, std::size_t size, std::uint64_t offset) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = ::pread(fd, buffer + done, size - done, off_t(offset + done));
        if (n == 0) break;
        if (n < 0) {
            if (errno == EINTR) continue;
            return std::size_t(-1);
        }
        done += std::size_t(n);
    }
    return done;
}

long WriteSome(int fd, const char* data, std::size_t size) { return long(::write(fd, data, size)); }

bool SyncFile(int fd) { return fsync(fd) == 0; }

bool CanWriteAt(int folder, const char* name) { return faccessat(folder, name, W_OK, AT_EACCESS) == 0; }

bool SetPermissions(int fd, unsigned mode) { return fchmod(fd, mode_t(mode)) == 0; }

bool SetOwner(int fd, unsigned owner, unsigned group) { return fchown(fd, owner, group) == 0; }

unsigned CurrentUmask() {
    // Read from /proc: umask() can only be read by changing it, which would race with other
    // threads.
    unsigned mask = 022;
    if (std::FILE* status = std::fopen("/proc/self/status", "re")) {
        char line[256];
        while (std::fgets(line, sizeof line, status))
            if (std::strncmp(line, "Umask:", 6) == 0) {
                mask = unsigned(std::strtoul(line + 6, nullptr, 8));
                break;
            }
        std::fclose(status);
    }
    return mask;
}

bool RenameAt(int folder, const char* from, const char* to) { return renameat(folder, from, folder, to) == 0; }

std::string ResolveLink(const std::string& path) {
    struct stat info {};
    if (lstat(path.c_str(), &info) != 0 || !S_ISLNK(info.st_mode)) return path;
    char* real = realpath(path.c_str(), nullptr);
    if (!real) return path;
    std::string target = real;
    std::free(real);
    return target;
}

std::vector<std::string> NamesIn(int folder) {
    std::vector<std::string> names;
    const int listFd = openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (listFd < 0) return names;
    DIR* dir = fdopendir(listFd);
    if (!dir) {
        ::close(listFd);
        return names;
    }
    while (const dirent* entry = readdir(dir))
        if (std::strcmp(entry->d_name, ".") != 0 && std::strcmp(entry->d_name, "..") != 0)
            names.emplace_back(entry->d_name);
    closedir(dir);
    return names;
}
