#include "CFindTextDlg.h"

#include <QCoreApplication>
#include <QPushButton>

#include "CScintillaWnd.h"

CFindTextDlg::CFindTextDlg(CScintillaWnd* ownerWindow) : CFindDialogBase(IDD, ownerWindow) {}

// The combo keeps what was typed when its window goes, so the window goes while the combo
// object still stands.
CFindTextDlg::~CFindTextDlg() { DestroyWindow(); }

void CFindTextDlg::BuildControls(QDialog* dialog) {
    setUpWindow(dialog, QCoreApplication::translate("Quillbox", "Find"), 76);
    addFindRow(dialog, 42);
    addOptionRows(dialog, 25);
    addChoiceGroup(QCoreApplication::translate("Quillbox", "Direction"), 25,
                   {{IDC_DIRECTION_UP, QT_TRANSLATE_NOOP("Quillbox", "&Up "), 111, 54},
                    {IDC_DIRECTION_DOWN, QT_TRANSLATE_NOOP("Quillbox", "&Down "), 110, 55}});

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
