// Paste from code: which part of each line is kept, how escapes and placeholders come back, and
// what the routines make of text that is not quite code.
#include <gtest/gtest.h>

#include "CaseFiles.h"
#include "PasteFromCode.h"
#include "LanguageTags.h"

// Each case is code in <name>.<language> with the SQL that pasting it gives in <name>.sql.
TEST(PasteFromCode, CaseFiles) {
    int checked = 0;
    for (const auto& [tag, language] : kLanguageTags) {
        for (const auto& code : CaseFiles("sqlcode/paste", tag)) {
            CString sql;
            EXPECT_TRUE(PasteFromCode(language, ReadCase(code), sql)) << code.filename();
            EXPECT_EQ(sql.str(), ReadCase(std::filesystem::path(code).replace_extension(".sql"))) << code.filename();
            ++checked;
        }
    }
    EXPECT_GT(checked, 0);
    CString sql;
    EXPECT_FALSE(PasteFromCode(9, "\"x\"", sql));
    EXPECT_FALSE(PasteFromCode(-1, "\"x\"", sql));
}
