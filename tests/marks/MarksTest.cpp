// Line marks, the error mark and the word highlight.
#include <gtest/gtest.h>

#include <vector>

#include "EditorFixture.h"

namespace {
class MarkedEditor : public TestEditor {
public:
    using CScintillaWnd::isQualifiedWord, CScintillaWnd::isWordChar;
};

class MarksTest : public EditorHostTest<MarkedEditor> {
protected:
    void SetUp() override {
        EditorHostTest::SetUp();
        CString text;  // lines "line 1" .. "line 30", caret on line 10 (counted from 1)
        for (int i = 1; i <= 30; ++i) text += CString("line ") + CString(std::to_string(i)) + "\n";
        load(text.c_str());
        editor->GotoLine(10);
    }
    // Ranges lit by the highlight indicator after the selection [start, end) was made.
    std::vector<std::pair<long, long>> litAfterSelecting(long start, long end) {
        send(SCI_SETSEL, WPARAM(start), end);
        editor->UpdateUI();
        std::vector<std::pair<long, long>> ranges;
        for (long at = 0, length = send(SCI_GETLENGTH); at < length;) {
            const long next = send(SCI_INDICATOREND, 29, at);
            if (send(SCI_INDICATORVALUEAT, 29, at)) ranges.emplace_back(at, next);
            if (next <= at) break;
            at = next;
        }
        return ranges;
    }
};

TEST_F(MarksTest, MarksCountLinesFromOneWithMinusOneForTheCaret) {
    editor->AddBookmark(3);
    EXPECT_EQ(editor->GetLineFlags(2), 1);
    editor->DeleteBookmark(4);  // nothing there: nothing happens
    EXPECT_EQ(editor->HasBookmark(3), 1);
    editor->DeleteBookmark(3);
    EXPECT_EQ(editor->HasBookmark(3), 0);
    editor->AddMark(2, -1);
    EXPECT_NE(editor->HasMark(2, 10), 0);
    EXPECT_EQ(editor->GetLineWithFlag(2), 9);
    EXPECT_EQ(editor->GetLineWithFlag(40), -1);  // no such marker: an empty mask finds nothing
    editor->ToggleMark(0, -1);
    editor->ToggleMark(0, -1);
    editor->AddBreakPoint(12);
    EXPECT_EQ(editor->GetLineFlags(9), 1 << 2);
    EXPECT_EQ(editor->GetLineFlags(11), 1 << 1);
    editor->DeleteMark(2, -1);
    EXPECT_EQ(editor->GetLineFlags(9), 0);
    editor->AddMark(1, 20);
    editor->DeleteAllMark(1);
    EXPECT_EQ(editor->GetLineWithFlag(1), -1);
}

TEST_F(MarksTest, GoingToMarksSkipsTheCaretsLineAndWrapsOnlyForMarks) {
    editor->FindNextMark(0);  // no marks: the caret stays
    EXPECT_EQ(editor->GetCurrentLine(), 10);
    editor->AddBookmark(5);
    editor->FindNextBookmark();  // below the last mark: nothing
    EXPECT_EQ(editor->GetCurrentLine(), 10);
    for (int i = 0; i < 2; ++i) {  // its own line is never found
        editor->FindPreviousBookmark();
        EXPECT_EQ(editor->GetCurrentLine(), 5);
    }
    editor->FindNextMark(0);  // the only mark is found again by wrapping
    EXPECT_EQ(editor->GetCurrentLine(), 5);
    editor->AddBookmark(25);
    for (int expected : {25, 5}) {
        editor->FindNextMark(0);
        EXPECT_EQ(editor->GetCurrentLine(), expected);
    }
    editor->FindPreviousMark(0);  // wraps to the last marked line
    EXPECT_EQ(editor->GetCurrentLine(), 25);
}

TEST_F(MarksTest, SelectingAWholeWordLightsItsVisibleOccurrencesInAnyCase) {
    EXPECT_TRUE(editor->isQualifiedWord("") && editor->isQualifiedWord("emp_no`x9"));
    EXPECT_TRUE(editor->isQualifiedWord("\xed\x95\x9c\xea\xb8\x80") && editor->isWordChar("_"));
    EXPECT_FALSE(editor->isWordChar("("));
    for (const char* text : {".ab", "a b", "a\tb", "a-b", "a@b", "a[b", "a^b", "a{b", "a~b"})
        EXPECT_FALSE(editor->isQualifiedWord(text)) << text;

    load("select emp from EMP e\nwhere emp.id = employee.id and x.emp_no = 1\nEmp\n");
    send(SCI_SETSEARCHFLAGS, SCFIND_MATCHCASE);
    send(SCI_SETTARGETSTART, 3);
    send(SCI_SETTARGETEND, 9);
    const std::vector<std::pair<long, long>> emp{{7, 10}, {16, 19}, {28, 31}, {66, 69}}, none;
    // The selection, and what it lights: part of a word, two words, a separator inside and a
    // line end light nothing.
    const struct { long start, end; const std::vector<std::pair<long, long>>& lit; } rows[] = {
        {7, 10, emp}, {7, 9, none}, {0, 10, none}, {28, 34, none}, {66, 70, none}, {66, 69, emp}, {5, 5, none}};
    for (const auto& row : rows) EXPECT_EQ(litAfterSelecting(row.start, row.end), row.lit) << row.start;
    // The target range a replace relies on is what it was.
    EXPECT_EQ(send(SCI_GETTARGETSTART), 3);
    EXPECT_EQ(send(SCI_GETTARGETEND), 9);
}

TEST_F(MarksTest, TheErrorMarkHoldsOffTheHighlightUntilTheSelectionMoves) {
    load("select emp from emp\n");
    editor->SelectErrorMark(CPoint(17, 0));  // inside the second "emp"
    EXPECT_EQ(editor->GetSelectionStart(), 16);
    EXPECT_EQ(editor->GetSelectionEnd(), 19);
    editor->UpdateUI();
    EXPECT_TRUE(litAfterSelecting(16, 19).empty());
    EXPECT_EQ(litAfterSelecting(7, 10).size(), 2u);   // the user selects the other one
    EXPECT_EQ(litAfterSelecting(16, 19).size(), 2u);  // the mark was cleared: now the same word lights
    editor->SetErrorMark(true, 16, 19);
    litAfterSelecting(16, 16);  // an empty selection clears the mark
    EXPECT_EQ(litAfterSelecting(16, 19).size(), 2u);
}
}  // namespace
