#include "CEditorFailDlg.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

CEditorFailDlg::CEditorFailDlg() : CDialog(IDD, nullptr) {}

void CEditorFailDlg::DoDataExchange(CDataExchange* exchange) { DDX_Check(exchange, IDC_RUN_LAUNCHER, runLauncher); }

void CEditorFailDlg::BuildControls(QDialog* dialog) {
    // The template's own font, 8 points of the system's dialog face; every rectangle is in
    // dialog units of that font.
    QFont font = QApplication::font();
    font.setPointSize(8);
    dialog->setFont(font);
    dialog->setWindowTitle(QCoreApplication::translate("Quillbox", "Editor Loading Fail"));
    dialog->setFixedSize(MapDialogSize(239, 92));

    auto* ok = new QPushButton(QCoreApplication::translate("Quillbox", "OK"), dialog);
    ok->setGeometry(MapDialogRect(68, 71, 50, 14));
    ok->setDefault(true);
    QObject::connect(ok, &QPushButton::clicked, dialog, [this] { OnOK(); });
    AddControl(IDOK, ok);

    auto* cancel = new QPushButton(QCoreApplication::translate("Quillbox", "Cancel"), dialog);
    cancel->setGeometry(MapDialogRect(122, 71, 50, 14));
    QObject::connect(cancel, &QPushButton::clicked, dialog, [this] { OnCancel(); });
    AddControl(IDCANCEL, cancel);

    auto* text = new QLabel(QCoreApplication::translate(
                                "Quillbox",
                                "Editor loading failed.\nThis can be caused by a security policy and can be resolved by "
                                "running it with Tessel Launcher.\nRun it with Windows[Start - Tessel - Tessel Launcher]."),
                            dialog);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    text->setGeometry(MapDialogRect(42, 7, 190, 44));

    auto* check = new QCheckBox(QCoreApplication::translate("Quillbox", "Run Tessel Launcher"), dialog);
    check->setGeometry(MapDialogRect(42, 53, 86, 10));
    AddControl(IDC_RUN_LAUNCHER, check);

    auto* icon = new QLabel(dialog);
    const QRect iconRect = MapDialogRect(13, 12, 20, 20);
    icon->setGeometry(iconRect);
    icon->setPixmap(dialog->style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconRect.size()));
    AddControl(IDC_WARNING_ICON, icon);
}
