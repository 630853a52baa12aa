"""Shell scripts parse, and shellcheck finds nothing in them."""

import re
import shutil
import subprocess

from source_tree import Finding

_PARSE_ERROR = re.compile(r"line (\d+): (.*)")
_SHELLCHECK = re.compile(r"^[^:\n]+:(\d+):\d+: \w+: (.*)$", re.MULTILINE)


def is_shell(file):
    first = file.lines[0] if file.lines else ""
    sourced = file.suffix == "" and "\n# shellcheck shell=" in file.text
    return file.suffix == ".sh" or sourced or bool(re.match(r"#!.*\b(ba)?sh\b", first))


def _run(tree, *command):
    return subprocess.run(command, cwd=tree.root, capture_output=True, text=True, check=False)


def _check(tree, path):
    parsed = _run(tree, "bash", "-n", path)
    if parsed.returncode:
        found = _PARSE_ERROR.search(parsed.stderr)
        yield Finding(path, int(found.group(1)) if found else 1, "shell",
                      f"bash cannot parse this: {found.group(2) if found else parsed.stderr.strip()}")
    elif shutil.which("shellcheck"):
        for found in _SHELLCHECK.finditer(_run(tree, "shellcheck", "--format=gcc", "-x", path).stdout):
            yield Finding(path, int(found.group(1)), "shell", found.group(2))


def check(tree):
    return [finding for file in tree.files.values() if is_shell(file) for finding in _check(tree, file.path)]
