// The fold margin and the care that keeps lines visible when folds change under them.
#include <QTest>

#include "AppWindow.h"

namespace {
constexpr const char* kScript =
    "begin\n"          // 0: header
    "  select 1;\n"    // 1
    "  select 2;\n"    // 2
    "end;\n"           // 3
    "select 3;\n";     // 4
}  // namespace

class FoldingTest : public AppWindowTest {
protected:
    void SetUp() override {
        AppWindowTest::SetUp();
        create();
        // The SQL lexer folds begin/end blocks once it knows them as keywords.
        send(SCI_SETLEXERLANGUAGE, 0, reinterpret_cast<LPARAM>("sql"));
        send(SCI_SETKEYWORDS, 0, reinterpret_cast<LPARAM>("begin end select"));
        window->SetDisplayFolding(1);
        window->SetText(kScript, 0);
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
    EXPECT_FALSE(visible(1));
    EXPECT_FALSE(visible(2));
    EXPECT_TRUE(visible(4));
    clickMargin(2, 0);
    EXPECT_TRUE(visible(1));
}

TEST_F(FoldingTest, DeletingTheHeaderOfAContractedFoldShowsItsLines) {
    clickMargin(2, 0);
    ASSERT_FALSE(visible(1));
    // Turn the header into an ordinary statement: the fold point goes away.
    send(SCI_SETTARGETRANGE, 0, 5);
    send(SCI_REPLACETARGET, 6, reinterpret_cast<LPARAM>("select"));
    send(SCI_COLOURISE, 0, -1);
    EXPECT_TRUE(visible(1));
    EXPECT_TRUE(visible(2));
}

TEST_F(FoldingTest, ANewFoldPointStartsExpanded) {
    window->SetText("select 1;\nselect 2;\nend;\n", 0);
    send(SCI_COLOURISE, 0, -1);
    send(SCI_GOTOPOS, 0);
    send(SCI_ADDTEXT, 6, reinterpret_cast<LPARAM>("begin\n"));
    send(SCI_COLOURISE, 0, -1);
    ASSERT_TRUE(send(SCI_GETFOLDLEVEL, 0) & SC_FOLDLEVELHEADERFLAG);
    EXPECT_EQ(send(SCI_GETFOLDEXPANDED, 0), 1);
    EXPECT_TRUE(visible(1));
    EXPECT_TRUE(visible(2));
}

TEST_F(FoldingTest, ALineMovedOutOfAContractedFoldBecomesVisible) {
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
}

TEST_F(FoldingTest, FoldingOffWithoutKeywordsSendsNoLexerProperties) {
    TestAppWindow plain;
    plain.SetKeyWordUsingPreCreate(false);
    ASSERT_EQ(plain.Create("x", WS_CHILD, RECT{0, 0, 100, 100}, frame.get(), 9), 1);
    char before[8] = {}, after[8] = {};
    plain.SendEditor(SCI_GETPROPERTY, reinterpret_cast<WPARAM>("fold"), reinterpret_cast<LPARAM>(before));
    plain.SetDisplayFolding(before[0] == '1' ? 0 : 1);
    plain.SendEditor(SCI_GETPROPERTY, reinterpret_cast<WPARAM>("fold"), reinterpret_cast<LPARAM>(after));
    EXPECT_STREQ(after, before);  // only the margin follows
    EXPECT_EQ(plain.SendEditor(SCI_GETMARGINWIDTHN, 2), before[0] == '1' ? 0 : 16);
    EXPECT_EQ(window->GetDisplayFolding(), 1);
    char value[8] = {};
    send(SCI_GETPROPERTY, reinterpret_cast<WPARAM>("fold.comment"), reinterpret_cast<LPARAM>(value));
    EXPECT_STREQ(value, "1");
}
