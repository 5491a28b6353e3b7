"""By-reference arguments: the places that a Ref gives to a member, and those that a member of an object of
Python gets to write into."""

from __future__ import annotations

import ctypes
import struct
from decimal import Decimal
from typing import Any

from . import _abi, _variant
from ._abi import VT_ARRAY, VT_BYREF, VT_VARIANT
from ._library import library
from .arrays import Ref
from .errors import AutomationError, got


def write_reference(memory: Any, offset: int, ref: Ref) -> Any:
    """Makes a VARIANT that points to a place with the value of `ref`; gives the place, which has to live as
    long as the VARIANT is used, and is handed to `take_reference` then."""
    place = ctypes.create_string_buffer(_abi.VARIANT_SIZE)
    _variant.write(place, 0, ref.value, ref.kind)
    kind, inside = VT_VARIANT, 0
    if ref.kind and ref.kind != "Variant":
        try:
            kind, inside = _convert(place, ref), 8
        except BaseException:
            _variant.clear(place)
            raise
    _variant.POINTER.pack_into(memory, offset, VT_BYREF | kind, ctypes.addressof(place) + inside)
    return place


def _convert(place: Any, ref: Ref) -> int:
    """Makes the value in a place one of the reference's kind; gives the number of that kind."""
    wanted = _variant.KIND_OF_TYPE.get(ref.kind.rstrip("()"))
    if wanted is None:
        raise AutomationError(5, f"there is no kind {ref.kind!r} of references")
    if ref.kind.endswith("()"):
        wanted |= VT_ARRAY
    (kind,) = _variant.KIND.unpack_from(place, 0)
    if kind == _abi.VT_EMPTY:
        _variant.BARE.pack_into(place, 0, wanted)
    elif kind != wanted:
        _store_number(wanted, place, 0, ref.value)
    return wanted


def _store_number(kind: int, place: Any, offset: int, value: Any) -> None:
    """Writes a VARIANT that holds a number as one of that kind; errors 13 and 6."""
    value = _variant.plain_number(value)
    if kind not in _variant.PACKERS or _variant.owns(kind) or not isinstance(value, (int, float, Decimal)):
        name = next((name for name, known in _variant.KIND_OF_TYPE.items() if known == kind), "another kind")
        raise AutomationError(13, f"{got(value)} does not fit a reference to {name}")
    try:
        content = number_for(kind, value)
        _variant.PACKERS[kind].pack_into(place, offset, kind, content)
    except (struct.error, OverflowError, ValueError):
        raise AutomationError(6, f"{value!r} does not fit the reference") from None


def number_for(kind: int, value: Any) -> Any:
    """The number as the content of a kind; a half is rounded to the even neighbour."""
    if kind == _abi.VT_CY:
        return _variant.currency(Decimal(value))
    if kind == _abi.VT_BOOL:
        return -1 if value else 0
    return float(value) if kind in (_abi.VT_R4, _abi.VT_R8, _abi.VT_DATE) else round(value)


def take_reference(place: Any, ref: Ref) -> None:
    """Lets `ref` have what the member left in its place."""
    ref.value = _variant.take(place)


def store_reference(kind: int, address: int, value: Any) -> None:
    """Writes a value through a VARIANT of VT_BYREF and that kind, letting go of what was there."""
    if not address:
        return
    fresh = ctypes.create_string_buffer(_abi.VARIANT_SIZE)
    _variant.write(fresh, 0, value)
    (written,) = _variant.KIND.unpack_from(fresh, 0)
    try:
        if kind not in (VT_VARIANT, written):
            _store_number(kind, fresh, 0, value)
    except AutomationError:
        _variant.clear(fresh)
        raise
    if kind == VT_VARIANT:
        library().VariantClear(address)
        ctypes.memmove(address, fresh, _abi.VARIANT_SIZE)
        return
    size = 8 if kind & VT_ARRAY else _variant.CONTENTS[kind].size
    if _variant.owns(kind):
        old = ctypes.create_string_buffer(_abi.VARIANT_SIZE)
        _variant.POINTER.pack_into(old, 0, kind, _variant.ADDRESS.unpack(ctypes.string_at(address, 8))[0])
        _variant.clear(old)
    ctypes.memmove(address, ctypes.addressof(fresh) + 8, size)
