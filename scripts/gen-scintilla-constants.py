#!/usr/bin/env python3
"""Writes engine/ScintillaConstants.h from QScintilla's header: every public Scintilla number
under its own name, so that the library's headers need not include QScintilla."""
import re
import sys

header = sys.argv[1] if len(sys.argv) > 1 else '/usr/include/x86_64-linux-gnu/qt6/Qsci/qsciscintillabase.h'
target = sys.argv[2] if len(sys.argv) > 2 else 'engine/ScintillaConstants.h'
pattern = re.compile(r'^\s+((?:SCI|SCN|SC|STYLE|INDIC|INDICATOR|SCFIND|SCLEX|SCVS|SCMOD|SCK|SCWS|SCTD|SCE_SQL|SCEN)_[A-Z0-9_]+)\s*=\s*([^,\n]+),?', re.M)
seen, lines = set(), []
for name, value in pattern.findall(open(header).read()):
    if name not in seen:
        seen.add(name)
        lines.append(f'constexpr long {name} = {value.strip()};')
with open(target, 'w') as out:
    out.write("#pragma once\n// The engine's public message, notification and constant numbers under their Scintilla names,\n"
              "// read from QScintilla's header once, so that library headers need not include QScintilla.\n"
              "// Regenerate with scripts/gen-scintilla-constants.py when the engine changes.\n\n// clang-format off\n")
    out.write('\n'.join(lines) + '\n// clang-format on\n')
