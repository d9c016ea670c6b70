// Comment commands, run directly and from Ctrl+Minus and Ctrl+Shift+Minus, with the markers of
// the shipped property file ("--", "-- " with the option, and the box "/*", " *", "*/"): each one undo step.
#include "SqlWindow.h"

TEST_F(SqlWindowTest, CommentCommandsMarkTheSelectedLines) {
    enum Command { Uncomment, Comment, Box, UncommentBlank, CommentBlank, CtrlMinus, CtrlPadMinus, CtrlShiftMinus };
    // A row without a text works on the text the row before left.
    struct Row { const char* load; long anchor, caret; Command command; const char* expected; long selStart = -1, selEnd = -1; };
    const Row rows[] = {
        // From the middle of line 0 to the middle of line 3: empty lines too, before indentation.
        {"select 1\n  from t\n\nwhere x\n", 3, 20, Comment, "--select 1\n--  from t\n--\n--where x\n", 5, 28},
        {"a\nb\nc\n", 0, 4, Comment, "--a\n--b\nc\n"},  // ends at the start of line 2: that line stays
        {nullptr, 6, 6, Comment, "--a\n----b\nc\n"},  // a caret alone marks its line, twice gives two markers
        {nullptr, 6, 6, Uncomment, "--a\n--b\nc\n"},  // and one removal takes one
        {"--a\n-b\nc\n", 0, 8, Uncomment, "a\nb\nc\n"},  // "-" counts as a marker that lost its last byte
        {"--abc\n", 1, 1, Uncomment, "abc\n", 0, 0},  // the selection inside the marker
        {"x\n", 0, 0, CommentBlank, "-- x\n"},
        {nullptr, 0, 0, UncommentBlank, "x\n"},
        {"select 1\n", 0, 3, Box, "/* select 1 */\n"},
        {"a\nb\nc\nd\n", 0, 6, Box, "/* a\n * b\n * c\n*/\nd\n"},  // line 2 is the last
        {nullptr, 0, 12, Box, "/* a\n * b\n * c\n*/\nd\n"},  // a second run changes nothing
        {"select 1\n", 0, 0, CtrlMinus, "--select 1\n"},
        {nullptr, 0, 0, CtrlPadMinus, "----select 1\n"},
        {nullptr, 0, 0, CtrlShiftMinus, "--select 1\n"},  // Shift turns the key into an underscore
    };
    focus(*window);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.expected);
        if (row.load) load(row.load);
        const CString before = text();
        select(row.anchor, row.caret);
        window->blankAfterComment = row.command == UncommentBlank || row.command == CommentBlank;
        if (row.command == Box) window->StartBoxComment();
        else if (row.command == CtrlMinus) key(Qt::Key_Minus, Qt::ControlModifier);
        else if (row.command == CtrlPadMinus) key(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
        else if (row.command == CtrlShiftMinus) key(Qt::Key_Underscore, Qt::ControlModifier | Qt::ShiftModifier);
        else window->StartBlockComment(row.command == Comment || row.command == CommentBlank);
        EXPECT_EQ(text(), row.expected);
        if (row.selStart >= 0) { EXPECT_EQ(send(SCI_GETSELECTIONSTART), row.selStart); }
        if (row.selEnd >= 0) { EXPECT_EQ(send(SCI_GETSELECTIONEND), row.selEnd); }
        if (before == text()) continue;
        send(SCI_UNDO);
        EXPECT_EQ(text(), before);
        send(SCI_REDO);
    }
}
