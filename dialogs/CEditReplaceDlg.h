#pragma once
// The modeless replace dialog of an editor window. Like the find dialog it only collects the
// terms: before each action it writes them into its owner's find state and calls the owner's
// search or replace, then keeps the two history combos and the count of replacements.
#include "CFindDialogBase.h"

class QUILLBOX_EXPORT CEditReplaceDlg : public CFindDialogBase {
public:
    static constexpr UINT IDD = 8002;
    static constexpr int IDC_STATUS = 1002;
    static constexpr int IDC_REPLACE = 1008;
    static constexpr int IDC_REPLACE_ALL = 1009;
    static constexpr int IDC_REPLACE_TEXT = 1010;
    static constexpr int IDC_FIND_NEXT = 1011;
    static constexpr int IDC_SCOPE_SELECTION = 1014;
    static constexpr int IDC_SCOPE_WHOLE_FILE = 1015;
    // The longest find text the dialog shows.
    static constexpr int kMaxFindText = 256;

    explicit CEditReplaceDlg(CScintillaWnd* owner);
    ~CEditReplaceDlg() override;

    void DoDataExchange(CDataExchange* exchange) override;
    // Enter finds while Find Next is the default button and replaces otherwise.
    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL OnInitDialog() override;
    // Cancel, Esc and the close box: keeps the fields, clears the count and hides the dialog.
    void OnCancel() override;

    // Sets the fields before the dialog shows: `selection` non-zero offers the selection as
    // the scope, `scope` chooses it (0 selection, 1 whole file).
    void PrepareForShow(int selection, int scope);

    void OnFindTextChange() override;
    void OnFindNext();
    void OnReplace();
    void OnReplaceAll();
    const char* GetRuntimeClassName() const override { return "CEditReplaceDlg"; }

    int replaceCount = 0;
    int inSelection = 0;
    CStatic statusText;
    CMemComboBox replaceCombo;
    CString replaceText;
    int replaceScope = 1;  // 0 selection, 1 whole file

protected:
    void BuildControls(QDialog* dialog) override;

private:
    // Writes the options into the owner and asks it to wrap.
    void storeOptions();
    void enableFindNext();
    void showCount();
};
