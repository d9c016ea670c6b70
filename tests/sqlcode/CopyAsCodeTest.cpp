// Copy as code: the language table, each language's template byte for byte, and the rules for
// pieces, statement ends, escapes and binds.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CodeLanguages.h"
#include "CopyAsCode.h"

namespace {

std::string crlf(const std::vector<const char*>& lines) {
    std::string text;
    for (size_t i = 0; i < lines.size(); ++i) text += std::string(i ? "\r\n" : "") + lines[i];
    return text;
}

std::string code(int language, const CString& sql) { return MakeCode(language, sql).str(); }

const char* const kExample = "select 'it' as x, \"b\" as y\r\n  from t\r\n where k = :key;";

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

TEST(CopyAsCode, WorkedExampleInEveryLanguage) {
    const struct { EM_LangCode language; std::vector<const char*> lines; } cases[] = {
        {LangVb, {R"(SQL = "select 'it' as x, ""b"" as y " )", R"(SQL = SQL +  "  from t " )",
                  R"(SQL = SQL +  " where k = :key ")"}},
        {LangMfc, {R"(CString sQuery = _T("select 'it' as x, \"b\" as y ") )",
                   R"(                 _T("  from t ") )", R"(                 _T(" where k = :key ") ;)"}},
        {LangC, {R"(pszSQL = "select 'it' as x, \"b\" as y " )", R"(         "  from t " )",
                 R"(         " where k = :key " ;)"}},
        {LangCs, {"StringBuilder SB = new StringBuilder();", R"(SB.AppendLine("select 'it' as x, \"b\" as y ");)",
                  R"(SB.AppendLine("  from t ");)", R"(SB.AppendLine(" where k = ? ");)", ""}},
        {LangPb, {R"(SQL = "select 'it' as x, ~"b~" as y " &)", R"(    + "  from t " &)",
                  R"(    + " where k = :key ")"}},
        {LangDelphi, {R"(sSQL := 'select ''it'' as x, "b" as y ' )", R"(     + '  from t ' )",
                      R"(     + ' where k = :key ' ;)"}},
        {LangJava, {"StringBuffer strSQL = new StringBuffer();", R"(strSQL.append("select 'it' as x, \"b\" as y ");)",
                    R"(strSQL.append("  from t ");)", R"(strSQL.append(" where k = ? ");)", ""}},
        {LangPerl, {R"(my $stmt = 'select \'it\' as x, "b" as y ' )", R"(         . '  from t ' )",
                    R"(         . ' where k = :1 ' ;)"}},
        {LangPHP, {R"($query = "select 'it' as x, \"b\" as y " )", R"(       . "  from t " )",
                   R"(       . " where k = :1 " ;)"}},
    };
    for (const auto& c : cases) EXPECT_EQ(code(c.language, kExample), crlf(c.lines)) << c.language;
}

TEST(CopyAsCode, PiecesStatementEndsEscapesAndBinds) {
    const struct { int language; CString sql; std::vector<const char*> code; } cases[] = {
        // One piece has no blank before its closing delimiter; an empty one differs by template.
        {LangC, "select 1;", {R"(pszSQL = "select 1" ;)"}},
        {LangVb, "select 1;", {R"(SQL = "select 1")"}},
        {LangJava, "select 1;", {"StringBuffer strSQL = new StringBuffer();", R"(strSQL.append("select 1 ");)", ""}},
        {LangC, " ;/ ; ", {R"(pszSQL = "" ;)"}},
        {LangCs, ";/", {""}},
        {LangC, "\r\n  \n\t\r;", {""}},   // several lines that all drop out
        {9, "select 1", {""}},
        // The statement end goes only from the last line of the range; a lone CR ends a line.
        {LangC, "from t;\r\n", {R"(pszSQL = "from t; " ;)"}},
        {LangC, "select 1;\r\n/", {R"(pszSQL = "select 1; " ;)"}},
        {LangC, "a\r\rb\r", {R"(pszSQL = "a " )", R"(         "b " ;)"}},
        {LangC, CString("a\0\nb", 4), {R"(pszSQL = "a" ;)"}},
        // Only the language's own delimiter is escaped.
        {LangDelphi, "it's \"q\" a\\b\tc ~", {"sSQL := 'it''s \"q\" a\\b\tc ~' ;"}},
        {LangPerl, "it's \"q\" a\\b\tc ~", {"my $stmt = 'it\\'s \"q\" a\\b\tc ~' ;"}},
        {LangC, "it's \"q\" a\\b\tc ~", {"pszSQL = \"it's \\\"q\\\" a\\b\tc ~\" ;"}},
        {LangPb, "it's \"q\" a\\b\tc ~", {"SQL = \"it's ~\"q~\" a\\b\tc ~\""}},
        // Binds outside literals are numbered over the range or made placeholders, line by line.
        {LangPerl, "where a = ':x' and b = :y", {"my $stmt = 'where a = \\':x\\' and b = :1' ;"}},
        {LangPHP, "a = :x\r\n/* :c\r\n :d */ &e, x := 1, :",
         {R"($query = "a = :1 " )", R"(       . "/* :c " )", R"(       . " :2 */ :3, x := 1, : " ;)"}},
        {LangPerl, "a :\r\nb", {"my $stmt = 'a :1 ' ", "         . 'b ' ;"}},
        {LangJava, ":alpha,:beta", {"StringBuffer strSQL = new StringBuffer();", R"(strSQL.append("?,? ");)", ""}},
        {LangVb, "a = :x", {R"(SQL = "a = :x")"}},
    };
    for (const auto& c : cases) EXPECT_EQ(code(c.language, c.sql), crlf(c.code)) << c.sql.str();
}

TEST(CopyAsCode, GeneralTemplateParameters) {
    EXPECT_EQ(CopyToLanguageCodeEx2("a\r\nb", "v", "'", "[", "]", "'", "", "", "", " := ", true).str(),
              crlf({"v := ['a '] ", "    ['b ']"}));
    EXPECT_EQ(CopyToLanguageCode("a\nb", "", "\"", "\"", "", "", "").str(), crlf({R"( = "a " )", R"(    "b ")"}));
}
