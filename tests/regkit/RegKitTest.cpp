// The exported registry toolkit: the typed value record (which getters answer, their room
// rules, the multi-string form), then saving, deleting and walking values through a scratch
// store. How each kind of stored value loads is in the registry's value table.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "CReg.h"
#include "ScratchRegistry.h"

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

TEST(RegVal, GettersAnswerOnlyForTheirTypesAndNeedRoom) {
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
        {&empty, ""}, {&number, "N"}, {&str, "S"}, {&bin, "B"}, {&multi, "SM"}, {&expand, "S"}};
    for (const auto& [v, expected] : rows) EXPECT_EQ(answering(*v), expected) << "type " << v->type;
    unsigned long n = 0;
    EXPECT_TRUE(number.GetNumber(&n));
    EXPECT_EQ(n, 0x12345678ul);

    // A string needs room for its bytes (with the zero it was stored with) and a closing zero.
    const std::string strBytes("abc\0", 4), binBytes(reinterpret_cast<const char*>(data), sizeof data);
    const struct { const CRegVal* v; unsigned long room; bool fits; std::string got; } rooms[] = {
        {&str, 4, false, ""}, {&str, 5, true, strBytes + '\0'}, {&bin, 4, false, ""}, {&bin, 5, true, binBytes}};
    for (const auto& r : rooms) {
        char out[8] = {};
        EXPECT_EQ(r.v == &str ? r.v->GetString(out, r.room) : r.v->GetBinary(reinterpret_cast<unsigned char*>(out), r.room),
                  r.fits) << r.room;
        EXPECT_EQ(std::string(out, r.got.size()), r.got);
    }
    char* copy = nullptr;
    ASSERT_TRUE(str.GetNewString(&copy, &n));
    EXPECT_EQ(std::string(copy, n + 1), strBytes + '\0');
    std::free(copy);
    unsigned char* fresh = nullptr;
    ASSERT_TRUE(bin.GetNewBinary(&fresh, &n));
    EXPECT_EQ(std::string(reinterpret_cast<char*>(fresh), n), binBytes);
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

class RegKit : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(root.Create(HKEY_CURRENT_USER, "Software\\RegKitTest", REG_ACCESS_DELETE)); }
    ScratchRegistry registry;
    CReg root;
};
}  // namespace

// Saved through a sub key made on the way, loaded back into buffers that must have room.
TEST_F(RegKit, ValuesRoundTripThroughASubKey) {
    EXPECT_TRUE(root.SaveString("Inner\\Deep", "s", "text"));
    unsigned char bytes[] = {1, 0, 2}, back[3] = {};
    EXPECT_TRUE(RegSaveBinary(root, "Inner\\Deep", "b", bytes, sizeof bytes));
    CString s;
    EXPECT_TRUE(root.LoadStringA("Inner\\Deep", "s", s));
    EXPECT_EQ(s.GetLength(), 4);  // without the closing zero
    EXPECT_FALSE(root.LoadBinary("Inner\\Deep", "b", back, 2));
    EXPECT_TRUE(root.LoadBinary("Inner\\Deep", "b", back, 3));
    EXPECT_EQ(std::memcmp(back, bytes, 3), 0);
    char small[4], exact[5];
    EXPECT_FALSE(root.LoadStringA("Inner\\Deep", "s", small, sizeof small));  // 5 bytes stored
    EXPECT_TRUE(root.LoadStringA("Inner\\Deep", "s", exact, sizeof exact));
    EXPECT_STREQ(exact, "text");
    char* fresh = nullptr;
    EXPECT_TRUE(root.LoadNewString("Inner\\Deep", "s", &fresh, nullptr));
    EXPECT_STREQ(fresh, "text");
    std::free(fresh);
    const char* const list[] = {"a", "bc"};
    ASSERT_TRUE(root.SaveStringArr("m", list, 2));
    CStringArray listBack;
    EXPECT_TRUE(root.LoadStringArr("m", listBack));
    EXPECT_EQ(listBack.GetSize(), 2);
}

