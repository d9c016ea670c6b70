#pragma once
// CScintillaWnd: the base of the editor windows. The object and the engine window are one
// window: the object talks to the engine by sending itself messages (SendEditor), all text and
// caret state lives in the engine, and the object adds the steps that bring a fresh engine
// window to a styled, ready editor, plus the text operations hosts and subclasses use.
#include <memory>
#include <string>

#include "CString.h"
#include "CWnd.h"
#include "EngineTypes.h"
#include "OleData.h"
#include "PropSetFile.h"
#include "SString.h"
#include "StyleDefinition.h"

class CGotoDlg;
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

    // Files. The document is read and written through the text file classes, which detect
    // and convert encodings; a failure changes neither the document nor the file on disk
    // (but the backup, which is made by moving the old file first). `encoding` 0..4 is a
    // TEXTENCODING, anything else lets the file on disk decide.
    virtual int LoadFile(const char* path);
    virtual int SaveFile(const char* path);
    virtual int SaveFile(const char* path, int encoding, bool backup);
    // Why the last LoadFile or SaveFile failed, for the user; empty after a success.
    CString GetLastFileError() const { return lastFileError; }

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

    // Fonts and colours, per style.
    void SetFont(CString name, unsigned long heightTenths);
    virtual void SetFontname(int style, CString name);
    virtual void SetFontheight(int style, int height);
    virtual void SetBold(int style, int on);
    virtual void SetItalic(int style, int on);
    virtual void SetUnderline(int style, int on);
    virtual void SetBackgroundColor(unsigned long colour);
    virtual unsigned long GetBackgroundColor();

    // Margins: 0 line numbers, 1 selection and marks, 2 fold symbols.
    virtual int GetLinenumberChars();
    virtual int GetLinenumberWidth();
    virtual void SetDisplayLinenumbers(int on);
    int SetMarginWidth();
    virtual void SetDisplaySelection(int on);
    virtual void SetDisplayFolding(int on);
    int GetDisplayLinenumbers() const { return displayLinenumbers; }
    int GetDisplaySelection() const { return displaySelection; }
    int GetDisplayFolding() const { return displayFolding; }
    virtual int GetCurrentFoldinglevel();
    virtual void DoDefaultFolding(int margin, long position);

    // Tabs, wrapping, editing state.
    void SetTabSize(int size);
    int GetTabSize();
    void SetInsertTabs(int on);
    void SetWordWrapping(int on);
    int GetWordWrapping();
    void SetEditable(int on);
    int QueryEditable();
    int IsModified();
    void ResetUndo();
    void UndoAction(int begin);
    virtual int GetOverstrike();
    virtual void SetOverstrike(int on);
    void ConvertEndOfLine(unsigned int mode);
    void SetHScrollBar(int);
    void SetFocusEnable(int);

    // Caret and position. GetCurrentLine, GetCurrentColumn and GotoLine(int) count from 1.
    void GotoLine(int line);
    // Shows the go-to-line dialog, made on first use and kept until the window goes.
    void GotoLine();
    CGotoDlg* GetGotoDialog() const { return gotoDialog.get(); }
    void GotoLineEnsureVisible(int line);
    virtual void GotoPosition(long position);
    virtual int GetCurrentLine();
    virtual long GetCurrentColumn();
    virtual long GetCurrentPosition();
    virtual long SetCurrentPosition(int position);
    int GetPositionFromSelectionLine();
    int GetPositionFromLine(int line);
    int GetEndPositionFromLine(int line);
    int GetLineIndentPosition(int line);
    CPoint GetCursorPos();
    void SetCursorPos(CPoint place);
    void SetAnchor(CPoint place);
    CPoint ClientToText(CPoint client);
    void EnsureVisible();
    void UpdateCaret();
    void EnsureRangeVisible(int position1, int position2, bool enforcePolicy);
    int GetFirstVisibleLine();
    void SetLineScroll(int line, int column);
    int SetXOffSet(int offset);
    virtual int GetCurrentStyle();
    int GetLineFlags(int line);
    int GetLineWithFlag(int marker);

    // Clipboard and undo.
    virtual void Cut();
    virtual void Copy();
    virtual void Paste();
    virtual void Clear();
    virtual void SelectAll();
    virtual void Undo();
    virtual void Redo();
    virtual int CanUndo();
    virtual int CanRedo();
    virtual int CanPaste();
    void DeleteChar() { Clear(); }
    void DelWordLeft() { DelCtrlBack(); }

    void SetNoFocusOnSetText(int value) { noFocusOnSetText = value; }
    void SetKeyWordUsingPreCreate(int value) { keyWordUsingPreCreate = value; }
    QuillEngine* engine() const;
    // The folder the property file "SciTEGlobal.properties" is read from: "properties"
    // beside the running program.
    static CString PropertiesFolder();
    // The legacy code page "ANSI" means for this window's files (949, 932, 936 or 950).
    int GetAnsiCodePage() const { return ansiCodePage; }

