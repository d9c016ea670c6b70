#pragma once
// CDialog: a dialog window built in code from its template's controls, with data exchange
// between control ids and members. DoModal goes through one process-wide hook when one is
// set (tests, batch runs); with no hook and nobody to answer (offscreen), it cancels.
#include <QDialog>
#include <QString>
#include <functional>
#include <map>

#include "CWnd.h"

class CDialog;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

class QUILLBOX_EXPORT CDataExchange {
public:
    CDataExchange(CDialog* dialog, BOOL saveAndValidate) : m_pDlgWnd(dialog), m_bSaveAndValidate(saveAndValidate) {}
    CDialog* m_pDlgWnd;
    BOOL m_bSaveAndValidate;  // TRUE: controls to members; FALSE: members to controls
};

// Answers a modal dialog: the hook may set controls through GetDlgItem and returns IDOK or
// IDCANCEL, as the user's button would.
using DialogHook = std::function<int(CDialog& dialog)>;
QUILLBOX_EXPORT DialogHook SetDialogHook(DialogHook hook);

class QUILLBOX_EXPORT CDialog : public CWnd {
public:
    explicit CDialog(UINT templateId, CWnd* parent = nullptr);
    ~CDialog() override;

    virtual int DoModal();
    // Makes the dialog's window for modeless use (OnInitDialog runs once); show it with
    // ShowWindow. OK and Cancel hide it; so do Esc and the close box, through OnCancel.
    BOOL Create(UINT templateId, CWnd* parent);
    // Destroys the dialog's window. Each control taken over by a framework object gets
    // WM_DESTROY first, while its widget still stands. The object may Create again.
    BOOL DestroyWindow();
    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    void EndDialog(int result);
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    virtual void DoDataExchange(CDataExchange* exchange);

    QWidget* GetDlgItem(int id) const;
    QDialog* dialog() const { return dialog_.data(); }
    UINT templateId() const { return templateId_; }
    // Key presses inside the dialog come here first as WM_KEYDOWN with the virtual-key code
    // (MSG::event is the Qt event); TRUE eats the key.
    BOOL PreTranslateMessage(MSG* msg) override;
    // The class name a dialog reports about itself.
    virtual const char* GetRuntimeClassName() const { return "CDialog"; }

protected:
    // Builds the dialog's controls; each calls AddControl with its id.
    virtual void BuildControls(QDialog* dialog) = 0;
    void AddControl(int id, QWidget* control);
    // Converts a rectangle in dialog units (a quarter of the font's average character width,
    // an eighth of its height) into pixels of the dialog's font.
    QRect MapDialogRect(int x, int y, int width, int height) const;
    QSize MapDialogSize(int width, int height) const;

    // Builders for BuildControls: each places a control at a rectangle in dialog units and
    // registers it under `id` (0: no id). Texts come translated; "&" marks the mnemonic.
    QLabel* AddStatic(int id, const QString& text, int x, int y, int width, int height);
    QComboBox* AddDropDownCombo(int id, int x, int y, int width, int height);
    QCheckBox* AddCheckBox(int id, const QString& text, int x, int y, int width, int height);
    // A radio button that starts a group begins a new set of exclusive buttons; the ones
    // that follow join it.
    QRadioButton* AddRadioButton(int id, const QString& text, bool startsGroup, int x, int y, int width, int height);
    QPushButton* AddPushButton(int id, const QString& text, bool isDefault, int x, int y, int width, int height);
    QGroupBox* AddGroupBox(const QString& text, int x, int y, int width, int height);

private:
    friend class DialogKeyRouter;
    void ensureBuilt();

    UINT templateId_;
    CWnd* parent_;
    QPointer<QDialog> dialog_;
    std::map<int, QWidget*> controls_;
    int result_ = IDCANCEL;
    bool modeless_ = false;
    QButtonGroup* radioGroup_ = nullptr;
};

QUILLBOX_EXPORT void DDX_Check(CDataExchange* exchange, int id, int& value);
// A number in an edit control; an empty or unreadable field reads as 0.
QUILLBOX_EXPORT void DDX_Text(CDataExchange* exchange, int id, int& value);
// The text of an edit control, a combo box's edit field or a label.
QUILLBOX_EXPORT void DDX_Text(CDataExchange* exchange, int id, CString& value);
// A group of radio buttons: the button `id` and the radio buttons that follow it with the
// ids id + 1, id + 2, ... The index of the checked one, -1 when none; an index outside the
// group clears them all.
QUILLBOX_EXPORT void DDX_Radio(CDataExchange* exchange, int id, int& value);
