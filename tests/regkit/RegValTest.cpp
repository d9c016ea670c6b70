// The typed value record: which getters answer, their room rules, and the multi-string form.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CReg.h"

namespace {
using Strings = std::vector<std::string>;

// The getters that answer for a record: N number, S string, B binary, M multi-string. A getter
// that does not answer must leave its output alone; "!" marks one that did not.
std::string answering(const CRegVal& v) {
    unsigned long n = 7;
    char text[64] = "keep";
    CString s = "keep";
    unsigned char bytes[64] = {9};
    CStringArray list;
    list.Add("keep");
    std::string found;
    found += v.GetNumber(&n) ? "N" : n == 7 ? "" : "!";
    found += v.GetString(text, sizeof text) ? "S" : std::strcmp(text, "keep") == 0 ? "" : "!";
    found += v.GetString(s) ? "S" : s == "keep" ? "" : "!";
    found += v.GetBinary(bytes, sizeof bytes) ? "B" : bytes[0] == 9 ? "" : "!";
    found += v.GetStringArr(list) ? "M" : list.GetSize() == 1 ? "" : "!";
    return found;
}

// The strings of a multi-string record through each of its three getters, which must agree.
Strings split(const CRegVal& v) {
    CStringArray list;
    list.Add("stale");
    EXPECT_TRUE(v.GetStringArr(list));
    Strings strings;
    for (const CString& s : list) strings.emplace_back(s.c_str());
    char** fresh = nullptr;
    unsigned long count = 0;
    EXPECT_TRUE(v.GetNewStringArr(&fresh, &count));
    std::vector<char*> cells(count + 1, nullptr);
    if (count) {  // one slot too few: nothing is handed out
        EXPECT_FALSE(v.GetStringArr(cells.data(), count - 1));
        EXPECT_EQ(cells[0], nullptr);
    }
    EXPECT_TRUE(v.GetStringArr(cells.data(), count));
    for (unsigned long i = 0; i < count; ++i) {
        EXPECT_EQ(strings.at(i), fresh[i]);
        EXPECT_STREQ(fresh[i], cells[i]);
        std::free(fresh[i]);
        std::free(cells[i]);
    }
    std::free(fresh);
    return strings;
}
}  // namespace

TEST(RegVal, GettersAnswerOnlyForTheirTypesAndLeaveTheOutputAlone) {
    CRegVal empty, number, str, bin, multi, expand;
    ASSERT_TRUE(number.SetNumber(0x12345678));
    ASSERT_TRUE(str.SetString("abc"));
    unsigned char data[] = {0, 1, 2, 0, 255};
    ASSERT_TRUE(bin.SetBinary(data, sizeof data));
    const char* const two[] = {"alpha", "beta"};
    ASSERT_TRUE(multi.SetStringArr(two, 2));
    ASSERT_TRUE(expand.SetString("%HOME%"));
    expand.type = REG_EXPAND_SZ;
    const std::pair<const CRegVal*, const char*> rows[] = {
        {&empty, ""}, {&number, "N"}, {&str, "SS"}, {&bin, "B"}, {&multi, "SSM"}, {&expand, "SS"}};
    for (const auto& [v, expected] : rows) EXPECT_EQ(answering(*v), expected) << "type " << v->type;

    unsigned long n = 0;
    EXPECT_TRUE(number.GetNumber(&n));
    EXPECT_EQ(n, 0x12345678ul);
    EXPECT_EQ(str.size, 4u);  // with its zero
}

TEST(RegVal, CopiesNeedRoomForTheBytesAndAStringsClosingZero) {
    CRegVal str, bin;
    ASSERT_TRUE(str.SetString("abc"));
    char text[8];
    std::memset(text, 'x', sizeof text);
    EXPECT_FALSE(str.GetString(text, 4));  // equal to size: no room for the zero
    EXPECT_EQ(text[0], 'x');
    EXPECT_TRUE(str.GetString(text, 5));
    EXPECT_STREQ(text, "abc");
    CString s;
    EXPECT_TRUE(str.GetString(s));
    EXPECT_EQ(s.GetLength(), 3);
    char* copy = nullptr;
    unsigned long length = 0;
    ASSERT_TRUE(str.GetNewString(&copy, &length));
    EXPECT_EQ(length, 4ul);
    EXPECT_STREQ(copy, "abc");
    std::free(copy);
    ASSERT_TRUE(str.GetNewString(&copy, nullptr));  // the length pointer may be null
    std::free(copy);

    unsigned char data[] = {0, 1, 2, 0, 255}, out[5] = {};
    ASSERT_TRUE(bin.SetBinary(data, sizeof data));
    EXPECT_FALSE(bin.GetBinary(out, 4));
    EXPECT_TRUE(bin.GetBinary(out, 5));
    EXPECT_EQ(std::memcmp(out, data, 5), 0);
    unsigned char* fresh = nullptr;
    ASSERT_TRUE(bin.GetNewBinary(&fresh, &length));
    EXPECT_EQ(length, 5ul);
    EXPECT_EQ(std::memcmp(fresh, data, 5), 0);
    std::free(fresh);
}

TEST(RegVal, MultiStringsBuildAndSplit) {
    const char* const three[] = {"one", "", "three"};
    const char* const two[] = {"alpha", "beta"};
    const struct { const char* const* strings; unsigned long count; DWORD size; Strings back; } rows[] = {
        {three, 3, 1 + 4 + 1 + 6, {"one"}},  // an empty string ends what can be read back
        {two, 2, 1 + 6 + 5, {"alpha", "beta"}},
        {nullptr, 0, 2, {}},  // an empty list is two zero bytes
    };
    for (const auto& r : rows) {
        CRegVal v;
        ASSERT_TRUE(v.SetStringArr(r.strings, r.count));
        EXPECT_EQ(v.size, r.size);
        EXPECT_EQ(split(v), r.back);
    }
    CStringArray list;
    list.Add("x");
    list.Add("yz");
    CRegVal fromArray;
    ASSERT_TRUE(fromArray.SetStringArr(list));
    EXPECT_EQ(std::string(static_cast<const char*>(fromArray.data), fromArray.size), std::string("x\0yz\0\0", 6));

    // A value as another program might have written it: no terminating zero at all.
    unsigned char raw[] = {'a', 'b', 0, 'c'};
    CRegVal unterminated;
    ASSERT_TRUE(unterminated.SetBinary(raw, sizeof raw));
    unterminated.type = REG_MULTI_SZ;
    EXPECT_EQ(split(unterminated), (Strings{"ab", "c"}));
}

TEST(RegVal, AssignmentSharesTheBufferWithOneOwner) {
    CRegVal a;
    ASSERT_TRUE(a.SetString("shared"));
    {
        CRegVal b;
        b = a;
        EXPECT_EQ(b.data, a.data);
        b.Init();  // b gives up its claim before it goes
    }
    CString s;
    EXPECT_TRUE(a.GetString(s));
    EXPECT_EQ(s, "shared");
}
