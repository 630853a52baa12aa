"""A desktop in the small Debian: an X server, openbox, a window, and what a user does with them."""

import re
import time

SCREEN = (1280, 800)
TITLE = "A letter"
PATIENCE = 15  # seconds


def wait_for(what, is_so, patience=PATIENCE):
    """What the condition gives once it is true."""
    end = time.monotonic() + patience
    while True:
        answer = is_so()
        if answer:
            return answer
        assert time.monotonic() < end, f"not within {patience} s: {what}"
        time.sleep(0.1)


class Desktop:
    def __init__(self, debian):
        self._debian = debian
        # Its name on the network that all of the machine share is one that is free.
        server = debian.start("Xvfb", "-displayfd", "1", "-screen", "0", f"{SCREEN[0]}x{SCREEN[1]}x24", "-noreset",
                              "-nolisten", "tcp")
        self.variables = {"DISPLAY": ":" + server.stdout.readline().strip()}
        # A window that comes while openbox starts may never be shown.
        debian.start("openbox", "--startup", f"xmessage -title '{TITLE}' 'Dear reader'", **self.variables)
        self.window = wait_for("a window", lambda: self.windows(TITLE))[0]
        wait_for("the focus", lambda: self.run("xdotool", "getactivewindow").stdout.strip() == self.window)

    def run(self, *command, check=True):
        return self._debian.as_user(*command, check=check, **self.variables)

    def start(self, *command):
        return self._debian.start(*command, **self.variables)

    def use_bus(self):
        bus = self.start("dbus-daemon", "--session", "--nofork", "--print-address=1")
        self.variables["DBUS_SESSION_BUS_ADDRESS"] = bus.stdout.readline().strip()

    def call_bus(self, member, *arguments, check=True):
        """The answer of the bus itself."""
        return self.run("dbus-send", "--session", "--print-reply", "--reply-timeout=3000", "--dest=org.freedesktop.DBus",
                        "/org/freedesktop/DBus", f"org.freedesktop.DBus.{member}", *arguments, check=check).stdout

    def start_tilwin(self):
        program = self.start("tilwin")
        self.wait_for_tilwin()
        return program

    def wait_for_tilwin(self):
        # Only a running Tilwin changes a setting.
        wait_for("a running Tilwin", lambda: self.run("tilwin", "set", "cycleWidths", "on", check=False).returncode == 0)

    def windows(self, title):
        return self.run("xdotool", "search", "--onlyvisible", "--name", title, check=False).stdout.split()

    def press(self, keys):
        self.run("xdotool", "key", keys)

    def frame(self):
        """Of the window with its decoration: left, top, width, height."""
        text = self.run("xwininfo", "-id", self.window).stdout
        names = ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height")
        x, y, width, height = (int(re.search(rf"{name}: +(-?\d+)", text).group(1)) for name in names)
        extents = self.run("xprop", "-id", self.window, "_NET_FRAME_EXTENTS").stdout
        left, right, top, bottom = map(int, re.findall(r"\d+", extents))
        return x - left, y - top, width + left + right, height + top + bottom

    def expect_frame(self, wanted):
        try:
            wait_for(f"a window at {wanted}", lambda: self.frame() == wanted, 5)
        except AssertionError as late:
            raise AssertionError(f"{late}; it is at {self.frame()}") from None
