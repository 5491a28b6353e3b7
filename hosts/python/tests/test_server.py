"""The library itself, from Python: every class and member, and how they are called."""

from __future__ import annotations

import ctypes
import gc
import inspect
import threading
import unittest
from fractions import Fraction
from typing import Any, Iterator
from unittest import mock

from support import Case
import quenzel7 as q
from quenzel7 import AutomationError, CollisionMap, Ref, _abi, _frames, _invoke, _pointers, _services, _types
from quenzel7._library import library
from quenzel7.errors import RaisedByHost

CREATABLE = [
    "clsRectangle", "clsEllipse", "clsRoundRect", "clsLine", "clsGroup", "clsText", "clsBitmap", "clsButton",
    "clsFrame", "clsVar", "clsGrpElmntsSrv", "clsVarImageElement", "clsVarTextElement", "clsPageImage", "ItfImage",
    "clsVarNumeric", "clsVarBinaryText", "clsVarListText", "clsVarRangeText", "clsVarDisplayString",
    "clsVarBargraph",
]  # fmt: skip


def created() -> "Iterator[tuple[str, Any]]":
    """An object of each class that can be created, with the name of the class."""
    for name in _types.types().class_names():
        if _types.types().class_info(name).creatable:
            yield name, q.create(name)


class ServerCase(Case):
    """A test that leaves no object of the library behind."""

    def setUp(self) -> None:
        super().setUp()
        _types.types()
        self.quiet()

    def quiet(self) -> None:
        services = _services.host_services()
        services.Reset()
        for view in (services.MessageBoxes, services.Messages, services.ErrorLog, services.Frame):
            view.Printed = False

    def tearDown(self) -> None:
        _services.host_services().Reset()
        super().tearDown()
        if library().DllCanUnloadNow() != _abi.S_OK:
            gc.collect()
        self.assertEqual(library().DllCanUnloadNow(), _abi.S_OK, "the library still holds objects")


class EveryClassTest(ServerCase):
    def test_the_published_classes_can_be_created(self) -> None:
        names = _types.types().class_names()
        for name in CREATABLE:
            with self.subTest(name):
                self.assertIn(name, names)
                self.assertTrue(_types.types().class_info(name).creatable)
                self.assertIs(type(q.create(name)), getattr(q, name))

    def test_no_other_class_can_be_created(self) -> None:
        for name in _types.types().class_names():
            if not _types.types().class_info(name).creatable:
                with self.subTest(name), self.assertRaises(AutomationError) as caught:
                    q.create(name)
                self.assertEqual(caught.exception.number, 429)

    def test_every_member_has_its_number_by_name_in_any_case(self) -> None:
        for class_name, thing in created():
            for interface_name in _types.types().class_info(class_name).interfaces:
                face = getattr(thing, interface_name)
                for member in _types.types().interface(interface_name).members:
                    with self.subTest(f"{class_name}.{interface_name}.{member.name}"):
                        names = [member.name, *(parameter.name for parameter in member.parameters)]
                        numbers = [member.number, *range(len(member.parameters))]
                        self.assertEqual(_invoke.numbers_of_names(face, names), (0, numbers))
                        folded = [name.upper() for name in names]
                        self.assertEqual(_invoke.numbers_of_names(face, folded), (0, numbers))

    def test_members_are_numbered_in_slot_order(self) -> None:
        for name in _types.types().interface_names():
            for place, member in enumerate(_types.types().interface(name).members):
                number = {"value": 0, "enumerator": -4}.get(member.role, place + 1)
                self.assertEqual(member.number, number, f"{name}.{member.name}")

    def test_every_readable_property_can_be_read(self) -> None:
        for class_name, thing in created():
            for interface_name in _types.types().class_info(class_name).interfaces:
                face = getattr(thing, interface_name)
                for member in _types.types().interface(interface_name).members:
                    if member.get and not member.is_method:
                        with self.subTest(f"{class_name}.{interface_name}.{member.name}"):
                            self.read(face, member.name)

    def read(self, face: Any, name: str) -> None:
        try:
            getattr(face, name)
        except AutomationError as error:
            # What the member itself says, as without a project: the call as such is well.
            self.assertEqual(error.result, _abi.DISP_E_EXCEPTION)
            self.assertNotEqual(error.number, 438)

    def test_a_read_default_can_be_written_back(self) -> None:
        for class_name, thing in created():
            for member in _types.types().interface(_types.types().class_info(class_name).interfaces[0]).members:
                if member.get and member.put and member.type in ("Long", "Integer", "Byte", "Boolean", "String"):
                    with self.subTest(f"{class_name}.{member.name}"):
                        self.write_back(thing, member.name)

    def write_back(self, thing: Any, name: str) -> None:
        try:
            before = getattr(thing, name)
            setattr(thing, name, before)
        except AutomationError as error:
            self.assertEqual(error.result, _abi.DISP_E_EXCEPTION)
        else:
            self.assertEqual(getattr(thing, name), before)

    def test_every_object_shows_itself_and_its_help(self) -> None:
        for class_name, thing in created():
            self.assertTrue(repr(thing).startswith(f"<{class_name}"), repr(thing))
            for member in _types.types().interface(_types.types().class_info(class_name).interfaces[0]).members:
                self.assertTrue((getattr(type(thing), member.name).__doc__ or "").startswith(member.name))

    def test_every_enumeration_is_an_attribute(self) -> None:
        self.assertGreater(len(_types.types().enumeration_names()), 20)
        for name in _types.types().enumeration_names():
            self.assertIs(getattr(q, name), getattr(q.enums, name))
            self.assertIn(name, dir(q))
            self.assertIn(name, dir(q.enums))
        self.assertEqual(q.enVarType.eVT_Numeric, 8)
        self.assertEqual(q.enums.enCollisionStatus.eCS_Legall, 0)


