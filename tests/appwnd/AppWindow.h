#pragma once
// An application editor window on a frame, with its protected members open to tests and a
// registry of its own.
#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "ScratchRegistry.h"
#include "WindowHost.h"

class TestAppWindow : public CKTScinWnd {
public:
    using CKTScinWnd::FoldChanged;
    using CKTScinWnd::fileBackup;
    using CKTScinWnd::fontSetting;
    using CKTScinWnd::GetAnsiCodePage;
    using CKTScinWnd::GetGotoDialog;
    using CKTScinWnd::keyWordUsingPreCreate;
    using CKTScinWnd::SendEditor;
    using CKTScinWnd::setForegroundColor;
    using CKTScinWnd::blankAfterComment;
    int modifiedCalls = 0;
    bool lastModified = false;
    void OnModified(bool modified) override {
        ++modifiedCalls;
        lastModified = modified;
    }
};

// The window is made by create(), after a test has set what counts only before creation.
class AppWindowTest : public WindowHostTest<TestAppWindow> {
protected:
    void create(int keywords = 1) {
        window->SetKeyWordUsingPreCreate(keywords != 0);
        createChild(7);
    }

    ScratchRegistry registry;
};
