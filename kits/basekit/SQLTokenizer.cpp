// CSQLFormatter::Tokenize: splits SQL text into the tokens the layout moves around. Whatever
// must never change inside (a string, a quoted name, a comment, a run of operator
// characters, a client line) is one token.
#include <string>

#include "CSQLFormatter.h"
#include "SQLCharClass.h"
#include "SQLLexer.h"

using namespace sqlchar;

namespace {
using Kind = CSQLFormatter::TokenKind;
using Token = CSQLFormatter::Token;

void scanNumber(std::string_view text, std::size_t& i) {
    const std::size_t n = text.size();
    bool dot = false, exponent = false;
    if (text[i] == '.') {
        dot = true;
        ++i;
    }
    while (i < n) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        if (isDigit(c)) {
            ++i;
        } else if (c == '.' && !dot && !exponent && !(i + 1 < n && text[i + 1] == '.')) {
            dot = true;  // "1..10" is a range, not the number "1."
            ++i;
        } else if ((c == 'e' || c == 'E') && !exponent && i + 1 < n &&
                   (isDigit(static_cast<unsigned char>(text[i + 1])) ||
                    ((text[i + 1] == '+' || text[i + 1] == '-') && i + 2 < n &&
                     isDigit(static_cast<unsigned char>(text[i + 2]))))) {
            exponent = true;
            i += 2;
        } else if (isWordByte(c)) {
            ++i;  // suffixes and hexadecimal digits: 10d, 1.5f, 0x1F
        } else {
            break;
        }
    }
}


// PL/SQL attributes that stick to the name before them: emp.sal%TYPE, c%NOTFOUND.
constexpr std::string_view kAttributes[] = {"TYPE",     "ROWTYPE",         "FOUND",           "NOTFOUND", "ISOPEN",
                                            "ROWCOUNT", "BULK_ROWCOUNT",   "BULK_EXCEPTIONS", "CHARSET"};

// The length of "%attribute" at `i`, or 0.
std::size_t attributeAt(std::string_view text, std::size_t i) {
    if (i >= text.size() || text[i] != '%') return 0;
    std::size_t k = i + 1;
    while (k < text.size() && isWordByte(static_cast<unsigned char>(text[k]))) ++k;
    const std::string_view word = text.substr(i + 1, k - i - 1);
    for (std::string_view a : kAttributes)
        if (equalsUpper(word, a)) return k - i;
    return 0;
}

// SQL*Plus settings, so that "SET SERVEROUTPUT ON" (which takes no semicolon) is seen as a
// line for the client and not as the start of an SQL statement.
constexpr std::string_view kClientSettings[] = {
    "SERVEROUTPUT", "SERVEROUT", "DEFINE",   "ECHO",      "FEEDBACK", "FEED",      "HEADING",   "HEAD",
    "LINESIZE",     "LINES",     "PAGESIZE", "PAGES",     "VERIFY",   "VER",       "TERMOUT",   "TERM",
    "TIMING",       "TIMI",      "SQLBLANKLINES", "SQLBL", "TRIMSPOOL", "TRIMS",   "TRIMOUT",   "TRIMO",
    "LONG",         "ARRAYSIZE", "AUTOCOMMIT", "AUTO",    "SCAN",     "COLSEP",    "NEWPAGE",   "ESCAPE",
    "TAB",          "WRAP",      "SQLPROMPT", "SQLTERMINATOR", "CONCAT", "NUMWIDTH", "UNDERLINE",
};

struct Word {
    std::string_view text;
    std::size_t end;
};

// A word runs over word bytes; a '#' followed by '>' or '-' starts an operator instead
// (a#>>'{k}', a#-'{k}'), while emp# and a#b stay one name.
Word wordAt(std::string_view text, std::size_t i) {
    std::size_t k = i;
    while (k < text.size() && isWordByte(static_cast<unsigned char>(text[k])) &&
           !(k > i && text[k] == '#' && k + 1 < text.size() && (text[k + 1] == '>' || text[k + 1] == '-')))
        ++k;
    return {text.substr(i, k - i), k};
}

std::size_t skipSpaces(std::string_view text, std::size_t k) {
    while (k < text.size() && (text[k] == ' ' || text[k] == '\t')) ++k;
    return k;
}

bool atLineEnd(std::string_view text, std::size_t k) {
    k = skipSpaces(text, k);
    return k >= text.size() || text[k] == '\n' || text[k] == '\r';
}

