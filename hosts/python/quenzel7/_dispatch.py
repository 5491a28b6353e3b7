"""Proxies: objects of the library, and of anybody else behind an IDispatch, as objects of Python.

`Dispatch` is what all proxies have in common: the pointer, identity, release. The classes that `_classes`
makes derive from it and know their members; `LateObject` asks the object for every name. `from_pointer`
chooses, and gives an object of Python itself back when the pointer is one of its own.
"""

from __future__ import annotations

import ctypes
import reprlib
from typing import Any, Callable, Dict, Iterator, Optional, Tuple, Type, TypeVar

from . import _abi, _invoke, _variant
from ._enumerator import Enumerator
from ._pointers import Functions, add_reference, functions_of, identity, query, release
from .errors import (
    AutomationError,
    UnknownMemberError,
    WriteOnlyMemberError,
    check,
    result_error,
    unknown_name,
)

_NOT_CALLABLE_SO = (_abi.DISP_E_MEMBERNOTFOUND, _abi.DISP_E_PARAMNOTOPTIONAL, _abi.DISP_E_BADPARAMCOUNT)
_GET_OR_CALL = _abi.DISPATCH_METHOD | _abi.DISPATCH_PROPERTYGET
_Proxy = TypeVar("_Proxy", bound="Dispatch")


class Dispatch:
    """An object behind an IDispatch. Equal are proxies of one object, whatever the face."""

    __slots__ = ("_this", "_invoke", "_functions", "_release", "_pointer", "_faces", "__weakref__")

    _this: Any
    _invoke: Any
    _functions: Functions
    _release: Any
    _pointer: int
    _faces: Dict[str, "Dispatch"]
    """Faces of the object by other interfaces that were needed so far."""

    _owner = "object"
    _names: Dict[str, str] = {}
    _shown: Tuple[str, ...] = ()

    def __new__(cls, **properties: Any) -> Any:
        """A new object of the class, as `create` makes it."""
        return classification.create(cls._owner, **properties)

    def __getattr__(self, name: str) -> Any:
        # Comes for what the class does not have, and for a property that raised an AttributeError.
        if name.startswith("_"):
            raise AttributeError(f"{self._owner} has no attribute {name!r}")
        known = getattr(type(self), name, None)
        if isinstance(known, property) and known.fget is not None:
            return known.fget(self)
        return getattr(self, self._known_name(name))

    def _known_name(self, name: str) -> str:
        """The published spelling of a name, whatever its case; error 438 naming the nearest."""
        known = self._names.get(name.lower())
        if known is None or known == name:
            text = unknown_name(f"{self._owner} has no member", name, self._names.values())
            raise UnknownMemberError(438, text)
        return known

    def __repr__(self) -> str:
        shown = []
        for name in self._shown:
            try:
                value = getattr(self, name)
            except AutomationError:
                continue
            text = reprlib.repr(value) if isinstance(value, (str, bytes, list)) else repr(value)
            shown.append(f" {name}={text}")
        return f"<{self._owner}{''.join(shown)}>"

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Dispatch):
            return NotImplemented
        return self._pointer == other._pointer or identity(self._pointer) == identity(other._pointer)

    def __hash__(self) -> int:
        return hash(identity(self._pointer))

    def __reduce__(self) -> Any:
        raise TypeError(f"{self._owner} lives in the library and cannot be pickled or copied; see Replica")

    def __del__(self) -> None:
        try:
            drop, this = self._release, self._this
        except AttributeError:
            return
        drop(this)


_set_this = Dispatch._this.__set__  # type: ignore[attr-defined]
_set_invoke = Dispatch._invoke.__set__  # type: ignore[attr-defined]
_set_functions = Dispatch._functions.__set__  # type: ignore[attr-defined]
_set_release = Dispatch._release.__set__  # type: ignore[attr-defined]
_set_pointer = Dispatch._pointer.__set__  # type: ignore[attr-defined]
_set_faces = Dispatch._faces.__set__  # type: ignore[attr-defined]


