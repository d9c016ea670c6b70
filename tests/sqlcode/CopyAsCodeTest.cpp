// Copy as code: the language table, and each language's code for the SQL of the case files.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CaseFiles.h"
#include "CodeLanguages.h"
#include "CopyAsCode.h"
#include "LanguageTags.h"

namespace {

std::string crlf(const std::vector<const char*>& lines) {
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i) text += std::string(i ? "\r\n" : "") + lines[i];
    return text;
}

std::string code(int language, const CString& sql) { return MakeCode(language, sql).str(); }

}  // namespace

TEST(CodeLanguages, StoredNamesMatchExactlyInMenuOrder) {
    std::string names;
    for (const CodeLanguage& language : CodeLanguages()) {
        names += std::string(language.storedName) + "|";
        EM_LangCode code = LangVb;
        EXPECT_TRUE(LangCodeFromStoredName(language.storedName, code));
        EXPECT_EQ(code, language.code);
        EXPECT_EQ(FindCodeLanguageByCommand(language.pasteMenuId), &language);
    }
    EXPECT_EQ(names, "Visual Basic|Visual C/C++|C/C++|C#|PowerBuilder|Delphi|Java|Perl|PHP|");
    EM_LangCode code = LangPerl;
    for (const CString& stranger : {CString("c#"), CString("Java "), CString(), CString("C#\0", 3)})
        EXPECT_FALSE(LangCodeFromStoredName(stranger, code));
    EXPECT_EQ(code, LangPerl);
    EXPECT_EQ(PasteCodePrompt(LangMfc), "Select MFC Code to paste SQL from clipboard\nMFC Code");
}

// Each case is <name>.sql with what copy as code makes of it in <name>.<language>, for the
// languages the case speaks to: pieces, statement ends, escapes and binds.
TEST(CopyAsCode, CaseFiles) {
    int checked = 0;
    for (const auto& input : CaseFiles("sqlcode/copy", ".sql")) {
        for (const auto& [tag, language] : kLanguageTags) {
            const auto expected = std::filesystem::path(input).replace_extension(tag);
            if (!std::filesystem::exists(expected)) continue;
            EXPECT_EQ(code(language, ReadCase(input)), ReadCase(expected)) << expected.filename();
            ++checked;
        }
    }
    EXPECT_GT(checked, 0);
    EXPECT_EQ(code(9, "select 1"), "");   // no such language
}

TEST(CopyAsCode, GeneralTemplateParameters) {
    EXPECT_EQ(CopyToLanguageCodeEx2("a\r\nb", "v", "'", "[", "]", "'", "", "", "", " := ", true).str(),
              crlf({"v := ['a '] ", "    ['b ']"}));
    EXPECT_EQ(CopyToLanguageCode("a\nb", "", "\"", "\"", "", "", "").str(), crlf({R"( = "a " )", R"(    "b ")"}));
}
