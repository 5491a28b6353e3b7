"""Arrays of the binary interface."""

from __future__ import annotations

import ctypes
import enum
import struct
import unittest
from typing import Any
from unittest import mock

from support import Case
from quenzel7 import AutomationError, CollisionMap, Null, _abi, _safe_array
from quenzel7._library import library


class Level(enum.IntEnum):
    HIGH = 2


class Held:
    """Keeps the array of a test until the test has looked at it."""

    def __init__(self, value: Any, kind: str = "") -> None:
        self.kind, self.address = _safe_array.make(value, kind)

    def __del__(self) -> None:
        if hasattr(self, "address"):
            library().SafeArrayDestroy(self.address)

    def bounds(self) -> "list[tuple[int, int]]":
        """Sizes and lower bounds as they lie, of the last dimension first."""
        dimensions = struct.unpack("<H", ctypes.string_at(self.address, 2))[0]
        return list(struct.iter_unpack("<Ii", ctypes.string_at(self.address + 24, 8 * dimensions)))

    def raw(self, size: int) -> bytes:
        return ctypes.string_at(struct.unpack("<Q", ctypes.string_at(self.address + 16, 8))[0], size)

    def value(self) -> Any:
        return _safe_array.read(self.kind, self.address)


class MakeTest(Case):
    def test_bytes_are_cells_of_eight_bits(self) -> None:
        for value in (b"ab\0c", bytearray(b"ab\0c"), memoryview(b"ab\0c"), memoryview(b"a.b.\0.c.")[::2]):
            held = Held(value)
            self.assertEqual((held.kind, held.bounds(), held.raw(4)), (17, [(4, 0)], b"ab\0c"))

    def test_numbers_of_32_bits_are_longs(self) -> None:
        for value in ([1, -1, 2**31 - 1, -(2**31)], (1, -1, 2**31 - 1, -(2**31))):
            held = Held(value)
            self.assertEqual((held.kind, held.bounds()), (3, [(4, 0)]))
            self.assertEqual(held.raw(16), struct.pack("<4i", *value))
        self.assertEqual(Held([Level.HIGH]).kind, 3)

    def test_wider_numbers_are_variants(self) -> None:
        for wide in (2**31, -(2**31) - 1):
            held = Held([1, wide])
            self.assertEqual(held.kind, 12)
            self.assertEqual(held.value(), [1, wide])

    def test_texts_floats_and_booleans_have_kinds_of_their_own(self) -> None:
        self.assertEqual(Held(["a", ""]).kind, 8)
        held = Held([0.5, 2.0])
        self.assertEqual((held.kind, held.raw(16)), (5, struct.pack("<2d", 0.5, 2.0)))
        held = Held([True, False])
        self.assertEqual((held.kind, held.raw(4)), (11, b"\xff\xff\0\0"))

    def test_mixed_values_are_variants(self) -> None:
        for value in ([1, "a"], [1, 2.5], [True, 1], [None], [Null, 1], [b"ab", 1]):
            held = Held(value)
            self.assertEqual(held.kind, 12, value)
            self.assertEqual(held.value(), value)

    def test_no_values_are_no_variants(self) -> None:
        held = Held([])
        self.assertEqual((held.kind, held.bounds(), held.value()), (12, [(0, 0)], []))
        self.assertEqual(Held(b"").value(), b"")

    def test_lists_of_equal_length_are_two_dimensions(self) -> None:
        held = Held([[1, 2, 3], [4, 5, 6]])
        self.assertEqual((held.kind, held.bounds()), (3, [(3, 0), (2, 0)]))
        self.assertEqual(held.raw(24), struct.pack("<6i", 1, 4, 2, 5, 3, 6))
        self.assertEqual(held.value(), [[1, 2, 3], [4, 5, 6]])
        self.assertEqual(Held(((1,), [2])).bounds(), [(1, 0), (2, 0)])
        self.assertEqual(Held([[1, 2, 3]]).bounds(), [(3, 0), (1, 0)])

    def test_lists_of_other_lengths_are_arrays_of_arrays(self) -> None:
        for value in ([[1], [2, 3]], [[], []], [[1], 2]):
            held = Held(value)
            self.assertEqual((held.kind, held.bounds()), (12, [(2, 0)]))
            self.assertEqual(held.value(), value)

    def test_a_collision_map_is_two_dimensions_of_bytes(self) -> None:
        cells = CollisionMap(2, 1)
        cells[2, 0] = 7
        cells[0, 1] = 9
        held = Held(cells)
        self.assertEqual((held.kind, held.bounds(), held.raw(6)), (17, [(2, 0), (3, 0)], bytes([0, 0, 7, 9, 0, 0])))
        self.assertEqual(held.value(), cells)

    def test_a_declared_kind_is_kept(self) -> None:
        for kind, vt, value in (
            ("Byte()", 17, [1, 255]), ("Long()", 3, []), ("Integer()", 2, [1]), ("Boolean()", 11, [1, 0]),
            ("Single()", 4, [1, 2]), ("Double()", 5, [1, 2]), ("String()", 8, []), ("Variant()", 12, [1, 2]),
        ):  # fmt: skip
            self.assertEqual(Held(value, kind).kind, vt, kind)
        self.assertEqual(Held([1, 255], "Byte()").value(), b"\x01\xff")

    def test_cells_that_do_not_fit_the_declared_kind_are_refused(self) -> None:
        self.raises(6, "a cell of the array does not fit", Held, [256], "Byte()")
        self.raises(6, "a cell of the array does not fit", Held, [2**31], "Long()")
        self.raises(13, "cell 1 is 'x', no number", Held, [1, "x"], "Long()")
        self.raises(13, "cell 1 is 2, no text", Held, ["a", 2], "String()")

    def test_a_failure_lets_go_of_what_was_made(self) -> None:
        with mock.patch.object(library(), "SafeArrayDestroy") as destroy:
            self.raises(6, "int 9223372036854775808 does not fit into 64 bits", _safe_array.make, [self, 2**63])
        (address,) = destroy.call_args[0]
        self.assertEqual(library().SafeArrayDestroy(address), 0)

    def test_no_room_is_error_7(self) -> None:
        with mock.patch.object(library(), "SafeArrayCreate", return_value=None):
            self.raises(7, "out of memory", _safe_array.make, [1])
        self.raises(7, "out of memory", _safe_array._create, 17, (2**32,))


