#include "WindowAccessor.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "CScintillaWnd.h"
#include "PropSet.h"
#include "QuillEngine.h"

namespace {

long send(CScintillaWnd* window, long message, WPARAM wParam = 0, LPARAM lParam = 0) {
    QuillEngine* engine = window ? window->engine() : nullptr;
    return engine ? engine->send(UINT(message), wParam, lParam) : 0;
}

// Lead bytes of the double-byte code pages the library knows: Shift-JIS (932) and the
// EUC-style pages of Chinese (936, 950) and Korean (949).
bool isDbcsLeadByte(int codePage, unsigned char ch) {
    switch (codePage) {
        case 932: return (ch >= 0x81 && ch <= 0x9F) || (ch >= 0xE0 && ch <= 0xFC);
        case 936:
        case 949:
        case 950: return ch >= 0x81 && ch <= 0xFE;
        default: return false;
    }
}

}  // namespace

WindowAccessor::WindowAccessor(CScintillaWnd* window_, PropSet& props_) : window(window_), props(props_) {}

bool WindowAccessor::InternalIsLeadByte(char ch) {
    if (codePage == SC_CP_UTF8) return false;
    return isDbcsLeadByte(codePage, static_cast<unsigned char>(ch));
}

void WindowAccessor::Fill(int position) {
    if (lenDoc == -1) lenDoc = Length();
    // 500 bytes before the position and 3500 after it, pulled back near the document's end.
    startPos = position - slopSize;
    if (position > lenDoc - (bufferSize - slopSize)) startPos = lenDoc - bufferSize;
    if (startPos < 0) startPos = 0;
    endPos = std::min(startPos + bufferSize, lenDoc);
    if (endPos < startPos) endPos = startPos;
    buf[0] = '\0';
    if (endPos > startPos) {
        Sci_TextRange range;
        range.chrg = {startPos, endPos};
        range.lpstrText = buf;
        if (send(window, SCI_GETTEXTRANGE, 0, reinterpret_cast<LPARAM>(&range)) != endPos - startPos)
            endPos = startPos;  // nothing read: treat the buffer as empty rather than stale
    }
}

bool WindowAccessor::Match(int pos, const char* s) {
    if (!s) return true;
    for (int i = 0; s[i]; ++i)
        if (s[i] != SafeGetCharAt(pos + i, ' ')) return false;
    return true;
}

char WindowAccessor::StyleAt(int position) { return char(send(window, SCI_GETSTYLEAT, WPARAM(position))); }

int WindowAccessor::GetLine(int position) { return int(send(window, SCI_LINEFROMPOSITION, WPARAM(position))); }

int WindowAccessor::LineStart(int line) { return int(send(window, SCI_POSITIONFROMLINE, WPARAM(line))); }

int WindowAccessor::LevelAt(int line) { return int(send(window, SCI_GETFOLDLEVEL, WPARAM(line))); }

int WindowAccessor::Length() {
    if (lenDoc == -1) lenDoc = int(send(window, SCI_GETTEXTLENGTH));
    return lenDoc;
}

void WindowAccessor::Flush() {
    startPos = extremePosition;
    lenDoc = -1;
    if (validLen > 0) {
        send(window, SCI_SETSTYLINGEX, WPARAM(validLen), reinterpret_cast<LPARAM>(styleBuf));
        validLen = 0;
    }
}

int WindowAccessor::GetLineState(int line) { return int(send(window, SCI_GETLINESTATE, WPARAM(line))); }

int WindowAccessor::SetLineState(int line, int state) {
    return int(send(window, SCI_SETLINESTATE, WPARAM(line), state));
}

int WindowAccessor::GetPropertyInt(const char* key, int defaultValue) {
    return key ? props.GetInt(key, defaultValue) : defaultValue;
}

char* WindowAccessor::GetProperties() { return props.ToString(); }

void WindowAccessor::StartAt(unsigned int start, char chMask) {
    send(window, SCI_STARTSTYLING, WPARAM(start), static_cast<unsigned char>(chMask));
}

