#include "CFindDialogBase.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "CScintillaWnd.h"

CFindDialogBase::CFindDialogBase(UINT templateId, CScintillaWnd* ownerWindow)
    : CDialog(templateId, ownerWindow), owner(ownerWindow) {}

void CFindDialogBase::setUpWindow(QDialog* dialog, const QString& title, int height) {
    QFont font = QApplication::font();
    font.setPointSize(8);
    dialog->setFont(font);
    dialog->setWindowTitle(title);
    dialog->setFixedSize(MapDialogSize(237, height));
}

void CFindDialogBase::addFindRow(QDialog* dialog, int labelWidth) {
    QLabel* label = AddStatic(0, QCoreApplication::translate("Quillbox", "Fi&nd what:"), 5, 5, labelWidth, 10);
    QComboBox* combo = AddDropDownCombo(IDC_FIND_TEXT, 55, 5, 115, 30);
    label->setBuddy(combo);
    // Only the user's own edits and picks count as changes, as CBN_EDITCHANGE and CBN_SELCHANGE.
    QObject::connect(combo->lineEdit(), &QLineEdit::textEdited, dialog, [this] { OnFindTextChange(); });
    QObject::connect(combo, &QComboBox::activated, dialog, [this] { OnFindTextChange(); });
}

void CFindDialogBase::addOptionRows(QDialog* dialog, int top) {
    AddCheckBox(IDC_WHOLE_WORD, QCoreApplication::translate("Quillbox", "Match &whole word only "), 5, top, 90, 10);
    AddCheckBox(IDC_MATCH_CASE, QCoreApplication::translate("Quillbox", "Match &case "), 5, top + 15, 90, 10);
    QAbstractButton* regExpBox = AddCheckBox(IDC_REGULAR_EXPRESSION,
                                             QCoreApplication::translate("Quillbox", "R&egular Expression "), 5, top + 30, 90, 10);
    QObject::connect(regExpBox, &QAbstractButton::clicked, dialog, [this] { OnRegularExpression(); });
}

void CFindDialogBase::addChoiceGroup(const QString& title, int top, const Choice (&choices)[2]) {
    AddGroupBox(title, 100, top, 70, 45);
    for (int i = 0; i < 2; ++i)
        AddRadioButton(choices[i].id, QCoreApplication::translate("Quillbox", choices[i].text), i == 0, choices[i].x,
                       top + 15 * (i + 1), choices[i].width, 10);
}

void CFindDialogBase::applyRegExpState(bool exchange) {
    if (exchange) UpdateData(TRUE);
    if (regExp) {
        wholeWordButton.EnableWindow(FALSE);
        wholeWord = 0;
        if (owner) {
            owner->unescape = 1;
            owner->wholeWord = 0;
        }
    } else {
        if (owner) owner->unescape = 0;
        wholeWordButton.EnableWindow(TRUE);
    }
    if (exchange) UpdateData(FALSE);
}

void CFindDialogBase::OnRegularExpression() { applyRegExpState(true); }

void CFindDialogBase::OnFindTextChange() { UpdateData(TRUE); }
