"""Classes of Python made from type information: one for each face of each class, with a property or a method
for every member, so that dir(), help() and completion tell what an object can do.

The face of the default interface has the name of its class; another one is `clsRectangle.ItfHmiElement`. What
only another interface has can be used on the default face too, by way of that other one.
"""

from __future__ import annotations

import functools
import inspect
from decimal import Decimal
from typing import Any, Dict, List, Type

from . import _abi, _members
from ._dispatch import Counted, Dispatch, Indexed, Rows, Unwalked, Walked, attribute_writer, face_of
from .arrays import Ref
from ._types import ClassInfo, Member, TypeLibrary
from .errors import AutomationError, WriteOnlyMemberError

# What repr() shows of an object, when its class has it: cheap to read, and enough to tell objects apart.
_SHOWN = (
    "ID", "Name", "VarName", "Value", "Txt", "Format", "ListCount", "Number", "Count", "Xs", "Ys", "Dx", "Dy",
)  # fmt: skip
# What Python has for the types; the others are classes.
_PYTHON_TYPES: Dict[str, Any] = {
    "Boolean": bool, "Byte": int, "Integer": int, "Long": int, "Single": float, "Double": float,
    "Currency": Decimal, "String": str, "Object": Any, "Variant": Any, "Byte()": bytes, "Integer()": list,
    "Long()": list, "String()": list, "": None,
}  # fmt: skip
_NOT_THERE = inspect.Parameter.empty


def _access(member: Member) -> str:
    """How a property can be used, in words."""
    if member.get:
        return "read/write" if member.put or member.putref else "read only"
    return "write only"


def _type_name(type_name: str, enumeration: str = "") -> str:
    return enumeration or type_name


def _documentation(member: Member) -> str:
    """The text of help(): what Python does not know of the member, then what the library says of it."""
    type_name = _type_name(member.type, member.enumeration)
    if not member.is_method:
        head = f"{member.name} As {type_name} ({_access(member)})"
    else:
        parameters = []
        for parameter in member.parameters:
            as_type = _type_name(parameter.type, parameter.enumeration)
            text = ("ByRef " if parameter.byref else "") + f"{parameter.name} As {as_type}"
            if parameter.default is not None:
                text += f" = {parameter.default}"
            parameters.append(f"[{text}]" if parameter.optional else text)
        head = f"{member.name}({', '.join(parameters)})" + (f" As {type_name}" if type_name else "")
    return f"{head}\n\n{member.doc}" if member.doc else head


def _annotation(types: TypeLibrary, type_name: str, enumeration: str) -> Any:
    """The type of Python that a value has; the name of a class of the library."""
    if enumeration:
        return types.enumeration(enumeration)
    return _PYTHON_TYPES.get(type_name, type_name)


def _signature(types: TypeLibrary, member: Member) -> inspect.Signature:
    parameters = [inspect.Parameter("self", inspect.Parameter.POSITIONAL_ONLY)]
    for parameter in member.parameters:
        parameters.append(
            inspect.Parameter(
                parameter.name,
                inspect.Parameter.POSITIONAL_OR_KEYWORD,
                default=parameter.default if parameter.optional else _NOT_THERE,
                annotation=Ref if parameter.byref else _annotation(types, parameter.type, parameter.enumeration),
            )
        )
    return inspect.Signature(
        parameters, return_annotation=_annotation(types, member.type, member.enumeration)
    )


def _refused_reader(owner: str, member: Member) -> Any:
    def read(self: Any) -> Any:
        raise WriteOnlyMemberError(394, f"{owner}.{member.name} can only be written")

    return read


def _refused_writer(owner: str, name: str, number: int, text: str) -> Any:
    def write(self: Any, value: Any) -> None:
        raise AutomationError(number, f"{owner}.{name} {text}")

    return write


def _bind(
    types: TypeLibrary, owner: str, member: Member, into: Dict[str, Any], writers: Dict[str, Any]
) -> None:
    """Adds what Python needs for one member to the contents of a class."""
    enumeration = types.enumeration(member.enumeration) if member.enumeration else None
    if member.is_method:
        method = _members.make_method(owner, member, enumeration)
        method.__name__ = member.name
        method.__qualname__ = f"{owner}.{member.name}"
        method.__doc__ = _documentation(member)
        method.__signature__ = _signature(types, member)  # type: ignore[attr-defined]
        into[member.name] = method
        writers[member.name] = _refused_writer(owner, member.name, 438, "is a method and cannot be written")
        return
    reader = _refused_reader(owner, member)
    if member.get:
        reader = _members.make_reader(owner, member, enumeration)
    if member.put or member.putref:
        writers[member.name] = _members.make_writer(owner, member)
    else:
        writers[member.name] = _refused_writer(owner, member.name, 383, "can only be read")
    into[member.name] = property(reader, writers[member.name], doc=_documentation(member))


