#pragma once
// An SQL edit window on a frame, with a registry of its own and its protected members open.
#include <QTest>

#include "CKTRegistry.h"
#include "CKTSQLEditWnd.h"
#include "ScratchRegistry.h"
#include "WindowHost.h"

class TestSqlWindow : public CKTSQLEditWnd {
public:
    using CKTSQLEditWnd::blankAfterComment, CKTSQLEditWnd::directFunction, CKTSQLEditWnd::directPointer,
        CKTSQLEditWnd::SendEditor, CKTSQLEditWnd::StartBlockComment,
        CKTSQLEditWnd::StartBoxComment;
};

class SqlWindowTest : public WindowHostTest<TestSqlWindow> {
protected:
    void SetUp() override {
        WindowHostTest::SetUp();
        createChild(5);
    }
    // Replaces the document in LF mode, with no undo history.
    void load(const char* content) {
        send(SCI_SETEOLMODE, SC_EOL_LF);
        window->SetText(content, 0);
    }
    void select(long anchor, long caret) { send(SCI_SETSEL, WPARAM(anchor), caret); }
    void key(int k, Qt::KeyboardModifiers m = Qt::NoModifier) { QTest::keyClick(window->GetSafeHwnd(), Qt::Key(k), m); }

    ScratchRegistry registry;
};
