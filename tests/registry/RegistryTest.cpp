// The registry calls, the settings classes CKTRegistry and CKTMgrSetting and the toolkit's
// CReg over them, on a store file of the test's own.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <QFile>
#include <QFontDatabase>
#include <QTemporaryDir>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "CKTRegistry.h"
#include "CReg.h"
#include "Registry.h"

namespace {

using Key = std::unique_ptr<RegistryKey, decltype(&RegCloseKey)>;
using Names = std::vector<std::string>;

const BYTE* bytes(const void* p) { return static_cast<const BYTE*>(p); }
BYTE* out(char* p) { return reinterpret_cast<BYTE*>(p); }
std::string dword(DWORD v) { return std::string(reinterpret_cast<const char*>(&v), sizeof v); }
std::string error(LSTATUS rc) { return std::string("<").append(std::to_string(rc)).append(">"); }

Key create(const char* subKey, REGSAM access = KEY_ALL_ACCESS, HKEY parent = HKEY_CURRENT_USER) {
    HKEY key = nullptr;
    EXPECT_EQ(RegCreateKeyEx(parent, subKey, 0, nullptr, 0, access, nullptr, &key, nullptr), ERROR_SUCCESS);
    return Key(key, &RegCloseKey);
}
Key open(const char* subKey, REGSAM access = KEY_ALL_ACCESS) {
    HKEY key = nullptr;
    RegOpenKeyEx(HKEY_CURRENT_USER, subKey, 0, access, &key);
    return Key(key, &RegCloseKey);
}
LSTATUS set(HKEY key, const char* name, DWORD type, const std::string& data) {
    return RegSetValueEx(key, name, 0, type, bytes(data.data()), DWORD(data.size()));
}
LSTATUS setDword(HKEY key, const char* name, DWORD v) { return set(key, name, REG_DWORD, dword(v)); }
// The value's data, or "<missing>"; its type into *type.
std::string read(HKEY key, const char* name, DWORD* type = nullptr) {
    DWORD size = 0;
    if (RegQueryValueEx(key, name, nullptr, type, nullptr, &size) != ERROR_SUCCESS) return "<missing>";
    std::string data(size, '\0');
    EXPECT_EQ(RegQueryValueEx(key, name, nullptr, type, out(data.data()), &size), ERROR_SUCCESS);
    return data;
}
// The name at `index` of the value (or with `keys` the sub key) enumeration, or its error.
std::string at(HKEY key, DWORD index, bool keys = false) {
    char name[64];
    DWORD cch = sizeof name;
    LSTATUS rc = keys ? RegEnumKeyEx(key, index, name, &cch, nullptr, nullptr, nullptr, nullptr)
                      : RegEnumValue(key, index, name, &cch, nullptr, nullptr, nullptr, nullptr);
    return rc == ERROR_SUCCESS ? std::string(name, cch) : error(rc);
}
Names names(HKEY key, bool keys = false) {
    Names all;
    for (DWORD i = 0;; ++i) {
        std::string name = at(key, i, keys);
        if (name == error(ERROR_NO_MORE_ITEMS)) return all;
        all.push_back(name);
    }
}

class RegistryTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dir_.isValid() && RegSetStorePath(path_.c_str())); }
    void TearDown() override { RegSetStorePath(nullptr); }

    QTemporaryDir dir_;
    std::string path_ = dir_.filePath("registry.sqlite").toStdString();
};

