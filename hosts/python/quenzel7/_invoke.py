"""Calls of members by number: `call` with any arguments, `put` of a property. What `_members` prepares for
single members ends here whenever it is not the plain case."""

from __future__ import annotations

import ctypes
import struct
from typing import Any, Callable, List, Optional, Sequence, Tuple

from . import _abi, _references, _variant
from ._abi import VARIANT_SIZE
from ._frames import Frame, fail, give_back, take_frame, thread
from ._pointers import IID_NULL_ARGUMENT
from .arrays import Ref

NamedArgument = Tuple[int, Any]
Context = Callable[[Optional[int]], str]
"""Tells of which member an error is, and of which argument, from 0, when that is known."""


def _write_arguments(
    frame: Frame, values: Sequence[Any], kinds: Sequence[str], places: List[Tuple[Ref, Any]]
) -> None:
    """Writes the arguments as they lie in memory; the places of by-reference ones are added to the list."""
    offset = frame.first
    for value, kind in zip(values, kinds):
        if type(value) is Ref:
            places.append((value, _references.write_reference(frame.memory, offset, value)))
        else:
            _variant.write(frame.memory, offset, value, kind)
        offset += VARIANT_SIZE


def _clear_arguments(frame: Frame, count: int) -> None:
    for offset in range(frame.first, frame.first + count * VARIANT_SIZE, VARIANT_SIZE):
        _variant.clear(frame.memory, offset)


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
    count = len(positional) + len(named)
    known = len(kinds)
    # The last argument lies first, those with a name before those without.
    values = [value for _, value in named] + list(reversed(positional))
    parameters = [place for place, _ in named] + list(range(len(positional) - 1, -1, -1))
    frame = take_frame(count)
    places: List[Tuple[Ref, Any]] = []
    # What was raised before cannot be the cause of what this call may raise.
    thread.raised = None
    try:
        frame.set_count(count, len(named))
        for place, (parameter, _) in enumerate(named):
            struct.pack_into("<i", frame.memory, frame.names + 4 * place, parameter)
        _write_arguments(frame, values, [kinds[p] if 0 <= p < known else "" for p in parameters], places)
        frame.quick[1][0] = _abi.VT_EMPTY
        result = target._invoke(
            target._this, number, IID_NULL_ARGUMENT, 0, flags, frame.call, frame.result, frame.info, frame.bad
        )
        if result < 0:
            bad = frame.bad_argument()
            raise fail(frame, result, context(parameters[bad] if bad is not None and bad < count else None))
        value = _variant.take(frame.memory, 0, hint)
        for ref, memory in places:
            _references.take_reference(memory, ref)
        return value
    finally:
        _clear_arguments(frame, count)
        for _, memory in places:
            _variant.clear(memory)
        give_back(frame)


def put(target: Any, number: int, flags: int, value: Any, kind: str, context: Context) -> None:
    """Writes a property of a proxy."""
    frame = take_frame()
    try:
        _variant.write(frame.memory, frame.first, value, kind)
        result = target._invoke(
            target._this, number, IID_NULL_ARGUMENT, 0, flags, frame.put, None, frame.info, frame.bad
        )
        if result < 0:
            raise fail(frame, result, context(None))
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
