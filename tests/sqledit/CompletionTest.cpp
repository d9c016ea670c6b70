// Object completion end to end: keystrokes in a real SQL window, the main window that hands
// out the completion manager, answers that fit or no longer fit, and a real SQLite catalog.
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTemporaryDir>
#include <sqlite3.h>

#include "CNamekitMgr.h"
#include "EngineAccessible.h"
#include "QuillEngine.h"
#include "SqliteNamekitMgr.h"
#include "SqlWindow.h"

namespace {
// A manager that records what it is asked; the test answers by hand.
class RecordingManager : public CNamekitMgr {
public:
    bool GetObjectList(CWnd* w, CString name, CString query) override {
        window = w;
        names.Add(name);
        queries.Add(query);
        return true;
    }
    bool ShowMore(CStringArray& items) override { return items.Add("more_one"), true; }
    bool Refresh() override { return ++refreshes, true; }
    CString lastName() { return names[names.GetSize() - 1]; }
    CString lastQuery() { return queries[queries.GetSize() - 1]; }
    CWnd* window = nullptr;
    CStringArray names, queries;
    int refreshes = 0;
};
}  // namespace

class CompletionTest : public SqlWindowTest {
protected:
    void SetUp() override {
        SqlWindowTest::SetUp();
        main.CreateEx(0, "QuillboxFrame", "main", 0, RECT{0, 0, 10, 10}, nullptr, 0);
        main.SetNamekitMgr(&recorder);
        AfxSetMainWnd(&main);
        focus(*window);
    }
    void TearDown() override {
        AfxSetMainWnd(nullptr);
        SqlWindowTest::TearDown();
    }
    void type(const char* text) { QTest::keyClicks(window->GetSafeHwnd(), text); }
    void answer(const char* asked, const std::vector<const char*>& items, const char* lastPart = nullptr) {
        NamekitAnswer record;
        record.requestNameEx = asked;
        for (const char* item : items) record.items.Add(item);
        if (lastPart) record.nameParts.Add(lastPart);
        window->SendMessage(CKTSQLEditWnd::kCompletionAnswer, 0, reinterpret_cast<LPARAM>(&record));
    }
    bool listShows() { return send(SCI_AUTOCACTIVE) != 0; }
    CString current() {
        char item[64] = {};
        send(SCI_AUTOCGETCURRENTTEXT, 0, reinterpret_cast<LPARAM>(item));
        return item;
    }

    CNamekitMainWnd main;
    RecordingManager recorder;
};

TEST_F(CompletionTest, AQualifiedNameAsksWithTheStatementAroundTheCaret) {
    load("select 1 from dual;\nselect  from orders o where 1 = 1;\n");
    send(SCI_GOTOPOS, 27);  // behind "select " on line 1
    type("o.c");
    ASSERT_EQ(recorder.names.GetSize(), 3);
    EXPECT_EQ(recorder.names[0], "o");
    EXPECT_EQ(recorder.names[2], "o.c");
    EXPECT_EQ(recorder.queries[0], "");  // a plain name has no query
    EXPECT_NE(recorder.queries[2].Find("from orders o"), -1);
    EXPECT_EQ(recorder.queries[2].Find("dual"), -1);
    EXPECT_EQ(recorder.window, window.get());
}

TEST_F(CompletionTest, OnlyAFittingAnswerToTheFocusedWindowShowsAndItsChoiceReplacesTheLastPart) {
    struct Row { int changeCase; const char* typed; const char* asked; std::vector<const char*> items; const char* lastPart; bool focused; const char* chosen; };
    const Row rows[] = {
        {0, "o.c", "o.c", {"customer_id"}, "c", true, "o.customer_id"},
        {1, "x.or", "x.or", {"Orders", "order_lines"}, "or", true, "x.ORDERS"},  // upper case, replacing the two bytes typed
        {0, "ord", "or", {"orders"}, nullptr, true, nullptr},  // asked for "or", but "ord" stands now
        {0, "ord", "ord", {}, nullptr, true, nullptr},
        {0, "ord", "ord", {"orders"}, nullptr, false, nullptr},
    };
    QLineEdit other(frame->GetSafeHwnd());
    for (const Row& row : rows) {
        SCOPED_TRACE(row.typed);
        CKTMgrSetting(0).SetInt("Change Case", row.changeCase);
        window->ApplyOptionOnRealtime();
        send(SCI_CLEARALL);
        focus(*window);
        type(row.typed);
        if (!row.focused) other.show(), other.setFocus(), QApplication::processEvents();
        answer(row.asked, row.items, row.lastPart);
        EXPECT_EQ(listShows(), row.chosen != nullptr);
        if (row.chosen) key(Qt::Key_Return);
        EXPECT_EQ(text(), row.chosen ? row.chosen : row.typed);
    }
}