def _bases(members: "tuple[Member, ...]") -> List[type]:
    """What the class is beside a proxy: something to walk over, to count, to index."""
    bases: List[type] = []
    if any(member.role == "enumerator" for member in members):
        bases.append(Walked)
    elif {"EOF", "MoveNext"} <= {member.name for member in members}:
        bases.append(Rows)
    elif any(member.role == "value" for member in members):
        bases.append(Unwalked)
    if any(member.name == "Count" and not member.is_method for member in members):
        bases.append(Counted)
    if any(member.role == "value" for member in members):
        bases.append(Indexed)
    return [*bases, Dispatch]


def _face_property(types: TypeLibrary, class_name: str, interface: str) -> property:
    number = _abi.guid(types.interface(interface).iid)

    def read(self: Dispatch) -> Dispatch:
        return face_of(self, number, python_class(types, class_name, interface))

    return property(read, doc=f"The same object by its interface {interface}.")


def python_class(types: TypeLibrary, class_name: str, interface: str = "") -> Type[Dispatch]:
    """The class of Python for one face of a class, that of the default interface when none is named."""
    info = types.class_info(class_name)
    default = info.interfaces[0]
    wanted = interface or default
    return types.kept(f"python {class_name}", wanted, lambda: _make(types, class_name, wanted, default))


def _by_way_of(interface: str, other: property, made: Any) -> Any:
    """What `_bind` made for a member of another interface, for the default face."""

    def face(self: Dispatch) -> Dispatch:
        found = self._faces.get(interface)
        if found is None:
            found = self._faces[interface] = other.fget(self)  # type: ignore[misc]
        return found

    def call(self: Dispatch, *arguments: Any, **named: Any) -> Any:
        return made(face(self), *arguments, **named)

    if not isinstance(made, property):
        return functools.wraps(made, updated=("__dict__",))(call)
    return property(lambda self: made.fget(face(self)), doc=made.__doc__)  # type: ignore[misc]


def _add_others(types: TypeLibrary, info: ClassInfo, into: Dict[str, Any], writers: Dict[str, Any]) -> None:
    """Adds the members that only interfaces beside the default one have, in their order."""
    for interface in info.interfaces[1:]:
        other = into[interface]
        for member in types.interface(interface).members:
            if member.name in into:
                continue
            made: Dict[str, Any] = {}
            made_writers: Dict[str, Any] = {}
            _bind(types, info.name, member, made, made_writers)
            into[member.name] = _by_way_of(interface, other, made[member.name])
            writers[member.name] = _by_way_of(interface, other, made_writers[member.name])


def _underivable(cls: type, **_: Any) -> None:
    base = cls.__mro__[1]
    raise TypeError(
        f"{base.__qualname__} lives in the library and cannot be derived from: its objects are made there. Hold one in"
        " a class of your own instead"
    )


def _make(types: TypeLibrary, class_name: str, interface: str, default: str) -> Type[Dispatch]:
    info = types.class_info(class_name)
    members = types.interface(interface).members
    owner = class_name if interface == default else f"{class_name}.{interface}"
    writers: Dict[str, Any] = {}
    contents: Dict[str, Any] = {
        "__slots__": (),
        "__module__": "quenzel7",
        "__init_subclass__": classmethod(_underivable),
        "__qualname__": owner,
        "__doc__": f"{class_name}, by its interface {interface}. Interfaces: {', '.join(info.interfaces)}.",
        "default": _face_property(types, class_name, default),
    }
    for name in info.interfaces:
        contents[name] = _face_property(types, class_name, name)
    if interface == default:
        _add_others(types, info, contents, writers)
    for name in ("default", *info.interfaces):
        writers[name] = _refused_writer(owner, name, 383, "can only be read")
    for member in members:
        _bind(types, owner, member, contents, writers)
    contents["_owner"] = owner
    contents["__setattr__"] = attribute_writer(writers)
    contents["_names"] = {name.lower(): name for name in writers}
    contents["_shown"] = tuple(
        name for name in _SHOWN if any(m.name == name and m.get and not m.is_method for m in members)
    )
    return type(owner.rpartition(".")[2], tuple(_bases(members)), contents)
