// The go-to-line dialog: modeless, made once, OK only for a number above 0.
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "AppWindow.h"
#include "CGotoDlg.h"

class GotoTest : public AppWindowTest {
protected:
    void SetUp() override {
        AppWindowTest::SetUp();
        create();
        window->SetText("begin\n  select 1;\n  select 2;\nend;\nlast\n", 0);
    }
    QLineEdit* edit() { return qobject_cast<QLineEdit*>(window->GetGotoDialog()->GetDlgItem(CGotoDlg::IDC_LINE_NUMBER)); }
    QPushButton* ok() { return qobject_cast<QPushButton*>(window->GetGotoDialog()->GetDlgItem(IDOK)); }
};

TEST_F(GotoTest, OkWaitsForANumberAboveZeroAndMovesTheCaret) {
    window->GotoLine();
    ASSERT_NE(window->GetGotoDialog(), nullptr);
    EXPECT_TRUE(window->GetGotoDialog()->dialog()->isVisible());
    EXPECT_EQ(edit()->text(), "0");
    EXPECT_FALSE(ok()->isEnabled());
    edit()->setText("000");
    EXPECT_FALSE(ok()->isEnabled());
    edit()->setText("3");
    EXPECT_TRUE(ok()->isEnabled());
    ok()->click();
    EXPECT_EQ(window->GetCurrentLine(), 3);  // line 3 for the user is line 2 of the engine
    EXPECT_FALSE(window->GetGotoDialog()->dialog()->isVisible());

    window->GotoLine();  // the same dialog, with the last number
    EXPECT_EQ(edit()->text(), "3");
    edit()->setText("999");
    ok()->click();
    EXPECT_EQ(window->GetCurrentLine(), window->GetLineCount());  // beyond the end: the last line
}

TEST_F(GotoTest, ALineInsideAFoldIsShownBeforeTheMove) {
    send(SCI_SETKEYWORDS, 0, reinterpret_cast<LPARAM>("begin end select"));
    send(SCI_COLOURISE, 0, -1);
    send(SCI_TOGGLEFOLD, 0);
    ASSERT_EQ(send(SCI_GETLINEVISIBLE, 2), 0);
    window->GotoLine();
    edit()->setText("3");
    ok()->click();
    EXPECT_EQ(send(SCI_GETLINEVISIBLE, 2), 1);
    EXPECT_EQ(window->GetCurrentLine(), 3);
}

TEST_F(GotoTest, CtrlGShowsTheDialog) {
    frame->GetSafeHwnd()->activateWindow();
    window->GetSafeHwnd()->setFocus();
    QApplication::processEvents();
    QTest::keyClick(window->GetSafeHwnd(), Qt::Key_G, Qt::ControlModifier);
    ASSERT_NE(window->GetGotoDialog(), nullptr);
    EXPECT_TRUE(window->GetGotoDialog()->dialog()->isVisible());
    window->GetGotoDialog()->OnCancel();
    EXPECT_FALSE(window->GetGotoDialog()->dialog()->isVisible());
}
