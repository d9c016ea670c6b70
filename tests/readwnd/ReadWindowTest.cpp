// The read-only viewer: output goes in only through its guarded operations, the user cannot
// change it, it keeps no undo, and its scroll range follows the longest line.
#include <QTest>
#include <gtest/gtest.h>

#include "CKTRegistry.h"
#include "CKTScinReadWnd.h"
#include "CommandIds.h"
#include "QuillEngine.h"
#include "ScratchRegistry.h"
#include "WindowHost.h"

namespace {
class TestViewer : public CKTScinReadWnd {
public:
    using CKTScinReadWnd::adjustHScrollSize;
    using CKTScinReadWnd::SendEditor;
};

class ReadWindowTest : public WindowHostTest<TestViewer> {
protected:
    // The viewer has a Create of its own, which gives it its fixed child id.
    void create(int keywords = 1) {
        CRect rect(0, 0, 600, 400);
        ASSERT_NE(window->Create("output", rect, frame.get(), keywords), 0);
    }
    bool clearContentEnabled() {
        CCmdUI ui(cmd::EditClear);
        window->UpdateCommandUI(cmd::EditClear, &ui);
        return ui.IsEnabled();
    }

    ScratchRegistry registry;
};

TEST_F(ReadWindowTest, CreatesAReadOnlyViewerWithLineNumbersAndNoUndo) {
    create();
    EXPECT_EQ(window->GetDlgCtrlID(), int(CKTScinReadWnd::kChildId));
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    EXPECT_EQ(send(SCI_GETUNDOCOLLECTION), 0);
    EXPECT_EQ(window->GetDisplayLinenumbers(), 1);
    EXPECT_EQ(window->GetDisplaySelection(), 0);
    EXPECT_EQ(send(SCI_STYLEGETBACK, STYLE_DEFAULT), 0xC0C0C0);  // the user's read-only colour

    // Restyling keeps all of that.
    window->ApplyVisualOption();
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    EXPECT_EQ(send(SCI_GETUNDOCOLLECTION), 0);
    EXPECT_EQ(window->GetDisplayLinenumbers(), 1);
}

TEST_F(ReadWindowTest, OnlyTheGuardedOperationsChangeTheText) {
    create();
    EXPECT_FALSE(clearContentEnabled());
    window->SetText("first\r\n", 0);
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    window->AppendText(CString("second\r\n"));
    window->AppendText("third\r\n", 100, 10, true);
    EXPECT_STREQ(window->GetText().c_str(), "first\r\nsecond\r\nthird\r\n");
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    // Replacing the text must not bring undo back: trimmed output would pile up in memory.
    EXPECT_EQ(send(SCI_GETUNDOCOLLECTION), 0);
    window->AppendText("again\r\n", 1, 1, false);
    EXPECT_EQ(send(SCI_GETUNDOCOLLECTION), 0);
    window->SetText("first\r\nsecond\r\nthird\r\n", 0);
    EXPECT_TRUE(clearContentEnabled());

    // The user's keys, cut and paste leave it alone.
    window->SetFocus();
    QTest::keyClicks(window->engine()->viewport(), "typed");
    send(SCI_SETSEL, 0, 5);
    window->Cut();
    window->Paste();
    EXPECT_STREQ(window->GetText().c_str(), "first\r\nsecond\r\nthird\r\n");

    window->SendMessage(WM_COMMAND, cmd::EditClear, 0);
    EXPECT_TRUE(window->IsEmpty());
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    EXPECT_FALSE(clearContentEnabled());
}

TEST_F(ReadWindowTest, AppendsKeepTheLineLimit) {
    create(0);
    for (int i = 0; i < 300; ++i) {
        CString line;
        line.Format("row %d\r\n", i);
        window->AppendText(line, 100, 10, true);
    }
    EXPECT_LE(window->GetLineCount(), 91);
    EXPECT_NE(window->GetText().Find("row 299\r\n"), -1);
    EXPECT_EQ(send(SCI_GETREADONLY), 1);
    // No room above the slack: each append replaces the document.
    window->AppendText("only\r\n", 5, 5, false);
    EXPECT_STREQ(window->GetText().c_str(), "only\r\n");
}

TEST_F(ReadWindowTest, ScrollRangeFollowsTheLongestLineAndNeverShrinks) {
    create();
    const long charWidth = send(SCI_TEXTWIDTH, STYLE_DEFAULT, reinterpret_cast<LPARAM>("A"));
    // After every change a full look at all lines must find nothing wider than what the
    // change itself left, whichever lines it touched.
    auto settled = [&] {
        const long width = send(SCI_GETSCROLLWIDTH);
        window->adjustHScrollSize();
        return send(SCI_GETSCROLLWIDTH) == width;
    };
    window->SetText("x\r\n" + CString('y', 40) + "\r\nshort", 0);
    EXPECT_GE(send(SCI_GETSCROLLWIDTH), 40 * charWidth);
    EXPECT_TRUE(settled());
    window->AppendText(CString('z', 70));  // lengthens the last line
    EXPECT_TRUE(settled());
    EXPECT_GE(send(SCI_GETSCROLLWIDTH), 75 * charWidth);
    window->AppendText("\rcr\n" + CString('w', 120) + "\r\n", 6, 1, false);  // trims, mixed line ends
    EXPECT_TRUE(settled());
    EXPECT_GE(send(SCI_GETSCROLLWIDTH), 120 * charWidth);

    // Someone narrows the range: the next change measures every line again.
    send(SCI_SETSCROLLWIDTH, 1);
    window->AppendText(CString("\r\n"));
    EXPECT_GE(send(SCI_GETSCROLLWIDTH), 120 * charWidth);

    // A host lifts read-only and lengthens an early line itself: the next change finds it.
    window->SetText("a\r\nb\r\nc\r\n", 0);
    const long before = send(SCI_GETSCROLLWIDTH);
    send(SCI_SETREADONLY, 0);
    const CString longLine('v', 300);
    send(SCI_INSERTTEXT, WPARAM(send(SCI_POSITIONFROMLINE, 1)), reinterpret_cast<LPARAM>(longLine.c_str()));
    window->AppendText(CString("d"));
    EXPECT_GT(send(SCI_GETSCROLLWIDTH), before);
    EXPECT_TRUE(settled());

    // Emptying keeps the range; a short text does not narrow it.
    const long wide = send(SCI_GETSCROLLWIDTH);
    window->ClearContent();
    window->SetText("a\r\nb", 0);
    EXPECT_EQ(send(SCI_GETSCROLLWIDTH), wide);
}

TEST_F(ReadWindowTest, WithoutKeywordsOnlyTheTextColourActs) {
    {
        CKTRegistry key;
        ASSERT_TRUE(key.Open(HKEY_CURRENT_USER, "Software\\Quillbox\\Settings\\Editor Color\\Readonly"));
        key.SetDWORD("Text", 0x123456);
        key.SetDWORD("Keyword", 0x654321);
    }
    create(0);
    EXPECT_EQ(send(SCI_STYLEGETFORE, 0), 0x123456);
    EXPECT_NE(send(SCI_STYLEGETFORE, 5), 0x654321);
}
}  // namespace
