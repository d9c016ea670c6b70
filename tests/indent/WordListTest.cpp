// Word lists: splitting, exact and abbreviated membership with the "^" prefix rule, and prefix lookups.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>

#include "WordList.h"

namespace {
std::string nearestWords(WordList& wl, const char* prefix, bool ignoreCase, char separator = '\0',
                         bool sameLength = false) {
    const std::unique_ptr<char[]> words(
        wl.GetNearestWords(prefix, int(std::strlen(prefix)), ignoreCase, separator, sameLength));
    return words ? std::string(words.get()) : std::string("<null>");
}
}  // namespace

TEST(WordList, SplittingKeepsEveryWordAndALookupSorts) {
    WordList wl;
    EXPECT_FALSE(wl.InList("a"));
    wl.Set("  b a\tc\r\n\r\nb  ");
    ASSERT_EQ(wl.Length(), 4);  // duplicates stay
    EXPECT_STREQ(wl[0], "b");
    EXPECT_TRUE(wl.InList("a"));
    EXPECT_STREQ(wl[0], "a");

    WordList lines(true);
    lines.Set("select all\r\nfrom t\nwhere");
    EXPECT_EQ(lines.Length(), 3);
    EXPECT_TRUE(lines.InList("select all"));
    EXPECT_FALSE(lines.InList("select"));

    wl.Set("");
    EXPECT_FALSE(wl);
    EXPECT_FALSE(wl.InList(""));
    EXPECT_FALSE(wl.InList(nullptr));
}

TEST(WordList, MembershipIsExactExceptForPrefixWordsAndAbbreviations) {
    WordList wl;
    wl.Set("sel \xea\xb0\x80 ^ab ^SYS x def~ine e~nd");
    // "\xea\xb0\x80" is a word beginning above 0x7F.
    for (auto [word, in] : {std::pair{"sel", true}, {"sele", false}, {"Sel", false}, {"\xea\xb0\x80", true},
                            {"ab", true}, {"SYSDATE", true}, {"a", false}, {"", false}, {"xy", false}})
        EXPECT_EQ(wl.InList(word), in) << word;
    // "e": the marker right behind the first byte; a NUL marker marks nothing.
    for (auto [word, marker, in] : {std::tuple{"de", '~', false}, {"def", '~', true}, {"define", '~', true},
                                    {"defx", '~', false}, {"defines", '~', false}, {"e", '~', true},
                                    {"abc", '~', true}, {"def", '\0', false}})
        EXPECT_EQ(wl.InListAbbreviated(word, marker), in) << word;

    WordList all;
    all.Set("^ y");
    EXPECT_TRUE(all.InList("anything"));
}

TEST(WordList, TheNearestWordSkipsLongerWordsAndCountsCandidates) {
    WordList wl;
    wl.Set("selection select");
    EXPECT_STREQ(wl.GetNearestWord("sel", 3, false), "select");
    EXPECT_STREQ(wl.GetNearestWord("sel", 3, false, SString(), 1), "selection");
    EXPECT_EQ(wl.GetNearestWord("sel", 3, false, SString(), 2), nullptr);
    EXPECT_EQ(wl.GetNearestWord("SEL", 3, false), nullptr);
    EXPECT_STREQ(wl.GetNearestWord("SEL", 3, true), "select");

    const SString letters("abcdefghijklmnopqrstuvwxyz");
    wl.Set("sel selection");
    EXPECT_STREQ(wl.GetNearestWord("sel", 3, false, letters), "sel");  // NUL is no word character
    EXPECT_EQ(wl.GetNearestWord("sel", 3, false, letters, 1), nullptr);
    EXPECT_STREQ(wl.GetNearestWord("selx", 3, false), "sel");  // only prefixLength bytes count
    EXPECT_EQ(wl.GetNearestWord("s", 9, false), nullptr);
    EXPECT_EQ(wl.GetNearestWord(nullptr, 3, false), nullptr);
}

TEST(WordList, NearestWordsAreCutAtTheirArguments) {
    WordList wl;
    wl.Set("SELECT(a) selected set sel(x) (x) from");
    EXPECT_EQ(nearestWords(wl, "sel", true), "sel SELECT selected");
    EXPECT_EQ(nearestWords(wl, "sel", false), "sel selected");
    EXPECT_EQ(nearestWords(wl, "sel", true, '\0', true), "sel");  // words as long as the prefix
    EXPECT_EQ(nearestWords(wl, "(", false), "(");
    EXPECT_EQ(nearestWords(wl, "x", true), "<null>");

    WordList lines(true);
    lines.Set("name:type  \nnames\nproc  (a, b)");
    EXPECT_EQ(nearestWords(lines, "na", false, ':'), "name names");
    EXPECT_EQ(nearestWords(lines, "pr", false), "proc");  // white space before "(" goes
}

TEST(WordList, CopiesAndRefillsAreIndependent) {
    WordList a;
    a.Set("beta alpha");
    EXPECT_TRUE(a.InList("alpha"));
    WordList b(a);
    WordList c;
    c = a;
    a.Clear();
    EXPECT_FALSE(a);
    EXPECT_TRUE(b.InList("beta"));
    EXPECT_STREQ(c.GetNearestWord("al", 2, true), "alpha");

    char* text = a.Allocate(9);
    ASSERT_NE(text, nullptr);
    std::memcpy(text, "one\ntwo x", 9);
    a.SetFromAllocated();
    EXPECT_EQ(a.Length(), 3);
    EXPECT_TRUE(a.InList("two"));
    EXPECT_EQ(a.Allocate(-1), nullptr);
    EXPECT_FALSE(a);
}
