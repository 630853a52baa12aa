"""Counts the tests of all runs from what they left behind, and ends with one line: N passed, N failed, N skipped.

usage: results.py FAILED-STEPS STAGE ...
A stage is the JUnit file of one ctest call; it names the runs that were due. Each run leaves GoogleTest XML in
the folder results/ next to it. A run that left none, or none that can be read, or that holds no test, or that
ended badly after all its tests passed, counts as one failure.
"""

import sys
import xml.etree.ElementTree as xml
from dataclasses import dataclass, field
from pathlib import Path


@dataclass
class Count:
    passed: int = 0
    failures: list = field(default_factory=list)
    skips: list = field(default_factory=list)


def _outcome(case, name, count):
    skipped, failure = case.find("skipped"), case.find("failure")
    if failure is not None:
        message = failure.get("message") or ""
        count.failures.append(f"{name} ({message.partition(chr(10))[0]})")
    elif skipped is not None or case.get("status") == "notrun":
        reason = (skipped.get("message") or skipped.text or "") if skipped is not None else "disabled"
        lines = [line.strip() for line in reason.splitlines() if line.strip()]
        count.skips.append(f"{name}: {lines[-1] if lines else 'no reason given'}")
    else:
        count.passed += 1


def _count_run(run, ended_well, results, count):
    try:
        cases = list(xml.parse(results).iter("testcase"))
    except (OSError, xml.ParseError):
        count.failures.append(f"{run}: ended without results")
        return
    failures_before = len(count.failures)
    for case in cases:
        _outcome(case, f"{run}: {case.get('classname')}.{case.get('name')}", count)
    if not cases:
        count.failures.append(f"{run}: ran no test")
    elif not ended_well and len(count.failures) == failures_before:
        count.failures.append(f"{run}: ended badly after its tests")


def count_stages(stages):
    count = Count()
    for stage in map(Path, stages):
        preset = stage.parent.name
        for case in xml.parse(stage).iter("testcase"):
            name = case.get("name")
            _count_run(f"{preset} {name}", case.get("status") == "run", stage.parent / "results" / f"{name}.xml", count)
    return count


def _print_list(title, lines):
    if lines:
        print(title)
        print("".join(f"  {line}\n" for line in lines), end="")


def main(failed_steps, *stages):
    count = count_stages(stages)
    _print_list("Skipped:", count.skips)
    _print_list("Failed:", count.failures)
    failed = len(count.failures) + int(failed_steps)
    print(f"{count.passed} passed, {failed} failed, {len(count.skips)} skipped")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
