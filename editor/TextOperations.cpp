// Text in and out of the engine, the selection, and the rewriting of line ends. Every text
// crosses as bytes; positions and lengths count bytes.
#include <algorithm>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "CScintillaWnd.h"
#include "LineEnds.h"
#include "MessageBox.h"
#include "Resources.h"

namespace {
constexpr long kDeleteRange = SCI_DELETERANGE_EXT;
constexpr const char* kNonWordMarks = "\t\n\r !\"#$%&'()*+,-./:;<=>?@[\\]^`{|}~";
}  // namespace

CString CScintillaWnd::transformLineEnds(CString text, int eolMode) {
    const std::string_view source = lineends::AsCText(text.view());
    const lineends::Plan plan = lineends::Measure(source, eolMode);
    // A text already in the engine's form is handed back without a copy.
    if (!plan.changes && source.size() == text.view().size()) return text;
    CString result;
    try {
        std::string out;
        out.reserve(plan.convertedLength);
        lineends::Convert(source, eolMode, plan.convertedLength + 1,
                          [&](const char* piece, size_t n) { out.append(piece, n); });
        result = CString(std::move(out));
    } catch (const std::bad_alloc&) {
        AfxMessageBox(8201, MB_OK, 0);
    } catch (const std::exception&) {
        AfxMessageBox(8202, MB_OK, 0);
    }
    return result;
}

int CScintillaWnd::SetText(CString text, int keepUndo) {
    if (!text.IsEmpty()) {
        if (keepUndo == 0) {
            SendEditor(SCI_SETUNDOCOLLECTION, 0);
            SendEditor(SCI_EMPTYUNDOBUFFER);
        }
        // The replacement goes in as the engine's SCI_SETTEXT would do it (one undo step,
        // the caret at the start), but the buffer is sized once and the rewritten line ends
        // arrive in pieces, so a large text is never held twice.
        const int eolMode = int(SendEditor(SCI_GETEOLMODE));
        const std::string_view source = lineends::AsCText(text.view());
        const lineends::Plan plan = lineends::Measure(source, eolMode);
        SendEditor(SCI_BEGINUNDOACTION);
        SendEditor(SCI_DELETERANGE, 0, SendEditor(SCI_GETLENGTH));
        SendEditor(SCI_SETEMPTYSELECTION, 0);
        SendEditor(SCI_ALLOCATE, WPARAM(plan.convertedLength + 1));
        auto append = [this](const char* piece, size_t n) {
            SendEditor(SCI_APPENDTEXT, WPARAM(n), reinterpret_cast<LPARAM>(piece));
        };
        if (plan.changes) lineends::Convert(source, eolMode, size_t(1) << 20, append);
        else if (!source.empty()) append(source.data(), source.size());
        SendEditor(SCI_ENDUNDOACTION);
        if (keepUndo == 0) {
            SendEditor(SCI_SETUNDOCOLLECTION, 1);
            SendEditor(SCI_SETSAVEPOINT);
        }
    }
    if (noFocusOnSetText == 0) SetFocus();
    return 0;
}

void CScintillaWnd::InsertText(CPoint at, CString text) {
    if (text.IsEmpty()) return;
    const CString converted = transformLineEnds(text, int(SendEditor(SCI_GETEOLMODE)));
    // A negative line means the line after the caret's (GetCurrentLine counts from 1).
    const int line = at.y < 0 ? GetCurrentLine() : at.y;
    long position = SendEditor(SCI_POSITIONFROMLINE, WPARAM(line));
    if (at.x > 0) position += at.x;
    SendEditor(SCI_BEGINUNDOACTION);
    SendEditor(SCI_INSERTTEXT, WPARAM(position), reinterpret_cast<LPARAM>(converted.c_str()));
    SendEditor(SCI_ENDUNDOACTION);
}

void CScintillaWnd::AddText(CString text) {
    if (text.IsEmpty()) return;
    const CString converted = transformLineEnds(text, int(SendEditor(SCI_GETEOLMODE)));
    SendEditor(SCI_BEGINUNDOACTION);
    SendEditor(SCI_ADDTEXT, WPARAM(converted.GetLength()), reinterpret_cast<LPARAM>(converted.c_str()));
    SendEditor(SCI_ENDUNDOACTION);
}

void CScintillaWnd::AppendText(CString text) {
    if (text.IsEmpty()) return;
    const CString converted = transformLineEnds(text, int(SendEditor(SCI_GETEOLMODE)));
    SendEditor(SCI_APPENDTEXT, WPARAM(converted.GetLength()), reinterpret_cast<LPARAM>(converted.c_str()));
}

void CScintillaWnd::PasteText(CString text) {
    SendEditor(kDeleteRange, WPARAM(GetSelectionStart()), GetSelectionEnd());
    AddText(text);
    SendEditor(SCI_SCROLLCARET);
}

