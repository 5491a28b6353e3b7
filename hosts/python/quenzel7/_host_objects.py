"""Objects of Python as IDispatch, so that they can be handed wherever the library wants an object.

A name is looked for among the attributes that do not start with an underscore: in the same spelling, without
regard to case, then without regard to underscores (`show_message` answers to ShowMessage). Its number stays the
same as long as the object is held. Methods are called with values of Python, by-reference arguments being Refs;
other attributes are read and written. An object that can be iterated offers _NewEnum, one that can be called or
has a `Value` stands for it as DISPID_VALUE.

An exception becomes an error of the library: an AutomationError keeps its number, description and source, any
other has number 5, "ValueError: the text" and the object's class as its source. The error that comes back out of
the library into Python has the exception as its cause.

An object is kept alive by its count and forgotten with it: the same object handed twice is the same IDispatch.
"""

from __future__ import annotations

import atexit
import ctypes
import inspect
import itertools
import struct
import sys
import threading
from ctypes import c_int32, c_uint16, c_uint32, c_void_p
from typing import Any, Callable, Dict, Iterator, List, Optional, Tuple

from . import _abi, _variant
from ._abi import DISPATCH_METHOD, DISPATCH_PROPERTYGET, VARIANT_SIZE
from ._dispatch import Dispatch, classification
from ._frames import thread
from .arrays import CollisionMap, Ref
from .errors import AutomationError, RaisedByHost, scode_of_number

_WRITES = _abi.DISPATCH_PROPERTYPUT | _abi.DISPATCH_PROPERTYPUTREF
_OTHER_ERROR = 5
_runtime = ctypes.CDLL(None) if sys.platform != "win32" else ctypes.cdll.msvcrt  # type: ignore[attr-defined]
_runtime.malloc.restype, _runtime.malloc.argtypes = c_void_p, (ctypes.c_size_t,)
_runtime.free.restype, _runtime.free.argtypes = None, (c_void_p,)
_lock = threading.RLock()


class Refused(Exception):
    """A call that is answered with a result rather than with an error; perhaps for one of its arguments."""

    def __init__(self, result: int, argument: Optional[int] = None) -> None:
        super().__init__(result)
        self.result = result
        self.argument = argument


class Exposed:
    """What stands behind one pointer: the object of Python and how often the pointer is held."""

    interfaces: Tuple[bytes, ...] = ()
    table: Callable[[], int]

    def __init__(self, target: Any) -> None:
        self.target = target
        self.count = 1
        # Outside the memory of Python, because the library may look at it after Python has ended.
        self.pointer: int = _runtime.malloc(16)
        ctypes.c_uint64.from_address(self.pointer).value = type(self).table()

    def add_reference(self) -> int:
        with _lock:
            self.count += 1
            return self.count

    def release(self) -> int:
        with _lock:
            self.count -= 1
            if self.count:
                return self.count
            del _by_pointer[self.pointer]
            self.forget()
        _runtime.free(self.pointer)
        return 0

    def forget(self) -> None:
        """Called when nobody holds the pointer any more."""


_by_pointer: Dict[int, Exposed] = {}
_by_object: Dict[int, "ExposedObject"] = {}


def exposed_count() -> int:
    """How many objects of Python the library, or anybody else, holds."""
    return len(_by_pointer)


def pointer_of(value: Any) -> int:
    """The IDispatch of a proxy or of any object of Python; the caller releases it."""
    if isinstance(value, Dispatch):
        value._functions.add_ref(value._this)
        return value._pointer
    with _lock:
        known = _by_object.get(id(value))
        if known is not None:
            known.add_reference()
            return known.pointer
        fresh = ExposedObject(value)
        _by_object[id(value)] = fresh
        _by_pointer[fresh.pointer] = fresh
        return fresh.pointer


def own_object(pointer: int) -> Optional[Tuple[Any]]:
    """The object of Python behind a pointer, alone in a tuple; None when it is not one of these."""
    known = _by_pointer.get(pointer)
    return (known.target,) if isinstance(known, ExposedObject) else None


