"""Classes made from type information, in loopback to an object of Python with the members that they tell
of."""

from __future__ import annotations

import enum
import inspect
import pydoc
import unittest
from decimal import Decimal
from typing import Any
from unittest import mock

from support import Case, Probe, probe, type_library
from quenzel7 import AutomationError, Ref, UnknownMemberError, _abi, _classes, _frames, _host_calls, _host_objects
from quenzel7._types import Member, Parameter
from quenzel7.errors import RaisedByHost


class PropertyTest(Case):
    def setUp(self) -> None:
        super().setUp()
        self.target = Probe()
        self.proxy = probe(self.target)

    def tearDown(self) -> None:
        del self.proxy
        super().tearDown()

    def test_numbers_are_read_and_written(self) -> None:
        for value in (0, 7, -1, 2**31 - 1, -(2**31)):
            self.proxy.Xs = value
            self.assertEqual(self.target.Xs, value)
            self.assertEqual(self.proxy.Xs, value)

    def test_numbers_wider_than_a_long_cross_as_they_are(self) -> None:
        for value in (2**31, -(2**31) - 1, 2**63 - 1):
            self.proxy.Xs = value
            self.assertEqual(self.target.Xs, value)
            self.assertEqual(self.proxy.Xs, value)
        self.raises(6, f"Probe.Xs: int {2**63} does not fit into 64 bits", setattr, self.proxy, "Xs", 2**63)

    def test_values_of_every_kind_are_read_and_written(self) -> None:
        for value in ("text", True, 2.5, Decimal("1.5"), b"ab", [1, 2], None, self):
            self.proxy.Any = value
            self.assertEqual(self.target.Any, value)
            self.assertEqual(self.proxy.Any, value)
            self.assertIs(type(self.target.Any), type(value))

    def test_numbers_of_more_digits_than_python_writes_are_refused_too(self) -> None:
        self.raises(6, "Probe.Xs: int does not fit into 64 bits", setattr, self.proxy, "Xs", 10**5000)

    def test_booleans_are_no_numbers(self) -> None:
        self.proxy.Xs = True
        self.assertIs(self.target.Xs, True)

    def test_members_of_enumerations_are_read_as_such(self) -> None:
        kind = type_library().enumeration("enKind")
        self.assertEqual(repr(self.proxy.Kind), "<enKind.eK_Some: 5>")
        self.proxy.Kind = kind(0)
        self.assertEqual(self.target.Kind, 0)
        self.target.Kind = 3
        self.assertEqual(self.proxy.Kind, 3)
        self.assertNotIsInstance(self.proxy.Kind, enum.Enum)

    def test_objects_are_written_by_reference(self) -> None:
        flags = self.noted(lambda: setattr(self.proxy, "Owner", self.target))
        self.assertEqual(flags, [8])
        self.assertIs(self.target.Owner, self.target)
        flags = self.noted(lambda: setattr(self.proxy, "Owner", None))
        self.assertEqual(flags, [8])
        self.assertIsNone(self.target.Owner)

    def test_what_may_be_either_is_written_as_what_it_is(self) -> None:
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Any", self.target)), [8])
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Any", 5)), [4])
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Any", None)), [4])
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Any", "x")), [4])
        self.target.Any = None

    def test_no_object_is_written_by_reference_where_an_object_is_wanted(self) -> None:
        for name in ("Part", "Piece"):
            self.assertEqual(self.noted(lambda: setattr(self.proxy, name, None)), [8])
            self.assertEqual(self.noted(lambda: setattr(self.proxy, name, self)), [8])
            self.assertEqual(self.noted(lambda: setattr(self.proxy, name, 5)), [4])

    def test_a_number_of_another_kind_is_an_object_only_where_one_is_wanted(self) -> None:
        class Whole:
            def __index__(self) -> int:
                return 7

        whole = Whole()
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Part", whole)), [8])
        self.assertIs(self.target.Part, whole)
        self.target.Part = None
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Any", whole)), [4])
        self.assertEqual(self.target.Any, 7)

    def test_a_write_that_fails_is_made_once(self) -> None:
        for value, told in ((5, "int 5"), ("text", "str 'text'")):
            refused = _host_calls.Refused(_abi.DISP_E_OVERFLOW)
            with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=refused) as invoke:
                self.raises(6, f"overflow: Probe.Xs, got {told}", setattr, self.proxy, "Xs", value)
            self.assertEqual(invoke.call_count, 1)

    def test_a_number_for_an_object_is_written_by_reference_when_nothing_else_is_taken(self) -> None:
        self.assertEqual(self.noted(lambda: setattr(self.proxy, "Owner", 5)), [8])

    def noted(self, call: Any) -> "list[int]":
        flags = []
        invoke = _host_objects.ExposedObject.invoke

        def noting(exposed: Any, number: int, how: int, arguments: Any) -> Any:
            flags.append(how)
            return invoke(exposed, number, how, arguments)

        with mock.patch.object(_host_objects.ExposedObject, "invoke", noting):
            call()
        return flags

    def test_names_are_found_in_any_case(self) -> None:
        self.proxy.XS = 9
        self.assertEqual((self.proxy.xs, self.target.Xs), (9, 9))
        self.assertEqual(self.proxy.default.LABEL, "one")

    def test_unknown_names_are_error_438_naming_the_nearest(self) -> None:
        text = "Probe has no member 'Lable'; nearest is 'Label'"
        self.raises(438, text, lambda: self.proxy.Lable)
        self.raises(438, text, setattr, self.proxy, "Lable", 1)
        with self.assertRaises(UnknownMemberError):
            self.proxy.Lable
        self.assertFalse(hasattr(self.proxy, "Lable"))
        with self.assertRaisesRegex(AttributeError, "^Probe has no attribute '_hidden'$"):
            self.proxy._hidden

    def test_what_can_only_be_read_is_not_written(self) -> None:
        self.assertEqual(self.proxy.Fixed, 11)
        self.raises(383, "Probe.Fixed can only be read", setattr, self.proxy, "Fixed", 1)
        self.raises(383, "Probe.Fixed can only be read", setattr, self.proxy, "FIXED", 1)

    def test_what_can_only_be_written_is_not_read(self) -> None:
        self.proxy.Secret = 6
        self.assertEqual(self.target.Secret, 6)
        error = self.raises(394, "Probe.Secret can only be written", lambda: self.proxy.Secret)
        self.assertIsInstance(error, AttributeError)
        self.assertFalse(hasattr(self.proxy, "Secret"))
        self.assertEqual(getattr(self.proxy, "Secret", 8), 8)

    def test_methods_are_not_written(self) -> None:
        self.raises(438, "Probe.Stretch is a method and cannot be written", setattr, self.proxy, "Stretch", 1)

    def test_a_refused_call_tells_the_member(self) -> None:
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=_host_calls.Refused(_abi.DISP_E_TYPEMISMATCH)):
            self.raises(13, "type mismatch: Probe.Xs", lambda: self.proxy.Xs)
            self.raises(13, "type mismatch: Probe.Xs, got int 5", setattr, self.proxy, "Xs", 5)
            self.raises(13, "type mismatch: Probe.Xs, got str 'a'", setattr, self.proxy, "Xs", "a")

    def test_an_error_of_the_member_comes_back_with_its_cause(self) -> None:
        exception = ValueError("bad")
        for call in (lambda: self.proxy.Xs, lambda: setattr(self.proxy, "Xs", 1), lambda: setattr(self.proxy, "Xs", "")):
            with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=exception):
                error = self.raises(5, "ValueError: bad", call)
            self.assertIs(error.__cause__, exception)
        exception.__traceback__ = None


