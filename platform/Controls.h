#pragma once
// Thin framework objects over dialog controls. A dialog builds its widgets; a control object
// takes one over (SubclassWindow, or DDX_Control in DoDataExchange) and speaks to it in the
// Win32 shape the dialogs are written in: indexes, CB_ERR, edit selections, check states.
#include "CDialog.h"
#include "CWnd.h"

class QAbstractButton;
class QComboBox;
class QLabel;
class QObject;

// Notification codes, the high word of a WM_COMMAND wParam.
constexpr UINT BN_CLICKED = 0;
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT CBN_SETFOCUS = 3;
constexpr UINT CBN_KILLFOCUS = 4;
constexpr UINT CBN_EDITCHANGE = 5;
// A control's own notification handed back to the control itself (a reflected WM_COMMAND).
constexpr UINT OCM_COMMAND = 0x2111;

constexpr int CB_ERR = -1;

// Button styles as GetButtonStyle reports them.
constexpr UINT BS_PUSHBUTTON = 0x0;
constexpr UINT BS_DEFPUSHBUTTON = 0x1;
constexpr UINT BS_AUTOCHECKBOX = 0x3;
constexpr UINT BS_AUTORADIOBUTTON = 0x9;

// Check states.
constexpr int BST_UNCHECKED = 0;
constexpr int BST_CHECKED = 1;

// A drop-down combo box: a list of items and an edit field. While it is taken over, the
// widget's gaining the focus arrives here as a reflected CBN_SETFOCUS (OCM_COMMAND) and its
// losing the focus as WM_KILLFOCUS, so that a message map of a derived class can handle them.
class QUILLBOX_EXPORT CComboBox : public CWnd {
public:
    CComboBox();
    ~CComboBox() override;

    // Takes over `widget`, which must be a QComboBox; FALSE for anything else or when this
    // object already has a window.
    BOOL SubclassWindow(QWidget* widget);

    int GetCount() const;
    // The index of the new item, or CB_ERR. InsertString with -1 appends.
    int AddString(const char* text);
    int InsertString(int index, const char* text);
    // The count of items left, or CB_ERR for an index outside the list.
    int DeleteString(int index);
    void ResetContent();
    // The first item after `indexStart` (-1: from the top) whose whole text equals `text`
    // without regard to case, going round the list once; CB_ERR when none.
    int FindStringExact(int indexStart, const char* text) const;
    // The length of the item's text, or CB_ERR.
    int GetLBText(int index, CString& text) const;
    int GetLBTextLen(int index) const;
    int GetCurSel() const;
    // Selects an item and shows its text in the edit field; -1 clears both. The index, or
    // CB_ERR when it is outside the list.
    int SetCurSel(int index);

    // The edit field's text.
    CString GetWindowText() const;
    void SetWindowText(const char* text);
    // Selects characters start..end of the edit field; end -1 means to the end.
    BOOL SetEditSel(int start, int end);

    // The width of the drop-down list in pixels, never below the combo's own width.
    int SetDroppedWidth(int width);
    int GetDroppedWidth() const;
    // The height of the drop-down list in pixels (in Win32, the combo window's own height).
    void SetDroppedHeight(int height);
    int GetDroppedHeight() const;

protected:
    QComboBox* combo() const;

private:
    QPointer<QObject> focusWatcher_;
    int droppedWidth_ = 0;
    int droppedHeight_ = 0;
};

// A push button, check box or radio button.
class QUILLBOX_EXPORT CButton : public CWnd {
public:
    // Takes over `widget`, which must be a button.
    BOOL SubclassWindow(QWidget* widget);
    int GetCheck() const;
    void SetCheck(int check);
    // BS_DEFPUSHBUTTON for the push button that Enter presses right now, BS_PUSHBUTTON for
    // other push buttons, the auto styles for check boxes and radio buttons.
    UINT GetButtonStyle() const;

private:
    QAbstractButton* button() const;
};

// A text label.
class QUILLBOX_EXPORT CStatic : public CWnd {
public:
    // Takes over `widget`, which must be a QLabel.
    BOOL SubclassWindow(QWidget* widget);
    CString GetWindowText() const;
    void SetWindowText(const char* text);

private:
    QLabel* label() const;
};

// Binds a control object to the dialog's control `id` the first time data is exchanged.
QUILLBOX_EXPORT void DDX_Control(CDataExchange* exchange, int id, CComboBox& control);
QUILLBOX_EXPORT void DDX_Control(CDataExchange* exchange, int id, CButton& control);
QUILLBOX_EXPORT void DDX_Control(CDataExchange* exchange, int id, CStatic& control);
