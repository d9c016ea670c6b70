// Paste from code: which part of each line is kept, how escapes and placeholders come back, and
// what the three routines make of text that is not quite code.
#include <gtest/gtest.h>

#include "CodeLanguages.h"
#include "CopyAsCode.h"
#include "PasteFromCode.h"

TEST(PasteFromCode, WorkedExampleFromJava) {
    const CString java = MakeCode(LangJava, "select 'it' as x, \"b\" as y\r\n  from t\r\n where k = :key;");
    CString sql;
    ASSERT_TRUE(PasteFromCode(LangJava, java, sql));
    EXPECT_EQ(sql, "StringBuffer strSQL = new StringBuffer();\r\n"
                   "select 'it' as x, \"b\" as y \r\n  from t \r\n where k = :Bind1 \r\n");
    EXPECT_FALSE(PasteFromCode(9, "\"x\"", sql));
    EXPECT_FALSE(PasteFromCode(-1, "\"x\"", sql));
}

TEST(PasteFromCode, LinesKeepWhatTheirOuterQuotesHold) {
    const struct { EM_LangCode language; CString code; const char* sql; } cases[] = {
        // Escape pairs of the quote that the line opens with come back as the quote.
        {LangVb, R"(SQL = "a ""b""")", "a \"b\"\r\n"},
        {LangDelphi, "x := 'it''s';", "it's\r\n"},
        {LangPb, R"(SQL = "a ~"b~" " &)", "a \"b\" \r\n"},
        {LangDelphi, R"(s := "a 'b' c" + 'd';)", "a 'b' c\r\n"},
        {LangVb, "where a = 'x' and b = 'y'", "x' and b = 'y\r\n"},
        // Lines without a pair of quotes pass as they came; blank lines go; the text ends at a NUL.
        {LangVb, "' first part\n\"\r\nSQL = \"x\"\r\n", "' first part\n\"\r\nx\r\n"},
        {LangVb, "\"\"", "\r\n"},
        {LangVb, "  \r\n\n\t \r\n", ""},
        {LangVb, CString("\"a\"\0\"b\"", 7), "a\r\n"},
        // A final ';' goes with the white space and line end around it.
        {LangC, R"(pszSQL = "select 1;" ;)", "select 1"},
        {LangVb, "\"a;\"\n\"b ; ;  \"\n\n", "a;\r\nb"},
        {LangVb, "\"a;\"\n\"b /\"", "a;\r\nb /\r\n"},
        {LangVb, "x;\n", "x"},
        // The C family reads literals continued by a backslash at the end of a line.
        {LangC, R"(pszSQL = "a \"b\" c" ;)", "a \"b\" c\r\n"},
        {LangC, "s = \"select a, \\\n  from t\\\n  where c\";", "select a, \r\n  from t\r\n  where c\r\n"},
        {LangMfc, "s = _T(\"select a, \\\n  where c\")", "select a, \r\n  where c\r\n"},
        {LangC, "a\\b\nx \"y;", "a\r\ny"},   // outside a continued literal the text behind a lone quote stays
        {LangC, "\\\n\"\n'", "\r\n\r\n'\r\n"},
        // Java and C# number the placeholders outside literals and comments over the whole paste.
        {LangCs, "SB.AppendLine(\"a = '?' and b = ? -- ?\");\nSB.AppendLine(\"/* ? */ c = ?,?\");",
         "a = '?' and b = :Bind1 -- ?\r\n/* ? */ c = :Bind2,:Bind3\r\n"},
        {LangJava, R"(s.append("x = \"?\" ? '");)", "x = \"?\" :Bind1 '\r\n"},
        {LangPerl, "'a = ?'", "a = ?\r\n"},
    };
    for (const auto& c : cases) {
        CString sql;
        EXPECT_TRUE(PasteFromCode(c.language, c.code, sql));
        EXPECT_EQ(sql, c.sql) << c.code.str();
    }
}
