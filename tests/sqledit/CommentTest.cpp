// Comment commands with the markers of the shipped property file ("--", "-- " with the
// option, and the box "/*", " *", "*/").
#include <QTest>

#include "SqlWindow.h"

TEST_F(SqlWindowTest, CommentingMarksEachSelectedLineAsOneUndoStep) {
    load("select 1\n  from t\n\nwhere x\n");
    select(3, 20);  // from the middle of line 0 to the middle of line 3
    window->StartBlockComment(1);
    EXPECT_EQ(text(), "--select 1\n--  from t\n--\n--where x\n");  // empty lines too, before indentation
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 5);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 28);
    send(SCI_UNDO);
    EXPECT_EQ(text(), "select 1\n  from t\n\nwhere x\n");
}

TEST_F(SqlWindowTest, ASelectionEndingAtColumnZeroLeavesThatLineAlone) {
    load("a\nb\nc\n");
    select(0, 4);  // ends at the start of line 2
    window->StartBlockComment(1);
    EXPECT_EQ(text(), "--a\n--b\nc\n");
    select(6, 6);  // a caret alone marks its line
    window->StartBlockComment(1);
    EXPECT_EQ(text(), "--a\n----b\nc\n");  // marking twice gives two markers
    window->StartBlockComment(0);
    EXPECT_EQ(text(), "--a\n--b\nc\n");    // and one removal takes one
}

TEST_F(SqlWindowTest, UncommentingTakesAMarkerOrItsFirstByteOff) {
    load("--a\n-b\nc\n");
    select(0, 8);
    window->StartBlockComment(0);
    EXPECT_EQ(text(), "a\nb\nc\n");  // "-" counts as a marker that lost its last byte
    load("--abc\n");
    select(1, 1);  // the selection inside the marker of the first line
    window->StartBlockComment(0);
    EXPECT_EQ(text(), "abc\n");
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 0);
    EXPECT_EQ(send(SCI_GETSELECTIONEND), 0);
}

TEST_F(SqlWindowTest, TheBlankAfterCommentOptionUsesTheSecondMarker) {
    load("x\n");
    window->blankAfterComment = 1;
    select(0, 0);
    window->StartBlockComment(1);
    EXPECT_EQ(text(), "-- x\n");
    window->StartBlockComment(0);
    EXPECT_EQ(text(), "x\n");
}

TEST_F(SqlWindowTest, BoxCommentsWrapOnceAndAreIdempotent) {
    load("select 1\n");
    select(0, 3);
    window->StartBoxComment();
    EXPECT_EQ(text(), "/* select 1 */\n");
    load("a\nb\nc\nd\n");
    select(0, 6);  // ends at the start of line 3: line 2 is the last
    window->StartBoxComment();
    EXPECT_EQ(text(), "/* a\n * b\n * c\n*/\nd\n");
    select(0, 12);
    window->StartBoxComment();  // a second run changes nothing
    EXPECT_EQ(text(), "/* a\n * b\n * c\n*/\nd\n");
}

TEST_F(SqlWindowTest, CtrlMinusCommentsAndCtrlShiftMinusUncomments) {
    frame->GetSafeHwnd()->activateWindow();
    window->GetSafeHwnd()->setFocus();
    QApplication::processEvents();
    load("select 1\n");
    select(0, 0);
    QTest::keyClick(window->GetSafeHwnd(), Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(text(), "--select 1\n");
    QTest::keyClick(window->GetSafeHwnd(), Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    EXPECT_EQ(text(), "----select 1\n");
    // With Shift the key arrives as an underscore.
    QTest::keyClick(window->GetSafeHwnd(), Qt::Key_Underscore, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(text(), "--select 1\n");
}
