#pragma once
// A small registry toolkit for other libraries of the application: load or save one typed
// value in one call, carry a value of any type in a record, delete a tree of keys, walk the
// values of a key. The same operations come three times: free functions RegVal... on the
// record RegVal, free functions Reg... on a key handle, and the classes CRegVal and CReg.
//
// Every operation reports failure by false or null and nothing else. Memory handed out by a
// ...New... operation comes from malloc and goes back with free; the array forms hand out one
// block for the pointers and one for each string. Handled value types: REG_SZ, REG_EXPAND_SZ
// (not expanded), REG_BINARY, REG_DWORD, REG_LINK, REG_MULTI_SZ; others cannot be loaded or
// saved. A multi-string buffer holds its strings one behind the other, each with its zero,
// then one more zero; an empty list is two zero bytes.
#include "CString.h"
#include "Registry.h"

// A typed value. RegValInit must come first: nothing here initialises a record for the
// caller, and the setters do not release what the record held (call RegValFree first).
struct RegVal {
    DWORD type;         // 0 when empty, else the registry type
    union {
        DWORD number;   // REG_DWORD
        void* data;     // the other types: a buffer from malloc, owned by the record
    };
    DWORD size;         // bytes in the buffer; not set for REG_DWORD
};

// Access rights the toolkit asks for.
constexpr unsigned long REG_ACCESS_READ = 0x20019;    // KEY_READ
constexpr unsigned long REG_ACCESS_WRITE = 0x20006;   // KEY_WRITE
constexpr unsigned long REG_ACCESS_DELETE = 0x2001F;  // read, write, enumerate and delete

// Record operations. The getters fail with false when the type does not fit, and leave their
// output alone then.
QUILLBOX_EXPORT void RegValInit(RegVal* value);
QUILLBOX_EXPORT void RegValFree(RegVal* value);
QUILLBOX_EXPORT bool RegValGetNumber(const RegVal* value, unsigned long* number);
QUILLBOX_EXPORT bool RegValGetBinary(const RegVal* value, unsigned char* buffer, unsigned long capacity);
QUILLBOX_EXPORT bool RegValGetNewBinary(const RegVal* value, unsigned char** buffer, unsigned long* size);
// Needs room for the value's bytes and a closing zero.
QUILLBOX_EXPORT bool RegValGetString(const RegVal* value, char* buffer, unsigned long capacity);
QUILLBOX_EXPORT bool RegValGetString(const RegVal* value, CString& text);  // up to the first zero
QUILLBOX_EXPORT bool RegValGetNewString(const RegVal* value, char** text, unsigned long* length);
// The strings of a multi-string, each in a block of its own. With a capacity: false when there
// are more strings than slots; the slot of a string whose block cannot be had stays null.
QUILLBOX_EXPORT bool RegValGetStringArr(const RegVal* value, char** const strings, unsigned long capacity);
QUILLBOX_EXPORT bool RegValGetNewStringArr(const RegVal* value, char*** strings, unsigned long* count);
QUILLBOX_EXPORT bool RegValGetStringArr(const RegVal* value, CStringArray& strings);
QUILLBOX_EXPORT bool RegValSetNumber(RegVal* value, unsigned long number);  // the low 32 bits
QUILLBOX_EXPORT bool RegValSetBinary(RegVal* value, unsigned char* const data, unsigned long size);
QUILLBOX_EXPORT bool RegValSetString(RegVal* value, const char* text);
QUILLBOX_EXPORT bool RegValSetStringArr(RegVal* value, const char* const* const strings, unsigned long count);
QUILLBOX_EXPORT bool RegValSetStringArr(RegVal* value, const CStringArray& strings);

// Key operations: the key handle, null on failure.
QUILLBOX_EXPORT HKEY RegConnect(HKEY key, const char* machine);
QUILLBOX_EXPORT HKEY RegOpen(HKEY key, const char* subKey, unsigned long access);
QUILLBOX_EXPORT HKEY RegCreate(HKEY key, const char* subKey, unsigned long access);
QUILLBOX_EXPORT void RegClose(HKEY key);

// Load and save. A null subKey means `key` itself; otherwise the sub key is opened for the
// call (created for a save) and closed again; `key` is never closed. A failed load leaves its
// output as it was.
QUILLBOX_EXPORT bool RegLoadVal(HKEY key, const char* subKey, const char* name, RegVal* value);
QUILLBOX_EXPORT bool RegLoadNumber(HKEY key, const char* subKey, const char* name, unsigned long* number);
QUILLBOX_EXPORT bool RegLoadBinary(HKEY key, const char* subKey, const char* name, unsigned char* buffer,
                                   unsigned long capacity);
QUILLBOX_EXPORT bool RegLoadNewBinary(HKEY key, const char* subKey, const char* name, unsigned char** buffer,
                                      unsigned long* size);
