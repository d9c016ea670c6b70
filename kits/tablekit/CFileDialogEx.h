#pragma once
// CFileDialogEx: Tablekit's file dialog for opening and saving. It is Qt's own (non-native)
// QFileDialog, so it runs the same on every platform and headless, with one addition: each
// file type can carry a list of sub types (an encoding, say), shown as a second choice below
// the file type and refilled whenever the file type changes.
//
// Filters come in the pipe form "Label|*.a;*.b|Label|*.c||" and are turned into Qt name
// filters. DoModal goes through one process-wide hook when one is set (tests, batch runs);
// with no hook and nobody to answer (offscreen), it cancels.
#include <QPointer>
#include <QStringList>
#include <functional>
#include <vector>

#include "CString.h"
#include "CWnd.h"
#include "WinTypes.h"

class QComboBox;
class QFileDialog;
class QLabel;
class QLineEdit;

// Flags of the dialog, as a host passes them.
constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;  // ask before replacing an existing file
constexpr DWORD OFN_HIDEREADONLY = 0x00000004;     // no read-only choice (there is none here)
constexpr DWORD OFN_PATHMUSTEXIST = 0x00000800;    // the chosen file's folder must exist
constexpr DWORD OFN_FILEMUSTEXIST = 0x00001000;    // open dialog: the chosen file must exist
constexpr DWORD OFN_LONGNAMES = 0x00200000;        // long names are always on

// The settings a caller may change between construction and DoModal. The strings are the
// caller's and are read when DoModal runs, so they must live until then.
struct OPENFILENAME {
    DWORD lStructSize = sizeof(OPENFILENAME);
    DWORD Flags = 0;
    DWORD nFilterIndex = 1;                 // 1-based file type shown first; the chosen one after OK
    const char* lpstrInitialDir = nullptr;  // folder shown first (UTF-8); null or "": the default
    const char* lpstrTitle = nullptr;       // window title (UTF-8); null or "": "Open" / "Save As"
};

class CFileDialogEx;

// Answers DoModal in place of a person: the hook may choose a file, a file type and a sub
// type (EnterFileName, SelectFileType, SelectSubType, or fileDialog() and subTypeCombo()
// directly) and returns IDOK or IDCANCEL as the user's button would; its IDOK also answers
// the question before overwriting. The choice is then checked against the flags and read
// back exactly as after a real dialog.
using FileDialogHook = std::function<int(CFileDialogEx& dialog)>;

// Installs `hook` (an empty function removes it) and returns the one it replaces.
QUILLBOX_EXPORT FileDialogHook SetFileDialogHook(FileDialogHook hook);

class QUILLBOX_EXPORT CFileDialogEx : public CWnd {
public:
    // openFileDialog: 0 for a save dialog, anything else for an open dialog. defaultExtension
    // is appended to a chosen name without one; fileName is the proposed name (it may carry
    // a folder). size and vistaStyle are accepted for compatibility and ignored.
    CFileDialogEx(int openFileDialog, const char* defaultExtension, const char* fileName,
                  unsigned long flags, const char* filter, CWnd* parent, unsigned long size = 0,
                  int vistaStyle = 0);
    ~CFileDialogEx() override;

    // On: each file type has a list of sub types of its own. Off (the default): AddSubType
    // ignores the file type and every type shows the one common list.
    void MultySubtype(bool on);
    // Appends `label` to the sub types of file type `fileTypeIndex` (0-based; a negative
    // index is ignored). `reserved` has no meaning.
    void AddSubType(int fileTypeIndex, const CString& label, int reserved);
    // The sub type shown first when a file type's list is filled; out of range shows the first.
    void SetShowIndex(int index);

    OPENFILENAME& GetOFN() { return ofn_; }

    // IDOK when a file was chosen and confirmed, else IDCANCEL.
    int DoModal();

    // The choice of the last DoModal that returned IDOK; empty strings and 0 otherwise.
    CString GetPathName() const { return pathName_; }  // absolute path, UTF-8
    CString GetFileName() const { return fileName_; }  // the name alone
    int GetSubIndex() const { return subIndex_; }       // within the chosen type's list
    int GetFileTypeIndex() const { return fileTypeIndex_; }

    // For hooks and tests: the Qt dialog and the sub type choice. Null without a QApplication
    // (or once the dialog's parent has destroyed it).
    QFileDialog* fileDialog() const;
    QComboBox* subTypeCombo() const;

    // What a person does in the running dialog, for hooks: type a name or a whole path (UTF-8)
    // into the file name box; pick a file type (0-based) or a sub type of the shown list.
    // Out of range picks change nothing and return false.
    void EnterFileName(const CString& nameOrPath);
    bool SelectFileType(int index);
    bool SelectSubType(int index);

    // The Qt name filters of a pipe-form filter: "SQL Files (*.sql)|*.sql;*.txt||" gives
    // "SQL Files (*.sql *.txt)". An entry without patterns takes those in its label's
    // parentheses, else "*"; "*.*" becomes "*"; an empty or unusable filter gives one entry
    // that shows every file.
    static QStringList ConvertFilter(const char* filter);

private:
    struct SubType {
        int fileTypeIndex;
        CString label;
    };

    void build(CWnd* parent, const char* filter);
    void applyFlags();
    void prepare();  // applies GetOFN() and the proposed name before the dialog runs
    int currentFileType() const;
    std::vector<CString> subTypesOf(int fileTypeIndex) const;
    // Refills the sub type choice with the list of a file type; without `force`, only when
    // it holds another type's list, so that a choice already made stays.
    void fillSubTypes(int fileTypeIndex, bool force);
    // Checks a chosen path against the flags; shows why it is refused.
    bool acceptable(const QString& path) const;
    QString chosenPath() const;
    bool takeChoice();
    void clearChoice();

    bool openMode_;
    CString defaultExtension_;
    CString proposedName_;
    OPENFILENAME ofn_;
    bool multiSubtype_ = false;
    int showIndex_ = 0;
    std::vector<SubType> subTypes_;

    QPointer<QFileDialog> dialog_;
    QPointer<QComboBox> fileTypeCombo_;  // the dialog's own file type choice, when found
    QPointer<QLineEdit> fileNameEdit_;   // the dialog's own file name box, when found
    QPointer<QComboBox> subTypeCombo_;
    QPointer<QLabel> subTypeLabel_;
    int filledFileType_ = -1;  // whose list the sub type combo holds now

    CString pathName_;
    CString fileName_;
    int subIndex_ = 0;
    int fileTypeIndex_ = 0;
};
