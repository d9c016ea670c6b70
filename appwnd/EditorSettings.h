#pragma once
// Settings of the editing comforts (zoom, multiple selection, colour theme): name, default and
// bounds in one table, read through the application's settings key.
#include <algorithm>

#include "CKTRegistry.h"

struct IntSetting {
    const char* name;
    int defaultValue;
    int minimum;
    int maximum;
    // The stored value brought within the bounds; the default when the key is closed or the
    // value is absent. A switch (bounds 0 and 1) is on for any number but 0.
    int Read(const CKTRegistry& key) const {
        const int value = key.GetKey() ? key.GetInt(name, defaultValue) : defaultValue;
        if (minimum == 0 && maximum == 1) return value != 0 ? 1 : 0;
        return std::clamp(value, minimum, maximum);
    }
};

namespace settings {
// Text size in the engine's zoom steps (points added to every font). The window writes it
// whenever the user zooms, so that the next window opens at the same size.
inline constexpr IntSetting EditorZoom{"Editor Zoom", 0, -10, 20};
// Ctrl+click adds a caret and a paste goes to every caret.
inline constexpr IntSetting MultipleSelection{"Multiple Selection", 1, 0, 1};
// 0 light, 1 dark.
inline constexpr IntSetting ColorTheme{"Color Theme", 0, 0, 1};
}  // namespace settings