TEST_F(CompletionTest, CharactersThatAreNoNameCancelAndAskNothing) {
    load("");
    type("a");
    answer("a", {"abc", "abd"});
    ASSERT_TRUE(listShows());
    type(" ");
    EXPECT_FALSE(listShows());
    type("(");
    EXPECT_EQ(recorder.names.GetSize(), 1);
    send(SCI_NEWLINE);
    type(".");  // a dot first on its line: the name is "." and there is no query
    EXPECT_EQ(recorder.lastName(), ".");
    EXPECT_EQ(recorder.lastQuery(), "");
    QTest::sendKeyEvent(QTest::Click, window->GetSafeHwnd(), Qt::Key_unknown, QString::fromUtf8("한"), Qt::NoModifier);
    EXPECT_EQ(recorder.lastName(), ".한");  // a multi-byte character asks like a letter
}

TEST_F(CompletionTest, TheListAsksForMoreAndForARefresh) {
    load("");
    type("o");
    answer("o", {"one", "orders"});
    ASSERT_TRUE(listShows());
    key(Qt::Key_Down);
    QApplication::processEvents();  // the request for more comes once the key is handled
    ASSERT_TRUE(listShows());
    EXPECT_EQ(current(), "orders");  // the chosen item stays while the list grows
    key(Qt::Key_Down);
    EXPECT_EQ(current(), "more_one");  // added to the list that shows
    key(Qt::Key_Backspace);
    EXPECT_GE(recorder.refreshes, 1);
}

TEST_F(CompletionTest, ARealCatalogAnswersThroughAnAlias) {
    QTemporaryDir dir;
    const QByteArray path = dir.filePath("shop.sqlite").toUtf8();
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.constData(), &db), SQLITE_OK);
    sqlite3_exec(db, "create table orders(id integer, customer_id integer, created_at text);", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    SqliteNamekitMgr catalog(CString(path.constData()));
    main.SetNamekitMgr(&catalog);
    load("select  from orders o");
    send(SCI_GOTOPOS, 7);
    type("o.cu");
    QElapsedTimer timer;
    timer.start();
    while (!listShows() && timer.elapsed() < 5000) QTest::qWait(10);
    ASSERT_TRUE(listShows());
    key(Qt::Key_Return);
    EXPECT_EQ(text(), "select o.customer_id from orders o");
    main.SetNamekitMgr(&recorder);
}

TEST_F(CompletionTest, ACompletionKeyCostsTheSameAtTheEndOfAnyScript) {
    // The engine work of one completing key at the end of a script of 1 MB and of 8 MB, with
    // and without assistive technology listening.
    auto costOfKey = [&](size_t bytes) {
        window->SetText(CString(RepeatedLines("select o.id, o.total\n  from orders o\n where o.id = 42;\n", bytes) +
                                "select * from orders t where t."), 0);
        send(SCI_DOCUMENTEND);
        // The window shows the end once it is coloured up to there; then the key is typed.
        for (int pass = 0; pass < 100000 && send(SCI_GETENDSTYLED) < send(SCI_GETLENGTH); ++pass)
            QApplication::processEvents();
        window->engine()->resetCounters();
        type("c");
        QApplication::processEvents();
        return window->engine()->counters();
    };
    for (bool listening : {false, true}) {
        SCOPED_TRACE(listening ? "listening" : "nobody listening");
        EngineAccessible::Listener previous = nullptr;
        if (listening) previous = EngineAccessible::installListener([](QAccessibleEvent*) {});
        const QuillEngine::Counters small = costOfKey(1 << 20), large = costOfKey(8 << 20);
        if (listening) EngineAccessible::installListener(previous);
        EXPECT_EQ(small.messages, large.messages);
        EXPECT_EQ(small.bytesCopied, large.bytesCopied);
        EXPECT_EQ(small.bytesCounted, large.bytesCounted);
        EXPECT_EQ(recorder.lastName(), "t.c");
        EXPECT_EQ(recorder.lastQuery(), "\r\nselect * from orders t where t.c");
    }
}
