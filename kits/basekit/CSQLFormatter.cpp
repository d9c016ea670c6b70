#include "CSQLFormatter.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "SQLCharClass.h"

using namespace sqlchar;

namespace {
using Kind = CSQLFormatter::TokenKind;
using Token = CSQLFormatter::Token;

std::string upperText(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = toUpper(c);
    return r;
}

// Words the layout itself reacts to, and words that read as keywords wherever they stand.
// They take the keyword case even when the caller's tests do not know them.
constexpr const char* kStructuralWords[] = {
    "SELECT", "FROM",    "WHERE",  "GROUP",  "ORDER",   "BY",        "HAVING",   "INTO",      "VALUES",
    "SET",    "UPDATE",  "DELETE", "INSERT", "WITH",    "UNION",     "ALL",      "INTERSECT", "MINUS",
    "EXCEPT", "CONNECT", "START",  "JOIN",   "LEFT",    "RIGHT",     "FULL",     "INNER",     "CROSS",
    "OUTER",  "NATURAL", "ON",     "AND",    "OR",      "NOT",       "BETWEEN",  "CASE",      "WHEN",
    "THEN",   "ELSE",    "END",    "LIMIT",  "OFFSET",  "RETURNING", "DISTINCT", "AS",        "IN",
    "IS",     "NULL",    "LIKE",   "EXISTS", "USING",   "BEGIN",     "DECLARE",  "IF",        "ELSIF",
    "LOOP",   "WHILE",   "FOR",    "EXCEPTION", "PERFORM", "RETURN", "CREATE",   "FUNCTION",  "PROCEDURE",
    "TABLE",  "PACKAGE", "TRIGGER",
};

// Type names that take their length or precision in parentheses like a function call.
constexpr const char* kTypeNames[] = {"CHAR",    "VARCHAR", "VARCHAR2",  "NCHAR",  "NVARCHAR2", "NVARCHAR", "NUMBER",
                                      "NUMERIC", "DECIMAL", "FLOAT",     "RAW",    "TIMESTAMP", "TIME",     "BIT",
                                      "BINARY",  "VARBINARY", "CHARACTER", "INTERVAL", "INTEGER", "DOUBLE",  "REAL"};

// Words that open a table constraint rather than name a column.
constexpr const char* kConstraintWords[] = {"CONSTRAINT", "PRIMARY", "FOREIGN", "UNIQUE", "CHECK",   "EXCLUDE",
                                            "LIKE",       "KEY",     "INDEX",   "FULLTEXT", "SPATIAL", "PERIOD"};

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
// Function bodies inside function bodies are laid out to this depth, and kept as they are below it.
constexpr int kMaxBodyDepth = 8;
// Column names up to this width get their types aligned in a table definition.
constexpr int kMaxAlignedName = 24;

// One level of nesting: the statement, a sub-query, or a parenthesised group.
struct Frame {
    bool query = true;     // a query block (clause keywords are laid out) or a plain group
    bool sub = false;      // a query block inside parentheses
    int base = 0;          // query: where clause keywords start; group: column after '('
    int contentCol = kIndentStep;   // where continued lines of the current clause start
    int commaCol = kIndentStep - 2; // where a leading comma of the current clause stands
    int closeCol = 0;      // where the ')' of a sub-query or a column list goes
    Clause clause = Clause::None;
    bool headSeen = false;
    int caseDepth = 0;     // open CASE expressions, whose AND and OR never break
    bool between = false;  // a BETWEEN waits for its AND
    // A column list (CREATE TABLE t (...), CREATE INDEX ... (a, b)): one item a line.
    bool columns = false;
    int alignCol = 0;      // where column types start; 0: one space after the name
    int itemPos = 0;       // tokens of the current item placed so far
    std::size_t itemLine = 0;  // the line the current list item started on
    bool itemNamed = false;  // the current item is "name type ...", not a constraint
};

// A procedural block: its keywords (BEGIN, EXCEPTION, END, ELSE, ...) stand at `indent`.
enum class BlockType {
    Section,  // DECLARE, or the declarations of a routine or package after IS / AS
    Begin,
    If,
    Case,
    Loop,
};

struct Block {
    BlockType type;
    int indent;
    bool handlers = false;  // a BEGIN block past its EXCEPTION
};

enum class StatementKind { Plain, Routine, Trigger, Table, TypeDef, Index, View };
enum class Await { None, Then, Loop };

// What the layout knows about the statement being laid out.
struct Statement {
    bool start = true;       // the next token begins a statement
    std::size_t first = 0;   // index of its first token
    int indent = 0;          // where it starts
    std::size_t firstLine = 0;
    StatementKind kind = StatementKind::Plain;
    Await await = Await::None;  // IF ... THEN, WHILE ... LOOP: the header runs until this word
    bool sqlBody = false;    // its dollar-quoted body is SQL and gets laid out
    bool listDone = false;   // its column list was laid out
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
    TypeName = 8,
    ConstraintWord = 16,
};

struct Options {
    CSQLFormatter::KeywordTest reserved;
    CSQLFormatter::KeywordTest functions;
    bool align, commaFirst;
    int keywordCase;
    bool multiline;
    int width;
    std::string eol;
};

class Layout {
public:
    Layout(const std::vector<Token>& tokens, const Options& options, int base, int depth)
        : tokens_(tokens), o_(options), width_(options.width > 0 ? options.width : 0), base_(base), depth_(depth),
          maxIndent_(options.width > 0 ? std::max(20, options.width - 20) : 120) {}

    std::string render(const Token& t) {
        std::string r(t.text);
        if (t.kind != Kind::Word || o_.keywordCase < CSQLFormatter::UpperCase ||
            o_.keywordCase > CSQLFormatter::CapitalCase || !isKeyword(t))
            return r;
        for (std::size_t k = 0; k < r.size(); ++k) {
            if (o_.keywordCase == CSQLFormatter::UpperCase) r[k] = toUpper(r[k]);
            else if (o_.keywordCase == CSQLFormatter::LowerCase) r[k] = toLower(r[k]);
            else r[k] = k == 0 ? toUpper(r[k]) : toLower(r[k]);
        }
        return r;
    }

    std::string run() {
        frames_.push_back(rootFrame(base_));
        for (std::size_t i = 0; i < tokens_.size(); ++i) i = step(i);
        return std::move(out_);
    }

private:
    // ---- words ------------------------------------------------------------------------------

