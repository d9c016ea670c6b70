#pragma once
// The user-interface language of the library: read from the setting "DefinedLanguage",
// checked against the translation files beside the program, made the process's default
// locale, and the library's own translation installed for its strings.
//
// Translation files lie in a folder named after the language beside the program:
//   <program folder>/<language>/<program file name>.qm   proves the program has that language
//   <program folder>/<language>/Quillbox.qm              the library's own strings
#include "CString.h"

class QTranslator;

namespace quillbox_module {

// The whole language step; 0 when the language could not be found or set (a trace line with
// FAILURE1 or FAILURE2 tells which).
int SelectModuleLanguage();
int GetMyUserDefinedLanguage(CString& language);
int IsSatelliteThere(const CString& language);
int SetUserDefinedLanguage(const CString& language);

// The program folder: what stands before the later of the last "/" and the last "\".
CString ProgramFolder(const CString& programPath);
// The program's translation file for a language, and the library's.
CString ProgramSatellitePath(const CString& programPath, const CString& language);
CString LibrarySatellitePath(const CString& programPath, const CString& language);

// The library's installed translation, or null; removed and freed by ReleaseSatellite.
QTranslator* Satellite();
void ReleaseSatellite();

}  // namespace quillbox_module
