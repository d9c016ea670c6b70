#pragma once
// A host for find and replace tests: an editor window in a frame, with its find state open
// to the test, a scratch registry and every message box recorded (and answered OK).
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "CMemComboBox.h"
#include "CScintillaWnd.h"
#include "MessageBox.h"
#include "ScratchRegistry.h"

class FindEditor : public CScintillaWnd {
public:
    using CScintillaWnd::backSlashExprCheck;
    using CScintillaWnd::DoReplaceAll;
    using CScintillaWnd::findInStyle;
    using CScintillaWnd::FindInTarget;
    using CScintillaWnd::findStyle;
    using CScintillaWnd::findText;
    using CScintillaWnd::haveFound;
    using CScintillaWnd::matchCase;
    using CScintillaWnd::regExp;
    using CScintillaWnd::replaceText;
    using CScintillaWnd::SearchBackward;
    using CScintillaWnd::SearchForward;
    using CScintillaWnd::searchFlags;
    using CScintillaWnd::SendEditor;
    using CScintillaWnd::UnescapeAsNeeded;
    using CScintillaWnd::unescape;
    using CScintillaWnd::wholeWord;
    using CScintillaWnd::wrapSearch;
};

class FindTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Replaces the document (LF line ends, no undo history) and puts the caret at 0.
    void load(const char* text);
    long send(long message, WPARAM w = 0, LPARAM l = 0) { return editor->SendEditor(message, w, l); }
    CString text() { return editor->GetText(); }
    void select(long anchor, long caret) { send(SCI_SETSEL, WPARAM(anchor), caret); }
    std::string selected() { return editor->GetSelectionText().str(); }

    ScratchRegistry registry;
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<FindEditor> editor;
    std::vector<std::string> messages;  // texts of the message boxes shown

private:
    MessageBoxHook previousHook;
};
