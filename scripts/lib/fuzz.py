"""Runs one fuzz target for a while and says how far it came.

usage: fuzz.py BUILD-FOLDER NAME SECONDS
Starts from the seeds in fuzz/corpus/NAME, which stay as they are, and from what earlier runs found worth keeping
in BUILD-FOLDER/corpus/NAME. An input that breaks the target is kept in BUILD-FOLDER/found/NAME and ends the run.
As a test run (GTEST_OUTPUT is set) it leaves its one result there, in GoogleTest's XML.
"""

import os
import re
import subprocess
import sys
from pathlib import Path

import googletest_xml

ROOT = Path(__file__).resolve().parents[2]
# An input is at most some kilobytes: what takes that long or that much grows faster than it.
LIMITS = ["-timeout=5", "-rss_limit_mb=1024", "-malloc_limit_mb=256"]


def _folder(path):
    path.mkdir(parents=True, exist_ok=True)
    return path


def _command(build, name, seconds):
    seeds = ROOT / "fuzz/corpus" / name
    return [build / f"fuzz-{name}", f"-max_total_time={seconds}", *LIMITS, "-print_final_stats=1",
            f"-artifact_prefix={_folder(build / 'found' / name)}/", _folder(build / "corpus" / name),
            *([seeds] if seeds.is_dir() else [])]


def _watched(command):
    """The exit status and the whole output, shown as it comes."""
    lines = []
    environment = {**os.environ, "UBSAN_OPTIONS": "print_stacktrace=1",
                   "ASAN_OPTIONS": "quarantine_size_mb=64"}
    with subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace",
                          env=environment) as run:
        for line in run.stdout:
            lines.append(line)
            print(line, end="")
    return run.returncode, "".join(lines)


def _failure(status, output):
    """What to say about a run that ended badly; nothing about one that ended well."""
    if status == 0:
        return None
    reason = re.search(r"(?:^Tilwin: |ERROR: \w+: |runtime error: )(.*)", output, re.MULTILINE)
    kept = re.search(r"Test unit written to (\S+)", output)
    return f"{reason.group(1) if reason else f'ended with status {status}'}; " \
           f"the input is {kept.group(1) if kept else 'not kept'}"


def main(build, name, seconds):
    status, output = _watched(_command(Path(build).resolve(), name, seconds))
    failure = _failure(status, output)
    googletest_xml.write("Fuzz", [(name, failure)])
    executions = re.search(r"stat::number_of_executed_units:\s*(\d+)", output)
    print(f"fuzz {name}: {executions.group(1) if executions else 'unknown'} executions; {failure or 'nothing found'}")
    return 1 if failure else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
