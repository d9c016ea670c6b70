// Copy as code and paste from code through the window: the real clipboard, the keys, the
// language commands and their check marks.
#include <QClipboard>

#include "CommandIds.h"
#include "CopyAsCode.h"
#include "SqlWindow.h"

namespace {
QString clipboardText() { return QGuiApplication::clipboard()->text(); }
}  // namespace

TEST_F(SqlWindowTest, CopyThenPasteFromTheKeysGivesTheStatementBackInEveryLanguage) {
    focus(*window);
    const CString sql = "select a \r\n  from t \r\n";
    for (const CodeLanguage& language : CodeLanguages()) {
        SCOPED_TRACE(language.storedName);
        window->OnCopyTo(language.copyMenuId);
        load(sql);
        send(SCI_SETEOLMODE, SC_EOL_CRLF);
        send(SCI_CONVERTEOLS, SC_EOL_CRLF);
        send(SCI_SELECTALL);
        QGuiApplication::clipboard()->clear();
        key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(clipboardText(), MakeCode(language.code, sql).toQString());
        EXPECT_EQ(text(), sql);
        EXPECT_EQ(send(SCI_GETSELECTIONEND), window->GetTextLength());
        if (language.code == LangJava || language.code == LangCs) continue;  // these add a declaration line
        // Pasting replaces the selection in one undo step.
        load("old");
        send(SCI_SETEOLMODE, SC_EOL_CRLF);
        send(SCI_SELECTALL);
        key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_EQ(text(), sql);
        send(SCI_UNDO);
        EXPECT_EQ(text(), "old");
    }
}

TEST_F(SqlWindowTest, CodeCommandsEnableAndTheChosenLanguageIsChecked) {
    load("select 1");
    auto enabled = [&](UINT id) {
        CCmdUI ui(id);
        EXPECT_TRUE(window->UpdateCommandUI(id, &ui));
        return ui.IsEnabled();
    };
    EXPECT_FALSE(enabled(cmd::MakeCode));  // no selection
    select(0, 3);
    EXPECT_TRUE(enabled(cmd::MakeCode));
    QGuiApplication::clipboard()->setText("x");
    EXPECT_TRUE(enabled(cmd::StripCode));

    window->SendMessage(WM_COMMAND, MakeCommandWParam(FindCodeLanguage(LangPerl)->pasteMenuId), 0);
    EXPECT_EQ(window->GetScriptLangCode(), LangPerl);
    EXPECT_EQ(CKTMgrSetting(0).GetString("Editor Default Code", ""), "Perl");
    for (const CodeLanguage& language : CodeLanguages()) {
        CCmdUI item(language.copyMenuId);
        window->UpdateCommandUI(language.copyMenuId, &item);
        EXPECT_EQ(item.GetCheck(), language.code == LangPerl ? 1 : 0) << language.storedName;
    }
}
