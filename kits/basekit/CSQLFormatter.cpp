#include "CSQLFormatter.h"

#include <algorithm>
#include <string>
#include <unordered_map>

namespace {
using Kind = CSQLFormatter::TokenKind;
using Token = CSQLFormatter::Token;

bool isBlank(unsigned char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v'; }
bool isDigit(unsigned char c) { return c >= '0' && c <= '9'; }
bool isAlpha(unsigned char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
// Bytes from 0x80 belong to words, so a UTF-8 sequence is never cut.
bool isWordByte(unsigned char c) { return isAlpha(c) || isDigit(c) || c == '_' || c == '$' || c == '#' || c >= 0x80; }
char toUpper(char c) { return c >= 'a' && c <= 'z' ? char(c - 'a' + 'A') : c; }
char toLower(char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; }

std::string upperText(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = toUpper(c);
    return r;
}

// Scans a quoted run from the opening quote at `i`; a doubled quote stands for itself.
// Returns whether the closing quote was found; `i` ends behind the run.
bool scanQuoted(std::string_view text, std::size_t& i, char quote) {
    const std::size_t n = text.size();
    ++i;
    while (i < n) {
        if (text[i] == quote) {
            if (i + 1 < n && text[i + 1] == quote) {
                i += 2;
                continue;
            }
            ++i;
            return true;
        }
        ++i;
    }
    return false;
}

// Oracle's alternative quoting Q'<text>' with a bracket pair or any other delimiter byte.
// `i` is at the quote; the delimiter follows it.
bool scanAlternativeQuote(std::string_view text, std::size_t& i) {
    const std::size_t n = text.size();
    const char open = text[i + 1];
    char close = open;
    switch (open) {
        case '[': close = ']'; break;
        case '(': close = ')'; break;
        case '{': close = '}'; break;
        case '<': close = '>'; break;
        default: break;
    }
    for (std::size_t p = i + 2; p + 1 < n; ++p)
        if (text[p] == close && text[p + 1] == '\'') {
            i = p + 2;
            return true;
        }
    i = n;
    return false;
}

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

constexpr std::string_view kTwoByteOperators[] = {"<>", "!=", "^=", "~=", "<=", ">=", "||", ":=",
                                                  "=>", "**", "::", "..", "<<", ">>", "->"};

// Words the layout itself reacts to, and words that read as keywords wherever they stand.
// They take the keyword case even when the caller's tests do not know them.
constexpr const char* kStructuralWords[] = {
    "SELECT", "FROM",   "WHERE",   "GROUP",  "ORDER",     "BY",       "HAVING", "INTO",    "VALUES",
    "SET",    "UPDATE", "DELETE",  "INSERT", "WITH",      "UNION",    "ALL",    "INTERSECT", "MINUS",
    "EXCEPT", "CONNECT", "START",  "JOIN",   "LEFT",      "RIGHT",    "FULL",   "INNER",   "CROSS",
    "OUTER",  "NATURAL", "ON",     "AND",    "OR",        "NOT",      "BETWEEN", "CASE",   "WHEN",
    "THEN",   "ELSE",   "END",     "LIMIT",  "OFFSET",    "RETURNING", "DISTINCT", "AS",   "IN",
    "IS",     "NULL",   "LIKE",    "EXISTS", "USING",
};

enum class Clause {
    None, Select, From, Where, GroupBy, Having, OrderBy, Into, Values, Set, Update, Delete, Insert,
    With, ConnectBy, StartWith, Join, Limit, Offset, Returning,
};

bool isListClause(Clause c) {
    switch (c) {
        case Clause::Select: case Clause::From: case Clause::GroupBy: case Clause::OrderBy:
        case Clause::Into: case Clause::Values: case Clause::Set: case Clause::With:
        case Clause::Returning:
            return true;
        default:
            return false;
    }
}

bool isConditionClause(Clause c) {
    return c == Clause::Where || c == Clause::Having || c == Clause::Join || c == Clause::ConnectBy ||
           c == Clause::StartWith;
}

// The column where the river of aligned clause keywords ends: the width of SELECT.
constexpr int kRiver = 6;
constexpr int kIndentStep = 4;

// One level of nesting: the statement, a sub-query, or a parenthesised group.
struct Frame {
    bool query = true;     // a query block (clause keywords are laid out) or a plain group
    bool sub = false;      // a query block inside parentheses
    int base = 0;          // query: where clause keywords start; group: column after '('
    int contentCol = kIndentStep;   // where continued lines of the current clause start
    int commaCol = kIndentStep - 2; // where a leading comma of the current clause stands
    int closeCol = 0;      // where the ')' of a sub-query goes on a line of its own
    Clause clause = Clause::None;
    bool headSeen = false;
    int caseDepth = 0;     // open CASE expressions, whose AND and OR never break
    bool between = false;  // a BETWEEN waits for its AND
};

struct Head {
    Clause clause = Clause::None;
    int words = 0;        // 0: no clause keyword here
    bool minor = false;   // AND, OR, ON and joins: a line of their own inside the clause
    bool setOperator = false;
};

enum WordClass : unsigned char {
    Structural = 1,
    Reserved = 2,   // the caller's reserved word test
    Function = 4,   // the caller's function name test
};

class Layout {
public:
    Layout(const std::vector<Token>& tokens, CSQLFormatter::KeywordTest reserved,
           CSQLFormatter::KeywordTest functions, bool align, bool commaFirst, int keywordCase,
           bool multiline, int width, std::string eol)
        : tokens_(tokens), reserved_(reserved), functions_(functions), align_(align),
          commaFirst_(commaFirst), keywordCase_(keywordCase), multiline_(multiline),
          width_(width > 0 ? width : 0), eol_(std::move(eol)),
          maxIndent_(width > 0 ? std::max(20, width - 20) : 120) {}

    std::string render(const Token& t) {
        std::string r(t.text);
        if (t.kind != Kind::Word || keywordCase_ < CSQLFormatter::UpperCase ||
            keywordCase_ > CSQLFormatter::CapitalCase || !isKeyword(t))
            return r;
        for (std::size_t k = 0; k < r.size(); ++k) {
            if (keywordCase_ == CSQLFormatter::UpperCase) r[k] = toUpper(r[k]);
            else if (keywordCase_ == CSQLFormatter::LowerCase) r[k] = toLower(r[k]);
            else r[k] = k == 0 ? toUpper(r[k]) : toLower(r[k]);
        }
        return r;
    }

    std::string run() {
        frames_.push_back(Frame{});
        for (std::size_t i = 0; i < tokens_.size(); ++i) i = step(i);
        return std::move(out_);
    }

private:
    unsigned wordClass(const Token& t) {
        if (t.kind != Kind::Word) return 0;
        std::string key = upperText(t.text);
        auto found = classes_.find(key);
        if (found != classes_.end()) return found->second;
        unsigned c = 0;
        for (const char* w : kStructuralWords)
            if (key == w) c |= Structural;
        const int length = int(std::min<std::size_t>(t.text.size(), 0x7FFFFFFF));
        if (reserved_ && reserved_(t.text.data(), length)) c |= Reserved;
        if (functions_ && functions_(t.text.data(), length)) c |= Function;
        classes_.emplace(std::move(key), c);
        return c;
    }
    bool isKeyword(const Token& t) { return wordClass(t) != 0; }
    // A word before '(' that names a function (or a table, a type, a procedure) rather
    // than a keyword such as IN, VALUES or AS.
    bool isCallable(const Token& t) {
        if (t.kind == Kind::QuotedIdent) return true;
        if (t.kind != Kind::Word) return false;
        const unsigned c = wordClass(t);
        if (c & Function) return true;
        if (is(t, "LEFT") || is(t, "RIGHT")) return true;
        return (c & (Structural | Reserved)) == 0;
    }

    static bool is(const Token& t, const char* upperWord) {
        if (t.kind != Kind::Word) return false;
        std::size_t k = 0;
        for (; k < t.text.size(); ++k)
            if (upperWord[k] == '\0' || toUpper(t.text[k]) != upperWord[k]) return false;
        return upperWord[k] == '\0';
    }
    bool wordAt(std::size_t k, const char* upperWord) const { return k < tokens_.size() && is(tokens_[k], upperWord); }

    static int firstLineWidth(std::string_view s) {
        int w = 0;
        for (unsigned char c : s) {
            if (c == '\n' || c == '\r') break;
            if ((c & 0xC0) != 0x80) ++w;
        }
        return w;
    }

    Frame& top() { return frames_.back(); }

    int clampIndent(int col) const { return std::clamp(col, 0, maxIndent_); }

    void newline(int indent) {
        indent = clampIndent(indent);
        out_ += eol_;
        out_.append(std::size_t(indent), ' ');
        col_ = indent;
        lineIndent_ = indent;
        lineHasContent_ = false;
    }

    void append(const std::string& text) {
        out_ += text;
        const std::size_t lastBreak = text.find_last_of("\r\n");
        if (lastBreak == std::string::npos) {
            col_ += firstLineWidth(text);
        } else {
            col_ = firstLineWidth(std::string_view(text).substr(lastBreak + 1));
        }
        lineHasContent_ = true;
    }

    void requestBreak(int column) { pendingBreak_ = column; }

    // Puts a token on the current line, or on a new one when a break is owed or, for a token
    // that follows a space, when it would reach past the width.
    void place(const Token& t, bool space, int wrapCol, bool mayWrap = true) {
        const std::string text = render(t);
        if (pendingBreak_ >= 0 || mustBreak_) {
            const int indent = pendingBreak_ >= 0 ? pendingBreak_ : wrapCol;
            if (lineHasContent_) {
                newline(indent);
            } else if (out_.empty()) {
                out_.append(std::size_t(clampIndent(indent)), ' ');
                col_ = lineIndent_ = clampIndent(indent);
            }
            pendingBreak_ = -1;
            mustBreak_ = false;
            space = false;
        } else if (space && mayWrap && width_ > 0 && lineHasContent_ && col_ > clampIndent(wrapCol) &&
                   col_ + 1 + firstLineWidth(text) > width_) {
            newline(wrapCol);
            space = false;
        }
        if (space && lineHasContent_) {
            out_ += ' ';
            ++col_;
        }
        append(text);
        prev_ = &t;
    }

    // Whether a space separates the previous token from `t`. Tokens only ever touch where
    // they cannot run together into one token when the text is read again.
    bool spaceBefore(const Token& t) const {
        if (!prev_) return false;
        const Kind p = prev_->kind;
        if (p == Kind::OpenParen) return false;
        if (t.kind == Kind::CloseParen || t.kind == Kind::Comma || t.kind == Kind::Semicolon) return false;
        if (t.kind == Kind::Dot && (p == Kind::Word || p == Kind::QuotedIdent || p == Kind::Bind || p == Kind::CloseParen))
            return false;
        if (p == Kind::Dot && (t.kind == Kind::Word || t.kind == Kind::QuotedIdent || (t.kind == Kind::Operator && t.text == "*")))
            return false;
        if (prevUnary_ && (t.kind == Kind::Number || t.kind == Kind::Word || t.kind == Kind::Bind ||
                           t.kind == Kind::QuotedIdent || t.kind == Kind::OpenParen))
            return false;
        return true;
    }

    bool isUnarySign(const Token& t) {
        if (t.kind != Kind::Operator || (t.text != "-" && t.text != "+")) return false;
        if (!prev_) return true;
        switch (prev_->kind) {
            case Kind::Operator: case Kind::OpenParen: case Kind::Comma: case Kind::Semicolon:
                return true;
            case Kind::Word:
                return !isCallable(*prev_);
            default:
                return false;
        }
    }

    std::size_t nextSignificant(std::size_t k) const {
        while (k < tokens_.size() && (tokens_[k].kind == Kind::LineComment || tokens_[k].kind == Kind::BlockComment)) ++k;
        return k;
    }

    Head findHead(std::size_t i) {
        const Frame& f = top();
        Head h;
        auto one = [&](Clause c, int words) {
            h.clause = c;
            h.words = words;
        };
        if (wordAt(i, "SELECT")) one(Clause::Select, 1);
        else if (wordAt(i, "FROM")) one(Clause::From, 1);
        else if (wordAt(i, "WHERE")) one(Clause::Where, 1);
        else if (wordAt(i, "HAVING")) one(Clause::Having, 1);
        else if (wordAt(i, "INTO")) one(Clause::Into, 1);
        else if (wordAt(i, "VALUES")) one(Clause::Values, 1);
        else if (wordAt(i, "SET") && f.clause == Clause::Update) one(Clause::Set, 1);
        else if (wordAt(i, "UPDATE") && f.clause == Clause::None) one(Clause::Update, 1);
        else if (wordAt(i, "DELETE") && f.clause == Clause::None) one(Clause::Delete, wordAt(i + 1, "FROM") ? 2 : 1);
        else if (wordAt(i, "INSERT") && f.clause == Clause::None) one(Clause::Insert, wordAt(i + 1, "INTO") ? 2 : 1);
        else if (wordAt(i, "WITH") && f.clause == Clause::None && !f.headSeen) one(Clause::With, 1);
        else if ((wordAt(i, "GROUP") || wordAt(i, "ORDER")) && wordAt(i + 1, "BY"))
            one(wordAt(i, "GROUP") ? Clause::GroupBy : Clause::OrderBy, 2);
        else if (wordAt(i, "CONNECT") && wordAt(i + 1, "BY")) one(Clause::ConnectBy, 2);
        else if (wordAt(i, "START") && wordAt(i + 1, "WITH")) one(Clause::StartWith, 2);
        else if (f.headSeen && wordAt(i, "LIMIT")) one(Clause::Limit, 1);
        else if (f.headSeen && wordAt(i, "OFFSET")) one(Clause::Offset, 1);
        else if (f.headSeen && wordAt(i, "RETURNING")) one(Clause::Returning, 1);
        else if (f.headSeen && (wordAt(i, "UNION") || wordAt(i, "INTERSECT") || wordAt(i, "MINUS") || wordAt(i, "EXCEPT"))) {
            one(Clause::None, wordAt(i, "UNION") && (wordAt(i + 1, "ALL") || wordAt(i + 1, "DISTINCT")) ? 2 : 1);
            h.setOperator = true;
        } else if (f.clause == Clause::From || f.clause == Clause::Join) {
            std::size_t k = i;
            while (k < i + 4 && (wordAt(k, "NATURAL") || wordAt(k, "LEFT") || wordAt(k, "RIGHT") || wordAt(k, "FULL") ||
                                 wordAt(k, "INNER") || wordAt(k, "CROSS") || wordAt(k, "OUTER")))
                ++k;
            if (wordAt(k, "JOIN")) {
                one(Clause::Join, int(k - i) + 1);
                h.minor = true;
            } else if (f.clause == Clause::Join && wordAt(i, "ON")) {
                one(Clause::Join, 1);
                h.minor = true;
            }
        }
        if (h.words == 0 && isConditionClause(f.clause) && f.caseDepth == 0 && (wordAt(i, "OR") || (wordAt(i, "AND") && !f.between))) {
            one(f.clause, 1);
            h.minor = true;
        }
        return h;
    }

    int headWidth(std::size_t i, int words) const {
        int w = words - 1;
        for (int k = 0; k < words; ++k) w += firstLineWidth(tokens_[i + std::size_t(k)].text);
        return w;
    }

    void placeHeadWords(std::size_t i, int words, int wrapCol) {
        for (int k = 0; k < words; ++k) {
            const Token& t = tokens_[i + std::size_t(k)];
            place(t, k > 0 || spaceBefore(t), wrapCol, false);
        }
    }

    void placeHead(std::size_t i, const Head& h) {
        Frame& f = top();
        const int width = headWidth(i, h.words);
        if (h.setOperator) {
            requestBreak(f.base);
            placeHeadWords(i, h.words, f.base);
            requestBreak(f.base);
            f.clause = Clause::None;
            f.contentCol = f.base + kIndentStep;
            f.commaCol = f.contentCol - 2;
            return;
        }
        if (h.minor) {
            // AND, OR, ON, joins: aligned to the river, or at the clause's content column.
            if (align_) requestBreak(f.base + std::max(0, kRiver - width));
            else requestBreak(f.contentCol);
            placeHeadWords(i, h.words, f.contentCol);
            if (h.clause == Clause::Join && f.clause != Clause::Join) f.clause = Clause::Join;
            if (align_ && tokens_[i + std::size_t(h.words) - 1].kind == Kind::Word && wordAt(i + std::size_t(h.words) - 1, "JOIN")) {
                f.contentCol = std::max(f.base + kRiver + 1, col_ + 1);
                f.commaCol = f.contentCol - 2;
            }
            return;
        }
        const bool leadsSubquery = f.sub && !f.headSeen;
        if (align_) {
            if (!leadsSubquery) requestBreak(f.base + std::max(0, kRiver - width));
            placeHeadWords(i, h.words, f.base);
            f.contentCol = std::max(f.base + kRiver + 1, col_ + 1);
        } else {
            if (!leadsSubquery) requestBreak(f.base);
            placeHeadWords(i, h.words, f.base);
            f.contentCol = f.base + kIndentStep;
            requestBreak(f.contentCol);
        }
        f.commaCol = std::max(f.base, f.contentCol - 2);
        f.clause = h.clause;
        f.headSeen = true;
        f.between = false;
    }

    void openParen(std::size_t i) {
        const Token& t = tokens_[i];
        // A function name touches its '('; the column list of INSERT INTO t (a, b) does not.
        const Frame& f0 = top();
        const bool columnList = f0.query && (f0.clause == Clause::Insert || f0.clause == Clause::Into) && prev_ &&
                                prev_->kind == Kind::Word && !(wordClass(*prev_) & Function);
        const bool space = spaceBefore(t) && (columnList || !(prev_ && isCallable(*prev_)));
        place(t, space, top().contentCol);
        const std::size_t k = nextSignificant(i + 1);
        Frame f;
        if (wordAt(k, "SELECT") || wordAt(k, "WITH")) {
            f.sub = true;
            if (align_) {
                f.base = col_;
                f.closeCol = col_ - 1;
            } else {
                f.base = lineIndent_ + kIndentStep;
                f.closeCol = lineIndent_;
                requestBreak(f.base);
            }
            f.contentCol = f.base + kIndentStep;
            f.commaCol = f.contentCol - 2;
        } else {
            f.query = false;
            f.base = f.contentCol = f.commaCol = col_;
            f.closeCol = std::max(0, col_ - 1);
        }
        frames_.push_back(f);
    }

    void closeParen(const Token& t) {
        if (frames_.size() > 1) {
            const Frame f = top();
            frames_.pop_back();
            if (f.sub && !align_) requestBreak(f.closeCol);
            place(t, false, f.closeCol);
        } else {
            place(t, false, top().contentCol);
        }
    }

    void comma(std::size_t i) {
        const Token& t = tokens_[i];
        Frame& f = top();
        const bool list = f.query && isListClause(f.clause) && f.caseDepth == 0;
        if (!list) {
            place(t, false, f.contentCol);
            return;
        }
        if (multiline_) {
            if (commaFirst_) {
                requestBreak(f.commaCol);
                place(t, false, f.commaCol);
            } else {
                place(t, false, f.contentCol);
                requestBreak(f.contentCol);
            }
            return;
        }
        if (commaFirst_ && width_ > 0 && i + 1 < tokens_.size() && pendingBreak_ < 0 && !mustBreak_ &&
            col_ > clampIndent(f.commaCol) && col_ + 2 + firstLineWidth(tokens_[i + 1].text) > width_)
            requestBreak(f.commaCol);
        place(t, false, f.contentCol);
    }

    void semicolon(const Token& t) {
        frames_.resize(1);
        place(t, false, 0);
        frames_[0] = Frame{};
        requestBreak(0);
    }

    void comment(const Token& t) {
        if (!t.ownLine && lineHasContent_) {
            // A comment behind code stays behind it, before any break that is owed.
            out_ += ' ';
            ++col_;
            append(std::string(t.text));
        } else {
            if (lineHasContent_) newline(pendingBreak_ >= 0 ? pendingBreak_ : top().contentCol);
            append(std::string(t.text));
            mustBreak_ = true;  // a comment on a line of its own keeps that line
        }
        if (t.kind == Kind::LineComment) mustBreak_ = true;
        prev_ = &t;
        prevUnary_ = false;
    }

    std::size_t step(std::size_t i) {
        const Token& t = tokens_[i];
        switch (t.kind) {
            case Kind::LineComment:
            case Kind::BlockComment:
                comment(t);
                return i;
            case Kind::OpenParen:
                openParen(i);
                break;
            case Kind::CloseParen:
                closeParen(t);
                break;
            case Kind::Comma:
                comma(i);
                break;
            case Kind::Semicolon:
                semicolon(t);
                break;
            case Kind::Word: {
                Frame& f = top();
                if (f.query) {
                    const Head h = findHead(i);
                    if (h.words > 0) {
                        placeHead(i, h);
                        prevUnary_ = false;
                        return i + std::size_t(h.words) - 1;
                    }
                }
                if (is(t, "BETWEEN")) f.between = true;
                else if (is(t, "AND")) f.between = false;
                else if (is(t, "CASE")) ++f.caseDepth;
                else if (is(t, "END") && f.caseDepth > 0) --f.caseDepth;
                place(t, spaceBefore(t), f.contentCol);
                break;
            }
            default: {
                const bool unary = isUnarySign(t);
                place(t, spaceBefore(t), top().contentCol);
                prevUnary_ = unary;
                return i;
            }
        }
        prevUnary_ = false;
        return i;
    }

    const std::vector<Token>& tokens_;
    CSQLFormatter::KeywordTest reserved_;
    CSQLFormatter::KeywordTest functions_;
    bool align_, commaFirst_;
    int keywordCase_;
    bool multiline_;
    int width_;
    std::string eol_;
    int maxIndent_;

    std::unordered_map<std::string, unsigned> classes_;
    std::vector<Frame> frames_;
    std::string out_;
    int col_ = 0;
    int lineIndent_ = 0;
    bool lineHasContent_ = false;
    int pendingBreak_ = -1;    // a line break owed before the next token, at this column
    bool mustBreak_ = false;   // the line ends in a comment: the next token starts a new line
    const Token* prev_ = nullptr;
    bool prevUnary_ = false;
};
}  // namespace

std::vector<CSQLFormatter::Token> CSQLFormatter::Tokenize(std::string_view text) {
    std::vector<Token> tokens;
    const std::size_t n = text.size();
    std::size_t i = 0;
    bool lineStart = true;
    auto at = [&](std::size_t k) -> unsigned char { return k < n ? static_cast<unsigned char>(text[k]) : 0; };
    while (i < n) {
        const unsigned char c = at(i);
        if (isBlank(c)) {
            if (c == '\n' || c == '\r') lineStart = true;
            ++i;
            continue;
        }
        const std::size_t start = i;
        Kind kind = Kind::Operator;
        bool terminated = true;
        if (c == '-' && at(i + 1) == '-') {
            kind = Kind::LineComment;
            while (i < n && text[i] != '\n' && text[i] != '\r') ++i;
            std::size_t end = i;
            while (end > start + 2 && (text[end - 1] == ' ' || text[end - 1] == '\t' || text[end - 1] == '\f' || text[end - 1] == '\v'))
                --end;
            tokens.push_back({kind, text.substr(start, end - start), lineStart, true});
            lineStart = false;
            continue;
        }
        if (c == '/' && at(i + 1) == '*') {
            kind = Kind::BlockComment;
            const std::size_t close = text.find("*/", i + 2);
            terminated = close != std::string_view::npos;
            i = terminated ? close + 2 : n;
        } else if (c == '\'') {
            kind = Kind::String;
            terminated = scanQuoted(text, i, '\'');
        } else if (c == '"' || c == '`') {
            kind = Kind::QuotedIdent;
            terminated = scanQuoted(text, i, char(c));
        } else if (isDigit(c) || (c == '.' && isDigit(at(i + 1)))) {
            kind = Kind::Number;
            scanNumber(text, i);
        } else if (isWordByte(c)) {
            std::size_t j = i;
            while (j < n && isWordByte(at(j))) ++j;
            const std::string prefix = upperText(text.substr(i, j - i));
            kind = Kind::Word;
            i = j;
            if (at(j) == '\'') {
                if (prefix == "N" || prefix == "X" || prefix == "B") {
                    kind = Kind::String;
                    terminated = scanQuoted(text, i, '\'');
                } else if ((prefix == "Q" || prefix == "NQ") && j + 1 < n && !isBlank(at(j + 1))) {
                    kind = Kind::String;
                    terminated = scanAlternativeQuote(text, i);
                }
            }
        } else if (c == ':' && isWordByte(at(i + 1))) {
            kind = Kind::Bind;
            ++i;
            while (i < n && isWordByte(at(i))) ++i;
        } else if (c == '?') {
            kind = Kind::Bind;
            ++i;
        } else if ((c == '&' || c == '@') && (isWordByte(at(i + 1)) || (c == '&' && at(i + 1) == '&' && isWordByte(at(i + 2))))) {
            kind = Kind::Bind;
            i += at(i + 1) == '&' ? 2 : 1;
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
        } else if (c == '.' && at(i + 1) != '.') {
            kind = Kind::Dot;
            ++i;
        } else {
            i += 1;
            for (std::string_view op : kTwoByteOperators)
                if (text.substr(start, 2) == op) {
                    i = start + 2;
                    break;
                }
        }
        tokens.push_back({kind, text.substr(start, i - start), lineStart, terminated});
        lineStart = false;
    }
    return tokens;
}

CString CSQLFormatter::Format(CString sql, bool keywordAlign, bool commaInList, int keywordCase, bool multiline,
                              bool formatFlag, int lineWidth) {
    const std::string_view text = sql.view();
    const std::vector<Token> tokens = Tokenize(text);
    if (tokens.empty()) return sql;

    Layout layout(tokens, isKeywordFunc, isListKeywordFunc, keywordAlign, commaInList, keywordCase, multiline,
                  lineWidth, text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n");
    if (!formatFlag) {
        // Only the case of keywords changes; the whitespace between tokens stays.
        std::string out;
        out.reserve(text.size());
        std::size_t done = 0;
        for (const Token& t : tokens) {
            const std::size_t offset = std::size_t(t.text.data() - text.data());
            out.append(text.substr(done, offset - done));
            out += layout.render(t);
            done = offset + t.text.size();
        }
        out.append(text.substr(done));
        return CString(std::move(out));
    }

    std::string out = layout.run();
    const Token& last = tokens.back();
    const std::string_view tail = text.substr(std::size_t(last.text.data() - text.data()) + last.text.size());
    if (last.terminated && tail.find_first_of("\r\n") != std::string_view::npos)
        out += text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n";
    return CString(std::move(out));
}
