// Automatic indentation in the application window with the shipped property file and SQL keywords.
#include <QTest>

#include "CKTScinWnd.h"
#include "EditorFixture.h"
#include "ScratchRegistry.h"

namespace {
class AppWindow : public CKTScinWnd {
public:
    using CKTScinWnd::SendEditor;
};
}  // namespace

class AppIndentTest : public EditorHostTest<AppWindow> {
protected:
    void SetUp() override {
        EditorHostTest::SetUp();
        focusEditor();
    }
    ScratchRegistry registry;
};

TEST_F(AppIndentTest, NewLinesKeepTheIndentationAndAnEndWordMovesOut) {
    const std::pair<const char*, const char*> lines[] = {
        {"begin", "begin\r\n"}, {"    x := 1;", "begin\r\n    x := 1;\r\n    "},
        {"end;", "begin\r\n    x := 1;\r\nend;\r\n"},
        {"    y; -- end", "begin\r\n    x := 1;\r\nend;\r\n    y; -- end\r\n    "}};  // a comment's "end" is no block word
    for (const auto& [typed, expected] : lines) {
        QTest::keyClicks(editor->GetSafeHwnd(), QString::fromUtf8(typed));
        QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Return);
        EXPECT_EQ(text(), expected) << typed;
    }
}
