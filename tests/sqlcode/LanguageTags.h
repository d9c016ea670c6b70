#pragma once
// The file name extension that stands for each code language in the case files.
#include <utility>

#include "CodeLanguages.h"

inline constexpr std::pair<const char*, EM_LangCode> kLanguageTags[] = {
    {".vb", LangVb},         {".mfc", LangMfc},   {".c", LangC},       {".cs", LangCs},   {".pb", LangPb},
    {".delphi", LangDelphi}, {".java", LangJava}, {".perl", LangPerl}, {".php", LangPHP},
};
