"""Calls that come from the library: their arguments as values of Python, and functions called with them."""

from __future__ import annotations

import ctypes
import inspect
import struct
from typing import Any, Callable, Dict, List, Optional, Tuple

from . import _abi, _references, _variant
from ._abi import VARIANT_SIZE
from .arrays import CollisionMap, Ref
from .errors import AutomationError


class Refused(Exception):
    """A call that is answered with a result rather than with an error; perhaps for one of its arguments."""

    def __init__(self, result: int, argument: Optional[int] = None) -> None:
        super().__init__(result)
        self.result = result
        self.argument = argument


class Arguments:
    """The arguments of a call from the library: values in their order, those with a name apart with its
    number, and the places that by-reference ones go back to."""

    def __init__(self, parameters: int) -> None:
        memory = ctypes.string_at(parameters, _abi.DISPPARAMS.size)
        first, names, count, named = _abi.DISPPARAMS.unpack(memory)
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
        values = [plain(value) for value in self.positional]
        return values[0] if len(values) == 1 else tuple(values)

    def store_references(self) -> None:
        """Writes back what was changed."""
        for ref, before, kind, address, place in self._references:
            if ref.value is before and not isinstance(before, (list, CollisionMap)):
                continue
            try:
                _references.store_reference(kind, address, ref.value)
            except AutomationError as error:
                result = _abi.DISP_E_OVERFLOW if error.number == 6 else _abi.DISP_E_TYPEMISMATCH
                raise Refused(result, place) from None


def plain(value: Any) -> Any:
    """The value at a place, or the value itself."""
    return value.value if type(value) is Ref else value


def _wants_place(parameter: inspect.Parameter) -> bool:
    """Whether a parameter is declared as a Ref. Late-bound callers hand every argument by reference, most of
    them only because they might be written: a host that does not write them need not know."""
    annotation = parameter.annotation
    if isinstance(annotation, str):
        return annotation.strip("\"'").rpartition(".")[2] == Ref.__name__
    return annotation is Ref


def parameters_of(function: Any) -> Dict[str, inspect.Parameter]:
    """The parameters of a callable; none when it does not tell them."""
    try:
        return dict(inspect.signature(function).parameters)
    except (TypeError, ValueError):
        return {}


def _wrong_count(
    number: int, function: Any, signature: inspect.Signature, arguments: Arguments
) -> AutomationError:
    """The error of a method that is called with other arguments than it declares."""
    name = getattr(function, "__qualname__", type(function).__qualname__).rpartition("<locals>.")[2]
    count = len(arguments.positional) + len(arguments.named)
    bare = [one.replace(annotation=inspect.Parameter.empty) for one in signature.parameters.values()]
    text = f"{name}{inspect.Signature(bare)} cannot take {count} argument{'' if count == 1 else 's'}"
    return AutomationError(number, text)


def called(function: Callable[..., Any], arguments: Arguments) -> Any:
    """Calls with positional and named arguments, of which those declared as a Ref are places. Errors 450 and
    449, naming the function, for too many and too few; Refused when they do not fit otherwise."""
    parameters = parameters_of(function)
    names = list(parameters)

    def fitting(place: int, value: Any) -> Any:
        wanted = place < len(names) and _wants_place(parameters[names[place]])
        return value if wanted else plain(value)

    by_name = {}
    for number, value in arguments.named:
        if not 0 <= number < len(names):
            raise Refused(_abi.DISP_E_PARAMNOTFOUND)
        by_name[names[number]] = fitting(number, value)
    positional = [
        parameters[names[place]].default if value is _variant.Missing and place < len(names) else
        fitting(place, value) for place, value in enumerate(arguments.positional)
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
        raise _wrong_count(450, function, signature, arguments) from None
    try:
        signature.bind(*positional, **by_name)
    except TypeError:
        raise _wrong_count(449, function, signature, arguments) from None
    return function(*positional, **by_name)


def describe(exception: BaseException) -> str:
    """One line for an exception of Python: "ValueError: the text"."""
    text = str(exception).split("\n", 1)[0]
    name = type(exception).__name__
    return f"{name}: {text}" if text else name
