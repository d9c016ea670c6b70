// The editor's find state: decoding, searching, replacing once and everywhere, and the
// direct family that hosts call with their own texts.
#include "CEditReplaceDlg.h"
#include "CFindTextDlg.h"
#include "FindFixture.h"

namespace {
std::string decode(FindEditor& editor, const char* raw, int* length = nullptr) {
    SString text(raw);
    const int n = editor.UnescapeAsNeeded(text);
    if (length) *length = n;
    return std::string(text.c_str(), size_t(n));
}
}  // namespace

TEST_F(FindTest, DecodingFollowsTheUnescapeAndExpressionSwitches) {
    editor->unescape = 0;
    EXPECT_EQ(decode(*editor, "a\\tb"), "a\\tb");

    editor->unescape = 1;
    editor->regExp = 0;
    EXPECT_EQ(decode(*editor, "\\a\\b\\f\\n\\r\\t\\v"), "\a\b\f\n\r\t\v");
    EXPECT_EQ(decode(*editor, "\\x41b"), "Ab");          // two hex digits at most, then text
    EXPECT_EQ(decode(*editor, "\\x4g"), "\x04g");
    EXPECT_EQ(decode(*editor, "\\101\\7"), "A\a");        // octal, one to three digits
    EXPECT_EQ(decode(*editor, "\\477"), std::string(1, char(0x3F)));  // low 8 bits of 0477
    EXPECT_EQ(decode(*editor, "\\q\\\\"), "q\\");
    int length = -1;
    EXPECT_EQ(decode(*editor, "ab\\", &length), "ab");    // a trailing backslash ends the text
    EXPECT_EQ(length, 2);
    EXPECT_EQ(decode(*editor, "\\xZab", &length), "");     // no digit: a zero byte, nothing usable
    EXPECT_EQ(length, 0);

    editor->regExp = 1;  // only backslash 0 and two octal digits are the decoder's
    EXPECT_EQ(decode(*editor, "\\(a\\)\\1\\t\\041"), "\\(a\\)\\1\\t!");
    EXPECT_EQ(decode(*editor, "\\04"), "\\04");
}

TEST_F(FindTest, FindNextWalksBothWaysWrapsAndReportsAMiss) {
    load("one two one two\n");
    editor->findText = "two";
    EXPECT_EQ(editor->FindNext(false, true), 4);
    EXPECT_EQ(editor->haveFound, 1);
    EXPECT_EQ(editor->FindNext(false, true), 12);
    EXPECT_EQ(editor->FindNext(false, true), 4);  // silent wrap
    EXPECT_EQ(editor->FindNext(true, true), 12);  // backward from the match's start wraps too
    EXPECT_EQ(editor->FindNext(true, true), 4);
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

    // A one-match document finds its match again and again.
    load("x needle y");
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

    // A selection that starts with a line end, or nothing at the caret, keeps the text.
    select(12, 15);
    editor->Find();
    EXPECT_EQ(editor->findText, "alpha");
    select(0, 6);
    editor->Find();
    EXPECT_EQ(editor->findText, "select");
    EXPECT_EQ(editor->GetFindDialog()->findCombo.GetCount(), 2);
}

TEST_F(FindTest, LineEndEscapesTurnAnExpressionIntoPlainDecodedText) {
    load("a\tb a\\tb");
    editor->findText = "a\\tb";
    editor->regExp = 1;
    editor->unescape = 1;
    EXPECT_EQ(editor->FindNext(false, true), 0);
    EXPECT_EQ(editor->regExp, 0);
    EXPECT_EQ(selected(), "a\tb");

    editor->regExp = 1;
    editor->findText = "b$";  // no such escape: the expression stays one
    editor->backSlashExprCheck();
    EXPECT_EQ(editor->regExp, 1);
}

TEST_F(FindTest, PlayReplaceComparesWithoutCaseAndOtherwiseSearches) {
    load("Foo foo bar");
    editor->Replace();  // the replace buttons come from the dialog
    editor->findText = "foo";
    editor->replaceText = "X";
    editor->matchCase = 1;
    select(0, 3);  // "Foo"
    EXPECT_TRUE(editor->PlayReplace());
    EXPECT_EQ(text(), "X foo bar");
    EXPECT_EQ(selected(), "foo");  // the next match is chosen
    EXPECT_TRUE(editor->PlayReplace());
    EXPECT_EQ(text(), "X X bar");

    select(4, 7);  // "bar" is no match: nothing changes, the search moves on
    EXPECT_FALSE(editor->PlayReplace());
    EXPECT_EQ(text(), "X X bar");
    EXPECT_EQ(messages.size(), 2u);  // no "foo" is left, after either button

    // An expression's replacement uses the groups of its own search.
    load("key=value");
    editor->findText = "\\([a-z]+\\)=\\([a-z]+\\)";
    editor->replaceText = "\\2=\\1";
    editor->regExp = 1;
    editor->unescape = 1;
    select(0, 9);
    EXPECT_TRUE(editor->PlayReplace());
    EXPECT_EQ(text(), "value=key");

    // Case is that of every letter, not of ASCII alone; a letter that is no other case of the
    // expected one still differs.
    editor->regExp = 0;
    editor->unescape = 0;
    editor->matchCase = 0;
    editor->findText = "äpfel";
    editor->replaceText = "X";
    load("ÄPFEL Öpfel äpfel");
    select(0, 6);  // "ÄPFEL"
    EXPECT_TRUE(editor->PlayReplace());
    EXPECT_EQ(text(), "X Öpfel äpfel");
    EXPECT_EQ(selected(), "äpfel");
    select(2, 8);  // "Öpfel"
    EXPECT_FALSE(editor->PlayReplace());
    EXPECT_EQ(text(), "X Öpfel äpfel");
    EXPECT_EQ(selected(), "äpfel");  // the search moved on to the match

    // Bytes that are no UTF-8 character must agree exactly.
    editor->matchCase = 1;
    editor->findText = "\xfe";
    load("\xff \xfe");
    select(0, 1);
    EXPECT_FALSE(editor->PlayReplace());
    EXPECT_EQ(text(), "\xff \xfe");
    EXPECT_EQ(editor->GetSelectionStart(), 2);  // moved on to the real match
    EXPECT_TRUE(editor->PlayReplace());
    EXPECT_EQ(text(), "\xff X");
}

