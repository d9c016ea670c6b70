#include "CDialog.h"

#include <QAbstractButton>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QLineEdit>
#include <mutex>

namespace {
std::mutex hookLock;
DialogHook& currentHook() {
    static DialogHook hook;
    return hook;
}
}  // namespace

DialogHook SetDialogHook(DialogHook hook) {
    std::lock_guard<std::mutex> guard(hookLock);
    DialogHook previous = std::move(currentHook());
    currentHook() = std::move(hook);
    return previous;
}

CDialog::CDialog(UINT templateId, CWnd* parent) : templateId_(templateId), parent_(parent) {}

CDialog::~CDialog() {
    QDialog* d = dialog_.data();
    Detach();
    delete d;
}

void CDialog::ensureBuilt() {
    if (dialog_) return;
    QWidget* parentWidget = parent_ ? parent_->GetSafeHwnd() : nullptr;
    dialog_ = new QDialog(parentWidget);
    Attach(dialog_);
    BuildControls(dialog_);
}

int CDialog::DoModal() {
    ensureBuilt();
    OnInitDialog();
    DialogHook hook;
    {
        std::lock_guard<std::mutex> guard(hookLock);
        hook = currentHook();
    }
    int answer;
    if (hook) {
        answer = hook(*this);
    } else if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        answer = IDCANCEL;  // nobody can answer: the safe choice
    } else {
        answer = dialog_->exec() == QDialog::Accepted ? IDOK : IDCANCEL;
    }
    if (answer == IDOK) OnOK();
    else OnCancel();
    return result_;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
    if (dialog_) return TRUE;
    templateId_ = templateId;
    if (parent) parent_ = parent;
    ensureBuilt();
    dialog_->setModal(false);
    OnInitDialog();
    return TRUE;
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK() {
    if (!UpdateData(TRUE)) return;
    EndDialog(IDOK);
}

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

void CDialog::EndDialog(int result) {
    result_ = result;
    if (dialog_) dialog_->done(result == IDOK ? QDialog::Accepted : QDialog::Rejected);
}

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
    ensureBuilt();
    CDataExchange exchange(this, saveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

void CDialog::DoDataExchange(CDataExchange*) {}

QWidget* CDialog::GetDlgItem(int id) const {
    auto it = controls_.find(id);
    return it == controls_.end() ? nullptr : it->second;
}

void CDialog::AddControl(int id, QWidget* control) { controls_[id] = control; }

QSize CDialog::MapDialogSize(int width, int height) const {
    const QFontMetrics metrics(dialog_ ? dialog_->font() : QFont());
    // The average character width, measured the way dialog units define it.
    const int baseX = (metrics.horizontalAdvance(
                           QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz")) / 26 + 1) / 2;
    const int baseY = metrics.height();
    return QSize((width * baseX + 2) / 4, (height * baseY + 4) / 8);
}

QRect CDialog::MapDialogRect(int x, int y, int width, int height) const {
    const QSize origin = MapDialogSize(x, y);
    return QRect(QPoint(origin.width(), origin.height()), MapDialogSize(width, height));
}

void DDX_Text(CDataExchange* exchange, int id, int& value) {
    auto* edit = qobject_cast<QLineEdit*>(exchange->m_pDlgWnd->GetDlgItem(id));
    if (!edit) return;
    if (exchange->m_bSaveAndValidate) {
        bool ok = false;
        const int number = edit->text().trimmed().toInt(&ok);
        value = ok ? number : 0;
    } else {
        edit->setText(QString::number(value));
    }
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    auto* box = qobject_cast<QAbstractButton*>(exchange->m_pDlgWnd->GetDlgItem(id));
    if (!box) return;
    if (exchange->m_bSaveAndValidate) value = box->isChecked() ? 1 : 0;
    else box->setChecked(value != 0);
}
