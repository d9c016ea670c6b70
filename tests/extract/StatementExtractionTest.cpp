// The statement around the caret: word normal form, one-piece scans, whole extractions over
// scripts, the line budget, odd carets and bytes, and the block-comment check.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "StatementExtraction.h"

namespace {

// The query for `script`, whose '@' marks the caret (and is removed).
std::string QueryAt(std::string script) {
    const size_t caret = script.find('@');
    script.erase(caret, 1);
    return StatementExtractor::GetCurrentQuery(
        VectorStatementSource::FromText(CString(script), int(caret))).str();
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
    // Bytes from 0x80 up are no white space; NUL is a word byte; \v is white space.
    EXPECT_EQ(Scan("is\xC2\xA0select", false), "is\xC2\xA0select+");
    EXPECT_EQ(Scan("x is\vselect", false), "\vselect");
    EXPECT_EQ(Scan(std::string("be\0gin", 6), true), std::string("be\0gin+", 7));
}

TEST(StatementExtraction, ScriptsStatementsAndSubQueries) {
    EXPECT_EQ(QueryAt("select a.x, b.y\r\n  from tab_a a, tab_b b\r\n where a.@\r\n"
                      "   and b.z = 1;\r\nselect 2 from dual"),
              "select a.x, b.y\r\n  from tab_a a, tab_b b\r\n where a.\r\n and b.z = 1");
    EXPECT_EQ(QueryAt("select 1 from a;\nselect x@ from b;\nselect 3;"), "\nselect x from b");
    // No ';' between two statements: an alias behind the caret stops at the next select ...
    EXPECT_EQ(QueryAt("select a@ as x\nselect b from t"), "select a as x\n");
    // ... without one the query runs over it.
    EXPECT_EQ(QueryAt("select a@ from t\nselect b from u"), "select a from t\nselect b from u");
    EXPECT_EQ(QueryAt("select e.@id, (select 1 from y) as m,\n  (select 2 from z) from e"),
              "select e.id, (select 1 from y) as m,\n");
    // The word under the caret is read in two halves, neither a keyword.
    EXPECT_EQ(QueryAt("x;sel@ect y from t"), "select y from t");
}

TEST(StatementExtraction, ProceduralBlocks) {
    EXPECT_EQ(QueryAt("declare\n  cursor c is select@ a.id from t a;\nbegin"), " select a.id from t a");
    EXPECT_EQ(QueryAt("begin\n  for r in c loop\n    update t set x = r.@id;\n  end loop;"),
              "\n    update t set x = r.id");
    EXPECT_EQ(QueryAt("  BEGIN  \nselect x@ from t;"), "select x from t");
    EXPECT_EQ(QueryAt("create view v as\n  select x.@ from t x"), "\n  select x. from t x");
}

TEST(StatementExtraction, LineCommentsAndBlockComments) {
    EXPECT_EQ(QueryAt("select a from t;\nselect b from u -- note @x\n"), "");
    EXPECT_EQ(QueryAt("select '--' x@"), "");
    EXPECT_EQ(QueryAt("select a@ b -- c ; d\n from t;"), "select a b  from t");
    EXPECT_EQ(QueryAt("select a -- begin ;\n, b@ from t"), "select a , b from t");
    EXPECT_EQ(QueryAt("/* ; */ select x@ from t"), " */ select x from t");
    EXPECT_EQ(QueryAt("select x@ from t /* open\nwhere 'y"), "select x from t /* open\nwhere 'y");
}

TEST(StatementExtraction, CaretAtEdgesAndOutsideTheText) {
    EXPECT_EQ(QueryAt("@select a from t;"), "select a from t");
    EXPECT_EQ(QueryAt("select a from t;@"), "");
    const std::vector<CString> lines = {"select a\r\n", "from t\r\n", "where x"};
    const std::string whole = "select a\r\nfrom t\r\nwhere x";
    EXPECT_EQ(Query(lines, -7, -3), whole);
    EXPECT_EQ(Query(lines, 99, 99), whole);
    EXPECT_EQ(Query(lines, 0, 9), whole);   // between CR and LF: moved before the CR
    EXPECT_EQ(Query({}, 0, 0), "");
    EXPECT_EQ(StatementExtractor::GetCurrentQuery(FunctionStatementSource(5, 2, 0, nullptr)).str(), "");
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

TEST(StatementExtraction, HostileBytesAndHugeLines) {
    std::string huge;
    for (int i = 0; i < 200000; ++i) huge += "((((((((x ";
    EXPECT_EQ(Query({CString(huge + "\n"), CString("tail")}, 0, 0), huge + "\ntail");
    const std::string odd("\xFF\xFE sel\0ect \xC3(\r", 14);
    EXPECT_EQ(Query({CString(odd), CString("\x80;x")}, 1, 1), odd + "\x80");
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

// Where the statement lies: "[...]" marks the expected extent in the script, '@' the caret.
TEST(StatementExtraction, TheExtentSpansTheStatementWithoutItsBlankEnds) {
    for (std::string script : {
             std::string("select 1;\n\n  [select a.@x,\n    b -- note\n  from t]  ;\nselect 2"),
             std::string("declare\n  cursor c is [select@ a.id from t a];\nbegin"),
             std::string("x;[sel@ect y from t]"),
             std::string("[select a@ as x]\nselect b from t"),
             std::string("[select a from t\n where b = 1]\n\n@"),
             std::string("select 1 -- a @comment\n"),
             std::string("  @  "),
         }) {
        SCOPED_TRACE(script);
        // The script without its marks, and where the marks stood in it.
        std::string plain;
        size_t open = std::string::npos, close = 0, caret = 0;
        for (char ch : script) {
            if (ch == '[') open = plain.size();
            else if (ch == ']') close = plain.size();
            else if (ch == '@') caret = plain.size();
            else plain += ch;
        }
        script = plain;
        VectorStatementSource source = VectorStatementSource::FromText(CString(script), int(caret));
        StatementExtractor::Extent extent;
        const CString query = StatementExtractor::GetCurrentQuery(source, extent);
        EXPECT_EQ(query, StatementExtractor::GetCurrentQuery(VectorStatementSource::FromText(CString(script), int(caret))));
        ASSERT_EQ(extent.found, open != std::string::npos);
        if (!extent.found) continue;
        // Lines and columns back to offsets in the script.
        std::vector<size_t> lineStarts{0};
        for (size_t i = 0; i < script.size(); ++i)
            if (script[i] == '\n') lineStarts.push_back(i + 1);
        EXPECT_EQ(lineStarts[size_t(extent.firstLine)] + size_t(extent.firstColumn), open);
        EXPECT_EQ(lineStarts[size_t(extent.lastLine)] + size_t(extent.endColumn), close);
    }
}
