// SQL text of any bytes through the formatter, with options from the first byte: it must not
// crash, must keep every lexeme in order as an SQL reader of the tests' own sees them (only
// whitespace, the case of keywords and the layout inside function bodies may change), and
// must give the same text when it formats its own result again.
#include <cstddef>
#include <cstdint>
#include <string>

#include "../tests/format/SqlLexemes.h"
#include "CSQLFormatter.h"

namespace {
// A few words of each of the editor's keyword tables.
int reservedWord(const char* word, int length) {
    static const std::string_view words[] = {"SELECT", "FROM", "WHERE", "AND", "OR", "IN", "AS", "ON", "NOT",
                                             "CASE", "END", "BEGIN", "IF", "LOOP", "DECLARE", "VARCHAR", "PLAN"};
    for (std::string_view w : words)
        if (std::size_t(length) == w.size() && sqlref::upper(std::string_view(word, w.size())) == w) return 1;
    return 0;
}

int functionName(const char* word, int length) {
    static const std::string_view words[] = {"COUNT", "NVL", "MAX", "SUBSTR", "REPLACE"};
    for (std::string_view w : words)
        if (std::size_t(length) == w.size() && sqlref::upper(std::string_view(word, w.size())) == w) return 1;
    return 0;
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
    if (sqlref::lexemes(text) != sqlref::lexemes(once.view())) __builtin_trap();

    const CString twice = formatter.Format(once, align, commaFirst, keywordCase, multiline, layout, width);
    if (!(twice == once)) __builtin_trap();
    return 0;
}
