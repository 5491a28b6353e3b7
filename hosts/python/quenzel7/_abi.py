"""The binary interface: layouts, numbers and prototypes, as server/quenzel7_automation.h declares them.

Values are read and written with `struct` on plain memory: a VARIANT is 24 bytes, its kind in the first two,
its content from the eighth on.
"""

from __future__ import annotations

import ctypes
import functools
import struct
import uuid
from ctypes import POINTER, c_char_p, c_int32, c_uint16, c_uint32, c_void_p
from typing import Any

# What a VARIANT holds.
VT_EMPTY = 0
VT_NULL = 1
VT_I2 = 2
VT_I4 = 3
VT_R4 = 4
VT_R8 = 5
VT_CY = 6
VT_DATE = 7
VT_BSTR = 8
VT_DISPATCH = 9
VT_ERROR = 10
VT_BOOL = 11
VT_VARIANT = 12
VT_UNKNOWN = 13
VT_I1 = 16
VT_UI1 = 17
VT_UI2 = 18
VT_UI4 = 19
VT_I8 = 20
VT_UI8 = 21
VT_INT = 22
VT_UINT = 23
VT_ARRAY = 0x2000
VT_BYREF = 0x4000

# Results; those below 0 are failures.
S_OK = 0
S_FALSE = 1


def _failure(number: int) -> int:
    """A failure as the signed number that functions give."""
    return number - 0x100000000


E_NOTIMPL = _failure(0x80004001)
E_NOINTERFACE = _failure(0x80004002)
E_POINTER = _failure(0x80004003)
E_FAIL = _failure(0x80004005)
E_UNEXPECTED = _failure(0x8000FFFF)
E_OUTOFMEMORY = _failure(0x8007000E)
E_INVALIDARG = _failure(0x80070057)
RPC_E_WRONG_THREAD = _failure(0x8001010E)
CLASS_E_NOAGGREGATION = _failure(0x80040110)
CLASS_E_CLASSNOTAVAILABLE = _failure(0x80040111)
SELFREG_E_CLASS = _failure(0x80040201)
DISP_E_UNKNOWNINTERFACE = _failure(0x80020001)
DISP_E_MEMBERNOTFOUND = _failure(0x80020003)
DISP_E_PARAMNOTFOUND = _failure(0x80020004)
DISP_E_TYPEMISMATCH = _failure(0x80020005)
DISP_E_UNKNOWNNAME = _failure(0x80020006)
DISP_E_NONAMEDARGS = _failure(0x80020007)
DISP_E_BADVARTYPE = _failure(0x80020008)
DISP_E_EXCEPTION = _failure(0x80020009)
DISP_E_OVERFLOW = _failure(0x8002000A)
DISP_E_BADINDEX = _failure(0x8002000B)
DISP_E_ARRAYISLOCKED = _failure(0x8002000D)
DISP_E_BADPARAMCOUNT = _failure(0x8002000E)
DISP_E_PARAMNOTOPTIONAL = _failure(0x8002000F)
DISP_E_DIVBYZERO = _failure(0x80020012)

# How a member is called.
DISPATCH_METHOD = 1
DISPATCH_PROPERTYGET = 2
DISPATCH_PROPERTYPUT = 4
DISPATCH_PROPERTYPUTREF = 8

# Numbers of members that every host knows.
DISPID_UNKNOWN = -1
DISPID_VALUE = 0
DISPID_PROPERTYPUT = -3
DISPID_NEWENUM = -4


@functools.lru_cache(maxsize=None)
def guid(text: str) -> bytes:
    """The sixteen bytes of a number that people write as "{00020400-0000-0000-C000-000000000046}"."""
    return uuid.UUID(text).bytes_le


IID_NULL = bytes(16)
IID_IUNKNOWN = guid("{00000000-0000-0000-C000-000000000046}")
IID_ICLASSFACTORY = guid("{00000001-0000-0000-C000-000000000046}")
IID_IDISPATCH = guid("{00020400-0000-0000-C000-000000000046}")
IID_IENUMVARIANT = guid("{00020404-0000-0000-C000-000000000046}")

# Places of functions in the tables of objects.
QUERY_INTERFACE = 0
ADD_REF = 1
RELEASE = 2
CREATE_INSTANCE = 3
GET_TYPE_INFO_COUNT = 3
GET_TYPE_INFO = 4
GET_IDS_OF_NAMES = 5
INVOKE = 6
ENUM_NEXT = 3
ENUM_SKIP = 4
ENUM_RESET = 5
ENUM_CLONE = 6

