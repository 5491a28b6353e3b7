"""Objects of Python as IDispatch: names, calls, by-reference arguments, errors, counts."""

from __future__ import annotations

import ctypes
import functools
import gc
import struct
import subprocess
import sys
import threading
import types
import unittest
import weakref
from typing import Any, Optional

import support
from support import Case, late
from quenzel7 import AutomationError, CollisionMap, Ref, _abi, _host_calls, _host_objects, _invoke, _pointers, _variant

GET, METHOD, PUT, PUTREF = 2, 1, 4, 8
OTHER_INTERFACE = b"\1" * 16


class Boundary:
    """Calls the functions of an object as the library does, and keeps what came out."""

    def __init__(self, target: Any) -> None:
        self.pointer = _host_objects.pointer_of(target)
        self.this = ctypes.c_void_p(self.pointer)
        self.functions = _pointers.functions_of(self.pointer)
        self.info = ctypes.create_string_buffer(64)
        self.result = ctypes.create_string_buffer(24)
        self.bad = ctypes.c_uint32(77)

    def __del__(self) -> None:
        _pointers.release(self.pointer)

    def ids(self, *names: str, interface: bytes = _abi.IID_NULL) -> "tuple[int, list[int]]":
        texts = [ctypes.create_string_buffer(_abi.wide(name)) for name in names]
        pointers = (ctypes.c_void_p * len(names))(*map(ctypes.addressof, texts))
        numbers = (ctypes.c_int32 * len(names))(*[99] * len(names))
        result = self.functions.get_ids_of_names(self.this, interface, pointers, len(names), 0, numbers)
        return result, list(numbers)

    def number(self, name: str) -> int:
        result, (number,) = self.ids(name)
        assert result == 0, name
        return number

    def invoke(
        self, number: int, flags: int, *values: Any, named: "tuple[int, ...]" = (), raw: "Optional[bytes]" = None,
        interface: bytes = _abi.IID_NULL, info: Any = True, result: Any = True,
    ) -> int:  # fmt: skip
        """`values` as they lie: the last argument first, those with a name before the others."""
        memory = ctypes.create_string_buffer(raw or bytes(24 * len(values)), max(24 * len(values), 24))
        if raw is None:
            for place, value in enumerate(values):
                _variant.write(memory, 24 * place, value)
        numbers = (ctypes.c_int32 * len(named))(*named)
        parameters = struct.pack(
            "<QQII", ctypes.addressof(memory), ctypes.addressof(numbers), len(values), len(named)
        )
        code = self.functions.invoke(
            self.this, number, interface, 0, flags, parameters, self.result if result else None,
            self.info if info else None, ctypes.byref(self.bad),
        )  # fmt: skip
        for place in range(len(values)):
            _variant.clear(memory, 24 * place)
        return code

    def value(self) -> Any:
        return _variant.take(self.result)

    def error(self) -> "tuple[int, int, str, str, int]":
        code, source, text, help_file, deferred, scode = _abi.EXCEPINFO.unpack(self.info.raw)
        assert (help_file, deferred) == (0, 0)
        ctypes.memset(self.info, 0, 64)
        return code, 0, _variant.take_text(source), _variant.take_text(text), scode


class Sample:
    """An object with members of every sort."""

    shared = 5

    def __init__(self) -> None:
        self.Xs = 3
        self.some_text = "a"
        self.cells = [10, 20]
        self.function = lambda: 8
        self.partial = functools.partial(max, 4)
        self._hidden = 1

    @property
    def read_only(self) -> int:
        return 7

    def Add(self, a: int, b: int = 2) -> int:
        return a + b

    def keyword(self, *, k: int = 1) -> int:
        return k

    def Missing(self, a: int = 1, b: int = 2, c: int = 3) -> "list[int]":
        return [a, b, c]

    def raise_it(self, what: BaseException) -> None:
        raise what


