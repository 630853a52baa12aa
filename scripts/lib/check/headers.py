"""Every header compiles alone: nobody needs to know what to include before it."""

import re
import subprocess
import sys

from cache import Cache, key_of
from source_tree import Finding

_ERROR = re.compile(r"^(?P<file>[^:\n]+):(?P<line>\d+):(?:\d+:)? (?:fatal )?error: (?P<text>.*)$", re.MULTILINE)

# Headers of the other system's frameworks cannot be compiled here; there they are.
ONLY_ON_MACOS = () if sys.platform == "darwin" else ("platform/macos/", "tests/macos/")


def _proved_by_its_source(file, tree, database):
    """A source that includes its own header first has compiled that header alone already."""
    source = file.path.rsplit(".", 1)[0] + ".cpp"
    includes = tree.files[source].includes if source in database.entries else []
    return bool(includes) and includes[0].name == file.path


def _compile(file, tree, entry):
    command = [entry.compiler, *entry.flags, "-fsyntax-only", "-include", file.path, "-x", "c++", "/dev/null"]
    run = subprocess.run(command, cwd=tree.root, capture_output=True, text=True, check=False)
    if run.returncode == 0:
        return []
    found = _ERROR.search(run.stderr)
    line = int(found.group("line")) if found and found.group("file").endswith(file.path) else 1
    text = found.group("text") if found else run.stderr.strip().splitlines()[-1]
    return [Finding(file.path, line, "header-alone", f"does not compile alone ({text}); include what it uses")]


def jobs(tree, database, cache_folder):
    """One callable per header that must be compiled, each giving its findings."""
    cache = Cache(cache_folder)
    for file in tree.headers:
        if file.path.startswith(ONLY_ON_MACOS) or _proved_by_its_source(file, tree, database):
            continue
        entry = database.entry_for_header(file.path)
        if entry is None:
            continue
        key = key_of(tree, [file.path], entry.compiler, entry.flags)
        if cache.get(key) is None:
            yield _job(file, tree, entry, cache, key)


def _job(file, tree, entry, cache, key):
    def run():
        findings = _compile(file, tree, entry)
        if not findings:
            cache.put(key, [])
        return findings

    return run
