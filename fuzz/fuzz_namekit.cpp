// The completion request's text: the dotted name typed at the caret (the input up to its
// first LF) and the statement around it (the rest). Besides the sanitizers it checks that the
// parts give the name back, that an item reads back as the name it was made from, and that
// aliases come lower-cased.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "NameRequest.h"

namespace {

void check(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "fuzz_namekit: %s\n", what);
    std::abort();
}

bool hasUpperAscii(const std::string& s) {
    for (char c : s)
        if (c >= 'A' && c <= 'Z') return true;
    return false;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t lf = input.find('\n');
    const std::string_view name = input.substr(0, lf);
    const std::string_view query = lf == std::string_view::npos ? std::string_view() : input.substr(lf + 1);

    const auto parts = namekit::SplitName(name);
    check(!parts.empty(), "no parts");
    std::string joined;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i) joined += '.';
        joined += parts[i].raw;
    }
    check(joined == name, "the parts do not give the name back");

    for (const auto& part : parts) {
        for (char quote : {'\0', '"', '`', '['}) {
            if (quote == '[' && part.value.find(']') != std::string::npos) continue;  // ] is never doubled
            const std::string item = namekit::ItemText(part.value, quote);
            const auto back = namekit::SplitName(item);
            check(back.size() == 1 && back[0].value == part.value, "an item does not read back as its name");
        }
    }

    for (const auto& [alias, ref] : namekit::ReadAliases(query))
        check(!hasUpperAscii(alias) && !hasUpperAscii(ref.tableKey) && !hasUpperAscii(ref.schemaKey),
              "an alias or table key not lower-cased");
    return 0;
}
