"""Follows the mouse: is a window being moved, over which zone, and what is to be learnt from where it ends."""

from dataclasses import dataclass, field
from typing import Protocol

from desktop import Desktop, Screen
from drag_features import DragTrace, Rect, Sample, make_features, neighbours_around
from drag_recorder import Event, Recorder
from snapping import Snapping, zone_at

THROTTLE = 30  # milliseconds
FAR_ENOUGH = 4.0  # points
SAME_SIZE = 2.0  # points
RULES_EDGE, MODELS_EDGE, CORNER = 6.0, 24.0, 60.0  # points


class Program(Protocol):
    """What the watcher works with."""

    desktop: Desktop
    snapping: Snapping
    recorder: Recorder
    now: int  # milliseconds

    def uptime(self) -> float:
        """Seconds."""

    def microseconds(self) -> int:
        """The wall clock."""

    def is_on(self, setting: str) -> bool:
        """Whether a setting is on."""

    def performed(self, window: int, action: str) -> None:
        """An action has moved a window."""


@dataclass
class Drag:
    """A button that went down on a window."""

    window: int
    start: Rect
    began: float
    moving: bool = False
    zone: str | None = None
    screen: Screen | None = None
    trace: DragTrace = field(default_factory=DragTrace)


class DragWatcher:
    """Told of every press, move and release of the left button."""

    def __init__(self, program: Program) -> None:
        self.program = program
        self.drag: Drag | None = None
        self.last_check: int | None = None

    def handle(self, kind: str) -> None:
        """Lets one event of the mouse happen; the cursor is where the desktop has it."""
        if not self.program.is_on("dragToSnap") or kind == "cancel":
            self.drag = None
        elif kind == "press":
            self.pressed()
        elif kind == "drag" and self.drag:
            self.dragged(self.drag)
        elif kind == "release":
            drag, self.drag = self.drag, None
            if drag and drag.moving:
                self.released(drag)

    def pressed(self) -> None:
        """Arms for the window under the cursor, unless its application is to be left alone."""
        self.drag = None
        desktop = self.program.desktop
        window = desktop.window_at(*desktop.cursor)
        if window is None or desktop.windows[window].app in self.program.snapping.ignored:
            return
        self.drag = Drag(window, desktop.windows[window].frame, self.program.uptime())

    def dragged(self, drag: Drag) -> None:
        """Looks, now and then, how far the window has come."""
        if self.last_check is not None and self.program.now - self.last_check <= THROTTLE:
            return
        self.last_check = self.program.now
        desktop = self.program.desktop
        if drag.window not in desktop.windows:
            self.drag = None
            return
        if not drag.moving:
            drag.moving = has_moved(desktop.windows[drag.window].frame, drag.start)
            if not drag.moving:
                return
        x, y = desktop.cursor
        if self.program.is_on("shadowRecording"):
            self.note(drag)
        screen = desktop.screen_at(x, y)
        zone = zone_at(x, y, screen.frame, RULES_EDGE, CORNER) if screen else None
        drag.zone, drag.screen = zone, screen if zone else None

    def released(self, drag: Drag) -> None:
        """Snaps where the last look found a zone, and has the drag recorded."""
        program = self.program
        if drag.zone and drag.screen and program.snapping.snap(drag.window, drag.zone, drag.screen, drag.start):
            program.performed(drag.window, drag.zone)
        if program.is_on("shadowRecording"):
            self.record(drag)

    def note(self, drag: Drag) -> None:
        """Adds where the cursor is to the drag's path."""
        program = self.program
        if not drag.trace.samples:
            program.recorder.handle(Event(program.microseconds(), "moved", drag.window))
        drag.trace.append(Sample(program.uptime() - drag.began, *program.desktop.cursor))

    def record(self, drag: Drag) -> None:
        """Holds the drag against the display it ended on."""
        self.note(drag)
        program = self.program
        x, y = program.desktop.cursor
        screen = program.desktop.screen_at(x, y)
        if screen is None:
            return
        features = make_features(drag.trace, screen.frame, neighbours_around(screen, program.desktop.screens))
        if features is None:
            return
        program.recorder.handle(Event(
            program.microseconds(), "release", drag.window, features, (screen.frame.width, screen.frame.height),
            snapped=drag.zone, intended=zone_at(x, y, screen.frame, MODELS_EDGE, CORNER)))


def has_moved(frame: Rect, start: Rect) -> bool:
    """Whether a window has come some way at its old size."""
    far = max(abs(frame.x - start.x), abs(frame.y - start.y)) > FAR_ENOUGH
    return far and max(abs(frame.width - start.width), abs(frame.height - start.height)) <= SAME_SIZE
