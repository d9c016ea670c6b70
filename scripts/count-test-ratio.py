#!/usr/bin/env python3
"""Counts the lines of code in tests/ against the library's folders and prints the ratio.

A line counts when it holds something besides white space and comments (// and /* */ in
C++, outside string and character literals; # in CMake, shell and Python). Case files under tests/data/ are inputs, not code, and
are left out; they are listed apart so that a move of text into them stays visible.
"""
import os
import sys

LIBRARY = ["text", "editor", "appwnd", "sqledit", "dialogs", "module", "res", "platform", "engine", "kits"]
C_LIKE = (".cpp", ".h", ".hpp", ".c")
HASH = (".cmake", ".sh", ".py", ".txt")


def code_lines(path):
    with open(path, encoding="utf-8", errors="replace") as f:
        text = f.read()
    if path.endswith(HASH):
        return sum(1 for line in text.splitlines() if line.strip() and not line.strip().startswith("#"))
    return len(c_code_line_numbers(text))


def c_code_line_numbers(text):
    """The numbers of the lines that hold code. Comment markers inside string and character
    literals (plain or raw) are text, not comments."""
    lines = set()
    i, n, line = 0, len(text), 0
    while i < n:
        c = text[i]
        if c == "\n":
            line += 1
            i += 1
        elif c.isspace():
            i += 1
        elif text.startswith("//", i):
            while i < n and text[i] != "\n":
                i += 1
        elif text.startswith("/*", i):
            end = text.find("*/", i + 2)
            end = n if end < 0 else end + 2
            line += text.count("\n", i, end)
            i = end
        elif c == "R" and text.startswith('"', i + 1) and (i == 0 or not (text[i - 1].isalnum() or text[i - 1] == "_")):
            open_paren = text.find("(", i + 2)
            delimiter = ")" + text[i + 2:open_paren] + '"'
            end = text.find(delimiter, open_paren)
            end = n if end < 0 or open_paren < 0 else end + len(delimiter)
            for k in range(line, line + text.count("\n", i, end) + 1):
                lines.add(k)
            line += text.count("\n", i, end)
            i = end
        elif c in "\"'" and not (c == "'" and i > 0 and text[i - 1].isalnum()):  # not a digit separator
            lines.add(line)
            i += 1
            while i < n and text[i] != c and text[i] != "\n":
                i += 2 if text[i] == "\\" else 1
            i += 1
        else:
            lines.add(line)
            i += 1
    return lines


def count(folders, skip=()):
    total = files = 0
    for folder in folders:
        for root, dirs, names in os.walk(folder):
            dirs[:] = [d for d in dirs if os.path.join(root, d) not in skip]
            for name in names:
                if name.endswith(C_LIKE + HASH):
                    total += code_lines(os.path.join(root, name))
                    files += 1
    return total, files


def data_files(folder):
    return sum(len(names) for _, _, names in os.walk(folder)) if os.path.isdir(folder) else 0


def main():
    os.chdir(os.path.join(os.path.dirname(os.path.abspath(__file__)), ".."))
    library, library_files = count(LIBRARY)
    tests, test_files = count(["tests"], skip={os.path.join("tests", "data")})
    print(f"library: {library} lines in {library_files} files ({' '.join(LIBRARY)})")
    print(f"tests:   {tests} lines in {test_files} files (case files in tests/data: {data_files('tests/data')})")
    print(f"ratio:   {tests / library:.3f}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
