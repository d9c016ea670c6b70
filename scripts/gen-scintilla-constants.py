#!/usr/bin/env python3
"""Writes the engine's numbers under names from QScintilla's headers, so that the library's
headers need not include QScintilla and its code need not write raw numbers:

  engine/ScintillaConstants.h  every public Scintilla number, from qsciscintillabase.h
  engine/SqlStyles.h           the SQL lexer's styles under Scintilla's SCE_SQL_* names,
                               each number checked against qscilexersql.h
  engine/Indicators.h          the indicators the library draws, checked to lie in the
                               range the engine leaves to its container

Usage: gen-scintilla-constants.py [qsci-include-dir] [engine-dir]"""
import os
import re
import sys

qsci = sys.argv[1] if len(sys.argv) > 1 else '/usr/include/x86_64-linux-gnu/qt6/Qsci'
engine = sys.argv[2] if len(sys.argv) > 2 else 'engine'
REGENERATE = '// Regenerate with scripts/gen-scintilla-constants.py when the engine changes.\n'

# Scintilla's names for the SQL lexer's styles beside QScintilla's names for the same styles.
# Styles 12 and 14 are unused by the lexer. QScintilla names style 16 (keyword list 2, the
# database objects of the properties) nowhere, so Scintilla's number stands for it.
SQL_STYLES = [
    ('SCE_SQL_DEFAULT', 'Default'),
    ('SCE_SQL_COMMENT', 'Comment'),
    ('SCE_SQL_COMMENTLINE', 'CommentLine'),
    ('SCE_SQL_COMMENTDOC', 'CommentDoc'),
    ('SCE_SQL_NUMBER', 'Number'),
    ('SCE_SQL_WORD', 'Keyword'),
    ('SCE_SQL_STRING', 'DoubleQuotedString'),
    ('SCE_SQL_CHARACTER', 'SingleQuotedString'),
    ('SCE_SQL_SQLPLUS', 'PlusKeyword'),
    ('SCE_SQL_SQLPLUS_PROMPT', 'PlusPrompt'),
    ('SCE_SQL_OPERATOR', 'Operator'),
    ('SCE_SQL_IDENTIFIER', 'Identifier'),
    ('SCE_SQL_SQLPLUS_COMMENT', 'PlusComment'),
    ('SCE_SQL_COMMENTLINEDOC', 'CommentLineHash'),
    ('SCE_SQL_WORD2', 16),
    ('SCE_SQL_COMMENTDOCKEYWORD', 'CommentDocKeyword'),
    ('SCE_SQL_COMMENTDOCKEYWORDERROR', 'CommentDocKeywordError'),
    ('SCE_SQL_USER1', 'KeywordSet5'),
    ('SCE_SQL_USER2', 'KeywordSet6'),
    ('SCE_SQL_USER3', 'KeywordSet7'),
    ('SCE_SQL_USER4', 'KeywordSet8'),
    ('SCE_SQL_QUOTEDIDENTIFIER', 'QuotedIdentifier'),
    ('SCE_SQL_QOPERATOR', 'QuotedOperator'),
]

# The library's own indicators, with what each marks.
INDICATORS = [
    ('WordHighlight', 29, 'every visible occurrence of the selected word'),
    ('CurrentMatch', 30, 'the match Find Next selected, drawn above the word highlight'),
    ('Annotation', 31, "a host's annotated range; its value is the annotation's id"),
]


def write(name, body, about):
    with open(os.path.join(engine, name), 'w') as out:
        out.write('#pragma once\n' + about + REGENERATE + '\n// clang-format off\n')
        out.write(body + '// clang-format on\n')


base = open(os.path.join(qsci, 'qsciscintillabase.h')).read()
pattern = re.compile(r'^\s+((?:SCI|SCN|SC|STYLE|INDIC|INDICATOR|SCFIND|SCLEX|SCVS|SCMOD|SCK|SCWS|SCTD|SCE_SQL|SCEN)_[A-Z0-9_]+)\s*=\s*([^,\n]+),?', re.M)
seen, lines, numbers = set(), [], {}
for name, value in pattern.findall(base):
    if name not in seen:
        seen.add(name)
        lines.append(f'constexpr long {name} = {value.strip()};')
        if re.fullmatch(r'\d+', value.strip()):
            numbers[name] = int(value.strip())
write('ScintillaConstants.h', '\n'.join(lines) + '\n',
      "// The engine's public message, notification and constant numbers under their Scintilla names,\n"
      "// read from QScintilla's header once, so that library headers need not include QScintilla.\n")

sql = open(os.path.join(qsci, 'qscilexersql.h')).read()
enum = {k: int(v) for k, v in re.findall(r'^\s+([A-Z][A-Za-z0-9]*)\s*=\s*(\d+),', sql, re.M)}
lines = []
for name, qsci_name in SQL_STYLES:
    if isinstance(qsci_name, int):
        number = qsci_name
        if number in enum.values():
            sys.exit(f'{name}: QsciLexerSQL now names style {number}; map it instead')
    elif qsci_name not in enum:
        sys.exit(f'{name}: QsciLexerSQL has no style {qsci_name}')
    else:
        number = enum[qsci_name]
    lines.append(f'constexpr int {name} = {number};')
write('SqlStyles.h', '\n'.join(lines) + '\n',
      "// The SQL lexer's styles under Scintilla's names, numbered as QScintilla's QsciLexerSQL.\n")

first, last = numbers['INDIC_CONTAINER'], numbers['INDIC_IME'] - 1
lines = ['namespace indicator {']
for name, number, about in INDICATORS:
    if not first <= number <= last:
        sys.exit(f'indicator {name} = {number} lies outside the container range {first}..{last}')
    lines.append(f'// {about[0].upper() + about[1:]}.')
    lines.append(f'constexpr int {name} = {number};')
lines.append('}  // namespace indicator')
write('Indicators.h', '\n'.join(lines) + '\n',
      "// The indicators the library draws over the text, each one number of the range the engine\n"
      "// leaves to its container.\n")
