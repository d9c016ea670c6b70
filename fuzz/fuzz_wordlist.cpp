// Word list text of any bytes: split it, then look every word up again in all the ways a
// host can. Besides the sanitizers, it checks that each word is found exactly, as its own
// abbreviation and as its own nearest word.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "WordList.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    // The first byte picks the separators and the abbreviation marker; the rest is the text,
    // which ends at its first NUL as any C text does.
    const bool lineEndsOnly = data[0] & 1;
    const char marker = char(data[0] >> 1);
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);

    WordList wl(lineEndsOnly);
    wl.Set(text.c_str());
    std::vector<std::string> words;
    for (int i = 0; i < wl.Length(); ++i)
        words.emplace_back(wl[i]);

    WordList copy(wl);
    for (const std::string& w : words) {
        if (!wl.InList(w.c_str()) || !copy.InList(w.c_str()))
            __builtin_trap();
        if (w.find(marker) == std::string::npos && !wl.InListAbbreviated(w.c_str(), marker))
            __builtin_trap();
        const int n = int(w.size());
        if (!wl.GetNearestWord(w.c_str(), n, false) || !wl.GetNearestWord(w.c_str(), n, true))
            __builtin_trap();
        wl.GetNearestWord(w.c_str(), n / 2, true, SString("abc_"), 1);
        std::unique_ptr<char[]> near(wl.GetNearestWords(w.c_str(), n, true, ':', false));
        if (!near)
            __builtin_trap();
        near.reset(copy.GetNearestWords(w.c_str(), n / 2, false, '\0', true));
    }
    wl.InList(text.c_str());
    wl.InListAbbreviated(text.c_str(), marker);

    // The same text through the allocation path.
    WordList filled(lineEndsOnly);
    if (char* target = filled.Allocate(int(text.size()))) {
        std::memcpy(target, text.data(), text.size());
        filled.SetFromAllocated();
        if (filled.Length() != wl.Length())
            __builtin_trap();
    }
    return 0;
}
