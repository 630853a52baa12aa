"""clang-tidy over every source of the compile database.

Going through the system headers takes seconds and going through a source takes next to nothing, so the sources
of a top folder that are built alike are linted together, as one translation unit. Sources whose private names clash
are found by the errors that makes and are linted apart.
"""

import dataclasses
import hashlib
import re
import subprocess
from pathlib import Path

from cache import Cache, key_of
from source_tree import Finding

TOGETHER = 20  # sources in one translation unit
APART = ("fuzz",)  # folders whose sources all define the same function
FOLDERS = ("core", "app", "platform", "tests", "bench", "fuzz")
FUNCTION_LINES = 30  # as in .clang-tidy

_MESSAGE = re.compile(
    r"^(?P<file>/[^:\n]+):(?P<line>\d+):\d+: (?P<kind>warning|error|fatal error|note): (?P<text>.*?)(?: \[(?P<check>[\w.,-]+)\])?$"
)
_LENGTH = re.compile(r"(\d+) lines including whitespace")
_CLANG_ONLY = ("-Wno-unknown-warning-option", "-Wno-unused-command-line-argument")


def _packed(entries):
    """Groups as large as they may be, of sources that can stand in one unit."""
    packed = []
    for entry in entries:
        lone = entry.path.startswith(APART)
        is_main = entry.path.endswith("/main.cpp")
        room = (group for group in packed if not lone and len(group) < TOGETHER
                and not (is_main and group[-1].path.endswith("/main.cpp")))
        group = next(room, None)
        if group is None:
            packed.append([entry])
        elif is_main:
            group.append(entry)
        else:
            group.insert(0, entry)  # a main stays last, where it is seen
    return packed


def groups(tree, database):
    """Lists of sources to lint together: from the same top folder, same flags, in order of path."""
    alike = {}
    for path in sorted(database.entries):
        if path.startswith(FOLDERS) and path in tree.files:
            entry = database.entries[path]
            alike.setdefault((path.split("/")[0], entry.flags), []).append(entry)
    for entries in alike.values():
        yield from _packed(entries)


def _hint(message):
    """clang 14 cannot read all of the <ranges> of g++ 12: what gives back a subrange."""
    if "ranges" in message.group("text") or "__begin" in message.group("text"):
        return "; clang cannot read this std::ranges function, use its elder in std::"
    return ""


def _messages(output):
    """Each warning or error of a compiler's output with the notes that follow it."""
    message, notes = None, []
    for match in filter(None, map(_MESSAGE.match, output.splitlines())):
        if match.group("kind") == "note":
            notes.append(match)
            continue
        if message:
            yield message, notes
        message, notes = match, []
    if message:
        yield message, notes


def _parted(entries, blamed):
    """The group without those that are blamed, and they; each alone when that would part nothing."""
    if len(blamed) == len(entries):
        return [[entry] for entry in entries]
    return [[entry for entry in entries if (entry.path in blamed) == among] for among in (False, True)]


class Linter:
    def __init__(self, tree, work_folder):
        self.tree = tree
        self.work_folder = Path(work_folder)
        self.cache = Cache(self.work_folder / "cache")
        self.config = tree.files[".clang-tidy"].text
        self.headers = f"^{re.escape(str(tree.root))}/({'|'.join(FOLDERS)})/"

    def job(self, entries):
        """A callable that lints the group, or nothing when what is cached still holds: then its findings."""
        key = key_of(self.tree, [entry.path for entry in entries], entries[0].flags, self.config)
        kept = self.cache.get(key)
        if kept is not None:
            return None, [Finding(**finding) for finding in kept]
        return (lambda: self._lint(entries, key)), []

    def _lint(self, entries, key):
        findings = self._tidy(entries)
        if all(finding.is_warning for finding in findings):
            self.cache.put(key, [dataclasses.asdict(finding) for finding in findings])
        return findings

    def _unit_file(self, entries):
        if len(entries) == 1:
            return self.tree.root / entries[0].path
        text = "".join(f'#include "{self.tree.root / entry.path}"\n' for entry in entries)
        unit = self.work_folder / f"{hashlib.sha256(text.encode()).hexdigest()[:16]}.cpp"
        unit.write_text(text)
        return unit

    def _tidy(self, entries):
        """Findings of the group as one unit; without those sources it does not compile with, they apart."""
        command = ["clang-tidy", "--quiet", f"--config-file={self.tree.root / '.clang-tidy'}",
                   f"--header-filter={self.headers}", self._unit_file(entries), "--", *entries[0].flags, *_CLANG_ONLY]
        run = subprocess.run(command, cwd=self.tree.root, capture_output=True, text=True, check=False)
        messages = list(_messages(run.stdout))
        blamed = self._blamed(messages, entries) if len(entries) > 1 else set()
        if blamed:
            parts = _parted(entries, blamed)
            return [finding for part in parts for finding in self._tidy(part)]
        findings = [finding for message in messages for finding in self._finding(*message)]
        if run.returncode and not findings:
            last = ((run.stdout + run.stderr).strip().splitlines() or ["without a word"])[-1]
            findings = [Finding(entries[0].path, 1, "lint", f"clang-tidy failed: {last}")]
        return findings

    def _blamed(self, messages, entries):
        """The sources that compile errors stand in; all, when they stand elsewhere."""
        paths = {entry.path for entry in entries}
        errors = [message for message in messages if message[0].group("check") == "clang-diagnostic-error"]
        places = filter(None, (self._place(*message) for message in errors))
        return ({self._path(place) for place in places} & paths or paths) if errors else set()

    def _place(self, message, notes):
        """Where in the project a message points: itself, else the first of its notes that is not elsewhere."""
        return next((match for match in [message, *notes] if self._path(match) in self.tree.files), None)

    def _finding(self, message, notes):
        place = self._place(message, notes)
        if place is None:  # in the unit made here, not in the project
            return
        check, text = message.group("check") or "lint", message.group("text")
        if check == "readability-function-size":
            yield self._too_long(place, text, notes)
            return
        if place is not message:
            text = f"{text} (in {Path(message.group('file')).name}, because of this line{_hint(message)})"
        yield Finding(self._path(place), int(place.group("line")), check, text)

    def _path(self, match):
        return match.group("file").removeprefix(f"{self.tree.root}/")

    def _too_long(self, place, text, notes):
        length = next(found for note in notes if (found := _LENGTH.search(note.group("text")))).group(1)
        return Finding(self._path(place), int(place.group("line")), "function-size",
                       f"{text.split(chr(39))[1]} has {length} lines, more than {FUNCTION_LINES}; "
                       f"give a part of it a name of its own", is_warning=True)
