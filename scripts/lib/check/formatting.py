"""Every C++ file is what clang-format makes of it."""

import re
import subprocess

from source_tree import Finding

_MESSAGE = re.compile(r"^(?P<file>[^:\n]+):(?P<line>\d+):\d+: error:", re.MULTILINE)


def check(tree):
    files = [file.path for file in tree.cpp_files]
    if not files:
        return []
    run = subprocess.run(["clang-format", "--dry-run", "-Werror", *files], cwd=tree.root,
                         capture_output=True, text=True, check=False)
    first_lines = {}
    for match in _MESSAGE.finditer(run.stderr):
        first_lines.setdefault(match.group("file"), int(match.group("line")))
    findings = [Finding(file, line, "format", f"not formatted from here on; run: clang-format -i {file}")
                for file, line in first_lines.items()]
    if run.returncode and not findings:
        raise RuntimeError(f"clang-format failed: {run.stderr.strip()}")
    return findings
