"""Counts the tests of all runs and ends with one line: N passed, N failed, N skipped.

usage: results.py FAILED-STEPS BUILD-FOLDER ...
In each build folder ctest has left results.xml, which names the runs that were due; each run has left results/RUN.xml,
by GoogleTest or pytest. A run without such a file that can be read, or that holds no test, or that ended badly after
all its tests passed, counts as one failure. Fuzz targets leave none: each is one test.
"""

import sys
import xml.etree.ElementTree as xml
from pathlib import Path

passed, failures, skips = 0, [], []


def reason(element, line):
    lines = [text.strip() for text in (element.get("message") or element.text or "").splitlines() if text.strip()]
    return lines[line] if lines else "no reason given"


def count_case(case, name):
    global passed
    wrong = [child for child in case if child.tag in ("failure", "error")]
    skipped = case.find("skipped")
    if wrong or case.get("status") == "fail":
        failures.append(f"{name}: {reason(wrong[0] if wrong else case, 0)}")
    elif skipped is not None or case.get("status") in ("notrun", "disabled"):
        skips.append(f"{name}: {reason(skipped if skipped is not None else case, -1)}")  # after its place
    else:
        passed += 1


def count_run(run, name, results):
    failures_before = len(failures)
    try:
        cases = list(xml.parse(results).iter("testcase"))
    except (OSError, xml.ParseError):
        failures.append(f"{name}: ended without results")
        return
    for case in cases:
        count_case(case, f"{name}: {case.get('classname')}.{case.get('name')}")
    if not cases:
        failures.append(f"{name}: ran no test")
    elif run.get("status") != "run" and len(failures) == failures_before:
        failures.append(f"{name}: ended badly after its tests")


def count_build(folder):
    try:
        runs = list(xml.parse(folder / "results.xml").iter("testcase"))
    except (OSError, xml.ParseError):
        failures.append(f"{folder.name}: its tests were not run")
        return
    for run in runs:
        name = run.get("name")
        if name.startswith("fuzz-"):
            count_case(run, name)
        else:
            count_run(run, f"{folder.name} {name}", folder / "results" / f"{name}.xml")


for build_folder in sys.argv[2:]:
    count_build(Path(build_folder))
for title, lines in (("Skipped:", skips), ("Failed:", failures)):
    if lines:
        print(title, *lines, sep="\n  ")
failed = len(failures) + int(sys.argv[1])
print(f"{passed} passed, {failed} failed, {len(skips)} skipped")
sys.exit(1 if failed else 0)
