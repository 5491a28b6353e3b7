"""Arrays of the binary interface.

    bytes, bytearray, memoryview  VT_UI1            CollisionMap           VT_UI1, two dimensions
    list or tuple of int          VT_I4             lists of equal length  two dimensions, [i][j] at (i, j)
    of str, of float, of bool     VT_BSTR, VT_R8, VT_BOOL
    of anything else, or mixed    VT_VARIANT

What comes back: bytes for one dimension of VT_UI1, CollisionMap for two from index 0, lists for all others.
Cells lie with the first index running fastest.
"""

from __future__ import annotations

import ctypes
import struct
from typing import Any, Callable, List, Sequence, Tuple, Union

from . import _abi
from ._library import library
from .arrays import CollisionMap
from .errors import AutomationError, result_error

# Kinds of cells by the declared type of the array.
_CELLS_OF_TYPE = {
    "Boolean()": _abi.VT_BOOL, "Byte()": _abi.VT_UI1, "Integer()": _abi.VT_I2, "Long()": _abi.VT_I4,
    "Single()": _abi.VT_R4, "Double()": _abi.VT_R8, "String()": _abi.VT_BSTR, "Variant()": _abi.VT_VARIANT,
}  # fmt: skip
_MOST_CELLS = 0x7FFFFFFF


class _Cells:
    """How cells that are VARIANTs are written and read; `_variant` sets it."""

    write: Callable[..., None]
    read: Callable[..., Any]
    read_content: Callable[..., Any]


_cells = _Cells()


def cells_with(write: Callable[..., None], read: Callable[..., Any], content: Callable[..., Any]) -> None:
    """Tells how single values are written and read."""
    _cells.write, _cells.read, _cells.read_content = write, read, content


def make(value: Any, kind: str = "") -> Tuple[int, int]:
    """The kind of cells and the address of a new array with the value; `kind` is its declared type."""
    if isinstance(value, CollisionMap):
        return _abi.VT_UI1, _filled(_abi.VT_UI1, (value.width + 1, value.height + 1), value.cells)
    if isinstance(value, (bytes, bytearray, memoryview)):
        data = bytes(value)
        return _abi.VT_UI1, _filled(_abi.VT_UI1, (len(data),), data)
    sizes, cells = _flattened(value)
    wanted = _CELLS_OF_TYPE.get(kind) or _kind_of_cells(cells)
    return wanted, _of_cells(wanted, sizes, cells)


def _flattened(value: Sequence[Any]) -> Tuple[Tuple[int, ...], Sequence[Any]]:
    """The sizes of the dimensions, and the cells with the first index running fastest."""
    if value and all(isinstance(row, (list, tuple)) for row in value):
        columns = len(value[0])
        if columns and all(len(row) == columns for row in value):
            return (len(value), columns), [cell for column in zip(*value) for cell in column]
    return (len(value),), value


def _kind_of_cells(cells: Sequence[Any]) -> int:
    """The kind that holds all cells, VT_VARIANT when there is no narrower one."""
    if not cells:
        return _abi.VT_VARIANT
    for kind, base in ((_abi.VT_BOOL, bool), (_abi.VT_BSTR, str), (_abi.VT_R8, float)):
        if all(isinstance(cell, base) for cell in cells):
            return kind
    if all(isinstance(cell, int) and not isinstance(cell, bool) for cell in cells):
        if -0x80000000 <= min(cells) and max(cells) <= 0x7FFFFFFF:
            return _abi.VT_I4
    return _abi.VT_VARIANT


def _create(kind: int, sizes: Tuple[int, ...]) -> int:
    """A new array with indices from 0."""
    if max(sizes) > _MOST_CELLS:
        raise AutomationError(7)
    bounds = b"".join(_abi.SAFEARRAYBOUND.pack(size, 0) for size in sizes)
    array = library().SafeArrayCreate(kind, len(sizes), bounds)
    if not array:
        raise AutomationError(7)
    return array


def _data_of(array: int) -> int:
    """Where the cells are."""
    return _abi.SAFEARRAY.unpack(ctypes.string_at(array, _abi.SAFEARRAY.size))[4]


