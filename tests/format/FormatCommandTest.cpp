// The Format SQL command of the editor window: which text goes in, where the result goes,
// the options read from the settings at each call, undo, and the empty document.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "CommandIds.h"
#include "ScratchRegistry.h"
#include "System.h"

namespace {
class FormatWindow : public CKTScinWnd {
public:
    using CKTScinWnd::commaInList;
    using CKTScinWnd::isSQLKeyword;
    using CKTScinWnd::isSQLKeyword2;
    using CKTScinWnd::keywordAlign;
    using CKTScinWnd::keywordCase;
    using CKTScinWnd::multiline;
    using CKTScinWnd::SendEditor;
};

void setSetting(const char* name, int value) {
    CKTMgrSetting setting(0);
    setting.SetInt(name, value);
}

class FormatCommand : public ::testing::Test {
protected:
    void SetUp() override {
        frame = std::make_unique<CWnd>();
        ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
        window = std::make_unique<FormatWindow>();
        window->SetKeyWordUsingPreCreate(true);
        ASSERT_EQ(window->Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 7), 1);
    }
    long send(long m, WPARAM w = 0, LPARAM l = 0) { return window->SendEditor(m, w, l); }
    // The document's text with LF line ends, whatever the engine's line end mode.
    std::string text() {
        std::string s = window->GetText().str();
        std::erase(s, '\r');
        return s;
    }
    bool enabled() {
        CCmdUI ui(cmd::FormatSql);
        EXPECT_TRUE(window->UpdateCommandUI(cmd::FormatSql, &ui));
        return ui.IsEnabled();
    }

    ScratchRegistry registry;
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<FormatWindow> window;
};
}  // namespace

TEST(FormatKeywords, TablesMatchTheirLengthInAnyCase) {
    EXPECT_EQ(FormatWindow::isSQLKeyword("select", 6), 1);
    EXPECT_EQ(FormatWindow::isSQLKeyword("selec", 5), 0);
    EXPECT_EQ(FormatWindow::isSQLKeyword("selected", 6), 1);  // the first six bytes
    EXPECT_EQ(FormatWindow::isSQLKeyword("ACCESS", 6), 1);   // first and last entries
    EXPECT_EQ(FormatWindow::isSQLKeyword("zone", 4), 1);
    EXPECT_EQ(FormatWindow::isSQLKeyword("count", 5), 0);
    EXPECT_EQ(FormatWindow::isSQLKeyword("", 0), 0);
    EXPECT_EQ(FormatWindow::isSQLKeyword("as", -1), 0);
    EXPECT_EQ(FormatWindow::isSQLKeyword(nullptr, 3), 0);
    EXPECT_EQ(FormatWindow::isSQLKeyword("AS\0X", 4), 0);  // a zero inside the length
    EXPECT_EQ(FormatWindow::isSQLKeyword("\xC3\xA9", 2), 0);

    EXPECT_EQ(FormatWindow::isSQLKeyword2("Count", 5), 1);
    EXPECT_EQ(FormatWindow::isSQLKeyword2("abs", 3), 1);
    EXPECT_EQ(FormatWindow::isSQLKeyword2("xmltransform", 12), 1);
    EXPECT_EQ(FormatWindow::isSQLKeyword2("trunc", 5), 1);
    EXPECT_EQ(FormatWindow::isSQLKeyword2("select", 6), 0);
}

TEST_F(FormatCommand, AnEmptyDocumentIsDisabledAndBeeps) {
    EXPECT_FALSE(enabled());
    const unsigned long beeps = GetMessageBeepCount();
    window->FormatSql();
    EXPECT_EQ(GetMessageBeepCount(), beeps + 1);
    EXPECT_EQ(send(SCI_GETLENGTH), 0);
    window->SetText("x", 0);
    EXPECT_TRUE(enabled());

    // A read-only window is never rewritten by the command.
    window->SetText("select a from t", 0);
    send(SCI_SETREADONLY, 1);
    EXPECT_FALSE(enabled());
    window->FormatSql();
    EXPECT_EQ(GetMessageBeepCount(), beeps + 2);
    EXPECT_STREQ(window->GetText().c_str(), "select a from t");
}

TEST_F(FormatCommand, WholeTextOrSelectionIsOneUndoStepAndKeepsTheSavePoint) {
    window->SetText("select a from t where b = 1", 0);
    send(SCI_SETXOFFSET, 120);
    window->SendMessage(WM_COMMAND, cmd::FormatSql, 0);
    EXPECT_EQ(text(), "select a\n  from t\n where b = 1");
    EXPECT_EQ(send(SCI_GETXOFFSET), 0);
    EXPECT_NE(send(SCI_GETMODIFY), 0);
    send(SCI_UNDO);
    EXPECT_EQ(text(), "select a from t where b = 1");
    EXPECT_EQ(send(SCI_GETMODIFY), 0);  // back at the save point
    EXPECT_EQ(send(SCI_CANUNDO), 0);

    window->SetText("-- keep\nselect a from t\n-- keep too", 0);
    window->SetSelection(int(send(SCI_POSITIONFROMLINE, 1)), int(send(SCI_GETLINEENDPOSITION, 1)));
    window->FormatSql();
    EXPECT_EQ(text(), "-- keep\nselect a\n  from t\n-- keep too");
    send(SCI_UNDO);
    EXPECT_EQ(text(), "-- keep\nselect a from t\n-- keep too");
}

TEST_F(FormatCommand, OptionsAreReadFreshAtEachCall) {
    window->SetText("select a, b from t", 0);
    setSetting("Keyword Case", 1);
    window->FormatSql();  // no ApplyOptionOnRealtime in between
    EXPECT_EQ(text(), "SELECT a, b\n  FROM t");
    setSetting("Keyword Case", 2);
    setSetting("Keyword Align", 0);
    setSetting("Comma in List", 1);
    setSetting("Multiline", 1);
    window->FormatSql();
    EXPECT_EQ(text(), "select\n    a\n  , b\nfrom\n    t");
    EXPECT_FALSE(window->keywordAlign);
    EXPECT_TRUE(window->commaInList);
    EXPECT_TRUE(window->multiline);
    EXPECT_EQ(window->keywordCase, 2);
}

TEST_F(FormatCommand, AClosedSettingsKeyLeavesTheOptionsAsTheyAre) {
    window->keywordCase = 1;
    ASSERT_FALSE(RegSetStorePath("/proc/quillbox-no-such-dir/registry.sqlite"));
    {
        CKTMgrSetting probe(0);
        ASSERT_EQ(probe.GetKey(), nullptr);
    }
    window->SetText("select a from t", 0);
    window->FormatSql();
    EXPECT_TRUE(window->keywordAlign);
    EXPECT_EQ(window->keywordCase, 1);
    EXPECT_EQ(text(), "SELECT a\n  FROM t");
}
