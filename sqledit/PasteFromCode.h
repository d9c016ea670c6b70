#pragma once
// Paste from code: host-language source text read back as SQL. Without parsing the host
// language, each line keeps what stands between its first quote (double or single, whichever
// comes first) and the last occurrence of that same quote, with the escape pairs undone.
//
// `text` is the clipboard's text, read up to its first NUL byte and cut into lines after each
// LF. The result is the SQL that replaces the selection; it may be empty, and the selection is
// then deleted. Each kept line ends in CR LF; a line without such a quote pair passes as it
// came, with its own line end; blank lines are dropped. At the end, ';' and white space are
// removed from the end while it ends in ';' (and only then does the final line end go).
//
// Round trip. Copy then paste in the same language (MakeCode, then PasteFromCode) is not the
// identity: copy drops trailing white space, blank lines and the statement end of the last
// line, and rewrites binds for four languages; paste puts a blank before every line end of a
// copy of several lines, ends every line with CR LF, and drops a final ';'. Call the normal
// form a text of one or more lines, each a text L followed by " \r\n", where L is not empty,
// holds no CR, LF or NUL, does not end in white space, and the last L does not end in ';'.
// The texts that come back unchanged are:
//   Visual Basic, C/C++, Visual C/C++, PowerBuilder, Delphi: every text in normal form.
//   Perl, PHP: texts in normal form whose binds, as the bind scanner finds them line by line,
//     are already written ":1", ":2", ... in the order of the text.
//   Java, C#: none, because the builder's declaration comes back as a first line. Behind that
//     line, texts in normal form whose binds are already written ":Bind1", ":Bind2", ... in the
//     order of the text and that hold no '?' outside literals and comments.
// Any other text comes back in normal form (behind the declaration in Java and C#), except
// that a single line comes back with CR LF but no blank, a text whose last kept line ends in
// ';' comes back without it and without the final line end, and a text of blank lines comes
// back empty. A result in normal form survives a second copy and paste in the same language,
// except that a marker that ended the original text (no bind there, but one once a blank
// follows it) is rewritten then, and in Java and C# a '?' written right before a name
// character gives a ":BindN" that takes the character into its name.
#include "CString.h"
#include "QuillboxExport.h"

// The general routine: Visual Basic ('"'), PowerBuilder ('~'), Delphi ('\''), Perl and PHP
// ('\\') each with their escape character.
QUILLBOX_EXPORT CString PasteFromLanguageCode(char escape, const CString& text);

// C/C++ and Visual C/C++. A text without a backslash is read by the general routine with a
// backslash. Otherwise each line is first rewritten to one plain literal, so that literals
// continued by a backslash at the end of a line read right as well: the line's text is cut at
// the last matching quote behind its first quote, else at the last backslash behind it; with
// no quote pair, at its last backslash, else at its last double quote. The closing line of a
// continued literal (the line after one that ends in a backslash), whose first quote is a
// double quote with neither a double quote nor a backslash behind it, keeps what stands before
// that quote: `where c";` gives `where c`.
QUILLBOX_EXPORT CString PasteFromCCode(const CString& text);

// Java and C#: the general routine with a backslash, and every '?' that the placeholder scanner
// finds in a line's literal (after unescaping) replaced by ":Bind1", ":Bind2" and so on,
// numbered over the whole paste.
QUILLBOX_EXPORT CString PasteFromJavaCode(const CString& text);

// The routine of the language `code` applied to `text`; false, with `sql` untouched, for a
// value outside 0 to 8.
QUILLBOX_EXPORT bool PasteFromCode(int code, const CString& text, CString& sql);
