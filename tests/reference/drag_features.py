"""The path of one drag, the few numbers that describe it, and what follows it teaches."""

from dataclasses import dataclass, field
from typing import NamedTuple

REACH = 24.0  # points
SPEED_WINDOW = 0.12  # seconds
FASTEST = 2000.0  # points per second
LONGEST_DWELL = 0.6  # seconds

# What the user did afterwards: was a snap wanted, and how much that counts.
LESSONS = {
    "restoredOrMovedAway": (False, 1.0),
    "keptSnap": (True, 0.4),
    "draggedBackToSameEdge": (True, 1.0),
    "leftAlone": (False, 0.25),
}


class Sample(NamedTuple):
    """Where the cursor was, t seconds after the drag began."""

    t: float
    x: float
    y: float


class Rect(NamedTuple):
    """A frame in points, y growing downwards."""

    x: float
    y: float
    width: float
    height: float


class Display(NamedTuple):
    """A connected display."""

    id: int
    frame: Rect


@dataclass
class DragTrace:
    """The newest samples of a drag, oldest first; never more than 401."""

    samples: list[Sample] = field(default_factory=list)

    def append(self, sample: Sample) -> None:
        """Adds a sample; a trace that was full before loses its oldest hundred."""
        held = len(self.samples)
        self.samples.append(sample)
        if held >= 400:
            del self.samples[:100]


@dataclass
class NeighbourEdges:
    """Across which edges of a display another one lies."""

    left: bool = False
    right: bool = False
    top: bool = False
    bottom: bool = False


def neighbours_around(display: Display, among: list[Display]) -> NeighbourEdges:
    """The edges of a display that lead on to another display of the list."""
    edges = NeighbourEdges()
    x, y, w, h = display.frame
    for other in among:
        if other.id == display.id:
            continue
        ox, oy, ow, oh = other.frame
        horizontal_overlap = min(ox + ow, x + w) - max(ox, x)
        vertical_overlap = min(oy + oh, y + h) - max(oy, y)
        if vertical_overlap > 1:
            if abs((ox + ow) - x) <= 2:
                edges.left = True
            if abs(ox - (x + w)) <= 2:
                edges.right = True
        if horizontal_overlap > 1:
            if abs((oy + oh) - y) <= 2:
                edges.top = True
            if abs(oy - (y + h)) <= 2:
                edges.bottom = True
    return edges


@dataclass
class DragFeatures:
    """Five measures of a drag at its release."""

    distance: float
    speed: float
    dwell: float
    settled: float
    neighbour: bool

    def vector(self) -> list[float]:
        """The seven inputs of the model."""
        speed = scaled(self.speed, FASTEST)
        return [
            1.0,
            scaled(self.distance, REACH),
            speed,
            scaled(self.dwell, LONGEST_DWELL),
            scaled(self.settled, 1.0),
            1.0 if self.neighbour else 0.0,
            speed if self.neighbour else 0.0,
        ]


def scaled(value: float, full: float) -> float:
    """The share of full that value is, held between 0 and 1."""
    if value <= 0:
        return 0.0
    if value > full:
        return 1.0
    return value / full


def speed_ending_at(samples: list[Sample], i: int) -> float:
    """The straight-line speed over the last 0.12 seconds before sample i, or over all there is."""
    end = samples[i]
    start = samples[0]
    for j in range(i - 1, -1, -1):
        if end.t - samples[j].t >= SPEED_WINDOW:
            start = samples[j]
            break
    if not start.t < end.t:
        return 0.0
    # The length of a complex number is the C library's hypot; math.hypot rounds in its own way.
    return abs(complex(end.x - start.x, end.y - start.y)) / (end.t - start.t)


def edge_distance(edge: str, sample: Sample, frame: Rect) -> float:
    """How far a sample lies from one edge, positive inside the frame."""
    if edge == "left":
        return sample.x - frame.x
    if edge == "right":
        return (frame.x + frame.width) - sample.x
    if edge == "top":
        return sample.y - frame.y
    return (frame.y + frame.height) - sample.y


def nearest_edge(sample: Sample, frame: Rect) -> str:
    """The edge a sample is nearest to; of equals the earlier of left, right, top, bottom."""
    nearest = "left"
    for edge in ("right", "top", "bottom"):
        if not edge_distance(nearest, sample, frame) <= edge_distance(edge, sample, frame):
            nearest = edge
    return nearest


def dwell_at(edge: str, samples: list[Sample], frame: Rect) -> float:
    """How long, up to the last sample, the path had stayed within reach of the edge."""
    dwell = 0.0
    for sample in reversed(samples):
        if edge_distance(edge, sample, frame) > REACH:
            break
        dwell = samples[-1].t - sample.t
    return dwell


def make_features(trace: DragTrace, frame: Rect, neighbours: NeighbourEdges) -> DragFeatures | None:
    """The measures of a drag that ended on a display; none for fewer than two samples."""
    samples = trace.samples
    if len(samples) < 2:
        return None
    last = len(samples) - 1
    edge = nearest_edge(samples[last], frame)
    speed = speed_ending_at(samples, last)
    peak = max(speed_ending_at(samples, i) for i in range(1, last + 1))
    settled = 1 - min(speed / peak, 1) if peak > 1.0 else 1.0
    return DragFeatures(
        distance=edge_distance(edge, samples[last], frame),
        speed=speed,
        dwell=dwell_at(edge, samples, frame),
        settled=float(settled),
        neighbour=getattr(neighbours, edge),
    )
