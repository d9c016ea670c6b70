// The statement around the caret: word normal form, one-piece scans and the block-comment check
// (scans.txt), whole extractions over the scripts of the case files, the line budget, odd carets
// and bytes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <sstream>
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

// A field of scans.txt: \r \n \t \v \0 \\ and \xNN stand for their bytes.
std::string unescape(std::string_view s) {
    std::string out;
    for (size_t i = 0; i < s.size(); ++i) {
        const size_t k =
            i + 1 < s.size() && s[i] == '\\' ? std::string_view("rntv0\\x").find(s[++i]) : std::string_view::npos;
        if (k == 6) out += char(std::stoi(std::string(s.substr(i + 1, 2)), nullptr, 16)), i += 2;
        else out += k < 6 ? "\r\n\t\v\0\\"[k] : s[i];
    }
    return out;
}

std::string Query(const std::vector<CString>& lines, int line, int column) {
    return StatementExtractor::GetCurrentQuery(VectorStatementSource(lines, line, column)).str();
}

}  // namespace

// Each line of scans.txt checks a word's normal form, one scan of a piece, or the block
// comment check of one line.
TEST(StatementExtraction, ScansOfTheCaseFile) {
    CStringArray ranges;
    for (const char* range : {"2,5", "8,8", "junk", "", "99999999999999999999,-9999999999999"}) ranges.Add(range);
    std::istringstream rows(ReadCase(std::filesystem::path(QUILLBOX_TEST_DATA) / "extract" / "scans.txt"));
    int checked = 0;
    for (std::string row; std::getline(rows, row);) {
        if (row.empty() || row[0] == '#') continue;
        const size_t bar = row.find('|'), last = row.rfind('|');
        ASSERT_LT(bar, last) << row;
        const std::string kind = row.substr(0, bar);
        CString text(unescape(row.substr(bar + 1, last - bar - 1)));
        bool armed = kind.ends_with('*');
        if (kind == "token") {
            text = StatementExtractor::InitToken(text);
        } else if (kind.starts_with("comment")) {
            const char* at = kind.c_str() + 8;
            text = StatementExtractor::CheckComment(text, ranges, std::atoi(at), std::atoi(std::strchr(at, ',') + 1));
        } else if (StatementExtractor::GetSingleQuery(text, armed, kind[0] == '>')) {
            text += "+";
        }
        EXPECT_EQ(text.str() + (armed ? "*" : ""), unescape(row.substr(last + 1))) << row;
        ++checked;
    }
    EXPECT_GT(checked, 25);
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
