#pragma once
// CNamekitMgr: the completion manager the SQL window asks for the database objects that fit
// the name at the caret. A request returns at once; the answer comes later as the window
// message WM_NAMEKIT_ANSWER, whose lParam points to a NamekitAnswer owned by the manager and
// valid only while the message is handled (the window copies what it needs).
#include "CString.h"
#include "CWnd.h"
#include "QuillboxExport.h"
#include "WinTypes.h"


// The message that carries an answer to the asking window: wParam 0, lParam a NamekitAnswer*.
constexpr UINT WM_NAMEKIT_ANSWER = 0x043A;

struct NamekitAnswer {
    CString requestName;    // the name as it was asked
    CString requestNameEx;  // the full dotted name the answer is for; the window matches it
                            // exactly against the name at the caret, so it is never rewritten
    CStringArray items;     // the objects found (the first page)
    CStringArray nameParts; // the parts of the dotted name as typed, quotes included; the
                            // length of the last one is the number of bytes already typed
};

class QUILLBOX_EXPORT CNamekitMgr {
public:
    virtual ~CNamekitMgr();

    // Starts a lookup for `name` (dotted or not) on behalf of `window`; `query` is the
    // statement around the caret, used to resolve aliases, and may be empty. Returns at once:
    // true when a request was started, false when there is nothing to ask for.
    virtual bool GetObjectList(CWnd* window, CString name, CString query) = 0;
    // Fills `items` with the next page of the last answer delivered; false when none remains.
    virtual bool ShowMore(CStringArray& items) = 0;
    // Reads the database's catalog again.
    virtual bool Refresh() = 0;
};

// What an SQL window sends the application's main window to get the completion manager:
// wParam 9, lParam 0; the result is the CNamekitMgr*, or 0 when there is none.
constexpr UINT WM_ASK_NAMEKIT = 0x07EC;

// A main window that hands its SQL windows a completion manager. A host whose main window is
// a plain Qt widget attaches one of these to it (Attach) and sets the manager.
class QUILLBOX_EXPORT CNamekitMainWnd : public CWnd {
public:
    void SetNamekitMgr(CNamekitMgr* manager) { manager_ = manager; }
    CNamekitMgr* GetNamekitMgr() const { return manager_; }

protected:
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

private:
    CNamekitMgr* manager_ = nullptr;
};
