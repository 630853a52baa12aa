"""The edge cases of recording and of the report, held against the reference itself."""

import math
import random
import unittest

from drag_features import DragFeatures
from drag_recorder import Event, records_of
from drag_report import (ShadowRecord, ShadowSummary, json_line, minute_of, screen_text, shadow_record, summarize,
                         text, two_places, verdict_line)

SECOND = 1_000_000
NOON = 1_709_647_200 * SECOND  # 2024-03-05 14:00 UTC


def release(seconds: float, snapped: str | None = None, intended: str | None = "leftHalf", window: int = 1,
            distance: float = 3.0) -> Event:
    """The end of a drag, so many seconds after the hour."""
    return Event(NOON + int(seconds * SECOND), "release", window, DragFeatures(distance, 120, 0.5, 1, False),
                 (1440.0, 900.0), snapped, intended)


def event(seconds: float, kind: str, window: int = 1, action: str | None = None) -> Event:
    """Something else that happens."""
    return Event(NOON + int(seconds * SECOND), kind, window, action=action)


def follows(*events: Event) -> list[str]:
    """What the records say was done after each drag."""
    return [record.follow for record in records_of(list(events))]


def record(distance: float, rule: bool, follow: str, at: int = 0) -> ShadowRecord:
    """A line of the log."""
    return ShadowRecord(at, "1440x900", distance, 100.0, 0.2, 0.5, False, rule, None, follow)


class Recording(unittest.TestCase):
    """From events to records."""

    def test_drags_far_from_every_edge_leave_no_record(self) -> None:
        self.assertEqual(follows(release(0, distance=24.0), event(1, "flush")), ["leftAlone"])
        self.assertEqual(follows(release(0, distance=24.01), event(1, "flush")), [])
        self.assertEqual(follows(release(0, "maximize"), release(1, distance=24.01), event(2, "flush")), ["keptSnap"])

    def test_a_new_drag_undoes_a_fresh_snap(self) -> None:
        self.assertEqual(follows(release(0, "leftHalf"), event(4, "moved")), ["restoredOrMovedAway"])
        self.assertEqual(follows(release(0, "leftHalf"), event(4.000001, "moved")), ["keptSnap"])

    def test_a_new_drag_leaves_an_unsnapped_window_open(self) -> None:
        self.assertEqual(follows(release(0), event(1, "moved")), [])
        self.assertEqual(follows(release(0), event(1, "moved"), event(2, "action", action="leftHalf")),
                         ["draggedBackToSameEdge"])

    def test_a_tick_closes_only_what_is_past_its_time(self) -> None:
        self.assertEqual(follows(release(0, "leftHalf"), event(4, "tick")), [])
        self.assertEqual(follows(release(0, "leftHalf"), event(4.000001, "tick")), ["keptSnap"])
        self.assertEqual(follows(release(0), event(5, "tick")), ["leftAlone"])

    def test_only_the_zone_aimed_at_is_a_missed_snap(self) -> None:
        other = event(1, "action", action="rightHalf")
        self.assertEqual(follows(release(0), other), [])
        self.assertEqual(follows(release(0), other, event(5, "action", action="leftHalf")), ["leftAlone"])
        self.assertEqual(follows(release(0, intended=None), other, event(2, "flush")), ["leftAlone"])

    def test_only_restore_undoes_a_snap(self) -> None:
        snapped = release(0, "leftHalf")
        self.assertEqual(follows(snapped, event(1, "action", action="restore")), ["restoredOrMovedAway"])
        self.assertEqual(follows(snapped, event(1, "action", action="leftHalf"), event(2, "flush")), ["keptSnap"])
        self.assertEqual(follows(snapped, event(5, "action", action="restore")), ["keptSnap"])

    def test_a_second_release_closes_the_first(self) -> None:
        self.assertEqual(follows(release(0, "leftHalf"), release(1), event(2, "flush")), ["keptSnap", "leftAlone"])

    def test_other_windows_do_not_matter(self) -> None:
        self.assertEqual(follows(release(0, "leftHalf"), event(1, "moved", window=2)), [])

    def test_what_is_discarded_leaves_no_record(self) -> None:
        self.assertEqual(follows(release(0), event(1, "discard"), event(2, "flush")), [])

    def test_records_made_together_come_by_release_and_window(self) -> None:
        events = [release(1, window=9), release(0, "maximize", window=5), release(1, window=2)]
        events.sort(key=lambda one: one.time)
        zones = [(one.follow, one.rule) for one in records_of([*events, event(9, "tick")])]
        self.assertEqual(zones, [("keptSnap", True), ("leftAlone", False), ("leftAlone", False)])


class Lines(unittest.TestCase):
    """What a record holds."""

    def test_a_record_is_one_line_with_sorted_keys(self) -> None:
        made = shadow_record(NOON + 479 * SECOND, (1439.5, 900.0), DragFeatures(2.675, 12.0, 0.125, 1, True), True,
                             "leftHalf", "keptSnap")
        self.assertEqual(json_line(made), '{"at":"2024-03-05T14:07:00Z","distance":2.68,"dwell":0.13,'
                         '"follow":"keptSnap","neighbour":true,"rule":true,"screen":"1440x900","settled":1,'
                         '"speed":12,"v":1,"zone":"leftHalf"}')

    def test_a_missing_zone_is_left_out(self) -> None:
        self.assertNotIn("zone", json_line(record(1.5, False, "leftAlone")))

    def test_halves_round_away_from_zero(self) -> None:
        self.assertEqual([two_places(x) for x in (0.125, 0.375, -0.125, 0.005)], [0.13, 0.38, -0.13, 0.01])
        self.assertEqual(two_places(1.005), 1.0)
        self.assertEqual(screen_text(0.5, 0.49999999999999994), "1x0")

    def test_minutes_are_rounded_down(self) -> None:
        self.assertEqual([minute_of(x) for x in (0, 59_999_999, 60_000_000, -1)], [0, 0, 60, -60])


