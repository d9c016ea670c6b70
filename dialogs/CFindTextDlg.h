#pragma once
// The modeless find dialog of an editor window. It holds no search of its own: before each
// search it writes its fields into its owner's find state and asks the owner to search, and
// it keeps the find history combo up to date.
#include "CFindDialogBase.h"

class QUILLBOX_EXPORT CFindTextDlg : public CFindDialogBase {
public:
    static constexpr UINT IDD = 8000;
    static constexpr int IDC_DIRECTION_UP = 1012;
    static constexpr int IDC_DIRECTION_DOWN = 1013;

    explicit CFindTextDlg(CScintillaWnd* owner);
    ~CFindTextDlg() override;

    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    // Find Next (and Enter): searches in the chosen direction; the dialog stays open.
    void OnOK() override;
    // Cancel, Esc and the close box: keeps the fields and hides the dialog.
    void OnCancel() override;
    const char* GetRuntimeClassName() const override { return "CFindTextDlg"; }

    int direction = 1;  // 0 up, 1 down

protected:
    void BuildControls(QDialog* dialog) override;
};
