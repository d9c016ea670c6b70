// The SQL formatter: layout cases kept as files (an input and its expected layouts under
// tests/data/format/cases), real scripts written by others (format/corpus), odd inputs made by
// hand (format/odd), and the two properties every layout keeps: the lexemes stay (only
// whitespace, the case of keywords and the layout inside function bodies change), and a second
// pass changes nothing.
// QUILLBOX_FORMAT_UPDATE=1 rewrites the expected layouts from the formatter's output.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "CKTScinWnd.h"
#include "CaseFiles.h"
#include "CSQLFormatter.h"
#include "SqlLexemes.h"

namespace fs = std::filesystem;

namespace {
// The keyword tests Format SQL hands the formatter, so that these layouts are the command's.
class Keywords : public CKTScinWnd {
public:
    using CKTScinWnd::isSQLKeyword;
    using CKTScinWnd::isSQLKeyword2;
};

struct Options {
    bool align = true, commaFirst = false;
    int keywordCase = CSQLFormatter::UpperCase;
    bool multiline = false, layout = true;
    int width = 80;
};

std::string format(const std::string& sql, Options o = {}) {
    CSQLFormatter f;
    f.isKeywordFunc = &Keywords::isSQLKeyword;
    f.isListKeywordFunc = &Keywords::isSQLKeyword2;
    return f.Format(CString(sql), o.align, o.commaFirst, o.keywordCase, o.multiline, o.layout, o.width).str();
}

// Options from a name such as "a1c0k1m0": align, comma first, keyword case, multiline.
bool parseOptions(const std::string& name, Options& o) {
    if (name.size() != 8 || name[0] != 'a' || name[2] != 'c' || name[4] != 'k' || name[6] != 'm') return false;
    o.align = name[1] == '1';
    o.commaFirst = name[3] == '1';
    o.keywordCase = name[5] - '0';
    o.multiline = name[7] == '1';
    return true;
}

// The first lexeme where two texts part, for the failure message.
std::string firstDifference(const std::string& a, const std::string& b) {
    const auto x = sqlref::lexemes(a), y = sqlref::lexemes(b);
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i)
        if (x[i] != y[i]) return "lexeme " + std::to_string(i) + ": [" + x[i] + "] became [" + y[i] + "]";
    return x.size() == y.size() ? "" : "lexeme count " + std::to_string(x.size()) + " became " + std::to_string(y.size());
}

// Checks both properties of one layout; returns the layout.
std::string formatChecked(const std::string& sql, const Options& o, const std::string& what) {
    const std::string once = format(sql, o);
    EXPECT_EQ(firstDifference(sql, once), "") << what;
    EXPECT_EQ(format(once, o), once) << what << ": a second pass changed the text";
    return once;
}

}  // namespace

// Each case file NAME.sql has expected layouts NAME.OPTIONS.expected.
TEST(SQLFormatter, CasesLayOutAsExpected) {
    const bool update = std::getenv("QUILLBOX_FORMAT_UPDATE") != nullptr;
    int checked = 0;
    for (const fs::path& path : CaseFiles("format/cases", ".expected")) {
        const std::string stem = path.stem().string();  // NAME.OPTIONS
        const std::size_t dot = stem.rfind('.');
        Options o;
        ASSERT_TRUE(dot != std::string::npos && parseOptions(stem.substr(dot + 1), o)) << path;
        const std::string sql = ReadCase(path.parent_path() / (stem.substr(0, dot) + ".sql"));
        ASSERT_FALSE(sql.empty()) << path;
        const std::string out = formatChecked(sql, o, path.filename().string());
        if (update) std::ofstream(path, std::ios::binary) << out;
        else EXPECT_EQ(out, ReadCase(path)) << path.filename();
        ++checked;
    }
    EXPECT_GE(checked, 10);
}

// Scripts written by others (format/corpus) and odd inputs made by hand (format/odd: open
// literals and comments, stray punctuation, operators of several dialects, client lines,
// non-ASCII names), under every option set.
TEST(SQLFormatter, EveryOptionKeepsTheLexemesAndIsStable) {
    int files = 0;
    for (const char* folder : {"format/corpus", "format/odd"}) {
        for (const fs::path& path : CaseFiles(folder, ".sql")) {
            const std::string sql = ReadCase(path);
            for (int bits = 0; bits < 64; ++bits) {
                Options o;
                o.align = bits & 1;
                o.commaFirst = bits & 2;
                o.multiline = bits & 4;
                o.layout = !(bits & 8);
                o.keywordCase = (bits >> 4) & 3;
                o.width = bits & 8 ? 0 : 30;
                formatChecked(sql, o, "options " + std::to_string(bits) + ": " + path.filename().string());
            }
            ++files;
        }
    }
    EXPECT_GE(files, 25);
}

TEST(SQLFormatter, LineEndsWhitespaceCaseOnlyAndNoKeywordTests) {
    EXPECT_EQ(format("select 1\r\nfrom dual\r\n"), "SELECT 1\r\n  FROM dual\r\n");
    EXPECT_EQ(format(""), "");
    EXPECT_EQ(format("  \n\t "), "  \n\t ");
    EXPECT_EQ(format("select 1 /* open\n"), "SELECT 1 /* open\n");  // nothing may follow an open comment
    Options caseOnly;
    caseOnly.layout = false;
    EXPECT_EQ(format("  select a,\n\tb  from t -- from\n", caseOnly), "  SELECT a,\n\tb  FROM t -- from\n");
    // Clause words are keywords even without the caller's tests.
    EXPECT_EQ(CSQLFormatter().Format("select x from t", true, false, 1, false, true, 80), "SELECT x\n  FROM t");
}

TEST(SQLFormatter, TokenizerKeepsWhatMustNotChangeWhole) {
    const auto tokens = CSQLFormatter::Tokenize(
        "q'{a'b}' N'x' 'it''s' \"a\"\"b\" :b1 &&s 1e+5 a.b --c  \nx !~ <@> ->> e.s%type $1 :'v' $q$ a $$ b $q$ 1..2 "
        "E'\\'' # note\n\\echo a \\quit\nprompt x; \n/\n");
    std::vector<std::string> texts;
    for (const auto& t : tokens) texts.emplace_back(t.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"q'{a'b}'", "N'x'", "'it''s'", "\"a\"\"b\"", ":b1", "&&s", "1e+5", "a", ".",
                                               "b", "--c", "x", "!~", "<@>", "->>", "e", ".", "s%type", "$1", ":'v'",
                                               "$q$ a $$ b $q$", "1", "..", "2", "E'\\''", "# note", "\\echo a \\quit",
                                               "prompt x;", "/"}));
    EXPECT_TRUE(tokens[11].ownLine);
    EXPECT_FALSE(tokens[1].ownLine);
    EXPECT_EQ(tokens.back().kind, CSQLFormatter::TokenKind::Client);
    EXPECT_FALSE(CSQLFormatter::Tokenize("'open").front().terminated);
    EXPECT_FALSE(CSQLFormatter::Tokenize("$x$ open").front().terminated);

    // DELIMITER chooses what ends a statement, until it is set back.
    const auto mysql = CSQLFormatter::Tokenize("delimiter //\nselect 1; //\ndelimiter ;\nselect 2;");
    ASSERT_EQ(mysql.size(), 9u);
    EXPECT_EQ(mysql[4].kind, CSQLFormatter::TokenKind::Semicolon);
    EXPECT_EQ(mysql[4].text, "//");
    EXPECT_EQ(mysql[5].kind, CSQLFormatter::TokenKind::Client);
}
