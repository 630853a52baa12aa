"""Does once more what failed in a run of ctest, alone and in peace, and names what passes then.

usage: again.py BUILD-FOLDER SECONDS
Reads results.xml and results/RUN.xml as ctest and GoogleTest left them. Where only some tests of a program failed, only
those run again; a program that left no results, or is none of GoogleTest, runs again whole, for SECONDS at most. What
passes is a pass in these files too, so that it is counted as one. Ends with 1 if something failed again.
"""

import json
import os
import subprocess
import sys
import xml.etree.ElementTree as xml
from pathlib import Path


def failed_cases(path):
    try:
        cases = list(xml.parse(path).iter("testcase"))
    except (OSError, xml.ParseError):
        return []
    return [case for case in cases if case.find("failure") is not None]


def name_of(case):
    return f"{case.get('classname')}.{case.get('name')}"


def environment(test):
    rows = next((entry["value"] for entry in test["properties"] if entry["name"] == "ENVIRONMENT"), [])
    return dict(row.split("=", 1) for row in rows)


def run(test, more, variables, longest):
    folder = next(entry["value"] for entry in test["properties"] if entry["name"] == "WORKING_DIRECTORY")
    try:
        return subprocess.run(test["command"] + more, cwd=folder, env={**os.environ, **environment(test), **variables},
                              stdin=subprocess.DEVNULL, timeout=longest, check=False).returncode == 0
    except subprocess.TimeoutExpired:
        return False


def passes_cases(test, results, longest):
    """Those that failed, again; in `results` they have passed then."""
    again = results.with_suffix(".again.xml")
    names = [name_of(case) for case in failed_cases(results)]
    passed = run(test, [f"--gtest_filter={':'.join(names)}"], {"GTEST_OUTPUT": f"xml:{again}"}, longest)
    seen = {name_of(case) for case in xml.parse(again).iter("testcase") if case.get("status") == "run"} if passed else set()
    again.unlink(missing_ok=True)
    if not seen.issuperset(names):
        return False
    tree = xml.parse(results)
    for case in tree.iter("testcase"):
        for failure in case.findall("failure"):
            case.remove(failure)
    tree.write(results, encoding="UTF-8", xml_declaration=True)
    print(*(f"failed once: {name}" for name in names), sep="\n", flush=True)
    return True


def passes(test, results, longest):
    if "GTEST_OUTPUT" in environment(test) and failed_cases(results):
        return passes_cases(test, results, longest)
    if not run(test, [], {}, longest):
        return False
    print(f"failed once: {test['name']}, all of it", flush=True)
    return True


def main():
    build, longest = Path(sys.argv[1]).resolve(), float(sys.argv[2])
    listing = subprocess.run(["ctest", "--test-dir", build, "--show-only=json-v1"], stdout=subprocess.PIPE, check=True)
    tests = {test["name"]: test for test in json.loads(listing.stdout)["tests"]}
    tree = xml.parse(build / "results.xml")
    failed = [entry for entry in tree.iter("testcase") if entry.get("status") != "run"]
    passed = [entry for entry in failed
              if passes(tests[entry.get("name")], build / "results" / f"{entry.get('name')}.xml", longest)]
    for entry in passed:
        entry.set("status", "run")
    tree.write(build / "results.xml", encoding="UTF-8", xml_declaration=True)
    sys.exit(len(passed) < len(failed))


main()
