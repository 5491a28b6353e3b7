"""Where the library is looked for."""

from __future__ import annotations

import os
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

import support  # noqa: F401
from quenzel7 import LibraryNotFoundError, _library


class PlacesTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        environment = mock.patch.dict(os.environ, {"XDG_DATA_HOME": str(self.folder)})
        environment.start()
        self.addCleanup(environment.stop)
        self.good = _library.library().path

    def load(self, chosen: str = "", root: "Path | None" = None, system: "str | None" = None) -> "_library.Library":
        os.environ["QUENZEL7_LIBRARY"] = chosen
        with mock.patch.object(_library, "source_tree", lambda: root), mock.patch.object(
            _library.ctypes.util, "find_library", lambda name: system
        ), mock.patch.object(_library, "_FILE_NAME", "libnowhere.so"):
            # The loader knows the library that is loaded by its name.
            return _library.load()

    def register(self, text: str) -> None:
        (self.folder / "quenzel7").mkdir()
        (self.folder / "quenzel7" / "server.ini").write_text(text, encoding="utf-8")

    def test_the_environment_chooses(self) -> None:
        self.assertEqual(self.load(chosen=self.good).path, self.good)

    def test_the_environment_allows_no_other(self) -> None:
        with self.assertRaises(LibraryNotFoundError) as caught:
            self.load(chosen="/nowhere/lib.so", system=self.good)
        self.assertRegex(
            str(caught.exception),
            r"^the library of Quenzel7 was not found; looked at"
            r"\n  environment QUENZEL7_LIBRARY: /nowhere/lib.so: [^/\n]+\nTo mend that, ",
        )

    def test_then_the_build_folder_beside_the_sources(self) -> None:
        (self.folder / "build" / "lib").mkdir(parents=True)
        built = self.folder / "build" / "lib" / "libnowhere.so"
        built.symlink_to(self.good)
        self.assertEqual(self.load(root=self.folder, system="/nowhere/lib.so").path, str(built))

    def test_then_the_registration_file(self) -> None:
        self.register(f"[Quenzel7.clsText]\nCLSID = {{1}}\nInprocServer32 = {self.good}\n")
        self.assertEqual(self.load(root=self.folder, system="/nowhere/lib.so").path, self.good)

    def test_then_the_loader_of_the_system(self) -> None:
        self.assertEqual(self.load(system=self.good).path, self.good)

    def test_a_failure_names_every_place(self) -> None:
        with self.assertRaises(LibraryNotFoundError) as caught:
            self.load(root=self.folder)
        lines = str(caught.exception).split("\n")
        self.assertEqual(lines[0], "the library of Quenzel7 was not found; looked at")
        self.assertEqual(lines[1], "  environment QUENZEL7_LIBRARY: not set")
        built = self.folder / "build" / "lib" / "libnowhere.so"
        self.assertTrue(lines[2].startswith(f"  build folder beside the sources: {built}: cannot open"), lines[2])
        self.assertEqual(lines[3], f"  registration file {self.folder}/quenzel7/server.ini: no such file")
        self.assertTrue(lines[4].startswith("  loader of the system: libnowhere.so: cannot open"), lines[4])
        self.assertEqual(
            " ".join(lines[5:]),
            "To mend that, build it beside the sources (cmake --preset release && cmake --build build --target "
            "quenzel7_shared), or set QUENZEL7_LIBRARY to the path of one that is built, or register that one for "
            "this user (python3 -m quenzel7.register PATH).",
        )

    def test_a_failure_tells_what_the_registration_file_and_the_installation_say(self) -> None:
        self.register("[Quenzel7.clsText]\nCLSID = {1}\n")
        with self.assertRaises(LibraryNotFoundError) as caught:
            self.load()
        lines = str(caught.exception).split("\n")
        self.assertEqual(lines[2], "  build folder beside the sources: not known to this package")
        self.assertEqual(lines[3], f"  registration file {self.folder}/quenzel7/server.ini: names none")

    def test_a_failure_is_an_import_error(self) -> None:
        self.assertTrue(issubclass(LibraryNotFoundError, ImportError))

    def test_the_first_class_that_names_a_library_counts(self) -> None:
        self.register("[A]\nCLSID = {1}\n[B]\ninprocserver32 = /b\n[C]\nInprocServer32 = /c\n")
        self.assertEqual(_library.registered_path(_library.registration_file()), "/b")

    def test_paths_may_hold_percent_signs(self) -> None:
        self.register("[A]\nInprocServer32 = /100%/b\n")
        self.assertEqual(_library.registered_path(_library.registration_file()), "/100%/b")

    def test_a_damaged_registration_file_names_none(self) -> None:
        self.register("no section")
        self.assertIsNone(_library.registered_path(_library.registration_file()))

    def test_a_registration_file_that_is_no_text_names_none(self) -> None:
        self.register("")
        (self.folder / "quenzel7" / "server.ini").write_bytes(b"\xff\xfe\x00")
        self.assertIsNone(_library.registered_path(_library.registration_file()))

    def test_without_a_data_folder_the_registration_file_is_in_the_home_folder(self) -> None:
        with mock.patch.dict(os.environ, {"XDG_DATA_HOME": "", "HOME": "/home/someone"}):
            self.assertEqual(
                _library.registration_file(), Path("/home/someone/.local/share/quenzel7/server.ini")
            )

    def test_the_source_tree_is_known_by_its_header(self) -> None:
        self.assertEqual(_library.source_tree(), support.FOLDER.parent.parent)
        with mock.patch.object(_library, "__file__", str(self.folder / "a" / "b" / "quenzel7" / "_library.py")):
            self.assertIsNone(_library.source_tree())
            with mock.patch.dict(sys.modules, {"quenzel7._origin": mock.Mock(SOURCE_TREE="/home/sources")}):
                self.assertEqual(_library.source_tree(), Path("/home/sources"))
        with mock.patch.object(_library, "__file__", "/q/_library.py"):
            self.assertIsNone(_library.source_tree())


class LibraryTest(unittest.TestCase):
    def test_is_loaded_once(self) -> None:
        self.assertIs(_library.library(), _library.library())

    def test_has_the_functions_of_the_interface_and_no_others(self) -> None:
        loaded = _library.library()
        self.assertIs(loaded.SysFreeString, loaded.SysFreeString)
        with self.assertRaisesRegex(AttributeError, "the library has no function 'malloc'"):
            loaded.malloc

    def test_shows_its_path(self) -> None:
        self.assertEqual(repr(_library.library()), f"<Library {_library.library().path}>")


if __name__ == "__main__":
    unittest.main()
