// Find and replace of CScintillaWnd. The dialog family (Find, FindNext, Replace, PlayReplace,
// ReplaceAll(bool)) works on the window's kept find state, searches through the engine's
// target range and tells the user what happened; the direct family (SearchForward,
// SearchBackward, ReplaceSearchedText, ReplaceAll(find, replace, inSelection)) takes its
// text as arguments, uses `searchFlags` and never speaks to the user.
#include <QChar>
#include <QCoreApplication>
#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "CEditReplaceDlg.h"
#include "CFindTextDlg.h"
#include "CScintillaWnd.h"
#include "MessageBox.h"

namespace {
bool isOctalDigit(char ch) { return ch >= '0' && ch <= '7'; }

int hexValue(char ch) {
    if (ch >= '0' && ch <= '9') return ch - '0';
    if (ch >= 'a' && ch <= 'f') return ch - 'a' + 10;
    if (ch >= 'A' && ch <= 'F') return ch - 'A' + 10;
    return -1;
}

// Decodes the C escapes of a plain search or replacement text. A backslash at the very end
// becomes a zero byte, as does a backslash-x with no hexadecimal digit after it.
std::string unescapeText(std::string_view in) {
    std::string out;
    out.reserve(in.size());
    for (size_t i = 0; i < in.size(); ++i) {
        if (in[i] != '\\') {
            out += in[i];
            continue;
        }
        if (++i >= in.size()) {
            out += '\0';
            break;
        }
        const char ch = in[i];
        switch (ch) {
            case 'a': out += '\a'; break;
            case 'b': out += '\b'; break;
            case 'f': out += '\f'; break;
            case 'n': out += '\n'; break;
            case 'r': out += '\r'; break;
            case 't': out += '\t'; break;
            case 'v': out += '\v'; break;
            case 'x': {
                int value = 0;
                for (int digits = 0; digits < 2 && i + 1 < in.size() && hexValue(in[i + 1]) >= 0; ++digits)
                    value = value * 16 + hexValue(in[++i]);
                out += char(value);
                break;
            }
            default:
                if (isOctalDigit(ch)) {
                    int value = ch - '0';
                    for (int digits = 1; digits < 3 && i + 1 < in.size() && isOctalDigit(in[i + 1]); ++digits)
                        value = value * 8 + (in[++i] - '0');
                    out += char(value & 0xFF);
                } else {
                    out += ch;
                }
                break;
        }
    }
    return out;
}

// For a regular expression only backslash, 0 and two octal digits become their byte; every
// other escape is the expression's own and reaches the engine as it is.
std::string unescapeLowOctal(std::string_view in) {
    std::string out;
    out.reserve(in.size());
    for (size_t i = 0; i < in.size(); ++i) {
        if (in[i] == '\\' && i + 3 < in.size() && in[i + 1] == '0' && isOctalDigit(in[i + 2]) &&
            isOctalDigit(in[i + 3])) {
            out += char(8 * (in[i + 2] - '0') + (in[i + 3] - '0'));
            i += 3;
        } else {
            out += in[i];
        }
    }
    return out;
}

// One character of a UTF-8 text: its code point and its length in bytes. A byte that starts
// no well-formed sequence (a stray trail byte, a cut, overlong or surrogate sequence) is a
// unit of one byte, marked as such.
struct Utf8Unit {
    char32_t value;
    size_t length;
    bool valid;
};

Utf8Unit utf8UnitAt(std::string_view text, size_t at) {
    const unsigned char lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80) return {lead, 1, true};
    const size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0 || at + length > text.size()) return {lead, 1, false};
    char32_t value = lead & (0x7Fu >> length);
    for (size_t k = 1; k < length; ++k) {
        const unsigned char trail = static_cast<unsigned char>(text[at + k]);
        if ((trail & 0xC0) != 0x80) return {lead, 1, false};
        value = (value << 6) | (trail & 0x3Fu);
    }
    constexpr char32_t shortest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (value < shortest[length] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
        return {lead, 1, false};
    return {value, length, true};
}

