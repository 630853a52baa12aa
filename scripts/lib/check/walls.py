"""The walls between the folders: what each may include, and where an operating system may be named."""

import graphlib
import re

from source_tree import Finding

# Groups of headers from outside the project. A header in no group is refused until somebody adds it here.
STANDARD = set(
    """algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
    climits clocale cmath compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef
    cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception execution filesystem format
    forward_list fstream functional future initializer_list iomanip ios iosfwd iostream istream iterator latch
    limits list locale map memory memory_resource mutex new numbers numeric optional ostream queue random ranges
    ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
    stop_token streambuf string string_view strstream syncstream system_error thread tuple type_traits typeindex
    typeinfo unordered_map unordered_set utility valarray variant vector version""".split()
)
OUTSIDE = {
    "std": lambda name: name in STANDARD,
    "posix": re.compile(r"(sys|netinet|arpa|net)/|(unistd|fcntl|poll|signal|spawn|dirent|pwd|dlfcn|netdb|time"
                        r"|errno|stdlib|malloc|termios|langinfo|pthread|sched|syslog)\.h$").match,
    "icu": re.compile(r"unicode/").match,
    "json": re.compile(r"nlohmann/").match,
    "linux": re.compile(r"linux/").match,
    "xcb": re.compile(r"(xcb|X11)/").match,
    "qt": re.compile(r"Q[A-Z]|Qt").match,
    "glib": re.compile(r"(glib|gio|gobject)(/|\.h$)").match,
    "apple": re.compile(r"(AppKit|Cocoa|Carbon|Foundation|CoreFoundation|CoreGraphics|ApplicationServices"
                        r"|ServiceManagement|Security|QuartzCore|IOKit|Sparkle|dispatch|mach|os)/").match,
    # What clang's Objective-C++ stands on where Apple's runtime is not, and GNUstep's own.
    "objc": re.compile(r"(Block|unwind|objc/\w+|GNUstepGUI/\w+)\.h$").match,
    "gtest": re.compile(r"(gtest|gmock)/").match,
    "rapidcheck": re.compile(r"rapidcheck(/|\.h$)").match,
    "benchmark": re.compile(r"benchmark/").match,
}

CORE = "core"
VALUES = ["core/commands", "core/doctor", "core/geometry", "core/snap", "core/layouts", "core/settings", "core/drag", "core/support"]
PORTS = "platform/ports"
TEST_TOOLS = ["std", "posix", "gtest", "rapidcheck"]

