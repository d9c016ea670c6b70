// The SQL window: the remembered code language, the direct line to the engine, text inserted
// by the host, and positions.
#include "SqlWindow.h"

TEST_F(SqlWindowTest, TheCodeLanguageIsReadAndWrittenByItsStoredName) {
    auto store = [](const char* name) { CKTMgrSetting(0).SetString("Editor Default Code", name); };
    EXPECT_EQ(window->GetScriptLangCode(), LangVb);  // nothing stored
    store("C#");
    TestSqlWindow csharp;
    EXPECT_EQ(csharp.GetScriptLangCode(), LangCs);
    store("c#");  // differs in case only: names nothing
    TestSqlWindow unchanged;
    EXPECT_EQ(unchanged.GetScriptLangCode(), LangVb);
}

// The direct line reaches the engine's extension messages too.
TEST_F(SqlWindowTest, TheDirectLineTakesExtensionMessages) {
    ASSERT_NE(window->directFunction, nullptr);
    load("abcdef");
    window->directFunction(window->directPointer, SCI_DELETERANGE_EXT, 1, 3);
    EXPECT_EQ(text(), "adef");
}

TEST_F(SqlWindowTest, TextFromTheHostReplacesTheSelectionAndPositionsSelectWords) {
    CWnd main;
    ASSERT_TRUE(main.CreateEx(0, "QuillboxFrame", "main", 0, RECT{0, 0, 10, 10}, nullptr, 0));
    AfxSetMainWnd(&main);
    load("select  from t");
    select(7, 7);
    EXPECT_EQ(window->SendMessage(CKTSQLEditWnd::kInsertTextMessage, reinterpret_cast<WPARAM>("a,\r\nb"), 0), 0);
    AfxSetMainWnd(nullptr);
    EXPECT_EQ(text(), "select a,\nb from t");
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 11);
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), 11);

    window->GotoPosition(14, true);
    EXPECT_EQ(window->GetSelectedText(), "from");
    window->GotoPosition(2, false);
    EXPECT_EQ(window->GetSelectedText(), "");
}
