// Word completion from the document's own words, and brace matching round the caret.
#include <algorithm>
#include <cstring>
#include <string>
#include <unordered_set>
#include <vector>

#include "CScintillaWnd.h"
#include "WindowAccessor.h"

namespace {

// A candidate is read from at most this many bytes at its match.
constexpr int kCandidateBytes = 797;

// Bytes that end a word for completion; every other byte, bytes above 127 among them, is
// part of a word.
constexpr char kWordDelimiters[] = "`~!@#$%^&*()-+=\\|[]{}:;\"'<>,./? \r\n\t";
static_assert(sizeof kWordDelimiters - 1 == 35, "35 delimiters");

}  // namespace

bool CScintillaWnd::IsCompleteWord(char ch) {
    return ch != '\0' && std::memchr(kWordDelimiters, ch, sizeof kWordDelimiters - 1) != nullptr;
}

bool CScintillaWnd::IsBrace(char ch) {
    return ch == '(' || ch == ')' || ch == '[' || ch == ']' || ch == '{' || ch == '}';
}

SString CScintillaWnd::GetLine(int line) {
    if (line < 0) {
        const long caretLine = SendEditor(SCI_LINEFROMPOSITION, WPARAM(SendEditor(SCI_GETCURRENTPOS)));
        const long length = std::max(SendEditor(SCI_LINELENGTH, WPARAM(caretLine)), 0L);
        // One byte of room more than asked for: engine versions differ in whether the
        // length given counts the terminating NUL.
        std::vector<char> buffer(size_t(length) + 2, '\0');
        SendEditor(SCI_GETCURLINE, WPARAM(length + 1), reinterpret_cast<LPARAM>(buffer.data()));
        return SString(buffer.data(), 0, unsigned(length));
    }
    if (line >= GetLineCount()) return SString("");
    const long length = SendEditor(SCI_LINELENGTH, WPARAM(line));
    std::vector<char> buffer(size_t(std::max(length, 0L)) + 1, '\0');
    SendEditor(SCI_GETLINE, WPARAM(line), reinterpret_cast<LPARAM>(buffer.data()));
    return SString(buffer.data(), 0, unsigned(buffer.size() - 1));
}

int CScintillaWnd::GetCaretInLine() {
    const long caret = SendEditor(SCI_GETCURRENTPOS);
    const long line = SendEditor(SCI_LINEFROMPOSITION, WPARAM(caret));
    return int(caret - SendEditor(SCI_POSITIONFROMLINE, WPARAM(line)));
}

bool CScintillaWnd::FloatingCompleteWordWnd(char* list, int length) {
    if (!list) {
        SendEditor(SCI_AUTOCCANCEL);
        return false;
    }
    SendEditor(SCI_AUTOCSHOW, WPARAM(std::max(length, 0)), reinterpret_cast<LPARAM>(list));
    return true;
}

bool CScintillaWnd::StartAutoCompleteWord(int) {
    const SString line = GetLine(-1);
    const int current = std::min(GetCaretInLine(), int(line.length()));
    if (current <= 0) return false;
    // The root: the word bytes right before the caret.
    int startWord = current;
    while (startWord > 0 && !IsCompleteWord(line[unsigned(startWord - 1)])) --startWord;
    if (startWord == current) return false;
    const SString root = line.substr(unsigned(startWord), unsigned(current - startWord));
    const int rootLength = int(root.length());

    const int docLength = LengthDocument();
    const long flags = SCFIND_WORDSTART | (autoCompleteIgnoreCase ? 0 : SCFIND_MATCHCASE);
    const long rootAtCaret = GetCurrentPosition() - rootLength;
    Sci_TextToFind ft;
    ft.lpstrText = root.c_str();
    ft.chrg.cpMin = 0;
    // The candidates in order of first occurrence, each followed by a "|"; whether a word is
    // already taken is looked up, byte for byte, in a set beside the list.
    SString list("|");
    std::unordered_set<std::string> taken;
    std::vector<char> text(kCandidateBytes + 1, '\0');
    for (;;) {
        ft.chrg.cpMax = docLength;
        const long pos = SendEditor(SCI_FINDTEXT, WPARAM(flags), reinterpret_cast<LPARAM>(&ft));
        if (pos < 0 || pos >= docLength) break;
        if (pos == rootAtCaret) {
            ft.chrg.cpMin = pos + rootLength;  // the word being typed is no candidate
            continue;
        }
        const int end = int(std::min<long>(pos + kCandidateBytes, docLength));
        Sci_TextRange range;
        range.chrg = {pos, end};
        range.lpstrText = text.data();
        SendEditor(SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range));
        int wordLength = 0;
        while (wordLength < end - pos && !IsCompleteWord(text[size_t(wordLength)]) && text[size_t(wordLength)] != '\0')
            ++wordLength;
        if (wordLength > rootLength && taken.emplace(text.data(), size_t(wordLength)).second) {
            list.append(text.data(), unsigned(wordLength));
            list += "|";
        }
        ft.chrg.cpMin = pos + std::max(wordLength, 1);  // always onwards
    }
    if (list.length() <= 1) return false;
    // Without the separators at the ends; the engine's separator is "|" for these lists.
    SString shown = list.substr(1, list.length() - 2);
    SendEditor(SCI_AUTOCSETSEPARATOR, '|');
    SendEditor(SCI_AUTOCSHOW, WPARAM(rootLength), reinterpret_cast<LPARAM>(shown.c_str()));
    return true;
}

