// The statement around the caret: word normal form, one-piece scans, whole extractions over
// the scripts of the case files, the line budget, odd carets and bytes, and the block-comment check.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CaseFiles.h"
#include "StatementExtraction.h"

namespace {

// The script `marked` as the case files write it: '@' for the caret and "[...]" around the
// extent when one was found (at one offset the marks stand in the order "]", "[", "@").
std::string Marked(const std::string& script, size_t caret, const StatementExtractor::Extent& extent) {
    size_t open = std::string::npos, close = std::string::npos;
    if (extent.found) {
        std::vector<size_t> lineStarts{0};
        for (size_t i = 0; i < script.size(); ++i)
            if (script[i] == '\n') lineStarts.push_back(i + 1);
        open = lineStarts[size_t(extent.firstLine)] + size_t(extent.firstColumn);
        close = lineStarts[size_t(extent.lastLine)] + size_t(extent.endColumn);
    }
    std::string marked;
    for (size_t i = 0; i <= script.size(); ++i) {
        if (i == close) marked += ']';
        if (i == open) marked += '[';
        if (i == caret) marked += '@';
        if (i < script.size()) marked += script[i];
    }
    return marked;
}

// One scan of `piece`: the kept text, then "+" when the statement goes on, then "*" when armed.
std::string Scan(const std::string& piece, bool forward, bool armed = false) {
    CString text(piece);
    const bool goesOn = StatementExtractor::GetSingleQuery(text, armed, forward);
    return text.str() + (goesOn ? "+" : "") + (armed ? "*" : "");
}

std::string Query(const std::vector<CString>& lines, int line, int column) {
    return StatementExtractor::GetCurrentQuery(VectorStatementSource(lines, line, column)).str();
}

}  // namespace

TEST(StatementExtraction, InitTokenLowersThenStripsParenthesesInOrder) {
    EXPECT_EQ(StatementExtractor::InitToken("((SeLeCt))").str(), "select");
    // Each strip runs once, in its turn: what shows only after a later strip stays.
    EXPECT_EQ(StatementExtractor::InitToken(")(select").str(), "(select");
    EXPECT_EQ(StatementExtractor::InitToken("select()").str(), "select(");
    EXPECT_EQ(StatementExtractor::InitToken("\xC3\x89T").str(), "\xC3\x89t");   // ASCII only
}

TEST(StatementExtraction, SingleQueryBoundariesAndPairing) {
    // No boundary: the piece is untouched; a select arms backward, an alias forward.
    EXPECT_EQ(Scan(" select a as b\r\n", false), " select a as b\r\n+*");
    EXPECT_EQ(Scan("x as y is z", true), "x as y is z+*");
    // ';' cuts; kept text that starts with a blank gets one blank for all its leading space.
    EXPECT_EQ(Scan("   and b.z = 1;\r\n", true), " and b.z = 1");
    EXPECT_EQ(Scan("a;\t b", false), "\t b");
    EXPECT_EQ(Scan("   ;", true), "");
    // The ';' wins over a word touching it, which is never tested.
    EXPECT_EQ(Scan("x;select", false), "select");
    // Pairs: "is" before a select backward, a select after "as" forward (also armed earlier).
    EXPECT_EQ(Scan("  cursor c IS (SELECT", false), " (SELECT");
    EXPECT_EQ(Scan("x as y (select z", true), "x as y ");
    EXPECT_EQ(Scan("\r\nselect 2", true, true), "\r\n");
    // begin, for, loop stop alone, whole with their parentheses, also at the piece's edges.
    EXPECT_EQ(Scan("  x (LOOP) y", false), " y");
    EXPECT_EQ(Scan("a b for", true), "a b ");
    EXPECT_EQ(Scan("for a b", false), " a b");
    // Bytes from 0x80 up are no white space; NUL is a word byte; \v is white space.
    EXPECT_EQ(Scan("is\xC2\xA0select", false), "is\xC2\xA0select+");
    EXPECT_EQ(Scan("x is\vselect", false), "\vselect");
    EXPECT_EQ(Scan(std::string("be\0gin", 6), true), std::string("be\0gin+", 7));
}