class NameTest(Case):
    def test_names_are_found_in_their_spelling_then_in_any_case_then_without_underscores(self) -> None:
        class Many:
            Show = show = SHOW = 0
            show_message = ShowText = showtext = 0
            under_score = 0

        self.boundary = Boundary(Many())
        numbers = {name: self.boundary.number(name) for name in ("Show", "show", "SHOW")}
        self.assertEqual(len(set(numbers.values())), 3)
        self.assertEqual(self.boundary.number("sHOW"), self.boundary.number("SHOW"))
        self.assertEqual(self.boundary.number("ShowMessage"), self.boundary.number("show_message"))
        self.assertEqual(self.boundary.number("UNDER_SCORE"), self.boundary.number("under_score"))
        self.assertEqual(self.boundary.number("UNDERSCORE"), self.boundary.number("under_score"))
        del self.boundary

    def test_numbers_count_from_1_and_stay(self) -> None:
        boundary = Boundary(Sample())
        self.assertEqual([boundary.number(name) for name in ("Xs", "Add", "xs", "shared", "ADD")], [1, 2, 1, 3, 2])

    def test_unknown_and_hidden_names_have_no_number(self) -> None:
        boundary = Boundary(Sample())
        for name in ("Nothing", "_hidden", "__init__", "__class__", "_NewEnum", ""):
            self.assertEqual(boundary.ids(name), (_abi.DISP_E_UNKNOWNNAME, [-1]), name)

    def test_attributes_that_an_object_makes_up_have_numbers(self) -> None:
        class Any_:
            def __getattr__(self, name: str) -> str:
                if name == "Known":
                    return "made up"
                raise AttributeError(name)

        boundary = Boundary(Any_())
        number = boundary.number("Known")
        self.assertEqual(boundary.ids("known"), (_abi.DISP_E_UNKNOWNNAME, [-1]))
        self.assertEqual(boundary.invoke(number, GET), 0)
        self.assertEqual(boundary.value(), "made up")

    def test_parameters_are_numbered_by_their_place(self) -> None:
        boundary = Boundary(Sample())
        self.assertEqual(boundary.ids("Add", "B", "a"), (0, [1, 1, 0]))
        self.assertEqual(boundary.ids("Add", "a", "c"), (_abi.DISP_E_UNKNOWNNAME, [1, 0, -1]))
        self.assertEqual(boundary.ids("Nothing", "a"), (_abi.DISP_E_UNKNOWNNAME, [-1, -1]))
        self.assertEqual(boundary.ids("Xs", "a"), (_abi.DISP_E_UNKNOWNNAME, [2, -1]))

    def test_the_enumerator_has_its_own_number(self) -> None:
        boundary = Boundary({1, 2})
        self.assertEqual(boundary.ids("_newenum"), (0, [_abi.DISPID_NEWENUM]))

    def test_wrong_questions_are_refused(self) -> None:
        boundary = Boundary(Sample())
        self.assertEqual(boundary.ids("Xs", interface=OTHER_INTERFACE)[0], _abi.DISP_E_UNKNOWNINTERFACE)
        ask = boundary.functions.get_ids_of_names
        numbers = (ctypes.c_int32 * 1)()
        names = (ctypes.c_void_p * 1)()
        self.assertEqual(ask(boundary.this, _abi.IID_NULL, None, 1, 0, numbers), _abi.E_POINTER)
        self.assertEqual(ask(boundary.this, _abi.IID_NULL, names, 1, 0, None), _abi.E_POINTER)
        self.assertEqual(ask(boundary.this, _abi.IID_NULL, names, 0, 0, numbers), _abi.E_INVALIDARG)


