"""Attributes that are misspelt."""

from __future__ import annotations

import unittest
from typing import Any

from quenzel7._attributes import Spelt


class Thing(Spelt):
    """Something with an attribute of each sort."""

    __slots__ = ("colour", "__dict__")

    @property
    def broken(self) -> int:
        raise AttributeError("what is inside is misspelt")

    @property
    def fixed(self) -> int:
        return 1

    def paint(self) -> None:
        pass


class SpeltTest(unittest.TestCase):
    def refused(self, text: str, call: Any, *arguments: Any) -> None:
        with self.assertRaises(AttributeError) as caught:
            call(*arguments)
        self.assertEqual(str(caught.exception), text)

    def test_what_the_class_has_is_read_and_written(self) -> None:
        thing = Thing()
        thing.colour = 5
        self.assertEqual((thing.colour, thing.fixed), (5, 1))
        thing._inner = 6  # type: ignore[attr-defined]
        self.assertEqual(thing._inner, 6)  # type: ignore[attr-defined]

    def test_what_it_does_not_have_names_the_nearest(self) -> None:
        thing = Thing()
        self.refused("Thing has no attribute 'color'; nearest is 'colour'", getattr, thing, "color")
        self.refused("Thing has no attribute 'piant'; nearest is 'paint'", setattr, thing, "piant", 1)
        # Python's own names are not offered.
        self.refused("Thing has no attribute 'doc__'", getattr, thing, "doc__")
        self.assertFalse(hasattr(thing, "color"))
        self.assertEqual(vars(thing), {})

    def test_a_name_of_pythons_own_has_no_nearest(self) -> None:
        self.refused("'Thing' object has no attribute '_color'", getattr, Thing(), "_color")
        self.refused("'Thing' object has no attribute '__array__'", getattr, Thing(), "__array__")

    def test_a_property_keeps_its_own_error(self) -> None:
        self.refused("what is inside is misspelt", getattr, Thing(), "broken")
        with self.assertRaises(AttributeError):
            setattr(Thing(), "fixed", 2)

    def test_a_place_that_holds_nothing_is_no_misspelling(self) -> None:
        with self.assertRaises(AttributeError) as caught:
            Thing().colour
        self.assertNotIn("nearest", str(caught.exception))


if __name__ == "__main__":
    unittest.main()