// Equal without regard to the case of any letter of Unicode, character by character of the
// UTF-8 texts. Bytes outside well-formed sequences must agree exactly.
bool equalIgnoringCase(std::string_view a, std::string_view b) {
    size_t i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        const Utf8Unit x = utf8UnitAt(a, i);
        const Utf8Unit y = utf8UnitAt(b, j);
        if (x.valid != y.valid) return false;
        if (x.valid ? QChar::toCaseFolded(x.value) != QChar::toCaseFolded(y.value) : x.value != y.value) return false;
        i += x.length;
        j += y.length;
    }
    return i == a.size() && j == b.size();
}

CString translated(const char* text) { return CString::fromQString(QCoreApplication::translate("Quillbox", text)); }

// A message naming the raw find text: `text` holds %1 where it goes.
CString withFindText(const char* text, const CString& findText) {
    return CString::fromQString(QCoreApplication::translate("Quillbox", text).arg(findText.toQString()));
}
}  // namespace

int CScintillaWnd::UnescapeAsNeeded(SString& text) {
    if (unescape) {
        const std::string_view raw(text.c_str(), text.length());
        const std::string decoded = regExp ? unescapeLowOctal(raw) : unescapeText(raw);
        // A decoded zero byte ends the text: the engine gets what stands before it.
        text = SString(decoded.c_str());
    }
    return int(std::strlen(text.c_str()));
}

void CScintillaWnd::backSlashExprCheck() {
    if (!regExp) return;
    // Line ends and tabs are no escapes of the engine's expressions; such a text is decoded
    // in full and searched as plain text instead.
    for (const char* escape : {"\\r\\n", "\\r", "\\n", "\\t"})
        if (findText.Find(escape) >= 0) {
            regExp = 0;
            return;
        }
}

int CScintillaWnd::dialogSearchFlags(bool withPosix) {
    int flags = (wholeWord ? SCFIND_WHOLEWORD : 0) | (matchCase ? SCFIND_MATCHCASE : 0) | (regExp ? SCFIND_REGEXP : 0);
    if (withPosix && props.GetInt("find.replace.regexp.posix") != 0) flags |= SCFIND_POSIX;
    return flags;
}

void CScintillaWnd::SetFindFlag(int wholeWordOn, int matchCaseOn, int regExpOn, int, int wrap) {
    wholeWord = wholeWordOn;
    matchCase = matchCaseOn;
    regExp = regExpOn;
    wrapSearch = wrap;
}

void CScintillaWnd::SetSearchflags(int flags) { searchFlags = flags; }

void CScintillaWnd::selectionIntoFind(bool) {
    long start = GetSelectionStart(), end = GetSelectionEnd();
    if (start == end) {
        const long caret = GetCurrentPosition();
        start = SendEditor(SCI_WORDSTARTPOSITION, WPARAM(caret), 0);
        end = SendEditor(SCI_WORDENDPOSITION, WPARAM(caret), 0);
    }
    if (end <= start) return;
    std::vector<char> candidate(size_t(end - start) + 1, '\0');
    GetRange(int(start), int(end), candidate.data());
    // A text that starts with a line end never replaces the kept one.
    if (candidate[0] == '\0' || candidate[0] == '\r' || candidate[0] == '\n') return;
    findText = CString(candidate.data(), int(end - start));
}

int CScintillaWnd::FindInTarget(char const* text, int length, int start, int end) {
    if (!text || length < 0) return -1;
    length = int(std::min<size_t>(size_t(length), std::strlen(text)));
    SendEditor(SCI_SETTARGETSTART, WPARAM(start));
    SendEditor(SCI_SETTARGETEND, WPARAM(end));
    long position = SendEditor(SCI_SEARCHINTARGET, WPARAM(length), reinterpret_cast<LPARAM>(text));
    // A match's style is read once the text up to it is coloured.
    auto outOfStyle = [this](long at) {
        ensureStyledTo(at + 1);
        return SendEditor(SCI_GETSTYLEAT, WPARAM(at)) != findStyle;
    };
    while (findInStyle && position != -1 && outOfStyle(position)) {
        if (start < end) {
            SendEditor(SCI_SETTARGETSTART, WPARAM(position + 1));
            SendEditor(SCI_SETTARGETEND, WPARAM(end));
        } else {
            SendEditor(SCI_SETTARGETSTART, WPARAM(start));
            SendEditor(SCI_SETTARGETEND, WPARAM(position + 1));
        }
        position = SendEditor(SCI_SEARCHINTARGET, WPARAM(length), reinterpret_cast<LPARAM>(text));
    }
    return int(position);
}

