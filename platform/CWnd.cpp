#include "CWnd.h"

#include <QAction>
#include <QMetaObject>
#include <algorithm>
#include <QVariant>
#include <map>
#include <string>

#include "CMenu.h"
#include "System.h"

namespace {
constexpr const char* kOwnerProperty = "quillbox.cwnd";

// Window class names compare case-insensitively, as registered classes do.
struct ClassNameLess {
    bool operator()(const std::string& a, const std::string& b) const {
        return CString(a).CompareNoCase(b.c_str()) < 0;
    }
};

std::map<std::string, WindowFactory, ClassNameLess>& windowClasses() {
    static auto* classes = [] {
        auto* c = new std::map<std::string, WindowFactory, ClassNameLess>;
        // A plain frame: a widget with nothing of its own, for parents and tests.
        (*c)["QuillboxFrame"] = [](CWnd*, QWidget* parent) -> QWidget* { return new QWidget(parent); };
        return c;
    }();
    return *classes;
}

CWnd* mainWindow = nullptr;
}  // namespace

bool RegisterWindowClass(const char* className, WindowFactory factory) {
    if (!className || !*className || !factory) return false;
    windowClasses()[className] = factory;
    return true;
}

bool UnregisterWindowClass(const char* className) {
    return className && windowClasses().erase(className) > 0;
}

bool IsWindowClassRegistered(const char* className) {
    return className && windowClasses().count(className) > 0;
}

CWnd* AfxGetMainWnd() { return mainWindow; }
void AfxSetMainWnd(CWnd* window) { mainWindow = window; }

CWnd::CWnd() = default;

CWnd::~CWnd() {
    if (mainWindow == this) mainWindow = nullptr;
    if (QWidget* w = m_hWnd.data()) {
        w->setProperty(kOwnerProperty, QVariant());
        if (ownsWidget_) delete w;
    }
}

void CWnd::bindWidget(QWidget* widget, bool owned) {
    m_hWnd = widget;
    ownsWidget_ = owned;
    widget->setProperty(kOwnerProperty, QVariant::fromValue(static_cast<void*>(this)));
}

BOOL CWnd::CreateEx(DWORD /*exStyle*/, const char* className, const char* windowName, DWORD style,
                    const RECT& rect, CWnd* parent, UINT id, void* /*createParam*/) {
    if (m_hWnd) {
        SetLastError(ERROR_INVALID_OPERATION_CODE);
        return FALSE;
    }
    auto it = className ? windowClasses().find(className) : windowClasses().end();
    if (it == windowClasses().end()) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS_CODE, "window class not registered");
        return FALSE;
    }
    QWidget* parentWidget = nullptr;
    if (parent) {
        parentWidget = parent->GetSafeHwnd();
        if (!parentWidget) {
            SetLastError(ERROR_INVALID_WINDOW_HANDLE_CODE, "parent window has no handle");
            return FALSE;
        }
    }
    QWidget* widget = it->second(this, parentWidget);
    if (!widget) {
        SetLastError(ERROR_CANNOT_FIND_WND_CLASS_CODE, "window class made no window");
        return FALSE;
    }
    bindWidget(widget, true);
    controlId_ = id;
    windowText_ = windowName ? windowName : "";
    widget->setWindowTitle(windowText_.toQString());
    widget->setGeometry(rect.left, rect.top, std::max(rect.right - rect.left, 0),
                        std::max(rect.bottom - rect.top, 0));
    if (SendMessage(WM_CREATE, 0, 0) == -1) {
        DestroyWindow();
        SetLastError(ERROR_INVALID_OPERATION_CODE, "window creation aborted by OnCreate");
        return FALSE;
    }
    if (style & WS_VISIBLE) widget->show();
    return TRUE;
}