class InvokeTest(Case):
    def setUp(self) -> None:
        super().setUp()
        self.sample = Sample()
        self.boundary = Boundary(self.sample)

    def tearDown(self) -> None:
        del self.boundary
        super().tearDown()

    def call(self, name: str, flags: int, *values: Any, **named: Any) -> int:
        return self.boundary.invoke(self.boundary.number(name), flags, *values, **named)

    def test_attributes_are_read(self) -> None:
        for flags in (GET, GET | METHOD):
            self.assertEqual(self.call("Xs", flags), 0)
            self.assertEqual(self.boundary.value(), 3)
        self.assertEqual(self.call("read_only", GET), 0)
        self.assertEqual(self.boundary.value(), 7)

    def test_attributes_are_not_called_and_methods_not_read(self) -> None:
        self.assertEqual(self.call("Xs", METHOD), _abi.DISP_E_MEMBERNOTFOUND)
        self.assertEqual(self.call("Add", GET), _abi.DISP_E_MEMBERNOTFOUND)
        self.assertEqual(self.call("function", GET), _abi.DISP_E_MEMBERNOTFOUND)

    def test_methods_are_called_with_the_last_argument_first(self) -> None:
        self.assertEqual(self.call("Add", METHOD, 5, 30), 0)
        self.assertEqual(self.boundary.value(), 35)
        self.assertEqual(self.call("raise_it", METHOD, "x"), _abi.DISP_E_EXCEPTION)
        self.assertEqual(self.boundary.error()[3], "TypeError: exceptions must derive from BaseException")

    def test_methods_are_called_where_either_would_do(self) -> None:
        for name, value in (("function", 8), ("partial", 9)):
            self.assertEqual(self.call(name, METHOD | GET, *([9] if name == "partial" else [])), 0)
            self.assertEqual(self.boundary.value(), value)

    def test_arguments_may_have_names(self) -> None:
        self.assertEqual(self.call("Add", METHOD, 7, 1, named=(1,)), 0)
        self.assertEqual(self.boundary.value(), 8)
        self.assertEqual(self.call("Missing", METHOD, 10, 20, 30, named=(2, 1)), 0)
        self.assertEqual(self.boundary.value(), [30, 20, 10])
        self.assertEqual(self.call("keyword", METHOD, 6, named=(0,)), 0)
        self.assertEqual(self.boundary.value(), 6)
        for number in (2, -1):
            self.assertEqual(self.call("Add", METHOD, 7, 1, named=(number,)), _abi.DISP_E_PARAMNOTFOUND)
        self.assertEqual(self.call("Xs", GET, 1, named=(0,)), _abi.DISP_E_PARAMNOTFOUND)

    def test_arguments_may_be_left_out(self) -> None:
        missing = _variant.Missing
        self.assertEqual(self.call("Add", METHOD, missing, 1), 0)
        self.assertEqual(self.boundary.value(), 3)
        self.assertEqual(self.call("Missing", METHOD, 9, missing, missing), 0)
        self.assertEqual(self.boundary.value(), [1, 2, 9])
        self.assertEqual(self.call("Add", METHOD, 9, missing), _abi.DISP_E_PARAMNOTOPTIONAL)

    def test_too_many_and_too_few_arguments_are_told_apart(self) -> None:
        self.assertEqual(self.call("Add", METHOD), _abi.DISP_E_EXCEPTION)
        self.assertEqual(self.boundary.error()[3], "Sample.Add(a, b=2) cannot take 0 arguments")
        self.assertEqual(self.call("Add", METHOD, 1, 2, 3), _abi.DISP_E_EXCEPTION)
        self.assertEqual(self.boundary.error()[3], "Sample.Add(a, b=2) cannot take 3 arguments")
        self.assertEqual(self.call("Add", METHOD, 1, 2, named=(0,)), _abi.DISP_E_EXCEPTION)
        self.assertEqual(self.boundary.error()[3], "Sample.Add(a, b=2) cannot take 2 arguments")

    def test_attributes_are_written(self) -> None:
        for flags in (PUT, PUTREF, PUT | PUTREF):
            self.assertEqual(self.call("Xs", flags, 40 + flags, named=(-3,)), 0)
            self.assertEqual(self.sample.Xs, 40 + flags)

    def test_what_cannot_be_written_is_refused(self) -> None:
        for name in ("read_only", "Add"):
            self.assertEqual(self.call(name, PUT, 1, named=(-3,)), _abi.DISP_E_MEMBERNOTFOUND)
        self.assertEqual(self.call("Xs", PUT, 1), _abi.DISP_E_PARAMNOTFOUND)
        self.assertEqual(self.call("Xs", PUT, 1, named=(0,)), _abi.DISP_E_PARAMNOTFOUND)
        self.assertEqual(self.sample.Xs, 3)

    def test_cells_are_read_and_written_by_their_index(self) -> None:
        self.assertEqual(self.call("cells", GET, 1), 0)
        self.assertEqual(self.boundary.value(), 20)
        self.assertEqual(self.call("cells", PUT, 99, 0, named=(-3,)), 0)
        self.assertEqual(self.sample.cells, [99, 20])
        self.assertEqual(self.call("Xs", GET, 1), _abi.DISP_E_BADPARAMCOUNT)
        self.assertEqual(self.call("Xs", PUT, 99, 0, named=(-3,)), _abi.DISP_E_BADPARAMCOUNT)
        self.sample.cells = CollisionMap(2, 2)  # type: ignore[assignment]
        self.sample.cells[1, 2] = 6  # type: ignore[index,call-overload]
        self.assertEqual(self.call("cells", GET, 2, 1), 0)
        self.assertEqual(self.boundary.value(), 6)

    def test_unknown_numbers_are_refused(self) -> None:
        for number in (0, 99, -1, -4):
            self.assertEqual(self.boundary.invoke(number, GET | METHOD), _abi.DISP_E_MEMBERNOTFOUND, number)

    def test_wrong_calls_are_refused(self) -> None:
        number = self.boundary.number("Xs")
        self.assertEqual(
            self.boundary.invoke(number, GET, interface=OTHER_INTERFACE), _abi.DISP_E_UNKNOWNINTERFACE
        )
        invoke = self.boundary.functions.invoke
        self.assertEqual(invoke(self.boundary.this, number, None, 0, GET, None, None, None, None), _abi.E_POINTER)

    def test_a_result_that_nobody_wants_is_dropped(self) -> None:
        self.assertEqual(self.call("Xs", GET, result=False), 0)
        self.sample.Xs = Sample()  # type: ignore[assignment]
        self.assertEqual(self.call("Xs", GET, result=False), 0)
        self.assertEqual(self.boundary.result.raw, bytes(24))

    def test_a_value_or_a_call_stands_for_the_object_itself(self) -> None:
        holder = types.SimpleNamespace(value=6)
        self.boundary = Boundary(holder)
        self.assertEqual(self.boundary.invoke(0, GET), 0)
        self.assertEqual(self.boundary.value(), 6)
        self.assertEqual(self.boundary.invoke(0, PUT, 7, named=(-3,)), 0)
        self.assertEqual(holder.value, 7)
        self.boundary = Boundary(functools.partial(max, 3))
        self.assertEqual(self.boundary.invoke(0, METHOD, 8), 0)
        self.assertEqual(self.boundary.value(), 8)
        self.assertEqual(self.boundary.invoke(0, GET, 8), _abi.DISP_E_MEMBERNOTFOUND)

    def test_an_unreadable_argument_is_told_with_its_place(self) -> None:
        number = self.boundary.number("Add")
        strange = struct.pack("<H22x", 14)
        self.assertEqual(
            self.boundary.invoke(number, METHOD, 1, 2, raw=struct.pack("<H6xi12x", 3, 1) + strange),
            _abi.DISP_E_BADVARTYPE,
        )
        self.assertEqual(self.boundary.bad.value, 1)


