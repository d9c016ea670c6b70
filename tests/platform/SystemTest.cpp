#include <gtest/gtest.h>

#include <cstdlib>

#include "KeyCodes.h"
#include "MessageBox.h"
#include "System.h"

#include <Qt>

TEST(System, LanguageIdCanBeForcedAndIgnoresGarbage) {
    setenv("QUILLBOX_LANGID", "1041", 1);
    EXPECT_EQ(GetSystemDefaultLangID(), 1041);
    setenv("QUILLBOX_LANGID", "0x412", 1);
    EXPECT_EQ(GetSystemDefaultLangID(), 0x412);
    setenv("QUILLBOX_LANGID", "not a number", 1);
    EXPECT_NE(GetSystemDefaultLangID(), 0);
    unsetenv("QUILLBOX_LANGID");
}

TEST(System, LibraryLoaderReportsItsOwnReason) {
    EXPECT_EQ(LoadLibrary("/nonexistent/libnothing.so"), nullptr);
    EXPECT_NE(GetLastError(), 0u);
    EXPECT_NE(GetLastErrorText().Find("libnothing"), -1);
    HMODULE libc = LoadLibrary("libc.so.6");
    ASSERT_NE(libc, nullptr);
    EXPECT_TRUE(FreeLibrary(libc));
    EXPECT_NE(GetModuleFileName().Find("test_platform"), -1);
}

TEST(System, MessageBoxHookAnswersWithoutAModalLoop) {
    CString seen;
    MessageBoxHook previous = SetMessageBoxHook([&](const char* text, const char*, UINT) {
        seen = text;
        return IDCANCEL;
    });
    EXPECT_EQ(AfxMessageBox("hello", MB_OKCANCEL), IDCANCEL);
    EXPECT_EQ(seen, "hello");
    SetMessageBoxHook(previous);
    // Offscreen and without a hook nobody can answer: the first button answers.
    EXPECT_EQ(AfxMessageBox("unattended", MB_YESNO), IDYES);
}

TEST(System, ShiftedKeysMapToTheirUnshiftedVirtualKey) {
    EXPECT_EQ(VirtualKeyFromQtKey(Qt::Key_Underscore), VK_OEM_MINUS);
    EXPECT_EQ(VirtualKeyFromQtKey(Qt::Key_BraceLeft), VK_OEM_4);
    EXPECT_EQ(VirtualKeyFromQtKey(Qt::Key_C), UINT('C'));
    EXPECT_EQ(VirtualKeyFromQtKey(Qt::Key_F5), VK_F1 + 4);
}
