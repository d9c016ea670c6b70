#include "Registry.h"

#include <pwd.h>
#include <sqlite3.h>
#include <strings.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The values or the sub keys of one key as one walk by index sees them: read whole at the
// first call, and kept while the store is unchanged, so that a walk reads the key once instead
// of once per index. Any change invalidates it: a write of this process, a commit of another
// connection (SQLite's data_version) or a reopening of the store. Each index therefore still
// sees the key as it stands at that call, as an enumeration by index does.
struct RegistryListing {
    struct Entry {
        std::int64_t id = 0;           // the value's row
        std::string name;
        DWORD type = REG_NONE;
        DWORD size = 0;
        bool held = false;             // `data` holds the bytes; large ones are read when asked for
        std::vector<BYTE> data;
    };
    bool taken = false;
    std::uint64_t changes = 0;         // the store's count of changes when it was taken
    std::int64_t dataVersion = 0;
    std::vector<Entry> entries;        // creation order
};

// What a handle stands for: a key row of one opened store, with the rights it was opened with.
struct RegistryKey {
    std::int64_t id = 0;
    REGSAM access = 0;
    std::uint64_t generation = 0;  // handles of a store that was closed since are invalid
    RegistryListing values;
    RegistryListing subKeys;
};

namespace {

// Keys form a tree of rows; the four roots are rows 1..4 with parent 0. AUTOINCREMENT keeps a
// deleted key's id from coming back, so that a handle to it cannot reach a newer key. Both
// tables enumerate by id, which grows with every insert: creation order, in every process.
// NOCASE folds ASCII letters only, the way names compare.
constexpr int kSchemaVersion = 1;
constexpr const char* kSchema = R"sql(
CREATE TABLE keys(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  parent INTEGER NOT NULL,
  name TEXT NOT NULL COLLATE NOCASE,
  UNIQUE(parent, name));
CREATE TABLE vals(
  id INTEGER PRIMARY KEY,
  key INTEGER NOT NULL,
  name TEXT NOT NULL COLLATE NOCASE,
  type INTEGER NOT NULL,
  data BLOB NOT NULL,
  UNIQUE(key, name));
INSERT INTO keys(id, parent, name) VALUES
  (1, 0, 'HKEY_CLASSES_ROOT'), (2, 0, 'HKEY_CURRENT_USER'),
  (3, 0, 'HKEY_LOCAL_MACHINE'), (4, 0, 'HKEY_USERS');
PRAGMA user_version = 1;
)sql";

constexpr std::int64_t kLastRootId = 4;

// Value data up to this size is kept in a walk's listing; larger data is read at its index.
constexpr std::int64_t kListedDataBytes = 4096;

// The row of a predefined root handle, or 0 for any other handle.
std::int64_t rootId(HKEY key) {
    const HKEY roots[] = {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS};
    for (std::int64_t i = 0; i < 4; ++i)
        if (key == roots[i]) return i + 1;
    return 0;
}

// A failed SQLite call; caught where the transaction ends.
struct DbError {
    int code;
};

LSTATUS mapError(int code) {
    switch (code & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_FORMAT:
    case SQLITE_SCHEMA:
    case SQLITE_ERROR:  // a database that is not ours (missing or different tables)
        return ERROR_BADDB;
    default:            // cannot open, read-only, disk full, I/O error, locked too long
        return ERROR_CANTWRITE;
    }
}

void exec(sqlite3* db, const char* sql) {
    if (int rc = sqlite3_exec(db, sql, nullptr, nullptr, nullptr); rc != SQLITE_OK) throw DbError{rc};
}

