"""Values with a place of their own: by-reference arguments, and maps of cells for collision tests."""

from __future__ import annotations

from typing import Any, Tuple

from .errors import AutomationError


class NullType:
    """The one value Null: known to be unknown, as in an empty column of a database."""

    _only: "NullType"

    def __new__(cls) -> "NullType":
        if not hasattr(cls, "_only"):
            cls._only = super().__new__(cls)
        return cls._only

    def __repr__(self) -> str:
        return "Null"

    def __bool__(self) -> bool:
        return False

    def __reduce__(self) -> Tuple[Any, ...]:
        return (NullType, ())


Null = NullType()


class Ref:
    """A place that a member may write: `x = Ref(); element.GetBoundingRect(x, ...); x.value`.

    The value goes in with the call and is what the member left there after it. A kind ("Long", "String",
    "Boolean" ...) makes the place hold values of that kind only; without one it holds any.
    """

    __slots__ = ("value", "kind")

    def __init__(self, value: Any = None, kind: str = "") -> None:
        self.value = value
        self.kind = kind

    def __repr__(self) -> str:
        kind = f", {self.kind!r}" if self.kind else ""
        return f"Ref({self.value!r}{kind})"


class CollisionMap:
    """A byte for every pixel of a page, addressed [x, y]; a touch element may not cover a 1.

    Indices run from 0 to the width and to the height themselves, since an element may end where the page
    ends. The cells are in `cells`, x running fastest, and can be read and written there as a whole.
    """

    __slots__ = ("width", "height", "cells")

    def __init__(self, width: int, height: int) -> None:
        if width < 0 or height < 0:
            raise AutomationError(9, f"a collision map cannot be {width} x {height} pixels")
        self.width = width
        self.height = height
        self.cells = bytearray((width + 1) * (height + 1))

    def _place(self, index: Tuple[int, int]) -> int:
        x, y = index
        if not (0 <= x <= self.width and 0 <= y <= self.height):
            size = f"{self.width} x {self.height} pixels"
            raise IndexError(f"[{x}, {y}] lies outside a collision map of {size}")
        return y * (self.width + 1) + x

    def __getitem__(self, index: Tuple[int, int]) -> int:
        return self.cells[self._place(index)]

    def __setitem__(self, index: Tuple[int, int], value: int) -> None:
        self.cells[self._place(index)] = value

    def fill(self, x: int, y: int, dx: int, dy: int, value: int = 1) -> None:
        """Writes the value into dx by dy cells from [x, y]; what lies outside the map is left out."""
        left, right = max(x, 0), min(x + dx, self.width + 1)
        if right <= left:
            return
        row = bytes([value]) * (right - left)
        for line in range(max(y, 0), min(y + dy, self.height + 1)):
            start = line * (self.width + 1) + left
            self.cells[start : start + len(row)] = row

    def __eq__(self, other: object) -> bool:
        if not isinstance(other, CollisionMap):
            return NotImplemented
        return (self.width, self.height, self.cells) == (other.width, other.height, other.cells)

    __hash__ = None  # type: ignore[assignment]

    def __repr__(self) -> str:
        marked = len(self.cells) - self.cells.count(0)
        return f"<CollisionMap {self.width} x {self.height}, {marked} cells marked>"
