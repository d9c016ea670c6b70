// Line marks (engine markers in the margin), the error mark, and the highlight of every
// visible occurrence of the word the user selected.
#include <algorithm>
#include <cstring>

#include "CScintillaWnd.h"

namespace {
constexpr int kBookmark = 0;
constexpr int kBreakpoint = 1;
// The highlight looks at no more display lines than this, however tall the window.
constexpr long kMaxHighlightLines = 400;

long markerMask(int marker) { return (marker >= 0 && marker < 32) ? long(1UL << marker) : 0; }

// Blanks, line ends and the ASCII punctuation but underscore and grave accent end a word;
// letters, digits and every byte of a multi-byte character belong to one.
bool isSeparator(unsigned char ch) {
    return ch == '\t' || ch == '\n' || ch == '\r' || ch == ' ' || (ch >= 33 && ch <= 47) || (ch >= 58 && ch <= 64) ||
           (ch >= 91 && ch <= 94) || (ch >= 123 && ch <= 126);
}
}  // namespace

int CScintillaWnd::markLine(int line) { return line == -1 ? GetCurrentLine() : line; }

void CScintillaWnd::AddBookmark(long line) { SendEditor(SCI_MARKERADD, WPARAM(line - 1), kBookmark); }

void CScintillaWnd::DeleteBookmark(long line) {
    if (HasBookmark(line)) SendEditor(SCI_MARKERDELETE, WPARAM(line - 1), kBookmark);
}

int CScintillaWnd::HasBookmark(long line) { return int(SendEditor(SCI_MARKERGET, WPARAM(line - 1)) & 1); }

void CScintillaWnd::FindNextBookmark() { goToMark(kBookmark, true, false); }
void CScintillaWnd::FindPreviousBookmark() { goToMark(kBookmark, false, false); }

void CScintillaWnd::AddBreakPoint(long line) { SendEditor(SCI_MARKERADD, WPARAM(line - 1), kBreakpoint); }

void CScintillaWnd::AddMark(int marker, int line) {
    SendEditor(SCI_MARKERADD, WPARAM(markLine(line) - 1), marker);
}

int CScintillaWnd::HasMark(int marker, int line) {
    return int(SendEditor(SCI_MARKERGET, WPARAM(markLine(line) - 1)) & markerMask(marker));
}

void CScintillaWnd::DeleteMark(int marker, int line) {
    line = markLine(line);
    if (HasMark(marker, line)) SendEditor(SCI_MARKERDELETE, WPARAM(line - 1), marker);
}

void CScintillaWnd::DeleteAllMark(int marker) { SendEditor(SCI_MARKERDELETEALL, WPARAM(marker)); }

void CScintillaWnd::ToggleMark(int marker, int line) {
    line = markLine(line);
    if (HasMark(marker, line))
        DeleteMark(marker, line);
    else
        SendEditor(SCI_MARKERADD, WPARAM(line - 1), marker);
}

void CScintillaWnd::FindNextMark(int marker) { goToMark(marker, true, true); }
void CScintillaWnd::FindPreviousMark(int marker) { goToMark(marker, false, true); }

void CScintillaWnd::goToMark(int marker, bool forward, bool wrap) {
    // The caret's line counted from 1 is the line below it counted from 0, so the caret's own
    // line is never found but by wrapping.
    const long below = GetCurrentLine();
    const long mask = markerMask(marker);
    long found = forward ? SendEditor(SCI_MARKERNEXT, WPARAM(below), mask)
                         : SendEditor(SCI_MARKERPREVIOUS, WPARAM(below - 2), mask);
    if (found < 0 && wrap) {
        found = forward ? SendEditor(SCI_MARKERNEXT, 0, mask)
                        : SendEditor(SCI_MARKERPREVIOUS, WPARAM(SendEditor(SCI_GETLINECOUNT) - 1), mask);
    }
    if (found >= 0) SendEditor(SCI_GOTOLINE, WPARAM(found));
}

void CScintillaWnd::SetErrorMark(bool on, long start, long end) {
    errorMarkShown = on;
    errorMarkStart = int(start);
    errorMarkEnd = int(end);
}

void CScintillaWnd::SelectErrorMark(CPoint where) {
    SendEditor(SCI_GOTOPOS, WPARAM(SendEditor(SCI_POSITIONFROMLINE, WPARAM(where.y)) + where.x));
    const Sci_CharacterRange range = SelectWordFromCurrentPos();
    SetErrorMark(true, range.cpMin, range.cpMax);
}

void CScintillaWnd::DefineMarker(int marker, int symbol, unsigned long fore, unsigned long back) {
    SendEditor(SCI_MARKERDEFINE, WPARAM(marker), symbol);
    SendEditor(SCI_MARKERSETFORE, WPARAM(marker), LPARAM(fore));
    SendEditor(SCI_MARKERSETBACK, WPARAM(marker), LPARAM(back));
}

