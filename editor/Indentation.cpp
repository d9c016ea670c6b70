// Automatic indentation. After each typed character the indentation of the caret's line may
// change. The block role of a line comes from the lexer's styles, not from a parser: a line's
// runs of text in a configured style are compared with configured words ("block.end" and its
// kin), so "end" in a comment or a string never counts.
#include <algorithm>
#include <cstring>

#include "CScintillaWnd.h"
#include "WindowAccessor.h"

namespace {

// Whether one collected run of text is among the words of sw. Words that begin with an ASCII
// letter form a blank-separated list compared exactly, case included; anything else is a
// punctuation marker, and then a run holding its first character counts.
bool includes(const StyleAndWords& sw, const SString& value) {
    if (sw.words.length() == 0) return false;
    const char first = sw.words[0];
    const bool letter = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z');
    if (!letter) return value.contains(first);
    const char* list = sw.words.c_str();
    const std::size_t valueLength = value.length();
    while (*list) {
        while (*list == ' ') ++list;
        const char* wordEnd = std::strchr(list, ' ');
        const std::size_t wordLength = wordEnd ? std::size_t(wordEnd - list) : std::strlen(list);
        if (wordLength && wordLength == valueLength && std::memcmp(list, value.c_str(), wordLength) == 0) return true;
        list += wordLength;
    }
    return false;
}

bool isSingleCharacter(const StyleAndWords& sw) { return sw.words.length() == 1; }

// Where a selection end goes when a line's text start moves from posBefore to posAfter: ends
// behind the change move with the text; ends in removed white space collapse to where the
// text now begins.
long movedSelectionEnd(long end, long posBefore, long posAfter) {
    if (posAfter > posBefore && end >= posBefore) return end + (posAfter - posBefore);
    if (posAfter < posBefore && end >= posAfter) return end >= posBefore ? end + (posAfter - posBefore) : posAfter;
    return end;
}

}  // namespace

void CScintillaWnd::CharAdded(char ch) {
    const long selStart = GetSelectionStart();
    const long selEnd = GetSelectionEnd();
    if (selStart != selEnd || selStart <= 0) return;
    if (indentMaintain)
        MaintainIndentation(ch);
    else if (props.GetInt("indent.automatic", 0))
        AutomaticIndentation(ch);
}

void CScintillaWnd::MaintainIndentation(char ch) {
    const long eolMode = SendEditor(SCI_GETEOLMODE);
    const bool lineEnded = ((eolMode == SC_EOL_CRLF || eolMode == SC_EOL_LF) && ch == '\n') ||
                           (eolMode == SC_EOL_CR && ch == '\r');
    if (!lineEnded) return;
    const int curLine = GetCurrentLineNumber();
    int lastLine = curLine - 1;
    if (props.GetInt("indent.automatic", 0)) {
        while (lastLine >= 0 && SendEditor(SCI_LINELENGTH, WPARAM(lastLine)) == 0) --lastLine;
    }
    if (lastLine < 0) return;
    const int indentAmount = GetLineIndentation(lastLine);
    if (indentAmount > 0) SetLineIndentation(curLine, indentAmount, false);
}

