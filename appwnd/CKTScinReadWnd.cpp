#include "CKTScinReadWnd.h"

#include <algorithm>
#include <climits>

#include "CommandIds.h"
#include "MessageHandlers.h"

CKTScinReadWnd::CKTScinReadWnd() {
    SetPopupMenu(IDR_READONLY_MENU, 0);
    SetNoFocusOnSetText(1);  // output arriving must not take the focus from where the user is
}

CKTScinReadWnd::~CKTScinReadWnd() = default;

int CKTScinReadWnd::Create(CString name, CRect& rect, CWnd* parent, int keywords) {
    keyWordUsingPreCreate = keywords;
    if (!CKTScinWnd::Create(name.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, parent, kChildId)) return 0;
    SendEditor(SCI_SETREADONLY, 1);
    SetBackgroundColor(kBuildBackground);
    setOption();
    SetColorFromReg(0);
    return 1;
}

void CKTScinReadWnd::setOption() {
    SendEditor(SCI_GRABFOCUS);
    SendEditor(SCI_SETHSCROLLBAR, 1);
    SetDisplaySelection(0);
    SetDisplayLinenumbers(1);
    SendEditor(SCI_SETUNDOCOLLECTION, 0);
    SendEditor(SCI_EMPTYUNDOBUFFER);
}

void CKTScinReadWnd::ApplyVisualOption() {
    initScintilla();
    Refresh();
    SendEditor(SCI_SETREADONLY, 1);
    SetBackgroundColor(kBuildBackground);
    setOption();
    SetColorFromReg(0);
}

int CKTScinReadWnd::SetText(CString text, int keepUndo) {
    startChange();
    const int result = CKTScinWnd::SetText(std::move(text), keepUndo);
    // Replacing the text turns undo collection back on; the viewer keeps none.
    SendEditor(SCI_SETUNDOCOLLECTION, 0);
    SendEditor(SCI_EMPTYUNDOBUFFER);
    finishChange(1);
    return result;
}

void CKTScinReadWnd::AppendText(CString text) {
    startChange();
    CScintillaWnd::AppendText(text);
    finishChange(lineBeforeAppend(text));
}

void CKTScinReadWnd::AppendText(CString text, int maxLines, int slack, bool scrollToEnd) {
    if (maxLines <= slack) {
        // No room above the slack: the whole document is replaced, through the guarded SetText.
        SetText(std::move(text), 0);
        if (scrollToEnd) SendEditor(SCI_DOCUMENTEND);
        return;
    }
    startChange();
    AppendTextWithLimit(text, maxLines, slack, scrollToEnd);
    finishChange(lineBeforeAppend(text));
}

void CKTScinReadWnd::ClearContent() {
    startChange();
    SendEditor(SCI_CLEARALL);
    measuredLength = 0;  // nothing is left to measure; the scroll range stays as it was
    measuredLines = 1;
    UpdateUI();
    SendEditor(SCI_SETREADONLY, 1);
}

void CKTScinReadWnd::startChange() {
    // Text that changed behind the viewer's back (a host that lifted read-only) has lines
    // nobody measured: the next widening looks at every line.
    if (SendEditor(SCI_GETLENGTH) != measuredLength || SendEditor(SCI_GETLINECOUNT) != measuredLines)
        lastScrollWidth = LONG_MAX;
    SendEditor(SCI_SETREADONLY, 0);
}

void CKTScinReadWnd::finishChange(long firstLine) {
    widenScrollRange(firstLine);
    UpdateUI();
    SendEditor(SCI_SETREADONLY, 1);
}

long CKTScinReadWnd::lineBeforeAppend(const CString& text) {
    // The engine counts CR LF, a lone CR and a lone LF as one line end each, and the text's
    // line ends are rewritten one for one on the way in, so the appended text occupies its own
    // line ends' worth of lines at the end of the document, plus the line it continued.
    long lineEnds = 0;
    const char* bytes = text.c_str();
    const int length = text.GetLength();
    for (int i = 0; i < length; ++i) {
        if (bytes[i] == '\n' || (bytes[i] == '\r' && (i + 1 >= length || bytes[i + 1] != '\n'))) ++lineEnds;
    }
    return std::max(1L, SendEditor(SCI_GETLINECOUNT) - 1 - lineEnds);
}

void CKTScinReadWnd::adjustHScrollSize() { widenScrollRange(1); }

void CKTScinReadWnd::widenScrollRange(long firstLine) {
    const long charWidth = std::max(1L, SendEditor(SCI_TEXTWIDTH, STYLE_DEFAULT, reinterpret_cast<LPARAM>("A")));
    const long width = SendEditor(SCI_GETSCROLLWIDTH);
    // Lines above `firstLine` were measured by an earlier call, unless the range has since
    // been narrowed or the font changed: then every line is measured again.
    if (width < lastScrollWidth || charWidth != lastCharWidth) firstLine = 1;
    long longest = std::max(1L, width / charWidth);
    const long lines = SendEditor(SCI_GETLINECOUNT);
    for (long line = std::max(1L, firstLine); line < lines; ++line)
        longest = std::max(longest, SendEditor(SCI_LINELENGTH, WPARAM(line)));
    const long wanted = longest * charWidth;
    if (wanted > width) SendEditor(SCI_SETSCROLLWIDTH, WPARAM(wanted));
    lastScrollWidth = std::max(wanted, width);
    lastCharWidth = charWidth;
    measuredLength = SendEditor(SCI_GETLENGTH);
    measuredLines = lines;
}

void CKTScinReadWnd::OnEditClearAll() { ClearContent(); }

void CKTScinReadWnd::OnUpdateEditClearAll(CCmdUI* ui) { ui->Enable(!IsEmpty()); }

BOOL CKTScinReadWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    return CKTScinWnd::OnNotify(wParam, lParam, result);
}

const MessageMap* CKTScinReadWnd::GetMessageMap() const { return GetThisMessageMap(); }

const MessageMap* CKTScinReadWnd::GetThisMessageMap() {
    static const MessageMapEntry entries[] = {
        {WM_COMMAND, cmd::EditClear, OnMessage<&CKTScinReadWnd::OnEditClearAll>},
        {WM_UPDATE_COMMAND_UI, cmd::EditClear, OnMessage<&CKTScinReadWnd::OnUpdateEditClearAll>},
    };
    static const MessageMap map{CKTScinWnd::GetThisMessageMap(), entries, std::size(entries)};
    return &map;
}