namespace {
// Shows a modeless dialog, made on first use and kept, so its fields survive between showings;
// null when its window cannot be made.
template <typename Dialog>
Dialog* showModeless(std::unique_ptr<Dialog>& dialog, CScintillaWnd* owner) {
    if (!dialog) dialog = std::make_unique<Dialog>(owner);
    if (!dialog->GetSafeHwnd() && !dialog->Create(Dialog::IDD, owner)) {
        dialog.reset();
        return nullptr;
    }
    dialog->ShowWindow(SW_SHOW);
    return dialog.get();
}

// Puts the find text at the top of a dialog's find combo, selected and ready to overtype.
void offerFindText(CMemComboBox& combo, const CString& text) {
    combo.Fill(text);
    combo.SetFocus();
    combo.SetEditSel(0, int(text.toQString().size()));
}
}  // namespace

void CScintillaWnd::Find() {
    if (!showModeless(findDialog, this)) return;
    selectionIntoFind(true);
    offerFindText(findDialog->findCombo, findText);
}

void CScintillaWnd::Replace() {
    if (!showModeless(replaceDialog, this)) return;
    selectionIntoFind(true);
    offerFindText(replaceDialog->findCombo, findText);
    replaceDialog->findText = findText;
    const bool selection = IsSelection() != 0;
    replaceDialog->PrepareForShow(selection ? 1 : 0, selection ? 0 : 1);
    // PrepareForShow writes the find text into the combo again, which drops its selection:
    // select it once more, so that typing replaces the offered text as in the find dialog.
    replaceDialog->findCombo.SetFocus();
    replaceDialog->findCombo.SetEditSel(0, int(replaceDialog->findText.toQString().size()));
}

int CScintillaWnd::FindNext(bool reverse, bool showWarnings) {
    if (findText.IsEmpty()) {
        Find();
        return -1;
    }
    backSlashExprCheck();
    SString target(findText.c_str());
    const int length = UnescapeAsNeeded(target);
    if (length == 0) return -1;

    const Sci_CharacterRange selection = GetSelection();
    const int documentLength = int(SendEditor(SCI_GETLENGTH));
    const int start = int(reverse ? selection.cpMin : selection.cpMax);
    const int end = reverse ? 0 : documentLength;
    SendEditor(SCI_SETSEARCHFLAGS, WPARAM(dialogSearchFlags(true)));
    int position = FindInTarget(target.c_str(), length, start, end);
    if (position == -1 && wrapSearch) {
        // Wrapping is silent: the search simply starts again at the other end.
        position = reverse ? FindInTarget(target.c_str(), length, documentLength, 0)
                           : FindInTarget(target.c_str(), length, 0, documentLength);
    }
    if (position == -1) {
        haveFound = 0;
        if (showWarnings) AfxMessageBox(withFindText(QT_TRANSLATE_NOOP("Quillbox", "Can not find the string \"%1\""), findText), MB_OK);
        return -1;
    }
    haveFound = 1;
    const long matchStart = SendEditor(SCI_GETTARGETSTART);
    const long matchEnd = SendEditor(SCI_GETTARGETEND);
    EnsureRangeVisible(int(matchStart), int(matchEnd), true);
    SendEditor(SCI_SETSEL, WPARAM(matchStart), matchEnd);
    markCurrentMatch(matchStart, matchEnd);
    return position;
}

