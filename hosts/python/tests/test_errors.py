"""Errors and what results mean."""

from __future__ import annotations

import pickle
import unittest
from decimal import Decimal
from fractions import Fraction

import support  # noqa: F401
from quenzel7 import AutomationError, UnknownMemberError, _abi, _invoke, errors


class AutomationErrorTest(unittest.TestCase):
    def test_carries_number_description_and_source(self) -> None:
        error = AutomationError(13, "type mismatch: Xs", "clsRectangle")
        self.assertEqual((error.number, error.description, error.source), (13, "type mismatch: Xs", "clsRectangle"))
        self.assertIsNone(error.result)

    def test_reads_as_number_and_description(self) -> None:
        self.assertEqual(str(AutomationError(13, "type mismatch: Xs")), "[13] type mismatch: Xs")

    def test_numbers_that_are_results_read_as_such(self) -> None:
        self.assertEqual(str(AutomationError(_abi.RPC_E_WRONG_THREAD, "no")), "[0x8001010E] no")
        self.assertEqual(str(AutomationError(-5, "no")), "[-5] no")

    def test_a_number_alone_has_the_text_of_the_number(self) -> None:
        texts = {
            5: "invalid procedure call or argument", 6: "overflow", 7: "out of memory", 9: "index out of range",
            11: "division by zero", 13: "type mismatch", 91: "object not set", 94: "invalid use of Null",
            438: "there is no such member", 457: "this key is already in the collection",
            1: "application-defined error",
        }  # fmt: skip
        for number, text in texts.items():
            self.assertEqual(AutomationError(number).description, text)
            self.assertEqual(AutomationError(number).args, (number, text, ""))

    def test_survives_pickling(self) -> None:
        copied = pickle.loads(pickle.dumps(AutomationError(91, "none", "here")))
        self.assertEqual((copied.number, copied.description, copied.source), (91, "none", "here"))

    def test_unknown_members_are_attribute_errors_too(self) -> None:
        error = UnknownMemberError(438, "no such thing")
        self.assertIsInstance(error, AttributeError)
        self.assertIsInstance(error, AutomationError)
        self.assertEqual((error.number, str(error)), (438, "[438] no such thing"))


class ResultTest(unittest.TestCase):
    NUMBERS = {
        0x80020006: 438, 0x80020003: 438, 0x80020005: 13, 0x8002000A: 6, 0x8002000E: 450, 0x8002000F: 449,
        0x80020004: 448, 0x8007000E: 7, 0x8002000B: 9, 0x80020012: 11, 0x80020008: 458, 0x80040111: 429,
    }  # fmt: skip

    def test_results_have_numbers_of_the_run_time(self) -> None:
        for result, number in self.NUMBERS.items():
            error = errors.result_error(result - 2**32)
            self.assertEqual(error.number, number)
            self.assertEqual(error.result, result - 2**32)

    def test_any_other_result_is_its_own_number(self) -> None:
        for result, text in {
            0x8001010E: "the object belongs to another thread", 0x80004002: "the object has no such interface",
            0x80004003: "a null pointer", 0x80070057: "an argument is not valid", 0x80004001: "not implemented",
            0x80004005: "failure", 0x8000FFFF: "unexpected failure", 0x80020001: "unknown interface",
            0x80020007: "the member takes no named arguments", 0x8002000D: "the array is locked",
            0x80040110: "objects of this class cannot be part of another", 0x80123456: "failure",
            0x80040201: "the classes could not be registered",
        }.items():  # fmt: skip
            error = errors.result_error(result - 2**32)
            self.assertEqual((error.number, error.description), (result - 2**32, text))

    def test_a_context_stands_behind_the_text(self) -> None:
        error = errors.result_error(_abi.DISP_E_TYPEMISMATCH, "clsRectangle.Xs")
        self.assertEqual(error.description, "type mismatch: clsRectangle.Xs")

    def test_check_raises_failures_only(self) -> None:
        errors.check(0)
        errors.check(1)
        with self.assertRaises(AutomationError) as caught:
            errors.check(_abi.DISP_E_OVERFLOW, "there")
        self.assertEqual(str(caught.exception), "[6] overflow: there")

    def test_scodes_carry_numbers_from_1_to_65535(self) -> None:
        for number, scode in ((1, 0x800A0001), (438, 0x800A01B6), (65535, 0x800AFFFF)):
            self.assertEqual(errors.scode_of_number(number), scode - 2**32)
            self.assertEqual(errors.number_of_scode(0, scode - 2**32), number)
        for number in (0, 65536, -7, 0x800A0000 - 2**32, 0x800B0000 - 2**32):
            self.assertEqual(errors.scode_of_number(number), number)
            self.assertEqual(errors.number_of_scode(0, number), number)

    def test_a_code_goes_before_the_scode(self) -> None:
        self.assertEqual(errors.number_of_scode(1001, 0x800A0005 - 2**32), 1001)


