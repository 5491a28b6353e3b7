"""Proxies without type information, in loopback to objects of Python, and what all proxies have in common."""

from __future__ import annotations

import copy
import ctypes
import gc
import pickle
import subprocess
import sys
import threading
import types
import unittest
from typing import Any
from unittest import mock

import support
from support import Case, Probe, late, probe
from quenzel7 import AutomationError, Ref, UnknownMemberError, _abi, _dispatch, _host_calls, _host_objects, _pointers, _variant
from quenzel7._enumerator import Enumerator


class Sample:
    def __init__(self) -> None:
        self.Xs = 3
        self.cells = [1, 2]
        self.written_by = 0
        self.owner: Any = None

    def Add(self, a: int, b: int = 2, c: int = 0) -> int:
        return a + b + c

    def out(self, place: Ref) -> None:
        place.value = 5


class LateTest(Case):
    def test_attributes_are_read_and_written(self) -> None:
        sample = Sample()
        proxy = late(sample)
        self.assertEqual((proxy.Xs, proxy.XS), (3, 3))
        proxy.xs = 70000
        self.assertEqual(sample.Xs, 70000)

    def test_methods_are_called(self) -> None:
        proxy = late(Sample())
        self.assertEqual(proxy.Add(1), 3)
        self.assertEqual(proxy.add(1, 5), 6)
        self.assertEqual(proxy.Add(1, C=10), 13)
        self.assertEqual(proxy.Add(c=100, b=10, a=1), 111)

    def test_places_are_written_back(self) -> None:
        place = Ref()
        late(Sample()).out(place)
        self.assertEqual(place.value, 5)

    def test_what_can_only_be_written_is_passed_over(self) -> None:
        class Secretive:
            def read(self) -> int:
                raise AutomationError(394, "for writing", "Secretive")

            Secret = property(read)

        proxy = late(Secretive())
        error = self.raises(394, "for writing", lambda: proxy.Secret)
        self.assertEqual(error.source, "Secretive")
        self.assertIsInstance(error.__cause__, AutomationError)
        self.assertEqual(getattr(proxy, "Secret", 8), 8)

    def test_places_of_a_call_that_fails_stay(self) -> None:
        class Failing:
            def out(self, place: Ref) -> None:
                place.value = 5
                raise ValueError

        place = Ref("before")
        proxy = late(Failing())
        self.raises(5, "ValueError", proxy.out, place)
        self.assertEqual(place.value, "before")

    def test_none_crosses_as_nothing_where_no_type_is_known(self) -> None:
        kinds = []
        write = _variant._WRITERS[type(None)]

        def noting(memory: Any, offset: int, value: Any, kind: str) -> None:
            kinds.append(kind)
            write(memory, offset, value, kind)

        with mock.patch.dict(_variant._WRITERS, {type(None): noting}):
            late(types.SimpleNamespace(Take=lambda a: 0)).Take(None)
            late(Sample()).owner = None
        self.assertEqual(kinds, ["", ""])

    def test_unknown_names_are_error_438(self) -> None:
        proxy = late(Sample())
        self.raises(438, "the object has no member 'Ys'", lambda: proxy.Ys)
        with self.assertRaises(UnknownMemberError):
            proxy.Ys = 5
        self.assertFalse(hasattr(proxy, "Ys"))

    def test_unknown_parameters_are_error_448(self) -> None:
        proxy = late(Sample())
        self.raises(448, "Add has no argument 'd'", proxy.Add, 1, b=2, d=3)

    def test_refused_calls_tell_the_member(self) -> None:
        proxy = late(Sample())
        self.raises(449, "Sample.Add(a, b=2, c=0) cannot take 0 arguments", proxy.Add)
        self.raises(450, "Sample.Add(a, b=2, c=0) cannot take 4 arguments", proxy.Add, 1, 2, 3, 4)
        error = self.raises(438, "the member cannot be used so: Add", setattr, proxy, "Add", 1)
        self.assertEqual(error.result, _abi.DISP_E_MEMBERNOTFOUND)

    def test_a_bad_argument_is_told_by_its_place(self) -> None:
        class Narrow:
            def out(self, a: Ref, b: Ref) -> None:
                b.value = 2**20

        proxy = late(Narrow())
        self.raises(6, "overflow: out: argument 2, got Ref(1, 'Integer')", proxy.out, Ref(), Ref(1, "Integer"))

    def test_an_error_of_a_property_is_not_taken_for_a_method(self) -> None:
        class Failing:
            @property
            def Broken(self) -> int:
                raise AutomationError(438, "deep inside")

        proxy = late(Failing())
        self.raises(438, "deep inside", lambda: proxy.Broken)

    def test_objects_are_written_by_reference_where_that_is_taken(self) -> None:
        flags = []
        invoke = _host_objects.ExposedObject.invoke

        def noting(self: Any, number: int, how: int, arguments: Any) -> Any:
            flags.append(how)
            return invoke(self, number, how, arguments)

        sample, owner = Sample(), Sample()
        proxy = late(sample)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", noting):
            proxy.owner = owner
            proxy.owner = None
            proxy.owner = 5
        self.assertEqual(flags, [8, 4, 4])
        self.assertEqual(sample.owner, 5)

    def test_objects_are_written_by_value_where_nothing_else_is_taken(self) -> None:
        invoke = _host_objects.ExposedObject.invoke

        def by_value_only(self: Any, number: int, how: int, arguments: Any) -> Any:
            if how == 8:
                raise _host_calls.Refused(_abi.DISP_E_MEMBERNOTFOUND)
            return invoke(self, number, how, arguments)

        sample, owner = Sample(), Sample()
        proxy = late(sample)
        with mock.patch.object(_host_objects.ExposedObject, "invoke", by_value_only):
            proxy.owner = owner
        self.assertIs(sample.owner, owner)

    def test_an_object_is_walked_over(self) -> None:
        self.assertEqual(list(late((1, "b"))), [1, "b"])
        self.assertEqual(list(late({5})), [5])
        walk = iter(late([1, 2]))
        self.assertIsInstance(walk, Enumerator)
        self.assertIs(iter(walk), walk)
        self.assertEqual(next(walk), 1)

    def test_a_failing_walk_ends_with_the_error(self) -> None:
        def failing() -> Any:
            yield 1
            raise ValueError("no more")

        walk = iter(late(failing()))
        self.assertEqual(next(walk), 1)
        with self.assertRaises(AutomationError) as caught:
            next(walk)
        self.assertEqual(caught.exception.number, _abi.E_UNEXPECTED)
        caught.exception.__traceback__ = None

    def test_an_object_that_holds_nothing_is_not_walked_over(self) -> None:
        proxy = late(Sample())
        self.raises(438, "the member cannot be used so: object._NewEnum", iter, proxy)
        with self.assertRaisesRegex(TypeError, "^object has no Count$"):
            len(proxy)

    def test_count_and_value_make_a_length_and_an_index(self) -> None:
        holder = types.SimpleNamespace(Count=0, Value=lambda *index: index)
        proxy = late(holder)
        self.assertEqual(len(proxy), 0)
        self.assertTrue(proxy)
        self.assertEqual(proxy[3], [3])
        self.assertEqual(proxy["a", 2], ["a", 2])
        self.assertEqual(proxy(1, 2), [1, 2])

    def test_many_arguments_cross(self) -> None:
        proxy = late(types.SimpleNamespace(Many=lambda *all: list(all)))
        for count in (7, 8, 9, 40):
            self.assertEqual(proxy.Many(*range(count)), list(range(count)))

    def test_private_names_are_not_asked_for(self) -> None:
        proxy = late(Sample())
        for name in ("_repr_html_", "__len_hint__"):
            with self.assertRaisesRegex(AttributeError, f"the object has no attribute '{name}'"):
                getattr(proxy, name)

    def test_a_method_shows_its_name(self) -> None:
        self.assertEqual(repr(late(Sample()).Add), "<method Add of <object>>")


