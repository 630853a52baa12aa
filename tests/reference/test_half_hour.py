"""The edge cases of watching drags, held against the reference itself, and what the scripts try."""

import json
import unittest
from random import Random

from drag_features import Rect
from half_hour import Program, screens_of
from half_hour_script import User, expected_lines
from snapping import Snapping, zone_at

EDITOR, GAME = "org.example.Editor", "org.example.Game"
DISPLAYS = [{"frame": [0, 0, 1440, 900], "struts": [0, 0, 25, 0]}, {"frame": [1440, 0, 800, 600], "struts": [0] * 4}]
START = Rect(100, 100, 400, 300)
TITLE = (300, 110)
LEFT_HALF = Rect(0, 25, 720, 875)


class Played(unittest.TestCase):
    """A program with one window, and hands at its mouse."""

    def setUp(self) -> None:
        self.program = Program(screens_of(DISPLAYS))
        self.time = 0
        self.settings = {"dragToSnap": True, "shadowRecording": True, "cycleWidths": True, "gap": 0, "outer": 0,
                         "ignoredApps": [GAME]}
        self.change()
        self.act("open", window=1, app=EDITOR, frame=list(START))

    def act(self, kind: str, after: int = 0, **details: object) -> None:
        """Something happens, so long after what was before."""
        self.time += after
        self.program.play({"t": self.time, "kind": kind, **details})

    def change(self, after: int = 0, **settings: object) -> None:
        """Some settings become others."""
        self.settings = {**self.settings, **settings}
        self.act("change", after, settings=self.settings)

    def pull(self, *points: tuple[float, float], every: int = 40, window: int = 1) -> None:
        """The mouse is moved and the window follows it."""
        for x, y in points:
            at_x, at_y = self.program.desktop.cursor
            frame = self.frame(window)
            self.act("frame", every, window=window, frame=[frame.x + x - at_x, frame.y + y - at_y, *frame[2:]])
            self.act("drag", x=x, y=y)

    def drag(self, *points: tuple[float, float], window: int = 1) -> None:
        """A whole drag by the title."""
        frame = self.frame(window)
        self.act("press", 1, x=frame.x + 200, y=frame.y + 10)
        self.pull(*points, window=window)
        self.act("release")

    def frame(self, window: int = 1) -> Rect:
        """Where the window stands."""
        return self.program.desktop.windows[window].frame

    def records(self) -> list[tuple[bool, str | None, str]]:
        """What the log has once the program has ended."""
        self.act("quit")
        lines = [json.loads(line) for line in self.program.lines()]
        return [(line["rule"], line.get("zone"), line["follow"]) for line in lines]


