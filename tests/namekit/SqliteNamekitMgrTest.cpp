// The SQLite completion manager: the lookups of tests/data/namekit/lookups.txt, Refresh,
// unreadable files, paging over a large catalog, and how answers reach the window: by message
// on the GUI thread, never to a window that is gone or after the manager is destroyed, and only
// for the newest of quick requests.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <algorithm>
#include <climits>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "CaseFiles.h"
#include "SqliteNamekitMgr.h"

namespace {

std::string testData(const char* name) { return ReadCase(std::filesystem::path(QUILLBOX_TEST_DATA) / "namekit" / name); }

// Runs `sql` on the database file (made when missing); fails the test on an error.
void execSql(const QString& file, const std::string& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &db), SQLITE_OK);
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
    sqlite3_close(db);
}

std::string joined(const std::vector<CString>& list) {
    std::string out;
    for (const CString& s : list) out += (out.empty() ? "" : ", ") + s.str();
    return out;
}

// A copy of an answer as the window saw it while handling the message.
struct SeenAnswer {
    WPARAM wParam = 0;
    CString requestName, requestNameEx;
    std::vector<CString> items, nameParts;
};

class AnswerWindow : public CWnd {
public:
    AnswerWindow() { EXPECT_TRUE(CreateEx(0, "QuillboxFrame", "answers", 0, RECT{0, 0, 100, 100}, nullptr, 0)); }
    std::vector<SeenAnswer> answers;

protected:
    const MessageMap* GetMessageMap() const override { return GetThisMessageMap(); }
    static const MessageMap* GetThisMessageMap() {
        static const MessageMapEntry entries[] = {
            {WM_NAMEKIT_ANSWER, 0, [](CWnd* w, WPARAM wParam, LPARAM lParam) -> LRESULT {
                 const auto* record = reinterpret_cast<const NamekitAnswer*>(lParam);
                 static_cast<AnswerWindow*>(w)->answers.push_back(
                     {wParam, record->requestName, record->requestNameEx, {record->items.begin(), record->items.end()},
                      {record->nameParts.begin(), record->nameParts.end()}});
                 return 0;
             }},
        };
        static const MessageMap map{CWnd::GetThisMessageMap(), entries, std::size(entries)};
        return &map;
    }
};

// Processes events until `window` holds `count` answers or `ms` milliseconds passed.
bool pump(const AnswerWindow& window, size_t count, int ms = 5000) {
    QDeadlineTimer deadline(ms);
    while (window.answers.size() < count && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
    return window.answers.size() >= count;
}

// Asks for `name` and waits for the answer, which comes as a message on the window's thread:
// never before the request returns, with wParam 0 and the name asked.
SeenAnswer ask(CNamekitMgr& mgr, AnswerWindow& window, const std::string& name, const std::string& query = "") {
    window.answers.clear();
    const bool started = mgr.GetObjectList(&window, name.c_str(), query.c_str());
    EXPECT_TRUE(started && window.answers.empty()) << name;
    const bool answered = started && pump(window, 1);
    EXPECT_TRUE(answered) << name;
    if (!answered) return {};
    const SeenAnswer& a = window.answers.back();
    EXPECT_EQ(std::to_string(a.wParam) + "|" + a.requestName.str() + "|" + a.requestNameEx.str(), "0|" + name + "|" + name);
    return a;
}

// The order-tracking database of tests/data/namekit/orders.sql, in a temporary folder.
class Namekit : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        execSql(file, testData("orders.sql"));
    }
    QTemporaryDir dir;
    QString file = dir.filePath("orders.sqlite");
    AnswerWindow window;
};

