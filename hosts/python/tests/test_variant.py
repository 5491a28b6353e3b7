"""Values of Python to and from VARIANT, byte by byte."""

from __future__ import annotations

import ctypes
import enum
import struct
import unittest
from decimal import Decimal
from fractions import Fraction
from typing import Any
from unittest import mock

from support import Case
from quenzel7 import CollisionMap, Null, _variant
from quenzel7._library import library


class Level(enum.IntEnum):
    LOW = 1
    HIGH = 2


def place() -> Any:
    memory = ctypes.create_string_buffer(b"\xee" * 24, 24)
    return memory


def written(value: Any, kind: str = "") -> bytes:
    memory = place()
    _variant.write(memory, 0, value, kind)
    raw = memory.raw
    _variant.clear(memory)
    return raw


def number(kind: int, form: str, value: Any) -> bytes:
    content = struct.pack("<" + form, value)
    return struct.pack("<H6x", kind) + content + bytes(16 - len(content))


class WriteTest(Case):
    def test_numbers_of_32_bits_are_longs(self) -> None:
        for value in (0, 1, -1, 0x7FFFFFFF, -0x80000000):
            self.assertEqual(written(value), number(3, "i", value))

    def test_wider_numbers_have_64_bits(self) -> None:
        for value in (0x80000000, -0x80000001, 2**63 - 1, -(2**63)):
            self.assertEqual(written(value), number(20, "q", value))

    def test_numbers_above_64_bits_are_an_overflow(self) -> None:
        self.raises(6, "int 9223372036854775808 does not fit into 64 bits", written, 2**63)
        self.raises(6, "int -9223372036854775809 does not fit into 64 bits", written, -(2**63) - 1)

    def test_members_of_enumerations_are_longs(self) -> None:
        self.assertEqual(written(Level.HIGH), number(3, "i", 2))

    def test_booleans_are_minus_one_and_zero(self) -> None:
        self.assertEqual(written(True), number(11, "h", -1))
        self.assertEqual(written(False), number(11, "h", 0))

    def test_floats_are_doubles(self) -> None:
        self.assertEqual(written(1.5), number(5, "d", 1.5))

        class Narrow(float):
            pass

        self.assertEqual(written(Narrow(2.5)), number(5, "d", 2.5))

    def test_decimals_are_currency(self) -> None:
        for value, scaled in (("1.2345", 12345), ("-0.0001", -1), ("0", 0), ("7", 70000), ("1e3", 10000000),
                              ("1.23450000", 12345), ("0e-9", 0), ("-0", 0), ("0e400000000", 0),
                              ("922337203685477.5807", 2**63 - 1), ("-922337203685477.5808", -(2**63))):  # fmt: skip
            with self.subTest(value):
                self.assertEqual(written(Decimal(value)), number(6, "q", scaled))

    def test_decimals_that_currency_cannot_hold_are_an_overflow(self) -> None:
        self.raises(6, "1.00001 has more than 4 decimals", written, Decimal("1.00001"))
        self.raises(6, "1E-999999 has more than 4 decimals", written, Decimal("1e-999999"))
        for value in ("922337203685477.5808", "-922337203685477.5809", "1E+18", "1E+19", "1E+999999"):
            self.raises(6, f"{value} does not fit into currency", written, Decimal(value))
        for value in ("NaN", "Infinity"):
            self.raises(6, f"{value} is no amount of currency", written, Decimal(value))

    def test_none_is_nothing_or_no_object_where_one_is_wanted(self) -> None:
        for kind in ("", "Long", "String", "Variant", "Byte()"):
            self.assertEqual(written(None, kind), bytes(24), kind)
        for kind in ("Object", "clsText", "Collection"):
            self.assertEqual(written(None, kind), number(9, "Q", 0), kind)

    def test_null_and_missing_have_kinds_of_their_own(self) -> None:
        self.assertEqual(written(Null), number(1, "q", 0))
        self.assertEqual(written(_variant.Missing), number(10, "i", 0x80020004 - 2**32))

    def test_texts_are_counted_utf_16(self) -> None:
        for text in ("", "a", "é\0b", "\U0001f600", "\udc00\ud800"):
            memory = place()
            _variant.write(memory, 0, text)
            kind, address = struct.unpack("<H6xQ", memory.raw[:16])
            units = text.encode("utf-16-le", "surrogatepass")
            self.assertEqual(kind, 8)
            self.assertEqual(ctypes.string_at(address - 4, 4), struct.pack("<I", len(units)))
            self.assertEqual(ctypes.string_at(address, len(units) + 2), units + b"\0\0")
            _variant.clear(memory)

    def test_any_other_object_is_an_idispatch(self) -> None:
        memory = place()
        _variant.write(memory, 0, self)
        self.assertEqual(memory.raw[:8], struct.pack("<H6x", 9))
        self.assertIs(_variant.take(memory), self)

    def test_writes_where_it_is_told(self) -> None:
        memory = ctypes.create_string_buffer(72)
        _variant.write(memory, 24, 7)
        self.assertEqual(memory.raw, bytes(24) + number(3, "i", 7) + bytes(24))
        _variant.write_at(ctypes.addressof(memory) + 48, True)
        self.assertEqual(memory.raw[48:], number(11, "h", -1))

    def test_what_crosses_as_an_object(self) -> None:
        for value in (1, True, 1.5, "a", Decimal(1), None, Null, b"", [], (), CollisionMap(1, 1), Level.LOW):
            self.assertFalse(_variant.crosses_as_object(value), repr(value))
        for value in (self, object(), {}, {1}):
            self.assertTrue(_variant.crosses_as_object(value), repr(value))


