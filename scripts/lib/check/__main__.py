"""Holds the project against those of its own rules that no tool knows: walls between folders, texts, and places named in
documents."""

import sys
from pathlib import Path

import places
import texts
import walls
from source_tree import SourceTree

tree = SourceTree(Path(__file__).resolve().parents[3])
findings = sorted({str(finding) for rule in [*walls.RULES, *texts.RULES, *places.RULES] for finding in rule(tree)})
print("\n".join(findings) or "Every rule holds.")
sys.exit(1 if findings else 0)
