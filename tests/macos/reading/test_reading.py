"""What is wrong on macOS is refused here: each sample is read as the adapters are."""

import subprocess
from pathlib import Path

import pytest

READ = Path(__file__).resolve().parents[3] / "scripts/lib/as-on-macos"

NEWER = """#import <AppKit/AppKit.h>

@interface TWSample : NSObject
- (void)brandNew __attribute__((availability(macos, introduced = 14.0)));
@end

"""

REFUSED = [
    ("an interface newer than the oldest macOS", NEWER + "void use(TWSample* sample) { [sample brandNew]; }",
     "only available on macOS 14.0 or newer"),
    ("a function newer than the oldest macOS",
     "extern \"C\" void brandNew() __attribute__((availability(macos, introduced = 13.1)));\nvoid use() { brandNew(); }",
     "only available on macOS 13.1 or newer"),
    ("a constant newer than the oldest macOS",
     "#include \"tests/macos/Introduced.h\"\nenum INTRODUCED(13.1) Brand : int { brandNew };\nint use() { return brandNew; }",
     "only available on macOS 13.1 or newer"),
    ("a method that nobody has", "#import <AppKit/AppKit.h>\nvoid use(NSWindow* w) { [w flyAway]; }", "'-flyAway' not found"),
    ("a warning", "int use(double value) { return value; }", "implicit conversion"),
    ("an object that is never released",
     "#import <Foundation/Foundation.h>\nvoid use() {\n  NSObject* object = [[NSObject alloc] init];\n  [object hash];\n}",
     "Potential leak"),
    ("an object that is released twice",
     "#import <Foundation/Foundation.h>\nvoid use() {\n  NSObject* object = [[NSObject alloc] init];\n"
     "  [object release];\n  [object release];\n}", "after it is released"),
    ("a null pointer that is followed", "int use(int* p) { return p == nullptr ? *p : 0; }", "null pointer"),
]

ACCEPTED = [
    ("a newer interface behind an availability check",
     NEWER + "void use(TWSample* sample) {\n  if (@available(macOS 14.0, *)) [sample brandNew];\n}"),
    ("an interface as old as the oldest macOS",
     "extern \"C\" void old() __attribute__((availability(macos, introduced = 13.0)));\nvoid use() { old(); }"),
    ("an object that is released once",
     "#import <Foundation/Foundation.h>\nvoid use() {\n  NSObject* object = [[NSObject alloc] init];\n  [object release];\n}"),
]


def reading(folder, code):
    sample = folder / "Sample.mm"
    sample.write_text(code + "\n")
    return subprocess.run([READ, sample], capture_output=True, text=True)


@pytest.mark.parametrize("what, code, reason", REFUSED, ids=[what for what, *_ in REFUSED])
def test_is_refused(tmp_path, what, code, reason):
    done = reading(tmp_path, code)
    assert done.returncode != 0
    assert reason in done.stderr


@pytest.mark.parametrize("what, code", ACCEPTED, ids=[what for what, _ in ACCEPTED])
def test_is_accepted(tmp_path, what, code):
    done = reading(tmp_path, code)
    assert done.returncode == 0, done.stderr
