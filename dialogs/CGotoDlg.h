#pragma once
// The modeless dialog that asks for a line number and moves its owner's caret there.
#include "CDialog.h"

class CScintillaWnd;
class QLineEdit;

class QUILLBOX_EXPORT CGotoDlg : public CDialog {
public:
    static constexpr UINT IDD = 8001;
    static constexpr int IDC_LINE_NUMBER = 1003;

    explicit CGotoDlg(CScintillaWnd* owner);
    ~CGotoDlg() override;

    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnChangeNumber();
    const char* GetRuntimeClassName() const override { return "CGotoDlg"; }

    CScintillaWnd* owner;
    int lineNumber = 0;  // counted from 1

protected:
    void BuildControls(QDialog* dialog) override;

private:
    void enableOk();
};
