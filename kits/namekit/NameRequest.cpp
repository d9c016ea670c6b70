#include "NameRequest.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "SQLCharClass.h"
#include "SQLLexer.h"

namespace namekit {

namespace {

char closingQuote(char open) { return open == '[' ? ']' : open; }
bool isQuoteOpen(char c) { return c == '"' || c == '[' || c == '`'; }

// A quoted name from its opening quote at `i`: "..." and `...` with a doubled quote standing
// for itself, [...] up to the first ']'. An unclosed name runs to the end of the text.
struct QuotedName {
    size_t end;         // behind the closing quote
    std::string value;  // the name inside the quotes
};
QuotedName quotedName(std::string_view text, size_t i) {
    const char close = closingQuote(text[i]);
    const sqllex::Run run =
        sqllex::skipQuoted(text, i, close, close == ']' ? sqllex::Escape::None : sqllex::Escape::Doubled);
    const std::string_view inside = text.substr(i + 1, run.end - i - 1 - (run.closed ? 1 : 0));
    std::string value;
    value.reserve(inside.size());
    for (size_t k = 0; k < inside.size(); ++k) {
        value += inside[k];
        if (inside[k] == close) ++k;  // only a doubled quote stands inside
    }
    return {run.end, std::move(value)};
}

// The query as tokens for the alias reader; strings and comments leave nothing but a mark.
// Unlike the formatter, it reads a dollar-quoted text as SQL between two marks: the query
// around the caret is often the body of a function, whose from clauses bind aliases.
enum class Tok { Word, Quoted, Dot, Comma, Open, Close, Other };

struct Token {
    Tok kind;
    std::string value;
};

std::vector<Token> tokenize(std::string_view q) {
    std::vector<Token> out;
    size_t i = 0;
    const size_t n = q.size();
    while (i < n) {
        const char c = q[i];
        if (sqlchar::isBlank(static_cast<unsigned char>(c))) {
            ++i;
        } else if (sqllex::startsLineComment(q, i)) {
            i = sqllex::skipLineComment(q, i).end;
        } else if (sqllex::startsBlockComment(q, i)) {
            i = sqllex::skipBlockComment(q, i).end;
        } else if (c == '\'') {
            i = sqllex::skipQuoted(q, i, '\'').end;
            out.push_back({Tok::Other, "'"});
        } else if (isQuoteOpen(c)) {
            QuotedName name = quotedName(q, i);
            i = name.end;
            out.push_back({Tok::Quoted, std::move(name.value)});
        } else if (const size_t tag = c == '$' ? sqllex::dollarTagLength(q, i) : 0; tag > 0) {
            out.push_back({Tok::Other, std::string(q.substr(i, tag))});
            i += tag;
        } else if (IsIdentByte(c)) {
            const size_t start = i;
            while (i < n && IsIdentByte(q[i])) ++i;
            const std::string_view word = q.substr(start, i - start);
            if (sqllex::opensAlternativeQuote(q, i, word)) {
                i = sqllex::skipAlternativeQuote(q, i).end;
                out.push_back({Tok::Other, "'"});
            } else {
                out.push_back({Tok::Word, std::string(word)});
            }
        } else {
            const Tok kind = c == '.' ? Tok::Dot : c == ',' ? Tok::Comma : c == '(' ? Tok::Open
                           : c == ')' ? Tok::Close : Tok::Other;
            out.push_back({kind, std::string(1, c)});
            ++i;
        }
    }
    return out;
}

bool isReserved(const std::string& key) {
    static const char* const words[] = {
        "where", "join", "inner", "left", "right", "full", "outer", "cross", "natural", "on",
        "using", "group", "order", "having", "limit", "union", "except", "intersect", "window",
        "as", "set", "values", "select", "from", "returning", "indexed", "not", "and", "or",
        "offset", "into", "with", "when", "then", "else", "end", "case", "is", "in", "like"};
    return std::any_of(std::begin(words), std::end(words), [&](const char* w) { return key == w; });
}

class AliasReader {
public:
    explicit AliasReader(std::string_view query) : tokens_(tokenize(query)) {}

