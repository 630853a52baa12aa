"""The rules' edge cases, held against the reference itself."""

import json
import math
import unittest

import drag_model
from drag_features import (LESSONS, Display, DragFeatures, DragTrace, NeighbourEdges, Rect, Sample, make_features,
                           neighbours_around)
from drag_model import DragIntentModel

SCREEN = Rect(0, 0, 1440, 900)


def at(distance: float, neighbour: bool = False) -> DragFeatures:
    """A drag of which only the distance matters."""
    return DragFeatures(distance, 300.0, 0.2, 0.7, neighbour)


def drag(*samples: tuple[float, float, float], edges: NeighbourEdges = NeighbourEdges()) -> DragFeatures | None:
    """The measures of a path on a screen."""
    return make_features(DragTrace([Sample(*sample) for sample in samples]), SCREEN, edges)


class Traces(unittest.TestCase):
    """Paths and their measures."""

    def test_the_four_hundred_and_first_sample_drops_the_first_hundred(self) -> None:
        trace = DragTrace()
        for i in range(400):
            trace.append(Sample(i, 0, 0))
        self.assertEqual(len(trace.samples), 400)
        trace.append(Sample(400, 0, 0))
        self.assertEqual((len(trace.samples), trace.samples[0].t, trace.samples[-1].t), (301, 100, 400))

    def test_fewer_than_two_samples_have_no_measures(self) -> None:
        self.assertIsNone(drag())
        self.assertIsNone(drag((0, 5, 5)))

    def test_two_samples_at_one_time_stand_still(self) -> None:
        features = drag((1, 5, 400), (1, 10, 400))
        self.assertEqual((features.speed, features.settled, features.dwell), (0, 1, 0))

    def test_of_left_and_top_equally_near_left_counts(self) -> None:
        edges = NeighbourEdges(left=True)
        features = drag((0, 10, 100), (1, 10, 10), edges=edges)
        self.assertEqual((features.distance, features.neighbour, features.dwell), (10, True, 1))
        features = drag((0, 100, 10), (1, 10, 10), edges=edges)
        self.assertEqual((features.neighbour, features.dwell), (True, 0))

    def test_later_edges_win_only_when_nearer(self) -> None:
        self.assertTrue(drag((0, 1430, 890), (1, 1430, 890), edges=NeighbourEdges(right=True)).neighbour)
        self.assertTrue(drag((0, 1420, 890), (1, 1420, 890), edges=NeighbourEdges(bottom=True)).neighbour)
        self.assertFalse(drag((0, 10, 10), (1, 10, 10), edges=NeighbourEdges(top=True)).neighbour)

    def test_speed_is_the_chord_of_the_newest_sample_old_enough(self) -> None:
        features = drag((0, 500, 400), (0.5, 500, 400), (0.625, 530, 440), (0.75, 530, 440))
        self.assertEqual((features.speed, features.settled), (0, 1))
        features = drag((0, 500, 400), (1, 500, 400), (1.0625, 530, 440), (1.25, 560, 440))
        self.assertEqual(features.speed, 30 / 0.1875)

    def test_a_short_path_is_measured_from_its_start(self) -> None:
        self.assertEqual(drag((0, 500, 400), (0.03125, 503, 404)).speed, 160)

    def test_a_peak_of_one_point_a_second_is_no_movement(self) -> None:
        self.assertEqual(drag((0, 500, 400), (1, 501, 400)).settled, 1)
        self.assertEqual(drag((0, 500, 400), (1, 501.5, 400)).settled, 0)

    def test_settled_tells_how_far_the_cursor_slowed(self) -> None:
        self.assertEqual(drag((0, 500, 400), (1, 600, 400), (2, 625, 400)).settled, 0.75)

    def test_dwell_counts_what_is_exactly_within_reach(self) -> None:
        self.assertEqual(drag((0, 25, 400), (1, 24, 400), (3, 24, 400)).dwell, 2)
        self.assertEqual(drag((0, 24, 400), (1, 24, 400), (3, 24.5, 400)).dwell, 0)
        self.assertEqual(drag((0, 24, 400), (1, 20, 400), (3, 1, 400)).dwell, 3)

    def test_the_vector_ends_at_its_limits(self) -> None:
        self.assertEqual(DragFeatures(30, 2500, 2, 1.3, True).vector(), [1] * 7)
        self.assertEqual(DragFeatures(30, 2500, 2, 1.3, False).vector(), [1, 1, 1, 1, 1, 0, 0])
        self.assertEqual(DragFeatures(-1, -1, -1, -1, True).vector(), [1, 0, 0, 0, 0, 1, 0])
        self.assertEqual(DragFeatures(6, 500, 0.3, 0.25, True).vector(), [1, 0.25, 0.25, 0.5, 0.25, 1, 0.25])