class MethodTest(Case):
    def setUp(self) -> None:
        super().setUp()
        self.target = Probe()
        self.proxy = probe(self.target)

    def tearDown(self) -> None:
        del self.proxy
        super().tearDown()

    def test_arguments_cross_in_their_order(self) -> None:
        self.assertEqual(self.proxy.Stretch(1, 2, 0), 0)
        self.assertEqual(self.target.calls, [(1, 2, 0)])

    def test_results_are_members_of_enumerations(self) -> None:
        self.assertEqual(repr(self.proxy.Stretch(1, 2)), "<enKind.eK_Some: 5>")
        self.assertEqual(repr(self.proxy.Stretch(1, 2, 9)), "9")

    def test_results_of_other_types_are_what_they_are(self) -> None:
        self.assertEqual(self.proxy.Item(1), "first")
        self.assertEqual(self.proxy.Item("key"), "keyed")

    def test_keywords_are_named_arguments(self) -> None:
        self.proxy.Stretch(1, pDirection=0, pDy=7)
        self.proxy.Stretch(PDY=7, pdx=1)
        self.assertEqual(self.target.calls, [(1, 7, 0), (1, 7, 5)])
        self.raises(
            448, "Probe.Stretch has no argument 'pDz'; nearest is 'pDx'", self.proxy.Stretch, 1, pDz=4
        )

    def test_places_are_written_back(self) -> None:
        place = Ref(4)
        self.proxy.Stretch(1, place)
        self.assertEqual(place.value, 5)
        place = Ref(4, "Long")
        self.proxy.Stretch(1, pDy=place)
        self.assertEqual(place.value, 5)

    def test_no_object_crosses_as_one_where_one_is_wanted(self) -> None:
        seen = []
        write = _classes._members._variant._WRITERS[type(None)]

        def noting(memory: Any, offset: int, value: Any, kind: str) -> None:
            if kind:
                seen.append(kind)
            write(memory, offset, value, kind)

        with mock.patch.dict(_classes._members._variant._WRITERS, {type(None): noting}):
            self.proxy.Take(None)
            self.proxy.Take(pMap=None)
            self.proxy.Stretch(1, None)
        self.assertEqual(seen, ["Object", "Object", "Long"])

    def test_refused_arguments_are_told_with_place_and_name(self) -> None:
        refused = _host_calls.Refused(_abi.DISP_E_TYPEMISMATCH, 0)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=refused):
            self.raises(13, "type mismatch: Probe.Stretch: argument 2 (pDy), got int 2", self.proxy.Stretch, 1, 2)
            self.raises(
                13, "type mismatch: Probe.Stretch: argument 3 (pDirection), got int 2", self.proxy.Stretch, 1, pDirection=2
            )
            self.raises(13, "type mismatch: Probe.Take: argument 2, got int 2", self.proxy.Take, 1, 2)
        refused = _host_calls.Refused(_abi.DISP_E_TYPEMISMATCH, 1)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=refused):
            self.raises(13, "type mismatch: Probe.Stretch: argument 1 (pDx), got int 1", self.proxy.Stretch, 1, pDirection=2)
        refused = _host_calls.Refused(_abi.DISP_E_TYPEMISMATCH, 2)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=refused):
            self.raises(13, "type mismatch: Probe.Stretch", self.proxy.Stretch, 1, 2)

    def test_arguments_that_cannot_cross_are_told_with_place_and_name(self) -> None:
        stretch, wide = self.proxy.Stretch, f"int {2**70} does not fit into 64 bits"
        self.raises(6, f"Probe.Stretch: argument 2 (pDy): {wide}", stretch, 1, 2**70)
        self.raises(6, f"Probe.Stretch: argument 3 (pDirection): {wide}", stretch, 1, 2, pDirection=2**70)
        self.raises(6, f"Probe.Stretch: argument 1 (pDx): {wide}", stretch, 2**70, 2, pDirection=1)
        self.raises(
            13, "Probe.Stretch: argument 2 (pDy): int 0 does not fit a reference to String",
            stretch, 1, Ref(0, "String"),
        )  # fmt: skip
        self.assertEqual(self.target.calls, [])

    def test_counts_that_the_interface_refuses_are_told_with_what_it_takes(self) -> None:
        for result, number in ((_abi.DISP_E_PARAMNOTOPTIONAL, 449), (_abi.DISP_E_BADPARAMCOUNT, 450)):
            refused = _host_calls.Refused(result)
            with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=refused):
                takes = "Probe.Stretch takes 2 to 3 arguments (pDx, pDy, [pDirection])"
                error = self.raises(number, f"{takes}, 4 given", self.proxy.Stretch, 1, 2, 3, 4)
                self.assertEqual((error.result, error.__suppress_context__), (result, True))
                self.raises(number, f"{takes}, 0 given; missing: pDx, pDy", self.proxy.Stretch)
                self.raises(number, f"{takes}, 1 given; missing: pDx", self.proxy.Stretch, pDy=1)
                takes = "Probe.Take takes 1 argument (pMap)"
                self.raises(number, f"{takes}, 0 given; missing: pMap", self.proxy.Take)

    def test_wrong_counts_are_told(self) -> None:
        self.raises(449, "Probe.Stretch(pDx, pDy, pDirection=5) cannot take 1 argument", self.proxy.Stretch, 1)
        self.raises(450, "Probe.Stretch(pDx, pDy, pDirection=5) cannot take 4 arguments", self.proxy.Stretch, 1, 2, 3, 4)

    def test_a_call_may_come_back(self) -> None:
        proxy = self.proxy

        class Nested(Probe):
            depth = 0

            def Stretch(self, pDx: int, pDy: Any, pDirection: int = 5) -> int:
                proxy.Xs = pDx
                inner = proxy.Stretch(pDx - 1, 0) if pDx else 0
                return inner + proxy.Xs * 10

        self.proxy = proxy = probe(Nested())
        self.assertEqual(proxy.Stretch(3, 0), 0)
        proxy = None  # type: ignore[assignment]