void CScintillaWnd::AutomaticIndentation(char ch) {
    const long selStart = GetSelectionStart();
    const int curLine = GetCurrentLineNumber();
    const int lineStart = GetPositionFromLine(curLine);
    const int unit = indentUnit();
    // The block's indentation reads the lines above, so it is worked out only where it is used.
    if (isSingleCharacter(blockEnd) && ch == blockEnd.words[0]) {
        // A closing character typed first on its line moves the line out.
        if (!indentClosing && RangeIsAllWhitespace(lineStart, int(selStart) - 1))
            SetLineIndentation(curLine, IndentOfBlock(curLine - 1) - unit, false);
    } else if (!isSingleCharacter(blockEnd) && ch == ' ') {
        // An end word is judged when its line is ended, not while it is typed.
    } else if (isSingleCharacter(blockStart) && ch == blockStart.words[0]) {
        // An opening character under a one-statement keyword takes the keyword's indentation.
        if (!indentOpening && GetIndentState(curLine - 1) == IndentKeywordStart &&
            RangeIsAllWhitespace(lineStart, int(selStart) - 1))
            SetLineIndentation(curLine, IndentOfBlock(curLine - 1) - unit, false);
    } else if ((ch == '\r' || ch == '\n') && selStart == lineStart) {
        if (!indentClosing && !isSingleCharacter(blockEnd)) {
            // Enter behind an end word moves the end word's line out.
            SString parts[1];
            if (GetLinePartsInStyle(curLine - 1, blockEnd.style, -1, parts, 1) && includes(blockEnd, parts[0]))
                SetLineIndentation(curLine - 1, IndentOfBlock(curLine - 2) - unit, false);
        }
        // Taken after any change to the line above, which it reads.
        SetLineIndentation(curLine, IndentOfBlock(curLine - 1), true);
    }
}

int CScintillaWnd::IndentOfBlock(int line) {
    if (line < 0) return 0;
    const int unit = indentUnit();
    int indentBlock = GetLineIndentation(line);
    if (!statementIndent.words.length() && !blockStart.words.length() && !blockEnd.words.length())
        return indentBlock;  // the next line simply follows this one
    const int minLine = std::max(line - std::max(statementLookback, 0), 0);
    for (int lineLook = line; lineLook >= minLine; --lineLook) {
        const IndentationStatus state = GetIndentState(lineLook);
        if (state == IndentNone) continue;
        indentBlock = GetLineIndentation(lineLook);
        if (state == IndentBlockStart) {
            if (!indentOpening) indentBlock += unit;
        } else if (state == IndentBlockEnd) {
            if (indentClosing) indentBlock = std::max(indentBlock - unit, 0);
        } else if (state == IndentKeywordStart && lineLook == line) {
            indentBlock += unit;  // a statement keyword indents the one line after it
        }
        break;
    }
    return indentBlock;
}

IndentationStatus CScintillaWnd::GetIndentState(int line) {
    constexpr int maxParts = 20;
    IndentationStatus state = IndentNone;
    SString parts[maxParts];
    // A run is only ever compared with words; without words there is nothing to collect.
    if (statementIndent.words.length()) {
        const unsigned int count = GetLinePartsInStyle(line, statementIndent.style, -1, parts, maxParts);
        for (unsigned int i = 0; i < count; ++i)
            if (includes(statementIndent, parts[i])) state = IndentKeywordStart;
    }
    if (blockEnd.words.length() || blockStart.words.length()) {
        const unsigned int count = GetLinePartsInStyle(line, blockEnd.style, -1, parts, maxParts);
        for (unsigned int i = 0; i < count; ++i) {
            if (includes(blockEnd, parts[i])) state = IndentBlockEnd;
            if (includes(blockStart, parts[i])) state = IndentBlockStart;
        }
    }
    return state;
}

StyleAndWords CScintillaWnd::GetStyleAndWords(const char* key) {
    StyleAndWords sw;
    if (!key) return sw;
    // The key itself or the key followed by a pattern matching SQL files; property files
    // also write a dot between the two ("block.end.$(file.patterns.sql)"), which is read when
    // the first form gives nothing.
    SString value = props.GetNewExpand(key, "x.sql");
    if (value.length() == 0) {
        SString dotted(key);
        dotted += ".";
        value = props.GetNewExpand(dotted.c_str(), "x.sql");
    }
    sw.style = value.value();
    const int blank = value.search(" ");
    if (blank >= 0) sw.words = value.substr(unsigned(blank) + 1);
    return sw;
}