class Whole:
    """A number as libraries for arrays have it."""

    def __index__(self) -> int:
        return 7

    def __float__(self) -> float:
        return 7.0


class Real:
    def __float__(self) -> float:
        return 2.5


class Cells:
    """What has to be one number to be used as one."""

    def __index__(self) -> int:
        raise TypeError("only one number can be converted")


class NumberLikeTest(Case):
    def kind_and_content(self, value: Any, kind: str) -> Any:
        memory = ctypes.create_string_buffer(24)
        _variant.write(memory, 0, value, kind)
        (written,) = _variant.KIND.unpack_from(memory, 0)
        result = (written, _variant.read(memory))
        _variant.clear(memory)
        return result

    def test_they_cross_as_numbers_where_one_may_stand(self) -> None:
        for kind in ("Boolean", "Byte", "Integer", "Long", "Single", "Double", "Currency", "Variant", ""):
            self.assertEqual(self.kind_and_content(Whole(), kind), (3, 7))
            self.assertEqual(self.kind_and_content(Real(), kind), (5, 2.5))
            self.assertFalse(_variant.crosses_as_object(Whole(), kind))

    def test_they_cross_as_objects_where_one_is_wanted(self) -> None:
        for kind in ("Object", "clsRectangle", "String"):
            for value in (Whole(), Real()):
                self.assertEqual(self.kind_and_content(value, kind), (9, value))
                self.assertTrue(_variant.crosses_as_object(value, kind))

    def test_what_is_no_number_after_all_is_an_object(self) -> None:
        for value in (Cells(), Fraction(3, 2)):
            self.assertEqual(self.kind_and_content(value, "Long"), (9, value))
            self.assertTrue(_variant.crosses_as_object(value, "Long"))

    def test_amounts_stay_exact(self) -> None:
        class Amount(Decimal):
            pass

        self.assertEqual(self.kind_and_content(Amount("1.5"), "Currency"), (6, Decimal("1.5")))