protected:
    virtual void initScintilla();
    // Gives the window a document with style bytes (`styled`) or without, as its lexer needs.
    void matchDocumentStyling(bool styled);
    virtual void UpdateUI();
    virtual void Refresh();
    virtual void SetLexer(int lexer);
    // The engine's document is always UTF-8 (the only encoding the engine shows and accepts).
    // A legacy code page given here becomes what "ANSI" means for files the window reads and
    // writes; SC_CP_UTF8 goes to the engine. Returns the code page now in force for that role.
    virtual int SetEncoding(int codePage);
    // A typed character, after the engine inserted it; automatic indentation works here.
    virtual void CharAdded(char ch);
    virtual long OnCheckCopy(WPARAM, LPARAM);
    void OnSetFocus(CWnd* oldWindow) override;
    void OnSize(UINT type, int cx, int cy) override;
    // A drop message: wParam points to a DropRecord; the result is DoDropText's.
    LRESULT OnDragNDrop(WPARAM wParam, LPARAM lParam);
    // Inserts the text of a drop in the private format "Tessel_OLEFormat" where the mouse is,
    // as one undo step; 1 when the data held text in that format, else 0.
    virtual int DoDropText(COleDataObject* data, const CPoint& point);

    // A line's fold level changed; keeps lines visible when a contracted fold goes away.
    void FoldChanged(int line, int levelNow, int levelPrev);
    // Shows or hides the lines subordinate to the fold point at `line`, moving `line` past them.
    void Expand(int& line, bool doExpand, bool force, int visLevels, int level);

    // One-message key commands.
    void DelWordRight();
    void DeleteBack();
    void DelCtrlBack();
    void DelLineLeft();
    void DelLineRight();
    void Left();
    void Right();
    void LeftWord();
    void RightWord();
    void Up();
    void Down();
    void UpScroll();
    void DownScroll();
    void PageUp();
    void PageDown();
    void LineEnd();
    void LineHead();
    void PageHead();
    void PageEnd();
    void Tab();
    void BackTab();
    void LowerCase();
    void UpperCase();
    void Capitalize();
    void Sentencize();
    void Invertcase();

    // Language configuration: the property file "SciTEGlobal.properties" in the folder
    // "properties" beside the program, read afresh at every initScintilla.
    void ApplyProFile();
    void ReadGlobalPropFile();
    void ForwardPropertyToEditor(const char* key);
    void ReadProperties();
    void ReadFontProperties();
    void SetStyleFor(const char* language);
    void SetOneStyle(int style, const StyleDefinition& definition);
    void SetKeywordStyle();
    void RegisterKeyword();
    void SetSCILanguage(CString language);

    // Comment commands: `comment` non-zero puts the line marker on every selected line, zero
    // takes it off; the box wraps the lines in start, middle and end marks. Markers come from
    // the property file; with none, nothing changes. Each is one undo step; both return 1.
    int StartBlockComment(int comment);
    int StartBoxComment();
    CString commentProperty(const char* keyPrefix);
    std::string bytesAt(long position, long length);
    void restoreCommentSelection(bool moveCaret, long start, long end);

    // Filled by the marks layer; until then it does nothing.
    virtual void HighLightingText();

    long SendEditor(long message, WPARAM wParam = 0, LPARAM lParam = 0);
    int sendStringToScin(int message, CString text);
    int sendEditorString(int message, WPARAM wParam, CString text);

    CString transformLineEnds(CString text, int eolMode);
    bool makeBackupFile(CString path);
    virtual int GetFormatFromExtension(const char* extension);
    // Reads a whole file as the document's text with CR LF line ends; false (and the reason in
    // lastFileError) when it cannot be opened or decoded.
    bool readFileText(const char* path, CString& text);
    void HideSelection(int hide);
    CPoint CursorPosFromScin(int position);
    int StartScinPosInLine(int position);
    int PutToClipboard(CString text);

    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

    void trace(const char* text, int sourceLine) const;

    int keyWordUsingPreCreate = 1;
    PropSetFile props;
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
    int ansiCodePage = 949;
    std::unique_ptr<CGotoDlg> gotoDialog;
    CString lastFileError;

private:
    // The bytes of a range as they are; the name is kept from code-page days.
    SString GetRangeInUIEncoding(int start, int end);
    bool islexerwordcharforsel(char ch) const;
    QuillEngine* engine_ = nullptr;
};
