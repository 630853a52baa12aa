"""Breaks each rule in a small sample tree and sees it reported, at the right line and by that rule alone."""

import pytest

import places
import texts
import walls
from source_tree import SourceTree

# A tree that breaks nothing; each sample adds or replaces files.
CLEAN = {
    "core/geometry/Rect.h": "#pragma once\n\nnamespace tilwin {\n\nstruct Rect {\n  double x = 0;\n};\n\n"
                            "}  // namespace tilwin\n",
    "core/geometry/Rect.cpp": '#include "core/geometry/Rect.h"\n',
    "core/support/Json.h": "#pragma once\n#include <nlohmann/json.hpp>\n",
    "core/layouts/Store.cpp": '#include "core/geometry/Rect.h"\n#include "core/support/Json.h"\n',
    "platform/ports/Screens.h": '#pragma once\n#include "core/geometry/Rect.h"\n',
    "platform/x11/Displays.cpp": '#include <xcb/xcb.h>\n#include "platform/ports/Screens.h"\n',
    "platform/qt/Menu.cpp": "#include <QMenu>\n",
    "platform/macos/Screens.mm": "#import <AppKit/AppKit.h>\n",
    "app/Delegate.cpp": '#include "core/geometry/Rect.h"\n#include "platform/ports/Screens.h"\n',
    "app/main.cpp": '#ifdef __linux__\n#include "platform/qt/Menu.h"\n#endif\n',
    "tests/core/RectTests.cpp": '#include <gtest/gtest.h>\n#include "core/geometry/Rect.h"\n',
    "fuzz/corpus/settings/broken": "{ \nTO" + "DO",
}

# What docs/macos.md says of the sample's one adapter to macOS.
ROW = "| `import` | [Screens.mm:{line}](../platform/macos/Screens.mm#L{line}) | 2 |\n"

