#pragma once
// CKTSQLEditWnd: the window in which the user writes SQL. It adds the SQL tool's keys (comment,
// uncomment, copy as code, paste from code, format), the remembered code language, the
// encoding of the script's file, saving through the file dialog, and a direct line to the
// engine for completion lists.
#include <cstdint>

#include "CKTScinWnd.h"
#include "CodeLanguages.h"

// The encoding of the SQL window's file: -1 undecided (the file on disk decides), 0 ANSI,
// 1 Unicode (UTF-8).
enum EM_TesselEncoding { EncodingUndecided = -1, EncodingAnsi = 0, EncodingUnicode = 1 };

class QUILLBOX_EXPORT CKTSQLEditWnd : public CKTScinWnd {
public:
    // The engine's direct call: the library's own link, so its extension messages apply.
    using DirectFunction = long (*)(void* pointer, unsigned int message, std::uintptr_t wParam, std::intptr_t lParam);

    static constexpr UINT kInsertTextMessage = 0xA475;

    CKTSQLEditWnd();
    ~CKTSQLEditWnd() override;

    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL IsAcceleratorKey(const MSG* msg) const override;
    void ApplyOptionOnRealtime() override;
    bool Save(const char* startFolder) override;

    EM_TesselEncoding GetEncoding() const { return encoding; }
    void SetEncoding(EM_TesselEncoding value) { encoding = value; }
    using CKTScinWnd::SetEncoding;
    void GotoPosition(int position, bool selectWord);
    using CKTScinWnd::GotoPosition;
    EM_LangCode GetScriptLangCode() const { return scriptLangCode; }
    int GetChangeCase() const { return changeCase; }
    // Takes the engine's direct line again and sets the list separator "|".
    void SetAutoCompletionEnv();

    // Copy as code: the selection (or, called directly, the whole script) goes to the
    // clipboard as source code of the selected code language.
    void OnMakeCode();
    void OnUpdateMakeCode(CCmdUI* ui);
    // Paste from code: source code on the clipboard replaces the selection as SQL, in one
    // undo step.
    void OnStripCode();
    void OnUpdateStripCode(CCmdUI* ui);
    // The language commands of the copy and paste menus choose and remember a language.
    void OnCopyTo(UINT commandId);
    void OnUpdateCopyTo(UINT commandId, CCmdUI* ui);
    // Chooses the code language by its stored name ("Java", "C#", ...); false for none.
    bool SelectCodeLanguage(const char* storedName);

    // Object completion: a typed name character asks the completion manager (which the
    // application's main window hands out for message 0x07EC, wParam 9) for the objects that
    // fit, with the statement around the caret when the name is qualified; the answer comes
    // later as message 0x043A and shows as a list unless it no longer fits.
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    // The statement around the caret, found within 500 lines.
    CString GetCurrentQuery();
    // The name at the caret: the selection if there is one, else the name bytes before it.
    CString getObjectAtCaret();

    // Host hook, Ctrl+Enter (command 8213): sends the parent WM_NOTIFY with an SCNotification
    // of code SCN_RUNSTATEMENT_EXT. Its position and length are the statement's range in the
    // document (GetCurrentQueryRange), its text is GetCurrentQuery(), valid during the call.
    // Nothing is typed into the script.
    void OnRunStatement();
    // Where the statement at the caret lies, from its first to its last byte that is not white
    // space; an empty range at the caret when there is no statement.
    Sci_CharacterRange GetCurrentQueryRange();

    static constexpr UINT kAskCompletionManager = 0x07EC;
    static constexpr UINT kCompletionAnswer = 0x043A;