TEST_F(Namekit, LookupsOfTheCaseFileAndRefresh) {
    const QString aux = dir.filePath("archive.sqlite");
    execSql(aux, "create table archive_orders (id integer, closed_at text, closed_by text);"
                 "create table archive_lines (id integer);");
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    EXPECT_TRUE(mgr.AttachDatabase("aux", aux.toUtf8().constData()));
    EXPECT_FALSE(mgr.AttachDatabase("main", aux.toUtf8().constData()));
    EXPECT_FALSE(mgr.AttachDatabase("", aux.toUtf8().constData()));
    EXPECT_TRUE(mgr.AttachDatabase("gone", dir.filePath("missing.sqlite").toUtf8().constData()));

    std::istringstream rows(testData("lookups.txt"));
    int checked = 0;
    for (std::string row; std::getline(rows, row);) {
        if (row.empty() || row[0] == '#') continue;
        std::vector<std::string> field;  // name | query | items, each trimmed
        for (std::istringstream in(row); std::getline(in, field.emplace_back(), '|');) {
            std::string& f = field.back();
            f.erase(0, f.find_first_not_of(' '));
            f.erase(f.find_last_not_of(' ') + 1);
        }
        field.pop_back();
        if (field.size() == 2) field.emplace_back();
        ASSERT_EQ(field.size(), 3u) << row;
        EXPECT_EQ(joined(ask(mgr, window, field[0], field[1]).items), field[2]) << row;
        ++checked;
    }
    EXPECT_GT(checked, 30);
    // The request names the parts as typed, quotes included; nothing to ask for starts none.
    const SeenAnswer a = ask(mgr, window, "\"order notes\".\"Note T");
    EXPECT_EQ(joined(a.nameParts), "\"order notes\", \"Note T");
    EXPECT_FALSE(mgr.GetObjectList(&window, "", ""));
    EXPECT_FALSE(mgr.GetObjectList(nullptr, "ord", ""));

    // The catalog is read once, and again on Refresh.
    execSql(file, "create table shipments (id integer, carrier text);");
    EXPECT_EQ(joined(ask(mgr, window, "ship").items), "");
    EXPECT_TRUE(mgr.Refresh());
    EXPECT_EQ(joined(ask(mgr, window, "ship").items) + "|" + joined(ask(mgr, window, "shipments.c").items),
              "shipments|carrier");
}

TEST_F(Namekit, MissingOrCorruptFilesAnswerWithEmptyLists) {
    const QString corrupt = dir.filePath("corrupt.sqlite"), truncated = dir.filePath("truncated.sqlite");
    QFile f(corrupt);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray(8192, '\x5a'));
    f.close();
    ASSERT_TRUE(QFile::copy(file, truncated));
    ASSERT_TRUE(QFile::resize(truncated, 600));  // the header survives, the schema page does not

    for (const QString& path : {dir.filePath("missing.sqlite"), corrupt, truncated, dir.path()}) {
        SqliteNamekitMgr mgr(path.toUtf8().constData());
        const SeenAnswer a = ask(mgr, window, "o.c", "select * from orders o");
        EXPECT_EQ(joined(a.items) + "|" + joined(a.nameParts), "|o, c") << path.toStdString();
        EXPECT_EQ(joined(ask(mgr, window, "o").items), "");
        EXPECT_TRUE(mgr.Refresh());
    }
    EXPECT_FALSE(QFile::exists(dir.filePath("missing.sqlite")));  // opened read-only, never made
}

TEST_F(Namekit, NoAnswerReachesAWindowOrAManagerThatIsGone) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    for (int i = 0; i < 20; ++i) {
        auto gone = std::make_unique<AnswerWindow>();
        ASSERT_TRUE(mgr.GetObjectList(gone.get(), "ord", ""));
        if (i % 2) gone->DestroyWindow();  // the widget goes first, then the framework object
        gone.reset();
        pump(window, INT_MAX, i % 3);
    }
    pump(window, INT_MAX, 100);
    EXPECT_EQ(joined(ask(mgr, window, "prod").items), "products");  // the manager still answers

    window.answers.clear();
    for (int i = 0; i < 10; ++i) {
        auto doomed = std::make_unique<SqliteNamekitMgr>(file.toUtf8().constData());
        ASSERT_TRUE(doomed->GetObjectList(&window, "cust", ""));
        QThread::msleep(i * 2);  // the answer may already be queued
        doomed.reset();
        pump(window, INT_MAX, 20);
    }
    EXPECT_TRUE(window.answers.empty());
}

