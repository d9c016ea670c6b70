// Line marks, the error mark and the word highlight.
#include <gtest/gtest.h>

#include <vector>

#include "EditorFixture.h"

namespace {
class MarkedEditor : public TestEditor {
public:
    using CScintillaWnd::HighLightingText;
    using CScintillaWnd::isQualifiedWord;
    using CScintillaWnd::isWordChar;
};

class MarksTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        editor.reset();
        editor = std::make_unique<MarkedEditor>();
        ASSERT_EQ(editor->Create("editor", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 42), 1);
        // Lines "line 1" .. "line 30", caret on line 10 (counted from 1).
        CString text;
        for (int i = 1; i <= 30; ++i) {
            CString line;
            line.Format("line %d\n", i);
            text += line;
        }
        load(text.c_str());
        editor->GotoLine(10);
    }
    MarkedEditor* marked() { return static_cast<MarkedEditor*>(editor.get()); }
    int caretLine() { return editor->GetCurrentLine(); }
    // Ranges lit by the highlight indicator.
    std::vector<std::pair<long, long>> lit() {
        std::vector<std::pair<long, long>> ranges;
        const long length = send(SCI_GETLENGTH);
        for (long at = 0; at < length;) {
            const long end = send(SCI_INDICATOREND, 29, at);
            if (send(SCI_INDICATORVALUEAT, 29, at)) ranges.emplace_back(at, end);
            if (end <= at) break;
            at = end;
        }
        return ranges;
    }
    void selectAndUpdate(long start, long end) {
        send(SCI_SETSEL, WPARAM(start), end);
        editor->UpdateUI();
    }
};

TEST_F(MarksTest, MarksCountLinesFromOneWithMinusOneForTheCaret) {
    editor->AddBookmark(3);
    EXPECT_EQ(editor->GetLineFlags(2), 1);
    EXPECT_EQ(editor->HasBookmark(3), 1);
    editor->DeleteBookmark(4);  // nothing there: nothing happens
    editor->DeleteBookmark(3);
    EXPECT_EQ(editor->HasBookmark(3), 0);

    editor->AddMark(2, -1);
    EXPECT_NE(editor->HasMark(2, 10), 0);
    EXPECT_EQ(editor->GetLineWithFlag(2), 9);
    EXPECT_EQ(editor->GetLineWithFlag(40), -1);  // no such marker: an empty mask finds nothing
    editor->ToggleMark(0, -1);
    editor->ToggleMark(0, -1);
    EXPECT_EQ(editor->GetLineFlags(9), 1 << 2);
    editor->AddBreakPoint(12);
    EXPECT_EQ(editor->GetLineFlags(11), 1 << 1);
    editor->DeleteMark(2, -1);
    EXPECT_EQ(editor->GetLineFlags(9), 0);
    editor->AddMark(1, 20);
    editor->DeleteAllMark(1);
    EXPECT_EQ(editor->GetLineWithFlag(1), -1);
}

TEST_F(MarksTest, GoingToMarksSkipsTheCaretsLineAndWrapsOnlyForMarks) {
    editor->FindNextMark(0);  // no marks: the caret stays
    EXPECT_EQ(caretLine(), 10);

    editor->AddBookmark(5);
    editor->FindNextBookmark();  // below the last mark: nothing
    EXPECT_EQ(caretLine(), 10);
    editor->FindPreviousBookmark();
    EXPECT_EQ(caretLine(), 5);
    editor->FindPreviousBookmark();  // its own line is never found
    EXPECT_EQ(caretLine(), 5);
    editor->FindNextMark(0);  // the only mark is found again by wrapping
    EXPECT_EQ(caretLine(), 5);

    editor->AddBookmark(25);
    editor->FindNextMark(0);
    EXPECT_EQ(caretLine(), 25);
    editor->FindNextMark(0);
    EXPECT_EQ(caretLine(), 5);
    editor->FindPreviousMark(0);  // wraps to the last marked line
    EXPECT_EQ(caretLine(), 25);
}

TEST_F(MarksTest, WordTestsSeparateOnBlanksAndAsciiPunctuationOnly) {
    EXPECT_TRUE(marked()->isQualifiedWord(""));
    EXPECT_TRUE(marked()->isQualifiedWord("emp_no`x9"));
    EXPECT_TRUE(marked()->isQualifiedWord("\xed\x95\x9c\xea\xb8\x80"));
    for (const char* text : {"a.b", "a b", "a\tb", "a-b", "a@b", "a[b", "a^b", "a{b", "a~b"})
        EXPECT_FALSE(marked()->isQualifiedWord(text)) << text;
    EXPECT_TRUE(marked()->isWordChar("_"));
    EXPECT_FALSE(marked()->isWordChar("("));
}

TEST_F(MarksTest, SelectingAWholeWordLightsItsVisibleOccurrencesInAnyCase) {
    load("select emp from EMP e\nwhere emp.id = employee.id and x.emp_no = 1\nEmp\n");
    send(SCI_SETSEARCHFLAGS, SCFIND_MATCHCASE);
    send(SCI_SETTARGETSTART, 3);
    send(SCI_SETTARGETEND, 9);
    selectAndUpdate(7, 10);  // "emp"
    const std::vector<std::pair<long, long>> expected{{7, 10}, {16, 19}, {28, 31}, {66, 69}};
    EXPECT_EQ(lit(), expected);
    // The target range a replace relies on is what it was.
    EXPECT_EQ(send(SCI_GETTARGETSTART), 3);
    EXPECT_EQ(send(SCI_GETTARGETEND), 9);

    selectAndUpdate(7, 9);  // part of a word
    EXPECT_TRUE(lit().empty());
    selectAndUpdate(0, 10);  // two words
    EXPECT_TRUE(lit().empty());
    selectAndUpdate(28, 34);  // "emp.id" holds a separator
    EXPECT_TRUE(lit().empty());
    selectAndUpdate(66, 70);  // "Emp" and its line end
    EXPECT_TRUE(lit().empty());
    selectAndUpdate(66, 69);  // up to the line's end, not over it
    EXPECT_EQ(lit(), expected);
    selectAndUpdate(5, 5);
    EXPECT_TRUE(lit().empty());
}

TEST_F(MarksTest, TheErrorMarkHoldsOffTheHighlightUntilTheSelectionMoves) {
    load("select emp from emp\n");
    editor->SelectErrorMark(CPoint(17, 0));  // inside the second "emp"
    EXPECT_EQ(editor->GetSelectionStart(), 16);
    EXPECT_EQ(editor->GetSelectionEnd(), 19);
    editor->UpdateUI();
    EXPECT_TRUE(lit().empty());

    selectAndUpdate(7, 10);  // the user selects the other one
    EXPECT_EQ(lit().size(), 2u);
    selectAndUpdate(16, 19);  // the mark was cleared: now the same word lights
    EXPECT_EQ(lit().size(), 2u);

    editor->SetErrorMark(true, 16, 19);
    selectAndUpdate(16, 16);  // an empty selection clears the mark
    selectAndUpdate(16, 19);
    EXPECT_EQ(lit().size(), 2u);
}
}  // namespace