    unsigned wordClass(const Token& t) {
        if (t.kind != Kind::Word) return 0;
        std::string key = upperText(t.text);
        auto found = classes_.find(key);
        if (found != classes_.end()) return found->second;
        unsigned c = 0;
        for (const char* w : kStructuralWords)
            if (key == w) c |= Structural;
        for (const char* w : kTypeNames)
            if (key == w) c |= TypeName;
        for (const char* w : kConstraintWords)
            if (key == w) c |= ConstraintWord;
        const int length = int(std::min<std::size_t>(t.text.size(), 0x7FFFFFFF));
        if (o_.reserved && o_.reserved(t.text.data(), length)) c |= Reserved;
        if (o_.functions && o_.functions(t.text.data(), length)) c |= Function;
        classes_.emplace(std::move(key), c);
        return c;
    }
    bool isKeyword(const Token& t) { return (wordClass(t) & (Structural | Reserved | Function)) != 0; }
    // A word before '(' that names a function, a type, a table or a procedure rather than a
    // keyword such as IN, VALUES or AS.
    bool isCallable(const Token& t) {
        if (t.kind == Kind::QuotedIdent) return true;
        if (t.kind != Kind::Word) return false;
        const unsigned c = wordClass(t);
        if (c & (Function | TypeName)) return true;
        if (is(t, "LEFT") || is(t, "RIGHT")) return true;
        return (c & (Structural | Reserved)) == 0;
    }

    static bool is(const Token& t, std::string_view upperWord) {
        return t.kind == Kind::Word && equalsUpper(t.text, upperWord);
    }
    bool wordAt(std::size_t k, std::string_view upperWord) const { return k < tokens_.size() && is(tokens_[k], upperWord); }

    static int firstLineWidth(std::string_view s) {
        int w = 0;
        for (unsigned char c : s) {
            if (c == '\n' || c == '\r') break;
            if ((c & 0xC0) != 0x80) ++w;
        }
        return w;
    }

    std::size_t nextSignificant(std::size_t k) const {
        while (k < tokens_.size() && (tokens_[k].kind == Kind::LineComment || tokens_[k].kind == Kind::BlockComment)) ++k;
        return k;
    }
    bool kindAt(std::size_t k, Kind kind) const { return k < tokens_.size() && tokens_[k].kind == kind; }

    // ---- output -----------------------------------------------------------------------------

    Frame& top() { return frames_.back(); }
    void resetFrames(int base) {
        frames_.assign(1, rootFrame(base));
        cases_.clear();
    }
    Frame rootFrame(int base) const {
        Frame f;
        f.base = f.closeCol = base;
        f.contentCol = base + kIndentStep;
        f.commaCol = base + kIndentStep - 2;
        return f;
    }

    int clampIndent(int col) const { return std::clamp(col, 0, maxIndent_); }

    // Ends the current line (with an empty line after it when `blank`) and indents the next.
    void newline(int indent, bool blank = false) {
        indent = clampIndent(indent);
        out_ += o_.eol;
        if (blank) out_ += o_.eol;
        out_.append(std::size_t(indent), ' ');
        col_ = indent;
        lineIndent_ = indent;
        lineHasContent_ = false;
        ++lines_;
    }

    // Starts the next token at `indent` on a fresh line: a new one, or the empty current one
    // with its indentation set again.
    void startLine(int indent, bool blank) {
        if (lineHasContent_) {
            newline(indent, blank);
            return;
        }
        indent = clampIndent(indent);
        const std::size_t lineStart = out_.find_last_of('\n');
        out_.resize(lineStart == std::string::npos ? 0 : lineStart + 1);
        out_.append(std::size_t(indent), ' ');
        col_ = lineIndent_ = indent;
    }

    void append(std::string_view text) {
        out_ += text;
        const std::size_t lastBreak = text.find_last_of("\r\n");
        if (lastBreak == std::string::npos) {
            col_ += firstLineWidth(text);
        } else {
            col_ = firstLineWidth(text.substr(lastBreak + 1));
            for (char c : text) lines_ += c == '\n';
        }
        lineHasContent_ = true;
    }

    void requestBreak(int column) { pendingBreak_ = column; }

    // Puts a token on the current line, or on a new one when a break is owed or, for a token
    // that follows a space, when it would reach past the width.
    void place(const Token& t, bool space, int wrapCol, bool mayWrap = true) {
        placeText(t, render(t), space, wrapCol, mayWrap);
    }

    // Whether the current line holds nothing but a "/" operator. A line ending there would
    // read as the client's "run the buffer" command, so it never ends there.
    bool loneSlashLine() const {
        return prev_ && prev_->kind == Kind::Operator && prev_->text == "/" && lineHasContent_ && col_ == lineIndent_ + 1;
    }

    void placeText(const Token& t, const std::string& text, bool space, int wrapCol, bool mayWrap = true) {
        const bool touch = mustTouch(t);
        if (isChar(t, '/') && !mustBreak_) pendingBreak_ = -1;  // a "/" never starts a line by choice
        if (loneSlashLine() || touch) {
            pendingBreak_ = -1;
            mustBreak_ = false;
            mayWrap = false;
            space = !touch;
        }
        if (pendingBreak_ >= 0 || mustBreak_) {
            startLine(pendingBreak_ >= 0 ? pendingBreak_ : wrapCol, t.blankBefore && !out_.empty());
            pendingBreak_ = -1;
            mustBreak_ = false;
            space = false;
        } else if (space && mayWrap && width_ > 0 && lineHasContent_ && col_ > clampIndent(wrapCol) &&
                   col_ + 1 + firstLineWidth(text) > width_) {
            newline(wrapCol);
            space = false;
        }
        Frame& f = top();
        if (f.columns) {
            if (f.itemPos == 0) {
                const std::size_t next = nextSignificant(std::size_t(&t - tokens_.data()) + 1);
                f.itemNamed = (t.kind == Kind::QuotedIdent || (t.kind == Kind::Word && !(wordClass(t) & ConstraintWord))) &&
                              kindAt(next, Kind::Word);
            } else if (f.itemPos == 1 && f.itemNamed && f.alignCol > 0 && space && lineHasContent_ && col_ + 1 < f.alignCol) {
                out_.append(std::size_t(f.alignCol - col_ - 1), ' ');  // types line up
                col_ = f.alignCol - 1;
            }
            ++f.itemPos;
        }
        if (space && lineHasContent_) {
            out_ += ' ';
            ++col_;
        }
        append(text);
        prev_ = &t;
    }