void CScintillaWnd::DropText(POINT* point, CString text) {
    if (text.IsEmpty() || !point || SendEditor(SCI_GETREADONLY)) return;
    const long position = SendEditor(SCI_POSITIONFROMPOINT, WPARAM(point->x), point->y);
    SendEditor(SCI_BEGINUNDOACTION);
    SendEditor(SCI_INSERTTEXT, WPARAM(position), reinterpret_cast<LPARAM>(text.c_str()));
    SendEditor(SCI_SETSEL, WPARAM(position), position + text.GetLength());
    SendEditor(SCI_ENDUNDOACTION);
}

void CScintillaWnd::ReplaceSelection(CString text, int) {
    const CString converted = transformLineEnds(text, int(SendEditor(SCI_GETEOLMODE)));
    SendEditor(SCI_REPLACESEL, 0, reinterpret_cast<LPARAM>(converted.c_str()));
}

int CScintillaWnd::AppendTextWithLimit(CString text, int maxLines, int slack, bool scrollToEnd) {
    const int lineCount = GetLineCount();
    if (maxLines <= slack) {
        SetText(text, 0);
    } else {
        if (maxLines < lineCount + slack) {
            // The line end of the last deleted line stays, so a trimmed document starts with
            // an empty line.
            const int endLine = lineCount - maxLines + slack;
            SendEditor(kDeleteRange, WPARAM(SendEditor(SCI_POSITIONFROMLINE, 0)),
                       SendEditor(SCI_GETLINEENDPOSITION, WPARAM(endLine)));
        }
        AppendText(text);
    }
    if (scrollToEnd) SendEditor(SCI_DOCUMENTEND);
    return 0;
}

void CScintillaWnd::ClearContent() { SendEditor(SCI_CLEARALL); }

void CScintillaWnd::Empty() {
    SendEditor(SCI_CLEARALL);
    SendEditor(SCI_EMPTYUNDOBUFFER);
}

int CScintillaWnd::IsEmpty() { return SendEditor(SCI_GETLENGTH) < 1 ? 1 : 0; }

void CScintillaWnd::ClearLines(int firstLine, int lastLine) {
    HideSelection(1);
    SendEditor(SCI_SETSEL, WPARAM(SendEditor(SCI_POSITIONFROMLINE, WPARAM(firstLine))),
               SendEditor(SCI_GETLINEENDPOSITION, WPARAM(lastLine)));
    Clear();
    HideSelection(0);
}

int CScintillaWnd::DeleteLines(int firstLine, int lastLine) {
    return int(SendEditor(kDeleteRange, WPARAM(SendEditor(SCI_POSITIONFROMLINE, WPARAM(firstLine))),
                          SendEditor(SCI_GETLINEENDPOSITION, WPARAM(lastLine))));
}

int CScintillaWnd::DeleteSection(int start, int end) { return int(SendEditor(kDeleteRange, WPARAM(start), end)); }

CString CScintillaWnd::GetText() {
    // One copy straight out of the engine's buffer (the engine closes its gap for this),
    // instead of filling a zeroed buffer of our own.
    const long length = SendEditor(SCI_GETLENGTH);
    if (length <= 0) return CString();
    const auto* text = reinterpret_cast<const char*>(SendEditor(SCI_GETCHARACTERPOINTER));
    return text ? CString(text, int(length)) : CString();
}

void CScintillaWnd::GetText(CString& out) { out = GetText(); }

CString CScintillaWnd::GetText(CPoint from, CPoint to) {
    const long start = SendEditor(SCI_POSITIONFROMLINE, WPARAM(from.y)) + from.x;
    const long end = SendEditor(SCI_POSITIONFROMLINE, WPARAM(to.y)) + to.x;
    const long lo = std::min(start, end), hi = std::max(start, end);
    std::vector<char> buffer(size_t(hi - lo) + (hi == lo ? 11 : 10), '\0');
    Sci_TextRange range;
    range.chrg = {start, end};
    range.lpstrText = buffer.data();
    SendEditor(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    return CString(buffer.data());
}

CString CScintillaWnd::GetLineChars(int line) {
    const long length = SendEditor(SCI_LINELENGTH, WPARAM(line));
    if (length <= 0) return CString();
    std::vector<char> buffer(size_t(length) + 1, '\0');
    SendEditor(SCI_GETLINE, WPARAM(line), reinterpret_cast<LPARAM>(buffer.data()));
    return CString(buffer.data(), int(length));
}

void CScintillaWnd::GetRange(int start, int end, char* out) {
    if (!out) return;
    out[0] = '\0';
    if (start < 0 || end <= start) return;
    const long firstLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(start));
    const long otherLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(end)) + 1;
    long size = 2;
    for (long line = std::min(firstLine, otherLine); line < std::max(firstLine, otherLine); ++line)
        size += SendEditor(SCI_LINELENGTH, WPARAM(line));
    size = std::max(size, long(end - start) + 2);
    std::vector<char> buffer(size_t(size), '\0');
    Sci_TextRange range;
    range.chrg = {start, end};
    range.lpstrText = buffer.data();
    SendEditor(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    std::memcpy(out, buffer.data(), size_t(end - start));
    out[end - start] = '\0';
}

