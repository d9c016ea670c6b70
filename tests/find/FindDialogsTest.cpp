// The find and replace dialogs: what they hand their editor, their buttons and keys, what they keep.
#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "CEditReplaceDlg.h"
#include "CFindTextDlg.h"
#include "FindFixture.h"

namespace {
QAbstractButton* button(CDialog* dialog, int id) { return qobject_cast<QAbstractButton*>(dialog->GetDlgItem(id)); }
QComboBox* comboOf(CDialog* dialog, int id) { return qobject_cast<QComboBox*>(dialog->GetDlgItem(id)); }
std::string status(CEditReplaceDlg* dialog) {
    return qobject_cast<QLabel*>(dialog->GetDlgItem(CEditReplaceDlg::IDC_STATUS))->text().toStdString();
}
// Loads `content`, selects [from, to) and opens the replace dialog on it.
CEditReplaceDlg* openReplace(FindEditor& editor, const char* content, long from, long to) {
    editor.SetText(content, 0);
    editor.SendEditor(SCI_SETSEL, WPARAM(from), to);
    editor.Replace();
    return editor.GetReplaceDialog();
}
void activate(CDialog* dialog) {
    dialog->dialog()->activateWindow();
    QApplication::setActiveWindow(dialog->dialog());
    QApplication::processEvents();
}
}  // namespace

TEST_F(FindTest, FindDialogSearchesInItsDirectionAndKeepsItsFields) {
    load("ab ab ab");
    select(3, 5);
    editor->Find();
    CFindTextDlg* dialog = editor->GetFindDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_TRUE(dialog->dialog()->isVisible());
    EXPECT_EQ(dialog->findCombo.GetWindowText(), "ab");
    EXPECT_TRUE(dialog->findCombo.GetSafeHwnd()->hasFocus() || !dialog->dialog()->isActiveWindow());

    button(dialog, CFindTextDlg::IDC_MATCH_CASE)->setChecked(true);
    button(dialog, IDOK)->click();
    EXPECT_EQ(editor->GetSelectionStart(), 6);
    EXPECT_EQ(editor->matchCase, 1);
    EXPECT_EQ(editor->wrapSearch, 1);

    button(dialog, CFindTextDlg::IDC_DIRECTION_UP)->setChecked(true);
    button(dialog, IDOK)->click();
    EXPECT_EQ(dialog->direction, 0);
    EXPECT_EQ(editor->GetSelectionStart(), 3);  // up: reverse

    QTest::keyClick(dialog->dialog(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->dialog()->isVisible());
    editor->Find();
    EXPECT_EQ(editor->GetFindDialog(), dialog);  // the same dialog, its fields kept
    EXPECT_TRUE(button(dialog, CFindTextDlg::IDC_MATCH_CASE)->isChecked());
    EXPECT_TRUE(button(dialog, CFindTextDlg::IDC_DIRECTION_UP)->isChecked());
    EXPECT_TRUE(messages.empty());
}

TEST_F(FindTest, RegularExpressionBoxExcludesWholeWord) {
    load("text");
    editor->Find();
    editor->Replace();
    for (CDialog* dialog : {static_cast<CDialog*>(editor->GetFindDialog()), static_cast<CDialog*>(editor->GetReplaceDialog())}) {
        QAbstractButton* wholeWord = button(dialog, CFindTextDlg::IDC_WHOLE_WORD);
        wholeWord->setChecked(true);
        for (const int on : {1, 0}) {
            button(dialog, CFindTextDlg::IDC_REGULAR_EXPRESSION)->click();
            EXPECT_FALSE(wholeWord->isChecked());
            EXPECT_EQ(wholeWord->isEnabled(), !on);
            EXPECT_EQ(editor->unescape, on);
        }
    }
}

TEST_F(FindTest, EachDialogsOwnExpressionBoxDecidesTheDecodingOfItsSearch) {
    load("x!y \\x21");  // the last four bytes are a backslash, x, 2 and 1
    editor->Replace();
    CEditReplaceDlg* replace = editor->GetReplaceDialog();
    comboOf(replace, CEditReplaceDlg::IDC_FIND_TEXT)->setEditText("\\x21");  // plain text
    editor->Find();
    CFindTextDlg* find = editor->GetFindDialog();
    comboOf(find, CFindTextDlg::IDC_FIND_TEXT)->setEditText("\\041");  // an expression for "!"
    button(find, CFindTextDlg::IDC_REGULAR_EXPRESSION)->click();
    select(0, 0);

    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        button(find, IDOK)->click();
        EXPECT_EQ(editor->unescape, 1);
        EXPECT_EQ(selected(), "!");
        button(replace, CEditReplaceDlg::IDC_FIND_NEXT)->click();
        EXPECT_EQ(editor->unescape, 0);
        EXPECT_EQ(selected(), "\\x21");  // searched as typed, not decoded
    }
    EXPECT_TRUE(messages.empty());
}

