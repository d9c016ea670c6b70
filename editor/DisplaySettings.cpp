// Fonts, colours, margins, tabs, wrapping, caret and position queries, and the one-message
// commands behind the keyboard and the menus.
#include <algorithm>
#include <cstdio>

#include "CScintillaWnd.h"

namespace {
constexpr int kMarginLineNumbers = 0;
constexpr int kMarginSelection = 1;
constexpr int kSymbolMarginWidth = 16;
}  // namespace

void CScintillaWnd::SetFont(CString name, unsigned long heightTenths) {
    // Whole points: the tenths are cut, not rounded.
    const int points = int(heightTenths / 10);
    fontSetting.Format("font:%s,size:%d", name.c_str(), points);
    for (int style = 0; style <= 254; ++style) {
        SetFontname(style, name);
        SetFontheight(style, points);
    }
}

void CScintillaWnd::SetFontname(int style, CString name) {
    SendEditor(SCI_STYLESETFONT, WPARAM(style), reinterpret_cast<LPARAM>(name.c_str()));
}

void CScintillaWnd::SetFontheight(int style, int height) { SendEditor(SCI_STYLESETSIZE, WPARAM(style), height); }
void CScintillaWnd::SetBold(int style, int on) { SendEditor(SCI_STYLESETBOLD, WPARAM(style), on); }
void CScintillaWnd::SetItalic(int style, int on) { SendEditor(SCI_STYLESETITALIC, WPARAM(style), on); }
void CScintillaWnd::SetUnderline(int style, int on) { SendEditor(SCI_STYLESETUNDERLINE, WPARAM(style), on); }

void CScintillaWnd::SetBackgroundColor(unsigned long colour) {
    SendEditor(SCI_STYLESETBACK, STYLE_DEFAULT, LPARAM(colour));
    for (int style = 0; style <= 31; ++style) SendEditor(SCI_STYLESETBACK, WPARAM(style), LPARAM(colour));
}

unsigned long CScintillaWnd::GetBackgroundColor() { return (unsigned long)SendEditor(SCI_STYLEGETBACK, 0); }

int CScintillaWnd::GetLinenumberChars() {
    const long lines = SendEditor(SCI_GETLINECOUNT);
    if (lines < 1) return 1;
    char digits[32];
    return std::snprintf(digits, sizeof digits, "%ld", lines) + 1;
}

int CScintillaWnd::GetLinenumberWidth() {
    const int digitWidth = int(SendEditor(SCI_TEXTWIDTH, STYLE_LINENUMBER, reinterpret_cast<LPARAM>("9")));
    return digitWidth * std::max(4, GetLinenumberChars() + 1);
}

void CScintillaWnd::SetDisplayLinenumbers(int on) {
    if (on == displayLinenumbers) return;
    SendEditor(SCI_SETMARGINWIDTHN, kMarginLineNumbers, on ? GetLinenumberWidth() : 0);
    displayLinenumbers = on;
}

int CScintillaWnd::SetMarginWidth() {
    if (displayLinenumbers) SendEditor(SCI_SETMARGINWIDTHN, kMarginLineNumbers, GetLinenumberWidth());
    return 0;
}

void CScintillaWnd::SetDisplaySelection(int on) {
    displaySelection = on;
    SendEditor(SCI_SETMARGINWIDTHN, kMarginSelection, on ? kSymbolMarginWidth : 0);
}

void CScintillaWnd::SetTabSize(int size) { SendEditor(SCI_SETTABWIDTH, WPARAM(size)); }
int CScintillaWnd::GetTabSize() { return int(SendEditor(SCI_GETTABWIDTH)); }

void CScintillaWnd::SetInsertTabs(int on) {
    SendEditor(SCI_SETUSETABS, on ? 1 : 0);
    if (on) {
        SendEditor(SCI_SETTABINDENTS, WPARAM(on));
        SendEditor(SCI_SETINDENT, WPARAM(SendEditor(SCI_GETTABWIDTH)));
    }
}

