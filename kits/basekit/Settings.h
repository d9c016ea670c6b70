#pragma once
// Every setting the library reads from the application's settings key, each declared once:
// its name, its default and the bounds a stored value is brought within. A reader gives the
// default when the key is closed or the value is absent or not a number.
#include <algorithm>
#include <climits>

#include "CKTRegistry.h"

struct IntSetting {
    // What a stored number outside the bounds becomes: the nearest bound, or the default where
    // a bound would mean nothing useful (a font of 1000 points from a mistyped value).
    enum class OutOfRange { Clamp, UseDefault };

    const char* name;
    int defaultValue;
    int minimum = INT_MIN;
    int maximum = INT_MAX;
    OutOfRange outOfRange = OutOfRange::Clamp;

    int Read(const CKTRegistry& key) const { return Read(key, defaultValue); }
    // As Read, with `absent` given when there is no stored value: a window that keeps its
    // current choice when the user never set one. A switch (bounds 0 and 1) is on for any
    // number but 0.
    int Read(const CKTRegistry& key, int absent) const {
        if (!key.GetKey()) return absent;
        const int value = key.GetInt(name, absent);
        if (minimum == 0 && maximum == 1) return value != 0 ? 1 : 0;
        if (value >= minimum && value <= maximum) return value;
        return outOfRange == OutOfRange::Clamp ? std::clamp(value, minimum, maximum) : defaultValue;
    }
    bool Write(CKTRegistry& key, int value) const { return key.SetInt(name, value); }
};

// A text setting. Its default depends on the machine or the window (an installed font, the
// window's current language), so the reader passes it.
struct StringSetting {
    const char* name;

    CString Read(const CKTRegistry& key, const CString& absent) const {
        return key.GetKey() ? key.GetString(name, absent) : absent;
    }
    bool Write(CKTRegistry& key, const char* value) const { return key.SetString(name, value); }
};

namespace settings {
using enum IntSetting::OutOfRange;

// The font of every editor window unless the editor's own setting names one: a monospace
// family installed here when empty; a height of 0 or less draws no text.
inline constexpr StringSetting GlobalFontName{"Global Font Name"};
inline constexpr IntSetting GlobalFontHeight{"Global Font Height", 10, 1, INT_MAX, UseDefault};
// The editor's own font, in points.
inline constexpr StringSetting EditorFontName{"Editor Font Name"};
inline constexpr IntSetting EditorFontSize{"Editor Font Size", 10, 5, 1000, UseDefault};
inline constexpr IntSetting TabSize{"Tab Size", 4, 1, 256, UseDefault};
// Indent with tabs rather than spaces.
inline constexpr IntSetting KeepTab{"Keep Tab", 0, 0, 1};
inline constexpr IntSetting FoldingMargin{"Folding Margin", 1, 0, 1};
// A save keeps the previous file as a backup.
inline constexpr IntSetting FileBackup{"File Backup", 0, 0, 1};
// Block comments put a blank between the marker and the text.
inline constexpr IntSetting BlankAfterComment{"Blank After Comment", 0, 0, 1};
// A save writes the line ends the file had when it was loaded, instead of CR LF.
inline constexpr IntSetting KeepLineEnds{"Keep Line Ends", 0, 0, 1};
// Text size in the engine's zoom steps (points added to every font). The window writes it
// whenever the user zooms, so that the next window opens at the same size.
inline constexpr IntSetting EditorZoom{"Editor Zoom", 0, -10, 20};
// Ctrl+click adds a caret and a paste goes to every caret.
inline constexpr IntSetting MultipleSelection{"Multiple Selection", 1, 0, 1};
// 0 light, 1 dark.
inline constexpr IntSetting ColorTheme{"Color Theme", 0, 0, 1};

// Colours live in the subkey "Editor Color": the two backgrounds, and in its subkeys
// "Editable" and "Readonly" one colour a text group, named by CKTScinWnd's colour rows.
inline constexpr const char* EditorColorKey = "Editor Color";
inline constexpr const char* EditBackgroundColor = "Edit Mode Background Color";
inline constexpr const char* ReadOnlyBackgroundColor = "ReadOnly Mode Background Color";
inline constexpr const char* EditableColorsKey = "Editable";
inline constexpr const char* ReadOnlyColorsKey = "Readonly";

// Case of completion lists: 0 as they come, 1 upper, 2 lower.
inline constexpr IntSetting ChangeCase{"Change Case", 0, 0, 2, UseDefault};
// The language the copy-as-code and paste-from-code commands start with, by stored name.
inline constexpr StringSetting EditorDefaultCode{"Editor Default Code"};

// Format SQL: align clause keywords, commas first in lists, keyword case (0 keep, 1 upper,
// 2 lower, 3 capitalised), one item a line.
inline constexpr IntSetting KeywordAlign{"Keyword Align", 1, 0, 1};
inline constexpr IntSetting CommaInList{"Comma in List", 0, 0, 1};
inline constexpr IntSetting KeywordCase{"Keyword Case", 0, 0, 3, UseDefault};
inline constexpr IntSetting Multiline{"Multiline", 0, 0, 1};

// The user interface language, the name of a translations folder.
inline constexpr StringSetting DefinedLanguage{"DefinedLanguage"};
// Trace detail when QUILLBOX_LOG_LEVEL is not set.
inline constexpr IntSetting DebugLogLevel{"Debug Log Level", 0};
}  // namespace settings