# (what is broken, the rule that says so, the files, the place it names)
SAMPLES = [
    ("a standard header of C is no C++ header", "walls",
     {"core/geometry/A.h": "#pragma once\n#include <stdint.h>\n"}, "core/geometry/A.h:2"),
    ("geometry uses JSON", "walls",
     {"core/geometry/A.cpp": "#include <nlohmann/json.hpp>\n"}, "core/geometry/A.cpp:1"),
    ("a source includes something before its own header", "own-header",
     {"core/geometry/A.cpp": '#include <string>\n#include "core/geometry/A.h"\n', "core/geometry/A.h": "#pragma once\n"},
     "core/geometry/A.cpp:1"),
    ("geometry knows snapping", "walls",
     {"core/geometry/A.cpp": '\n#include "core/snap/A.h"\n', "core/snap/A.h": "#pragma once\n"},
     "core/geometry/A.cpp:2"),
    ("core uses Qt", "walls", {"core/snap/A.cpp": "#include <QString>\n"}, "core/snap/A.cpp:1"),
    ("core uses xcb", "walls", {"core/support/A.cpp": "#include <xcb/xcb.h>\n"}, "core/support/A.cpp:1"),
    ("core uses a system framework", "walls",
     {"core/drag/A.cpp": "#import <Foundation/Foundation.h>\n"}, "core/drag/A.cpp:1"),
    ("core knows the program", "walls",
     {"core/snap/A.cpp": '#include "app/A.h"\n', "app/A.h": "#pragma once\n"}, "core/snap/A.cpp:1"),
    ("core knows a port", "walls",
     {"core/snap/A.cpp": '#include "platform/ports/Screens.h"\n'}, "core/snap/A.cpp:1"),
    ("the program uses Qt", "walls", {"app/A.cpp": "#include <QMenu>\n"}, "app/A.cpp:1"),
    ("the program uses xcb", "walls", {"app/A.cpp": "#include <xcb/randr.h>\n"}, "app/A.cpp:1"),
    ("the program uses a system framework", "walls", {"app/A.mm": "#import <AppKit/AppKit.h>\n"}, "app/A.mm:1"),
    ("the program knows an adapter", "walls",
     {"app/A.cpp": '#include "platform/x11/A.h"\n', "platform/x11/A.h": "#pragma once\n"}, "app/A.cpp:1"),
    ("a port knows an adapter", "walls",
     {"platform/ports/A.h": '#pragma once\n#include "platform/qt/A.h"\n', "platform/qt/A.h": "#pragma once\n"},
     "platform/ports/A.h:2"),
    ("a port shows an xcb type", "walls",
     {"platform/ports/A.h": "#pragma once\n#include <xcb/xcb.h>\n"}, "platform/ports/A.h:2"),
    ("the X11 adapter knows the Qt adapter", "walls",
     {"platform/x11/A.cpp": '#include "platform/qt/A.h"\n', "platform/qt/A.h": "#pragma once\n"},
     "platform/x11/A.cpp:1"),
    ("the X11 adapter uses Qt", "walls", {"platform/x11/A.cpp": "#include <QObject>\n"}, "platform/x11/A.cpp:1"),
    ("the Qt adapter uses xcb", "walls", {"platform/qt/A.cpp": "#include <xcb/xcb.h>\n"}, "platform/qt/A.cpp:1"),
    ("the macOS adapter uses Qt", "walls", {"platform/macos/A.mm": "#include <QMenu>\n"}, "platform/macos/A.mm:1"),
    ("the macOS adapter knows the X11 adapter", "walls",
     {"platform/macos/A.mm": '#include "platform/x11/A.h"\n', "platform/x11/A.h": "#pragma once\n"},
     "platform/macos/A.mm:1"),
    ("the simulated adapter uses xcb", "walls",
     {"platform/simulated/A.cpp": "#include <xcb/xcb.h>\n"}, "platform/simulated/A.cpp:1"),
    ("an adapter knows the program", "walls",
     {"platform/simulated/A.cpp": '#include "app/A.h"\n', "app/A.h": "#pragma once\n"},
     "platform/simulated/A.cpp:1"),
    ("a core test uses a real desktop", "walls",
     {"tests/core/A.cpp": '#include "platform/x11/A.h"\n', "platform/x11/A.h": "#pragma once\n"},
     "tests/core/A.cpp:1"),
    ("a desktop test looks inside the program", "walls",
     {"tests/desktop/A.cpp": '#include "app/A.h"\n', "app/A.h": "#pragma once\n"}, "tests/desktop/A.cpp:1"),
    ("a fuzz target uses the program", "walls",
     {"fuzz/A.cpp": '#include "app/A.h"\n', "app/A.h": "#pragma once\n"}, "fuzz/A.cpp:1"),
    ("a benchmark uses Qt", "walls", {"bench/A.cpp": "#include <QMenu>\n"}, "bench/A.cpp:1"),
    ("an include by a relative path", "walls",
     {"core/geometry/A.cpp": '#include "Rect.h"\n'}, "core/geometry/A.cpp:1"),
    ("an include inside a condition", "walls",
     {"core/geometry/A.cpp": "#if 0\n  #  include <QMenu>\n#endif\n"}, "core/geometry/A.cpp:2"),
    ("a folder nobody gave a row", "walls", {"extras/A.cpp": "int a = 1;\n"}, "extras/A.cpp:1"),
    ("an #ifdef on the system", "os-if", {"core/snap/A.cpp": "#ifdef __APPLE__\n#endif\n"}, "core/snap/A.cpp:1"),
    ("an #if over two lines", "os-if",
     {"app/A.cpp": "#if defined(NDEBUG) || \\\n    defined(__linux__)\n#endif\n"}, "app/A.cpp:2"),
    ("an #elif on Windows", "os-if", {"bench/A.cpp": "#if 0\n#elif _WIN32\n#endif\n"}, "bench/A.cpp:2"),
    ("a Qt macro for the system", "os-if",
     {"platform/qt/A.cpp": "#if defined(Q_OS_MACOS)\n#endif\n"}, "platform/qt/A.cpp:1"),
    ("asking for a header of the system", "os-if",
     {"tests/core/A.cpp": "#if __has_include(<AppKit/AppKit.h>)\n#endif\n"}, "tests/core/A.cpp:1"),
    ("a JSON type in a header", "inner-types",
     {"core/layouts/A.h": "#pragma once\nvoid read(const nlohmann::json& from);\n"}, "core/layouts/A.h:2"),
    ("an ICU type in a header", "inner-types",
     {"core/layouts/A.h": "#pragma once\nclass A {\n  icu::UnicodeString text_;\n};\n"}, "core/layouts/A.h:3"),
    ("a header that brings JSON with it", "inner-types",
     {"app/A.h": '#pragma once\n#include "core/support/B.h"\n',
      "core/support/B.h": '#pragma once\n#include "core/support/Json.h"\n'}, "app/A.h:2"),
    ("a platform for everybody", "global-platform",
     {"app/A.h": "#pragma once\nstruct Platform;\nPlatform& platform();\n"}, "app/A.h:3"),
    ("a platform in a static variable", "global-platform",
     {"app/A.cpp": "struct Platform;\nstatic Platform* current = nullptr;\n"}, "app/A.cpp:2"),
    ("a file of two ideas", "file-size",
     {"core/snap/A.cpp": "int a();\n" * (texts.LONGEST_FILE + 1)}, "core/snap/A.cpp:251"),
    ("unfinished work in C++", "leftover", {"core/snap/A.cpp": "// TO" + "DO later\n"}, "core/snap/A.cpp:1"),
    ("unfinished work in a guide", "leftover", {"docs/guide.md": "Guide\n\nFIX" + "ME\n"}, "docs/guide.md:3"),
    ("white space at the end of a line", "white-space", {"docs/guide.md": "Guide \n"}, "docs/guide.md:1"),
    ("a last line without an end", "white-space", {"docs/guide.md": "Guide\n\nEnd"}, "docs/guide.md:3"),
    ("a header that can be included twice", "header-guard", {"core/snap/A.h": "int a();\n"}, "core/snap/A.h:1"),
    ("a skipped test", "honest-tests",
     {"tests/app/A.cpp": "void a() {\n  GTEST_" + "SKIP() << 7;\n}\n"}, "tests/app/A.cpp:2"),
    ("a disabled test", "honest-tests",
     {"tests/app/A.cpp": "TEST(Menu, DISABLED" + "_Opens) {}\n"}, "tests/app/A.cpp:1"),
    ("an operation of macOS is elsewhere", "places", {"docs/macos.md": "\n" + ROW.format(line=2)}, "docs/macos.md:2"),
    ("an operation of macOS is gone", "places",
     {"docs/macos.md": ROW.format(line=1), "platform/macos/Screens.mm": "// No import.\n"}, "docs/macos.md:1"),
    ("an adapter to macOS is in no table", "places",
     {"docs/macos.md": ROW.format(line=1), "platform/macos/A.cpp": "int a;\n"}, "platform/macos/A.cpp:1"),
    ("a C function of macOS is in no table", "places",
     {"docs/macos.md": ROW.format(line=1), "platform/macos/A.h": "#pragma once\n\nvoid a() { CFRetain(b); }\n"},
     "platform/macos/A.h:3"),
]


