"""The completions, asked by the shells themselves."""

import subprocess
from pathlib import Path

import pytest

FOLDER = Path(__file__).resolve().parents[2] / "packaging" / "linux" / "completions"
NAMES = ["Desk", "Desk with monitor", "$(touch evil)", "Writing"]

# Each prints what may stand at the end of the words that it is given, a line each.
BASH = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tilwin; '
        '((${#COMPREPLY[@]} == 0)) || printf "%s\\n" "${COMPREPLY[@]}"')
ZSH = ('file=$1; shift; words=("$@"); CURRENT=$#; compadd() { print -rl -- ${(M)${(P)2}:#${words[CURRENT]}*} }; '
       'complete_it() { source $file }; complete_it')
FISH = 'source $argv[1]; set -e argv[1]; complete --do-complete (string join " " -- $argv) | string split -f1 \\t'
SHELLS = {
    "bash": (["bash", "--norc", "-c", BASH, "bash"], "tilwin"),
    "zsh": (["zsh", "-f", "-c", ZSH, "zsh"], "_tilwin"),
    "fish": (["fish", "--no-config", "-c", FISH], "tilwin.fish"),
}


@pytest.fixture(name="complete", params=SHELLS)
def _complete(request, tmp_path):
    program = tmp_path / "bin" / "tilwin"
    program.parent.mkdir()
    program.write_text("#!/bin/sh\n[ \"$*\" = 'layout list' ] || [ \"$1\" = areas ] || exit 1\ncat <<'END'\n"
                       + "\n".join(NAMES) + "\nEND\n")
    program.chmod(0o755)
    command, file = SHELLS[request.param]

    def complete(*words):
        shell = subprocess.run([*command, FOLDER / file, "tilwin", *words], cwd=tmp_path, text=True, check=False, timeout=20,
                               env={"PATH": f"{program.parent}:/usr/bin:/bin", "HOME": str(tmp_path)}, capture_output=True)
        assert shell.stderr == ""
        return [line for line in shell.stdout.split("\n") if line]

    complete.shell = request.param
    return complete


def test_the_first_word_is_a_command(complete):
    assert complete("la") == ["layout"]
    assert "snap" in complete("")


def test_the_second_word_belongs_to_the_first(complete):
    assert sorted(complete("layout", "")) == ["apply", "delete", "list", "save"]
    assert sorted(complete("snap", "leftT")) == ["leftThird", "leftThreeFourths", "leftTwoThirds"]
    assert complete("set", "shortcut.centerL") == ["shortcut.centerLarge"]


def test_options_are_offered_where_there_are_some(complete):
    assert complete("windows", "--") == ["--json"]
    assert complete("doctor", "") == ["--names"]


def test_names_are_those_that_tilwin_tells(complete):
    # bash takes what is offered as it would be typed; the others quote it themselves.
    spaced = r"Desk\ with\ monitor" if complete.shell == "bash" else "Desk with monitor"
    assert sorted(complete("layout", "apply", "Desk")) == ["Desk", spaced]
    assert complete("area", "Wri") == ["Writing"]


def test_a_name_is_never_carried_out(complete, tmp_path):
    offered = complete("layout", "delete", "")
    assert len(offered) == len(NAMES)
    assert not (tmp_path / "evil").exists()


def test_what_takes_no_words_is_offered_none(complete):
    assert complete("quit", "") == []
    assert complete("set", "gap", "") == []
