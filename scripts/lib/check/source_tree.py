"""The project's files as the rules see them: paths from the root, lines, and code without comments."""

import functools
import os
import re
from dataclasses import dataclass
from pathlib import Path

CPP_SUFFIXES = {".h", ".hpp", ".cpp", ".cc", ".mm", ".m"}
HEADER_SUFFIXES = {".h", ".hpp"}
# What fuzzing starts from is bytes, not text.
SEEDS = "fuzz/corpus/"
NOT_OURS = {".git", ".cache", "build", "__pycache__"}

# Comments and raw strings are blanked; ordinary strings are matched so that "//" inside them is left alone.
_TOKENS = re.compile(
    r'R"(?P<mark>[^()\\ ]{0,16})\((?:.|\n)*?\)(?P=mark)"'
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])*'"
    r"|//[^\n]*"
    r"|/\*(?:.|\n)*?\*/"
)
_INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\b\s*(?P<target><[^>]+>|"[^"]+"|\S+)?')


@dataclass(frozen=True)
class Include:
    line: int
    name: str  # without brackets or quotes
    is_system: bool  # written <like this>


@dataclass(frozen=True)
class Finding:
    file: str
    line: int
    rule: str
    text: str  # what is wrong, and what to do instead

    def __str__(self):
        return f"{self.file}:{self.line}: {self.text} [{self.rule}]"


def _blank(match):
    token = match.group()
    if token.startswith(("//", "/*", "R")):
        return re.sub(r"[^\n]", " ", token)
    return token


class SourceFile:
    def __init__(self, root, path):
        self.path = path
        self.suffix = Path(path).suffix
        data = (root / path).read_bytes()
        self.is_text = b"\0" not in data
        self.text = data.decode("utf-8", errors="replace") if self.is_text else ""

    @functools.cached_property
    def lines(self):
        return self.text.splitlines()

    @functools.cached_property
    def code_lines(self):
        """The lines with comments and raw strings blanked: numbers and columns stay as they are."""
        return _TOKENS.sub(_blank, self.text).splitlines()

    @functools.cached_property
    def includes(self):
        found = []
        for number, line in enumerate(self.code_lines, 1):
            match = _INCLUDE.match(line)
            if match:
                target = match.group("target") or ""
                found.append(Include(number, target.strip('<>"'), target.startswith("<")))
        return found


class SourceTree:
    """Every file under the root that belongs to the project, in order of path."""

    def __init__(self, root):
        self.files = {}
        for folder, subfolders, names in os.walk(root):
            subfolders[:] = sorted(set(subfolders) - NOT_OURS)
            for name in sorted(names):
                path = os.path.relpath(os.path.join(folder, name), root)
                if not os.path.islink(root / path) and not name.endswith(".swp"):
                    self.files[path] = SourceFile(root, path)
        files = self.files.values()
        self.text_files = [file for file in files if file.is_text and not file.path.startswith(SEEDS)]
        self.cpp_files = [file for file in files if file.suffix in CPP_SUFFIXES]
        self.headers = [file for file in files if file.suffix in HEADER_SUFFIXES]

    @functools.cache
    def system_headers_reached_from(self, path):
        """The system headers that this file includes, directly or through project headers."""
        project, system, waiting = {path}, set(), [path]
        while waiting:
            for include in self.files[waiting.pop()].includes:
                if include.is_system:
                    system.add(include.name)
                elif include.name in self.files and include.name not in project:
                    project.add(include.name)
                    waiting.append(include.name)
        return system
