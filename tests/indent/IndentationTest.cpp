// Automatic indentation from typed line ends and block characters, styles and configured words.
#include "IndentFixture.h"

namespace {
constexpr int kKeyword = 5, kBrace = 10;
struct Styled { long from, to; int style; };
}  // namespace

class AutoIndentTest : public IndentTest {
protected:
    void SetUp() override {
        IndentTest::SetUp();
        editor->props.Set("indent.automatic", "1");
        editor->blockEnd = StyleAndWords{kKeyword, "end END"};
        editor->blockStart = StyleAndWords{kBrace, "{"};
        editor->statementIndent = StyleAndWords{kKeyword, "if else"};
    }
    void loadStyled(const char* content, const std::vector<Styled>& runs) {
        load(content);
        for (const Styled& r : runs) style(r.from, r.to, r.style);
    }
    // Types `keys`, a line feed being the Enter key.
    void typeKeys(const std::string& keys) {
        for (char c : keys) c == '\n' ? enter() : type(std::string(1, c).c_str());
    }
};

TEST_F(AutoIndentTest, TypedLineEndsAndClosingCharactersIndent) {
    struct Case { const char* content; const std::vector<Styled>& runs; const char* keys; const char* expected;
                  const char* automatic = "1"; int closing = 0; int maintain = 0; const char* blockEnd = "end END"; };
    const Case cases[] = {
        {"    select", {}, "\n", "    select\n", "0"},  // switched off
        {"    select", {}, "\n", "    select\n    ", "0", 0, 1},  // maintaining copies the line above
        {"begin\n    x := 1;\n    end", {{22, 25, kKeyword}}, "\n", "begin\n    x := 1;\nend\n"},
        {"begin\n    x := 1;\n    end", {{22, 25, 1}}, "\n", "begin\n    x := 1;\n    end\n    "},  // another style
        {"begin\n    x := 1;\n    End", {{22, 25, kKeyword}}, "\n", "begin\n    x := 1;\n    End\n    "},  // case
        {"begin\n    x := 1;\n    end", {{22, 25, kKeyword}}, "\n", "begin\n    x := 1;\n    end\n", "1", 1},
        {"if (x) {", {{7, 8, kBrace}}, "\ny;\n}", "if (x) {\n    y;\n}", "1", 0, 0, "}"},
        {"if (x) {\n    y; ", {{7, 8, kBrace}}, "}", "if (x) {\n    y; }", "1", 0, 0, "}"},  // not first: alone
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.content);
        editor->props.Set("indent.automatic", c.automatic);
        editor->indentClosing = c.closing;
        editor->indentMaintain = c.maintain;
        editor->blockEnd = StyleAndWords{c.blockEnd[0] == '}' ? kBrace : kKeyword, c.blockEnd};
        loadStyled(c.content, c.runs);
        typeKeys(c.keys);
        EXPECT_EQ(text(), c.expected);
        EXPECT_EQ(caret(), long(text().size()));
    }
    editor->props.Set("indent.automatic", "0");
    editor->indentMaintain = 1;
    load("    select\r", -1, SC_EOL_CR);  // only the mode's own line end indents
    editor->CharAdded('\n');
    EXPECT_EQ(text(), "    select\r");
    editor->CharAdded('\r');
    EXPECT_EQ(text(), "    select\r    ");
    editor->props.Set("indent.automatic", "1");
    load("    select");
    send(SCI_SETSEL, 4, 11);  // a selection after the character
    editor->CharAdded('\n');
    load("", 0);
    editor->CharAdded('\n');  // the caret at position 0
    EXPECT_EQ(text(), "");
}

