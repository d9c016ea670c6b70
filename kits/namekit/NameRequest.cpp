#include "NameRequest.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace namekit {

namespace {

char lowerAsciiByte(char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; }

char closingQuote(char open) { return open == '[' ? ']' : open; }
bool isQuoteOpen(char c) { return c == '"' || c == '[' || c == '`'; }

// The query as tokens for the alias reader; strings and comments leave nothing but a mark.
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
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v') {
            ++i;
        } else if (c == '-' && i + 1 < n && q[i + 1] == '-') {
            while (i < n && q[i] != '\n') ++i;
        } else if (c == '/' && i + 1 < n && q[i + 1] == '*') {
            const size_t end = q.find("*/", i + 2);
            i = end == std::string_view::npos ? n : end + 2;
        } else if (c == '\'') {
            for (++i; i < n; ++i) {
                if (q[i] == '\'') {
                    if (i + 1 < n && q[i + 1] == '\'') { ++i; continue; }
                    ++i;
                    break;
                }
            }
            out.push_back({Tok::Other, "'"});
        } else if (isQuoteOpen(c)) {
            const char close = closingQuote(c);
            std::string value;
            for (++i; i < n; ++i) {
                if (q[i] == close) {
                    if (close != ']' && i + 1 < n && q[i + 1] == close) { value += close; ++i; continue; }
                    ++i;
                    break;
                }
                value += q[i];
            }
            out.push_back({Tok::Quoted, std::move(value)});
        } else if (IsIdentByte(c)) {
            const size_t start = i;
            while (i < n && IsIdentByte(q[i])) ++i;
            out.push_back({Tok::Word, std::string(q.substr(start, i - start))});
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
    for (char& c : r) c = lowerAsciiByte(c);
    return r;
}

bool IsIdentByte(char c) {
    const auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') ||
           c == '_' || c == '$';
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
            const char close = closingQuote(c);
            part.quote = c;
            part.raw += c;
            ++i;
            while (i < name.size()) {
                if (name[i] == close) {
                    if (close != ']' && i + 1 < name.size() && name[i + 1] == close) {  // doubled
                        part.raw.append(2, close);
                        part.value += close;
                        i += 2;
                        continue;
                    }
                    part.raw += close;
                    ++i;
                    break;
                }
                part.raw += name[i];
                part.value += name[i];
                ++i;
            }
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
