#pragma once
// An application editor window on a frame, with its protected members open to tests and a
// registry of its own.
#include <gtest/gtest.h>

#include <memory>

#include "CKTRegistry.h"
#include "CKTScinWnd.h"
#include "ScratchRegistry.h"

class TestAppWindow : public CKTScinWnd {
public:
    using CKTScinWnd::FoldChanged;
    using CKTScinWnd::fileBackup;
    using CKTScinWnd::fontSetting;
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

class AppWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        frame = std::make_unique<CWnd>();
        ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
        window = std::make_unique<TestAppWindow>();
    }
    void create(int keywords = 1) {
        window->SetKeyWordUsingPreCreate(keywords != 0);
        ASSERT_EQ(window->Create("sql", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 7), 1);
    }
    long send(long m, WPARAM w = 0, LPARAM l = 0) { return window->SendEditor(m, w, l); }

    ScratchRegistry registry;
    std::unique_ptr<CWnd> frame;
    std::unique_ptr<TestAppWindow> window;
};
