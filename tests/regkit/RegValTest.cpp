// The typed value record: its getters and setters, and the multi-string buffer form.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>

#include "CReg.h"

namespace {
// Frees what a ...NewStringArr call handed out.
void freeStrings(char** strings, unsigned long count) {
    for (unsigned long i = 0; i < count; ++i) std::free(strings[i]);
    std::free(strings);
}
}  // namespace

TEST(RegVal, GettersAnswerOnlyForTheirTypesAndLeaveTheOutputAlone) {
    CRegVal number;
    EXPECT_EQ(number.type, 0u);
    ASSERT_TRUE(number.SetNumber(0x12345678));
    unsigned long n = 7;
    EXPECT_TRUE(number.GetNumber(&n));
    EXPECT_EQ(n, 0x12345678ul);

    char text[8] = "keep";
    CString s = "keep";
    unsigned char bytes[4] = {9, 9, 9, 9};
    EXPECT_FALSE(number.GetString(text, sizeof text));
    EXPECT_FALSE(number.GetString(s));
    EXPECT_FALSE(number.GetBinary(bytes, sizeof bytes));
    EXPECT_STREQ(text, "keep");
    EXPECT_EQ(s, "keep");
    EXPECT_EQ(bytes[0], 9);

    CRegVal str;
    ASSERT_TRUE(str.SetString("abc"));
    EXPECT_EQ(str.type, DWORD(REG_SZ));
    EXPECT_EQ(str.size, 4u);  // with its zero
    n = 7;
    EXPECT_FALSE(str.GetNumber(&n));
    EXPECT_EQ(n, 7ul);
    CStringArray list;
    EXPECT_FALSE(str.GetStringArr(list));
}

TEST(RegVal, StringCapacityMustHoldTheBytesAndAClosingZero) {
    CRegVal v;
    ASSERT_TRUE(v.SetString("abc"));  // size 4
    char buffer[8];
    std::memset(buffer, 'x', sizeof buffer);
    EXPECT_FALSE(v.GetString(buffer, 4));  // equal to size: no room for the zero
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_TRUE(v.GetString(buffer, 5));
    EXPECT_STREQ(buffer, "abc");

    CString s;
    EXPECT_TRUE(v.GetString(s));
    EXPECT_EQ(s.GetLength(), 3);

    char* copy = nullptr;
    unsigned long length = 0;
    ASSERT_TRUE(v.GetNewString(&copy, &length));
    EXPECT_EQ(length, 4ul);
    EXPECT_STREQ(copy, "abc");
    std::free(copy);
    ASSERT_TRUE(v.GetNewString(&copy, nullptr));  // the length pointer may be null
    std::free(copy);
}

TEST(RegVal, BinaryCopiesNeedEnoughRoom) {
    unsigned char data[] = {0, 1, 2, 0, 255};
    CRegVal v;
    ASSERT_TRUE(v.SetBinary(data, sizeof data));
    unsigned char out[5] = {};
    EXPECT_FALSE(v.GetBinary(out, 4));
    EXPECT_TRUE(v.GetBinary(out, 5));
    EXPECT_EQ(std::memcmp(out, data, 5), 0);
    unsigned char* copy = nullptr;
    unsigned long size = 0;
    ASSERT_TRUE(v.GetNewBinary(&copy, &size));
    EXPECT_EQ(size, 5ul);
    EXPECT_EQ(std::memcmp(copy, data, 5), 0);
    std::free(copy);
}

TEST(RegVal, MultiStringsBuildAndSplit) {
    const char* const three[] = {"one", "", "three"};
    CRegVal v;
    // An empty string ends the walk, so it also ends what can be read back.
    ASSERT_TRUE(v.SetStringArr(three, 3));
    EXPECT_EQ(v.size, 1u + 4 + 1 + 6);
    CStringArray back;
    ASSERT_TRUE(v.GetStringArr(back));
    ASSERT_EQ(back.GetSize(), 1);
    EXPECT_EQ(back[0], "one");

    v.Free();
    const char* const two[] = {"alpha", "beta"};
    ASSERT_TRUE(v.SetStringArr(two, 2));
    EXPECT_EQ(v.size, 1u + 6 + 5);
    char* cells[2] = {nullptr, nullptr};
    EXPECT_FALSE(v.GetStringArr(cells, 1));  // one slot too few: nothing is allocated
    EXPECT_EQ(cells[0], nullptr);
    ASSERT_TRUE(v.GetStringArr(cells, 2));
    EXPECT_STREQ(cells[0], "alpha");
    EXPECT_STREQ(cells[1], "beta");
    std::free(cells[0]);
    std::free(cells[1]);

    char** fresh = nullptr;
    unsigned long count = 0;
    ASSERT_TRUE(v.GetNewStringArr(&fresh, &count));
    ASSERT_EQ(count, 2ul);
    EXPECT_STREQ(fresh[1], "beta");
    freeStrings(fresh, count);

    v.Free();
    ASSERT_TRUE(v.SetStringArr(nullptr, 0));
    ASSERT_EQ(v.size, 2u);  // an empty list is two zero bytes
    EXPECT_EQ(std::memcmp(v.data, "\0\0", 2), 0);
    back.Add("stale");
    ASSERT_TRUE(v.GetStringArr(back));
    EXPECT_EQ(back.GetSize(), 0);
    EXPECT_TRUE(v.GetStringArr(cells, 0));

    CStringArray fromArray;
    fromArray.Add("x");
    fromArray.Add("yz");
    v.Free();
    ASSERT_TRUE(v.SetStringArr(fromArray));
    EXPECT_EQ(v.size, 1u + 2 + 3);
}

TEST(RegVal, AMultiStringWithoutItsZerosEndsAtTheBuffer) {
    // A value as another program might have written it: no terminating zero at all.
    unsigned char raw[] = {'a', 'b', 0, 'c'};
    CRegVal v;
    ASSERT_TRUE(v.SetBinary(raw, sizeof raw));
    v.type = REG_MULTI_SZ;
    CStringArray back;
    ASSERT_TRUE(v.GetStringArr(back));
    ASSERT_EQ(back.GetSize(), 2);
    EXPECT_EQ(back[1], "c");
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
