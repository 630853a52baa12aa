"""Half an hour of somebody who drags windows about all the time, made up at random."""

import json
from random import Random
from typing import Iterator

from drag_features import Rect
from half_hour import expected_lines
from scripted_hand import Hand

HALF_HOUR = 1_800_000  # milliseconds
FOLLOW_UP = 4_000
APPS = ["org.example.Editor", "org.example.Mail", "org.example.Terminal"]
IGNORED = "org.example.Game"
MOVES = (1, 1, 0, 0)
RESIZES = [(0, 0, 1, 0), (0, 0, 0, 1), (0, 0, 1, 1), (1, 0, -1, 0), (0, 1, 0, -1), (1, 1, -1, -1), (1, 1, 0.1, 0)]
DISTANCES = [0, 0.25, 1, 3, 5.75, 6, 6.25, 7, 10, 10, 12, 20, 20, 23.75, 24, 24.25, 30, 45, 60]
SHORTCUTS = ["leftHalf", "rightHalf", "topHalf", "bottomHalf", "topLeft", "topRight", "bottomLeft", "bottomRight",
             "leftThird", "rightThird", "maximize", "restore"]


def random_displays(random: Random) -> list[dict]:
    """Two displays side by side, the second on either side of the first, touching it or just not."""
    width, height = random.choice([(1440, 900), (1920, 1080), (1280, 800)])
    other_width, other_height = random.choice([(2560, 1440), (1024, 768), (1680, 1050)])
    gap = random.choice([0, 0, 0, 2, 3])
    x = random.choice([width + gap, -other_width - gap])
    y = random.choice([0, 0, -200, 150, height - 1, -other_height + 2])
    return [{"frame": [0, 0, width, height], "struts": [0, 0, 25, 0]},
            {"frame": [x, y, other_width, other_height], "struts": [0, 0, 0, random.choice([0, 48])]}]