BOOL CWnd::DestroyWindow() {
    QWidget* w = m_hWnd.data();
    if (!w) return FALSE;
    SendMessage(WM_DESTROY, 0, 0);
    w->setProperty(kOwnerProperty, QVariant());
    m_hWnd = nullptr;
    if (ownsWidget_) delete w;
    ownsWidget_ = false;
    return TRUE;
}

CWnd* CWnd::FromHandle(HWND hwnd) {
    if (!hwnd) return nullptr;
    return static_cast<CWnd*>(hwnd->property(kOwnerProperty).value<void*>());
}

CWnd* CWnd::FromWidget(QWidget* widget) {
    if (!widget) return nullptr;
    if (CWnd* existing = FromHandle(widget)) return existing;
    auto* wrapper = new CWnd;
    wrapper->bindWidget(widget, false);
    QObject::connect(widget, &QObject::destroyed, [wrapper] {
        wrapper->m_hWnd = nullptr;
        delete wrapper;
    });
    return wrapper;
}

BOOL CWnd::Attach(QWidget* widget) {
    if (!widget || m_hWnd || FromHandle(widget)) return FALSE;
    bindWidget(widget, false);
    return TRUE;
}

QWidget* CWnd::Detach() {
    QWidget* w = m_hWnd.data();
    if (w) w->setProperty(kOwnerProperty, QVariant());
    m_hWnd = nullptr;
    ownsWidget_ = false;
    return w;
}

CWnd* CWnd::GetParent() const {
    for (QWidget* w = m_hWnd ? m_hWnd->parentWidget() : nullptr; w; w = w->parentWidget())
        if (CWnd* owner = FromHandle(w)) return owner;
    return nullptr;
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return WindowProc(message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    QWidget* w = m_hWnd.data();
    if (!w) return FALSE;
    // The widget is the receiver: if it (and so this window) is gone, the message is dropped.
    QMetaObject::invokeMethod(
        w, [w, message, wParam, lParam] {
            if (CWnd* self = FromHandle(w)) self->SendMessage(message, wParam, lParam);
        },
        Qt::QueuedConnection);
    return TRUE;
}

BOOL CWnd::PreTranslateTree(MSG* msg) {
    for (CWnd* w = this; w; w = w->GetParent())
        if (w->PreTranslateMessage(msg)) return TRUE;
    return FALSE;
}

void CWnd::SetFocus() {
    if (QWidget* w = m_hWnd.data()) w->setFocus(Qt::OtherFocusReason);
}

BOOL CWnd::ShowWindow(int show) {
    QWidget* w = m_hWnd.data();
    if (!w) return FALSE;
    bool wasVisible = w->isVisible();
    w->setVisible(show != SW_HIDE);
    return wasVisible;
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL) {
    if (QWidget* w = m_hWnd.data()) w->setGeometry(x, y, width, height);
}

void CWnd::GetWindowRect(RECT* rect) const {
    if (!rect) return;
    *rect = RECT{};
    if (QWidget* w = m_hWnd.data()) {
        QPoint topLeft = w->mapToGlobal(QPoint(0, 0));
        *rect = RECT{topLeft.x(), topLeft.y(), topLeft.x() + w->width(), topLeft.y() + w->height()};
    }
}

void CWnd::GetClientRect(RECT* rect) const {
    if (!rect) return;
    *rect = RECT{};
    if (QWidget* w = m_hWnd.data()) *rect = RECT{0, 0, w->width(), w->height()};
}

BOOL CWnd::ModifyStyle(DWORD, DWORD) { return m_hWnd ? TRUE : FALSE; }

void CWnd::SetWindowText(const char* text) {
    windowText_ = text ? text : "";
    if (QWidget* w = m_hWnd.data()) w->setWindowTitle(windowText_.toQString());
}

CString CWnd::GetWindowText() const { return windowText_; }

BOOL CWnd::EnableWindow(BOOL enable) {
    QWidget* w = m_hWnd.data();
    if (!w) return FALSE;
    bool wasDisabled = !w->isEnabled();
    w->setEnabled(enable != FALSE);
    return wasDisabled;
}

BOOL CWnd::UpdateData(BOOL) { return TRUE; }

const MessageMapEntry* CWnd::findEntry(UINT message, UINT id) const {
    for (const MessageMap* map = GetMessageMap(); map; map = map->base)
        for (std::size_t i = 0; i < map->count; ++i) {
            const MessageMapEntry& e = map->entries[i];
            // Command entries and update entries name their command; others take any id.
            const bool byId = message == WM_COMMAND || message == WM_UPDATE_COMMAND_UI;
            if (e.message == message && (!byId || e.id == id)) return &e;
        }
    return nullptr;
}

bool CWnd::HasCommandHandler(UINT id) const { return findEntry(WM_COMMAND, id) != nullptr; }

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    CurrentMessage saved = current_;
    current_ = {message, wParam, lParam};
    LRESULT result = 0;
    if (message == WM_COMMAND) {
        if (!OnCommand(wParam, lParam)) result = DefWindowProc(message, wParam, lParam);
    } else if (message == WM_NOTIFY) {
        if (!OnNotify(wParam, lParam, &result)) result = DefWindowProc(message, wParam, lParam);
    } else if (const MessageMapEntry* e = findEntry(message, 0)) {
        result = e->handler(this, wParam, lParam);
    } else {
        result = DefWindowProc(message, wParam, lParam);
    }
    current_ = saved;
    return result;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (const MessageMapEntry* e = findEntry(WM_COMMAND, LOWORD(wParam))) {
        e->handler(this, wParam, lParam);
        return TRUE;
    }
    return FALSE;
}

