// Second process for the registry tests: `test_registry_writer STORE TAG COUNT` opens the store
// file STORE, prints "ready" and waits for a line on stdin. Then, for each i below COUNT (without
// end for 0), it writes the 4 KiB REG_BINARY value "TAG-<i>" below HKCU\Software\Race, holding i
// in its first bytes and i's low byte in the others, adds 1 to "Counter", and prints i once both
// are committed. Exit 1: a call failed, 2: bad arguments or no store.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Registry.h"

int main(int argc, char** argv) {
    HKEY key = nullptr;
    if (argc != 4 || !RegSetStorePath(argv[1]) ||
        RegCreateKeyEx(HKEY_CURRENT_USER, "Software\\Race", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr))
        return 2;
    std::printf("ready\n");
    std::fflush(stdout);
    char line[16];
    if (!std::fgets(line, sizeof line, stdin)) return 1;
    const unsigned count = unsigned(std::atoi(argv[3]));
    std::vector<BYTE> data(4096);
    for (unsigned i = 0; count == 0 || i < count; ++i) {
        std::memset(data.data(), int(i & 0xFF), data.size());
        std::memcpy(data.data(), &i, sizeof i);
        const std::string name = std::string(argv[2]).append("-").append(std::to_string(i));
        if (RegSetValueEx(key, name.c_str(), 0, REG_BINARY, data.data(), DWORD(data.size())) != ERROR_SUCCESS ||
            RegIncrementValue(key, "Counter", 1, nullptr) != ERROR_SUCCESS)
            return 1;
        std::printf("%u\n", i);
        std::fflush(stdout);
    }
    return RegCloseKey(key) == ERROR_SUCCESS ? 0 : 1;
}
