"""The bundle for macOS: what CMake makes of it when it configures for that system, its icon, and how it is signed."""

import plistlib
import shutil
import struct
import subprocess
from pathlib import Path

import make_icon
import pytest

ROOT = Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging/macos"
LIBRARIES = Path(subprocess.run(["g++", "-print-file-name=libicuuc.so"], capture_output=True, text=True,
                                check=True).stdout.strip()).resolve().parent


def configured(folder, **options):
    """A build folder for macOS. Only the compilers' names are true; nothing is compiled."""
    clang = shutil.which("clang++")
    given = {"CMAKE_SYSTEM_NAME": "Darwin", "CMAKE_OSX_SYSROOT": "/", "CMAKE_INSTALL_NAME_TOOL": "/bin/true",
             "CMAKE_CXX_COMPILER": clang, "CMAKE_OBJCXX_COMPILER": clang, "CMAKE_CXX_COMPILER_WORKS": "1",
             "CMAKE_OBJCXX_COMPILER_WORKS": "1", "CMAKE_HAVE_LIBC_PTHREAD": "1", "TILWIN_BENCHMARKS": "OFF",
             "CMAKE_LIBRARY_PATH": LIBRARIES, "CMAKE_PREFIX_PATH": LIBRARIES,
             "rapidcheck_DIR": LIBRARIES / "cmake/rapidcheck", **options}
    done = subprocess.run(["cmake", "-S", ROOT, "-B", folder, "-G", "Ninja",
                           *(f"-D{key}={value}" for key, value in given.items())], capture_output=True, text=True)
    assert done.returncode == 0, done.stderr
    return folder


def information(folder):
    return plistlib.loads((folder / "packaging/macos/Info.plist").read_bytes())


@pytest.fixture(scope="module")
def plain(tmp_path_factory):
    return configured(tmp_path_factory.mktemp("plain"))


def targets(folder):
    return subprocess.run(["ninja", "-C", folder, "-t", "targets", "all"], check=True, capture_output=True, text=True).stdout


def test_the_bundle_holds_the_program_and_its_icon(plain):
    assert "Tilwin.app/Contents/MacOS/Tilwin:" in targets(plain)
    assert "Tilwin.app/Contents/Resources/Tilwin.icns:" in targets(plain)


def test_the_program_needs_no_library_that_is_not_part_of_macos(plain):
    link = subprocess.run(["ninja", "-C", plain, "-t", "commands", "-s", "Tilwin.app/Contents/MacOS/Tilwin"], check=True,
                          capture_output=True, text=True).stdout
    libraries = {Path(word).name for word in link.split() if Path(word).name.startswith("lib")}
    assert {"libicui18n.a", "libicuuc.a", "libicudata.a"} <= libraries
    assert all(name.endswith(".a") for name in libraries)


def test_the_tests_of_core_program_and_contracts_belong_to_the_build_for_macos_and_those_of_linux_do_not(plain):
    for program in ("core-tests:", "app-tests:", "contract-tests-simulated:"):
        assert f"\n{program}" in targets(plain)
    for program in ("x11-tests:", "contract-tests-x11:", "desktop-tests:"):
        assert f"\n{program}" not in targets(plain)


def test_the_program_is_an_agent_for_macos_13_and_later(plain):
    found = information(plain)
    assert found["LSUIElement"] is True
    assert found["LSMinimumSystemVersion"] == "13.0"
    assert found["LSMultipleInstancesProhibited"] is True
    assert found["CFBundleIdentifier"] == "llc.ambergrove.tilwin"
    assert found["CFBundleExecutable"] == "Tilwin"
    assert found["CFBundlePackageType"] == "APPL"


def test_by_default_there_is_neither_a_feed_nor_a_channel(plain):
    found = information(plain)
    assert found["SUFeedURL"] == ""
    assert found["TWUpdateChannelToken"] == ""


def test_feed_and_channel_come_out_as_they_were_given(tmp_path):
    feed = "https://example.org/appcast.xml?a=1&b=<2>"
    found = information(configured(tmp_path, TILWIN_FEED_URL=feed, TILWIN_UPDATE_TOKEN="beta"))
    assert found["SUFeedURL"] == feed
    assert found["TWUpdateChannelToken"] == "beta"


def test_the_program_stays_out_of_the_sandbox_where_it_could_move_no_window():
    assert plistlib.loads((PACKAGING / "Tilwin.entitlements").read_bytes()) == {"com.apple.security.app-sandbox": False}


def test_the_icon_is_a_png_with_a_clear_margin_and_a_sheet_in_its_middle():
    data = make_icon.png(64)
    assert data.startswith(b"\x89PNG\r\n\x1a\n")
    assert struct.unpack(">II", data[16:24]) == (64, 64)
    assert make_icon.pixel_at(8, 8, 16) == (0, 0, 0, 0)
    *colour, alpha = make_icon.pixel_at(512, 160, 16)
    assert alpha == 255 and colour[2] > colour[0]


def test_the_icon_file_has_an_entry_for_each_size(monkeypatch):
    monkeypatch.setattr(make_icon, "png", lambda side: b"png%d" % side)
    data = make_icon.icns()
    assert data[:4] == b"icns" and struct.unpack(">I", data[4:8])[0] == len(data)
    entries, at = {}, 8
    while at < len(data):
        kind, length = data[at:at + 4].decode(), struct.unpack(">I", data[at + 4:at + 8])[0]
        entries[kind], at = data[at + 8:at + length], at + length
    assert entries == {kind: b"png%d" % side for kind, side in make_icon.SIZES.items()}


@pytest.fixture
def bundle(tmp_path):
    app = tmp_path / "Tilwin.app"
    (app / "Contents").mkdir(parents=True)
    (app / "Contents/Info.plist").touch()
    return app


def signing(app):
    done = subprocess.run([PACKAGING / "sign", "--dry-run", app, "Developer ID Application: A B (T)", "profile"], check=True,
                          capture_output=True, text=True)
    return [line for line in done.stdout.splitlines() if not line.startswith("#")]


def test_signing_goes_from_the_inside_out_before_anything_is_sent(bundle):
    framework = bundle / "Contents/Frameworks/Sparkle.framework"
    for inner in ("Autoupdate", "Updater.app"):
        (framework / "Versions/B" / inner).mkdir(parents=True)
    signed = [line.split()[-1] for line in signing(bundle) if line.startswith("codesign --force")]
    assert signed == [str(framework / "Versions/B/Autoupdate"), str(framework / "Versions/B/Updater.app"), str(framework),
                      str(bundle)]
    commands = [" ".join(line.split()[:2]) for line in signing(bundle)]
    assert commands[-6:] == ["codesign --verify", "ditto -c", "xcrun notarytool", "xcrun stapler", "spctl --assess", "ditto -c"]


def test_a_bundle_without_an_update_framework_is_signed_alone(bundle):
    assert len([line for line in signing(bundle) if line.startswith("codesign --force")]) == 1


def test_what_is_no_bundle_is_refused(tmp_path):
    done = subprocess.run([PACKAGING / "sign", tmp_path, "identity", "profile"], capture_output=True, text=True)
    assert done.returncode == 1 and "is not an application bundle" in done.stderr