class RectangleTest(ServerCase):
    def setUp(self) -> None:
        super().setUp()
        self.rectangle = q.create("clsRectangle", Xs=10, Ys=20, Dx=100, Dy=50)

    def tearDown(self) -> None:
        del self.rectangle
        super().tearDown()

    def test_properties_are_read_and_written(self) -> None:
        self.assertEqual((self.rectangle.Xs, self.rectangle.Ys), (10, 20))
        self.rectangle.XS = -5
        self.assertEqual(self.rectangle.Xs, -5)

    def test_shows_what_tells_it_apart(self) -> None:
        self.assertEqual(repr(self.rectangle), "<clsRectangle ID=-1 Xs=10 Ys=20 Dx=100 Dy=50>")

    def test_places_get_what_a_member_gives_back(self) -> None:
        places = [Ref() for _ in range(4)]
        self.rectangle.GetBoundingRect(*places)
        self.assertEqual([place.value for place in places], [10, 20, 100, 50])
        exact = [Ref(0, "Long") for _ in range(4)]
        self.rectangle.GetBoundingRect(*exact, 1)
        self.assertEqual([place.value for place in exact], [10, 20, 100, 50])

    def test_arguments_may_have_names_and_be_left_out(self) -> None:
        self.rectangle.Move(pDy=7, pDx=3)
        places = [Ref() for _ in range(4)]
        self.rectangle.GetBoundingRect(*places, pLocation=3)
        self.assertEqual([place.value for place in places], [13, 27, 100, 50])

    def test_results_are_members_of_enumerations(self) -> None:
        self.assertIs(self.rectangle.GetTransformState(CollisionMap(800, 480)), q.enCollisionStatus.eCS_Legall)
        self.assertIs(self.rectangle.GetTransformState(Ref(CollisionMap(50, 480))), q.enCollisionStatus.eCS_OutOfRAnge)
        self.assertIs(self.rectangle.GetPupDirection(10, 20, 5), q.enPickUpDirection.ePD_UpLeft)

    def test_a_page_ends_where_its_map_ends(self) -> None:
        for width, status in ((110, q.enCollisionStatus.eCS_Legall), (109, q.enCollisionStatus.eCS_OutOfRAnge)):
            self.assertIs(self.rectangle.GetTransformState(CollisionMap(width, 70)), status)

    def test_a_touch_element_may_not_cover_what_is_marked(self) -> None:
        button = q.create("clsButton", Xs=10, Ys=20, Dx=30, Dy=10)
        cells = CollisionMap(100, 100)
        cells.fill(39, 29, 1, 1)
        self.assertIs(button.GetTransformState(cells), q.enCollisionStatus.eCS_Overlap)
        cells.fill(39, 29, 1, 1, 0)
        cells.fill(40, 20, 5, 5)
        self.assertIs(button.GetTransformState(cells), q.enCollisionStatus.eCS_Legall)

    def test_both_faces_are_one_object(self) -> None:
        face = self.rectangle.ItfHmiElement
        self.assertEqual(face, self.rectangle)
        self.assertEqual(hash(face), hash(self.rectangle))
        self.assertEqual(face.Xs, 10)
        self.assertIs(type(face.default), type(self.rectangle))
        self.assertTrue(repr(face).startswith("<clsRectangle.ItfHmiElement ID=-1 "))

    def test_a_replica_is_another_object_of_the_same_class(self) -> None:
        copy = self.rectangle.Replica()
        self.assertIs(type(copy), q.clsRectangle)
        self.assertNotEqual(copy, self.rectangle)
        self.assertEqual((copy.Xs, copy.Dy), (10, 50))

    def test_numbers_that_do_not_fit_are_an_overflow(self) -> None:
        error = self.raises(6, "overflow: clsRectangle.Xs, got int 2147483648", setattr, self.rectangle, "Xs", 2**31)
        self.assertEqual(error.result, _abi.DISP_E_OVERFLOW)
        self.assertEqual(self.rectangle.Xs, 10)

    def test_values_that_do_not_fit_are_a_mismatch(self) -> None:
        self.raises(13, "type mismatch: clsRectangle.Xs, got str 'far'", setattr, self.rectangle, "Xs", "far")
        error = self.raises(
            13, "type mismatch: clsRectangle.Stretch: argument 2 (pDy), got str 'a'", self.rectangle.Stretch, 1, "a", 3
        )
        self.assertEqual(error.result, _abi.DISP_E_TYPEMISMATCH)
        self.raises(
            13, "type mismatch: clsRectangle.Stretch: argument 3 (pDirection), got str 'a'",
            self.rectangle.Stretch, 1, pDirection="a", pDy=3,
        )  # fmt: skip

    def test_what_can_be_used_as_a_number_is_one(self) -> None:
        class Pixels:
            def __index__(self) -> int:
                return 33

        self.rectangle.Xs = Pixels()
        self.assertEqual(self.rectangle.Xs, 33)
        self.rectangle.Move(Pixels(), 0)
        by_integer = q.create("clsRectangle", Xs=33, Ys=20, Dx=100, Dy=50)
        by_integer.Move(33, 0)
        self.assertEqual(self.rectangle.Xs, by_integer.Xs)
        text = "type mismatch: clsRectangle.Xs, got Fraction 3/2"
        self.raises(13, text, setattr, self.rectangle, "Xs", Fraction(3, 2))

    def test_values_that_do_not_fit_a_place_are_told_with_the_member(self) -> None:
        self.raises(6, f"clsRectangle.Xs: int {2**70} does not fit into 64 bits", setattr, self.rectangle, "Xs", 2**70)
        self.raises(
            13, "clsRectangle.GetBoundingRect: argument 1 (pXs): int 0 does not fit a reference to String",
            self.rectangle.GetBoundingRect, Ref(0, "String"), Ref(), Ref(), Ref(),
        )  # fmt: skip

    def test_places_of_another_kind_are_a_mismatch(self) -> None:
        places = [Ref(0, "Long"), Ref(0, "Integer"), Ref(), Ref()]
        self.raises(
            13, "type mismatch: clsRectangle.GetBoundingRect: argument 2 (pYs), got Ref(0, 'Integer')",
            self.rectangle.GetBoundingRect, *places,
        )  # fmt: skip

    def test_wrong_counts_and_names_are_told(self) -> None:
        self.raises(450, "clsRectangle.Move takes 2 arguments (pDx, pDy), 3 given", self.rectangle.Move, 1, 2, 3)
        self.raises(449, "clsRectangle.Move takes 2 arguments (pDx, pDy), 1 given; missing: pDy", self.rectangle.Move, 1)
        names = _types.types().interface("_clsRectangle").members
        bare = next(one.name for one in names if one.is_method and not one.parameters)
        text = f"clsRectangle.{bare} takes no arguments, 1 given"
        self.raises(450, text, getattr(self.rectangle, bare), 5)
        self.raises(
            448, "clsRectangle.Move has no argument 'pDz'; nearest is 'pDx'", self.rectangle.Move, 1, pDz=1
        )
        self.raises(
            438, "clsRectangle has no member 'PenWidht'; nearest is 'PenWidth'",
            setattr, self.rectangle, "PenWidht", 1,
        )  # fmt: skip

    def test_objects_belong_to_their_thread(self) -> None:
        errors = []

        def use() -> None:
            for call in (lambda: self.rectangle.Xs, lambda: setattr(self.rectangle, "Xs", 1)):
                try:
                    call()
                except AutomationError as error:
                    errors.append(error.number)

        thread = threading.Thread(target=use)
        thread.start()
        thread.join()
        self.assertEqual(errors, [_abi.RPC_E_WRONG_THREAD] * 2)

    def test_the_bare_boundary_refuses_null_pointers(self) -> None:
        pointer = self.rectangle._pointer
        this, functions = ctypes.c_void_p(pointer), _pointers.functions_of(pointer)
        self.assertEqual(functions.query_interface(this, _abi.IID_IUNKNOWN, None), _abi.E_POINTER)
        self.assertEqual(functions.get_ids_of_names(this, _abi.IID_NULL, None, 1, 0, None), _abi.E_POINTER)
        self.assertEqual(functions.invoke(this, 1, _abi.IID_NULL, 0, 2, None, None, None, None), _abi.E_POINTER)