// One table of values read through every door: raw (type and bytes), the settings class
// (numbers from DWORDs and decimal text, NUL or not, else its defaults -7 and "dflt") and the
// toolkit: its record loaded by name and by a value walk (the type it loads; 0 = not loaded,
// which must not end the walk), and its typed loaders, which answer only for their types.
TEST_F(RegistryTest, TypedValuesReadAlikeThroughEveryDoor) {
    Key key = create("Software\\Types");
    std::string large(10000, 'x');  // beyond what a walk's listing holds
    large.back() = 'y';
    const struct { const char* name; DWORD type; std::string data; int asInt; const char* asString; DWORD loads; } rows[] = {
        {"sz", REG_SZ, std::string("text\0", 5), -7, "text", REG_SZ},
        {"expand", REG_EXPAND_SZ, std::string("%HOME%\\x\0", 9), -7, "%HOME%\\x", REG_EXPAND_SZ},  // never expanded
        {"link", REG_LINK, std::string("target\0", 7), -7, "dflt", REG_LINK},
        {"multi", REG_MULTI_SZ, std::string("one\0two\0\0", 9), -7, "dflt", REG_MULTI_SZ},
        {"qword", REG_QWORD, "\x88\x77\x66\x55\x44\x33\x22\x11", -7, "dflt", 0},
        {"bin", REG_BINARY, std::string("\1\0\0\0", 4), -7, "dflt", REG_BINARY},
        {"nobytes", REG_BINARY, "", -7, "dflt", REG_BINARY},
        {"large", REG_BINARY, large, -7, "dflt", REG_BINARY},
        {"dword", REG_DWORD, "\xEF\xBE\xAD\xDE", int(0xDEADBEEF), "dflt", REG_DWORD},
        {"nonul", REG_SZ, "42", 42, "42", REG_SZ},
        {"neg", REG_SZ, std::string("-1\0", 3), -1, "-1", REG_SZ},
        {"max", REG_SZ, std::string("4294967295\0", 11), -1, "4294967295", REG_SZ},
        {"huge", REG_SZ, std::string("4294967296\0", 11), -7, "4294967296", REG_SZ},
        {"junk", REG_SZ, std::string("12abc\0", 6), -7, "12abc", REG_SZ},
        {"emptysz", REG_SZ, std::string("\0", 1), -7, "", REG_SZ},
        {nullptr, REG_DWORD, dword(7), 0, "", REG_DWORD},  // null and "" both name the default value,
        {"", REG_SZ, std::string("x\0", 2), -7, "x", REG_SZ},  // and writing again replaces type and data
        {"missing", REG_NONE, "<missing>", -7, "dflt", 0},
    };
    // What the toolkit record holds: "type:bytes", a DWORD as its number.
    auto loaded = [](const RegVal& v) {
        return std::to_string(v.type) + ":" +
               (v.type == REG_DWORD ? std::to_string(v.number)
                : v.type         ? std::string(static_cast<const char*>(v.data), v.size) : std::string());
    };
    // The typed loaders that answer for a value: N number, S string, B binary, M multi-string.
    auto answering = [&](const CReg& kit, const char* n) {
        unsigned long number = 0;
        CString text;
        std::vector<unsigned char> bytes(large.size());
        CStringArray list;
        return std::string(kit.LoadNumber(n, &number) ? "N" : "") + (kit.LoadStringA(n, text) ? "S" : "") +
               (kit.LoadBinary(n, bytes.data(), bytes.size()) ? "B" : "") + (kit.LoadStringArr(n, list) ? "M" : "");
    };
    const std::map<DWORD, std::string> loaders{{0, ""}, {REG_DWORD, "N"}, {REG_SZ, "S"}, {REG_EXPAND_SZ, "S"},
                                               {REG_LINK, "S"}, {REG_MULTI_SZ, "SM"}, {REG_BINARY, "B"}};
    std::map<std::string, std::string> expected;  // the walk's view
    for (const auto& r : rows) {
        if (r.type == REG_NONE) continue;
        ASSERT_EQ(set(key.get(), r.name, r.type, r.data), ERROR_SUCCESS) << r.name;
        const DWORD number = r.type == REG_DWORD ? *reinterpret_cast<const DWORD*>(r.data.data()) : 0;
        expected[r.name ? r.name : ""] = std::to_string(r.loads) + ":" +
            (r.loads == REG_DWORD ? std::to_string(number) : r.loads ? r.data : std::string());
    }
    CKTRegistry reg;
    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, "Software\\Types"), nullptr);
    CReg kit;
    ASSERT_NE(kit.Open(HKEY_CURRENT_USER, "Software\\Types"), nullptr);
    for (const auto& r : rows) {
        if (!r.name) continue;
        DWORD type = REG_NONE;
        EXPECT_EQ(read(key.get(), r.name, &type), r.data) << r.name;
        EXPECT_EQ(type, r.type) << r.name;
        EXPECT_EQ(reg.GetInt(r.name, -7), r.asInt) << r.name;
        EXPECT_EQ(reg.GetDWORD(r.name, DWORD(-7)), DWORD(r.asInt)) << r.name;
        EXPECT_EQ(reg.GetBOOL(r.name, 3), r.asInt == -7 ? 3 : TRUE) << r.name;
        EXPECT_EQ(reg.GetString(r.name, "dflt"), r.asString) << r.name;
        CRegVal v;  // a load that fails keeps what the record held
        ASSERT_TRUE(v.SetString("kept"));
        EXPECT_EQ(kit.LoadVal(r.name, &v), r.loads != 0) << r.name;
        EXPECT_EQ(loaded(v), r.loads ? expected[r.name] : std::string("1:kept\0", 7)) << r.name;
        EXPECT_EQ(answering(kit, r.name), loaders.at(r.loads)) << r.name;
    }
    std::map<std::string, std::string> walked;
    const char* name = nullptr;
    CRegVal v;
    for (bool more = kit.FindFirstValue(name, &v); more; more = kit.FindNextValue(name, &v))
        EXPECT_TRUE(walked.emplace(name, loaded(v)).second) << name;
    EXPECT_EQ(walked, expected);
    EXPECT_FALSE(kit.FindNextValue(name, &v));

    // The settings class writes numbers as DWORDs and text as REG_SZ with its NUL.
    EXPECT_TRUE(reg.SetInt("int", -2) && reg.SetBOOL("bool", 7) && reg.SetDWORD("dw", 0xFFFFFFF0u));
    EXPECT_TRUE(reg.SetString("str", "h\xC3\xA9llo") && reg.SetString("none", nullptr));
    const std::pair<const char*, std::string> written[] = {{"int", dword(DWORD(-2))}, {"bool", dword(1)},
        {"dw", dword(0xFFFFFFF0u)}, {"str", std::string("h\xC3\xA9llo\0", 7)}, {"none", std::string(1, '\0')}};
    for (const auto& [n, data] : written) {
        DWORD type = 0;
        EXPECT_EQ(read(key.get(), n, &type), data) << n;
        EXPECT_EQ(type, data.size() == 4 ? REG_DWORD : REG_SZ) << n;  // no text here is 4 bytes
    }
}

