// The editor's find state: decoding, searching, replacing once and everywhere, and the direct family.
#include "CEditReplaceDlg.h"
#include "CFindTextDlg.h"
#include "FindFixture.h"

TEST_F(FindTest, DecodingFollowsTheUnescapeAndExpressionSwitches) {
    const struct { int unescape, regExp; const char* raw; std::string decoded; } rows[] = {
        {0, 0, "a\\tb", "a\\tb"}, {1, 0, "\\a\\b\\f\\n\\r\\t\\v", "\a\b\f\n\r\t\v"},
        {1, 0, "\\x41b", "Ab"},  // two hex digits at most, then text
        {1, 0, "\\x4g", "\x04g"}, {1, 0, "\\101\\7", "A\a"},  // octal, one to three digits
        {1, 0, "\\477", std::string(1, char(0x3F))},          // low 8 bits of 0477
        {1, 0, "\\q\\\\", "q\\"}, {1, 0, "ab\\", "ab"},      // a trailing backslash ends the text
        {1, 0, "\\xZab", ""},                                  // no digit: a zero byte, nothing usable
        {1, 1, "\\(a\\)\\1\\t\\041", "\\(a\\)\\1\\t!"},      // expressions: only backslash 0 and two octal digits
        {1, 1, "\\04", "\\04"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.raw);
        editor->unescape = row.unescape, editor->regExp = row.regExp;
        SString text(row.raw);
        const int length = editor->UnescapeAsNeeded(text);
        EXPECT_EQ(std::string(text.c_str(), size_t(length)), row.decoded);
    }
}

TEST_F(FindTest, FindNextWalksBothWaysWrapsAndReportsAMiss) {
    load("one two one two\n");
    editor->findText = "two";
    EXPECT_EQ(editor->FindNext(false, true), 4);
    EXPECT_EQ(editor->haveFound, 1);
    for (auto [backward, at] : {std::pair{false, 12}, {false, 4}, {true, 12}, {true, 4}})  // wraps both ways
        EXPECT_EQ(editor->FindNext(backward, true), at);
    EXPECT_TRUE(messages.empty());

    editor->wrapSearch = 0;
    select(13, 13);
    EXPECT_EQ(editor->FindNext(false, true), -1);
    EXPECT_EQ(editor->haveFound, 0);
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], "Can not find the string \"two\"");
    EXPECT_EQ(editor->GetSelectionStart(), 13);  // the selection stays
    EXPECT_EQ(editor->FindNext(false, false), -1);
    EXPECT_EQ(messages.size(), 1u);  // no warning asked, none shown

    load("x needle y");  // a one-match document finds its match again and again
    editor->wrapSearch = 1;
    editor->findText = "needle";
    for (int i = 0; i < 3; ++i) EXPECT_EQ(editor->FindNext(false, true), 2);
}

TEST_F(FindTest, EmptyFindTextOpensTheDialogWithTheWordAtTheCaret) {
    load("select alpha\nbeta");
    send(SCI_GOTOPOS, 9);
    EXPECT_EQ(editor->FindNext(false, true), -1);
    EXPECT_TRUE(messages.empty());
    ASSERT_NE(editor->GetFindDialog(), nullptr);
    EXPECT_EQ(editor->findText, "alpha");
    EXPECT_EQ(editor->GetFindDialog()->findCombo.GetWindowText(), "alpha");

    select(12, 15);  // a selection that starts with a line end keeps the text
    editor->Find();
    EXPECT_EQ(editor->findText, "alpha");
    select(0, 6);
    editor->Find();
    EXPECT_EQ(editor->findText, "select");
    EXPECT_EQ(editor->GetFindDialog()->findCombo.GetCount(), 2);
}

TEST_F(FindTest, LineEndEscapesTurnAnExpressionIntoPlainDecodedText) {
    load("a\tb a\\tb");
    search("a\\tb", "", 1, 1);
    EXPECT_EQ(editor->FindNext(false, true), 0);
    EXPECT_EQ(editor->regExp, 0);
    EXPECT_EQ(selected(), "a\tb");

    editor->regExp = 1;
    editor->findText = "b$";  // no such escape: the expression stays one
    editor->backSlashExprCheck();
    EXPECT_EQ(editor->regExp, 1);
}

