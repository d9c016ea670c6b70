#pragma once
// The SQL statement around the caret, found without a parser while the user is still typing.
//
// The statement is the run of text that reaches from the caret back and forward to the nearest
// boundary. Lines are scanned as plain bytes, with a handful of words and ';' as boundaries: no
// grammar, no lexer styles, no knowledge of string literals or block comments. A "--" on the
// caret's line before the caret means the caret stands in a line comment and gives an empty
// statement; any other "--" cuts its line. The completion service receives the result as the
// context of a qualified name.
//
// Text is UTF-8 (or any byte encoding): white space is blank, \t, \n, \v, \f and \r only, so a
// byte of 0x80 or above is never white space. A NUL byte is an ordinary word byte.
//
// Work is bounded: at most 501 lines are read in one extraction (a budget of 500 shared by both
// directions, plus the read at zero), each line alone, whatever the size of the document.
#include <functional>
#include <vector>

#include "CString.h"
#include "QuillboxExport.h"

// The document as the extraction reads it. Lines count from 0.
class QUILLBOX_EXPORT StatementSource {
public:
    virtual ~StatementSource() = default;
    virtual int LineCount() const = 0;
    // The line's bytes with its terminator (CR LF, LF or CR; none on the last line), as the
    // engine's SCI_GETLINE gives them. A line number out of range gives an empty text.
    virtual CString LineWithEnd(int line) const = 0;
    // The caret: its line, and its offset in bytes from the first byte of that line.
    virtual int CaretLine() const = 0;
    virtual int CaretColumn() const = 0;
};

// Lines held in memory; it counts the lines that were read, so that bounds can be checked.
class QUILLBOX_EXPORT VectorStatementSource : public StatementSource {
public:
    // `lines` hold their terminators, as LineWithEnd hands them back.
    VectorStatementSource(std::vector<CString> lines, int caretLine, int caretColumn);
    // Splits `text` after every CR LF, LF and lone CR; `caretPosition` is a byte offset into
    // `text`, placed on its line as the engine would (clamped to the text).
    static VectorStatementSource FromText(const CString& text, int caretPosition);

    int LineCount() const override { return int(lines_.size()); }
    CString LineWithEnd(int line) const override;
    int CaretLine() const override { return caretLine_; }
    int CaretColumn() const override { return caretColumn_; }

    int ReadCount() const { return reads_; }
    int LowestLineRead() const { return lowest_; }    // -1 while nothing was read
    int HighestLineRead() const { return highest_; }  // -1 while nothing was read

private:
    std::vector<CString> lines_;
    int caretLine_;
    int caretColumn_;
    mutable int reads_ = 0;
    mutable int lowest_ = -1;
    mutable int highest_ = -1;
};

// A source over callbacks, for a window that fetches each line from its engine on demand:
//   FunctionStatementSource source(GetLineCount(), caretLine, caretColumn,
//                                  [this](int line) { return GetLineChars(line); });
class QUILLBOX_EXPORT FunctionStatementSource : public StatementSource {
public:
    FunctionStatementSource(int lineCount, int caretLine, int caretColumn,
                            std::function<CString(int)> lineWithEnd);

    int LineCount() const override { return lineCount_; }
    CString LineWithEnd(int line) const override;
    int CaretLine() const override { return caretLine_; }
    int CaretColumn() const override { return caretColumn_; }

private:
    int lineCount_;
    int caretLine_;
    int caretColumn_;
    std::function<CString(int)> lineWithEnd_;
};

class QUILLBOX_EXPORT StatementExtractor {
public:
    // Lines that may be read after the first one, shared by the backward and forward passes.
    static constexpr int kLineBudget = 500;

    // The statement around the caret, pieces of lines joined in document order with their line
    // breaks; empty for an empty document and when the caret stands behind a "--" on its line.
    // A caret outside the document is first moved into it: a line before the first is the
    // first line, one after the last is the last line, and a column is clamped to the line's
    // bytes before its terminator.
    static CString GetCurrentQuery(const StatementSource& source);

    // Where the statement of GetCurrentQuery lies in the document: from its first byte that is
    // not white space to the end of its last such byte, in lines and byte columns. Comments
    // the statement text leaves out lie inside it. `found` is false when the statement is
    // empty.
    struct Extent {
        bool found = false;
        int firstLine = 0, firstColumn = 0;
        int lastLine = 0, endColumn = 0;  // the end is exclusive
    };
    static CString GetCurrentQuery(const StatementSource& source, Extent& extent);

    // Scans `text` forward (first to last byte) or backward (last to first) for a boundary: ';'
    // at any byte, or a stop word by the pairing rule below. With no boundary `text` stays as
    // it is and the result is true: the statement goes on beyond it. At a boundary `text` is
    // cut to what lies on the caret's side of it (the boundary itself is dropped, a stop word
    // whole with any parentheses that cling to it) and the result is false; if what is kept
    // then begins with a blank, its leading white space becomes exactly one blank (none if
    // nothing else is left).
    //
    // Words are runs of bytes other than white space and ';', tested in their InitToken form
    // when white space or the end of `text` ends them. `armed` is the pairing state of a pass:
    //   backward: "select" arms; "is"/"as" while armed stop; "begin"/"for"/"loop" always stop.
    //   forward:  "is"/"as" arm;  "select" while armed stops; "begin"/"for"/"loop" always stop.
    // A stop disarms. A word that touches a ';' is never tested.
    static bool GetSingleQuery(CString& text, bool& armed, bool forward);

    // The normal form of a word: ASCII letters lowered, then leading '(' and then leading ')'
    // stripped, then trailing '(' and then trailing ')' stripped.
    static CString InitToken(CString word);

    // The code part of `line` (document line `lineNo`) as seen from byte `column` (clamped to
    // the line). Each element of `ranges` is "first,last", the first and last line of a block
    // comment; an element without a ',' is ignored. The answer is empty when the column lies
    // inside one of those comments:
    //   - `lineNo` strictly between first and last;
    //   - `lineNo` equal to first, with a "/*" wholly before `column` (on a one-line comment,
    //     also a "*/" at or after `column`);
    //   - `lineNo` equal to last, with a "*/" at or after `column` (on a one-line comment, also
    //     a "/*" wholly before `column`).
    // Otherwise it is `line`, cut at the first "--" at or after `column`.
    static CString CheckComment(CString line, const CStringArray& ranges, int lineNo, int column);
};
