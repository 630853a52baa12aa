"""docs/macos.md names the place of the operations of macOS that the adapters use: each must be there, and neither a source nor
a call of a C function may be missing.

    python3 -B scripts/lib/check/places.py    puts the line numbers in the document right
"""

import re
from pathlib import Path

from source_tree import Finding, SourceTree

DOCUMENT = "docs/macos.md"
SOURCES = "platform/macos/"
# | `operation` | [File.mm:12](../platform/macos/File.mm#L12) | ...
_ROW = re.compile(r"^\| `(?P<operation>[^`]+)` \| \[[^\]:]+:(?P<line>\d+)\]\(\.\./(?P<path>[^)#]+)#L\d+\) \|")
_CALL = re.compile(r"(?<![\w:])((?:CF|AX)[A-Z]\w+|\w+(?:EventHandler|EventHotKey))\(")
# Our own holder; functions that only tell the number of a type.
_LEFT_OUT = re.compile(r"CFOwned|(CF|AX)\w+GetTypeID")


def _rows(document):
    for number, line in enumerate(document.lines, 1):
        row = _ROW.match(line)
        if row:
            yield number, row


def _first_line(tree, row):
    """Where the file has the operation; nothing if nowhere."""
    file = tree.files.get(row["path"])
    lines = enumerate(file.code_lines, 1) if file else ()
    return next((number for number, line in lines if row["operation"] in line), None)


def operations_stand_where_the_document_says(tree):
    for number, row in _rows(tree.files[DOCUMENT]) if DOCUMENT in tree.files else ():
        if str(_first_line(tree, row)) != row["line"]:
            yield Finding(DOCUMENT, number, "places",
                          f"{row['operation']} is not at line {row['line']} of {row['path']}, or not first there; "
                          f"scripts/lib/check/places.py puts the numbers right")


def sources_stand_in_the_document(tree):
    if DOCUMENT not in tree.files:
        return
    named = {row["path"] for _, row in _rows(tree.files[DOCUMENT])}
    for file in tree.cpp_files:
        if file.path.startswith(SOURCES) and file.suffix in (".cpp", ".mm") and file.path not in named:
            yield Finding(file.path, 1, "places", f"{DOCUMENT} names nothing of this file; add the operations that it uses")


def calls_stand_in_the_document(tree):
    if DOCUMENT not in tree.files:
        return
    named = set()
    for _, row in _rows(tree.files[DOCUMENT]):
        named.update(re.findall(r"\w+", row["operation"]))
    for file in tree.cpp_files:
        if not file.path.startswith(SOURCES):
            continue
        for number, line in enumerate(file.code_lines, 1):
            for call in _CALL.findall(line):
                if call not in named and not _LEFT_OUT.fullmatch(call):
                    named.add(call)
                    yield Finding(file.path, number, "places", f"{DOCUMENT} does not name {call}")


RULES = [operations_stand_where_the_document_says, sources_stand_in_the_document, calls_stand_in_the_document]


def mend(root):
    tree = SourceTree(root)
    lines = tree.files[DOCUMENT].lines
    for number, row in _rows(tree.files[DOCUMENT]):
        place = _first_line(tree, row)
        if place:
            lines[number - 1] = lines[number - 1].replace(f":{row['line']}](", f":{place}](").replace(f"#L{row['line']})",
                                                                                                  f"#L{place})")
    (root / DOCUMENT).write_text("\n".join(lines) + "\n")


if __name__ == "__main__":
    mend(Path(__file__).resolve().parents[3])
