#include "CKTUtil.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <cstdarg>

#include "System.h"

CString CKTString::ArrayToString(const CStringArray& items, const char* separator, bool skipEmpty) {
    CString out;
    bool first = true;
    for (const CString& item : items) {
        if (skipEmpty && item.IsEmpty()) continue;
        if (!first) out += separator;
        out += item;
        first = false;
    }
    return out;
}

int CKTString::StringToArray(const CString& text, CStringArray& items, const char* separator) {
    items.RemoveAll();
    if (text.IsEmpty()) return 0;
    const CString sep(separator ? separator : "");
    if (sep.IsEmpty()) {
        items.Add(text);
        return 1;
    }
    int start = 0;
    for (int hit; (hit = text.Find(sep, start)) >= 0; start = hit + sep.GetLength())
        items.Add(text.Mid(start, hit - start));
    items.Add(text.Mid(start));
    return items.GetSize();
}

CString CKTString::Format(const char* format, ...) {
    CString out;
    va_list args;
    va_start(args, format);
    out.FormatV(format, args);
    va_end(args);
    return out;
}

CString CKTFile::GetAppFolder() {
    CString path = GetModuleFileName();
    int slash = path.ReverseFind('/');
    return slash > 0 ? path.Left(slash) : CString(slash == 0 ? "/" : ".");
}

CString CKTSystem::GetSystemFontName() {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return "DejaVu Sans";
    return CString::fromQString(QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
}
