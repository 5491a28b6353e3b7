"""Values of Python to and from VARIANT.

`write` puts a value into the 24 bytes of a VARIANT that holds nothing yet, `read` gives what one holds and
leaves it there, `take` gives it and takes it away, `clear` lets go of it. How objects cross is told by
`_dispatch` and `_host_objects`, which set `objects.to_pointer` and `objects.from_pointer`.

    int    VT_I4, from 33 bits on VT_I8 (IntEnum too)  str      VT_BSTR
    float  VT_R8                                       Decimal  VT_CY, exactly or not at all
    bool   VT_BOOL                                     None     VT_EMPTY, or no object where one is wanted
    Null   VT_NULL                                     bytes, list, tuple, CollisionMap: see _safe_array
    Ref    VT_BYREF, see _references                   any other: VT_DISPATCH

Where a number or anything may stand, a value with __index__ crosses as int and one with __float__ as float, as
those of numpy do.
"""

from __future__ import annotations

import ctypes
import operator
import struct
from decimal import Decimal
from enum import IntEnum
from numbers import Rational
from typing import Any, Callable, Dict, Optional

from . import _abi, _safe_array
from ._abi import VT_ARRAY, VT_BYREF, VT_VARIANT
from ._library import library
from .arrays import CollisionMap, Null, NullType
from .errors import AutomationError, got

Writer = Callable[[Any, int, Any, str], None]

# The kinds of values that carry the types of the type information.
KIND_OF_TYPE = {
    "Boolean": _abi.VT_BOOL, "Byte": _abi.VT_UI1, "Integer": _abi.VT_I2, "Long": _abi.VT_I4,
    "Single": _abi.VT_R4, "Double": _abi.VT_R8, "Currency": _abi.VT_CY, "String": _abi.VT_BSTR,
    "Object": _abi.VT_DISPATCH, "Variant": _abi.VT_VARIANT,
}  # fmt: skip
# Types whose None is nothing held rather than no object.
_PLAIN_TYPES = frozenset(KIND_OF_TYPE) - {"Object"} | {""}
# Types of places in which a number may stand.
_NUMBER_TYPES = _PLAIN_TYPES - {"String"}
_OWNING = frozenset((_abi.VT_BSTR, _abi.VT_DISPATCH, _abi.VT_UNKNOWN))
PACKERS = {
    kind: struct.Struct(f"<H6x{form}{16 - struct.calcsize('<' + form)}x")
    for kind, form in _abi.CONTENT_FORMATS.items()
}
CONTENTS = {kind: struct.Struct("<" + form) for kind, form in _abi.CONTENT_FORMATS.items()}
KIND = struct.Struct("<H")
BARE = struct.Struct("<H22x")
POINTER = struct.Struct("<H6xQ8x")
ADDRESS = struct.Struct("<Q")
_CURRENCY_DIGITS = 4


class _Objects:
    """How objects cross: their pointers, counted for whoever gets them."""

    to_pointer: Callable[[Any], int]
    """The IDispatch of an object of Python; the caller releases it."""
    from_pointer: Callable[[int, bool, str], Any]
    """The object of an IDispatch; it takes over the caller's count when told so. Then a class that it may be
    of."""
    from_unknown: Callable[[int], Any]
    """The object of an IUnknown, or the iterator of what is an enumerator; the caller keeps its count."""


objects = _Objects()


class _MissingType:
    """What stands for an argument that was left out."""

    def __repr__(self) -> str:
        return "Missing"


Missing = _MissingType()


def alloc_text(text: str) -> int:
    """A BSTR, which the caller frees."""
    data = _abi.utf16(text)
    address = library().SysAllocStringByteLen(data, len(data))
    if not address:
        raise AutomationError(7)
    return address


def text_at(address: Optional[int]) -> str:
    """The text of a BSTR; a null one is empty."""
    if not address:
        return ""
    data = ctypes.string_at(address, library().SysStringByteLen(address))
    return data[: len(data) & ~1].decode("utf-16-le", "surrogatepass")


def take_text(address: Optional[int]) -> str:
    """The text of a BSTR, which is freed."""
    text = text_at(address)
    if address:
        library().SysFreeString(address)
    return text


