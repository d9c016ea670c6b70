#pragma once
// A reader of SQL text written for the formatter's tests, apart from the formatter's own
// tokenizer: it cuts text into lexemes the way a database client and server would, so that
// two texts with the same lexemes mean the same. Words compare in upper case; a run of
// operator characters, a string, a quoted name, a comment and a client line compare byte for
// byte. A dollar-quoted text is read as SQL inside its quotes, so that a laid-out function
// body still compares with the original.
#include <string>
#include <string_view>
#include <vector>

#include "SQLCharClass.h"
#include "SQLLexer.h"

namespace sqlref {
// The byte classes and the reach of literals and comments are the library's own lexical layer,
// which the tokenizer tests pin down; what this reader decides alone is where lexemes part.
using sqlchar::isBlank, sqlchar::isDigit, sqlchar::isOperatorByte, sqlchar::isWordByte, sqlchar::isWordStart;
inline std::string upper(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = sqlchar::toUpper(c);
    return r;
}

class Lexer {
public:
    explicit Lexer(std::string_view text) : s_(text) {}

    std::vector<std::string> run() {
        bool statementStart = true, lineStart = true;
        while (i_ < s_.size()) {
            const unsigned char c = at(i_);
            if (isBlank(c)) {
                lineStart |= c == '\n' || c == '\r';
                ++i_;
                continue;
            }
            const std::size_t from = i_;
            bool ends = false, comment = false;
            if (!delimiter_.empty() && upper(s_.substr(i_, delimiter_.size())) == delimiter_) {
                i_ += delimiter_.size();
                ends = true;
            } else if (c == '\\' || runLine(lineStart) || (statementStart && clientLine())) {
                toLineEnd();
                ends = true;
                chooseDelimiter(s_.substr(from, i_ - from));
            } else if (sqllex::startsLineComment(s_, i_) || (c == '#' && (isBlank(at(i_ + 1)) || at(i_ + 1) == '#' || i_ + 1 >= s_.size()))) {
                toLineEnd();
                comment = true;
            } else if (sqllex::startsBlockComment(s_, i_)) {
                i_ = sqllex::skipBlockComment(s_, i_).end;
                comment = true;
            } else if (const std::size_t tag = c == '$' ? sqllex::dollarTagLength(s_, i_) : 0; tag > 0) {
                const sqllex::Run body = sqllex::skipDollarQuoted(s_, i_, tag);
                if (!body.closed) {
                    i_ = s_.size();
                } else {
                    const std::size_t e = body.end - tag;
                    out_.emplace_back(s_.substr(i_, tag));
                    for (std::string& inner : Lexer(s_.substr(i_ + tag, e - i_ - tag)).run()) out_.push_back("  " + inner);
                    out_.emplace_back(s_.substr(e, tag));
                    i_ = e + tag;
                    statementStart = lineStart = false;
                    continue;
                }
            } else if (c == '\'' || c == '"' || c == '`') {
                quoted(char(c), false);
            } else if (isWordStart(c) || c == '$' || (c == '#' && isWordStart(at(i_ + 1)))) {
                for (++i_; isWordByte(at(i_)) && !(at(i_) == '#' && (at(i_ + 1) == '>' || at(i_ + 1) == '-')); ++i_) {
                }
                const std::string w = upper(s_.substr(from, i_ - from));
                const bool alternativeQuote = sqllex::opensAlternativeQuote(s_, i_, w);
                if (at(i_) == '\'' && (w == "N" || w == "X" || w == "B" || w == "E" || alternativeQuote)) {
                    if (alternativeQuote) i_ = sqllex::skipAlternativeQuote(s_, i_).end;
                    else quoted('\'', w == "E");
                } else if (w == "U" && at(i_) == '&' && (at(i_ + 1) == '\'' || at(i_ + 1) == '"')) {
                    ++i_;
                    quoted(char(at(i_)), false);
                } else {
                    attribute();
                    out_.push_back(upper(s_.substr(from, i_ - from)));
                    statementStart = lineStart = false;
                    continue;
                }
            } else if (c >= '0' && c <= '9') {
                number();
            } else if (c == '.') {
                if (at(i_ + 1) >= '0' && at(i_ + 1) <= '9') number();
                else i_ += at(i_ + 1) == '.' ? 2 : 1;
            } else if (c == '%' && attributeLength(i_) > 0) {
                attribute();
            } else if (c == ':' && (isWordByte(at(i_ + 1)) || at(i_ + 1) == '\'' || at(i_ + 1) == '"')) {
                ++i_;
                if (at(i_) == '\'' || at(i_) == '"') quoted(char(at(i_)), false);
                else while (isWordByte(at(i_))) ++i_;
            } else if ((c == '&' || c == '@') && !(i_ > 0 && (isWordByte(at(i_ - 1)) || at(i_ - 1) == ')' || at(i_ - 1) == '"' || at(i_ - 1) == '`')) &&
                       (isWordStart(at(i_ + 1)) || (at(i_ + 1) == c && isWordStart(at(i_ + 2))))) {
                i_ += at(i_ + 1) == c ? 2 : 1;
                while (isWordByte(at(i_))) ++i_;
            } else if (isOperatorByte(c)) {
                ++i_;
                while (isOperatorByte(at(i_)) && !sqllex::startsLineComment(s_, i_) && !sqllex::startsBlockComment(s_, i_) &&
                       !(at(i_) == ':' && at(i_ - 1) != ':' && isWordByte(at(i_ + 1))))
                    ++i_;
            } else {
                ++i_;
                ends = c == ';';
            }
            std::string_view lexeme = s_.substr(from, i_ - from);
            if (comment || ends)
                while (lexeme.size() > 1 && (lexeme.back() == ' ' || lexeme.back() == '\t' || lexeme.back() == '\f' || lexeme.back() == '\v'))
                    lexeme.remove_suffix(1);
            out_.emplace_back(lexeme);
            statementStart = ends || (statementStart && comment);
            lineStart = false;
        }
        return std::move(out_);
    }

private:
    unsigned char at(std::size_t k) const { return k < s_.size() ? static_cast<unsigned char>(s_[k]) : 0; }
    void toLineEnd() {
        while (i_ < s_.size() && s_[i_] != '\n' && s_[i_] != '\r') ++i_;
    }
    void quoted(char q, bool backslash) {
        i_ = sqllex::skipQuoted(s_, i_, q, backslash ? sqllex::Escape::DoubledOrBackslash : sqllex::Escape::Doubled).end;
    }
    std::size_t attributeLength(std::size_t k) const {
        if (at(k) != '%') return 0;
        std::size_t e = k + 1;
        while (isWordByte(at(e))) ++e;
        const std::string a = upper(s_.substr(k + 1, e - k - 1));
        for (const char* known : {"TYPE", "ROWTYPE", "FOUND", "NOTFOUND", "ISOPEN", "ROWCOUNT", "BULK_ROWCOUNT",
                                  "BULK_EXCEPTIONS", "CHARSET"})
            if (a == known) return e - k;
        return 0;
    }
    void attribute() { i_ += attributeLength(i_); }
    void number() {
        bool dot = false, exponent = false;
        if (at(i_) == '.') dot = true, ++i_;
        while (i_ < s_.size()) {
            const unsigned char c = at(i_);
            if (c == '.' && !dot && !exponent && at(i_ + 1) != '.') dot = true, ++i_;
            else if ((c == 'e' || c == 'E') && !exponent &&
                     (isDigit(at(i_ + 1)) || ((at(i_ + 1) == '+' || at(i_ + 1) == '-') && isDigit(at(i_ + 2)))))
                exponent = true, i_ += 2;
            else if (isWordByte(c)) ++i_;
            else break;
        }
    }
    // "/" alone on a line runs what came before it.
    bool runLine(bool lineStart) const {
        if (at(i_) != '/' || !lineStart) return false;
        std::size_t k = i_ + 1;
        while (at(k) == ' ' || at(k) == '\t') ++k;
        return k >= s_.size() || at(k) == '\n' || at(k) == '\r';
    }
    // @script and the client's own commands at the start of a statement.
    bool clientLine() const {
        if (at(i_) == '@') return true;
        std::size_t e = i_;
        while (isWordByte(at(e))) ++e;
        if (e < s_.size() && !isBlank(at(e))) return false;
        const std::string w = upper(s_.substr(i_, e - i_));
        if (sqlchar::isClientWord(w)) return true;
        std::size_t k = e;
        while (at(k) == ' ' || at(k) == '\t') ++k;
        std::size_t next = k;
        while (isWordByte(at(next))) ++next;
        const std::string second = upper(s_.substr(k, next - k));
        if (w == "GO") {  // GO, GO 5
            while (isDigit(at(k))) ++k;
            while (at(k) == ' ' || at(k) == '\t') ++k;
            return k >= s_.size() || at(k) == '\n' || at(k) == '\r';
        }
        if (w == "SHOW" || w == "SHO") return second == "ERRORS" || second == "ERR";
        if (w != "SET") return false;
        for (const char* setting :
             {"SERVEROUTPUT", "SERVEROUT", "DEFINE", "ECHO", "FEEDBACK", "FEED", "HEADING", "HEAD", "LINESIZE", "LINES",
              "PAGESIZE", "PAGES", "VERIFY", "VER", "TERMOUT", "TERM", "TIMING", "TIMI", "SQLBLANKLINES", "SQLBL",
              "TRIMSPOOL", "TRIMS", "TRIMOUT", "TRIMO", "LONG", "ARRAYSIZE", "AUTOCOMMIT", "AUTO", "SCAN", "COLSEP",
              "NEWPAGE", "ESCAPE", "TAB", "WRAP", "SQLPROMPT", "SQLTERMINATOR", "CONCAT", "NUMWIDTH", "UNDERLINE"})
            if (second == setting) return true;
        return false;
    }

    // DELIMITER x: x ends statements from here on (a ';' behind it ends the command itself).
    void chooseDelimiter(std::string_view line) {
        if (upper(line.substr(0, 10)) != "DELIMITER ") return;
        line.remove_prefix(10);
        while (!line.empty() && isBlank(static_cast<unsigned char>(line.front()))) line.remove_prefix(1);
        std::size_t e = 0;
        while (e < line.size() && !isBlank(static_cast<unsigned char>(line[e]))) ++e;
        std::string d(line.substr(0, e));
        if (d.size() > 1 && d.back() == ';') d.pop_back();
        delimiter_ = d == ";" ? "" : upper(d);  // in any letter case
    }

    std::string_view s_;
    std::string delimiter_;
    std::size_t i_ = 0;
    std::vector<std::string> out_;
};

inline std::vector<std::string> lexemes(std::string_view text) { return Lexer(text).run(); }
}  // namespace sqlref
