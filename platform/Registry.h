#pragma once
// The per-user registry: a typed key/value tree kept in one SQLite file, reached through the
// Win32 registry calls (names without the A/W suffix; texts are UTF-8 bytes).
//
// Store file: QUILLBOX_REGISTRY when set, else $XDG_CONFIG_HOME/quillbox/registry.sqlite
// (~/.config/quillbox/registry.sqlite). Every write is a transaction of its own and every read
// asks the file, so several processes may share one store and always see each other's
// committed values. A store that cannot be opened or is not a database makes the calls fail
// with ERROR_CANTWRITE or ERROR_BADDB; the file itself is never removed or rewritten.
//
// Sub key paths separate their parts with a backslash only ("Software\\Quillbox"); a
// trailing backslash is ignored, an empty part elsewhere is ERROR_INVALID_PARAMETER. Key and
// value names compare without regard to ASCII case and keep their first spelling. Values and
// sub keys enumerate in the order they were created. All calls are thread-safe.
#include <cstdint>

#include "System.h"
#include "WinTypes.h"

struct RegistryKey;
using HKEY = RegistryKey*;   // null is no key
using REGSAM = DWORD;
using LSTATUS = long;

// The predefined roots carry the Win32 handle values. They are always open and
// RegCloseKey leaves them so.
#define QUILLBOX_PREDEFINED_HKEY(value) \
    (reinterpret_cast<HKEY>(static_cast<std::intptr_t>(static_cast<std::int32_t>(value))))
#define HKEY_CLASSES_ROOT QUILLBOX_PREDEFINED_HKEY(0x80000000u)
#define HKEY_CURRENT_USER QUILLBOX_PREDEFINED_HKEY(0x80000001u)
#define HKEY_LOCAL_MACHINE QUILLBOX_PREDEFINED_HKEY(0x80000002u)
#define HKEY_USERS QUILLBOX_PREDEFINED_HKEY(0x80000003u)

// Access rights. A handle without KEY_SET_VALUE cannot change values, one without
// KEY_CREATE_SUB_KEY cannot create or delete sub keys (ERROR_ACCESS_DENIED).
constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
constexpr REGSAM KEY_SET_VALUE = 0x0002;
constexpr REGSAM KEY_CREATE_SUB_KEY = 0x0004;
constexpr REGSAM KEY_ENUMERATE_SUB_KEYS = 0x0008;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

constexpr DWORD REG_OPTION_NON_VOLATILE = 0;   // the only kind of key there is
constexpr DWORD REG_CREATED_NEW_KEY = 1;
constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

// Value types. Data is stored byte for byte as given: a REG_SZ keeps the NUL it was written
// with and its size counts it. Only REG_DWORD (4 bytes) and REG_QWORD (8 bytes) are checked.
constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_LINK = 6;   // a symbolic link's target text; stored, never followed
constexpr DWORD REG_MULTI_SZ = 7;
constexpr DWORD REG_QWORD = 11;

// Result codes. System.h names its codes with a _CODE suffix; the shared ones must agree.
constexpr LSTATUS ERROR_SUCCESS = 0;
constexpr LSTATUS ERROR_FILE_NOT_FOUND = 2;
constexpr LSTATUS ERROR_ACCESS_DENIED = 5;
constexpr LSTATUS ERROR_INVALID_HANDLE = 6;
constexpr LSTATUS ERROR_NOT_ENOUGH_MEMORY = 8;
constexpr LSTATUS ERROR_BAD_NETPATH = 53;
constexpr LSTATUS ERROR_INVALID_PARAMETER = 87;
constexpr LSTATUS ERROR_MORE_DATA = 234;
constexpr LSTATUS ERROR_NO_MORE_ITEMS = 259;
constexpr LSTATUS ERROR_BADDB = 1009;
constexpr LSTATUS ERROR_CANTWRITE = 1013;
constexpr LSTATUS ERROR_KEY_DELETED = 1018;   // the handle's key was deleted meanwhile
static_assert(ERROR_SUCCESS == ERROR_SUCCESS_CODE && ERROR_FILE_NOT_FOUND == ERROR_FILE_NOT_FOUND_CODE &&
              ERROR_NOT_ENOUGH_MEMORY == ERROR_NOT_ENOUGH_MEMORY_CODE);

// Limits: a key name part up to 255 bytes, a value name up to 16383, value data up to 16 MiB.
constexpr DWORD REG_MAX_KEY_NAME = 255;
constexpr DWORD REG_MAX_VALUE_NAME = 16383;
constexpr DWORD REG_MAX_VALUE_SIZE = 16u << 20;

