"""Event lists: drags that end near edges, and what happens to their windows soon after or too late."""

from random import Random
from typing import Iterator

from columns import flag, numbers, optional_text
from drag_features import DragFeatures
from drag_recorder import FOLLOW_UP_WINDOW, Event, records_of
from drag_report import json_line

ACTIONS = """leftHalf rightHalf topHalf bottomHalf topLeft topRight bottomLeft bottomRight leftThird centerThird
    rightThird leftTwoThirds rightTwoThirds topLeftSixth topCenterSixth topRightSixth bottomLeftSixth
    bottomCenterSixth bottomRightSixth firstFourth secondFourth thirdFourth lastFourth leftThreeFourths
    rightThreeFourths maximize almostMaximize center centerLarge maximizeHeight maximizeWidth larger smaller restore
    nextDisplay previousDisplay""".split()
ZONES = ["leftHalf", "rightHalf", "maximize"]
KINDS = ["release"] * 4 + ["moved"] * 2 + ["action"] * 4 + ["tick"] * 3 + ["flush", "discard"]
WINDOWS = [1, 2, 3, 4, -7]
PAUSES = [0, 0, 1, 250_000, 999_999, 1_000_000, 1_500_000, 2_000_000, 4_000_000, 4_000_001, 61_000_000]
DISTANCES = [0.0, 0.005, 0.125, 1.005, 2.675, 5.994999, 6.0, 23.995, 23.996, 24.0, 24.000001, 24.01, 30.0, -0.125, -3.5]
SCREENS = [(1440.0, 900.0), (2560.0, 1440.0), (1439.5, 899.49), (1920.4999, 1080.5), (0.5, 1.5), (1728.25, 1117.75)]


def measure(random: Random, most: float) -> float:
    """A measure of a drag; often exactly between two hundredths, so that the rounding shows."""
    return random.choice([0.0, 1.0, random.uniform(0, most), random.randint(0, 800) / 800 * most,
                          random.randint(0, int(most * 8)) / 8, round(random.uniform(0, most), 3)])


def released(random: Random, time: int, window: int) -> Event:
    """The end of a drag."""
    distance = random.choice(DISTANCES) if random.random() < 0.5 else measure(random, 26)
    features = DragFeatures(distance, measure(random, 3000), measure(random, 5), measure(random, 1),
                            random.random() < 0.5)
    intended = random.choice([*ZONES, *ZONES, random.choice(ACTIONS), None])
    snapped = random.choice([intended, None, None, random.choice(ZONES)])
    return Event(time, "release", window, features, random.choice(SCREENS), snapped, intended)


def start(random: Random) -> int:
    """When a list of events begins; often just before a minute ends, seldom before 1970."""
    minute = random.randint(16_000_000, 60_000_000) if random.random() < 0.97 else random.randint(-2000, 2)
    return minute * 60_000_000 + random.choice([0, 59_999_999, 59_000_000, random.randint(0, 59_999_999)])


def next_time(random: Random, time: int, last_release: int | None) -> int:
    """Some pause later, often at or next to the moment when the last drag's follow-up is over."""
    over = None if last_release is None else last_release + FOLLOW_UP_WINDOW + random.choice([-1, 0, 1])
    if over is not None and over >= time and random.random() < 0.15:
        return over
    return time + random.choice([*PAUSES, random.randint(0, 3_000_000)])


def event_list(random: Random, count: int) -> list[Event]:
    """Events in order of time, on a few windows."""
    time, last_release = start(random), None
    windows = random.sample(WINDOWS, random.randint(1, len(WINDOWS)))
    events: list[Event] = []
    for _ in range(count):
        time = next_time(random, time, last_release)
        kind = random.choice(KINDS)
        if kind in ("flush", "discard") and random.random() < 0.6:
            kind = "release"
        if kind == "release":
            events.append(released(random, time, random.choice(windows)))
            last_release = time
        elif kind == "action":
            action = random.choice([*ZONES, *ZONES, "restore", "restore", random.choice(ACTIONS)])
            events.append(Event(time, kind, random.choice(windows), action=action))
        elif kind == "moved":
            events.append(Event(time, kind, random.choice(windows)))
        else:
            events.append(Event(time, kind))
    return events


def event_columns(event: Event) -> list[str]:
    """An event, in as many columns as its kind has."""
    columns = [str(event.time), event.kind, str(event.window)]
    if event.kind == "release":
        drag = event.features
        columns += numbers([drag.distance, drag.speed, drag.dwell, drag.settled]) + [flag(drag.neighbour)]
        columns += numbers(list(event.screen)) + [optional_text(event.snapped), optional_text(event.intended)]
    elif event.kind == "action":
        columns.append(event.action)
    return columns


def recording_lines(random: Random, count: int) -> Iterator[str]:
    """One line for each list of events; every second one is closed by a flush."""
    for i in range(count):
        events = event_list(random, random.choice([random.randint(0, 6), random.randint(5, 40)]))
        if i % 2 == 0 and events:
            events.append(Event(events[-1].time, "flush"))
        columns = [str(len(events))]
        for event in events:
            columns += event_columns(event)
        lines = [json_line(record) for record in records_of(events)]
        yield " ".join([*columns, str(len(lines)), *lines])
