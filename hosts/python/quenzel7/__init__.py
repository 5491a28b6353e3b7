"""Quenzel7 from Python: the elements of operator panels' pages, late-bound over the library's binary
interface.

    import quenzel7 as q
    rectangle = q.create("clsRectangle", Xs=10, Ys=20, Dx=100, Dy=50)
    rectangle.Move(5, 0)
    x, y, dx, dy = (q.Ref() for _ in range(4))
    rectangle.GetBoundingRect(x, y, dx, dy)
    rectangle.ItfHmiElement.ElementType

Classes (q.clsRectangle, which can be called as well) and enumerations (q.enVarType.eVT_Numeric) are
attributes of the package, made from what the library tells of itself; q.enums has the enumerations alone.
Errors are AutomationError with the run-time's number. Objects belong to the thread that made them.
"""

from __future__ import annotations

from typing import Any, List

from . import _host_tables, _services
from ._library import LibraryNotFoundError
from ._services import create
from ._platform import platform
from ._property_bag import Bag, property_bag
from ._types import types as _type_information
from .arrays import CollisionMap, Null, Ref
from .errors import AutomationError, UnknownMemberError, spelling, unknown_name
from .project import Project
from .surface import Surface
from ._version import __version__

__all__ = [
    "AutomationError",
    "Bag",
    "CollisionMap",
    "LibraryNotFoundError",
    "Null",
    "Project",
    "Ref",
    "Surface",
    "UnknownMemberError",
    "__version__",
    "collection",
    "create",
    "enums",
    "platform",
    "property_bag",
]


class _Enumerations:
    """The enumerations of the library: `enums.enVarType.eVT_Numeric`."""

    def __getattr__(self, name: str) -> Any:
        if name.startswith("_"):
            raise AttributeError(name)
        names = _type_information().enumeration_names()
        known = spelling(name, names)
        if known is None:
            raise AttributeError(unknown_name("there is no enumeration", name, names))
        return _type_information().enumeration(known)

    def __dir__(self) -> List[str]:
        return _type_information().enumeration_names()


enums = _Enumerations()


def collection(*items: Any, **keyed: Any) -> Any:
    """A new Collection with these values: the ones without a name have no key, the others follow them under
    theirs. `Add(value, "any key")` adds one under a key that is no name."""
    made = _services.host_services().NewCollection()
    for item in items:
        made.Add(item)
    for key, item in keyed.items():
        made.Add(item, key)
    return made


def __getattr__(name: str) -> Any:
    text = f"module {__name__!r} has no attribute"
    if name.startswith("_"):
        raise AttributeError(f"{text} {name!r}")
    enumerations, classes = _type_information().enumeration_names(), _type_information().class_names()
    known = spelling(name, enumerations)
    if known is not None:
        return _type_information().enumeration(known)
    known = spelling(name, classes)
    if known is not None:
        return _services.class_of_python(known)
    raise AttributeError(unknown_name(text, name, [*__all__, *enumerations, *classes]))


def __dir__() -> List[str]:
    try:
        told = _type_information()
    except LibraryNotFoundError:
        return sorted(__all__)
    return sorted({*__all__, *told.enumeration_names(), *told.class_names()})