class WriteOnlyTest(ServerCase):
    def test_what_can_only_be_written_is_passed_over(self) -> None:
        rectangle = q.create("clsRectangle", Xs=4)
        self.assertFalse(hasattr(rectangle, "ColOpPropBag"))
        self.assertFalse(hasattr(q.create("clsVar"), "DisplayID"))
        members = dict(inspect.getmembers(rectangle))
        self.assertEqual(members["Xs"], 4)
        self.assertNotIn("ColOpPropBag", members)


class CreateTest(ServerCase):
    def test_names_are_taken_in_any_case_and_with_their_prefix(self) -> None:
        for name in ("clsrectangle", "CLSRECTANGLE", "Quenzel7.clsRectangle", "quenzel7.CLSrectangle"):
            self.assertIs(type(q.create(name)), q.clsRectangle)

    def test_a_class_can_be_called(self) -> None:
        rectangle = q.clsRectangle(Xs=3, dx=4)
        self.assertIs(type(rectangle), q.clsRectangle)
        self.assertEqual((rectangle.Xs, rectangle.Dx), (3, 4))
        for other in (q.Field, type(rectangle.ItfHmiElement)):
            with self.assertRaises(AutomationError) as caught:
                other()
            self.assertEqual(caught.exception.number, 429)

    def test_unknown_names_are_told_with_the_nearest(self) -> None:
        text = "there is no class to create named 'clsRectangel'; nearest is 'clsRectangle'"
        error = self.raises(429, text, q.create, "clsRectangel")
        self.assertEqual(error.result, _abi.CLASS_E_CLASSNOTAVAILABLE)

    def test_what_a_host_raises_comes_back_with_number_text_and_cause(self) -> None:
        class Refusing:
            error: BaseException = ValueError("no such drive")

            def OpenConnection(self) -> None:
                raise self.error

        host = Refusing()
        self.addCleanup(q.platform.reset)
        q.platform.supply(project_database=host)
        error = self.raises(5, "ValueError: no such drive", q.create, "clsRectangle")
        self.assertIs(error.__cause__, host.error)
        self.assertEqual(error.result, 0x800A0005 - 2**32)
        host.error = AutomationError(4711, "locked by another")
        error = self.raises(4711, "locked by another", q.create, "clsRectangle")
        self.assertIs(error.__cause__, host.error)
        for interruption in (KeyboardInterrupt(), SystemExit(3)):
            host.error = interruption
            with self.assertRaises(type(interruption)) as caught:
                q.create("clsRectangle")
            self.assertIs(caught.exception, interruption)
            caught.exception.__traceback__ = None
        del host.error
        Refusing.error.__traceback__ = None

    def test_a_method_of_a_host_with_too_few_parameters_is_named(self) -> None:
        class Boxes:
            def Show(self) -> int:
                return 1

        self.addCleanup(q.platform.reset)
        q.platform.supply(message_boxes=Boxes())
        text = "Boxes.Show() cannot take 3 arguments"
        self.raises(450, text, setattr, q.create("clsText"), "Txt", "\u0416")

    def test_what_the_library_itself_refuses_has_the_class_for_its_text(self) -> None:
        _frames.thread.raised = RaisedByHost(ValueError("old"), "ValueError: old")
        with mock.patch.object(_services, "function_at", lambda *_: lambda *_: _abi.E_UNEXPECTED):
            error = self.raises(_abi.E_UNEXPECTED, "unexpected failure: clsRectangle", q.create, "clsRectangle")
        self.assertEqual((error.result, error.__cause__), (_abi.E_UNEXPECTED, None))

    def test_what_exists_but_cannot_be_created_is_told_so(self) -> None:
        for name in ("clsEnums", "CLSENUMS", "Quenzel7.clsEnums"):
            self.raises(429, "clsEnums exists but hosts cannot create it", q.create, name)
        self.raises(429, "there is no class to create named 'clsRect'; nearest is 'clsRectangle'", q.create, "clsRect")
        self.raises(429, "there is no class to create named 'banana'", q.create, "banana")

    def test_only_texts_name_a_class(self) -> None:
        for value, told in ((None, "None"), (5, "int 5")):
            with self.assertRaisesRegex(TypeError, f"^the name of a class is wanted, .*, got {told}$"):
                q.create(value)

    def test_names_of_the_package_are_found_in_any_case(self) -> None:
        self.assertIs(q.clsrectangle, q.clsRectangle)
        self.assertIs(q.ENVARTYPE, q.enVarType)
        self.assertIs(q.enums.envartype, q.enVarType)

    def test_misspelt_names_of_the_package_name_the_nearest(self) -> None:
        for name, known in (("clsRectangel", "clsRectangle"), ("enVarTyp", "enVarType"), ("creat", "create")):
            text = f"^module 'quenzel7' has no attribute '{name}'; nearest is '{known}'$"
            with self.assertRaisesRegex(AttributeError, text):
                getattr(q, name)
        with self.assertRaisesRegex(AttributeError, "^there is no enumeration 'enVarTyp'; nearest is 'enVarType'$"):
            q.enums.enVarTyp

    def test_what_tells_objects_apart_is_shown(self) -> None:
        self.assertEqual(repr(q.create("clsVar", VarName="Pressure")), "<clsVar ID=-1 VarName='Pressure' Xs=0 Ys=0 Dx=0 Dy=0>")
        self.assertEqual(repr(q.create("clsText", Txt="Hot")), "<clsText ID=-1 Txt='Hot' Xs=0 Ys=0 Dx=0 Dy=0>")
        self.assertEqual(repr(q.create("clsVarNumeric")), "<clsVarNumeric Format='99999'>")
        self.assertEqual(repr(q.create("clsVarListText")), "<clsVarListText ListCount=1>")
        self.assertLess(len(repr(q.create("clsVar", VarName="x" * 200))), 100)

    def test_unknown_properties_are_refused(self) -> None:
        with self.assertRaises(AutomationError) as caught:
            q.create("clsRectangle", Zs=1)
        self.assertEqual(caught.exception.number, 438)
        caught.exception.__traceback__ = None

    def test_the_package_has_no_other_attributes(self) -> None:
        for name in ("enNothing", "clsNothing", "_private"):
            with self.assertRaisesRegex(AttributeError, f"module 'quenzel7' has no attribute '{name}'"):
                getattr(q, name)
        with self.assertRaisesRegex(AttributeError, "there is no enumeration 'enNothing'"):
            q.enums.enNothing
        with self.assertRaises(AttributeError):
            q.enums._private
        self.assertIn("clsRectangle", dir(q))
        self.assertIn("create", dir(q))

    def test_without_the_library_the_package_still_lists_its_own(self) -> None:
        with mock.patch.object(q, "_type_information", side_effect=q.LibraryNotFoundError):
            self.assertEqual(dir(q), sorted(q.__all__))


