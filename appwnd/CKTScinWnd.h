#pragma once
// CKTScinWnd: the editor window as the application knows it. It adds options read from the
// settings (and applied again whenever the host asks), the six user colours, a file path,
// clipboard reads, and the routing of the engine's notifications.
#include <memory>
#include <vector>

#include "Accelerators.h"
#include "CMenu.h"
#include "CScintillaWnd.h"

struct CCreateContext;
class TextAnnotations;
class CKTRegistry;

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
    virtual int Create(const char* name, DWORD style, const RECT& rect, CWnd* parent, UINT id, CCreateContext*) {
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
    // Adds (`set` non-zero) or removes `marker` on `line`, counted from 1; -1 is the caret's line.
    void SetLineFlag(int line, int marker, int set);
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

    // SQL formatting.
    // A keyword test of the formatter: 1 when the first `length` bytes of `word` are a word of
    // its list.
    using KeywordTestFunc = int (*)(const char* word, int length);
    // Formats the selection, or the whole text without one, with the format options read
    // fresh from the settings; one undo step. An empty input only beeps.
    void FormatSql();

    // Context menu and commands. The host picks the menu resource and the popup in it (-1
    // for none), and ids to take out: `hide` ids from the popup's top level only, `remove` ids
    // wherever they stand. Every opening works on a fresh copy of the resource.
    void SetPopupMenu(UINT menuId, UINT subIndex);
    void ShowPopupMenu(bool show) { showPopup = show; }
    void SetRemovePopupMenu(CUIntArray& ids);
    void SetHideMenuID(std::vector<int>& ids) { hideMenuIds = ids; }
    void SetCommandBar(CXTPCommandBars* bars) { commandBars = bars; }

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL IsAcceleratorKey(const MSG* msg) const override;

    // The system's window colour, the default background of an editable window.
    static COLORREF SystemWindowColour();

    // Annotations: the host shows `message` under the first line of [start, end) and the
    // range is underlined, until the host removes it or the user edits the text of the range.
    // An empty range takes the word at `start`. The id (above 0), or 0 when nothing can be
    // marked or the message is empty.
    int AddAnnotation(long start, long end, CString message);
    bool RemoveAnnotation(int id);  // false when the id is gone already
    void ClearAnnotations();
    int GetAnnotationCount() const;
    // The colour theme last read from the settings: 0 light, 1 dark.
    int GetColorTheme() const { return colourTheme; }

protected:
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();
    static bool IsKeyMessage(const MSG* msg);
    using CScintillaWnd::DoDropText;

    void setForegroundColor(EM_ColorIndex index, unsigned long colour);
    // The theme's colours of what surrounds the text; on a dark background the styles
    // outside the six groups are made readable on the background as it is.
    void applyThemeColours();

    // Editing comforts (EditingComforts.cpp): zoom, and Escape from several carets to one.
    static std::vector<MessageMapEntry> ComfortCommandEntries();
    // The command of a comfort key that this window handles, or 0.
    UINT comfortCommand(const MSG* msg) const;
    // Escape while there are several carets (and no list or tip that Escape closes).
    bool isEscapeToOneCaret(const MSG* msg) const;
    void returnToOneCaret();
    void OnZoomIn();
    void OnZoomOut();
    void OnZoomReset();
    // Writes the engine's zoom to the settings when it differs from what is stored.
    void storeZoom();
    // Reads zoom, multiple selection and the colour theme; a change back from the dark theme
    // sets the window up afresh first.
    void applyComfortOptions(const CKTRegistry& setting);
    void refreshHScrollSize(int samples);
    // The property file's configuration again, then the user's options over it.
    void reconfigure();
    void traceEntry(const char* where, int sourceLine) const;

    // SQL formatting (protected).
    void OnFormatSql();
    void OnUpdateFormatSql(CCmdUI* ui);  // enabled while the document holds any text
    // Reads "Keyword Align", "Comma in List", "Keyword Case" and "Multiline" when the settings
    // key opens; otherwise the options stay as they are.
    void refreshOptionFormatSQL();
    // The keyword tests handed to the formatter: reserved words, and function names.
    static int isSQLKeyword(const char* word, int length);
    static int isSQLKeyword2(const char* word, int length);
    KeywordTestFunc getIsKeywordFunc() const { return isKeywordFunc; }
    KeywordTestFunc getIsListKeywordFunc() const { return isListKeywordFunc; }

    // Context menu and commands (protected).
    void OnContextMenu(CWnd* window, CPoint screenPoint);
    // Runs the update handlers of the popup's items before it shows, as a frame would.
    virtual void OnInitMenuPopup(CMenu* popup, UINT index, BOOL isSystem);
    static std::vector<MessageMapEntry> MenuCommandEntries();
    void OnFind();
    void OnEditRepeat();
    void OnEditFindPrevious();
    void OnEditTab();
    void OnEditUnTab();
    // Moves the indentation of every line the selection touches by `columns`, never below 0,
    // as one undo step.
    void shiftSelectedLines(int columns);
    void OnEditAutoComplete();
    void OnEditMatchBrace();
    void OnEditMatchBreaceExtend();
    void OnEditToggleBookMark();
    void OnEditGotoNextBookMark();
    void OnEditGotoPrevBookMark();
    void OnClearAllBookmarks();
    void OnPrint();
    // Exports the text to a file the user picks; the document's own path does not change.
    void OnFileSaveAsInternal();
    void OnUpdateEditCopy(CCmdUI* ui);
    void OnUpdateEditCut(CCmdUI* ui);
    void OnUpdateEditPaste(CCmdUI* ui);
    void OnUpdateEditUndo(CCmdUI* ui);
    void OnUpdateEditRedo(CCmdUI* ui);
    void OnUpdateEditClearContent(CCmdUI* ui);  // also Save As: both need text
    void OnUpdateFileSaveAsInternal(CCmdUI* ui) { OnUpdateEditClearContent(ui); }
    void OnUpdateIndicatorOvr(CCmdUI* ui);
    void OnUpdateIndicatorRows(CCmdUI* ui);

    CString fileFolder;
    CString fileName;
    int debugLogLevel = 0;
    int fileBackup = 0;
    CString defaultPath;
    CString saveAsPath;
    HACCEL accelerators = nullptr;
    HACCEL comfortAccelerators = nullptr;
    int colourTheme = 0;
    std::unique_ptr<TextAnnotations> annotations;

    // Format options.
    KeywordTestFunc isKeywordFunc = &CKTScinWnd::isSQLKeyword;
    KeywordTestFunc isListKeywordFunc = &CKTScinWnd::isSQLKeyword2;
    bool keywordAlign = true;
    bool commaInList = false;
    int keywordCase = 0;  // 0 keep, 1 upper, 2 lower, 3 capitalised (see CSQLFormatter)
    bool multiline = false;
    bool formatFlag = true;

    // Context menu state.
    bool showPopup = true;
    UINT popupMenuId = 8206;
    UINT popupSubIndex = 0;
    std::vector<int> hideMenuIds;
    CUIntArray removeMenuIds;
    CXTPCommandBars* commandBars = nullptr;
};
