// The library's start and end: the engine's window class is made available as soon as the
// library is loaded, and the engine handle is released when it is unloaded.
#include "CScintillaWnd.h"
#include "System.h"

namespace {
HINSTANCE engineHandle = nullptr;

__attribute__((constructor)) void attachLibrary() { engineHandle = CScintillaWnd::LoadScintillaDll(nullptr); }

__attribute__((destructor)) void detachLibrary() {
    if (engineHandle) FreeLibrary(engineHandle);
    engineHandle = nullptr;
}
}  // namespace
