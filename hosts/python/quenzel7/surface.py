"""Surfaces to draw on: `Surface(320, 240)` has a device context for every member that paints, and gives what
was painted as numbers, as a PNG file and as a picture in a notebook.

numpy.asarray(surface) and PIL's Image.fromarray(surface) take one as it is; neither is needed for anything
here.
"""

from __future__ import annotations

import ctypes
import operator
import os
import threading
from collections import deque
from typing import Any, Deque, Dict, Optional, Tuple, Union

from . import _abi, _safe_array
from ._attributes import Spelt
from ._library import library
from .errors import AutomationError, result_error

_WIDEST = 32767


class _Thread(threading.local):
    """The surfaces of a thread that were let go of elsewhere: only the thread that made one can end it."""

    def __init__(self) -> None:
        self.abandoned: Deque[int] = deque()


_thread = _Thread()


def _check(result: int) -> None:
    """Raises what a function of surfaces tells of its failure."""
    if result < 0:
        text = (library().Quenzel7LastError() or b"").decode("utf-8", "replace")
        error = result_error(result)
        told = AutomationError(error.number, text or error.description)
        told.result = result
        raise told


def _end_abandoned() -> None:
    while _thread.abandoned:
        library().Quenzel7SurfaceDestroy(_thread.abandoned.popleft())


def _measures(width: Any, height: Any) -> Tuple[int, int]:
    """Width and height in pixels; error 5 for what no surface can have."""
    measures = operator.index(width), operator.index(height)
    if not all(1 <= measure <= _WIDEST for measure in measures):
        text = f"a surface cannot have {measures[0]} x {measures[1]} pixels: measures go from 1 to {_WIDEST}"
        raise AutomationError(5, text)
    return measures


def _why_not_written(path: str) -> int:
    """The number of the error that a file could not be written with: 76 when its folder is not there, 75 for
    any other reason."""
    return 75 if os.path.isdir(os.path.dirname(os.path.abspath(path))) else 76


class Surface(Spelt):
    """A picture in memory, `width` x `height` pixels (1 to 32767 each), at first all in one colour, 0xRRGGBB.

        with Surface(320, 240) as surface:
            element.ItfHmiElement.Draw(surface, False)
            surface.save("element.png")

    `surface.hdc` is its device context, for which it stands itself too. It belongs to the thread that made it,
    ends with `close`, with the `with` block, or when nobody has it any
    more.
    """

    def __init__(self, width: int, height: int, color: int = 0xFFFFFF) -> None:
        self._surface: Optional[int] = None
        self._width, self._height = _measures(width, height)
        ink = operator.index(color) & 0xFFFFFF
        _end_abandoned()
        made = ctypes.c_void_p()
        _check(library().Quenzel7SurfaceCreate(self._width, self._height, ink, ctypes.byref(made)))
        self._surface = made.value
        self._abandoned = _thread.abandoned
        context = ctypes.c_int32()
        _check(library().Quenzel7SurfaceContext(self._surface, context))
        self._context = context.value

    def _require_open(self) -> int:
        if self._surface is None:
            text = f"the surface of {self._width} x {self._height} pixels is closed, and what was painted is gone"
            raise AutomationError(91, text)
        return self._surface

    @property
    def hdc(self) -> int:
        """The device context for the pHdc of every member that paints; it ends with the surface."""
        self._require_open()
        return self._context

    def __index__(self) -> int:
        """The device context, so that a surface stands where a member takes one."""
        return self.hdc

    @property
    def width(self) -> int:
        """Pixels from left to right."""
        return self._width

    @property
    def height(self) -> int:
        """Pixels from top to bottom."""
        return self._height

    def tobytes(self) -> bytes:
        """What is painted now, three bytes a pixel: red, green, blue, rows from the top without gaps."""
        words = bytes(self.pixels.cast("B"))
        colors = bytearray(3 * self._width * self._height)
        colors[0::3], colors[1::3], colors[2::3] = words[2::4], words[1::4], words[0::4]
        return bytes(colors)

    @property
    def pixels(self) -> memoryview:
        """What is painted now, a copy: `pixels[y, x]` is 0xRRGGBB, `pixels.shape` is (height, width). Take it
        once for many pixels."""
        memory = bytearray(4 * self._width * self._height)
        place = (ctypes.c_char * len(memory)).from_buffer(memory)
        _check(library().Quenzel7SurfacePixels(self._require_open(), place, self._width * self._height))
        return memoryview(memory).toreadonly().cast("I", (self._height, self._width))

    def pixel(self, x: int, y: int) -> int:
        """One pixel as 0xRRGGBB; IndexError outside the surface."""
        if not (0 <= x < self._width and 0 <= y < self._height):
            raise IndexError(f"({x}, {y}) lies outside a surface of {self._width} x {self._height} pixels")
        pixels: Any = self.pixels
        return int(pixels[y, x])

    def png(self) -> bytes:
        """The picture as the bytes of a PNG file."""
        array = ctypes.c_void_p()
        _check(library().Quenzel7SurfacePng(self._require_open(), ctypes.byref(array)))
        assert array.value is not None
        try:
            return bytes(_safe_array.read(_abi.VT_UI1, array.value))
        finally:
            library().SafeArrayDestroy(array.value)

    def save(self, path: Union[str, "os.PathLike[str]"]) -> None:
        """Writes a PNG file, which takes its place complete or not at all. Error 76 for a folder that is not
        there, 75 for a file that cannot be written."""
        try:
            _check(library().Quenzel7SurfaceSavePng(self._require_open(), os.fsencode(path)))
        except AutomationError as error:
            if error.result != _abi.E_FAIL:
                raise
            told = AutomationError(_why_not_written(os.fsdecode(path)), error.description)
            told.result = error.result
            raise told from None

    def _repr_png_(self) -> Optional[bytes]:
        # A notebook shows the text of what has no picture any more.
        return None if self._surface is None else self.png()

    @property
    def __array_interface__(self) -> Dict[str, Any]:
        rows = 3 * self._width
        return {
            "version": 3,
            "shape": (self._height, self._width, 3),
            "typestr": "|u1",
            "strides": (rows, 3, 1),
            "data": self.tobytes(),
        }

    def close(self) -> None:
        """Ends the surface and its device context. Closing twice does nothing."""
        if self._surface is not None:
            _check(library().Quenzel7SurfaceDestroy(self._surface))
            self._surface = None

    def __enter__(self) -> "Surface":
        return self

    def __exit__(self, *exception: Any) -> None:
        self.close()

    def __del__(self) -> None:
        surface = getattr(self, "_surface", None)
        if surface is None:
            return
        if self._abandoned is _thread.abandoned:
            library().Quenzel7SurfaceDestroy(surface)
        else:
            self._abandoned.append(surface)

    def __repr__(self) -> str:
        closed = ", closed" if self._surface is None else ""
        return f"<Surface {self._width} x {self._height}{closed}>"
