#pragma once
// The host every window test stands on: a visible frame of the library's frame class, and one
// window of type W to be made as its child. Fixtures that must set a window up before it exists
// call create() themselves; the others call it from their SetUp.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>
#include <string>
#include <string_view>

#include "CWnd.h"

template <class W, class Frame = CWnd>
class WindowHostTest : public ::testing::Test {
protected:
    void SetUp() override {
        frame = std::make_unique<Frame>();
        ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
        window = std::make_unique<W>();
    }
    void TearDown() override { window.reset(), frame.reset(); }

    // Makes the window a child of the frame, as a host's editor pane.
    void createChild(UINT id) {
        ASSERT_EQ(window->Create("window", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), id), 1);
    }
    long send(long message, WPARAM w = 0, LPARAM l = 0) { return window->SendEditor(message, w, l); }
    CString text() { return window->GetText(); }
    // Gives `w` the keyboard focus in an active frame, as a user's click would.
    void focus(CWnd& w) {
        frame->GetSafeHwnd()->activateWindow();
        w.GetSafeHwnd()->setFocus();
        QApplication::processEvents();
    }

    std::unique_ptr<Frame> frame;
    std::unique_ptr<W> window;
};

// `line` repeated until the text holds at least `bytes` bytes: a large document for tests that
// compare a small and a large one.
inline std::string RepeatedLines(std::string_view line, size_t bytes) {
    std::string text;
    text.reserve(bytes + line.size());
    while (text.size() < bytes) text += line;
    return text;
}
