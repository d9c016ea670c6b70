#include <gtest/gtest.h>

#include <cstring>

#include "CString.h"

// Each row: what an operation gave and what it must give; indexes out of range stay in bounds.
TEST(CString, OperationsStayInBoundsAndKeepUtf8Intact) {
    const char raw[] = {'a', '\0', 'b'};
    const CString s("select * from t -- note");
    CString replaced("a--b--c"), lower("Straße ABC"), upper("Straße abc");
    const int replacements = replaced.Replace("--", "+") + replaced.Replace("", "x");
    lower.MakeLower();
    upper.MakeUpper();
    CString formatted, wide;
    formatted.Format("%s=%d;%*c", "n", 42, 3, 'x');
    wide.Format("%s", std::string(5000, 'q').c_str());
    const struct { int got, expected; } numbers[] = {
        {CString(raw).GetLength(), 1}, {CString(raw, 3).GetLength(), 3},
        {CString(static_cast<const char*>(nullptr)).GetLength(), 0},
        {s.Find("--"), 16}, {s.Find('x'), -1}, {s.Find("t", 100), -1}, {s.ReverseFind(' '), 18},
        {s.FindOneOf("*-"), 7}, {s.GetAt(1000), 0}, {replacements, 2}, {wide.GetLength(), 5000},
        {CString("abc").CompareNoCase("ABD"), -1}, {CString("abc").CompareNoCase("ABC"), 0},
    };
    for (size_t i = 0; i < std::size(numbers); ++i) EXPECT_EQ(numbers[i].got, numbers[i].expected) << i;
    const struct { CString got; const char* expected; } texts[] = {
        {s.Left(6), "select"}, {s.Mid(100), ""}, {s.Mid(-3, 2), "se"}, {s.Mid(20, 100), "ote"},
        {s.Right(4), "note"}, {s.Right(100), "select * from t -- note"}, {replaced, "a+b+c"},
        {CString("  (x)  ").Trim(), "(x)"}, {CString("  (x)  ").Trim(" ()"), "x"},
        {CString("   ").TrimLeft(), ""}, {lower, "straße abc"}, {upper, "STRAßE ABC"},
        {formatted, "n=42;  x"},
    };
    for (const auto& t : texts) EXPECT_EQ(t.got, t.expected);
}

TEST(CString, BuffersAndArrays) {
    CString s;
    std::memcpy(s.GetBuffer(10), "z", 2);
    s.ReleaseBuffer();
    EXPECT_EQ(s, "z");
    std::memcpy(s.GetBuffer(8), "abcdefgh", 8);
    s.ReleaseBuffer(4);
    EXPECT_EQ(s, "abcd");

    CStringArray a;
    a.SetAtGrow(2, "c");
    EXPECT_EQ(a.GetSize(), 3);
    EXPECT_EQ(a[0], "");
    a.RemoveAt(1, 10);
    EXPECT_EQ(a.GetSize(), 1);
    a.RemoveAt(5);
    a.InsertAt(9, "z");
    EXPECT_EQ(a[1], "z");
}
