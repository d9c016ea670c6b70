// Comment commands: a line marker put on or taken off every selected line, and a box of
// start, middle and end marks around them. The markers come from the property file.
#include <algorithm>
#include <string>

#include "CScintillaWnd.h"

namespace {
constexpr long kLongestCommentedLine = 9999;  // longer lines are passed over
}  // namespace

CString CScintillaWnd::commentProperty(const char* keyPrefix) {
    const SString language = props.GetNewExpand("lexer.", ".sql");
    const CString key = CString(keyPrefix) + language.c_str();
    return CString(props.GetExpanded(key).c_str());
}

std::string CScintillaWnd::bytesAt(long position, long length) {
    const long end = std::min(position + length, long(SendEditor(SCI_GETLENGTH)));
    if (end <= position) return std::string();
    std::string text(size_t(end - position) + 1, '\0');
    Sci_TextRange range;
    range.chrg = {position, end};
    range.lpstrText = text.data();
    SendEditor(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
    text.resize(size_t(end - position));
    return text;
}

// After a comment command: the caret stays at the block's start when it stood before the
// selection's end, else the selection is set again over the changed lines.
void CScintillaWnd::restoreCommentSelection(bool moveCaret, long start, long end) {
    if (moveCaret) {
        SendEditor(SCI_GOTOPOS, WPARAM(end));
        SendEditor(SCI_SETCURRENTPOS, WPARAM(start));
    } else {
        SendEditor(SCI_SETSEL, WPARAM(start), end);
    }
}

int CScintillaWnd::StartBlockComment(int comment) {
    const CString marker = commentProperty(blankAfterComment ? "comment.block2." : "comment.block.");
    if (marker.IsEmpty()) return 1;
    const long L = marker.GetLength();
    long S = GetSelectionStart(), E = GetSelectionEnd();
    const bool moveCaret = GetCurrentPosition() < E;
    const long firstLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(S));
    long lastLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(E));
    const long firstLineStart = SendEditor(SCI_POSITIONFROMLINE, WPARAM(firstLine));
    // A selection that ends at the start of a line does not take that line in.
    if (lastLine > firstLine && E == SendEditor(SCI_POSITIONFROMLINE, WPARAM(lastLine))) --lastLine;

    SendEditor(SCI_BEGINUNDOACTION);
    for (long line = firstLine; line <= lastLine; ++line) {
        const long lineStart = SendEditor(SCI_POSITIONFROMLINE, WPARAM(line));
        const long lineEnd = SendEditor(SCI_GETLINEENDPOSITION, WPARAM(line));
        if (lineEnd - lineStart >= kLongestCommentedLine) continue;
        if (comment) {
            SendEditor(SCI_INSERTTEXT, WPARAM(lineStart), reinterpret_cast<LPARAM>(marker.c_str()));
            if (line == firstLine) S += L;
            E += L;
            continue;
        }
        // A line counts as marked when it starts with the marker less its last byte, so a
        // marker ending in a blank also comes off a line whose blank was lost.
        const std::string head = bytesAt(lineStart, L);
        if (head.compare(0, size_t(L - 1), marker.c_str(), size_t(L - 1)) != 0 || long(head.size()) < L - 1) continue;
        const long cut = head == marker.str() ? L : L - 1;
        if (cut == 0) continue;
        SendEditor(SCI_SETSEL, WPARAM(lineStart), lineStart + cut);
        SendEditor(SCI_REPLACESEL, 0, reinterpret_cast<LPARAM>(""));
        if (line == firstLine) S -= cut;
        E -= cut;
    }
    // Taking marks off may have moved the selection in front of the first line.
    if (S < firstLineStart) {
        if (S >= E - (L - 1)) E = firstLineStart;
        S = firstLineStart;
    }
    restoreCommentSelection(moveCaret, S, E);
    SendEditor(SCI_ENDUNDOACTION);
    return 1;
}

int CScintillaWnd::StartBoxComment() {
    CString start = commentProperty("comment.box.start.");
    CString middle = commentProperty("comment.box.middle.");
    const CString end = commentProperty("comment.box.end.");
    if (start.IsEmpty() || middle.IsEmpty() || end.IsEmpty()) return 1;
    long S = GetSelectionStart(), E = GetSelectionEnd();
    const bool moveCaret = GetCurrentPosition() < E;
    const long firstLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(S));
    long lastLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(E));
    long lines = lastLine - firstLine + 1;
    if (lines > 1 && E == SendEditor(SCI_POSITIONFROMLINE, WPARAM(lastLine))) {
        --lastLine;
        --lines;
        E = SendEditor(SCI_GETLINEENDPOSITION, WPARAM(lastLine));
    }
    start += ' ';
    middle += ' ';
    const long A = start.GetLength(), B = middle.GetLength(), C = end.GetLength();
    auto lineStart = [this](long line) { return SendEditor(SCI_POSITIONFROMLINE, WPARAM(line)); };
    auto insert = [this](long at, const CString& text) {
        SendEditor(SCI_INSERTTEXT, WPARAM(at), reinterpret_cast<LPARAM>(text.c_str()));
    };

    SendEditor(SCI_BEGINUNDOACTION);
    if (bytesAt(lineStart(firstLine), A) != start.str()) {
        insert(lineStart(firstLine), start);
        S += A;
        E += A;
    }
    if (lines == 1) {
        const long lineEnd = SendEditor(SCI_GETLINEENDPOSITION, WPARAM(firstLine));
        if (bytesAt(lineEnd - C, C) != end.str()) insert(lineEnd, CString(" ") + end);
    } else {
        for (long line = firstLine + 1; line < lastLine; ++line)
            if (bytesAt(lineStart(line), B) != middle.str()) {
                insert(lineStart(line), middle);
                E += B;
            }
        if (bytesAt(lineStart(lastLine), C) != end.str()) {
            if (bytesAt(lineStart(lastLine), B) != middle.str()) {
                insert(lineStart(lastLine), middle);
                E += B;
            }
            const long next = lineStart(lastLine + 1);
            if (bytesAt(next, C) != end.str()) insert(next, end + "\n");
        }
    }
    restoreCommentSelection(moveCaret, S, E);
    SendEditor(SCI_ENDUNDOACTION);
    return 1;
}
