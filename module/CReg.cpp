#include "CReg.h"

#include <cstdlib>
#include <cstring>
#include <vector>

namespace {
bool isStringType(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_LINK || type == REG_MULTI_SZ; }
bool isBufferType(DWORD type) { return isStringType(type) || type == REG_BINARY; }

// A block of `size` bytes from malloc; never null for a size of 0 unless memory is out.
void* allocate(std::size_t size) { return std::malloc(size ? size : 1); }

// The strings of a multi-string buffer, as (start, length). A string that is empty ends the
// walk; one that runs to the end of the buffer without its zero ends there.
std::vector<std::pair<const char*, std::size_t>> splitMulti(const RegVal* value) {
    std::vector<std::pair<const char*, std::size_t>> parts;
    const char* p = static_cast<const char*>(value->data);
    if (!p) return parts;
    const char* end = p + value->size;
    while (p < end && *p != '\0') {
        const void* zero = std::memchr(p, '\0', std::size_t(end - p));
        const char* stop = zero ? static_cast<const char*>(zero) : end;
        parts.emplace_back(p, std::size_t(stop - p));
        p = stop + 1;
    }
    return parts;
}

char* copyString(const char* p, std::size_t length) {
    char* s = static_cast<char*>(allocate(length + 1));
    if (!s) return nullptr;
    std::memcpy(s, p, length);
    s[length] = '\0';
    return s;
}

bool setBuffer(RegVal* value, DWORD type, const void* data, std::size_t size) {
    void* copy = allocate(size);
    if (!copy) {
        value->type = 0;
        return false;
    }
    if (size) std::memcpy(copy, data, size);
    value->type = type;
    value->data = copy;
    value->size = DWORD(size);
    return true;
}

bool setMulti(RegVal* value, const std::vector<std::string_view>& strings) {
    std::string buffer;
    for (std::string_view s : strings) {
        buffer.append(s);
        buffer += '\0';
    }
    buffer += '\0';
    if (strings.empty()) buffer += '\0';  // an empty list is two zero bytes
    return setBuffer(value, REG_MULTI_SZ, buffer.data(), buffer.size());
}

// A sub key opened (or created) for one call, closed again at its end; without a sub key the
// caller's key itself, which stays open.
class CallKey {
public:
    CallKey(HKEY key, const char* subKey, unsigned long access, bool create) {
        if (!key) return;
        if (!subKey) {
            key_ = key;
            return;
        }
        key_ = create ? RegCreate(key, subKey, access) : RegOpen(key, subKey, access);
        owned_ = key_ != nullptr;
    }
    ~CallKey() {
        if (owned_) RegCloseKey(key_);
    }
    CallKey(const CallKey&) = delete;
    CallKey& operator=(const CallKey&) = delete;
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
    bool owned_ = false;
};

// A RegVal that frees what it holds when the call ends.
struct LocalVal : RegVal {
    LocalVal() { RegValInit(this); }
    ~LocalVal() { RegValFree(this); }
    LocalVal(const LocalVal&) = delete;
    LocalVal& operator=(const LocalVal&) = delete;
};

bool loadTyped(HKEY key, const char* subKey, const char* name, LocalVal& value, bool (*fits)(DWORD)) {
    return RegLoadVal(key, subKey, name, &value) && fits(value.type);
}

bool isBinary(DWORD type) { return type == REG_BINARY; }
bool isMulti(DWORD type) { return type == REG_MULTI_SZ; }

// The process's one value walk.
struct ValueWalk {
    DWORD count = 0;
    DWORD next = 0;
    DWORD longestName = 0;
    char* name = nullptr;
};
ValueWalk walk;

// Loads value `index` of the walk as RegLoadVal would, from the enumeration itself: the key's
// values stay listed between calls, where a load by name would ask the store again.
bool loadWalked(HKEY key, DWORD index, RegVal* value) {
    DWORD length = walk.longestName + 1, type = 0, size = 0;
    if (RegEnumValue(key, index, walk.name, &length, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return false;
    if ((type == REG_DWORD && size != sizeof(DWORD)) || (type != REG_DWORD && !isBufferType(type))) return false;
    void* buffer = allocate(size);
    if (!buffer) return false;
    DWORD read = size, readType = 0;
    length = walk.longestName + 1;
    if (RegEnumValue(key, index, walk.name, &length, nullptr, &readType, static_cast<BYTE*>(buffer), &read) !=
            ERROR_SUCCESS ||
        readType != type) {
        std::free(buffer);
        return false;
    }
    RegValFree(value);
    value->type = type;
    if (type == REG_DWORD) {
        std::memcpy(&value->number, buffer, sizeof(DWORD));
        std::free(buffer);
    } else {
        value->data = buffer;
        value->size = read;
    }
    return true;
}

bool walkStep(HKEY key, DWORD index, const char*& name, RegVal* value) {
    DWORD length = walk.longestName + 1;
    if (RegEnumValue(key, index, walk.name, &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return false;
    name = walk.name;
    // A value of a kind the records do not hold (a 64-bit number, say) comes back empty
    // (type 0) rather than ending the walk before the values after it.
    if (!loadWalked(key, index, value)) {
        RegValFree(value);
        RegValInit(value);
    }
    return true;
}
}  // namespace

void RegValInit(RegVal* value) {
    if (value) value->type = 0;
}

void RegValFree(RegVal* value) {
    if (!value || !isBufferType(value->type)) return;
    std::free(value->data);
    value->data = nullptr;
    value->type = 0;
}

bool RegValGetNumber(const RegVal* value, unsigned long* number) {
    if (!value || value->type != REG_DWORD || !number) return false;
    *number = value->number;
    return true;
}

bool RegValGetBinary(const RegVal* value, unsigned char* buffer, unsigned long capacity) {
    if (!value || value->type != REG_BINARY || !buffer || capacity < value->size) return false;
    if (value->size) std::memcpy(buffer, value->data, value->size);
    return true;
}

bool RegValGetNewBinary(const RegVal* value, unsigned char** buffer, unsigned long* size) {
    if (!value || value->type != REG_BINARY || !buffer || !size) return false;
    auto* copy = static_cast<unsigned char*>(allocate(value->size));
    if (!copy) return false;
    if (value->size) std::memcpy(copy, value->data, value->size);
    *buffer = copy;
    *size = value->size;
    return true;
}

bool RegValGetString(const RegVal* value, char* buffer, unsigned long capacity) {
    if (!value || !isStringType(value->type) || !buffer || capacity < (unsigned long)(value->size) + 1) return false;
    if (value->size) std::memcpy(buffer, value->data, value->size);
    buffer[value->size] = '\0';
    return true;
}

bool RegValGetString(const RegVal* value, CString& text) {
    if (!value || !isStringType(value->type)) return false;
    const char* p = static_cast<const char*>(value->data);
    const void* zero = p ? std::memchr(p, '\0', value->size) : nullptr;
    const std::size_t length = zero ? std::size_t(static_cast<const char*>(zero) - p) : (p ? value->size : 0);
    text = CString(std::string_view(p ? p : "", length));
    return true;
}

bool RegValGetNewString(const RegVal* value, char** text, unsigned long* length) {
    if (!value || !isStringType(value->type) || !text) return false;
    char* copy = copyString(static_cast<const char*>(value->data), value->size);
    if (!copy) return false;
    *text = copy;
    if (length) *length = value->size;
    return true;
}

bool RegValGetStringArr(const RegVal* value, char** const strings, unsigned long capacity) {
    if (!value || value->type != REG_MULTI_SZ) return false;
    const auto parts = splitMulti(value);
    if (parts.size() > capacity) return false;
    if (parts.empty()) return true;
    if (!strings) return false;
    for (std::size_t i = 0; i < parts.size(); ++i) strings[i] = copyString(parts[i].first, parts[i].second);
    return true;
}

bool RegValGetNewStringArr(const RegVal* value, char*** strings, unsigned long* count) {
    if (!value || value->type != REG_MULTI_SZ || !strings || !count) return false;
    const auto parts = splitMulti(value);
    char** block = static_cast<char**>(allocate(parts.size() * sizeof(char*)));
    if (!block) return false;
    for (std::size_t i = 0; i < parts.size(); ++i) block[i] = copyString(parts[i].first, parts[i].second);
    *strings = block;
    *count = parts.size();
    return true;
}

bool RegValGetStringArr(const RegVal* value, CStringArray& strings) {
    if (!value || value->type != REG_MULTI_SZ) return false;
    strings.RemoveAll();
    for (const auto& part : splitMulti(value)) strings.Add(CString(std::string_view(part.first, part.second)));
    return true;
}

bool RegValSetNumber(RegVal* value, unsigned long number) {
    if (!value) return false;
    value->type = REG_DWORD;
    value->number = DWORD(number);
    return true;
}

bool RegValSetBinary(RegVal* value, unsigned char* const data, unsigned long size) {
    if (!value) return false;
    if (!data && size) {
        value->type = 0;
        return false;
    }
    return setBuffer(value, REG_BINARY, data, size);
}

bool RegValSetString(RegVal* value, const char* text) {
    if (!value) return false;
    if (!text) {
        value->type = 0;
        return false;
    }
    return setBuffer(value, REG_SZ, text, std::strlen(text) + 1);
}

bool RegValSetStringArr(RegVal* value, const char* const* const strings, unsigned long count) {
    if (!value) return false;
    if (!strings && count) {
        value->type = 0;
        return false;
    }
    std::vector<std::string_view> list;
    for (unsigned long i = 0; i < count; ++i) list.emplace_back(strings[i] ? strings[i] : "");
    return setMulti(value, list);
}

bool RegValSetStringArr(RegVal* value, const CStringArray& strings) {
    if (!value) return false;
    std::vector<std::string_view> list;
    for (const CString& s : strings) list.push_back(std::string_view(s.c_str()));  // each up to its first zero
    return setMulti(value, list);
}

HKEY RegConnect(HKEY key, const char* machine) {
    HKEY result = nullptr;
    return RegConnectRegistry(machine, key, &result) == ERROR_SUCCESS ? result : nullptr;
}

HKEY RegOpen(HKEY key, const char* subKey, unsigned long access) {
    HKEY result = nullptr;
    return RegOpenKeyEx(key, subKey, 0, REGSAM(access), &result) == ERROR_SUCCESS ? result : nullptr;
}

HKEY RegCreate(HKEY key, const char* subKey, unsigned long access) {
    HKEY result = nullptr;
    return RegCreateKeyEx(key, subKey, 0, nullptr, REG_OPTION_NON_VOLATILE, REGSAM(access), nullptr, &result, nullptr) ==
                   ERROR_SUCCESS
               ? result
               : nullptr;
}

void RegClose(HKEY key) {
    if (key) RegCloseKey(key);
}

bool RegLoadVal(HKEY key, const char* subKey, const char* name, RegVal* value) {
    if (!value) return false;
    CallKey k(key, subKey, REG_ACCESS_READ, false);
    if (!k.get()) return false;
    DWORD type = 0, size = 0;
    if (RegQueryValueEx(k.get(), name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return false;
    if (type == REG_DWORD) {
        DWORD number = 0, length = sizeof number;
        if (RegQueryValueEx(k.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(&number), &length) != ERROR_SUCCESS ||
            type != REG_DWORD)
            return false;
        RegValFree(value);
        value->type = REG_DWORD;
        value->number = number;
        return true;
    }
    if (!isBufferType(type)) return false;
    void* buffer = allocate(size);
    if (!buffer) return false;
    DWORD read = size, readType = 0;
    if (RegQueryValueEx(k.get(), name, nullptr, &readType, static_cast<BYTE*>(buffer), &read) != ERROR_SUCCESS ||
        readType != type) {
        std::free(buffer);
        return false;
    }
    RegValFree(value);
    value->type = type;
    value->data = buffer;
    value->size = read;
    return true;
}

bool RegLoadNumber(HKEY key, const char* subKey, const char* name, unsigned long* number) {
    LocalVal value;
    return RegLoadVal(key, subKey, name, &value) && RegValGetNumber(&value, number);
}

bool RegLoadBinary(HKEY key, const char* subKey, const char* name, unsigned char* buffer, unsigned long capacity) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isBinary) && RegValGetBinary(&value, buffer, capacity);
}

bool RegLoadNewBinary(HKEY key, const char* subKey, const char* name, unsigned char** buffer, unsigned long* size) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isBinary) && RegValGetNewBinary(&value, buffer, size);
}

bool RegLoadString(HKEY key, const char* subKey, const char* name, char* buffer, unsigned long capacity) {
    LocalVal value;
    if (!buffer || !loadTyped(key, subKey, name, value, isStringType) || value.size > capacity) return false;
    if (value.size) std::memcpy(buffer, value.data, value.size);
    if (value.size < capacity) buffer[value.size] = '\0';
    return true;
}

bool RegLoadString(HKEY key, const char* subKey, const char* name, CString& text) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isStringType) && RegValGetString(&value, text);
}

