#include "Controls.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

namespace {
// Turns a combo box's focus changes into the messages a Win32 combo gives its object. The
// edit field and the combo itself may each hold the focus; only a change of focus into or
// out of the pair counts, and opening the drop-down list is no loss of focus.
class ComboFocusWatcher : public QObject {
public:
    ComboFocusWatcher(CComboBox* owner, QComboBox* combo) : QObject(combo), owner_(owner), combo_(combo) {
        combo->installEventFilter(this);
        watchEdit();
    }

    void watchEdit() {
        if (QLineEdit* edit = combo_->lineEdit(); edit && edit != watchedEdit_) {
            edit->installEventFilter(this);
            watchedEdit_ = edit;
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        // Only while the object still owns the widget: a widget being destroyed, or one that
        // was let go, has nobody to tell.
        if (owner_->GetSafeHwnd() != combo_) return QObject::eventFilter(watched, event);
        if (event->type() == QEvent::FocusIn) {
            watchEdit();
            if (!focused_) {
                focused_ = true;
                owner_->SendMessage(OCM_COMMAND, MakeCommandWParam(owner_->GetDlgCtrlID(), CBN_SETFOCUS), 0);
            }
        } else if (event->type() == QEvent::FocusOut) {
            const auto* focus = static_cast<QFocusEvent*>(event);
            const bool stillInside = combo_->hasFocus() || (combo_->lineEdit() && combo_->lineEdit()->hasFocus());
            if (focused_ && focus->reason() != Qt::PopupFocusReason && !stillInside) {
                focused_ = false;
                owner_->SendMessage(WM_KILLFOCUS, 0, 0);
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    CComboBox* owner_;
    QComboBox* combo_;
    QPointer<QLineEdit> watchedEdit_;
    bool focused_ = false;
};
}  // namespace

// ---- CComboBox ----

CComboBox::CComboBox() = default;

CComboBox::~CComboBox() {
    // The watcher belongs to the widget, which may outlive this object.
    delete focusWatcher_.data();
}

BOOL CComboBox::SubclassWindow(QWidget* widget) {
    auto* box = qobject_cast<QComboBox*>(widget);
    if (!box || !Attach(box)) return FALSE;
    delete focusWatcher_.data();  // one left on a widget this object let go
    focusWatcher_ = new ComboFocusWatcher(this, box);
    return TRUE;
}

QComboBox* CComboBox::combo() const { return qobject_cast<QComboBox*>(m_hWnd.data()); }

int CComboBox::GetCount() const {
    QComboBox* box = combo();
    return box ? box->count() : 0;
}

int CComboBox::AddString(const char* text) { return InsertString(-1, text); }

int CComboBox::InsertString(int index, const char* text) {
    QComboBox* box = combo();
    if (!box || index < -1 || index > box->count()) return CB_ERR;
    if (index == -1) index = box->count();
    // Adding an item changes neither the edit field nor the selection, as in a Win32 combo.
    const QString edit = box->currentText();
    const int selected = box->currentIndex();
    const QSignalBlocker quiet(box);
    box->insertItem(index, QString::fromUtf8(text ? text : ""));
    box->setCurrentIndex(selected >= index ? selected + 1 : selected);
    if (box->isEditable()) box->setEditText(edit);
    return index;
}

int CComboBox::DeleteString(int index) {
    QComboBox* box = combo();
    if (!box || index < 0 || index >= box->count()) return CB_ERR;
    const QString edit = box->currentText();
    const QSignalBlocker quiet(box);
    box->removeItem(index);
    if (box->isEditable()) box->setEditText(edit);
    return box->count();
}

void CComboBox::ResetContent() {
    if (QComboBox* box = combo()) {
        const QSignalBlocker quiet(box);
        box->clear();
    }
}

int CComboBox::FindStringExact(int indexStart, const char* text) const {
    QComboBox* box = combo();
    if (!box || box->count() == 0) return CB_ERR;
    const QString wanted = QString::fromUtf8(text ? text : "");
    const int count = box->count();
    const int first = indexStart < 0 || indexStart >= count ? 0 : indexStart + 1;
    for (int i = 0; i < count; ++i) {
        const int index = (first + i) % count;
        if (box->itemText(index).compare(wanted, Qt::CaseInsensitive) == 0) return index;
    }
    return CB_ERR;
}

int CComboBox::GetLBText(int index, CString& text) const {
    QComboBox* box = combo();
    if (!box || index < 0 || index >= box->count()) return CB_ERR;
    text = CString::fromQString(box->itemText(index));
    return text.GetLength();
}

int CComboBox::GetLBTextLen(int index) const {
    CString text;
    return GetLBText(index, text);
}

int CComboBox::GetCurSel() const {
    QComboBox* box = combo();
    return box && box->currentIndex() >= 0 ? box->currentIndex() : CB_ERR;
}

int CComboBox::SetCurSel(int index) {
    QComboBox* box = combo();
    if (!box) return CB_ERR;
    const QSignalBlocker quiet(box);
    if (index < 0 || index >= box->count()) {
        box->setCurrentIndex(-1);
        if (box->isEditable()) box->setEditText(QString());
        return index == -1 ? -1 : CB_ERR;
    }
    box->setCurrentIndex(index);
    if (box->isEditable()) box->setEditText(box->itemText(index));
    return index;
}

CString CComboBox::GetWindowText() const {
    QComboBox* box = combo();
    return box ? CString::fromQString(box->currentText()) : CString();
}

void CComboBox::SetWindowText(const char* text) {
    QComboBox* box = combo();
    if (!box) return;
    if (box->isEditable()) box->setEditText(QString::fromUtf8(text ? text : ""));
    else box->setCurrentIndex(box->findText(QString::fromUtf8(text ? text : ""), Qt::MatchFixedString));
}

BOOL CComboBox::SetEditSel(int start, int end) {
    QComboBox* box = combo();
    QLineEdit* edit = box ? box->lineEdit() : nullptr;
    if (!edit) return FALSE;
    const int length = int(edit->text().size());
    start = std::clamp(start, 0, length);
    end = end < 0 ? length : std::clamp(end, 0, length);
    if (start == end) edit->setCursorPosition(start);
    else edit->setSelection(start, end - start);
    return TRUE;
}

int CComboBox::SetDroppedWidth(int width) {
    QComboBox* box = combo();
    if (!box) return CB_ERR;
    droppedWidth_ = std::max(width, box->width());
    box->view()->setMinimumWidth(droppedWidth_);
    return droppedWidth_;
}

int CComboBox::GetDroppedWidth() const {
    QComboBox* box = combo();
    if (!box) return CB_ERR;
    return std::max(droppedWidth_, box->width());
}

void CComboBox::SetDroppedHeight(int height) {
    QComboBox* box = combo();
    if (!box) return;
    droppedHeight_ = std::max(height, 0);
    // The list shows as many rows as fit; the rest scroll.
    const int row = std::max(box->view()->sizeHintForRow(0), box->fontMetrics().height());
    box->setMaxVisibleItems(std::max(1, (droppedHeight_ - box->height()) / std::max(row, 1)));
}

int CComboBox::GetDroppedHeight() const { return droppedHeight_; }

void DDX_Control(CDataExchange* exchange, int id, CComboBox& control) {
    if (!control.GetSafeHwnd()) control.SubclassWindow(exchange->m_pDlgWnd->GetDlgItem(id));
}

// ---- CButton ----

BOOL CButton::SubclassWindow(QWidget* widget) {
    auto* b = qobject_cast<QAbstractButton*>(widget);
    return b ? Attach(b) : FALSE;
}

QAbstractButton* CButton::button() const { return qobject_cast<QAbstractButton*>(m_hWnd.data()); }

int CButton::GetCheck() const {
    QAbstractButton* b = button();
    return b && b->isChecked() ? BST_CHECKED : BST_UNCHECKED;
}

void CButton::SetCheck(int check) {
    if (QAbstractButton* b = button()) b->setChecked(check != BST_UNCHECKED);
}

UINT CButton::GetButtonStyle() const {
    QAbstractButton* b = button();
    if (auto* push = qobject_cast<QPushButton*>(b)) return push->isDefault() ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
    if (qobject_cast<QRadioButton*>(b)) return BS_AUTORADIOBUTTON;
    if (qobject_cast<QCheckBox*>(b)) return BS_AUTOCHECKBOX;
    return BS_PUSHBUTTON;
}

void DDX_Control(CDataExchange* exchange, int id, CButton& control) {
    if (!control.GetSafeHwnd()) control.SubclassWindow(exchange->m_pDlgWnd->GetDlgItem(id));
}

// ---- CStatic ----

BOOL CStatic::SubclassWindow(QWidget* widget) {
    auto* l = qobject_cast<QLabel*>(widget);
    return l ? Attach(l) : FALSE;
}

QLabel* CStatic::label() const { return qobject_cast<QLabel*>(m_hWnd.data()); }

CString CStatic::GetWindowText() const {
    QLabel* l = label();
    return l ? CString::fromQString(l->text()) : CString();
}

void CStatic::SetWindowText(const char* text) {
    if (QLabel* l = label()) l->setText(QString::fromUtf8(text ? text : ""));
}

void DDX_Control(CDataExchange* exchange, int id, CStatic& control) {
    if (!control.GetSafeHwnd()) control.SubclassWindow(exchange->m_pDlgWnd->GetDlgItem(id));
}
