"""The applications, the window managers they are tried under, and what is done to each window."""

import re
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable, Optional

VIDEO = "video.mp4"
JAVA = "Editor.java"
JAVA_CLASS = "com-sun-tools-javac-launcher-Main"  # it compiles the file and runs it in one process

# The first start of an office program asks and tells too much.
OFFICE_SETTINGS = """<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema">
<item oor:path="/org.openoffice.Office.Common/Misc"><prop oor:name="ShowTipOfTheDay" oor:op="fuse"><value>false</value>
</prop></item>
<item oor:path="/org.openoffice.Setup/Product"><prop oor:name="ooSetupLastVersion" oor:op="fuse"><value>7.4</value>
</prop></item>
</oor:items>
"""

JAVA_SOURCE = """import javax.swing.*;

public class Editor {
  public static void main(String[] arguments) {
    SwingUtilities.invokeLater(() -> {
      JFrame frame = new JFrame("A window of Swing");
      JMenuBar menus = new JMenuBar();
      menus.add(new JMenu("File"));
      frame.setJMenuBar(menus);
      frame.add(new JScrollPane(new JTextArea("Some text.", 18, 50)));
      frame.setDefaultCloseOperation(JFrame.EXIT_ON_CLOSE);
      frame.pack();
      frame.setVisible(true);
    });
  }
}
"""


@dataclass(frozen=True)
class Application:
    name: str
    package: str
    command: tuple
    window_class: str
    grip: Optional[tuple] = None  # where its own title bar is held: a share of the width, points from the top
    files: dict = field(default_factory=dict, hash=False)  # in its home, before it starts


APPLICATIONS = (
    Application("chromium", "chromium", ("chromium", "--no-sandbox", "--no-first-run", "--no-default-browser-check",
                                         "--password-store=basic", "--disable-gpu", "about:blank"),
                "Chromium", grip=(0.6, 14)),
    Application("writer", "libreoffice-writer", ("soffice", "--writer", "--norestore", "--nologo"), "libreoffice-writer",
                files={".config/libreoffice/4/user/registrymodifications.xcu": OFFICE_SETTINGS}),
    Application("xterm", "xterm", ("xterm", "-fa", "DejaVu Sans Mono", "-fs", "11"), "XTerm"),
    Application("xfce4-terminal", "xfce4-terminal", ("xfce4-terminal", "--disable-server"), "Xfce4-terminal"),
    Application("gedit", "gedit", ("gedit", "--standalone"), "Gedit", grip=(0.35, 20)),
    Application("mpv", "mpv", ("mpv", "--vo=x11", "--loop", "--no-audio", VIDEO), "mpv"),
    Application("swing", "openjdk-17-jre", ("java", JAVA), JAVA_CLASS, files={JAVA: JAVA_SOURCE}),
)


def openbox_settings():
    """Those of the package, without its keys on ours and without other workspaces behind the edges."""
    settings = Path("/etc/xdg/openbox/rc.xml").read_text()
    settings = re.sub(r'<keybind key="C-A-.*?</keybind>', "", settings, flags=re.DOTALL)
    settings = re.sub(r"<number>\d+</number>", "<number>1</number>", settings)
    settings = re.sub(r"(<screenEdgeWarpTime>)\d+", r"\g<1>0", settings)
    return {".config/openbox/rc.xml": settings}


XFWM4_CHANNEL = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfwm4" version="1.0">
  <property name="general" type="empty"><property name="workspace_count" type="int" value="1"/></property>
</channel>
"""
XFWM4_KEYS = """<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-keyboard-shortcuts" version="1.0">
  <property name="xfwm4" type="empty"><property name="custom" type="empty">
    <property name="override" type="bool" value="true"/>
    <property name="&lt;Alt&gt;F4" type="string" value="close_window_key"/>
  </property></property>
</channel>
"""


def xfwm4_settings():
    folder = ".config/xfce4/xfconf/xfce-perchannel-xml"
    return {f"{folder}/xfwm4.xml": XFWM4_CHANNEL, f"{folder}/xfce4-keyboard-shortcuts.xml": XFWM4_KEYS}


def metacity_settings():
    keys = "".join(f"{does}-to-workspace-{where}=@as []\n" for does in ("switch", "move")
                   for where in ("left", "right", "up", "down"))
    return {".config/glib-2.0/settings/keyfile": "[org/gnome/desktop/wm/preferences]\nnum-workspaces=1\n\n"
                                                 f"[org/gnome/desktop/wm/keybindings]\n{keys}"}


def kwin_settings():
    return {".config/kwinrc": "[Compositing]\nEnabled=false\n\n[org.kde.kdecoration2]\nlibrary=org.kde.breeze\n"
                              "theme=Breeze\n"}


@dataclass(frozen=True)
class Manager:
    """With its default settings, its own edge tiling too, except that Tilwin's keys are free."""
    name: str
    package: str
    command: tuple
    settings: Callable[[], dict]


MANAGERS = (
    Manager("openbox", "openbox", ("openbox", "--sm-disable"), openbox_settings),
    Manager("xfwm4", "xfwm4", ("xfwm4",), xfwm4_settings),
    Manager("metacity", "metacity", ("metacity", "--sm-disable"), metacity_settings),
    Manager("kwin", "kwin-x11", ("kwin_x11", "--no-kactivities"), kwin_settings),
)

ALL, LEFT, RIGHT, TOP, LAST_THIRD = (0, 1), (0, 0.5), (0.5, 1), (0, 0.5), (2 / 3, 1)


@dataclass(frozen=True)
class Act:
    """What is done to the window, and where it should stand after that: on a tile, or as it stood at some time before."""
    title: str
    does: str
    argument: object = None
    tile: Optional[tuple] = None  # the shares of the width and of the height
    as_before: str = ""
    is_maximised: bool = False


KEYS, DRAG, MAXIMISE, RELEASE = "press", "drag", "maximise", "release"
START, MAXIMISED, HELD = "start", "maximised", "held"

ACTS = (
    Act("left half", KEYS, ("Left",), tile=(LEFT, ALL)),
    Act("right third", KEYS, ("g",), tile=(LAST_THIRD, ALL)),
    Act("top right", KEYS, ("i",), tile=(RIGHT, TOP)),
    Act("maximise", KEYS, ("Return",), tile=(ALL, ALL)),
    Act("restore", KEYS, ("BackSpace",), as_before=START),
    Act("by the manager", MAXIMISE, as_before=MAXIMISED, is_maximised=True),
    Act("then right half", KEYS, ("Right",), tile=(RIGHT, ALL)),
    Act("then restore", KEYS, ("BackSpace",), as_before=MAXIMISED, is_maximised=True),
    Act("released", RELEASE, as_before=START),
    Act("drag to the left", DRAG, tile=(LEFT, ALL)),
    Act("restore again", KEYS, ("BackSpace",), as_before=HELD),
)
