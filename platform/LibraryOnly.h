#pragma once
// Platform calls that only the library's own code makes. This header is not installed, so a
// host never sees these names; MulDiv stays visible to the library's print tests.
#include "QuillboxExport.h"
#include "WinTypes.h"

// The running process's id, and its end by SIGKILL, as a crash would end it.
DWORD GetCurrentProcessId();
[[noreturn]] void KillCurrentProcess();

// Blocks the calling thread for about `milliseconds`.
void Sleep(DWORD milliseconds);

// Win32's MulDiv: number * numerator / denominator with a 64-bit product, rounded half away
// from zero; -1 when the denominator is 0 or the result does not fit an int.
QUILLBOX_EXPORT int MulDiv(int number, int numerator, int denominator);
