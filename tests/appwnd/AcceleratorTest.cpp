// Keys reach the window's commands through its accelerator table, before any shortcut of
// the host.
#include <QApplication>
#include <QShortcut>
#include <QTest>

#include "AppWindow.h"
#include "CommandIds.h"

class AcceleratorTest : public AppWindowTest {
protected:
    void SetUp() override {
        AppWindowTest::SetUp();
        create();
        frame->GetSafeHwnd()->activateWindow();
        window->GetSafeHwnd()->setFocus();
        QApplication::processEvents();
    }
    void key(int k, Qt::KeyboardModifiers m = Qt::NoModifier) { QTest::keyClick(window->GetSafeHwnd(), Qt::Key(k), m); }
};

TEST_F(AcceleratorTest, KeysRunTheirCommands) {
    window->SetText("  Select Name\nfrom t\n", 0);
    send(SCI_SETSEL, 2, 13);
    key(Qt::Key_U, Qt::ControlModifier);  // lower case
    EXPECT_EQ(window->GetText(), "  select name\r\nfrom t\r\n");
    key(Qt::Key_U, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(window->GetText(), "  SELECT NAME\r\nfrom t\r\n");
    key(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(window->GetCurrentPosition(), window->GetTextLength());
    key(Qt::Key_Home, Qt::ControlModifier);
    key(Qt::Key_Home);  // line head: after the indentation
    EXPECT_EQ(window->GetCurrentPosition(), 2);
    key(Qt::Key_Delete, Qt::ControlModifier);
    EXPECT_EQ(window->GetText(), "  NAME\r\nfrom t\r\n");
    key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->GetText(), "  SELECT NAME\r\nfrom t\r\n");
}

TEST_F(AcceleratorTest, TheWindowsKeysComeBeforeTheHostsShortcuts) {
    int hostShortcut = 0;
    QShortcut selectAll(QKeySequence(Qt::CTRL | Qt::Key_A), frame->GetSafeHwnd());
    selectAll.setContext(Qt::WindowShortcut);
    QObject::connect(&selectAll, &QShortcut::activated, [&] { ++hostShortcut; });
    window->SetText("abc", 0);
    key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(hostShortcut, 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND) - send(SCI_GETSELECTIONSTART), 3);
    // A key the window does not translate is still the host's.
    QShortcut other(QKeySequence(Qt::CTRL | Qt::Key_K), frame->GetSafeHwnd());
    int otherShortcut = 0;
    QObject::connect(&other, &QShortcut::activated, [&] { ++otherShortcut; });
    key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(otherShortcut, 1);
}

TEST_F(AcceleratorTest, CommandsCanComeFromTheHostToo) {
    window->SetText("abc", 0);
    send(SCI_SETSEL, 0, 3);
    window->SendMessage(WM_COMMAND, MakeCommandWParam(cmd::UpperCase), 0);
    EXPECT_EQ(window->GetText(), "ABC");
    window->SendMessage(WM_COMMAND, MakeCommandWParam(cmd::EditClear), 0);
    EXPECT_EQ(window->GetText(), "");
}