class Statement {
public:
    Statement(sqlite3* db, const char* sql) {
        if (int rc = sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr); rc != SQLITE_OK) {
            sqlite3_finalize(stmt_);
            throw DbError{rc};
        }
    }
    ~Statement() { sqlite3_finalize(stmt_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int i, std::int64_t v) { return check(sqlite3_bind_int64(stmt_, i, v)); }
    Statement& bind(int i, std::string_view s) {
        return check(sqlite3_bind_text(stmt_, i, s.empty() ? "" : s.data(), int(s.size()),
                                       SQLITE_TRANSIENT));
    }
    Statement& bindBlob(int i, const BYTE* p, DWORD n) {
        // A null pointer would bind NULL; an empty value is an empty blob.
        return check(sqlite3_bind_blob(stmt_, i, n ? p : reinterpret_cast<const BYTE*>(""), int(n),
                                       SQLITE_TRANSIENT));
    }
    bool step() {
        int rc = sqlite3_step(stmt_);
        if (rc == SQLITE_ROW) return true;
        if (rc == SQLITE_DONE) return false;
        throw DbError{rc};
    }
    std::int64_t integer(int c) const { return sqlite3_column_int64(stmt_, c); }
    std::string text(int c) const {
        auto p = reinterpret_cast<const char*>(sqlite3_column_text(stmt_, c));
        return p ? std::string(p, size_t(sqlite3_column_bytes(stmt_, c))) : std::string();
    }
    std::vector<BYTE> blob(int c) const {
        auto p = static_cast<const BYTE*>(sqlite3_column_blob(stmt_, c));
        return p ? std::vector<BYTE>(p, p + sqlite3_column_bytes(stmt_, c)) : std::vector<BYTE>();
    }

private:
    Statement& check(int rc) {
        if (rc != SQLITE_OK) throw DbError{rc};
        return *this;
    }
    sqlite3_stmt* stmt_ = nullptr;
};

struct Value {
    std::string name;
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
};

// One call's transaction: the resolved key of the handle and the store's connection.
struct Tx {
    sqlite3* db = nullptr;
    std::int64_t key = 0;
    REGSAM access = 0;
    // A key the call opens; its handle is made once the transaction has committed.
    std::int64_t openId = 0;
    REGSAM openAccess = 0;
    HKEY* result = nullptr;

    std::int64_t child(std::int64_t parent, std::string_view name) const {
        Statement s(db, "SELECT id FROM keys WHERE parent = ? AND name = ?");
        s.bind(1, parent).bind(2, name);
        return s.step() ? s.integer(0) : 0;
    }
    std::int64_t addChild(std::int64_t parent, std::string_view name) const {
        Statement s(db, "INSERT INTO keys(parent, name) VALUES(?, ?)");
        s.bind(1, parent).bind(2, name).step();
        return sqlite3_last_insert_rowid(db);
    }
    bool exists(std::int64_t id) const {
        Statement s(db, "SELECT 1 FROM keys WHERE id = ?");
        s.bind(1, id);
        return s.step();
    }
    std::optional<Value> value(std::string_view name) const {
        Statement s(db, "SELECT name, type, data FROM vals WHERE key = ? AND name = ?");
        s.bind(1, key).bind(2, name);
        if (!s.step()) return std::nullopt;
        return Value{s.text(0), DWORD(s.integer(1)), s.blob(2)};
    }
    void setValue(std::string_view name, DWORD type, const BYTE* data, DWORD size) const {
        Statement s(db, "INSERT INTO vals(key, name, type, data) VALUES(?, ?, ?, ?) "
                        "ON CONFLICT(key, name) DO UPDATE SET type = excluded.type, data = excluded.data");
        s.bind(1, key).bind(2, name).bind(3, std::int64_t(type)).bindBlob(4, data, size).step();
    }
    void open(std::int64_t id, REGSAM rights, HKEY* out) {
        openId = id;
        openAccess = rights;
        result = out;
    }
};

std::string defaultStorePath() {
    if (const char* env = std::getenv("QUILLBOX_REGISTRY"); env && *env) return env;
    std::string base;
    if (const char* xdg = std::getenv("XDG_CONFIG_HOME"); xdg && *xdg == '/') {
        base = xdg;  // a relative XDG_CONFIG_HOME is invalid and ignored
    } else {
        const char* home = std::getenv("HOME");
        if (!home || !*home) {
            const passwd* pw = getpwuid(getuid());
            home = pw ? pw->pw_dir : nullptr;
        }
        if (!home || !*home) return {};
        base = std::string(home) + "/.config";
    }
    return base + "/quillbox/registry.sqlite";
}

