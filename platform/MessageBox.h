#pragma once
// Message boxes. One process-wide hook answers them without a modal loop (tests, batch runs);
// with no hook, a box shows as a QMessageBox, except where nobody can answer it (no
// application object, or the offscreen platform): then the text goes to standard error and
// the box answers with its first button.
#include <functional>

#include "WinTypes.h"

using MessageBoxHook = std::function<int(const char* text, const char* caption, UINT type)>;

// Installs `hook` (an empty function removes it) and returns the one it replaces.
QUILLBOX_EXPORT MessageBoxHook SetMessageBoxHook(MessageBoxHook hook);

QUILLBOX_EXPORT int AfxMessageBox(const char* text, UINT type = MB_OK, UINT helpId = 0);
QUILLBOX_EXPORT int AfxMessageBox(UINT stringId, UINT type = MB_OK, UINT helpId = 0);
QUILLBOX_EXPORT int MessageBox(HWND owner, const char* text, const char* caption, UINT type);
