"""Where windows go: the zone under the cursor, the frames of actions, and what the user can have back."""

from dataclasses import dataclass, field

from desktop import Desktop, Screen, display_of, overlap
from drag_features import Rect
from drag_report import round_half_away

# Columns, rows, column, row, columns spanned, rows spanned.
GRIDS = {
    "leftHalf": (2, 1, 0, 0, 1, 1),
    "rightHalf": (2, 1, 1, 0, 1, 1),
    "topHalf": (1, 2, 0, 0, 1, 1),
    "bottomHalf": (1, 2, 0, 1, 1, 1),
    "topLeft": (2, 2, 0, 0, 1, 1),
    "topRight": (2, 2, 1, 0, 1, 1),
    "bottomLeft": (2, 2, 0, 1, 1, 1),
    "bottomRight": (2, 2, 1, 1, 1, 1),
    "leftThird": (3, 1, 0, 0, 1, 1),
    "centerThird": (3, 1, 1, 0, 1, 1),
    "rightThird": (3, 1, 2, 0, 1, 1),
    "leftTwoThirds": (3, 1, 0, 0, 2, 1),
    "rightTwoThirds": (3, 1, 1, 0, 2, 1),
    "maximize": (1, 1, 0, 0, 1, 1),
}
CYCLES = [["leftHalf", "leftTwoThirds", "leftThird"], ["rightHalf", "rightTwoThirds", "rightThird"]]
TITLE_STRIP = 40.0  # points


def zone_at(x: float, y: float, frame: Rect, edge: float, corner: float) -> str | None:
    """What letting go at a point of a display does, given how far its edges and corners reach."""
    left, right = x - frame.x, frame.x + frame.width - x
    top, bottom = y - frame.y, frame.y + frame.height - y
    if left < -1 or top < -1 or right < 0 or bottom < 0:
        return None
    for zone, across, down in (("topLeft", left, top), ("topRight", right, top), ("bottomLeft", left, bottom),
                               ("bottomRight", right, bottom)):
        if (across <= corner and down <= edge) or (down <= corner and across <= edge):
            return zone
    for zone, distance in (("maximize", top), ("leftHalf", left), ("rightHalf", right), ("bottomHalf", bottom)):
        if distance <= edge:
            return zone
    return None


@dataclass
class Snapping:
    """Carries out actions on the windows of a desktop."""

    desktop: Desktop
    outer: float = 0.0
    gap: float = 0.0
    cycle_widths: bool = True
    ignored: list[str] = field(default_factory=list)
    previous: dict[int, Rect] = field(default_factory=dict)

    def frame(self, action: str, area: Rect) -> Rect:
        """Where an action of the grid puts a window."""
        columns, rows, column, row, across, down = GRIDS[action]
        cell_width = (max(area.width - 2 * self.outer, 1) - (columns - 1) * self.gap) / columns
        cell_height = (max(area.height - 2 * self.outer, 1) - (rows - 1) * self.gap) / rows
        return Rect(
            round_half_away(area.x + self.outer + (cell_width + self.gap) * column),
            round_half_away(area.y + self.outer + (cell_height + self.gap) * row),
            round_half_away(cell_width * across + (across - 1) * self.gap),
            round_half_away(cell_height * down + (down - 1) * self.gap),
        )

    def snap(self, window: int, zone: str, screen: Screen, before: Rect) -> bool:
        """A drag was let go in a zone; `before` is where the window stood when it began."""
        self.previous.setdefault(window, before)
        return self.desktop.move(window, self.frame(zone, screen.visible))

    def perform(self, action: str) -> bool:
        """A shortcut was pressed for the window with the focus."""
        focused = self.desktop.focused
        if focused is None or self.desktop.windows[focused].app in self.ignored:
            return False
        current = self.desktop.windows[focused].frame
        area = display_of(current, self.desktop.screens).visible
        if action == "restore":
            return self.restore(focused, area)
        target = self.frame(self.cycled(action, current, area), area)
        if close(current, target, 1):
            return True
        self.previous.setdefault(focused, current)
        return self.desktop.move(focused, target)

    def cycled(self, action: str, current: Rect, area: Rect) -> str:
        """The next width when the window has one of this side already, else the action itself."""
        for cycle in CYCLES if self.cycle_widths else []:
            if action not in cycle:
                continue
            for i, member in enumerate(cycle):
                if close(self.frame(member, area), current, 2):
                    return cycle[(i + 1) % len(cycle)]
        return action

    def restore(self, window: int, area: Rect) -> bool:
        """Back to where the window stood before the first move, once; onto a display if that place is on none."""
        saved = self.previous.pop(window, None)
        if saved is None:
            return False
        strip = Rect(saved.x, saved.y, saved.width, min(saved.height, TITLE_STRIP))
        if any(overlap(strip, screen.visible) > 0.5 for screen in self.desktop.screens):
            return self.desktop.move(window, saved)
        width, height = min(saved.width, area.width), min(saved.height, area.height)
        x = min(max(saved.x, area.x), area.x + area.width - width)
        y = min(max(saved.y, area.y), area.y + area.height - height)
        return self.desktop.move(window, Rect(x, y, width, height))


def close(one: Rect, other: Rect, tolerance: float) -> bool:
    """Whether two frames are the same but for so many points on each count."""
    return all(abs(a - b) <= tolerance for a, b in zip(one, other))
