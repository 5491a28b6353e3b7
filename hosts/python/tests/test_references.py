"""By-reference arguments."""

from __future__ import annotations

import ctypes
import struct
import unittest
from decimal import Decimal
from typing import Any

from support import Case
from quenzel7 import AutomationError, Ref, _references, _variant
from test_variant import number, place


class ReferenceTest(Case):
    def reference(self, ref: Ref) -> "tuple[int, Any]":
        memory = place()
        kept = _references.write_reference(memory, 0, ref)
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

    def test_what_can_be_used_as_a_number_fits_a_kind_of_numbers(self) -> None:
        class Whole:
            def __index__(self) -> int:
                return 7

        memory = ctypes.create_string_buffer(24)
        place = _references.write_reference(memory, 0, Ref(Whole(), "Double"))
        self.assertEqual(_variant.read(place), 7.0)
        self.assertEqual(_variant.KIND.unpack_from(place, 0), (5,))

    def test_values_that_do_not_fit_the_kind_are_refused(self) -> None:
        self.raises(6, "32768 does not fit the reference", self.reference, Ref(32768, "Integer"))
        self.raises(6, "nan does not fit the reference", self.reference, Ref(float("nan"), "Long"))
        self.raises(13, "str '5' does not fit a reference to Long", self.reference, Ref("5", "Long"))
        self.raises(13, "int 5 does not fit a reference to String", self.reference, Ref(5, "String"))
        self.raises(5, "there is no kind 'Lnog' of references", self.reference, Ref(5, "Lnog"))
        with self.assertRaises(AutomationError) as caught:
            self.reference(Ref(self, "Long"))
        self.assertEqual(caught.exception.number, 13)

    def test_the_value_is_what_the_place_holds_afterwards(self) -> None:
        ref = Ref("before")
        _, kept = self.reference(ref)
        _variant.clear(kept)
        _variant.write(kept, 0, "after")
        _references.take_reference(kept, ref)
        self.assertEqual(ref.value, "after")
        self.assertEqual(kept.raw, bytes(24))


class StoreTest(Case):
    def store(self, kind: int, before: bytes, value: Any) -> bytes:
        memory = ctypes.create_string_buffer(before + b"\xee" * 8, len(before) + 8)
        _references.store_reference(kind, ctypes.addressof(memory), value)
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
        _references.store_reference(12, ctypes.addressof(memory), "text")
        self.assertEqual(_variant.take(memory), "text")
        text = ctypes.c_uint64(_variant.alloc_text("old"))
        _references.store_reference(8, ctypes.addressof(text), "new")
        self.assertEqual(_variant.take_text(text.value), "new")
        pointer = place()
        _variant.write(pointer, 0, self)
        other = Case()
        _references.store_reference(9, ctypes.addressof(pointer) + 8, other)
        self.assertIs(_variant.take(pointer), other)

    def test_arrays_are_stored(self) -> None:
        memory = place()
        _variant.write(memory, 0, [1])
        _references.store_reference(0x2003, ctypes.addressof(memory) + 8, [1, 2, 3])
        self.assertEqual(_variant.take(memory), [1, 2, 3])

    def test_what_does_not_fit_is_refused_and_changes_nothing(self) -> None:
        memory = ctypes.create_string_buffer(struct.pack("<h", 4), 2)
        address = ctypes.addressof(memory)
        self.raises(6, "40000 does not fit the reference", _references.store_reference, 2, address, 40000)
        with self.assertRaises(AutomationError) as caught:
            _references.store_reference(2, address, "x")
        self.assertEqual(caught.exception.number, 13)
        with self.assertRaises(AutomationError) as caught:
            _references.store_reference(2, address, [1])
        self.assertEqual(caught.exception.number, 13)
        with self.assertRaises(AutomationError) as caught:
            _references.store_reference(2, address, self)
        self.assertEqual(caught.exception.number, 13)
        self.assertEqual(memory.raw, struct.pack("<h", 4))

    def test_nothing_is_stored_nowhere(self) -> None:
        _references.store_reference(3, 0, 5)


if __name__ == "__main__":
    unittest.main()