def _filled(kind: int, sizes: Tuple[int, ...], data: Union[bytes, bytearray]) -> int:
    """A new array with these bytes as its cells."""
    array = _create(kind, sizes)
    # A bytearray is copied from where it is: a map of a page has hundreds of thousands of cells.
    source = (ctypes.c_char * len(data)).from_buffer(data) if isinstance(data, bytearray) else data
    ctypes.memmove(_data_of(array), source, len(data))
    return array


def _of_cells(kind: int, sizes: Tuple[int, ...], cells: Sequence[Any]) -> int:
    """A new array of single values."""
    if kind not in (_abi.VT_BSTR, _abi.VT_VARIANT):
        return _filled(kind, sizes, _packed(kind, cells))
    array = _create(kind, sizes)
    try:
        for place, cell in enumerate(cells):
            _put_cell(kind, _data_of(array), place, cell)
    except BaseException:
        library().SafeArrayDestroy(array)
        raise
    return array


def _packed(kind: int, cells: Sequence[Any]) -> bytes:
    """Numbers as cells; errors 13 and 6."""
    if kind == _abi.VT_BOOL:
        cells = [-1 if cell else 0 for cell in cells]
    try:
        return struct.pack(f"<{len(cells)}{_abi.CONTENT_FORMATS[kind]}", *cells)
    except (struct.error, OverflowError):
        for place, cell in enumerate(cells):
            if not isinstance(cell, (int, float)):
                raise AutomationError(13, f"cell {place} is {cell!r}, no number") from None
        raise AutomationError(6, "a cell of the array does not fit") from None


def _put_cell(kind: int, data: int, place: int, cell: Any) -> None:
    """Writes one text or variant into a cell that holds nothing."""
    if kind == _abi.VT_VARIANT:
        address = data + place * _abi.VARIANT_SIZE
        _cells.write((ctypes.c_char * _abi.VARIANT_SIZE).from_address(address), 0, cell)
        return
    if not isinstance(cell, str):
        raise AutomationError(13, f"cell {place} is {cell!r}, no text")
    encoded = _abi.utf16(cell)
    text = library().SysAllocStringByteLen(encoded, len(encoded))
    if not text:
        raise AutomationError(7)
    ctypes.c_uint64.from_address(data + place * 8).value = text


def _bounds(array: int, dimensions: int) -> List[Tuple[int, int]]:
    """Sizes and lower bounds, of the first dimension first."""
    raw = ctypes.string_at(array + _abi.SAFEARRAY.size, dimensions * _abi.SAFEARRAYBOUND.size)
    return list(_abi.SAFEARRAYBOUND.iter_unpack(raw))[::-1]


def read(kind: int, array: int) -> Any:
    """The cells of an array, which is left as it is; None when there is no array."""
    if not array:
        return None
    dimensions, _, size, _, data = _abi.SAFEARRAY.unpack(ctypes.string_at(array, _abi.SAFEARRAY.size))
    bounds = _bounds(array, dimensions)
    if not 1 <= dimensions <= 2:
        raise AutomationError(13, f"an array of {dimensions} dimensions")
    count = bounds[0][0] * (bounds[1][0] if dimensions == 2 else 1)
    raw = ctypes.string_at(data, count * size) if count else b""
    if kind == _abi.VT_UI1:
        if dimensions == 1:
            return raw
        if bounds[0][1] == bounds[1][1] == 0 and count:
            cells = CollisionMap(bounds[0][0] - 1, bounds[1][0] - 1)
            cells.cells[:] = raw
            return cells
    flat = _values(kind, raw, count, size)
    if dimensions == 1:
        return flat
    return [flat[first :: bounds[0][0]] for first in range(bounds[0][0])]


def _values(kind: int, raw: bytes, count: int, size: int) -> List[Any]:
    """The cells as values, in the order in which they lie."""
    if kind == _abi.VT_VARIANT:
        return [_cells.read(raw, place * size) for place in range(count)]
    form = _abi.CONTENT_FORMATS.get(kind)
    if form is None:
        raise result_error(_abi.DISP_E_BADVARTYPE, f"an array with cells of kind {kind}")
    if kind in (_abi.VT_BOOL, _abi.VT_CY, _abi.VT_BSTR, _abi.VT_DISPATCH, _abi.VT_UNKNOWN, _abi.VT_ERROR):
        return [_cells.read_content(kind, raw, place * size) for place in range(count)]
    return list(struct.unpack(f"<{count}{form}", raw))
