// What the SQLite completion manager answers: plain names, qualified names through aliases,
// table names and attached schemas, quoting, paging over a large catalog, Refresh, and
// unreadable files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <QFile>
#include <QTemporaryDir>
#include <string>

#include "NamekitTestSupport.h"
#include "SqliteNamekitMgr.h"

namespace {

class NamekitLookup : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        file = dir.filePath("orders.sqlite");
        makeOrdersDatabase(file);
    }
    QTemporaryDir dir;
    QString file;
    AnswerWindow window;
};

TEST_F(NamekitLookup, PlainNamesListTablesAndViewsByPrefixIgnoringCase) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    EXPECT_EQ(ask(mgr, window, "ord").items, items({"\"Order Notes\"", "order_lines", "orders"}));
    EXPECT_EQ(ask(mgr, window, "ORD").items, items({"\"Order Notes\"", "order_lines", "orders"}));
    EXPECT_EQ(ask(mgr, window, "cu").items, items({"customer_totals", "customers"}));
    EXPECT_EQ(ask(mgr, window, "Open_O").items, items({"open_orders"}));
    const SeenAnswer none = ask(mgr, window, "zz");
    EXPECT_EQ(none.requestName, "zz");
    EXPECT_TRUE(none.items.empty());
    // Nothing to ask for: no request is started.
    EXPECT_FALSE(mgr.GetObjectList(&window, "", ""));
    EXPECT_FALSE(mgr.GetObjectList(nullptr, "ord", ""));
}

TEST_F(NamekitLookup, QualifiedNamesResolveAliasesOfTheQueryThenTableNames) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    const char* query =
        "select o.id from orders o\n"
        "  join order_lines as l on l.order_id = o.id\n"
        "  left join products p using (id)\n"
        " where o.status = 'x'";
    SeenAnswer a = ask(mgr, window, "o.c", query);
    EXPECT_EQ(a.items, items({"customer_id"}));
    EXPECT_EQ(a.requestName, "o.c");
    EXPECT_EQ(a.requestNameEx, "o.c");
    EXPECT_EQ(a.nameParts, items({"o", "c"}));
    EXPECT_EQ(ask(mgr, window, "L.Q", query).items, items({"quantity"}));
    EXPECT_EQ(ask(mgr, window, "p.", query).items, items({"id", "name", "price"}));
    // Comma lists, and a view behind an alias.
    EXPECT_EQ(ask(mgr, window, "y.r", "select * from customers x, customer_totals y, orders").items,
              items({"revenue"}));
    EXPECT_EQ(ask(mgr, window, "x.e", "select * from customers x, customer_totals y").items, items({"email"}));
    // A table name without a query, and case-insensitively.
    EXPECT_EQ(ask(mgr, window, "ORDERS.st").items, items({"status"}));
    EXPECT_EQ(ask(mgr, window, "open_orders.").items, items({"id", "status"}));
    // An alias that is bound nowhere and is no table: nothing.
    EXPECT_TRUE(ask(mgr, window, "q.a", query).items.empty());
    // The alias wins over a table of the same name.
    EXPECT_EQ(ask(mgr, window, "orders.n", "select * from products orders").items, items({"name"}));
}

TEST_F(NamekitLookup, QuotedIdentifiersMatchTheirContentAndComeBackQuoted) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    EXPECT_EQ(ask(mgr, window, "n.no", "select * from \"Order Notes\" n").items, items({"\"Note Id\"", "\"Note Text\""}));
    EXPECT_EQ(ask(mgr, window, "[Order Notes].p").items, items({"plain"}));
    SeenAnswer a = ask(mgr, window, "\"order notes\".\"Note T");
    EXPECT_EQ(a.items, items({"\"Note Text\""}));
    EXPECT_EQ(a.nameParts, items({"\"order notes\"", "\"Note T"}));  // the last part counts the quote
    EXPECT_EQ(ask(mgr, window, "\"ord").items, items({"\"Order Notes\"", "\"order_lines\"", "\"orders\""}));
    // Odd names give an answer, never a crash.
    for (const char* odd : {".", "..", "a.b.c.d", "o.\"\"\"", ")", "@x.#", "unterminated.x"})
        EXPECT_TRUE(ask(mgr, window, odd, "select * from \"unterminated").items.empty()) << odd;
    // A lone opening quote asks for every name, quoted.
    EXPECT_EQ(ask(mgr, window, "[").items.size(), 7u);
}

TEST_F(NamekitLookup, AttachedSchemasQualifyTablesAndColumns) {
    const QString aux = dir.filePath("archive.sqlite");
    execSql(aux, "create table archive_orders (id integer, closed_at text, closed_by text);"
                 "create table archive_lines (id integer);");
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    EXPECT_TRUE(mgr.AttachDatabase("aux", aux.toUtf8().constData()));
    EXPECT_FALSE(mgr.AttachDatabase("main", aux.toUtf8().constData()));
    EXPECT_FALSE(mgr.AttachDatabase("", aux.toUtf8().constData()));
    EXPECT_TRUE(mgr.AttachDatabase("gone", dir.filePath("missing.sqlite").toUtf8().constData()));

    EXPECT_EQ(ask(mgr, window, "aux.arch").items, items({"archive_lines", "archive_orders"}));
    EXPECT_EQ(ask(mgr, window, "AUX.archive_orders.closed_").items, items({"closed_at", "closed_by"}));
    EXPECT_EQ(ask(mgr, window, "a.closed_a", "select * from aux.archive_orders a").items, items({"closed_at"}));
    // Unqualified names look at the main schema; a schema that failed to attach is empty.
    EXPECT_TRUE(ask(mgr, window, "arch").items.empty());
    EXPECT_TRUE(ask(mgr, window, "gone.").items.empty());
    EXPECT_EQ(ask(mgr, window, "main.ord").items, items({"\"Order Notes\"", "order_lines", "orders"}));
}

