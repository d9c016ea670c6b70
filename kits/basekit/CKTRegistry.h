#pragma once
// Settings access of the utility library: CKTRegistry reads and writes the values of one
// registry key; CKTMgrSetting is the application's settings key. A getter gives its default
// when the key is closed or the value is absent or of another type: a closed key is no error.
#include "CString.h"
#include "Registry.h"

class QUILLBOX_EXPORT CKTRegistry {
public:
    CKTRegistry() = default;
    virtual ~CKTRegistry();  // closes the key
    CKTRegistry(const CKTRegistry&) = delete;
    CKTRegistry& operator=(const CKTRegistry&) = delete;

    // Opens (creating when missing) `subKey` below `parent`; the previous key is closed.
    // Returns the key handle, null on failure.
    HKEY Open(HKEY parent, const char* subKey);
    void Close();
    HKEY GetKey() const { return key_; }
    operator HKEY() const { return key_; }

    // Numbers are REG_DWORD values, or REG_SZ values holding a decimal number; GetBOOL gives
    // TRUE for any number but 0. Strings are REG_SZ or REG_EXPAND_SZ, up to their first NUL.
    int GetInt(const char* name, int defaultValue) const;
    BOOL GetBOOL(const char* name, BOOL defaultValue) const;
    DWORD GetDWORD(const char* name, DWORD defaultValue) const;
    CString GetString(const char* name, const CString& defaultValue) const;

    // Numbers are written as REG_DWORD, strings as REG_SZ with their NUL; false when the key
    // is closed or the write failed.
    bool SetInt(const char* name, int value);
    bool SetBOOL(const char* name, BOOL value);
    bool SetDWORD(const char* name, DWORD value);
    bool SetString(const char* name, const char* value);

protected:
    HKEY key_ = nullptr;
};

// The application's settings key, HKEY_CURRENT_USER "Software\Quillbox\Settings".
class QUILLBOX_EXPORT CKTMgrSetting : public CKTRegistry {
public:
    CKTMgrSetting() = default;           // opens nothing; use Open or Create
    explicit CKTMgrSetting(int flags);   // opens the settings key at once
    HKEY Create(int flags);

    static const char* SettingsKeyPath();  // "Software\\Quillbox\\Settings"
    // The editor's default font: the setting "Global Font Name" when present, else a
    // monospace family installed on this machine; the height from "Global Font Height" when
    // it is above 0, else 10.
    static CString GetGlobalFontName();
    static int GetGlobalFontHeight();
};
