// Copy as code and paste from code through the window: the real clipboard, the keys, the
// language commands and their check marks.
#include <QClipboard>
#include <QTest>

#include "CommandIds.h"
#include "CopyAsCode.h"
#include "SqlWindow.h"

namespace {
QString clipboardText() { return QGuiApplication::clipboard()->text(); }
}  // namespace

class CodeCommandsTest : public SqlWindowTest {
protected:
    void SetUp() override {
        SqlWindowTest::SetUp();
        frame->GetSafeHwnd()->activateWindow();
        window->GetSafeHwnd()->setFocus();
        QApplication::processEvents();
    }
    void key(int k) { QTest::keyClick(window->GetSafeHwnd(), Qt::Key(k), Qt::ControlModifier | Qt::ShiftModifier); }
};

TEST_F(CodeCommandsTest, CopyAsCodeTakesTheSelectionAndLeavesTheDocumentAlone) {
    load("select a,\n       b\n  from t\n where id = :id;\n");
    ASSERT_TRUE(window->SelectCodeLanguage("Java"));
    send(SCI_SELECTALL);
    QGuiApplication::clipboard()->clear();
    key(Qt::Key_C);
    const CString expected = MakeCode(LangJava, window->GetText());
    EXPECT_EQ(clipboardText(), expected.toQString());
    EXPECT_TRUE(clipboardText().contains("StringBuffer strSQL = new StringBuffer();\r\n"));
    EXPECT_TRUE(clipboardText().contains("?"));  // the named bind became a placeholder
    EXPECT_EQ(window->GetText(), "select a,\n       b\n  from t\n where id = :id;\n");
    EXPECT_EQ(send(SCI_GETSELECTIONEND), window->GetTextLength());
}

TEST_F(CodeCommandsTest, PasteFromCodeReplacesTheSelectionInOneUndoStep) {
    load("-- keep\nold\n");
    ASSERT_TRUE(window->SelectCodeLanguage("Visual Basic"));
    send(SCI_SETSEL, 8, 11);
    QGuiApplication::clipboard()->setText("SQL = \"select * \"\r\nSQL = SQL + \"  from \"\"t\"\" \"\r\n");
    key(Qt::Key_V);
    EXPECT_EQ(window->GetText(), "-- keep\nselect * \n  from \"t\" \n\n");
    send(SCI_UNDO);
    EXPECT_EQ(window->GetText(), "-- keep\nold\n");
}

TEST_F(CodeCommandsTest, CopyThenPasteGivesTheStatementBackInEveryLanguage) {
    const char* sql = "select a \r\n  from t \r\n";
    for (const CodeLanguage& language : CodeLanguages()) {
        if (language.code == LangJava || language.code == LangCs) continue;  // these add a declaration line
        window->OnCopyTo(language.copyMenuId);
        load(sql);
        send(SCI_SETEOLMODE, SC_EOL_CRLF);
        send(SCI_CONVERTEOLS, SC_EOL_CRLF);
        send(SCI_SELECTALL);
        window->OnMakeCode();
        send(SCI_SELECTALL);
        window->OnStripCode();
        EXPECT_EQ(window->GetText(), sql) << language.storedName;
    }
}

TEST_F(CodeCommandsTest, UpdateHandlersEnableAndCheck) {
    load("select 1");
    CCmdUI make(cmd::MakeCode);
    ASSERT_TRUE(window->UpdateCommandUI(cmd::MakeCode, &make));
    EXPECT_FALSE(make.IsEnabled());  // no selection
    send(SCI_SETSEL, 0, 3);
    window->UpdateCommandUI(cmd::MakeCode, &make);
    EXPECT_TRUE(make.IsEnabled());

    QGuiApplication::clipboard()->setText("x");
    CCmdUI strip(cmd::StripCode);
    window->UpdateCommandUI(cmd::StripCode, &strip);
    EXPECT_TRUE(strip.IsEnabled());

    const CodeLanguage* perl = FindCodeLanguage(LangPerl);
    window->SendMessage(WM_COMMAND, MakeCommandWParam(perl->pasteMenuId), 0);  // the paste menu's entry
    EXPECT_EQ(window->GetScriptLangCode(), LangPerl);
    EXPECT_EQ(CKTMgrSetting(0).GetString("Editor Default Code", ""), "Perl");
    for (const CodeLanguage& language : CodeLanguages()) {
        CCmdUI item(language.copyMenuId);
        window->UpdateCommandUI(language.copyMenuId, &item);
        EXPECT_EQ(item.GetCheck(), language.code == LangPerl ? 1 : 0) << language.storedName;
    }
}
