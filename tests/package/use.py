"""What a user does with the installed program, before and after an upgrade."""

from desktop import SCREEN, Desktop, wait_for

WIDTH, HEIGHT = SCREEN
LEFT_HALF = (0, 0, WIDTH // 2, HEIGHT)
CENTRE = (WIDTH // 4, 0, WIDTH // 2, HEIGHT)
GAP, OUTER = 20, 10
SPACED_LEFT_HALF = (OUTER, OUTER, (WIDTH - GAP) // 2 - OUTER, HEIGHT - 2 * OUTER)
LAYOUT = "Writing at home"


class Use:
    def __init__(self, debian, installation):
        self._debian = debian
        self._installation = installation
        self._desktop = None
        self._program = None

    def checks(self):
        return [("a desktop is there: X server, window manager, a window with the focus", self.open_desktop),
                ("a command moves a window while no Tilwin runs", self.snap_alone),
                ("tilwin starts as an ordinary user, without a session bus", self.start),
                ("a shortcut moves the window to where it belongs", self.snap_by_key),
                ("so does a command", self.snap_by_command),
                ("settings are changed and a layout is saved", self.change),
                ("apt upgrades while the old version runs", self.upgrade),
                ("the old version goes on, with settings and layouts; what is called is the new one", self.go_on),
                ("the new version starts with the settings and layouts of the old one", self.start_new),
                ("the user's session bus knows Tilwin's name and starts it", self.start_by_bus),
                ("a second start opens the settings of the one that runs", self.start_again),
                ("what it starts at login when the user wants that is what the package has", self.open_at_login),
                ("tilwin ends when it is asked to", self.quit)]

    def open_desktop(self):
        self._desktop = Desktop(self._debian)

    def snap_alone(self):
        self._desktop.run("tilwin", "snap", "rightHalf")
        self._desktop.expect_frame((WIDTH // 2, 0, WIDTH // 2, HEIGHT))

    def start(self):
        self._program = self._desktop.start_tilwin()
        assert self._version() == self._installation.version()

    def snap_by_key(self):
        self._desktop.press("ctrl+alt+c")
        self._desktop.expect_frame(CENTRE)

    def snap_by_command(self):
        self._desktop.run("tilwin", "snap", "leftHalf")
        self._desktop.expect_frame(LEFT_HALF)

    def change(self):
        self._desktop.run("tilwin", "set", "gap", str(GAP))
        self._desktop.run("tilwin", "set", "outer", str(OUTER))
        self._desktop.run("tilwin", "layout", "save", LAYOUT)
        self._expect_kept()

    def upgrade(self):
        old = self._installation.version()
        self._installation.upgrade()
        assert self._installation.version() != old
        assert self._program.poll() is None

    def go_on(self):
        assert self._version() == self._installation.version()
        self._expect_kept()
        self._desktop.press("ctrl+alt+c")
        wait_for("a centred window", lambda: self._desktop.frame()[0] == WIDTH // 4)
        self._snap_with_space()
        assert self._program.poll() is None

    def start_new(self):
        self._quit()
        self._expect_kept()
        self._program = self._desktop.start_tilwin()
        self._expect_kept()
        self._desktop.press("ctrl+alt+f")
        wait_for("the window in the centre third", lambda: self._desktop.frame()[0] > WIDTH // 4)
        self._desktop.run("tilwin", "layout", "apply", LAYOUT)
        wait_for("the window where the layout has it", lambda: self._desktop.frame()[0] <= OUTER)
        self._desktop.run("tilwin", "snap", "maximize")
        self._snap_with_space()
        self._quit()

    def start_by_bus(self):
        self._desktop.use_bus()
        assert '"org.tilwin.Tilwin"' in self._desktop.call_bus("ListActivatableNames")
        self._desktop.call_bus("StartServiceByName", "string:org.tilwin.Tilwin", "uint32:0")
        self._desktop.wait_for_tilwin()

    def start_again(self):
        self._desktop.run("tilwin")
        wait_for("the settings window", lambda: self._desktop.windows("Tilwin"))

    def open_at_login(self):
        self._desktop.run("tilwin", "--enable-login-item")
        entry = self._debian.path("/home/ann/.config/autostart/tilwin.desktop").read_text()
        assert "TryExec=/usr/bin/tilwin\n" in entry, entry

    def quit(self):
        self._desktop.run("tilwin", "quit")
        wait_for("the end of Tilwin", lambda: self._desktop.run("tilwin", "quit", check=False).returncode == 3)

    def _version(self):
        return self._desktop.run("tilwin", "version").stdout.split()[-1]

    def _snap_with_space(self):
        self._desktop.run("tilwin", "snap", "leftHalf")
        self._desktop.expect_frame(SPACED_LEFT_HALF)

    def _expect_kept(self):
        said = [self._desktop.run("tilwin", *words).stdout.strip() for words in (("get", "gap"), ("get", "outer"))]
        assert said == [str(GAP), str(OUTER)], said
        assert LAYOUT in self._desktop.run("tilwin", "layout", "list").stdout

    def _quit(self):
        self._desktop.run("tilwin", "quit")
        assert self._program.wait(10) == 0
