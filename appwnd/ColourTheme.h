#pragma once
// The colour sets of the editor windows: the defaults of the six colour groups and the
// colours of everything drawn around the text (selection, caret, margins, fold markers, brace
// and find highlights, annotations). Colours are 0x00BBGGRR. A host may match its own
// colours to the theme the windows show.
#include "WinTypes.h"

struct QUILLBOX_EXPORT ColourTheme {
    // A colour the engine keeps at its own default.
    static constexpr COLORREF kEngineDefault = 0xFFFFFFFF;

    bool dark;
    COLORREF groups[6];            // Text, Number, String, Keyword, Function, Comment
    COLORREF editBackground;       // kEngineDefault: the system's window colour
    COLORREF readOnlyBackground;
    COLORREF selectionBack;
    COLORREF additionalSelectionBack;
    COLORREF caret;
    COLORREF additionalCaret;
    COLORREF caretLineBack;
    COLORREF marginFore;           // line numbers
    COLORREF marginBack;           // line numbers and the mark margin
    COLORREF foldMarginBack;       // kEngineDefault: the engine's pattern
    COLORREF foldMarkerFore;
    COLORREF foldMarkerBack;
    COLORREF braceFore;
    COLORREF braceBack;
    COLORREF badBraceFore;
    COLORREF wordHighlight;        // other occurrences of the selected word
    COLORREF currentMatch;         // the match that Find Next selected: its outline
    int currentMatchAlpha;         // and how strongly it fills the box (0 to 255)
    COLORREF annotationFore;
    COLORREF annotationBack;
    COLORREF annotationMark;       // the underline of an annotated range

    // Theme 1 is dark; every other number is the light theme.
    static const ColourTheme& ForSetting(int theme);
};

// The contrast ratio of two colours (1 to 21), as accessibility guidelines measure it.
QUILLBOX_EXPORT double ContrastRatio(COLORREF a, COLORREF b);
// `fore` moved towards white (on a dark background) or black (on a light one) until it
// reaches `ratio` against `back`, or as far as it goes.
QUILLBOX_EXPORT COLORREF WithContrast(COLORREF fore, COLORREF back, double ratio);
