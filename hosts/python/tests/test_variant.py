"""Values of Python to and from VARIANT, byte by byte."""

from __future__ import annotations

import ctypes
import enum
import struct
import unittest
from decimal import Decimal
from typing import Any

from support import Case
from quenzel7 import AutomationError, CollisionMap, Null, Ref, _abi, _variant
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
        self.raises(6, "9223372036854775808 does not fit into 64 bits", written, 2**63)
        self.raises(6, "-9223372036854775809 does not fit into 64 bits", written, -(2**63) - 1)

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

    def test_every_text_comes_back(self) -> None:
        for text in ("", "a\0b", "\U0001f600", "\ud800", "\udc00x"):
            self.assertEqual(_variant.take_text(_variant.alloc_text(text)), text)

    def test_half_a_unit_at_the_end_of_a_text_is_left_out(self) -> None:
        address = library().SysAllocStringByteLen(b"a\0b", 3)
        self.assertEqual(_variant.take_text(address), "a")


class ReferenceTest(Case):
    def reference(self, ref: Ref) -> "tuple[int, Any]":
        memory = place()
        kept = _variant.write_reference(memory, 0, ref)
        kind, address = struct.unpack("<H6xQ", memory.raw[:16])
        self.assertEqual(address, ctypes.addressof(kept) + (8 if kind != 0x400C else 0))
        return kind, kept

    def test_a_plain_reference_is_one_to_a_variant(self) -> None:
        kind, kept = self.reference(Ref(5))
        self.assertEqual(kind, 0x400C)
        self.assertEqual(kept.raw, number(3, "i", 5))
        kind, kept = self.reference(Ref(5, "Variant"))
        self.assertEqual(kind, 0x400C)

    def test_a_reference_with_a_kind_is_one_to_that_kind(self) -> None:
        for kind, vt, value, form, content in (
            ("Long", 3, 5, "i", 5), ("Integer", 2, 5, "h", 5), ("Byte", 17, 255, "B", 255),
            ("Boolean", 11, True, "h", -1), ("Boolean", 11, 3, "h", -1), ("Boolean", 11, 0, "h", 0),
            ("Single", 4, 1, "f", 1.0), ("Double", 5, 2, "d", 2.0), ("Double", 5, 0.5, "d", 0.5),
            ("Currency", 6, 2, "q", 20000), ("Long", 3, 2.5, "i", 2), ("Long", 3, 3.5, "i", 4),
            ("Long", 3, Decimal("1.5"), "i", 2),
        ):  # fmt: skip
            with self.subTest(kind=kind, value=value):
                told, kept = self.reference(Ref(value, kind))
                self.assertEqual(told, 0x4000 | vt)
                self.assertEqual(kept.raw, number(vt, form, content))

    def test_a_reference_without_a_value_holds_nothing_of_its_kind(self) -> None:
        for kind, vt in (("Long", 3), ("String", 8), ("Object", 9), ("Long()", 0x2003), ("Byte()", 0x2011)):
            told, kept = self.reference(Ref(None, kind))
            self.assertEqual(told, 0x4000 | vt)
            self.assertEqual(kept.raw, number(vt, "Q", 0))

    def test_values_that_do_not_fit_the_kind_are_refused(self) -> None:
        self.raises(6, "32768 does not fit the reference", self.reference, Ref(32768, "Integer"))
        self.raises(6, "nan does not fit the reference", self.reference, Ref(float("nan"), "Long"))
        self.raises(13, "'5' does not fit a reference to another kind of value", self.reference, Ref("5", "Long"))
        self.raises(13, "5 does not fit a reference to another kind of value", self.reference, Ref(5, "String"))
        self.raises(5, "there is no kind 'Lnog' of references", self.reference, Ref(5, "Lnog"))
        with self.assertRaises(AutomationError) as caught:
            self.reference(Ref(self, "Long"))
        self.assertEqual(caught.exception.number, 13)

    def test_the_value_is_what_the_place_holds_afterwards(self) -> None:
        ref = Ref("before")
        _, kept = self.reference(ref)
        _variant.clear(kept)
        _variant.write(kept, 0, "after")
        _variant.take_reference(kept, ref)
        self.assertEqual(ref.value, "after")
        self.assertEqual(kept.raw, bytes(24))


