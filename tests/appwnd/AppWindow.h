#pragma once
// An application editor window on a frame, with its protected members open to tests and a
// registry of its own.
#include <QTest>

#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "ScratchRegistry.h"
#include "WindowHost.h"

class TestAppWindow : public CKTScinWnd {
public:
    using CKTScinWnd::FoldChanged, CKTScinWnd::fileBackup, CKTScinWnd::fontSetting, CKTScinWnd::SendEditor,
        CKTScinWnd::setForegroundColor, CKTScinWnd::blankAfterComment, CKTScinWnd::GetAnsiCodePage,
        CKTScinWnd::GetGotoDialog;
    int modifiedCalls = 0;
    bool lastModified = false;
    void OnModified(bool modified) override { ++modifiedCalls, lastModified = modified; }
};

// The window is made by create(), after a test has set what counts only before creation.
class AppWindowTest : public WindowHostTest<TestAppWindow> {
protected:
    void create(bool keywords = true) {
        window->SetKeyWordUsingPreCreate(keywords);
        createChild(7);
    }
    void key(int k, Qt::KeyboardModifiers m = Qt::NoModifier) { QTest::keyClick(window->GetSafeHwnd(), Qt::Key(k), m); }

    ScratchRegistry registry;
};
