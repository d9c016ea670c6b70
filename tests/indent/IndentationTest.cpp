// Automatic indentation from typed line ends and block characters, styles and configured words.
#include "IndentFixture.h"

namespace {
constexpr int kKeyword = 5;
}

class AutoIndentTest : public IndentTest {
protected:
    void SetUp() override {
        IndentTest::SetUp();
        editor->props.Set("indent.automatic", "1");
        editor->blockEnd.style = kKeyword;
        editor->blockEnd.words = "end END";
    }
};

TEST_F(AutoIndentTest, NothingChangesWhenSwitchedOffOrWithASelectionOrAtTheStart) {
    editor->props.Set("indent.automatic", "0");
    expectSteps({{[&] { load("    select"), enter(); }, "    select\n"},
                 {[&] {  // switched on, with a selection after the character
                      editor->props.Set("indent.automatic", "1"), send(SCI_SETSEL, 4, 11), editor->CharAdded('\n');
                  }, "    select\n"},
                 {[&] { load("", 0), editor->CharAdded('\n'); }, ""}});  // the caret at position 0
}

TEST_F(AutoIndentTest, EnterBehindAnEndWordMovesItsLineOut) {
    load("begin\n    x := 1;\n    end");
    style(22, 25, kKeyword);
    enter();
    EXPECT_EQ(text(), "begin\n    x := 1;\nend\n");
    EXPECT_EQ(caret(), long(text().size()));

    for (const char* variant : {"end", "End"}) {
        load((std::string("begin\n    x := 1;\n    ") + variant).c_str());  // another style or case: no end word
        style(22, 25, variant[0] == 'e' ? 1 : kKeyword);
        enter();
        EXPECT_EQ(text(), std::string("begin\n    x := 1;\n    ") + variant + "\n    ");
    }
    load("    x;\n    end;end");  // two touching keywords are one run, matching no single entry
    style(11, 18, kKeyword);
    EXPECT_EQ(editor->GetIndentState(1), IndentNone);
    style(14, 15, 10);
    EXPECT_EQ(editor->GetIndentState(1), IndentBlockEnd);
}

TEST_F(AutoIndentTest, WithIndentClosingTheEndWordStaysAndTheNextLineMovesOut) {
    editor->indentClosing = 1;
    load("begin\n    x := 1;\n    end");
    style(22, 25, kKeyword);
    enter();
    EXPECT_EQ(text(), "begin\n    x := 1;\n    end\n");
    load("end");
    style(0, 3, kKeyword);
    EXPECT_EQ(editor->IndentOfBlock(0), 0);  // never below 0
}

TEST_F(AutoIndentTest, SingleCharacterBlocksMoveTheClosingCharacterOut) {
    editor->blockStart = StyleAndWords{10, "{"};
    editor->blockEnd = StyleAndWords{10, "}"};
    load("if (x) {");
    style(7, 8, 10);
    expectSteps({{[&] { enter(), type("y;"), enter(); }, "if (x) {\n    y;\n    "}, {[&] { type("}"); }, "if (x) {\n    y;\n}"}});
    EXPECT_EQ(caret(), long(text().size()));
    load("if (x) {\n    y; ");  // not first on its line: left alone
    style(7, 8, 10);
    type("}");
    EXPECT_EQ(text(), "if (x) {\n    y; }");
    load("x }; y");  // a marker matches any run that holds it
    style(2, 4, 10);
    EXPECT_EQ(editor->GetIndentState(0), IndentBlockEnd);
}

TEST_F(AutoIndentTest, AStatementKeywordIndentsOnlyTheNextLine) {
    editor->statementIndent = StyleAndWords{kKeyword, "if else"};
    editor->statementLookback = 5;
    load("if x\n    y\n    z");
    style(0, 2, kKeyword);
    EXPECT_EQ(editor->GetIndentState(0), IndentKeywordStart);
    EXPECT_EQ(editor->IndentOfBlock(0), 4);
    EXPECT_EQ(editor->IndentOfBlock(1), 0);  // looking back: the keyword line's own indentation
    editor->statementLookback = 0;
    EXPECT_EQ(editor->IndentOfBlock(1), 4);
    EXPECT_EQ(editor->IndentOfBlock(-1), 0);
}