// Each case is a script in <name>.sql, marked as Marked() writes it, with the query in
// <name>.expected: statements, sub-queries, procedural blocks, comments and the caret's edges.
TEST(StatementExtraction, CaseFiles) {
    int checked = 0;
    for (const auto& path : CaseFiles("extract", ".sql")) {
        SCOPED_TRACE(path.filename());
        const std::string marked = ReadCase(path);
        std::string script;
        size_t caret = 0;
        for (char ch : marked) {
            if (ch == '@') caret = script.size();
            else if (ch != '[' && ch != ']') script += ch;
        }
        StatementExtractor::Extent extent;
        const CString query =
            StatementExtractor::GetCurrentQuery(VectorStatementSource::FromText(CString(script), int(caret)), extent);
        EXPECT_EQ(query.str(), ReadCase(std::filesystem::path(path).replace_extension(".expected")));
        EXPECT_EQ(query, StatementExtractor::GetCurrentQuery(VectorStatementSource::FromText(CString(script), int(caret))));
        EXPECT_EQ(Marked(script, caret, extent), marked);
        ++checked;
    }
    EXPECT_GT(checked, 0);
}

TEST(StatementExtraction, CaretsOutsideTheTextHostileBytesAndHugeLines) {
    const std::vector<CString> lines = {"select a\r\n", "from t\r\n", "where x"};
    const std::string whole = "select a\r\nfrom t\r\nwhere x";
    EXPECT_EQ(Query(lines, -7, -3), whole);
    EXPECT_EQ(Query(lines, 99, 99), whole);
    EXPECT_EQ(Query(lines, 0, 9), whole);   // between CR and LF: moved before the CR
    EXPECT_EQ(Query({}, 0, 0), "");
    EXPECT_EQ(StatementExtractor::GetCurrentQuery(FunctionStatementSource(5, 2, 0, nullptr)).str(), "");
    // Hostile bytes and a 2,000,000-byte line.
    std::string huge;
    for (int i = 0; i < 200000; ++i) huge += "((((((((x ";
    EXPECT_EQ(Query({CString(huge + "\n"), CString("tail")}, 0, 0), huge + "\ntail");
    const std::string odd("\xFF\xFE sel\0ect \xC3(\r", 14);
    EXPECT_EQ(Query({CString(odd), CString("\x80;x")}, 1, 1), odd + "\x80");
}

TEST(StatementExtraction, BudgetBoundsTheLinesRead) {
    // No boundary far above the caret: 501 lines read, none below it; the query ends there.
    const std::vector<CString> lines(900, CString("a b\n"));
    const VectorStatementSource deep(lines, 700, 1);
    const std::string query = StatementExtractor::GetCurrentQuery(deep).str();
    EXPECT_EQ(deep.ReadCount(), 501);
    EXPECT_EQ(deep.LowestLineRead(), 200);
    EXPECT_EQ(deep.HighestLineRead(), 700);
    EXPECT_EQ(query.size(), 500u * 4u + 1u);
    // Caret on line 300: 301 lines backward leave the forward pass lines 300 to 499.
    const VectorStatementSource middle(lines, 300, 3);
    EXPECT_EQ(StatementExtractor::GetCurrentQuery(middle).str().size(), 500u * 4u);
    EXPECT_EQ(middle.HighestLineRead(), 499);
    // Comment-only lines count too.
    std::vector<CString> sparse(1200, CString("-- nothing\n"));
    sparse[0] = "select\n";
    const VectorStatementSource far(sparse, 1100, 0);
    EXPECT_EQ(StatementExtractor::GetCurrentQuery(far).str(), "");
    EXPECT_EQ(far.LowestLineRead(), 600);
}

TEST(StatementExtraction, CheckCommentFindsBlockCommentsAndCutsLineComments) {
    CStringArray ranges;
    for (const char* range : {"2,5", "8,8", "junk", "", "99999999999999999999,-9999999999999"})
        ranges.Add(range);
    const auto check = [&](const char* line, int lineNo, int column) {
        return StatementExtractor::CheckComment(line, ranges, lineNo, column).str();
    };
    EXPECT_EQ(check("anything -- x", 3, 0), "");
    EXPECT_EQ(check("select /* open", 2, 10), "");
    EXPECT_EQ(check("close */ select", 5, 2), "");
    EXPECT_EQ(check("close */ x -- y", 5, 10), "close */ x ");
    EXPECT_EQ(check("a /* b */ c", 8, 6), "");
    EXPECT_EQ(check("a /* b */ c", 8, 10), "a /* b */ c");
    EXPECT_EQ(check("x -- y", 1, -4), "x ");
}