class ExposedObject(Exposed):
    """An object of Python behind an IDispatch."""

    interfaces = (_abi.IID_IUNKNOWN, _abi.IID_IDISPATCH)

    def __init__(self, target: Any) -> None:
        super().__init__(target)
        self._names: Dict[int, str] = {}
        self._numbers: Dict[str, int] = {}

    def forget(self) -> None:
        del _by_object[id(self.target)]

    # Names and numbers

    def _attribute(self, name: str) -> Optional[str]:
        """The attribute that answers to a name, or None."""
        if name.startswith("_"):
            return None
        names = [known for known in dir(self.target) if not known.startswith("_")]
        if name in names:
            return name
        folded = name.lower()
        for known in names:
            if known.lower() == folded:
                return known
        for known in names:
            if known.replace("_", "").lower() == folded:
                return known
        return name if hasattr(self.target, name) else None

    def number_of(self, name: str) -> int:
        """The number of the member that answers to a name, DISPID_UNKNOWN when there is none."""
        if name.lower() == "_newenum" and self._is_iterable():
            return _abi.DISPID_NEWENUM
        attribute = self._attribute(name)
        if attribute is None:
            return _abi.DISPID_UNKNOWN
        with _lock:
            number = self._numbers.setdefault(attribute, len(self._numbers) + 1)
            self._names[number] = attribute
        return number

    def numbers_of_parameters(self, number: int, names: List[str]) -> List[int]:
        """The places of a method's parameters, DISPID_UNKNOWN for those that it does not have."""
        if not names or number not in self._names:
            return [_abi.DISPID_UNKNOWN] * len(names)
        folded = [parameter.lower() for parameter in _parameters(getattr(self.target, self._names[number]))]
        return [folded.index(name.lower()) if name.lower() in folded else _abi.DISPID_UNKNOWN for name in names]

    def _is_iterable(self) -> bool:
        return hasattr(type(self.target), "__iter__")

    # Calls

    def invoke(self, number: int, flags: int, arguments: "Arguments") -> Any:
        """Calls the member of that number and gives its result; raises Refused for what cannot be called so."""
        if number == _abi.DISPID_NEWENUM and self._is_iterable() and not flags & _WRITES:
            return ExposedEnumerator(self.target, iter(self.target))
        name = self._names.get(number)
        if number == _abi.DISPID_VALUE:
            name = self._attribute("Value")
            if name is None and callable(self.target) and flags & DISPATCH_METHOD:
                return _called(self.target, arguments)
        if name is None:
            raise Refused(_abi.DISP_E_MEMBERNOTFOUND)
        if flags & _WRITES:
            return self._write(name, arguments)
        return self._read_or_call(name, flags, arguments)

    def _write(self, name: str, arguments: "Arguments") -> None:
        if [number for number, _ in arguments.named] != [_abi.DISPID_PROPERTYPUT]:
            raise Refused(_abi.DISP_E_PARAMNOTFOUND)
        value = arguments.named[0][1]
        if arguments.positional:
            holder = getattr(self.target, name)
            if not hasattr(type(holder), "__setitem__"):
                raise Refused(_abi.DISP_E_BADPARAMCOUNT)
            holder[arguments.index()] = value
            return
        described = getattr(type(self.target), name, None)
        read_only = isinstance(described, property) and described.fset is None
        if read_only or inspect.isroutine(described):
            raise Refused(_abi.DISP_E_MEMBERNOTFOUND)
        setattr(self.target, name, value)

    def _read_or_call(self, name: str, flags: int, arguments: "Arguments") -> Any:
        value = getattr(self.target, name)
        if callable(value) and flags & DISPATCH_METHOD:
            return _called(value, arguments)
        if inspect.isroutine(value) or not flags & DISPATCH_PROPERTYGET:
            raise Refused(_abi.DISP_E_MEMBERNOTFOUND)
        if arguments.named:
            raise Refused(_abi.DISP_E_PARAMNOTFOUND)
        if not arguments.positional:
            return value
        if not hasattr(type(value), "__getitem__"):
            raise Refused(_abi.DISP_E_BADPARAMCOUNT)
        return value[arguments.index()]


class ExposedEnumerator(Exposed):
    """An iterator behind an IEnumVARIANT."""

    interfaces = (_abi.IID_IUNKNOWN, _abi.IID_IENUMVARIANT)

    def __init__(self, target: Any, rest: Iterator[Any]) -> None:
        super().__init__(target)
        self.rest = rest
        _by_pointer[self.pointer] = self

    def next(self, values: int, count: int) -> int:
        """Writes up to so many values; gives how many it were."""
        for place, value in enumerate(itertools.islice(self.rest, count)):
            _variant.write_at(values + place * VARIANT_SIZE, value)
            self.written = place + 1
        return self.written

    written = 0

    def clone(self) -> "ExposedEnumerator":
        """Another one, which goes on from the same place."""
        self.rest, other = itertools.tee(self.rest)
        return ExposedEnumerator(self.target, other)


