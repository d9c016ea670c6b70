#pragma once
// The modeless find dialog of an editor window. It holds no search of its own: before each
// search it writes its fields into its owner's find state and asks the owner to search, and
// it keeps the find history combo up to date.
#include "CDialog.h"
#include "CMemComboBox.h"
#include "Controls.h"

class CScintillaWnd;

class QUILLBOX_EXPORT CFindTextDlg : public CDialog {
public:
    static constexpr UINT IDD = 8000;
    static constexpr int IDC_WHOLE_WORD = 1004;
    static constexpr int IDC_MATCH_CASE = 1005;
    static constexpr int IDC_FIND_TEXT = 1006;
    static constexpr int IDC_REGULAR_EXPRESSION = 1007;
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
    void OnFindTextChange();
    void OnRegularExpression();
    const char* GetRuntimeClassName() const override { return "CFindTextDlg"; }

    CScintillaWnd* owner;
    CMemComboBox findCombo;
    CButton wholeWordButton;
    int direction = 1;  // 0 up, 1 down
    int matchCase = 0;
    CString findText;
    int wholeWord = 0;
    int regExp = 0;

protected:
    void BuildControls(QDialog* dialog) override;

private:
    // Whole word and regular expression exclude each other; an expression always has its
    // escapes decoded. `exchange` reads the controls first and writes them back after.
    void applyRegExpState(bool exchange);
};
