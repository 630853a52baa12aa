"""Cursor paths that end near, at or far from the edges of a display."""

from random import Random
from typing import Callable, Iterator

from columns import flag, numbers
from drag_features import DragTrace, NeighbourEdges, Rect, Sample, make_features

FRAMES = [
    Rect(0, 0, 1440, 900), Rect(0, 0, 2560, 1440), Rect(-1920, 0, 1920, 1080), Rect(1440, -300, 1080, 1920),
    Rect(-2560, -1440, 2560, 1440), Rect(0, -1080.5, 1728.25, 1080.5), Rect(-100, -100, 100, 100), Rect(5, 7, 40, 40),
]
STEPS = [0.0, 0.0, 0.016, 0.03, 0.03, 0.031, 0.04, 0.06, 0.12, 0.125, 0.5]
Points = list[tuple[float, float]]


def point_by_edge(random: Random, frame: Rect, distance: float) -> tuple[float, float]:
    """A point so far inside one edge, anywhere along it."""
    along_x = frame.x + float(random.randint(0, int(frame.width)))
    along_y = frame.y + float(random.randint(0, int(frame.height)))
    return random.choice([
        (frame.x + distance, along_y),
        (frame.x + frame.width - distance, along_y),
        (along_x, frame.y + distance),
        (along_x, frame.y + frame.height - distance),
    ])


def walk_to_edge(random: Random, frame: Rect, count: int) -> Points:
    """An unsteady way from the middle of the display to an edge."""
    x, y = frame.x + frame.width / 2, frame.y + frame.height / 2
    end = point_by_edge(random, frame, random.uniform(0, 30))
    points = []
    for left in range(count, 0, -1):
        x += (end[0] - x) / left + random.gauss(0, 3) * (left > 1)
        y += (end[1] - y) / left + random.gauss(0, 3) * (left > 1)
        points.append((x, y))
    return points


def rest_at_edge(random: Random, frame: Rect, count: int) -> Points:
    """A quick way to the edge, and a rest there in which the hand trembles or not."""
    walked = count // random.randint(2, 4)
    points = walk_to_edge(random, frame, walked) or [point_by_edge(random, frame, random.uniform(0, 10))]
    tremble = random.choice([0, 0, 0.5, 5])
    while len(points) < count:
        points.append((points[-1][0] + random.uniform(-tremble, tremble), points[-1][1]))
    return points


def into_corner(random: Random, frame: Rect, count: int) -> Points:
    """Whole steps that end equally far from two edges."""
    distance = float(random.randint(0, 26))
    x = random.choice([frame.x + distance, frame.x + frame.width - distance])
    y = random.choice([frame.y + distance, frame.y + frame.height - distance])
    points = [(x, y)]
    while len(points) < count:
        points.append((points[-1][0] + random.randint(-6, 6), points[-1][1] + random.randint(-6, 6)))
    return points[::-1]


def around_reach(random: Random, frame: Rect, count: int) -> Points:
    """A release exactly at the limit of reach, after steps within and just beyond it."""
    x, y = point_by_edge(random, frame, 24.0)
    points = [(x, y)]
    while len(points) < count:
        points.append((x + random.choice([-1, 0, 0, 1]), y + random.choice([-1, 0, 0, 1])))
    return points[::-1]


def slow(random: Random, frame: Rect, count: int) -> Points:
    """A way so slow that it hardly counts as moving; now and then just fast enough to."""
    x, y = point_by_edge(random, frame, random.uniform(0, 25))
    points = []
    for _ in range(count):
        x += random.choice([0.0, 0.001, 0.01, 0.03, 0.12])
        points.append((x, y))
    return points


def anywhere(random: Random, frame: Rect, count: int) -> Points:
    """Jumps all over the display and a little beyond it."""
    return [(frame.x + random.uniform(-0.1, 1.1) * frame.width, frame.y + random.uniform(-0.1, 1.1) * frame.height)
            for _ in range(count)]


PATHS: list[Callable[[Random, Rect, int], Points]] = [
    walk_to_edge, walk_to_edge, rest_at_edge, rest_at_edge, into_corner, around_reach, slow, anywhere]


def length(random: Random) -> int:
    """How many samples a drag has: few, seldom more than a trace can hold."""
    chance = random.random()
    if chance < 0.1:
        return random.randint(0, 3)
    if chance < 0.98:
        return random.randint(2, 40)
    return random.choice([399, 400, 401, 402, random.randint(41, 520)])


def times(random: Random, count: int) -> list[float]:
    """Times that never decrease, from a regular beat, an irregular one, or whole seconds."""
    manner = random.random()
    beat = random.choice(STEPS)
    if manner < 0.3:
        return [i * beat for i in range(count)]
    if manner < 0.4:
        return sorted(float(random.randint(0, 4)) for _ in range(count))
    t = 0.0
    result = []
    for _ in range(count):
        t += random.choice(STEPS) if manner < 0.7 else random.uniform(0, 0.06)
        result.append(t)
    return result


def trace_lines(random: Random, count: int) -> Iterator[str]:
    """One line for each drag."""
    for _ in range(count):
        frame = random.choice(FRAMES)
        edges = NeighbourEdges(*(random.random() < 0.5 for _ in range(4)))
        n = length(random)
        points = random.choice(PATHS)(random, frame, n)[:n]
        trace = DragTrace()
        for t, (x, y) in zip(times(random, n), points):
            trace.append(Sample(t, x, y))
        columns = numbers(list(frame)) + [flag(edge) for edge in (edges.left, edges.right, edges.top, edges.bottom)]
        columns.append(str(len(trace.samples)))
        for sample in trace.samples:
            columns += numbers(list(sample))
        features = make_features(trace, frame, edges)
        columns.append(flag(features is not None))
        if features is not None:
            columns += numbers([features.distance, features.speed, features.dwell, features.settled])
            columns.append(flag(features.neighbour))
            columns += numbers(features.vector())
        yield " ".join(columns)
