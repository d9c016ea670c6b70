// Second process for the registry tests, on the store file named first. Exit 1: a call failed, 2: bad arguments.
//   STORE race TAG COUNT: prints "ready", waits for a stdin line, then writes REG_DWORD TAG-<i> = i below
//       HKCU\Software\Race and adds 1 to "Counter" for each i < COUNT.
//   STORE series: writes 4 KiB REG_BINARY "v<i>" below HKCU\Software\Series until killed, printing each i once committed.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Registry.h"

namespace {

HKEY createKey(const char* path) {
    HKEY key = nullptr;
    RegCreateKeyEx(HKEY_CURRENT_USER, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
}

int race(const char* tag, int count) {
    HKEY key = createKey("Software\\Race");
    if (!key) return 1;
    std::printf("ready\n");
    std::fflush(stdout);
    char line[16];
    if (!std::fgets(line, sizeof line, stdin)) return 1;
    for (int i = 0; i < count; ++i) {
        const std::string name = std::string(tag) + "-" + std::to_string(i);
        const DWORD value = DWORD(i);
        if (RegSetValueEx(key, name.c_str(), 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value) !=
                ERROR_SUCCESS ||
            RegIncrementValue(key, "Counter", 1, nullptr) != ERROR_SUCCESS)
            return 1;
    }
    return RegCloseKey(key) == ERROR_SUCCESS ? 0 : 1;
}

int series() {
    HKEY key = createKey("Software\\Series");
    if (!key) return 1;
    std::vector<BYTE> data(4096);
    for (unsigned i = 0;; ++i) {
        std::memset(data.data(), int(i & 0xFF), data.size());
        std::memcpy(data.data(), &i, sizeof i);
        const std::string name = std::string("v").append(std::to_string(i));
        if (RegSetValueEx(key, name.c_str(), 0, REG_BINARY, data.data(), DWORD(data.size())) != ERROR_SUCCESS)
            return 1;
        std::printf("%u\n", i);
        std::fflush(stdout);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3 || !RegSetStorePath(argv[1])) return 2;
    const std::string mode = argv[2];
    if (mode == "race" && argc == 5) return race(argv[3], std::atoi(argv[4]));
    if (mode == "series") return series();
    return 2;
}
