"""Displays, windows and the cursor, as far as a drag can tell."""

from dataclasses import dataclass, field
from typing import NamedTuple

from drag_features import Rect


class Screen(NamedTuple):
    """A display, and what bars and docks leave of it."""

    id: int
    frame: Rect
    visible: Rect


@dataclass
class Window:
    """A window of some application."""

    app: str
    frame: Rect


@dataclass
class Desktop:
    """What there is, the front window first in the stack."""

    screens: list[Screen]
    windows: dict[int, Window] = field(default_factory=dict)
    stack: list[int] = field(default_factory=list)
    focused: int | None = None
    cursor: tuple[float, float] = (0.0, 0.0)

    def open(self, window: int, app: str, frame: Rect) -> None:
        """A window appears, in front of all."""
        self.windows[window] = Window(app, frame)
        self.focus(window)

    def close(self, window: int) -> None:
        """A window goes; the one behind it gets its focus."""
        del self.windows[window]
        self.stack.remove(window)
        if self.focused == window:
            self.focused = self.stack[0] if self.stack else None

    def focus(self, window: int) -> None:
        """Brings a window to the front."""
        if window in self.stack:
            self.stack.remove(window)
        self.stack.insert(0, window)
        self.focused = window

    def move(self, window: int, frame: Rect) -> bool:
        """Gives a window another frame, if it is there."""
        if window not in self.windows:
            return False
        self.windows[window].frame = frame
        return True

    def window_at(self, x: float, y: float) -> int | None:
        """The front window under a point."""
        return next((window for window in self.stack if contains(self.windows[window].frame, x, y)), None)

    def screen_at(self, x: float, y: float) -> Screen | None:
        """The first display that has the point."""
        return next((screen for screen in self.screens if contains(screen.frame, x, y)), None)


def contains(frame: Rect, x: float, y: float) -> bool:
    """Whether a point is in a frame, whose right and bottom edges are not."""
    return frame.x <= x < frame.x + frame.width and frame.y <= y < frame.y + frame.height


def overlap(frame: Rect, other: Rect) -> float:
    """The share of the first frame that the other covers."""
    width = min(frame.x + frame.width, other.x + other.width) - max(frame.x, other.x)
    height = min(frame.y + frame.height, other.y + other.height) - max(frame.y, other.y)
    if min(width, height, frame.width, frame.height) <= 0:
        return 0.0
    return width * height / (frame.width * frame.height)


def display_of(frame: Rect, screens: list[Screen]) -> Screen:
    """The display with the greatest share of a frame, the first of equals; the primary one when none has any."""
    return max(screens, key=lambda screen: overlap(frame, screen.frame))
