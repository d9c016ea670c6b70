#pragma once
// CSQLFormatter: lays out SQL text. Clause keywords start their own lines, list items follow
// the comma rules, sub-queries and parenthesised groups nest, procedural blocks (PL/SQL,
// PL/pgSQL, MySQL routines) indent by nesting, table definitions put one column on a line,
// and long lines wrap at a width.
//
// The formatter only ever changes the whitespace between tokens and the letter case of
// keywords: every other byte of the text comes out as it went in and in the same order
// (strings, quoted identifiers, comments, numbers, bind variables, operators, UTF-8
// sequences). A run of operator characters that stood together stays together. Lines for
// the client rather than the server (psql's backslash commands, SQL*Plus's "/", "@file",
// PROMPT, REM, ...) stay whole on lines of their own. The one exception to "every other
// byte": the body of a PL/pgSQL or SQL function in dollar quotes ($$ ... $$) is SQL and is
// laid out like the rest. Formatting a formatted text again gives the same text.
//
// Use: construct, set the two keyword tests, call Format, destroy.
#include <string_view>
#include <vector>

#include "CString.h"

class QUILLBOX_EXPORT CSQLFormatter {
public:
    // A keyword test: 1 when the first `length` bytes of `word` are a word of its list.
    using KeywordTest = int (*)(const char* word, int length);

    // Values of the keyword case argument of Format.
    enum KeywordCase {
        KeepCase = 0,     // keywords stay as written
        UpperCase = 1,    // SELECT
        LowerCase = 2,    // select
        CapitalCase = 3,  // Select
    };                    // any other value keeps the case

    CSQLFormatter() = default;
    ~CSQLFormatter() = default;
    CSQLFormatter(const CSQLFormatter&) = delete;
    CSQLFormatter& operator=(const CSQLFormatter&) = delete;

    // Reserved words (AND, SELECT, ...) and function names (COUNT, NVL, ...). Both may stay
    // null: the formatter knows the clause words it lays out by itself. A word of either list
    // takes the keyword case; a function name glues to its opening parenthesis.
    KeywordTest isKeywordFunc = nullptr;
    KeywordTest isListKeywordFunc = nullptr;

    // Formats `sql`.
    //   keywordAlign  true: clause keywords end at one column and their contents start one
    //                 column to the right of it ("SELECT a" / "  FROM t" / " WHERE x = 1");
    //                 false: a clause keyword stands alone on its line and its contents follow
    //                 on the next lines, four columns in.
    //   commaInList   true: a line break in a clause list comes before the comma (", b");
    //                 false: after it ("a,").
    //   keywordCase   a KeywordCase value.
    //   multiline     true: every item of a clause list (select list, FROM, GROUP BY, ORDER BY,
    //                 SET, VALUES, INTO, WITH) gets a line of its own; false: the items run on
    //                 and wrap at the width.
    //   formatFlag    false: only the keyword case changes, all whitespace stays as it is.
    //   lineWidth     lines wrap between tokens before this column; 0 or less: no wrapping.
    //                 A token longer than the width stays whole.
    // The line ends of the result are CR LF when the text has any, else LF. The result ends
    // with a line end when the text did. A text without tokens comes back unchanged.
    CString Format(CString sql, bool keywordAlign, bool commaInList, int keywordCase, bool multiline,
                   bool formatFlag, int lineWidth);

    enum class TokenKind {
        Word,          // identifier or keyword: letters, digits, _ $ # and bytes from 0x80,
                       // with a PL/SQL attribute behind it (emp.sal%TYPE, c%NOTFOUND)
        QuotedIdent,   // "name" or `name`
        String,        // 'text', with an optional N, X, B, E prefix, Q'[text]' and its kin,
                       // or $$text$$ / $tag$text$tag$
        Number,        // 12, 1.5, .5, 1e-3, 0x1F
        Bind,          // :name, :1, :'name', ?, $1, &name, &&name, @name, @@name
        Operator,      // a run of operator characters (= <> || := :: !~ @> ->> ...)
        OpenParen,
        CloseParen,
        Comma,
        Semicolon,     // ; or the delimiter a DELIMITER line chose
        Dot,
        LineComment,   // -- to the end of the line, without trailing blanks
        BlockComment,  // /* ... */
        Client,        // a line for the client, not the server, without trailing blanks
    };

    struct Token {
        TokenKind kind;
        std::string_view text;
        bool ownLine = false;     // only whitespace with a line end (or nothing) lies before it
        bool terminated = true;   // false for a string, quoted name or comment cut by the end
        bool joined = false;      // no whitespace between it and the token before
        bool blankBefore = false; // an empty line lies between it and the token before
    };

    // Splits text into tokens; the whitespace between them is all that is left out.
    static std::vector<Token> Tokenize(std::string_view text);
};
