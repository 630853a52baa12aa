"""Rules that need only the text: sizes, leftovers, white space, header guards, honest tests."""

import re

from source_tree import Finding

LONGEST_FILE = 250

# Put together here so that this file does not report itself.
_LEFTOVER = re.compile(r"\b(" + "|".join(["TO" + "DO", "FIX" + "ME", "XX" + "X", "HA" + "CK"]) + r")\b")
_SKIP = re.compile(r"\bGTEST_" + r"SKIP\b")
_OFF = "DISABLED" + "_"
_SWITCHED_OFF = re.compile(rf"\bTEST(?:_F|_P)?\(\s*(?:{_OFF}\w+|\w+\s*,\s*{_OFF})")


def file_size(tree):
    for file in tree.cpp_files:
        count = len(file.lines)
        if count > LONGEST_FILE:
            yield Finding(file.path, count, "file-size", f"{count} lines, more than {LONGEST_FILE}; find the second "
                          f"idea in this file and give it one of its own")


def leftovers(tree):
    for file in tree.text_files:
        for number, line in enumerate(file.lines, 1):
            found = _LEFTOVER.search(line)
            if found:
                yield Finding(file.path, number, "leftover",
                              f"{found.group()} marks unfinished work; finish it, or write down the fact without it")


def white_space(tree):
    for file in tree.text_files:
        for number, line in enumerate(file.text.split("\n"), 1):
            if line != line.rstrip():
                yield Finding(file.path, number, "white-space", "white space at the end of the line; remove it")
        if file.text and not file.text.endswith("\n"):
            yield Finding(file.path, len(file.lines), "white-space", "the last line has no end; add a newline")


def header_guards(tree):
    for file in tree.headers:
        code = [line.strip() for line in file.code_lines if line.strip()]
        if not code or code[0] != "#pragma once":
            yield Finding(file.path, 1, "header-guard", "start the header with #pragma once")


def honest_tests(tree):
    for file in tree.cpp_files:
        for number, line in enumerate(file.code_lines, 1):
            if _SKIP.search(line):
                yield Finding(file.path, number, "honest-tests",
                              "a skipped test; add what it needs to scripts/lib/packages, and let it fail without")
            if _SWITCHED_OFF.search(line):
                yield Finding(file.path, number, "honest-tests", "a disabled test; make it pass or remove it")


RULES = [file_size, leftovers, white_space, header_guards, honest_tests]
