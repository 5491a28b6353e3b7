"""Type information as the library tells it."""

from __future__ import annotations

import enum
import json
import pickle
import unittest
from unittest import mock

from support import TOLD, Case, type_library
from quenzel7 import _types


class TypeLibraryTest(Case):
    def setUp(self) -> None:
        super().setUp()
        self.types = type_library()

    def test_lists_what_there_is_in_its_order(self) -> None:
        self.assertEqual(self.types.class_names(), ["Probe", "Plain"])
        self.assertEqual(self.types.interface_names(), ["_Probe", "ItfPlain", "ItfNone"])
        self.assertEqual(self.types.enumeration_names(), ["enKind"])

    def test_a_class_has_its_interfaces_and_numbers(self) -> None:
        self.assertEqual(
            self.types.class_info("Probe"),
            _types.ClassInfo(
                "Probe", "Quenzel7.Probe", "{00000001-0000-0000-0000-000000000001}", True, ("_Probe", "ItfPlain", "ItfNone")
            ),
        )
        self.assertEqual(self.types.class_info("Plain"), _types.ClassInfo("Plain", "", "", False, ("ItfPlain",)))
        self.raises(429, "there is no class 'Prob'; nearest is 'Probe'", self.types.class_info, "Prob")

    def test_an_interface_has_its_members(self) -> None:
        interface = self.types.interface("_Probe")
        self.assertEqual((interface.name, interface.iid), ("_Probe", "{00020400-0000-0000-C000-000000000046}"))
        members = {member.name: member for member in interface.members}
        self.assertEqual(
            members["Xs"], _types.Member("Xs", 1, False, "Long", get=True, put=True, doc="Left edge.")
        )
        self.assertEqual(
            members["Owner"], _types.Member("Owner", 4, False, "Object", get=True, putref=True)
        )
        self.assertEqual(
            members["Stretch"],
            _types.Member(
                "Stretch", 7, True, "enKind", "enKind", doc="Pulls.",
                parameters=(
                    _types.Parameter("pDx", "Long"),
                    _types.Parameter("pDy", "Long", byref=True),
                    _types.Parameter("pDirection", "Long", optional=True, default=5),
                ),
            ),
        )  # fmt: skip
        self.assertEqual((members["Item"].number, members["Item"].role), (0, "value"))
        self.assertEqual((members["_NewEnum"].number, members["_NewEnum"].role), (-4, "enumerator"))
        told = json.loads(json.dumps(TOLD))
        told["interfaces"][1]["members"] = [{"name": "Bare", "id": 1, "kind": "method"}]
        bare = _types.TypeLibrary(json.dumps(told)).interface("ItfPlain").members[0]
        self.assertEqual(bare, _types.Member("Bare", 1, True))
        self.raises(5, "there is no interface 'itfPlan'; nearest is 'ItfPlain'", self.types.interface, "itfPlan")

    def test_marks_are_kept(self) -> None:
        told = json.loads(json.dumps(TOLD))
        told["interfaces"][1]["members"][0]["mark"] = "Transient"
        member = _types.TypeLibrary(json.dumps(told)).interface("ItfPlain").members[0]
        self.assertEqual(member.mark, "Transient")

    def test_an_enumeration_is_an_int_enum(self) -> None:
        kind = self.types.enumeration("enKind")
        self.assertTrue(issubclass(kind, enum.IntEnum))
        self.assertEqual([(one.name, one.value) for one in kind], [("eK_None", 0), ("eK_Some", 5)])
        self.assertEqual((kind.__module__, kind.__qualname__), ("quenzel7", "enKind"))
        self.raises(5, "there is no enumeration 'enKnid'; nearest is 'enKind'", self.types.enumeration, "enKnid")

    def test_everything_is_made_once(self) -> None:
        self.assertIs(self.types.class_info("Probe"), self.types.class_info("Probe"))
        self.assertIs(self.types.interface("_Probe"), self.types.interface("_Probe"))
        self.assertIs(self.types.enumeration("enKind"), self.types.enumeration("enKind"))

    def test_the_class_of_an_object_is_the_one_whose_default_interface_it_has(self) -> None:
        told = json.loads(json.dumps(TOLD))
        told["classes"][1]["interfaces"] = ["_Plain"]
        told["interfaces"].append({"name": "_Plain", "iid": "{00000000-0000-0000-0000-0000000000BB}", "members": []})
        self.types = _types.TypeLibrary(json.dumps(told))
        probe, plain = (self.types.interface(name).iid for name in ("_Probe", "_Plain"))
        self.assertEqual(self.asked_for(plain), ("Plain", [probe, plain]))
        self.assertEqual(self.asked_for(plain), ("Plain", [plain]))
        self.assertEqual(self.asked_for(plain, "Probe"), ("Plain", [probe, plain]))
        self.assertEqual(self.asked_for(plain, "Plain"), ("Plain", [plain]))
        self.assertEqual(self.asked_for(plain, "Long"), ("Plain", [plain]))
        self.assertEqual(self.asked_for("none"), (None, [plain, probe]))
        self.assertEqual(self.types.class_names(), ["Probe", "Plain"])

    def test_an_interface_that_several_classes_have_tells_a_class_last(self) -> None:
        probe, plain = (self.types.interface(name).iid for name in ("_Probe", "ItfPlain"))
        for _ in range(2):
            self.assertEqual(self.asked_for(plain, "Plain"), ("Plain", [probe, plain]))
        self.assertEqual(self.asked_for("none", "Plain"), (None, [probe, plain]))

    def asked_for(self, iid: str, hint: str = "") -> "tuple[str | None, list[str]]":
        """The class of an object that has that interface alone, and the interfaces that it was asked for."""
        asked = []

        def has(one: str) -> bool:
            asked.append(one)
            return one == iid

        return self.types.class_of(has, hint), asked


class FetchTest(unittest.TestCase):
    def test_the_text_is_fetched_once(self) -> None:
        fetched = []

        def fetch() -> str:
            fetched.append(1)
            return json.dumps(TOLD)

        with mock.patch.object(_types, "_types", None), mock.patch.object(_types, "_fetch", None):
            _types.fetch_with(fetch)
            self.assertEqual(fetched, [])
            self.assertIs(_types.types(), _types.types())
            self.assertEqual(fetched, [1])

    def test_members_of_enumerations_survive_pickling_by_the_package(self) -> None:
        types = type_library()
        with mock.patch.object(_types, "_types", types):
            some = types.enumeration("enKind")(5)
            self.assertIs(pickle.loads(pickle.dumps(some)), some)


if __name__ == "__main__":
    unittest.main()
