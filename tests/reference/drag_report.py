"""The line of one drag in the log, and the report over a log."""

import datetime
import json
import math
from dataclasses import dataclass
from typing import Callable

from drag_features import DragFeatures
from drag_model import DragIntentModel, evidence_of

MIN_DRAGS = 50
MIN_CORRECTIONS = 10


@dataclass
class ShadowRecord:
    """One line of the log; at is in whole seconds since 1970."""

    at: int
    screen: str
    distance: float
    speed: float
    dwell: float
    settled: float
    neighbour: bool
    rule: bool
    zone: str | None
    follow: str

    def features(self) -> DragFeatures:
        """The measures, for the model to learn from."""
        return DragFeatures(self.distance, self.speed, self.dwell, self.settled, self.neighbour)


def round_half_away(x: float) -> float:
    """The nearest whole number, halves away from zero."""
    whole = math.floor(abs(x))
    if abs(x) - whole >= 0.5:
        whole += 1
    return math.copysign(whole, x)


def two_places(x: float) -> float:
    """Rounded to two decimal places."""
    return round_half_away(x * 100) / 100


def minute_of(microseconds: int) -> int:
    """The whole minute a moment lies in, in seconds since 1970."""
    return microseconds // 60_000_000 * 60


def screen_text(width: float, height: float) -> str:
    """The size of a display, such as 1440x900."""
    return f"{int(round_half_away(width))}x{int(round_half_away(height))}"


def shadow_record(microseconds: int, screen: tuple[float, float], features: DragFeatures, rule: bool,
                  zone: str | None, follow: str) -> ShadowRecord:
    """The record of a drag released at a moment, with nothing in it finer than it need be."""
    return ShadowRecord(
        at=minute_of(microseconds),
        screen=screen_text(*screen),
        distance=two_places(features.distance),
        speed=two_places(features.speed),
        dwell=two_places(features.dwell),
        settled=two_places(features.settled),
        neighbour=features.neighbour,
        rule=rule,
        zone=zone,
        follow=follow,
    )


def utc(seconds: int) -> datetime.datetime:
    """A moment on the UTC calendar."""
    return datetime.datetime(1970, 1, 1) + datetime.timedelta(seconds=seconds)


def json_line(record: ShadowRecord) -> str:
    """The record as one line of JSON, keys sorted, without the line feed."""
    fields = {"v": 1, "at": utc(record.at).strftime("%Y-%m-%dT%H:%M:%SZ")}
    for name in ("screen", "neighbour", "rule", "follow"):
        fields[name] = getattr(record, name)
    for name in ("distance", "speed", "dwell", "settled"):
        value = getattr(record, name)
        fields[name] = int(value) if value == math.floor(value) else value
    if record.zone is not None:
        fields["zone"] = record.zone
    return json.dumps(fields, sort_keys=True, separators=(",", ":"))


@dataclass
class ShadowSummary:
    """The counts of a log, and how the replayed model fared."""

    candidates: int = 0
    rule_snaps: int = 0
    corrected: int = 0
    kept_snaps: int = 0
    redragged: int = 0
    left_alone: int = 0
    model_differs: int = 0
    model_right: int = 0
    rule_right: int = 0
    model_trusted: bool = False
    first_day: int | None = None
    last_day: int | None = None

    def corrections(self) -> int:
        """Drags that the user put right."""
        return self.corrected + self.redragged

    def false_snap_rate(self) -> float | None:
        """Undone snaps among all snaps."""
        return self.corrected / self.rule_snaps if self.rule_snaps != 0 else None

    def miss_rate(self) -> float | None:
        """Snaps done by hand among all drags that did not snap."""
        unsnapped = self.candidates - self.rule_snaps
        return self.redragged / unsnapped if unsnapped != 0 else None

    def evidence(self) -> float:
        """Standard errors by which the model is ahead of the rule."""
        return evidence_of(self.model_right, self.rule_right)

    def verdict(self) -> str:
        """The name of the conclusion."""
        if self.candidates < MIN_DRAGS:
            return "notEnoughDrags"
        if self.corrections() < MIN_CORRECTIONS:
            return "tooFewCorrections"
        if self.model_right + self.rule_right < 1:
            return "noClearDifference"
        z = (self.model_right - self.rule_right) / math.sqrt(self.model_right + self.rule_right)
        if z >= 2.5 and self.model_right > 7:
            return "modelWouldHelp"
        if z <= -2.0:
            return "ruleIsBetter"
        return "noClearDifference"


