"""Calls of members by number: `call` with any arguments, `put` of a property. What `_members` prepares for
single members ends here whenever it is not the plain case."""

from __future__ import annotations

import ctypes
import reprlib
import struct
from typing import Any, Callable, List, Optional, Sequence, Tuple

from . import _abi, _references, _variant
from ._abi import VARIANT_SIZE
from ._frames import fail, give_back, take_frame, thread
from ._pointers import IID_NULL_ARGUMENT
from .arrays import Ref
from .errors import AutomationError, got, placed

NamedArgument = Tuple[int, Any]
Context = Callable[[Optional[int]], str]
"""Tells of which member an error is, and of which argument, from 0, when that is known."""


# Values that a VARIANT holds without owning anything.
_PLAIN = frozenset((int, bool, float, type(None)))


# Failures that a value is at fault for.
_ABOUT_VALUES = frozenset((_abi.DISP_E_TYPEMISMATCH, _abi.DISP_E_OVERFLOW, _abi.DISP_E_BADVARTYPE))


def with_value(context: str, result: int, value: Any) -> str:
    """A context that tells the value too, when it is at fault."""
    if result not in _ABOUT_VALUES:
        return context
    told = f"got {reprlib.repr(value) if type(value) is Ref else got(value)}"
    return f"{context}, {told}" if context else told


class _Written:
    """What the arguments of a call need after it: VARIANTs to clear, places of Refs to read."""

    __slots__ = ("owned", "places")

    def __init__(self) -> None:
        self.owned: List[int] = []
        self.places: List[Tuple[Ref, Any]] = []

    def write(self, memory: Any, offset: int, value: Any, kind: str) -> None:
        """Writes an argument."""
        if type(value) is Ref:
            self.places.append((value, _references.write_reference(memory, offset, value)))
            return
        _variant.write(memory, offset, value, kind)
        if type(value) not in _PLAIN:
            self.owned.append(offset)

    def clear(self, memory: Any) -> None:
        """Lets go of everything."""
        for offset in self.owned:
            _variant.clear(memory, offset)
        for _, place in self.places:
            _variant.clear(place)


def call(
    target: Any,
    number: int,
    flags: int,
    positional: Sequence[Any],
    named: Sequence[NamedArgument] = (),
    kinds: Sequence[str] = (),
    hint: str = "",
    context: Context = lambda argument: "",
) -> Any:
    """Calls a member of a proxy and gives its result.

    kinds: the declared types of all parameters, in their order; hint: that of the result. The values of Refs
    are theirs after the call.
    """
    count, known = len(positional) + len(named), len(kinds)
    frame = take_frame(count)
    memory, offset = frame.memory, frame.first
    written = _Written()
    # What was raised before cannot be the cause of what this call may raise.
    thread.raised = None
    try:
        frame.set_count(count, len(named))
        where: Optional[int] = None
        try:
            # The last argument lies first, those with a name before those without.
            for place, (parameter, value) in enumerate(named):
                struct.pack_into("<i", memory, frame.names + 4 * place, parameter)
                where = parameter
                written.write(memory, offset, value, kinds[parameter] if 0 <= parameter < known else "")
                offset += VARIANT_SIZE
            for parameter in range(len(positional) - 1, -1, -1):
                where = parameter
                kind = kinds[parameter] if parameter < known else ""
                written.write(memory, offset, positional[parameter], kind)
                offset += VARIANT_SIZE
        except AutomationError as error:
            raise placed(error, context(where)) from None
        frame.quick[1][0] = _abi.VT_EMPTY
        result = target._invoke(
            target._this, number, IID_NULL_ARGUMENT, 0, flags, frame.call, frame.result, frame.info, frame.bad
        )
        if result < 0:
            bad = frame.bad_argument()
            if bad is None or bad >= count:
                raise fail(frame, result, context(None))
            # The parameter whose argument lies at that place.
            last = count - 1 - bad
            parameter, value = named[bad] if bad < len(named) else (last, positional[last])
            raise fail(frame, result, with_value(context(parameter), result, value))
        value = _variant.take(memory, 0, hint)
        for ref, place_of_ref in written.places:
            _references.take_reference(place_of_ref, ref)
        return value
    finally:
        written.clear(memory)
        give_back(frame)


def put(target: Any, number: int, flags: int, value: Any, kind: str, context: Context) -> None:
    """Writes a property of a proxy."""
    frame = take_frame()
    try:
        try:
            _variant.write(frame.memory, frame.first, value, kind)
        except AutomationError as error:
            raise placed(error, context(None)) from None
        result = target._invoke(
            target._this, number, IID_NULL_ARGUMENT, 0, flags, frame.put, None, frame.info, frame.bad
        )
        if result < 0:
            raise fail(frame, result, with_value(context(None), result, value))
    finally:
        _variant.clear(frame.memory, frame.first)
        give_back(frame)


def numbers_of_names(target: Any, names: Sequence[str]) -> Tuple[int, List[int]]:
    """What GetIDsOfNames gives for a member and its parameters: its result and the numbers."""
    texts = [ctypes.create_string_buffer(_abi.wide(name)) for name in names]
    pointers = (ctypes.c_void_p * len(names))(*(ctypes.addressof(text) for text in texts))
    numbers = (ctypes.c_int32 * len(names))(*[_abi.DISPID_UNKNOWN] * len(names))
    result = target._functions.get_ids_of_names(
        target._this, IID_NULL_ARGUMENT, pointers, len(names), 0, numbers
    )
    return result, list(numbers)
