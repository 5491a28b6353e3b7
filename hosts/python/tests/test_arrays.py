"""References, Null and collision maps."""

from __future__ import annotations

import copy
import pickle
import unittest

import support  # noqa: F401
from quenzel7 import AutomationError, CollisionMap, Null, Ref
from quenzel7.arrays import NullType


class RefTest(unittest.TestCase):
    def test_holds_a_value_and_nothing_at_first(self) -> None:
        self.assertIsNone(Ref().value)
        self.assertEqual(Ref().kind, "")
        self.assertEqual(Ref(3, "Long").value, 3)
        self.assertEqual(Ref(3, "Long").kind, "Long")

    def test_shows_its_value_and_its_kind_when_it_has_one(self) -> None:
        self.assertEqual(repr(Ref("a")), "Ref('a')")
        self.assertEqual(repr(Ref(1, "Long")), "Ref(1, 'Long')")


class NullTest(unittest.TestCase):
    def test_there_is_one_null(self) -> None:
        self.assertIs(NullType(), Null)
        self.assertIs(copy.deepcopy(Null), Null)
        self.assertIs(pickle.loads(pickle.dumps(Null)), Null)

    def test_null_is_false_and_shows_its_name(self) -> None:
        self.assertFalse(Null)
        self.assertEqual(repr(Null), "Null")


class CollisionMapTest(unittest.TestCase):
    def test_indices_run_to_the_width_and_the_height_themselves(self) -> None:
        cells = CollisionMap(3, 2)
        self.assertEqual((cells.width, cells.height), (3, 2))
        self.assertEqual(cells.cells, bytearray(12))
        cells[3, 2] = 9
        self.assertEqual(cells[3, 2], 9)
        self.assertEqual(cells.cells[11], 9)

    def test_x_runs_fastest(self) -> None:
        cells = CollisionMap(3, 2)
        cells[1, 2] = 5
        self.assertEqual(list(cells.cells).index(5), 9)

    def test_places_outside_are_refused(self) -> None:
        cells = CollisionMap(3, 2)
        for place in ((-1, 0), (4, 0), (0, -1), (0, 3)):
            with self.subTest(place), self.assertRaises(IndexError):
                cells[place]
            with self.subTest(place), self.assertRaises(IndexError):
                cells[place] = 1

    def test_a_refused_place_is_told_with_the_size_of_the_map(self) -> None:
        with self.assertRaisesRegex(IndexError, r"^\[4, 1\] lies outside a collision map of 3 x 2 pixels$"):
            CollisionMap(3, 2)[4, 1]

    def test_no_size_is_below_zero(self) -> None:
        self.assertEqual(CollisionMap(0, 0).cells, bytearray(1))
        for width, height in ((-1, 0), (0, -1)):
            with self.assertRaises(AutomationError) as caught:
                CollisionMap(width, height)
            self.assertEqual(caught.exception.number, 9)

    def test_fill_writes_a_rectangle(self) -> None:
        cells = CollisionMap(4, 3)
        cells.fill(1, 1, 2, 2)
        marked = [(x, y) for y in range(4) for x in range(5) if cells[x, y] == 1]
        self.assertEqual(marked, [(1, 1), (2, 1), (1, 2), (2, 2)])

    def test_fill_writes_the_value_that_it_is_given(self) -> None:
        cells = CollisionMap(2, 0)
        cells.fill(0, 0, 2, 1, 7)
        self.assertEqual(list(cells.cells), [7, 7, 0])

    def test_fill_leaves_out_what_lies_outside(self) -> None:
        cells = CollisionMap(2, 2)
        cells.fill(-5, -5, 6, 6)
        cells.fill(2, 2, 9, 9)
        self.assertEqual(list(cells.cells), [1, 0, 0, 0, 0, 0, 0, 0, 1])

    def test_fill_of_nothing_changes_nothing(self) -> None:
        cells = CollisionMap(2, 2)
        cells.fill(1, 1, 0, 2)
        cells.fill(1, 1, 2, 0)
        cells.fill(5, 0, 3, 1)
        cells.fill(1, 1, -1, 1)
        self.assertEqual(cells.cells, bytearray(9))

    def test_maps_are_equal_by_size_and_cells(self) -> None:
        one, other = CollisionMap(1, 2), CollisionMap(1, 2)
        self.assertEqual(one, other)
        other[0, 1] = 1
        self.assertNotEqual(one, other)
        self.assertNotEqual(CollisionMap(1, 2), CollisionMap(2, 1))
        self.assertNotEqual(one, bytes(6))

    def test_shows_its_size_and_how_much_is_marked(self) -> None:
        cells = CollisionMap(3, 2)
        cells.fill(0, 0, 2, 1)
        self.assertEqual(repr(cells), "<CollisionMap 3 x 2, 2 cells marked>")


if __name__ == "__main__":
    unittest.main()