bool CScintillaWnd::PlayReplace() {
    const Sci_CharacterRange selection = GetSelection();
    const CString selected = GetSelectionText();
    CString expected = findText;
    bool different = false;
    if (selection.cpMin != selection.cpMax && regExp) {
        backSlashExprCheck();
        SString target(findText.c_str());
        const int length = UnescapeAsNeeded(target);
        if (length == 0) return true;
        SendEditor(SCI_SETSEARCHFLAGS, WPARAM(dialogSearchFlags(true)));
        const int documentLength = int(SendEditor(SCI_GETLENGTH));
        int position = FindInTarget(target.c_str(), length, int(selection.cpMin), documentLength);
        if (position == -1 && wrapSearch) position = FindInTarget(target.c_str(), length, 0, documentLength);
        if (position == -1) {
            different = true;
        } else {
            const long matchStart = SendEditor(SCI_GETTARGETSTART);
            const long matchEnd = SendEditor(SCI_GETTARGETEND);
            std::vector<char> match(size_t(std::max(matchEnd - matchStart, 0L)) + 1, '\0');
            GetRange(int(matchStart), int(matchEnd), match.data());
            expected = CString(match.data(), int(match.size()) - 1);
        }
    }
    // The selection counts as the match whatever the case, so that a match found without
    // regard to case can be replaced after "Match case" was switched on. Case is that of every
    // letter, not of ASCII letters alone.
    if (different || !equalIgnoringCase(std::string_view(selected.c_str(), size_t(selected.GetLength())),
                                        std::string_view(expected.c_str(), size_t(expected.GetLength())))) {
        SendEditor(SCI_SETSEL, WPARAM(selection.cpMin), selection.cpMin);
        FindNext(false, true);
        return false;
    }
    haveFound = 1;
    ReplaceOnce();
    return true;
}

void CScintillaWnd::fillReplaceHistory() {
    if (!replaceDialog) return;
    replaceDialog->replaceCombo.Fill(replaceText);
    replaceDialog->findCombo.Fill(findText);
}

void CScintillaWnd::ReplaceOnce() {
    backSlashExprCheck();
    fillReplaceHistory();
    if (haveFound) {
        SString replacement(replaceText.c_str());
        const int length = UnescapeAsNeeded(replacement);
        const Sci_CharacterRange selection = GetSelection();
        SendEditor(SCI_SETTARGETSTART, WPARAM(selection.cpMin));
        SendEditor(SCI_SETTARGETEND, WPARAM(selection.cpMax));
        long replaced = length;
        if (regExp)
            replaced = SendEditor(SCI_REPLACETARGETRE, WPARAM(length), reinterpret_cast<LPARAM>(replacement.c_str()));
        else
            SendEditor(SCI_REPLACETARGET, WPARAM(length), reinterpret_cast<LPARAM>(replacement.c_str()));
        // The new text is selected with the caret at its start.
        SendEditor(SCI_SETSEL, WPARAM(selection.cpMin + replaced), selection.cpMin);
        haveFound = 0;
    }
    FindNext(false, true);
}

