#pragma once
// The nine host languages into which SQL is copied as code and from which code is pasted back
// as SQL: their stored names, menu entries and paste routines, in menu order.
#include <span>

#include "CString.h"
#include "QuillboxExport.h"

// The values are stored nowhere as numbers, but the window's member holds them; LangMfc and
// LangCs came last and so have the highest values although they stand second and fourth.
enum EM_LangCode {
    LangVb = 0,
    LangC = 1,
    LangPb = 2,
    LangDelphi = 3,
    LangJava = 4,
    LangPerl = 5,
    LangPHP = 6,
    LangMfc = 7,
    LangCs = 8,
};

// Commands of the SQL window that work with the selected code language.
constexpr unsigned int kMakeCodeCommand = 8179;    // "Copy as Selected Code\tCtrl+Shift+C"
constexpr unsigned int kStripCodeCommand = 8180;   // "Paste from Selected Code\tCtrl+Shift+V"

enum class PasteRoutine {
    Language,   // PasteFromLanguageCode with `pasteEscape`
    CFamily,    // PasteFromCCode
    Java,       // PasteFromJavaCode
};

struct CodeLanguage {
    EM_LangCode code;
    const char* storedName;      // value of the setting "Editor Default Code"
    const char* menuLabel;
    const char* promptWord;      // the language as the status prompts name it
    unsigned int copyMenuId;     // entry of the popup "Copy to Clipboard"
    unsigned int pasteMenuId;    // entry of the popup "Paste from Clipboard"; both set the language
    PasteRoutine paste;
    char pasteEscape;            // escape character for PasteRoutine::Language, else 0
};

// All nine, in the order of the menus, which is also the order in which stored names are matched.
QUILLBOX_EXPORT std::span<const CodeLanguage> CodeLanguages();

// The row of a value, or null for a value outside 0 to 8.
QUILLBOX_EXPORT const CodeLanguage* FindCodeLanguage(int code);

// The row whose copy or paste menu entry has the command `id`, or null.
QUILLBOX_EXPORT const CodeLanguage* FindCodeLanguageByCommand(unsigned int id);

// Sets `code` from a stored name, compared exactly; a name that matches none leaves `code` as
// it was and gives false.
QUILLBOX_EXPORT bool LangCodeFromStoredName(const CString& name, EM_LangCode& code);

// The stored name of a value; empty for a value outside 0 to 8.
QUILLBOX_EXPORT CString LangCodeStoredName(int code);

// The status prompts of the two menu entries, "Select <word> Code to copy SQL to clipboard\n<word>
// Code" and its paste twin; empty for a value outside 0 to 8.
QUILLBOX_EXPORT CString CopyCodePrompt(int code);
QUILLBOX_EXPORT CString PasteCodePrompt(int code);
