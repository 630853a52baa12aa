"""Windows that stand right and windows that stand wrong, and what is said of each."""

import pytest

from catalogue import ACTS, APPLICATIONS, MANAGERS
from frames import Frame, Hints, judge, tile

AREA = Frame(0, 0, 1366, 738)
BARE = (0, 0)
TITLE_BAR = (2, 25)
CELLS = Hints(minimum=(13, 23), base=(4, 4), step=(9, 19))
WIDE = Hints(minimum=(500, 140))
VIDEO = Hints(minimum=(4, 4), aspects=(16 / 9, 16 / 9))
LEFT_HALF = Frame(0, 0, 683, 738)
RIGHT_THIRD = Frame(911, 0, 455, 738)


@pytest.mark.parametrize("across, down, expected", [
    ((0, 0.5), (0, 1), LEFT_HALF),
    ((2 / 3, 1), (0, 1), RIGHT_THIRD),
    ((0.5, 1), (0, 0.5), Frame(683, 0, 683, 369)),
    ((0, 1), (0, 1), AREA),
])
def test_a_tile_is_a_share_of_the_area_in_whole_points(across, down, expected):
    assert tile(AREA, across, down) == expected


def test_a_tile_of_an_odd_width_is_rounded_up_from_the_half():
    assert tile(Frame(0, 0, 1365, 700), (0.5, 1), (0, 1)) == Frame(683, 0, 683, 700)


RIGHT = [
    ("the tile itself", LEFT_HALF, LEFT_HALF, Hints(), BARE, "exact"),
    ("whole cells that fit", Frame(0, 0, 681, 732), LEFT_HALF, CELLS, TITLE_BAR, "2 narrower, 6 lower"),
    ("a minimum, at the outer edge", Frame(866, 0, 500, 738), RIGHT_THIRD, WIDE, BARE, "45 wider"),
    ("a video as wide as its tile", Frame(0, 0, 683, 408), LEFT_HALF, VIDEO, TITLE_BAR, "330 lower"),
    ("a video that manages neither side", Frame(0, 0, 818, 485), LEFT_HALF, VIDEO, TITLE_BAR, "135 wider, 253 lower"),
]


@pytest.mark.parametrize("seen, wanted, hints, decoration, text", [row[1:] for row in RIGHT], ids=[row[0] for row in RIGHT])
def test_a_window_stands_right_that_is_as_near_as_its_hints_allow(seen, wanted, hints, decoration, text):
    verdict = judge(seen, wanted, AREA, hints, decoration)
    assert (verdict.text, verdict.is_right) == (text, True)


WRONG = [
    ("one point aside", Frame(1, 0, 683, 738), LEFT_HALF, Hints(), BARE),
    ("one point short, with no reason", Frame(0, 0, 682, 738), LEFT_HALF, Hints(), BARE),
    ("a whole cell short", Frame(0, 0, 672, 732), LEFT_HALF, CELLS, TITLE_BAR),
    ("larger than its minimum", Frame(864, 0, 502, 738), RIGHT_THIRD, WIDE, BARE),
    ("a minimum, at the inner edge", Frame(911, 0, 500, 738), RIGHT_THIRD, WIDE, BARE),
    ("a video below the free area", Frame(0, 0, 1366, 792), AREA, VIDEO, TITLE_BAR),
    ("a video smaller than fits", Frame(0, 0, 602, 362), LEFT_HALF, VIDEO, TITLE_BAR),
    ("a video out of its proportions", Frame(0, 0, 683, 700), LEFT_HALF, VIDEO, TITLE_BAR),
]


@pytest.mark.parametrize("seen, wanted, hints, decoration", [row[1:] for row in WRONG], ids=[row[0] for row in WRONG])
def test_a_window_that_stands_elsewhere_is_off(seen, wanted, hints, decoration):
    verdict = judge(seen, wanted, AREA, hints, decoration)
    assert not verdict.is_right and str(seen) in verdict.text


def test_a_window_larger_than_the_free_area_stands_at_its_beginning():
    assert judge(Frame(0, 0, 1500, 738), RIGHT_THIRD, AREA, Hints(minimum=(1500, 100)), BARE).is_right


def test_every_act_says_where_the_window_should_stand():
    assert all((act.tile is None) != (act.as_before == "") for act in ACTS)


def test_applications_and_managers_have_names_of_their_own():
    for rows in (APPLICATIONS, MANAGERS):
        assert len({row.name for row in rows}) == len(rows)