    // ---- spacing ----------------------------------------------------------------------------

    static bool isCast(const Token& t) { return t.kind == Kind::Operator && t.text == "::"; }
    static bool isRange(const Token& t) { return t.kind == Kind::Operator && t.text == ".."; }
    static bool isChar(const Token& t, char c) { return t.kind == Kind::Operator && t.text.size() == 1 && t.text[0] == c; }

    // Whether a space separates the previous token from `t`. Tokens only ever touch where
    // they cannot run together into one token when the text is read again.
    bool spaceBefore(const Token& t) const {
        if (!prev_) return false;
        const Token& p = *prev_;
        if (p.kind == Kind::OpenParen) return false;
        if (t.kind == Kind::CloseParen || t.kind == Kind::Comma || (t.kind == Kind::Semicolon && t.text == ";")) return false;
        // :: and .. touch their neighbours, unless the two would read as one operator.
        if ((isCast(t) || isRange(t)) && mayTouchOperator(p, false)) return false;
        if ((isCast(p) || isRange(p)) && mayTouchOperator(t, true)) return false;
        if (t.kind == Kind::Dot && (p.kind == Kind::Word || p.kind == Kind::QuotedIdent || p.kind == Kind::Bind || p.kind == Kind::CloseParen))
            return false;
        if (p.kind == Kind::Dot && (t.kind == Kind::Word || t.kind == Kind::QuotedIdent || (t.kind == Kind::Operator && t.text == "*")))
            return false;
        if (t.joined && ((t.kind == Kind::Word && t.text[0] == '%') || isChar(t, '[') || isChar(p, '[') || isChar(t, ']')))
            return false;
        if (prevUnary_ && mayTouchOperator(t, true) &&
            (t.kind == Kind::Number || t.kind == Kind::Word || t.kind == Kind::Bind || t.kind == Kind::QuotedIdent ||
             t.kind == Kind::OpenParen))
            return false;
        return true;
    }

    // Whether a token can stand right after (or before) an operator without the two reading
    // as one.
    static bool mayTouchOperator(const Token& t, bool after) {
        if (t.text.empty() || t.kind == Kind::Operator || t.kind == Kind::Dot || t.kind == Kind::LineComment ||
            t.kind == Kind::BlockComment || t.kind == Kind::Client || t.kind == Kind::Semicolon)
            return false;
        const unsigned char c = static_cast<unsigned char>(after ? t.text.front() : t.text.back());
        return !isOperatorByte(c) && c != '.';  // "1." and ".." would read as "1" and "..."
    }

    // Whether `t` must stay against the token before it: after a lone '#' ("# x" reads as a
    // MySQL comment), and after a client's word it touched ("REM--x" is no REM line, but
    // "REM --x" would be).
    bool mustTouch(const Token& t) const {
        return prev_ && ((prev_->kind == Kind::Operator && prev_->text == "#") ||
                         (t.joined && prev_->kind == Kind::Word && isClientWord(prev_->text)));
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

    // ---- clauses of queries and DML ---------------------------------------------------------

    Head findHead(std::size_t i) {
        const Frame& f = top();
        // INSERT, UPDATE, DELETE and PERFORM lead a statement or a sub-query, never follow a
        // word inside one (ON UPDATE, FOR UPDATE, ON DELETE CASCADE).
        const bool leading = frames_.size() == 1 ? i == stmt_.first : !f.headSeen;
        Head h;
        auto one = [&](Clause c, int words) {
            h.clause = c;
            h.words = words;
        };
        if (wordAt(i, "SELECT")) one(Clause::Select, 1);
        else if (wordAt(i, "PERFORM") && leading) one(Clause::Select, 1);
        else if (wordAt(i, "FROM")) one(Clause::From, 1);
        else if (wordAt(i, "WHERE")) one(Clause::Where, 1);
        else if (wordAt(i, "HAVING")) one(Clause::Having, 1);
        else if (wordAt(i, "INTO")) one(Clause::Into, 1);
        else if (wordAt(i, "VALUES")) one(Clause::Values, 1);
        else if (wordAt(i, "SET") && f.clause == Clause::Update) one(Clause::Set, 1);
        else if (wordAt(i, "UPDATE") && leading) one(Clause::Update, 1);
        else if (wordAt(i, "DELETE") && leading) one(Clause::Delete, wordAt(i + 1, "FROM") ? 2 : 1);
        else if (wordAt(i, "INSERT") && leading) one(Clause::Insert, wordAt(i + 1, "INTO") ? 2 : 1);
        else if (wordAt(i, "WITH") && f.clause == Clause::None && !f.headSeen && (frames_.size() > 1 || i == stmt_.first))
            one(Clause::With, 1);
        else if ((wordAt(i, "GROUP") || wordAt(i, "ORDER")) && wordAt(i + 1, "BY"))
            one(wordAt(i, "GROUP") ? Clause::GroupBy : Clause::OrderBy, 2);
        else if (wordAt(i, "CONNECT") && wordAt(i + 1, "BY")) one(Clause::ConnectBy, 2);
        else if (wordAt(i, "START") && wordAt(i + 1, "WITH") && f.headSeen) one(Clause::StartWith, 2);
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
            }
        }
        if (h.words == 0 && isConditionClause(f.clause) && f.caseDepth == 0 && (wordAt(i, "OR") || (wordAt(i, "AND") && !f.between))) {
            one(f.clause, 1);
            h.minor = true;
        }
        // A clause word that does not start its query (FOR r IN SELECT, RETURN QUERY SELECT,
        // CREATE VIEW v AS SELECT) is laid out from where it stands; its followers need it.
        if (h.words > 0 && !f.headSeen && !h.minor && !h.setOperator && frames_.size() == 1 && i != stmt_.first &&
            h.clause != Clause::Select && h.clause != Clause::With)
            h.words = 0;
        return h;
    }

    // The river runs along the end of a clause's first word: " group by", "  left join".
    int headWidth(std::size_t i) const { return firstLineWidth(tokens_[i].text); }

    void placeHeadWords(std::size_t i, int words, int wrapCol) {
        for (int k = 0; k < words; ++k) {
            const Token& t = tokens_[i + std::size_t(k)];
            place(t, k > 0 || spaceBefore(t), wrapCol, false);
        }
    }

