#include "BindScanner.h"
#include "SQLCharClass.h"
#include "SQLLexer.h"
#include "Utf8.h"

namespace {

using sqlchar::isBlank;

bool isAsciiAlnum(unsigned char c) { return sqlchar::isAlpha(c) || sqlchar::isDigit(c); }

// Length of the well-formed UTF-8 sequence that starts s[i], 2 to 4; 1 for an ASCII byte and
// for a byte that starts no complete, well-formed sequence before the end of `s`.
int utf8Length(std::string_view s, size_t i) {
    const size_t length = Utf8SequenceLength(reinterpret_cast<const unsigned char*>(s.data()), i, s.size());
    return length ? int(length) : 1;
}

// Index of the first byte at or after `from`, outside literals and comments, for which `hit`
// holds; -1 when there is none or a literal or comment runs into the end of the text. Unlike
// the formatter, these scanners know '...' and "..." as their only literals, with no escape
// (a doubled quote closes and reopens), no q-quotes and no dollar quotes, and a line comment
// ends at LF alone.
template <class Hit>
int walk(std::string_view s, int from, Hit hit) {
    const size_t n = s.size();
    for (size_t i = size_t(from); i < n;) {
        const char c = s[i];
        sqllex::Run run;
        if (c == '\'' || c == '"') {
            run = sqllex::skipQuoted(s, i, c, sqllex::Escape::None);
        } else if (sqllex::startsLineComment(s, i)) {
            run = sqllex::skipLineComment(s, i);
        } else if (sqllex::startsBlockComment(s, i)) {
            run = sqllex::skipBlockComment(s, i);
        } else if (hit(i)) {
            return int(i);
        } else {
            ++i;
            continue;
        }
        if (!run.closed) return -1;
        i = run.end;
    }
    return -1;
}

// Index behind the gap and the name of a bind whose marker stands before `i`.
int nameEnd(std::string_view s, size_t i) {
    const size_t n = s.size();
    while (i < n && isBlank(static_cast<unsigned char>(s[i]))) ++i;
    while (i < n) {
        const unsigned char c = static_cast<unsigned char>(s[i]);
        if (c >= 0x80) {
            const int length = utf8Length(s, i);
            if (length == 1) break;
            i += size_t(length);
        } else if (isAsciiAlnum(c) || std::string_view("_$#[].").find(char(c)) != std::string_view::npos) {
            ++i;
        } else if (c == '-' && i + 1 < n && s[i + 1] == '>') {
            i += 2;
        } else {
            break;
        }
    }
    return int(i);
}

bool inside(std::string_view s, int index) { return index >= 0 && size_t(index) < s.size(); }

}  // namespace

bool FindBindIn(std::string_view s, int from, int& start, int& end) {
    if (!inside(s, from)) return false;
    const int at = walk(s, from, [s](size_t i) {
        // ":=" is an assignment and a marker at the end stands for nothing.
        return (s[i] == ':' || s[i] == '&') && i + 1 < s.size() && s[i + 1] != '=';
    });
    if (at < 0) return false;
    start = at;
    end = nameEnd(s, size_t(at) + 1);
    return true;
}

int FindPlaceholderIn(std::string_view s, int from) {
    if (!inside(s, from)) return -1;
    return walk(s, from, [s](size_t i) { return s[i] == '?'; });
}

int FindBindPosition(CString text, int& start, int& end) {
    return FindBindIn(std::string_view(text.c_str()), start, start, end) ? 1 : 0;
}

int FindBindReplacePosition(CString text, int& position) {
    const int at = FindPlaceholderIn(std::string_view(text.c_str()), position);
    if (at < 0) return 0;
    position = at;
    return 1;
}
