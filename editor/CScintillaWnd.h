#pragma once
// CScintillaWnd: the base of the editor windows. The object and the engine window are one
// window: the object talks to the engine by sending itself messages (SendEditor), all text and
// caret state lives in the engine, and the object adds the steps that bring a fresh engine
// window to a styled, ready editor, plus the text operations hosts and subclasses use.
#include <memory>
#include <string>

#include "CDC.h"
#include "CString.h"
#include "CWnd.h"
#include "EngineTypes.h"
#include "Indicators.h"
#include "OleData.h"
#include "PropSetFile.h"
#include "SString.h"
#include "StyleDefinition.h"

class CEditReplaceDlg;
class CFindTextDlg;
class CGotoDlg;
class QuillEngine;

// A lexer style and words in it: how block words reach automatic indentation. The words are
// blank-separated, or a punctuation character to look for; empty means not configured.
struct StyleAndWords {
    int style = 0;
    SString words;
};

// The block role of a line for automatic indentation.
enum IndentationStatus {
    IndentNone = 0,          // says nothing about blocks
    IndentBlockStart = 1,    // opens a block
    IndentBlockEnd = 2,      // closes a block
    IndentKeywordStart = 3,  // a statement keyword that indents only the next line
};

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

    // Marks: engine markers in the margin (0 bookmark, 1 breakpoint, 2 the host's). Lines
    // count from 1; -1 is the caret's line for the members that take a marker.
    virtual void AddBookmark(long line);
    virtual void DeleteBookmark(long line);
    virtual int HasBookmark(long line);
    // To the next marked line below (above) the caret's, without wrapping.
    virtual void FindNextBookmark();
    virtual void FindPreviousBookmark();
    void AddBreakPoint(long line);
    void AddMark(int marker, int line);
    int HasMark(int marker, int line);
    void DeleteMark(int marker, int line);
    void DeleteAllMark(int marker);
    void ToggleMark(int marker, int line);
    // As the bookmark searches, wrapping round the document.
    void FindNextMark(int marker);
    void FindPreviousMark(int marker);
    // The error mark: while the selection keeps one of its ends, no word highlight shows.
    void SetErrorMark(bool on, long start, long end);
    // Selects the word at (offset x, line y counted from 0) and holds it as the error mark.
    void SelectErrorMark(CPoint where);

    // Find and replace, driven by the window's find state (findText, matchCase, ...).
    // Find and Replace show their modeless dialog, made on first use and kept until the
    // window goes; FindNext gives the match's position or -1; PlayReplace and
    // ReplaceAll(bool) are the replace dialog's buttons and tell the user what happened.
    void Find();
    int FindNext(bool reverse, bool showWarnings);
    void Replace();
    bool PlayReplace();
    // The count of replacements; -1 for an empty find text, -2 for an empty selection.
    int ReplaceAll(bool inSelection);
    // The fourth argument has no effect.
    void SetFindFlag(int wholeWord, int matchCase, int regExp, int unused, int wrap);
    CFindTextDlg* GetFindDialog() const { return findDialog.get(); }
    CEditReplaceDlg* GetReplaceDialog() const { return replaceDialog.get(); }
    // The direct family: texts as arguments, the engine's SCFIND_ bits from SetSearchflags,
    // no messages to the user.
    virtual void SetSearchflags(int flags);
    virtual int ReplaceAll(char const* find, char const* replace, int inSelection);
    virtual void ReplaceSearchedText(CString text);
    // The dialogs write the find state before each operation.
    friend class CFindDialogBase;
    friend class CFindTextDlg;
    friend class CEditReplaceDlg;

    // Automatic indentation, word completion and brace matching.

    // Printing and preview.
    // Prints the document, or the selection when the dialog says so, with the header and
    // footer of the property file. True shows the print dialog; false prints at once on the
    // default printer. A cancelled dialog prints nothing and says nothing.
    void Print(bool showDialog);
    // The same pass on the caller's `dc` (all pages; the selection when there is one). The DC
    // is deleted at the end (CDC::DeleteDC) and is not to be drawn on again. `info` is unused.
    long PrintPreview(CDC* dc, CPrintInfo* info);
    // Draws [start, end) of the document into `rect` of `dc` without header or footer; the
    // caller starts and ends the page. Returns where the next page would begin.
    long PrintPage(CDC* dc, CPrintInfo* info, long start, long end, CRect rect);
    // Sets the template keys of the date, the time and the (empty) file keys in `target`.
    void SetFileProperties(PropSet& target);

    void SetNoFocusOnSetText(int value) { noFocusOnSetText = value; }
    void SetKeyWordUsingPreCreate(int value) { keyWordUsingPreCreate = value; }
    QuillEngine* engine() const;
    // The folder the property file "SciTEGlobal.properties" is read from: "properties"
    // beside the running program.
    static CString PropertiesFolder();

