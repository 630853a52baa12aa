"""The completion of bash, asked by bash itself."""

import subprocess
from pathlib import Path

import pytest

COMPLETION = Path(__file__).resolve().parents[2] / "packaging" / "linux" / "completions" / "tilwin"
NAMES = ["Desk", "Desk with monitor", "$(touch evil)", "Writing"]


@pytest.fixture(name="complete")
def _complete(tmp_path):
    program = tmp_path / "bin" / "tilwin"
    program.parent.mkdir()
    program.write_text("#!/bin/sh\n[ \"$*\" = 'layout list' ] || [ \"$1\" = areas ] || exit 1\ncat <<'END'\n"
                       + "\n".join(NAMES) + "\nEND\n")
    program.chmod(0o755)

    def complete(*words):
        script = (f"source {COMPLETION}; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); _tilwin; "
                  "printf '%s\\n' \"${COMPREPLY[@]}\"")
        shell = subprocess.run(["bash", "--norc", "-c", script, "bash", "tilwin", *words], cwd=tmp_path, text=True,
                               env={"PATH": f"{program.parent}:/usr/bin:/bin"}, capture_output=True, check=True, timeout=20)
        assert shell.stderr == ""
        return shell.stdout.split("\n")[:-1]

    return complete


def test_the_first_word_is_a_command(complete):
    assert complete("la") == ["layout"]
    assert "snap" in complete("")


def test_the_second_word_belongs_to_the_first(complete):
    assert complete("layout", "") == ["list", "apply", "save", "delete"]
    assert complete("snap", "leftT") == ["leftThird", "leftTwoThirds", "leftThreeFourths"]
    assert complete("set", "shortcut.centerL") == ["shortcut.centerLarge"]
    assert complete("windows", "") == ["--json"]


def test_names_are_those_that_tilwin_tells_and_are_quoted(complete):
    assert complete("layout", "apply", "Desk") == ["Desk", r"Desk\ with\ monitor"]
    assert complete("area", "Wri") == ["Writing"]


def test_a_name_is_never_carried_out(complete, tmp_path):
    assert complete("layout", "delete", "$") == [r"\$\(touch\ evil\)"]
    assert not (tmp_path / "evil").exists()


def test_what_has_no_words_has_none(complete):
    assert complete("quit", "") == [""]
    assert complete("set", "gap", "") == [""]
