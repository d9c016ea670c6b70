// The exported registry toolkit: the typed value record (which getters answer, their room
// rules, the multi-string form), then loading, saving, deleting and walking values through a
// scratch store.
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <map>
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

class RegKit : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(root.Create(HKEY_CURRENT_USER, "Software\\RegKitTest", REG_ACCESS_DELETE)); }
    ScratchRegistry registry;
    CReg root;
};
}  // namespace

TEST_F(RegKit, ValuesRoundTripWithAndWithoutASubKey) {
    EXPECT_TRUE(root.SaveNumber("n", 42));
    EXPECT_TRUE(root.SaveString("Inner\\Deep", "s", "text"));  // the sub key is made on the way
    unsigned char bytes[] = {1, 0, 2};
    EXPECT_TRUE(RegSaveBinary(root, nullptr, "b", bytes, sizeof bytes));

    unsigned long n = 0;
    EXPECT_TRUE(root.LoadNumber("n", &n));
    EXPECT_EQ(n, 42ul);
    CString s;
    EXPECT_TRUE(root.LoadStringA("Inner\\Deep", "s", s));
    EXPECT_EQ(s, "text");
    EXPECT_EQ(s.GetLength(), 4);  // without the closing zero
    unsigned char back[3] = {};
    EXPECT_FALSE(root.LoadBinary("b", back, 2));
    EXPECT_TRUE(root.LoadBinary("b", back, 3));
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
    ASSERT_EQ(listBack.GetSize(), 2);
    EXPECT_EQ(listBack[1], "bc");
}

TEST_F(RegKit, TypesMustFitAndAFailedLoadKeepsTheRecord) {
    ASSERT_TRUE(root.SaveString("s", "12"));
    ASSERT_TRUE(root.SaveNumber("n", 12));
    unsigned long n = 5;
    EXPECT_FALSE(root.LoadNumber("s", &n));
    EXPECT_EQ(n, 5ul);
    CString s = "before";
    EXPECT_FALSE(root.LoadStringA("n", s));
    EXPECT_EQ(s, "before");
    CStringArray list;
    EXPECT_FALSE(root.LoadStringArr("s", list));

    // Types outside the handled set cannot be saved or loaded.
    RegVal odd;
    RegValInit(&odd);
    odd.type = REG_QWORD;
    EXPECT_FALSE(root.SaveVal("q", &odd));
    const unsigned long long wide = 1;
    ASSERT_EQ(RegSetValueEx(root, "q", 0, REG_QWORD, reinterpret_cast<const BYTE*>(&wide), 8), ERROR_SUCCESS);
    CRegVal v;
    EXPECT_FALSE(root.LoadVal("q", &v));
    EXPECT_EQ(v.type, 0u);

    ASSERT_TRUE(root.LoadVal("n", &v));
    ASSERT_TRUE(root.LoadVal("s", &v));  // the first buffer is released (ASan would tell)
    void* held = v.data;
    EXPECT_FALSE(root.LoadVal("missing", &v));
    EXPECT_FALSE(root.LoadVal("NoSuchKey", "s", &v));
    EXPECT_EQ(v.data, held);
    EXPECT_TRUE(v.GetString(s));
    EXPECT_EQ(s, "12");

    // Expandable strings and links load as strings, not expanded.
    ASSERT_EQ(RegSetValueEx(root, "x", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>("%HOME%"), 7), ERROR_SUCCESS);
    ASSERT_EQ(RegSetValueEx(root, "l", 0, REG_LINK, reinterpret_cast<const BYTE*>("target"), 7), ERROR_SUCCESS);
    EXPECT_TRUE(root.LoadStringA("x", s));
    EXPECT_EQ(s, "%HOME%");
    EXPECT_TRUE(root.LoadStringA("l", s));
    EXPECT_EQ(s, "target");
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

TEST_F(RegKit, TheValueWalkVisitsEveryValueOnce) {
    ASSERT_TRUE(root.SaveNumber("one", 1));
    ASSERT_TRUE(root.SaveString("a much longer value name", "two"));
    // A kind of value the records do not hold comes back empty without ending the walk.
    const unsigned long long wide = 1ULL << 40;
    ASSERT_EQ(RegSetValueEx(root, "wide", 0, REG_QWORD, reinterpret_cast<const BYTE*>(&wide), sizeof wide),
              ERROR_SUCCESS);
    ASSERT_TRUE(root.SaveNumber("three", 3));
    std::string large(10000, 'x');
    large.back() = 'y';
    ASSERT_TRUE(root.SaveBinary("large", reinterpret_cast<unsigned char*>(large.data()), large.size()));

    // Each value as the walk loaded it: its type and its number or bytes.
    std::map<std::string, std::pair<DWORD, std::string>> seen;
    const char* name = nullptr;
    CRegVal v;
    for (bool more = root.FindFirstValue(name, &v); more; more = root.FindNextValue(name, &v)) {
        const std::string content = v.type == REG_DWORD ? std::to_string(v.number)
                                    : v.type            ? std::string(static_cast<const char*>(v.data), v.size)
                                                        : std::string();
        EXPECT_TRUE(seen.emplace(name, std::make_pair(v.type, content)).second) << name;
    }
    const std::map<std::string, std::pair<DWORD, std::string>> expected{
        {"one", {REG_DWORD, "1"}}, {"a much longer value name", {REG_SZ, std::string("two", 4)}},
        {"wide", {0, ""}}, {"three", {REG_DWORD, "3"}}, {"large", {REG_BINARY, large}}};
    EXPECT_EQ(seen, expected);
    EXPECT_FALSE(root.FindNextValue(name, &v));

    // A key without values gives false and leaves the earlier walk's name where it was.
    ASSERT_TRUE(root.FindFirstValue(name, &v));
    const char* earlier = name;
    const std::string earlierText = name;
    CReg empty;
    ASSERT_TRUE(empty.Create(root, "Empty", REG_ACCESS_DELETE));
    const char* untouched = nullptr;
    EXPECT_FALSE(empty.FindFirstValue(untouched, &v));
    EXPECT_EQ(untouched, nullptr);
    EXPECT_EQ(std::string(earlier), earlierText);
    CReg::FindClose();
    EXPECT_FALSE(root.FindNextValue(name, &v));
}
