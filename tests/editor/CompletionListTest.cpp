// The engine's completion list: show, grow while shown, and its requests for more and a refresh.
#include <QTest>

#include "EditorFixture.h"

class CompletionListTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        focusEditor();
        send(SCI_AUTOCSETSEPARATOR, '|');
        load("select ord");
        send(SCI_DOCUMENTEND);
    }
    long list(long message, long typed, const char* items) { return send(message, typed, reinterpret_cast<LPARAM>(items)); }
};

TEST_F(CompletionListTest, AListShowsAndGrowsWhileTheChosenItemStays) {
    EXPECT_EQ(list(SCI_APPENDLIST_EXT, 0, "x"), 0);  // no list yet: nothing
    EXPECT_EQ(send(SCI_AUTOCACTIVE), 0);
    list(SCI_SHOWLIST_EXT, 3, "order_lines|orders");
    ASSERT_EQ(send(SCI_AUTOCACTIVE), 1);
    list(SCI_AUTOCSELECT, 0, "orders");
    list(SCI_APPENDLIST_EXT, 0, "ordinal|ordination");
    ASSERT_EQ(send(SCI_AUTOCACTIVE), 1);
    char current[64] = {};
    send(SCI_AUTOCGETCURRENTTEXT, 0, reinterpret_cast<LPARAM>(current));
    EXPECT_STREQ(current, "orders");
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Return);  // accepting is the engine's own work
    EXPECT_EQ(text(), "select orders");
}

TEST_F(CompletionListTest, TheLastItemAsksForMoreAndDeletingAsksForARefresh) {
    list(SCI_SHOWLIST_EXT, 3, "order_lines|orders");
    editor->notifications.clear();
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Down);
    QApplication::processEvents();
    EXPECT_EQ(notified(SCN_LISTMORE_EXT).size(), 1u);
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Backspace);
    EXPECT_GE(notified(SCN_LISTREFRESH_EXT).size(), 1u);
}