def currency(value: Decimal) -> int:
    """The number in units of a ten-thousandth; error 6 when it has more decimals or does not fit."""
    sign, digits, exponent = value.as_tuple()
    if not isinstance(exponent, int):
        raise AutomationError(6, f"{value} is no amount of currency")
    while exponent < -_CURRENCY_DIGITS and digits and digits[-1] == 0:
        digits, exponent = digits[:-1], exponent + 1
    if not any(digits):
        return 0
    if exponent < -_CURRENCY_DIGITS:
        raise AutomationError(6, f"{value} has more than {_CURRENCY_DIGITS} decimals")
    if value.adjusted() < 19:
        scaled = int("".join(map(str, digits))) * 10 ** (exponent + _CURRENCY_DIGITS)
        if sign:
            scaled = -scaled
        if -(2**63) <= scaled < 2**63:
            return scaled
    raise AutomationError(6, f"{value} does not fit into currency")


def _write_int(memory: Any, offset: int, value: int, kind: str) -> None:
    if -0x80000000 <= value <= 0x7FFFFFFF:
        PACKERS[_abi.VT_I4].pack_into(memory, offset, _abi.VT_I4, value)
    elif -(2**63) <= value < 2**63:
        PACKERS[_abi.VT_I8].pack_into(memory, offset, _abi.VT_I8, value)
    else:
        raise AutomationError(6, f"{got(value)} does not fit into 64 bits")


def _write_bool(memory: Any, offset: int, value: bool, kind: str) -> None:
    PACKERS[_abi.VT_BOOL].pack_into(memory, offset, _abi.VT_BOOL, -1 if value else 0)


def _write_float(memory: Any, offset: int, value: float, kind: str) -> None:
    PACKERS[_abi.VT_R8].pack_into(memory, offset, _abi.VT_R8, value)


def _write_text(memory: Any, offset: int, value: str, kind: str) -> None:
    POINTER.pack_into(memory, offset, _abi.VT_BSTR, alloc_text(value))


def _write_decimal(memory: Any, offset: int, value: Decimal, kind: str) -> None:
    PACKERS[_abi.VT_CY].pack_into(memory, offset, _abi.VT_CY, currency(value))


def _write_none(memory: Any, offset: int, value: None, kind: str) -> None:
    nothing = _abi.VT_EMPTY if kind in _PLAIN_TYPES or kind.endswith("()") else _abi.VT_DISPATCH
    BARE.pack_into(memory, offset, nothing)


def _write_null(memory: Any, offset: int, value: NullType, kind: str) -> None:
    BARE.pack_into(memory, offset, _abi.VT_NULL)


def _write_missing(memory: Any, offset: int, value: _MissingType, kind: str) -> None:
    PACKERS[_abi.VT_ERROR].pack_into(memory, offset, _abi.VT_ERROR, _abi.DISP_E_PARAMNOTFOUND)


def _write_array(memory: Any, offset: int, value: Any, kind: str) -> None:
    cells, array = _safe_array.make(value, kind)
    POINTER.pack_into(memory, offset, VT_ARRAY | cells, array)


def _write_object(memory: Any, offset: int, value: Any, kind: str) -> None:
    POINTER.pack_into(memory, offset, _abi.VT_DISPATCH, objects.to_pointer(value))


_WRITERS: Dict[type, Writer] = {
    int: _write_int,
    bool: _write_bool,
    float: _write_float,
    str: _write_text,
    Decimal: _write_decimal,
    type(None): _write_none,
    NullType: _write_null,
    _MissingType: _write_missing,
    bytes: _write_array,
    bytearray: _write_array,
    memoryview: _write_array,
    list: _write_array,
    tuple: _write_array,
    CollisionMap: _write_array,
}
# For what derives from them; bool stands before int, which it derives from, and is derived from by nothing.
_BASES = (int, float, str, Decimal, bytes, bytearray, list, tuple, CollisionMap)


def _writer_of(value: Any) -> Writer:
    """The writer of values whose own type is not in the table, or was not before they became numbers."""
    for base in _BASES:
        if isinstance(value, base):
            return _WRITERS[base]
    return _write_object


def _plain(value: Any, kind: str) -> Any:
    """What a value stands for in a place of that type: a number where one may stand, if the value is made to
    be used as one. What is exact without being an integer, as a Fraction, is not rounded unasked."""
    if kind not in _NUMBER_TYPES or isinstance(value, _BASES):
        return value
    try:
        if hasattr(type(value), "__index__"):
            return operator.index(value)
        if hasattr(type(value), "__float__") and not isinstance(value, Rational):
            return float(value)
    except (TypeError, ValueError, OverflowError):
        # As an array of more than one number, which has these as well.
        pass
    return value


def plain_number(value: Any) -> Any:
    """The number of Python that a value is made to be used as, or the value itself."""
    return value if type(value) in _WRITERS else _plain(value, "")


