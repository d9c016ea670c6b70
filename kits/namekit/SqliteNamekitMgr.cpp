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

namespace {

char lowerAscii(char c) { return (c >= 'A' && c <= 'Z') ? char(c - 'A' + 'a') : c; }

std::string lowerAscii(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = lowerAscii(c);
    return r;
}

bool isIdentByte(char c) {
    const auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') ||
           c == '_' || c == '$';
}

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
// Splitting the dotted name typed at the caret.

struct NamePart {
    std::string raw;    // as typed, quotes included
    std::string value;  // the name inside the quotes
    char quote = 0;     // the opening quote character, 0 for a bare part
};

char closingQuote(char open) { return open == '[' ? ']' : open; }
bool isQuoteOpen(char c) { return c == '"' || c == '[' || c == '`'; }

std::vector<NamePart> splitName(std::string_view name) {
    std::vector<NamePart> parts(1);
    size_t i = 0;
    while (i < name.size()) {
        NamePart& part = parts.back();
        const char c = name[i];
        if (c == '.') {
            parts.emplace_back();
            ++i;
        } else if (isQuoteOpen(c) && part.raw.empty()) {
            const char close = closingQuote(c);
            part.quote = c;
            part.raw += c;
            ++i;
            while (i < name.size()) {
                if (name[i] == close) {
                    if (close != ']' && i + 1 < name.size() && name[i + 1] == close) {  // doubled
                        part.raw.append(2, close);
                        part.value += close;
                        i += 2;
                        continue;
                    }
                    part.raw += close;
                    ++i;
                    break;
                }
                part.raw += name[i];
                part.value += name[i];
                ++i;
            }
        } else {
            part.raw += c;
            part.value += c;
            ++i;
        }
    }
    return parts;
}

// An item the editor can insert as it stands: plain identifiers bare, others quoted the way
// the user started (double quotes unless a [ or ` was typed).
std::string itemText(const std::string& name, char quote) {
    bool plain = !name.empty() && !(name[0] >= '0' && name[0] <= '9');
    for (char c : name) plain = plain && isIdentByte(c);
    if (plain && !quote) return name;
    const char open = quote ? quote : '"';
    const char close = closingQuote(open);
    std::string r(1, open);
    for (char c : name) {
        r += c;
        if (c == close && close != ']') r += c;
    }
    return r + close;
}

// ---------------------------------------------------------------------------------------------
// Reading the aliases of a query: `from t a`, `from t as a`, `join s.t a on ...`, comma lists
// and quoted identifiers. Strings and comments are skipped; sub-queries are scanned as well,
// since their own from clauses bind aliases the same way.

enum class Tok { Word, Quoted, Dot, Comma, Open, Close, Other };

struct Token {
    Tok kind;
    std::string value;
};

std::vector<Token> tokenize(std::string_view q) {
    std::vector<Token> out;
    size_t i = 0;
    const size_t n = q.size();
    while (i < n) {
        const char c = q[i];
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v') {
            ++i;
        } else if (c == '-' && i + 1 < n && q[i + 1] == '-') {
            while (i < n && q[i] != '\n') ++i;
        } else if (c == '/' && i + 1 < n && q[i + 1] == '*') {
            const size_t end = q.find("*/", i + 2);
            i = end == std::string_view::npos ? n : end + 2;
        } else if (c == '\'') {
            for (++i; i < n; ++i) {
                if (q[i] == '\'') {
                    if (i + 1 < n && q[i + 1] == '\'') { ++i; continue; }
                    ++i;
                    break;
                }
            }
            out.push_back({Tok::Other, "'"});
        } else if (isQuoteOpen(c)) {
            const char close = closingQuote(c);
            std::string value;
            for (++i; i < n; ++i) {
                if (q[i] == close) {
                    if (close != ']' && i + 1 < n && q[i + 1] == close) { value += close; ++i; continue; }
                    ++i;
                    break;
                }
                value += q[i];
            }
            out.push_back({Tok::Quoted, std::move(value)});
        } else if (isIdentByte(c)) {
            const size_t start = i;
            while (i < n && isIdentByte(q[i])) ++i;
            out.push_back({Tok::Word, std::string(q.substr(start, i - start))});
        } else {
            const Tok kind = c == '.' ? Tok::Dot : c == ',' ? Tok::Comma : c == '(' ? Tok::Open
                           : c == ')' ? Tok::Close : Tok::Other;
            out.push_back({kind, std::string(1, c)});
            ++i;
        }
    }
    return out;
}