class CollectionTest(Case):
    def test_is_walked_over_counted_and_indexed(self) -> None:
        proxy = probe(Probe())
        self.assertEqual(list(proxy), ["first", 2])
        self.assertEqual(len(proxy), 2)
        self.assertTrue(proxy)
        self.assertEqual((proxy[1], proxy["key"], proxy(1)), ("first", "keyed", "first"))

    def test_is_walked_over_backwards(self) -> None:
        self.assertEqual(list(reversed(probe(Probe()))), [2, "first"])

    def test_holds_what_it_gives(self) -> None:
        proxy = probe(Probe())
        self.assertTrue(2 in proxy)
        self.assertFalse("second" in proxy)

    def test_is_false_without_anything(self) -> None:
        class Empty(Probe):
            Count = 0  # type: ignore[assignment]

        self.assertFalse(probe(Empty()))

    def test_a_refused_index_is_told(self) -> None:
        proxy = probe(Probe())
        refused = _host_calls.Refused(_abi.DISP_E_BADINDEX, 0)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=refused):
            self.raises(9, "index out of range: Probe: argument 1", lambda: proxy[7])

    def test_other_objects_are_none_of_it(self) -> None:
        proxy = probe(Probe(), "ItfPlain")
        for use in (iter, len, lambda one: one[1], lambda one: one(1)):
            with self.assertRaises(TypeError):
                use(proxy)
        self.assertTrue(proxy)

    def test_an_object_that_gives_no_enumerator_is_not_walked_over(self) -> None:
        proxy = probe(Probe())
        with mock.patch.object(_host_objects.ExposedObject, "invoke", return_value=5):
            with self.assertRaisesRegex(TypeError, "^Probe gives no enumerator$"):
                iter(proxy)