class ReferenceTest(Case):
    def call(self, change: Any, kind: int, content: Any) -> "tuple[int, int]":
        class Writer:
            def Change(self, place: Ref) -> None:
                self.seen = place.value
                change(place)

        writer = Writer()
        boundary = Boundary(writer)
        raw = struct.pack("<H6xQ8x", 0x4000 | kind, ctypes.addressof(content))
        result = boundary.invoke(boundary.number("Change"), METHOD, None, raw=raw)
        self.seen = writer.seen
        return result, boundary.bad.value

    def test_a_method_gets_a_place_and_may_write_it(self) -> None:
        place = ctypes.c_int32(5)

        def change(ref: Ref) -> None:
            self.assertIsInstance(ref, Ref)
            ref.value += 1

        self.assertEqual(self.call(change, 3, place), (0, 77))
        self.assertEqual((self.seen, place.value), (5, 6))

    def test_only_a_parameter_that_is_declared_so_gets_a_place(self) -> None:
        seen: "list[Any]" = []

        class Reader:
            def Take(self, plain, text: str, place: "Ref", other: "quenzel7.Ref", *rest) -> None:  # type: ignore # noqa: F821
                seen.extend((plain, text, type(place), place.value, type(other), *rest))
                plain.append(9)

            def Named(self, plain=0, place: Ref = None) -> None:  # type: ignore
                seen.extend((plain, place.value))

        Reader.Evaluated = lambda self, place: seen.append(place.value)  # type: ignore[attr-defined]
        Reader.Evaluated.__annotations__["place"] = Ref  # type: ignore[attr-defined]

        proxy, cells = late(Reader()), Ref([1])
        proxy.Take(cells, Ref("a"), Ref(2), Ref(3), Ref(4), 5)
        self.assertEqual(seen, [[1, 9], "a", Ref, 2, Ref, 4, 5])
        # What is changed in place comes back.
        self.assertEqual(cells.value, [1, 9])
        seen.clear()
        proxy.Named(place=Ref(6), plain=Ref(7))
        self.assertEqual(seen, [7, 6])
        proxy.Evaluated(Ref(8))
        self.assertEqual(seen, [7, 6, 8])

    def test_a_place_as_an_index_is_its_value(self) -> None:
        class Holder:
            Items = {1: "one", (1, 2): "both"}

        proxy = late(Holder())
        number = _invoke.numbers_of_names(proxy, ["Items"])[1][0]
        for index, value in (((Ref(1),), "one"), ((Ref(1), Ref(2)), "both")):
            self.assertEqual(_invoke.call(proxy, number, _abi.DISPATCH_PROPERTYGET, index), value)

    def test_what_is_not_changed_is_not_written(self) -> None:
        place = ctypes.c_double(0.1)
        before = bytes(place)
        self.call(lambda ref: None, 5, place)
        self.assertEqual(bytes(place), before)

    def test_variants_may_become_anything(self) -> None:
        place = ctypes.create_string_buffer(24)
        self.call(lambda ref: setattr(ref, "value", ["a", 1]), 12, place)
        self.assertIsNone(self.seen)
        self.assertEqual(_variant.take(place), ["a", 1])

    def test_cells_written_in_place_come_back(self) -> None:
        for before, change in (
            ([1, 2], lambda ref: ref.value.append(3)),
            (CollisionMap(2, 1), lambda ref: ref.value.fill(0, 0, 1, 1)),
        ):
            place = ctypes.create_string_buffer(24)
            _variant.write(place, 0, before)
            self.call(change, 12, place)
            expected = Ref(before)
            change(expected)
            self.assertEqual(_variant.take(place), expected.value)

    def test_what_does_not_fit_is_told_with_its_place(self) -> None:
        place = ctypes.c_int16(5)
        self.assertEqual(self.call(lambda ref: setattr(ref, "value", 40000), 2, place), (_abi.DISP_E_OVERFLOW, 0))
        self.assertEqual(self.call(lambda ref: setattr(ref, "value", "x"), 2, place), (_abi.DISP_E_TYPEMISMATCH, 0))
        self.assertEqual(place.value, 5)