char CScintillaWnd::GetChar(int position) {
    char buffer[2] = {0, 0};
    GetRange(position - 1, position, buffer);
    return buffer[0];
}

SString CScintillaWnd::GetRangeInUIEncoding(int start, int end) {
    if (end < start) return SString();
    SBuffer buffer(unsigned(end - start) + 2);
    if (!buffer.ptr()) return SString();
    GetRange(start, end, buffer.ptr());
    return SString(buffer.ptr());
}

CString CScintillaWnd::GetSelectedText() { return GetSelectionText(); }

CString CScintillaWnd::GetSelectionText() {
    const long start = GetSelectionStart(), end = GetSelectionEnd();
    if (end <= start) return CString();
    std::vector<char> buffer(size_t(end - start) + 2, '\0');
    Sci_TextRange range;
    range.chrg = {start, end};
    range.lpstrText = buffer.data();
    SendEditor(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    return CString(buffer.data(), int(end - start));
}

int CScintillaWnd::GetLineCount() { return int(SendEditor(SCI_GETLINECOUNT)); }
int CScintillaWnd::GetTextLength() { return int(SendEditor(SCI_GETLENGTH)); }
int CScintillaWnd::LengthDocument() { return GetTextLength(); }

int CScintillaWnd::GetLineLength(int line, bool withLineEnd) {
    int length = int(SendEditor(SCI_LINELENGTH, WPARAM(line)));
    if (!withLineEnd) length -= SendEditor(SCI_GETEOLMODE) == SC_EOL_CRLF ? 2 : 1;
    return length;
}

long CScintillaWnd::GetSelectionStart() { return SendEditor(SCI_GETSELECTIONSTART); }
long CScintillaWnd::GetSelectionEnd() { return SendEditor(SCI_GETSELECTIONEND); }

Sci_CharacterRange CScintillaWnd::GetSelection() { return Sci_CharacterRange{GetSelectionStart(), GetSelectionEnd()}; }

void CScintillaWnd::GetSelection(CPoint& from, CPoint& to) {
    from = CursorPosFromScin(int(GetSelectionStart()));
    to = CursorPosFromScin(int(GetSelectionEnd()));
    const int lineLength = int(SendEditor(SCI_LINELENGTH, WPARAM(to.y)));
    to.x = std::min(to.x, lineLength);
}

void CScintillaWnd::SetSelection(int start, int end) { SendEditor(SCI_SETSEL, WPARAM(start), end); }

void CScintillaWnd::SetSelection(CPoint from, CPoint to) {
    const long start = SendEditor(SCI_POSITIONFROMLINE, WPARAM(from.y)) + from.x;
    const long end = SendEditor(SCI_POSITIONFROMLINE, WPARAM(to.y)) + to.x;
    SendEditor(SCI_SETSEL, WPARAM(start), end);
}

int CScintillaWnd::IsSelection() { return GetSelectionStart() != GetSelectionEnd() ? 1 : 0; }

void CScintillaWnd::HideSelection(int hide) { SendEditor(SCI_HIDESELECTION, hide ? 1 : 0); }

Sci_CharacterRange CScintillaWnd::SelectWordFromCurrentPos() {
    const long caret = GetCurrentPosition();
    Sci_CharacterRange range{SendEditor(SCI_WORDSTARTPOSITION, WPARAM(caret), 1),
                             SendEditor(SCI_WORDENDPOSITION, WPARAM(caret), 1)};
    SendEditor(SCI_SETSEL, WPARAM(range.cpMin), range.cpMax);
    return range;
}

bool CScintillaWnd::islexerwordcharforsel(char ch) const {
    if (wordCharacters.IsEmpty()) return ch != '\0' && std::strchr(kNonWordMarks, ch) == nullptr;
    return ch != '\0' && wordCharacters.Find(ch) >= 0;
}

CPoint CScintillaWnd::CursorPosFromScin(int position) {
    const int line = int(SendEditor(SCI_LINEFROMPOSITION, WPARAM(position)));
    return CPoint(position - int(SendEditor(SCI_POSITIONFROMLINE, WPARAM(line))), line);
}

int CScintillaWnd::StartScinPosInLine(int position) {
    return int(SendEditor(SCI_POSITIONFROMLINE, WPARAM(SendEditor(SCI_LINEFROMPOSITION, WPARAM(position)))));
}

int CScintillaWnd::PutToClipboard(CString text) {
    SendEditor(SCI_COPYTEXT, WPARAM(text.GetLength()), reinterpret_cast<LPARAM>(text.c_str()));
    return 1;
}

void CScintillaWnd::SetModified() { SendEditor(SCI_SETSAVEPOINT); }

int CScintillaWnd::SetEmptyUndoCollection() {
    SendEditor(SCI_EMPTYUNDOBUFFER);
    return 1;
}

int CScintillaWnd::SetUndoCollection(int on) {
    SendEditor(SCI_SETUNDOCOLLECTION, WPARAM(on));
    if (on == 0) SendEditor(SCI_EMPTYUNDOBUFFER);
    else SendEditor(SCI_SETSAVEPOINT);
    return 0;
}
