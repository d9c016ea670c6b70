#include "System.h"
#include "LibraryOnly.h"

#include <QApplication>
#include <QCoreApplication>
#include <QLocale>
#include <QThread>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <signal.h>
#include <unistd.h>

namespace {
thread_local DWORD lastError = 0;
thread_local CString lastErrorText;

struct LanguageId {
    QLocale::Language language;
    QLocale::Territory territory;  // AnyTerritory matches every territory of the language
    LANGID id;
};

// The Windows ids of the languages the library tells apart, and a few common others.
constexpr LanguageId kLanguageIds[] = {
    {QLocale::Chinese, QLocale::Taiwan, 1028},   {QLocale::Chinese, QLocale::HongKong, 3076},
    {QLocale::Chinese, QLocale::China, 2052},    {QLocale::Chinese, QLocale::AnyTerritory, 2052},
    {QLocale::Japanese, QLocale::AnyTerritory, 1041}, {QLocale::Korean, QLocale::AnyTerritory, 1042},
    {QLocale::English, QLocale::UnitedKingdom, 2057}, {QLocale::English, QLocale::AnyTerritory, 1033},
    {QLocale::German, QLocale::AnyTerritory, 1031},   {QLocale::French, QLocale::AnyTerritory, 1036},
    {QLocale::Spanish, QLocale::AnyTerritory, 3082},  {QLocale::Italian, QLocale::AnyTerritory, 1040},
    {QLocale::Russian, QLocale::AnyTerritory, 1049},  {QLocale::Portuguese, QLocale::Brazil, 1046},
};
}  // namespace

DWORD GetLastError() { return lastError; }

CString GetLastErrorText() { return lastErrorText; }

void SetLastError(DWORD code) {
    lastError = code;
    lastErrorText = code ? std::strerror(int(code)) : "";
}

void SetLastError(DWORD code, const char* text) {
    lastError = code;
    lastErrorText = text ? text : "";
}

void Sleep(DWORD milliseconds) { QThread::msleep(milliseconds); }

LANGID GetSystemDefaultLangID() {
    if (const char* forced = std::getenv("QUILLBOX_LANGID")) {
        char* end = nullptr;
        long v = std::strtol(forced, &end, 0);
        if (end != forced && v > 0 && v <= 0xFFFF) return LANGID(v);
    }
    QLocale locale = QLocale::system();
    for (const LanguageId& entry : kLanguageIds)
        if (entry.language == locale.language() &&
            (entry.territory == QLocale::AnyTerritory || entry.territory == locale.territory()))
            return entry.id;
    return 1033;
}

HMODULE LoadLibrary(const char* name) {
    if (!name || !*name) {
        SetLastError(ERROR_MOD_NOT_FOUND_CODE, "no library name");
        return nullptr;
    }
    dlerror();
    void* handle = dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (!handle) {
        const char* why = dlerror();
        SetLastError(ERROR_MOD_NOT_FOUND_CODE, why ? why : "the library could not be loaded");
    }
    return handle;
}

BOOL FreeLibrary(HMODULE module) { return module && dlclose(module) == 0; }

HMODULE LibraryContaining(const void* address) {
    Dl_info info{};
    if (dladdr(address, &info) && info.dli_fname)
        if (void* handle = dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD)) return handle;
    return dlopen(nullptr, RTLD_NOW);
}

CString GetModuleFileName() {
    char path[PATH_MAX + 1];
    ssize_t n = readlink("/proc/self/exe", path, PATH_MAX);
    if (n > 0) return CString(path, int(n));
    if (QCoreApplication::instance()) return CString::fromQString(QCoreApplication::applicationFilePath());
    return CString();
}

#include <Qt>

#include "KeyCodes.h"

UINT VirtualKeyFromQtKey(int key) {
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return UINT(key);
    if (key >= Qt::Key_0 && key <= Qt::Key_9) return UINT(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) return VK_F1 + UINT(key - Qt::Key_F1);
    switch (key) {
        case Qt::Key_Backspace: return VK_BACK;
        case Qt::Key_Tab: case Qt::Key_Backtab: return VK_TAB;
        case Qt::Key_Return: case Qt::Key_Enter: return VK_RETURN;
        case Qt::Key_Shift: return VK_SHIFT;
        case Qt::Key_Control: return VK_CONTROL;
        case Qt::Key_Alt: return VK_MENU;
        case Qt::Key_Escape: return VK_ESCAPE;
        case Qt::Key_Space: return VK_SPACE;
        case Qt::Key_PageUp: return VK_PRIOR;
        case Qt::Key_PageDown: return VK_NEXT;
        case Qt::Key_End: return VK_END;
        case Qt::Key_Home: return VK_HOME;
        case Qt::Key_Left: return VK_LEFT;
        case Qt::Key_Up: return VK_UP;
        case Qt::Key_Right: return VK_RIGHT;
        case Qt::Key_Down: return VK_DOWN;
        case Qt::Key_Insert: return VK_INSERT;
        case Qt::Key_Delete: return VK_DELETE;
        case Qt::Key_Minus: case Qt::Key_Underscore: return VK_OEM_MINUS;
        case Qt::Key_Equal: case Qt::Key_Plus: return VK_OEM_PLUS;
        case Qt::Key_Comma: case Qt::Key_Less: return VK_OEM_COMMA;
        case Qt::Key_Period: case Qt::Key_Greater: return VK_OEM_PERIOD;
        case Qt::Key_Slash: case Qt::Key_Question: return VK_OEM_2;
        case Qt::Key_Semicolon: case Qt::Key_Colon: return VK_OEM_1;
        case Qt::Key_QuoteLeft: case Qt::Key_AsciiTilde: return VK_OEM_3;
        case Qt::Key_BracketLeft: case Qt::Key_BraceLeft: return VK_OEM_4;
        case Qt::Key_Backslash: case Qt::Key_Bar: return VK_OEM_5;
        case Qt::Key_BracketRight: case Qt::Key_BraceRight: return VK_OEM_6;
        case Qt::Key_Apostrophe: case Qt::Key_QuoteDbl: return VK_OEM_7;
        case Qt::Key_ParenRight: return '0';
        case Qt::Key_ParenLeft: return '9';
        default: return 0;
    }
}

namespace {
std::atomic<unsigned long> beepCount{0};
}  // namespace

BOOL MessageBeep(UINT) {
    ++beepCount;
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) &&
        QGuiApplication::platformName() != QLatin1String("offscreen"))
        QApplication::beep();
    return TRUE;
}

unsigned long GetMessageBeepCount() { return beepCount.load(); }

DWORD GetCurrentProcessId() { return DWORD(getpid()); }

void KillCurrentProcess() {
    kill(getpid(), SIGKILL);
    std::abort();   // not reached: SIGKILL cannot be caught
}
