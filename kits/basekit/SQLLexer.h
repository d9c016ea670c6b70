#pragma once
// How far a literal, a quoted name or a comment of SQL text reaches: the one reading of them
// that the SQL formatter's tokenizer, the bind scanners and the completion's alias reader
// share. Each scanner decides which of these forms it knows; where its rules differ from
// another's, it says so where it calls in.
//
// Every function takes the index of the construct's first byte and answers a Run: the index
// behind the construct, and whether its closing part was found. A run that the end of the text
// cuts short ends at the text's size. None reads before its start or past the text.
#include <cstddef>
#include <string_view>

#include "SQLCharClass.h"

namespace sqllex {

struct Run {
    std::size_t end;  // behind the construct; the text's size when it is not closed
    bool closed;
};

// What stands for the closing quote inside a quoted run.
enum class Escape {
    None,                // the first closing quote ends the run: [name]
    Doubled,             // a doubled closing quote stands for itself: 'it''s', "a""b"
    DoubledOrBackslash,  // also a backslash takes the byte behind it: E'it\'s'
};

// The quoted run whose opening quote stands at `i` and whose closing quote is `close`.
inline Run skipQuoted(std::string_view text, std::size_t i, char close, Escape escape = Escape::Doubled) {
    const char stops[] = {close, '\\'};
    for (std::size_t k = i + 1;;) {
        k = escape == Escape::DoubledOrBackslash ? text.find_first_of(std::string_view(stops, 2), k)
                                                 : text.find(close, k);  // memchr: quoted runs are long
        if (k == std::string_view::npos) return {text.size(), false};
        if (text[k] != close) {
            k += 2;  // a backslash and the byte it escapes
        } else if (escape != Escape::None && k + 1 < text.size() && text[k + 1] == close) {
            k += 2;
        } else {
            return {k + 1, true};
        }
    }
}

inline bool startsLineComment(std::string_view text, std::size_t i) {
    return i + 1 < text.size() && text[i] == '-' && text[i + 1] == '-';
}
inline bool startsBlockComment(std::string_view text, std::size_t i) {
    return i + 1 < text.size() && text[i] == '/' && text[i + 1] == '*';
}

// "-- ..." up to and with the LF that ends it. A lone CR does not end it.
inline Run skipLineComment(std::string_view text, std::size_t i) {
    const std::size_t lf = text.find('\n', i + 2);
    return lf == std::string_view::npos ? Run{text.size(), false} : Run{lf + 1, true};
}

// "/* ... */", not nested: the first "*/" behind the opening pair closes it, so "/*/" opens only.
inline Run skipBlockComment(std::string_view text, std::size_t i) {
    const std::size_t close = text.find("*/", i + 2);
    return close == std::string_view::npos ? Run{text.size(), false} : Run{close + 2, true};
}

// Whether the quote at `i`, right behind the word `prefix`, opens an alternative quote:
// q'<d>...<d>' or nq'<d>...<d>' in any case, with a delimiter <d> that is no blank.
inline bool opensAlternativeQuote(std::string_view text, std::size_t i, std::string_view prefix) {
    return (sqlchar::equalsUpper(prefix, "Q") || sqlchar::equalsUpper(prefix, "NQ")) && i + 1 < text.size() &&
           text[i] == '\'' && !sqlchar::isBlank(static_cast<unsigned char>(text[i + 1]));
}

// Oracle's alternative quoting: `i` at the quote of q'<d>...<d>', where the delimiter <d> is a
// bracket ([ ( { <, closed by its partner) or any other byte (closed by itself).
inline Run skipAlternativeQuote(std::string_view text, std::size_t i) {
    if (i + 1 >= text.size()) return {text.size(), false};
    char close = text[i + 1];
    switch (close) {
        case '[': close = ']'; break;
        case '(': close = ')'; break;
        case '{': close = '}'; break;
        case '<': close = '>'; break;
        default: break;
    }
    for (std::size_t p = text.find(close, i + 2); p != std::string_view::npos; p = text.find(close, p + 1))
        if (p + 1 < text.size() && text[p + 1] == '\'') return {p + 2, true};
    return {text.size(), false};
}

// The length of a dollar-quote tag ($$ or $name$) at `i`, or 0 when none starts there.
inline std::size_t dollarTagLength(std::string_view text, std::size_t i) {
    std::size_t k = i + 1;
    if (k < text.size() && sqlchar::isWordStart(static_cast<unsigned char>(text[k])))
        while (k < text.size() && text[k] != '$' && sqlchar::isWordByte(static_cast<unsigned char>(text[k]))) ++k;
    return k < text.size() && text[k] == '$' ? k + 1 - i : 0;
}

// $tag$ ... $tag$, whose opening tag of `tagLength` bytes stands at `i`.
inline Run skipDollarQuoted(std::string_view text, std::size_t i, std::size_t tagLength) {
    const std::size_t close = text.find(text.substr(i, tagLength), i + tagLength);
    return close == std::string_view::npos ? Run{text.size(), false} : Run{close + tagLength, true};
}

}  // namespace sqllex
