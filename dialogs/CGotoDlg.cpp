#include "CGotoDlg.h"

#include <QApplication>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "CScintillaWnd.h"

CGotoDlg::CGotoDlg(CScintillaWnd* ownerWindow) : CDialog(IDD, ownerWindow), owner(ownerWindow) {}

CGotoDlg::~CGotoDlg() = default;

void CGotoDlg::BuildControls(QDialog* dialog) {
    QFont font = QApplication::font();
    font.setPointSize(8);
    dialog->setFont(font);
    dialog->setWindowTitle(QCoreApplication::translate("Quillbox", "Go to Line"));
    dialog->setFixedSize(MapDialogSize(167, 47));

    auto* label = new QLabel(QCoreApplication::translate("Quillbox", "&Line number:"), dialog);
    label->setGeometry(MapDialogRect(5, 5, 42, 10));
    auto* edit = new QLineEdit(dialog);
    edit->setGeometry(MapDialogRect(55, 5, 45, 12));
    edit->setValidator(new QIntValidator(0, 999999999, edit));  // digits only
    label->setBuddy(edit);
    QObject::connect(edit, &QLineEdit::textChanged, dialog, [this] { OnChangeNumber(); });
    AddControl(IDC_LINE_NUMBER, edit);

    auto* ok = new QPushButton(QCoreApplication::translate("Quillbox", "&OK"), dialog);
    ok->setGeometry(MapDialogRect(110, 5, 50, 15));
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, dialog, [this] { OnOK(); });
    AddControl(IDOK, ok);
    auto* cancel = new QPushButton(QCoreApplication::translate("Quillbox", "&Cancel"), dialog);
    cancel->setGeometry(MapDialogRect(110, 25, 50, 15));
    QObject::connect(cancel, &QPushButton::clicked, dialog, [this] { OnCancel(); });
    AddControl(IDCANCEL, cancel);
}

void CGotoDlg::DoDataExchange(CDataExchange* exchange) { DDX_Text(exchange, IDC_LINE_NUMBER, lineNumber); }

void CGotoDlg::enableOk() {
    if (QWidget* ok = GetDlgItem(IDOK)) ok->setEnabled(lineNumber > 0);
}

BOOL CGotoDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    enableOk();
    if (QWidget* edit = GetDlgItem(IDC_LINE_NUMBER)) edit->setFocus();
    return TRUE;
}

void CGotoDlg::OnChangeNumber() {
    UpdateData(TRUE);
    enableOk();
}

void CGotoDlg::OnOK() {
    CDialog::OnOK();
    if (lineNumber > 0 && owner) owner->GotoLine(lineNumber);  // unfolds, then moves
}
