#pragma once
// CScintillaWnd: the base of the editor windows. The object and the engine window are one
// window: the object talks to the engine by sending itself messages (SendEditor), all text and
// caret state lives in the engine, and the object adds the steps that bring a fresh engine
// window to a styled, ready editor, plus the text operations hosts and subclasses use.
#include "CString.h"
#include "CWnd.h"
#include "EngineTypes.h"

class QuillEngine;

class QUILLBOX_EXPORT CScintillaWnd : public CWnd {
public:
    CScintillaWnd();
    ~CScintillaWnd() override;

    // Live editor objects in the process: each constructor adds one, each destructor takes one.
    static int m_nCntCreation;

    // Makes the engine library's window class available. Null `path` means the engine this
    // library is linked with; any other path goes to the platform's library loader, and a
    // failure is traced and shown in a message box, and gives null.
    static HINSTANCE LoadScintillaDll(const char* path);
    // The name traced for the default engine library.
    static constexpr const char* kDefaultEngineLibrary = "scilexer.dll";

    virtual int Create(const char* windowName, DWORD style, const RECT& rect, CWnd* parent, UINT id);
    int Destroy() { return 1; }

    // Putting text in.
    virtual int SetText(CString text, int keepUndo = 0);
    void InsertText(CPoint at, CString text);
    void AddText(CString text);
    void AppendText(CString text);
    void PasteText(CString text);
    void DropText(POINT* point, CString text);
    void ReplaceSelection(CString text, int unused = 0);
    int AppendTextWithLimit(CString text, int maxLines, int slack, bool scrollToEnd);

    // Clearing.
    void ClearContent();
    void Empty();
    int IsEmpty();
    void ClearLines(int firstLine, int lastLine);
    int DeleteLines(int firstLine, int lastLine);
    int DeleteSection(int start, int end);

    // Getting text out.
    virtual CString GetText();
    virtual void GetText(CString& out);
    CString GetText(CPoint from, CPoint to);
    CString GetLineChars(int line);
    void GetRange(int start, int end, char* out);
    char GetChar(int position);
    virtual CString GetSelectedText();
    CString GetSelectionText();
    int GetLineCount();
    int GetTextLength();
    int LengthDocument();
    int GetLineLength(int line, bool withLineEnd);

    // Selection.
    virtual long GetSelectionStart();
    virtual long GetSelectionEnd();
    Sci_CharacterRange GetSelection();
    void GetSelection(CPoint& from, CPoint& to);
    void SetSelection(int start, int end);
    void SetSelection(CPoint from, CPoint to);
    int IsSelection();
    Sci_CharacterRange SelectWordFromCurrentPos();

    // Undo and save point.
    void SetModified();
    int SetEmptyUndoCollection();
    int SetUndoCollection(int on);

    // Caret and engine commands the text operations rely on.
    virtual long GetCurrentPosition();
    virtual int GetCurrentLine();  // counts from 1
    virtual void Clear();

    void SetNoFocusOnSetText(int value) { noFocusOnSetText = value; }
    void SetKeyWordUsingPreCreate(int value) { keyWordUsingPreCreate = value; }
    QuillEngine* engine() const;

protected:
    virtual void initScintilla();
    virtual void UpdateUI();
    virtual void Refresh();
    virtual void SetLexer(int lexer);
    virtual int SetEncoding(int codePage);
    virtual long OnCheckCopy(WPARAM, LPARAM);
    void OnSetFocus(CWnd* oldWindow) override;
    void OnSize(UINT type, int cx, int cy) override;
    LRESULT OnDragNDrop(WPARAM wParam, LPARAM lParam);

    // Operations filled by the configuration, display, marks and folding layers; until then
    // they do nothing, so that initScintilla runs its whole sequence.
    virtual void ApplyProFile();
    virtual void SetKeywordStyle();
    virtual void SetFont(const char* name, int sizeTimesTen);
    virtual void SetDisplayFolding(int display);
    virtual void SetMarginWidth();
    virtual void HighLightingText();

    long SendEditor(long message, WPARAM wParam = 0, LPARAM lParam = 0);
    int sendStringToScin(int message, CString text);
    int sendEditorString(int message, WPARAM wParam, CString text);

    CString transformLineEnds(CString text, int eolMode);
    void HideSelection(int hide);
    CPoint CursorPosFromScin(int position);
    int StartScinPosInLine(int position);
    int PutToClipboard(CString text);

    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

    void trace(const char* text, int sourceLine) const;

    int keyWordUsingPreCreate = 1;
    int logLevel = 0;
    CString fontSetting;
    int bracesStyle = 0;
    int lexLanguage = 7;  // the SQL lexer
    CString wordCharacters = "_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    int autoCompleteIgnoreCase = 1;
    CString findText;
    int wholeWord = 0, matchCase = 0, regExp = 0, unescape = 0;
    int findInStyle = 0, findStyle = 0;
    int wrapSearch = 1;
    int haveFound = 0;
    CString replaceText;
    int indentMaintain = 0;
    int indentClosing = 0;
    int noFocusOnSetText = 0;
    int blankAfterComment = 0;
    bool errorMarkShown = false;
    int errorMarkStart = -1, errorMarkEnd = -1;
    int displayLinenumbers = 0;
    int displaySelection = 1;
    int displayFolding = 0;
    int searchFlags = 0;
    CString language = "sql";

private:
    bool islexerwordcharforsel(char ch) const;
    QuillEngine* engine_ = nullptr;
};
