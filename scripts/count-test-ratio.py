#!/usr/bin/env python3
"""Counts the lines of code in tests/ against the library's folders and prints the ratio.

A line counts when it holds something besides white space and comments (// and /* */ in
C++, # in CMake, shell and Python). Case files under tests/data/ are inputs, not code, and
are left out; they are listed apart so that a move of text into them stays visible.
"""
import os
import sys

LIBRARY = ["text", "editor", "appwnd", "sqledit", "dialogs", "module", "res", "platform", "engine", "kits"]
C_LIKE = (".cpp", ".h", ".hpp", ".c")
HASH = (".cmake", ".sh", ".py", ".txt")


def code_lines(path):
    hash_comments = path.endswith(HASH)
    in_block = False
    count = 0
    with open(path, encoding="utf-8", errors="replace") as f:
        for line in f:
            s = line.strip()
            if hash_comments:
                count += bool(s) and not s.startswith("#")
                continue
            # Strip block comments, then see whether anything but a line comment is left.
            rest = ""
            while s:
                if in_block:
                    end = s.find("*/")
                    if end < 0:
                        s = ""
                    else:
                        s, in_block = s[end + 2:], False
                else:
                    start = s.find("/*")
                    if start < 0 or "//" in s[:start]:
                        rest += s
                        s = ""
                    else:
                        rest += s[:start]
                        s, in_block = s[start + 2:], True
            rest = rest.strip()
            count += bool(rest) and not rest.startswith("//")
    return count


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
