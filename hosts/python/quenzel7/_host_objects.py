"""Objects of Python as IDispatch, so that they can be handed wherever the library wants an object.

A name is looked for among the attributes that do not start with an underscore: in the same spelling, without
regard to case, then without regard to underscores (`show_message` answers to ShowMessage). Its number stays
the same as long as the object is held. Methods are called with values of Python; a parameter that is declared
as a Ref, `def show_message(self, number, argument: Ref)`, gets the place of a by-reference argument, to write
there. Other attributes are read and written. An object that can be iterated offers _NewEnum, one that can be
called or has a `Value` stands for it as DISPID_VALUE.

An exception becomes an error of the library: an AutomationError keeps its number, description and source, any
other has number 5, "ValueError: the text" and the object's class as its source. The error that comes back out
of the library into Python has the exception as its cause.

An object is kept alive by its count and forgotten with it: the same object handed twice is the same
IDispatch.
"""

from __future__ import annotations

import ctypes
import inspect
import itertools
import sys
import threading
from ctypes import c_void_p
from typing import Any, Callable, Dict, Iterator, List, Optional, Tuple

from . import _abi, _variant
from ._abi import DISPATCH_METHOD, DISPATCH_PROPERTYGET, VARIANT_SIZE
from ._dispatch import Dispatch, classification
from ._host_calls import Arguments, Refused, called, parameters_of

_WRITES = _abi.DISPATCH_PROPERTYPUT | _abi.DISPATCH_PROPERTYPUTREF
runtime = ctypes.CDLL(None) if sys.platform != "win32" else ctypes.cdll.msvcrt  # type: ignore[attr-defined]
runtime.malloc.restype, runtime.malloc.argtypes = c_void_p, (ctypes.c_size_t,)
runtime.free.restype, runtime.free.argtypes = None, (c_void_p,)
lock = threading.RLock()


class Exposed:
    """What stands behind one pointer: the object of Python and how often the pointer is held."""

    interfaces: Tuple[bytes, ...] = ()
    table: Callable[[], int]

    def __init__(self, target: Any) -> None:
        self.target = target
        self.count = 1
        # Outside the memory of Python, because the library may look at it after Python has ended.
        self.pointer: int = runtime.malloc(16)
        ctypes.c_uint64.from_address(self.pointer).value = type(self).table()

    def add_reference(self) -> int:
        with lock:
            self.count += 1
            return self.count

    def release(self) -> int:
        with lock:
            self.count -= 1
            if self.count:
                return self.count
            del _by_pointer[self.pointer]
            self.forget()
        runtime.free(self.pointer)
        return 0

    def forget(self) -> None:
        """Called when nobody holds the pointer any more."""


_by_pointer: Dict[int, Exposed] = {}
_by_object: Dict[int, "ExposedObject"] = {}


def exposed_at(pointer: int) -> Exposed:
    """What stands behind a pointer that somebody holds."""
    return _by_pointer[pointer]


def exposed_count() -> int:
    """How many objects of Python the library, or anybody else, holds."""
    return len(_by_pointer)


def pointer_of(value: Any) -> int:
    """The IDispatch of a proxy or of any object of Python; the caller releases it."""
    if isinstance(value, Dispatch):
        value._functions.add_ref(value._this)
        return value._pointer
    with lock:
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
        with lock:
            number = self._numbers.setdefault(attribute, len(self._numbers) + 1)
            self._names[number] = attribute
        return number

    def numbers_of_parameters(self, number: int, names: List[str]) -> List[int]:
        """The places of a method's parameters, DISPID_UNKNOWN for those that it does not have."""
        if not names or number not in self._names:
            return [_abi.DISPID_UNKNOWN] * len(names)
        folded = [parameter.lower() for parameter in parameters_of(getattr(self.target, self._names[number]))]
        places = {parameter: place for place, parameter in reversed(list(enumerate(folded)))}
        return [places.get(name.lower(), _abi.DISPID_UNKNOWN) for name in names]

    def _is_iterable(self) -> bool:
        return hasattr(type(self.target), "__iter__")

    # Calls

    def invoke(self, number: int, flags: int, arguments: Arguments) -> Any:
        """Calls the member of that number and gives its result; raises Refused for what cannot be called
        so."""
        if number == _abi.DISPID_NEWENUM and self._is_iterable() and not flags & _WRITES:
            return ExposedEnumerator(self.target, iter(self.target))
        name = self._names.get(number)
        if number == _abi.DISPID_VALUE:
            name = self._attribute("Value")
            if name is None and callable(self.target) and flags & DISPATCH_METHOD:
                return called(self.target, arguments)
        if name is None:
            raise Refused(_abi.DISP_E_MEMBERNOTFOUND)
        if flags & _WRITES:
            return self._write(name, arguments)
        return self._read_or_call(name, flags, arguments)

    def _write(self, name: str, arguments: Arguments) -> None:
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

    def _read_or_call(self, name: str, flags: int, arguments: Arguments) -> Any:
        value = getattr(self.target, name)
        if callable(value) and flags & DISPATCH_METHOD:
            return called(value, arguments)
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


_variant.objects.to_pointer = pointer_of  # type: ignore[method-assign]
classification.own_object = own_object  # type: ignore[method-assign]