    // Bind variables in a piece of SQL; literals and comments are passed over, and nothing
    // before the starting index is known. findBindPosition: 1 when a named bind (":name",
    // "&name", ":rec.field", ...) starts at or after `start`, which becomes the marker's index,
    // with `end` the index behind the name. findBindReplacePosition: 1 when a '?' placeholder
    // stands at or after `position`, which becomes its index. On 0 the indexes stay as they were.
    static int findBindPosition(CString text, int& start, int& end);
    static int findBindReplacePosition(CString text, int& position);

protected:
    int OnCreate();
    void OnEditComment() { StartBlockComment(1); }
    void OnEditUncomment() { StartBlockComment(0); }
    LRESULT OnInsertText(WPARAM wParam, LPARAM lParam);
    LRESULT OnGetData(WPARAM wParam, LPARAM lParam);
    // 1 when the byte at `index` of `line` can be part of a name.
    int isTableWord(CString line, int index);
    int DoDropText(COleDataObject* data, const CPoint& point) override;
    virtual int DoDropAnother(COleDataObject* data, const CPoint& point);
    void setScriptLangCode(EM_LangCode code);

    // The copy routines behind OnMakeCode, for windows that add languages of their own: each
    // puts the selection (the whole script without one) on the clipboard as a string literal
    // built from the given parts, and leaves the clipboard alone when there is nothing to copy.
    // copyToLanguageCode: `assign` "=", aligned; copyToLanguageCodeEx: no wraps; Ex2 is the
    // general template. copyToPerlCode numbers the binds ":1", ":2", ...; copyToJavaCode builds
    // "<builderType> <variable> = new <builderType>();" and one append per line, binds as "?".
    void copyToLanguageCode(CString variable, CString quote, CString escape, CString continuation,
                            CString lineTail, CString terminator);
    void copyToLanguageCodeEx(CString variable, CString quote, CString escape, CString continuation,
                              CString lineTail, CString terminator, CString assign, bool alignToVariable);
    void copyToLanguageCodeEx2(CString variable, CString quote, CString openWrap, CString closeWrap, CString escape,
                               CString continuation, CString lineTail, CString terminator, CString assign,
                               bool alignToVariable);
    void copyToPerlCode(CString variable, CString quote, CString escape, CString continuation, CString lineTail,
                        CString terminator);
    void copyToJavaCode(CString variable, CString builderType, CString appendMethod);

    // The paste routines behind OnStripCode: source code becomes SQL that replaces the
    // selection, in one undo step. pasteFromLanguageCode reads `text`, or the clipboard when
    // `text` is empty, and undoes `escape` before each quote; pasteFromCCode reads C strings
    // (continued by backslashes too); pasteFromJavaCode also turns each '?' into ":Bind1",
    // ":Bind2", ... A clipboard without text changes nothing.
    void pasteFromLanguageCode(char escape, CString text);
    void pasteFromCCode();
    void pasteFromJavaCode();

    // The pieces of GetCurrentQuery. GetSingleQuery scans `text` forward or backward for a
    // statement boundary (';', "begin", "for", "loop", or "is"/"as" paired with "select"); at
    // one it cuts `text` to the caret's side and returns false, else leaves it and returns
    // true. InitToken is a word's normal form: lower case, without clinging parentheses.
    static bool GetSingleQuery(CString& text, bool& armed, bool forward);
    static CString InitToken(CString word);
    // The code part of `line` (line `lineNo`) seen from `column`: empty when the column lies in
    // one of the block comments of `ranges` ("first,last" lines), else `line` cut at the first
    // "--" at or after `column`. Nothing in the library calls it; derived windows may.
    CString CheckComment(CString line, CStringArray& ranges, int lineNo, int column);

    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

    EM_TesselEncoding encoding = EncodingUndecided;
    EM_LangCode scriptLangCode = LangVb;
    HACCEL sqlAccelerators = nullptr;
    DirectFunction directFunction = nullptr;
    void* directPointer = nullptr;
    int changeCase = 0;  // case of completion lists: 1 upper, 2 lower, else as they come

private:
    class CNamekitMgr* completionManager();
    CString codeSource();                      // the selection, or the whole script without one
    void putCode(const CString& code);         // on the clipboard unless empty
    void pasteSql(const CString& sql);         // replaces the selection as one undo step
    CString applyChangeCase(CString list) const;
    void cancelList();
    void setOption();
    void saveOption();
};