TEST_F(FindTest, PlayReplaceComparesWithoutCaseAndOtherwiseSearches) {
    editor->Replace();  // the replace buttons come from the dialog
    // {text (nullptr: keep), find, replacement, expression, match case, selection (-1: keep), replaced, text, selected}
    struct Case { const char* content; const char* find; const char* replace; int regExp, matchCase; long from, to;
                  bool replaced; const char* text; const char* selected; };
    const Case cases[] = {
        {"Foo foo bar", "foo", "X", 0, 1, 0, 3, true, "X foo bar", "foo"},  // the next match is chosen
        {nullptr, "foo", "X", 0, 1, -1, -1, true, "X X bar", nullptr},
        {nullptr, "foo", "X", 0, 1, 4, 7, false, "X X bar", nullptr},  // no match: the search moves on
        {"key=value", "\\([a-z]+\\)=\\([a-z]+\\)", "\\2=\\1", 1, 1, 0, 9, true, "value=key", nullptr},  // own groups
        // Case is that of every letter, not of ASCII alone; a letter that is no other case still differs.
        {"ÄPFEL Öpfel äpfel", "äpfel", "X", 0, 0, 0, 6, true, "X Öpfel äpfel", "äpfel"},
        {nullptr, "äpfel", "X", 0, 0, 2, 8, false, "X Öpfel äpfel", "äpfel"},
        {"\xff \xfe", "\xfe", "X", 0, 1, 0, 1, false, "\xff \xfe", "\xfe"},  // no UTF-8: bytes agree exactly
        {nullptr, "\xfe", "X", 0, 1, -1, -1, true, "\xff X", nullptr}};
    for (const Case& c : cases) {
        if (c.content) load(c.content);
        search(c.find, c.replace, c.regExp, c.regExp);
        editor->matchCase = c.matchCase;
        if (c.from >= 0) select(c.from, c.to);
        EXPECT_EQ(editor->PlayReplace(), c.replaced) << c.text;
        EXPECT_EQ(text(), c.text);
        if (c.selected) { EXPECT_EQ(selected(), c.selected) << c.text; }
    }
    EXPECT_EQ(messages.size(), 3u);  // no "foo" is left after either button, nor a second 0xFE byte
}

TEST_F(FindTest, ReplaceAllIsOneUndoStepCountsEmptyMatchesAndReportsMisses) {
    load("a1 a2 a3\n");
    search("a", "bb");
    select(4, 4);
    EXPECT_EQ(editor->ReplaceAll(false), 3);  // wrap: from the top
    EXPECT_EQ(text(), "bb1 bb2 bb3\n");
    EXPECT_EQ(editor->GetCurrentPosition(), 10);  // after the last
    send(SCI_UNDO);
    EXPECT_EQ(text(), "a1 a2 a3\n");
    editor->wrapSearch = 0;
    select(4, 4);
    EXPECT_EQ(editor->ReplaceAll(false), 1);  // without wrap only from the selection on
    EXPECT_EQ(text(), "a1 a2 bb3\n");
    editor->wrapSearch = 1;

    // Expressions that match empty: the empty last line counts; empty matches move on by one,
    // none at a line end, so the next line starts.
    for (auto [content, find, replacement, count, after] :
         {std::tuple{"ab\ncd\n", "^", "> ", 3, "> ab\n> cd\n> "}, {"ab\ncd", "x*", "-", 4, "-a-b\n-c-d"}}) {
        load(content);
        search(find, replacement, 1);
        EXPECT_EQ(editor->DoReplaceAll(false), count) << find;
        EXPECT_EQ(text(), after);
    }
    EXPECT_TRUE(messages.empty());

    load("abc");
    search("zz");
    EXPECT_EQ(editor->ReplaceAll(false), 0);
    editor->findText = "a";
    select(1, 1);
    EXPECT_EQ(editor->ReplaceAll(true), -2);
    search("\\x00", "", 0, 1);
    EXPECT_EQ(editor->ReplaceAll(false), -1);
    EXPECT_EQ(messages, (std::vector<std::string>{
                            "No replacements because string \"zz\" was not present.",
                            "Selection must not be empty for 'Replace in Selection' command.",
                            "Find string must not be empty for 'Replace in Selection' command. : "
                            "Find string must not be empty for 'Replace All' command."}));
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(send(SCI_CANUNDO), 0);
}