class GotTest(unittest.TestCase):
    def test_values_are_told_with_their_type(self) -> None:
        texts = {
            "int 5": 5, "float 2.5": 2.5, "Fraction 3/2": Fraction(3, 2), "Decimal 1.50": Decimal("1.50"),
            "bool True": True, "None": None, "str 'far'": "far", "list [1, 2]": [1, 2], "bytes b'ab'": b"ab",
            "GotTest": self, "int": 10**5000,
        }  # fmt: skip
        for text, value in texts.items():
            self.assertEqual(errors.got(value), text)

    def test_long_texts_are_cut(self) -> None:
        self.assertLess(len(errors.got("x" * 1000)), 50)


class PlacedTest(unittest.TestCase):
    def test_an_error_is_told_with_where_it_is(self) -> None:
        error = AutomationError(6, "too wide", "here")
        error.result = -5
        found = errors.placed(error, "Probe.Xs")
        told = (found.number, found.description, found.source, found.result)
        self.assertEqual(told, (6, "Probe.Xs: too wide", "here", -5))
        self.assertEqual(errors.placed(error, "").description, "too wide")

    def test_only_failures_of_values_are_told_with_the_value(self) -> None:
        for result in (_abi.DISP_E_TYPEMISMATCH, _abi.DISP_E_OVERFLOW, _abi.DISP_E_BADVARTYPE):
            self.assertEqual(_invoke.with_value("Probe.Xs", result, 5), "Probe.Xs, got int 5")
            self.assertEqual(_invoke.with_value("", result, 5), "got int 5")
        self.assertEqual(_invoke.with_value("Probe.Xs", _abi.E_FAIL, 5), "Probe.Xs")


class NearestTest(unittest.TestCase):
    def test_finds_the_most_alike_name_whatever_its_case(self) -> None:
        names = ["PenStyle", "PenWidth", "Xs"]
        self.assertEqual(errors.nearest("PenWidht", names), "PenWidth")
        self.assertEqual(errors.nearest("XS", names), "Xs")
        self.assertEqual(errors.nearest("pZ", ["pX", "pY"]), "pX")
        self.assertEqual(errors.nearest("anything", []), "")

    def test_a_name_that_is_less_than_half_like_it_is_not_near(self) -> None:
        self.assertEqual(errors.nearest("abcd", ["abxy"]), "abxy")
        self.assertEqual(errors.nearest("abcd", ["abxyz"]), "")
        self.assertEqual(errors.unknown_name("there is no", "banana", ["clsRectangle"]), "there is no 'banana'")

    def test_names_are_spelt_as_they_are_known(self) -> None:
        self.assertEqual(errors.spelling("xs", ["XS", "xs"]), "xs")
        self.assertEqual(errors.spelling("xS", ["Ys", "Xs"]), "Xs")
        self.assertIsNone(errors.spelling("X", ["Xs"]))

    def test_a_refused_name_is_told_with_the_nearest(self) -> None:
        self.assertEqual(
            errors.unknown_name("clsRectangle has no member", "PenWidht", ["Xs", "PenWidth"]),
            "clsRectangle has no member 'PenWidht'; nearest is 'PenWidth'",
        )
        self.assertEqual(errors.unknown_name("there is no class", "x", []), "there is no class 'x'")


class CauseTest(unittest.TestCase):
    def test_an_exception_is_the_cause_of_the_error_that_it_became(self) -> None:
        exception = ValueError("bad")
        raised = errors.RaisedByHost(exception, "ValueError: bad")
        self.assertIs(raised.cause_of(AutomationError(5, "ValueError: bad")), exception)
        self.assertIsNone(raised.cause_of(AutomationError(5, "something else")))

    def test_an_unexpected_failure_has_the_last_exception_as_its_cause(self) -> None:
        exception = ValueError("bad")
        raised = errors.RaisedByHost(exception, "ValueError: bad")
        self.assertIs(raised.cause_of(errors.result_error(_abi.E_UNEXPECTED)), exception)


if __name__ == "__main__":
    unittest.main()
