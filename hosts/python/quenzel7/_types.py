"""Type information: classes, interfaces, members and enumerations, from the text in which the library tells
them (HostServices.Describe). The text is fetched once; what it says of a class is looked at when the class is
first used. `_classes` makes classes of Python from it.
"""

from __future__ import annotations

import json
import threading
from dataclasses import dataclass
from enum import IntEnum
from typing import Any, Callable, Dict, List, Mapping, Optional, Tuple, Type

from .errors import AutomationError, unknown_name


@dataclass(frozen=True)
class Parameter:
    """One parameter of a method."""

    name: str
    type: str
    byref: bool = False
    optional: bool = False
    default: Optional[int] = None
    enumeration: str = ""


@dataclass(frozen=True)
class Member:
    """A property or a method of an interface, with the number by which it is called."""

    name: str
    number: int
    is_method: bool
    type: str = ""
    enumeration: str = ""
    get: bool = False
    put: bool = False
    putref: bool = False
    role: str = ""
    mark: str = ""
    parameters: Tuple[Parameter, ...] = ()
    doc: str = ""


@dataclass(frozen=True)
class Interface:
    """A published interface: its members in slot order."""

    name: str
    iid: str
    members: Tuple[Member, ...]


@dataclass(frozen=True)
class ClassInfo:
    """A class and the names of its interfaces, the default one first."""

    name: str
    progid: str
    clsid: str
    creatable: bool
    interfaces: Tuple[str, ...]


def _member(told: Mapping[str, Any]) -> Member:
    parameters = tuple(
        Parameter(
            parameter["name"],
            parameter["type"],
            parameter.get("byref", False),
            parameter.get("optional", False),
            parameter.get("default"),
            parameter.get("enumeration", ""),
        )
        for parameter in told.get("parameters", ())
    )
    return Member(
        name=told["name"],
        number=told["id"],
        is_method=told["kind"] == "method",
        type=told.get("type", ""),
        enumeration=told.get("enumeration", ""),
        get=told.get("get", False),
        put=told.get("put", False),
        putref=told.get("putref", False),
        role=told.get("role", ""),
        mark=told.get("mark", ""),
        parameters=parameters,
        doc=told.get("doc", ""),
    )


class TypeLibrary:
    """Everything that a text of type information tells."""

    def __init__(self, text: str) -> None:
        told = json.loads(text)
        self._classes: Dict[str, Any] = {one["name"]: one for one in told["classes"]}
        self._interfaces: Dict[str, Any] = {one["name"]: one for one in told["interfaces"]}
        self._enumerations: Dict[str, Any] = {one["name"]: one for one in told["enumerations"]}
        self._made: Dict[Tuple[str, str], Any] = {}
        others = {name for one in self._classes.values() for name in one["interfaces"][1:]}
        # A default interface that other classes have too tells a class only when nothing else does.
        self._shared = [name for name, one in self._classes.items() if one["interfaces"][0] in others]
        self._found_first = [name for name in self._classes if name not in self._shared]

    def class_names(self) -> List[str]:
        """The classes, those that hosts can create first."""
        return list(self._classes)

    def interface_names(self) -> List[str]:
        """The interfaces."""
        return list(self._interfaces)

    def enumeration_names(self) -> List[str]:
        """The enumerations."""
        return list(self._enumerations)

    def kept(self, kind: str, name: str, make: Callable[[], Any]) -> Any:
        """What was made of that kind under that name, made when it is first asked for."""
        key = (kind, name)
        if key not in self._made:
            self._made.setdefault(key, make())
        return self._made[key]

    def class_info(self, name: str) -> ClassInfo:
        """A class by its name; error 429 naming the nearest when there is none."""
        if name not in self._classes:
            raise AutomationError(429, unknown_name("there is no class", name, self._classes))

        def make() -> ClassInfo:
            told = self._classes[name]
            names = (told["name"], told.get("progid", ""), told.get("clsid", ""))
            return ClassInfo(*names, told.get("creatable", False), tuple(told["interfaces"]))

        return self.kept("class", name, make)

    def interface(self, name: str) -> Interface:
        """An interface by its name; error 5 naming the nearest when there is none."""
        if name not in self._interfaces:
            raise AutomationError(5, unknown_name("there is no interface", name, self._interfaces))

        def make() -> Interface:
            told = self._interfaces[name]
            return Interface(name, told["iid"], tuple(_member(member) for member in told["members"]))

        return self.kept("interface", name, make)

    def enumeration(self, name: str) -> Type[IntEnum]:
        """An enumeration as an IntEnum; error 5 naming the nearest when there is none."""
        if name not in self._enumerations:
            raise AutomationError(5, unknown_name("there is no enumeration", name, self._enumerations))

        def make() -> Type[IntEnum]:
            members = [(one["name"], one["value"]) for one in self._enumerations[name]["members"]]
            return IntEnum(name, members, module="quenzel7", qualname=name)  # type: ignore[return-value]

        return self.kept("enumeration", name, make)

    def class_of(self, has_interface: Callable[[str], bool], hint: str = "") -> Optional[str]:
        """The class whose default interface an object has; None when it is none of these.

        `has_interface` tells whether the object has the interface of that number. The class that it may be of
        is tried first, then those that were found last; last of all those whose default interface others have
        too.
        """
        order = self._found_first
        if hint in order and hint != order[0]:
            order = [hint, *order]
        for name in order:
            if has_interface(self._default_iid(name)):
                if name != self._found_first[0]:
                    self._found_first = [name, *(other for other in self._found_first if other != name)]
                return name
        return next((name for name in self._shared if has_interface(self._default_iid(name))), None)

    def _default_iid(self, name: str) -> str:
        return self.interface(self.class_info(name).interfaces[0]).iid


_lock = threading.RLock()
_types: Optional[TypeLibrary] = None
_fetch: Optional[Callable[[], str]] = None


def fetch_with(fetch: Callable[[], str]) -> None:
    """Tells how the text of the library is fetched."""
    global _fetch
    _fetch = fetch


def types() -> TypeLibrary:
    """The type information of the library, fetched when it is first asked for."""
    global _types
    if _types is None:
        with _lock:
            if _types is None:
                assert _fetch is not None
                _types = TypeLibrary(_fetch())
    return _types
