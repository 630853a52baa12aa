"""Prints what was tested under each window manager, as a table, and compares it with the one in docs/desktops.md.

usage: desktops.py BUILD-FOLDER ... [--write]
Reads results/desktop-*.xml in the build folders, as left by runs of all tests of the presets asan and release, and
tests/desktop/cannot.txt. A test that failed in one of them shows as FAILED, a manager that was not run is missing; either differs from
what the document says. --write puts the table into the document instead.
"""

import re
import sys
import xml.etree.ElementTree as xml
from fnmatch import fnmatchcase
from pathlib import Path

DOCUMENT = Path("docs/desktops.md")
CANNOT = Path("tests/desktop/cannot.txt")
BEGIN, END = "<!-- table -->\n", "<!-- end of table -->\n"
MANAGERS = ("openbox", "xfwm4", "metacity", "kwin", "icewm", "fluxbox", "jwm", "marco", "i3", "herbstluftwm", "windowmaker",
            "awesome", "bspwm")
ABILITIES = (
    ("Shortcuts", r"Shortcuts\."),
    ("Windows", r"Windows\.(?!.*(Maximised|FullScreen|Panel))|LargeWindows\.|Terminals\."),
    ("States", r"Windows\..*(Maximised|FullScreen)|MaximizedWindows\."),
    ("Panels", r"(Windows|Displays)\..*Panel"),
    ("Own bar", r"OwnBars\."),
    ("Displays", r"(Displays\.(?!.*Panel)|HandMadeMonitors\.)"),
    ("Drags", r"Drags\."),
    ("Its tiles", r"OwnTiles\."),
    ("All tiled", r"TiledWindows\."),
    ("Trouble", r"Trouble\."),
    ("Changes", r"ManagerChanges\."),
    ("Commands", r"Commands(Alone)?\.|Doctor\."),
)


def outcomes(builds, manager):
    """Test name to whether it passed, of all runs under the manager."""
    result = {}
    runs = [build / "results" / f"{run}-{manager}.xml" for build in builds for run in ("desktop", "desktop-drags")]
    for path in filter(Path.exists, runs):
        for case in xml.parse(path).iter("testcase"):
            if case.get("status") == "run":
                name = f"{case.get('classname')}.{case.get('name')}"
                result[name] = result.get(name, True) and case.find("failure") is None
    return result


def exceptions():
    """Managers, patterns and reason; rows that differ in their pattern only are one."""
    patterns = {}
    for line in CANNOT.read_text().splitlines():
        if line and not line.startswith("#"):
            managers, pattern, reason = line.split(" | ")
            patterns.setdefault((managers, reason), []).append(pattern)
    return [(managers.split(","), of, reason) for (managers, reason), of in patterns.items()]


def explains(row, manager, test):
    managers, patterns, _ = row
    return manager in managers and any(fnmatchcase(test, pattern) for pattern in patterns)


def cell(manager, wanted, seen, rows):
    if any(not seen[test] for test in wanted if test in seen):
        return "FAILED"
    missing = [test for test in wanted if test not in seen]
    if not missing:
        return "yes"
    notes = [number for number, row in enumerate(rows, 1) if any(explains(row, manager, test) for test in missing)]
    if not all(any(explains(row, manager, test) for row in rows) for test in missing):
        return "NOT RUN"
    return ("no" if len(missing) == len(wanted) else "partly") + " " + ", ".join(f"({number})" for number in notes)


def table(builds):
    seen = {manager: outcomes(builds, manager) for manager in MANAGERS}
    rows = exceptions()
    everything = sorted(set().union(*seen.values()))
    lines = ["| | " + " | ".join(name for name, _ in ABILITIES) + " |", "|---" * (len(ABILITIES) + 1) + "|"]
    for manager in MANAGERS:
        cells = [cell(manager, [test for test in everything if re.match(pattern, test)], seen[manager], rows)
                 for _, pattern in ABILITIES]
        lines.append(f"| {manager} | " + " | ".join(cells) + " |")
    notes = [f"{number}. {', '.join(managers)}: {reason}. Not run: {', '.join(f'`{pattern}`' for pattern in patterns)}"
             for number, (managers, patterns, reason) in enumerate(rows, 1)]
    return "\n".join(lines + [""] + notes) + "\n"


def main():
    found = table([Path(argument) for argument in sys.argv[1:] if not argument.startswith("--")])
    before, rest = DOCUMENT.read_text().split(BEGIN)
    written, after = rest.split(END)
    print(found, end="")
    if "--write" in sys.argv[2:]:
        DOCUMENT.write_text(before + BEGIN + found + END + after)
    elif written != found:
        print(f"{DOCUMENT} says otherwise.")
        sys.exit(1)


main()
