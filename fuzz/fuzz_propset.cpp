// Property text of any bytes: read it, then expand every key both ways and write the table out.
// Besides the sanitizers, it checks that enumeration, lookup and ToString agree. The text is
// also the file "in.properties" of an import folder of this process, beside files that import
// each other, so that "import in" and its cycles go through the file reader.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "PropSetFile.h"

namespace {

std::string importFolder;

void writeFile(const std::string& name, const void* bytes, std::size_t size) {
    std::FILE* f = std::fopen((importFolder + "/" + name).c_str(), "wb");
    if (!f) std::abort();
    std::fwrite(bytes, 1, size, f);
    std::fclose(f);
}

// The import folder goes when the process ends.
void removeFolder() {
    for (const char* name : {"a.properties", "b.properties", "in.properties"})
        unlink((importFolder + "/" + name).c_str());
    rmdir(importFolder.c_str());
}

}   // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    char folder[] = "/tmp/fuzz_propset.XXXXXX";
    if (!mkdtemp(folder)) std::abort();
    importFolder = folder;
    std::atexit(removeFolder);
    const char a[] = "a.x=1\nimport b\nimport in\n";
    const char b[] = "b.x=$(a.x)\nimport a\nimport b\nif a.x\n  import in\n";
    writeFile("a.properties", a, sizeof a - 1);
    writeFile("b.properties", b, sizeof b - 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > std::size_t(PropSetFile::maxFileBytes))
        return 0;   // a file is never read beyond this
    // The first byte's low bit picks lower-cased keys; all bytes are read either way.
    PropSetFile props(size > 0 && (data[0] & 1));
    writeFile("in.properties", data, size);
    const FilePath folder(importFolder.c_str());
    if (size > 0 && (data[0] & 2)) {
        FilePath imports[4];
        props.ReadFromMemory(reinterpret_cast<const char*>(data), int(size), folder, imports, 4);
    } else {
        props.ReadFromMemory(reinterpret_cast<const char*>(data), int(size));
    }

    std::vector<std::pair<std::string, std::string>> entries;
    char* key = nullptr;
    char* val = nullptr;
    for (bool more = props.GetFirst(&key, &val); more; more = props.GetNext(&key, &val))
        entries.emplace_back(key, val);

    std::size_t total = 0;
    for (const auto& [k, v] : entries) {
        if (props.Get(k.c_str()) != v.c_str())
            __builtin_trap();
        total += k.size() + v.size() + 2;
        props.GetExpanded(k.c_str());
        props.GetInt(k.c_str(), 0);
        props.GetNewExpand(k.c_str(), "x.sql");
        props.GetWild(k.c_str(), "");
    }
    const std::unique_ptr<char[]> all(props.ToString());
    if (!all || std::strlen(all.get()) != (total ? total - 1 : 0))
        __builtin_trap();
    return 0;
}
