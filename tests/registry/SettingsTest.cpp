// CKTRegistry and CKTMgrSetting over a store file of the test's own.
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <string>

#include "CKTRegistry.h"
#include "ScratchRegistry.h"

namespace {

class RegistrySettingsTest : public ::testing::Test {
protected:
    ScratchRegistry registry;
    CKTRegistry reg;
};

TEST_F(RegistrySettingsTest, ValuesRoundTripAndAClosedKeyGivesDefaults) {
    EXPECT_EQ(reg.GetInt("i", -3), -3);
    EXPECT_EQ(reg.GetString("s", "dflt"), "dflt");
    EXPECT_FALSE(reg.SetInt("i", 1) || reg.SetString("s", "x"));
    EXPECT_EQ(reg.Open(nullptr, "Software"), nullptr);

    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, "Software\\Quillbox\\Test"), nullptr);
    EXPECT_TRUE(reg.SetInt("int", -12345) && reg.SetBOOL("bool", 7) && reg.SetDWORD("dword", 0xFFFFFFF0u));
    EXPECT_TRUE(reg.SetString("string", "h\xC3\xA9llo") && reg.SetString("empty", nullptr));
    EXPECT_EQ(reg.GetInt("int", 0), -12345);
    EXPECT_EQ(reg.GetBOOL("bool", FALSE), TRUE);
    EXPECT_EQ(reg.GetDWORD("dword", 0), 0xFFFFFFF0u);
    EXPECT_EQ(reg.GetInt("dword", 0), -16);
    EXPECT_EQ(reg.GetString("string", ""), "h\xC3\xA9llo");
    EXPECT_EQ(reg.GetString("empty", "x"), "");
    // Stored as REG_SZ with its NUL, as other programs expect.
    DWORD type = 0, size = 0;
    ASSERT_EQ(RegQueryValueEx(reg, "string", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(size, 7u);

    // Reopening below its own key works, and the values persist in the new object.
    ASSERT_NE(reg.Open(reg, "Child"), nullptr);
    EXPECT_TRUE(reg.SetInt("deep", 1));
    CKTRegistry again;
    again.Open(HKEY_CURRENT_USER, "software\\quillbox\\test");
    EXPECT_EQ(again.GetInt("INT", 0), -12345);
    EXPECT_NE(CKTRegistry().Open(again, "CHILD"), nullptr);
    reg.Close();
    EXPECT_EQ(reg.GetInt("deep", 6), 6);
}

// What the typed getters make of values other programs may have written: numbers from
// decimal text, NUL or not; anything else gives the default (-7, "dflt").
TEST_F(RegistrySettingsTest, UnexpectedTypesGiveDefaults) {
    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, "Software\\Types"), nullptr);
    const struct { const char* name; DWORD type; std::string data; int asInt; const char* asString; } rows[] = {
        {"bin", REG_BINARY, std::string("\1\0\0\0", 4), -7, "dflt"},
        {"dword", REG_DWORD, std::string("\5\0\0\0", 4), 5, "dflt"},
        {"nonul", REG_SZ, "42", 42, "42"},
        {"expand", REG_EXPAND_SZ, std::string("%A%\0", 4), -7, "%A%"},
        {"neg", REG_SZ, std::string("-1\0", 3), -1, "-1"},
        {"max", REG_SZ, std::string("4294967295\0", 11), -1, "4294967295"},
        {"huge", REG_SZ, std::string("4294967296\0", 11), -7, "4294967296"},
        {"junk", REG_SZ, std::string("12abc\0", 6), -7, "12abc"},
        {"empty", REG_SZ, std::string("\0", 1), -7, ""},
        {"missing", REG_NONE, "", -7, "dflt"},
    };
    for (const auto& r : rows) {
        const auto* data = reinterpret_cast<const BYTE*>(r.data.data());
        const DWORD size = DWORD(r.data.size());
        ASSERT_TRUE(r.type == REG_NONE || RegSetValueEx(reg, r.name, 0, r.type, data, size) == ERROR_SUCCESS);
        EXPECT_EQ(reg.GetInt(r.name, -7), r.asInt) << r.name;
        EXPECT_EQ(reg.GetDWORD(r.name, DWORD(-7)), DWORD(r.asInt)) << r.name;
        EXPECT_EQ(reg.GetBOOL(r.name, 3), r.asInt == -7 ? 3 : TRUE) << r.name;
        EXPECT_EQ(reg.GetString(r.name, "dflt"), r.asString) << r.name;
    }
}

TEST_F(RegistrySettingsTest, GlobalFontSettings) {
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 10);
    const CString font = CKTMgrSetting::GetGlobalFontName();
    EXPECT_TRUE(QFontDatabase::families().contains(font.toQString()) ||
                font == QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toUtf8().constData())
        << font.c_str();

    CKTMgrSetting settings(0);
    ASSERT_NE(settings.GetKey(), nullptr);
    EXPECT_TRUE(settings.SetString("Global Font Name", "Courier Prime") && settings.SetInt("Global Font Height", 13));
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontName(), "Courier Prime");
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 13);
    EXPECT_TRUE(settings.SetInt("Global Font Height", 0));
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 10);

    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, CKTMgrSetting::SettingsKeyPath()), nullptr);
    EXPECT_EQ(reg.GetString("Global Font Name", ""), "Courier Prime");
    CKTMgrSetting unopened;
    EXPECT_EQ(unopened.GetKey(), nullptr);
    EXPECT_NE(unopened.Create(0), nullptr);
}

}  // namespace