class RegistryStore {
public:
    static RegistryStore& instance() {
        // Never destroyed: handles held by static objects may be closed after main returns.
        static RegistryStore* store = new RegistryStore;
        return *store;
    }

    bool setPath(const char* path) {
        std::lock_guard lock(mutex_);
        closeDb();
        ++generation_;
        path_ = path ? path : "";
        return path_.empty() || openDb() == ERROR_SUCCESS;
    }

    LSTATUS close(HKEY key) {
        if (!key) return ERROR_INVALID_HANDLE;
        if (rootId(key)) return ERROR_SUCCESS;
        std::lock_guard lock(mutex_);
        return handles_.erase(key) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
    }

    // Runs `body` in a transaction (BEGIN IMMEDIATE for writes, so that writers queue on the
    // file lock instead of failing), after checking the handle, its rights and that its key
    // still exists. Commits only when the body succeeds.
    template <class Body>
    LSTATUS run(HKEY key, REGSAM need, bool write, Body&& body) {
        std::lock_guard lock(mutex_);
        Tx tx;
        RegistryKey* record = resolve(key);
        if (!record) return ERROR_INVALID_HANDLE;
        tx.key = record->id;
        tx.access = record->access;
        if ((tx.access & need) != need) return ERROR_ACCESS_DENIED;
        if (LSTATUS rc = openDb(); rc != ERROR_SUCCESS) return rc;
        tx.db = db_;
        if (write) ++changes_;  // whether it commits or not, walks read afresh
        try {
            exec(db_, write ? "BEGIN IMMEDIATE" : "BEGIN");
            LSTATUS rc = tx.exists(tx.key) ? body(tx) : ERROR_KEY_DELETED;
            exec(db_, rc == ERROR_SUCCESS ? "COMMIT" : "ROLLBACK");
            if (rc == ERROR_SUCCESS && tx.result) {
                auto handle = std::make_unique<RegistryKey>(RegistryKey{tx.openId, tx.openAccess, generation_, {}, {}});
                *tx.result = handle.get();
                handles_.emplace(handle.get(), std::move(handle));
            }
            return rc;
        } catch (const DbError& e) {
            if (!sqlite3_get_autocommit(db_)) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
            LSTATUS rc = mapError(e.code);
            if (rc == ERROR_BADDB) closeDb();  // look at the file afresh next time
            return rc;
        }
    }

    // Hands `serve` the key's listing of values (or of sub keys), read afresh when the store
    // changed since it was taken. `serve` may read the store further (large value data).
    template <class Serve>
    LSTATUS walk(HKEY key, REGSAM need, bool values, Serve&& serve) {
        std::lock_guard lock(mutex_);
        RegistryKey* record = resolve(key);
        if (!record) return ERROR_INVALID_HANDLE;
        if ((record->access & need) != need) return ERROR_ACCESS_DENIED;
        if (LSTATUS rc = openDb(); rc != ERROR_SUCCESS) return rc;
        RegistryListing& listing = values ? record->values : record->subKeys;
        try {
            if (!listing.taken || listing.changes != changes_ || listing.dataVersion != dataVersion()) {
                listing.taken = false;
                exec(db_, "BEGIN");
                Tx tx;
                tx.db = db_;
                tx.key = record->id;
                if (!tx.exists(tx.key)) {
                    exec(db_, "ROLLBACK");
                    return ERROR_KEY_DELETED;
                }
                listing.entries.clear();
                if (values) listValues(tx.key, listing);
                else listSubKeys(tx.key, listing);
                listing.dataVersion = dataVersion();
                exec(db_, "COMMIT");
                listing.changes = changes_;
                listing.taken = true;
            }
            return serve(listing);
        } catch (const DbError& e) {
            listing.taken = false;
            if (!sqlite3_get_autocommit(db_)) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
            LSTATUS rc = mapError(e.code);
            if (rc == ERROR_BADDB) closeDb();
            return rc;
        } catch (const std::bad_alloc&) {
            listing = RegistryListing{};
            if (!sqlite3_get_autocommit(db_)) sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
            return ERROR_NOT_ENOUGH_MEMORY;
        }
    }

