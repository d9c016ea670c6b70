// The property file and how its values reach the engine: lexer properties unexpanded,
// keyword lists expanded for the file name "x.sql", style strings expanded plainly.
#include <algorithm>
#include <cstdio>
#include <mutex>
#include <set>
#include <string>

#include "CKTUtil.h"
#include "CKTUtilTrace.h"
#include "CScintillaWnd.h"
#include "System.h"

namespace {
constexpr const char* kPropertyFile = "SciTEGlobal.properties";
constexpr const char* kPatternFile = "x.sql";

// Lexer properties forwarded as they stand in the file.
constexpr const char* kForwardedProperties[] = {
    "asp.default.language", "fold", "fold.at.else", "fold.comment", "fold.comment.yaml", "fold.compact",
    "fold.directive", "fold.html", "fold.html.preprocessor", "fold.perl.package", "fold.perl.pod",
    "fold.preprocessor", "fold.quotes.python", "fold.sql.only.begin", "fold.verilog.flags",
    "html.tags.case.sensitive", "lexer.caml.magic", "lexer.cpp.allow.dollars", "lexer.metapost.comment.process",
    "lexer.metapost.interface.default", "lexer.sql.backticks.identifier", "lexer.tex.auto.if",
    "lexer.tex.comment.process", "lexer.tex.interface.default", "lexer.tex.use.keywords", "nsis.ignorecase",
    "nsis.uservars", "ps.level", "ps.tokenize", "sql.backslash.escapes", "styling.within.preprocessor",
    "tab.timmy.whinge.level", "tab.indents",
};
}  // namespace

CString CScintillaWnd::PropertiesFolder() {
    // The running program's folder, whichever separator its path uses.
    const CString program = GetModuleFileName();
    const int separator = std::max(program.ReverseFind('/'), program.ReverseFind('\\'));
    return (separator >= 0 ? program.Left(separator) : CString(".")) + "/properties";
}

void CScintillaWnd::ApplyProFile() {
    ReadGlobalPropFile();
    for (const char* name : kForwardedProperties) ForwardPropertyToEditor(name);
    ReadProperties();
}

void CScintillaWnd::ReadGlobalPropFile() {
    FilePath imports[50];
    props.Clear();
    const FilePath folder(PropertiesFolder().c_str());
    const FilePath file(folder, FilePath(kPropertyFile));
    // A missing file leaves the table empty and the SQL uncoloured. A host that forgot to
    // ship the file learns where it was looked for, once per path, whatever the trace level.
    if (!props.Read(file, folder, imports, 50)) {
        static std::mutex reported;
        static std::set<std::string> paths;
        const std::lock_guard lock(reported);
        if (paths.insert(file.AsInternal()).second)
            CKTUtilTrace::WriteLogFileInTemp("property file not found: %s : ( %d )", file.AsInternal(), __LINE__);
    }
}

void CScintillaWnd::ForwardPropertyToEditor(const char* key) {
    const SString value = props.Get(key);
    SendEditor(SCI_SETPROPERTY, reinterpret_cast<WPARAM>(key), reinterpret_cast<LPARAM>(value.c_str()));
}

void CScintillaWnd::ReadProperties() {
    const SString braces = props.GetExpanded("braces.sql.style");
    bracesStyle = braces.length() ? braces.value() : 0;
    ReadFontProperties();
}

void CScintillaWnd::ReadFontProperties() {
    SendEditor(SCI_STYLERESETDEFAULT);
    SetOneStyle(STYLE_DEFAULT, StyleDefinition(fontSetting.c_str()));
    SetOneStyle(STYLE_DEFAULT, StyleDefinition(props.GetNewExpand("style.sql.32", "").c_str()));
    SendEditor(SCI_STYLECLEARALL);
    SetStyleFor("*");
    SetStyleFor("sql");
    // Every style falls back to the default style again: the lasting colours are set by
    // initScintilla and the user's colours.
    SendEditor(SCI_STYLECLEARALL);
    const StyleDefinition monospace(props.GetExpanded("font.monospace").c_str());
    for (int style = 0; style <= 255; ++style) {
        if (style == STYLE_LINENUMBER) continue;
        if (monospace.specified & StyleDefinition::sdFont)
            SendEditor(SCI_STYLESETFONT, WPARAM(style), reinterpret_cast<LPARAM>(monospace.font.c_str()));
        if (monospace.specified & StyleDefinition::sdSize) SendEditor(SCI_STYLESETSIZE, WPARAM(style), monospace.size);
    }
}

