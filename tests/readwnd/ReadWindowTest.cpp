// The read-only viewer: output goes in only through its guarded operations, the user cannot
// change it, it keeps no undo, and its scroll range follows the longest line.
#include <QTest>

#include "CKTRegistry.h"
#include "CKTScinReadWnd.h"
#include "CommandIds.h"
#include "QuillEngine.h"
#include "ScratchRegistry.h"
#include "WindowHost.h"

namespace {
class TestViewer : public CKTScinReadWnd {
public:
    using CKTScinReadWnd::adjustHScrollSize, CKTScinReadWnd::SendEditor;
};

class ReadWindowTest : public WindowHostTest<TestViewer> {
protected:
    // The viewer has a Create of its own, which gives it its fixed child id.
    void create(int keywords = 1) {
        CRect rect(0, 0, 600, 400);
        ASSERT_NE(window->Create("output", rect, frame.get(), keywords), 0);
    }
    bool clearEnabled() {
        CCmdUI ui(cmd::EditClear);
        window->UpdateCommandUI(cmd::EditClear, &ui);
        return ui.IsEnabled();
    }
    // Read-only, no undo, line numbers: after creation, restyling and every change.
    void expectViewer() {
        EXPECT_EQ(send(SCI_GETREADONLY), 1);
        EXPECT_EQ(send(SCI_GETUNDOCOLLECTION), 0);
        EXPECT_EQ(window->GetDisplayLinenumbers(), 1);
    }

    ScratchRegistry registry;
};
}  // namespace

TEST_F(ReadWindowTest, OnlyTheGuardedOperationsChangeTheText) {
    create();
    EXPECT_EQ(window->GetDlgCtrlID(), int(CKTScinReadWnd::kChildId));
    EXPECT_EQ(window->GetDisplaySelection(), 0);
    EXPECT_EQ(send(SCI_STYLEGETBACK, STYLE_DEFAULT), 0xC0C0C0);  // the user's read-only colour
    expectViewer();
    window->ApplyVisualOption();
    expectViewer();
    EXPECT_FALSE(clearEnabled());
    // Replacing the text must not bring undo back: trimmed output would pile up in memory.
    window->SetText("first\r\n", 0);
    expectViewer();
    window->AppendText(CString("second\r\n"));
    window->AppendText("third\r\n", 100, 10, true);
    EXPECT_EQ(text(), "first\r\nsecond\r\nthird\r\n");
    expectViewer();
    EXPECT_TRUE(clearEnabled());

    // The user's keys, cut and paste leave it alone.
    window->SetFocus();
    QTest::keyClicks(window->engine()->viewport(), "typed");
    send(SCI_SETSEL, 0, 5);
    window->Cut();
    window->Paste();
    EXPECT_EQ(text(), "first\r\nsecond\r\nthird\r\n");

    window->SendMessage(WM_COMMAND, cmd::EditClear, 0);
    EXPECT_TRUE(window->IsEmpty());
    EXPECT_FALSE(clearEnabled());
    expectViewer();
}

TEST_F(ReadWindowTest, AppendsKeepTheLineLimit) {
    create(0);
    for (int i = 0; i < 300; ++i) window->AppendText("row " + CString(std::to_string(i)) + "\r\n", 100, 10, true);
    EXPECT_LE(window->GetLineCount(), 91);
    EXPECT_NE(text().Find("row 299\r\n"), -1);
    expectViewer();
    window->AppendText("only\r\n", 5, 5, false);  // no room above the slack: each append replaces the document
    EXPECT_EQ(text(), "only\r\n");
    expectViewer();
}

TEST_F(ReadWindowTest, ScrollRangeFollowsTheLongestLineAndNeverShrinks) {
    create();
    const long charWidth = send(SCI_TEXTWIDTH, STYLE_DEFAULT, reinterpret_cast<LPARAM>("A"));
    // After every change a full look at all lines must find nothing wider than what the
    // change itself left, whichever lines it touched.
    auto settled = [&](long characters) {
        EXPECT_GE(send(SCI_GETSCROLLWIDTH), characters * charWidth);
        const long width = send(SCI_GETSCROLLWIDTH);
        window->adjustHScrollSize();
        EXPECT_EQ(send(SCI_GETSCROLLWIDTH), width);
    };
    window->SetText("x\r\n" + CString('y', 40) + "\r\nshort", 0);
    settled(40);
    window->AppendText(CString('z', 70));  // lengthens the last line
    settled(75);
    window->AppendText("\rcr\n" + CString('w', 120) + "\r\n", 6, 1, false);  // trims, mixed line ends
    settled(120);
    send(SCI_SETSCROLLWIDTH, 1);  // someone narrows the range: the next change measures every line again
    window->AppendText(CString("\r\n"));
    settled(120);

    // A host lifts read-only and lengthens an early line itself: the next change finds it.
    window->SetText("a\r\nb\r\nc\r\n", 0);
    send(SCI_SETREADONLY, 0);
    send(SCI_INSERTTEXT, WPARAM(send(SCI_POSITIONFROMLINE, 1)), reinterpret_cast<LPARAM>(CString('v', 300).c_str()));
    window->AppendText(CString("d"));
    settled(300);

    // Emptying keeps the range; a short text does not narrow it.
    const long wide = send(SCI_GETSCROLLWIDTH);
    window->ClearContent();
    window->SetText("a\r\nb", 0);
    EXPECT_EQ(send(SCI_GETSCROLLWIDTH), wide);
}

// The viewer and the editor window share this path; the viewer reads the colours from its settings.
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
    EXPECT_NE(send(SCI_STYLEGETFORE, 10), 0x123456);  // only the default style takes the text colour
}
