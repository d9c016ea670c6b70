#pragma once
// Find and replace host: an editor with its find state open, a scratch registry, message boxes recorded.
#include <string>
#include <vector>

#include "CMemComboBox.h"
#include "EditorFixture.h"
#include "MessageBox.h"
#include "ScratchRegistry.h"

class FindEditor : public CScintillaWnd {
public:
    using CScintillaWnd::backSlashExprCheck, CScintillaWnd::DoReplaceAll, CScintillaWnd::findInStyle,
        CScintillaWnd::FindInTarget, CScintillaWnd::findStyle, CScintillaWnd::findText, CScintillaWnd::haveFound,
        CScintillaWnd::matchCase, CScintillaWnd::regExp, CScintillaWnd::replaceText, CScintillaWnd::SearchBackward,
        CScintillaWnd::SearchForward, CScintillaWnd::searchFlags, CScintillaWnd::SendEditor,
        CScintillaWnd::UnescapeAsNeeded, CScintillaWnd::unescape, CScintillaWnd::wholeWord, CScintillaWnd::wrapSearch;
};

class FindTest : public EditorHostTest<FindEditor> {
protected:
    void SetUp() override {
        CMemComboBox::groups.clear();
        previousHook = SetMessageBoxHook([this](const char* message, const char*, UINT) {
            return messages.emplace_back(message), IDOK;
        });
        EditorHostTest::SetUp();
    }
    void TearDown() override {
        EditorHostTest::TearDown();
        SetMessageBoxHook(std::move(previousHook));
        CMemComboBox::groups.clear();
    }
    void select(long anchor, long caret) { send(SCI_SETSEL, WPARAM(anchor), caret); }
    std::string selected() { return editor->GetSelectionText().str(); }
    // Sets the find and replace texts and the switches that decide how the search reads them.
    void search(const char* find, const char* replace = "", int regExp = 0, int unescape = 0) {
        editor->findText = find, editor->replaceText = replace, editor->regExp = regExp, editor->unescape = unescape;
    }

    ScratchRegistry registry;
    std::vector<std::string> messages;  // texts of the message boxes shown

private:
    MessageBoxHook previousHook;
};
