"""Walking over what an object of the library holds, through its IEnumVARIANT."""

from __future__ import annotations

import ctypes
from typing import Any

from . import _abi, _variant
from ._pointers import function_at
from .errors import check


class Enumerator:
    """An iterator over an IEnumVARIANT, whose count it takes over."""

    def __init__(self, pointer: int) -> None:
        self._this = ctypes.c_void_p(pointer)
        self._next = function_at(pointer, _abi.ENUM_NEXT)
        # Held here, since modules may be gone when the last iterator goes.
        self._release = function_at(pointer, _abi.RELEASE, _abi.UNCHECKED_COUNT)

    def __iter__(self) -> "Enumerator":
        return self

    def __next__(self) -> Any:
        place = ctypes.create_string_buffer(_abi.VARIANT_SIZE)
        fetched = ctypes.c_uint32()
        result = self._next(self._this, 1, place, ctypes.byref(fetched))
        check(result, "Next")
        if result != _abi.S_OK or not fetched.value:
            raise StopIteration
        return _variant.take(place)

    def __del__(self) -> None:
        self._release(self._this)