class IdentityTest(Case):
    def test_proxies_of_one_object_are_equal(self) -> None:
        sample = Sample()
        one, other = late(sample), late(sample)
        self.assertIsNot(one, other)
        self.assertEqual(one, other)
        self.assertEqual(one, one)
        self.assertEqual(hash(one), hash(other))
        self.assertEqual(len({one, other}), 1)
        self.assertNotEqual(one, late(Sample()))
        self.assertNotEqual(one, sample)
        self.assertNotEqual(one, 5)

    def test_an_object_of_python_comes_back_as_itself(self) -> None:
        class Echo:
            def Give(self, value: Any) -> Any:
                return value

        sample = Sample()
        self.assertIs(late(Echo()).Give(sample), sample)

    def test_a_proxy_crosses_as_the_object_behind_it(self) -> None:
        class Echo:
            def Give(self, value: Any) -> Any:
                self.seen = value
                return value

        sample, echo = Sample(), Echo()
        late(echo).Give(late(sample))
        self.assertIs(echo.seen, sample)

    def test_a_proxy_is_not_copied_or_pickled(self) -> None:
        proxy = late(Sample())
        for copied in (copy.copy, copy.deepcopy, pickle.dumps):
            with self.assertRaisesRegex(TypeError, "object lives in the library and cannot be pickled or copied"):
                copied(proxy)


