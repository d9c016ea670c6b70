#include "NamekitTestSupport.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

void execSql(const QString& file, const char* sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(file.toUtf8().constData(), &db), SQLITE_OK);
    char* error = nullptr;
    const int rc = sqlite3_exec(db, sql, nullptr, nullptr, &error);
    EXPECT_EQ(rc, SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
    sqlite3_close(db);
}

void makeOrdersDatabase(const QString& file) {
    execSql(file, R"(
        create table customers (id integer primary key, name text, email text);
        create table orders (id integer primary key, customer_id integer, status text, total numeric);
        create table order_lines (id integer primary key, order_id integer, product_id integer,
                                  quantity integer, price numeric);
        create table products (id integer primary key, name text, price numeric);
        create table "Order Notes" ("Note Id" integer, "Note Text" text, plain text);
        create view customer_totals as
            select c.id, c.name, sum(o.total) as revenue from customers c join orders o
            on o.customer_id = c.id group by c.id;
        create view open_orders as select id, status from orders where status <> 'shipped';
    )");
}

AnswerWindow::AnswerWindow() {
    EXPECT_TRUE(CreateEx(0, "QuillboxFrame", "answers", 0, RECT{0, 0, 100, 100}, nullptr, 0));
}

const MessageMap* AnswerWindow::GetThisMessageMap() {
    static const MessageMapEntry entries[] = {
        {WM_NAMEKIT_ANSWER, 0, [](CWnd* w, WPARAM wParam, LPARAM lParam) -> LRESULT {
             const auto* record = reinterpret_cast<const NamekitAnswer*>(lParam);
             SeenAnswer seen;
             seen.wParam = wParam;
             seen.requestName = record->requestName;
             seen.requestNameEx = record->requestNameEx;
             seen.items.assign(record->items.begin(), record->items.end());
             seen.nameParts.assign(record->nameParts.begin(), record->nameParts.end());
             static_cast<AnswerWindow*>(w)->answers.push_back(std::move(seen));
             return 0;
         }},
    };
    static const MessageMap map{CWnd::GetThisMessageMap(), entries, std::size(entries)};
    return &map;
}

bool waitForAnswers(const AnswerWindow& window, size_t count) {
    QDeadlineTimer deadline(5000);
    while (window.answers.size() < count && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        QThread::msleep(1);
    }
    return window.answers.size() >= count;
}

SeenAnswer ask(CNamekitMgr& mgr, AnswerWindow& window, const char* name, const char* query) {
    window.answers.clear();
    if (!mgr.GetObjectList(&window, name, query) || !waitForAnswers(window, 1)) {
        SeenAnswer none;
        none.requestName = "<none>";
        return none;
    }
    return window.answers.back();
}

std::vector<CString> items(std::initializer_list<const char*> list) {
    return std::vector<CString>(list.begin(), list.end());
}
