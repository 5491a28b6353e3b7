"""Property bags: `property_bag(handler.GetBinaryData())` reads the block of bytes that an element is stored
in."""

from __future__ import annotations

import ctypes
from contextlib import contextmanager
from typing import Any, Iterator, List, NamedTuple, Tuple

from . import _abi, _services, _variant
from ._attributes import Spelt
from ._dispatch import Dispatch
from ._frames import Frame, fail, give_back, take_frame
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


def _call(target: Any, number: int, frame: Frame, member: str) -> None:
    """Calls a method with the arguments in a frame, whose result is the caller's."""
    result = target._invoke(
        target._this, number, IID_NULL_ARGUMENT, 0, _abi.DISPATCH_METHOD, frame.call, frame.result, frame.info,
        frame.bad,
    )  # fmt: skip
    if result < 0:
        raise fail(frame, result, member)


class Entry(NamedTuple):
    """One value of a bag: its key, its kind ("Long", "String", "Byte()" ...) and itself. A bag within the bag
    is a Bag."""

    key: str
    kind: str
    value: Any


class UnknownKeyError(AutomationError, KeyError):
    """Error 327: a bag has no value of that name; also a KeyError, as of a dictionary."""


class Bag(Spelt):
    """Named values in the order in which they were first written.

    Walking over it gives an Entry for each, unlike a dictionary, which gives keys. Keys are the same in any
    case; one that is not there is an UnknownKeyError. `object` is the library's own bag, a
    `PropertyBag`, to be handed to members that take one.
    """

    __slots__ = ("object", "_read_number", "_write_number")

    def __init__(self, bag: Any) -> None:
        self.object = bag
        _, (self._read_number,) = numbers_of_names(bag, ("ReadProperty",))
        _, (self._write_number,) = numbers_of_names(bag, ("WriteProperty",))

    @contextmanager
    def _fetched(self, key: str) -> Iterator[Frame]:
        """A frame whose result is the value under a key; the value is freed if nobody took it."""
        frame = take_frame(1)
        try:
            frame.set_count(1)
            _variant.write(frame.memory, frame.first, key)
            _call(self.object, self._read_number, frame, "PropertyBag.ReadProperty")
            yield frame
        except AutomationError as error:
            if error.number != _NOT_THERE:
                raise
            unknown = UnknownKeyError(_NOT_THERE, error.description, error.source)
            unknown.result = error.result
            raise unknown from None
        finally:
            _variant.clear(frame.memory, 0)
            _variant.clear(frame.memory, frame.first)
            give_back(frame)

    def _read(self, key: str) -> Entry:
        """A value and its kind, which conversion to Python loses."""
        with self._fetched(key) as frame:
            (kind,) = _variant.KIND.unpack_from(frame.memory, 0)
            value = _variant.take(frame.memory)
        return Entry(key, _name_of(kind), Bag(value) if isinstance(value, Dispatch) else value)

    def _hand(self, key: str, other: "Bag") -> None:
        """Writes a value into another bag as it is, of the same kind."""
        with self._fetched(key) as fetched:
            frame = take_frame(2)
            # Arguments lie with the last one first. The value is lent.
            place = ctypes.addressof(frame.memory) + frame.first
            try:
                frame.set_count(2)
                ctypes.memmove(place, fetched.memory, _abi.VARIANT_SIZE)
                _variant.write(frame.memory, frame.first + _abi.VARIANT_SIZE, key)
                _call(other.object, other._write_number, frame, "PropertyBag.WriteProperty")
            finally:
                ctypes.memset(place, 0, _abi.VARIANT_SIZE)
                _variant.clear(frame.memory, frame.first + _abi.VARIANT_SIZE)
                give_back(frame)

    def keys(self) -> List[str]:
        """The keys in order."""
        return list(self.object)

    def values(self) -> List[Any]:
        """The values in the order of their keys."""
        return [entry.value for entry in self]

    def items(self) -> List[Tuple[str, Any]]:
        """Keys and values in order, as of a dictionary."""
        return [(entry.key, entry.value) for entry in self]

    def __iter__(self) -> Iterator[Entry]:
        return iter([self._read(key) for key in self.keys()])

    def __len__(self) -> int:
        return int(self.object.Count)

    def __bool__(self) -> bool:
        return True

    def __contains__(self, key: object) -> bool:
        return isinstance(key, str) and key.lower() in (known.lower() for known in self.keys())

    def __getitem__(self, key: str) -> Any:
        return self._read(key).value

    def get(self, key: str, fallback: Any = None) -> Any:
        """The value under a key, or the fall-back."""
        return self[key] if key in self else fallback

    def kind(self, key: str) -> str:
        """The kind of the value under a key: "Long", "String", "Byte()" ..."""
        return self._read(key).kind

    def __setitem__(self, key: str, value: Any) -> None:
        self.object.WriteProperty(key, value.object if isinstance(value, Bag) else value)

    def __delitem__(self, key: str) -> None:
        """Takes a value away; the others keep their order. The bags in this one are others then, with the same
        values."""
        self._read(key)
        kept = property_bag()
        for known in self.keys():
            if known.lower() != key.lower():
                self._hand(known, kept)
        self.contents = kept.contents

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
