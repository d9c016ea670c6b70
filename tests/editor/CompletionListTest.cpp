// The engine layer's completion list: show with the bytes already typed, add items to the list
// that shows, and the list's requests for more items and for a refresh.
#include <QApplication>
#include <QTest>

#include "EditorFixture.h"

class CompletionListTest : public EditorTest {
protected:
    void SetUp() override {
        EditorTest::SetUp();
        frame->GetSafeHwnd()->activateWindow();
        editor->GetSafeHwnd()->setFocus();
        QApplication::processEvents();
        send(SCI_AUTOCSETSEPARATOR, '|');
        load("select ord");
        send(SCI_DOCUMENTEND);
    }
    CString current() {
        char text[64] = {};
        send(SCI_AUTOCGETCURRENTTEXT, 0, reinterpret_cast<LPARAM>(text));
        return CString(text);
    }
    int count(UINT code) {
        int n = 0;
        for (const auto& rec : editor->notifications) n += rec.nmhdr.code == code;
        return n;
    }
};

TEST_F(CompletionListTest, AListShowsAndGrowsWhileTheChosenItemStays) {
    EXPECT_EQ(send(SCI_APPENDLIST_EXT, 0, reinterpret_cast<LPARAM>("x")), 0);  // no list yet: nothing
    EXPECT_EQ(send(SCI_AUTOCACTIVE), 0);
    send(SCI_SHOWLIST_EXT, 3, reinterpret_cast<LPARAM>("order_lines|orders"));
    ASSERT_EQ(send(SCI_AUTOCACTIVE), 1);
    send(SCI_AUTOCSELECT, 0, reinterpret_cast<LPARAM>("orders"));
    send(SCI_APPENDLIST_EXT, 0, reinterpret_cast<LPARAM>("ordinal|ordination"));
    ASSERT_EQ(send(SCI_AUTOCACTIVE), 1);
    EXPECT_EQ(current(), "orders");
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Return);  // accepting is the engine's own work
    EXPECT_EQ(text(), "select orders");
}

TEST_F(CompletionListTest, TheLastItemAsksForMoreAndDeletingAsksForARefresh) {
    send(SCI_SHOWLIST_EXT, 3, reinterpret_cast<LPARAM>("order_lines|orders"));
    editor->notifications.clear();
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Down);
    QApplication::processEvents();
    EXPECT_EQ(count(SCN_LISTMORE_EXT), 1);
    QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Backspace);
    EXPECT_GE(count(SCN_LISTREFRESH_EXT), 1);
}
