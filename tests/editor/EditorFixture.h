#pragma once
// Editor test host: a frame with a CScintillaWnd child made by Create, its protected steps opened.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <vector>

#include "CScintillaWnd.h"
#include "QuillEngine.h"
#include "WindowHost.h"

class TestEditor : public CScintillaWnd {
public:
    using CScintillaWnd::fontSetting, CScintillaWnd::initScintilla, CScintillaWnd::ApplyProFile, CScintillaWnd::LineHead,
        CScintillaWnd::PageEnd, CScintillaWnd::Invertcase, CScintillaWnd::DelCtrlBack, CScintillaWnd::DelWordRight,
        CScintillaWnd::keyWordUsingPreCreate, CScintillaWnd::noFocusOnSetText, CScintillaWnd::PutToClipboard,
        CScintillaWnd::SendEditor, CScintillaWnd::transformLineEnds, CScintillaWnd::UpdateUI;
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

// An editor window of type E, made by Create on the shared host; other test areas host their own editor kinds.
template <class E>
class EditorHostTest : public WindowHostTest<E> {
protected:
    using Host = WindowHostTest<E>;
    using Host::frame, Host::send, Host::text;
    void SetUp() override {
        Host::SetUp();
        Host::createChild(42);
    }

    // Replaces the document, in LF or CR LF mode as asked, without undo history, the caret at 0.
    void load(const char* content, long eolMode = SC_EOL_LF) {
        send(SCI_SETEOLMODE, WPARAM(eolMode));
        send(SCI_CLEARALL);
        send(SCI_APPENDTEXT, strlen(content), reinterpret_cast<LPARAM>(content));
        send(SCI_EMPTYUNDOBUFFER);
        send(SCI_SETSAVEPOINT);
        send(SCI_GOTOPOS, 0);
    }
    // Checks send(message, w) against the expected answer, row by row.
    struct Query { long message; WPARAM w; long expected; };
    void expectSends(std::initializer_list<Query> rows) {
        for (const Query& q : rows) {
            SCOPED_TRACE(testing::Message() << "message " << q.message << " w " << q.w);
            EXPECT_EQ(send(q.message, q.w), q.expected);
        }
    }
    // Runs each step in turn and checks the document's text after it.
    struct Step { std::function<void()> action; const char* expected; };
    void expectSteps(std::initializer_list<Step> steps) {
        for (const Step& step : steps) {
            step.action();
            EXPECT_EQ(std::string(editor->GetText().c_str()), step.expected);
        }
    }
    void focusEditor() { Host::focus(*editor); }
    // Indexes of the recorded notifications with this code.
    std::vector<size_t> notified(UINT code) {
        std::vector<size_t> found;
        for (size_t i = 0; i < editor->notifications.size(); ++i)
            if (editor->notifications[i].nmhdr.code == code) found.push_back(i);
        return found;
    }

    std::unique_ptr<E>& editor = Host::window;  // the name the editor tests give their window
};

using EditorTest = EditorHostTest<TestEditor>;
extern template class EditorHostTest<TestEditor>;