void CScintillaWnd::SetStyleFor(const char* language) {
    for (int style = 0; style <= 255; ++style) {
        if (style == STYLE_DEFAULT) continue;
        char key[200];
        std::snprintf(key, sizeof key, "style.%s.%0d", language, style);
        SetOneStyle(style, StyleDefinition(props.GetExpanded(key).c_str()));
    }
}

void CScintillaWnd::SetOneStyle(int style, const StyleDefinition& sd) {
    const WPARAM s = WPARAM(style);
    if (sd.specified & StyleDefinition::sdItalics) SendEditor(SCI_STYLESETITALIC, s, sd.italics ? 1 : 0);
    if (sd.specified & StyleDefinition::sdBold) SendEditor(SCI_STYLESETBOLD, s, sd.bold ? 1 : 0);
    if (sd.specified & StyleDefinition::sdFont)
        SendEditor(SCI_STYLESETFONT, s, reinterpret_cast<LPARAM>(sd.font.c_str()));
    if (sd.specified & StyleDefinition::sdFore) SendEditor(SCI_STYLESETFORE, s, sd.ForeAsLong());
    if (sd.specified & StyleDefinition::sdBack) SendEditor(SCI_STYLESETBACK, s, sd.BackAsLong());
    if (sd.specified & StyleDefinition::sdSize) SendEditor(SCI_STYLESETSIZE, s, sd.size);
    if (sd.specified & StyleDefinition::sdEOLFilled) SendEditor(SCI_STYLESETEOLFILLED, s, sd.eolfilled ? 1 : 0);
    if (sd.specified & StyleDefinition::sdUnderlined) SendEditor(SCI_STYLESETUNDERLINE, s, sd.underlined ? 1 : 0);
    if (sd.specified & StyleDefinition::sdCaseForce) SendEditor(SCI_STYLESETCASE, s, sd.caseMode);
    if (sd.specified & StyleDefinition::sdVisible) SendEditor(SCI_STYLESETVISIBLE, s, sd.visible ? 1 : 0);
    if (sd.specified & StyleDefinition::sdChangeable) SendEditor(SCI_STYLESETCHANGEABLE, s, sd.changeable ? 1 : 0);
    SendEditor(SCI_STYLESETCHARACTERSET, s, SC_CHARSET_DEFAULT);
}

void CScintillaWnd::SetKeywordStyle() {
    SendEditor(SCI_CLEARDOCUMENTSTYLE);
    SendEditor(SCI_SETLEXERLANGUAGE, 0, reinterpret_cast<LPARAM>(language.c_str()));
    SendEditor(SCI_SETSTYLEBITS, WPARAM(SendEditor(SCI_GETSTYLEBITSNEEDED)));
    RegisterKeyword();
    // Clearing the styles counts the whole text as styled; the lexer must start again from
    // the top, as the text is shown, or text already in the document stays uncoloured.
    SendEditor(SCI_STARTSTYLING, 0, 0);
}

void CScintillaWnd::RegisterKeyword() {
    // List 0 is "keywords.", lists 1 to 8 are "keywords2." to "keywords9."; every list is
    // sent, so one the file no longer has is cleared.
    SendEditor(SCI_SETKEYWORDS, 0, reinterpret_cast<LPARAM>(props.GetNewExpand("keywords.", kPatternFile).c_str()));
    for (int n = 1; n <= 8; ++n) {
        char key[32];
        std::snprintf(key, sizeof key, "keywords%d.", n + 1);
        const SString words = props.GetNewExpand(key, kPatternFile);
        SendEditor(SCI_SETKEYWORDS, WPARAM(n), reinterpret_cast<LPARAM>(words.c_str()));
    }
}

void CScintillaWnd::SetSCILanguage(CString) {
    SetDisplayFolding(0);
    SendEditor(SCI_CLEARDOCUMENTSTYLE);
}
