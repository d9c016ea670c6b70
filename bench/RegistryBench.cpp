// Walks over the values and the sub keys of one registry key by index, with 1,000 and 10,000
// entries, on a scratch store: the time of a whole walk and the ratio between the two sizes,
// which stays near 10 when a walk grows linearly with the key. The toolkit's value walk
// (CReg::FindFirstValue / FindNextValue, which also loads each value) is timed the same way.
#include <benchmark/benchmark.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "BenchSupport.h"
#include "CReg.h"
#include "Registry.h"

namespace {

constexpr DWORD kSmall = 1000;
constexpr DWORD kLarge = 10000;

// A scratch store with keys "Values<n>" and "Keys<n>" holding n values or n sub keys.
class ScratchStore {
public:
    ScratchStore() {
        RegSetStorePath((dir_.path() + "/bench-registry.sqlite").toUtf8().constData());
        for (DWORD n : {kSmall, kLarge}) {
            HKEY values = create("Values" + std::to_string(n));
            for (DWORD i = 0; i < n; ++i) {
                const std::string name = "Value" + std::to_string(i);
                const std::string data = "data of value " + std::to_string(i);
                RegSetValueEx(values, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                              DWORD(data.size() + 1));
            }
            RegCloseKey(values);
            HKEY keys = create("Keys" + std::to_string(n));
            for (DWORD i = 0; i < n; ++i) {
                HKEY child = nullptr;
                RegCreateKeyEx(keys, ("Key" + std::to_string(i)).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr,
                               &child, nullptr);
                RegCloseKey(child);
            }
            RegCloseKey(keys);
        }
    }
    ~ScratchStore() { RegSetStorePath(nullptr); }

    static HKEY open(const std::string& name) {
        HKEY key = nullptr;
        RegOpenKeyEx(HKEY_CURRENT_USER, ("Bench\\" + name).c_str(), 0, KEY_READ, &key);
        return key;
    }

private:
    static HKEY create(const std::string& name) {
        HKEY key = nullptr;
        RegCreateKeyEx(HKEY_CURRENT_USER, ("Bench\\" + name).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                       nullptr);
        return key;
    }
    QTemporaryDir dir_;
};

ScratchStore& scratch() {
    static ScratchStore store;
    return store;
}

// Every value with its name and data, by index; the count walked.
DWORD walkValues(HKEY key) {
    char name[64];
    BYTE data[64];
    DWORD index = 0;
    for (;; ++index) {
        DWORD cchName = sizeof name, cbData = sizeof data, type = 0;
        if (RegEnumValue(key, index, name, &cchName, nullptr, &type, data, &cbData) != ERROR_SUCCESS) break;
    }
    return index;
}

DWORD walkSubKeys(HKEY key) {
    char name[64];
    DWORD index = 0;
    for (;; ++index) {
        DWORD cchName = sizeof name;
        if (RegEnumKeyEx(key, index, name, &cchName, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) break;
    }
    return index;
}

DWORD walkToolkit(HKEY key) {
    CReg reg;
    reg.Open(key);
    CRegVal value;
    const char* name = nullptr;
    DWORD count = 0;
    for (bool more = reg.FindFirstValue(name, &value); more; more = reg.FindNextValue(name, &value)) ++count;
    CReg::FindClose();
    reg.Open(nullptr);  // the caller closes the key
    return count;
}

void run(benchmark::State& state, const char* prefix, DWORD (*walk)(HKEY)) {
    scratch();
    HKEY small = ScratchStore::open(prefix + std::to_string(kSmall));
    HKEY large = ScratchStore::open(prefix + std::to_string(kLarge));
    // The fastest of the runs, so that a busy machine disturbs the ratio less.
    double smallMs = 1e9, largeMs = 1e9;
    DWORD walked = 0;
    for (auto _ : state) {
        const double smallRun = TimeMs([&] { walked = walk(small); });
        if (walked != kSmall) state.SkipWithError("the small walk missed entries");
        const double largeRun = TimeMs([&] { walked = walk(large); });
        if (walked != kLarge) state.SkipWithError("the large walk missed entries");
        smallMs = std::min(smallMs, smallRun);
        largeMs = std::min(largeMs, largeRun);
        state.SetIterationTime(largeRun / 1000.0);
    }
    RegCloseKey(small);
    RegCloseKey(large);
    state.counters["walk_1000_ms"] = smallMs;
    state.counters["walk_10000_ms"] = largeMs;
    state.counters["ratio"] = largeMs / smallMs;
}

void BM_RegEnumValue(benchmark::State& state) { run(state, "Values", walkValues); }
void BM_RegEnumKeyEx(benchmark::State& state) { run(state, "Keys", walkSubKeys); }
void BM_CRegFindValue(benchmark::State& state) { run(state, "Values", walkToolkit); }

}  // namespace

BENCHMARK(BM_RegEnumValue)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(BM_RegEnumKeyEx)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);
BENCHMARK(BM_CRegFindValue)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(10);

int main(int argc, char** argv) { return RunBenchmarks(argc, argv); }
