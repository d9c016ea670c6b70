#pragma once
// Bind variables in a piece of SQL, found without a parser and without the engine's styling.
//
// Two scanners walk the text from a starting index and pass over literals ('...' and "...", no
// escapes: a doubled quote closes and reopens), line comments (-- to the next LF) and block
// comments (/* to the next */). A literal or comment that the end of the text cuts short ends the
// scan with nothing found. Nothing before the starting index is known to them.
//
// A named bind is a marker (':' or '&') not followed by '=' or the end of the text, then any
// white space (blank, \t, \n, \v, \f, \r), then a name of ASCII letters and digits, '_' '$' '#'
// '[' ']' '.', the pair "->", and whole UTF-8 sequences (2 to 4 bytes, well formed and complete
// within the text). A byte of 0x80 or above that starts no such sequence counts as one
// character that is not a name character, so it ends the name. A placeholder is a '?'.
//
// The text ends at its first NUL byte. The scanners never change the text; the callers rewrite
// what they report and call again from the index behind their replacement.
#include <string_view>

#include "CString.h"
#include "QuillboxExport.h"

// 1 when a named bind starts at or after `start`: `start` becomes the marker's index and `end`
// the index behind the name. 0 otherwise, with both left alone; also when `start` is negative
// or not inside the text.
QUILLBOX_EXPORT int FindBindPosition(CString text, int& start, int& end);

// 1 when a placeholder stands at or after `position`, which then becomes its index; 0
// otherwise, with `position` left alone.
QUILLBOX_EXPORT int FindBindReplacePosition(CString text, int& position);

// The same scans over a view whose every byte is text, for rewriting loops that resume behind
// a replacement: scanning the rewritten text from there is scanning the original from `end`.
bool FindBindIn(std::string_view sql, int from, int& start, int& end);
int FindPlaceholderIn(std::string_view sql, int from);   // -1 when there is none
