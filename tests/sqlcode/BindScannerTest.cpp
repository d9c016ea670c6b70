// The bind scanners: what makes a bind, what hides one, and where a scan may start.
#include <gtest/gtest.h>

#include <string>

#include "BindScanner.h"

namespace {

// The first named bind at or after `from` as its text, or "-" when there is none; a failed scan
// must leave both indexes alone.
std::string bindAt(const CString& text, int from = 0) {
    int start = from, end = -1;
    if (!FindBindPosition(text, start, end)) {
        EXPECT_TRUE(start == from && end == -1);
        return "-";
    }
    EXPECT_TRUE(start < end && end <= text.GetLength());
    return text.Mid(start, end - start).str();
}

int placeholderAt(const CString& text, int from = 0) {
    int position = from;
    return FindBindReplacePosition(text, position) ? position : -1;
}

}  // namespace

// A name runs over UTF-8 letters; a byte that starts no complete UTF-8 sequence ends it.
TEST(BindScanner, NamedBindRunsToTheEndOfItsName) {
    EXPECT_EQ(bindAt("where a = :b"), ":b");
    EXPECT_EQ(bindAt("where a = : b and"), ": b");
    EXPECT_EQ(bindAt("x :  \t\r\n"), ":  \t\r\n");
    for (const char* name : {":rec.field", ":arr[2]", ":p->x", ":a#1", ":a$b", "&v_1", ":名前", ":x😀y", ":a->"})
        EXPECT_EQ(bindAt(CString(name) + ",x"), name);
    EXPECT_EQ(bindAt(":a-b"), ":a");
    EXPECT_EQ(bindAt("::int"), ":");
    EXPECT_EQ(bindAt("&&x"), "&");
    EXPECT_EQ(bindAt("a & "), "& ");
    EXPECT_EQ(bindAt(":caf\xC3\xA9 x"), ":caf\xC3\xA9");
    for (const char* text : {":a\xE9x", ":a\xE4\xB8", ":a\xE4\xB8x", ":a\xC0\x80", ":a\xED\xA0\x80"})
        EXPECT_EQ(bindAt(text), ":a") << text;
}

TEST(BindScanner, LiteralsCommentsAndAssignmentsHideBinds) {
    for (const char* text : {"x := 1", "a :", "a&", "select ':a' from t", "'unclosed :a", "/* unclosed :a",
                             "\"x :a", "-- :a", "/*/ :a", ""})
        EXPECT_EQ(bindAt(text), "-") << text;
    for (const char* text : {"select ':a', :b from t", "-- :a\n:b", "/* :a */ :b", "/*/ :a */ :b", "a-b :b",
                             "'it''s :x' \"q\"\":y\" :b"})
        EXPECT_EQ(bindAt(text), ":b") << text;
}

TEST(BindScanner, ScanStartsWhereTheCallerSays) {
    const CString text = "a = :x and b = :y";
    EXPECT_EQ(bindAt(text, 5), ":y");
    EXPECT_EQ(bindAt(text, 16), "-");
    for (int from : {-1, text.GetLength(), text.GetLength() + 1}) EXPECT_EQ(bindAt(text, from), "-");
    EXPECT_EQ(bindAt("x' :a ' :b", 2), ":a");   // a scan does not know the quote before it
    const CString nul("a :x\0 :y", 8);           // the text ends at its first NUL
    EXPECT_EQ(bindAt(nul), ":x");
    EXPECT_EQ(bindAt(nul, 5), "-");
}

TEST(BindScanner, PlaceholderOutsideLiteralsAndComments) {
    EXPECT_EQ(placeholderAt("? '?' ?"), 0);
    EXPECT_EQ(placeholderAt("? '?' ?", 1), 6);
    EXPECT_EQ(placeholderAt("/* ? */ \"?\" -- ?\n?"), 17);
    for (const char* text : {"-- ?", "'? ?", "/* ?"}) EXPECT_EQ(placeholderAt(text), -1);
    EXPECT_EQ(placeholderAt("a ?", 4), -1);
    EXPECT_EQ(placeholderAt("a ?", -3), -1);
    EXPECT_EQ(placeholderAt(CString("a\0?", 3)), -1);
}