class StoreTest(Case):
    def store(self, kind: int, before: bytes, value: Any) -> bytes:
        memory = ctypes.create_string_buffer(before + b"\xee" * 8, len(before) + 8)
        _variant.store_reference(kind, ctypes.addressof(memory), value)
        self.assertEqual(memory.raw[len(before) :], b"\xee" * 8)
        return memory.raw[: len(before)]

    def test_numbers_are_stored_as_the_kind_that_is_wanted(self) -> None:
        self.assertEqual(self.store(3, bytes(4), 7), struct.pack("<i", 7))
        self.assertEqual(self.store(2, bytes(2), -7), struct.pack("<h", -7))
        self.assertEqual(self.store(17, bytes(1), 200), b"\xc8")
        self.assertEqual(self.store(11, bytes(2), True), b"\xff\xff")
        self.assertEqual(self.store(5, bytes(8), 1), struct.pack("<d", 1))
        self.assertEqual(self.store(6, bytes(8), Decimal("0.5")), struct.pack("<q", 5000))

    def test_variants_take_any_value(self) -> None:
        self.assertEqual(self.store(12, number(2, "h", 1), 7.5), number(5, "d", 7.5))

    def test_what_was_there_is_let_go_of(self) -> None:
        memory = place()
        _variant.write(memory, 0, self)
        _variant.store_reference(12, ctypes.addressof(memory), "text")
        self.assertEqual(_variant.take(memory), "text")
        text = ctypes.c_uint64(_variant.alloc_text("old"))
        _variant.store_reference(8, ctypes.addressof(text), "new")
        self.assertEqual(_variant.take_text(text.value), "new")
        pointer = place()
        _variant.write(pointer, 0, self)
        other = Case()
        _variant.store_reference(9, ctypes.addressof(pointer) + 8, other)
        self.assertIs(_variant.take(pointer), other)

    def test_arrays_are_stored(self) -> None:
        memory = place()
        _variant.write(memory, 0, [1])
        _variant.store_reference(0x2003, ctypes.addressof(memory) + 8, [1, 2, 3])
        self.assertEqual(_variant.take(memory), [1, 2, 3])

    def test_what_does_not_fit_is_refused_and_changes_nothing(self) -> None:
        memory = ctypes.create_string_buffer(struct.pack("<h", 4), 2)
        address = ctypes.addressof(memory)
        self.raises(6, "40000 does not fit the reference", _variant.store_reference, 2, address, 40000)
        with self.assertRaises(AutomationError) as caught:
            _variant.store_reference(2, address, "x")
        self.assertEqual(caught.exception.number, 13)
        with self.assertRaises(AutomationError) as caught:
            _variant.store_reference(2, address, [1])
        self.assertEqual(caught.exception.number, 13)
        with self.assertRaises(AutomationError) as caught:
            _variant.store_reference(2, address, self)
        self.assertEqual(caught.exception.number, 13)
        self.assertEqual(memory.raw, struct.pack("<h", 4))

    def test_nothing_is_stored_nowhere(self) -> None:
        _variant.store_reference(3, 0, 5)


class EnumerationTest(unittest.TestCase):
    def test_values_become_members_when_there_are_such(self) -> None:
        self.assertIs(_variant.enumeration_value(Level, 2), Level.HIGH)
        self.assertEqual(_variant.enumeration_value(Level, 3), 3)
        self.assertNotIsInstance(_variant.enumeration_value(Level, 3), Level)


if __name__ == "__main__":
    unittest.main()
