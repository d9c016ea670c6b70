#pragma once
// An editor with its indentation, completion and brace members open; typed characters reach CharAdded.
#include <QApplication>
#include <QTest>

#include <string>

#include "EditorFixture.h"

class IndentEditor : public CScintillaWnd {
public:
    using CScintillaWnd::blockEnd, CScintillaWnd::blockStart, CScintillaWnd::bracesStyle, CScintillaWnd::CharAdded,
        CScintillaWnd::FindMatchingBracePosition, CScintillaWnd::GetIndentState, CScintillaWnd::GetLine,
        CScintillaWnd::GetLinePartsInStyle, CScintillaWnd::GetStyleAndWords, CScintillaWnd::GoMatchingBrace,
        CScintillaWnd::indentClosing, CScintillaWnd::indentMaintain, CScintillaWnd::IndentOfBlock,
        CScintillaWnd::autoCompleteIgnoreCase, CScintillaWnd::props, CScintillaWnd::RangeExtendAndGrab,
        CScintillaWnd::RangeIsAllWhitespace, CScintillaWnd::SelectionWord, CScintillaWnd::SendEditor,
        CScintillaWnd::SetLineIndentation, CScintillaWnd::SetLineIndentationForFileEditor,
        CScintillaWnd::StartAutoCompleteWord, CScintillaWnd::statementIndent, CScintillaWnd::statementLookback;

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto* n = reinterpret_cast<const SCNotification*>(lParam);
        if (n && n->nmhdr.code == SCN_CHARADDED) CharAdded(char(n->ch));
        return CScintillaWnd::OnNotify(wParam, lParam, result);
    }
};

class IndentTest : public EditorHostTest<IndentEditor> {
protected:
    void SetUp() override {
        EditorHostTest::SetUp();
        send(SCI_SETINDENT, 4);
        send(SCI_SETUSETABS, 0);
    }
    // Replaces the document and puts the caret at `caret` (-1: the end).
    void load(const char* content, long caret = -1, long eolMode = SC_EOL_LF) {
        EditorHostTest::load(content, eolMode);
        const long at = caret < 0 ? send(SCI_GETLENGTH) : caret;
        send(SCI_SETSEL, WPARAM(at), at);
    }
    // Gives bytes [from, to) the style, as a lexer would.
    void style(long from, long to, int styleNumber) {
        send(SCI_STARTSTYLING, WPARAM(from), 0xFF);
        send(SCI_SETSTYLING, WPARAM(to - from), styleNumber);
    }
    // Types through the engine's keyboard path, so that each character is announced.
    void type(const char* text) { QTest::keyClicks(editor->GetSafeHwnd(), QString::fromUtf8(text)); }
    void enter() { QTest::keyClick(editor->GetSafeHwnd(), Qt::Key_Return); }
    std::string text() { return editor->GetText().c_str(); }
    long caret() { return send(SCI_GETCURRENTPOS); }
    void expectSelection(long start, long end) {
        EXPECT_EQ(send(SCI_GETSELECTIONSTART), start);
        EXPECT_EQ(send(SCI_GETSELECTIONEND), end);
    }
};
