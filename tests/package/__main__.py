"""Has the Debian package installed, used, upgraded, removed and purged in a fresh Debian 12, a line for each thing seen.

    python3 -B tests/package FOLDER OLD.deb NEW.deb        as root, in a mount and process namespace of its own
"""

import shutil
import sys
import time
from pathlib import Path

from installation import Installation
from small_debian import SmallDebian
from use import Use

# What apt and dpkg keep for themselves, caches that are made of all packages' files, what the user has, and what does not
# outlive the system.
NOT_COMPARED = ("/var/lib/dpkg", "/var/lib/apt", "/var/cache/apt", "/var/log", "/var/cache/ldconfig", "/var/cache/man",
                "/proc", "/sys", "/dev", "/run", "/tmp", "/home/ann")


class Report:
    def __init__(self):
        self.failed = 0
        self.passed = 0

    def see(self, what, check):
        began = time.monotonic()
        word, reason = "ok", None
        try:
            check()
            self.passed += 1
        except Exception as wrong:  # pylint: disable=broad-except
            word, reason = "FAILED", wrong
            self.failed += 1
        print(f"  {word:<7} {what:<78} {time.monotonic() - began:5.1f} s", flush=True)
        if reason is not None:
            print(f"    | {type(reason).__name__}: {reason}", flush=True)


def main(folder, old, new):
    began = time.monotonic()
    report = Report()
    debian = SmallDebian(Path(folder))
    debian.make()
    print(f"  a fresh Debian 12 with a desktop: {time.monotonic() - began:.0f} s", flush=True)
    for package in (old, new):
        shutil.copy(package, debian.path("/opt"))
    before = debian.files(NOT_COMPARED)
    installation = Installation(debian, Path("/opt") / Path(old).name, Path("/opt") / Path(new).name)
    for what, check in [*installation.first(), *Use(debian, installation).checks(), *installation.last(before, NOT_COMPARED)]:
        report.see(what, check)
    print(f"  Names of files were compared everywhere but below {' '.join(NOT_COMPARED)}")
    debian.end(keep=report.failed > 0)
    print(f"  {report.passed} passed, {report.failed} failed in {time.monotonic() - began:.0f} s", flush=True)
    return 1 if report.failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
