#pragma once
// CKTScinReadWnd: a read-only viewer for output the host pours in. The user can read, search,
// select, copy and save it, but not change it: every operation that changes the text lifts
// the engine's read-only state for exactly the length of the call. There is no undo history,
// and the horizontal scroll range follows the longest line.
#include "CKTScinWnd.h"

class QUILLBOX_EXPORT CKTScinReadWnd : public CKTScinWnd {
public:
    // The child window id a viewer is created with.
    static constexpr UINT kChildId = 2035;
    // The background the viewer shows while it builds itself, before the user's colour.
    static constexpr COLORREF kBuildBackground = 0xC3C3C3;

    CKTScinReadWnd();
    ~CKTScinReadWnd() override;

    // Makes the viewer as a visible child of `parent`; `keywords` non-zero colours SQL.
    // Non-zero on success; on failure the failure dialog has been shown.
    virtual int Create(CString name, CRect& rect, CWnd* parent, int keywords);
    using CKTScinWnd::Create;

    int SetText(CString text, int keepUndo) override;
    virtual void AppendText(CString text, int maxLines, int slack, bool scrollToEnd);
    virtual void AppendText(CString text);
    virtual void ClearContent();
    void ApplyVisualOption() override;

protected:
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    const MessageMap* GetMessageMap() const override;
    static const MessageMap* GetThisMessageMap();

    void OnEditClearAll();
    void OnUpdateEditClearAll(CCmdUI* ui);
    void setOption();
    // Widens the horizontal scroll range to the longest line but line 0; never narrows it.
    void adjustHScrollSize();

private:
    // The start of a guarded change: lifts read-only.
    void startChange();
    // The end of a guarded change: widens the scroll range over the lines from `firstLine`
    // (those the change may have lengthened), updates the view, and sets read-only again.
    void finishChange(long firstLine);
    // The line that held the end of the document before `text` was appended.
    long lineBeforeAppend(const CString& text);
    void widenScrollRange(long firstLine);

    // What the last widening set, so that an append only looks at the lines it touched.
    long lastScrollWidth = -1;
    long lastCharWidth = -1;
    long measuredLength = 0;  // the document as the last widening saw it
    long measuredLines = 1;
};