TEST_F(FindTest, ReplaceAllInLineAndRectangularSelections) {
    load("aa\naa\naa\n");
    send(SCI_SETSELECTIONMODE, SC_SEL_LINES);
    select(4, 6);  // a line selection that ends at the start of line 2
    send(SCI_SETSELECTIONMODE, SC_SEL_LINES);
    search("a", "b");
    const int count = editor->DoReplaceAll(true);
    EXPECT_EQ(text(), "aa\nbb\nbb\n");
    EXPECT_EQ(count, 4);
    EXPECT_EQ(editor->GetSelectionStart(), 3);
    EXPECT_EQ(editor->GetSelectionEnd(), 9);

    load("abab\nabab\nabab\n");
    send(SCI_SETSELECTIONMODE, SC_SEL_RECTANGLE);
    send(SCI_SETRECTANGULARSELECTIONANCHOR, 1);
    send(SCI_SETRECTANGULARSELECTIONCARET, 9);  // columns 1 to 4 of lines 0 and 1
    search("ab", "X");
    EXPECT_EQ(editor->DoReplaceAll(true), 2);
    EXPECT_EQ(text(), "abX\nabX\nabab\n");
}

TEST_F(FindTest, FindInStyleKeepsOnlyMatchesOfThatStyle) {
    load("ab ab ab");
    send(SCI_SETLEXER, 0);  // styles set by hand, no lexer to restyle them
    send(SCI_STARTSTYLING, 3, 0xFF);
    send(SCI_SETSTYLING, 2, 5);  // only the second "ab" has style 5
    editor->findInStyle = 1;
    editor->findStyle = 5;
    send(SCI_SETSEARCHFLAGS, 0);
    EXPECT_EQ(editor->FindInTarget("ab", 2, 0, 8), 3);
    editor->findStyle = 6;
    for (auto [find, from, to] : {std::tuple{"ab", 0, 8}, {"ab", 8, 0}, {nullptr, 0, 8}})
        EXPECT_EQ(editor->FindInTarget(find, 2, from, to), -1) << from;
    editor->findInStyle = 0;
    EXPECT_EQ(editor->FindInTarget("ab", 2, 8, 0), 6);     // start above end: backward
    EXPECT_EQ(editor->FindInTarget("ab", 50, 1, 8), 3);  // the length never passes the text
}

TEST_F(FindTest, DirectFamilyUsesItsOwnFlagsAndNeverSpeaks) {
    load("Tab tab TAB");
    editor->SetSearchflags(SCFIND_MATCHCASE);
    EXPECT_EQ(editor->SearchForward("tab"), 1);
    EXPECT_EQ(editor->GetSelectionStart(), 4);
    EXPECT_EQ(editor->SearchForward("tab"), 0);  // no wrap
    EXPECT_EQ(editor->SearchBackward("Tab"), 1);
    EXPECT_EQ(editor->GetSelectionStart(), 0);
    EXPECT_EQ(editor->SearchBackward("Tab"), 0);
    EXPECT_EQ(editor->SearchForward(""), 0);

    editor->SetSearchflags(0);
    send(SCI_SETSEARCHFLAGS, 0);
    EXPECT_EQ(editor->ReplaceAll("tab", "x", 0), 3);
    EXPECT_EQ(text(), "x x x");
    EXPECT_EQ(editor->ReplaceAll("zz", "y", 0), 0);
    EXPECT_EQ(editor->ReplaceAll("", "y", 0), 0);
    select(2, 5);
    EXPECT_EQ(editor->ReplaceAll("x", "yy", 1), 2);
    EXPECT_EQ(text(), "x yy yy");

    // An expression that matches empty moves on instead of matching the same place forever.
    editor->SetSearchflags(SCFIND_REGEXP);
    send(SCI_SETSEARCHFLAGS, SCFIND_REGEXP);
    load("ab");
    EXPECT_EQ(editor->ReplaceAll("z*", "", 0), 2);

    load("abc");
    select(1, 2);
    editor->SetSearchflags(0);
    editor->ReplaceSearchedText("XY");
    EXPECT_EQ(text(), "aXYc");
    editor->ReplaceSearchedText("");
    EXPECT_EQ(text(), "aXYc");
    EXPECT_TRUE(messages.empty());
}
