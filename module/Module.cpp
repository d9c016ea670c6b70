// The library's start and end. Loading the library makes the engine's window class
// available at once; the language step waits for the application object, which it needs to
// install translations (it runs right away when the library is loaded into a running
// application). Unloading releases the translation, then the engine.
#include <QCoreApplication>

#include "CScintillaWnd.h"
#include "CommandIds.h"
#include "ModuleLanguage.h"
#include "System.h"

namespace {
HINSTANCE engineHandle = nullptr;

__attribute__((constructor)) void attachLibrary() {
    engineHandle = CScintillaWnd::LoadScintillaDll(nullptr);
    RegisterLibraryAccelerators();
    RegisterLibraryMenus();
    RegisterCommandPrompts();
}

__attribute__((destructor)) void detachLibrary() {
    quillbox_module::ReleaseSatellite();
    if (engineHandle) FreeLibrary(engineHandle);
    engineHandle = nullptr;
}

void selectLanguage() { quillbox_module::SelectModuleLanguage(); }
}  // namespace

Q_COREAPP_STARTUP_FUNCTION(selectLanguage)
