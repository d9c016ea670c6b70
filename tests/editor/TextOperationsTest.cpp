// Text in and out of the editor, against a real engine window.
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <random>

#include "EditorFixture.h"

TEST_F(EditorTest, SetTextDecidesUndoSavePointAndFocus) {
    QLineEdit other(frame->GetSafeHwnd());
    other.show();
    frame->GetSafeHwnd()->activateWindow();
    other.setFocus();
    QApplication::processEvents();
    load("old");
    editor->noFocusOnSetText = 1;
    editor->SetText("new text\n", 0);
    EXPECT_FALSE(editor->GetSafeHwnd()->hasFocus());
    expectSends({{SCI_CANUNDO, 0, 0}, {SCI_GETMODIFY, 0, 0}});
    editor->noFocusOnSetText = 0;
    editor->SetText("kept\n", 1);
    QApplication::processEvents();
    EXPECT_TRUE(editor->GetSafeHwnd()->hasFocus());
    expectSends({{SCI_CANUNDO, 0, 1}, {SCI_GETMODIFY, 0, 1}});
    expectSteps({{[&] { send(SCI_UNDO); }, "new text\n"}, {[&] { editor->SetText("", 0); }, "new text\n"}});  // kept
}

TEST_F(EditorTest, InsertAddAppendReplaceAndDelete) {
    // Each step with the text and caret after it; line ends become the document's.
    struct Step { std::function<void()> action; const char* text; long caret; };
    const Step steps[] = {
        {[&] { load("l0\nl1\nl2\n"), send(SCI_GOTOPOS, 4); }, "l0\nl1\nl2\n", 4},
        {[&] { editor->InsertText(CPoint(0, -1), "X\r\n"); }, "l0\nl1\nX\nl2\n", 4},  // after the caret's line
        {[&] { editor->InsertText(CPoint(1, 0), "-"); }, "l-0\nl1\nX\nl2\n", -1},
        {[&] { editor->InsertText(CPoint(0, 0), ""), send(SCI_UNDO); }, "l0\nl1\nX\nl2\n", -1},
        {[&] { load("ab"), send(SCI_GOTOPOS, 1), editor->AddText("1\r2"); }, "a1\n2b", 4},
        {[&] { editor->AppendText("\r\nend"); }, "a1\n2b\nend", 4},
        {[&] { send(SCI_SETSEL, 0, 2), editor->ReplaceSelection("Z\r\n", 0); }, "Z\n\n2b\nend", -1},
        {[&] { send(SCI_SETSEL, 0, 1), editor->PasteText("pp"); }, "pp\n\n2b\nend", -1},
        {[&] { load("a\nbb\nccc\ndddd\n"), editor->ClearLines(1, 2); }, "a\n\ndddd\n", -1},
        {[&] { editor->DeleteLines(0, 1); }, "\ndddd\n", -1},
        {[&] { EXPECT_EQ(editor->DeleteSection(5, 1), 4); }, "\n\n", -1},  // reversed: the same bytes
        {[&] { EXPECT_EQ(editor->DeleteSection(-5, 1000), 2); }, "", -1},  // clamped to the document
    };
    for (const Step& step : steps) {
        step.action();
        EXPECT_EQ(text(), step.text);
        if (step.caret >= 0) { EXPECT_EQ(send(SCI_GETCURRENTPOS), step.caret) << step.text; }
    }
    EXPECT_EQ(editor->IsEmpty(), 1);
    for (auto [clear, undoable] : {std::pair{&CScintillaWnd::ClearContent, 1}, {&CScintillaWnd::Empty, 0}}) {
        load("gone");
        (editor.get()->*clear)();
        EXPECT_EQ(send(SCI_CANUNDO), undoable);
    }
}

TEST_F(EditorTest, AppendWithLimitTrimsTheFrontOrReplaces) {
    std::string lines;
    for (int i = 0; i < 94; ++i) lines += "line" + std::to_string(i) + "\n";
    load(lines.c_str());  // 95 lines, the last empty
    editor->AppendTextWithLimit("tail", 100, 10, false);  // 105 > 100: trim to line 5's end, keep its EOL
    EXPECT_EQ(editor->GetLineChars(0), "\n");
    EXPECT_EQ(editor->GetLineChars(1), "line6\n");
    EXPECT_EQ(editor->GetLineCount(), 90);
    editor->AppendTextWithLimit("+", 100, 10, true);  // at 90 lines the sum is 100: no trim
    EXPECT_EQ(editor->GetLineCount(), 90);
    EXPECT_EQ(send(SCI_GETCURRENTPOS), send(SCI_GETLENGTH));
    for (const char* replacing : {"only\n", "again"}) {
        editor->AppendTextWithLimit(replacing, 0, 0, false);
        EXPECT_EQ(text(), replacing);
    }
}