class User:
    """Does one thing after another until the half-hour is over."""

    def __init__(self, random: Random) -> None:
        self.random = random
        self.displays = random_displays(random)
        self.hand = Hand(random, self.displays)
        self.desktop = self.hand.desktop

    def work(self) -> dict:
        """The script of the half-hour."""
        hand, random = self.hand, self.random
        hand.change(gap=random.choice([0, 8]), outer=random.choice([0, 10]), ignoredApps=[IGNORED])
        for app in [*APPS, IGNORED, *random.sample(APPS, 2)]:
            self.open_window(app)
        self.wander()
        things = [self.snap_by_drag] * 16 + [self.resize] * 2 + [self.click] * 2 + [self.press_beside, self.shortcut,
                  self.shortcut, self.drag_ignored, self.lose_window, self.call_off, self.change_settings]
        while hand.time < HALF_HOUR:
            random.choice(things)()
            if random.random() < 0.7:
                hand.wait(random.choice([300, 2_000, random.randint(0, 9_000), random.randint(3_000, 20_000)]))
        hand.act("quit")
        return {"displays": self.displays, "events": hand.events}

    def open_window(self, app: str) -> None:
        """A window appears somewhere on a display."""
        random = self.random
        frame = random.choice(self.desktop.screens).visible
        width, height = random.randint(300, 700), random.randint(200, 500)
        self.hand.open(app, Rect(frame.x + random.randint(0, int(frame.width) - width),
                                 frame.y + random.randint(0, int(frame.height) - height), width, height))

    def pick(self, ignored: bool = False) -> int:
        """Some window, of an ignored application or of another."""
        return self.random.choice([window for window in sorted(self.desktop.windows)
                                   if (self.desktop.windows[window].app == IGNORED) == ignored])

    def aim(self) -> tuple[float, float]:
        """A point to let go at: some way from an edge, mostly, or anywhere, or off every display."""
        random = self.random
        frame = random.choice(self.desktop.screens).frame
        x, y = frame.x + random.randint(1, int(frame.width) - 1), frame.y + random.randint(1, int(frame.height) - 1)
        away = random.choice(DISTANCES)
        if random.random() < 0.25:
            x = random.choice([frame.x + random.randint(0, 61), frame.x + frame.width - random.randint(1, 61)])
        chance = random.random()
        if chance < 0.8:
            return random.choice([(frame.x + away, y), (frame.x + frame.width - away, y), (x, frame.y + away),
                                  (x, frame.y + frame.height - away)])
        return (x, y) if chance < 0.95 else (x, frame.y - random.randint(1, 40))

    def drag(self, window: int, end: tuple[float, float], ends: bool = True) -> bool:
        """Drags a window to a point and lets go there; false when there is nothing to hold it by."""
        hand, random = self.hand, self.random
        grip = hand.grip(window)
        if grip is None:
            hand.act("focus", window=window)
            hand.act("shortcut", action="maximize")
            return False
        hand.press(*grip, window)
        hand.wait(random.choice([0, 8, 100, random.randint(0, 400)]))
        duration = random.choice([60, 150, random.randint(100, 600), random.randint(300, 1_500)])
        hand.pull(window, end, duration, MOVES)
        if random.random() < 0.3:
            self.hesitate(window, end)
        if ends:
            hand.release()
        return True

    def hesitate(self, window: int, end: tuple[float, float]) -> None:
        """Goes on a little, waits, and comes back to the point."""
        random = self.random
        for _ in range(random.choice([1, 1, 2, 3])):
            near = (end[0] + random.randint(-15, 15), end[1] + random.randint(-15, 15))
            self.hand.pull(window, near, random.randint(20, 200), MOVES)
            self.hand.wait(random.randint(0, 300))
        self.hand.pull(window, end, random.randint(20, 200), MOVES)

    def wander(self) -> None:
        """Drags a window quickly, then about so slowly and for so long that the beginning of its path is forgotten."""
        window = self.pick()
        frame = self.desktop.screens[0].frame
        if self.drag(window, (frame.x + 100, frame.y + 500), ends=False):
            for _ in range(75):
                end = (frame.x + self.random.randint(8, 30), frame.y + self.random.randint(480, 520))
                self.hand.pull(window, end, 200, MOVES)
            self.hand.release()

    def snap_by_drag(self) -> None:
        """Drags a window somewhere, and does something about it soon after."""
        window, end = self.pick(), self.aim()
        if self.drag(window, end):
            self.random.choice([self.leave, self.restore, self.snap_own, self.drag_back, self.drag_away,
                                self.shortcut])(window, end)

    def soon(self) -> None:
        """Waits less than a follow-up may take, or just about that long, or longer."""
        random = self.random
        self.hand.wait(random.choice([random.randint(150, 3_900), random.randint(150, 2_000), FOLLOW_UP - 1, FOLLOW_UP,
                                      FOLLOW_UP + 1, random.randint(FOLLOW_UP, 5_200)]))

    def leave(self, *_: object) -> None:
        """Does something else."""

    def restore(self, window: int, _: tuple[float, float]) -> None:
        """Takes the window back to where it stood."""
        self.soon()
        self.hand.act("focus", window=window)
        self.hand.act("shortcut", action="restore")

    def snap_own(self, window: int, _: tuple[float, float]) -> None:
        """Puts the window by keys where the drag has, or should have put it."""
        self.soon()
        pending = self.hand.program.recorder.pending.get(window)
        if pending and pending.zone:
            self.hand.act("focus", window=window)
            self.hand.act("shortcut", action=pending.zone)

    def drag_back(self, window: int, end: tuple[float, float]) -> None:
        """Drags the window to the same edge once more, right up to it."""
        self.soon()
        screen = self.desktop.screen_at(*end)
        if screen is None:
            return
        x, y, width, height = screen.frame
        to_edges = [(end[0] - x, (x + 1, end[1])), (x + width - end[0], (x + width - 1, end[1])),
                    (end[1] - y, (end[0], y + 1)), (y + height - end[1], (end[0], y + height - 1))]
        self.drag(window, min(to_edges)[1])

    def drag_away(self, window: int, _: tuple[float, float]) -> None:
        """Drags the window elsewhere."""
        self.soon()
        self.drag(window, self.aim())

    def shortcut(self, *_: object) -> None:
        """Presses the keys of some action, whatever window has the focus."""
        self.hand.wait(self.random.randint(100, 3_000))
        self.hand.act("shortcut", action=self.random.choice(SHORTCUTS))

    def resize(self) -> None:
        """Pulls at an edge of a window, maybe as far as an edge of the display."""
        window = self.pick()
        grip = self.hand.grip(window)
        if grip:
            stretch = self.random.choice(RESIZES)
            end = self.aim() if min(stretch) >= 0 else (grip[0] - self.random.randint(0, 300), grip[1] - 40)
            self.hand.press(*grip, window)
            self.hand.pull(window, end, self.random.randint(100, 800), stretch)
            self.hand.release()

    def click(self) -> None:
        """Presses and lets go, with a hand that is hardly ever quite still."""
        window = self.pick()
        grip = self.hand.grip(window)
        if grip:
            self.hand.press(*grip, window)
            if self.random.random() < 0.6:
                end = (grip[0] + self.random.randint(-4, 4), grip[1] + self.random.randint(-4, 4))
                self.hand.pull(window, end, 100, MOVES)
            self.hand.release()

    def press_beside(self) -> None:
        """Pulls at nothing."""
        spot = self.hand.bare_spot()
        if spot:
            self.hand.press(*spot)
            self.hand.pull(-1, self.aim(), 300, MOVES)
            self.hand.release()

    def drag_ignored(self) -> None:
        """Drags a window that is none of the program's business."""
        self.drag(self.pick(ignored=True), self.aim())

    def lose_window(self) -> None:
        """A window closes, maybe in the middle of its drag; another one opens."""
        window, end = self.pick(), self.aim()
        app = self.desktop.windows[window].app
        if self.random.random() < 0.6 and self.drag(window, end, ends=False):
            self.hand.act("close", window=window)
            self.hand.pull(window, self.aim(), 200, MOVES)
            self.hand.release()
        else:
            self.hand.act("close", window=window)
        self.open_window(app)

    def call_off(self) -> None:
        """Begins a drag and thinks better of it, so that the window goes back."""
        window = self.pick()
        before = self.desktop.windows[window].frame
        if self.drag(window, self.aim(), ends=False):
            self.hand.act("cancel")
            self.hand.act("frame", window=window, frame=list(before))
            self.hand.wait(300)
            self.hand.act("release")

    def change_settings(self) -> None:
        """Switches something off for a while, or in the middle of a drag."""
        setting = self.random.choice(["dragToSnap", "shadowRecording", "shadowRecording"])
        window = self.pick()
        held = self.random.random() < 0.4 and self.drag(window, self.aim(), ends=False)
        self.hand.change(**{setting: False})
        if held:
            self.hand.pull(window, self.aim(), 400, MOVES)
        if self.random.random() < 0.5:
            self.hand.change(**{setting: True})
        if held:
            self.hand.pull(window, self.aim(), self.random.choice([20, 60, 300]), MOVES)
            self.hand.release()
        for _ in range(self.random.randint(0, 4) if not self.hand.settings[setting] else 0):
            self.snap_by_drag()
        self.hand.change(**{setting: True})


def half_hour_lines(random: Random, count: int) -> Iterator[str]:
    """One line for each half-hour: its script, and what the drag log holds after it."""
    for _ in range(count):
        script = User(random).work()
        lines = expected_lines(script)
        yield " ".join([json.dumps(script, separators=(",", ":")), str(len(lines)), *lines])
