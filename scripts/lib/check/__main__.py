"""Holds the project against its own rules: format, shells, walls between folders, texts, headers, lint."""

import argparse
import os
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import formatting
import headers
import lint
import self_test
import shells
import texts
import walls
from compile_database import CompileDatabase
from source_tree import SourceTree


def _quick_findings(tree):
    """What takes a second or two: everything that need not compile anything."""
    for rule in [*walls.RULES, *texts.RULES, shells.check, formatting.check]:
        yield from rule(tree)


def _compiled_findings(tree, database, folder, workers):
    """Headers alone and lint, side by side on every core, the long ones first."""
    linter = lint.Linter(tree, folder / "lint")
    waiting, findings = [], []
    for entries in sorted(lint.groups(tree, database), key=len, reverse=True):
        job, kept = linter.job(entries)
        findings += kept
        if job:
            waiting.append(job)
    waiting += headers.jobs(tree, database, folder / "headers")
    with ThreadPoolExecutor(workers) as pool:
        for found in pool.map(lambda job: job(), waiting):
            findings += found
    return findings


def _print_findings(findings):
    unique = sorted(set(findings), key=lambda finding: (finding.is_warning, finding.file, finding.line, finding.rule))
    for finding in unique:
        print(finding)
    warnings = sum(finding.is_warning for finding in unique)
    return len(unique) - warnings, warnings


def _arguments():
    parser = argparse.ArgumentParser(prog="scripts/check", description=__doc__)
    parser.add_argument("--quick", action="store_true", help="only what compiles nothing: no lint, no headers")
    parser.add_argument("--self-test", action="store_true", help="break every rule in a sample and see it reported")
    parser.add_argument("--root", type=Path, default=Path(__file__).resolve().parents[3])
    parser.add_argument("--build", type=Path, default=Path("build/check"),
                        help="the build folder whose compile database is used (default: build/check)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    return parser.parse_args()


def main():
    arguments = _arguments()
    if arguments.self_test:
        return self_test.main()
    began = time.monotonic()
    tree = SourceTree(arguments.root)
    findings = list(_quick_findings(tree))
    if not arguments.quick:
        database = CompileDatabase(tree.root, tree.root / arguments.build)
        findings += _compiled_findings(tree, database, tree.root / "build/check", arguments.jobs)
    errors, warnings = _print_findings(findings)
    print(f"check: {errors} to fix, {warnings} warnings, {time.monotonic() - began:.0f} s")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