class Neighbours(unittest.TestCase):
    """Displays side by side."""

    def around(self, frame: Rect, identity: int = 2) -> tuple[bool, bool, bool, bool]:
        """The edges of a screen beside which one other display stands."""
        edges = neighbours_around(Display(1, SCREEN), [Display(1, SCREEN), Display(identity, frame)])
        return edges.left, edges.right, edges.top, edges.bottom

    def test_a_gap_of_two_points_joins_and_of_three_parts(self) -> None:
        self.assertEqual(self.around(Rect(1442, 0, 800, 900)), (False, True, False, False))
        self.assertEqual(self.around(Rect(1443, 0, 800, 900)), (False, False, False, False))

    def test_every_edge_has_its_flag(self) -> None:
        self.assertEqual(self.around(Rect(-800, 0, 800, 900)), (True, False, False, False))
        self.assertEqual(self.around(Rect(0, -600, 800, 600)), (False, False, True, False))
        self.assertEqual(self.around(Rect(0, 900, 800, 600)), (False, False, False, True))

    def test_an_overlap_of_one_point_is_none(self) -> None:
        self.assertEqual(self.around(Rect(1440, 899, 800, 900)), (False, False, False, False))
        self.assertEqual(self.around(Rect(1440, 898, 800, 900)), (False, True, False, False))

    def test_displays_with_the_same_id_do_not_count(self) -> None:
        self.assertEqual(self.around(Rect(1440, 0, 800, 900), identity=1), (False, False, False, False))

    def test_no_displays_are_no_neighbours(self) -> None:
        self.assertEqual(neighbours_around(Display(1, SCREEN), []), NeighbourEdges())


