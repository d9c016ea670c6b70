// CKTRegistry and CKTMgrSetting over a store file of the test's own.
#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QTemporaryDir>
#include <string>

#include "CKTRegistry.h"

namespace {

class RegistrySettingsTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        ASSERT_TRUE(RegSetStorePath(dir_.filePath("registry.sqlite").toUtf8().constData()));
    }
    void TearDown() override { RegSetStorePath(nullptr); }

    QTemporaryDir dir_;
};

TEST_F(RegistrySettingsTest, ClosedKeyGivesDefaults) {
    CKTRegistry reg;
    EXPECT_EQ(reg.GetKey(), nullptr);
    EXPECT_EQ(reg.GetInt("i", -3), -3);
    EXPECT_EQ(reg.GetBOOL("b", TRUE), TRUE);
    EXPECT_EQ(reg.GetDWORD("d", 77u), 77u);
    EXPECT_EQ(reg.GetString("s", "dflt"), "dflt");
    EXPECT_FALSE(reg.SetInt("i", 1));
    EXPECT_FALSE(reg.SetString("s", "x"));
    EXPECT_EQ(reg.Open(nullptr, "Software"), nullptr);
}

TEST_F(RegistrySettingsTest, ValuesRoundTrip) {
    CKTRegistry reg;
    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, "Software\\Quillbox\\Test"), nullptr);
    EXPECT_TRUE(reg.SetInt("int", -12345));
    EXPECT_TRUE(reg.SetBOOL("bool", 7));
    EXPECT_TRUE(reg.SetDWORD("dword", 0xFFFFFFF0u));
    EXPECT_TRUE(reg.SetString("string", "h\xC3\xA9llo"));
    EXPECT_TRUE(reg.SetString("empty", nullptr));
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
}

TEST_F(RegistrySettingsTest, UnexpectedTypesGiveDefaults) {
    CKTRegistry reg;
    ASSERT_NE(reg.Open(HKEY_CURRENT_USER, "Software\\Types"), nullptr);
    const BYTE four[4] = {1, 0, 0, 0};
    ASSERT_EQ(RegSetValueEx(reg, "bin", 0, REG_BINARY, four, 4), ERROR_SUCCESS);
    ASSERT_EQ(RegSetValueEx(reg, "nonul", 0, REG_SZ, reinterpret_cast<const BYTE*>("42"), 2), ERROR_SUCCESS);
    ASSERT_EQ(RegSetValueEx(reg, "expand", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>("%A%\0"), 4),
              ERROR_SUCCESS);
    EXPECT_TRUE(reg.SetString("neg", "-1"));
    EXPECT_TRUE(reg.SetString("junk", "12abc"));
    EXPECT_TRUE(reg.SetString("huge", "4294967296"));
    EXPECT_TRUE(reg.SetDWORD("dword", 5));

    EXPECT_EQ(reg.GetInt("bin", 9), 9);
    EXPECT_EQ(reg.GetString("bin", "d"), "d");
    EXPECT_EQ(reg.GetString("dword", "d"), "d");
    EXPECT_EQ(reg.GetInt("nonul", 0), 42);  // decimal text counts as a number, NUL or not
    EXPECT_EQ(reg.GetString("nonul", ""), "42");
    EXPECT_EQ(reg.GetString("expand", ""), "%A%");
    EXPECT_EQ(reg.GetDWORD("neg", 0), 0xFFFFFFFFu);
    EXPECT_EQ(reg.GetBOOL("neg", FALSE), TRUE);
    EXPECT_EQ(reg.GetInt("junk", 3), 3);
    EXPECT_EQ(reg.GetDWORD("huge", 3), 3u);
    EXPECT_EQ(reg.GetInt("missing", 4), 4);

    reg.Close();
    EXPECT_EQ(reg.GetInt("dword", 6), 6);
}

TEST_F(RegistrySettingsTest, GlobalFontSettings) {
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 10);
    const CString font = CKTMgrSetting::GetGlobalFontName();
    EXPECT_FALSE(font.IsEmpty());
    EXPECT_TRUE(QFontDatabase::families().contains(font.toQString()) ||
                font == QFontDatabase::systemFont(QFontDatabase::FixedFont).family().toUtf8().constData())
        << font.c_str();

    CKTMgrSetting settings(0);
    ASSERT_NE(settings.GetKey(), nullptr);
    EXPECT_TRUE(settings.SetString("Global Font Name", "Courier Prime"));
    EXPECT_TRUE(settings.SetInt("Global Font Height", 13));
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontName(), "Courier Prime");
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 13);
    EXPECT_TRUE(settings.SetInt("Global Font Height", 0));
    EXPECT_EQ(CKTMgrSetting::GetGlobalFontHeight(), 10);

    CKTRegistry direct;
    ASSERT_NE(direct.Open(HKEY_CURRENT_USER, CKTMgrSetting::SettingsKeyPath()), nullptr);
    EXPECT_EQ(direct.GetString("Global Font Name", ""), "Courier Prime");
    CKTMgrSetting unopened;
    EXPECT_EQ(unopened.GetKey(), nullptr);
    EXPECT_NE(unopened.Create(0), nullptr);
}

}  // namespace
