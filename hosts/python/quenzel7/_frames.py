"""Frames: the memory of one call of Invoke, prepared once and used again and again.

A frame holds the result, the EXCEPINFO, the place of a bad argument, and the arguments of a call, with all
pointers between them set. `take_frame` gives one that nobody uses, `give_back` puts it back; a call that
comes while another is under way, back from the library or on another thread, thus has a frame of its own.
Those who have to be quick take what is needed of a frame as a tuple, its `quick`, by `take_kept` and
`give_kept`. `fail` makes the exception of a call that failed.
"""

from __future__ import annotations

import ctypes
import struct
import threading
from typing import Any, List, Optional, Tuple

from . import _abi, _variant
from ._abi import DISPID_PROPERTYPUT, VARIANT_SIZE
from .errors import AutomationError, RaisedByHost, number_of_scode, result_error

ROOM = 8
"""How many arguments the frames that are kept have room for."""

_INFO = VARIANT_SIZE
_BAD = _INFO + _abi.EXCEPINFO.size
_PUT = _BAD + 8
_PUT_LONG = _PUT + _abi.DISPPARAMS.size
_CALL = _PUT_LONG + _abi.DISPPARAMS.size
_LONG = _CALL + _abi.DISPPARAMS.size
_NAMES = _LONG + VARIANT_SIZE
_NO_BAD_ARGUMENT = 0xFFFFFFFF


Quick = Tuple["Frame", Any, Any, Any, Any, Any, Any]


class Frame:
    """One call's memory. `result`, `info`, `bad`, `put` and `call` are what Invoke gets: the result, the
    EXCEPINFO, the place of a bad argument, the arguments of a property's write (the value stands at `first`),
    and those of a call, which `set_count` sets. `quick` is the frame itself, its memory as 32-bit numbers,
    the place of a number to write, `result`, `info`, `bad`, and the arguments of the write of that number.
    """

    __slots__ = ("memory", "result", "info", "bad", "put", "call", "room", "first", "names", "quick")

    def __init__(self, room: int = ROOM) -> None:
        self.room = room
        self.names = _NAMES
        self.first = _NAMES + (room * 4 + 7) // 8 * 8
        self.memory = memory = ctypes.create_string_buffer(self.first + room * VARIANT_SIZE)
        self.result = ctypes.byref(memory, 0)
        self.info = ctypes.byref(memory, _INFO)
        self.bad = ctypes.byref(memory, _BAD)
        self.put = ctypes.byref(memory, _PUT)
        self.call = ctypes.byref(memory, _CALL)
        base = ctypes.addressof(memory)
        # The one name of every write stands in the padding behind the bad argument's place.
        struct.pack_into("<Ii", memory, _BAD, _NO_BAD_ARGUMENT, DISPID_PROPERTYPUT)
        name = base + _BAD + 4
        _abi.DISPPARAMS.pack_into(memory, _PUT, base + self.first, name, 1, 1)
        _abi.DISPPARAMS.pack_into(memory, _PUT_LONG, base + _LONG, name, 1, 1)
        struct.pack_into("<H", memory, _LONG, _abi.VT_I4)
        longs = memoryview(memory).cast("B")[: _NAMES].cast("i")
        number = longs[_LONG // 4 + 2 : _LONG // 4 + 3]
        put_long = ctypes.byref(memory, _PUT_LONG)
        self.quick: Quick = (self, longs, number, self.result, self.info, self.bad, put_long)

    def set_count(self, count: int, named: int = 0) -> None:
        """How many arguments the next call has, and how many of them have names."""
        base = ctypes.addressof(self.memory)
        _abi.DISPPARAMS.pack_into(
            self.memory, _CALL, base + self.first, base + self.names if named else 0, count, named
        )

    def bad_argument(self) -> Optional[int]:
        """Where, among the arguments as they lie, the bad one is; None when none was told."""
        (place,) = struct.unpack_from("<I", self.memory, _BAD)
        return None if place == _NO_BAD_ARGUMENT else place

    def forget_failure(self) -> None:
        """Makes the frame fit for the next call after one that failed."""
        struct.pack_into("<I", self.memory, _BAD, _NO_BAD_ARGUMENT)


# Nobody but the one who took it has a frame: taking and giving are single steps of a list.
_kept: List[Quick] = []
take_kept = _kept.pop
give_kept = _kept.append


def take_frame(room: int = 0) -> Frame:
    """A frame with room for so many arguments."""
    if room > ROOM:
        return Frame(room)
    try:
        return take_kept()[0]
    except IndexError:
        return Frame()


def give_back(frame: Frame) -> None:
    """Keeps a frame for later, if it is of the usual size."""
    if frame.room == ROOM:
        give_kept(frame.quick)


class _Thread(threading.local):
    """What objects of this host raised last on the thread."""

    raised: Optional[RaisedByHost] = None


thread = _Thread()


def exception_of_info(memory: Any, offset: int) -> AutomationError:
    """The exception in an EXCEPINFO, whose texts are freed and which is empty afterwards."""
    code, source, description, help_file, deferred, scode = _abi.EXCEPINFO.unpack_from(memory, offset)
    if deferred:
        ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p)(deferred)(ctypes.addressof(memory) + offset)
        code, source, description, help_file, _, scode = _abi.EXCEPINFO.unpack_from(memory, offset)
    ctypes.memset(ctypes.addressof(memory) + offset, 0, _abi.EXCEPINFO.size)
    texts = [_variant.take_text(text) for text in (source, description, help_file)]
    return AutomationError(number_of_scode(code, scode), texts[1], texts[0])


def fail(frame: Frame, result: int, context: str) -> AutomationError:
    """The exception of a call that failed, as `with_cause` gives it."""
    frame.forget_failure()
    if result == _abi.DISP_E_EXCEPTION:
        error = exception_of_info(frame.memory, _INFO)
        error.result = result
    else:
        error = result_error(result, context)
    return with_cause(error)


def with_cause(error: AutomationError) -> AutomationError:
    """The exception of a call that failed, with its cause when an object of this host was it.

    An interruption of the program (KeyboardInterrupt, SystemExit) that an object of this host could not pass
    on through the library goes on from here.
    """
    raised, thread.raised = thread.raised, None
    cause = raised.cause_of(error) if raised is not None else None
    if cause is not None and not isinstance(cause, Exception):
        raise cause
    error.__cause__ = cause
    return error