class Report(unittest.TestCase):
    """Counts, verdicts and their words."""

    def summary(self, model_right: int, rule_right: int) -> ShadowSummary:
        """Enough drags and corrections, with a score."""
        return ShadowSummary(candidates=50, corrected=10, model_right=model_right, rule_right=rule_right)

    def test_verdicts_at_their_bars(self) -> None:
        for score, verdict in (((8, 0), "modelWouldHelp"), ((7, 0), "noClearDifference"), ((0, 4), "ruleIsBetter"),
                               ((0, 3), "noClearDifference"), ((0, 0), "noClearDifference"),
                               ((10, 2), "noClearDifference"), ((12, 2), "modelWouldHelp")):
            self.assertEqual(self.summary(*score).verdict(), verdict, score)

    def test_every_verdict_has_its_words(self) -> None:
        few = ShadowSummary(candidates=49, corrected=20, model_right=20)
        self.assertEqual(verdict_line(few), "Verdict: not enough drags yet (49 of 50 needed). "
                         "Keep using Tilwin and run this again.")
        rare = ShadowSummary(candidates=50, corrected=4, redragged=5)
        self.assertEqual(verdict_line(rare), "Verdict: you correct snaps rarely (9 so far), so today's rule seems "
                         "to suit you. Nothing to change.")
        self.assertEqual(verdict_line(self.summary(8, 0)), "Verdict: the learned model would have beaten today's rule "
                         "on your own corrections. Worth turning on.")
        self.assertEqual(verdict_line(self.summary(0, 4)), "Verdict: today's rule did better than the learned model "
                         "on your corrections. Leave it as it is.")
        self.assertEqual(verdict_line(self.summary(1, 1)), "Verdict: no clear difference yet between the model and "
                         "today's rule.")

    def test_an_empty_log(self) -> None:
        summary = summarize([])
        self.assertEqual(summary, ShadowSummary())
        report = text(summary, str)
        self.assertEqual(report.count("n/a"), 2)
        self.assertEqual(len(report.split("\n")), 8)
        self.assertTrue(report.endswith("(0 of 50 needed). Keep using Tilwin and run this again."))

    def test_the_whole_text(self) -> None:
        summary = ShadowSummary(60, 40, 10, 30, 5, 15, 9, 8, 1, True, 60, 120)
        self.assertEqual(text(summary, str), "\n".join([
            "Tilwin drag report (recorded on this Mac, never sent anywhere)",
            "Period: 60 to 120",
            "Drags that ended near a screen edge: 60",
            "  Snapped by today's rule: 40   (undone or moved away within seconds: 10, 25%; left alone: 30)",
            "  Not snapped: 20   (then done by hand within seconds: 5, 25% at least; left alone: 15)",
            "Learned model, replayed over the same drags:",
            "  Would have decided differently on 9 drags; matched your correction where the rule did not on 8, "
            "the rule matched where the model did not on 1.",
            "  Evidence for the model over the rule: 2.3 standard errors (about 2.5 or more is convincing).",
            "Verdict: no clear difference yet between the model and today's rule.",
        ]))

    def test_a_rate_needs_drags_of_its_kind(self) -> None:
        snapped = summarize([record(3, True, "keptSnap")])
        self.assertEqual((snapped.false_snap_rate(), snapped.miss_rate()), (0, None))
        unsnapped = summarize([record(9, False, "draggedBackToSameEdge")])
        self.assertEqual((unsnapped.false_snap_rate(), unsnapped.miss_rate()), (None, 1))

    def test_an_untrusted_model_decides_as_the_rule(self) -> None:
        summary = summarize([record(6.0, True, "keptSnap"), record(6.01, False, "leftAlone"),
                             record(6.0, False, "draggedBackToSameEdge"), record(6.01, True, "restoredOrMovedAway"),
                             record(6.01, True, "draggedBackToSameEdge"), record(6.0, False, "restoredOrMovedAway"),
                             record(6.01, True, "keptSnap"), record(6.0, False, "leftAlone"),
                             record(6.01, True, "restoredOrMovedAway")])
        self.assertEqual((summary.model_differs, summary.model_right, summary.rule_right), (7, 3, 2))

    def test_the_order_of_lines_does_not_matter(self) -> None:
        chance = random.Random(3)
        records = [record(chance.uniform(0, 24), chance.random() < 0.5, "draggedBackToSameEdge", 60 * i)
                   for i in range(200)]
        in_order = summarize(records)
        chance.shuffle(records)
        self.assertEqual(summarize(records), in_order)
        self.assertEqual((in_order.first_day, in_order.last_day), (0, 60 * 199))
        self.assertTrue(math.isfinite(in_order.evidence()))


if __name__ == "__main__":
    unittest.main()