// Whether a client command starts at `i`, the start of a statement.
bool clientCommandAt(std::string_view text, std::size_t i) {
    const unsigned char c = static_cast<unsigned char>(text[i]);
    if (c == '@') return true;                                      // @script, @@script
    if (!isWordStart(c)) return false;
    const Word w = wordAt(text, i);
    if (w.end < text.size() && !isBlank(static_cast<unsigned char>(text[w.end]))) return false;
    if (isClientWord(w.text)) return true;
    if (equalsUpper(w.text, "GO")) {  // the batch separator: GO alone, or GO 5
        std::size_t k = skipSpaces(text, w.end);
        while (k < text.size() && isDigit(static_cast<unsigned char>(text[k]))) ++k;
        return atLineEnd(text, k);
    }
    const std::size_t next = skipSpaces(text, w.end);
    const Word second = wordAt(text, next);
    if (equalsUpper(w.text, "SET")) {
        for (std::string_view setting : kClientSettings)
            if (equalsUpper(second.text, setting)) return true;
        return false;
    }
    if (equalsUpper(w.text, "SHOW") || equalsUpper(w.text, "SHO"))
        return equalsUpper(second.text, "ERRORS") || equalsUpper(second.text, "ERR");
    return false;
}

std::size_t lineEnd(std::string_view text, std::size_t i) {
    while (i < text.size() && text[i] != '\n' && text[i] != '\r') ++i;
    return i;
}

std::size_t trimEnd(std::string_view text, std::size_t start, std::size_t end) {
    while (end > start + 1 && (text[end - 1] == ' ' || text[end - 1] == '\t' || text[end - 1] == '\f' || text[end - 1] == '\v'))
        --end;
    return end;
}
}  // namespace