void WindowAccessor::ColourTo(unsigned int pos, int attr) {
    // pos one before the segment's start is the empty segment: only startSeg moves.
    if (pos != startSeg - 1) {
        if (pos < startSeg) {
            // The caller went backwards ("Bad colour positions"): nothing is styled, and the
            // next segment starts behind pos as usual.
        } else {
            const unsigned int length = pos - startSeg + 1;
            if (validLen + std::uint64_t(length) >= unsigned(bufferSize)) Flush();
            if (validLen + std::uint64_t(length) >= unsigned(bufferSize)) {
                // Larger than the buffer: straight to the engine, without the flags.
                send(window, SCI_SETSTYLING, WPARAM(length), attr);
            } else {
                if (char(attr) != chWhile) chFlags = 0;
                const char style = char(attr | chFlags);
                std::memset(styleBuf + validLen, style, length);
                validLen += int(length);
            }
        }
    }
    startSeg = pos + 1;
}

void WindowAccessor::SetLevel(int line, int level) { send(window, SCI_SETFOLDLEVEL, WPARAM(line), level); }

int WindowAccessor::IndentAmount(int line, int* flags, bool (*isCommentLeader)(Accessor&, int, int)) {
    const int end = Length();
    int spaceFlags = 0;
    int pos = LineStart(line);
    if (pos < 0) pos = end;  // no such line: it reads as empty
    char ch = (*this)[pos];
    int indent = 0;
    // The previous line's indentation is walked in step, to tell blanks from tabs at the same
    // place; its first byte that is neither ends the comparison.
    bool inPrevPrefix = line > 0;
    int posPrev = inPrevPrefix ? LineStart(line - 1) : 0;
    while ((ch == ' ' || ch == '\t') && pos < end) {
        if (inPrevPrefix) {
            const char chPrev = (*this)[posPrev++];
            if (chPrev == ' ' || chPrev == '\t') {
                if (chPrev != ch) spaceFlags |= wsInconsistent;
            } else {
                inPrevPrefix = false;
            }
        }
        if (ch == ' ') {
            spaceFlags |= wsSpace;
            ++indent;
        } else {
            spaceFlags |= wsTab;
            if (spaceFlags & wsSpace) spaceFlags |= wsSpaceTab;
            indent = (indent / 8 + 1) * 8;
        }
        ch = (*this)[++pos];
    }
    if (flags) *flags = spaceFlags;
    indent += SC_FOLDLEVELBASE;
    const bool white = ch == ' ' || (ch >= 9 && ch <= 13);
    if (white || (isCommentLeader && isCommentLeader(*this, pos, end - pos))) return indent | SC_FOLDLEVELWHITEFLAG;
    return indent;
}

// The word grab: the selection, or the word round an empty one, as text.

SString CScintillaWnd::SelectionWord(bool stripEol) {
    return SelectionExtend(&CScintillaWnd::islexerwordcharforsel, stripEol);
}

SString CScintillaWnd::SelectionExtend(bool (CScintillaWnd::*isWordChar)(char) const, bool stripEol) {
    return RangeExtendAndGrab(int(GetSelectionStart()), int(GetSelectionEnd()), isWordChar, stripEol);
}

SString CScintillaWnd::RangeExtendAndGrab(int start, int end, bool (CScintillaWnd::*isWordChar)(char) const,
                                          bool stripEol) {
    const int lengthDoc = LengthDocument();
    start = std::clamp(start, 0, std::max(lengthDoc, 0));
    end = std::clamp(end, 0, std::max(lengthDoc, 0));
    if (start == end && isWordChar) {
        // Only an empty range grows, to the word characters on both sides of it.
        WindowAccessor acc(this, props);
        while (start > 0 && (this->*isWordChar)(acc[start - 1])) --start;
        while (end < lengthDoc && (this->*isWordChar)(acc[end])) ++end;
    }
    SString selected;
    if (start != end) selected = GetRangeInUIEncoding(std::min(start, end), std::max(start, end));
    if (stripEol) {
        // One line end only: CR LF, else a single CR or LF.
        if (selected.endswith("\r\n"))
            selected.remove(selected.length() - 2, 0);
        else if (selected.endswith("\r") || selected.endswith("\n"))
            selected.remove(selected.length() - 1, 0);
    }
    return selected;
}