protected:
    // Indicators drawn over the text: every visible occurrence of the selected word, and the
    // match Find Next selected, which stands out from those occurrences while it stays selected.
    static constexpr int kWordHighlightIndicator = indicator::WordHighlight;
    static constexpr int kCurrentMatchIndicator = indicator::CurrentMatch;
    // The legacy code page "ANSI" means for this window's files (949, 932, 936 or 950).
    int GetAnsiCodePage() const { return ansiCodePage; }
    // The go-to-line dialog once GotoLine() made it.
    CGotoDlg* GetGotoDialog() const { return gotoDialog.get(); }
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

    // Marks and the word highlight.
    void DefineMarker(int marker, int symbol, unsigned long fore, unsigned long back);
    // Lights every visible occurrence of the selected word, when a whole word is selected.
    virtual void HighLightingText();
    // Lights the matches of `text` between `start` and `end` with the highlight indicator.
    void MarkAll(char* text, int start, int end);
    bool isQualifiedWord(CString text);  // no separator in it
    bool isWordChar(CString text);       // its first byte is no separator
    void clearIndicator(int indicator);
    void RemoveFindMarks();
    // Lights [start, end) as the current match of Find Next; followCurrentMatch takes the
    // light away once the selection is no longer that match.
    void markCurrentMatch(long start, long end);
    void followCurrentMatch();
    int markLine(int line);  // -1 becomes the caret's line
    void goToMark(int marker, bool forward, bool wrap);

    // Find and replace (protected).
    // 1 when found (the match selected), else 0; no wrap-around.
    virtual int SearchForward(CString text);
    virtual int SearchBackward(CString text);
    // Takes the selection, or the word at the caret, into findText; a text that is empty or
    // starts with a line end leaves findText alone. The argument has no effect.
    void selectionIntoFind(bool unused);
    // One search of the engine's target from start to end (backward when start > end) under
    // the search flags as they stand; the match's position or -1.
    int FindInTarget(char const* text, int length, int start, int end);
    // Colours the document up to `position` where it is not coloured yet. Colouring otherwise
    // follows the view in slices of idle time, so code that reads styles elsewhere asks first.
    void ensureStyledTo(long position);
    // Replaces the confirmed match, then finds the next.
    void ReplaceOnce();
    // The replacing loop of ReplaceAll(bool), one undo step, without messages.
    int DoReplaceAll(bool inSelection);
    // Clears regExp when findText holds a line end or tab escape, which the engine's
    // expressions do not know; the text is then decoded and searched as plain text.
    void backSlashExprCheck();
    // Decodes `text` in place as unescape and regExp ask; the length to search with, which
    // stops at a decoded zero byte.
    int UnescapeAsNeeded(SString& text);
    // The flag word of the dialog family; SCFIND_POSIX from the property file when asked.
    int dialogSearchFlags(bool withPosix);
    // Puts the find state at the top of the replace dialog's two history combos.
    void fillReplaceHistory();

    // Automatic indentation, word completion and brace matching (protected).
    // Indentation follows "indent.automatic": a new line takes the indentation of the block it
    // is in, judged from the lexer's styles and the block words ("block.end").
    void MaintainIndentation(char ch);
    void AutomaticIndentation(char ch);
    // The indentation the line after `line` should have; 0 for a negative line.
    int IndentOfBlock(int line);
    IndentationStatus GetIndentState(int line);
    // A property value "style words" for `key` or `key` followed by a pattern matching SQL.
    StyleAndWords GetStyleAndWords(const char* key);
    // Fills up to `count` of `parts` with the line's runs of text in style1 or style2, in
    // line order, and empties the rest; returns the number filled.
    unsigned int GetLinePartsInStyle(int line, int style1, int style2, SString* const parts, int count);
    // True when [start, end) holds only blanks and tabs; an empty or reversed range is true.
    bool RangeIsAllWhitespace(int start, int end);
    // Sets a line's indentation (negative does nothing) and keeps the selection on the same
    // text; fromLineStart counts a caret at the line's start as behind the indentation.
    void SetLineIndentation(int line, int indent, bool fromLineStart);
    // The same for the Tab and Untab commands: a caret keeps its place in the line's text.
    void SetLineIndentationForFileEditor(int line, int indent);
    int GetLineIndentation(int line);
    int GetCurrentLineNumber();
    // The indentation unit: the engine's indentation size, or its tab width when none is set.
    int indentUnit();

    // Offers the document's words that begin like the word before the caret; true if a list
    // shows. The argument has no effect.
    bool StartAutoCompleteWord(int);
    bool FloatingCompleteWordWnd(char* list, int length);
    // A byte that ends a word for completion.
    static bool IsCompleteWord(char ch);
    // Text of a line with its line end; a negative line means the caret's line.
    SString GetLine(int line);
    // Bytes from the start of the caret's line to the caret.
    int GetCaretInLine();
    // Jumps to the brace that pairs with the one next to the caret; with select, selects
    // between the two.
    void GoMatchingBrace(bool select);
    static bool IsBrace(char ch);
    // Finds a brace next to the caret (before it; with sloppy, else after it) and its partner;
    // true when the caret stands inside the pair. Positions are -1 when not found.
    bool FindMatchingBracePosition(bool editor, int& braceAtCaret, int& braceOpposite, bool sloppy);

    // The selection as text, or the word round an empty selection; stripEol drops one line
    // end from the end of the text.
    SString SelectionWord(bool stripEol);
    SString SelectionExtend(bool (CScintillaWnd::*isWordChar)(char) const, bool stripEol);
    SString RangeExtendAndGrab(int start, int end, bool (CScintillaWnd::*isWordChar)(char) const, bool stripEol);

    // Printing and preview (protected).
    // One print pass on `dc`: pages from 1, those outside [firstPage, lastPage] measured but
    // not drawn when `pageRange`; the DC is deleted at the end. A document that cannot be
    // started ends the pass when `endWhenNotStarted`. Returns the engine's final answer.
    long printPass(CDC& dc, bool selectionOnly, bool pageRange, int firstPage, int lastPage, bool endWhenNotStarted);

    long SendEditor(long message, WPARAM wParam = 0, LPARAM lParam = 0);
    int sendStringToScin(int message, CString text);
    int sendEditorString(int message, WPARAM wParam, CString text);

    CString transformLineEnds(CString text, int eolMode);
    bool makeBackupFile(CString path);
    // Writes the text to `path` with CR LF line ends (SaveFile's encoding and backup rules)
    // and leaves the document as it is; false, with the reason in lastFileError, on failure.
    bool writeDocument(const char* path, int encoding, bool backup);
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
    long currentMatchStart = -1, currentMatchEnd = -1;
    int displayLinenumbers = 0;
    int displaySelection = 1;
    int displayFolding = 0;
    int searchFlags = 0;
    CString language = "sql";
    int ansiCodePage = 949;
    std::unique_ptr<CGotoDlg> gotoDialog;
    CString lastFileError;
    // The line ends a save writes: CR LF, or with keepLineEnds those of the file last loaded.
    int fileEolMode = SC_EOL_CRLF;
    bool keepLineEnds = false;
    int savedEolMode() const { return keepLineEnds ? fileEolMode : int(SC_EOL_CRLF); }

    // Find and replace state beyond the find fields above.
    std::unique_ptr<CFindTextDlg> findDialog;
    std::unique_ptr<CEditReplaceDlg> replaceDialog;

    // Indentation and completion state.
    StyleAndWords statementIndent, blockEnd, blockStart;
    int indentOpening = 0;      // non-zero: an opening word stands at the inner indentation
    int statementLookback = 0;  // lines before a line that IndentOfBlock may look at

    // Printer state.
    // The printer setup from one print dialog to the next.
    std::unique_ptr<DEVMODE> printDevMode;
    std::unique_ptr<DEVNAMES> printDevNames;

private:
    // The bytes of a range as they are; the name is kept from code-page days.
    SString GetRangeInUIEncoding(int start, int end);
    bool islexerwordcharforsel(char ch) const;
    QuillEngine* engine_ = nullptr;
};
