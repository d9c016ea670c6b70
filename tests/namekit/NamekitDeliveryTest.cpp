// How answers reach the window: by message on the GUI thread, never to a window that is gone,
// never after the manager is destroyed, and only for the newest of quick requests.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QThread>
#include <memory>
#include <string>

#include "NamekitTestSupport.h"
#include "SqliteNamekitMgr.h"

namespace {

class NamekitDelivery : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        file = dir.filePath("orders.sqlite");
        makeOrdersDatabase(file);
    }
    // Processes events for `ms` milliseconds.
    static void pump(int ms) {
        QDeadlineTimer deadline(ms);
        while (!deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
            QThread::msleep(1);
        }
    }
    QTemporaryDir dir;
    QString file;
};

TEST_F(NamekitDelivery, TheAnswerArrivesAsAMessageOnTheWindowsThread) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    AnswerWindow window;
    ASSERT_TRUE(mgr.GetObjectList(&window, "pro", ""));
    EXPECT_TRUE(window.answers.empty());  // the request returns before any answer
    ASSERT_TRUE(waitForAnswers(window, 1));
    const SeenAnswer& a = window.answers.front();
    EXPECT_EQ(a.wParam, 0u);
    EXPECT_EQ(a.requestName, "pro");
    EXPECT_EQ(a.requestNameEx, "pro");
    EXPECT_EQ(a.items, items({"products"}));
    EXPECT_EQ(a.nameParts, items({"pro"}));
    pump(50);
    EXPECT_EQ(window.answers.size(), 1u);  // one request, one answer
}

TEST_F(NamekitDelivery, AWindowDestroyedBeforeItsAnswerGetsNothing) {
    SqliteNamekitMgr mgr(file.toUtf8().constData());
    AnswerWindow survivor;
    for (int i = 0; i < 20; ++i) {
        auto gone = std::make_unique<AnswerWindow>();
        ASSERT_TRUE(mgr.GetObjectList(gone.get(), "ord", ""));
        if (i % 2) gone->DestroyWindow();  // the widget goes first, then the framework object
        gone.reset();
        pump(i % 3);
    }
    pump(100);
    // The manager still answers a living window afterwards.
    EXPECT_EQ(ask(mgr, survivor, "prod").items, items({"products"}));
}

TEST_F(NamekitDelivery, NoAnswerArrivesAfterTheManagerIsDestroyed) {
    AnswerWindow window;
    for (int i = 0; i < 10; ++i) {
        auto mgr = std::make_unique<SqliteNamekitMgr>(file.toUtf8().constData());
        ASSERT_TRUE(mgr->GetObjectList(&window, "cust", ""));
        QThread::msleep(i * 2);  // the answer may already be queued
        mgr.reset();
        pump(20);
    }
    EXPECT_TRUE(window.answers.empty());
}

TEST_F(NamekitDelivery, OnlyTheNewestOfQuickRequestsIsAnswered) {
    // A catalog large enough that the worker is still reading it while the requests come.
    std::string sql = "begin;";
    for (int t = 0; t < 3000; ++t)
        sql += "create table t" + std::to_string(t) + " (a, b, c, d, e, f, g, h);";
    sql += "commit;";
    const QString big = dir.filePath("big.sqlite");
    execSql(big, sql.c_str());

    SqliteNamekitMgr mgr(big.toUtf8().constData());
    AnswerWindow window;
    const char* typed[] = {"t", "t1", "t12", "t123", "t1234", "t12", "t29"};
    for (const char* name : typed) ASSERT_TRUE(mgr.GetObjectList(&window, name, ""));
    ASSERT_TRUE(waitForAnswers(window, 1));
    pump(100);
    ASSERT_EQ(window.answers.size(), 1u);
    EXPECT_EQ(window.answers.back().requestName, "t29");
    EXPECT_EQ(window.answers.back().items.size(), 111u);  // t29, t290..t299, t2900..t2999

    // Requests from different windows: the newest wins as well.
    AnswerWindow other;
    window.answers.clear();
    mgr.Refresh();
    ASSERT_TRUE(mgr.GetObjectList(&window, "t1", ""));
    ASSERT_TRUE(mgr.GetObjectList(&other, "t2", ""));
    ASSERT_TRUE(waitForAnswers(other, 1));
    pump(100);
    EXPECT_TRUE(window.answers.empty());
    EXPECT_EQ(other.answers.front().requestName, "t2");
}

}  // namespace
