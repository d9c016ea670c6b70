#pragma once
// An editor window on a frame with the indentation, completion and brace members open to
// tests. Typed characters reach CharAdded as they do in the application windows, and the
// window's properties are the test's own (no property file is read).
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include <memory>
#include <string>
#include <vector>

#include "CScintillaWnd.h"
#include "QuillEngine.h"

class IndentEditor : public CScintillaWnd {
public:
    using CScintillaWnd::blockEnd;
    using CScintillaWnd::blockStart;
    using CScintillaWnd::bracesStyle;
    using CScintillaWnd::CharAdded;
    using CScintillaWnd::FindMatchingBracePosition;
    using CScintillaWnd::GetIndentState;
    using CScintillaWnd::GetLine;
    using CScintillaWnd::GetLinePartsInStyle;
    using CScintillaWnd::GetStyleAndWords;
    using CScintillaWnd::GoMatchingBrace;
    using CScintillaWnd::indentClosing;
    using CScintillaWnd::indentMaintain;
    using CScintillaWnd::IndentOfBlock;
    using CScintillaWnd::autoCompleteIgnoreCase;
    using CScintillaWnd::props;
    using CScintillaWnd::RangeExtendAndGrab;
    using CScintillaWnd::RangeIsAllWhitespace;
    using CScintillaWnd::SelectionWord;
    using CScintillaWnd::SendEditor;
    using CScintillaWnd::SetLineIndentation;
    using CScintillaWnd::SetLineIndentationForFileEditor;
    using CScintillaWnd::StartAutoCompleteWord;
    using CScintillaWnd::statementIndent;
    using CScintillaWnd::statementLookback;

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto* n = reinterpret_cast<const SCNotification*>(lParam);
        if (n && n->nmhdr.code == SCN_CHARADDED) CharAdded(char(n->ch));
        return CScintillaWnd::OnNotify(wParam, lParam, result);
    }
};

class IndentTest : public ::testing::Test {
protected:
    void SetUp() override {
        frame = std::make_unique<CWnd>();
        ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
        editor = std::make_unique<IndentEditor>();
        ASSERT_EQ(editor->Create("editor", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 42), 1);
        send(SCI_SETINDENT, 4);
        send(SCI_SETUSETABS, 0);
    }
    void TearDown() override {
        editor.reset();
        frame.reset();
    }

    // Replaces the document and puts the caret at `caret` (-1: the end).
    void load(const char* content, long caret = -1, long eolMode = SC_EOL_LF) {
        send(SCI_SETEOLMODE, WPARAM(eolMode));
        send(SCI_CLEARALL);
        send(SCI_APPENDTEXT, strlen(content), reinterpret_cast<LPARAM>(content));
        send(SCI_EMPTYUNDOBUFFER);
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
    long send(long message, WPARAM w = 0, LPARAM l = 0) { return editor->SendEditor(message, w, l); }
    std::string text() { return editor->GetText().c_str(); }
    long caret() { return send(SCI_GETCURRENTPOS); }

    std::unique_ptr<CWnd> frame;
    std::unique_ptr<IndentEditor> editor;
};
