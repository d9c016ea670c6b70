#include "CKTRegistry.h"
#include "Settings.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QStringList>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace {

constexpr const char* kFallbackFont = "DejaVu Sans Mono";

// Reads a value whole; false when the key is closed or the value cannot be read. Another
// process may grow the value between the size query and the read, hence the retries.
bool readValue(HKEY key, const char* name, DWORD& type, std::vector<BYTE>& data) {
    if (!key) return false;
    for (int attempt = 0; attempt < 4; ++attempt) {
        DWORD size = 0;
        if (RegQueryValueEx(key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return false;
        data.assign(size, 0);
        LSTATUS rc = RegQueryValueEx(key, name, nullptr, &type, data.data(), &size);
        if (rc == ERROR_SUCCESS) {
            data.resize(size);
            return true;
        }
        if (rc != ERROR_MORE_DATA) return false;
    }
    return false;
}

// The text of a string value up to its first NUL.
std::optional<std::string_view> asText(DWORD type, const std::vector<BYTE>& data) {
    if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
    std::string_view text(reinterpret_cast<const char*>(data.data()), data.size());
    return text.substr(0, text.find('\0'));
}

// The 32 bits of a number value: a REG_DWORD, or a REG_SZ holding a decimal number from
// INT_MIN to UINT_MAX (negative numbers as their two's complement).
std::optional<DWORD> readNumber(HKEY key, const char* name) {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
    if (!readValue(key, name, type, data)) return std::nullopt;
    if (type == REG_DWORD && data.size() == sizeof(DWORD)) {
        DWORD v = 0;
        std::memcpy(&v, data.data(), sizeof v);
        return v;
    }
    if (auto text = asText(type, data); text && !text->empty()) {
        std::int64_t v = 0;
        const char* end = text->data() + text->size();
        auto [p, ec] = std::from_chars(text->data(), end, v);
        if (ec == std::errc() && p == end && v >= INT32_MIN && v <= std::int64_t(UINT32_MAX))
            return DWORD(v);
    }
    return std::nullopt;
}

}  // namespace

CKTRegistry::~CKTRegistry() { Close(); }

HKEY CKTRegistry::Open(HKEY parent, const char* subKey) {
    // The new key opens before the old one closes: `parent` may be this object's own key.
    HKEY key = nullptr;
    RegCreateKeyEx(parent, subKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE,
                   nullptr, &key, nullptr);
    Close();
    key_ = key;
    return key_;
}

void CKTRegistry::Close() {
    if (key_) RegCloseKey(key_);
    key_ = nullptr;
}

int CKTRegistry::GetInt(const char* name, int defaultValue) const {
    auto v = readNumber(key_, name);
    return v ? int(*v) : defaultValue;
}

BOOL CKTRegistry::GetBOOL(const char* name, BOOL defaultValue) const {
    auto v = readNumber(key_, name);
    return v ? (*v ? TRUE : FALSE) : defaultValue;
}

DWORD CKTRegistry::GetDWORD(const char* name, DWORD defaultValue) const {
    return readNumber(key_, name).value_or(defaultValue);
}

CString CKTRegistry::GetString(const char* name, const CString& defaultValue) const {
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
    if (!readValue(key_, name, type, data)) return defaultValue;
    auto text = asText(type, data);
    return text ? CString(*text) : defaultValue;
}

bool CKTRegistry::SetInt(const char* name, int value) { return SetDWORD(name, DWORD(value)); }

bool CKTRegistry::SetBOOL(const char* name, BOOL value) { return SetDWORD(name, value ? 1 : 0); }

bool CKTRegistry::SetDWORD(const char* name, DWORD value) {
    return key_ && RegSetValueEx(key_, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                                 sizeof value) == ERROR_SUCCESS;
}

bool CKTRegistry::SetString(const char* name, const char* value) {
    if (!value) value = "";
    const size_t size = std::strlen(value) + 1;  // stored with its NUL, as Windows programs do
    return key_ && size <= REG_MAX_VALUE_SIZE &&
           RegSetValueEx(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value), DWORD(size)) ==
               ERROR_SUCCESS;
}

CKTMgrSetting::CKTMgrSetting(int flags) { Create(flags); }

HKEY CKTMgrSetting::Create(int) { return Open(HKEY_CURRENT_USER, SettingsKeyPath()); }

const char* CKTMgrSetting::SettingsKeyPath() { return "Software\\Quillbox\\Settings"; }

CString CKTMgrSetting::GetGlobalFontName() {
    CString name = settings::GlobalFontName.Read(CKTMgrSetting(0), CString());
    if (!name.IsEmpty()) return name;
    // The font database needs a GUI application.
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) return kFallbackFont;
    const QStringList families = QFontDatabase::families();
    for (const char* candidate : {"DejaVu Sans Mono", "Liberation Mono", "Noto Mono"})
        if (families.contains(QString::fromLatin1(candidate), Qt::CaseInsensitive)) return candidate;
    const QString fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    return fixed.isEmpty() ? CString(kFallbackFont) : CString::fromQString(fixed);
}

int CKTMgrSetting::GetGlobalFontHeight() {
    return settings::GlobalFontHeight.Read(CKTMgrSetting(0));
}