    std::map<std::string, TableRef> read() {
        while (i_ < tokens_.size()) {
            const Token& t = tokens_[i_++];
            if (t.kind != Tok::Word) continue;
            const std::string key = LowerAscii(t.value);
            if (key == "from") {
                while (readRef() && at(Tok::Comma)) ++i_;
            } else if (key == "join") {
                readRef();
            }
        }
        return std::move(aliases_);
    }

private:
    bool at(Tok kind) const { return i_ < tokens_.size() && tokens_[i_].kind == kind; }
    bool atName() const {
        return at(Tok::Quoted) || (at(Tok::Word) && !isReserved(LowerAscii(tokens_[i_].value)));
    }
    void skipParens() {  // i_ at "("; leaves i_ behind the matching ")" (or at the end)
        int depth = 0;
        for (; i_ < tokens_.size(); ++i_) {
            if (tokens_[i_].kind == Tok::Open) ++depth;
            if (tokens_[i_].kind == Tok::Close && --depth == 0) { ++i_; return; }
        }
    }
    // One table reference; false when none stands here.
    bool readRef() {
        TableRef ref;
        if (at(Tok::Open)) {
            // A sub-query: its insides are scanned by the outer loop; its alias binds nothing.
            ++i_;
            return false;
        }
        if (!atName()) return false;
        ref.tableKey = LowerAscii(tokens_[i_++].value);
        if (at(Tok::Dot) && i_ + 1 < tokens_.size() &&
            (tokens_[i_ + 1].kind == Tok::Word || tokens_[i_ + 1].kind == Tok::Quoted)) {
            ref.schemaKey = std::move(ref.tableKey);
            ref.tableKey = LowerAscii(tokens_[i_ + 1].value);
            i_ += 2;
        }
        if (at(Tok::Open)) skipParens();  // a table-valued function's arguments
        if (at(Tok::Word) && LowerAscii(tokens_[i_].value) == "as") ++i_;
        if (atName()) aliases_[LowerAscii(tokens_[i_++].value)] = ref;
        return true;
    }

    std::vector<Token> tokens_;
    size_t i_ = 0;
    std::map<std::string, TableRef> aliases_;
};

}  // namespace

std::string LowerAscii(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = sqlchar::toLower(c);
    return r;
}

// Unlike a word of the formatter, a bare name takes no '#': SQLite reads it as a parameter.
bool IsIdentByte(char c) {
    const auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || sqlchar::isAlpha(u) || sqlchar::isDigit(u) || c == '_' || c == '$';
}

std::vector<NamePart> SplitName(std::string_view name) {
    std::vector<NamePart> parts(1);
    size_t i = 0;
    while (i < name.size()) {
        NamePart& part = parts.back();
        const char c = name[i];
        if (c == '.') {
            parts.emplace_back();
            ++i;
        } else if (isQuoteOpen(c) && part.raw.empty()) {
            const QuotedName quoted = quotedName(name, i);
            part.quote = c;
            part.raw.append(name.substr(i, quoted.end - i));
            part.value += quoted.value;
            i = quoted.end;
        } else {
            part.raw += c;
            part.value += c;
            ++i;
        }
    }
    return parts;
}

// An item the editor can insert as it stands: plain identifiers bare, others quoted the way
// the user started (double quotes unless a [ or ` was typed).
std::string ItemText(const std::string& name, char quote) {
    bool plain = !name.empty() && !(name[0] >= '0' && name[0] <= '9');
    for (char c : name) plain = plain && IsIdentByte(c);
    if (plain && !quote) return name;
    const char open = quote ? quote : '"';
    const char close = closingQuote(open);
    std::string r(1, open);
    for (char c : name) {
        r += c;
        if (c == close && close != ']') r += c;
    }
    return r + close;
}

std::map<std::string, TableRef> ReadAliases(std::string_view query) { return AliasReader(query).read(); }

}  // namespace namekit
