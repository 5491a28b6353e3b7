"""What the tests share: the package on the path, loopback to objects of Python, and type information of a
class of their own."""

from __future__ import annotations

import gc
import json
import sys
import unittest
from pathlib import Path
from typing import Any

FOLDER = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(FOLDER))

from quenzel7 import _classes, _dispatch, _frames, _host_objects, _invoke, _types  # noqa: E402
from quenzel7.arrays import Ref  # noqa: E402
from quenzel7.errors import AutomationError  # noqa: E402

PROBE_MEMBERS = [
    {"name": "Xs", "id": 1, "kind": "property", "type": "Long", "get": True, "put": True, "doc": "Left edge."},
    {"name": "Label", "id": 2, "kind": "property", "type": "String", "get": True, "put": True},
    {"name": "Kind", "id": 3, "kind": "property", "type": "enKind", "enumeration": "enKind", "get": True,
     "put": True},
    {"name": "Owner", "id": 4, "kind": "property", "type": "Object", "get": True, "putref": True},
    {"name": "Fixed", "id": 5, "kind": "property", "type": "Long", "get": True},
    {"name": "Secret", "id": 6, "kind": "property", "type": "Long", "put": True},
    {"name": "Stretch", "id": 7, "kind": "method", "type": "enKind", "enumeration": "enKind", "doc": "Pulls.",
     "parameters": [
         {"name": "pDx", "type": "Long"},
         {"name": "pDy", "type": "Long", "byref": True},
         {"name": "pDirection", "type": "Long", "optional": True, "default": 5}]},
    {"name": "Take", "id": 8, "kind": "method", "type": "", "parameters": [{"name": "pMap", "type": "Object"}]},
    {"name": "Any", "id": 9, "kind": "property", "type": "Variant", "get": True, "put": True, "putref": True},
    {"name": "Count", "id": 10, "kind": "property", "type": "Long", "get": True},
    {"name": "Part", "id": 11, "kind": "property", "type": "Object", "get": True, "put": True, "putref": True},
    {"name": "Piece", "id": 12, "kind": "property", "type": "clsPiece", "get": True, "put": True, "putref": True},
    {"name": "Item", "id": 0, "kind": "method", "type": "Variant", "role": "value",
     "parameters": [{"name": "index", "type": "Variant"}]},
    {"name": "_NewEnum", "id": -4, "kind": "property", "type": "Object", "get": True, "role": "enumerator"},
]  # fmt: skip
# By their numbers the members of the other interface are Xs and Stretch.
PLAIN_MEMBERS = [
    {"name": "Alone", "id": 1, "kind": "property", "type": "Long", "get": True, "put": True, "doc": "Apart."},
    {"name": "Pull", "id": 7, "kind": "method", "type": "Long", "parameters": [
        {"name": "pDx", "type": "Long"}, {"name": "pDy", "type": "Long"}]},
    {"name": "Label", "id": 3, "kind": "property", "type": "Long", "get": True},
]
TOLD = {
    "classes": [
        {"name": "Probe", "progid": "Quenzel7.Probe", "clsid": "{00000001-0000-0000-0000-000000000001}",
         "creatable": True, "interfaces": ["_Probe", "ItfPlain", "ItfNone"]},
        {"name": "Plain", "interfaces": ["ItfPlain"]},
    ],
    "interfaces": [
        {"name": "_Probe", "iid": "{00020400-0000-0000-C000-000000000046}", "members": PROBE_MEMBERS},
        {"name": "ItfPlain", "iid": "{00000000-0000-0000-C000-000000000046}", "members": PLAIN_MEMBERS},
        {"name": "ItfNone", "iid": "{00000000-0000-0000-0000-0000000000AA}", "members": []},
    ],
    "enumerations": [
        {"name": "enKind", "members": [{"name": "eK_None", "value": 0}, {"name": "eK_Some", "value": 5}]},
    ],
}  # fmt: skip


class Probe:
    """An object with the members that TOLD tells of."""

    def __init__(self) -> None:
        self.Xs = 3
        self.Label = "one"
        self.Kind = 5
        self.Owner: Any = None
        self.Secret = 0
        self.Any: Any = None
        self.Part: Any = None
        self.Piece: Any = None
        self.taken: Any = None
        self.calls: "list[Any]" = []

    @property
    def Fixed(self) -> int:
        return 11

    @property
    def Count(self) -> int:
        return 2

    def Stretch(self, pDx: int, pDy: Ref, pDirection: int = 5) -> int:
        self.calls.append((pDx, pDy, pDirection))
        if hasattr(pDy, "value"):
            pDy.value = pDy.value + 1
        return pDirection

    def Take(self, pMap: Any) -> None:
        self.taken = pMap

    def Value(self, index: Any) -> Any:
        return {1: "first", "key": "keyed"}.get(index, index)

    def __iter__(self) -> Any:
        return iter(["first", 2])


def late(target: Any) -> Any:
    """A proxy without type information of an object of Python."""
    return _dispatch.late(_host_objects.pointer_of(target))


def type_library() -> _types.TypeLibrary:
    """The type information of Probe."""
    return _types.TypeLibrary(json.dumps(TOLD))


def probe(target: Any, interface: str = "") -> Any:
    """A proxy that knows its members of a Probe, which has the numbers that the type information tells."""
    proxy = _dispatch.adopt(
        _classes.python_class(type_library(), "Probe", interface), _host_objects.pointer_of(target)
    )
    for member in PROBE_MEMBERS[:12]:
        _invoke.numbers_of_names(proxy, [member["name"]])
    return proxy


class Case(unittest.TestCase):
    """A test that leaves no object of Python behind in the library."""

    def setUp(self) -> None:
        self._exposed = _host_objects.exposed_count()

    def tearDown(self) -> None:
        # The last exception keeps what it went through.
        _frames.thread.raised = None
        if _host_objects.exposed_count() != self._exposed:
            gc.collect()
        self.assertEqual(_host_objects.exposed_count(), self._exposed, "objects are still held")

    def raises(self, number: int, text: str, call: Any, *arguments: Any, **named: Any) -> AutomationError:
        """Asserts that the call raises an AutomationError of that number and description."""
        with self.assertRaises(AutomationError) as caught:
            call(*arguments, **named)
        self.assertEqual((caught.exception.number, caught.exception.description), (number, text))
        # What it went through would keep the objects of the test.
        caught.exception.__traceback__ = None
        return caught.exception
