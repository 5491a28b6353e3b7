"""The numbers and layouts of the binary interface, against the header that declares them."""

from __future__ import annotations

import re
import unittest

from support import FOLDER
from quenzel7 import _abi

HEADER = (FOLDER.parent.parent / "server" / "quenzel7_automation.h").read_text(encoding="utf-8")


def declared(pattern: str) -> "dict[str, int]":
    return {name: int(value, 0) for name, value in re.findall(pattern, HEADER)}


class NumbersTest(unittest.TestCase):
    def test_kinds_of_values_are_those_of_the_header(self) -> None:
        kinds = declared(r"\b(VT_\w+) = (\w+)")
        self.assertGreater(len(kinds), 20)
        ours = {name: value for name, value in vars(_abi).items() if name.startswith("VT_")}
        self.assertEqual({name: kinds[name] for name in ours}, ours)

    def test_results_are_those_of_the_header(self) -> None:
        results = declared(r"#define (\w+) QUENZEL7_RESULT\((0x\w{8}|\d)u?\)")
        signed = {name: value - 2**32 if value >= 2**31 else value for name, value in results.items()}
        self.assertEqual({name: getattr(_abi, name) for name in signed}, signed)

    def test_ways_of_calling_and_known_members_are_those_of_the_header(self) -> None:
        numbers = declared(r"#define (DISPATCH_\w+) (0x\w)")
        numbers.update(declared(r"#define (DISPID_\w+) \(?(-?\d)\)?"))
        self.assertEqual(len(numbers), 8)
        self.assertEqual({name: getattr(_abi, name) for name in numbers}, numbers)

    def test_numbers_of_interfaces_are_those_of_the_header(self) -> None:
        for text, name in re.findall(r"/\* ({[0-9A-F-]+}) \*/\nQUENZEL7_API const IID (\w+);", HEADER):
            self.assertEqual(getattr(_abi, name.upper()), _abi.guid(text), name)

    def test_a_guid_has_its_first_three_fields_turned_round(self) -> None:
        self.assertEqual(
            _abi.guid("{00112233-4455-6677-8899-AABBCCDDEEFF}"),
            bytes.fromhex("33221100 5544 7766 8899 AABBCCDDEEFF"),
        )

    def test_every_prototype_is_a_function_of_the_header(self) -> None:
        for name in _abi.PROTOTYPES:
            self.assertRegex(HEADER, rf"QUENZEL7_API [^;]*\b{name}\(")


class LayoutTest(unittest.TestCase):
    def test_sizes_are_those_of_programs_of_64_bits(self) -> None:
        self.assertEqual(_abi.VARIANT_SIZE, 24)
        self.assertEqual(_abi.EXCEPINFO.size, 64)
        self.assertEqual(_abi.DISPPARAMS.size, 24)
        self.assertEqual(_abi.SAFEARRAY.size, 24)
        self.assertEqual(_abi.SAFEARRAYBOUND.size, 8)

    def test_functions_stand_where_the_header_declares_them(self) -> None:
        def places(table: str) -> "list[str]":
            body = re.search(rf"typedef struct {table} {{(.*?)}} {table};", HEADER, re.DOTALL)
            assert body is not None
            return re.findall(r"STDMETHODCALLTYPE\* (\w+)\)", body.group(1))

        dispatch, enumerator, factory = (places(f"{name}Vtbl") for name in ("IDispatch", "IEnumVARIANT", "IClassFactory"))
        self.assertEqual(dispatch[_abi.QUERY_INTERFACE], "QueryInterface")
        self.assertEqual(dispatch[_abi.ADD_REF], "AddRef")
        self.assertEqual(dispatch[_abi.RELEASE], "Release")
        self.assertEqual(dispatch[_abi.GET_TYPE_INFO_COUNT], "GetTypeInfoCount")
        self.assertEqual(dispatch[_abi.GET_TYPE_INFO], "GetTypeInfo")
        self.assertEqual(dispatch[_abi.GET_IDS_OF_NAMES], "GetIDsOfNames")
        self.assertEqual(dispatch[_abi.INVOKE], "Invoke")
        self.assertEqual(enumerator[_abi.ENUM_NEXT], "Next")
        self.assertEqual(enumerator[_abi.ENUM_SKIP], "Skip")
        self.assertEqual(enumerator[_abi.ENUM_RESET], "Reset")
        self.assertEqual(enumerator[_abi.ENUM_CLONE], "Clone")
        self.assertEqual(factory[_abi.CREATE_INSTANCE], "CreateInstance")

    def test_texts_are_utf_16_and_halves_of_pairs_pass(self) -> None:
        self.assertEqual(_abi.utf16("aé\U0001f600"), bytes.fromhex("6100 e900 3dd8 00de"))
        self.assertEqual(_abi.utf16("\ud800"), bytes.fromhex("00d8"))
        self.assertEqual(_abi.wide("a"), bytes.fromhex("6100 0000"))


if __name__ == "__main__":
    unittest.main()