// The value's bytes; a zero follows them when there is room.
QUILLBOX_EXPORT bool RegLoadString(HKEY key, const char* subKey, const char* name, char* buffer,
                                   unsigned long capacity);
QUILLBOX_EXPORT bool RegLoadString(HKEY key, const char* subKey, const char* name, CString& text);
QUILLBOX_EXPORT bool RegLoadNewString(HKEY key, const char* subKey, const char* name, char** text,
                                      unsigned long* length);
QUILLBOX_EXPORT bool RegLoadStringArr(HKEY key, const char* subKey, const char* name, char** const strings,
                                      unsigned long capacity);
QUILLBOX_EXPORT bool RegLoadNewStringArr(HKEY key, const char* subKey, const char* name, char*** strings,
                                         unsigned long* count);
QUILLBOX_EXPORT bool RegLoadStringArr(HKEY key, const char* subKey, const char* name, CStringArray& strings);
QUILLBOX_EXPORT bool RegSaveVal(HKEY key, const char* subKey, const char* name, const RegVal* value);
QUILLBOX_EXPORT bool RegSaveNumber(HKEY key, const char* subKey, const char* name, unsigned long number);
QUILLBOX_EXPORT bool RegSaveBinary(HKEY key, const char* subKey, const char* name, unsigned char* const data,
                                   unsigned long size);
QUILLBOX_EXPORT bool RegSaveString(HKEY key, const char* subKey, const char* name, const char* text);
QUILLBOX_EXPORT bool RegSaveStringArr(HKEY key, const char* subKey, const char* name,
                                      const char* const* const strings, unsigned long count);
QUILLBOX_EXPORT bool RegSaveStringArr(HKEY key, const char* subKey, const char* name, const CStringArray& strings);

// Deletes every sub key of `key`, deepest first; keys deleted before a failure stay deleted.
QUILLBOX_EXPORT bool RegDeleteSubKeys(HKEY key);
// With a name: deletes that value of `subKey`. Without: deletes `subKey` and its whole tree.
QUILLBOX_EXPORT bool RegDeleteKeyA(HKEY key, const char* subKey, const char* name);
// The numbers of sub keys and values; both 0 and false on any failure.
QUILLBOX_EXPORT bool RegHasEntries(HKEY key, const char* subKey, unsigned long* subKeys, unsigned long* values);

// A RegVal that frees its buffer when it goes. Assignment copies the three fields, buffer
// pointer included: only one of the two may then free it.
class QUILLBOX_EXPORT CRegVal : public RegVal {
public:
    CRegVal() { type = 0; size = 0; data = nullptr; }
    ~CRegVal() { RegValFree(this); }
    CRegVal(const CRegVal&) = delete;
    CRegVal& operator=(const CRegVal& other);

    void Init() { RegValInit(this); }
    void Free() { RegValFree(this); }
    bool GetNumber(unsigned long* number) const { return RegValGetNumber(this, number); }
    bool GetBinary(unsigned char* buffer, unsigned long capacity) const { return RegValGetBinary(this, buffer, capacity); }
    bool GetNewBinary(unsigned char** buffer, unsigned long* size) const { return RegValGetNewBinary(this, buffer, size); }
    bool GetString(char* buffer, unsigned long capacity) const { return RegValGetString(this, buffer, capacity); }
    bool GetString(CString& text) const { return RegValGetString(this, text); }
    bool GetNewString(char** text, unsigned long* length) const { return RegValGetNewString(this, text, length); }
    bool GetStringArr(char** const strings, unsigned long capacity) const { return RegValGetStringArr(this, strings, capacity); }
    bool GetStringArr(CStringArray& strings) const { return RegValGetStringArr(this, strings); }
    bool GetNewStringArr(char*** strings, unsigned long* count) const { return RegValGetNewStringArr(this, strings, count); }
    bool SetNumber(unsigned long number) { return RegValSetNumber(this, number); }
    bool SetBinary(unsigned char* const data, unsigned long size) { return RegValSetBinary(this, data, size); }
    bool SetString(const char* text) { return RegValSetString(this, text); }
    bool SetStringArr(const char* const* const strings, unsigned long count) { return RegValSetStringArr(this, strings, count); }
    bool SetStringArr(const CStringArray& strings) { return RegValSetStringArr(this, strings); }
};

// One key handle, null when closed; the destructor closes it. Assignment copies the handle:
// only one of the two copies may then be closed. The members act on the held key, with an
// optional sub key first, as the free functions do; a closed CReg answers false.
class QUILLBOX_EXPORT CReg {
public:
    CReg() = default;
    ~CReg() { Close(); }
    CReg(const CReg&) = delete;
    CReg& operator=(const CReg& other);

    HKEY GetKey() const { return m_hKey; }
    operator HKEY() const { return m_hKey; }