std::vector<CSQLFormatter::Token> CSQLFormatter::Tokenize(std::string_view text) {
    std::vector<Token> tokens;
    tokens.reserve(text.size() / 4 + 1);
    const std::size_t n = text.size();
    std::size_t i = 0;
    bool lineStart = true, statementStart = true;
    // A delimiter other than ';' chosen by a DELIMITER line, in upper case: it matches in any
    // letter case, so that changing the case of keywords never makes or unmakes a delimiter.
    std::string delimiter;
    auto at = [&](std::size_t k) -> unsigned char { return k < n ? static_cast<unsigned char>(text[k]) : 0; };
    auto skip = [&](sqllex::Run run) {  // moves behind a literal or comment; whether it closed
        i = run.end;
        return run.closed;
    };
    std::size_t whitespaceFrom = 0;
    while (i < n) {
        const unsigned char c = at(i);
        if (isBlank(c)) {
            if (c == '\n' || c == '\r') lineStart = true;
            ++i;
            continue;
        }
        const std::size_t start = i;
        // Right behind a name or a value, & and @ are operators (a&&b, a@>b), not variables.
        const bool afterOperand = start > 0 && (isWordByte(at(start - 1)) || at(start - 1) == ')' ||
                                                at(start - 1) == '"' || at(start - 1) == '`');
        Kind kind = Kind::Operator;
        bool terminated = true;
        if (!delimiter.empty() && equalsUpper(text.substr(i, delimiter.size()), delimiter)) {
            kind = Kind::Semicolon;  // first: it ends statements even where it looks like something else
            i += delimiter.size();
        } else if (c == '\\' || (c == '/' && lineStart && atLineEnd(text, i + 1)) ||
                   (statementStart && clientCommandAt(text, i))) {
            kind = Kind::Client;
            i = trimEnd(text, start, lineEnd(text, i));
            const Word w = wordAt(text, start);
            if (equalsUpper(w.text, "DELIMITER")) {
                const std::size_t from = skipSpaces(text, w.end);
                std::size_t to = from;
                while (to < i && !isBlank(at(to))) ++to;
                // "DELIMITER $$;" in test scripts: the ';' ends the command itself.
                if (to - from > 1 && text[to - 1] == ';') --to;
                delimiter = text.substr(from, to - from) == ";" ? "" : std::string(text.substr(from, to - from));
                for (char& d : delimiter) d = toUpper(d);
            }
        } else if (sqllex::startsLineComment(text, i) || (c == '#' && (i + 1 >= n || isBlank(at(i + 1)) || at(i + 1) == '#'))) {
            // "-- ..." and MySQL's "# ...": to the end of the line, which a lone CR ends too,
            // without its line end and trailing blanks (the layout places line ends itself).
            kind = Kind::LineComment;
            i = trimEnd(text, start, lineEnd(text, i));
        } else if (sqllex::startsBlockComment(text, i)) {
            kind = Kind::BlockComment;
            terminated = skip(sqllex::skipBlockComment(text, i));
        } else if (c == '\'') {
            kind = Kind::String;
            terminated = skip(sqllex::skipQuoted(text, i, '\''));
        } else if (c == '"' || c == '`') {
            kind = Kind::QuotedIdent;
            terminated = skip(sqllex::skipQuoted(text, i, char(c)));
        } else if (const std::size_t tag = c == '$' ? sqllex::dollarTagLength(text, i) : 0; tag > 0) {
            kind = Kind::String;
            terminated = skip(sqllex::skipDollarQuoted(text, i, tag));
        } else if (c == '$' && isDigit(at(i + 1))) {
            kind = Kind::Bind;  // $1 (and whatever touches it, which is never split off)
            i = wordAt(text, i + 1).end;
        } else if (isDigit(c) || (c == '.' && isDigit(at(i + 1)))) {
            kind = Kind::Number;
            scanNumber(text, i);
        } else if (isWordStart(c) || c == '$' || (c == '#' && isWordStart(at(i + 1)))) {
            const Word w = wordAt(text, i);
            kind = Kind::Word;
            i = w.end;
            if (at(i) == '\'') {
                if (equalsUpper(w.text, "N") || equalsUpper(w.text, "X") || equalsUpper(w.text, "B")) {
                    kind = Kind::String;
                    terminated = skip(sqllex::skipQuoted(text, i, '\''));
                } else if (equalsUpper(w.text, "E")) {
                    kind = Kind::String;
                    terminated = skip(sqllex::skipQuoted(text, i, '\'', sqllex::Escape::DoubledOrBackslash));
                } else if (sqllex::opensAlternativeQuote(text, i, w.text)) {
                    kind = Kind::String;
                    terminated = skip(sqllex::skipAlternativeQuote(text, i));
                }
            } else if (equalsUpper(w.text, "U") && at(i) == '&' && (at(i + 1) == '\'' || at(i + 1) == '"')) {
                kind = at(i + 1) == '\'' ? Kind::String : Kind::QuotedIdent;
                ++i;
                terminated = skip(sqllex::skipQuoted(text, i, char(at(i))));
            }
            if (kind == Kind::Word) i += attributeAt(text, i);
        } else if (const std::size_t attribute = attributeAt(text, i); attribute > 0) {
            kind = Kind::Word;  // "name"%TYPE
            i += attribute;
        } else if (c == ':' && (isWordByte(at(i + 1)) || at(i + 1) == '\'' || at(i + 1) == '"')) {
            kind = Kind::Bind;  // :name, :1, and psql's :'name' and :"name"
            ++i;
            if (at(i) == '\'' || at(i) == '"') {
                terminated = skip(sqllex::skipQuoted(text, i, char(at(i))));
            } else {
                while (i < n && isWordByte(at(i))) ++i;
            }
        } else if ((c == '&' || c == '@') && !afterOperand && (isWordStart(at(i + 1)) || (at(i + 1) == c && isWordStart(at(i + 2))))) {
            kind = Kind::Bind;  // &name, &&name, @name, @@name
            i += at(i + 1) == c ? 2 : 1;
            while (i < n && isWordByte(at(i))) ++i;
        } else if (c == '(') {
            kind = Kind::OpenParen;
            ++i;
        } else if (c == ')') {
            kind = Kind::CloseParen;
            ++i;
        } else if (c == ',') {
            kind = Kind::Comma;
            ++i;
        } else if (c == ';') {
            kind = Kind::Semicolon;
            ++i;
        } else if (c == '.') {
            i += at(i + 1) == '.' ? 2 : 1;
            kind = i - start == 1 ? Kind::Dot : Kind::Operator;
        } else if (isOperatorByte(c)) {
            // The whole run: splitting !~ or @> would change what the SQL means. It stops
            // where a comment starts and before a bind variable (=:x).
            ++i;
            while (i < n && isOperatorByte(at(i)) && !sqllex::startsLineComment(text, i) &&
                   !sqllex::startsBlockComment(text, i) && !(at(i) == ':' && at(i - 1) != ':' && isWordByte(at(i + 1))))
                ++i;
            if (i - start == 1 && c == '?') kind = Kind::Bind;
        } else {
            ++i;  // [ ] { } and any other byte stand alone
        }
        Token t{kind, text.substr(start, i - start), lineStart, terminated};
        t.joined = !tokens.empty() && whitespaceFrom == start;
        std::size_t lineEnds = 0;
        for (std::size_t k = whitespaceFrom; k < start && lineEnds < 2; ++k)
            if (text[k] == '\n' || (text[k] == '\r' && at(k + 1) != '\n')) ++lineEnds;
        t.blankBefore = !tokens.empty() && lineEnds >= 2;
        tokens.push_back(t);
        lineStart = false;
        statementStart = kind == Kind::Semicolon || kind == Kind::Client ||
                         (statementStart && (kind == Kind::LineComment || kind == Kind::BlockComment));
        whitespaceFrom = i;
    }
    return tokens;
}
