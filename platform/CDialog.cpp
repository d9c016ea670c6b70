#include "CDialog.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <mutex>
#include <vector>

#include "KeyCodes.h"

namespace {
std::mutex hookLock;
DialogHook& currentHook() {
    static DialogHook hook;
    return hook;
}
}  // namespace

// Gives a dialog the first look at the keys pressed in it, and makes Esc and the close box of
// a modeless dialog go through its OnCancel, as they do in a Win32 dialog.
class DialogKeyRouter : public QObject {
public:
    DialogKeyRouter(CDialog* dialog, QDialog* window) : QObject(window), dialog_(dialog), window_(window) {
        window->installEventFilter(this);
        for (QWidget* child : window->findChildren<QWidget*>()) child->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            // A key a child ignored travels up to its parents; the dialog sees it once.
            if (!(event == current_ && isAncestorOfReceiver(watched))) {
                current_ = event;
                receiver_ = watched;
                auto* key = static_cast<QKeyEvent*>(event);
                MSG msg;
                msg.hwnd = qobject_cast<QWidget*>(watched);
                msg.message = WM_KEYDOWN;
                msg.wParam = VirtualKeyFromQtKey(key->key());
                msg.event = event;
                if (dialog_->PreTranslateMessage(&msg)) return true;
            }
            if (watched == window_ && dialog_->modeless_ &&
                static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
                dialog_->OnCancel();
                return true;
            }
        } else if (event->type() == QEvent::Close && watched == window_ && dialog_->modeless_) {
            dialog_->OnCancel();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    bool isAncestorOfReceiver(QObject* watched) const {
        if (!receiver_) return false;
        for (QObject* o = receiver_->parent(); o; o = o->parent())
            if (o == watched) return true;
        return false;
    }

    CDialog* dialog_;
    QDialog* window_;
    const QEvent* current_ = nullptr;
    QPointer<QObject> receiver_;
};

DialogHook SetDialogHook(DialogHook hook) {
    std::lock_guard<std::mutex> guard(hookLock);
    DialogHook previous = std::move(currentHook());
    currentHook() = std::move(hook);
    return previous;
}

CDialog::CDialog(UINT templateId, CWnd* parent) : templateId_(templateId), parent_(parent) {}

CDialog::~CDialog() { DestroyWindow(); }

void CDialog::ensureBuilt() {
    if (dialog_) return;
    QWidget* parentWidget = parent_ ? parent_->GetSafeHwnd() : nullptr;
    dialog_ = new QDialog(parentWidget);
    Attach(dialog_);
    BuildControls(dialog_);
    new DialogKeyRouter(this, dialog_);
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
    modeless_ = true;
    OnInitDialog();
    return TRUE;
}

BOOL CDialog::DestroyWindow() {
    QDialog* d = dialog_.data();
    if (!d) return FALSE;
    // The control objects let their widgets go before these are deleted, so that nothing a
    // dying widget reports reaches them.
    for (const auto& [id, control] : controls_)
        if (CWnd* object = CWnd::FromHandle(control)) {
            object->SendMessage(WM_DESTROY, 0, 0);
            object->Detach();
        }
    SendMessage(WM_DESTROY, 0, 0);
    controls_.clear();
    Detach();
    delete d;
    modeless_ = false;
    return TRUE;
}

BOOL CDialog::PreTranslateMessage(MSG*) { return FALSE; }

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

QLabel* CDialog::AddStatic(int id, const QString& text, int x, int y, int width, int height) {
    auto* label = new QLabel(text, dialog_);
    label->setGeometry(MapDialogRect(x, y, width, height));
    if (id) AddControl(id, label);
    return label;
}

QComboBox* CDialog::AddDropDownCombo(int id, int x, int y, int width, int height) {
    auto* combo = new QComboBox(dialog_);
    combo->setEditable(true);
    // The list is the program's to fill: Enter adds nothing and typing completes nothing.
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    // `height` includes the drop-down list, as a Win32 combo's does; the field is one line.
    const QRect area = MapDialogRect(x, y, width, height);
    combo->setGeometry(area.x(), area.y(), area.width(), std::min(area.height(), combo->sizeHint().height()));
    if (id) AddControl(id, combo);
    return combo;
}

QCheckBox* CDialog::AddCheckBox(int id, const QString& text, int x, int y, int width, int height) {
    auto* box = new QCheckBox(text, dialog_);
    box->setGeometry(MapDialogRect(x, y, width, height));
    if (id) AddControl(id, box);
    return box;
}

QRadioButton* CDialog::AddRadioButton(int id, const QString& text, bool startsGroup, int x, int y, int width,
                                      int height) {
    auto* radio = new QRadioButton(text, dialog_);
    radio->setGeometry(MapDialogRect(x, y, width, height));
    if (startsGroup || !radioGroup_) radioGroup_ = new QButtonGroup(dialog_);
    radioGroup_->addButton(radio);
    if (id) AddControl(id, radio);
    return radio;
}

QPushButton* CDialog::AddPushButton(int id, const QString& text, bool isDefault, int x, int y, int width,
                                    int height) {
    auto* button = new QPushButton(text, dialog_);
    button->setGeometry(MapDialogRect(x, y, width, height));
    button->setAutoDefault(true);
    button->setDefault(isDefault);
    if (id) AddControl(id, button);
    return button;
}

QGroupBox* CDialog::AddGroupBox(const QString& text, int x, int y, int width, int height) {
    auto* box = new QGroupBox(text, dialog_);
    box->setGeometry(MapDialogRect(x, y, width, height));
    box->lower();  // behind the buttons drawn inside it
    return box;
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

void DDX_Text(CDataExchange* exchange, int id, CString& value) {
    QWidget* item = exchange->m_pDlgWnd->GetDlgItem(id);
    const bool save = exchange->m_bSaveAndValidate;
    if (auto* edit = qobject_cast<QLineEdit*>(item)) {
        if (save) value = CString::fromQString(edit->text());
        else edit->setText(value.toQString());
    } else if (auto* combo = qobject_cast<QComboBox*>(item)) {
        if (save) value = CString::fromQString(combo->currentText());
        else if (combo->isEditable()) combo->setEditText(value.toQString());
    } else if (auto* label = qobject_cast<QLabel*>(item)) {
        if (save) value = CString::fromQString(label->text());
        else label->setText(value.toQString());
    }
}

void DDX_Radio(CDataExchange* exchange, int id, int& value) {
    std::vector<QRadioButton*> group;
    for (int next = id;; ++next) {
        auto* radio = qobject_cast<QRadioButton*>(exchange->m_pDlgWnd->GetDlgItem(next));
        if (!radio) break;
        group.push_back(radio);
    }
    if (group.empty()) return;
    if (exchange->m_bSaveAndValidate) {
        value = -1;
        for (size_t i = 0; i < group.size(); ++i)
            if (group[i]->isChecked()) value = int(i);
        return;
    }
    // Exclusive buttons cannot all be off; the group is set one by one without it.
    for (size_t i = 0; i < group.size(); ++i) {
        QButtonGroup* set = group[i]->group();
        const bool exclusive = set ? set->exclusive() : false;
        const bool autoExclusive = group[i]->autoExclusive();
        if (set) set->setExclusive(false);
        group[i]->setAutoExclusive(false);
        group[i]->setChecked(int(i) == value);
        group[i]->setAutoExclusive(autoExclusive);
        if (set) set->setExclusive(exclusive);
    }
}

void DDX_Check(CDataExchange* exchange, int id, int& value) {
    auto* box = qobject_cast<QAbstractButton*>(exchange->m_pDlgWnd->GetDlgItem(id));
    if (!box) return;
    if (exchange->m_bSaveAndValidate) value = box->isChecked() ? 1 : 0;
    else box->setChecked(value != 0);
}
