// The library's language step: the setting, the translation files beside the program, and
// the library's strings in the chosen language.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QFile>
#include <QTemporaryDir>
#include <cstdlib>

#include "CKTRegistry.h"
#include "ModuleLanguage.h"
#include "Resources.h"
#include "ScratchRegistry.h"
#include "System.h"

using namespace quillbox_module;

namespace {
// Translation files beside this test program, removed again at the end of a test.
class Satellites {
public:
    ~Satellites() {
        for (const QString& folder : made_) QDir(folder).removeRecursively();
    }
    void addProgram(const char* language) { write(ProgramSatellitePath(GetModuleFileName(), language)); }
    void addLibrary(const char* language) {
        const QString target = LibrarySatellitePath(GetModuleFileName(), language).toQString();
        remember(target);
        QFile::remove(target);
        ASSERT_TRUE(QFile::copy(QUILLBOX_KOREAN_QM, target));
    }

private:
    void remember(const QString& file) {
        const QString folder = QFileInfo(file).absolutePath();
        QDir().mkpath(folder);
        if (!made_.contains(folder)) made_ << folder;
    }
    void write(const CString& path) {
        remember(path.toQString());
        QFile f(path.toQString());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    }
    QStringList made_;
};

void defineLanguage(const char* language) {
    CKTMgrSetting setting(0);
    setting.SetString("DefinedLanguage", language);
}

class TraceFile {
public:
    TraceFile() { setenv("QUILLBOX_LOG_FILE", dir_.filePath("trace.log").toUtf8().constData(), 1); }
    ~TraceFile() { unsetenv("QUILLBOX_LOG_FILE"); }
    QString text() const {
        QFile f(dir_.filePath("trace.log"));
        return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
    }

private:
    QTemporaryDir dir_;
};
}  // namespace

TEST(ModuleLanguage, ProgramFolderIsCutAtTheLaterSeparator) {
    EXPECT_EQ(ProgramFolder("C:\\a/b\\p.exe"), "C:\\a/b");
    EXPECT_EQ(ProgramFolder("C:\\a\\b/p.exe"), "C:\\a\\b");
    EXPECT_EQ(ProgramSatellitePath("/opt/q/bin/quillbox", "ko-KR"), "/opt/q/bin/ko-KR/quillbox.qm");
    EXPECT_EQ(LibrarySatellitePath("/opt/q/bin/quillbox", "ko-KR"), "/opt/q/bin/ko-KR/Quillbox.qm");
}

TEST(ModuleLanguage, TheSettingDecidesAndTheDefaultOnlyProvesSatellitesExist) {
    ScratchRegistry registry;
    Satellites satellites;
    CString language;
    EXPECT_EQ(GetMyUserDefinedLanguage(language), 0);  // no satellites at all

    satellites.addProgram("en-US");
    EXPECT_EQ(GetMyUserDefinedLanguage(language), 1);
    EXPECT_EQ(language, "en-US");  // the setting is missing: its default

    defineLanguage("ko-KR");  // only en-US satellites exist, and ko-KR still stands
    EXPECT_EQ(GetMyUserDefinedLanguage(language), 1);
    EXPECT_EQ(language, "ko-KR");
}

TEST(ModuleLanguage, AMissingLanguageLeavesAFailureLineAndTheStringsInEnglish) {
    ScratchRegistry registry;
    TraceFile trace;
    defineLanguage("ko-KR");
    EXPECT_EQ(SelectModuleLanguage(), 0);
    EXPECT_TRUE(trace.text().contains("FAILURE1: GetMyUserDefinedLanguage."));
    EXPECT_STREQ(LoadResourceString(8202), "Cannot transform text line end");
}

TEST(ModuleLanguage, TheChosenLanguagesTranslationServesTheLibrarysStrings) {
    ScratchRegistry registry;
    Satellites satellites;
    satellites.addProgram("ko-KR");
    satellites.addLibrary("ko-KR");
    defineLanguage("ko-KR");
    EXPECT_EQ(SelectModuleLanguage(), 1);
    EXPECT_EQ(QLocale().language(), QLocale::Korean);
    ASSERT_NE(Satellite(), nullptr);
    EXPECT_STREQ(LoadResourceString(8202), "텍스트 줄 끝을 변환할 수 없습니다");
    EXPECT_EQ(QCoreApplication::translate("Quillbox", "Cancel"), QString::fromUtf8("취소"));
    ReleaseSatellite();
    EXPECT_STREQ(LoadResourceString(8202), "Cannot transform text line end");
}

TEST(ModuleLanguage, AnUnknownLanguageWithALibraryTranslationFailsTheSecondStep) {
    ScratchRegistry registry;
    Satellites satellites;
    TraceFile trace;
    satellites.addProgram("xx-unknown");
    satellites.addLibrary("xx-unknown");
    defineLanguage("xx-unknown");
    EXPECT_EQ(SelectModuleLanguage(), 0);
    EXPECT_TRUE(trace.text().contains("FAILURE2"));
    ReleaseSatellite();
}