bool RegLoadNewString(HKEY key, const char* subKey, const char* name, char** text, unsigned long* length) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isStringType) && RegValGetNewString(&value, text, length);
}

bool RegLoadStringArr(HKEY key, const char* subKey, const char* name, char** const strings, unsigned long capacity) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isMulti) && RegValGetStringArr(&value, strings, capacity);
}

bool RegLoadNewStringArr(HKEY key, const char* subKey, const char* name, char*** strings, unsigned long* count) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isMulti) && RegValGetNewStringArr(&value, strings, count);
}

bool RegLoadStringArr(HKEY key, const char* subKey, const char* name, CStringArray& strings) {
    LocalVal value;
    return loadTyped(key, subKey, name, value, isMulti) && RegValGetStringArr(&value, strings);
}

bool RegSaveVal(HKEY key, const char* subKey, const char* name, const RegVal* value) {
    if (!value || (value->type != REG_DWORD && !isBufferType(value->type))) return false;
    if (value->type != REG_DWORD && !value->data && value->size) return false;
    CallKey k(key, subKey, REG_ACCESS_WRITE, true);
    if (!k.get()) return false;
    if (value->type == REG_DWORD) {
        const DWORD number = value->number;
        return RegSetValueEx(k.get(), name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), sizeof number) ==
               ERROR_SUCCESS;
    }
    return RegSetValueEx(k.get(), name, 0, value->type, static_cast<const BYTE*>(value->data), value->size) ==
           ERROR_SUCCESS;
}

