// The go-to-line dialog: modeless, made once, OK only for a number above 0, Ctrl+G opens it.
#include <QLineEdit>
#include <QPushButton>

#include "AppWindow.h"
#include "CGotoDlg.h"

TEST_F(AppWindowTest, GotoLineWaitsForANumberAboveZeroAndShowsTheLine) {
    create();
    window->SetText("begin\n  select 1;\n  select 2;\nend;\nlast\n", 0);
    send(SCI_SETKEYWORDS, 0, reinterpret_cast<LPARAM>("begin end select"));
    send(SCI_COLOURISE, 0, -1);
    send(SCI_TOGGLEFOLD, 0);
    ASSERT_EQ(send(SCI_GETLINEVISIBLE, 2), 0);
    focus(*window);
    key(Qt::Key_G, Qt::ControlModifier);
    CGotoDlg* dialog = window->GetGotoDialog();
    ASSERT_NE(dialog, nullptr);
    auto* edit = qobject_cast<QLineEdit*>(dialog->GetDlgItem(CGotoDlg::IDC_LINE_NUMBER));
    auto* ok = qobject_cast<QPushButton*>(dialog->GetDlgItem(IDOK));
    EXPECT_TRUE(dialog->dialog()->isVisible());
    EXPECT_EQ(edit->text(), "0");
    EXPECT_FALSE(ok->isEnabled());
    edit->setText("000");
    EXPECT_FALSE(ok->isEnabled());
    edit->setText("3");
    EXPECT_TRUE(ok->isEnabled());
    ok->click();
    EXPECT_EQ(window->GetCurrentLine(), 3);  // line 3 for the user is line 2 of the engine
    EXPECT_EQ(send(SCI_GETLINEVISIBLE, 2), 1);  // shown out of its fold
    EXPECT_FALSE(dialog->dialog()->isVisible());

    window->GotoLine();  // the same dialog, with the last number
    EXPECT_EQ(window->GetGotoDialog(), dialog);
    EXPECT_EQ(edit->text(), "3");
    edit->setText("999");
    ok->click();
    EXPECT_EQ(window->GetCurrentLine(), window->GetLineCount());  // beyond the end: the last line
    window->GotoLine();
    dialog->OnCancel();
    EXPECT_FALSE(dialog->dialog()->isVisible());
}