    void placeHead(std::size_t i, const Head& h) {
        Frame& f = top();
        const int width = headWidth(i);
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
            // AND and OR of a join condition stand under the join's words.
            if (o_.align) requestBreak(f.base + std::max(0, kRiver - width));
            else requestBreak(f.contentCol + (f.clause == Clause::Join && h.clause == Clause::Join && !wordAt(i + std::size_t(h.words) - 1, "JOIN") ? kIndentStep : 0));
            placeHeadWords(i, h.words, f.contentCol);
            if (h.clause == Clause::Join && f.clause != Clause::Join) f.clause = Clause::Join;
            if (o_.align && wordAt(i + std::size_t(h.words) - 1, "JOIN")) {
                f.contentCol = std::max(f.base + kRiver + 1, col_ + 1);
                f.commaCol = f.contentCol - 2;
            }
            return;
        }
        // CREATE VIEW v AS SELECT: the query starts a line of its own like a statement.
        const bool ddl = stmt_.kind == StatementKind::View || stmt_.kind == StatementKind::Table;
        const bool startsInside = frames_.size() == 1 && !f.headSeen && i != stmt_.first && !ddl;
        if (startsInside) {
            // The query starts inside a statement: its clauses line up under its first word.
            if (o_.align) {
                f.base = pendingBreak_ >= 0 || mustBreak_ ? f.base : col_ + (lineHasContent_ ? 1 : 0);
            } else {
                f.base = lineIndent_ + kIndentStep;
                requestBreak(f.base);
            }
        }
        const bool leadsSubquery = (f.sub && !f.headSeen) || (startsInside && o_.align);
        if (o_.align) {
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
        f.itemLine = lines_ + (pendingBreak_ >= 0 ? 1 : 0);
        f.clause = h.clause;
        f.headSeen = true;
        f.between = false;
    }

    // ---- CASE expressions -------------------------------------------------------------------

    // A CASE expression that does not fit on its line puts each WHEN and ELSE on a line of
    // its own under the first, and END under CASE.
    void openCase(std::size_t i) {
        const Token& t = tokens_[i];
        const bool space = spaceBefore(t);
        int width = 0, depth = 0;
        for (std::size_t k = i; k < tokens_.size() && width <= width_; ++k) {
            const Token& x = tokens_[k];
            if (x.kind == Kind::Semicolon || x.kind == Kind::Client || x.kind == Kind::LineComment) {
                width = width_ + 1;
                break;
            }
            bool lineEnds = false;
            width += measure(x, lineEnds) + 1;
            if (lineEnds) break;
            if (is(x, "CASE")) ++depth;
            else if (is(x, "END") && --depth == 0) break;
        }
        place(t, space, top().contentCol);
        const int col = col_ - firstLineWidth(t.text);
        cases_.push_back({frames_.size(), width_ > 0 && col + width - 1 > width_ ? col : -1});
    }

    bool caseBreaks() const { return !cases_.empty() && cases_.back().frame == frames_.size() && cases_.back().col >= 0; }

    // ---- parentheses, commas, statement ends -------------------------------------------------

    // Counts the items of the parenthesised list opened at `open` and measures the widest
    // column name among them. False when the list is never closed.
    bool measureList(std::size_t open, int& items, int& widestName) {
        int depth = 0;
        bool itemStart = true;
        items = 0;
        widestName = 0;
        for (std::size_t k = open; k < tokens_.size(); ++k) {
            const Token& t = tokens_[k];
            if (t.kind == Kind::LineComment || t.kind == Kind::BlockComment) continue;
            if (t.kind == Kind::Semicolon || t.kind == Kind::Client) return false;
            if (t.kind == Kind::OpenParen) {
                if (++depth == 1) continue;
            } else if (t.kind == Kind::CloseParen) {
                if (--depth == 0) return true;
            } else if (t.kind == Kind::Comma && depth == 1) {
                itemStart = true;
                continue;
            }
            if (itemStart && depth == 1) {
                ++items;
                itemStart = false;
                const bool named = (t.kind == Kind::QuotedIdent || (t.kind == Kind::Word && !(wordClass(t) & ConstraintWord))) &&
                                   kindAt(nextSignificant(k + 1), Kind::Word);
                if (named) widestName = std::max(widestName, firstLineWidth(t.text));
            }
        }
        return false;
    }

    // Whether the '(' at `i` opens the column list of a CREATE TABLE, TYPE, INDEX or VIEW.
    bool opensColumnList(std::size_t i, int& items, int& widestName) {
        if (stmt_.listDone || frames_.size() != 1 || !prev_) return false;
        const Token& p = *prev_;
        bool candidate = false;
        switch (stmt_.kind) {
            case StatementKind::Table:
            case StatementKind::View:
                candidate = !top().headSeen && (p.kind == Kind::QuotedIdent || (p.kind == Kind::Word && !isKeyword(p)));
                break;
            case StatementKind::TypeDef: candidate = is(p, "AS") || is(p, "OBJECT"); break;
            case StatementKind::Index: candidate = p.kind == Kind::Word || p.kind == Kind::QuotedIdent; break;
            default: break;
        }
        if (!candidate || !measureList(i, items, widestName)) return false;
        stmt_.listDone = true;
        return items > 1 || ((stmt_.kind == StatementKind::Table || stmt_.kind == StatementKind::TypeDef) && items > 0);
    }

