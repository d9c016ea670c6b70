#include "CEditReplaceDlg.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

#include "CScintillaWnd.h"
#include "KeyCodes.h"

CEditReplaceDlg::CEditReplaceDlg(CScintillaWnd* ownerWindow) : CFindDialogBase(IDD, ownerWindow) {}

// The combos keep what was typed when their window goes, so the window goes while the combo
// objects still stand.
CEditReplaceDlg::~CEditReplaceDlg() { DestroyWindow(); }

void CEditReplaceDlg::BuildControls(QDialog* dialog) {
    setUpWindow(dialog, QCoreApplication::translate("Quillbox", "Replace"), 103);
    addFindRow(dialog, 45);
    QLabel* replaceLabel = AddStatic(0, QCoreApplication::translate("Quillbox", "Re&place with:"), 5, 20, 45, 10);
    replaceLabel->setBuddy(AddDropDownCombo(IDC_REPLACE_TEXT, 55, 20, 115, 30));
    addOptionRows(dialog, 40);
    addChoiceGroup(QCoreApplication::translate("Quillbox", "Replace in"), 40,
                   {{IDC_SCOPE_SELECTION, QT_TRANSLATE_NOOP("Quillbox", "&Selection "), 105, 60},
                    {IDC_SCOPE_WHOLE_FILE, QT_TRANSLATE_NOOP("Quillbox", "Wh&ole file "), 105, 60}});

    struct Button {
        int id;
        const char* text;
        int y;
        void (CEditReplaceDlg::*handler)();
    };
    const Button buttons[] = {
        {IDC_FIND_NEXT, QT_TRANSLATE_NOOP("Quillbox", "&Find Next"), 5, &CEditReplaceDlg::OnFindNext},
        {IDC_REPLACE, QT_TRANSLATE_NOOP("Quillbox", "&Replace"), 25, &CEditReplaceDlg::OnReplace},
        {IDC_REPLACE_ALL, QT_TRANSLATE_NOOP("Quillbox", "Replace &All"), 45, &CEditReplaceDlg::OnReplaceAll},
        {IDCANCEL, QT_TRANSLATE_NOOP("Quillbox", "Cancel"), 65, &CEditReplaceDlg::OnCancel},
    };
    for (const Button& b : buttons) {
        QPushButton* button = AddPushButton(b.id, QCoreApplication::translate("Quillbox", b.text),
                                            b.id == IDC_FIND_NEXT, 180, b.y, 50, 15);
        QObject::connect(button, &QPushButton::clicked, dialog, [this, handler = b.handler] { (this->*handler)(); });
    }

    QLabel* status = AddStatic(IDC_STATUS, QString(), 5, 88, 164, 11);
    status->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    status->setWordWrap(false);
}

void CEditReplaceDlg::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_STATUS, statusText);
    DDX_Control(exchange, IDC_FIND_TEXT, findCombo);
    DDX_Control(exchange, IDC_REPLACE_TEXT, replaceCombo);
    DDX_Control(exchange, IDC_WHOLE_WORD, wholeWordButton);
    DDX_Check(exchange, IDC_MATCH_CASE, matchCase);
    DDX_Check(exchange, IDC_WHOLE_WORD, wholeWord);
    DDX_Check(exchange, IDC_REGULAR_EXPRESSION, regExp);
    DDX_Text(exchange, IDC_FIND_TEXT, findText);
    DDX_Text(exchange, IDC_REPLACE_TEXT, replaceText);
    DDX_Radio(exchange, IDC_SCOPE_SELECTION, replaceScope);
}

BOOL CEditReplaceDlg::PreTranslateMessage(MSG* msg) {
    if (msg && msg->message == WM_KEYDOWN && msg->wParam == VK_RETURN) {
        auto* button = qobject_cast<QPushButton*>(GetDlgItem(IDC_FIND_NEXT));
        if (button && button->isDefault()) OnFindNext();
        else OnReplace();
        return TRUE;
    }
    return CDialog::PreTranslateMessage(msg);
}

BOOL CEditReplaceDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    replaceCount = 0;
    return TRUE;
}

void CEditReplaceDlg::PrepareForShow(int selection, int scope) {
    if (findText.GetLength() >= kMaxFindText) {
        // Cut at a character's start, so that no UTF-8 sequence is left broken.
        int cut = kMaxFindText;
        while (cut > 0 && (static_cast<unsigned char>(findText[cut]) & 0xC0) == 0x80) --cut;
        findText = findText.Left(cut);
    }
    inSelection = selection;
    replaceScope = scope;
    if (QWidget* selectionButton = GetDlgItem(IDC_SCOPE_SELECTION)) selectionButton->setEnabled(selection != 0);

    replaceCombo.group = "ReplaceText";
    replaceText = replaceCombo.GetWindowText();
    replaceCombo.OnSetfocus();
    UpdateData(FALSE);

    findCombo.group = "FindText";
    findCombo.OnSetfocus();
    enableFindNext();
    applyRegExpState(false);
}

void CEditReplaceDlg::enableFindNext() {
    if (QWidget* button = GetDlgItem(IDC_FIND_NEXT)) button->setEnabled(!findText.IsEmpty());
}

void CEditReplaceDlg::OnFindTextChange() {
    UpdateData(TRUE);
    enableFindNext();
}

void CEditReplaceDlg::storeOptions() {
    owner->wholeWord = wholeWord;
    owner->matchCase = matchCase;
    owner->regExp = regExp;
    owner->wrapSearch = 1;
    // The find dialog shares the owner's switches: this dialog's own box decides them.
    owner->unescape = regExp ? 1 : 0;
    if (regExp) owner->wholeWord = 0;
}

void CEditReplaceDlg::OnFindNext() {
    UpdateData(TRUE);
    if (!owner) return;
    if (!findText.IsEmpty()) {
        owner->findText = findText;
        storeOptions();
        owner->FindNext(false, true);  // the replace dialog searches forward only
    }
    findCombo.Fill(owner->findText);
}

void CEditReplaceDlg::OnReplace() {
    UpdateData(TRUE);
    if (!owner) return;
    owner->findText = findText;
    owner->replaceText = replaceText;
    if (findText.IsEmpty()) return;
    storeOptions();
    if (owner->PlayReplace()) ++replaceCount;
    showCount();
}

void CEditReplaceDlg::OnReplaceAll() {
    UpdateData(TRUE);
    if (!owner) return;
    owner->findText = findText;
    owner->replaceText = replaceText;
    inSelection = replaceScope == 0 ? 1 : 0;
    if (!findText.IsEmpty()) {
        storeOptions();
        replaceCount = owner->ReplaceAll(inSelection != 0);
    }
    showCount();
}

void CEditReplaceDlg::showCount() {
    QString status;
    if (replaceCount > 1) status = QCoreApplication::translate("Quillbox", "%d Items Replaced");
    else if (replaceCount == 1) status = QCoreApplication::translate("Quillbox", "%d Item Replaced");
    status.replace(QStringLiteral("%d"), QString::number(replaceCount));
    statusText.SetWindowText(status.toUtf8().constData());
}

void CEditReplaceDlg::OnCancel() {
    UpdateData(TRUE);
    statusText.SetWindowText("");
    replaceCount = 0;
    CDialog::OnCancel();
}
