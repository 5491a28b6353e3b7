"""The members of classes as Python sees them: readers, writers and methods made for one member each.

Reading and writing a number is the case that has to be quick: number, flags and pointers are bound when the
class is made, and a frame is taken as it stands.
"""

from __future__ import annotations

import ctypes
from enum import IntEnum
from typing import TYPE_CHECKING, Any, Callable, List, Optional, Sequence, Tuple, Type

from . import _abi, _invoke, _variant
from ._frames import Frame, fail, give_kept, take_kept
from ._pointers import IID_NULL_ARGUMENT
from .errors import AutomationError, unknown_name

if TYPE_CHECKING:
    from ._types import Member

_GET = _abi.DISPATCH_PROPERTYGET
_PUT = _abi.DISPATCH_PROPERTYPUT
_PUTREF = _abi.DISPATCH_PROPERTYPUTREF
_VT_I4 = _abi.VT_I4
_WRONG_COUNTS = (_abi.DISP_E_BADPARAMCOUNT, _abi.DISP_E_PARAMNOTOPTIONAL)
_no_arguments_memory = ctypes.create_string_buffer(_abi.DISPPARAMS.size)
_no_arguments = ctypes.byref(_no_arguments_memory)


def context_of(owner: str, member: "Member") -> _invoke.Context:
    """What errors of the member are told with: "clsRectangle.Stretch: argument 2 (pDy)"."""

    def context(argument: Optional[int]) -> str:
        where = f"{owner}.{member.name}"
        if argument is None:
            return where
        names = [parameter.name for parameter in member.parameters]
        name = f" ({names[argument]})" if argument < len(names) else ""
        return f"{where}: argument {argument + 1}{name}"

    return context


def make_reader(
    owner: str, member: "Member", enumeration: Optional[Type[IntEnum]]
) -> Callable[[Any], Any]:
    """The function that reads a property."""
    number, hint = member.number, member.type
    context = context_of(owner, member)

    def read(self: Any) -> Any:
        try:
            quick = take_kept()
        except IndexError:
            quick = Frame().quick
        frame, longs, _, result, info, bad, _ = quick
        code = self._invoke(self._this, number, IID_NULL_ARGUMENT, 0, _GET, _no_arguments, result, info, bad)
        if code >= 0 and longs[0] == _VT_I4:
            value = longs[2]
            give_kept(quick)
            return value
        try:
            if code < 0:
                raise fail(frame, code, context(None))
            return _variant.take(frame.memory, 0, hint)
        finally:
            give_kept(quick)

    if enumeration is None:
        return read
    by_value = enumeration._value2member_map_

    def read_enumeration(self: Any) -> Any:
        value = read(self)
        return by_value.get(value, value)

    return read_enumeration


def make_writer(owner: str, member: "Member") -> Callable[[Any, Any], None]:
    """The function that writes a property, an object by reference where the member takes one so."""
    number, kind = member.number, member.type
    context = context_of(owner, member)
    by_value = _PUT if member.put else _PUTREF
    by_reference = _PUTREF if member.putref else _PUT

    def write(self: Any, value: Any) -> None:
        if type(value) is int:
            try:
                quick = take_kept()
            except IndexError:
                quick = Frame().quick
            frame, _, number_place, _, info, bad, put = quick
            try:
                number_place[0] = value
            except ValueError:
                # Wider than a Long.
                give_kept(quick)
            else:
                code = self._invoke(self._this, number, IID_NULL_ARGUMENT, 0, by_value, put, None, info, bad)
                if code >= 0:
                    give_kept(quick)
                    return
                try:
                    raise fail(frame, code, _invoke.with_value(context(None), code, value))
                finally:
                    give_kept(quick)
        flags = by_reference if _is_object(value, kind) else by_value
        _invoke.put(self, number, flags, value, kind, context)

    return write


def _is_object(value: Any, kind: str) -> bool:
    """Whether a value crosses as an object, or as none."""
    if value is None:
        return kind not in _variant.KIND_OF_TYPE or kind == "Object"
    return _variant.crosses_as_object(value, kind)


def named_arguments(owner: str, member: "Member", named: "dict[str, Any]") -> List[Tuple[int, Any]]:
    """Keywords as the numbers of parameters; error 448 for a name that the member does not have."""
    places = {parameter.name.lower(): place for place, parameter in enumerate(member.parameters)}
    found = []
    for name, value in named.items():
        place = places.get(name.lower())
        if place is None:
            names = [parameter.name for parameter in member.parameters]
            raise AutomationError(448, unknown_name(f"{owner}.{member.name} has no argument", name, names))
        found.append((place, value))
    return found


def _count_told(owner: str, member: "Member", positional: int, named: Sequence[Tuple[int, Any]]) -> str:
    """The sentence for a call with too many arguments or too few: what the member takes, what was given, what
    is missing."""
    parameters = member.parameters
    names = [f"[{one.name}]" if one.optional else one.name for one in parameters]
    least, most = sum(not one.optional for one in parameters), len(parameters)
    count = f"{most or 'no'}" if least == most else f"{least} to {most}"
    takes = f"{owner}.{member.name} takes {count} argument{'' if most == 1 else 's'}"
    listed = f" ({', '.join(names)})" if names else ""
    given = {*range(positional), *(place for place, _ in named)}
    missing = [one.name for place, one in enumerate(parameters) if not one.optional and place not in given]
    told = f"{takes}{listed}, {positional + len(named)} given"
    return f"{told}; missing: {', '.join(missing)}" if missing else told


def make_method(
    owner: str, member: "Member", enumeration: Optional[Type[IntEnum]]
) -> Callable[..., Any]:
    """The function that calls a method."""
    number, hint = member.number, member.type
    context = context_of(owner, member)
    kinds: Sequence[str] = [parameter.type for parameter in member.parameters]
    flags = _abi.DISPATCH_METHOD
    call = _invoke.call

    def method(self: Any, *arguments: Any, **named: Any) -> Any:
        with_names = named_arguments(owner, member, named) if named else ()
        try:
            value = call(self, number, flags, arguments, with_names, kinds, hint, context)
        except AutomationError as error:
            if error.result not in _WRONG_COUNTS:
                raise
            counted = AutomationError(error.number, _count_told(owner, member, len(arguments), with_names))
            counted.result = error.result
            raise counted from None
        if enumeration is not None:
            return _variant.enumeration_value(enumeration, value)
        return value

    return method
