// Automatic indentation in the application window, with the shipped property file: the SQL
// lexer's keywords are the block words, and typed characters arrive through the window's own
// notification handling.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include <memory>

#include "CKTScinWnd.h"
#include "ScratchRegistry.h"

namespace {
class AppWindow : public CKTScinWnd {
public:
    using CKTScinWnd::SendEditor;
};
}  // namespace

class AppIndentTest : public ::testing::Test {
protected:
    void SetUp() override {
        frame = std::make_unique<CWnd>();
        ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
        window = std::make_unique<AppWindow>();
        ASSERT_EQ(window->Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 7), 1);
        frame->GetSafeHwnd()->activateWindow();
        window->GetSafeHwnd()->setFocus();
        QApplication::processEvents();
    }
    void type(const char* text) { QTest::keyClicks(window->GetSafeHwnd(), QString::fromUtf8(text)); }
    void enter() { QTest::keyClick(window->GetSafeHwnd(), Qt::Key_Return); }
    std::string text() { return window->GetText().c_str(); }

    ScratchRegistry registry;
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<AppWindow> window;
};

TEST_F(AppIndentTest, NewLinesKeepTheIndentationAndAnEndWordMovesOut) {
    type("begin");
    enter();
    EXPECT_EQ(text(), "begin\r\n");
    type("    x := 1;");
    enter();
    EXPECT_EQ(text(), "begin\r\n    x := 1;\r\n    ");
    type("end;");
    enter();
    EXPECT_EQ(text(), "begin\r\n    x := 1;\r\nend;\r\n");
    // "end" inside a comment is no block word.
    type("    y; -- end");
    enter();
    EXPECT_EQ(text(), "begin\r\n    x := 1;\r\nend;\r\n    y; -- end\r\n    ");
}
