"""Lessons for one model, in phases of users who want different things."""

from itertools import islice
from random import Random
from typing import Callable, Iterator

from columns import flag, number, numbers
from drag_features import DragFeatures
from drag_model import DragIntentModel

DISTANCES = [6.0, 24.0, 6.000001, 5.999999, 24.000001, 23.999999, 0.0, -0.0, -1.5, -40.0, 25.0, 30.0, 400.0]
SPEEDS = [0.0, -10.0, 0.5, 1999.999, 2000.0, 2000.001, 2500.0, 12000.0]
DWELLS = [0.0, -1.0, 0.3, 0.599999, 0.6, 0.600001, 2.0, 60.0]
SETTLED = [0.0, -0.2, 0.5, 1.0, 1.3]


def ordinary_drag(random: Random) -> DragFeatures:
    """A drag such as people make, near an edge."""
    return DragFeatures(
        distance=random.uniform(0, 24),
        speed=random.uniform(0, 1500) * random.random(),
        dwell=random.uniform(0, 0.9),
        settled=random.random(),
        neighbour=random.random() < 0.3,
    )


def odd_drag(random: Random) -> DragFeatures:
    """A drag with measures at and beyond the limits."""
    return DragFeatures(
        distance=random.choice(DISTANCES),
        speed=random.choice(SPEEDS),
        dwell=random.choice(DWELLS),
        settled=random.choice(SETTLED),
        neighbour=random.random() < 0.5,
    )


# Users: what each wants of a drag.
USERS: list[Callable[[Random, DragFeatures], bool]] = [
    lambda random, drag: drag.distance <= 15,
    lambda random, drag: drag.distance <= 3,
    lambda random, drag: drag.distance <= 11 and random.random() < 0.97,
    lambda random, drag: drag.distance <= 6,
    lambda random, drag: drag.speed > 300 or drag.distance <= 1,
    lambda random, drag: drag.settled > 0.6 and not drag.neighbour,
    lambda random, drag: drag.dwell > 0.4,
    lambda random, drag: False,
    lambda random, drag: True,
    lambda random, drag: random.random() < 0.5,
]


def weight(random: Random) -> float:
    """How much a lesson counts: mostly as follow-ups do, else anything above 0 up to 3."""
    if random.random() < 0.8:
        return random.choice([0.25, 0.4, 1.0, 1.0])
    return 3.0 - 3.0 * random.random()


def tug_of_war(rounds: int) -> Iterator[tuple[DragFeatures, bool, float]]:
    """Heavy lessons that pull two weights apart until they can go no farther."""
    for _ in range(rounds):
        yield DragFeatures(24.0, 2000.0, 0.0, 0.0, True), True, 3.0
        yield DragFeatures(0.0, 0.0, 0.0, 0.0, True), False, 3.0
        yield DragFeatures(0.0, 2000.0, 0.0, 0.0, False), False, 3.0


def endless_lessons(random: Random) -> Iterator[tuple[DragFeatures, bool, float]]:
    """User after user; the first ones take turns, then anybody may come."""
    yield DragFeatures(6.0, 500.0, 0.1, 0.5, True), random.random() < 0.5, 1.0
    if random.random() < 0.5:
        yield from tug_of_war(40)
    phase = 0
    while True:
        user = USERS[phase % 2] if phase < 4 else random.choice(USERS)
        phase += 1
        for _ in range(random.randint(200, 1000)):
            drag = odd_drag(random) if random.random() < 0.06 else ordinary_drag(random)
            yield drag, user(random, drag), weight(random)


def lesson_lines(random: Random, count: int) -> Iterator[str]:
    """One line for each lesson of a single model."""
    model = DragIntentModel()
    for drag, snap, counts in islice(endless_lessons(random), count):
        columns = numbers([drag.distance, drag.speed, drag.dwell, drag.settled])
        columns += [flag(drag.neighbour), flag(snap), number(counts)]
        columns.append(number(model.probability(drag)))
        columns += [flag(model.learned_would_snap(drag)), flag(model.should_snap(drag))]
        model.learn(drag, snap, counts)
        columns += [str(model.updates), flag(model.trusted)]
        columns += numbers([model.model_only_right, model.rule_only_right, model.evidence()])
        columns += numbers(model.weights + model.averaged)
        yield " ".join(columns)