class Watching(Played):
    """From the mouse to a snap."""

    def test_a_drag_to_an_edge_snaps_and_one_beside_it_does_not(self) -> None:
        self.drag((200, 400), (6, 400))
        self.assertEqual(self.frame(), LEFT_HALF)
        self.drag((200, 400), (7, 400))
        self.assertEqual(self.frame().x, 7 - 200)
        self.assertEqual(self.records(), [(True, "leftHalf", "restoredOrMovedAway"), (False, "leftHalf", "leftAlone")])

    def test_a_click_leaves_nothing(self) -> None:
        self.act("press", x=300, y=110)
        self.act("release", 500)
        self.drag((304, 114))
        self.assertEqual(self.records(), [])

    def test_a_resize_never_snaps(self) -> None:
        for frame in ([100, 100, 103, 300], [90, 100, 403, 300], [100, 90, 400, 303]):
            self.act("press", 50, x=TITLE[0], y=TITLE[1])
            self.act("frame", window=1, frame=frame)
            self.act("drag", 40, x=0, y=400)
            self.act("release")
            self.assertEqual(self.frame(), Rect(*frame))
            self.act("frame", window=1, frame=list(START))
        self.assertEqual(self.records(), [])

    def test_a_window_of_an_ignored_application_is_not_followed(self) -> None:
        self.act("open", window=2, app=GAME, frame=[500, 300, 400, 300])
        self.drag((200, 400), (0, 400), window=2)
        self.assertEqual(self.frame(2).x, -200)
        self.assertEqual(self.records(), [])

    def test_moves_close_to_the_last_look_are_not_looked_at(self) -> None:
        self.act("press", 1, x=TITLE[0], y=TITLE[1])
        self.pull((250, 400))
        self.pull((0, 400), every=30)
        self.act("release")
        self.assertEqual(self.frame().x, -200)
        self.act("frame", 5000, window=1, frame=list(START))
        self.act("press", 1, x=TITLE[0], y=TITLE[1])
        self.pull((250, 400))
        self.pull((0, 400), every=31)
        self.act("release")
        self.assertEqual(self.frame(), LEFT_HALF)
        self.assertEqual(self.records(), [(False, "leftHalf", "leftAlone"), (True, "leftHalf", "keptSnap")])

    def test_the_zone_of_the_last_look_counts(self) -> None:
        self.act("press", 1, x=TITLE[0], y=TITLE[1])
        self.pull((250, 400), (0, 400))
        self.pull((20, 400), every=8)
        self.act("release")
        self.assertEqual(self.frame(), LEFT_HALF)

    def test_the_same_zone_of_another_display_is_another_zone(self) -> None:
        self.drag((300, 400), (700, 3), (1800, 3))
        self.assertEqual(self.frame(), Rect(1440, 0, 800, 600))

    def test_off_every_display_nothing_is_recorded(self) -> None:
        self.drag((200, 400), (200, -1))
        self.drag((200, 400), (1500, 600))
        self.assertEqual(self.records(), [])

    def test_a_window_that_closes_and_a_drag_called_off_end_there(self) -> None:
        self.act("press", 1, x=TITLE[0], y=TITLE[1])
        self.pull((200, 400), (0, 400))
        self.act("cancel")
        self.act("release")
        self.assertEqual(self.frame().x, -200)
        self.act("press", 1, x=TITLE[0] - 300, y=TITLE[1] + 290)
        self.act("close", window=1)
        self.act("drag", 40, x=0, y=400)
        self.act("release")
        self.assertEqual(self.records(), [])

    def test_switched_off_nothing_snaps_and_a_drag_under_way_is_dropped(self) -> None:
        self.act("press", 1, x=TITLE[0], y=TITLE[1])
        self.pull((200, 400))
        self.change(dragToSnap=False)
        self.pull((100, 400))
        self.change(dragToSnap=True)
        self.pull((0, 400))
        self.act("release")
        self.assertEqual(self.frame().x, -200)
        self.assertEqual(self.records(), [])


class Recording(Played):
    """From a release to a line."""

    def test_without_recording_drags_snap_all_the_same(self) -> None:
        self.drag((200, 400), (0, 400))
        self.change(shadowRecording=False)
        self.change(shadowRecording=True)
        self.change(shadowRecording=False)
        self.drag((200, 400), (0, 400))
        self.assertEqual(self.frame(), LEFT_HALF)
        self.assertEqual(self.records(), [])

    def test_switched_on_in_a_drag_two_points_are_needed(self) -> None:
        for looks, count in ((0, 0), (1, 1)):
            self.change(shadowRecording=False)
            self.act("press", 1, x=self.frame().x + 200, y=self.frame().y + 10)
            self.pull((200, 400), (10, 400))
            self.change(shadowRecording=True)
            self.pull(*[(10, 401)] * looks)
            self.act("release")
            self.act("frame", 5000, window=1, frame=list(START))
            self.assertEqual(len(self.program.recorder.records) + len(self.program.recorder.pending), count)

    def test_what_is_done_within_four_seconds_is_told(self) -> None:
        for after, follow in ((4000, "restoredOrMovedAway"), (4001, "keptSnap")):
            self.drag((200, 400), (0, 400))
            self.act("shortcut", after, action="restore")
            self.assertEqual(self.frame(), START)
            self.assertEqual(self.program.recorder.records[-1].follow, follow)

    def test_keys_of_the_zone_missed_tell_that_it_was_wanted(self) -> None:
        self.drag((200, 400), (10, 400))
        self.act("shortcut", 1000, action="rightHalf")
        self.act("shortcut", 1000, action="leftHalf")
        self.assertEqual(self.records(), [(False, "leftHalf", "draggedBackToSameEdge")])

    def test_dragging_back_to_the_edge_is_told_before_the_new_drag_is_held(self) -> None:
        self.drag((200, 400), (10, 400))
        self.drag((100, 400), (0, 400))
        self.assertEqual(self.records(), [(False, "leftHalf", "draggedBackToSameEdge"), (True, "leftHalf", "keptSnap")])

    def test_the_first_second_past_the_four_closes_a_drag(self) -> None:
        self.drag((200, 400), (0, 400))
        self.program.wait_until(4999)
        self.assertEqual(self.program.lines(), [])
        self.program.wait_until(5000)
        self.assertEqual(len(self.program.lines()), 1)