bool RegSaveNumber(HKEY key, const char* subKey, const char* name, unsigned long number) {
    RegVal value;
    RegValInit(&value);
    RegValSetNumber(&value, number);
    return RegSaveVal(key, subKey, name, &value);
}

bool RegSaveBinary(HKEY key, const char* subKey, const char* name, unsigned char* const data, unsigned long size) {
    if (!data && size) return false;
    RegVal value;
    value.type = REG_BINARY;
    value.data = data;
    value.size = DWORD(size);
    return RegSaveVal(key, subKey, name, &value);
}

bool RegSaveString(HKEY key, const char* subKey, const char* name, const char* text) {
    if (!text) return false;
    RegVal value;
    value.type = REG_SZ;
    value.data = const_cast<char*>(text);  // only read
    value.size = DWORD(std::strlen(text) + 1);
    return RegSaveVal(key, subKey, name, &value);
}

bool RegSaveStringArr(HKEY key, const char* subKey, const char* name, const char* const* const strings,
                      unsigned long count) {
    LocalVal value;
    return RegValSetStringArr(&value, strings, count) && RegSaveVal(key, subKey, name, &value);
}

bool RegSaveStringArr(HKEY key, const char* subKey, const char* name, const CStringArray& strings) {
    LocalVal value;
    return RegValSetStringArr(&value, strings) && RegSaveVal(key, subKey, name, &value);
}

