// Registry calls driven by arbitrary bytes on a scratch store of this process (a temporary
// file, so that runs in parallel never share one): key paths with any bytes, backslashes and
// lengths, opened, created and deleted through a few handles; values set and deleted between
// walks by index; the toolkit's value walk and tree deletion. Besides the sanitizers it checks
// that a walk agrees with the key's counts and with queries by name.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CReg.h"
#include "Registry.h"

namespace {

void check(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "fuzz_registry: %s\n", what);
    std::abort();
}

// Reads the input as a series of operations, each a code byte and length-prefixed texts.
class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : p_(data), end_(data + size) {}
    bool more() const { return p_ < end_; }
    std::uint8_t byte() { return p_ < end_ ? *p_++ : 0; }
    std::string text() {
        std::size_t n = byte();
        if (n == 255) n = 255 + std::size_t(byte()) * 4;  // long names and paths now and then
        std::string s;
        while (s.size() < n && p_ < end_) s += char(*p_++);
        if (s.size() < n && !s.empty()) s.resize(n, s.back());
        return s;
    }

private:
    const std::uint8_t* p_;
    const std::uint8_t* end_;
};

// Walks the values (or sub keys) by index and checks them against the key's counts and, for
// values, against a query by name.
void walk(HKEY key, bool values) {
    DWORD subKeys = 0, valueCount = 0, longestKey = 0, longestValue = 0, largest = 0;
    if (RegQueryInfoKey(key, nullptr, nullptr, nullptr, &subKeys, &longestKey, nullptr, &valueCount, &longestValue,
                        &largest, nullptr, nullptr) != ERROR_SUCCESS)
        return;
    std::vector<char> name(std::size_t(values ? longestValue : longestKey) + 1);
    std::vector<BYTE> data(std::size_t(largest) + 1), byName(std::size_t(largest) + 1);
    DWORD index = 0;
    for (;; ++index) {
        DWORD cch = DWORD(name.size()), type = 0, size = DWORD(data.size());
        const LSTATUS rc = values ? RegEnumValue(key, index, name.data(), &cch, nullptr, &type, data.data(), &size)
                                  : RegEnumKeyEx(key, index, name.data(), &cch, nullptr, nullptr, nullptr, nullptr);
        if (rc == ERROR_NO_MORE_ITEMS) break;
        check(rc == ERROR_SUCCESS, "a walk failed within the counted entries");
        check(cch == std::strlen(name.data()), "the name length differs from the name");
        if (!values) continue;
        DWORD queriedType = 0, queriedSize = DWORD(byName.size());
        check(RegQueryValueEx(key, name.data(), nullptr, &queriedType, byName.data(), &queriedSize) == ERROR_SUCCESS,
              "a walked value cannot be queried by its name");
        check(queriedType == type && queriedSize == size && std::memcmp(byName.data(), data.data(), size) == 0,
              "the walk and the query disagree");
    }
    check(index == (values ? valueCount : subKeys), "the walk and the count disagree");
}

HKEY root = nullptr;
std::string storePath;

// The scratch store goes when the process ends, with SQLite's files beside it.
void removeStore() {
    RegSetStorePath(nullptr);
    for (const char* suffix : {"", "-wal", "-shm"}) unlink((storePath + suffix).c_str());
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    char path[] = "/tmp/fuzz_registry.XXXXXX";
    const int fd = mkstemp(path);
    if (fd < 0) std::abort();
    close(fd);
    unlink(path);  // the store makes its own file there
    storePath = path;
    if (!RegSetStorePath(path)) std::abort();
    std::atexit(removeStore);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 4096) return 0;
    if (RegCreateKeyEx(HKEY_CURRENT_USER, "Fuzz", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &root, nullptr) !=
        ERROR_SUCCESS)
        std::abort();
    HKEY handles[4] = {root, nullptr, nullptr, nullptr};
    Input in(data, size);
    for (int step = 0; step < 48 && in.more(); ++step) {
        const std::uint8_t op = in.byte();
        HKEY& slot = handles[1 + op % 3];
        HKEY base = handles[(op >> 2) % 4] ? handles[(op >> 2) % 4] : root;
        const std::string a = in.text();
        switch ((op >> 4) % 8) {
            case 0:
            case 1: {
                HKEY key = nullptr;
                const LSTATUS rc = op & 1 ? RegOpenKeyEx(base, a.c_str(), 0, KEY_ALL_ACCESS, &key)
                                          : RegCreateKeyEx(base, a.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                                                           &key, nullptr);
                check((rc == ERROR_SUCCESS) == (key != nullptr), "a handle without success or success without one");
                if (key) {
                    if (slot) RegCloseKey(slot);
                    slot = key;
                }
                break;
            }
            case 2:
                RegDeleteKey(base, a.c_str());
                break;
            case 3: {
                const std::string value = in.text();
                const DWORD type = in.byte() % 12;
                RegSetValueEx(base, a.c_str(), 0, type, reinterpret_cast<const BYTE*>(value.data()),
                              DWORD(value.size()));
                break;
            }
            case 4:
                RegDeleteValue(base, a.c_str());
                break;
            case 5:
                walk(base, op & 1);
                break;
            case 6: {
                CReg reg;
                reg.Open(base);
                CRegVal value;
                const char* name = nullptr;
                for (bool more = reg.FindFirstValue(name, &value); more; more = reg.FindNextValue(name, &value))
                    check(name != nullptr, "a walked value without a name");
                CReg::FindClose();
                reg.Open(nullptr);
                break;
            }
            default:
                RegDeleteKeyA(base, a.empty() ? nullptr : a.c_str(), nullptr);
                break;
        }
    }
    for (int i = 1; i < 4; ++i)
        if (handles[i]) RegCloseKey(handles[i]);
    // Nothing carries over to the next input (the input may have deleted the tree already).
    RegCloseKey(root);
    RegDeleteKeyA(HKEY_CURRENT_USER, "Fuzz", nullptr);
    HKEY left = nullptr;
    check(RegOpenKeyEx(HKEY_CURRENT_USER, "Fuzz", 0, KEY_READ, &left) == ERROR_FILE_NOT_FOUND,
          "the scratch tree cannot be deleted");
    return 0;
}
