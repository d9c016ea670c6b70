// The typed value record: which getters answer, their room rules, and the multi-string form.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CReg.h"

namespace {
using Strings = std::vector<std::string>;

// The getters that answer for a record: N number, S string, B binary, M multi-string. One that
// does not answer must leave its output alone; "!" marks one that changed it.
std::string answering(const CRegVal& v) {
    unsigned long n = 7;
    char text[64] = "keep";
    unsigned char bytes[64] = {9};
    CStringArray list;
    list.Add("keep");
    std::string found = v.GetNumber(&n) ? "N" : n == 7 ? "" : "!";
    found += v.GetString(text, sizeof text) ? "S" : text[0] == 'k' ? "" : "!";
    found += v.GetBinary(bytes, sizeof bytes) ? "B" : bytes[0] == 9 ? "" : "!";
    found += v.GetStringArr(list) ? "M" : list.GetSize() == 1 ? "" : "!";
    return found;
}

// The strings of a multi-string record; its three getters must agree, and a slot too few
// hands out nothing.
Strings split(const CRegVal& v) {
    CStringArray list;
    list.Add("stale");
    EXPECT_TRUE(v.GetStringArr(list));
    char** fresh = nullptr;
    unsigned long count = 0;
    EXPECT_TRUE(v.GetNewStringArr(&fresh, &count));
    char* cells[4] = {};
    EXPECT_EQ(v.GetStringArr(cells, count ? count - 1 : 0), count == 0);
    EXPECT_EQ(cells[0], nullptr);
    EXPECT_TRUE(v.GetStringArr(cells, count));
    Strings strings;
    for (unsigned long i = 0; i < count; ++i) {
        strings.push_back(list[int(i)].str());
        EXPECT_STREQ(fresh[i], cells[i]);
        EXPECT_EQ(strings.back(), fresh[i]);
        std::free(fresh[i]);
        std::free(cells[i]);
    }
    std::free(fresh);
    EXPECT_EQ(strings.size(), size_t(list.GetSize()));
    return strings;
}
}  // namespace

TEST(RegVal, GettersAnswerOnlyForTheirTypesAndNeedRoom) {
    CRegVal empty, number, str, bin, multi, expand;
    ASSERT_TRUE(number.SetNumber(0x12345678));
    ASSERT_TRUE(str.SetString("abc"));
    unsigned char data[] = {0, 1, 2, 0, 255}, out[5] = {};
    ASSERT_TRUE(bin.SetBinary(data, sizeof data));
    const char* const two[] = {"alpha", "beta"};
    ASSERT_TRUE(multi.SetStringArr(two, 2));
    ASSERT_TRUE(expand.SetString("%HOME%"));
    expand.type = REG_EXPAND_SZ;
    const std::pair<const CRegVal*, const char*> rows[] = {
        {&empty, ""}, {&number, "N"}, {&str, "S"}, {&bin, "B"}, {&multi, "SM"}, {&expand, "S"}};
    for (const auto& [v, expected] : rows) EXPECT_EQ(answering(*v), expected) << "type " << v->type;
    unsigned long n = 0;
    EXPECT_TRUE(number.GetNumber(&n));
    EXPECT_EQ(n, 0x12345678ul);

    EXPECT_EQ(str.size, 4u);  // with its zero
    char text[8] = "xxxxxxx";
    EXPECT_FALSE(str.GetString(text, 4));  // equal to size: no room for the zero
    EXPECT_EQ(text[0], 'x');
    EXPECT_TRUE(str.GetString(text, 5));
    EXPECT_STREQ(text, "abc");
    char* copy = nullptr;
    ASSERT_TRUE(str.GetNewString(&copy, &n));
    EXPECT_EQ(n, 4ul);
    EXPECT_STREQ(copy, "abc");
    std::free(copy);

    EXPECT_FALSE(bin.GetBinary(out, 4));
    EXPECT_TRUE(bin.GetBinary(out, 5));
    EXPECT_EQ(std::memcmp(out, data, 5), 0);
    unsigned char* fresh = nullptr;
    ASSERT_TRUE(bin.GetNewBinary(&fresh, &n));
    EXPECT_EQ(n, 5ul);
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
    fromArray.Free();
    ASSERT_TRUE(fromArray.SetBinary(raw, sizeof raw));
    fromArray.type = REG_MULTI_SZ;
    EXPECT_EQ(split(fromArray), (Strings{"ab", "c"}));
}