class FromPointerTest(Case):
    """Pointers that are not known to be those of objects of Python."""

    def setUp(self) -> None:
        super().setUp()
        patch = mock.patch.object(_dispatch.classification, "own_object", lambda pointer: None)
        patch.start()
        self.addCleanup(patch.stop)

    def choose(self, python_class: Any) -> None:
        patch = mock.patch.object(_dispatch.classification, "python_class", python_class)
        patch.start()
        self.addCleanup(patch.stop)

    def count(self, pointer: int) -> int:
        _pointers.add_reference(pointer)
        return _pointers.functions_of(pointer).release(ctypes.c_void_p(pointer))

    def test_the_count_of_the_caller_is_taken_over_when_told_so(self) -> None:
        self.choose(None)
        pointer = _host_objects.pointer_of(Sample())
        borrowed = _dispatch.from_pointer(pointer, False)
        self.assertEqual(self.count(pointer), 2)
        taken = _dispatch.from_pointer(pointer, True)
        self.assertEqual(self.count(pointer), 2)
        self.assertEqual(borrowed, taken)
        del borrowed, taken

    def test_an_object_of_a_known_class_gets_its_class(self) -> None:
        asked = []

        def choose(has_interface: Any, hint: str) -> Any:
            asked.append((has_interface("{00020400-0000-0000-C000-000000000046}"), hint))
            asked.append(has_interface("{00020400-0000-0000-C000-000000000047}"))
            return _dispatch.Dispatch

        self.choose(choose)
        pointer = _host_objects.pointer_of(Sample())
        proxy = _dispatch.from_pointer(pointer, True, "clsText")
        self.assertIs(type(proxy), _dispatch.Dispatch)
        self.assertEqual(asked, [(True, "clsText"), False])
        self.assertEqual(self.count(pointer), 1)

    def test_an_object_of_no_known_class_is_asked_for_every_name(self) -> None:
        self.choose(lambda has_interface, hint: None)
        proxy = _dispatch.from_pointer(_host_objects.pointer_of(Sample()), True)
        self.assertIs(type(proxy), _dispatch.LateObject)

    def test_an_enumerator_is_an_iterator(self) -> None:
        enumerator = _host_objects.ExposedEnumerator([1, 2], iter([1, 2]))
        walk = _dispatch.from_unknown(enumerator.pointer)
        self.assertEqual(list(walk), [1, 2])
        self.assertEqual(enumerator.count, 2)
        del walk
        self.assertEqual(enumerator.release(), 0)

    def test_an_unknown_object_is_taken_by_its_members(self) -> None:
        self.choose(None)
        pointer = _host_objects.pointer_of(Sample())
        proxy = _dispatch.from_unknown(pointer)
        self.assertEqual(proxy.Xs, 3)
        self.assertEqual(self.count(pointer), 2)
        _pointers.release(pointer)

    def test_an_object_with_neither_is_refused(self) -> None:
        pointer = _host_objects.pointer_of(Sample())
        with mock.patch.object(_host_objects.ExposedObject, "interfaces", ()):
            self.raises(
                _abi.E_NOINTERFACE, "the object has no such interface: an object without members by name",
                _dispatch.from_unknown, pointer,
            )  # fmt: skip
        _pointers.release(pointer)


class ReleaseTest(Case):
    def test_a_proxy_lets_go_when_it_goes(self) -> None:
        proxy = late(Sample())
        held = _host_objects.exposed_count()
        del proxy
        gc.collect()
        self.assertEqual(_host_objects.exposed_count(), held - 1)

    def test_a_proxy_may_go_on_another_thread(self) -> None:
        proxies = [late(Sample())]
        held = _host_objects.exposed_count()
        thread = threading.Thread(target=proxies.clear)
        thread.start()
        thread.join()
        self.assertEqual(_host_objects.exposed_count(), held - 1)

    def test_a_proxy_that_was_never_complete_goes_quietly(self) -> None:
        proxy = object.__new__(_dispatch.LateObject)
        proxy.__del__()

    def test_proxies_may_go_with_the_program(self) -> None:
        program = (
            "import sys; sys.path[:0] = [{0!r}, {1!r}]; import support\n"
            "kept = support.late([1, 2]); walk = iter(kept); sys.kept = [kept, walk]; loop = [kept]; loop.append(loop)\n"
            "print(next(walk))"
        ).format(str(support.FOLDER / "tests"), str(support.FOLDER))
        done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "1\n", ""))


class TypedTest(Case):
    """What the classes that know their members inherit."""

    def test_faces_of_an_object_the_object_does_not_have_are_refused(self) -> None:
        proxy = probe(Probe())
        self.raises(
            _abi.E_NOINTERFACE, "the object has no such interface: Probe.ItfNone", lambda: proxy.ItfNone
        )

    def test_the_default_face_is_the_same_object(self) -> None:
        proxy = probe(Probe())
        self.assertEqual(proxy.default, proxy)
        self.assertEqual(proxy._Probe, proxy)
        self.assertEqual(proxy.default._owner, "Probe")


if __name__ == "__main__":
    unittest.main()