def summarize(records: list[ShadowRecord]) -> ShadowSummary:
    """Replays a log in time order through a fresh model."""
    ordered = sorted(records, key=lambda record: record.at)
    summary = ShadowSummary()
    if ordered:
        summary.first_day = ordered[0].at
        summary.last_day = ordered[-1].at
    model = DragIntentModel()
    for record in ordered:
        count(summary, record)
        compare(summary, record, model.should_snap(record.features()))
        model.learn_follow_up(record.features(), record.follow)
    summary.model_trusted = model.trusted
    return summary


def count(summary: ShadowSummary, record: ShadowRecord) -> None:
    """Counts what happened."""
    summary.candidates += 1
    if record.rule:
        summary.rule_snaps += 1
    if record.follow == "restoredOrMovedAway":
        summary.corrected += 1
    elif record.follow == "keptSnap":
        summary.kept_snaps += 1
    elif record.follow == "draggedBackToSameEdge":
        summary.redragged += 1
    else:
        summary.left_alone += 1


def compare(summary: ShadowSummary, record: ShadowRecord, decision: bool) -> None:
    """Counts who was right where the model's decision and what happened differ."""
    if decision == record.rule:
        return
    summary.model_differs += 1
    if record.follow == "draggedBackToSameEdge":
        model_right = decision
    elif record.follow == "restoredOrMovedAway":
        model_right = not decision
    else:
        return
    if model_right:
        summary.model_right += 1
    else:
        summary.rule_right += 1


def percentage(rate: float | None) -> str:
    """A rate in whole percent."""
    return "n/a" if rate is None else "%.0f%%" % (rate * 100)


def verdict_line(summary: ShadowSummary) -> str:
    """The last line of the report."""
    return "Verdict: " + {
        "notEnoughDrags": f"not enough drags yet ({summary.candidates} of {MIN_DRAGS} needed). "
                          "Keep using Tilwin and run this again.",
        "tooFewCorrections": f"you correct snaps rarely ({summary.corrections()} so far), "
                             "so today's rule seems to suit you. Nothing to change.",
        "modelWouldHelp": "the learned model would have beaten today's rule on your own corrections. "
                          "Worth turning on.",
        "ruleIsBetter": "today's rule did better than the learned model on your corrections. Leave it as it is.",
        "noClearDifference": "no clear difference yet between the model and today's rule.",
    }[summary.verdict()]


def text(summary: ShadowSummary, day: Callable[[int], str]) -> str:
    """The report; day writes the date of a moment given in seconds since 1970."""
    lines = ["Tilwin drag report (recorded on this Mac, never sent anywhere)"]
    if summary.first_day is not None and summary.last_day is not None:
        lines.append(f"Period: {day(summary.first_day)} to {day(summary.last_day)}")
    unsnapped = summary.candidates - summary.rule_snaps
    lines += [
        f"Drags that ended near a screen edge: {summary.candidates}",
        f"  Snapped by today's rule: {summary.rule_snaps}   (undone or moved away within seconds: "
        f"{summary.corrected}, {percentage(summary.false_snap_rate())}; left alone: {summary.kept_snaps})",
        f"  Not snapped: {unsnapped}   (then done by hand within seconds: "
        f"{summary.redragged}, {percentage(summary.miss_rate())} at least; left alone: {summary.left_alone})",
        "Learned model, replayed over the same drags:",
        f"  Would have decided differently on {summary.model_differs} drags; matched your correction where "
        f"the rule did not on {summary.model_right}, the rule matched where the model did not on "
        f"{summary.rule_right}.",
        "  Evidence for the model over the rule: %.1f standard errors (about 2.5 or more is convincing)."
        % summary.evidence(),
        verdict_line(summary),
    ]
    return "\n".join(lines)