int CScintillaWnd::DoReplaceAll(bool inSelection) {
    backSlashExprCheck();
    SString findTarget(findText.c_str());
    const int findLength = UnescapeAsNeeded(findTarget);
    if (findLength == 0) return -1;

    const Sci_CharacterRange selection = GetSelection();
    long start = selection.cpMin;
    long end = selection.cpMax;
    const long selectionMode = SendEditor(SCI_GETSELECTIONMODE);
    if (inSelection) {
        if (start == end) return -2;
        if (selectionMode == SC_SEL_LINES) {
            start = SendEditor(SCI_POSITIONFROMLINE, WPARAM(SendEditor(SCI_LINEFROMPOSITION, WPARAM(start))));
            end = SendEditor(SCI_POSITIONFROMLINE, WPARAM(SendEditor(SCI_LINEFROMPOSITION, WPARAM(end)) + 1));
            // Past the last line the engine gives -1: the range ends with the document.
            if (end < 0) end = SendEditor(SCI_GETLENGTH);
        }
    } else {
        end = SendEditor(SCI_GETLENGTH);
        if (wrapSearch) start = 0;
    }

    SString replacement(replaceText.c_str());
    const int replaceLength = UnescapeAsNeeded(replacement);
    SendEditor(SCI_SETSEARCHFLAGS, WPARAM(dialogSearchFlags(false)));

    long position;
    if (regExp && std::strcmp(findTarget.c_str(), "^") == 0) {
        // The start of the range counts as a line start even where the engine would not
        // report one, so that the first line is not left out. The search still runs: the
        // engine substitutes an expression's replacement only after it compiled one.
        FindInTarget(findTarget.c_str(), findLength, int(start), int(end));
        position = start;
        SendEditor(SCI_SETTARGETSTART, WPARAM(start));
        SendEditor(SCI_SETTARGETEND, WPARAM(start));
    } else {
        position = FindInTarget(findTarget.c_str(), findLength, int(start), int(end));
    }
    if (position == -1 || position > end) return 0;

    const bool rectangle = inSelection && selectionMode == SC_SEL_RECTANGLE;
    SendEditor(SCI_BEGINUNDOACTION);
    int count = 0;
    long lastMatch = position;
    while (position != -1) {
        const long targetStart = SendEditor(SCI_GETTARGETSTART);
        const long targetEnd = SendEditor(SCI_GETTARGETEND);
        const long targetLength = targetEnd - targetStart;
        if (rectangle) {
            const long line = SendEditor(SCI_LINEFROMPOSITION, WPARAM(position));
            const long lineStart = SendEditor(SCI_GETLINESELSTARTPOSITION, WPARAM(line));
            const long lineEnd = SendEditor(SCI_GETLINESELENDPOSITION, WPARAM(line));
            if (lineStart == -1 || targetStart < lineStart || targetEnd > lineEnd) {
                // Outside the rectangle on its line: look further without replacing.
                const long next = position + 1;
                if (next >= end) break;
                position = FindInTarget(findTarget.c_str(), findLength, int(next), int(end));
                continue;
            }
        }
        long movePastLineEnd = 0;
        if (targetLength <= 0) {
            const char after = char(SendEditor(SCI_GETCHARAT, WPARAM(targetEnd)));
            if (after == '\r' || after == '\n') movePastLineEnd = 1;
        }
        long replaced = replaceLength;
        if (regExp)
            replaced = SendEditor(SCI_REPLACETARGETRE, WPARAM(replaceLength), reinterpret_cast<LPARAM>(replacement.c_str()));
        else
            SendEditor(SCI_REPLACETARGET, WPARAM(replaceLength), reinterpret_cast<LPARAM>(replacement.c_str()));
        end += replaced - targetLength;
        lastMatch = position + replaced + movePastLineEnd;
        if (targetLength == 0) lastMatch = SendEditor(SCI_POSITIONAFTER, WPARAM(lastMatch));
        position = lastMatch >= end ? -1 : FindInTarget(findTarget.c_str(), findLength, int(lastMatch), int(end));
        ++count;
    }
    if (inSelection) SendEditor(SCI_SETSEL, WPARAM(start), end);
    else SendEditor(SCI_SETSEL, WPARAM(lastMatch), lastMatch);
    SendEditor(SCI_ENDUNDOACTION);
    return count;
}

int CScintillaWnd::ReplaceAll(bool inSelection) {
    fillReplaceHistory();
    const int result = DoReplaceAll(inSelection);
    if (result == -1) {
        AfxMessageBox(translated(QT_TRANSLATE_NOOP("Quillbox",
                                                   "Find string must not be empty for 'Replace in Selection' command. : "
                                                   "Find string must not be empty for 'Replace All' command.")),
                      MB_OK);
    } else if (result == -2) {
        AfxMessageBox(translated(QT_TRANSLATE_NOOP("Quillbox", "Selection must not be empty for 'Replace in Selection' command.")), MB_OK);
    } else if (result == 0) {
        AfxMessageBox(withFindText(QT_TRANSLATE_NOOP("Quillbox", "No replacements because string \"%1\" was not present."), findText), MB_OK);
    }
    return result;
}

