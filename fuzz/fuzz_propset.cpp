// Property text of any bytes: read it, then expand every key both ways and write the table out.
// Besides the sanitizers, it checks that enumeration, lookup and ToString agree.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "PropSetFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > std::size_t(PropSetFile::maxFileBytes))
        return 0;   // a file is never read beyond this
    // The first byte's low bit picks lower-cased keys; all bytes are read either way.
    PropSetFile props(size > 0 && (data[0] & 1));
    props.ReadFromMemory(reinterpret_cast<const char*>(data), int(size));

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