// Data read by name and by index follows one rule for room: a buffer too small gets the size
// needed and nothing copied; the exact size takes it all, whether a listing holds it or not.
TEST_F(RegistryTest, DataNeedsRoomByNameAndByIndex) {
    Key key = create("Software\\Sizes");
    std::string large(10000, 'x');
    large.back() = 'y';
    const std::string values[] = {std::string("abcdef\0", 7), large};
    ASSERT_EQ(set(key.get(), "s", REG_SZ, values[0]), ERROR_SUCCESS);
    ASSERT_EQ(set(key.get(), "l", REG_BINARY, values[1]), ERROR_SUCCESS);
    for (DWORD index : {0u, 1u})
        for (bool byIndex : {false, true}) {
            SCOPED_TRACE(std::to_string(index) + (byIndex ? " by index" : " by name"));
            auto query = [&](BYTE* data, DWORD* size) {
                char name[4];
                DWORD cch = sizeof name;
                return byIndex ? RegEnumValue(key.get(), index, name, &cch, nullptr, nullptr, data, size)
                               : RegQueryValueEx(key.get(), index ? "l" : "s", nullptr, nullptr, data, size);
            };
            const std::string& value = values[index];
            std::string buffer(value.size() + 1, '#');
            DWORD size = DWORD(value.size()) - 1;
            EXPECT_EQ(query(out(buffer.data()), &size), ERROR_MORE_DATA);
            EXPECT_EQ(size, value.size());
            EXPECT_EQ(buffer, std::string(value.size() + 1, '#'));
            EXPECT_EQ(query(out(buffer.data()), &size), ERROR_SUCCESS);
            EXPECT_EQ(buffer, value + "#");
            size = 0;
            EXPECT_EQ(query(nullptr, &size), ERROR_SUCCESS);
            EXPECT_EQ(size, value.size());
        }
    char buffer[8];
    EXPECT_EQ(RegQueryValueEx(key.get(), "s", nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueEx(key.get(), "s", nullptr, nullptr, out(buffer), nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegQueryValueEx(key.get(), "nope", nullptr, nullptr, nullptr, nullptr), ERROR_FILE_NOT_FOUND);
    // A short name buffer is told the same way, with the length it needs.
    ASSERT_EQ(setDword(key.get(), "long name", 1), ERROR_SUCCESS);
    DWORD cch = 2;
    EXPECT_EQ(RegEnumValue(key.get(), 0, buffer, &cch, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(cch, 1u);
    cch = 2;
    EXPECT_EQ(RegEnumValue(key.get(), 2, buffer, &cch, nullptr, nullptr, nullptr, nullptr), ERROR_MORE_DATA);
    EXPECT_EQ(cch, 10u);
}

TEST_F(RegistryTest, BadArgumentsGetErrors) {
    Key key = create("Software\\Bad");
    DWORD one = 1;
    const std::string longName(REG_MAX_VALUE_NAME + 1, 'n');
    const struct { const char* name; DWORD type; const BYTE* data; DWORD size; } sets[] = {
        {"d", REG_DWORD, bytes(&one), 3}, {"q", REG_QWORD, bytes(&one), 4}, {"n", REG_BINARY, nullptr, 4},
        {"big", REG_BINARY, bytes(&one), REG_MAX_VALUE_SIZE + 1}, {longName.c_str(), REG_DWORD, bytes(&one), 4}};
    for (const auto& v : sets)
        EXPECT_EQ(RegSetValueEx(key.get(), v.name, 0, v.type, v.data, v.size), ERROR_INVALID_PARAMETER) << v.name;
    EXPECT_TRUE(names(key.get()).empty());

    HKEY result = reinterpret_cast<HKEY>(&one);
    const std::string longPart(REG_MAX_KEY_NAME + 1, 'k');
    for (const char* path : {"\\lead", "a\\\\b", "trail\\\\", longPart.c_str()}) {
        EXPECT_EQ(RegCreateKeyEx(key.get(), path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &result, nullptr),
                  ERROR_INVALID_PARAMETER) << path;
        EXPECT_EQ(result, nullptr);
    }
    EXPECT_EQ(RegOpenKeyEx(key.get(), "x", 0, KEY_READ, nullptr), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegEnumValue(key.get(), 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), ERROR_INVALID_PARAMETER);

    // Handles never opened, or closed already, are refused untouched; a predefined one stays open.
    EXPECT_EQ(RegCloseKey(HKEY_CURRENT_USER), ERROR_SUCCESS);
    HKEY raw = key.release();
    EXPECT_EQ(RegCloseKey(raw), ERROR_SUCCESS);
    for (HKEY bad : {HKEY(nullptr), reinterpret_cast<HKEY>(&one), raw}) {
        EXPECT_EQ(setDword(bad, "x", 1), ERROR_INVALID_HANDLE);
        EXPECT_EQ(RegCloseKey(bad), ERROR_INVALID_HANDLE);
    }
}

TEST_F(RegistryTest, EnumerationFollowsCreationOrder) {
    Key key = create("Software\\Order");
    for (const char* name : {"zeta", "alpha", "mid"}) ASSERT_EQ(setDword(key.get(), name, 1), ERROR_SUCCESS);
    ASSERT_EQ(setDword(key.get(), "alpha", 2), ERROR_SUCCESS);  // rewriting keeps the place
    EXPECT_EQ(names(key.get()), (Names{"zeta", "alpha", "mid"}));
    ASSERT_EQ(RegDeleteValue(key.get(), "zeta"), ERROR_SUCCESS);
    ASSERT_EQ(setDword(key.get(), "zeta", 3), ERROR_SUCCESS);  // a new value goes last
    EXPECT_EQ(names(key.get()), (Names{"alpha", "mid", "zeta"}));
    for (const char* sub : {"Kz", "Ka\\Deep", "Kb"}) create(sub, KEY_ALL_ACCESS, key.get());
    EXPECT_EQ(names(key.get(), true), (Names{"Kz", "Ka", "Kb"}));
    EXPECT_EQ(names(create("Kb", KEY_ALL_ACCESS, key.get()).get(), true), Names{});

    DWORD subKeys = 0, maxSubKey = 0, values = 0, maxValueName = 0, maxValue = 0, cchClass = 4;
    char cls[4] = "abc";
    ASSERT_EQ(RegQueryInfoKey(key.get(), cls, &cchClass, nullptr, &subKeys, &maxSubKey, nullptr, &values,
                              &maxValueName, &maxValue, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(std::vector<DWORD>({subKeys, maxSubKey, values, maxValueName, maxValue, cchClass}),
              std::vector<DWORD>({3, 2, 3, 5, 4, 0}));
    EXPECT_STREQ(cls, "");
}

// A walk by index keeps the key's list between calls; every write must still show at the
// next index, whichever handle made it, as it would with a list read afresh at each call.
TEST_F(RegistryTest, WalksSeeEveryChangeAtTheirNextIndex) {
    Key key = create("Software\\Walk");
    Key other = open("Software\\Walk");
    for (const char* name : {"a", "b", "c", "d"}) ASSERT_EQ(setDword(key.get(), name, 1), ERROR_SUCCESS);
    EXPECT_EQ(at(key.get(), 0), "a");
    ASSERT_EQ(RegDeleteValue(other.get(), "a"), ERROR_SUCCESS);  // through another handle
    EXPECT_EQ(at(key.get(), 1), "c");                            // the list is b, c, d now
    ASSERT_EQ(setDword(other.get(), "e", 1), ERROR_SUCCESS);
    EXPECT_EQ(at(key.get(), 3), "e");
    EXPECT_EQ(at(key.get(), 0), "b");  // indexes in any order
    EXPECT_EQ(at(key.get(), 4), error(ERROR_NO_MORE_ITEMS));

    for (const char* sub : {"K1", "K2"}) create(sub, KEY_ALL_ACCESS, key.get());
    EXPECT_EQ(at(key.get(), 0, true), "K1");
    create("K3", KEY_ALL_ACCESS, other.get());
    EXPECT_EQ(at(key.get(), 2, true), "K3");
    ASSERT_EQ(RegDeleteKey(other.get(), "K1"), ERROR_SUCCESS);
    EXPECT_EQ(at(key.get(), 0, true), "K2");

    // The walked key itself deleted: the walk ends with the handle's error.
    Key doomed = create("Software\\Walk\\K2");
    ASSERT_EQ(setDword(doomed.get(), "v", 1), ERROR_SUCCESS);
    EXPECT_EQ(at(doomed.get(), 0), "v");
    ASSERT_EQ(RegDeleteKey(key.get(), "K2"), ERROR_SUCCESS);
    EXPECT_EQ(at(doomed.get(), 0), error(ERROR_KEY_DELETED));
    // A store opened afresh invalidates the handles and their lists.
    ASSERT_TRUE(RegSetStorePath(path_.c_str()));
    EXPECT_EQ(at(key.get(), 0), error(ERROR_INVALID_HANDLE));
    EXPECT_EQ(at(HKEY_CURRENT_USER, 0, true), "Software");
}

TEST_F(RegistryTest, NamesIgnoreAsciiCase) {
    Key key = create("Software\\MixedCase\\Inner");
    DWORD disposition = 0;
    HKEY again = nullptr;
    ASSERT_EQ(RegCreateKeyEx(HKEY_CURRENT_USER, "SOFTWARE\\mixedcase\\INNER", 0, nullptr, 0, KEY_ALL_ACCESS,
                             nullptr, &again, &disposition),
              ERROR_SUCCESS);
    Key guard(again, &RegCloseKey);
    EXPECT_EQ(disposition, REG_OPENED_EXISTING_KEY);
    EXPECT_EQ(names(open("software").get(), true), Names{"MixedCase"});
    ASSERT_EQ(setDword(key.get(), "Value", 1), ERROR_SUCCESS);
    ASSERT_EQ(setDword(again, "VALUE", 2), ERROR_SUCCESS);  // the same value through the other handle
    EXPECT_EQ(names(key.get()), Names{"Value"});
    EXPECT_EQ(read(key.get(), "vAlUe"), dword(2));
    // Bytes beyond ASCII are compared as they are.
    ASSERT_EQ(setDword(key.get(), "\xC3\x84", 1), ERROR_SUCCESS);
    EXPECT_EQ(read(key.get(), "\xC3\xA4"), "<missing>");
}

TEST_F(RegistryTest, DeleteRulesAndAccessRights) {
    Key parent = create("Software\\Del\\Child");
    Key del = open("Software\\Del");
    ASSERT_EQ(setDword(parent.get(), "v", 1), ERROR_SUCCESS);
    ASSERT_EQ(setDword(del.get(), "v", 5), ERROR_SUCCESS);
    Key ro = open("Software\\Del", KEY_READ);
    EXPECT_EQ(read(ro.get(), "v"), dword(5));
    HKEY made = nullptr;
    const std::pair<LSTATUS, LSTATUS> calls[] = {
        {RegDeleteKey(del.get(), "Missing"), ERROR_FILE_NOT_FOUND},
        {RegDeleteKey(HKEY_CURRENT_USER, "Software\\Del"), ERROR_ACCESS_DENIED},  // has a sub key
        {RegDeleteKey(HKEY_CURRENT_USER, ""), ERROR_ACCESS_DENIED},               // a root
        {RegDeleteKey(del.get(), nullptr), ERROR_INVALID_PARAMETER},
        {RegDeleteValue(del.get(), "missing"), ERROR_FILE_NOT_FOUND},
        {setDword(ro.get(), "v", 6), ERROR_ACCESS_DENIED},  // a read-only handle writes nothing
        {RegDeleteValue(ro.get(), "v"), ERROR_ACCESS_DENIED},
        {RegDeleteKey(ro.get(), "Child"), ERROR_ACCESS_DENIED},
        {RegIncrementValue(ro.get(), "n", 1, nullptr), ERROR_ACCESS_DENIED},
        {RegCreateKeyEx(ro.get(), "New", 0, nullptr, 0, KEY_READ, nullptr, &made, nullptr), ERROR_ACCESS_DENIED}};
    for (size_t i = 0; i < std::size(calls); ++i) EXPECT_EQ(calls[i].first, calls[i].second) << "call " << i;
    EXPECT_EQ(made, nullptr);
    EXPECT_NE(create("Child", KEY_READ, ro.get()).get(), nullptr);  // opening what exists needs no right
    EXPECT_EQ(read(open("Software\\Del\\Child", KEY_WRITE).get(), "v"), "<missing>");  // no KEY_QUERY_VALUE

    // The handle of the deleted key stays a handle: its calls fail until it is closed, and a
    // new key of the same name is not reached through it.
    ASSERT_EQ(RegDeleteKey(del.get(), "CHILD"), ERROR_SUCCESS);
    EXPECT_EQ(read(parent.get(), "v"), "<missing>");
    EXPECT_EQ(setDword(parent.get(), "v", 2), ERROR_KEY_DELETED);
    Key recreated = create("Software\\Del\\Child");
    EXPECT_EQ(names(recreated.get()), Names{});
    EXPECT_EQ(RegQueryInfoKey(parent.get(), nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                              nullptr, nullptr, nullptr),
              ERROR_KEY_DELETED);
    EXPECT_EQ(RegCloseKey(parent.release()), ERROR_SUCCESS);
    ASSERT_EQ(RegDeleteKey(recreated.get(), ""), ERROR_SUCCESS);  // the handle's own key
    ASSERT_EQ(RegDeleteKey(HKEY_CURRENT_USER, "Software\\Del"), ERROR_SUCCESS);
    EXPECT_EQ(open("Software\\Del").get(), nullptr);
}

TEST_F(RegistryTest, OnlyThisMachineConnects) {
    char host[256] = {};
    ASSERT_EQ(gethostname(host, sizeof host - 1), 0);
    const std::string uncHost = std::string("\\\\") + host;
    ASSERT_EQ(setDword(HKEY_LOCAL_MACHINE, "seen", 9), ERROR_SUCCESS);
    for (const char* machine : {"", "localhost", "\\\\LOCALHOST", static_cast<const char*>(host), uncHost.c_str(),
                                "\\\\fileserver"}) {
        HKEY key = nullptr;
        const bool local = std::strcmp(machine, "\\\\fileserver") != 0;
        EXPECT_EQ(RegConnectRegistry(machine, HKEY_LOCAL_MACHINE, &key), local ? ERROR_SUCCESS : ERROR_BAD_NETPATH);
        EXPECT_EQ(read(key, "seen"), local ? dword(9) : "<missing>") << machine;
        RegCloseKey(key);
    }
    HKEY key = nullptr;
    EXPECT_EQ(RegConnectRegistry(nullptr, create("Software").get(), &key), ERROR_INVALID_HANDLE);
}

// Unusable store files are refused and left as they were; a good store is reached again after
// them, with what it held.
TEST_F(RegistryTest, StoresPersistAndUnusableOnesFailWithoutHarm) {
    Key key = create("Software\\Persist");
    ASSERT_EQ(setDword(key.get(), "v", 42), ERROR_SUCCESS);
    const std::string garbage = dir_.filePath("garbage.sqlite").toStdString();
    std::string junk(8192, '\0');
    for (size_t i = 0; i < junk.size(); ++i) junk[i] = char(i * 131 + 7);
    QFile file(QString::fromStdString(garbage));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(junk.data(), qint64(junk.size())) == 8192);
    file.close();
    EXPECT_FALSE(RegSetStorePath(garbage.c_str()));
    EXPECT_EQ(setDword(key.get(), "v", 1), ERROR_INVALID_HANDLE);  // opened on the closed store
    HKEY made = nullptr;
    EXPECT_EQ(RegCreateKeyEx(HKEY_CURRENT_USER, "Software", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &made, nullptr),
              ERROR_BADDB);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(RegOpenKeyEx(HKEY_CURRENT_USER, "Software", 0, KEY_READ, &made), ERROR_BADDB);
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueEx(HKEY_CURRENT_USER, "v", nullptr, nullptr, nullptr, &size), ERROR_BADDB);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().toStdString(), junk);

    // Another program's SQLite database is no registry; a folder through a file cannot be made.
    const std::string foreign = dir_.filePath("foreign.sqlite").toStdString();
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(foreign.c_str(), &db), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(db, "CREATE TABLE keys(x); INSERT INTO keys VALUES(1)", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(db);
    const std::string blocked = garbage + "/sub/registry.sqlite";
    for (const auto& [store, error] : {std::pair{foreign, ERROR_BADDB}, std::pair{blocked, ERROR_CANTWRITE},
                                       std::pair{path_, ERROR_SUCCESS}}) {
        EXPECT_EQ(RegSetStorePath(store.c_str()), error == ERROR_SUCCESS) << store;
        EXPECT_EQ(setDword(HKEY_CURRENT_USER, "v", 1), error) << store;
    }
    EXPECT_EQ(read(open("Software\\Persist").get(), "v"), dword(42));
    EXPECT_EQ(RegCloseKey(key.release()), ERROR_SUCCESS);
}

TEST_F(RegistryTest, IncrementCountsAndChecksType) {
    Key key = create("Software\\Count");
    DWORD value = 0, type = 0;
    EXPECT_EQ(RegIncrementValue(key.get(), "n", 5, &value), ERROR_SUCCESS);
    EXPECT_EQ(value, 5u);
    EXPECT_EQ(RegIncrementValue(key.get(), "N", -6, &value), ERROR_SUCCESS);
    EXPECT_EQ(value, 0xFFFFFFFFu);
    EXPECT_EQ(read(key.get(), "n", &type), dword(0xFFFFFFFFu));
    EXPECT_EQ(type, REG_DWORD);
    ASSERT_EQ(RegSetValueEx(key.get(), "s", 0, REG_SZ, bytes("1"), 2), ERROR_SUCCESS);
    EXPECT_EQ(RegIncrementValue(key.get(), "s", 1, &value), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(read(key.get(), "s"), std::string("1\0", 2));
}

TEST_F(RegistryTest, ThreadsShareTheStore) {
    Key key = create("Software\\Threads");
    auto work = [&](char tag) {
        for (int i = 0; i < 100; ++i) {
            const std::string name = tag + std::to_string(i);
            EXPECT_EQ(setDword(key.get(), name.c_str(), DWORD(i)), ERROR_SUCCESS);
            EXPECT_EQ(RegIncrementValue(key.get(), "total", 1, nullptr), ERROR_SUCCESS);
            create(name.c_str(), KEY_READ, key.get());
        }
    };
    std::thread a(work, 'a'), b(work, 'b');
    a.join();
    b.join();
    EXPECT_EQ(names(key.get()).size(), 201u);
    EXPECT_EQ(names(key.get(), true).size(), 200u);
    EXPECT_EQ(read(key.get(), "total"), dword(200));
}

TEST_F(RegistryTest, SettingsDefaultsReopeningAndTheGlobalFont) {
    CKTRegistry reg;  // closed: defaults, and nothing is written
    EXPECT_EQ(reg.GetInt("i", -3), -3);
    EXPECT_EQ(reg.GetString("s", "dflt"), "dflt");
    EXPECT_FALSE(reg.SetInt("i", 1) || reg.SetString("s", "x"));
    EXPECT_EQ(reg.Open(nullptr, "Software"), nullptr);
    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, "Software\\Quillbox\\Test"), nullptr);
    EXPECT_TRUE(reg.SetInt("int", -12345));
    ASSERT_NE(reg.Open(reg, "Child"), nullptr);  // below its own key
    EXPECT_TRUE(reg.SetInt("deep", 1));
    CKTRegistry again;
    again.Open(HKEY_CURRENT_USER, "software\\quillbox\\test");
    EXPECT_EQ(again.GetInt("INT", 0), -12345);
    EXPECT_NE(CKTRegistry().Open(again, "CHILD"), nullptr);
    reg.Close();
    EXPECT_EQ(reg.GetInt("deep", 6), 6);

    // The global font: an installed or the system's fixed font at 10 points until the settings
    // key says otherwise; a height of 0 means the default.
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 10);
    const CString font = CKTMgrSetting::GetGlobalFontName();
    EXPECT_TRUE(QFontDatabase::families().contains(font.toQString()) ||
                font == QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toUtf8().constData())
        << font.c_str();
    CKTMgrSetting settings(0);
    EXPECT_TRUE(settings.SetString("Global Font Name", "Courier Prime") && settings.SetInt("Global Font Height", 13));
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontName(), "Courier Prime");
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 13);
    EXPECT_TRUE(settings.SetInt("Global Font Height", 0));
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 10);
    EXPECT_EQ(CKTMgrSetting().GetKey(), nullptr);
}

}  // namespace
