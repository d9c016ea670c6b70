// Copy then paste in one language, over generated and real statements: what comes back is the
// normal form that PasteFromCode.h describes, and a text in normal form survives another round
// unchanged (behind the builder's declaration for Java and C#).
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "CaseFiles.h"
#include "CodeLanguages.h"
#include "CopyAsCode.h"
#include "LanguageTags.h"
#include "PasteFromCode.h"

namespace {

bool numbers(int language) { return language == LangPerl || language == LangPHP; }
bool builds(int language) { return language == LangJava || language == LangCs; }

std::string header(int language) {
    if (!builds(language)) return "";
    return language == LangJava ? "StringBuffer strSQL = new StringBuffer();\r\n"
                                : "StringBuilder SB = new StringBuilder();\r\n";
}

std::string roundTrip(int language, const std::string& sql) {
    CString back;
    EXPECT_TRUE(PasteFromCode(language, MakeCode(language, sql), back));
    return back.str();
}

// A second round over a result in normal form gives that result again.
void expectStable(int language, const std::string& back) {
    ASSERT_EQ(back.rfind(header(language), 0), 0u);
    const std::string text = back.substr(header(language).size());
    if (text.ends_with(" \r\n")) {
        EXPECT_EQ(roundTrip(language, text), back) << text;
    }
}

// Generated SQL and, for each language, what copy then paste give back. The SQL is lines of
// tokens: binds, placeholders and text that no round trip changes. Literals and comments close
// on their own line, except a block comment opened at the end of a line, whose next line the
// scanners read as code; so a bind there is rewritten.
struct Generated {
    std::string sql, back[9];
};

Generated generate(std::mt19937& rng) {
    auto below = [&](size_t n) { return size_t(rng() % n); };
    auto pick = [&](const auto& list) { return std::string(list[below(std::size(list))]); };
    static const char* const plain[] = {"select", "t.col", "Größe", "名前", "x := 1", "a-b", "=", "(", ",",
                                        "'it''s'", "'a :x ? -- /*'", "\"col ?\"", "'😀 &x'", "'C:\\temp\\'",
                                        "'~\"q\"~'", "/* :x ? ' */"};
    static const char* const binds[] = {":key", "&amp", ":rec.field", ":arr[2]", ":p->x", ": gap", ":名前", ":a#1"};
    static const char* const lineEnds[] = {"\r\n", "\n", "\r"};
    static const char* const blanks[] = {"", " ", "\t", "  \t "};
    static const char* const terminators[] = {"", ";", " ;", " /", ";;", "; /"};

    Generated g;
    int counter[9] = {};
    auto emit = [&](const std::string& text, char kind) {   // kind: 'b' bind, '?' placeholder, ' ' other
        g.sql += text;
        for (int l = 0; l < 9; ++l) {
            if (kind == 'b' && numbers(l))
                g.back[l] += text.substr(0, text.find_first_of(":&")) + ":" + std::to_string(++counter[l]);
            else if (kind != ' ' && builds(l))
                g.back[l] += text.substr(0, text.find_first_of(":&?")) + ":Bind" + std::to_string(++counter[l]);
            else
                g.back[l] += text;
        }
    };
    for (int l = 0; l < 9; ++l) g.back[l] = header(l);
    const std::string terminator = pick(terminators);
    const bool lastLineEndsRange = below(2);   // no line end follows the last line with text
    bool commentOpen = false;
    for (size_t lines = 1 + below(5); lines-- > 0;) {
        for (size_t n = below(3) ? 0 : below(3); n-- > 0;) g.sql += pick(blanks) + pick(lineEnds);
        std::string gap = below(3) ? "" : pick(blanks), token;   // the first gap indents
        if (commentOpen) emit(gap + pick(binds), 'b'), emit(" more */", ' '), gap.assign(1, ' ');
        for (size_t k = 1 + below(5); k-- > 0; gap.assign(1, ' ')) {
            const size_t kind = below(20);
            token = kind < 12 ? pick(plain) : kind < 17 ? pick(binds) : "?";
            emit(gap + token, kind < 12 ? ' ' : kind < 17 ? 'b' : '?');
        }
        if (token.ends_with('/')) emit(" z", ' ');   // the line has no statement end of its own
        if ((commentOpen = below(8) == 0))
            emit(" /* open :x ? '", ' ');
        else if (below(6) == 0)
            emit(" -- note :x ? 'q", ' ');
        g.sql += (lines ? "" : terminator) + pick(blanks);
        if (lines || !lastLineEndsRange) g.sql += pick(lineEnds);
        for (std::string& back : g.back) back += (lines || lastLineEndsRange ? "" : terminator) + " \r\n";
    }
    if (!lastLineEndsRange && below(2)) g.sql += pick(blanks) + (below(2) ? pick(lineEnds) : "");
    for (int l = 0; l < 9; ++l) {
        std::string& back = g.back[l];
        if (g.sql.find_first_of("\r\n") == std::string::npos && !builds(l)) back.erase(back.size() - 3, 1);
        // Paste drops a final ';' with the white space around it.
        for (size_t end; (end = back.find_last_not_of(" \t\r\n")) != std::string::npos && back[end] == ';';)
            back.resize(back.find_last_not_of(" \t\r\n", end - 1) + 1);
    }
    return g;
}

}  // namespace

TEST(RoundTrip, GeneratedStatementsComeBackInNormalFormAndStayThere) {
    std::mt19937 rng(20240612);
    for (int round = 0; round < 500; ++round) {
        const Generated g = generate(rng);
        for (const CodeLanguage& language : CodeLanguages()) {
            const std::string back = roundTrip(language.code, g.sql);
            ASSERT_EQ(back, g.back[language.code]) << language.storedName << ", round " << round << ":\n" << g.sql;
            expectStable(language.code, back);
        }
    }
}

// Real statements: each case is <name>.sql with what copy then paste give back in
// <name>.<language>, for every language.
TEST(RoundTrip, RealStatements) {
    int checked = 0;
    for (const auto& input : CaseFiles("sqlcode/roundtrip", ".sql")) {
        for (const auto& [tag, language] : kLanguageTags) {
            const auto expected = std::filesystem::path(input).replace_extension(tag);
            const std::string back = roundTrip(language, ReadCase(input));
            EXPECT_EQ(back, ReadCase(expected)) << expected.filename();
            expectStable(language, back);
            ++checked;
        }
    }
    EXPECT_EQ(checked, 18);
}
