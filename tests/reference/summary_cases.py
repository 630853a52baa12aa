"""Logs of drags, in any order, by users whom the rule suits and by users whom it does not."""

import json
from random import Random
from typing import Callable, Iterator

from columns import flag, number, numbers, optional_number, optional_text
from drag_features import LESSONS
from drag_model import TODAYS_EDGE
from drag_report import ShadowRecord, ShadowSummary, summarize, text, utc

FOLLOWS = list(LESSONS)
ZONES = ["leftHalf", "rightHalf", "maximize", "topLeft", "bottomRight"]


def record(random: Random, distance: float, rule: bool, follow: str) -> ShadowRecord:
    """A record of a drag; its time is given to it later."""
    return ShadowRecord(
        at=0,
        screen="1440x900",
        distance=distance,
        speed=round(random.uniform(0, 1500) * random.random(), 2),
        dwell=round(random.uniform(0, 1), 2),
        settled=round(random.random(), 2),
        neighbour=random.random() < 0.3,
        rule=rule,
        zone=random.choice(ZONES) if rule else random.choice([*ZONES, None]),
        follow=follow,
    )


def wanted(random: Random, edge: float, diligence: float) -> ShadowRecord:
    """A drag by somebody who wants snaps within an edge of their own and often puts right what went wrong."""
    distance = round(random.uniform(0, 24), 2)
    rule = distance <= TODAYS_EDGE
    wants = distance <= edge
    corrects = random.random() < diligence
    if rule:
        follow = "keptSnap" if wants or not corrects else "restoredOrMovedAway"
    else:
        follow = "draggedBackToSameEdge" if wants and corrects else "leftAlone"
    return record(random, distance, rule, follow)


def person(random: Random, size: int) -> list[ShadowRecord]:
    """The log of one person."""
    edge = random.choice([0.5, 2, 3, 6, 6, 12, 15, 20, 24])
    diligence = random.choice([0.05, 0.2, 0.5, 0.9, 1])
    return [wanted(random, edge, diligence) for _ in range(size)]


def change_of_heart(random: Random, size: int) -> list[ShadowRecord]:
    """A log in which the model may win trust, and lose it after the middle."""
    turn = random.randint(size // 2, size)
    return [wanted(random, 15 if i < turn else 1, 1) for i in range(size)]


def uneven_rule(random: Random, size: int) -> list[ShadowRecord]:
    """Drags that did not snap where the rule would have, a chosen few of them put right one way or the other."""
    wins, losses = random.choice([(8, 0), (7, 0), (0, 4), (0, 3), (0, 5), (12, 1), (12, 3), (2, 9), (20, 0), (5, 5)])
    records = [record(random, 3.0, False, "draggedBackToSameEdge") for _ in range(wins)]
    records += [record(random, 3.0, False, "restoredOrMovedAway") for _ in range(losses)]
    records += [record(random, 4.0, True, "restoredOrMovedAway") for _ in range(random.choice([0, 9, 10]))]
    while len(records) < size:
        records.append(record(random, 2.0, True, "keptSnap"))
    random.shuffle(records)
    return records[:size]


def anything(random: Random, size: int) -> list[ShadowRecord]:
    """Records that need not make sense together."""
    return [record(random, random.choice([5.99, 6.0, 6.01, 24.0, -0.5, round(random.uniform(0, 24), 2)]),
                   random.random() < 0.5, random.choice(FOLLOWS)) for _ in range(size)]


def rare(random: Random, size: int) -> list[ShadowRecord]:
    """About as many corrections as are needed to say anything."""
    records = person(random, size)
    for other in records:
        other.follow = "keptSnap" if other.rule else "leftAlone"
    for other in records[:random.choice([8, 9, 9, 10, 11])]:
        other.follow = "restoredOrMovedAway" if other.rule else "draggedBackToSameEdge"
    return records


LOGS: list[Callable[[Random, int], list[ShadowRecord]]] = [
    person, person, change_of_heart, uneven_rule, uneven_rule, anything, rare]


def size_of_log(random: Random) -> int:
    """How many records a log holds."""
    return random.choice([0, 1, random.randint(0, 30), random.randint(0, 30), random.randint(0, 48),
                          49, 50, 50, 51, random.randint(50, 90), random.randint(52, 400), random.randint(200, 400)])


def log(random: Random) -> list[ShadowRecord]:
    """A log with its times: many drags share a minute, and the lines are more or less out of order."""
    records = random.choice(LOGS)(random, size_of_log(random))
    at = random.randint(16_000_000, 60_000_000) * 60
    pauses = random.choice([[0], [0, 0, 60], [0, 60, 3600], [0, 60, 86_400], [0, 7, 60]])
    for other in records:
        at += random.choice(pauses)
        other.at = at
    if random.random() < 0.7:
        random.shuffle(records)
    return records


def record_columns(one: ShadowRecord) -> list[str]:
    """A record, without the size of the display."""
    return [str(one.at), *numbers([one.distance, one.speed, one.dwell, one.settled]), flag(one.neighbour),
            flag(one.rule), optional_text(one.zone), one.follow]


def answer_columns(summary: ShadowSummary) -> list[str]:
    """The summary and the report made of it."""
    counts = [summary.candidates, summary.rule_snaps, summary.corrected, summary.kept_snaps, summary.redragged,
              summary.left_alone, summary.model_differs, summary.model_right, summary.rule_right]
    report = text(summary, lambda seconds: utc(seconds).strftime("%Y-%m-%d"))
    return [
        *(str(count) for count in counts), flag(summary.model_trusted),
        optional_text(summary.first_day), optional_text(summary.last_day), summary.verdict(),
        number(summary.evidence()), optional_number(summary.false_snap_rate()), optional_number(summary.miss_rate()),
        json.dumps(report, ensure_ascii=True).replace(" ", "\\u0020"),
    ]


def summary_lines(random: Random, count: int) -> Iterator[str]:
    """One line for each log."""
    for _ in range(count):
        records = log(random)
        columns = [str(len(records))]
        for one in records:
            columns += record_columns(one)
        yield " ".join(columns + answer_columns(summarize(records)))