// 1,000 tables t0000..t0999 of 50 columns each, plus one table "wide" of 1,200 columns: large
// enough that the worker is still reading it while quick requests come.
class NamekitLargeCatalog : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir = new QTemporaryDir;
        std::string sql = "begin; create table wide (c0000";
        for (int c = 10001; c < 11200; ++c) sql += ", c" + std::to_string(c).substr(1);
        sql += ");";
        for (int t = 10000; t < 11000; ++t) {
            sql += "create table t" + std::to_string(t).substr(1) + " (c0";
            for (int c = 1; c < 50; ++c) sql += ", c" + std::to_string(c);
            sql += ");";
        }
        execSql(file(), sql + "commit;");
    }
    static void TearDownTestSuite() { delete dir; }
    static QByteArray file() { return dir->filePath("large.sqlite").toUtf8(); }
    static QTemporaryDir* dir;
    AnswerWindow window;
};
QTemporaryDir* NamekitLargeCatalog::dir = nullptr;

// The answer holds the first page; ShowMore hands out the rest, a page at a time, until a new
// answer starts the pages again.
TEST_F(NamekitLargeCatalog, AnswersAPageAndShowMoreHandsOutTheRest) {
    SqliteNamekitMgr mgr(file().constData(), 300);
    CStringArray more;
    EXPECT_FALSE(mgr.ShowMore(more));  // no answer yet
    const auto pages = [&](const char* name, std::vector<CString>* all = nullptr) {
        std::vector<CString> items = ask(mgr, window, name).items;
        std::string sizes = std::to_string(items.size());
        for (; mgr.ShowMore(more); items.insert(items.end(), more.begin(), more.end()))
            sizes += " " + std::to_string(more.GetSize());
        EXPECT_TRUE(more.IsEmpty());
        if (all) *all = items;
        return sizes;
    };
    std::vector<CString> all;
    EXPECT_EQ(pages("t", &all), "300 300 300 100");
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(all[299] + all.front() + all.back(), "t0299t0000t0999");
    EXPECT_EQ(pages("wide.c01"), "100");
    EXPECT_EQ(pages("wide."), "300 300 300 300");
    EXPECT_EQ(joined(ask(mgr, window, "T0123.C4").items), "c4, c40, c41, c42, c43, c44, c45, c46, c47, c48, c49");
}

TEST_F(NamekitLargeCatalog, OnlyTheNewestOfQuickRequestsIsAnswered) {
    SqliteNamekitMgr mgr(file().constData());
    for (const char* typed : {"t", "t0", "t01", "t012", "t0123", "t01", "t029"})
        ASSERT_TRUE(mgr.GetObjectList(&window, typed, ""));
    ASSERT_TRUE(pump(window, 1));
    pump(window, INT_MAX, 100);
    ASSERT_EQ(window.answers.size(), 1u);
    EXPECT_EQ(window.answers.back().requestName, "t029");
    EXPECT_EQ(window.answers.back().items.size(), 10u);

    // Requests from different windows: the newest wins as well.
    AnswerWindow other;
    window.answers.clear();
    mgr.Refresh();
    ASSERT_TRUE(mgr.GetObjectList(&window, "t01", ""));
    ASSERT_TRUE(mgr.GetObjectList(&other, "t02", ""));
    ASSERT_TRUE(pump(other, 1));
    pump(other, INT_MAX, 100);
    EXPECT_TRUE(window.answers.empty());
    EXPECT_EQ(other.answers.front().requestName, "t02");
}

}  // namespace
