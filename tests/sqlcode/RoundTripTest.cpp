// Copy then paste in one language: what comes back is the normal form that PasteFromCode.h
// describes, and a text in normal form survives another round unchanged (behind the builder's
// declaration for Java and C#).
#include <gtest/gtest.h>

#include <string>

#include "CaseFiles.h"
#include "CodeLanguages.h"
#include "CopyAsCode.h"
#include "LanguageTags.h"
#include "PasteFromCode.h"

namespace {

std::string header(int language) {
    if (language == LangJava) return "StringBuffer strSQL = new StringBuffer();\r\n";
    return language == LangCs ? "StringBuilder SB = new StringBuilder();\r\n" : "";
}

std::string roundTrip(int language, const std::string& sql) {
    CString back;
    EXPECT_TRUE(PasteFromCode(language, MakeCode(language, sql), back));
    return back.str();
}

}  // namespace

// Each case is <name>.sql with what copy then paste give back in <name>.<language>, for every
// language: real statements, and mixed-* lines of binds, placeholders, literals, comments (one
// left open at a line's end, whose next line the scanners read as code), line ends of every
// kind, blank lines and statement ends.
TEST(RoundTrip, CaseFilesComeBackInNormalFormAndStayThere) {
    int checked = 0;
    for (const auto& input : CaseFiles("sqlcode/roundtrip", ".sql")) {
        for (const auto& [tag, language] : kLanguageTags) {
            const auto expected = std::filesystem::path(input).replace_extension(tag);
            const std::string back = roundTrip(language, ReadCase(input));
            ASSERT_EQ(back, ReadCase(expected)) << expected.filename();
            ASSERT_EQ(back.rfind(header(language), 0), 0u);
            const std::string text = back.substr(header(language).size());
            if (text.ends_with(" \r\n")) {
                EXPECT_EQ(roundTrip(language, text), back) << expected.filename();
            }
            ++checked;
        }
    }
    EXPECT_GE(checked, 63);
}
