#include "FindFixture.h"

#include <cstring>

void FindTest::SetUp() {
    CMemComboBox::groups.clear();
    previousHook = SetMessageBoxHook([this](const char* message, const char*, UINT) {
        messages.emplace_back(message);
        return IDOK;
    });
    frame = std::make_unique<CWnd>();
    ASSERT_TRUE(frame->CreateEx(0, "QuillboxFrame", "frame", WS_VISIBLE, RECT{0, 0, 640, 480}, nullptr, 0));
    editor = std::make_unique<FindEditor>();
    ASSERT_EQ(editor->Create("editor", WS_CHILD | WS_VISIBLE, RECT{0, 0, 600, 400}, frame.get(), 42), 1);
}

void FindTest::TearDown() {
    editor.reset();
    frame.reset();
    SetMessageBoxHook(std::move(previousHook));
    CMemComboBox::groups.clear();
}

void FindTest::load(const char* content) {
    send(SCI_SETEOLMODE, WPARAM(SC_EOL_LF));
    send(SCI_CLEARALL);
    send(SCI_APPENDTEXT, std::strlen(content), reinterpret_cast<LPARAM>(content));
    send(SCI_EMPTYUNDOBUFFER);
    send(SCI_GOTOPOS, 0);
}