bool CScintillaWnd::isQualifiedWord(CString text) {
    const char* bytes = text.c_str();
    return std::none_of(bytes, bytes + text.GetLength(), [](char ch) { return isSeparator(static_cast<unsigned char>(ch)); });
}

bool CScintillaWnd::isWordChar(CString text) { return !isSeparator(static_cast<unsigned char>(text.c_str()[0])); }

void CScintillaWnd::clearIndicator(int indicator) {
    SendEditor(SCI_SETINDICATORCURRENT, WPARAM(indicator));
    SendEditor(SCI_INDICATORCLEARRANGE, 0, SendEditor(SCI_GETLENGTH));
}

void CScintillaWnd::RemoveFindMarks() {}

void CScintillaWnd::markCurrentMatch(long start, long end) {
    clearIndicator(kCurrentMatchIndicator);
    SendEditor(SCI_SETINDICATORCURRENT, kCurrentMatchIndicator);
    SendEditor(SCI_INDICATORFILLRANGE, WPARAM(start), end - start);
    currentMatchStart = start;
    currentMatchEnd = end;
}

void CScintillaWnd::followCurrentMatch() {
    if (currentMatchStart < 0) return;
    const Sci_CharacterRange selection = GetSelection();
    if (selection.cpMin == currentMatchStart && selection.cpMax == currentMatchEnd) return;
    clearIndicator(kCurrentMatchIndicator);
    currentMatchStart = currentMatchEnd = -1;
}

void CScintillaWnd::HighLightingText() {
    const Sci_CharacterRange selection = GetSelection();
    // A highlight never outlives the selection it was made for.
    clearIndicator(kWordHighlightIndicator);
    if (selection.cpMin == selection.cpMax) {
        SetErrorMark(false, -1, -1);
        return;
    }
    if (errorMarkShown) {
        // The host's error word stays selected without a highlight until the user moves on.
        if (selection.cpMin == errorMarkStart || selection.cpMax == errorMarkEnd) return;
        SetErrorMark(false, -1, -1);
    }
    // A selection over more than one line holds a line end, a separator, and lights nothing.
    // It is judged by its ends alone, so that a selection of a whole large document is not
    // copied at every update.
    if (SendEditor(SCI_LINEFROMPOSITION, WPARAM(selection.cpMin)) !=
        SendEditor(SCI_LINEFROMPOSITION, WPARAM(selection.cpMax)))
        return;
    // Only a whole word lights anything: the bytes around the selection must not continue it.
    for (long position : {selection.cpMax, selection.cpMin - 1}) {
        const char ch = position >= 0 ? char(SendEditor(SCI_GETCHARAT, WPARAM(position))) : '\0';
        if (ch != '\0' && isWordChar(CString(ch, 1))) return;
    }
    const CString word = GetSelectionText();
    if (!isQualifiedWord(word)) return;

    const long targetStart = SendEditor(SCI_GETTARGETSTART);
    const long targetEnd = SendEditor(SCI_GETTARGETEND);
    const long firstDisplayLine = SendEditor(SCI_GETFIRSTVISIBLELINE);
    const long count = std::min(SendEditor(SCI_LINESONSCREEN), kMaxHighlightLines);
    const long length = SendEditor(SCI_GETLENGTH);
    std::string text(word.c_str(), size_t(word.GetLength()));
    long previousLine = -1;
    for (long display = firstDisplayLine; display < firstDisplayLine + count + 1; ++display) {
        const long line = SendEditor(SCI_DOCLINEFROMVISIBLE, WPARAM(display));
        if (line == previousLine) continue;  // another display line of a wrapped line
        previousLine = line;
        const long start = SendEditor(SCI_POSITIONFROMLINE, WPARAM(line));
        const long next = SendEditor(SCI_POSITIONFROMLINE, WPARAM(line + 1));
        if (next == -1) {
            MarkAll(text.data(), int(start), int(length - 1));
            break;
        }
        MarkAll(text.data(), int(start), int(next));
    }
    SendEditor(SCI_SETTARGETSTART, WPARAM(targetStart));
    SendEditor(SCI_SETTARGETEND, WPARAM(targetEnd));
}

void CScintillaWnd::MarkAll(char* text, int start, int end) {
    const int length = int(std::strlen(text));
    long found = FindInTarget(text, length, start, end);
    // The first search runs under the window's flags; from here on by whole word, any case.
    SendEditor(SCI_SETSEARCHFLAGS, SCFIND_WHOLEWORD);
    while (found != -1) {
        const long matchStart = SendEditor(SCI_GETTARGETSTART);
        const long matchEnd = SendEditor(SCI_GETTARGETEND);
        if (matchEnd > end) break;
        SendEditor(SCI_SETINDICATORCURRENT, kWordHighlightIndicator);
        SendEditor(SCI_INDICATORFILLRANGE, WPARAM(matchStart), matchEnd - matchStart);
        found = FindInTarget(text, length, int(matchStart + 1 + length), end);
    }
}
