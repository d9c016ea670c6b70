#pragma once
// An SQL edit window on a frame, with a registry of its own and its protected members open.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

#include "CKTRegistry.h"
#include "CKTSQLEditWnd.h"
#include "ScratchRegistry.h"

class TestSqlWindow : public CKTSQLEditWnd {
public:
    using CKTSQLEditWnd::blankAfterComment;
    using CKTSQLEditWnd::directFunction;
    using CKTSQLEditWnd::directPointer;
    using CKTSQLEditWnd::SendEditor;
    using CKTSQLEditWnd::setScriptLangCode;
    using CKTSQLEditWnd::StartBlockComment;
    using CKTSQLEditWnd::StartBoxComment;
};

class SqlWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        frame = std::make_unique<CWnd>();
        ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
        window = std::make_unique<TestSqlWindow>();
        ASSERT_EQ(window->Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 5), 1);
    }
    long send(long m, WPARAM w = 0, LPARAM l = 0) { return window->SendEditor(m, w, l); }
    CString text() { return window->GetText(); }
    // Replaces the document in LF mode, with no undo history.
    void load(const char* content) {
        send(SCI_SETEOLMODE, SC_EOL_LF);
        window->SetText(content, 0);
    }
    void select(long anchor, long caret) { send(SCI_SETSEL, WPARAM(anchor), caret); }

    ScratchRegistry registry;
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<TestSqlWindow> window;
};