def adopt(python_class: Type[_Proxy], pointer: int) -> _Proxy:
    """A proxy that takes over the caller's count of the IDispatch at that address."""
    functions = functions_of(pointer)
    proxy = object.__new__(python_class)
    _set_pointer(proxy, pointer)
    _set_faces(proxy, {})
    _set_functions(proxy, functions)
    _set_invoke(proxy, functions.invoke)
    _set_release(proxy, functions.release)
    # A prepared argument: ctypes passes it on as it is, where it would convert a c_void_p on every call.
    _set_this(proxy, ctypes.byref(ctypes.c_char.from_address(pointer)))
    return proxy


def face_of(proxy: Dispatch, interface: bytes, python_class: Type[Dispatch]) -> Dispatch:
    """The same object by another of its interfaces."""
    found = query(proxy._pointer, interface, proxy._functions)
    if found is None:
        raise result_error(_abi.E_NOINTERFACE, f"{python_class._owner}")
    return adopt(python_class, found)


def attribute_writer(writers: Dict[str, Callable[[Any, Any], None]]) -> Callable[[Any, str, Any], None]:
    """The __setattr__ of a class with these writers by published name."""

    def write_attribute(self: Dispatch, name: str, value: Any) -> None:
        try:
            write = writers[name]
        except KeyError:
            write = writers[self._known_name(name)]
        write(self, value)

    return write_attribute


class Walked(Dispatch):
    """An object that gives an enumerator."""

    __slots__ = ()

    def __iter__(self) -> Iterator[Any]:
        context: _invoke.Context = lambda _: f"{self._owner}._NewEnum"
        found = _invoke.call(self, _abi.DISPID_NEWENUM, _GET_OR_CALL, (), context=context)
        if not isinstance(found, Enumerator):
            raise TypeError(f"{self._owner} gives no enumerator")
        return found

    def __reversed__(self) -> Iterator[Any]:
        return reversed(list(self))


class Rows(Dispatch):
    """Rows that are stood on one after another."""

    __slots__ = ()

    def __iter__(self) -> Iterator[Any]:
        """Gives the object itself, standing on its row and then on each that follows, until EOF."""
        while not self.EOF:
            yield self
            self.MoveNext()

    # Asking either would move the rows, to answer with themselves.
    __contains__ = None
    __reversed__ = None


class Unwalked(Dispatch):
    """An object that is indexed and gives no enumerator. Without this Python would ask it for 0, 1, 2 ... and
    never meet an end."""

    __slots__ = ()

    __iter__ = None
    __contains__ = None
    __reversed__ = None


class Counted(Dispatch):
    """An object with a Count."""

    __slots__ = ()

    def __len__(self) -> int:
        try:
            return int(self.Count)
        except UnknownMemberError:
            raise TypeError(f"{self._owner} has no Count") from None

    def __bool__(self) -> bool:
        return len(self) > 0


class Indexed(Dispatch):
    """An object with a member that stands for it: `collection(1)` and `collection["key"]`."""

    __slots__ = ()

    def __call__(self, *arguments: Any) -> Any:
        return _invoke.call(self, _abi.DISPID_VALUE, _GET_OR_CALL, arguments, context=self._value_context)

    def _value_context(self, argument: Optional[int]) -> str:
        return self._owner + (f": argument {argument + 1}" if argument is not None else "")

    def __getitem__(self, index: Any) -> Any:
        return self(*index) if isinstance(index, tuple) else self(index)


class LateMethod:
    """A method of an object that is asked for every name."""

    def __init__(self, target: "LateObject", name: str, number: int) -> None:
        self._target, self._name, self._number = target, name, number

    def __call__(self, *arguments: Any, **named: Any) -> Any:
        numbers = self._target._numbers_of(self._name, *named)[1:] if named else ()
        with_names = list(zip(numbers, named.values()))
        return _invoke.call(
            self._target, self._number, _GET_OR_CALL, arguments, with_names, context=self._context
        )

    def _context(self, argument: Optional[int]) -> str:
        return self._name + (f": argument {argument + 1}" if argument is not None else "")

    def __repr__(self) -> str:
        return f"<method {self._name} of {self._target!r}>"