class Model(unittest.TestCase):
    """Lessons, scores and trust."""

    def test_a_fresh_model_is_undecided_where_the_rule_ends(self) -> None:
        model = DragIntentModel()
        for features in (at(6), at(6, True), DragFeatures(6, 2500, 2, 0, True)):
            self.assertEqual(model.probability(features), 0.5)
            self.assertFalse(model.learned_would_snap(features))
            self.assertTrue(model.should_snap(features))

    def test_nothing_snaps_beyond_reach(self) -> None:
        model = DragIntentModel(averaged=[15.0] * 7)
        self.assertTrue(model.learned_would_snap(at(24.0)))
        self.assertFalse(model.learned_would_snap(at(24.000001)))
        model.learn(at(24.000001), False, 1)
        model.learn(at(24.000001), True, 1)
        self.assertEqual((model.model_only_right, model.rule_only_right), (0, 0))

    def test_without_weights_the_odds_are_even(self) -> None:
        self.assertEqual(DragIntentModel(averaged=[]).probability(at(3)), 0.5)

    def test_evidence_needs_one_disagreement(self) -> None:
        self.assertEqual(DragIntentModel(model_only_right=0.5, rule_only_right=0.4).evidence(), 0)
        self.assertAlmostEqual(DragIntentModel(model_only_right=10.0).evidence(), math.sqrt(10), places=14)

    def test_trust_waits_for_forty_lessons_before_this_one(self) -> None:
        for updates, trusted in ((39, False), (40, True)):
            model = DragIntentModel(updates=updates, model_only_right=30.0)
            model.learn(at(12), False, 1)
            self.assertEqual(model.trusted, trusted)

    def test_trust_waits_for_twenty_disagreements(self) -> None:
        for score, trusted in ((19.99, False), (20.01, True)):
            model = DragIntentModel(updates=100, model_only_right=score / 0.999)
            model.learn(at(12), False, 1)
            self.assertEqual(model.trusted, trusted)

    def test_trust_goes_when_the_rule_is_half_an_error_ahead(self) -> None:
        for losses, trusted in ((12.0, True), (13.0, False)):
            model = DragIntentModel(model_only_right=10.0, rule_only_right=losses, trusted=True)
            model.learn(at(12), False, 1)
            self.assertEqual(model.trusted, trusted)
        model = DragIntentModel(rule_only_right=0.9, trusted=True)
        model.learn(at(12), False, 1)
        self.assertTrue(model.trusted)

    def test_agreement_lets_both_scores_fade(self) -> None:
        model = DragIntentModel(model_only_right=2.0, rule_only_right=1.0)
        model.learn(at(12), False, 1)
        self.assertEqual((model.model_only_right, model.rule_only_right), (2 * 0.999, 0.999))

    def test_the_one_that_is_right_alone_scores(self) -> None:
        model = DragIntentModel()
        model.learn(at(6), True, 0.4)
        self.assertEqual((model.model_only_right, model.rule_only_right), (0, 0.4))
        model = DragIntentModel()
        model.learn(at(6), False, 0.25)
        self.assertEqual((model.model_only_right, model.rule_only_right), (0.25, 0))

    def test_the_first_step_is_as_long_as_the_rates_say(self) -> None:
        model = DragIntentModel()
        model.learn(DragFeatures(6, 1000, 0.6, 1, False), True, 1)
        steps = [0.5 * 0.35 * rate * x for rate, x in zip(drag_model.RATE, [1, 0.25, 0.5, 1, 1, 0, 0])]
        for moved, averaged, prior, step in zip(model.weights, model.averaged, drag_model.PRIOR, steps):
            self.assertAlmostEqual(moved, prior + step, places=14)
            self.assertAlmostEqual(averaged, prior + 0.02 * step, places=14)

    def test_every_lesson_pulls_towards_the_start(self) -> None:
        model = DragIntentModel(weights=[4.0, -12.0, 0.0, 0.0, 0.0, 1.0, 1.0])
        model.learn(at(24), False, 0.0)
        eta = 0.35
        for moved, expected in zip(model.weights, [4 - eta * 0.05, -12, 0, 0, 0, 1 - eta * 0.002, 1 - eta * 0.002]):
            self.assertAlmostEqual(moved, expected, places=14)

    def test_weights_stay_within_fifteen(self) -> None:
        model = DragIntentModel()
        model.learn(at(24, True), True, 1000)
        self.assertEqual((max(model.weights), min(model.weights)), (15, 15))
        model.learn(at(24, True), False, 1000)
        self.assertEqual((max(model.weights), min(model.weights)), (-15, -15))

    def test_steps_grow_no_shorter_in_the_end(self) -> None:
        moves = []
        for updates in (2254, 10**9):
            model = DragIntentModel(updates=updates)
            model.learn(at(6), True, 1)
            moves.append(model.weights)
        self.assertEqual(moves[0], moves[1])

    def test_follow_ups_teach_what_they_are_worth(self) -> None:
        self.assertEqual(LESSONS, {"restoredOrMovedAway": (False, 1.0), "keptSnap": (True, 0.4),
                                   "draggedBackToSameEdge": (True, 1.0), "leftAlone": (False, 0.25)})
        by_name, by_hand = DragIntentModel(), DragIntentModel()
        by_name.learn_follow_up(at(3), "keptSnap")
        by_hand.learn(at(3), True, 0.4)
        self.assertEqual(by_name, by_hand)


class ModelFile(unittest.TestCase):
    """The model as JSON."""

    def changed(self, **fields: object) -> DragIntentModel:
        """What is read of a good model after some fields have changed."""
        good = json.loads(drag_model.encode(DragIntentModel(updates=7)))
        return drag_model.decode(json.dumps({**good, **fields}))

    def test_what_is_written_reads_back(self) -> None:
        model = DragIntentModel()
        for i in range(50):
            model.learn(at(i / 2), i % 3 == 0, 0.4)
        self.assertEqual(drag_model.decode(drag_model.encode(model)), model)

    def test_anything_wrong_gives_a_fresh_model(self) -> None:
        self.assertEqual(self.changed().updates, 7)
        for wrong in ({"weights": [1.0] * 6}, {"averaged": [1.0] * 8}, {"weights": [1.0] * 6 + [math.nan]},
                      {"averaged": [True] * 7}, {"modelOnlyRight": math.inf}, {"updates": 1.5}, {"updates": 2**63},
                      {"updates": "7"}, {"trusted": 1}, {"trusted": None}, {"ruleOnlyRight": "0"}, {"weights": {}}):
            self.assertEqual(self.changed(**wrong), DragIntentModel(), wrong)
        for text in ("", "[]", "null", "7", "{}", "{\"weights\":", "nonsense"):
            self.assertEqual(drag_model.decode(text), DragIntentModel(), text)

    def test_whole_numbers_are_numbers_and_updates_come_as_they_are(self) -> None:
        model = self.changed(weights=[1] * 7, updates=-3, trusted=True)
        self.assertEqual((model.weights, model.updates, model.trusted), ([1.0] * 7, -3, True))


if __name__ == "__main__":
    unittest.main()