bool CScintillaWnd::FindMatchingBracePosition(bool editor, int& braceAtCaret, int& braceOpposite, bool sloppy) {
    // Styles count in their low 5 bits, the style to check as well as the document's.
    const int styleToCheck = (editor ? bracesStyle : 0) & 31;
    const int caret = int(GetCurrentPosition());
    braceAtCaret = -1;
    braceOpposite = -1;
    const int lengthDoc = LengthDocument();
    WindowAccessor acc(this, props);
    bool braceBeforeCaret = true;
    // A brace just before the caret; the byte before must be a whole character, so that the
    // tail of a multi-byte character is never taken for one.
    if (lengthDoc > 0 && caret > 0 && SendEditor(SCI_POSITIONBEFORE, WPARAM(caret)) == caret - 1) {
        const char ch = acc[caret - 1];
        const int style = acc.StyleAt(caret - 1) & 31;
        if (IsBrace(ch) && (style == styleToCheck || bracesStyle == 0)) braceAtCaret = caret - 1;
    }
    // Else, when sloppy, a brace just after it, always in the style to check.
    if (sloppy && braceAtCaret < 0 && lengthDoc > 0 && caret >= 0 && caret < lengthDoc &&
        SendEditor(SCI_POSITIONAFTER, WPARAM(caret)) == caret + 1) {
        const char ch = acc[caret];
        const int style = acc.StyleAt(caret) & 31;
        if (IsBrace(ch) && style == styleToCheck) {
            braceAtCaret = caret;
            braceBeforeCaret = false;
        }
    }
    if (braceAtCaret < 0) return false;
    braceOpposite = int(SendEditor(SCI_BRACEMATCH, WPARAM(braceAtCaret), 0));
    // Inside the pair: just behind an opening brace, or just in front of a closing one.
    return braceBeforeCaret ? braceOpposite > braceAtCaret : braceOpposite <= braceAtCaret;
}

void CScintillaWnd::GoMatchingBrace(bool select) {
    int braceAtCaret = -1;
    int braceOpposite = -1;
    const bool inside = FindMatchingBracePosition(true, braceAtCaret, braceOpposite, true);
    if (braceAtCaret < 0 || braceOpposite < 0) return;  // no brace, or one without a partner
    // Brace positions become caret positions on the side of each brace that faces the caret's
    // side, so that jumping again comes back.
    const bool partnerBehind = braceOpposite > braceAtCaret;
    if (inside == partnerBehind)
        ++braceAtCaret;
    else
        ++braceOpposite;
    SendEditor(SCI_ENSUREVISIBLEENFORCEPOLICY, WPARAM(SendEditor(SCI_LINEFROMPOSITION, WPARAM(braceOpposite))));
    if (select)
        SendEditor(SCI_SETSEL, WPARAM(braceAtCaret), braceOpposite);
    else
        SendEditor(SCI_SETSEL, WPARAM(braceOpposite), braceOpposite);
}
