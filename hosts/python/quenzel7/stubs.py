"""Writes the type stub of the package, for editors and type checkers: `python3 -m quenzel7.stubs`.

What the library tells of its classes and enumerations is written out, so that completion knows every member;
what stands in the package's own files is passed on.
"""

from __future__ import annotations

import keyword
import textwrap
from pathlib import Path
from typing import Dict, Iterable, List, Optional, Set

from ._types import Member, Parameter, TypeLibrary, types

FILE = Path(__file__).with_name("__init__.pyi")
_WIDTH = 110
_HEAD = '''\
# Written by `python3 -m quenzel7.stubs`: change what the library tells of its members, not this file.
# A contract is a base here of the classes that have it, so that each member stands once.
# mypy: disable-error-code="override,misc"
from decimal import Decimal
from enum import IntEnum
from typing import Any, Iterator, List, Literal, SupportsIndex, Type, Union, overload

from ._library import LibraryNotFoundError as LibraryNotFoundError
from ._platform import platform as platform
from ._property_bag import Bag as Bag
from ._property_bag import property_bag as property_bag
from ._version import __version__ as __version__
from .arrays import CollisionMap as CollisionMap
from .arrays import Null as Null
from .arrays import Ref as Ref
from .errors import AutomationError as AutomationError
from .errors import UnknownMemberError as UnknownMemberError
from .project import Project as Project
from .surface import Surface as Surface

_Bytes = Union[bytes, bytearray, memoryview]

class _Object:
    """An object of the library. Names are found in any case, but only their published spelling is known here,
    so that a misspelt one is told."""
'''
_READ: Dict[str, str] = {
    "Boolean": "bool", "Byte": "int", "Integer": "int", "Long": "int", "Single": "float", "Double": "float",
    "Currency": "Decimal", "String": "str", "Object": "Any", "Variant": "Any", "": "None",
    "Byte()": "bytes", "Integer()": "List[int]", "Long()": "List[int]", "String()": "List[str]",
    "Boolean()": "List[bool]", "Single()": "List[float]", "Double()": "List[float]", "Variant()": "List[Any]",
}  # fmt: skip
_WRITTEN: Dict[str, str] = {**_READ, "Byte()": "_Bytes"}
# A device context may be the surface that it belongs to.
_PASSED: Dict[str, str] = {**_WRITTEN, "Long": "SupportsIndex"}


