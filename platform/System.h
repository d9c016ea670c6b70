#pragma once
// Process services the window classes call by their Win32 names: the last error and its text,
// the system language, library loading and the running program's path.
#include "CString.h"
#include "WinTypes.h"

constexpr DWORD ERROR_SUCCESS_CODE = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND_CODE = 2;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY_CODE = 8;
constexpr DWORD ERROR_INVALID_OPERATION_CODE = 4317;
constexpr DWORD ERROR_MOD_NOT_FOUND_CODE = 126;
constexpr DWORD ERROR_INVALID_WINDOW_HANDLE_CODE = 1400;
constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS_CODE = 1407;

// The calling thread's last error code and the text that explains it (empty when none was
// recorded). SetLastError with no text takes the system's text for the code (strerror).
QUILLBOX_EXPORT DWORD GetLastError();
QUILLBOX_EXPORT CString GetLastErrorText();
QUILLBOX_EXPORT void SetLastError(DWORD code);
QUILLBOX_EXPORT void SetLastError(DWORD code, const char* text);

// The system language as a Windows language id, from the locale (QLocale::system()).
// QUILLBOX_LANGID, when set to a number, overrides it, so that tests can pick one.
QUILLBOX_EXPORT LANGID GetSystemDefaultLangID();

// A dynamic library by the loader's own search rules; null on failure with the loader's
// message in GetLastErrorText.
QUILLBOX_EXPORT HMODULE LoadLibrary(const char* name);
QUILLBOX_EXPORT BOOL FreeLibrary(HMODULE module);
// The loaded library that holds `address`, held open once more (FreeLibrary lets it go); the
// running program's own handle when no library file holds it.
QUILLBOX_EXPORT HMODULE LibraryContaining(const void* address);

// The full path of the running program (GetModuleFileName of the process).
QUILLBOX_EXPORT CString GetModuleFileName();

// Plays the system sound of a message box type (MB_OK, MB_ICONHAND, ...) as a short signal to
// the user; TRUE. Without a display (no application object, or the offscreen platform) there
// is nothing to hear and only the count goes up. The count of beeps since the process started
// lets tests see that one happened.
QUILLBOX_EXPORT BOOL MessageBeep(UINT type);
QUILLBOX_EXPORT unsigned long GetMessageBeepCount();
