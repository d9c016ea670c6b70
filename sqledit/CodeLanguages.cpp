#include "CodeLanguages.h"

#include <QCoreApplication>

namespace {

using enum PasteRoutine;

constexpr CodeLanguage kLanguages[] = {
    {LangVb, "Visual Basic", QT_TRANSLATE_NOOP("Quillbox", "Visual Basic Code"), "Visual Basic", 8181, 8184, Language, '"'},
    {LangMfc, "Visual C/C++", QT_TRANSLATE_NOOP("Quillbox", "Visual C/C++ Code"), "MFC", 8195, 8197, CFamily, 0},
    {LangC, "C/C++", QT_TRANSLATE_NOOP("Quillbox", "C/C++ Code"), "C/C++", 8182, 8185, CFamily, 0},
    {LangCs, "C#", QT_TRANSLATE_NOOP("Quillbox", "C# Code"), "C#", 8196, 8198, Java, 0},
    {LangPb, "PowerBuilder", QT_TRANSLATE_NOOP("Quillbox", "PowerBuilder Code"), "PowerBuilder", 8183, 8186, Language, '~'},
    {LangDelphi, "Delphi", QT_TRANSLATE_NOOP("Quillbox", "Delphi Code"), "Delphi", 8187, 8188, Language, '\''},
    {LangJava, "Java", QT_TRANSLATE_NOOP("Quillbox", "Java Code"), "Java", 8189, 8190, Java, 0},
    {LangPerl, "Perl", QT_TRANSLATE_NOOP("Quillbox", "Perl Code"), "Perl", 8191, 8192, Language, '\\'},
    {LangPHP, "PHP", QT_TRANSLATE_NOOP("Quillbox", "PHP Code"), "PHP", 8193, 8194, Language, '\\'},
};

CString prompt(int code, const char* action) {
    const CodeLanguage* language = FindCodeLanguage(code);
    CString text;
    if (language)
        text.Format("Select %s Code to %s clipboard\n%s Code", language->promptWord, action,
                    language->promptWord);
    return text;
}

}  // namespace

std::span<const CodeLanguage> CodeLanguages() { return kLanguages; }

const CodeLanguage* FindCodeLanguage(int code) {
    for (const CodeLanguage& language : kLanguages)
        if (language.code == code) return &language;
    return nullptr;
}

const CodeLanguage* FindCodeLanguageByCommand(unsigned int id) {
    for (const CodeLanguage& language : kLanguages)
        if (language.copyMenuId == id || language.pasteMenuId == id) return &language;
    return nullptr;
}

bool LangCodeFromStoredName(const CString& name, EM_LangCode& code) {
    for (const CodeLanguage& language : kLanguages) {
        if (name == language.storedName) {
            code = language.code;
            return true;
        }
    }
    return false;
}

CString LangCodeStoredName(int code) {
    const CodeLanguage* language = FindCodeLanguage(code);
    return language ? CString(language->storedName) : CString();
}

CString CopyCodePrompt(int code) { return prompt(code, "copy SQL to"); }
CString PasteCodePrompt(int code) { return prompt(code, "paste SQL from"); }
