#pragma once
// Byte classes of SQL text, shared by the formatter, the bind scanners, the completion's name
// reading and the statement extraction. A byte of 0x80 or above is never blank.
#include <string_view>

namespace sqlchar {
constexpr bool isBlank(unsigned char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
inline bool isDigit(unsigned char c) { return c >= '0' && c <= '9'; }
inline bool isAlpha(unsigned char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
// Bytes from 0x80 belong to words, so a UTF-8 sequence is never cut.
inline bool isWordByte(unsigned char c) { return isAlpha(c) || isDigit(c) || c == '_' || c == '$' || c == '#' || c >= 0x80; }
inline bool isWordStart(unsigned char c) { return isAlpha(c) || c == '_' || c >= 0x80; }
// Bytes that run together into one operator: != <@> ->> #>> :: ...
inline bool isOperatorByte(unsigned char c) {
    switch (c) {
        case '+': case '-': case '*': case '/': case '<': case '>': case '=': case '~': case '!':
        case '@': case '#': case '%': case '^': case '&': case '|': case '?': case ':':
            return true;
        default:
            return false;
    }
}
inline char toUpper(char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; }
inline char toLower(char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }

// Whether `s` is `upperWord` in any letter case.
inline bool equalsUpper(std::string_view s, std::string_view upperWord) {
    if (s.size() != upperWord.size()) return false;
    for (std::size_t k = 0; k < s.size(); ++k)
        if (toUpper(s[k]) != upperWord[k]) return false;
    return true;
}
// Words that start a line for the client when they start a statement and a blank follows.
inline bool isClientWord(std::string_view s) {
    for (std::string_view w : {"PROMPT", "REM", "REMARK", "SPOOL", "WHENEVER", "DEFINE", "UNDEFINE", "DELIMITER", "ACCEPT", "PAUSE"})
        if (equalsUpper(s, w)) return true;
    return false;
}
}  // namespace sqlchar
