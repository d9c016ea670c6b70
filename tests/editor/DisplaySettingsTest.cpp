// Display settings and one-message commands against a real engine.
#include <string>

#include "EditorFixture.h"

TEST_F(EditorTest, LineNumberMarginWidensWithTheLineCount) {
    const long nine = send(SCI_TEXTWIDTH, STYLE_LINENUMBER, reinterpret_cast<LPARAM>("9"));
    // Lines, digits kept room for and the margin's width: never less than four digits' room.
    for (const auto& [lines, chars, width] : {std::tuple{10, 3, 4 * nine}, {9999, 5, 6 * nine}}) {
        load(RepeatedLines("x\n", size_t(2 * (lines - 1))).c_str());
        ASSERT_EQ(editor->GetLineCount(), lines);
        EXPECT_EQ(editor->GetLinenumberChars(), chars);
        EXPECT_EQ(editor->GetLinenumberWidth(), width);
    }
    QuillEngine* engine = editor->engine();
    engine->resetCounters();
    editor->SetDisplayLinenumbers(1);
    const auto afterFirst = engine->counters().messages;
    editor->SetDisplayLinenumbers(1);  // already on: nothing is sent
    EXPECT_EQ(engine->counters().messages, afterFirst);
    EXPECT_EQ(send(SCI_GETMARGINWIDTHN, 0), 6 * nine);
    editor->SetDisplayLinenumbers(0);
    EXPECT_EQ(send(SCI_GETMARGINWIDTHN, 0), 0);
    for (const auto& [shown, width] : {std::pair{0, 0}, std::pair{1, 16}}) {
        editor->SetDisplaySelection(shown);
        EXPECT_EQ(send(SCI_GETMARGINWIDTHN, 1), width);
    }
}

TEST_F(EditorTest, FontsColoursTabsAndScrollBars) {
    editor->SetFont("DejaVu Sans Mono", 105);  // every style but the last, in whole points
    EXPECT_EQ(editor->fontSetting, "font:DejaVu Sans Mono,size:10");
    char font[64] = {};
    send(SCI_STYLEGETFONT, 254, reinterpret_cast<LPARAM>(font));
    EXPECT_STREQ(font, "DejaVu Sans Mono");
    editor->SetBackgroundColor(0x123456);
    EXPECT_EQ(editor->GetBackgroundColor(), 0x123456u);
    editor->SetTabSize(6);
    editor->SetInsertTabs(0);
    send(SCI_SETTABINDENTS, 0);
    editor->SetInsertTabs(1);
    editor->SetHScrollBar(0);  // the bar stays on whatever is asked
    expectSends({{SCI_STYLEGETSIZE, 0, 10}, {SCI_STYLEGETSIZE, 254, 10}, {SCI_STYLEGETBACK, STYLE_DEFAULT, 0x123456},
                 {SCI_STYLEGETBACK, 31, 0x123456}, {SCI_GETTABINDENTS, 0, 1}, {SCI_GETINDENT, 0, 6},
                 {SCI_GETUSETABS, 0, 1}, {SCI_GETHSCROLLBAR, 0, 1}});
}

TEST_F(EditorTest, LinesAndColumnsCountFromOneForTheUser) {
    load("first\n  second\nthird\n");
    EXPECT_EQ(editor->GetCurrentColumn(), 1);
    editor->GotoLineEnsureVisible(1);
    EXPECT_EQ(editor->GetCurrentLine(), 2);
    editor->LineHead();  // to the first non-blank character
    EXPECT_EQ(editor->GetCursorPos(), CPoint(2, 1));
    EXPECT_EQ(editor->GetPositionFromSelectionLine(), 6);
    editor->SetCursorPos(CPoint(1, 2));
    EXPECT_EQ(editor->GetCurrentPosition(), 16);
    EXPECT_EQ(editor->SetCurrentPosition(3), 0);
    EXPECT_EQ(send(SCI_GETANCHOR), 3);
    editor->PageEnd();
    EXPECT_EQ(editor->GetCurrentPosition(), editor->GetTextLength());
}

TEST_F(EditorTest, ReadOnlyChangesNothingAndWordDeletionIsUndone) {
    load("aBc");
    editor->SetEditable(0);
    EXPECT_EQ(editor->QueryEditable(), 0);
    for (const char* expected : {"aBc", "AbC"}) {  // read-only: nothing changes
        send(SCI_SETSEL, 0, 3);
        editor->Invertcase();
        EXPECT_EQ(text(), expected);
        editor->SetEditable(1);
    }
    send(SCI_GOTOPOS, 3);
    editor->DelCtrlBack();
    EXPECT_EQ(text(), "");
    EXPECT_EQ(editor->CanUndo(), 1);
    editor->Undo();
    EXPECT_EQ(text(), "AbC");
}