class CollectionTest(ServerCase):
    def test_values_may_have_names_for_keys(self) -> None:
        things = q.collection(1, first="a", second=None)
        self.assertEqual(list(things), [1, "a", None])
        self.assertEqual((things["first"], things["second"]), ("a", None))

    def test_values_are_added_walked_over_counted_and_indexed(self) -> None:
        things = q.collection(1, "two", None)
        things.Add(2.5, "key")
        self.assertEqual(list(things), [1, "two", None, 2.5])
        self.assertEqual(len(things), 4)
        self.assertEqual((things[1], things["KEY"], things(2), things.Item(4)), (1, 2.5, "two", 2.5))
        things.Remove(1)
        self.assertEqual(things[1], "two")

    def test_an_empty_one_is_false(self) -> None:
        self.assertFalse(q.collection())
        self.assertTrue(q.collection(0))

    def test_errors_have_their_numbers(self) -> None:
        things = q.collection(1)
        with self.assertRaises(AutomationError) as caught:
            things[2]
        self.assertEqual(caught.exception.number, 9)
        with self.assertRaises(AutomationError) as caught:
            things["key"]
        self.assertEqual(caught.exception.number, 5)
        things.Add(1, "key")
        with self.assertRaises(AutomationError) as caught:
            things.Add(1, "KEY")
        self.assertEqual(caught.exception.number, 457)

    def test_objects_of_both_sides_come_back_as_themselves(self) -> None:
        class Own:
            pass

        own, rectangle = Own(), q.create("clsRectangle")
        things = q.collection(own, rectangle)
        self.assertIs(things[1], own)
        self.assertEqual(things[2], rectangle)
        self.assertIs(type(things[2]), q.clsRectangle)
        self.assertIs(type(q.collection(things)[1]), type(things))

    def test_values_come_back_as_they_went(self) -> None:
        from decimal import Decimal

        values = [
            0, -1, 2**31 - 1, True, False, "", "a\U0001f600", 1.5, Decimal("12.3400"), None, q.Null, b"", b"a\0b", [1, 2],
            ["a", ""], [1, "a", None], [[1, 2], [3, 4], [5, 6]], [0.5, 1.5], [True, False], [], CollisionMap(3, 2),
        ]  # fmt: skip
        things = q.collection(*values)
        for value, back in zip(values, things):
            self.assertEqual(back, value)
            self.assertIs(type(back), type(value))

    def test_walking_may_be_left(self) -> None:
        walk = iter(q.collection(1, 2))
        self.assertEqual(next(walk), 1)


