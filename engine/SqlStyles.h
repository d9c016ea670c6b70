#pragma once
// The SQL lexer's styles under Scintilla's names, numbered as QScintilla's QsciLexerSQL.
// Regenerate with scripts/gen-scintilla-constants.py when the engine changes.

// clang-format off
constexpr int SCE_SQL_DEFAULT = 0;
constexpr int SCE_SQL_COMMENT = 1;
constexpr int SCE_SQL_COMMENTLINE = 2;
constexpr int SCE_SQL_COMMENTDOC = 3;
constexpr int SCE_SQL_NUMBER = 4;
constexpr int SCE_SQL_WORD = 5;
constexpr int SCE_SQL_STRING = 6;
constexpr int SCE_SQL_CHARACTER = 7;
constexpr int SCE_SQL_SQLPLUS = 8;
constexpr int SCE_SQL_SQLPLUS_PROMPT = 9;
constexpr int SCE_SQL_OPERATOR = 10;
constexpr int SCE_SQL_IDENTIFIER = 11;
constexpr int SCE_SQL_SQLPLUS_COMMENT = 13;
constexpr int SCE_SQL_COMMENTLINEDOC = 15;
constexpr int SCE_SQL_WORD2 = 16;
constexpr int SCE_SQL_COMMENTDOCKEYWORD = 17;
constexpr int SCE_SQL_COMMENTDOCKEYWORDERROR = 18;
constexpr int SCE_SQL_USER1 = 19;
constexpr int SCE_SQL_USER2 = 20;
constexpr int SCE_SQL_USER3 = 21;
constexpr int SCE_SQL_USER4 = 22;
constexpr int SCE_SQL_QUOTEDIDENTIFIER = 23;
constexpr int SCE_SQL_QOPERATOR = 24;
// clang-format on