class ReadTest(Case):
    def test_numbers_of_every_kind(self) -> None:
        for kind, form, value in (
            (2, "h", -2), (3, "i", -3), (16, "b", -16), (17, "B", 200), (18, "H", 60000), (19, "I", 2**32 - 1),
            (20, "q", -(2**63)), (21, "Q", 2**64 - 1), (22, "i", -5), (23, "I", 2**31), (4, "f", 0.5),
            (5, "d", 0.25), (7, "d", 2.5), (10, "i", -7),
        ):  # fmt: skip
            with self.subTest(kind):
                value_read = _variant.read(number(kind, form, value))
                self.assertEqual(value_read, value)
                self.assertIs(type(value_read), type(value))

    def test_booleans(self) -> None:
        self.assertIs(_variant.read(number(11, "h", -1)), True)
        self.assertIs(_variant.read(number(11, "h", 0)), False)
        self.assertIs(_variant.read(number(11, "h", 1)), True)

    def test_currency_is_a_decimal_with_four_places(self) -> None:
        for scaled, text in ((12345, "1.2345"), (-1, "-0.0001"), (2**63 - 1, "922337203685477.5807"), (0, "0.0000")):
            self.assertEqual(str(_variant.read(number(6, "q", scaled))), text)

    def test_nothing_null_missing_and_no_object(self) -> None:
        self.assertIsNone(_variant.read(bytes(24)))
        self.assertIs(_variant.read(number(1, "q", 0)), Null)
        self.assertIs(_variant.read(number(10, "i", 0x80020004 - 2**32)), _variant.Missing)
        self.assertIsNone(_variant.read(number(9, "Q", 0)))
        self.assertIsNone(_variant.read(number(13, "Q", 0)))
        self.assertEqual(_variant.read(number(8, "Q", 0)), "")
        self.assertEqual(repr(_variant.Missing), "Missing")

    def test_an_unknown_kind_is_refused(self) -> None:
        self.raises(458, "a value of kind 14", _variant.read, number(14, "q", 0))

    def test_reads_where_it_is_told(self) -> None:
        self.assertEqual(_variant.read(bytes(24) + number(3, "i", 5), 24), 5)

    def test_references_are_followed(self) -> None:
        value = ctypes.c_int16(-9)
        self.assertEqual(_variant.read(number(0x4002, "Q", ctypes.addressof(value))), -9)
        inner = ctypes.create_string_buffer(number(3, "i", 8), 24)
        self.assertEqual(_variant.read(number(0x400C, "Q", ctypes.addressof(inner))), 8)
        self.assertIsNone(_variant.read(number(0x4003, "Q", 0)))
        self.raises(458, "a reference to a value of kind 14", _variant.read, number(0x400E, "Q", 1))

    def test_references_to_arrays_are_followed(self) -> None:
        memory = place()
        _variant.write(memory, 0, [4, 5])
        address = ctypes.addressof(memory) + 8
        self.assertEqual(_variant.read(number(0x6003, "Q", address)), [4, 5])
        _variant.clear(memory)


class OwnershipTest(Case):
    def test_what_has_to_be_let_go_of(self) -> None:
        for kind in (8, 9, 13, 0x2003, 0x200C):
            self.assertTrue(_variant.owns(kind), kind)
        for kind in (0, 1, 2, 3, 5, 6, 10, 11, 17, 0x4003, 0x4008, 0x400C, 0x6003):
            self.assertFalse(_variant.owns(kind), kind)

    def test_clear_empties(self) -> None:
        for value in (1, "text", [1, 2], b"xy", self, None):
            memory = place()
            _variant.write(memory, 0, value)
            _variant.clear(memory)
            self.assertEqual(memory.raw, bytes(24))

    def test_take_empties(self) -> None:
        for value in (1, "text", [1, 2], b"xy", self, None):
            memory = place()
            _variant.write(memory, 0, value)
            self.assertEqual(_variant.take(memory), value)
            self.assertEqual(memory.raw, bytes(24))

    def test_take_empties_what_it_cannot_read(self) -> None:
        memory = ctypes.create_string_buffer(number(14, "q", 1), 24)
        self.raises(458, "a value of kind 14", _variant.take, memory)
        self.assertEqual(memory.raw, bytes(24))

    def test_read_leaves_the_value(self) -> None:
        memory = place()
        _variant.write(memory, 0, "text")
        before = memory.raw
        self.assertEqual(_variant.read(memory), "text")
        self.assertEqual(memory.raw, before)
        _variant.clear(memory)

    def test_texts_are_taken_and_freed(self) -> None:
        self.assertEqual(_variant.take_text(_variant.alloc_text("abc")), "abc")
        self.assertEqual(_variant.take_text(0), "")
        self.assertEqual(_variant.take_text(None), "")

    def test_a_text_that_is_taken_is_freed_once(self) -> None:
        address = _variant.alloc_text("abc")
        with mock.patch.object(library(), "SysFreeString") as free:
            self.assertEqual(_variant.take_text(address), "abc")
            self.assertEqual(_variant.take_text(None), "")
        free.assert_called_once_with(address)
        library().SysFreeString(address)

    def test_every_text_comes_back(self) -> None:
        for text in ("", "a\0b", "\U0001f600", "\ud800", "\udc00x"):
            self.assertEqual(_variant.take_text(_variant.alloc_text(text)), text)

    def test_half_a_unit_at_the_end_of_a_text_is_left_out(self) -> None:
        address = library().SysAllocStringByteLen(b"a\0b", 3)
        self.assertEqual(_variant.take_text(address), "a")


class EnumerationTest(unittest.TestCase):
    def test_values_become_members_when_there_are_such(self) -> None:
        self.assertIs(_variant.enumeration_value(Level, 2), Level.HIGH)
        self.assertEqual(_variant.enumeration_value(Level, 3), 3)
        self.assertNotIsInstance(_variant.enumeration_value(Level, 3), Level)


if __name__ == "__main__":
    unittest.main()