int CScintillaWnd::ReplaceAll(char const* find, char const* replace, int inSelection) {
    if (!find || !*find || !replace) return 0;
    const long findLength = long(std::strlen(find));
    const long replaceLength = long(std::strlen(replace));
    const bool useRegExp = (searchFlags & SCFIND_REGEXP) != 0;
    auto rangeEnd = [&] { return inSelection ? GetSelectionEnd() : SendEditor(SCI_GETTEXTLENGTH); };
    const long start = inSelection ? GetSelectionStart() : 0;
    long end = rangeEnd();

    SendEditor(SCI_SETTARGETSTART, WPARAM(start));
    SendEditor(SCI_SETTARGETEND, WPARAM(end));
    long position = SendEditor(SCI_SEARCHINTARGET, WPARAM(findLength), reinterpret_cast<LPARAM>(find));
    if (position >= end) return 0;

    int count = 0;
    while (position >= 0) {
        const long matchLength = SendEditor(SCI_GETTARGETEND) - SendEditor(SCI_GETTARGETSTART);
        const long replaced = useRegExp
                                  ? SendEditor(SCI_REPLACETARGETRE, WPARAM(replaceLength), reinterpret_cast<LPARAM>(replace))
                                  : SendEditor(SCI_REPLACETARGET, WPARAM(replaceLength), reinterpret_cast<LPARAM>(replace));
        end = rangeEnd();
        long next = position + replaced;
        // An empty match moves on by one character, or the same place would match forever.
        if (matchLength == 0) {
            const long after = SendEditor(SCI_POSITIONAFTER, WPARAM(next));
            if (after <= next) {
                ++count;
                break;
            }
            next = after;
        }
        SendEditor(SCI_SETTARGETSTART, WPARAM(next));
        SendEditor(SCI_SETTARGETEND, WPARAM(end));
        position = SendEditor(SCI_SEARCHINTARGET, WPARAM(findLength), reinterpret_cast<LPARAM>(find));
        ++count;
        if (position >= end) break;
    }
    return count;
}

void CScintillaWnd::ReplaceSearchedText(CString text) {
    if (text.IsEmpty()) return;
    SendEditor(SCI_TARGETFROMSELECTION);
    const long message = (searchFlags & SCFIND_REGEXP) ? SCI_REPLACETARGETRE : SCI_REPLACETARGET;
    SendEditor(message, WPARAM(text.GetLength()), reinterpret_cast<LPARAM>(text.c_str()));
}

int CScintillaWnd::SearchForward(CString text) {
    if (text.IsEmpty()) return 0;
    const long length = SendEditor(SCI_GETLENGTH);
    const long from = GetCurrentPosition() + 1;
    if (from > length) return 0;  // past the end: nothing is left to search
    Sci_TextToFind find;
    find.chrg = {from, length};
    find.lpstrText = text.c_str();
    if (SendEditor(SCI_FINDTEXT, WPARAM(searchFlags), reinterpret_cast<LPARAM>(&find)) == -1) return 0;
    SetFocus();
    GotoPosition(find.chrgText.cpMin);
    SendEditor(SCI_SETSEL, WPARAM(find.chrgText.cpMin), find.chrgText.cpMax);
    return 1;
}

int CScintillaWnd::SearchBackward(CString text) {
    if (text.IsEmpty()) return 0;
    const long selectionStart = GetSelectionStart();
    const long from = (selectionStart < 0 ? GetCurrentPosition() : selectionStart) - 1;
    if (from < 0) return 0;  // at the start: nothing is left to search
    Sci_TextToFind find;
    find.chrg = {from, 0};
    find.lpstrText = text.c_str();
    if (SendEditor(SCI_FINDTEXT, WPARAM(searchFlags), reinterpret_cast<LPARAM>(&find)) == -1) return 0;
    SetFocus();
    GotoPosition(find.chrgText.cpMin);
    SendEditor(SCI_SETSEL, WPARAM(find.chrgText.cpMin), find.chrgText.cpMax);
    return 1;
}
