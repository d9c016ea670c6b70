// The fold margin and the care that keeps lines visible when folds change under them.
#include "AppWindow.h"

class FoldingTest : public AppWindowTest {
protected:
    void SetUp() override {
        AppWindowTest::SetUp();
        create();
        // The SQL lexer folds begin/end blocks once it knows them as keywords.
        send(SCI_SETLEXERLANGUAGE, 0, reinterpret_cast<LPARAM>("sql"));
        send(SCI_SETKEYWORDS, 0, reinterpret_cast<LPARAM>("begin end select"));
        window->SetDisplayFolding(1);
        setText("begin\n  select 1;\n  select 2;\nend;\nselect 3;\n");  // line 0 heads lines 1 to 3
    }
    void setText(const char* script) {
        window->SetText(script, 0);
        send(SCI_COLOURISE, 0, -1);
    }
    bool visible(int line) { return send(SCI_GETLINEVISIBLE, WPARAM(line)) != 0; }
    void clickMargin(int margin, int line) {
        SCNotification n;
        n.nmhdr.code = SCN_MARGINCLICK;
        n.nmhdr.hwndFrom = window->GetSafeHwnd();
        n.margin = margin;
        n.position = send(SCI_POSITIONFROMLINE, WPARAM(line));
        LRESULT result = 0;
        window->OnNotify(0, reinterpret_cast<LPARAM>(&n), &result);
    }
};

TEST_F(FoldingTest, OnlyAClickInTheFoldMarginToggles) {
    ASSERT_TRUE(send(SCI_GETFOLDLEVEL, 0) & SC_FOLDLEVELHEADERFLAG);
    clickMargin(0, 0);
    clickMargin(1, 0);
    EXPECT_TRUE(visible(1));
    clickMargin(2, 0);
    EXPECT_FALSE(visible(1) || visible(2));
    EXPECT_TRUE(visible(4));
    clickMargin(2, 0);
    EXPECT_TRUE(visible(1));
}

TEST_F(FoldingTest, LinesOfAFoldThatGoesAwayOrMovesOutBecomeVisible) {
    clickMargin(2, 0);
    ASSERT_FALSE(visible(2));
    // Closing the block early moves "select 2;" out to the top level: it must not stay hidden.
    send(SCI_INSERTTEXT, WPARAM(send(SCI_POSITIONFROMLINE, 2)), reinterpret_cast<LPARAM>("end;\n"));
    send(SCI_COLOURISE, 0, -1);
    EXPECT_TRUE(visible(3));
    // A blank line that changes level is left as it is.
    send(SCI_HIDELINES, 1, 1);
    window->FoldChanged(1, SC_FOLDLEVELBASE | SC_FOLDLEVELWHITEFLAG, SC_FOLDLEVELBASE + 1);
    EXPECT_FALSE(visible(1));

    // Turning the header of a contracted fold into an ordinary statement shows its lines.
    setText("begin\n  select 1;\n  select 2;\nend;\n");
    clickMargin(2, 0);
    ASSERT_FALSE(visible(1));
    send(SCI_SETTARGETRANGE, 0, 5);
    send(SCI_REPLACETARGET, 6, reinterpret_cast<LPARAM>("select"));
    send(SCI_COLOURISE, 0, -1);
    EXPECT_TRUE(visible(1) && visible(2));

    // A new fold point starts expanded.
    setText("select 1;\nselect 2;\nend;\n");
    send(SCI_GOTOPOS, 0);
    send(SCI_ADDTEXT, 6, reinterpret_cast<LPARAM>("begin\n"));
    send(SCI_COLOURISE, 0, -1);
    ASSERT_TRUE(send(SCI_GETFOLDLEVEL, 0) & SC_FOLDLEVELHEADERFLAG);
    EXPECT_EQ(send(SCI_GETFOLDEXPANDED, 0), 1);
    EXPECT_TRUE(visible(1) && visible(2));
}

TEST_F(FoldingTest, FoldingOffWithoutKeywordsSendsNoLexerProperties) {
    TestAppWindow plain;
    plain.SetKeyWordUsingPreCreate(false);
    ASSERT_EQ(plain.Create("x", WS_CHILD, RECT{0, 0, 100, 100}, frame.get(), 9), 1);
    auto property = [](TestAppWindow& w, const char* name) {
        char value[8] = {};
        w.SendEditor(SCI_GETPROPERTY, reinterpret_cast<WPARAM>(name), reinterpret_cast<LPARAM>(value));
        return std::string(value);
    };
    const std::string before = property(plain, "fold");
    plain.SetDisplayFolding(before == "1" ? 0 : 1);
    EXPECT_EQ(property(plain, "fold"), before);  // only the margin follows
    EXPECT_EQ(plain.SendEditor(SCI_GETMARGINWIDTHN, 2), before == "1" ? 0 : 16);
    EXPECT_EQ(property(*window, "fold.comment"), "1");
}
