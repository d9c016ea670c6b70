// SQL text of any bytes through the formatter, with options from the first byte: it must not
// crash, keep every token in order (only the letter case of words may change), and give the
// same text when it formats its own result again.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <strings.h>

#include "CSQLFormatter.h"

namespace {
int reservedWord(const char* word, int length) {
    static const char* const words[] = {"SELECT", "FROM", "WHERE", "AND", "OR", "IN", "AS", "ON", "NOT", "CASE", "END", nullptr};
    for (const char* const* w = words; *w; ++w)
        if (int(std::strlen(*w)) == length && strncasecmp(*w, word, std::size_t(length)) == 0) return 1;
    return 0;
}

int functionName(const char* word, int length) {
    static const char* const words[] = {"COUNT", "NVL", "MAX", "SUBSTR", "REPLACE", nullptr};
    for (const char* const* w = words; *w; ++w)
        if (int(std::strlen(*w)) == length && strncasecmp(*w, word, std::size_t(length)) == 0) return 1;
    return 0;
}

char fold(char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; }

bool sameIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (fold(a[i]) != fold(b[i])) return false;
    return true;
}

// The bytes of a text without its whitespace, ASCII letters folded.
std::string inkOf(std::string_view s) {
    std::string r;
    for (char c : s)
        if (!std::strchr(" \t\r\n\f\v", c) || c == '\0') r += fold(c);
    return r;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const unsigned options = data[0];
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const bool align = options & 1, commaFirst = options & 2, multiline = options & 4, layout = !(options & 8);
    const int keywordCase = int((options >> 4) & 3);
    const int width = (options & 0x40) ? 80 : 24;

    CSQLFormatter formatter;
    formatter.isKeywordFunc = reservedWord;
    formatter.isListKeywordFunc = functionName;
    const CString once = formatter.Format(CString(text), align, commaFirst, keywordCase, multiline, layout, width);

    const auto before = CSQLFormatter::Tokenize(text);
    const auto after = CSQLFormatter::Tokenize(once.view());
    if (before.size() != after.size()) __builtin_trap();
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i].kind != after[i].kind) __builtin_trap();
        const bool same = before[i].kind == CSQLFormatter::TokenKind::Word ? sameIgnoringCase(before[i].text, after[i].text)
                                                                           : before[i].text == after[i].text;
        if (!same) __builtin_trap();
    }
    if (inkOf(text) != inkOf(once.view())) __builtin_trap();

    const CString twice = formatter.Format(once, align, commaFirst, keywordCase, multiline, layout, width);
    if (!(twice == once)) __builtin_trap();
    return 0;
}
