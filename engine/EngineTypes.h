#pragma once
// Records that cross the engine boundary, declared here because the engine installs no
// Scintilla.h. Positions are `long`, as the engine counts them on this platform.
#include "ScintillaConstants.h"
#include "WinTypes.h"

struct Sci_CharacterRange {
    long cpMin = 0;
    long cpMax = 0;
};

struct Sci_TextRange {
    Sci_CharacterRange chrg;
    char* lpstrText = nullptr;
};

struct Sci_TextToFind {
    Sci_CharacterRange chrg;
    const char* lpstrText = nullptr;
    Sci_CharacterRange chrgText;
};

// An engine notification as the parent and OnNotify receive it. A typed character carries
// the bytes of its UTF-8 encoding in ch, ch2 and ch3 (0 where the character is shorter).
struct SCNotification {
    NMHDR nmhdr;
    long position = 0;
    int ch = 0;
    int ch2 = 0;
    int ch3 = 0;
    int modifiers = 0;
    int modificationType = 0;
    const char* text = nullptr;
    long length = 0;
    long linesAdded = 0;
    int message = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    long line = 0;
    int foldLevelNow = 0;
    int foldLevelPrev = 0;
    int margin = 0;
    int listType = 0;
    int x = 0;
    int y = 0;
    int token = 0;
    long annotationLinesAdded = 0;
    int updated = 0;
    int listCompletionMethod = 0;
};

// Notification codes of the engine (the Qt engine sends signals; these name the records).
constexpr UINT SCN_STYLENEEDED = 2000;
constexpr UINT SCN_CHARADDED = 2001;
constexpr UINT SCN_SAVEPOINTREACHED = 2002;
constexpr UINT SCN_SAVEPOINTLEFT = 2003;
constexpr UINT SCN_MODIFYATTEMPTRO = 2004;
constexpr UINT SCN_UPDATEUI = 2007;
constexpr UINT SCN_MODIFIED = 2008;
constexpr UINT SCN_MARGINCLICK = 2010;
constexpr UINT SCN_NEEDSHOWN = 2011;
constexpr UINT SCN_ZOOM = 2018;
constexpr UINT SCN_AUTOCSELECTION = 2022;
constexpr UINT SCN_AUTOCCANCELLED = 2025;

// Messages and notifications the engine layer adds to stock Scintilla.
constexpr UINT SCI_DELETERANGE_EXT = 5000;    // wParam start, lParam end: delete [start, end)
constexpr UINT SCI_SHOWLIST_EXT = 9020;       // wParam bytes typed, lParam "|"-separated list
constexpr UINT SCI_APPENDLIST_EXT = 9021;     // lParam more items for the list that shows
constexpr UINT SCN_LISTREFRESH_EXT = 9000;    // the list asks its owner for a refresh
constexpr UINT SCN_LISTMORE_EXT = 9001;       // the list was scrolled to its end
// Sent by the SQL window to its parent, not by the engine; named here so that codes stay apart.
constexpr UINT SCN_RUNSTATEMENT_EXT = 9002;   // Ctrl+Enter: run the statement at the caret

// Case modes of SCI_UPPERCASE (wParam); 0 is the engine's own upper-casing.
constexpr WPARAM SCI_CASE_UPPER = 0;
constexpr WPARAM SCI_CASE_INVERT = 1;
constexpr WPARAM SCI_CASE_SENTENCE = 2;
constexpr WPARAM SCI_CASE_CAPITALISE = 3;