class ErrorTest(Case):
    def error_of(self, exception: BaseException) -> "tuple[int, int, str, str, int]":
        boundary = Boundary(Sample())
        number = boundary.number("raise_it")
        self.assertEqual(boundary.invoke(number, METHOD, exception), _abi.DISP_E_EXCEPTION)
        exception.__traceback__ = None
        return boundary.error()

    def test_an_automation_error_keeps_its_number_text_and_source(self) -> None:
        self.assertEqual(
            self.error_of(AutomationError(457, "twice", "there")), (0, 0, "there", "twice", 0x800A01C9 - 2**32)
        )
        self.assertEqual(self.error_of(AutomationError(-77, "own"))[4], -77)

    def test_any_other_is_error_5_with_one_line(self) -> None:
        self.assertEqual(
            self.error_of(ValueError("bad\nand more")), (0, 0, "Sample", "ValueError: bad", 0x800A0005 - 2**32)
        )
        self.assertEqual(self.error_of(KeyError())[3], "KeyError")

    def test_an_error_may_be_told_to_nobody(self) -> None:
        boundary = Boundary(Sample())
        exception = ValueError("bad")
        result = boundary.invoke(boundary.number("raise_it"), METHOD, exception, info=False)
        self.assertEqual(result, _abi.DISP_E_EXCEPTION)
        self.assertEqual(boundary.info.raw, bytes(64))
        exception.__traceback__ = None

    def test_a_result_that_cannot_cross_is_an_error(self) -> None:
        sample = Sample()
        sample.Xs = 2**63
        boundary = Boundary(sample)
        self.assertEqual(boundary.invoke(boundary.number("Xs"), GET), _abi.DISP_E_EXCEPTION)
        self.assertEqual(boundary.error()[3:], ("int 9223372036854775808 does not fit into 64 bits", 0x800A0006 - 2**32))

    def test_the_exception_is_the_cause_of_the_error_that_comes_back(self) -> None:
        exception = ValueError("bad")
        proxy = late(Sample())
        error = self.raises(5, "ValueError: bad", proxy.raise_it, exception)
        self.assertIs(error.__cause__, exception)
        self.assertEqual((error.source, error.result), ("Sample", _abi.DISP_E_EXCEPTION))
        exception.__traceback__ = None

    def test_an_error_without_an_exception_behind_it_has_no_cause(self) -> None:
        proxy = late(Sample())
        with self.assertRaises(AutomationError):
            proxy.raise_it(AutomationError(5, "first"))
        error = self.raises(438, "the member cannot be used so: Add", setattr, proxy, "Add", 1)
        self.assertIsNone(error.__cause__)

    def test_an_interruption_goes_on_behind_the_call(self) -> None:
        proxy = late(Sample())
        for interruption in (KeyboardInterrupt(), SystemExit(3)):
            with self.assertRaises(type(interruption)) as caught:
                proxy.raise_it(interruption)
            self.assertIs(caught.exception, interruption)
            interruption.__traceback__ = None

    def test_an_attribute_that_fails_is_an_error(self) -> None:
        class Failing:
            @property
            def Broken(self) -> int:
                raise ZeroDivisionError("by nothing")

        boundary = Boundary(Failing())
        self.assertEqual(boundary.invoke(boundary.number("Broken"), GET), _abi.DISP_E_EXCEPTION)
        self.assertEqual(boundary.error()[3], "ZeroDivisionError: by nothing")

    def test_nothing_but_results_leaves_a_function(self) -> None:
        class Failing:
            def __dir__(self) -> Any:
                raise ValueError("no names")

        boundary = Boundary(Failing())
        self.assertEqual(boundary.ids("Name")[0], _abi.E_UNEXPECTED)


