"""A hand on the mouse and the keyboard, which writes down all it does as the events of a script."""

from random import Random

from desktop import contains
from drag_features import Rect
from half_hour import Program, screens_of

STEPS = [8, 8, 8, 8, 10, 15, 16]  # milliseconds between the events of a mouse
SMALLEST = 120  # points


class Hand:
    """Acts on a desktop and sees what comes of it, as the one whose hand it is would."""

    def __init__(self, random: Random, displays: list[dict]) -> None:
        self.random = random
        self.program = Program(screens_of(displays))
        self.desktop = self.program.desktop
        self.events: list[dict] = []
        self.time = 0
        self.opened = 0
        self.settings = {"dragToSnap": True, "shadowRecording": True, "cycleWidths": True, "gap": 0, "outer": 0,
                         "ignoredApps": []}

    def act(self, kind: str, **details: object) -> None:
        """Something happens now."""
        event = {"t": self.time, "kind": kind, **details}
        self.events.append(event)
        self.program.play(event)

    def wait(self, milliseconds: int) -> None:
        """Nothing happens for a while."""
        self.time += milliseconds

    def change(self, **settings: object) -> None:
        """Some settings become others."""
        self.settings = {**self.settings, **settings}
        self.act("change", settings=self.settings)

    def open(self, app: str, frame: Rect) -> None:
        """A window appears; they are numbered from 1."""
        self.opened += 1
        self.act("open", window=self.opened, app=app, frame=list(frame))

    def press(self, x: float, y: float, window: int | None = None) -> None:
        """The button goes down, on a window that comes to the front and stands where it does, or on none."""
        self.act("move", x=x, y=y)
        if window is None:
            self.act("press", x=x, y=y)
            return
        if self.desktop.focused != window:
            self.act("focus", window=window)
        self.act("press", x=x, y=y, window=window, standing=list(self.desktop.windows[window].frame))

    def path(self, end: tuple[float, float], duration: int) -> list[tuple[float, float]]:
        """Where the mouse is at each of its events on the way to a point, slowing down or not."""
        start_x, start_y = self.desktop.cursor
        step = self.random.choice(STEPS)
        count = max(duration // step, 1)
        slowing = self.random.choice([1, 1, 2, 3])
        grain = self.random.choice([1, 1, 4])
        points = []
        for i in range(1, count + 1):
            share = 1 - (1 - i / count) ** slowing
            x, y = start_x + (end[0] - start_x) * share, start_y + (end[1] - start_y) * share
            points.append((step, (round(x * grain) / grain, round(y * grain) / grain)))
        points[-1] = (step, end)
        return points

    def pull(self, window: int, end: tuple[float, float], duration: int, stretch: tuple[float, float, float, float]) \
            -> None:
        """Moves the mouse, its button down; for each point of its way the frame of the window changes by so much.

        The window manager tells of the frame before the mouse tells of its move, or after it.
        """
        start_x, start_y = self.desktop.cursor
        frame = self.desktop.windows[window].frame if window in self.desktop.windows else None
        follows_first = self.random.random() < 0.5
        for step, (x, y) in self.path(end, duration):
            self.wait(step)
            dx, dy = x - start_x, y - start_y
            drag = ("drag", {"x": x, "y": y})
            acts = [drag]
            if frame and window in self.desktop.windows:
                now = [frame.x + dx * stretch[0], frame.y + dy * stretch[1],
                       max(round(frame.width + dx * stretch[2]), SMALLEST),
                       max(round(frame.height + dy * stretch[3]), SMALLEST)]
                acts = [("frame", {"window": window, "frame": now}), drag]
            for kind, details in acts if follows_first else reversed(acts):
                self.act(kind, **details)

    def release(self) -> None:
        """The button goes up, mostly a moment after the last move."""
        self.wait(self.random.choice([0, 0, 1, 8, 24, self.random.randint(0, 60), self.random.randint(0, 900)]))
        self.act("release")

    def grip(self, window: int) -> tuple[float, float] | None:
        """A point of the window's title that is on a display."""
        frame = self.desktop.windows[window].frame
        for _ in range(20):
            x = self.random.randint(int(frame.x) + 8, int(frame.x + frame.width) - 8)
            y = int(frame.y) + self.random.randint(3, 25)
            if contains(frame, x, y) and self.desktop.screen_at(x, y):
                return x, y
        return None

    def bare_spot(self) -> tuple[float, float] | None:
        """A point of a display with no window, if one is soon found."""
        for _ in range(20):
            frame = self.random.choice(self.desktop.screens).frame
            x = self.random.randint(int(frame.x), int(frame.x + frame.width) - 1)
            y = self.random.randint(int(frame.y), int(frame.y + frame.height) - 1)
            if self.desktop.window_at(x, y) is None and self.desktop.screen_at(x, y):
                return x, y
        return None
