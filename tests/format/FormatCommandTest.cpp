// The Format SQL command of the editor window: which text goes in, where the result goes,
// the options read from the settings at each call, undo, and the empty document.
#include <gtest/gtest.h>

#include <string>

#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "CommandIds.h"
#include "ScratchRegistry.h"
#include "System.h"
#include "WindowHost.h"

namespace {
class FormatWindow : public CKTScinWnd {
public:
    using CKTScinWnd::isSQLKeyword;
    using CKTScinWnd::isSQLKeyword2;
    using CKTScinWnd::SendEditor;
};

void setSetting(const char* name, int value) {
    CKTMgrSetting setting(0);
    setting.SetInt(name, value);
}

class FormatCommand : public WindowHostTest<FormatWindow> {
protected:
    void SetUp() override {
        WindowHostTest::SetUp();
        window->SetKeyWordUsingPreCreate(true);
        createChild(7);
    }
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
};
}  // namespace

// The keyword tables Format SQL hands the formatter: a word matches on its given length (the
// first bytes of a longer text), in any letter case; no length, no text or a NUL inside, none.
TEST(FormatKeywords, TablesMatchTheirLengthInAnyCase) {
    const auto k1 = &FormatWindow::isSQLKeyword, k2 = &FormatWindow::isSQLKeyword2;
    const struct {
        int (*test)(const char*, int);
        const char* word;
        int length, expected;
    } rows[] = {
        {k1, "select", 6, 1}, {k1, "selec", 5, 0}, {k1, "selected", 6, 1}, {k1, "ACCESS", 6, 1}, {k1, "zone", 4, 1},
        {k1, "count", 5, 0},  {k1, "", 0, 0},      {k1, "as", -1, 0},      {k1, nullptr, 3, 0},   {k1, "AS\0X", 4, 0},
        {k1, "\xC3\xA9", 2, 0}, {k2, "Count", 5, 1}, {k2, "abs", 3, 1}, {k2, "xmltransform", 12, 1},
        {k2, "trunc", 5, 1}, {k2, "select", 6, 0},
    };
    for (const auto& row : rows) EXPECT_EQ(row.test(row.word, row.length), row.expected) << (row.word ? row.word : "null");
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

// The options are read from the settings at each call; settings that cannot be read leave
// them as they were.
TEST_F(FormatCommand, OptionsAreReadAtEachCallAndKeptWhenTheSettingsAreClosed) {
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

    ASSERT_FALSE(RegSetStorePath("/proc/quillbox-no-such-dir/registry.sqlite"));
    ASSERT_EQ(CKTMgrSetting(0).GetKey(), nullptr);
    window->SetText("select a, b from t", 0);
    window->FormatSql();
    EXPECT_EQ(text(), "select\n    a\n  , b\nfrom\n    t");
}