class FaceTest(Case):
    def test_another_interface_has_members_of_its_own(self) -> None:
        proxy = probe(Probe(), "ItfPlain")
        self.assertEqual(proxy._owner, "Probe.ItfPlain")
        self.assertNotIn("Xs", dir(proxy))
        self.assertIn("Alone", dir(proxy))
        self.raises(
            438, "Probe.ItfPlain has no member 'Alon'; nearest is 'Alone'", lambda: proxy.Alon
        )

    def test_faces_lead_to_each_other(self) -> None:
        proxy = probe(Probe(), "ItfPlain")
        self.assertEqual(proxy.default._owner, "Probe")
        self.assertEqual(proxy.default, proxy)
        self.assertEqual(proxy._Probe, proxy)

    def test_faces_are_not_written(self) -> None:
        proxy = probe(Probe())
        for name in ("ItfPlain", "_Probe", "default"):
            self.raises(383, f"Probe.{name} can only be read", setattr, proxy, name, 1)

    def test_what_only_another_interface_has_can_be_used_on_the_default_face(self) -> None:
        target = Probe()
        proxy = probe(target)
        self.assertEqual(proxy.Alone, 3)
        proxy.alone = 9
        self.assertEqual((target.Xs, proxy.ALONE), (9, 9))
        self.assertEqual(proxy.Pull(1, pDy=2), 5)
        self.assertEqual(target.calls, [(1, 2, 5)])
        self.raises(
            448, "Probe.Pull has no argument 'pDz'; nearest is 'pDx'", lambda: proxy.Pull(1, pDz=2)
        )
        self.raises(449, "Probe.Stretch(pDx, pDy, pDirection=5) cannot take 1 argument", lambda: proxy.Pull(1))
        self.raises(438, "Probe.Pull is a method and cannot be written", setattr, proxy, "Pull", 1)

    def test_what_both_have_is_that_of_the_default_face(self) -> None:
        proxy = probe(Probe())
        self.assertEqual(proxy.Label, "one")
        self.assertEqual(proxy.ItfPlain.Label, 5)

    def test_other_faces_have_their_own_members_only(self) -> None:
        proxy = probe(Probe(), "ItfPlain")
        self.assertFalse(hasattr(proxy, "Fixed"))

    def test_another_face_is_asked_for_once(self) -> None:
        proxy = probe(Probe())
        self.assertEqual(list(proxy._faces), [])
        proxy.Alone
        face = proxy._faces["ItfPlain"]
        proxy.Alone = 3
        proxy.Pull(1, 1)
        self.assertEqual(list(proxy._faces), ["ItfPlain"])
        self.assertIs(proxy._faces["ItfPlain"], face)

    def test_members_of_another_interface_tell_themselves(self) -> None:
        made = _classes.python_class(type_library(), "Probe")
        self.assertEqual(made.Alone.__doc__, "Alone As Long (read/write)\n\nApart.")
        self.assertEqual(made.Pull.__doc__, "Pull(pDx As Long, pDy As Long) As Long")
        self.assertEqual(str(inspect.signature(made.Pull)), "(self, /, pDx: int, pDy: int) -> int")
        self.assertEqual(made.Pull.__qualname__, "Probe.Pull")

    def test_classes_are_made_once(self) -> None:
        types = type_library()
        self.assertIs(_classes.python_class(types, "Probe"), _classes.python_class(types, "Probe", "_Probe"))
        self.assertIsNot(_classes.python_class(types, "Probe"), _classes.python_class(types, "Probe", "ItfPlain"))
        self.assertIsNot(_classes.python_class(types, "Plain"), _classes.python_class(types, "Probe", "ItfPlain"))


