#pragma once
// CKTScinWnd: the editor window as the application knows it. It adds options read from the
// settings (and applied again whenever the host asks), the six user colours, a file path,
// clipboard reads, and the routing of the engine's notifications.
#include <vector>

#include "Accelerators.h"
#include "CScintillaWnd.h"

struct CCreateContext;

enum EM_ColorIndex {
    ColorText = 0,
    ColorNumber = 1,
    ColorString = 2,
    ColorKeyword = 3,
    ColorFunction = 4,
    ColorComment = 5,
};

class QUILLBOX_EXPORT CKTScinWnd : public CScintillaWnd {
public:
    CKTScinWnd();
    ~CKTScinWnd() override;

    // Makes the engine window (on failure offers the launcher and gives 0), then brings it
    // to a styled editor with the user's options. The creation context is not used.
    int Create(const char* name, DWORD style, const RECT& rect, CWnd* parent, UINT id) override;
    int Create(const char* name, DWORD style, const RECT& rect, CWnd* parent, UINT id, CCreateContext*) {
        return Create(name, style, rect, parent, id);
    }

    virtual bool Save(const char* path);
    // Loads a file into a freshly initialised window; the document stays as it was when the
    // file cannot be read.
    int LoadFile(CString path);
    int LoadFile(const char* path) override { return LoadFile(CString(path ? path : "")); }
    // Saves with the window's backup option.
    virtual int SaveFile(const char* path, int encoding);
    using CScintillaWnd::SaveFile;
    virtual void OnModified(bool modified);
    virtual void ApplyOptionOnRealtime();
    virtual void ApplyVisualOption();
    void SetColorFromReg(int editable);

    void SetFilePath(CString path);
    CString GetFilePath() const;
    void SetDefaultPath(CString path) { defaultPath = path; }
    CString GetFontName() const;
    int GetFontSize() const;
    void SetReadOnlyMode(int on);
    int SetTextForReadOnly(CString text, int keepUndo);
    void GoToPosFromWindowPoint(CPoint screenPoint);
    void GotoOffset(int delta);
    void EnsureVisible(CPoint place);  // place is (column, line)
    using CScintillaWnd::EnsureVisible;
    void GetSelectLocation(int& start, int& end);
    int GetFromClipboard(CString& text);
    int IsTextInClipboard();
    void SetKeyWordUsingPreCreate(bool on) { keyWordUsingPreCreate = on ? 1 : 0; }
    int GetLinesOnScreen();
    void DeleteSelection() { Clear(); }

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL IsAcceleratorKey(const MSG* msg) const override;

    // The system's window colour, the default background of an editable window.
    static COLORREF SystemWindowColour();

protected:
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();
    static bool IsKeyMessage(const MSG* msg);
    using CScintillaWnd::DoDropText;

    void setForegroundColor(EM_ColorIndex index, unsigned long colour);
    void refreshHScrollSize(int samples);
    void traceEntry(const char* where, int sourceLine) const;

    CString fileFolder;
    CString fileName;
    int debugLogLevel = 0;
    int fileBackup = 0;
    CString defaultPath;
    CString saveAsPath;
    HACCEL accelerators = nullptr;
};
