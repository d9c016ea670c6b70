#include "CFindTextDlg.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "CScintillaWnd.h"

CFindTextDlg::CFindTextDlg(CScintillaWnd* ownerWindow) : CDialog(IDD, ownerWindow), owner(ownerWindow) {}

// The combo keeps what was typed when its window goes, so the window goes while the combo
// object still stands.
CFindTextDlg::~CFindTextDlg() { DestroyWindow(); }

void CFindTextDlg::BuildControls(QDialog* dialog) {
    QFont font = QApplication::font();
    font.setPointSize(8);
    dialog->setFont(font);
    dialog->setWindowTitle(QCoreApplication::translate("Quillbox", "Find"));
    dialog->setFixedSize(MapDialogSize(237, 76));

    QLabel* label = AddStatic(0, QCoreApplication::translate("Quillbox", "Fi&nd what:"), 5, 5, 42, 10);
    QComboBox* combo = AddDropDownCombo(IDC_FIND_TEXT, 55, 5, 115, 30);
    label->setBuddy(combo);
    // Only the user's own edits and picks count as changes, as CBN_EDITCHANGE and CBN_SELCHANGE.
    QObject::connect(combo->lineEdit(), &QLineEdit::textEdited, dialog, [this] { OnFindTextChange(); });
    QObject::connect(combo, &QComboBox::activated, dialog, [this] { OnFindTextChange(); });

    AddCheckBox(IDC_WHOLE_WORD, QCoreApplication::translate("Quillbox", "Match &whole word only "), 5, 25, 90, 10);
    AddCheckBox(IDC_MATCH_CASE, QCoreApplication::translate("Quillbox", "Match &case "), 5, 40, 90, 10);
    QAbstractButton* regExpBox =
        AddCheckBox(IDC_REGULAR_EXPRESSION, QCoreApplication::translate("Quillbox", "R&egular Expression "), 5, 55, 90, 10);
    QObject::connect(regExpBox, &QAbstractButton::clicked, dialog, [this] { OnRegularExpression(); });

    AddGroupBox(QCoreApplication::translate("Quillbox", "Direction"), 100, 25, 70, 45);
    AddRadioButton(IDC_DIRECTION_UP, QCoreApplication::translate("Quillbox", "&Up "), true, 111, 40, 54, 10);
    AddRadioButton(IDC_DIRECTION_DOWN, QCoreApplication::translate("Quillbox", "&Down "), false, 110, 55, 55, 10);

    QPushButton* findNext = AddPushButton(IDOK, QCoreApplication::translate("Quillbox", "&Find Next"), true, 180, 5, 50, 15);
    QObject::connect(findNext, &QPushButton::clicked, dialog, [this] { OnOK(); });
    QPushButton* cancel = AddPushButton(IDCANCEL, QCoreApplication::translate("Quillbox", "Cancel"), false, 180, 25, 50, 15);
    QObject::connect(cancel, &QPushButton::clicked, dialog, [this] { OnCancel(); });
}

void CFindTextDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_FIND_TEXT, findCombo);
    DDX_Control(exchange, IDC_WHOLE_WORD, wholeWordButton);
    DDX_Radio(exchange, IDC_DIRECTION_UP, direction);
    DDX_Check(exchange, IDC_MATCH_CASE, matchCase);
    DDX_Text(exchange, IDC_FIND_TEXT, findText);
    DDX_Check(exchange, IDC_WHOLE_WORD, wholeWord);
    DDX_Check(exchange, IDC_REGULAR_EXPRESSION, regExp);
}

BOOL CFindTextDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    UpdateData(TRUE);
    findCombo.group = "FindText";
    findCombo.OnSetfocus();  // takes the history now, before any Fill could store a short list
    applyRegExpState(true);
    return TRUE;
}

void CFindTextDlg::applyRegExpState(bool exchange) {
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

void CFindTextDlg::OnRegularExpression() { applyRegExpState(true); }

void CFindTextDlg::OnFindTextChange() { UpdateData(TRUE); }

void CFindTextDlg::OnOK() {
    UpdateData(TRUE);
    if (!owner) return;
    owner->findText = findText;
    owner->wholeWord = wholeWord;
    owner->matchCase = matchCase;
    owner->regExp = regExp;
    owner->wrapSearch = 1;
    // The replace dialog shares the owner's switches: this dialog's own box decides them.
    owner->unescape = regExp ? 1 : 0;
    if (regExp) owner->wholeWord = 0;
    owner->FindNext(direction != 1, true);
    findCombo.Fill(owner->findText);
}

void CFindTextDlg::OnCancel() {
    UpdateData(TRUE);
    CDialog::OnCancel();
}