class OwnServicesTest(ServerCase):
    """Objects of Python in the place of services."""

    def test_an_object_of_python_is_given_back(self) -> None:
        class Boxes:
            def Show(self, text: str, buttons: int, caption: str) -> int:
                return 1

        boxes, services = Boxes(), _services.host_services()
        services.MessageBoxes = boxes
        self.assertIs(services.MessageBoxes, boxes)
        services.MessageBoxes = None
        self.assertIsNot(services.MessageBoxes, boxes)

    def test_an_exception_goes_through_the_library(self) -> None:
        failure = ValueError("no database today")

        class Database:
            path = "somewhere"

            def open_connection(self) -> Any:
                raise failure

        services = _services.host_services()
        rectangle = q.create("clsRectangle", Dx=5, Dy=5)
        services.ProjectDatabase = Database()
        error = self.raises(5, "ValueError: no database today", rectangle.SaveToDB)
        self.assertIs(error.__cause__, failure)
        failure.__traceback__ = None
        services.ProjectDatabase = None

    def test_an_own_error_keeps_its_number(self) -> None:
        class Database:
            path = "somewhere"

            def OpenConnection(self) -> Any:
                raise AutomationError(3265, "no such column", "Python")

        services = _services.host_services()
        rectangle = q.create("clsRectangle", Dx=5, Dy=5)
        services.ProjectDatabase = Database()
        error = self.raises(3265, "no such column", rectangle.SaveToDB)
        self.assertEqual(error.source, "Python")
        services.ProjectDatabase = None

    def test_a_service_may_call_back(self) -> None:
        rectangle = q.create("clsRectangle", Xs=1, Dx=5, Dy=5)

        class Database:
            path = "somewhere"

            def OpenConnection(self) -> Any:
                rectangle.Xs = rectangle.Xs + 41
                rectangle.Move(1, 1)
                raise AutomationError(1000 + rectangle.Xs, "counted")

        services = _services.host_services()
        services.ProjectDatabase = Database()
        self.raises(1042, "counted", rectangle.SaveToDB)
        services.ProjectDatabase = None


class TypesTest(ServerCase):
    def test_objects_without_a_published_class_do_not_exist(self) -> None:
        services = _services.host_services()
        self.assertEqual(type(services).__name__, "HostServices")
        for view in (services.Changes, services.Colors, services.NewPropertyBag(), services.NewOperand()):
            self.assertIn(type(view).__name__, _types.types().class_names())
            self.assertIs(_services.class_of_python(type(view).__name__), type(view))

    def test_one_class_alone_can_be_described(self) -> None:
        text = _services.host_services().Describe("clsLine")
        self.assertEqual(_types.TypeLibrary(text).class_names(), ["clsLine"])

    def test_class_numbers_are_those_of_the_names(self) -> None:
        for name in CREATABLE:
            info = _types.types().class_info(name)
            self.assertEqual(_services._class_number(info.progid), _abi.guid(info.clsid))



if __name__ == "__main__":
    unittest.main()
