"""What the program writes into its drag log while somebody works: a script of events goes in, lines come out."""

from desktop import Desktop, Screen
from drag_features import Rect
from drag_recorder import Event, Recorder
from drag_report import json_line
from drag_watcher import DragWatcher
from snapping import Snapping

START = 1_705_312_800_000_000  # 2024-01-15 10:00 UTC, in microseconds
BOOTED = 3_600_000_000_000  # the uptime at the start, in nanoseconds
TICK = 1_000  # milliseconds
MOUSE = ("press", "drag", "release", "cancel")


class Program:
    """The whole program on a desktop, as far as its drag log shows."""

    def __init__(self, screens: list[Screen]) -> None:
        self.desktop = Desktop(screens)
        self.snapping = Snapping(self.desktop)
        self.recorder = Recorder()
        self.watcher = DragWatcher(self)
        self.settings: dict = {}
        self.now = 0
        self.next_tick: int | None = None

    def uptime(self) -> float:
        """Seconds, rounded as a clock that counts nanoseconds gives them."""
        return (BOOTED + self.now * 1_000_000) / 1e9

    def microseconds(self) -> int:
        """The wall clock."""
        return START + self.now * 1000

    def is_on(self, setting: str) -> bool:
        """Whether a setting is on."""
        return self.settings[setting]

    def performed(self, window: int, action: str) -> None:
        """An action has moved a window."""
        if self.is_on("shadowRecording"):
            self.recorder.handle(Event(self.microseconds(), "action", window, action=action))

    def wait_until(self, time: int) -> None:
        """Lets time pass, and the recorder look at its drags each second."""
        while self.next_tick is not None and self.next_tick <= time:
            self.now = self.next_tick
            self.next_tick += TICK
            self.recorder.handle(Event(self.microseconds(), "tick"))
        self.now = time

    def play(self, event: dict) -> None:
        """Lets one event of a script happen."""
        self.wait_until(event["t"])
        kind = event["kind"]
        if "x" in event:
            self.desktop.cursor = (event["x"], event["y"])
        if kind in MOUSE:
            self.watcher.handle(kind)
        elif kind != "move":
            getattr(self, kind)(event)

    def change(self, event: dict) -> None:
        """The settings become others."""
        self.settings = event["settings"]
        self.snapping.outer, self.snapping.gap = self.settings["outer"], self.settings["gap"]
        self.snapping.cycle_widths = self.settings["cycleWidths"]
        self.snapping.ignored = self.settings["ignoredApps"]
        if not self.is_on("shadowRecording"):
            self.next_tick = None
            self.recorder.handle(Event(self.microseconds(), "discard"))
        elif self.next_tick is None:
            self.next_tick = self.now + TICK

    def open(self, event: dict) -> None:
        """A window appears."""
        self.desktop.open(event["window"], event["app"], Rect(*event["frame"]))

    def close(self, event: dict) -> None:
        """A window goes."""
        self.desktop.close(event["window"])

    def focus(self, event: dict) -> None:
        """A window comes to the front."""
        self.desktop.focus(event["window"])

    def frame(self, event: dict) -> None:
        """A window follows the mouse."""
        self.desktop.move(event["window"], Rect(*event["frame"]))

    def shortcut(self, event: dict) -> None:
        """The user presses an action's keys."""
        window = self.desktop.focused
        if self.snapping.perform(event["action"]):
            self.performed(window, event["action"])

    def quit(self, _: dict) -> None:
        """The program ends."""
        if self.is_on("shadowRecording"):
            self.recorder.handle(Event(self.microseconds(), "flush"))

    def lines(self) -> list[str]:
        """The drag log, without its line feeds."""
        return [json_line(record) for record in self.recorder.records]


def screens_of(displays: list[dict]) -> list[Screen]:
    """Displays as a script has them, numbered from 1."""
    screens = []
    for number, display in enumerate(displays, 1):
        frame = Rect(*display["frame"])
        left, right, top, bottom = display["struts"]
        visible = Rect(frame.x + left, frame.y + top, frame.width - left - right, frame.height - top - bottom)
        screens.append(Screen(number, frame, visible))
    return screens


def expected_lines(script: dict) -> list[str]:
    """The drag log that a script leaves behind."""
    program = Program(screens_of(script["displays"]))
    for event in script["events"]:
        program.play(event)
    return program.lines()
