// Text in and out of the editor, against a real engine window.
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <random>

#include "EditorFixture.h"

TEST_F(EditorTest, SetTextDecidesUndoAndSavePoint) {
    load("old");
    editor->SetText("new text\n", 0);
    EXPECT_EQ(text(), "new text\n");
    expectSends({{SCI_CANUNDO, 0, 0}, {SCI_GETMODIFY, 0, 0}});
    editor->SetText("kept\n", 1);
    expectSends({{SCI_CANUNDO, 0, 1}, {SCI_GETMODIFY, 0, 1}});
    send(SCI_UNDO);
    EXPECT_EQ(text(), "new text\n");
    editor->SetText("", 0);  // an empty text keeps the document
    EXPECT_EQ(text(), "new text\n");
}

TEST_F(EditorTest, SetTextTakesTheFocusUnlessTold) {
    QLineEdit other(frame->GetSafeHwnd());
    other.show();
    frame->GetSafeHwnd()->activateWindow();
    other.setFocus();
    QApplication::processEvents();
    ASSERT_TRUE(other.hasFocus());
    editor->noFocusOnSetText = 1;
    editor->SetText("x", 0);
    EXPECT_FALSE(editor->GetSafeHwnd()->hasFocus());
    editor->noFocusOnSetText = 0;
    editor->SetText("", 0);
    QApplication::processEvents();
    EXPECT_TRUE(editor->GetSafeHwnd()->hasFocus());
}

TEST_F(EditorTest, InsertAddAppendAndReplace) {
    load("l0\nl1\nl2\n");
    send(SCI_GOTOPOS, 4);                        // on line 1
    editor->InsertText(CPoint(0, -1), "X\r\n");  // the line after the caret's
    EXPECT_EQ(text(), "l0\nl1\nX\nl2\n");
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 4);  // the caret does not follow
    expectSteps({{[&] { editor->InsertText(CPoint(1, 0), "-"); }, "l-0\nl1\nX\nl2\n"},
                 {[&] { editor->InsertText(CPoint(0, 0), ""), send(SCI_UNDO); }, "l0\nl1\nX\nl2\n"}});
    load("ab");
    send(SCI_GOTOPOS, 1);
    editor->AddText("1\r2");
    EXPECT_EQ(text(), "a1\n2b");
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 4);
    editor->AppendText("\r\nend");
    EXPECT_EQ(text(), "a1\n2b\nend");
    EXPECT_EQ(send(SCI_GETCURRENTPOS), 4);
    expectSteps({{[&] { send(SCI_SETSEL, 0, 2), editor->ReplaceSelection("Z\r\n", 0); }, "Z\n\n2b\nend"},
                 {[&] { send(SCI_SETSEL, 0, 1), editor->PasteText("pp"); }, "pp\n\n2b\nend"}});
}

TEST_F(EditorTest, AppendWithLimitTrimsTheFrontOrReplaces) {
    std::string lines;
    for (int i = 0; i < 94; ++i) lines += "line" + std::to_string(i) + "\n";
    load(lines.c_str());  // 95 lines, the last empty
    ASSERT_EQ(editor->GetLineCount(), 95);
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

TEST_F(EditorTest, ReadingRangesLinesAndCharacters) {
    load("first\nsecond line\nthird");
    EXPECT_EQ(editor->GetChar(0), 0);
    EXPECT_EQ(editor->GetChar(1), 'f');
    EXPECT_EQ(editor->GetText(CPoint(1, 1), CPoint(6, 1)), "econd");
    EXPECT_EQ(editor->GetText(CPoint(2, 0), CPoint(2, 0)), "");
    EXPECT_EQ(editor->GetLineChars(1), "second line\n");
    EXPECT_EQ(editor->GetLineChars(2), "third");
    EXPECT_EQ(editor->GetLineChars(99), "");
    char out[32];
    editor->GetRange(3, 9, out);
    EXPECT_STREQ(out, "st\nsec");
    EXPECT_EQ(editor->GetLineLength(1, true), 12);
    EXPECT_EQ(editor->GetLineLength(1, false), 11);
    EXPECT_EQ(editor->GetLineLength(2, false), 4);  // no line end, yet one is subtracted
    EXPECT_EQ(editor->LengthDocument(), 23);
    EXPECT_EQ(editor->IsEmpty(), 0);
}

TEST_F(EditorTest, SelectionAsPositionsAndPlaces) {
    load("alpha beta\ngamma_1 delta");
    editor->SetSelection(CPoint(2, 0), CPoint(3, 1));
    EXPECT_EQ(editor->GetSelectionText(), "pha beta\ngam");
    EXPECT_EQ(editor->IsSelection(), 1);
    CPoint from, to;
    editor->GetSelection(from, to);
    EXPECT_EQ(from, CPoint(2, 0));
    EXPECT_EQ(to, CPoint(3, 1));
    Sci_CharacterRange r = editor->GetSelection();
    EXPECT_EQ(r.cpMin, 2);
    EXPECT_EQ(r.cpMax, 14);
    send(SCI_GOTOPOS, 13);
    r = editor->SelectWordFromCurrentPos();
    EXPECT_EQ(editor->GetSelectionText(), "gamma_1");
    send(SCI_GOTOPOS, 10);  // on the line end: no word to the right, "beta" to the left
    EXPECT_EQ(editor->SelectWordFromCurrentPos().cpMin, 6);
}

TEST_F(EditorTest, ClearingAndDeleting) {
    load("a\nbb\nccc\ndddd\n");
    editor->ClearLines(1, 2);
    EXPECT_EQ(text(), "a\n\ndddd\n");
    EXPECT_EQ(send(SCI_GETSELECTIONSTART), send(SCI_GETSELECTIONEND));
    editor->DeleteLines(0, 1);
    EXPECT_EQ(text(), "\ndddd\n");
    EXPECT_EQ(editor->DeleteSection(5, 1), 4);  // a reversed range deletes the same bytes
    EXPECT_EQ(text(), "\n\n");
    EXPECT_EQ(editor->DeleteSection(-5, 1000), 2);  // clamped to the document
    EXPECT_EQ(editor->IsEmpty(), 1);
    load("keep");
    editor->ClearContent();
    EXPECT_EQ(send(SCI_CANUNDO), 1);
    load("gone");
    editor->Empty();
    EXPECT_EQ(send(SCI_CANUNDO), 0);
}

TEST_F(EditorTest, UndoFlagsAndClipboard) {
    load("x");
    send(SCI_APPENDTEXT, 1, reinterpret_cast<LPARAM>("y"));
    EXPECT_EQ(send(SCI_GETMODIFY), 1);
    editor->SetModified();
    EXPECT_EQ(send(SCI_GETMODIFY), 0);
    EXPECT_EQ(editor->SetUndoCollection(0), 0);
    EXPECT_EQ(send(SCI_CANUNDO), 0);
    editor->SetUndoCollection(1);
    EXPECT_EQ(editor->SetEmptyUndoCollection(), 1);
    EXPECT_EQ(editor->GetSelectedText(), "");
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
