#pragma once
// A host for editor tests: a top-level frame window with a CScintillaWnd child made through
// the library's own Create, and access to the protected steps a subclass may call.
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "CScintillaWnd.h"
#include "QuillEngine.h"

class TestEditor : public CScintillaWnd {
public:
    using CScintillaWnd::fontSetting;
    using CScintillaWnd::initScintilla;
    using CScintillaWnd::ApplyProFile;
    using CScintillaWnd::LineHead;
    using CScintillaWnd::PageEnd;
    using CScintillaWnd::Invertcase;
    using CScintillaWnd::DelCtrlBack;
    using CScintillaWnd::DelWordRight;
    using CScintillaWnd::keyWordUsingPreCreate;
    using CScintillaWnd::noFocusOnSetText;
    using CScintillaWnd::PutToClipboard;
    using CScintillaWnd::SendEditor;
    using CScintillaWnd::transformLineEnds;
    using CScintillaWnd::UpdateUI;
    void SetOneStyleForTest(int style, const StyleDefinition& sd) { SetOneStyle(style, sd); }

    std::vector<SCNotification> notifications;
    std::vector<std::string> notifiedTexts;  // SCN_MODIFIED text, copied while it is valid

    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override {
        const auto* n = reinterpret_cast<const SCNotification*>(lParam);
        notifications.push_back(*n);
        notifiedTexts.emplace_back(n->text ? std::string(n->text, size_t(std::max(n->length, 0L))) : std::string());
        return CScintillaWnd::OnNotify(wParam, lParam, result);
    }
};

class EditorTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Replaces the document, in LF or CR LF mode as asked, without undo history.
    void load(const char* text, long eolMode = SC_EOL_LF);
    long send(long message, WPARAM w = 0, LPARAM l = 0) { return editor->SendEditor(message, w, l); }
    CString text() { return editor->GetText(); }

    std::unique_ptr<CWnd> frame;
    std::unique_ptr<TestEditor> editor;
};