class HelpTest(Case):
    def test_dir_tells_members_and_faces(self) -> None:
        names = set(dir(probe(Probe())))
        self.assertLessEqual({"Xs", "Label", "Stretch", "ItfPlain", "_Probe", "default"}, names)

    def test_properties_tell_type_and_access(self) -> None:
        made = _classes.python_class(type_library(), "Probe")
        self.assertEqual(made.Xs.__doc__, "Xs As Long (read/write)\n\nLeft edge.")
        self.assertEqual(made.Fixed.__doc__, "Fixed As Long (read only)")
        self.assertEqual(made.Secret.__doc__, "Secret As Long (write only)")
        self.assertEqual(made.Owner.__doc__, "Owner As Object (read/write)")
        self.assertEqual(made.Kind.__doc__, "Kind As enKind (read/write)")
        self.assertEqual(made.ItfPlain.__doc__, "The same object by its interface ItfPlain.")

    def test_methods_tell_their_parameters(self) -> None:
        made = _classes.python_class(type_library(), "Probe")
        self.assertEqual(
            made.Stretch.__doc__,
            "Stretch(pDx As Long, ByRef pDy As Long, [pDirection As Long = 5]) As enKind\n\nPulls.",
        )
        self.assertEqual(made.Take.__doc__, "Take(pMap As Object)")
        self.assertEqual(
            str(inspect.signature(made.Stretch)),
            "(self, /, pDx: int, pDy: quenzel7.arrays.Ref, pDirection: int = 5) -> quenzel7.enKind",
        )
        self.assertEqual(str(inspect.signature(made.Take)), "(self, /, pMap: Any) -> None")
        self.assertEqual((made.Stretch.__name__, made.Stretch.__qualname__), ("Stretch", "Probe.Stretch"))

    def test_parameters_are_told_with_types_of_python(self) -> None:
        types = type_library()
        told = {
            "Boolean": bool, "Byte": int, "Integer": int, "Long": int, "Single": float, "Double": float,
            "Currency": Decimal, "String": str, "Object": Any, "Variant": Any, "Byte()": bytes, "Integer()": list,
            "Long()": list, "String()": list, "clsVar": "clsVar",
        }  # fmt: skip
        for name, wanted in told.items():
            member = Member("M", 1, True, type=name, parameters=(Parameter("p", name),))
            signature = _classes._signature(types, member)
            self.assertEqual(signature.parameters["p"].annotation, wanted)
            self.assertEqual(signature.return_annotation, wanted)
        member = Member("M", 1, True, parameters=(Parameter("p", "Long", enumeration="enKind"),))
        self.assertIs(_classes._signature(types, member).parameters["p"].annotation, types.enumeration("enKind"))
        self.assertEqual(_classes._documentation(member), "M(p As enKind)")

    def test_classes_are_not_derived_from(self) -> None:
        made = _classes.python_class(type_library(), "Probe")
        with self.assertRaisesRegex(TypeError, "^Probe lives in the library and cannot be derived from"):

            class Own(made):  # type: ignore[misc, valid-type]
                pass

    def test_classes_tell_their_interfaces(self) -> None:
        types = type_library()
        made = _classes.python_class(types, "Probe")
        self.assertEqual(made.__doc__, "Probe, by its interface _Probe. Interfaces: _Probe, ItfPlain, ItfNone.")
        self.assertEqual((made.__module__, made.__name__, made.__qualname__), ("quenzel7", "Probe", "Probe"))
        face = _classes.python_class(types, "Probe", "ItfPlain")
        self.assertEqual((face.__name__, face.__qualname__), ("ItfPlain", "Probe.ItfPlain"))

    def test_help_tells_everything(self) -> None:
        text = pydoc.plain(pydoc.render_doc(_classes.python_class(type_library(), "Probe")))
        for part in ("Left edge.", "Stretch(self, /, pDx: int", "Xs As Long (read/write)"):
            self.assertIn(part, text)

    def test_repr_shows_what_tells_objects_apart(self) -> None:
        self.assertEqual(repr(probe(Probe())), "<Probe Count=2 Xs=3>")
        self.assertEqual(repr(probe(Probe(), "ItfPlain")), "<Probe.ItfPlain>")

    def test_repr_leaves_out_what_cannot_be_read(self) -> None:
        class Failing(Probe):
            @property
            def Count(self) -> int:
                raise ValueError

        self.assertEqual(repr(probe(Failing())), "<Probe Xs=3>")


