#pragma once
// File system calls of the layers above, by what they do. Each one leaves errno as the system
// set it, so that callers can tell why it failed. A folder is an open descriptor of it; names
// under it are single path components.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

struct FileStatus {
    bool regular = false;
    bool directory = false;
    std::uint64_t size = 0;
    std::uint64_t device = 0;   // device and inode together name the file
    std::uint64_t inode = 0;
    unsigned owner = 0;
    unsigned group = 0;
    unsigned mode = 0;          // permission bits
};

// The status of an open file, or of `name` in `folder` (following a final link); false when
// the system gives none.
bool StatusOf(int fd, FileStatus& status);
bool StatusOf(std::FILE* file, FileStatus& status);
bool StatusAt(int folder, const char* name, FileStatus& status);

// Removes the file at `path`, or `name` in `folder`.
bool RemoveFile(const char* path);
bool RemoveFileAt(int folder, const char* name);

// Takes the exclusive advisory lock on an open file without waiting; false when another
// holder has it.
bool TryLockExclusive(int fd);

// A file in `folder` that has no name until NameUnnamedFile gives it one and vanishes by
// itself when closed without one: a write-only descriptor, or -1. errno EOPNOTSUPP, EISDIR or
// EINVAL mean the file system has no such files; CanNameUnnamedFiles says whether they can be
// named here at all.
int OpenUnnamedFile(int folder);
// Gives the open file `fd` the name `name` in `folder`.
bool NameUnnamedFile(int fd, int folder, const char* name);
bool CanNameUnnamedFiles();

// Opens `path` for reading without waiting (a FIFO opens at once), or -1.
int OpenForReading(const char* path);
// Opens the folder `path` to work with the names under it, or -1. A folder that may be written
// but not listed still opens, for creating and renaming only.
int OpenFolder(const char* path);
// Creates `name` in `folder` for writing, readable and writable by the owner only; -1 when it
// exists (errno EEXIST) or cannot be made.
int CreateNewFileAt(int folder, const char* name);
// Opens `name` in `folder` for reading without following a final link and without waiting, or -1.
int OpenExistingAt(int folder, const char* name);
bool CloseDescriptor(int fd);

// Reads up to `size` bytes at `offset`, fewer only at the end of the file; size_t(-1) on failure.
std::size_t ReadAt(int fd, char* buffer, std::size_t size, std::uint64_t offset);
// Writes some of the bytes: how many, or -1 (errno EINTR: try again).
long WriteSome(int fd, const char* data, std::size_t size);
// Makes the file's data, or a folder's entries, durable.
bool SyncFile(int fd);

// Whether this process may write `name` in `folder`.
bool CanWriteAt(int folder, const char* name);
bool SetPermissions(int fd, unsigned mode);
bool SetOwner(int fd, unsigned owner, unsigned group);
// The process's umask, which a new file's permissions follow.
unsigned CurrentUmask();
// Renames `from` over `to`, both in `folder`, in one step.
bool RenameAt(int folder, const char* from, const char* to);

// The path of the file a symbolic link at `path` leads to; `path` itself when it is no link.
std::string ResolveLink(const std::string& path);
// The names in `folder`, "." and ".." left out; empty when it cannot be listed.
std::vector<std::string> NamesIn(int folder);