class CountTest(Case):
    def test_an_object_is_kept_while_it_is_held(self) -> None:
        sample = Sample()
        gone = weakref.ref(sample)
        pointer = _host_objects.pointer_of(sample)
        del sample
        gc.collect()
        self.assertIsNotNone(gone())
        _pointers.release(pointer)
        gc.collect()
        self.assertIsNone(gone())

    def test_every_reference_counts(self) -> None:
        sample = Sample()
        functions = _pointers.functions_of(pointer := _host_objects.pointer_of(sample))
        this = ctypes.c_void_p(pointer)
        self.assertEqual(functions.add_ref(this), 2)
        self.assertEqual(functions.add_ref(this), 3)
        self.assertEqual(functions.release(this), 2)
        self.assertEqual(functions.release(this), 1)
        self.assertEqual(functions.release(this), 0)

    def test_the_same_object_is_the_same_pointer_while_it_is_held(self) -> None:
        sample = Sample()
        first, second = _host_objects.pointer_of(sample), _host_objects.pointer_of(sample)
        self.assertEqual(first, second)
        self.assertNotEqual(first, other := _host_objects.pointer_of(Sample()))
        self.assertEqual(_host_objects.own_object(first), (sample,))
        for pointer in (first, second, other):
            _pointers.release(pointer)
        self.assertIsNone(_host_objects.own_object(first))

    def test_equal_objects_are_not_the_same(self) -> None:
        first, second = _host_objects.pointer_of({1: 1}), _host_objects.pointer_of({1: 1})
        self.assertNotEqual(first, second)
        _pointers.release(first)
        _pointers.release(second)

    def test_how_many_are_held_is_known(self) -> None:
        before = _host_objects.exposed_count()
        pointer = _host_objects.pointer_of(Sample())
        self.assertEqual(_host_objects.exposed_count(), before + 1)
        _pointers.release(pointer)
        self.assertEqual(_host_objects.exposed_count(), before)

    def test_interfaces(self) -> None:
        boundary = Boundary(Sample())
        for interface in (_abi.IID_IUNKNOWN, _abi.IID_IDISPATCH):
            self.assertEqual(_pointers.query(boundary.pointer, interface), boundary.pointer)
            _pointers.release(boundary.pointer)
        for interface in (_abi.IID_IENUMVARIANT, _abi.IID_NULL):
            self.assertIsNone(_pointers.query(boundary.pointer, interface))
        found = ctypes.c_void_p(5)
        ask = boundary.functions.query_interface
        self.assertEqual(ask(boundary.this, _abi.IID_NULL, ctypes.byref(found)), _abi.E_NOINTERFACE)
        self.assertIsNone(found.value)
        self.assertEqual(ask(boundary.this, _abi.IID_NULL, None), _abi.E_POINTER)
        self.assertEqual(ask(boundary.this, None, ctypes.byref(found)), _abi.E_POINTER)

    def test_there_is_no_type_information(self) -> None:
        boundary = Boundary(Sample())
        count, info = ctypes.c_uint32(9), ctypes.c_void_p(9)
        ask = _pointers.function_at(boundary.pointer, _abi.GET_TYPE_INFO_COUNT)
        self.assertEqual(ask(boundary.this, ctypes.byref(count)), 0)
        self.assertEqual(count.value, 0)
        self.assertEqual(ask(boundary.this, None), _abi.E_POINTER)
        ask = _pointers.function_at(boundary.pointer, _abi.GET_TYPE_INFO)
        self.assertEqual(ask(boundary.this, 0, 0, ctypes.byref(info)), _abi.E_NOTIMPL)
        self.assertIsNone(info.value)

    def test_counts_stay_right_on_several_threads(self) -> None:
        sample = Sample()
        pointer = _host_objects.pointer_of(sample)

        def hold() -> None:
            for _ in range(300):
                _pointers.add_reference(pointer)
                _pointers.release(pointer)

        threads = [threading.Thread(target=hold) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(_pointers.functions_of(pointer).release(ctypes.c_void_p(pointer)), 0)

    def test_arguments_and_results_are_let_go_of(self) -> None:
        class Echo:
            def Give(self, value: Any) -> Any:
                return value

        proxy, thing = late(Echo()), Sample()
        before = _host_objects.exposed_count()
        self.assertIs(proxy.Give(thing), thing)
        self.assertEqual(proxy.Give([thing])[0], thing)
        ref = Ref(thing)
        proxy.Give(ref)
        self.assertIs(ref.value, thing)
        self.assertEqual(_host_objects.exposed_count(), before)

    def test_what_is_held_at_the_end_of_python_may_still_be_released(self) -> None:
        program = (
            "import ctypes, sys; sys.path[:0] = [{0!r}, {1!r}]; import support\n"
            "from quenzel7 import _host_objects, _host_tables, _pointers\n"
            "pointer = _host_objects.pointer_of({{1}})\n"
            "_host_tables._end_of_python()\n"
            "_pointers.release(pointer)\n"
            "print(_host_objects.exposed_count())"
        ).format(str(support.FOLDER / "tests"), str(support.FOLDER))
        done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "1\n", ""))