class FrameTest(Case):
    def test_frames_are_used_again(self) -> None:
        proxy = probe(Probe())
        proxy.Xs
        held = len(_frames._kept)
        for call in (
            lambda: proxy.Xs, lambda: setattr(proxy, "Xs", 1), lambda: setattr(proxy, "Xs", "a"), lambda: proxy.Label,
            lambda: proxy.Stretch(1, 2), lambda: setattr(proxy, "Xs", 2**40), lambda: proxy.Any,
        ):  # fmt: skip
            call()
            self.assertEqual(len(_frames._kept), held)
        for failing in (lambda: proxy.Stretch(1), lambda: setattr(proxy, "Xs", 2**70)):
            with self.assertRaises(AutomationError):
                failing()
            self.assertEqual(len(_frames._kept), held)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=_host_calls.Refused(-2147352573)):
            for failing in (lambda: proxy.Xs, lambda: setattr(proxy, "Xs", 1), lambda: setattr(proxy, "Label", "")):
                with self.assertRaises(AutomationError):
                    failing()
                self.assertEqual(len(_frames._kept), held)

    def test_frames_of_more_arguments_than_usual_are_not_kept(self) -> None:
        held = len(_frames._kept)
        frame = _frames.take_frame(_frames.ROOM + 1)
        self.assertEqual(frame.room, _frames.ROOM + 1)
        _frames.give_back(frame)
        self.assertEqual(len(_frames._kept), held)
        frame = _frames.take_frame(_frames.ROOM)
        self.assertEqual(frame.room, _frames.ROOM)
        _frames.give_back(frame)
        self.assertEqual(len(_frames._kept), max(held, 1))

    def test_without_a_kept_frame_there_is_a_new_one(self) -> None:
        proxy = probe(Probe())
        for call in (lambda: proxy.Xs, lambda: setattr(proxy, "Xs", 1), lambda: setattr(proxy, "Label", "")):
            _frames._kept.clear()
            call()
            self.assertGreaterEqual(len(_frames._kept), 1)

    def test_a_bad_place_is_forgotten_with_its_failure(self) -> None:
        proxy = probe(Probe())
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=_host_calls.Refused(_abi.DISP_E_OVERFLOW, 0)):
            self.raises(6, "overflow: Probe.Stretch: argument 1 (pDx), got int 1", proxy.Stretch, 1)
        self.raises(449, "Probe.Stretch(pDx, pDy, pDirection=5) cannot take 1 argument", proxy.Stretch, 1)

    def test_a_deferred_error_is_filled_in(self) -> None:
        import ctypes

        frame = _frames.Frame()
        prototype = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p)

        def fill(info: int) -> int:
            packed = _abi.EXCEPINFO.pack(1234, 0, late_text, 0, 0, 0)
            ctypes.memmove(info, packed, len(packed))
            return 0

        late_text = _frames._variant.alloc_text("filled in late")
        callback = prototype(fill)
        address = ctypes.cast(callback, ctypes.c_void_p).value
        _abi.EXCEPINFO.pack_into(frame.memory, _frames._INFO, 0, 0, 0, 0, address or 0, 0)
        error = _frames.fail(frame, _abi.DISP_E_EXCEPTION, "unused")
        self.assertEqual((error.number, error.description, error.source), (1234, "filled in late", ""))
        self.assertEqual(frame.memory.raw[_frames._INFO : _frames._INFO + 64], bytes(64))

    def test_an_error_of_another_call_is_no_cause(self) -> None:
        _frames.thread.raised = RaisedByHost(ValueError("old"), "ValueError: old")
        proxy = probe(Probe())
        with mock.patch.object(_host_objects.ExposedObject, "invoke", side_effect=_host_calls.Refused(_abi.DISP_E_BADINDEX)):
            error = self.raises(9, "index out of range: Probe.Stretch", proxy.Stretch, 1)
        self.assertIsNone(error.__cause__)
        self.assertIsNone(_frames.thread.raised)



if __name__ == "__main__":
    unittest.main()
