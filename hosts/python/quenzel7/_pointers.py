"""Objects of the binary interface as bare pointers: their functions, counts and interfaces."""

from __future__ import annotations

import ctypes
import struct
from typing import Any, Dict, Optional

from . import _abi
from .errors import check

_TABLE = struct.Struct("<7Q")
_NO_INTERFACE = ctypes.create_string_buffer(_abi.IID_NULL, 16)
IID_NULL_ARGUMENT = ctypes.byref(_NO_INTERFACE)
"""What Invoke and GetIDsOfNames get as their reserved interface number."""


class Functions:
    """The functions of IDispatch of one kind of objects."""

    __slots__ = ("query_interface", "add_ref", "release", "get_ids_of_names", "invoke")

    def __init__(self, addresses: "tuple[int, ...]") -> None:
        self.query_interface = _abi.UNCHECKED_RESULT(addresses[_abi.QUERY_INTERFACE])
        self.add_ref = _abi.UNCHECKED_COUNT(addresses[_abi.ADD_REF])
        self.release = _abi.UNCHECKED_COUNT(addresses[_abi.RELEASE])
        self.get_ids_of_names = _abi.UNCHECKED_RESULT(addresses[_abi.GET_IDS_OF_NAMES])
        self.invoke = _abi.UNCHECKED_RESULT(addresses[_abi.INVOKE])


# By what stands in the table rather than by where it is: memory of a table may become that of another one.
_functions: Dict[bytes, Functions] = {}


def functions_of(pointer: int) -> Functions:
    """The functions of the IDispatch at that address."""
    table = ctypes.string_at(ctypes.c_uint64.from_address(pointer).value, _TABLE.size)
    known = _functions.get(table)
    if known is None:
        known = _functions[table] = Functions(_TABLE.unpack(table))
    return known


def function_at(pointer: int, place: int, prototype: Any = _abi.UNCHECKED_RESULT) -> Any:
    """The function at a place of the table of the object at that address."""
    table = ctypes.c_uint64.from_address(pointer).value
    return prototype(ctypes.c_uint64.from_address(table + 8 * place).value)


def query(pointer: int, interface: bytes, functions: Optional[Functions] = None) -> Optional[int]:
    """The object's pointer for another interface, counted; None when it has no such interface. The functions
    of an IDispatch, if they are known, spare looking for them."""
    found = ctypes.c_void_p()
    ask = functions.query_interface if functions else function_at(pointer, _abi.QUERY_INTERFACE)
    result = ask(ctypes.c_void_p(pointer), interface, ctypes.byref(found))
    if result == _abi.E_NOINTERFACE:
        return None
    check(result, "QueryInterface")
    return found.value


def add_reference(pointer: int) -> None:
    """Counts one more holder."""
    function_at(pointer, _abi.ADD_REF, _abi.UNCHECKED_COUNT)(ctypes.c_void_p(pointer))


def release(pointer: int) -> None:
    """Counts one holder less."""
    function_at(pointer, _abi.RELEASE, _abi.UNCHECKED_COUNT)(ctypes.c_void_p(pointer))


def identity(pointer: int) -> int:
    """The address that is the same for every interface of an object, as long as it is held."""
    found = query(pointer, _abi.IID_IUNKNOWN)
    assert found is not None
    release(found)
    return found