TEST_F(FindTest, ReplaceAllIsOneUndoStepAndLeavesTheCaretAfterTheLast) {
    load("a1 a2 a3\n");
    editor->findText = "a";
    editor->replaceText = "bb";
    select(4, 4);
    EXPECT_EQ(editor->ReplaceAll(false), 3);  // wrap: from the top
    EXPECT_EQ(text(), "bb1 bb2 bb3\n");
    EXPECT_EQ(editor->GetCurrentPosition(), 10);
    send(SCI_UNDO);
    EXPECT_EQ(text(), "a1 a2 a3\n");

    editor->wrapSearch = 0;
    select(4, 4);
    EXPECT_EQ(editor->ReplaceAll(false), 1);  // without wrap only from the selection on
    EXPECT_EQ(text(), "a1 a2 bb3\n");
    EXPECT_TRUE(messages.empty());
}

TEST_F(FindTest, ReplaceAllReportsEmptyTextsAndMisses) {
    load("abc");
    editor->findText = "zz";
    EXPECT_EQ(editor->ReplaceAll(false), 0);
    editor->findText = "a";
    select(1, 1);
    EXPECT_EQ(editor->ReplaceAll(true), -2);
    editor->findText = "\\x00";
    editor->unescape = 1;
    EXPECT_EQ(editor->ReplaceAll(false), -1);
    ASSERT_EQ(messages.size(), 3u);
    EXPECT_EQ(messages[0], "No replacements because string \"zz\" was not present.");
    EXPECT_EQ(messages[1], "Selection must not be empty for 'Replace in Selection' command.");
    EXPECT_EQ(messages[2],
              "Find string must not be empty for 'Replace in Selection' command. : "
              "Find string must not be empty for 'Replace All' command.");
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(send(SCI_CANUNDO), 0);
}

TEST_F(FindTest, ReplaceAllOfExpressionsThatMatchEmpty) {
    load("ab\ncd\n");
    editor->findText = "^";
    editor->replaceText = "> ";
    editor->regExp = 1;
    EXPECT_EQ(editor->ReplaceAll(false), 3);  // the empty last line counts too
    EXPECT_EQ(text(), "> ab\n> cd\n> ");

    load("ab\ncd");
    editor->findText = "x*";
    editor->replaceText = "-";
    // After each empty match the search moves on by one character; the engine reports no
    // empty match at a line's end, so the next one is at the start of the following line.
    EXPECT_EQ(editor->DoReplaceAll(false), 4);
    EXPECT_EQ(text(), "-a-b\n-c-d");
}

TEST_F(FindTest, ReplaceAllInLineAndRectangularSelections) {
    load("aa\naa\naa\n");
    send(SCI_SETSELECTIONMODE, SC_SEL_LINES);
    select(4, 6);  // a line selection that ends at the start of line 2
    send(SCI_SETSELECTIONMODE, SC_SEL_LINES);
    editor->findText = "a";
    editor->replaceText = "b";
    const int count = editor->DoReplaceAll(true);
    EXPECT_EQ(text(), "aa\nbb\nbb\n");
    EXPECT_EQ(count, 4);
    EXPECT_EQ(editor->GetSelectionStart(), 3);
    EXPECT_EQ(editor->GetSelectionEnd(), 9);

    load("abab\nabab\nabab\n");
    send(SCI_SETSELECTIONMODE, SC_SEL_RECTANGLE);
    send(SCI_SETRECTANGULARSELECTIONANCHOR, 1);
    send(SCI_SETRECTANGULARSELECTIONCARET, 9);  // columns 1 to 4 of lines 0 and 1
    editor->findText = "ab";
    editor->replaceText = "X";
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
    EXPECT_EQ(editor->FindInTarget("ab", 2, 0, 8), -1);
    EXPECT_EQ(editor->FindInTarget("ab", 2, 8, 0), -1);
    EXPECT_EQ(editor->FindInTarget(nullptr, 2, 0, 8), -1);
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
