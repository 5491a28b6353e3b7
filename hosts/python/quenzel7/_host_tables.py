"""The functions of objects of Python that the library calls: those of IDispatch and IEnumVARIANT, in tables
that stand outside the memory of Python, because the library may use them after Python has ended."""

from __future__ import annotations

import atexit
import ctypes
import itertools
import struct
from ctypes import c_int32, c_uint16, c_uint32, c_void_p
from typing import Any, Callable, List, Optional, Tuple

from . import _abi, _variant
from ._abi import VARIANT_SIZE
from ._frames import thread
from ._host_calls import Arguments, Refused, describe
from ._host_objects import ExposedEnumerator, ExposedObject, exposed_at, lock, runtime
from .errors import AutomationError, RaisedByHost, scode_of_number

_OTHER_ERROR = 5


def _tell(exception: BaseException, target: Any, info: Optional[int]) -> int:
    """Writes an exception into an EXCEPINFO; gives the result that says so."""
    if isinstance(exception, AutomationError):
        number, text, source = exception.number, exception.description, exception.source
    else:
        number, text, source = _OTHER_ERROR, describe(exception), ""
    thread.raised = RaisedByHost(exception, text)
    if info:
        texts = (_variant.alloc_text(source or type(target).__name__), _variant.alloc_text(text))
        packed = _abi.EXCEPINFO.pack(0, *texts, 0, 0, scode_of_number(number))
        ctypes.memmove(info, packed, len(packed))
    return _abi.DISP_E_EXCEPTION


# The functions that the library calls

_FUNCTION = {
    "query": ctypes.CFUNCTYPE(c_int32, c_void_p, c_void_p, c_void_p),
    "count": ctypes.CFUNCTYPE(c_uint32, c_void_p),
    "type_info_count": ctypes.CFUNCTYPE(c_int32, c_void_p, c_void_p),
    "type_info": ctypes.CFUNCTYPE(c_int32, c_void_p, c_uint32, c_uint32, c_void_p),
    "ids": ctypes.CFUNCTYPE(c_int32, c_void_p, c_void_p, c_void_p, c_uint32, c_uint32, c_void_p),
    "invoke": ctypes.CFUNCTYPE(
        c_int32, c_void_p, c_int32, c_void_p, c_uint32, c_uint16, c_void_p, c_void_p, c_void_p, c_void_p
    ),
    "next": ctypes.CFUNCTYPE(c_int32, c_void_p, c_uint32, c_void_p, c_void_p),
    "skip": ctypes.CFUNCTYPE(c_int32, c_void_p, c_uint32),
    "reset": ctypes.CFUNCTYPE(c_int32, c_void_p),
    "clone": ctypes.CFUNCTYPE(c_int32, c_void_p, c_void_p),
}
Address = Optional[int]


def _query_interface(this: int, interface: Address, found: Address) -> int:
    if not found or not interface:
        return _abi.E_POINTER
    exposed = exposed_at(this)
    wanted = ctypes.string_at(interface, 16)
    place = c_void_p.from_address(found)
    if wanted not in exposed.interfaces:
        place.value = None
        return _abi.E_NOINTERFACE
    exposed.add_reference()
    place.value = this
    return _abi.S_OK


def _add_ref(this: int) -> int:
    return exposed_at(this).add_reference()


def _release(this: int) -> int:
    return exposed_at(this).release()


def _get_type_info_count(this: int, count: Address) -> int:
    if not count:
        return _abi.E_POINTER
    c_uint32.from_address(count).value = 0
    return _abi.S_OK


def _get_type_info(this: int, index: int, locale: int, info: Address) -> int:
    if info:
        c_void_p.from_address(info).value = None
    return _abi.E_NOTIMPL


def _text_that_ends(address: int) -> str:
    units = bytearray()
    while True:
        unit = ctypes.string_at(address + len(units), 2)
        if unit == b"\0\0":
            return units.decode("utf-16-le", "surrogatepass")
        units += unit


def _get_ids_of_names(
    this: int, interface: Address, names: Address, count: int, locale: int, ids: Address
) -> int:
    if interface and ctypes.string_at(interface, 16) != _abi.IID_NULL:
        return _abi.DISP_E_UNKNOWNINTERFACE
    if not names or not ids or not count:
        return _abi.E_INVALIDARG if names and ids else _abi.E_POINTER
    exposed = exposed_at(this)
    assert isinstance(exposed, ExposedObject)
    texts = [_text_that_ends(text) for text in (ctypes.c_uint64 * count).from_address(names)]
    number = exposed.number_of(texts[0])
    numbers = [number, *exposed.numbers_of_parameters(number, texts[1:])]
    (c_int32 * count).from_address(ids)[:] = numbers
    return _abi.DISP_E_UNKNOWNNAME if _abi.DISPID_UNKNOWN in numbers else _abi.S_OK


