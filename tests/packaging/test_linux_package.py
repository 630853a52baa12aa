"""What the Linux package is made of, as far as files tell. scripts/package --test installs the package itself."""

import configparser
import re
import subprocess
import xml.etree.ElementTree as ElementTree
from pathlib import Path

import make_icon
import pytest

ROOT = Path(__file__).resolve().parents[2]
LINUX = ROOT / "packaging/linux"
BUS_NAME = "org.tilwin.Tilwin"
SVG = "{http://www.w3.org/2000/svg}"


def entry(path, group):
    parser = configparser.ConfigParser(interpolation=None)
    parser.optionxform = str
    parser.read_string(path.read_text())
    assert parser.sections() == [group]
    return dict(parser[group])


@pytest.fixture(name="desktop_entry")
def _desktop_entry():
    return entry(LINUX / "tilwin.desktop", "Desktop Entry")


@pytest.fixture(name="metainfo")
def _metainfo():
    return ElementTree.parse(LINUX / f"{BUS_NAME}.metainfo.xml").getroot()


def installed():
    """Where the install rules put what, in their own words."""
    rules = (LINUX / "CMakeLists.txt").read_text()
    return re.findall(r"^install\((?:FILES|TARGETS) (\S+)\s+DESTINATION (\S+)\)", rules, re.MULTILINE)


def project(word):
    return re.search(rf"project\(Tilwin {word} (\S+)", (ROOT / "CMakeLists.txt").read_text()).group(1)


def control(field):
    text = (LINUX / "debian/control").read_text()
    return re.search(rf"^{field}:((?: .*|\n .*)+)", text, re.MULTILINE).group(1)


def test_desktop_entry_and_metainfo_say_the_same(desktop_entry, metainfo):
    assert metainfo.findtext("name") == desktop_entry["Name"]
    assert metainfo.findtext("summary") == desktop_entry["Comment"]
    assert metainfo.findtext("icon") == desktop_entry["Icon"]
    assert metainfo.findtext("provides/binary") == desktop_entry["Exec"] == desktop_entry["TryExec"]
    assert metainfo.findtext("categories/category") + ";" == desktop_entry["Categories"]


def test_the_desktop_entry_has_the_name_that_the_program_tells_desktops(metainfo):
    program = (ROOT / "app/X11Desktop.h").read_text()
    told = re.search(r'desktopEntry = "(\w+)"', program).group(1)
    assert metainfo.findtext("launchable[@type='desktop-id']") == f"{told}.desktop"
    assert (LINUX / f"{told}.desktop").exists()


def test_the_name_on_the_bus_is_one_everywhere(metainfo):
    service = entry(LINUX / f"{BUS_NAME}.service.in", "D-BUS Service")
    assert service["Name"] == metainfo.findtext("id") == metainfo.findtext("provides/dbus[@type='session']") == BUS_NAME
    assert f'instanceInterface = "{BUS_NAME}"' in (ROOT / "platform/qt/system/QtInstance.cpp").read_text()


def test_the_newest_release_is_this_one(metainfo):
    assert metainfo.find("releases/release").get("version") == project("VERSION")


def test_an_icon_has_the_name_that_the_desktop_entry_asks_for(desktop_entry):
    assert {(f"icons/{desktop_entry['Icon']}.svg", "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps"),
            (f"icons/{desktop_entry['Icon']}-symbolic.svg", "${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps"),
            } <= set(installed())


def test_the_icon_is_the_one_on_macos():
    sheet, *shapes = ElementTree.parse(LINUX / "icons/tilwin.svg").getroot().findall(f"{SVG}rect")

    def numbers(shape):
        frame = tuple(float(shape.get(name)) for name in ("x", "y", "width", "height", "rx"))
        return *frame, float(shape.get("stroke-width", 0)), float(shape.get("fill-opacity", 1))

    assert numbers(sheet)[:5] == make_icon.SHEET
    assert [numbers(shape) for shape in shapes] == make_icon.SHAPES


def test_the_symbolic_icon_is_filled_only_as_toolkits_colour_no_strokes():
    picture = ElementTree.parse(LINUX / "icons/tilwin-symbolic.svg").getroot()
    assert len(picture) == 4
    assert all(shape.get("stroke") is None for shape in picture.iter())


def test_what_is_installed_is_there_and_nothing_of_it_starts_at_login():
    rules = re.findall(r"^install\((?!CODE)", (LINUX / "CMakeLists.txt").read_text(), re.MULTILINE)
    assert len(installed()) == len(rules)
    made = {"tilwin", "tilwin-desktop", "${service}"}
    for file, folder in installed():
        assert file in made or (LINUX / file).is_file()
        assert "autostart" not in folder and "systemd" not in folder and "SYSCONF" not in folder


def test_the_programs_lie_where_they_look_for_each_other():
    folders = dict(installed())
    pair = f'{{"../{folders["tilwin-desktop"]}/tilwin", "../../{folders["tilwin"]}/tilwin"}}'
    assert pair in (ROOT / "app/client/Places.h").read_text()


def test_the_package_is_built_with_what_the_program_is_built_with():
    listed = {line for line in (ROOT / "scripts/lib/packages/build").read_text().splitlines() if not line.startswith("#")}
    wanted = {line.strip(" ,") for line in control("Build-Depends").strip().splitlines()}
    # Every Debian that builds packages has a compiler.
    assert wanted == listed - {"g++"} | {"debhelper-compat (= 13)"}


def test_libraries_are_depended_on_as_they_are_found_in_the_programs():
    assert control("Depends").strip() == "${misc:Depends}, ${shlibs:Depends}"


def test_the_script_says_how_it_is_used_and_refuses_what_it_does_not_know():
    done = subprocess.run([ROOT / "scripts/package", "--unknown"], capture_output=True, text=True, check=False)
    assert done.returncode == 2
    assert "scripts/package --test" in done.stdout