class ReadTest(Case):
    def test_no_array_is_none(self) -> None:
        self.assertIsNone(_safe_array.read(3, 0))

    def test_every_kind_of_cells(self) -> None:
        for kind, form, values in (
            (2, "h", [-1, 2]), (3, "i", [-1, 2]), (4, "f", [0.5]), (5, "d", [0.25]), (16, "b", [-1]),
            (18, "H", [65535]), (19, "I", [2**32 - 1]), (20, "q", [-(2**63)]), (21, "Q", [2**64 - 1]),
            (22, "i", [-1]), (23, "I", [7]), (7, "d", [1.5]), (10, "i", [-3]),
        ):  # fmt: skip
            address = _safe_array._filled(kind, (len(values),), struct.pack(f"<{len(values)}{form}", *values))
            self.assertEqual(_safe_array.read(kind, address), values)
            library().SafeArrayDestroy(address)

    def test_cells_that_are_more_than_numbers(self) -> None:
        held = Held(["a", "é"])
        self.assertEqual(held.value(), ["a", "é"])
        held = Held([True, False])
        self.assertIs(held.value()[0], True)
        address = _safe_array._filled(6, (2,), struct.pack("<2q", 5000, 1))
        self.assertEqual([str(cell) for cell in _safe_array.read(6, address)], ["0.5000", "0.0001"])
        library().SafeArrayDestroy(address)
        self.assertIs(Held([self]).value()[0], self)

    def test_bytes_of_two_dimensions_from_another_index_are_lists(self) -> None:
        bounds = struct.pack("<IiIi", 2, 1, 2, 0)
        address = library().SafeArrayCreate(17, 2, bounds)
        ctypes.memmove(_safe_array._data_of(address), b"\1\2\3\4", 4)
        self.assertEqual(_safe_array.read(17, address), [[1, 3], [2, 4]])
        library().SafeArrayDestroy(address)

    def test_no_bytes_of_two_dimensions_are_lists(self) -> None:
        address = library().SafeArrayCreate(17, 2, struct.pack("<IiIi", 2, 0, 0, 0))
        self.assertEqual(_safe_array.read(17, address), [[], []])
        library().SafeArrayDestroy(address)

    def test_more_dimensions_are_refused(self) -> None:
        address = library().SafeArrayCreate(3, 3, struct.pack("<IiIiIi", 1, 0, 1, 0, 1, 0))
        self.raises(13, "an array of 3 dimensions", _safe_array.read, 3, address)
        library().SafeArrayDestroy(address)

    def test_unknown_cells_are_refused(self) -> None:
        held = Held([1])
        with self.assertRaises(AutomationError) as caught:
            _safe_array.read(14, held.address)
        self.assertEqual(caught.exception.number, 458)
        self.assertEqual(caught.exception.result, _abi.DISP_E_BADVARTYPE)


if __name__ == "__main__":
    unittest.main()