def _reported(folder, files):
    for path, text in {**CLEAN, **files}.items():
        (folder / path).parent.mkdir(parents=True, exist_ok=True)
        (folder / path).write_text(text)
    tree = SourceTree(folder)
    return [finding for rule in [*walls.RULES, *texts.RULES, *places.RULES] for finding in rule(tree)]


def test_folders_that_may_include_each_other_in_a_ring_are_named():
    ring = {"core/a": (["core/b"], []), "core/b": (["core/c"], []), "core/c": (["core/a"], []), "core/d": ([], [])}
    assert set(walls.circle(ring)) == {"core/a", "core/b", "core/c"}
    assert not walls.circle({**ring, "core/c": (["core/d"], [])})


def test_a_clean_tree_breaks_no_rule(tmp_path):
    assert not _reported(tmp_path, {})


@pytest.mark.parametrize("what, rule, files, place", SAMPLES, ids=[sample[0] for sample in SAMPLES])
def test_a_broken_rule_is_reported_once_where_it_is_broken(tmp_path, what, rule, files, place):
    found = _reported(tmp_path, files)
    assert [(f"{finding.file}:{finding.line}", finding.rule) for finding in found] == [(place, rule)], what


def test_lines_of_operations_can_be_put_right(tmp_path):
    _reported(tmp_path, {"docs/macos.md": ROW.format(line=7)})
    places.mend(tmp_path)
    assert (tmp_path / "docs/macos.md").read_text() == ROW.format(line=1)