    void openParen(std::size_t i) {
        const Token& t = tokens_[i];
        int items = 0, widestName = 0;
        if (opensColumnList(i, items, widestName)) {
            const int base = top().base;
            place(t, spaceBefore(t) && !t.joined, top().contentCol);
            Frame f;
            f.query = false;
            f.columns = true;
            f.base = base + kIndentStep;
            f.contentCol = base + 2 * kIndentStep;
            f.commaCol = base + kIndentStep - 2;
            f.closeCol = base;
            const bool aligned = stmt_.kind == StatementKind::Table || stmt_.kind == StatementKind::TypeDef;
            if (aligned && widestName <= kMaxAlignedName) f.alignCol = f.base + widestName + 1;
            frames_.push_back(f);
            requestBreak(f.base);
            return;
        }
        // A function or type name touches its '('; so does any word that touched it before.
        // The column list of INSERT INTO t (a, b) stays apart.
        const Frame& f0 = top();
        const bool columnList = f0.query && (f0.clause == Clause::Insert || f0.clause == Clause::Into) && prev_ &&
                                prev_->kind == Kind::Word && !(wordClass(*prev_) & Function);
        const bool touches = prev_ && (prev_->kind == Kind::Word || prev_->kind == Kind::QuotedIdent) &&
                             (t.joined || (!columnList && isCallable(*prev_)));
        place(t, spaceBefore(t) && !touches, top().contentCol, !touches);
        const std::size_t k = nextSignificant(i + 1);
        Frame f;
        if (wordAt(k, "SELECT") || wordAt(k, "WITH")) {
            f.sub = true;
            if (o_.align) {
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
            while (!cases_.empty() && cases_.back().frame > frames_.size()) cases_.pop_back();
            if ((f.sub && !o_.align) || f.columns) requestBreak(f.closeCol);
            place(t, false, f.closeCol);
        } else {
            place(t, false, top().contentCol);
        }
    }

    void comma(std::size_t i) {
        const Token& t = tokens_[i];
        Frame& f = top();
        if (f.columns) {
            if (o_.commaFirst) requestBreak(f.commaCol);
            place(t, false, f.contentCol);
            if (!o_.commaFirst) requestBreak(f.base);
            f.itemPos = 0;
            return;
        }
        const bool list = f.query && isListClause(f.clause) && f.caseDepth == 0;
        if (!list) {
            place(t, false, f.contentCol);
            return;
        }
        if (o_.multiline) {
            if (o_.commaFirst) {
                requestBreak(f.commaCol);
                place(t, false, f.commaCol);
            } else {
                place(t, false, f.contentCol);
                requestBreak(f.contentCol);
            }
            return;
        }
        // Lines wrap between items where an item fits on a line, rather than inside one, and
        // after an item that took several lines.
        const bool wrap = width_ > 0 && pendingBreak_ < 0 && !mustBreak_ && col_ > clampIndent(f.commaCol) &&
                          (col_ + 2 + itemWidth(i + 1) > width_ || lines_ != f.itemLine);
        f.itemLine = lines_ + (wrap ? 1 : 0);
        if (wrap && o_.commaFirst) requestBreak(f.commaCol);
        place(t, false, f.contentCol);
        if (wrap && !o_.commaFirst) requestBreak(f.contentCol);
    }

    // The width of the list item that starts at `k` as it would stand on one line, up to
    // the line width.
    int itemWidth(std::size_t k) {
        int width = 0, depth = 0;
        for (; k < tokens_.size() && width <= width_; ++k) {
            const Token& t = tokens_[k];
            if (t.kind == Kind::Semicolon || t.kind == Kind::Client || t.kind == Kind::LineComment) break;
            if (t.kind == Kind::OpenParen) ++depth;
            else if (t.kind == Kind::CloseParen && --depth < 0) break;
            else if (depth == 0 && (t.kind == Kind::Comma ||
                                    (t.kind == Kind::Word && (wordClass(t) & Structural) &&
                                     (is(t, "FROM") || is(t, "WHERE") || is(t, "INTO") || is(t, "GROUP") ||
                                      is(t, "ORDER") || is(t, "HAVING")))))
                break;
            bool lineEnds = false;
            width += measure(t, lineEnds) + 1;
            if (lineEnds) break;
        }
        return std::max(0, width - 1);
    }

    // The width a token takes on its first line. `lineEnds` tells that the line ends inside
    // it: a token over several lines, or a dollar-quoted text, whose first line may be laid
    // out anew and is counted as its opening quote alone.
    static int measure(const Token& t, bool& lineEnds) {
        if (t.kind == Kind::String && t.text[0] == '$') {
            lineEnds = true;
            const std::size_t tag = t.text.find('$', 1);
            return int(tag == std::string_view::npos ? t.text.size() : tag + 1);
        }
        lineEnds = t.text.find_first_of("\r\n") != std::string_view::npos;
        return firstLineWidth(t.text);
    }

    // The end of a statement: ';', or a delimiter chosen by a DELIMITER line, which also ends
    // every block (it closes a whole routine).
    void semicolon(const Token& t) {
        const bool delimiter = t.text != ";";
        frames_.resize(1);
        cases_.clear();
        place(t, delimiter && spaceBefore(t), 0);
        if (delimiter) blocks_.clear();
        beginNextStatement();
    }

    void beginNextStatement() {
        stmt_ = Statement{};
        resetFrames(bodyIndent());
        requestBreak(bodyIndent());
    }

    void comment(std::size_t i) {
        const Token& t = tokens_[i];
        if ((!t.ownLine && lineHasContent_) || loneSlashLine() || mustTouch(t)) {
            // A comment behind code stays behind it, before any break that is owed.
            if (!mustTouch(t)) {
                out_ += ' ';
                ++col_;
            }
            append(t.text);
        } else {
            // A comment on a line of its own keeps that line, indented like the code after it.
            int indent = pendingBreak_ >= 0 ? pendingBreak_ : top().contentCol;
            if (codeAfter_ <= i) codeAfter_ = nextSignificant(i + 1);  // once for a run of comments
            if (stmt_.start) indent = upcomingIndent(codeAfter_);
            if (out_.empty()) startLine(indent, false);
            else startLine(indent, t.blankBefore);
            append(t.text);
            mustBreak_ = true;
        }
        if (t.kind == Kind::LineComment) mustBreak_ = true;
        prev_ = &t;
        prevUnary_ = false;
    }

    // A line for the client stays whole, at the start of a line of its own unless it shared
    // one with code. "/" and GO run what came before, so no block stays open across them.
    void client(const Token& t) {
        // One that shared a line with code (select ... \gset) stays on that line.
        if (loneSlashLine() || (!t.ownLine && lineHasContent_ && !mustTouch(t))) out_ += ' ';
        else if (!out_.empty() && !mustTouch(t)) startLine(0, t.blankBefore);
        append(t.text);
        mustBreak_ = true;
        pendingBreak_ = -1;
        prev_ = &t;
        prevUnary_ = false;
        std::size_t k = 0;
        while (k < t.text.size() && isWordByte(static_cast<unsigned char>(t.text[k]))) ++k;
        const std::string_view word = t.text.substr(0, k);
        if (t.text == "/" || equalsUpper(word, "GO") || equalsUpper(word, "DELIMITER")) blocks_.clear();
        stmt_ = Statement{};
        resetFrames(bodyIndent());
    }

    // ---- procedural blocks ------------------------------------------------------------------

    // Where statements inside the innermost block start.
    int bodyIndent() const {
        if (blocks_.empty()) return base_;
        const Block& b = blocks_.back();
        if (b.type == BlockType::Case || b.handlers) return b.indent + 2 * kIndentStep;
        return b.indent + kIndentStep;
    }

    bool topIs(BlockType type) const { return !blocks_.empty() && blocks_.back().type == type; }

    // BEGIN; BEGIN WORK; BEGIN TRANSACTION ...: a transaction, not a block.
    bool beginsTransaction(std::size_t i) const {
        const std::size_t k = nextSignificant(i + 1);
        return k >= tokens_.size() || tokens_[k].kind == Kind::Semicolon || wordAt(k, "TRANSACTION") ||
               wordAt(k, "WORK") || wordAt(k, "TRAN") || wordAt(k, "ISOLATION") || wordAt(k, "READ") ||
               wordAt(k, "DEFERRABLE") || wordAt(k, "NOT") || wordAt(k, "DISTRIBUTED") || wordAt(k, "TRY") ||
               wordAt(k, "CATCH");
    }

    // Whether the DECLARE at `i` opens a declaration section that a BEGIN closes (PL/SQL,
    // PL/pgSQL) rather than declaring one variable inside a block (MySQL). Looks at the
    // statements after it: declarations until a BEGIN make a section.
    bool opensSection(std::size_t i) {
        // Every DECLARE before the statement that decided for one DECLARE gets its answer.
        if (i < section_.decidedAt) return section_.opens;
        section_.opens = scanSection(i, section_.decidedAt);
        return section_.opens;
    }

    bool scanSection(std::size_t i, std::size_t& decidedAt) {
        const std::size_t limit = std::min(tokens_.size(), i + 4000);
        bool statementStart = false;
        decidedAt = limit;
        for (std::size_t k = i + 1; k < limit; ++k) {
            decidedAt = k;
            const Token& t = tokens_[k];
            if (t.kind == Kind::LineComment || t.kind == Kind::BlockComment) continue;
            if (t.kind == Kind::Client) return false;
            if (t.kind == Kind::Semicolon) {
                statementStart = true;
                continue;
            }
            if (!statementStart) continue;
            statementStart = false;
            if (is(t, "BEGIN")) return true;
            if (is(t, "DECLARE") || is(t, "CURSOR") || is(t, "TYPE") || is(t, "SUBTYPE") || is(t, "PROCEDURE") ||
                is(t, "FUNCTION") || is(t, "PRAGMA"))
                continue;
            const bool name = t.kind == Kind::QuotedIdent || (t.kind == Kind::Word && !isKeyword(t));
            if (!name) return false;
        }
        return blocks_.empty();
    }

    // The indent the statement-start token at `k` will get: block words stand at their
    // block's indent, anything else at the body's.
    int upcomingIndent(std::size_t k) const {
        if (k >= tokens_.size() || blocks_.empty()) return bodyIndent();
        const Block& b = blocks_.back();
        if (wordAt(k, "END")) return b.indent;
        if (b.type == BlockType::If && (wordAt(k, "ELSE") || wordAt(k, "ELSIF") || wordAt(k, "ELSEIF"))) return b.indent;
        if ((b.type == BlockType::Case || b.handlers) && (wordAt(k, "WHEN") || wordAt(k, "ELSE"))) return b.indent + kIndentStep;
        if (b.type == BlockType::Begin && wordAt(k, "EXCEPTION")) return b.indent;
        if (b.type == BlockType::Section && wordAt(k, "BEGIN")) return b.indent;
        if (b.type == BlockType::Loop && wordAt(k, "UNTIL")) return b.indent;
        return bodyIndent();
    }

    // Puts a block word on a line of its own start at `indent`.
    void placeBlockWord(std::size_t i, int indent) {
        resetFrames(indent);
        requestBreak(indent);
        place(tokens_[i], false, indent + kIndentStep);
        stmt_.first = i;
        stmt_.indent = indent;
        stmt_.firstLine = lines_;
    }

    // Starts the body of a block: the next token starts a statement.
    void openBody() {
        stmt_ = Statement{};
        resetFrames(bodyIndent());
        requestBreak(bodyIndent());
    }

    // A header word (THEN, LOOP, IS) ends its line; on a header that took several lines it
    // stands at the header's indent.
    void placeHeaderEnd(std::size_t i) {
        frames_.resize(1);
        cases_.clear();
        if (lines_ != stmt_.firstLine) requestBreak(stmt_.indent);
        place(tokens_[i], true, stmt_.indent);
    }

    // A token at the start of a statement that is a block word. Returns the last token used,
    // or npos when `i` starts an ordinary statement.
    std::size_t blockWord(std::size_t i) {
        const Token& t = tokens_[i];
        const int indent = upcomingIndent(i);
        if (t.kind == Kind::Operator && t.text == "<<" && kindAt(i + 1, Kind::Word) && i + 2 < tokens_.size() &&
            tokens_[i + 2].kind == Kind::Operator && tokens_[i + 2].text == ">>") {
            placeBlockWord(i, indent);  // <<label>>
            place(tokens_[i + 1], false, indent);
            place(tokens_[i + 2], false, indent);
            openBody();
            return i + 2;
        }
        if (t.kind != Kind::Word) return std::string::npos;
        if (is(t, "DECLARE") && opensSection(i)) {
            placeBlockWord(i, indent);
            blocks_.push_back({BlockType::Section, indent});
            openBody();
            return i;
        }
        if (is(t, "BEGIN") && !beginsTransaction(i)) {
            if (topIs(BlockType::Section)) blocks_.pop_back();
            placeBlockWord(i, indent);
            std::size_t last = i;
            if (wordAt(i + 1, "ATOMIC")) place(tokens_[last = i + 1], true, indent);
            else if (wordAt(i + 1, "NOT") && wordAt(i + 2, "ATOMIC")) {
                place(tokens_[i + 1], true, indent);
                place(tokens_[last = i + 2], true, indent);
            }
            blocks_.push_back({BlockType::Begin, indent});
            openBody();
            return last;
        }
        if (blocks_.empty()) return std::string::npos;
        Block& b = blocks_.back();
        if (is(t, "END")) {
            blocks_.pop_back();
            placeBlockWord(i, indent);
            return i;
        }
        if (is(t, "EXCEPTION") && b.type == BlockType::Begin && !b.handlers) {
            placeBlockWord(i, indent);
            b.handlers = true;
            openBody();
            return i;
        }
        if (is(t, "WHEN") && (b.type == BlockType::Case || b.handlers)) {
            placeBlockWord(i, indent);
            stmt_.await = Await::Then;
            return i;
        }
        if ((is(t, "ELSIF") || is(t, "ELSEIF")) && b.type == BlockType::If) {
            placeBlockWord(i, indent);
            stmt_.await = Await::Then;
            return i;
        }
        if (is(t, "ELSE") && (b.type == BlockType::If || b.type == BlockType::Case)) {
            placeBlockWord(i, indent);
            openBody();
            return i;
        }
        if (is(t, "UNTIL") && b.type == BlockType::Loop) {
            placeBlockWord(i, indent);
            return i;
        }
        return std::string::npos;
    }

    // Block words that open a block wherever a statement may start.
    std::size_t opener(std::size_t i) {
        const Token& t = tokens_[i];
        const int indent = bodyIndent();
        if (is(t, "IF")) {
            placeBlockWord(i, indent);
            blocks_.push_back({BlockType::If, indent});
            stmt_.await = Await::Then;
            return i;
        }
        if (is(t, "CASE")) {
            placeBlockWord(i, indent);
            blocks_.push_back({BlockType::Case, indent});
            return i;
        }
        if (is(t, "LOOP") || is(t, "REPEAT")) {
            placeBlockWord(i, indent);
            blocks_.push_back({BlockType::Loop, indent});
            openBody();
            return i;
        }
        if (is(t, "WHILE") || is(t, "FOR") || is(t, "FOREACH")) {
            placeBlockWord(i, indent);
            stmt_.await = Await::Loop;
            return i;
        }
        return std::string::npos;
    }

    // The kind of statement that starts at `i`, from its first words.
    StatementKind classify(std::size_t i) const {
        if (wordAt(i, "FUNCTION") || wordAt(i, "PROCEDURE")) return StatementKind::Routine;
        if (!wordAt(i, "CREATE")) return StatementKind::Plain;
        for (std::size_t k = i + 1; k < std::min(tokens_.size(), i + 12); ++k) {
            const Token& t = tokens_[k];
            if (t.kind == Kind::OpenParen || t.kind == Kind::Semicolon || t.kind == Kind::Client) break;
            if (is(t, "FUNCTION") || is(t, "PROCEDURE") || is(t, "PACKAGE")) return StatementKind::Routine;
            if (is(t, "TRIGGER")) return StatementKind::Trigger;
            if (is(t, "TABLE")) return StatementKind::Table;
            if (is(t, "INDEX")) return StatementKind::Index;
            if (is(t, "VIEW")) return StatementKind::View;
            if (is(t, "TYPE")) return wordAt(k + 1, "BODY") ? StatementKind::Routine : StatementKind::TypeDef;
        }
        return StatementKind::Plain;
    }

    // Whether the dollar-quoted body of the routine or DO block at `i` is SQL: its LANGUAGE
    // is plpgsql or sql (a DO block without one is plpgsql).
    bool hasSqlBody(std::size_t i) const {
        for (std::size_t k = i; k < tokens_.size(); ++k) {
            const Token& t = tokens_[k];
            if (t.kind == Kind::Semicolon || t.kind == Kind::Client) break;
            if (is(t, "LANGUAGE") && k + 1 < tokens_.size()) {
                std::string_view name = tokens_[k + 1].text;
                if (tokens_[k + 1].kind != Kind::Word && name.size() >= 2) name = name.substr(1, name.size() - 2);
                return equalsUpper(name, "PLPGSQL") || equalsUpper(name, "SQL");
            }
        }
        return wordAt(i, "DO");
    }

    void openStatement(std::size_t i) {
        stmt_.first = i;
        stmt_.indent = bodyIndent();
        stmt_.firstLine = lines_ + (lineHasContent_ ? 1 : 0);  // the break owed before it
        stmt_.kind = classify(i);
        stmt_.sqlBody = (stmt_.kind == StatementKind::Routine || wordAt(i, "DO")) && hasSqlBody(i);
        resetFrames(stmt_.indent);
        requestBreak(stmt_.indent);
    }

    // Words inside a statement's top level that end a header or open a routine's body.
    std::size_t headerWord(std::size_t i) {
        const Token& t = tokens_[i];
        if (t.kind != Kind::Word || top().caseDepth > 0) return std::string::npos;
        if (stmt_.await == Await::Then && is(t, "THEN")) {
            placeHeaderEnd(i);
            openBody();
            return i;
        }
        if (stmt_.await == Await::Loop && (is(t, "LOOP") || is(t, "DO"))) {
            const int indent = stmt_.indent;
            placeHeaderEnd(i);
            blocks_.push_back({BlockType::Loop, indent});
            openBody();
            return i;
        }
        if (stmt_.await == Await::None && topIs(BlockType::Case) && stmt_.first + 1 <= i && is(t, "WHEN") &&
            tokens_[stmt_.first].kind == Kind::Word && is(tokens_[stmt_.first], "CASE")) {
            placeBlockWord(i, blocks_.back().indent + kIndentStep);  // CASE x WHEN ...
            stmt_.await = Await::Then;
            return i;
        }
        if (stmt_.kind == StatementKind::Routine && wordAt(stmt_.first, "CREATE")) {
            // CREATE FUNCTION f(...) / RETURNS ... / AS 'file' / LANGUAGE ...: each on a line,
            // but "RETURNS int AS $$" and "$$ LANGUAGE plpgsql" stay together.
            const std::size_t k = nextSignificant(i + 1);
            const bool quotedBody = k < tokens_.size() && tokens_[k].kind == Kind::String && tokens_[k].text[0] != '$';
            const bool afterBody = prev_ && prev_->kind == Kind::String && prev_->text[0] == '$';
            if (is(t, "RETURNS") || (is(t, "LANGUAGE") && !afterBody) || (is(t, "AS") && quotedBody))
                requestBreak(stmt_.indent);
        }
        if (stmt_.kind == StatementKind::Routine && (is(t, "IS") || is(t, "AS"))) {
            const std::size_t k = nextSignificant(i + 1);
            if (k < tokens_.size() && (tokens_[k].kind == Kind::String || wordAt(k, "LANGUAGE") || wordAt(k, "EXTERNAL") ||
                                       wordAt(k, "OBJECT") || wordAt(k, "TABLE") || wordAt(k, "VARRAY") ||
                                       wordAt(k, "ENUM") || kindAt(k, Kind::OpenParen)))
                return std::string::npos;
            const int indent = stmt_.indent;
            placeHeaderEnd(i);
            blocks_.push_back({BlockType::Section, indent});
            openBody();
            return i;
        }
        if ((stmt_.kind == StatementKind::Routine || stmt_.kind == StatementKind::Trigger) &&
            (is(t, "BEGIN") || is(t, "DECLARE")))
            return blockWord(i);  // CREATE PROCEDURE p() BEGIN ..., CREATE TRIGGER ... BEGIN
        return std::string::npos;
    }

    // ---- function bodies --------------------------------------------------------------------

    // A dollar-quoted routine body in SQL or PL/pgSQL: the quotes stay, the SQL inside is laid
    // out on the lines between them at the statement's indent. A body that cannot be laid
    // out safely (unterminated, or one whose layout would contain its own closing quote)
    // stays as it is.
    std::string layBody(const Token& t) {
        const std::string_view text = t.text;
        std::size_t tag = 1;
        while (tag < text.size() && text[tag] != '$') ++tag;
        ++tag;
        if (!t.terminated || depth_ >= kMaxBodyDepth || text.size() < 2 * tag) return std::string(text);
        const std::string_view quote = text.substr(0, tag);
        const std::vector<Token> inner = CSQLFormatter::Tokenize(text.substr(tag, text.size() - 2 * tag));
        if (inner.empty()) return std::string(text);
        for (const Token& x : inner)
            if (!x.terminated) return std::string(text);
        Layout body(inner, o_, stmt_.indent, depth_ + 1);
        const std::string laid = body.run();
        if (laid.find(quote) != std::string::npos) return std::string(text);
        std::string r(quote);
        r += o_.eol;
        r += laid;
        r += o_.eol;
        r.append(std::size_t(clampIndent(stmt_.indent)), ' ');
        r += quote;
        return r;
    }

    // ---- the walk ---------------------------------------------------------------------------

    std::size_t step(std::size_t i) {
        const Token& t = tokens_[i];
        switch (t.kind) {
            case Kind::LineComment:
            case Kind::BlockComment:
                comment(i);
                return i;
            case Kind::Client:
                client(t);
                return i;
            default:
                break;
        }
        if (stmt_.start) {
            stmt_.start = false;
            std::size_t r = blockWord(i);
            if (r != std::string::npos) return r;
            openStatement(i);
            r = opener(i);
            if (r != std::string::npos) return r;
        } else if (frames_.size() == 1) {
            const std::size_t r = headerWord(i);
            if (r != std::string::npos) return r;
        }
        switch (t.kind) {
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
                if (is(t, "BETWEEN")) {
                    f.between = true;
                } else if (is(t, "AND")) {
                    f.between = false;
                } else if (is(t, "CASE")) {
                    ++f.caseDepth;
                    openCase(i);
                    break;
                } else if ((is(t, "WHEN") || is(t, "ELSE")) && caseBreaks() && !(prev_ && is(*prev_, "CASE"))) {
                    requestBreak(cases_.back().col + 5);
                } else if (is(t, "END") && f.caseDepth > 0) {
                    --f.caseDepth;
                    if (caseBreaks()) requestBreak(cases_.back().col);
                    if (!cases_.empty() && cases_.back().frame == frames_.size()) cases_.pop_back();
                }
                place(t, spaceBefore(t), f.contentCol);
                break;
            }
            case Kind::String:
                if (stmt_.sqlBody && t.text[0] == '$' && prev_ && (is(*prev_, "AS") || is(*prev_, "DO"))) {
                    placeText(t, layBody(t), spaceBefore(t), top().contentCol);
                    break;
                }
                [[fallthrough]];
            default: {
                const bool unary = isUnarySign(t);
                // Never wrap around a cast, nor before a "/" that could end up alone on a line.
                const bool mayWrap = !isCast(t) && !isChar(t, '/');
                place(t, spaceBefore(t), top().contentCol, mayWrap);
                prevUnary_ = unary;
                return i;
            }
        }
        prevUnary_ = false;
        return i;
    }

