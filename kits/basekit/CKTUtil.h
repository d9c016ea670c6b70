#pragma once
// Small helpers of the utility library: strings, the program's folder, the system font.
#include "CString.h"

class QUILLBOX_EXPORT CKTString {
public:
    // Joins the items with the separator; `skipEmpty` leaves empty items out.
    static CString ArrayToString(const CStringArray& items, const char* separator, bool skipEmpty);
    // Splits at each separator (a whole text, not a set of characters); returns the count.
    static int StringToArray(const CString& text, CStringArray& items, const char* separator);
    static CString Format(const char* format, ...) __attribute__((format(printf, 1, 2)));
};

class QUILLBOX_EXPORT CKTFile {
public:
    // The running program's folder, with no separator at its end.
    static CString GetAppFolder();
};

class QUILLBOX_EXPORT CKTSystem {
public:
    static CString GetSystemFontName();
};

// Switches resource lookups to a module for a scope. The library has one resource table,
// so there is nothing to switch; the class keeps the calling code's shape.
class QUILLBOX_EXPORT CKTResChange {
public:
    explicit CKTResChange(void* module) : module_(module) {}
    ~CKTResChange() { Restore(); }
    void Restore() { module_ = nullptr; }

private:
    void* module_;
};
