// Word completion from the document's own words; brace matching between the two braces of a pair.
#include "IndentFixture.h"

class WordCompletionTest : public IndentTest {
protected:
    void SetUp() override {
        IndentTest::SetUp();
        focusEditor();
    }
    // The items of the list that shows, in the engine's order.
    std::vector<std::string> items() {
        std::vector<std::string> out;
        if (!send(SCI_AUTOCACTIVE)) return out;
        for (long previous = -1;;) {
            const long index = send(SCI_AUTOCGETCURRENT);
            if (index == previous) break;
            char item[128] = {};
            send(SCI_AUTOCGETCURRENTTEXT, 0, reinterpret_cast<LPARAM>(item));
            out.emplace_back(item);
            previous = index;
            send(SCI_LINEDOWN);
        }
        return out;
    }
};

TEST_F(WordCompletionTest, TheDocumentsWordsAreOfferedInOrderOfFirstOccurrence) {
    load("select selection, SELECTED, selection, sel_x from t where sel");
    ASSERT_TRUE(editor->StartAutoCompleteWord(0));
    EXPECT_EQ(items(), (std::vector<std::string>{"select", "selection", "SELECTED", "sel_x"}));
    send(SCI_AUTOCCANCEL);
    // Matching case: only the words spelt as typed.
    editor->autoCompleteIgnoreCase = 0;
    load("Selection selection Sel");
    ASSERT_TRUE(editor->StartAutoCompleteWord(0));
    EXPECT_EQ(items(), (std::vector<std::string>{"Selection"}));
}

TEST_F(WordCompletionTest, NoListWithoutARootOrWithoutOtherWords) {
    // The caret at a line's start; the root's only occurrence; a word equal to the root; behind a blank.
    for (const char* content : {"selection\n", "abc sel", "sel sel", "sel "}) {
        load(content, -1);
        EXPECT_FALSE(editor->StartAutoCompleteWord(0)) << content;
    }
    EXPECT_EQ(send(SCI_AUTOCACTIVE), 0);
}

TEST_F(WordCompletionTest, TheRootStopsAtADelimiterAndTheLastWordEndsAtTheText) {
    load("t.col x.colour t.co", -1);
    ASSERT_TRUE(editor->StartAutoCompleteWord(0));
    EXPECT_EQ(items(), (std::vector<std::string>{"col", "colour"}));
    send(SCI_AUTOCCANCEL);
    load("co colum", 2);  // the word at the document's very end
    ASSERT_TRUE(editor->StartAutoCompleteWord(0));
    EXPECT_EQ(items(), (std::vector<std::string>{"colum"}));
}

TEST_F(WordCompletionTest, ALineIsReadWithItsLineEnd) {
    load("first\r\nsecond", 9, SC_EOL_CRLF);
    EXPECT_EQ(editor->GetLine(0), "first\r\n");
    EXPECT_EQ(editor->GetLine(-1), "second");
}

class BraceTest : public IndentTest {};

TEST_F(BraceTest, JumpingTwiceComesBackAndSelectingSpansThePair) {
    load("a(bc)d", 2);  // behind the opening brace, to in front of the closing one, and back
    for (long expected : {4, 2}) {
        editor->GoMatchingBrace(false);
        EXPECT_EQ(caret(), expected);
    }
    send(SCI_SETSEL, 5, 5);  // behind the closing brace: outside
    editor->GoMatchingBrace(true);
    expectSelection(1, 5);
    EXPECT_EQ(caret(), 1);  // the caret ends at the partner's side
}

TEST_F(BraceTest, NoBraceOrNoPartnerLeavesTheSelectionAlone) {
    load("ab(cd", 1);
    editor->GoMatchingBrace(false);
    EXPECT_EQ(caret(), 1);
    send(SCI_SETSEL, 3, 3);  // behind an opening brace without a partner
    editor->GoMatchingBrace(true);
    expectSelection(3, 3);
    send(SCI_SETSEL, 2, 2);  // in front of it
    editor->GoMatchingBrace(false);
    EXPECT_EQ(caret(), 2);
}

TEST_F(BraceTest, TheBraceBeforeTheCaretWinsAndStylesMustAgree) {
    load("(x)(y)", 3);
    int at = -1, opposite = -1;
    EXPECT_FALSE(editor->FindMatchingBracePosition(true, at, opposite, true));  // behind ")": outside
    EXPECT_EQ(at, 2);
    EXPECT_EQ(opposite, 0);
    send(SCI_SETSEL, 4, 4);
    EXPECT_TRUE(editor->FindMatchingBracePosition(true, at, opposite, true));  // behind "(": inside
    EXPECT_EQ(at, 3);
    EXPECT_EQ(opposite, 5);
}

TEST_F(BraceTest, InABraceStyleBracesInStringsDoNotCount) {
    // Styles count in their low 5 bits: 42 stands for the same style as 10.
    for (const int bracesStyle : {10, 42}) {
        SCOPED_TRACE(bracesStyle);
        editor->bracesStyle = bracesStyle;
        load("f(a,')')", 6);
        style(0, 8, 10);
        style(4, 7, 6);  // the string ')'
        int at = -1, opposite = -1;
        EXPECT_FALSE(editor->FindMatchingBracePosition(true, at, opposite, true));  // behind the string's ")"
        EXPECT_EQ(at, -1);
        EXPECT_EQ(opposite, -1);
        send(SCI_SETSEL, 7, 7);  // sloppy: the brace after the caret, in the brace style
        EXPECT_TRUE(editor->FindMatchingBracePosition(true, at, opposite, true));
        EXPECT_EQ(at, 7);
        EXPECT_EQ(opposite, 1);
        EXPECT_FALSE(editor->FindMatchingBracePosition(true, at, opposite, false));  // not sloppy: none
        editor->GoMatchingBrace(false);
        EXPECT_EQ(caret(), 2);
        // Not for the editor the style to check is 0, which these braces do not have.
        EXPECT_FALSE(editor->FindMatchingBracePosition(false, at, opposite, true));
        EXPECT_EQ(at, -1);
    }
}