    const std::vector<Token>& tokens_;
    const Options& o_;
    int width_;
    int base_;    // where statements start: 0, or the indent of the routine whose body this is
    int depth_;   // how many routine bodies enclose this text
    int maxIndent_;

    std::unordered_map<std::string, unsigned> classes_;
    std::vector<Frame> frames_;
    std::vector<Block> blocks_;
    struct OpenCase {
        std::size_t frame;  // the depth of the frame it stands in
        int col;            // where CASE stands when it takes several lines, else -1
    };
    std::vector<OpenCase> cases_;
    struct {
        std::size_t decidedAt = 0;  // the token that decided the last DECLARE
        bool opens = false;
    } section_;
    std::size_t codeAfter_ = 0;  // the first code token after the current run of comments
    Statement stmt_;
    std::string out_;
    int col_ = 0;
    int lineIndent_ = 0;
    std::size_t lines_ = 0;
    bool lineHasContent_ = false;
    int pendingBreak_ = -1;    // a line break owed before the next token, at this column
    bool mustBreak_ = false;   // the line ends in a comment: the next token starts a new line
    const Token* prev_ = nullptr;
    bool prevUnary_ = false;
};
}  // namespace

CString CSQLFormatter::Format(CString sql, bool keywordAlign, bool commaInList, int keywordCase, bool multiline,
                              bool formatFlag, int lineWidth) {
    const std::string_view text = sql.view();
    const std::vector<Token> tokens = Tokenize(text);
    if (tokens.empty()) return sql;

    const Options options{isKeywordFunc, isListKeywordFunc, keywordAlign, commaInList, keywordCase, multiline,
                          lineWidth, text.find("\r\n") != std::string_view::npos ? "\r\n" : "\n"};
    Layout layout(tokens, options, 0, 0);
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
    if (last.terminated && tail.find_first_of("\r\n") != std::string_view::npos) out += options.eol;
    return CString(std::move(out));
}