# folder: (project folders it may include beside itself, groups from outside). The longest folder counts. The
# folders of the program form floors: a row names only rows before it, and `floors` refuses a ring.
MAY_INCLUDE = {
    "core/support": ([], ["std", "posix", "icu", "json"]),
    "core/geometry": (["core/support"], ["std"]),
    "core/commands": ([], ["std"]),
    "core/snap/actions": (["core/geometry", "core/support"], ["std"]),
    "core/settings": (["core/geometry", "core/snap/actions", "core/support"], ["std"]),
    "core/layouts": (["core/geometry", "core/snap/actions", "core/support"], ["std"]),
    "core/snap": (["core/geometry", "core/layouts", "core/settings", "core/snap/actions", "core/support"], ["std"]),
    "core/drag": (["core/geometry", "core/snap", "core/support"], ["std"]),
    "core/doctor": (["core/geometry", "core/settings", "core/snap/actions", "core/support"], ["std"]),
    "platform/ports": (VALUES, ["std"]),
    "platform/drawing": ([PORTS, *VALUES], ["std"]),
    "platform/pointer": ([PORTS, *VALUES], ["std"]),
    "platform/x11": ([PORTS, *VALUES], ["std", "posix", "xcb"]),
    "platform/x11/wire": ([PORTS, *VALUES], ["std", "posix", "xcb"]),
    "platform/x11/displays": ([PORTS, *VALUES, "platform/x11/wire"], ["std", "xcb"]),
    "platform/x11/windows": ([PORTS, *VALUES, "platform/x11/wire", "platform/x11/displays"],
                             ["std", "posix", "xcb", "glib"]),
    "platform/x11/input": ([PORTS, *VALUES, "platform/pointer", "platform/x11/wire", "platform/x11/windows"],
                           ["std", "xcb"]),
    "platform/x11/overlay": ([PORTS, *VALUES, "platform/x11/wire"], ["std", "xcb"]),
    "platform/qt": ([PORTS, *VALUES, "platform/drawing"], ["std", "posix", "qt", "glib"]),
    "platform/macos/support": ([PORTS, *VALUES], ["std", "apple"]),
    "platform/macos": ([PORTS, *VALUES, "platform/drawing", "platform/pointer", "platform/macos/support"],
                       ["std", "posix", "apple"]),
    "platform/simulated": ([PORTS, *VALUES, "platform/pointer"], ["std"]),
    "app/actions": ([CORE], ["std"]),
    "app/settings": ([CORE, PORTS, "app/actions"], ["std"]),
    "app/keys": ([CORE, PORTS], ["std"]),
    "app/drag": ([CORE, PORTS], ["std"]),
    "app/windows": ([CORE, PORTS], ["std"]),
    "app/login": ([CORE, PORTS], ["std"]),
    "app/updates": ([CORE, PORTS, "app/settings"], ["std"]),
    "app/layouts": ([CORE, PORTS], ["std"]),
    "app/doctor": ([CORE, PORTS, "app/keys", "app/settings"], ["std"]),
    "app/client": (["core/commands"], ["std", "posix"]),
    "app/commands": ([CORE, PORTS, "app/doctor", "app/layouts", "app/settings"], ["std"]),
    "app/menu": ([CORE, PORTS, "app/actions", "app/layouts", "app/settings", "app/updates", "app/windows"], ["std"]),
    "app": ([CORE, PORTS, "app/actions", "app/commands", "app/doctor", "app/settings", "app/keys", "app/drag", "app/windows", "app/layouts", "app/login",
             "app/updates", "app/menu"], ["std"]),
    "packaging/commands": ([CORE], ["std"]),
    "tests": ([CORE], TEST_TOOLS),
    "tests/packaging": ([CORE, "packaging/commands"], TEST_TOOLS),
    # The kernel can be asked to refuse a process its calls, as a full or broken disk would.
    "tests/core": ([CORE, PORTS, "platform/simulated", "tests"], [*TEST_TOOLS, "linux", "icu", "json"]),
    # Simulated people, held to what is told of them.
    "tests/core/drag": ([CORE, "tests", "bench/drag"], [*TEST_TOOLS, "json"]),
    "tests/app": ([CORE, PORTS, "platform/simulated", "app", "tests"], [*TEST_TOOLS, "json"]),
    "tests/drawing": ([CORE, PORTS, "platform/drawing", "tests"], TEST_TOOLS),
    "tests/x11": ([CORE, PORTS, "platform/x11", "tests"], [*TEST_TOOLS, "xcb"]),
    "tests/ui": ([CORE, PORTS, "platform/qt", "platform/simulated", "app", "tests"], [*TEST_TOOLS, "qt"]),
    "tests/macos": (["core", "platform", "app", "tests"], [*TEST_TOOLS, "apple", "objc", "xcb"]),
    "tests/contract": (["core", "platform", "app", "tests"], [*TEST_TOOLS, "xcb", "qt"]),
    "tests/desktop": (["core/geometry", "tests"], [*TEST_TOOLS, "linux", "xcb", "qt"]),
    # What goes over the socket for commands.
    "tests/desktop/floods": (["core/commands", "core/geometry", "tests"], [*TEST_TOOLS, "xcb", "qt"]),
    # Layouts on real desktops, placed from within the test.
    "tests/desktop/layouts": ([CORE, PORTS, "platform/x11", "platform/qt", "tests"], [*TEST_TOOLS, "qt"]),
    "fuzz": ([CORE], ["std"]),
    "bench": ([CORE, PORTS, "platform/simulated", "app", "bench/drag", "tests"], ["std", "posix", "benchmark"]),
    "bench/drag": ([CORE], ["std"]),
    "bench/desktop": (["core/geometry", "tests/desktop"], ["std", "posix", "benchmark", "xcb"]),
    "bench/desktop/start": (["core/geometry", "tests/desktop"], ["std", "posix", "xcb", "qt"]),
}
CPP_ROOTS = ("core", "app", "platform", "tests", "fuzz", "bench")

# The one file of each desktop's program that knows which desktop that is.
COMPOSITION_ROOTS = ("app/X11Desktop.cpp", "app/X11Desktop.h", "app/main.cpp", "app/main.mm")



def circle(table):
    """Folders of the program that may include each other in a ring; none where they form floors."""
    product = [row for row in table if row.startswith(("core", "platform", "app"))]
    below = {row: {under for folder in table[row][0] for under in product if _lies_in(under, folder)} - {row}
             for row in product}
    try:
        graphlib.TopologicalSorter(below).prepare()
    except graphlib.CycleError as error:
        return error.args[1]
    return []


def floors(_):
    """The table itself has no circle."""
    ring = circle(MAY_INCLUDE)
    if ring:
        yield Finding("scripts/lib/check/walls.py", 1, "floors",
                      f"folders may include each other in a ring: {' > '.join(ring)}; put one above the other")


