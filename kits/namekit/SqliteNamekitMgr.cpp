#include "SqliteNamekitMgr.h"

#include <sqlite3.h>

#include <QCoreApplication>
#include <QMetaObject>
#include <QPointer>
#include <QWidget>
#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "CWnd.h"
#include "NameRequest.h"

namespace {

using namekit::LowerAscii;
using namekit::NamePart;
using namekit::TableRef;

// ---------------------------------------------------------------------------------------------
// The catalog: every list is sorted by its lower-case key, so a prefix lookup is one binary
// search followed by a walk over the matches.

struct Named {
    std::string key;   // lower-case name, the sort key
    std::string name;  // the name as the database spells it
};

bool keyLess(const Named& a, const Named& b) { return a.key < b.key || (a.key == b.key && a.name < b.name); }

struct Object : Named {
    bool isView = false;
    std::vector<Named> columns;
};

struct Schema : Named {
    std::vector<Object> objects;
};

struct Catalog {
    std::vector<Schema> schemas;  // in the database's search order: main first, then attached

    const Schema* schema(const std::string& key) const {
        for (const Schema& s : schemas)
            if (s.key == key) return &s;
        return nullptr;
    }
    static const Object* object(const Schema& s, const std::string& key) {
        auto it = std::lower_bound(s.objects.begin(), s.objects.end(), key,
                                   [](const Object& o, const std::string& k) { return o.key < k; });
        return (it != s.objects.end() && it->key == key) ? &*it : nullptr;
    }
    // An unqualified table name resolves through the schemas in search order, as SQLite does.
    const Object* anyObject(const std::string& key) const {
        for (const Schema& s : schemas)
            if (const Object* o = object(s, key)) return o;
        return nullptr;
    }
};

template <class T>
void collectPrefix(const std::vector<T>& sorted, const std::string& prefixKey, std::vector<std::string>& out) {
    auto it = std::lower_bound(sorted.begin(), sorted.end(), prefixKey,
                               [](const T& n, const std::string& k) { return n.key < k; });
    for (; it != sorted.end() && it->key.compare(0, prefixKey.size(), prefixKey) == 0; ++it)
        out.push_back(it->name);
}

// ---------------------------------------------------------------------------------------------
// Reading the catalog from a database file.

class Statement {
public:
    Statement(sqlite3* db, const char* sql) {
        if (sqlite3_prepare_v2(db, sql, -1, &stmt_, nullptr) != SQLITE_OK) {
            sqlite3_finalize(stmt_);
            stmt_ = nullptr;
        }
    }
    ~Statement() { sqlite3_finalize(stmt_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    explicit operator bool() const { return stmt_ != nullptr; }
    sqlite3_stmt* get() const { return stmt_; }
    std::string text(int column) const {
        const unsigned char* t = sqlite3_column_text(stmt_, column);
        return t ? std::string(reinterpret_cast<const char*>(t), size_t(sqlite3_column_bytes(stmt_, column)))
                 : std::string();
    }

private:
    sqlite3_stmt* stmt_ = nullptr;
};

std::string quoteSql(std::string_view name) {
    std::string r = "\"";
    for (char c : name) {
        r += c;
        if (c == '"') r += '"';
    }
    return r + "\"";
}

// ---------------------------------------------------------------------------------------------
// Answering one request from the catalog.

struct Lookup {
    NamekitAnswer head;               // the record sent to the window, with the first page
    std::vector<CString> rest;        // the items behind the first page
};

Lookup answer(const Catalog& catalog, const CString& name, const CString& query, int pageSize) {
    Lookup result;
    result.head.requestName = name;
    result.head.requestNameEx = name;
    const std::vector<NamePart> parts = namekit::SplitName(name.view());
    for (const NamePart& p : parts) result.head.nameParts.Add(CString(p.raw));

    const NamePart& last = parts.back();
    const std::string prefix = LowerAscii(last.value);
    std::vector<std::string> found;

    auto columnsOf = [&](const Object* o) {
        if (o) collectPrefix(o->columns, prefix, found);
    };
    if (parts.size() == 1) {
        if (!catalog.schemas.empty()) collectPrefix(catalog.schemas.front().objects, prefix, found);
    } else if (parts.size() == 2 && !parts[0].value.empty()) {
        const std::string qualifier = LowerAscii(parts[0].value);
        const std::map<std::string, TableRef> aliases =
            query.IsEmpty() ? std::map<std::string, TableRef>{} : namekit::ReadAliases(query.view());
        const Schema* schema = nullptr;
        if (auto a = aliases.find(qualifier); a != aliases.end()) {
            const TableRef& ref = a->second;
            if (ref.schemaKey.empty()) {
                columnsOf(catalog.anyObject(ref.tableKey));
            } else if (const Schema* s = catalog.schema(ref.schemaKey)) {
                columnsOf(Catalog::object(*s, ref.tableKey));
            }
        } else if (const Object* o = catalog.anyObject(qualifier)) {
            columnsOf(o);
        } else if ((schema = catalog.schema(qualifier)) != nullptr) {
            collectPrefix(schema->objects, prefix, found);
        }
    } else if (parts.size() == 3 && !parts[0].value.empty() && !parts[1].value.empty()) {
        if (const Schema* s = catalog.schema(LowerAscii(parts[0].value)))
            columnsOf(Catalog::object(*s, LowerAscii(parts[1].value)));
    }

    const size_t page = size_t(std::max(1, pageSize));
    for (size_t i = 0; i < found.size(); ++i) {
        CString item(namekit::ItemText(found[i], last.quote));
        if (i < page)
            result.head.items.Add(item);
        else
            result.rest.push_back(std::move(item));
    }
    return result;
}

// What a queued delivery shares with the manager. It outlives the manager when a delivery is
// still in the event queue; `alive` then tells the delivery to do nothing.
struct Mailbox {
    std::recursive_mutex deliveryMutex;  // held while an answer is being handled
    bool alive = true;

    std::mutex pageMutex;  // the pages behind the last answer delivered
    std::shared_ptr<const std::vector<CString>> rest;
    size_t restPos = 0;
};

struct Request {
    QPointer<QWidget> widget;
    CString name;
    CString query;
};

}  // namespace

struct SqliteNamekitMgr::Impl {
    std::string path;
    int pageSize;
    std::shared_ptr<Mailbox> mailbox = std::make_shared<Mailbox>();

