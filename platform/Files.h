#pragma once
// File system calls of the layers above, by what they do. Each one leaves errno as the system
// set it, so that callers can tell why it failed. A folder is an open descriptor of it; names
// under it are single path components.
#include <cstdint>
#include <cstdio>

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
// EINVAL mean the file system has no such files.
int OpenUnnamedFile(int folder);
// Gives the open file `fd` the name `name` in `folder`.
bool NameUnnamedFile(int fd, int folder, const char* name);
