"""Outcomes kept by the content they depend on, so that what has not changed is not looked at again."""

import hashlib
import json
from pathlib import Path


class Cache:
    """A folder of small JSON files. Only clean outcomes are worth keeping: a failing one runs again."""

    def __init__(self, folder):
        self.folder = Path(folder)
        self.folder.mkdir(parents=True, exist_ok=True)

    def get(self, key):
        try:
            return json.loads((self.folder / key).read_text())
        except (OSError, ValueError):
            return None

    def put(self, key, value):
        part = self.folder / f"{key}.part"
        part.write_text(json.dumps(value))
        part.replace(self.folder / key)


def key_of(tree, paths, *settings):
    """One key for the named files, every project header they reach, and the settings."""
    everything = set(paths)
    for path in paths:
        everything |= tree.reached_from(path)[0]
    digest = hashlib.sha256(repr(settings).encode())
    for path in sorted(everything):
        digest.update(f"\n{path}\n{tree.files[path].text}".encode())
    return digest.hexdigest()[:40]
