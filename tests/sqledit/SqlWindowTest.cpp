// The SQL window: the remembered code language, its options, the direct line to the engine,
// text inserted by the host, and drops.
#include <QMimeData>

#include "SqlWindow.h"

namespace {
void storeCode(const char* name) {
    CKTMgrSetting setting(0);
    setting.SetString("Editor Default Code", name);
}
CString storedCode() {
    CKTMgrSetting setting(0);
    return setting.GetString("Editor Default Code", "<none>");
}
}  // namespace

TEST_F(SqlWindowTest, TheCodeLanguageIsReadAndWrittenByItsStoredName) {
    EXPECT_EQ(window->GetScriptLangCode(), LangVb);  // nothing stored
    storeCode("C#");
    TestSqlWindow csharp;
    EXPECT_EQ(csharp.GetScriptLangCode(), LangCs);
    csharp.setScriptLangCode(LangCs);
    EXPECT_EQ(storedCode(), "C#");
    storeCode("c#");  // differs in case only: names nothing
    TestSqlWindow unchanged;
    EXPECT_EQ(unchanged.GetScriptLangCode(), LangVb);
    unchanged.setScriptLangCode(LangPerl);
    EXPECT_EQ(storedCode(), "Perl");
}

TEST_F(SqlWindowTest, ChangeCaseIsReadAgainWithTheOptions) {
    EXPECT_EQ(window->GetChangeCase(), 0);
    CKTMgrSetting(0).SetInt("Change Case", 2);
    window->ApplyOptionOnRealtime();
    EXPECT_EQ(window->GetChangeCase(), 2);
    EXPECT_EQ(window->GetEncoding(), EncodingUndecided);
    window->SetEncoding(EncodingAnsi);
    EXPECT_EQ(window->GetEncoding(), EncodingAnsi);
    EXPECT_EQ(send(SCI_GETCODEPAGE), SC_CP_UTF8);  // the code-page operation is another one
}

TEST_F(SqlWindowTest, TheDirectLineGoesThroughTheEngineLink) {
    ASSERT_NE(window->directFunction, nullptr);
    EXPECT_EQ(send(SCI_AUTOCGETSEPARATOR), '|');
    load("abcdef");
    window->directFunction(window->directPointer, SCI_DELETERANGE_EXT, 1, 3);  // an extension message
    EXPECT_EQ(text(), "adef");
}

TEST_F(SqlWindowTest, TextFromTheHostReplacesTheSelectionAndTheCaretFollows) {
    CWnd main;
    ASSERT_TRUE(main.CreateEx(0, "QuillboxFrame", "main", 0, RECT{0, 0, 10, 10}, nullptr, 0));
    AfxSetMainWnd(&main);
    load("select  from t");
    select(7, 7);
    const char* inserted = "a,\r\nb";
    EXPECT_EQ(window->SendMessage(CKTSQLEditWnd::kInsertTextMessage, reinterpret_cast<WPARAM>(inserted), 0), 0);
    EXPECT_EQ(text(), "select a,\nb from t");
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 11);
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 11);
    AfxSetMainWnd(nullptr);
}

TEST_F(SqlWindowTest, PositionsCanSelectTheWordThere) {
    load("select name from t");
    window->GotoPosition(9, true);
    EXPECT_EQ(window->GetSelectedText(), "name");
    window->GotoPosition(2, false);
    EXPECT_EQ(window->GetSelectedText(), "");
}