bool RegDeleteSubKeys(HKEY key) {
    DWORD count = 0, longest = 0;
    if (!key || RegQueryInfoKey(key, nullptr, nullptr, nullptr, &count, &longest, nullptr, nullptr, nullptr, nullptr,
                                nullptr, nullptr) != ERROR_SUCCESS)
        return false;
    if (count == 0) return true;
    std::vector<char> name(std::size_t(longest) + 1);
    // From the last index down, so that the lower indexes stay where they are.
    for (DWORD index = count; index-- > 0;) {
        DWORD length = DWORD(name.size());
        if (RegEnumKeyEx(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS) return false;
        HKEY child = RegOpen(key, name.data(), REG_ACCESS_DELETE);
        if (!child) return false;
        const bool emptied = RegDeleteSubKeys(child);
        RegClose(child);
        if (!emptied || RegDeleteKey(key, name.data()) != ERROR_SUCCESS) return false;
    }
    return true;
}

bool RegDeleteKeyA(HKEY key, const char* subKey, const char* name) {
    if (name) {
        CallKey k(key, subKey, REG_ACCESS_DELETE, false);
        return k.get() && RegDeleteValue(k.get(), name) == ERROR_SUCCESS;
    }
    if (!key) return false;
    if (!subKey) return RegDeleteSubKeys(key) && RegDeleteKey(key, "") == ERROR_SUCCESS;
    HKEY child = RegOpen(key, subKey, REG_ACCESS_DELETE);
    if (!child) return false;
    const bool emptied = RegDeleteSubKeys(child);
    RegClose(child);
    return emptied && RegDeleteKey(key, subKey) == ERROR_SUCCESS;
}

bool RegHasEntries(HKEY key, const char* subKey, unsigned long* subKeys, unsigned long* values) {
    if (subKeys) *subKeys = 0;
    if (values) *values = 0;
    CallKey k(key, subKey, REG_ACCESS_READ, false);
    DWORD keyCount = 0, valueCount = 0;
    if (!k.get() || RegQueryInfoKey(k.get(), nullptr, nullptr, nullptr, &keyCount, nullptr, nullptr, &valueCount,
                                    nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
        return false;
    if (subKeys) *subKeys = keyCount;
    if (values) *values = valueCount;
    return true;
}

CRegVal& CRegVal::operator=(const CRegVal& other) {
    type = other.type;
    if (other.type == REG_DWORD) number = other.number;
    else data = other.data;
    size = other.size;
    return *this;
}

CReg& CReg::operator=(const CReg& other) {
    m_hKey = other.m_hKey;
    return *this;
}

HKEY CReg::Connect(HKEY key, const char* machine) { return m_hKey = RegConnect(key, machine); }
HKEY CReg::Open(HKEY key) { return m_hKey = key; }
HKEY CReg::Open(HKEY key, const char* subKey, unsigned long access) { return m_hKey = RegOpen(key, subKey, access); }
HKEY CReg::Create(HKEY key, const char* subKey, unsigned long access) { return m_hKey = RegCreate(key, subKey, access); }

void CReg::Close() {
    RegClose(m_hKey);
    m_hKey = nullptr;
}

bool CReg::LoadVal(const char* subKey, const char* name, RegVal* value) const {
    return m_hKey && RegLoadVal(m_hKey, subKey, name, value);
}
bool CReg::LoadNumber(const char* subKey, const char* name, unsigned long* number) const {
    return m_hKey && RegLoadNumber(m_hKey, subKey, name, number);
}
bool CReg::LoadBinary(const char* subKey, const char* name, unsigned char* buffer, unsigned long capacity) const {
    return m_hKey && RegLoadBinary(m_hKey, subKey, name, buffer, capacity);
}
bool CReg::LoadNewBinary(const char* subKey, const char* name, unsigned char** buffer, unsigned long* size) const {
    return m_hKey && RegLoadNewBinary(m_hKey, subKey, name, buffer, size);
}
bool CReg::LoadStringA(const char* subKey, const char* name, char* buffer, unsigned long capacity) const {
    return m_hKey && RegLoadString(m_hKey, subKey, name, buffer, capacity);
}
bool CReg::LoadStringA(const char* subKey, const char* name, CString& text) const {
    return m_hKey && RegLoadString(m_hKey, subKey, name, text);
}
bool CReg::LoadNewString(const char* subKey, const char* name, char** text, unsigned long* length) const {
    return m_hKey && RegLoadNewString(m_hKey, subKey, name, text, length);
}
bool CReg::LoadStringArr(const char* subKey, const char* name, char** const strings, unsigned long capacity) const {
    return m_hKey && RegLoadStringArr(m_hKey, subKey, name, strings, capacity);
}
bool CReg::LoadStringArr(const char* subKey, const char* name, CStringArray& strings) const {
    return m_hKey && RegLoadStringArr(m_hKey, subKey, name, strings);
}
bool CReg::LoadNewStringArr(const char* subKey, const char* name, char*** strings, unsigned long* count) const {
    return m_hKey && RegLoadNewStringArr(m_hKey, subKey, name, strings, count);
}
bool CReg::SaveVal(const char* subKey, const char* name, const RegVal* value) const {
    return m_hKey && RegSaveVal(m_hKey, subKey, name, value);
}
bool CReg::SaveNumber(const char* subKey, const char* name, unsigned long number) const {
    return m_hKey && RegSaveNumber(m_hKey, subKey, name, number);
}
bool CReg::SaveBinary(const char* subKey, const char* name, unsigned char* const data, unsigned long size) const {
    return m_hKey && RegSaveBinary(m_hKey, subKey, name, data, size);
}
bool CReg::SaveString(const char* subKey, const char* name, const char* text) const {
    return m_hKey && RegSaveString(m_hKey, subKey, name, text);
}
bool CReg::SaveStringArr(const char* subKey, const char* name, const char* const* const strings, unsigned long count) const {
    return m_hKey && RegSaveStringArr(m_hKey, subKey, name, strings, count);
}
bool CReg::SaveStringArr(const char* subKey, const char* name, const CStringArray& strings) const {
    return m_hKey && RegSaveStringArr(m_hKey, subKey, name, strings);
}
bool CReg::HasEntries(const char* subKey, unsigned long* subKeys, unsigned long* values) const {
    if (!m_hKey) {
        if (subKeys) *subKeys = 0;
        if (values) *values = 0;
        return false;
    }
    return RegHasEntries(m_hKey, subKey, subKeys, values);
}

bool CReg::DeleteKey(const char* name) {
    if (!m_hKey) return false;
    if (name) return RegDeleteValue(m_hKey, name) == ERROR_SUCCESS;
    return RegDeleteSubKeys(m_hKey) && RegDeleteKey(m_hKey, "") == ERROR_SUCCESS;
}

bool CReg::FindFirstValue(const char*& name, RegVal* value) {
    DWORD count = 0, longest = 0;
    if (!m_hKey || RegQueryInfoKey(m_hKey, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, &count, &longest,
                                   nullptr, nullptr, nullptr) != ERROR_SUCCESS ||
        count == 0)
        return false;
    FindClose();
    walk.name = static_cast<char*>(std::malloc(std::size_t(longest) + 1));
    if (!walk.name) return false;
    walk.count = count;
    walk.longestName = longest;
    walk.next = 1;
    return walkStep(m_hKey, 0, name, value);
}

bool CReg::FindNextValue(const char*& name, RegVal* value) {
    if (!m_hKey || !walk.name || walk.next >= walk.count) return false;
    return walkStep(m_hKey, walk.next++, name, value);
}

void CReg::FindClose() {
    std::free(walk.name);
    walk = ValueWalk{};
}
