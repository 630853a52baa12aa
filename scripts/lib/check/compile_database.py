"""The flags each source file is built with, from a build folder's compile_commands.json."""

import json
import os
import shlex
from dataclasses import dataclass
from pathlib import Path

_WITH_VALUE = {"-o", "-MF", "-MT", "-MQ"}
_DROPPED = {"-c", "-MD", "-MMD", "-Werror", "-Winvalid-pch"}
_PRECOMPILED = "/cmake_pch.hxx"  # made for one compiler, and hides what a source forgot to include


@dataclass(frozen=True)
class Entry:
    path: str  # from the root
    compiler: str
    flags: tuple


def _flags(arguments, source):
    kept, arguments = [], iter(arguments)
    for argument in arguments:
        if argument in _WITH_VALUE:
            next(arguments, None)
        elif argument == "-include":
            header = next(arguments)
            if not header.endswith(_PRECOMPILED):
                kept += [argument, header]
        elif argument not in _DROPPED and argument != source:
            kept.append(argument)
    return tuple(kept)


class CompileDatabase:
    def __init__(self, root, build_folder):
        self.build_folder = Path(build_folder)
        self.entries = {}
        for command in json.loads((self.build_folder / "compile_commands.json").read_text()):
            source = os.path.normpath(os.path.join(command["directory"], command["file"]))
            path = os.path.relpath(source, root)
            if not path.startswith(("..", "build/")):
                compiler, *arguments = shlex.split(command["command"])
                self.entries[path] = Entry(path, compiler, _flags(arguments, command["file"]))

    def entry_for_header(self, path):
        """How a header is built: as the source next to it, else as the source whose folder is nearest."""

        def nearness(entry):
            same_name = os.path.splitext(entry.path)[0] == os.path.splitext(path)[0]
            return (same_name, len(os.path.commonpath([os.path.dirname(entry.path), os.path.dirname(path)])))

        return max(self.entries.values(), key=nearness, default=None)