// A null or empty subKey opens a new handle to `key` itself. `options` are ignored.
QUILLBOX_EXPORT LSTATUS RegOpenKeyEx(HKEY key, const char* subKey, DWORD options, REGSAM access,
                                     HKEY* result);
// Opens `subKey`, creating it and the keys on its path when missing. `cls` and `security`
// are ignored; `disposition` (may be null) tells REG_CREATED_NEW_KEY or REG_OPENED_EXISTING_KEY.
QUILLBOX_EXPORT LSTATUS RegCreateKeyEx(HKEY key, const char* subKey, DWORD reserved, char* cls,
                                       DWORD options, REGSAM access, void* security, HKEY* result,
                                       DWORD* disposition);
// A null or empty name is the key's default value. With `data` null only the type and size
// are returned; a buffer smaller than the value gives ERROR_MORE_DATA and the needed size.
QUILLBOX_EXPORT LSTATUS RegQueryValueEx(HKEY key, const char* name, DWORD* reserved, DWORD* type,
                                        BYTE* data, DWORD* cbData);
QUILLBOX_EXPORT LSTATUS RegSetValueEx(HKEY key, const char* name, DWORD reserved, DWORD type,
                                      const BYTE* data, DWORD cbData);
// Value `index` in creation order; ERROR_NO_MORE_ITEMS past the last. A handle keeps the
// list of its key's values from one call to the next while the store stays unchanged, so a
// walk over all indexes reads the key once; any write, in this process or another, makes the
// next call read it afresh, and each index sees the values as they stand at that call. `*cchName` is the name
// buffer's size in bytes with its NUL and receives the name's length without it; when the
// name does not fit the result is ERROR_MORE_DATA and `*cchName` the size it needs with its
// NUL. `type`, `data` and `cbData` work as in RegQueryValueEx.
QUILLBOX_EXPORT LSTATUS RegEnumValue(HKEY key, DWORD index, char* name, DWORD* cchName,
                                     DWORD* reserved, DWORD* type, BYTE* data, DWORD* cbData);
// Sub key `index` in creation order, its name as in RegEnumValue, kept between calls the same way. Keys have no class: `cls`
// receives an empty text. `lastWriteTime` is not tracked and left untouched.
QUILLBOX_EXPORT LSTATUS RegEnumKeyEx(HKEY key, DWORD index, char* name, DWORD* cchName,
                                     DWORD* reserved, char* cls, DWORD* cchClass,
                                     void* lastWriteTime);
// Counts and maximum name lengths (bytes without the NUL) and value size; every out
// parameter may be null. Class and security descriptor sizes are 0.
QUILLBOX_EXPORT LSTATUS RegQueryInfoKey(HKEY key, char* cls, DWORD* cchClass, DWORD* reserved,
                                        DWORD* subKeys, DWORD* maxSubKeyLen, DWORD* maxClassLen,
                                        DWORD* values, DWORD* maxValueNameLen, DWORD* maxValueLen,
                                        DWORD* securityDescriptor, void* lastWriteTime);
QUILLBOX_EXPORT LSTATUS RegDeleteValue(HKEY key, const char* name);
// Deletes `subKey` (an empty one: the key of the handle) with its values. A key that has sub
// keys is refused with ERROR_ACCESS_DENIED, as are the predefined roots.
QUILLBOX_EXPORT LSTATUS RegDeleteKey(HKEY key, const char* subKey);
QUILLBOX_EXPORT LSTATUS RegCloseKey(HKEY key);
// Only this machine is reachable: null, "", ".", "localhost" or this host's name (with or
// without a leading "\\\\") gives a new handle to the predefined `root`; any other machine
// gives ERROR_BAD_NETPATH.
QUILLBOX_EXPORT LSTATUS RegConnectRegistry(const char* machine, HKEY root, HKEY* result);

// Adds `delta` to the REG_DWORD value `name` (a missing value counts as 0) in one write
// transaction, so that processes sharing a store may count together. The new value goes to
// `newValue` when given. A value of another type gives ERROR_INVALID_PARAMETER. The handle
// needs KEY_QUERY_VALUE and KEY_SET_VALUE.
QUILLBOX_EXPORT LSTATUS RegIncrementValue(HKEY key, const char* name, LONG delta, DWORD* newValue);

// Closes the current store (handles opened on it become invalid) and opens the file at
// `path`, creating it and its folders when missing; false when it cannot be opened (the
// calls then fail until a usable path is set). Null or "" goes back to the default file,
// which opens at the next call, and returns true.
QUILLBOX_EXPORT bool RegSetStorePath(const char* path);