TEST_F(EditorTest, ReadingBySelectionsPointsAndLines) {
    load("first\nsecond line\nthird");
    EXPECT_EQ(std::string({editor->GetChar(0), editor->GetChar(1)}), std::string("\0f", 2));  // the byte before
    for (auto [got, expected] : {std::pair{editor->GetText(CPoint(1, 1), CPoint(6, 1)), "econd"},
                                 {editor->GetText(CPoint(2, 0), CPoint(2, 0)), ""},
                                 {editor->GetLineChars(1), "second line\n"}, {editor->GetLineChars(2), "third"},
                                 {editor->GetLineChars(99), ""}})
        EXPECT_EQ(got, expected);
    // With or without the line end; the last line has none, yet one is subtracted.
    EXPECT_EQ(std::tuple(editor->GetLineLength(1, true), editor->GetLineLength(1, false), editor->GetLineLength(2, false)),
              std::tuple(12, 11, 4));

    load("alpha beta\ngamma_1 delta");
    editor->SetSelection(CPoint(2, 0), CPoint(3, 1));
    EXPECT_EQ(editor->GetSelectionText(), "pha beta\ngam");
    CPoint from, to;
    editor->GetSelection(from, to);
    EXPECT_EQ(std::pair(from, to), std::pair(CPoint(2, 0), CPoint(3, 1)));
    EXPECT_EQ(std::pair(editor->GetSelection().cpMin, editor->GetSelection().cpMax), std::pair(2L, 14L));
    send(SCI_GOTOPOS, 13);
    editor->SelectWordFromCurrentPos();
    EXPECT_EQ(editor->GetSelectionText(), "gamma_1");
    send(SCI_GOTOPOS, 10);  // on the line end: no word to the right, "beta" to the left
    EXPECT_EQ(editor->SelectWordFromCurrentPos().cpMin, 6);
}

TEST_F(EditorTest, UndoCollectionAndClipboard) {
    load("x");
    send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>("y"));
    editor->SetUndoCollection(1);  // on: from a save point, the history kept
    EXPECT_TRUE(send(SCI_GETMODIFY) == 0 && send(SCI_CANUNDO) == 1);
    editor->SetUndoCollection(0);  // off: the history goes
    EXPECT_TRUE(send(SCI_CANUNDO) == 0 && send(SCI_GETUNDOCOLLECTION) == 0);
    QGuiApplication::clipboard()->clear();
    editor->PutToClipboard("copied 한글");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromUtf8("copied 한글"));
}

namespace {
// The plain byte-by-byte rewriting that the fast one must agree with.
std::string naiveLineEnds(const std::string& text, int eolMode) {
    const std::string eol = eolMode == SC_EOL_CR ? "\r" : (eolMode == SC_EOL_LF ? "\n" : "\r\n");
    std::string out;
    for (size_t i = 0; i < text.size() && text[i] != '\0'; ++i) {
        const bool crlf = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
        out += text[i] == '\r' || text[i] == '\n' ? eol : std::string(1, text[i]);
        i += crlf;
    }
    return out;
}
}  // namespace

TEST_F(EditorTest, LineEndRewritingAgreesWithTheByteByByteRuleOnRandomTexts) {
    std::mt19937 random(20261123);
    // Multi-byte characters pass untouched; a text ends at its first NUL (one round in ten).
    const std::string alphabet[] = {"a", "\r", "\n", "\xea\xb0\x80", "\r", "\n", std::string(1, '\0')};
    for (int round = 0; round < 2000; ++round) {
        std::string input;
        for (size_t n = random() % 40; n > 0; --n) input += alphabet[random() % (round % 10 == 0 ? 7 : 6)];
        for (int mode : {int(SC_EOL_CRLF), int(SC_EOL_CR), int(SC_EOL_LF)}) {
            const std::string expected = naiveLineEnds(input, mode);
            ASSERT_EQ(editor->transformLineEnds(CString(input), mode).str(), expected) << round;
            send(SCI_SETEOLMODE, WPARAM(mode));
            editor->SetText(CString(input), 0);
            if (!expected.empty()) { ASSERT_EQ(text().str(), expected) << round; }
        }
    }
}
