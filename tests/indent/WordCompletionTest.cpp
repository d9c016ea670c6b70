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
    struct Case { const char* content; long caret; int ignoreCase; std::vector<std::string> items; };
    const Case cases[] = {
        {"select selection, SELECTED, selection, sel_x from t where sel", -1, 1,
         {"select", "selection", "SELECTED", "sel_x"}},
        {"Selection selection Sel", -1, 0, {"Selection"}},  // matching case: only words spelt as typed
        {"t.col x.colour t.co", -1, 1, {"col", "colour"}},  // the root stops at a delimiter
        {"co colum", 2, 1, {"colum"}},  // the root at the line's start, the word at the text's end
        // No list: the caret at a line's start; the root's only occurrence; a word equal to it; a blank.
        {"selection\n", -1, 1, {}}, {"abc sel", -1, 1, {}}, {"sel sel", -1, 1, {}}, {"sel ", -1, 1, {}},
    };
    for (const Case& c : cases) {
        editor->autoCompleteIgnoreCase = c.ignoreCase;
        load(c.content, c.caret);
        EXPECT_EQ(editor->StartAutoCompleteWord(0), !c.items.empty()) << c.content;
        EXPECT_EQ(items(), c.items) << c.content;
        send(SCI_AUTOCCANCEL);
    }
    load("first\r\nsecond", 9, SC_EOL_CRLF);  // a line is read with its line end
    EXPECT_EQ(editor->GetLine(0), "first\r\n");
    EXPECT_EQ(editor->GetLine(-1), "second");
}

TEST_F(IndentTest, GoingToTheMatchingBraceJumpsOrSelectsThePair) {
    // {text, caret, select, selection start and end after}; without a partner nothing moves.
    struct Case { const char* content; long caret; bool select; long start, end; };
    for (const Case& c : {Case{"a(bc)d", 2, false, 4, 4}, {"a(bc)d", 4, false, 2, 2},  // twice comes back
                          {"a(bc)d", 5, true, 1, 5}, {"ab(cd", 1, false, 1, 1}, {"ab(cd", 3, true, 3, 3},
                          {"ab(cd", 2, false, 2, 2}}) {
        load(c.content, c.caret);
        editor->GoMatchingBrace(c.select);
        expectSelection(c.start, c.end);
        EXPECT_EQ(caret(), c.start) << c.content << " " << c.caret;  // the caret ends at the partner's side
    }
}

TEST_F(IndentTest, TheBraceBeforeTheCaretWinsAndStylesMustAgree) {
    // Styles count in their low 5 bits: 42 stands for the same style as 10; ")" in a string is no brace.
    for (const int bracesStyle : {10, 42}) {
        editor->bracesStyle = bracesStyle;
        load("(x)(y)f(a,')')");
        style(0, 14, 10);
        style(10, 13, 6);
        // {caret, for the editor, sloppy, found, brace, partner}
        struct Case { long caret; bool editor, sloppy, found; int at, opposite; };
        for (const Case& c : {Case{3, true, true, false, 2, 0},  // behind ")": outside
                              {4, true, true, true, 3, 5},      // behind "(": inside
                              {12, true, true, false, -1, -1},  // behind the string's ")"
                              {13, true, true, true, 13, 7},    // sloppy: the brace after the caret
                              {13, true, false, false, -1, -1},
                              {13, false, true, false, -1, -1}}) {  // not the editor: style 0 is checked
            send(SCI_SETSEL, WPARAM(c.caret), c.caret);
            int at = -1, opposite = -1;
            EXPECT_EQ(editor->FindMatchingBracePosition(c.editor, at, opposite, c.sloppy), c.found) << c.caret;
            if (c.sloppy) {
                EXPECT_EQ(at, c.at) << c.caret;
                EXPECT_EQ(opposite, c.opposite) << c.caret;
            }
        }
        send(SCI_SETSEL, 13, 13);
        editor->GoMatchingBrace(false);
        EXPECT_EQ(caret(), 8) << bracesStyle;
    }
}
