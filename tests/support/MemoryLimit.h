#pragma once
// Runs a check in a forked child whose address space may grow only a little beyond what the
// process holds now, so that a large allocation fails there and nowhere else.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <functional>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
#define QUILLBOX_SANITIZED_ALLOCATOR 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUILLBOX_SANITIZED_ALLOCATOR 1
#endif
#endif

// Whether `check` returned true in a child limited to its current size plus `headroomBytes`.
inline bool PassesWithLittleMemory(const std::function<bool()>& check, long headroomBytes) {
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0) {
        std::ifstream status("/proc/self/status");
        std::string line;
        long kib = 0;
        while (std::getline(status, line))
            if (line.rfind("VmSize:", 0) == 0) kib = std::stol(line.substr(7));
        const rlimit limit{rlim_t(kib) * 1024 + rlim_t(headroomBytes), RLIM_INFINITY};
        _exit(setrlimit(RLIMIT_AS, &limit) == 0 && check() ? 0 : 1);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