TEST_F(FindTest, ReplaceScopeFollowsTheSelectionAndLongTextsAreCut) {
    load("");
    editor->findText = CString(std::string(300, 'q'));
    editor->Replace();
    CEditReplaceDlg* dialog = editor->GetReplaceDialog();
    ASSERT_NE(dialog, nullptr);
    EXPECT_FALSE(button(dialog, CEditReplaceDlg::IDC_SCOPE_SELECTION)->isEnabled());
    EXPECT_TRUE(button(dialog, CEditReplaceDlg::IDC_SCOPE_WHOLE_FILE)->isChecked());
    EXPECT_EQ(dialog->findCombo.GetWindowText().GetLength(), 256);
    editor->Find();
    EXPECT_EQ(editor->GetFindDialog()->findCombo.GetWindowText().GetLength(), 300);

    load("one two");
    select(0, 3);
    editor->Replace();
    EXPECT_TRUE(button(dialog, CEditReplaceDlg::IDC_SCOPE_SELECTION)->isEnabled());
    EXPECT_TRUE(button(dialog, CEditReplaceDlg::IDC_SCOPE_SELECTION)->isChecked());
    EXPECT_EQ(dialog->findCombo.GetWindowText(), "one");
}

TEST_F(FindTest, ReplaceCountsWithinOneShowing) {
    CEditReplaceDlg* dialog = openReplace(*editor, "x x x x x", 0, 1);
    comboOf(dialog, CEditReplaceDlg::IDC_REPLACE_TEXT)->setEditText("y");
    for (auto [id, expected] : {std::pair{int(CEditReplaceDlg::IDC_REPLACE), "1 Item Replaced"},
                                {int(CEditReplaceDlg::IDC_REPLACE), "2 Items Replaced"}, {int(IDCANCEL), ""}}) {
        button(dialog, id)->click();
        EXPECT_EQ(status(dialog), expected);
    }
    EXPECT_FALSE(dialog->dialog()->isVisible());
    editor->Replace();
    button(dialog, CEditReplaceDlg::IDC_REPLACE)->click();
    EXPECT_EQ(status(dialog), "1 Item Replaced");
    EXPECT_EQ(text(), "y y y x x");
    EXPECT_EQ(editor->replaceText, "y");

    select(9, 9);  // Replace All overwrites the count; the whole file is the scope without a selection
    button(dialog, CEditReplaceDlg::IDC_SCOPE_WHOLE_FILE)->setChecked(true);
    button(dialog, CEditReplaceDlg::IDC_REPLACE_ALL)->click();
    EXPECT_EQ(status(dialog), "2 Items Replaced");
    EXPECT_EQ(text(), "y y y y y");
    button(dialog, CEditReplaceDlg::IDC_REPLACE_ALL)->click();  // nothing left: reported, no status
    EXPECT_EQ(status(dialog), "");
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(CMemComboBox::groups["ReplaceText"], "y\n");
}

TEST_F(FindTest, ReplaceWithEmptyFindTextOnlyHandsOverTheReplacement) {
    CEditReplaceDlg* dialog = openReplace(*editor, "abc", 0, 0);
    comboOf(dialog, CEditReplaceDlg::IDC_FIND_TEXT)->setEditText("");
    dialog->OnFindTextChange();
    EXPECT_FALSE(button(dialog, CEditReplaceDlg::IDC_FIND_NEXT)->isEnabled());
    comboOf(dialog, CEditReplaceDlg::IDC_REPLACE_TEXT)->setEditText("zzz");
    button(dialog, CEditReplaceDlg::IDC_REPLACE)->click();
    button(dialog, CEditReplaceDlg::IDC_REPLACE_ALL)->click();
    EXPECT_EQ(editor->replaceText, "zzz");
    EXPECT_EQ(editor->findText, "");
    EXPECT_EQ(text(), "abc");
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(status(dialog), "");
}

TEST_F(FindTest, EnterFindsWhileFindNextIsTheDefaultAndReplacesOtherwise) {
    CEditReplaceDlg* dialog = openReplace(*editor, "k k k", 0, 1);
    activate(dialog);
    comboOf(dialog, CEditReplaceDlg::IDC_REPLACE_TEXT)->setEditText("m");
    QLineEdit* findEdit = comboOf(dialog, CEditReplaceDlg::IDC_FIND_TEXT)->lineEdit();
    QTest::keyClick(findEdit, Qt::Key_Return);
    EXPECT_EQ(text(), "k k k");  // found, not replaced
    EXPECT_EQ(editor->GetSelectionStart(), 2);

    auto* replace = qobject_cast<QPushButton*>(dialog->GetDlgItem(CEditReplaceDlg::IDC_REPLACE));
    replace->setFocus();
    QApplication::processEvents();
    ASSERT_FALSE(qobject_cast<QPushButton*>(dialog->GetDlgItem(CEditReplaceDlg::IDC_FIND_NEXT))->isDefault());
    QTest::keyClick(replace, Qt::Key_Return);
    EXPECT_EQ(text(), "k m k");
    EXPECT_EQ(status(dialog), "1 Item Replaced");
}

TEST_F(FindTest, ClosingTheEditorKeepsWhatWasTypedInTheHistory) {
    load("abc");
    editor->Find();
    comboOf(editor->GetFindDialog(), CFindTextDlg::IDC_FIND_TEXT)->setEditText("never searched");
    editor.reset();
    EXPECT_EQ(CMemComboBox::groups["FindText"], "never searched\nabc\n");
}
