// SContainer, SBuffer and SString: shapes, growth, boundary edits, self sources, failed allocations.
// Ordinary edits are covered by the randomised comparison in SStringPropertyTest.cpp.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <new>
#include <string>

#include "SString.h"

// Fails every nothrow array allocation while failAllocations is set; otherwise defers to the
// ordinary operator new[] (and so to ASan's).
namespace { bool failAllocations = false; }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    if (failAllocations) return nullptr;
    try { return ::operator new[](size); } catch (...) { return nullptr; }
}

namespace {
constexpr unsigned int measure = SString::measureLength;
std::string text(const SString& s) { return std::string(s.c_str(), s.length()); }
}   // namespace

TEST(SBuffer, AllocatesAndHandsItsArrayOverUnmeasured) {
    char* copy = SContainer::StringAllocate("ab\0cd", 5);
    EXPECT_EQ(0, std::memcmp(copy, "ab\0cd", 6));   // NULs copied, one added
    delete[] copy;
    EXPECT_EQ(nullptr, SContainer::StringAllocate(nullptr, 3));
    EXPECT_EQ(0u, SBuffer(measure).size());
    SBuffer buf(5);
    std::memcpy(buf.ptr(), "ab\0de", 5);
    const SString s(buf);
    EXPECT_TRUE(buf.ptr() == nullptr && buf.size() == 0u);
    EXPECT_EQ(std::string("ab\0de", 5), text(s));   // sized, not measured
    EXPECT_EQ('\0', s.c_str()[5]);
}

TEST(SString, NullEmptyNumbersAndRanges) {
    const SString null;
    EXPECT_TRUE(null == SString() && null == static_cast<const char*>(nullptr) && null != "");
    EXPECT_TRUE(SString(static_cast<const char*>(nullptr)) == null && SString(null) == null);
    SString empty, appended, assigned("abc");
    empty = "";
    appended += "";
    EXPECT_TRUE(empty == "" && empty != null && appended == "" && SString(empty) == "");
    assigned = static_cast<const char*>(nullptr);   // keeps its array: allocated and empty
    EXPECT_TRUE(assigned == "" && assigned.size() == 3u);
    const struct { SString s; const char* expected; } rows[] = {
        {SString(-42), "-42"}, {SString(INT_MIN), "-2147483648"}, {SString(3.14159, 2), "3.14"},
        {SString("abcdef", 1, 4), "bcd"}, {SString("abcdef").substr(4, 100), "ef"}};
    for (const auto& r : rows) EXPECT_EQ(r.expected, text(r.s));
    EXPECT_EQ(31u, SString(1e300, 2).length());   // cut to the 32-byte area, not overrun
    EXPECT_TRUE(SString(nullptr, 0, 3) == SString());
    EXPECT_TRUE(SString("abcdef").substr(5, 0) == "" && SString("abcdef").substr(5, 0) != SString());
    EXPECT_TRUE(SString("abcdef").substr(6) == SString());
    EXPECT_TRUE(SString("42abc").value() == 42 && SString().value() == 0);
}

TEST(SString, ReadingAndEditingAtTheBoundaries) {
    SString s("abcd");
    EXPECT_EQ('\0', s[4]);   // length == bufferSize
    s = "ab";                // reuses the 4-byte array: "ab\0d"; the bound is the array, not the text
    EXPECT_EQ(std::string("\0d\0", 3), std::string({s[2], s[3], s[4]}));
    EXPECT_TRUE(!s.contains('\0') && s.contains("") && !SString("").contains(""));
    EXPECT_EQ(-1, s.search("", 2));
    EXPECT_TRUE(SString().startswith("") && !s.startswith("abc") && !s.endswith("xab"));

    for (const auto& [pos, len, left] : {std::tuple{1u, 2u, "ad"}, {2u, 0u, "ab"}, {1u, 3u, "a"}}) {
        SString cut("abcd");  // a zero length, or a range past the end, cuts the rest
        cut.remove(pos, len);
        EXPECT_EQ(left, text(cut)) << pos << "," << len;
    }
    SString c("séLect ÄÖ @[`{ from");   // UTF-8 and non-letters untouched; 3 bytes are 's' and 'é'
    c.uppercase().lowercase(0, 3).lowercase(c.length() - 2, 100).uppercase(99);
    EXPECT_EQ("séLECT ÄÖ @[`{ FRom", text(c));
}