    // The data of a listed value that was too large to keep in the listing; the listing is
    // current, so the row is there.
    std::vector<BYTE> valueData(std::int64_t row) {
        Statement s(db_, "SELECT data FROM vals WHERE id = ?");
        s.bind(1, row);
        return s.step() ? s.blob(0) : std::vector<BYTE>();
    }

private:
    RegistryStore() {
        for (std::int64_t i = 0; i < 4; ++i) roots_[i] = RegistryKey{i + 1, KEY_ALL_ACCESS, 0, {}, {}};
    }

    // The record of a handle of the open store: a predefined root or an open handle.
    RegistryKey* resolve(HKEY key) {
        if (!key) return nullptr;
        if (std::int64_t root = rootId(key)) return &roots_[root - 1];
        auto it = handles_.find(key);
        if (it == handles_.end() || it->second->generation != generation_) return nullptr;
        return it->second.get();
    }

    void listValues(std::int64_t key, RegistryListing& listing) {
        Statement s(db_, "SELECT id, name, type, length(data), "
                         "CASE WHEN length(data) <= ? THEN data END FROM vals WHERE key = ? ORDER BY id");
        s.bind(1, kListedDataBytes).bind(2, key);
        while (s.step()) {
            RegistryListing::Entry& e = listing.entries.emplace_back();
            e.id = s.integer(0);
            e.name = s.text(1);
            e.type = DWORD(s.integer(2));
            e.size = DWORD(s.integer(3));
            e.held = e.size <= kListedDataBytes;
            if (e.held) e.data = s.blob(4);
        }
    }

    void listSubKeys(std::int64_t key, RegistryListing& listing) {
        Statement s(db_, "SELECT id, name FROM keys WHERE parent = ? ORDER BY id");
        s.bind(1, key);
        while (s.step()) {
            RegistryListing::Entry& e = listing.entries.emplace_back();
            e.id = s.integer(0);
            e.name = s.text(1);
        }
    }

    // Changes whenever another connection, in this process or another, commits to the file.
    std::int64_t dataVersion() {
        if (int rc = sqlite3_reset(dataVersion_); rc != SQLITE_OK) throw DbError{rc};
        if (int rc = sqlite3_step(dataVersion_); rc != SQLITE_ROW) throw DbError{rc == SQLITE_DONE ? SQLITE_ERROR : rc};
        std::int64_t version = sqlite3_column_int64(dataVersion_, 0);
        sqlite3_reset(dataVersion_);
        return version;
    }

    LSTATUS openDb() {
        if (db_) return ERROR_SUCCESS;
        std::string path = path_.empty() ? defaultStorePath() : path_;
        if (path.empty()) return ERROR_CANTWRITE;
        std::error_code ec;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ec);
        sqlite3* db = nullptr;
        // SQLITE_OPEN_CREATE only makes a missing file: an existing one is never truncated or
        // rewritten, whatever it holds.
        int rc = sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        if (rc != SQLITE_OK) {
            sqlite3_close(db);
            return ERROR_CANTWRITE;
        }
        sqlite3_busy_timeout(db, 5000);
        try {
            // WAL lets readers go on while another process writes; with synchronous=NORMAL a
            // commit survives the process being killed (a power cut may lose the last ones).
            exec(db, "PRAGMA journal_mode = WAL");
            exec(db, "PRAGMA synchronous = NORMAL");
            if (schemaVersion(db) != kSchemaVersion) {
                exec(db, "BEGIN IMMEDIATE");
                int version = schemaVersion(db);  // another process may have just made it
                if (version == 0) exec(db, kSchema);
                exec(db, "COMMIT");
                if (version != 0 && version != kSchemaVersion) throw DbError{SQLITE_NOTADB};
            }
        } catch (const DbError& e) {
            sqlite3_close(db);  // rolls back an open transaction
            return mapError(e.code);
        }
        if (int rc = sqlite3_prepare_v2(db, "PRAGMA data_version", -1, &dataVersion_, nullptr); rc != SQLITE_OK) {
            sqlite3_finalize(dataVersion_);
            dataVersion_ = nullptr;
            sqlite3_close(db);
            return mapError(rc);
        }
        db_ = db;
        return ERROR_SUCCESS;
    }

    static int schemaVersion(sqlite3* db) {
        Statement s(db, "PRAGMA user_version");
        return s.step() ? int(s.integer(0)) : 0;
    }

    void closeDb() {
        sqlite3_finalize(dataVersion_);
        dataVersion_ = nullptr;
        sqlite3_close(db_);
        db_ = nullptr;
        ++changes_;  // a new connection counts its data versions anew
    }

    std::mutex mutex_;
    sqlite3* db_ = nullptr;
    sqlite3_stmt* dataVersion_ = nullptr;  // "PRAGMA data_version" on db_
    std::uint64_t changes_ = 0;            // writes of this process and reopenings of the store
    RegistryKey roots_[4];
    std::string path_;  // set by RegSetStorePath; empty: the default file
    std::uint64_t generation_ = 1;
    std::map<RegistryKey*, std::unique_ptr<RegistryKey>> handles_;
};

