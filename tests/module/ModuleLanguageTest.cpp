// The library's language step: the setting, the translation files beside the program, and
// the library's strings in the chosen language.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <cstdlib>

#include "CKTRegistry.h"
#include "ModuleLanguage.h"
#include "Resources.h"
#include "ScratchRegistry.h"
#include "System.h"

using namespace quillbox_module;

namespace {
// A registry of its own, a trace file, and translation files beside this test program that
// are removed again at the end of a test.
class ModuleLanguage : public ::testing::Test {
protected:
    void SetUp() override { setenv("QUILLBOX_LOG_FILE", dir.filePath("trace.log").toUtf8().constData(), 1); }
    void TearDown() override {
        unsetenv("QUILLBOX_LOG_FILE");
        ReleaseSatellite();
        for (const QString& folder : made) QDir(folder).removeRecursively();
    }
    // The program's empty translation file, and with `library` the library's Korean one.
    void addSatellites(const char* language, bool library) {
        const QString program = ProgramSatellitePath(GetModuleFileName(), language).toQString();
        made << QFileInfo(program).absolutePath();
        QDir().mkpath(made.back());
        QFile f(program);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        const QString target = LibrarySatellitePath(GetModuleFileName(), language).toQString();
        if (library) { ASSERT_TRUE((QFile::remove(target), QFile::copy(QUILLBOX_KOREAN_QM, target))); }
    }
    QString trace() const {
        QFile f(dir.filePath("trace.log"));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }
    void defineLanguage(const char* language) { CKTMgrSetting(0).SetString("DefinedLanguage", language); }

    ScratchRegistry registry;
    QTemporaryDir dir;
    QStringList made;
};
}  // namespace

TEST(ModuleLanguagePaths, ProgramFolderIsCutAtTheLaterSeparator) {
    EXPECT_EQ(ProgramFolder("C:\\a/b\\p.exe"), "C:\\a/b");
    EXPECT_EQ(ProgramFolder("C:\\a\\b/p.exe"), "C:\\a\\b");
    EXPECT_EQ(ProgramSatellitePath("/opt/q/bin/quillbox", "ko-KR"), "/opt/q/bin/ko-KR/quillbox.qm");
    EXPECT_EQ(LibrarySatellitePath("/opt/q/bin/quillbox", "ko-KR"), "/opt/q/bin/ko-KR/Quillbox.qm");
}

TEST_F(ModuleLanguage, TheSettingDecidesAndTheDefaultOnlyProvesSatellitesExist) {
    CString language;
    EXPECT_EQ(GetMyUserDefinedLanguage(language), 0);  // no satellites at all
    defineLanguage("ko-KR");
    EXPECT_EQ(SelectModuleLanguage(), 0);  // a missing language leaves a failure line and English
    EXPECT_TRUE(trace().contains("FAILURE1: GetMyUserDefinedLanguage."));
    EXPECT_STREQ(LoadResourceString(8202), "Cannot transform text line end");

    addSatellites("en-US", false);
    EXPECT_EQ(GetMyUserDefinedLanguage(language), 1);
    EXPECT_EQ(language, "ko-KR");  // only en-US satellites exist, and ko-KR still stands
    ScratchRegistry empty;
    EXPECT_EQ(GetMyUserDefinedLanguage(language), 1);
    EXPECT_EQ(language, "en-US");  // the setting is missing: its default
}

TEST_F(ModuleLanguage, TheChosenLanguagesTranslationServesTheLibrarysStrings) {
    addSatellites("ko-KR", true);
    defineLanguage("ko-KR");
    EXPECT_EQ(SelectModuleLanguage(), 1);
    EXPECT_EQ(QLocale().language(), QLocale::Korean);
    ASSERT_NE(Satellite(), nullptr);
    EXPECT_STREQ(LoadResourceString(8202), "텍스트 줄 끝을 변환할 수 없습니다");
    EXPECT_EQ(QCoreApplication::translate("Quillbox", "Cancel"), QString::fromUtf8("취소"));
    ReleaseSatellite();
    EXPECT_STREQ(LoadResourceString(8202), "Cannot transform text line end");
    // A library translation under a language the system does not know fails the second step.
    addSatellites("xx-unknown", true);
    defineLanguage("xx-unknown");
    EXPECT_EQ(SelectModuleLanguage(), 0);
    EXPECT_TRUE(trace().contains("FAILURE2"));
}