TEST_F(NamekitLookup, RefreshReadsTheCatalogAgain) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    EXPECT_TRUE(ask(mgr, window, "ship").items.empty());
    execSql(file, "create table shipments (id integer, carrier text);");
    EXPECT_TRUE(ask(mgr, window, "ship").items.empty());  // the catalog is read once
    EXPECT_TRUE(mgr.Refresh());
    EXPECT_EQ(ask(mgr, window, "ship").items, items({"shipments"}));
    EXPECT_EQ(ask(mgr, window, "shipments.c").items, items({"carrier"}));
}

TEST_F(NamekitLookup, MissingOrCorruptFilesAnswerWithEmptyLists) {
    const QString corrupt = dir.filePath("corrupt.sqlite");
    QFile f(corrupt);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(QByteArray(8192, '\x5a'));
    f.close();
    const QString truncated = dir.filePath("truncated.sqlite");
    ASSERT_TRUE(QFile::copy(file, truncated));
    ASSERT_TRUE(QFile::resize(truncated, 600));  // the header survives, the schema page does not

    for (const QString& path : {dir.filePath("missing.sqlite"), corrupt, truncated, dir.path()}) {
        SqliteNamekitMgr mgr(path.toUtf8().constData());
        const SeenAnswer a = ask(mgr, window, "o.c", "select * from orders o");
        EXPECT_EQ(a.requestName, "o.c") << path.toStdString();
        EXPECT_TRUE(a.items.empty());
        EXPECT_EQ(a.nameParts, items({"o", "c"}));
        EXPECT_TRUE(ask(mgr, window, "o").items.empty());
        EXPECT_TRUE(mgr.Refresh());
    }
    EXPECT_FALSE(QFile::exists(dir.filePath("missing.sqlite")));  // opened read-only, never made
}

// 1,000 tables of 50 columns each, plus one table of 1,200 columns.
class NamekitLargeCatalog : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir = new QTemporaryDir;
        file = new QString(dir->filePath("large.sqlite"));
        std::string sql = "begin;";
        for (int t = 0; t < 1000; ++t) {
            char name[16];
            std::snprintf(name, sizeof name, "t%04d", t);
            sql += std::string("create table ") + name + " (";
            for (int c = 0; c < 50; ++c) sql += (c ? ", c" : "c") + std::to_string(c) + " integer";
            sql += ");";
        }
        sql += "create table wide (";
        for (int c = 0; c < 1200; ++c) {
            char col[16];
            std::snprintf(col, sizeof col, "%sc%04d", c ? ", " : "", c);
            sql += col;
        }
        sql += "); commit;";
        execSql(*file, sql.c_str());
    }
    static void TearDownTestSuite() {
        delete file;
        delete dir;
    }
    static QTemporaryDir* dir;
    static QString* file;
    AnswerWindow window;
};
QTemporaryDir* NamekitLargeCatalog::dir = nullptr;
QString* NamekitLargeCatalog::file = nullptr;

TEST_F(NamekitLargeCatalog, AnswersAPageAndShowMoreHandsOutTheRest) {
    SqliteNamekitMgr mgr(file->toUtf8().constData(), 300);
    CStringArray more;
    EXPECT_FALSE(mgr.ShowMore(more));  // no answer yet

    SeenAnswer a = ask(mgr, window, "t");
    ASSERT_EQ(a.items.size(), 300u);
    EXPECT_EQ(a.items.front(), "t0000");
    EXPECT_EQ(a.items.back(), "t0299");
    std::vector<CString> all = a.items;
    while (mgr.ShowMore(more)) {
        EXPECT_LE(more.GetSize(), 300);
        all.insert(all.end(), more.begin(), more.end());
    }
    EXPECT_TRUE(more.IsEmpty());
    ASSERT_EQ(all.size(), 1000u);
    EXPECT_TRUE(std::is_sorted(all.begin(), all.end()));
    EXPECT_EQ(all.back(), "t0999");
    EXPECT_FALSE(mgr.ShowMore(more));

    // A new answer starts the pages again.
    a = ask(mgr, window, "wide.c01");
    EXPECT_EQ(a.items.size(), 100u);
    EXPECT_FALSE(mgr.ShowMore(more));
    a = ask(mgr, window, "wide.");
    EXPECT_EQ(a.items.size(), 300u);
    int pages = 0;
    while (mgr.ShowMore(more)) ++pages;
    EXPECT_EQ(pages, 3);
    EXPECT_EQ(ask(mgr, window, "T0123.C4").items, items({"c4", "c40", "c41", "c42", "c43", "c44", "c45", "c46", "c47", "c48", "c49"}));
}

}  // namespace
