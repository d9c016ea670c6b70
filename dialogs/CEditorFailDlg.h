#pragma once
// The dialog that tells the user the editor window could not be made, and offers to start
// the product's launcher instead.
#include "CDialog.h"

class QUILLBOX_EXPORT CEditorFailDlg : public CDialog {
public:
    static constexpr UINT IDD = 1022;
    static constexpr int IDC_RUN_LAUNCHER = 1020;
    static constexpr int IDC_WARNING_ICON = 1021;

    CEditorFailDlg();
    void DoDataExchange(CDataExchange* exchange) override;
    const char* GetRuntimeClassName() const override { return "CEditorFailDlg"; }

    int runLauncher = 0;  // the check box "Run Tessel Launcher"

protected:
    void BuildControls(QDialog* dialog) override;
};