bool isReserved(const std::string& key) {
    static const char* const words[] = {
        "where", "join", "inner", "left", "right", "full", "outer", "cross", "natural", "on",
        "using", "group", "order", "having", "limit", "union", "except", "intersect", "window",
        "as", "set", "values", "select", "from", "returning", "indexed", "not", "and", "or",
        "offset", "into", "with", "when", "then", "else", "end", "case", "is", "in", "like"};
    return std::any_of(std::begin(words), std::end(words), [&](const char* w) { return key == w; });
}

struct TableRef {
    std::string schemaKey;  // empty when unqualified
    std::string tableKey;
};

class AliasReader {
public:
    explicit AliasReader(std::string_view query) : tokens_(tokenize(query)) {}

    std::map<std::string, TableRef> read() {
        while (i_ < tokens_.size()) {
            const Token& t = tokens_[i_++];
            if (t.kind != Tok::Word) continue;
            const std::string key = lowerAscii(t.value);
            if (key == "from") {
                while (readRef() && at(Tok::Comma)) ++i_;
            } else if (key == "join") {
                readRef();
            }
        }
        return std::move(aliases_);
    }

private:
    bool at(Tok kind) const { return i_ < tokens_.size() && tokens_[i_].kind == kind; }
    bool atName() const {
        return at(Tok::Quoted) || (at(Tok::Word) && !isReserved(lowerAscii(tokens_[i_].value)));
    }
    void skipParens() {  // i_ at "("; leaves i_ behind the matching ")" (or at the end)
        int depth = 0;
        for (; i_ < tokens_.size(); ++i_) {
            if (tokens_[i_].kind == Tok::Open) ++depth;
            if (tokens_[i_].kind == Tok::Close && --depth == 0) { ++i_; return; }
        }
    }
    // One table reference; false when none stands here.
    bool readRef() {
        TableRef ref;
        if (at(Tok::Open)) {
            // A sub-query: its insides are scanned by the outer loop; its alias binds nothing.
            ++i_;
            return false;
        }
        if (!atName()) return false;
        ref.tableKey = lowerAscii(tokens_[i_++].value);
        if (at(Tok::Dot) && i_ + 1 < tokens_.size() &&
            (tokens_[i_ + 1].kind == Tok::Word || tokens_[i_ + 1].kind == Tok::Quoted)) {
            ref.schemaKey = std::move(ref.tableKey);
            ref.tableKey = lowerAscii(tokens_[i_ + 1].value);
            i_ += 2;
        }
        if (at(Tok::Open)) skipParens();  // a table-valued function's arguments
        if (at(Tok::Word) && lowerAscii(tokens_[i_].value) == "as") ++i_;
        if (atName()) aliases_[lowerAscii(tokens_[i_++].value)] = ref;
        return true;
    }

    std::vector<Token> tokens_;
    size_t i_ = 0;
    std::map<std::string, TableRef> aliases_;
};

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
    const std::vector<NamePart> parts = splitName(name.view());
    for (const NamePart& p : parts) result.head.nameParts.Add(CString(p.raw));

    const NamePart& last = parts.back();
    const std::string prefix = lowerAscii(last.value);
    std::vector<std::string> found;

    auto columnsOf = [&](const Object* o) {
        if (o) collectPrefix(o->columns, prefix, found);
    };
    if (parts.size() == 1) {
        if (!catalog.schemas.empty()) collectPrefix(catalog.schemas.front().objects, prefix, found);
    } else if (parts.size() == 2 && !parts[0].value.empty()) {
        const std::string qualifier = lowerAscii(parts[0].value);
        const std::map<std::string, TableRef> aliases =
            query.IsEmpty() ? std::map<std::string, TableRef>{} : AliasReader(query.view()).read();
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
        if (const Schema* s = catalog.schema(lowerAscii(parts[0].value)))
            columnsOf(Catalog::object(*s, lowerAscii(parts[1].value)));
    }

    const size_t page = size_t(std::max(1, pageSize));
    for (size_t i = 0; i < found.size(); ++i) {
        CString item(itemText(found[i], last.quote));
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
            s.key = lowerAscii(s.name);
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
        o.key = lowerAscii(o.name);
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
            o.columns.push_back({lowerAscii(n), std::move(n)});
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
    const std::string key = lowerAscii(schema.view());
    if (key.empty() || key == "main" || key == "temp" || path.IsEmpty()) return false;
    {
        std::lock_guard lock(d->mutex);
        auto it = std::find_if(d->attachments.begin(), d->attachments.end(),
                               [&](const auto& a) { return lowerAscii(a.first) == key; });
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
