"""Errors: AutomationError, and what the results of the binary interface mean.

`result_error` makes the exception of a failed call; `_frames` calls it with what EXCEPINFO told, when it told
something.
"""

from __future__ import annotations

import difflib
import numbers
import reprlib
from typing import Collection, Iterable, Optional

from . import _abi

# The numbers and texts of failures; any other failure keeps its own number.
_RESULTS = {
    _abi.DISP_E_UNKNOWNNAME: (438, "there is no such member"),
    _abi.DISP_E_MEMBERNOTFOUND: (438, "the member cannot be used so"),
    _abi.DISP_E_TYPEMISMATCH: (13, "type mismatch"),
    _abi.DISP_E_OVERFLOW: (6, "overflow"),
    _abi.DISP_E_BADPARAMCOUNT: (450, "wrong number of arguments"),
    _abi.DISP_E_PARAMNOTOPTIONAL: (449, "an argument is missing"),
    _abi.DISP_E_PARAMNOTFOUND: (448, "there is no such named argument"),
    _abi.E_OUTOFMEMORY: (7, "out of memory"),
    _abi.DISP_E_BADINDEX: (9, "index out of range"),
    _abi.DISP_E_DIVBYZERO: (11, "division by zero"),
    _abi.DISP_E_BADVARTYPE: (458, "a value of a kind that automation does not know"),
    _abi.CLASS_E_CLASSNOTAVAILABLE: (429, "objects of this class cannot be created"),
}
_OTHER_RESULTS = {
    _abi.RPC_E_WRONG_THREAD: "the object belongs to another thread",
    _abi.E_NOINTERFACE: "the object has no such interface",
    _abi.E_POINTER: "a null pointer",
    _abi.E_INVALIDARG: "an argument is not valid",
    _abi.E_NOTIMPL: "not implemented",
    _abi.E_FAIL: "failure",
    _abi.E_UNEXPECTED: "unexpected failure",
    _abi.DISP_E_UNKNOWNINTERFACE: "unknown interface",
    _abi.DISP_E_NONAMEDARGS: "the member takes no named arguments",
    _abi.DISP_E_ARRAYISLOCKED: "the array is locked",
    _abi.CLASS_E_NOAGGREGATION: "objects of this class cannot be part of another",
    _abi.SELFREG_E_CLASS: "the classes could not be registered",
}
# Texts of numbers that a host raises without one.
_TEXTS = {
    **{number: text for number, text in reversed(list(_RESULTS.values()))},
    5: "invalid procedure call or argument",
    91: "object not set",
    94: "invalid use of Null",
    457: "this key is already in the collection",
    438: "there is no such member",
}
# Numbers of errors from 1 to 65535 are told as this plus the number.
_ERROR_FACILITY = 0x800A0000 - 0x100000000


class AutomationError(Exception):
    """An error that a member raised, or a call that the binary interface refused.

    number: that of the run-time (13 type mismatch, 438 no such member ...), or the signed result itself when
    it stands for none. description: what went wrong. source: who says so, "" when nobody did.

    A host's own objects raise it to fail with a number of their choice.
    """

    result: Optional[int] = None
    """What the call of the binary interface gave, when it was one that failed."""

    def __init__(self, number: int, description: str = "", source: str = "") -> None:
        self.number = int(number)
        self.description = description or _TEXTS.get(self.number, "application-defined error")
        self.source = source
        super().__init__(self.number, self.description, self.source)

    def __str__(self) -> str:
        number = str(self.number) if abs(self.number) < 0x10000000 else f"0x{self.number & 0xFFFFFFFF:08X}"
        return f"[{number}] {self.description}"


class UnknownMemberError(AutomationError, AttributeError):
    """A name that the object does not have; also an AttributeError, so that hasattr() works."""


class WriteOnlyMemberError(AutomationError, AttributeError):
    """A property that can only be written was read, error 394; also an AttributeError, so that hasattr(),
    getattr() with a default and inspect.getmembers() pass it over."""


def nearest(asked: str, names: Iterable[str]) -> str:
    """The name that is most like the one asked for, case aside; "" when none is at least half like it."""
    matcher = difflib.SequenceMatcher(b=asked.lower(), autojunk=False)

    def likeness(name: str) -> float:
        matcher.set_seq1(name.lower())
        return matcher.ratio()

    found = max(names, key=likeness, default="")
    return found if found and likeness(found) >= 0.5 else ""


def spelling(asked: str, names: Collection[str]) -> Optional[str]:
    """The name that was asked for as it is spelt among the names, whatever its case; None when it is none of
    them."""
    if asked in names:
        return asked
    return next((name for name in names if name.lower() == asked.lower()), None)


def unknown_name(what: str, asked: str, names: Iterable[str]) -> str:
    """The sentence that refuses a name: `clsRectangle has no member 'PenWidht'; nearest is 'PenWidth'`."""
    closest = nearest(asked, names)
    return f"{what} {asked!r}" + (f"; nearest is {closest!r}" if closest else "")


def got(value: object) -> str:
    """A value in an error's text, with its type: `Fraction 3/2`, `str 'far'`."""
    if value is None:
        return "None"
    name = str(getattr(type(value), "_owner", type(value).__name__))
    if isinstance(value, (str, bytes, bytearray, list, tuple, dict)):
        return f"{name} {reprlib.repr(value)}"
    if not isinstance(value, numbers.Number):
        return name
    try:
        return f"{name} {value}"
    except ValueError:
        # Of more digits than Python writes.
        return name


def placed(error: "AutomationError", context: str) -> "AutomationError":
    """The same error, told with where it is."""
    text = f"{context}: {error.description}" if context else error.description
    found = AutomationError(error.number, text, error.source)
    found.result = error.result
    return found


def number_of_scode(code: int, scode: int) -> int:
    """The error number in the wCode and the scode of an EXCEPINFO."""
    if code:
        return code
    number = scode - _ERROR_FACILITY
    return number if 1 <= number <= 65535 else scode


def scode_of_number(number: int) -> int:
    """The scode that tells an error number."""
    return _ERROR_FACILITY + number if 1 <= number <= 65535 else number


def result_error(result: int, context: str = "") -> AutomationError:
    """The exception for a failed result; the context tells which member, and which of its arguments."""
    number, text = _RESULTS.get(result) or (result, _OTHER_RESULTS.get(result, "failure"))
    error = AutomationError(number, f"{text}: {context}" if context else text)
    error.result = result
    return error


def check(result: int, context: str = "") -> None:
    """Raises the exception of a result that is a failure."""
    if result < 0:
        raise result_error(result, context)


class RaisedByHost:
    """The exception that an object of this host raised last into the library, so that the error that comes
    back out of it can name it as its cause. One per thread is kept by `_host_objects`."""

    def __init__(self, exception: BaseException, description: str) -> None:
        self.exception = exception
        self.description = description

    def cause_of(self, error: AutomationError) -> Optional[BaseException]:
        """The exception, if the error is the one that it became."""
        known = error.description == self.description or error.result == _abi.E_UNEXPECTED
        return self.exception if known else None
