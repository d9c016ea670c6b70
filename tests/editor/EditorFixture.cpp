#include "EditorFixture.h"

void EditorTest::SetUp() {
    frame = std::make_unique<CWnd>();
    ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
    editor = std::make_unique<TestEditor>();
    ASSERT_EQ(editor->Create("editor", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 42), 1);
}

void EditorTest::TearDown() {
    editor.reset();
    frame.reset();
}

void EditorTest::load(const char* content, long eolMode) {
    send(SCI_SETEOLMODE, WPARAM(eolMode));
    send(SCI_CLEARALL);
    send(SCI_APPENDTEXT, strlen(content), reinterpret_cast<LPARAM>(content));
    send(SCI_EMPTYUNDOBUFFER);
    send(SCI_SETSAVEPOINT);
    send(SCI_GOTOPOS, 0);
}
