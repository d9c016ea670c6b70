#pragma once
// Copy as code: SQL turned into the source text of a string literal of a host language, one
// piece of the literal per line of SQL, escaped, aligned and joined as that language wants.
//
// `sql` is the text of the range being copied (the selection, or the whole document without
// one), read up to its first NUL byte. Its lines are the engine's: each ends in CR LF, LF or a
// lone CR, and the last line is what follows the last line end, empty when the range ends at
// the start of a line. A range without a line end is one piece; otherwise each line is a piece.
//
// Each piece, in this order: binds rewritten (only where a routine says so; the scan sees the
// piece with its line end and before escaping, and a literal or comment does not carry over
// from one line to the next); every `quote` preceded by `escape`; trailing white space removed;
// on the last line of the range, ';' and '/' removed from its end with white space between
// them. In a range of several lines an empty piece is dropped.
//
// The results use CR LF between lines. An empty result means there is nothing to copy: the
// clipboard stays as it was.
#include "CString.h"
#include "CodeLanguages.h"
#include "QuillboxExport.h"

// The general template. A one-piece range gives `variable assign open piece close`; a range of
// several lines gives `variable assign open piece close` for its first surviving piece and
// ` lineTail CRLF prefix open piece close` for each further one, with a blank before each
// `close`. `open` is openWrap and quote, `close` quote and closeWrap; `assign` is written with
// one blank either side ("=" when it is blank). The prefix is as many blanks as `variable` has
// bytes (one blank when it has none) when alignToVariable holds, then three blanks when
// `continuation` is empty, else `continuation` framed by blanks (aligned) or followed by one.
// A non-empty result with a non-empty `terminator` ends in a blank and the terminator.
QUILLBOX_EXPORT CString CopyToLanguageCodeEx2(const CString& sql, const CString& variable, const CString& quote,
                                              const CString& openWrap, const CString& closeWrap,
                                              const CString& escape, const CString& continuation,
                                              const CString& lineTail, const CString& terminator,
                                              const CString& assign, bool alignToVariable);

inline CString CopyToLanguageCodeEx(const CString& sql, const CString& variable, const CString& quote,
                                    const CString& escape, const CString& continuation,
                                    const CString& lineTail, const CString& terminator,
                                    const CString& assign, bool alignToVariable) {
    return CopyToLanguageCodeEx2(sql, variable, quote, "", "", escape, continuation, lineTail, terminator,
                                 assign, alignToVariable);
}

inline CString CopyToLanguageCode(const CString& sql, const CString& variable, const CString& quote,
                                  const CString& escape, const CString& continuation,
                                  const CString& lineTail, const CString& terminator) {
    return CopyToLanguageCodeEx(sql, variable, quote, escape, continuation, lineTail, terminator, "=", true);
}

// The general template without wraps, with " = ", aligned, and with every named bind replaced
// by ":1", ":2" and so on, numbered over the whole range.
QUILLBOX_EXPORT CString CopyToPerlCode(const CString& sql, const CString& variable, const CString& quote,
                                       const CString& escape, const CString& continuation,
                                       const CString& lineTail, const CString& terminator);

// The string-builder template: "<builderType> <variable> = new <builderType>();" and then one
// `<variable>.<appendMethod>("<piece> ");` per surviving piece, every line ending in CR LF.
// Named binds become "?"; the delimiter is a double quote escaped by a backslash. An empty
// piece gives nothing, also when it is the only one.
QUILLBOX_EXPORT CString CopyToJavaCode(const CString& sql, const CString& variable, const CString& builderType,
                                       const CString& appendMethod);

// The code of `sql` in the language `code` by that language's row; empty for a value outside
// 0 to 8.
QUILLBOX_EXPORT CString MakeCode(int code, const CString& sql);