    // Each stores its result in the object (closing nothing) and returns it.
    HKEY Connect(HKEY key, const char* machine);
    HKEY Open(HKEY key);  // adopts the handle
    HKEY Open(HKEY key, const char* subKey, unsigned long access = REG_ACCESS_READ);
    HKEY Create(HKEY key, const char* subKey, unsigned long access = REG_ACCESS_WRITE);
    void Close();

    bool LoadVal(const char* name, RegVal* value) const { return LoadVal(nullptr, name, value); }
    bool LoadVal(const char* subKey, const char* name, RegVal* value) const;
    bool LoadNumber(const char* name, unsigned long* number) const { return LoadNumber(nullptr, name, number); }
    bool LoadNumber(const char* subKey, const char* name, unsigned long* number) const;
    bool LoadBinary(const char* name, unsigned char* buffer, unsigned long capacity) const { return LoadBinary(nullptr, name, buffer, capacity); }
    bool LoadBinary(const char* subKey, const char* name, unsigned char* buffer, unsigned long capacity) const;
    bool LoadNewBinary(const char* name, unsigned char** buffer, unsigned long* size) const { return LoadNewBinary(nullptr, name, buffer, size); }
    bool LoadNewBinary(const char* subKey, const char* name, unsigned char** buffer, unsigned long* size) const;
    bool LoadStringA(const char* name, char* buffer, unsigned long capacity) const { return LoadStringA(nullptr, name, buffer, capacity); }
    bool LoadStringA(const char* subKey, const char* name, char* buffer, unsigned long capacity) const;
    bool LoadStringA(const char* name, CString& text) const { return LoadStringA(nullptr, name, text); }
    bool LoadStringA(const char* subKey, const char* name, CString& text) const;
    bool LoadNewString(const char* name, char** text, unsigned long* length) const { return LoadNewString(nullptr, name, text, length); }
    bool LoadNewString(const char* subKey, const char* name, char** text, unsigned long* length) const;
    bool LoadStringArr(const char* name, char** const strings, unsigned long capacity) const { return LoadStringArr(nullptr, name, strings, capacity); }
    bool LoadStringArr(const char* subKey, const char* name, char** const strings, unsigned long capacity) const;
    bool LoadStringArr(const char* name, CStringArray& strings) const { return LoadStringArr(nullptr, name, strings); }
    bool LoadStringArr(const char* subKey, const char* name, CStringArray& strings) const;
    bool LoadNewStringArr(const char* name, char*** strings, unsigned long* count) const { return LoadNewStringArr(nullptr, name, strings, count); }
    bool LoadNewStringArr(const char* subKey, const char* name, char*** strings, unsigned long* count) const;
    bool SaveVal(const char* name, const RegVal* value) const { return SaveVal(nullptr, name, value); }
    bool SaveVal(const char* subKey, const char* name, const RegVal* value) const;
    bool SaveNumber(const char* name, unsigned long number) const { return SaveNumber(nullptr, name, number); }
    bool SaveNumber(const char* subKey, const char* name, unsigned long number) const;
    bool SaveBinary(const char* name, unsigned char* const data, unsigned long size) const { return SaveBinary(nullptr, name, data, size); }
    bool SaveBinary(const char* subKey, const char* name, unsigned char* const data, unsigned long size) const;
    bool SaveString(const char* name, const char* text) const { return SaveString(nullptr, name, text); }
    bool SaveString(const char* subKey, const char* name, const char* text) const;
    bool SaveStringArr(const char* name, const char* const* const strings, unsigned long count) const { return SaveStringArr(nullptr, name, strings, count); }
    bool SaveStringArr(const char* subKey, const char* name, const char* const* const strings, unsigned long count) const;
    bool SaveStringArr(const char* name, const CStringArray& strings) const { return SaveStringArr(nullptr, name, strings); }
    bool SaveStringArr(const char* subKey, const char* name, const CStringArray& strings) const;
    bool HasEntries(unsigned long* subKeys, unsigned long* values) const { return HasEntries(nullptr, subKeys, values); }
    bool HasEntries(const char* subKey, unsigned long* subKeys, unsigned long* values) const;

    // With a name: deletes that value. With null: deletes all sub keys, then the held key.
    bool DeleteKey(const char* name);
    bool DeleteKey(const char* subKey, const char* name) { return m_hKey && RegDeleteKeyA(m_hKey, subKey, name); }
    bool DeleteSubKeys() { return m_hKey && RegDeleteSubKeys(m_hKey); }

    // The value walk. Its state is one for the whole process, so one walk runs at a time. The
    // name points into a shared buffer and stays valid until the next call of the walk;
    // `value` is loaded as by RegLoadVal (initialise it before the first call).
    bool FindFirstValue(const char*& name, RegVal* value);
    bool FindNextValue(const char*& name, RegVal* value);
    static void FindClose();

private:
    HKEY m_hKey = nullptr;
};