BOOL CWnd::OnNotify(WPARAM, LPARAM, LRESULT*) { return FALSE; }

BOOL CWnd::UpdateCommandUI(UINT id, CCmdUI* ui) {
    const MessageMapEntry* e = findEntry(WM_UPDATE_COMMAND_UI, id);
    if (!e || !ui) return FALSE;
    e->handler(this, id, reinterpret_cast<LPARAM>(ui));
    return TRUE;
}

void CCmdUI::Enable(BOOL on) {
    enabled_ = on != FALSE;
    if (action_) action_->setEnabled(enabled_);
    // A submenu's first command speaks for itself, not for the whole submenu.
    if (m_pMenu && !m_pSubMenu)
        m_pMenu->EnableMenuItem(UINT(m_nIndex), MF_BYPOSITION | (enabled_ ? MF_ENABLED : MF_GRAYED));
}

void CCmdUI::DoUpdate(CWnd* target, BOOL disableIfNoHandler) {
    if (!target || target->UpdateCommandUI(m_nID, this)) return;
    if (!disableIfNoHandler || target->HasCommandHandler(m_nID)) return;
    if (m_pSubMenu && m_pMenu)
        m_pMenu->EnableMenuItem(UINT(m_nIndex), MF_BYPOSITION | MF_GRAYED);  // nothing handles the submenu
    else
        Enable(FALSE);
}

void CCmdUI::SetCheck(int check) {
    checked_ = check;
    if (action_) {
        action_->setCheckable(true);
        action_->setChecked(check != 0);
    }
    if (m_pMenu && !m_pSubMenu) m_pMenu->CheckMenuItem(UINT(m_nIndex), MF_BYPOSITION | (check ? MF_CHECKED : 0));
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL CWnd::IsAcceleratorKey(const MSG*) const { return FALSE; }

LRESULT CWnd::DefWindowProc(UINT, WPARAM, LPARAM) { return 0; }

LRESULT CWnd::Default() { return DefWindowProc(current_.message, current_.wParam, current_.lParam); }

void CWnd::OnSetFocus(CWnd*) {}

void CWnd::OnSize(UINT, int, int) {}

const MessageMap* CWnd::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CWnd::GetThisMessageMap() {
    static const MessageMap map{nullptr, nullptr, 0};
    return &map;
}