class Actions(Played):
    """Zones, shortcuts and what they bring back."""

    def test_zones_of_edges_and_corners(self) -> None:
        frame = Rect(0, 0, 1440, 900)
        for point, zone in (((60, 6), "topLeft"), ((61, 6), "maximize"), ((6, 60), "topLeft"), ((6, 61), "leftHalf"),
                            ((1380, 0), "topRight"), ((1434, 450), "rightHalf"), ((0, 900), "bottomLeft"),
                            ((1440, 900), "bottomRight"), ((720, 894), "bottomHalf"), ((720, 893), None),
                            ((7, 450), None), ((-1, 450), "leftHalf"), ((-1.25, 450), None), ((1440.25, 450), None)):
            self.assertEqual(zone_at(*point, frame, 6, 60), zone, point)

    def test_margins_and_gaps(self) -> None:
        snapping = Snapping(self.program.desktop, outer=8, gap=8)
        area = Rect(0, 25, 1440, 875)
        self.assertEqual(snapping.frame("leftHalf", area), Rect(8, 33, 708, 859))
        self.assertEqual(snapping.frame("rightHalf", area), Rect(724, 33, 708, 859))
        self.assertEqual(Snapping(self.program.desktop).frame("leftTwoThirds", Rect(0, 0, 1000, 9)).width, 667)

    def test_the_same_keys_cycle_the_width_and_restore_works_once(self) -> None:
        for width in (720, 960, 480, 720):
            self.act("shortcut", action="leftHalf")
            self.assertEqual(self.frame().width, width)
        self.act("shortcut", action="restore")
        self.assertEqual(self.frame(), START)
        self.assertFalse(self.program.snapping.perform("restore"))


class Scripts(unittest.TestCase):
    """The half-hours made up."""

    def test_the_same_seed_makes_the_same_half_hour(self) -> None:
        self.assertEqual(User(Random(7)).work(), User(Random(7)).work())

    def test_a_half_hour_tries_everything(self) -> None:
        for seed in range(5):
            script = User(Random(seed)).work()
            times = [event["t"] for event in script["events"]]
            self.assertEqual(times, sorted(times))
            self.assertGreaterEqual(times[-1], 1_800_000)
            self.assertEqual({event["kind"] for event in script["events"]},
                             {"change", "open", "close", "focus", "frame", "move", "press", "drag", "release",
                              "cancel", "shortcut", "quit"})
            lines = [json.loads(line) for line in expected_lines(json.loads(json.dumps(script)))]
            self.assertEqual({(line["rule"], line["follow"]) for line in lines},
                             {(True, "keptSnap"), (True, "restoredOrMovedAway"), (False, "leftAlone"),
                              (False, "draggedBackToSameEdge")})
            self.assertEqual(len({line["screen"] for line in lines}), 2)
            self.assertGreater(len(lines), 100)


if __name__ == "__main__":
    unittest.main()