unsigned int CScintillaWnd::GetLinePartsInStyle(int line, int style1, int style2, SString* const parts, int count) {
    for (int i = 0; i < count; ++i) parts[i] = "";
    if (line < 0 || line >= GetLineCount() || count <= 0) return 0;
    WindowAccessor acc(this, props);
    const int lineStart = acc.LineStart(line);
    int lineEnd = acc.LineStart(line + 1);
    if (lineEnd < lineStart) lineEnd = acc.Length();
    // Text typed since the last paint may not be lexed yet; its styles are what counts.
    ensureStyledTo(lineEnd);
    unsigned int part = 0;
    SString run;
    for (int pos = lineStart; pos < lineEnd; ++pos) {
        const int style = static_cast<signed char>(acc.StyleAt(pos));
        if (style == style1 || style == style2) {
            run += acc[pos];
        } else if (run.length()) {
            if (part < unsigned(count)) parts[part++] = run;
            run = "";
        }
    }
    if (run.length() && part < unsigned(count)) parts[part++] = run;
    return part;
}

bool CScintillaWnd::RangeIsAllWhitespace(int start, int end) {
    WindowAccessor acc(this, props);
    // Only the document's own bytes are looked at.
    end = std::min(end, acc.Length());
    for (int pos = std::max(start, 0); pos < end; ++pos) {
        const char ch = acc[pos];
        if (ch != ' ' && ch != '\t') return false;
    }
    return true;
}

void CScintillaWnd::SetLineIndentation(int line, int indent, bool fromLineStart) {
    if (indent < 0 || line < 0 || line >= GetLineCount()) return;
    Sci_CharacterRange range = GetSelection();
    const long posBefore = fromLineStart ? SendEditor(SCI_POSITIONFROMLINE, WPARAM(line))
                                         : SendEditor(SCI_GETLINEINDENTPOSITION, WPARAM(line));
    SendEditor(SCI_SETLINEINDENTATION, WPARAM(line), indent);
    const long posAfter = SendEditor(SCI_GETLINEINDENTPOSITION, WPARAM(line));
    range.cpMin = movedSelectionEnd(range.cpMin, posBefore, posAfter);
    range.cpMax = movedSelectionEnd(range.cpMax, posBefore, posAfter);
    SendEditor(SCI_SETSEL, WPARAM(range.cpMin), range.cpMax);
}

void CScintillaWnd::SetLineIndentationForFileEditor(int line, int indent) {
    if (indent < 0 || line < 0 || line >= GetLineCount()) return;
    Sci_CharacterRange range = GetSelection();
    const bool caretOnly = range.cpMin == range.cpMax;
    const long lineStart = SendEditor(SCI_POSITIONFROMLINE, WPARAM(line));
    const long posBefore = SendEditor(SCI_GETLINEINDENTPOSITION, WPARAM(line));
    SendEditor(SCI_SETLINEINDENTATION, WPARAM(line), indent);
    const long posAfter = SendEditor(SCI_GETLINEINDENTPOSITION, WPARAM(line));
    const long diff = posAfter - posBefore;
    if (caretOnly) {
        // The caret keeps its place in the line's text, wherever it stands on or after the
        // line; it never leaves the line when the indentation shrinks under it.
        if (range.cpMin >= lineStart) range.cpMin = range.cpMax = std::max(range.cpMin + diff, lineStart);
    } else {
        range.cpMin = movedSelectionEnd(range.cpMin, posBefore, posAfter);
        range.cpMax = movedSelectionEnd(range.cpMax, posBefore, posAfter);
    }
    SendEditor(SCI_SETSEL, WPARAM(range.cpMin), range.cpMax);
}

int CScintillaWnd::GetLineIndentation(int line) { return int(SendEditor(SCI_GETLINEINDENTATION, WPARAM(line))); }

int CScintillaWnd::GetCurrentLineNumber() {
    return int(SendEditor(SCI_LINEFROMPOSITION, WPARAM(SendEditor(SCI_GETCURRENTPOS))));
}

int CScintillaWnd::indentUnit() {
    // The engine itself takes the tab width when no indentation size is set.
    const int unit = int(SendEditor(SCI_GETINDENT));
    return unit > 0 ? unit : int(SendEditor(SCI_GETTABWIDTH));
}