class Arguments:
    """The arguments of a call from the library: values in their order, those with a name apart with its number,
    and the places that by-reference ones go back to."""

    def __init__(self, parameters: int) -> None:
        first, names, count, named = _abi.DISPPARAMS.unpack(ctypes.string_at(parameters, _abi.DISPPARAMS.size))
        self._references: List[Tuple[Ref, Any, int, int, int]] = []
        values = [self._value(first + place * VARIANT_SIZE, place) for place in range(count)]
        numbers = struct.unpack(f"<{named}i", ctypes.string_at(names, 4 * named)) if named else ()
        self.named: List[Tuple[int, Any]] = list(zip(numbers, values))
        self.positional: List[Any] = values[:named - 1 if named else None:-1]
        while self.positional and self.positional[-1] is _variant.Missing:
            self.positional.pop()

    def _value(self, address: int, place: int) -> Any:
        memory = ctypes.string_at(address, VARIANT_SIZE)
        try:
            value = _variant.read(memory)
        except AutomationError as error:
            result = _abi.DISP_E_BADVARTYPE if error.number == 458 else _abi.DISP_E_TYPEMISMATCH
            raise Refused(result, place) from None
        (kind, target) = struct.unpack_from("<H6xQ", memory)
        if not kind & _abi.VT_BYREF:
            return value
        ref = Ref(value)
        self._references.append((ref, value, kind & ~_abi.VT_BYREF, target, place))
        return ref

    def index(self) -> Any:
        """The values as one index."""
        return self.positional[0] if len(self.positional) == 1 else tuple(self.positional)

    def store_references(self) -> None:
        """Writes back what was changed."""
        for ref, before, kind, address, place in self._references:
            if ref.value is before and not isinstance(before, (list, CollisionMap)):
                continue
            try:
                _variant.store_reference(kind, address, ref.value)
            except AutomationError as error:
                result = _abi.DISP_E_OVERFLOW if error.number == 6 else _abi.DISP_E_TYPEMISMATCH
                raise Refused(result, place) from None


def _parameters(function: Any) -> Dict[str, inspect.Parameter]:
    """The parameters of a callable; none when it does not tell them."""
    try:
        return dict(inspect.signature(function).parameters)
    except (TypeError, ValueError):
        return {}


def _called(function: Callable[..., Any], arguments: Arguments) -> Any:
    """Calls with positional and named arguments; raises Refused when they do not fit."""
    parameters = _parameters(function)
    names = list(parameters)
    by_name = {}
    for number, value in arguments.named:
        if not 0 <= number < len(names):
            raise Refused(_abi.DISP_E_PARAMNOTFOUND)
        by_name[names[number]] = value
    positional = [
        parameters[names[place]].default if value is _variant.Missing and place < len(names) else value
        for place, value in enumerate(arguments.positional)
    ]
    if any(value is inspect.Parameter.empty for value in positional):
        raise Refused(_abi.DISP_E_PARAMNOTOPTIONAL)
    try:
        signature = inspect.signature(function)
    except (TypeError, ValueError):
        return function(*positional, **by_name)
    try:
        signature.bind_partial(*positional, **by_name)
    except TypeError:
        raise Refused(_abi.DISP_E_BADPARAMCOUNT) from None
    try:
        signature.bind(*positional, **by_name)
    except TypeError:
        raise Refused(_abi.DISP_E_PARAMNOTOPTIONAL) from None
    return function(*positional, **by_name)


def describe(exception: BaseException) -> str:
    """One line for an exception of Python: "ValueError: the text"."""
    text = str(exception).split("\n", 1)[0]
    name = type(exception).__name__
    return f"{name}: {text}" if text else name


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
    exposed = _by_pointer[this]
    wanted = ctypes.string_at(interface, 16)
    place = c_void_p.from_address(found)
    if wanted not in exposed.interfaces:
        place.value = None
        return _abi.E_NOINTERFACE
    exposed.add_reference()
    place.value = this
    return _abi.S_OK


def _add_ref(this: int) -> int:
    return _by_pointer[this].add_reference()


def _release(this: int) -> int:
    return _by_pointer[this].release()


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


def _get_ids_of_names(this: int, interface: Address, names: Address, count: int, locale: int, ids: Address) -> int:
    if interface and ctypes.string_at(interface, 16) != _abi.IID_NULL:
        return _abi.DISP_E_UNKNOWNINTERFACE
    if not names or not ids or not count:
        return _abi.E_INVALIDARG if names and ids else _abi.E_POINTER
    exposed = _by_pointer[this]
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
    exposed = _by_pointer[this]
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
    exposed = _by_pointer[this]
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
        with _lock:
            if not self._address:
                address = _runtime.malloc(8 * len(self._functions))
                self._callbacks = [_FUNCTION[kind](_guarded(function)) for kind, function in self._functions]
                self._fill(address, [ctypes.cast(callback, c_void_p).value for callback in self._callbacks])
                self._address = address
            return self._address

    def _fill(self, address: int, functions: List[Optional[int]]) -> None:
        (c_void_p * len(functions)).from_address(address)[:] = functions

    def silence(self) -> None:
        """Has a harmless function of the system called instead, which asks nothing of Python."""
        if self._address:
            name = "getpgid" if hasattr(_runtime, "getpgid") else "abs"
            harmless = ctypes.cast(getattr(_runtime, name), c_void_p).value
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


_variant.objects.to_pointer = pointer_of  # type: ignore[method-assign]
classification.own_object = own_object  # type: ignore[method-assign]
