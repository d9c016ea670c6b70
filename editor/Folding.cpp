// The fold margin: folding switched on and off, a click toggles a fold, and lines stay
// visible when the fold structure changes under a contracted fold.
#include "CScintillaWnd.h"

namespace {
constexpr int kFoldMargin = 2;
constexpr int kFoldMarginWidth = 16;

// Lexer properties that follow the folding switch, all with the same value.
constexpr const char* kFoldProperties[] = {
    "fold",         "fold.html",        "fold.html.preprocessor",      "fold.comment",         "fold.at.else",
    "fold.flags",   "fold.preprocessor", "styling.within.preprocessor", "asp.default.language",
};
}  // namespace

void CScintillaWnd::SetDisplayFolding(int show) {
    displayFolding = show;
    if (keyWordUsingPreCreate) {
        const char* value = show ? "1" : "0";
        for (const char* name : kFoldProperties)
            SendEditor(SCI_SETPROPERTY, reinterpret_cast<WPARAM>(name), reinterpret_cast<LPARAM>(value));
    }
    SendEditor(SCI_SETMARGINWIDTHN, kFoldMargin, show ? kFoldMarginWidth : 0);
}

int CScintillaWnd::GetCurrentFoldinglevel() {
    // GetCurrentLine counts from 1 and goes to the engine as it is: the level asked about is
    // that of the line after the caret's.
    const long level = SendEditor(SCI_GETFOLDLEVEL, WPARAM(GetCurrentLine()));
    return int((level & SC_FOLDLEVELNUMBERMASK) - SC_FOLDLEVELBASE);
}

void CScintillaWnd::DoDefaultFolding(int margin, long position) {
    if (margin != kFoldMargin) return;
    SendEditor(SCI_TOGGLEFOLD, WPARAM(SendEditor(SCI_LINEFROMPOSITION, WPARAM(position))));
}

void CScintillaWnd::Expand(int& line, bool doExpand, bool force, int visLevels, int level) {
    const long lastChild = SendEditor(SCI_GETLASTCHILD, WPARAM(line), level & SC_FOLDLEVELNUMBERMASK);
    ++line;
    while (line <= lastChild) {
        if (force)
            SendEditor(visLevels > 0 ? SCI_SHOWLINES : SCI_HIDELINES, WPARAM(line), line);
        else if (doExpand)
            SendEditor(SCI_SHOWLINES, WPARAM(line), line);
        const long lineLevel = level == -1 ? SendEditor(SCI_GETFOLDLEVEL, WPARAM(line)) : level;
        if (!(lineLevel & SC_FOLDLEVELHEADERFLAG)) {
            ++line;
            continue;
        }
        if (force) {
            SendEditor(SCI_SETFOLDEXPANDED, WPARAM(line), visLevels > 1 ? 1 : 0);
            Expand(line, doExpand, force, visLevels - 1, -1);
        } else if (doExpand) {
            if (!SendEditor(SCI_GETFOLDEXPANDED, WPARAM(line))) SendEditor(SCI_SETFOLDEXPANDED, WPARAM(line), 1);
            Expand(line, true, false, visLevels - 1, -1);
        } else {
            Expand(line, false, false, visLevels - 1, -1);
        }
    }
}

void CScintillaWnd::FoldChanged(int line, int levelNow, int levelPrev) {
    if (levelNow & SC_FOLDLEVELHEADERFLAG) {
        if (!(levelPrev & SC_FOLDLEVELHEADERFLAG)) {
            // A new fold point starts expanded.
            SendEditor(SCI_SETFOLDEXPANDED, WPARAM(line), 1);
            Expand(line, true, false, 0, levelPrev);
        }
    } else if (levelPrev & SC_FOLDLEVELHEADERFLAG) {
        if (!SendEditor(SCI_GETFOLDEXPANDED, WPARAM(line))) {
            // A contracted fold point went away: its lines would stay hidden with nothing to click.
            SendEditor(SCI_SETFOLDEXPANDED, WPARAM(line), 1);
            Expand(line, true, false, 0, levelPrev);
        }
    } else if (!(levelNow & SC_FOLDLEVELWHITEFLAG) &&
               (levelNow & SC_FOLDLEVELNUMBERMASK) < (levelPrev & SC_FOLDLEVELNUMBERMASK)) {
        // The line moved outward: show it unless its new parent keeps it folded away.
        const long parent = SendEditor(SCI_GETFOLDPARENT, WPARAM(line));
        if (parent < 0 || (SendEditor(SCI_GETFOLDEXPANDED, WPARAM(parent)) && SendEditor(SCI_GETLINEVISIBLE, WPARAM(parent))))
            SendEditor(SCI_SHOWLINES, WPARAM(line), line);
    }
}