def write(memory: Any, offset: int, value: Any, kind: str = "") -> None:
    """Writes a value into a VARIANT that holds nothing; `kind` is the declared type of the place, "" when
    there is none. Whoever called clears it."""
    writer = _WRITERS.get(type(value))
    if writer is None:
        value = _plain(value, kind)
        writer = _writer_of(value)
    writer(memory, offset, value, kind)


def write_at(address: int, value: Any, kind: str = "") -> None:
    """The same at an address."""
    write((ctypes.c_char * _abi.VARIANT_SIZE).from_address(address), 0, value, kind)


def read(memory: Any, offset: int = 0, hint: str = "") -> Any:
    """The value that a VARIANT holds. `hint` is the declared type of the place."""
    (kind,) = KIND.unpack_from(memory, offset)
    if kind & VT_BYREF:
        (address,) = ADDRESS.unpack_from(memory, offset + 8)
        return read_reference(kind & ~VT_BYREF, address)
    if kind & VT_ARRAY:
        (address,) = ADDRESS.unpack_from(memory, offset + 8)
        return _safe_array.read(kind & ~VT_ARRAY, address)
    return read_content(kind, memory, offset + 8, hint)


def read_content(kind: int, memory: Any, offset: int, hint: str = "") -> Any:
    """The value of a kind that lies, without its kind, at a place."""
    content = CONTENTS.get(kind)
    if content is None:
        if kind == _abi.VT_EMPTY:
            return None
        if kind == _abi.VT_NULL:
            return Null
        raise AutomationError(458, f"a value of kind {kind}")
    (value,) = content.unpack_from(memory, offset)
    if kind == _abi.VT_BOOL:
        return value != 0
    if kind == _abi.VT_CY:
        return Decimal(value).scaleb(-_CURRENCY_DIGITS)
    if kind == _abi.VT_BSTR:
        return text_at(value)
    if kind == _abi.VT_DISPATCH:
        return objects.from_pointer(value, False, hint) if value else None
    if kind == _abi.VT_UNKNOWN:
        return objects.from_unknown(value) if value else None
    if kind == _abi.VT_ERROR and value == _abi.DISP_E_PARAMNOTFOUND:
        return Missing
    return value


def read_reference(kind: int, address: int) -> Any:
    """The value of the place that a VARIANT of VT_BYREF and that kind points to."""
    if not address:
        return None
    if kind == VT_VARIANT:
        return read(ctypes.string_at(address, _abi.VARIANT_SIZE))
    if kind & VT_ARRAY:
        (array,) = ADDRESS.unpack(ctypes.string_at(address, 8))
        return _safe_array.read(kind & ~VT_ARRAY, array)
    if kind not in CONTENTS:
        raise AutomationError(458, f"a reference to a value of kind {kind}")
    return read_content(kind, ctypes.string_at(address, CONTENTS[kind].size), 0)


def owns(kind: int) -> bool:
    """Whether a VARIANT of that kind holds something to let go of."""
    return kind in _OWNING or kind & (VT_ARRAY | VT_BYREF) == VT_ARRAY


def clear(memory: Any, offset: int = 0) -> None:
    """Lets go of what a VARIANT holds and makes it empty."""
    (kind,) = KIND.unpack_from(memory, offset)
    if owns(kind):
        library().VariantClear(ctypes.byref(memory, offset))
    BARE.pack_into(memory, offset, _abi.VT_EMPTY)


def take(memory: Any, offset: int = 0, hint: str = "") -> Any:
    """The value that a VARIANT holds, which is empty afterwards."""
    (kind,) = KIND.unpack_from(memory, offset)
    if kind == _abi.VT_DISPATCH:
        (pointer,) = ADDRESS.unpack_from(memory, offset + 8)
        BARE.pack_into(memory, offset, _abi.VT_EMPTY)
        return objects.from_pointer(pointer, True, hint) if pointer else None
    try:
        return read(memory, offset, hint)
    finally:
        clear(memory, offset)


def crosses_as_object(value: Any, kind: str = "") -> bool:
    """Whether a value, None aside, becomes an object in a VARIANT for a place of that declared type."""
    return type(value) not in _WRITERS and _writer_of(_plain(value, kind)) is _write_object


def enumeration_value(enumeration: "type[IntEnum]", value: Any) -> Any:
    """The member of that value, or the value itself when the enumeration has none."""
    try:
        return enumeration(value)
    except ValueError:
        return value


# What _safe_array needs of single values, given to it rather than imported by it.
_safe_array.cells_with(write, read, read_content)