TEST(SString, Substitute) {
    SString s("a.b.c");
    EXPECT_EQ(0, s.substitute('\0', 'x'));
    EXPECT_EQ(0, SString().substitute('a', 'b'));
    // Never rescans the replacement; "" matches at 0 and the zero-length removal cuts all.
    const struct { const char *before, *find, *replace; int count; const char* after; } rows[] = {
        {"xaxax", "x", "xx", 3, "xxaxxaxx"}, {"text", "", "new", 1, "new"}, {"", "", "y", 0, ""}};
    for (const auto& r : rows) {
        SString t(r.before);
        EXPECT_EQ(r.count, t.substitute(r.find, r.replace)) << r.before;
        EXPECT_EQ(r.after, text(t));
    }
}

TEST(SString, GrowthAddsRoomInProportionAndAssignReusesTheArray) {
    SString s;
    s += std::string(1000, 'x').c_str();
    EXPECT_EQ(1256u, s.size());   // the room doubled from 64 to 256
    SString reuse("abcd");
    const char* array = reuse.c_str();
    reuse = "wxyz";   // assign fills the same array exactly ...
    EXPECT_EQ(array, reuse.c_str());
    reuse.clear();
    reuse += "wxyz";   // ... an append of as much grows it
    EXPECT_EQ(68u, reuse.size());
    SString built;
    int reallocations = 0;
    for (int i = 0; i < 100000; ++i) {
        const unsigned int before = built.size();
        built += 'q';
        reallocations += built.size() != before;
    }
    EXPECT_EQ(100000u, built.length());
    EXPECT_LT(reallocations, 40);   // 31 with the doubling room; a fixed 64 would take 1563
}

TEST(SString, SourcesInsideTheOwnArrayAndDetach) {
    SString s("abc");
    s += s;   // grows: the source must survive the reallocation
    s.append(s.c_str() + 1, 2, '-');
    s.insert(1, s.c_str(), 3);   // no growth, but the source moves with the tail
    EXPECT_EQ("aabcbcabc-bc", text(s));
    SString exact("xyz");   // no spare room: the insertion grows
    exact.insert(1, exact.c_str());
    EXPECT_EQ("xxyzyz", text(exact));
    s = s.c_str() + 3;
    EXPECT_EQ(3, s.substitute(s.c_str() + 7, "X"));   // pattern "bc" taken from the text
    EXPECT_EQ("cXaX-X", text(s));
    SString owned("owned");
    char* p = owned.detach();
    EXPECT_TRUE(owned == SString());
    EXPECT_STREQ("owned", p);
    delete[] p;   // ASan checks it was allocated with new[]
}

TEST(SString, AllocationFailureChangesNothing) {
    SString s("abc");   // exact size: any further text needs a growth
    SString t("ab");
    failAllocations = true;
    s.append("more").insert(0, "more");
    s += 'x';
    const int substituted = s.substitute("b", "bbbb");
    t = "longer";
    const bool nulls = t == SString() && SString("abc") == SString() && SBuffer(8).size() == 0u;
    failAllocations = false;
    EXPECT_EQ(0, substituted);
    EXPECT_TRUE(nulls);
    EXPECT_EQ("abc", text(s));
    EXPECT_EQ(3u, s.size());
}

TEST(SString, GetUTF8Length) {
    EXPECT_EQ(0u, SString::GetUTF8Length(u"abc", 0));
    EXPECT_EQ(2u, SString::GetUTF8Length(u"ab\0cd", 5));   // stops at the NUL unit
    EXPECT_EQ(1u + 2 + 3 + 4, SString::GetUTF8Length(u"aé€\U0001F600", measure));
    const char16_t lone[] = {u'a', char16_t(0xD83D)};   // exactly count units: ASan sees overreads
    EXPECT_EQ(5u, SString::GetUTF8Length(lone, 2));
}