class _Writer:
    """Writes the stub of one type library."""

    def __init__(self, library: TypeLibrary) -> None:
        self._library = library
        self._classes = set(library.class_names())
        self._aliases: Set[str] = set()
        self._contracts = {
            face for name in self._classes for face in library.class_info(name).interfaces[1:]
        } & self._classes

    def _class_name(self, name: str, taken: Set[str]) -> str:
        """The name of a class or an enumeration, another one where a member has it."""
        if name not in self._classes and name not in self._library.enumeration_names():
            return "Any"
        if name not in taken:
            return name
        self._aliases.add(name)
        return f"_{name}"

    def _result(self, member: Member, taken: Set[str]) -> str:
        if member.enumeration:
            return self._class_name(member.enumeration, taken)
        if member.type in _READ:
            return _READ[member.type]
        # An object that is given by a contract has the members of its own class too.
        return "Any" if member.type in self._contracts else self._class_name(member.type, taken)

    def _argument(self, type_name: str, kinds: Dict[str, str]) -> str:
        if type_name in kinds:
            return kinds[type_name]
        # An object of the host's own is as good as one of the library; what is neither is an enumeration.
        return "Any" if type_name in self._classes else "int"

    def _parameter(self, parameter: Parameter) -> str:
        name = f"{parameter.name}_" if keyword.iskeyword(parameter.name) else parameter.name
        type_name = self._argument(parameter.type, _PASSED)
        if parameter.byref and type_name != "Any":
            type_name = f"Union[Ref, {type_name}]"
        return f"{name}: {type_name}" + (" = ..." if parameter.optional else "")

    def _member(self, member: Member, taken: Set[str]) -> List[str]:
        if not member.name.isidentifier() or keyword.iskeyword(member.name) or member.role == "enumerator":
            return []
        if member.is_method:
            parameters = ["self", *(self._parameter(one) for one in member.parameters)]
            return _function(member.name, parameters, self._result(member, taken), member.doc)
        lines: List[str] = []
        result = self._result(member, taken) if member.get else "Any"
        lines += ["@property", *_function(member.name, ["self"], result, member.doc)]
        if member.put or member.putref:
            value = "value: " + ("int" if member.enumeration else self._argument(member.type, _WRITTEN))
            lines += [f"@{member.name}.setter", *_function(member.name, ["self", value], "None", "")]
        return lines

    def _walking(self, members: Iterable[Member]) -> List[str]:
        """What Python has for collections and what stands for an object."""
        lines: List[str] = []
        for member in members:
            if member.role == "enumerator" or member.name == "MoveNext":
                lines += _function("__iter__", ["self"], "Iterator[Any]", "")
            elif member.name == "Count" and not member.is_method:
                lines += _function("__len__", ["self"], "int", "")
            elif member.role == "value":
                lines += _function("__call__", ["self", "*arguments: Any"], "Any", "")
                lines += _function("__getitem__", ["self", "index: Any"], "Any", "")
        return lines

    def _class(self, name: str) -> List[str]:
        info = self._library.class_info(name)
        members = self._library.interface(info.interfaces[0]).members
        taken = {member.name for member in members} | self._contracts.intersection(info.interfaces)
        bases = ", ".join(one for one in info.interfaces[1:] if one in self._contracts) or "_Object"
        body: List[str] = []
        if info.creatable:
            body += _function("__init__", ["self", "**properties: Any"], "None", "")
        is_contract = name in self._contracts
        own = "Any" if is_contract else self._class_name(name, taken)
        text = "The same object by its default interface."
        body += ["@property", *_function("default", ["self"], own, text)]
        if is_contract:
            text = "The same object by this interface alone."
            body += ["@property", *_function(name, ["self"], self._class_name(name, {name}), text)]
        body += self._walking(members)
        for member in members:
            body += self._member(member, taken)
        return [f"class {name}({bases}):", *_indented(body)]

    def _enumeration(self, name: str) -> List[str]:
        members = self._library._enumerations[name]["members"]
        return [f"class {name}(IntEnum):", *_indented([f"{one['name']} = {one['value']}" for one in members])]

    def _ordered_classes(self) -> List[str]:
        """The classes, contracts before those that have them."""
        names = self._library.class_names()
        return sorted(names, key=lambda name: name not in self._contracts)

    def text(self) -> str:
        """The whole stub."""
        enumerations = self._library.enumeration_names()
        parts = [self._enumeration(name) for name in enumerations]
        parts += [self._class(name) for name in self._ordered_classes()]
        listed = [f"{name}: Type[{self._class_name(name, set(enumerations))}]" for name in enumerations]
        parts.append(["class _Enumerations:", *_indented(listed)])
        parts.append(["enums: _Enumerations"])
        text = "A new collection with these values, those with a name under it as their key."
        parts.append(_function("collection", ["*items: Any", "**keyed: Any"], "Collection", text))
        made: List[str] = []
        for name in filter(lambda one: self._library.class_info(one).creatable, self._library.class_names()):
            parameters = [f'class_name: Literal["{name}"]', "**properties: Any"]
            made += ["@overload", *_function("create", parameters, name, "")]
        made += ["@overload", *_function("create", ["class_name: str", "**properties: Any"], "Any", "")]
        parts.append(made)
        parts.append([f"_{name} = {name}" for name in sorted(self._aliases)])
        return _HEAD + "".join("\n" + "\n".join(lines) + "\n" for lines in parts)


def _indented(lines: List[str]) -> List[str]:
    return [f"    {line}" if line else "" for line in lines] or ["    ..."]


def _function(name: str, parameters: List[str], result: str, doc: str) -> List[str]:
    head = f"def {name}({', '.join(parameters)}) -> {result}:"
    if len(head) > _WIDTH - 8:
        inside = textwrap.wrap(", ".join(parameters) + ",", _WIDTH - 8, break_long_words=False)
        head = "\n".join([f"def {name}(", *(f"    {line}" for line in inside), f") -> {result}:"])
    lines = head.split("\n")
    if not doc:
        return [*lines[:-1], f"{lines[-1]} ..."]
    text = doc.replace("\\", "\\\\").replace('"""', "'''")
    if text.endswith('"'):
        text = text[:-1] + '\\"'
    told = textwrap.wrap(f'"""{text}"""', _WIDTH - 8, break_long_words=False, break_on_hyphens=False)
    return [*lines, *(f"    {line}" for line in told)]


def stub(library: Optional[TypeLibrary] = None) -> str:
    """The text of the stub for what the library tells."""
    return _Writer(library or types()).text()


def main() -> None:
    FILE.write_text(stub(), encoding="utf-8")
    print(f"{FILE} is up to date")


if __name__ == "__main__":
    main()