_OS_MACRO = re.compile(
    r"\b(__APPLE__|__MACH__|TARGET_OS_\w+|__linux__|__linux|linux|__gnu_linux__|__ANDROID__|__unix__|__unix|unix"
    r"|__\w*BSD__|__sun|_WIN32|_WIN64|__CYGWIN__|__MINGW\w*|Q_OS_\w+|__has_include|__OBJC__"
    r"|TILWIN_\w*(?:LINUX|X11|MACOS|APPLE|WINDOWS))\b"
)
_CONDITION = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b")
_INNER_TYPE = re.compile(r"\b(nlohmann|icu|icu_\d+)::|\bU(?:Char|ErrorCode|Collator|BreakIterator|_ICU\w*)\b")
_GLOBAL_PLATFORM = re.compile(
    r"^\s*(?:static|extern|inline|thread_local)\b[^(;=]*\bPlatform\b(?!::)|\bPlatform\s*[&*]\s*\w+\s*\(\s*\)"
)


def _lies_in(path, folder):
    return path == folder or path.startswith(folder + "/")


def _row_for(path):
    fitting = [folder for folder in MAY_INCLUDE if _lies_in(path, folder)]
    return max(fitting, key=len, default=None)


def _group_of(name):
    return next((group for group, holds in OUTSIDE.items() if holds(name)), None)


def _outside_problem(include, folder, groups):
    group = _group_of(include.name)
    if group in groups:
        return None
    if group is None:
        return (f"<{include.name}> is in no group of headers; include the project's own headers with quotes, or "
                f"add the header to OUTSIDE in scripts/lib/check/walls.py")
    return (f"{folder}/ must not include <{include.name}> ({group}); from outside it may use: {', '.join(groups)}. "
            f"Put what needs it behind a port or in a folder that may")


def _inside_problem(include, tree, folder, folders):
    if include.name not in tree.files:
        return f'"{include.name}" is not a file from the root of the repo; write the whole path from there'
    own = _row_for(include.name)
    if own == folder or any(_lies_in(include.name, allowed) for allowed in folders):
        return None
    return (f'{folder}/ must not include "{include.name}"; beside itself it may include: '
            f"{', '.join(folders) or 'nothing'}. Turn the need into a port or move the code")


def includes(tree):
    """Each include is one its folder may have."""
    for file in tree.cpp_files:
        folder = _row_for(file.path)
        if file.path in COMPOSITION_ROOTS:
            continue
        if folder is None:
            yield Finding(file.path, 1, "walls",
                          "this folder has no row in MAY_INCLUDE of scripts/lib/check/walls.py; give it one")
            continue
        folders, groups = MAY_INCLUDE[folder]
        for include in file.includes:
            if include.is_system:
                problem = _outside_problem(include, folder, groups)
            else:
                problem = _inside_problem(include, tree, folder, folders)
            if problem:
                yield Finding(file.path, include.line, "walls", problem)


def own_header_first(tree):
    """A source that begins with its own header shows, compiled alone, that the header needs nothing before it."""
    for file in tree.cpp_files:
        header = file.path.removesuffix(".cpp") + ".h"
        if not file.path.endswith(".cpp") or header not in tree.files:
            continue
        first = next(iter(file.includes), None)
        if first is None or first.name != header:
            yield Finding(file.path, first.line if first else 1, "own-header",
                          f'include "{header}" before anything else, so that it is compiled on its own')


def operating_systems(tree):
    """No condition on the operating system outside the composition root."""
    for file in tree.cpp_files:
        if file.path in COMPOSITION_ROOTS:
            continue
        in_condition = False
        for number, line in enumerate(file.code_lines, 1):
            in_condition = in_condition or bool(_CONDITION.match(line))
            found = _OS_MACRO.search(line) if in_condition else None
            if found:
                yield Finding(file.path, number, "os-if",
                              f"{found.group()} asks which system this is; put each system's code in its adapter "
                              f"folder and let CMake choose")
            in_condition = in_condition and line.rstrip().endswith("\\")


def inner_types(tree):
    """JSON and ICU stay behind core/support: no other header names their types or reaches their headers."""
    for file in tree.headers:
        if _lies_in(file.path, "core/support"):
            continue
        for number, line in enumerate(file.code_lines, 1):
            found = _INNER_TYPE.search(line)
            if found:
                yield Finding(file.path, number, "inner-types",
                              f"{found.group()} in a header; keep JSON and ICU types in .cpp files or core/support")
        yield from _reaching_includes(tree, file)


def _reaching_includes(tree, file):
    for include in file.includes:
        system = {include.name} if include.is_system else set()
        if include.name in tree.files:
            system = tree.system_headers_reached_from(include.name)
        if any(_group_of(name) in ("json", "icu") for name in system):
            yield Finding(file.path, include.line, "inner-types",
                          f"{include.name} brings JSON or ICU types into this header; include it in the .cpp file")


def global_platform(tree):
    """Nobody reaches the platform by a global: each service is handed the ports it uses."""
    for file in tree.cpp_files:
        if not _lies_in(file.path, "tests"):
            for number, line in enumerate(file.code_lines, 1):
                if _GLOBAL_PLATFORM.search(line):
                    yield Finding(file.path, number, "global-platform",
                                  "a way to the platform from anywhere; hand the ports to the constructor instead")


RULES = [floors, includes, own_header_first, operating_systems, inner_types, global_platform]
