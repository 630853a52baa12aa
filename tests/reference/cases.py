"""Prints random cases with their expected answers: cases.py KIND SEED COUNT. README.md lists the columns."""

import sys
from random import Random

from half_hour_script import half_hour_lines
from lesson_cases import lesson_lines
from neighbour_cases import neighbour_lines
from recording_cases import recording_lines
from summary_cases import summary_lines
from trace_cases import trace_lines

KINDS = {
    "lessons": lesson_lines,
    "traces": trace_lines,
    "neighbours": neighbour_lines,
    "recordings": recording_lines,
    "summaries": summary_lines,
    "halfhours": half_hour_lines,
}


def main(arguments: list[str]) -> int:
    """Writes the cases asked for; 2 when the request cannot be read."""
    if len(arguments) != 3 or arguments[0] not in KINDS:
        print(f"usage: cases.py {'|'.join(KINDS)} SEED COUNT", file=sys.stderr)
        return 2
    kind, seed, count = arguments[0], int(arguments[1]), int(arguments[2])
    for line in KINDS[kind](Random(seed), count):
        sys.stdout.write(line + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
