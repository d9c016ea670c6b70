#pragma once
// CWnd: the framework object of a window. It owns a QWidget (the window handle) and is not a
// widget itself, so before Create there is no window. Numeric messages reach it through
// SendMessage (synchronous, returns the handler's result) and PostMessage (queued on the Qt
// event loop); a per-class message map turns them into member handlers.
#include <QPointer>
#include <QWidget>
#include <cstddef>

#include "CString.h"
#include "WinTypes.h"

class CWnd;
class CMenu;
class QAction;

// The state of one command's user-interface item (a menu entry or a toolbar button), as an
// update handler sets it.
class QUILLBOX_EXPORT CCmdUI {
public:
    explicit CCmdUI(UINT id = 0, QAction* action = nullptr) : m_nID(id), action_(action) {}
    virtual ~CCmdUI() = default;
    virtual void Enable(BOOL on = TRUE);
    virtual void SetCheck(int check = 1);
    bool IsEnabled() const { return enabled_; }
    int GetCheck() const { return checked_; }
    // Runs the target's update handler for m_nID. Without one, the item keeps its state, or
    // with `disableIfNoHandler` is disabled when the target has no command handler either.
    void DoUpdate(CWnd* target, BOOL disableIfNoHandler);

    UINT m_nID;
    int m_nIndex = 0;
    int m_nIndexMax = 0;
    CMenu* m_pMenu = nullptr;     // the menu whose item at m_nIndex this updates
    CMenu* m_pSubMenu = nullptr;  // the popup behind that item, when it is one

private:
    QAction* action_;
    bool enabled_ = true;
    int checked_ = 0;
};

// The pseudo message of update handlers in a message map: the entry's id is the command's,
// lParam points to the CCmdUI.
constexpr UINT WM_UPDATE_COMMAND_UI = 0x0363;

// A handler of a message map: `self` is the window the message was sent to.
using MessageHandler = LRESULT (*)(CWnd* self, WPARAM wParam, LPARAM lParam);

struct MessageMapEntry {
    UINT message;  // window message number; WM_COMMAND entries match on `id` as well
    UINT id;       // command id of a WM_COMMAND entry, else 0
    MessageHandler handler;
};

// One class's table. Lookup runs through `base` when the class has no entry of its own.
struct MessageMap {
    const MessageMap* base;
    const MessageMapEntry* entries;
    std::size_t count;
};

// A window class makes the widget of a window. "Scintilla" is registered by the engine loader.
using WindowFactory = QWidget* (*)(CWnd* owner, QWidget* parent);
QUILLBOX_EXPORT bool RegisterWindowClass(const char* className, WindowFactory factory);
QUILLBOX_EXPORT bool UnregisterWindowClass(const char* className);
QUILLBOX_EXPORT bool IsWindowClassRegistered(const char* className);

class QUILLBOX_EXPORT CWnd {
public:
    CWnd();
    virtual ~CWnd();
    CWnd(const CWnd&) = delete;
    CWnd& operator=(const CWnd&) = delete;

    // The window handle; null before Create and after the widget is gone.
    QPointer<QWidget> m_hWnd;

    // Makes the window of the named class as a child of `parent` (or top level when null).
    // Sends WM_CREATE; a result of -1 destroys the window again and fails.
    BOOL CreateEx(DWORD exStyle, const char* className, const char* windowName, DWORD style,
                  const RECT& rect, CWnd* parent, UINT id, void* createParam = nullptr);
    BOOL DestroyWindow();

    // Wraps a widget the library did not make (a host's window) so that it can be a parent.
    // The wrapper lives as long as the widget. Attach/Detach do the same for a CWnd of one's own.
    static CWnd* FromWidget(QWidget* widget);
    static CWnd* FromHandle(HWND hwnd);  // the framework object of a window, or null
    BOOL Attach(QWidget* widget);
    QWidget* Detach();

    HWND GetSafeHwnd() const { return m_hWnd.data(); }
    UINT GetDlgCtrlID() const { return controlId_; }
    CWnd* GetParent() const;

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

    // Asks this window and then each framework parent to translate a key or other input
    // message; TRUE means one of them consumed it.
    BOOL PreTranslateTree(MSG* msg);

    void SetFocus();
    BOOL ShowWindow(int show);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void GetWindowRect(RECT* rect) const;  // screen coordinates
    void GetClientRect(RECT* rect) const;
    BOOL ModifyStyle(DWORD remove, DWORD add);  // styles have no effect on Qt widgets
    void SetWindowText(const char* text);
    CString GetWindowText() const;
    BOOL EnableWindow(BOOL enable = TRUE);
    BOOL UpdateData(BOOL saveAndValidate = TRUE);

    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    // Runs the update handler of a command; FALSE when the window has none for it.
    BOOL UpdateCommandUI(UINT id, CCmdUI* ui);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL PreTranslateMessage(MSG* msg);
    // Whether this window would translate the key message itself (an accelerator), so that a
    // host's shortcut does not take the key first.
    virtual BOOL IsAcceleratorKey(const MSG* msg) const;

protected:
    // The window's default handling of a message that no map entry took. The base has none;
    // a window class with its own message interface (the engine) overrides it.
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    // The default handling of the message being handled right now.
    LRESULT Default();

    virtual void OnSetFocus(CWnd* oldWindow);
    virtual void OnSize(UINT type, int cx, int cy);

    virtual const MessageMap* GetMessageMap() const;
    static const MessageMap* GetThisMessageMap();

public:
    // True when a map entry of this class or a base handles the command id.
    bool HasCommandHandler(UINT id) const;

private:
    const MessageMapEntry* findEntry(UINT message, UINT id) const;
    void bindWidget(QWidget* widget, bool owned);

    UINT controlId_ = 0;
    bool ownsWidget_ = false;
    CString windowText_;
    struct CurrentMessage {
        UINT message = 0;
        WPARAM wParam = 0;
        LPARAM lParam = 0;
    } current_;
};

// Moves a WM_COMMAND id into a wParam, as a menu or accelerator sends it.
constexpr WPARAM MakeCommandWParam(UINT id, UINT notifyCode = 0) {
    return WPARAM((id & 0xFFFF) | ((notifyCode & 0xFFFF) << 16));
}

// The application's main window, which the SQL window asks for its completion manager.
QUILLBOX_EXPORT CWnd* AfxGetMainWnd();
QUILLBOX_EXPORT void AfxSetMainWnd(CWnd* window);

constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 5;
