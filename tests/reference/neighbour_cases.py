"""Displays that meet, nearly meet and overlap."""

from random import Random
from typing import Iterator

from columns import flag, numbers
from drag_features import Display, Rect, neighbours_around

SIZES = [(1440.0, 900.0), (1920.0, 1080.0), (2560.0, 1440.0), (1080.0, 1920.0), (1728.25, 1117.5), (3.0, 2.0)]
GAPS = [0.0, 0.0, 0.5, 1.0, 2.0, 2.0, 2.000001, 2.5, 3.0, 4.0, -1.0, -2.0, -2.5, -3.0]
OVERLAPS = [-10.0, 0.0, 0.5, 0.999999, 1.0, 1.0, 1.000001, 1.5, 2.0, 300.0]


def frame_beside(random: Random, frame: Rect) -> Rect:
    """A frame about a gap away across one edge, sharing about so much of its length."""
    w, h = random.choice(SIZES)
    gap = random.choice(GAPS)
    overlap = random.choice(OVERLAPS)
    along_x = random.choice([frame.x + frame.width - overlap, frame.x - w + overlap])
    along_y = random.choice([frame.y + frame.height - overlap, frame.y - h + overlap])
    return random.choice([
        Rect(frame.x - gap - w, along_y, w, h),
        Rect(frame.x + frame.width + gap, along_y, w, h),
        Rect(along_x, frame.y - gap - h, w, h),
        Rect(along_x, frame.y + frame.height + gap, w, h),
    ])


def displays_around(random: Random, display: Display) -> list[Display]:
    """The connected displays, the given one among them or not, some with its id."""
    found = []
    for _ in range(random.choice([0, 1, 1, 1, 2, 2, 3, 4, 5])):
        identity = display.id if random.random() < 0.1 else random.randint(-2, 900)
        if random.random() < 0.85:
            frame = frame_beside(random, display.frame)
        else:
            frame = Rect(random.randint(-3000, 3000), random.randint(-3000, 3000), *random.choice(SIZES))
        found.append(Display(identity, frame))
    if random.random() < 0.5:
        found.insert(random.randint(0, len(found)), display)
    return found


def neighbour_lines(random: Random, count: int) -> Iterator[str]:
    """One line for each display and its company."""
    for _ in range(count):
        corner = random.choice([(0, 0), (-1920, -400), (random.randint(-3000, 3000), random.uniform(-2000, 2000))])
        display = Display(random.randint(1, 900), Rect(*corner, *random.choice(SIZES)))
        among = displays_around(random, display)
        columns = [str(display.id)] + numbers(list(display.frame)) + [str(len(among))]
        for other in among:
            columns += [str(other.id)] + numbers(list(other.frame))
        edges = neighbours_around(display, among)
        columns += [flag(edge) for edge in (edges.left, edges.right, edges.top, edges.bottom)]
        yield " ".join(columns)
