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
    CString applyChangeCase(CString list) const;
    void cancelList();
    void setOption();
    void saveOption();
};