TEST_F(AutoIndentTest, ALinesStateAndTheIndentationOfTheNextLine) {
    std::string twenty;  // only twenty runs of a line are looked at
    for (int i = 0; i < 20; ++i) twenty += "ab ";
    twenty += "end";
    struct Case { std::string content; std::vector<Styled> runs; int line; IndentationStatus state; };
    std::vector<Case> cases = {
        {"    x;\n    end;end", {{11, 18, kKeyword}}, 1, IndentNone},  // one run matching no single entry
        {"    x;\n    end;end", {{11, 18, kKeyword}, {14, 15, 11}}, 1, IndentBlockEnd},
        {"if x", {{0, 2, kKeyword}}, 0, IndentKeywordStart},
        {twenty, {}, 0, IndentNone}};
    for (int i = 0; i < 21; ++i) cases.back().runs.push_back({i * 3, i * 3 + 2 + (i == 20), kKeyword});
    for (const Case& c : cases) {
        loadStyled(c.content.c_str(), c.runs);
        EXPECT_EQ(editor->GetIndentState(c.line), c.state) << c.content;
    }
    SString parts[20];
    EXPECT_EQ(editor->GetLinePartsInStyle(0, kKeyword, -1, parts, 20), 20u);
    EXPECT_EQ(editor->GetLinePartsInStyle(0, 0, kKeyword, parts, 1), 1u);  // two styles: one run
    EXPECT_EQ(parts[0], twenty.c_str());
    EXPECT_EQ(editor->GetLinePartsInStyle(7, kKeyword, -1, parts, 20), 0u);
    EXPECT_EQ(parts[0], "");
    editor->blockEnd = StyleAndWords{kBrace, "}"};  // a one-character marker matches any run holding it
    loadStyled("x }; y", {{2, 4, kBrace}});
    EXPECT_EQ(editor->GetIndentState(0), IndentBlockEnd);

    // A statement keyword indents only the line right after it, found within the look-back.
    editor->blockEnd = StyleAndWords{kKeyword, "end END"};
    load("if x\n    y\n    z\nend");
    style(0, 2, kKeyword);
    style(15, 18, kKeyword);
    for (auto [lookback, line, indent] : {std::tuple{5, 0, 4}, {5, 1, 0}, {1, 1, 0}, {0, 1, 4}, {0, -1, 0}, {0, 3, 0}}) {
        editor->statementLookback = lookback;
        EXPECT_EQ(editor->IndentOfBlock(line), indent) << "look-back " << lookback << " line " << line;
    }
    editor->indentClosing = 1;  // moving out never goes below 0
    EXPECT_EQ(editor->IndentOfBlock(3), 0);
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

TEST_F(IndentTest, SettingAnIndentationKeepsTheSelectionOnItsText) {
    load("    abc\nxyz", 0);
    // {line, indent, for the file editor, selection before, text after, selection after}
    struct Case { int line, indent; bool fileEditor; long from, to; const char* text; long start, end; };
    for (const Case& c : {Case{0, 8, false, 5, 7, "        abc\nxyz", 9, 11},
                          {0, 2, false, 2, 10, "  abc\nxyz", 2, 4},  // an end in removed blanks: the text's start
                          {0, -1, false, 1, 1, "  abc\nxyz", 1, 1}, {5, 4, false, 1, 1, "  abc\nxyz", 1, 1},
                          {0, 8, true, 1, 1, "        abc\nxyz", 7, 7},  // the caret keeps its place in the text
                          {0, 0, true, 1, 1, "abc\nxyz", 0, 0},  // ... never leaving its line
                          {0, 2, true, 5, 5, "  abc\nxyz", 7, 7}}) {
        send(SCI_SETSEL, WPARAM(c.from), c.to);
        c.fileEditor ? editor->SetLineIndentationForFileEditor(c.line, c.indent)
                     : editor->SetLineIndentation(c.line, c.indent, false);
        EXPECT_EQ(text(), c.text) << c.line << " " << c.indent;
        expectSelection(c.start, c.end);
    }
    EXPECT_TRUE(editor->RangeIsAllWhitespace(0, 2));
    EXPECT_FALSE(editor->RangeIsAllWhitespace(0, 3));
    EXPECT_TRUE(editor->RangeIsAllWhitespace(3, 1));
}