class LateObject(Walked, Counted, Indexed):
    """An object without type information. A name that cannot be read as a property is taken for a method."""

    __slots__ = ()

    def _numbers_of(self, name: str, *parameters: str) -> Tuple[int, ...]:
        """The numbers of a member and its parameters; errors 438 and 448."""
        result, numbers = _invoke.numbers_of_names(self, (name, *parameters))
        if result == _abi.DISP_E_UNKNOWNNAME:
            if numbers[0] == _abi.DISPID_UNKNOWN:
                raise UnknownMemberError(438, f"the object has no member {name!r}")
            wrong = [p for p, number in zip(parameters, numbers[1:]) if number == _abi.DISPID_UNKNOWN]
            raise AutomationError(448, f"{name} has no argument {wrong[0]!r}" if wrong else "")
        check(result, name)
        return tuple(numbers)

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(f"the object has no attribute {name!r}")
        (number,) = self._numbers_of(name)
        try:
            return _invoke.call(self, number, _abi.DISPATCH_PROPERTYGET, (), context=lambda _: name)
        except AutomationError as error:
            if error.number == 394:
                raise WriteOnlyMemberError(394, error.description, error.source) from error.__cause__
            if error.result not in _NOT_CALLABLE_SO:
                raise
        return LateMethod(self, name, number)

    def __setattr__(self, name: str, value: Any) -> None:
        (number,) = self._numbers_of(name)
        context: _invoke.Context = lambda _: name
        if value is not None and _variant.crosses_as_object(value):
            try:
                return _invoke.put(self, number, _abi.DISPATCH_PROPERTYPUTREF, value, "", context)
            except AutomationError as error:
                if error.result != _abi.DISP_E_MEMBERNOTFOUND:
                    raise
        return _invoke.put(self, number, _abi.DISPATCH_PROPERTYPUT, value, "", context)

    def __bool__(self) -> bool:
        return True


class _Classification:
    """How the class of an object is found, objects of Python among pointers, and how objects are made; set by
    those who know."""

    create: Callable[..., Any]
    python_class: Optional[Callable[[Callable[[str], bool], str], Optional[Type[Dispatch]]]] = None
    own_object: Callable[[int], Optional[Tuple[Any]]]


classification = _Classification()


def from_pointer(pointer: int, counted: bool, hint: str = "") -> Any:
    """The object behind an IDispatch; takes over the caller's count when told so.

    hint: the class that it may be of.
    """
    own = classification.own_object(pointer)
    if own is not None:
        if counted:
            release(pointer)
        return own[0]
    if not counted:
        add_reference(pointer)
    return adopt(_class_of(pointer, hint), pointer)


def from_unknown(pointer: int) -> Any:
    """The object behind an IUnknown, whose count stays the caller's; an iterator for an enumerator."""
    enumerator = query(pointer, _abi.IID_IENUMVARIANT)
    if enumerator is not None:
        return Enumerator(enumerator)
    dispatch = query(pointer, _abi.IID_IDISPATCH)
    if dispatch is None:
        raise result_error(_abi.E_NOINTERFACE, "an object without members by name")
    return from_pointer(dispatch, True)


def _class_of(pointer: int, hint: str) -> Type[Dispatch]:
    if classification.python_class is None:
        return LateObject

    functions = functions_of(pointer)

    def has_interface(iid: str) -> bool:
        found = query(pointer, _abi.guid(iid), functions)
        if found is None:
            return False
        functions_of(found).release(ctypes.c_void_p(found))
        return True

    return classification.python_class(has_interface, hint) or LateObject


def late(pointer: int) -> LateObject:
    """A proxy without type information of a counted IDispatch."""
    return adopt(LateObject, pointer)


_variant.objects.from_pointer = from_pointer  # type: ignore[method-assign]
_variant.objects.from_unknown = from_unknown  # type: ignore[method-assign]
