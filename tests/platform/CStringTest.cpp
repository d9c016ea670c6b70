#include <gtest/gtest.h>

#include <cstring>

#include "CString.h"

TEST(CString, BytesStopAtNulOnlyWhenReadAsACText) {
    const char raw[] = {'a', '\0', 'b'};
    EXPECT_EQ(CString(raw).GetLength(), 1);
    EXPECT_EQ(CString(raw, 3).GetLength(), 3);
    EXPECT_EQ(CString(static_cast<const char*>(nullptr)).GetLength(), 0);
}

TEST(CString, SearchingAndSlicingStayInBounds) {
    CString s("select * from t -- note");
    EXPECT_EQ(s.Find("--"), 16);
    EXPECT_EQ(s.Find('x'), -1);
    EXPECT_EQ(s.Find("t", 100), -1);
    EXPECT_EQ(s.ReverseFind(' '), 18);
    EXPECT_EQ(s.FindOneOf("*-"), 7);
    EXPECT_EQ(s.Left(6), "select");
    EXPECT_EQ(s.Mid(100), "");
    EXPECT_EQ(s.Mid(-3, 2), "se");
    EXPECT_EQ(s.Mid(20, 100), "ote");
    EXPECT_EQ(s.Right(4), "note");
    EXPECT_EQ(s.Right(100), s);
    EXPECT_EQ(s.GetAt(1000), '\0');
}

TEST(CString, EditingOperations) {
    CString s("a--b--c");
    EXPECT_EQ(s.Replace("--", "+"), 2);
    EXPECT_EQ(s, "a+b+c");
    EXPECT_EQ(s.Replace("", "x"), 0);
    CString t("  (x)  ");
    EXPECT_EQ(CString(t).Trim(), "(x)");
    EXPECT_EQ(CString(t).Trim(" ()"), "x");
    EXPECT_EQ(CString("   ").TrimLeft(), "");
    CString u("Straße ABC");
    u.MakeLower();
    EXPECT_EQ(u, "straße abc");  // only ASCII letters change, UTF-8 bytes stay intact
    u.MakeUpper();
    EXPECT_EQ(u, "STRAßE ABC");
    EXPECT_EQ(CString("abc").CompareNoCase("ABD"), -1);
    EXPECT_EQ(CString("abc").CompareNoCase("ABC"), 0);
}

TEST(CString, FormatAndBuffers) {
    CString s;
    s.Format("%s=%d;%*c", "n", 42, 3, 'x');
    EXPECT_EQ(s, "n=42;  x");
    std::string big(5000, 'q');
    s.Format("%s", big.c_str());
    EXPECT_EQ(s.GetLength(), 5000);
    char* p = s.GetBuffer(10);
    p[0] = 'z';
    p[1] = '\0';
    s.ReleaseBuffer();
    EXPECT_EQ(s, "z");
    p = s.GetBuffer(8);
    std::memcpy(p, "abcdefgh", 8);
    s.ReleaseBuffer(4);
    EXPECT_EQ(s, "abcd");
}

TEST(CStringArray, GrowsAndRemovesSafely) {
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