class EnumeratorTest(Case):
    def enumerator(self, target: Any) -> Any:
        boundary = Boundary(target)
        self.assertEqual(boundary.invoke(_abi.DISPID_NEWENUM, GET), 0)
        kind, pointer = struct.unpack("<H6xQ", boundary.result.raw[:16])
        self.assertEqual(kind, _abi.VT_UNKNOWN)
        self.addCleanup(gc.collect)
        return pointer

    def next(self, pointer: int, count: int) -> "tuple[int, int, list[Any]]":
        values = ctypes.create_string_buffer(24 * count)
        fetched = ctypes.c_uint32(99)
        ask = _pointers.function_at(pointer, _abi.ENUM_NEXT)
        result = ask(ctypes.c_void_p(pointer), count, values, ctypes.byref(fetched))
        return result, fetched.value, [_variant.take(values, 24 * place) for place in range(count)]

    def test_gives_values_in_their_order(self) -> None:
        pointer = self.enumerator([1, "b", None, 4])
        self.assertEqual(self.next(pointer, 1), (0, 1, [1]))
        self.assertEqual(self.next(pointer, 2), (0, 2, ["b", None]))
        self.assertEqual(self.next(pointer, 3), (1, 1, [4, None, None]))
        self.assertEqual(self.next(pointer, 1), (1, 0, [None]))
        _pointers.release(pointer)

    def test_skips_starts_again_and_is_cloned(self) -> None:
        pointer = self.enumerator([1, 2, 3, 4])
        this = ctypes.c_void_p(pointer)
        self.assertEqual(_pointers.function_at(pointer, _abi.ENUM_SKIP)(this, 2), 0)
        copy = ctypes.c_void_p()
        self.assertEqual(_pointers.function_at(pointer, _abi.ENUM_CLONE)(this, ctypes.byref(copy)), 0)
        self.assertEqual(self.next(pointer, 1)[2], [3])
        self.assertEqual(self.next(copy.value or 0, 1)[2], [3])
        self.assertEqual(_pointers.function_at(pointer, _abi.ENUM_SKIP)(this, 2), 1)
        self.assertEqual(_pointers.function_at(pointer, _abi.ENUM_RESET)(this), 0)
        self.assertEqual(self.next(pointer, 1)[2], [1])
        self.assertEqual(self.next(copy.value or 0, 1)[2], [4])
        self.assertEqual(_pointers.function_at(pointer, _abi.ENUM_CLONE)(this, None), _abi.E_POINTER)
        _pointers.release(copy.value or 0)
        _pointers.release(pointer)

    def test_an_iterator_does_not_start_again(self) -> None:
        pointer = self.enumerator(iter([1, 2]))
        self.next(pointer, 1)
        self.assertEqual(_pointers.function_at(pointer, _abi.ENUM_RESET)(ctypes.c_void_p(pointer)), 1)
        self.assertEqual(self.next(pointer, 1)[2], [2])
        _pointers.release(pointer)

    def test_null_pointers_are_refused(self) -> None:
        pointer = self.enumerator([1, 2])
        ask = _pointers.function_at(pointer, _abi.ENUM_NEXT)
        values = ctypes.create_string_buffer(48)
        self.assertEqual(ask(ctypes.c_void_p(pointer), 1, None, None), _abi.E_POINTER)
        self.assertEqual(ask(ctypes.c_void_p(pointer), 2, values, None), _abi.E_POINTER)
        self.assertEqual(ask(ctypes.c_void_p(pointer), 1, values, None), 0)
        self.assertEqual(_variant.take(values), 1)
        _pointers.release(pointer)

    def test_a_failure_gives_nothing(self) -> None:
        thing = Sample()

        class Failing:
            def __iter__(self) -> Any:
                yield thing
                yield [thing]
                raise ValueError("no more")

        pointer = self.enumerator(Failing())
        self.assertEqual(self.next(pointer, 3), (_abi.E_UNEXPECTED, 0, [None, None, None]))
        _pointers.release(pointer)

    def test_is_another_object_than_what_it_walks_over(self) -> None:
        pointer = self.enumerator([1])
        self.assertIsNone(_pointers.query(pointer, _abi.IID_IDISPATCH))
        self.assertEqual(_pointers.query(pointer, _abi.IID_IENUMVARIANT), pointer)
        _pointers.release(pointer)
        self.assertIsNone(_host_objects.own_object(pointer))
        _pointers.release(pointer)

    def test_an_enumerator_that_nobody_wants_is_dropped(self) -> None:
        boundary = Boundary([1])
        self.assertEqual(boundary.invoke(_abi.DISPID_NEWENUM, METHOD, result=False), 0)
        self.assertEqual(boundary.invoke(_abi.DISPID_NEWENUM, PUT, 1, named=(-3,)), _abi.DISP_E_MEMBERNOTFOUND)


class DescribeTest(unittest.TestCase):
    def test_an_exception_is_one_line(self) -> None:
        self.assertEqual(_host_calls.describe(ValueError("a\nb")), "ValueError: a")
        self.assertEqual(_host_calls.describe(KeyboardInterrupt()), "KeyboardInterrupt")



if __name__ == "__main__":
    unittest.main()