void CScintillaWnd::SetWordWrapping(int on) { SendEditor(SCI_SETWRAPMODE, on ? SC_WRAP_WORD : SC_WRAP_NONE); }
int CScintillaWnd::GetWordWrapping() { return SendEditor(SCI_GETWRAPMODE) > 0 ? 1 : 0; }
void CScintillaWnd::SetEditable(int on) { SendEditor(SCI_SETREADONLY, on ? 0 : 1); }
int CScintillaWnd::QueryEditable() { return SendEditor(SCI_GETREADONLY) ? 0 : 1; }
int CScintillaWnd::IsModified() { return int(SendEditor(SCI_GETMODIFY)); }
void CScintillaWnd::ResetUndo() { SendEditor(SCI_EMPTYUNDOBUFFER); }
void CScintillaWnd::UndoAction(int begin) { SendEditor(begin ? SCI_BEGINUNDOACTION : SCI_ENDUNDOACTION); }
int CScintillaWnd::GetOverstrike() { return int(SendEditor(SCI_GETOVERTYPE)); }
void CScintillaWnd::SetOverstrike(int on) { SendEditor(SCI_SETOVERTYPE, WPARAM(on)); }
void CScintillaWnd::ConvertEndOfLine(unsigned int mode) { SendEditor(SCI_CONVERTEOLS, mode); }
void CScintillaWnd::SetHScrollBar(int) { SendEditor(SCI_SETHSCROLLBAR, 1); }
void CScintillaWnd::SetFocusEnable(int) { SendEditor(SCI_GRABFOCUS); }

void CScintillaWnd::GotoLine(int line) {
    SendEditor(SCI_ENSUREVISIBLEENFORCEPOLICY, WPARAM(line - 1));
    SendEditor(SCI_GOTOLINE, WPARAM(line - 1));
}

void CScintillaWnd::GotoLineEnsureVisible(int line) {
    SendEditor(SCI_ENSUREVISIBLEENFORCEPOLICY, WPARAM(line));
    SendEditor(SCI_GOTOLINE, WPARAM(line));
}

void CScintillaWnd::GotoPosition(long position) { SendEditor(SCI_GOTOPOS, WPARAM(position)); }

int CScintillaWnd::GetCurrentLine() {
    return int(SendEditor(SCI_LINEFROMPOSITION, WPARAM(GetCurrentPosition()))) + 1;
}

long CScintillaWnd::GetCurrentColumn() { return SendEditor(SCI_GETCOLUMN, WPARAM(GetCurrentPosition())) + 1; }
long CScintillaWnd::GetCurrentPosition() { return SendEditor(SCI_GETCURRENTPOS); }

long CScintillaWnd::SetCurrentPosition(int position) {
    SendEditor(SCI_SETANCHOR, WPARAM(position));
    return SendEditor(SCI_SETCURRENTPOS, WPARAM(position));
}

int CScintillaWnd::GetPositionFromSelectionLine() {
    return int(SendEditor(SCI_POSITIONFROMLINE, WPARAM(LPARAM(-1))));
}

int CScintillaWnd::GetPositionFromLine(int line) { return int(SendEditor(SCI_POSITIONFROMLINE, WPARAM(line))); }
int CScintillaWnd::GetEndPositionFromLine(int line) { return int(SendEditor(SCI_GETLINEENDPOSITION, WPARAM(line))); }
int CScintillaWnd::GetLineIndentPosition(int line) { return int(SendEditor(SCI_GETLINEINDENTPOSITION, WPARAM(line))); }

CPoint CScintillaWnd::GetCursorPos() { return CursorPosFromScin(int(GetCurrentPosition())); }

void CScintillaWnd::SetCursorPos(CPoint place) {
    SendEditor(SCI_GOTOPOS, WPARAM(SendEditor(SCI_POSITIONFROMLINE, WPARAM(place.y)) + place.x));
}

void CScintillaWnd::SetAnchor(CPoint place) {
    SendEditor(SCI_SETANCHOR, WPARAM(SendEditor(SCI_POSITIONFROMLINE, WPARAM(place.y)) + place.x));
}

CPoint CScintillaWnd::ClientToText(CPoint client) {
    const long position = SendEditor(SCI_POSITIONFROMPOINT, WPARAM(client.x), client.y);
    return CPoint(int(SendEditor(SCI_POINTXFROMPOSITION, 0, position)),
                  int(SendEditor(SCI_POINTYFROMPOSITION, 0, position)));
}

void CScintillaWnd::EnsureVisible() { SendEditor(SCI_SCROLLCARET); }
void CScintillaWnd::UpdateCaret() { SendEditor(SCI_SCROLLCARET); }

void CScintillaWnd::EnsureRangeVisible(int position1, int position2, bool enforcePolicy) {
    const long first = SendEditor(SCI_LINEFROMPOSITION, WPARAM(std::min(position1, position2)));
    const long last = SendEditor(SCI_LINEFROMPOSITION, WPARAM(std::max(position1, position2)));
    for (long line = first; line <= last; ++line)
        SendEditor(enforcePolicy ? SCI_ENSUREVISIBLEENFORCEPOLICY : SCI_ENSUREVISIBLE, WPARAM(line));
}