RegistryStore& store() { return RegistryStore::instance(); }

// Splits a sub key path at backslashes; null and "" give no parts.
LSTATUS splitPath(const char* subKey, std::vector<std::string_view>& parts) {
    std::string_view path = subKey ? subKey : "";
    if (!path.empty() && path.back() == '\\') path.remove_suffix(1);
    while (!path.empty()) {
        size_t end = path.find('\\');
        std::string_view part = path.substr(0, end);
        if (part.empty() || part.size() > REG_MAX_KEY_NAME) return ERROR_INVALID_PARAMETER;
        parts.push_back(part);
        if (end == std::string_view::npos) break;
        path.remove_prefix(end + 1);
        if (path.empty()) return ERROR_INVALID_PARAMETER;  // a doubled trailing backslash
    }
    return ERROR_SUCCESS;
}

// A value name: null is the default value (""); an over-long name is no valid name.
std::optional<std::string_view> valueName(const char* name) {
    std::string_view n = name ? name : "";
    if (n.size() > REG_MAX_VALUE_NAME) return std::nullopt;
    return n;
}

// Copies a name into a caller's buffer of *cch bytes, as the enumeration calls do.
bool putName(const std::string& s, char* buffer, DWORD* cch) {
    if (s.size() + 1 > *cch) {
        *cch = DWORD(s.size() + 1);
        return false;
    }
    std::memcpy(buffer, s.data(), s.size());
    buffer[s.size()] = '\0';
    *cch = DWORD(s.size());
    return true;
}

// Hands value data to a caller: the size always, the bytes when the buffer holds them
// (`bytes` is only read then).
LSTATUS putData(DWORD valueType, const BYTE* bytes, DWORD size, DWORD* type, BYTE* data, DWORD* cbData) {
    if (type) *type = valueType;
    if (!cbData) return ERROR_SUCCESS;
    DWORD room = *cbData;
    *cbData = size;
    if (!data) return ERROR_SUCCESS;
    if (room < size) return ERROR_MORE_DATA;
    if (size) std::memcpy(data, bytes, size);
    return ERROR_SUCCESS;
}

// Keys have no class: an empty one is handed back.
LSTATUS putNoClass(char* cls, DWORD* cchClass) {
    if (cls && !cchClass) return ERROR_INVALID_PARAMETER;
    if (cls && *cchClass) cls[0] = '\0';
    if (cchClass) *cchClass = 0;
    return ERROR_SUCCESS;
}

}  // namespace