def _invoke(
    this: int, number: int, interface: Address, locale: int, flags: int, parameters: Address, result: Address,
    info: Address, bad: Address,
) -> int:  # fmt: skip
    if interface and ctypes.string_at(interface, 16) != _abi.IID_NULL:
        return _abi.DISP_E_UNKNOWNINTERFACE
    if not parameters:
        return _abi.E_POINTER
    exposed = exposed_at(this)
    assert isinstance(exposed, ExposedObject)
    try:
        arguments = Arguments(parameters)
        value = exposed.invoke(number, flags, arguments)
        arguments.store_references()
        if isinstance(value, ExposedEnumerator):
            _hand_out(value, result)
        elif result:
            _variant.write_at(result, value)
        return _abi.S_OK
    except Refused as refused:
        if bad and refused.argument is not None:
            c_uint32.from_address(bad).value = refused.argument
        return refused.result
    except BaseException as exception:
        return _tell(exception, exposed.target, info)


def _hand_out(enumerator: ExposedEnumerator, result: Address) -> None:
    """Gives an enumerator to whoever asked, or lets go of it."""
    if not result:
        enumerator.release()
        return
    packed = struct.pack("<H6xQ8x", _abi.VT_UNKNOWN, enumerator.pointer)
    ctypes.memmove(result, packed, len(packed))


def _enumerator(this: int) -> ExposedEnumerator:
    exposed = exposed_at(this)
    assert isinstance(exposed, ExposedEnumerator)
    return exposed


def _next(this: int, count: int, values: Address, fetched: Address) -> int:
    if not values or (not fetched and count != 1):
        return _abi.E_POINTER
    enumerator = _enumerator(this)
    enumerator.written = 0
    try:
        written = enumerator.next(values, count)
    except BaseException:
        for place in range(enumerator.written):
            _variant.clear((ctypes.c_char * VARIANT_SIZE).from_address(values + place * VARIANT_SIZE))
        if fetched:
            c_uint32.from_address(fetched).value = 0
        raise
    if fetched:
        c_uint32.from_address(fetched).value = written
    return _abi.S_OK if written == count else _abi.S_FALSE


def _skip(this: int, count: int) -> int:
    skipped = sum(1 for _ in itertools.islice(_enumerator(this).rest, count))
    return _abi.S_OK if skipped == count else _abi.S_FALSE


def _reset(this: int) -> int:
    enumerator = _enumerator(this)
    fresh = iter(enumerator.target)
    if fresh is enumerator.target:
        return _abi.S_FALSE
    enumerator.rest = fresh
    return _abi.S_OK


def _clone(this: int, other: Address) -> int:
    if not other:
        return _abi.E_POINTER
    c_void_p.from_address(other).value = _enumerator(this).clone().pointer
    return _abi.S_OK


def _guarded(function: Callable[..., int]) -> Callable[..., int]:
    """The function, whose exceptions become a result: nothing else may leave it."""

    def guarded(*arguments: Any) -> int:
        try:
            return function(*arguments)
        except BaseException as exception:
            thread.raised = RaisedByHost(exception, describe(exception))
            return _abi.E_UNEXPECTED

    return guarded


class _Table:
    """The functions of one kind of objects in memory, made when they are first needed, for good."""

    def __init__(self, *functions: Tuple[str, Callable[..., int]]) -> None:
        self._functions = functions
        self._callbacks: List[Any] = []
        self._address = 0

    def __call__(self) -> int:
        with lock:
            if not self._address:
                address = runtime.malloc(8 * len(self._functions))
                self._callbacks = [_FUNCTION[kind](_guarded(function)) for kind, function in self._functions]
                self._fill(address, [ctypes.cast(callback, c_void_p).value for callback in self._callbacks])
                self._address = address
            return self._address

    def _fill(self, address: int, functions: List[Optional[int]]) -> None:
        (c_void_p * len(functions)).from_address(address)[:] = functions

    def silence(self) -> None:
        """Has a harmless function of the system called instead, which asks nothing of Python."""
        if self._address:
            harmless = ctypes.cast(runtime.abs, c_void_p).value
            self._fill(self._address, [harmless] * len(self._functions))


_UNKNOWN = (("query", _query_interface), ("count", _add_ref), ("count", _release))
ExposedObject.table = _Table(
    *_UNKNOWN, ("type_info_count", _get_type_info_count), ("type_info", _get_type_info),
    ("ids", _get_ids_of_names), ("invoke", _invoke),
)  # fmt: skip
ExposedEnumerator.table = _Table(
    *_UNKNOWN, ("next", _next), ("skip", _skip), ("reset", _reset), ("clone", _clone)
)


@atexit.register
def _end_of_python() -> None:
    """What the library still holds is released by it after Python has ended."""
    for table in (ExposedObject.table, ExposedEnumerator.table):
        table.silence()  # type: ignore[attr-defined]