int CScintillaWnd::GetFirstVisibleLine() { return int(SendEditor(SCI_GETFIRSTVISIBLELINE)); }

void CScintillaWnd::SetLineScroll(int line, int column) {
    line = std::max(line, 1);
    SendEditor(SCI_LINESCROLL, WPARAM(column), line - GetFirstVisibleLine() - 1);
}

int CScintillaWnd::SetXOffSet(int offset) { return int(SendEditor(SCI_SETXOFFSET, WPARAM(offset))); }
int CScintillaWnd::GetCurrentStyle() { return int(SendEditor(SCI_GETSTYLEAT, WPARAM(GetCurrentPosition()))); }
int CScintillaWnd::GetLineFlags(int line) { return int(SendEditor(SCI_MARKERGET, WPARAM(line))); }

int CScintillaWnd::GetLineWithFlag(int marker) {
    const long mask = (marker >= 0 && marker < 32) ? long(1UL << marker) : 0;
    return int(SendEditor(SCI_MARKERNEXT, 0, mask));
}

void CScintillaWnd::Cut() { SendEditor(SCI_CUT); }
void CScintillaWnd::Copy() { SendEditor(SCI_COPY); }
void CScintillaWnd::Paste() { SendEditor(SCI_PASTE); }
void CScintillaWnd::Clear() { SendEditor(SCI_CLEAR); }
void CScintillaWnd::SelectAll() { SendEditor(SCI_SELECTALL); }
void CScintillaWnd::Undo() { SendEditor(SCI_UNDO); }
void CScintillaWnd::Redo() { SendEditor(SCI_REDO); }
int CScintillaWnd::CanUndo() { return SendEditor(SCI_CANUNDO) ? 1 : 0; }
int CScintillaWnd::CanRedo() { return SendEditor(SCI_CANREDO) ? 1 : 0; }
int CScintillaWnd::CanPaste() { return SendEditor(SCI_CANPASTE) ? 1 : 0; }

void CScintillaWnd::DelWordRight() { SendEditor(SCI_DELWORDRIGHT); }
void CScintillaWnd::DeleteBack() { SendEditor(SCI_DELETEBACK); }
void CScintillaWnd::DelCtrlBack() { SendEditor(SCI_DELWORDLEFT); }
void CScintillaWnd::DelLineLeft() { SendEditor(SCI_DELLINELEFT); }
void CScintillaWnd::DelLineRight() { SendEditor(SCI_DELLINERIGHT); }
void CScintillaWnd::Left() { SendEditor(SCI_CHARLEFT); }
void CScintillaWnd::Right() { SendEditor(SCI_CHARRIGHT); }
void CScintillaWnd::LeftWord() { SendEditor(SCI_WORDLEFT); }
void CScintillaWnd::RightWord() { SendEditor(SCI_WORDRIGHT); }
void CScintillaWnd::Up() { SendEditor(SCI_LINEUP); }
void CScintillaWnd::Down() { SendEditor(SCI_LINEDOWN); }
void CScintillaWnd::UpScroll() { SendEditor(SCI_LINESCROLLUP); }
void CScintillaWnd::DownScroll() { SendEditor(SCI_LINESCROLLDOWN); }
void CScintillaWnd::PageUp() { SendEditor(SCI_PAGEUP); }
void CScintillaWnd::PageDown() { SendEditor(SCI_PAGEDOWN); }
void CScintillaWnd::LineEnd() { SendEditor(SCI_LINEEND); }
void CScintillaWnd::LineHead() { SendEditor(SCI_VCHOME); }
void CScintillaWnd::PageHead() { SendEditor(SCI_DOCUMENTSTART); }
void CScintillaWnd::PageEnd() { SendEditor(SCI_DOCUMENTEND); }
void CScintillaWnd::Tab() { SendEditor(SCI_TAB); }
void CScintillaWnd::BackTab() { SendEditor(SCI_BACKTAB); }
void CScintillaWnd::LowerCase() { SendEditor(SCI_LOWERCASE); }
void CScintillaWnd::UpperCase() { SendEditor(SCI_UPPERCASE, SCI_CASE_UPPER); }
void CScintillaWnd::Capitalize() { SendEditor(SCI_UPPERCASE, SCI_CASE_CAPITALISE); }
void CScintillaWnd::Sentencize() { SendEditor(SCI_UPPERCASE, SCI_CASE_SENTENCE); }
void CScintillaWnd::Invertcase() { SendEditor(SCI_UPPERCASE, SCI_CASE_INVERT); }