TEST_F(AutoIndentTest, OnlyTwentyRunsOfALineAreLookedAt) {
    std::string line;
    for (int i = 0; i < 20; ++i) line += "ab ";
    load((line + "end").c_str());
    for (int i = 0; i < 21; ++i) style(i * 3, i * 3 + 2 + (i == 20), kKeyword);
    SString parts[20];
    EXPECT_EQ(editor->GetLinePartsInStyle(0, kKeyword, -1, parts, 20), 20u);
    EXPECT_EQ(editor->GetIndentState(0), IndentNone);
    EXPECT_EQ(editor->GetLinePartsInStyle(0, 0, kKeyword, parts, 1), 1u);  // two styles: one run
    EXPECT_EQ(parts[0], (line + "end").c_str());
    EXPECT_EQ(editor->GetLinePartsInStyle(7, kKeyword, -1, parts, 20), 0u);
    EXPECT_EQ(parts[0], "");
}

TEST_F(IndentTest, StyleAndWordsComeFromTheSqlPatternKey) {
    editor->props.Set("file.patterns.sql", "*.sql;*.pls");
    editor->props.Set("block.end.$(file.patterns.sql)", "5 end END");
    editor->props.Set("block.start", "10");
    editor->props.Set("statement.indent*.pls", "7 if");
    for (auto [key, style, words] : {std::tuple{"block.end", 5, "end END"}, {"block.start", 10, ""},
                                     {"statement.indent", 0, ""}}) {  // statement.indent: not for SQL
        const StyleAndWords sw = editor->GetStyleAndWords(key);
        if (style) { EXPECT_EQ(sw.style, style) << key; }
        EXPECT_EQ(std::string(sw.words.length() ? sw.words.c_str() : ""), words) << key;
    }
    editor->props.Set("statement.indent*.sql", "7 if else");
    EXPECT_EQ(editor->GetStyleAndWords("statement.indent").words, "if else");
}

TEST_F(IndentTest, MaintainingCopiesTheLineAboveOnTheModesLineEnd) {
    editor->indentMaintain = 1;
    load("    select");
    enter();
    EXPECT_EQ(text(), "    select\n    ");
    load("    select\r", -1, SC_EOL_CR);
    editor->CharAdded('\n');
    EXPECT_EQ(text(), "    select\r");
    editor->CharAdded('\r');
    EXPECT_EQ(text(), "    select\r    ");
}

TEST_F(IndentTest, SettingAnIndentationKeepsTheSelectionOnItsText) {
    load("    abc\n", 0);
    send(SCI_SETSEL, 5, 7);  // "bc"
    editor->SetLineIndentation(0, 8, false);
    expectSelection(9, 11);
    send(SCI_SETSEL, 2, 10);  // an end in the removed white space goes to the text's start
    editor->SetLineIndentation(0, 2, false);
    EXPECT_EQ(text(), "  abc\n");
    expectSelection(2, 4);
    editor->SetLineIndentation(0, -1, false);
    editor->SetLineIndentation(5, 4, false);
    EXPECT_EQ(text(), "  abc\n");

    load("    abc\nxyz", 1);  // Tab commands: the caret keeps its place in the text, never leaving its line
    editor->SetLineIndentationForFileEditor(0, 8);
    EXPECT_EQ(caret(), 5);
    editor->SetLineIndentationForFileEditor(0, 0);
    EXPECT_EQ(caret(), 0);
    send(SCI_SETSEL, 5, 5);
    editor->SetLineIndentationForFileEditor(0, 2);
    EXPECT_EQ(caret(), 7);
    EXPECT_TRUE(editor->RangeIsAllWhitespace(0, 2));
    EXPECT_FALSE(editor->RangeIsAllWhitespace(0, 3));
    EXPECT_TRUE(editor->RangeIsAllWhitespace(3, 1));
}
