"""Property bags in the manner of Python."""

from __future__ import annotations

import tempfile
import unittest
from decimal import Decimal
from pathlib import Path

from test_server import ServerCase
import quenzel7 as q
from quenzel7 import _abi, _frames, _property_bag, _variant
from quenzel7._frames import give_back, take_frame
from quenzel7._invoke import numbers_of_names


class PropertyBagTest(ServerCase):
    def test_it_lists_keys_kinds_and_values_in_order(self) -> None:
        bag = q.property_bag()
        values = [
            ("Long", 70000), ("Double", 0.5), ("String", "é"), ("Boolean", True), ("Currency", Decimal("1.2500")),
            ("Byte()", b"\1\2"), ("Long()", [1, -2]), ("String()", ["a", ""]), ("Null", q.Null), ("Empty", None),
            ("Variant()", [1, "a"]), ("Boolean()", [True, False]), ("Double()", [0.5]),
        ]  # fmt: skip
        for kind, value in values:
            bag["a " + kind] = value
        self.assertEqual(list(bag), [("a " + kind, kind, value) for kind, value in values])
        self.assertEqual(bag.keys(), ["a " + kind for kind, _ in values])
        self.assertEqual(len(bag), len(values))
        first = list(bag)[0]
        self.assertEqual((first.key, first.kind, first.value), ("a Long", "Long", 70000))

    def test_kinds_that_are_one_in_python_are_told_apart(self) -> None:
        # An Integer, a Byte and a Single, as blocks of other hosts may have them.
        self.assertEqual(_property_bag._name_of(2), "Integer")
        self.assertEqual(_property_bag._name_of(17), "Byte")
        self.assertEqual(_property_bag._name_of(4), "Single")
        self.assertEqual(_property_bag._name_of(9), "Object")
        self.assertEqual(_property_bag._name_of(0x2000 | 2), "Integer()")
        self.assertEqual(_property_bag._name_of(77), "kind 77")

    def test_it_is_indexed_by_key_in_any_case(self) -> None:
        bag = q.property_bag()
        bag["Xs"] = 5
        bag["xS"] = 6
        self.assertEqual((bag["Xs"], bag["XS"], len(bag), bag.kind("xs")), (6, 6, 1, "Long"))
        self.assertIn("xs", bag)
        self.assertNotIn("ys", bag)
        self.assertNotIn(1, bag)
        self.assertEqual((bag.get("XS"), bag.get("ys"), bag.get("ys", 9)), (6, None, 9))
        text = 'the property bag has no value named "ys"'
        for call in (bag.__getitem__, bag.kind, bag.__delitem__):
            with self.assertRaises(KeyError) as caught:
                call("ys")
            assert isinstance(caught.exception, q.AutomationError)
            self.assertEqual((caught.exception.number, caught.exception.description), (327, text))
            self.assertEqual(caught.exception.source, "Quenzel7")
            self.assertEqual(str(caught.exception), f"[327] {text}")
            self.assertLess(caught.exception.result or 0, 0)
        with self.assertRaises(q.AutomationError) as wrong:
            bag[q.collection()]  # type: ignore[index]
        self.assertEqual(wrong.exception.number, 13)
        self.assertNotIsInstance(wrong.exception, KeyError)
        self.assertEqual(bag.keys(), ["Xs"])
        with self.assertRaisesRegex(AttributeError, "Bag has no attribute 'contnets'; nearest is 'contents'"):
            bag.contnets = b""  # type: ignore[attr-defined]

    def test_it_has_keys_values_and_items_as_a_dictionary(self) -> None:
        bag = q.property_bag()
        bag["a"], bag["b"] = 1, "x"
        self.assertEqual((bag.values(), bag.items()), ([1, "x"], [("a", 1), ("b", "x")]))
        self.assertEqual(dict(bag.items()), {"a": 1, "b": "x"})

    def test_a_value_taken_away_leaves_the_others_as_they_are(self) -> None:
        bag, inner = q.property_bag(), q.property_bag()
        inner["x"] = 1
        for key, value in (("a", 70000), ("b", "é"), ("c", [1, -2]), ("d", None), ("e", q.Null), ("f", inner)):
            bag[key] = value
        rest = [(entry.key, entry.kind, entry.value) for entry in bag if entry.key != "b"]
        del bag["B"]
        self.assertEqual([tuple(entry) for entry in bag], rest)
        # What was lent to a call is not left in its frame, where it would be freed again.
        for kept in _frames._kept:
            (kind,) = _variant.KIND.unpack_from(kept[0].memory, kept[0].first)
            self.assertFalse(_variant.owns(kind), kind)
        own = bag.object
        for key in bag.keys():
            del bag[key]
        self.assertEqual((bag.keys(), bag.object), ([], own))

    def test_a_value_taken_away_leaves_the_kinds_of_the_others(self) -> None:
        # A Single and an Integer, which are one with Double and Long in Python.
        library = q.platform.services.NewPropertyBag()
        library.WriteProperty("a", 1)
        bag = q.property_bag(library)
        _, (write,) = numbers_of_names(library, ("WriteProperty",))
        for kind, key, value in ((_abi.VT_R4, "b", 0.5), (_abi.VT_I2, "c", 7)):
            frame = take_frame(2)
            frame.set_count(2)
            _variant.PACKERS[kind].pack_into(frame.memory, frame.first, kind, value)
            _variant.write(frame.memory, frame.first + _abi.VARIANT_SIZE, key)
            _property_bag._call(library, write, frame, "WriteProperty")
            _variant.clear(frame.memory, frame.first + _abi.VARIANT_SIZE)
            give_back(frame)
        self.assertEqual([bag.kind(key) for key in "abc"], ["Long", "Single", "Integer"])
        del bag["a"]
        self.assertEqual(list(bag), [("b", "Single", 0.5), ("c", "Integer", 7)])

    def test_it_is_not_the_librarys_class_of_that_name(self) -> None:
        bag = q.property_bag()
        self.assertEqual((type(bag), type(bag.object)), (q.Bag, q.PropertyBag))

    def test_it_is_read_from_and_given_as_bytes(self) -> None:
        bag = q.property_bag()
        self.assertEqual(bytes(bag), b"QBag\1\0\0\0\0\x08\xd5\xc8\xed")
        self.assertEqual((len(bag), bool(bag), list(bag)), (0, True, []))
        bag["a"] = 1
        read = q.property_bag(bag.contents)
        self.assertEqual(list(read), [("a", "Long", 1)])
        self.assertEqual(read, bag)
        read["b"] = 2
        self.assertNotEqual(read, bag)
        self.assertEqual(q.property_bag(bytearray(read.contents)), read)
        read.contents = bag.contents
        self.assertEqual(read.keys(), ["a"])
        self.assertFalse(read == 1)
        with self.assertRaises(q.AutomationError) as caught:
            q.property_bag(b"QBag")
        self.assertEqual(caught.exception.number, 331)

    def test_bags_stand_in_bags(self) -> None:
        inner, outer = q.property_bag(), q.property_bag()
        inner["x"] = 1
        outer["in"] = inner
        self.assertEqual(outer.kind("in"), "Object")
        self.assertEqual(type(outer["in"]), q.Bag)
        self.assertEqual(type(inner.object), q.PropertyBag)
        self.assertEqual(q.property_bag(outer.contents)["in"]["x"], 1)

    def test_the_librarys_own_bags_are_read_as_they_are(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        with q.Project(Path(folder.name) / "a.qz7"):
            element = q.create("clsVar", VarType=q.enVarType.eVT_Numeric, OperandType=3, OperandAddress=5)
            bags = [q.property_bag(bag) for bag in element.BuildOpPropBag()]
        self.assertTrue(bags)
        self.assertEqual(bags[0].keys()[:2], ["Type", "Address"])
        own = q.property_bag(bags[0].object)
        self.assertEqual(own.object, bags[0].object)

    def test_the_block_of_a_handler(self) -> None:
        element = q.create("clsVar", VarType=q.enVarType.eVT_Numeric)
        handler = element.BinaryHandlers(q.enVarType.eVT_Numeric)
        handler.Postfix = " bar"
        data = handler.GetBinaryData()
        bag = q.property_bag(data)
        self.assertEqual(bag["Postfix"], " bar")
        self.assertEqual(bag.contents, data)
        bag["Postfix"] = " l"
        handler.SetBinaryData(bag.contents)
        self.assertEqual(handler.Postfix, " l")

    def test_it_shows_itself(self) -> None:
        bag = q.property_bag()
        bag["a"], bag["b"] = 1, "x"
        self.assertEqual(repr(bag), "<Bag a=1, b='x'>")


if __name__ == "__main__":
    unittest.main()
