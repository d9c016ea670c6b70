#pragma once
// CDialog: a dialog window built in code from its template's controls, with data exchange
// between control ids and members. DoModal goes through one process-wide hook when one is
// set (tests, batch runs); with no hook and nobody to answer (offscreen), it cancels.
#include <QDialog>
#include <functional>
#include <map>

#include "CWnd.h"

class CDialog;

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
    // ShowWindow. OK and Cancel hide it.
    BOOL Create(UINT templateId, CWnd* parent);
    virtual BOOL OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    void EndDialog(int result);
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    virtual void DoDataExchange(CDataExchange* exchange);

    QWidget* GetDlgItem(int id) const;
    QDialog* dialog() const { return dialog_.data(); }
    UINT templateId() const { return templateId_; }
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

private:
    void ensureBuilt();

    UINT templateId_;
    CWnd* parent_;
    QPointer<QDialog> dialog_;
    std::map<int, QWidget*> controls_;
    int result_ = IDCANCEL;
};

QUILLBOX_EXPORT void DDX_Check(CDataExchange* exchange, int id, int& value);
// A number in an edit control; an empty or unreadable field reads as 0.
QUILLBOX_EXPORT void DDX_Text(CDataExchange* exchange, int id, int& value);
