#include "ModuleLanguage.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLocale>
#include <QTranslator>
#include <algorithm>

#include "CKTRegistry.h"
#include "Settings.h"
#include "CKTUtilTrace.h"
#include "System.h"

namespace quillbox_module {
namespace {
constexpr const char* kLibraryName = "libquillbox.so";
constexpr const char* kDefaultLanguage = "en-US";
QTranslator* satellite = nullptr;

void traceFailure(const char* what) {
    CString line;
    line.Format("[%s] %s, last error = %u.", kLibraryName, what, unsigned(GetLastError()));
    CKTUtilTrace::WriteLogFileInTemp("%s : ( %d )", line.c_str(), __LINE__);
}

// "ko-KR" names the locale ko_KR; a text Qt does not know gives the C locale.
QLocale LocaleOf(const CString& language) {
    QString name = language.toQString();
    name.replace('-', '_');
    return QLocale(name);
}
}  // namespace

CString ProgramFolder(const CString& programPath) {
    const int separator = std::max(programPath.ReverseFind('/'), programPath.ReverseFind('\\'));
    return separator >= 0 ? programPath.Left(separator) : CString(".");
}

CString ProgramSatellitePath(const CString& programPath, const CString& language) {
    const int separator = std::max(programPath.ReverseFind('/'), programPath.ReverseFind('\\'));
    return ProgramFolder(programPath) + "/" + language + "/" + programPath.Mid(separator + 1) + ".qm";
}

CString LibrarySatellitePath(const CString& programPath, const CString& language) {
    return ProgramFolder(programPath) + "/" + language + "/Quillbox.qm";
}

int IsSatelliteThere(const CString& language) {
    return QFileInfo(ProgramSatellitePath(GetModuleFileName(), language).toQString()).isFile() ? 1 : 0;
}

int GetMyUserDefinedLanguage(CString& language) {
    CKTMgrSetting setting;
    if (!setting.Create(0)) return 0;
    language = settings::DefinedLanguage.Read(setting, kDefaultLanguage);
    if (IsSatelliteThere(language)) return 1;
    // The default language only tells whether the program has translation files at all; the
    // language stays what the setting says.
    return IsSatelliteThere(kDefaultLanguage);
}

int SetUserDefinedLanguage(const CString& language) {
    const QLocale locale = LocaleOf(language);
    int result = 0;
    if (locale.language() != QLocale::C) {
        QLocale::setDefault(locale);
        result = 1;
    } else {
        SetLastError(ERROR_FILE_NOT_FOUND_CODE, "unknown language");
    }
    if (!satellite) {
        auto* translator = new QTranslator;
        const QString path = LibrarySatellitePath(GetModuleFileName(), language).toQString();
        if (translator->load(path) && QCoreApplication::instance()) {
            QCoreApplication::installTranslator(translator);
            satellite = translator;
        } else {
            // No translation of the library's strings is no failure: they stay in English.
            delete translator;
            result = 1;
        }
    }
    return result;
}

int SelectModuleLanguage() {
    CString language;
    if (!GetMyUserDefinedLanguage(language)) {
        traceFailure("FAILURE1: GetMyUserDefinedLanguage.");
        return 0;
    }
    if (!SetUserDefinedLanguage(language)) {
        traceFailure("FAILURE2: Unable to set the user defined languages");
        return 0;
    }
    return 1;
}

QTranslator* Satellite() { return satellite; }

void ReleaseSatellite() {
    if (!satellite) return;
    if (QCoreApplication::instance()) QCoreApplication::removeTranslator(satellite);
    delete satellite;
    satellite = nullptr;
}

}  // namespace quillbox_module