TEST_F(RegKit, TypesOutsideTheHandledSetAreNotSaved) {
    RegVal odd;
    RegValInit(&odd);
    odd.type = REG_QWORD;
    EXPECT_FALSE(root.SaveVal("q", &odd));
    CRegVal v;
    ASSERT_TRUE(root.SaveNumber("n", 12));
    ASSERT_TRUE(root.LoadVal("n", &v));
    ASSERT_TRUE(root.LoadVal("n", &v));  // the first record is released (ASan would tell)
    EXPECT_FALSE(root.LoadVal("NoSuchKey", "n", &v));
    EXPECT_EQ(v.number, 12ul);
}

TEST_F(RegKit, DeletingTreesAndValues) {
    EXPECT_TRUE(root.DeleteSubKeys());  // no sub keys: nothing to do
    for (const char* sub : {"A\\B\\C", "A\\D", "E"}) ASSERT_TRUE(root.SaveNumber(sub, "v", 1));
    ASSERT_TRUE(root.SaveNumber("top", 4));
    // The sub key and value counts of a key, "-" when it cannot be read.
    auto entries = [&](const char* sub) {
        unsigned long keys = 9, values = 9;
        const bool ok = root.HasEntries(sub, &keys, &values);
        return std::string(ok ? "" : "-").append(std::to_string(keys)).append("/").append(std::to_string(values));
    };
    EXPECT_EQ(entries(nullptr), "2/1");
    EXPECT_EQ(entries("Nope"), "-0/0");
    EXPECT_TRUE(root.DeleteKey("E", "v"));  // a value of a sub key
    EXPECT_EQ(entries("E"), "0/0");
    EXPECT_TRUE(root.DeleteKey("A", nullptr));  // a whole tree
    EXPECT_EQ(entries("A"), "-0/0");
    EXPECT_TRUE(root.DeleteKey("top"));  // a value of the held key
    EXPECT_TRUE(root.DeleteSubKeys());
    EXPECT_EQ(entries(nullptr), "0/0");

    // Null: the sub keys, then the held key itself.
    ASSERT_TRUE(root.SaveNumber("F\\G", "v", 1));
    EXPECT_TRUE(root.DeleteKey(static_cast<const char*>(nullptr)));
    root.Close();
    EXPECT_EQ(RegOpen(HKEY_CURRENT_USER, "Software\\RegKitTest", REG_ACCESS_READ), nullptr);

    CReg closed;  // a closed key answers false
    unsigned long n = 0;
    const char* name = nullptr;
    CRegVal v;
    EXPECT_FALSE(closed.LoadNumber("n", &n) || closed.SaveNumber("n", 1) || closed.DeleteKey("n") ||
                 closed.DeleteSubKeys() || closed.FindFirstValue(name, &v));
    EXPECT_NE(closed.Connect(HKEY_CURRENT_USER, nullptr), nullptr);  // this machine
}

// The walk's loading of each kind of value is checked with the registry's value table.
TEST_F(RegKit, AValueWalkEndsAndAnEmptyKeyLeavesTheLastOneAlone) {
    ASSERT_TRUE(root.SaveNumber("one", 1));
    ASSERT_TRUE(root.SaveString("a much longer value name", "two"));
    const char* name = nullptr;
    CRegVal v;
    ASSERT_TRUE(root.FindFirstValue(name, &v));
    EXPECT_STREQ(name, "one");
    ASSERT_TRUE(root.FindNextValue(name, &v));
    EXPECT_STREQ(name, "a much longer value name");
    EXPECT_FALSE(root.FindNextValue(name, &v));

    const char* earlier = name;
    CReg empty;
    ASSERT_TRUE(empty.Create(root, "Empty", REG_ACCESS_DELETE));
    const char* untouched = nullptr;
    EXPECT_FALSE(empty.FindFirstValue(untouched, &v));
    EXPECT_EQ(untouched, nullptr);
    EXPECT_STREQ(earlier, "a much longer value name");
    ASSERT_TRUE(root.FindFirstValue(name, &v));
    CReg::FindClose();
    EXPECT_FALSE(root.FindNextValue(name, &v));
}
