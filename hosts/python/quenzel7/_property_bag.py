"""Property bags: `property_bag(handler.GetBinaryData())` reads the block of bytes that an element is stored
in."""

from __future__ import annotations

from typing import Any, Iterator, List, NamedTuple

from . import _abi, _services, _variant
from ._dispatch import Dispatch
from ._frames import fail, give_back, take_frame
from ._invoke import numbers_of_names
from ._pointers import IID_NULL_ARGUMENT
from .errors import AutomationError

_NAME_OF_KIND = {
    **{kind: name for name, kind in _variant.KIND_OF_TYPE.items()},
    _abi.VT_EMPTY: "Empty",
    _abi.VT_NULL: "Null",
}
_NOT_THERE = 327


def _name_of(kind: int) -> str:
    """The name of a kind of values: "Long", "Byte()" ..."""
    if kind & _abi.VT_ARRAY:
        return _name_of(kind & ~_abi.VT_ARRAY) + "()"
    return _NAME_OF_KIND.get(kind, f"kind {kind}")


class Entry(NamedTuple):
    """One value of a bag: its key, its kind ("Long", "String", "Byte()" ...) and itself. A bag within the bag
    is a Bag."""

    key: str
    kind: str
    value: Any


class Bag:
    """Named values in the order in which they were first written.

    Walking over it gives an Entry for each. Keys are the same in any case. `object` is the library's own bag, a
    `PropertyBag`, to be handed to members that take one.
    """

    def __init__(self, bag: Any) -> None:
        self.object = bag
        _, (self._read_number,) = numbers_of_names(bag, ("ReadProperty",))

    def _read(self, key: str) -> Entry:
        """A value and its kind, which conversion to Python loses; error 327 for a key that is not there."""
        frame = take_frame(1)
        try:
            frame.set_count(1)
            _variant.write(frame.memory, frame.first, key)
            bag = self.object
            result = bag._invoke(
                bag._this, self._read_number, IID_NULL_ARGUMENT, 0, _abi.DISPATCH_METHOD, frame.call,
                frame.result, frame.info, frame.bad,
            )  # fmt: skip
            if result < 0:
                raise fail(frame, result, "PropertyBag.ReadProperty")
            (kind,) = _variant.KIND.unpack_from(frame.memory, 0)
            value = _variant.take(frame.memory)
        finally:
            _variant.clear(frame.memory, frame.first)
            give_back(frame)
        return Entry(key, _name_of(kind), Bag(value) if isinstance(value, Dispatch) else value)

    def keys(self) -> List[str]:
        """The keys in order."""
        return list(self.object)

    def __iter__(self) -> Iterator[Entry]:
        return iter([self._read(key) for key in self.keys()])

    def __len__(self) -> int:
        return int(self.object.Count)

    def __bool__(self) -> bool:
        return True

    def __contains__(self, key: object) -> bool:
        return isinstance(key, str) and key.lower() in (known.lower() for known in self.keys())

    def __getitem__(self, key: str) -> Any:
        try:
            return self._read(key).value
        except AutomationError as error:
            if error.number != _NOT_THERE:
                raise
            raise KeyError(key) from None

    def get(self, key: str, fallback: Any = None) -> Any:
        """The value under a key, or the fall-back."""
        return self[key] if key in self else fallback

    def kind(self, key: str) -> str:
        """The kind of the value under a key; error 327 when there is none."""
        return self._read(key).kind

    def __setitem__(self, key: str, value: Any) -> None:
        self.object.WriteProperty(key, value.object if isinstance(value, Bag) else value)

    @property
    def contents(self) -> bytes:
        """All values as one block of bytes. Writing it takes the values of a block in place of all: error 331
        for bytes that are none."""
        return bytes(self.object.Contents)

    @contents.setter
    def contents(self, data: "bytes | bytearray | memoryview") -> None:
        self.object.Contents = data

    def __bytes__(self) -> bytes:
        return self.contents

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, Bag):
            return NotImplemented
        return self.contents == other.contents

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        return f"<Bag {', '.join(f'{entry.key}={entry.value!r}' for entry in self)}>"


def property_bag(data: Any = b"") -> Bag:
    """A bag with the values of a block of bytes, an empty one without; or the library's own bag as one of
    these. Error 331 for bytes that are no bag."""
    if isinstance(data, Dispatch):
        return Bag(data)
    bag = Bag(_services.host_services().NewPropertyBag())
    if data:
        bag.contents = data
    return bag
