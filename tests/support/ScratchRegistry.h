#pragma once
// Points the registry at a store of its own for one test, so that settings written by a test
// never meet another test's or the user's.
#include <QTemporaryDir>

#include "Registry.h"

class ScratchRegistry {
public:
    ScratchRegistry() { RegSetStorePath(dir_.filePath("registry.sqlite").toUtf8().constData()); }
    ~ScratchRegistry() { RegSetStorePath(nullptr); }

private:
    QTemporaryDir dir_;
};
