"""Where a window should stand, and what to say of where it does. Computes only; all lengths are in points."""

from dataclasses import dataclass
from math import floor
from typing import NamedTuple


class Frame(NamedTuple):
    """What one sees of a window: with its title bar, without its shadow."""
    x: int
    y: int
    width: int
    height: int

    @property
    def right(self):
        return self.x + self.width

    @property
    def bottom(self):
        return self.y + self.height

    def __str__(self):
        return f"{self.x},{self.y} {self.width}×{self.height}"


class Hints(NamedTuple):
    """What a window says of its client area's size, each as (across, down); no increments are steps of 1."""
    minimum: tuple = (1, 1)
    maximum: tuple = (1 << 15, 1 << 15)
    base: tuple = (0, 0)
    step: tuple = (1, 1)
    aspects: tuple = ()  # the smallest and the largest width by height


@dataclass(frozen=True)
class Verdict:
    text: str
    is_right: bool


EXACT = Verdict("exact", True)


def nearest(value):
    """Halves are rounded up; Python's own rounding goes to the even neighbour."""
    return floor(value + 0.5)


def tile(area, across, down):
    """The part of the area from one share of its width, or height, to another."""
    return Frame(nearest(area.x + across[0] * area.width), nearest(area.y + down[0] * area.height),
                 nearest((across[1] - across[0]) * area.width), nearest((down[1] - down[0]) * area.height))


def nearest_length(wanted, axis, hints):
    """The client area's length along an axis that comes nearest to the wanted one without being larger."""
    smallest, largest = hints.minimum[axis], hints.maximum[axis]
    base, step = hints.base[axis], hints.step[axis]
    in_steps = base + max(0, (wanted - base) // step) * step
    return min(max(in_steps, smallest), largest)


def keeps_aspect(size, wanted, hints):
    """In the proportions it says, and no smaller than fits; a point off either comes of whole numbers.

    Whether such a window is to be larger than its tile in one direction or smaller in the other, managers see differently.
    """
    if not hints.aspects:
        return False
    narrowest, widest = hints.aspects
    width, height = size
    is_in_proportion = narrowest * (height - 1) <= width + 1 and width - 1 <= widest * (height + 1)
    return is_in_proportion and any(size[axis] >= nearest_length(wanted[axis], axis, hints) - 1 for axis in (0, 1))


def is_as_near_as_it_can(size, wanted, hints):
    return keeps_aspect(size, wanted, hints) or all(
        size[axis] == nearest_length(wanted[axis], axis, hints) for axis in (0, 1))


def outer_start(start, length, taken, area_start, area_length):
    """Where a window longer than its tile starts: at the tile's outer side, and never beyond the area."""
    to_start, to_end = start - area_start, area_start + area_length - start - length
    if abs(to_start - to_end) <= 1:
        start = nearest(start + (length - taken) / 2)
    elif to_start > to_end:
        start += length - taken
    return max(min(start, area_start + area_length - taken), area_start)


def place(wanted, size, area):
    """Where a window of that size stands that was to fill the wanted frame."""
    x, y = wanted.x, wanted.y
    if size[0] > wanted.width:
        x = outer_start(wanted.x, wanted.width, size[0], area.x, area.width)
    if size[1] > wanted.height:
        y = outer_start(wanted.y, wanted.height, size[1], area.y, area.height)
    return Frame(x, y, *size)


def is_within(seen, area):
    return (seen.x >= area.x and seen.y >= area.y and seen.right <= area.right and seen.bottom <= area.bottom)


def has_room(area, hints, decoration):
    return all(area[2 + axis] - decoration[axis] >= hints.minimum[axis] for axis in (0, 1))


def difference(seen, wanted):
    across, down = seen.width - wanted.width, seen.height - wanted.height
    words = [f"{abs(across)} {'wider' if across > 0 else 'narrower'}"] if across else []
    return ", ".join(words + ([f"{abs(down)} {'higher' if down > 0 else 'lower'}"] if down else []))


def judge(seen, wanted, area, hints, decoration):
    """Compares a frame with the wanted one. A window may be off as far as its own hints say it cannot be otherwise.

    The decoration is what the frame has more than the client area, across and down.
    """
    if seen == wanted:
        return EXACT
    size = (seen.width - decoration[0], seen.height - decoration[1])
    asked = (wanted.width - decoration[0], wanted.height - decoration[1])
    if not is_within(seen, area) and has_room(area, hints, decoration):
        return Verdict(f"OFF: stands at {seen}, beyond the free area", False)
    if is_as_near_as_it_can(size, asked, hints) and seen == place(wanted, seen[2:], area):
        return Verdict(difference(seen, wanted), True)
    return Verdict(f"OFF: stands at {seen}, not {wanted}", False)
