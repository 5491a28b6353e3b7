"""Surfaces: measures, pixels, PNG files, and how they end."""

from __future__ import annotations

import gc
import operator
import os
import struct
import sys
import tempfile
import threading
import unittest
import zlib
from pathlib import Path
from typing import Any, List, Tuple
from unittest import mock

from test_server import ServerCase
import quenzel7 as q
from quenzel7 import _abi, surface as surfaces
from quenzel7._library import library


def decoded(png: bytes) -> Tuple[int, int, List[bytes]]:
    """Width, height and the rows of a PNG file of 24 bits a pixel."""
    assert png.startswith(b"\x89PNG\r\n\x1a\n")
    place, data, head = 8, b"", b""
    while place < len(png):
        size, kind = struct.unpack_from(">I4s", png, place)
        content = png[place + 8 : place + 8 + size]
        head = content if kind == b"IHDR" else head
        data += content if kind == b"IDAT" else b""
        place += size + 12
    width, height, bits, color = struct.unpack_from(">IIBB", head)
    assert (bits, color) == (8, 2)
    raw, rows, above = zlib.decompress(data), [], bytes(3 * width)
    for row in range(height):
        start = row * (3 * width + 1)
        line = bytearray(raw[start + 1 : start + 1 + 3 * width])
        for i in range(len(line)):
            left, corner = (line[i - 3], above[i - 3]) if i >= 3 else (0, 0)
            guess = left + above[i] - corner
            nearest = min((left, above[i], corner), key=lambda known: abs(guess - known))
            line[i] = (line[i] + (0, left, above[i], (left + above[i]) // 2, nearest)[raw[start]]) & 255
        above = bytes(line)
        rows.append(above)
    return width, height, rows


class SurfaceTest(ServerCase):
    def painted(self) -> q.Surface:
        """Three by two pixels, a rectangle without a border on the two pixels at the lower right."""
        surface = q.Surface(3, 2, 0x123456)
        q.create("clsRectangle", Xs=1, Ys=1, Dx=2, Dy=1, ColorFore=2, PenWidth=1).Draw(surface.hdc, False)
        return surface

    def test_it_has_its_measures_and_one_colour(self) -> None:
        with q.Surface(3, 2, 0x123456) as surface:
            self.assertEqual((surface.width, surface.height), (3, 2))
            self.assertEqual(surface.pixels.tolist(), [[0x123456] * 3] * 2)
        with q.Surface(1, 1) as surface:
            self.assertEqual(surface.pixel(0, 0), 0xFFFFFF)
        with q.Surface(1, 1, 0x9A123456) as surface:
            self.assertEqual(surface.pixel(0, 0), 0x123456)

    def test_elements_draw_on_it(self) -> None:
        with self.painted() as surface:
            back, ink = 0x123456, q.platform.rgb(2)
            self.assertEqual(ink, 0x0000C8)
            self.assertEqual(surface.pixels.tolist(), [[back, back, back], [back, ink, ink]])
            self.assertEqual(surface.pixels[1, 2], ink)
            self.assertEqual(surface.pixels.shape, (2, 3))
            self.assertTrue(surface.pixels.readonly)
            self.assertEqual([surface.pixel(x, 1) for x in range(3)], [back, ink, ink])
            self.assertEqual(surface.pixel(2, 0), back)

    def test_pixels_are_a_copy(self) -> None:
        with q.Surface(3, 2) as surface:
            before = surface.pixels
            q.create("clsRectangle", Xs=0, Ys=0, Dx=3, Dy=2, ColorFore=2).Draw(surface.hdc, False)
            self.assertEqual(before[0, 0], 0xFFFFFF)
            self.assertEqual(surface.pixels[0, 0], 0x0000C8)

    def test_a_pixel_outside_is_refused(self) -> None:
        with q.Surface(3, 2) as surface:
            for x, y in ((-1, 0), (0, -1), (3, 0), (0, 2)):
                with self.assertRaises(IndexError) as caught:
                    surface.pixel(x, y)
                self.assertEqual(str(caught.exception), f"({x}, {y}) lies outside a surface of 3 x 2 pixels")

    def test_sizes_that_cannot_be(self) -> None:
        text = "a surface cannot have {} x {} pixels: measures go from 1 to 32767"
        for width, height in ((0, 1), (1, 0), (32768, 1), (1, 32768), (-1, 1), (1, -0x7FFFFFFF)):
            self.raises(5, text.format(width, height), q.Surface, width, height)
        self.raises(5, text.format(0x100000005, 1), q.Surface, 0x100000005, 1)
        self.raises(5, text.format(1, -0x80000000), q.Surface, 1, -0x80000000)
        with self.assertRaises(TypeError):
            q.Surface(1.5, 1)  # type: ignore[arg-type]
        q.Surface(32767, 1).close()

    def test_the_png_file_has_its_pixels(self) -> None:
        with self.painted() as surface:
            back, ink = b"\x12\x34\x56", b"\x00\x00\xc8"
            self.assertEqual(decoded(surface.png()), (3, 2, [back * 3, back + ink * 2]))
            self.assertEqual(surface._repr_png_(), surface.png())
            with tempfile.TemporaryDirectory() as folder:
                for path in (Path(folder) / "ä.png", str(Path(folder) / "b.png")):
                    surface.save(path)
                    self.assertEqual(Path(path).read_bytes(), surface.png())
                missing = str(Path(folder) / "none" / "c.png")
                with self.assertRaises(q.AutomationError) as caught:
                    surface.save(missing)
                self.assertEqual((caught.exception.number, caught.exception.result), (76, _abi.E_FAIL))
                self.assertIn(missing, caught.exception.description)
                with self.assertRaises(q.AutomationError) as caught:
                    surface.save(folder)
                self.assertEqual((caught.exception.number, caught.exception.result), (75, _abi.E_FAIL))
                self.assertIn(folder, caught.exception.description)
                self.addCleanup(os.chdir, os.getcwd())
                os.chdir(folder)
                surface.save("here.png")
                (Path(folder) / "taken").mkdir()
                with self.assertRaises(q.AutomationError) as caught:
                    surface.save("taken")
                self.assertEqual(caught.exception.number, 75)

    def test_it_stands_for_its_device_context(self) -> None:
        with q.Surface(3, 2) as surface, q.Surface(3, 2) as other:
            self.assertEqual(operator.index(surface), surface.hdc)
            self.assertNotEqual(operator.index(surface), operator.index(other))
            q.create("clsRectangle", Xs=0, Ys=0, Dx=3, Dy=2, ColorFore=2).Draw(surface, False)
            self.assertEqual((surface.pixel(0, 0), other.pixel(0, 0)), (0x0000C8, 0xFFFFFF))

    def test_another_failure_of_a_file_is_as_the_library_tells_it(self) -> None:
        with q.Surface(1, 1) as surface:
            with mock.patch.object(surfaces, "_check", mock.Mock(side_effect=q.AutomationError(7, "full"))):
                self.raises(7, "full", surface.save, "/none/a.png")

    def test_others_take_it_as_an_array_of_red_green_and_blue(self) -> None:
        with self.painted() as surface:
            told = surface.__array_interface__
            data = bytes.fromhex("123456 123456 123456 123456 0000c8 0000c8")
            self.assertEqual(
                told,
                {"version": 3, "shape": (2, 3, 3), "typestr": "|u1", "strides": (9, 3, 1), "data": data},
            )
            self.assertEqual(surface.tobytes(), data)

    def test_numpy_takes_it(self) -> None:
        try:
            import numpy
        except ImportError:
            self.skipTest("numpy is not there")
        with self.painted() as surface:
            array = numpy.asarray(surface)
            self.assertEqual(array.shape, (2, 3, 3))
            self.assertEqual(array[1, 2].tolist(), [0, 0, 0xC8])

    def test_pil_takes_it(self) -> None:
        try:
            from PIL import Image
        except ImportError:
            self.skipTest("PIL is not there")
        with self.painted() as surface:
            image = Image.fromarray(surface)
            self.assertEqual((image.size, image.mode), ((3, 2), "RGB"))
            self.assertEqual(image.getpixel((2, 1)), (0, 0, 0xC8))

    def test_it_shows_itself(self) -> None:
        surface = q.Surface(3, 2)
        self.assertEqual(repr(surface), "<Surface 3 x 2>")
        surface.close()
        self.assertEqual(repr(surface), "<Surface 3 x 2, closed>")


class EndTest(ServerCase):
    def ended(self, pointer: Any) -> bool:
        """Whether the library has no such surface any more."""
        return library().Quenzel7SurfaceDestroy(pointer) == _abi.E_INVALIDARG

    def test_the_block_ends_it_whatever_happens(self) -> None:
        with self.assertRaises(KeyError):
            with q.Surface(1, 1) as surface:
                pointer = surface._surface
                raise KeyError
        self.assertTrue(self.ended(pointer))

    def test_closed_it_refuses_everything_but_to_be_closed(self) -> None:
        surface = q.Surface(1, 1)
        pointer = surface._surface
        surface.close()
        surface.close()
        self.assertTrue(self.ended(pointer))
        text = "the surface of 1 x 1 pixels is closed, and what was painted is gone"
        self.raises(91, text, operator.index, surface)
        self.assertIsNone(surface._repr_png_())
        self.raises(91, text, lambda: surface.hdc)
        self.raises(91, text, lambda: surface.pixels)
        self.raises(91, text, surface.pixel, 0, 0)
        self.raises(91, text, surface.png)
        self.raises(91, text, surface.save, "never.png")
        self.assertEqual((surface.width, surface.height), (1, 1))

    def test_it_ends_when_nobody_has_it(self) -> None:
        surface = q.Surface(1, 1)
        pointer = surface._surface
        del surface
        gc.collect()
        self.assertTrue(self.ended(pointer))

    def test_another_thread_cannot_use_or_close_it(self) -> None:
        surface = q.Surface(1, 1)
        found: List[Any] = []

        def use() -> None:
            for call in (surface.png, surface.close):
                try:
                    call()
                except q.AutomationError as error:
                    found.append((error.number, error.description))

        thread = threading.Thread(target=use)
        thread.start()
        thread.join()
        told = (_abi.RPC_E_WRONG_THREAD, "the surface belongs to another thread, the one that made it")
        self.assertEqual(found, [told, told])
        self.assertEqual(surface.pixel(0, 0), 0xFFFFFF)
        surface.close()

    def test_let_go_of_by_another_thread_it_ends_with_the_next_one_of_its_own(self) -> None:
        held = [q.Surface(1, 1)]
        pointer = held[0]._surface
        thread = threading.Thread(target=held.clear)
        thread.start()
        thread.join()
        self.assertEqual(list(surfaces._thread.abandoned), [pointer])
        fresh = q.Surface(2, 2)
        self.assertEqual(list(surfaces._thread.abandoned), [])
        self.assertTrue(fresh._surface == pointer or self.ended(pointer))
        fresh.close()

    def test_what_could_not_be_made_leaves_nothing(self) -> None:
        with self.assertRaises(q.AutomationError):
            q.Surface(0, 0)
        with mock.patch.object(sys, "unraisablehook") as raised:
            surface = q.Surface.__new__(q.Surface)
            del surface
            gc.collect()
        raised.assert_not_called()


if __name__ == "__main__":
    unittest.main()