LSTATUS RegOpenKeyEx(HKEY key, const char* subKey, DWORD, REGSAM access, HKEY* result) {
    if (!result) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    std::vector<std::string_view> parts;
    if (LSTATUS rc = splitPath(subKey, parts); rc != ERROR_SUCCESS) return rc;
    return store().run(key, 0, false, [&](Tx& tx) {
        std::int64_t id = tx.key;
        for (std::string_view part : parts)
            if (!(id = tx.child(id, part))) return ERROR_FILE_NOT_FOUND;
        tx.open(id, access, result);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCreateKeyEx(HKEY key, const char* subKey, DWORD, char*, DWORD, REGSAM access, void*,
                       HKEY* result, DWORD* disposition) {
    if (!result) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    std::vector<std::string_view> parts;
    if (LSTATUS rc = splitPath(subKey, parts); rc != ERROR_SUCCESS) return rc;
    return store().run(key, 0, true, [&](Tx& tx) {
        std::int64_t id = tx.key;
        bool created = false;
        for (std::string_view part : parts) {
            std::int64_t next = tx.child(id, part);
            if (!next) {
                if (!(tx.access & KEY_CREATE_SUB_KEY)) return ERROR_ACCESS_DENIED;
                next = tx.addChild(id, part);
                created = true;
            }
            id = next;
        }
        if (disposition) *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
        tx.open(id, access, result);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegQueryValueEx(HKEY key, const char* name, DWORD*, DWORD* type, BYTE* data, DWORD* cbData) {
    auto n = valueName(name);
    if (!n || (data && !cbData)) return ERROR_INVALID_PARAMETER;
    return store().run(key, KEY_QUERY_VALUE, false, [&](Tx& tx) {
        std::optional<Value> v = tx.value(*n);
        return v ? putData(v->type, v->data.data(), DWORD(v->data.size()), type, data, cbData)
                 : ERROR_FILE_NOT_FOUND;
    });
}

LSTATUS RegSetValueEx(HKEY key, const char* name, DWORD, DWORD type, const BYTE* data, DWORD cbData) {
    auto n = valueName(name);
    if (!n || cbData > REG_MAX_VALUE_SIZE || (cbData && !data)) return ERROR_INVALID_PARAMETER;
    if ((type == REG_DWORD && cbData != 4) || (type == REG_QWORD && cbData != 8))
        return ERROR_INVALID_PARAMETER;
    return store().run(key, KEY_SET_VALUE, true, [&](Tx& tx) {
        tx.setValue(*n, type, data, cbData);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegEnumValue(HKEY key, DWORD index, char* name, DWORD* cchName, DWORD*, DWORD* type,
                     BYTE* data, DWORD* cbData) {
    if (!name || !cchName || (data && !cbData)) return ERROR_INVALID_PARAMETER;
    return store().walk(key, KEY_QUERY_VALUE, true, [&](const RegistryListing& listing) {
        if (index >= listing.entries.size()) return ERROR_NO_MORE_ITEMS;
        const RegistryListing::Entry& e = listing.entries[index];
        if (!putName(e.name, name, cchName)) return ERROR_MORE_DATA;
        if (!e.held && data && *cbData >= e.size) {
            const std::vector<BYTE> bytes = store().valueData(e.id);
            return putData(e.type, bytes.data(), DWORD(bytes.size()), type, data, cbData);
        }
        return putData(e.type, e.data.data(), e.size, type, data, cbData);  // held, or too large
    });
}

LSTATUS RegEnumKeyEx(HKEY key, DWORD index, char* name, DWORD* cchName, DWORD*, char* cls,
                     DWORD* cchClass, void*) {
    if (!name || !cchName || (cls && !cchClass)) return ERROR_INVALID_PARAMETER;
    return store().walk(key, KEY_ENUMERATE_SUB_KEYS, false, [&](const RegistryListing& listing) {
        if (index >= listing.entries.size()) return ERROR_NO_MORE_ITEMS;
        if (!putName(listing.entries[index].name, name, cchName)) return ERROR_MORE_DATA;
        return putNoClass(cls, cchClass);
    });
}

LSTATUS RegQueryInfoKey(HKEY key, char* cls, DWORD* cchClass, DWORD*, DWORD* subKeys,
                        DWORD* maxSubKeyLen, DWORD* maxClassLen, DWORD* values,
                        DWORD* maxValueNameLen, DWORD* maxValueLen, DWORD* securityDescriptor,
                        void*) {
    if (cls && !cchClass) return ERROR_INVALID_PARAMETER;
    return store().run(key, KEY_QUERY_VALUE, false, [&](Tx& tx) {
        Statement k(tx.db, "SELECT count(*), max(length(CAST(name AS BLOB))) FROM keys WHERE parent = ?");
        k.bind(1, tx.key).step();
        Statement v(tx.db, "SELECT count(*), max(length(CAST(name AS BLOB))), max(length(data)) "
                           "FROM vals WHERE key = ?");
        v.bind(1, tx.key).step();
        auto put = [](DWORD* out, std::int64_t n) { if (out) *out = DWORD(n); };
        put(subKeys, k.integer(0));
        put(maxSubKeyLen, k.integer(1));
        put(values, v.integer(0));
        put(maxValueNameLen, v.integer(1));
        put(maxValueLen, v.integer(2));
        put(maxClassLen, 0);
        put(securityDescriptor, 0);
        return putNoClass(cls, cchClass);
    });
}

LSTATUS RegDeleteValue(HKEY key, const char* name) {
    auto n = valueName(name);
    if (!n) return ERROR_INVALID_PARAMETER;
    return store().run(key, KEY_SET_VALUE, true, [&](Tx& tx) {
        Statement s(tx.db, "DELETE FROM vals WHERE key = ? AND name = ?");
        s.bind(1, tx.key).bind(2, *n).step();
        return sqlite3_changes(tx.db) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
    });
}

LSTATUS RegDeleteKey(HKEY key, const char* subKey) {
    if (!subKey) return ERROR_INVALID_PARAMETER;
    std::vector<std::string_view> parts;
    if (LSTATUS rc = splitPath(subKey, parts); rc != ERROR_SUCCESS) return rc;
    return store().run(key, KEY_CREATE_SUB_KEY, true, [&](Tx& tx) {
        std::int64_t id = tx.key;
        for (std::string_view part : parts)
            if (!(id = tx.child(id, part))) return ERROR_FILE_NOT_FOUND;
        if (id <= kLastRootId) return ERROR_ACCESS_DENIED;
        Statement children(tx.db, "SELECT 1 FROM keys WHERE parent = ? LIMIT 1");
        if (children.bind(1, id).step()) return ERROR_ACCESS_DENIED;
        Statement(tx.db, "DELETE FROM vals WHERE key = ?").bind(1, id).step();
        Statement(tx.db, "DELETE FROM keys WHERE id = ?").bind(1, id).step();
        return ERROR_SUCCESS;
    });
}

LSTATUS RegCloseKey(HKEY key) { return store().close(key); }

LSTATUS RegConnectRegistry(const char* machine, HKEY root, HKEY* result) {
    if (!result) return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    if (!rootId(root)) return ERROR_INVALID_HANDLE;
    std::string_view name = machine ? machine : "";
    if (name.substr(0, 2) == "\\\\") name.remove_prefix(2);
    char host[HOST_NAME_MAX + 1] = {};
    gethostname(host, sizeof host - 1);
    std::string local(name);
    bool isLocal = local.empty() || local == "." || strcasecmp(local.c_str(), "localhost") == 0 ||
                   (host[0] && strcasecmp(local.c_str(), host) == 0);
    if (!isLocal) return ERROR_BAD_NETPATH;
    return RegOpenKeyEx(root, nullptr, 0, KEY_ALL_ACCESS, result);
}

LSTATUS RegIncrementValue(HKEY key, const char* name, LONG delta, DWORD* newValue) {
    auto n = valueName(name);
    if (!n) return ERROR_INVALID_PARAMETER;
    return store().run(key, KEY_SET_VALUE | KEY_QUERY_VALUE, true, [&](Tx& tx) {
        DWORD value = 0;
        if (std::optional<Value> old = tx.value(*n)) {
            if (old->type != REG_DWORD || old->data.size() != sizeof value) return ERROR_INVALID_PARAMETER;
            std::memcpy(&value, old->data.data(), sizeof value);
        }
        value += DWORD(delta);  // wraps around as a DWORD does
        tx.setValue(*n, REG_DWORD, reinterpret_cast<const BYTE*>(&value), sizeof value);
        if (newValue) *newValue = value;
        return ERROR_SUCCESS;
    });
}

bool RegSetStorePath(const char* path) {
    return store().setPath(path && *path ? path : nullptr);
}