    std::mutex mutex;  // guards everything below up to `worker`
    std::condition_variable wake;
    std::optional<Request> pending;  // the newest request not yet taken; older ones are dropped
    bool reload = true;               // read the catalog before the next request
    bool stop = false;
    std::vector<std::pair<std::string, std::string>> attachments;  // schema, file
    sqlite3* reading = nullptr;       // the connection being read, for interruption
    std::atomic<bool> stopping{false};

    Catalog catalog;  // the worker's alone
    std::thread worker;

    Impl(std::string p, int size) : path(std::move(p)), pageSize(std::max(1, size)) {}

    void run();
    Catalog load(const std::vector<std::pair<std::string, std::string>>& attach);
    void readSchema(sqlite3* db, Schema& schema);
    void deliver(Request&& request, Lookup&& lookup);
};

Catalog SqliteNamekitMgr::Impl::load(const std::vector<std::pair<std::string, std::string>>& attach) {
    Catalog c;
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK) {
        sqlite3_close(db);
        return c;
    }
    sqlite3_busy_timeout(db, 250);  // a database locked by a writer is read a moment later or not at all
    {
        std::lock_guard lock(mutex);
        reading = db;
    }
    for (const auto& [schema, file] : attach) {
        Statement st(db, "ATTACH DATABASE ?1 AS ?2");
        if (!st) continue;
        sqlite3_bind_text(st.get(), 1, file.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_bind_text(st.get(), 2, schema.c_str(), -1, SQLITE_TRANSIENT);
        sqlite3_step(st.get());  // a file that cannot be attached is left out
    }
    {
        Statement st(db, "SELECT name FROM pragma_database_list ORDER BY seq");
        while (st && sqlite3_step(st.get()) == SQLITE_ROW) {
            Schema s;
            s.name = st.text(0);
            s.key = LowerAscii(s.name);
            if (s.key != "temp") c.schemas.push_back(std::move(s));
        }
    }
    for (Schema& s : c.schemas) {
        if (stopping) break;
        readSchema(db, s);
    }
    {
        std::lock_guard lock(mutex);
        reading = nullptr;
    }
    sqlite3_close(db);
    return c;
}

void SqliteNamekitMgr::Impl::readSchema(sqlite3* db, Schema& schema) {
    const std::string listSql = "SELECT name, type FROM " + quoteSql(schema.name) +
                                ".sqlite_master WHERE type IN ('table', 'view')"
                                " AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\'";
    Statement list(db, listSql.c_str());
    if (!list) return;  // not a database, or unreadable: the schema stays empty
    while (sqlite3_step(list.get()) == SQLITE_ROW) {
        Object o;
        o.name = list.text(0);
        o.key = LowerAscii(o.name);
        o.isView = list.text(1) == "view";
        schema.objects.push_back(std::move(o));
    }
    // Hidden columns of virtual tables (hidden = 1) are no columns a user writes.
    Statement cols(db, "SELECT name FROM pragma_table_xinfo(?1, ?2) WHERE hidden <> 1");
    for (Object& o : schema.objects) {
        if (stopping || !cols) break;
        sqlite3_reset(cols.get());
        sqlite3_bind_text(cols.get(), 1, o.name.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_text(cols.get(), 2, schema.name.c_str(), -1, SQLITE_STATIC);
        while (sqlite3_step(cols.get()) == SQLITE_ROW) {  // a broken view just has no columns
            std::string n = cols.text(0);
            o.columns.push_back({LowerAscii(n), std::move(n)});
        }
        std::sort(o.columns.begin(), o.columns.end(), keyLess);
    }
    sqlite3_reset(cols.get());
    std::sort(schema.objects.begin(), schema.objects.end(), keyLess);
}

void SqliteNamekitMgr::Impl::deliver(Request&& request, Lookup&& lookup) {
    QCoreApplication* app = QCoreApplication::instance();
    if (!app) return;
    // The delivery runs on the GUI thread, where every window lives. It owns the record, so
    // the record stays valid for as long as the window handles the message.
    auto record = std::make_shared<const NamekitAnswer>(std::move(lookup.head));
    auto rest = std::make_shared<const std::vector<CString>>(std::move(lookup.rest));
    QMetaObject::invokeMethod(
        app,
        [box = mailbox, widget = std::move(request.widget), record, rest]() {
            std::lock_guard hold(box->deliveryMutex);
            if (!box->alive) return;
            {
                std::lock_guard lock(box->pageMutex);
                box->rest = rest;
                box->restPos = 0;
            }
            QWidget* w = widget.data();
            CWnd* window = w ? CWnd::FromHandle(w) : nullptr;
            if (window) window->SendMessage(WM_NAMEKIT_ANSWER, 0, reinterpret_cast<LPARAM>(record.get()));
        },
        Qt::QueuedConnection);
}

void SqliteNamekitMgr::Impl::run() {
    std::unique_lock lock(mutex);
    for (;;) {
        wake.wait(lock, [this] { return stop || reload || pending.has_value(); });
        if (stop) return;
        if (reload) {
            reload = false;
            const auto attach = attachments;
            lock.unlock();
            Catalog fresh = load(attach);
            lock.lock();
            catalog = std::move(fresh);
            continue;
        }
        Request request = std::move(*pending);
        pending.reset();
        lock.unlock();
        Lookup lookup = answer(catalog, request.name, request.query, pageSize);
        lock.lock();
        if (stop) return;
        if (pending) continue;  // a newer request came meanwhile: this answer is stale
        deliver(std::move(request), std::move(lookup));
    }
}

SqliteNamekitMgr::SqliteNamekitMgr(const CString& databasePath, int pageSize)
    : d(std::make_unique<Impl>(databasePath.str(), pageSize)) {
    d->worker = std::thread([impl = d.get()] { impl->run(); });
}

SqliteNamekitMgr::~SqliteNamekitMgr() {
    {
        // Waits for an answer being handled right now; no delivery does anything afterwards.
        std::lock_guard hold(d->mailbox->deliveryMutex);
        d->mailbox->alive = false;
    }
    {
        std::lock_guard lock(d->mutex);
        d->stop = true;
        d->stopping = true;
        d->pending.reset();
        if (d->reading) sqlite3_interrupt(d->reading);
    }
    d->wake.notify_all();
    if (d->worker.joinable()) d->worker.join();
}

bool SqliteNamekitMgr::GetObjectList(CWnd* window, CString name, CString query) {
    QWidget* widget = window ? window->GetSafeHwnd() : nullptr;
    if (!widget || name.IsEmpty()) return false;
    {
        std::lock_guard lock(d->mutex);
        d->pending = Request{QPointer<QWidget>(widget), std::move(name), std::move(query)};
    }
    d->wake.notify_one();
    return true;
}

bool SqliteNamekitMgr::ShowMore(CStringArray& items) {
    items.RemoveAll();
    Mailbox& box = *d->mailbox;
    std::lock_guard lock(box.pageMutex);
    if (!box.rest || box.restPos >= box.rest->size()) return false;
    const size_t end = std::min(box.rest->size(), box.restPos + size_t(d->pageSize));
    for (; box.restPos < end; ++box.restPos) items.Add((*box.rest)[box.restPos]);
    return true;
}

bool SqliteNamekitMgr::Refresh() {
    {
        std::lock_guard lock(d->mutex);
        d->reload = true;
    }
    d->wake.notify_one();
    return true;
}

bool SqliteNamekitMgr::AttachDatabase(const CString& schema, const CString& path) {
    const std::string key = LowerAscii(schema.view());
    if (key.empty() || key == "main" || key == "temp" || path.IsEmpty()) return false;
    {
        std::lock_guard lock(d->mutex);
        auto it = std::find_if(d->attachments.begin(), d->attachments.end(),
                               [&](const auto& a) { return LowerAscii(a.first) == key; });
        if (it != d->attachments.end())
            it->second = path.str();
        else
            d->attachments.emplace_back(schema.str(), path.str());
        d->reload = true;
    }
    d->wake.notify_one();
    return true;
}

int SqliteNamekitMgr::PageSize() const { return d->pageSize; }