VARIANT_SIZE = 24
# wCode, bstrSource, bstrDescription, bstrHelpFile, pfnDeferredFillIn, scode.
EXCEPINFO = struct.Struct("<H6xQQQ16xQi4x")
# rgvarg, rgdispidNamedArgs, cArgs, cNamedArgs.
DISPPARAMS = struct.Struct("<QQII")
# cDims, fFeatures, cbElements, cLocks, pvData; the bounds follow.
SAFEARRAY = struct.Struct("<HHII4xQ")
# cElements, lLbound.
SAFEARRAYBOUND = struct.Struct("<Ii")

# How the content of each kind lies in a VARIANT; in an array the same without what is around it.
CONTENT_FORMATS = {
    VT_I2: "h", VT_I4: "i", VT_R4: "f", VT_R8: "d", VT_CY: "q", VT_DATE: "d", VT_BSTR: "Q", VT_DISPATCH: "Q",
    VT_ERROR: "i", VT_BOOL: "h", VT_UNKNOWN: "Q", VT_I1: "b", VT_UI1: "B", VT_UI2: "H", VT_UI4: "I",
    VT_I8: "q", VT_UI8: "Q", VT_INT: "i", VT_UINT: "I",
}  # fmt: skip

# Every function of the library: its result and its arguments. Pointers to memory are plain addresses or
# anything that ctypes passes as one.
PROTOTYPES: dict[str, tuple[Any, tuple[Any, ...]]] = {
    "SysAllocStringByteLen": (c_void_p, (c_char_p, c_uint32)),
    "SysFreeString": (None, (c_void_p,)),
    "SysStringByteLen": (c_uint32, (c_void_p,)),
    "VariantClear": (c_int32, (c_void_p,)),
    "VariantCopy": (c_int32, (c_void_p, c_void_p)),
    "SafeArrayCreate": (c_void_p, (c_uint16, c_uint32, c_void_p)),
    "SafeArrayDestroy": (c_int32, (c_void_p,)),
    "SafeArrayCopy": (c_int32, (c_void_p, c_void_p)),
    "SafeArrayGetVartype": (c_int32, (c_void_p, c_void_p)),
    "DllGetClassObject": (c_int32, (c_char_p, c_char_p, c_void_p)),
    "DllCanUnloadNow": (c_int32, ()),
    "DllRegisterServer": (c_int32, ()),
    "DllUnregisterServer": (c_int32, ()),
    "Quenzel7ClassIdFromName": (c_int32, (c_char_p, c_void_p)),
    "Quenzel7InterfaceIdFromName": (c_int32, (c_char_p, c_void_p)),
    "Quenzel7GetHostServices": (c_int32, (c_void_p,)),
    "Quenzel7SurfaceCreate": (c_int32, (c_int32, c_int32, c_uint32, c_void_p)),
    "Quenzel7SurfaceContext": (c_int32, (c_void_p, POINTER(c_int32))),
    "Quenzel7SurfaceSize": (c_int32, (c_void_p, POINTER(c_int32), POINTER(c_int32))),
    "Quenzel7SurfacePixels": (c_int32, (c_void_p, c_void_p, c_uint32)),
    "Quenzel7SurfacePng": (c_int32, (c_void_p, c_void_p)),
    "Quenzel7SurfaceSavePng": (c_int32, (c_void_p, c_char_p)),
    "Quenzel7SurfaceDestroy": (c_int32, (c_void_p,)),
    "Quenzel7LastError": (c_char_p, ()),
}

# A function of an object, called without checks of its arguments: whoever calls it gives ctypes objects, None
# or small numbers. A check of each of nine arguments would cost as much as the call.
UNCHECKED_RESULT = ctypes.CFUNCTYPE(c_int32)
UNCHECKED_COUNT = ctypes.CFUNCTYPE(c_uint32)


def utf16(text: str) -> bytes:
    """The text as UTF-16 without an end; halves of a surrogate pair pass as they are."""
    return text.encode("utf-16-le", "surrogatepass")


def wide(text: str) -> bytes:
    """The text as UTF-16 that ends in a zero."""
    return utf16(text) + b"\0\0"
