"""The way into the library: objects by class name, the services of the thread, type information."""

from __future__ import annotations

import ctypes
from typing import Any, Callable, Optional, Type

from . import _abi, _classes
from ._dispatch import Dispatch, adopt, classification, late
from ._frames import thread, with_cause
from ._library import library
from ._pointers import function_at, release
from ._types import fetch_with, types
from .errors import AutomationError, check, got, number_of_scode, result_error, spelling, unknown_name

_PREFIX = "Quenzel7."
_Out = ctypes.c_void_p


def _class_number(class_name: str) -> bytes:
    """The number of a class that can be created; error 429, naming the nearest when there is none, for any
    other."""
    if not isinstance(class_name, str):
        raise TypeError(f"the name of a class is wanted, as in create('clsRectangle'), got {got(class_name)}")
    number = ctypes.create_string_buffer(16)
    name = class_name if class_name.lower().startswith(_PREFIX.lower()) else _PREFIX + class_name
    result = library().Quenzel7ClassIdFromName(_abi.wide(name), number)
    if result == _abi.CLASS_E_CLASSNOTAVAILABLE:
        known = spelling(name[len(_PREFIX) :], types().class_names())
        creatable = [one for one in types().class_names() if types().class_info(one).creatable]
        text = unknown_name("there is no class to create named", class_name, creatable)
        if known is not None:
            text = f"{known} exists but hosts cannot create it"
        error = AutomationError(429, text)
        error.result = result
        raise error
    check(result, class_name)
    return number.raw


def _failure(result: int, class_name: str) -> AutomationError:
    """The exception of an object that could not be made: what its class raised, if it raised something."""
    if number_of_scode(0, result) == result:
        error = result_error(result, class_name)
    else:
        text = (library().Quenzel7LastError() or b"").decode("utf-8", "replace")
        error = AutomationError(number_of_scode(0, result), text)
        error.result = result
    return with_cause(error)


def create(class_name: str, **properties: Any) -> Any:
    """A new object of the class: `create("clsRectangle")`, `create("clsRectangle", Xs=10, Ys=20)`.

    The case of the name does not matter, and "Quenzel7.clsRectangle" is good too. Properties are written in
    the order given. Error 429, naming the nearest if there is none of the name, for a class that
    cannot be created.
    """
    number = _class_number(class_name)
    factory = _Out()
    check(library().DllGetClassObject(number, _abi.IID_ICLASSFACTORY, ctypes.byref(factory)), class_name)
    assert factory.value is not None
    try:
        made = _Out()
        make = function_at(factory.value, _abi.CREATE_INSTANCE)
        # What was raised before cannot be the cause of what this call may raise.
        thread.raised = None
        result = make(factory, None, _abi.IID_IDISPATCH, ctypes.byref(made))
        if result < 0:
            raise _failure(result, class_name)
    finally:
        release(factory.value)
    assert made.value is not None
    plain = class_name[len(_PREFIX) :] if class_name.lower().startswith(_PREFIX.lower()) else class_name
    known = spelling(plain, types().class_names())
    assert known is not None
    proxy = adopt(_classes.python_class(types(), known), made.value)
    for name, value in properties.items():
        setattr(proxy, name, value)
    return proxy


def _services_pointer() -> int:
    services = _Out()
    check(library().Quenzel7GetHostServices(ctypes.byref(services)), "Quenzel7GetHostServices")
    assert services.value is not None
    return services.value


def host_services() -> Any:
    """The services of this thread, as the library's object HostServices."""
    return adopt(_classes.python_class(types(), "HostServices"), _services_pointer())


def _describe() -> str:
    return str(late(_services_pointer()).Describe(""))


def _python_class(has_interface: Callable[[str], bool], hint: str) -> Optional[Type[Dispatch]]:
    name = types().class_of(has_interface, hint)
    return None if name is None else _classes.python_class(types(), name)


fetch_with(_describe)
classification.python_class = _python_class
classification.create = create  # type: ignore[method-assign]


def class_of_python(class_name: str) -> Type[Dispatch]:
    """The class of Python that objects of that class have."""
    return _classes.python_class(types(), class_name)
