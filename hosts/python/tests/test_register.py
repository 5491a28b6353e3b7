"""Registering the library for the user."""

from __future__ import annotations

import contextlib
import ctypes.util
import io
import os
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from typing import Tuple
from unittest import mock

from support import FOLDER
from quenzel7 import LibraryNotFoundError, _library, register


class RegisterTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        environment = mock.patch.dict(os.environ, {"XDG_DATA_HOME": str(self.folder)})
        environment.start()
        self.addCleanup(environment.stop)
        self.file = self.folder / "quenzel7" / "server.ini"
        self.good = os.path.realpath(_library.library().path)

    def run_it(self, *arguments: str) -> Tuple[int, str, str]:
        with contextlib.redirect_stdout(io.StringIO()) as told, contextlib.redirect_stderr(io.StringIO()) as wrong:
            result = register.main(arguments)
        return result, told.getvalue(), wrong.getvalue()

    def registered(self) -> "str | None":
        path = _library.registered_path(self.file)
        return None if path is None else os.path.realpath(path)

    def test_the_library_that_the_package_finds(self) -> None:
        path = _library.library().path
        self.assertEqual(self.run_it(), (0, f"{path} is registered: {self.file}\n", ""))
        self.assertEqual(self.registered(), self.good)
        self.assertEqual(self.run_it("--remove"), (0, f"{path} is not registered any more: {self.file}\n", ""))
        self.assertIsNone(self.registered())

    def test_what_is_not_the_library_is_refused(self) -> None:
        result, told, wrong = self.run_it("/nowhere/lib.so")
        self.assertEqual((result, told), (1, ""))
        self.assertTrue(wrong.startswith("/nowhere/lib.so is not the library: "), wrong)
        other = ctypes.util.find_library("c")
        with mock.patch.object(register.os.path, "abspath", str):
            result, told, wrong = self.run_it(other or "")
        self.assertEqual((result, told), (1, ""))
        self.assertTrue(wrong.startswith(f"{other} is not the library: "), wrong)
        self.assertIsNone(self.registered())

    def test_without_a_library_it_tells_where_it_looked(self) -> None:
        with mock.patch.object(register, "library", mock.Mock(side_effect=LibraryNotFoundError("nowhere"))):
            self.assertEqual(self.run_it(), (1, "", "nowhere\n"))

    def test_a_folder_that_cannot_be_written_is_told(self) -> None:
        (self.folder / "quenzel7").write_text("a file where the folder should be")
        result, told, wrong = self.run_it()
        self.assertEqual((result, told), (1, ""))
        self.assertIn(str(self.folder), wrong)

    def test_it_is_a_program_and_takes_paths_from_where_one_stands(self) -> None:
        program = [sys.executable, "-m", "quenzel7.register", os.path.basename(self.good)]
        cases = [([], "registered", self.good), (["--remove"], "not registered any more", None)]
        for options, state, found in cases:
            done = subprocess.run(
                [*program, *options], cwd=os.path.dirname(self.good),
                env={**os.environ, "PYTHONPATH": str(FOLDER)}, capture_output=True, text=True,
            )  # fmt: skip
            told = f"{self.good} is {state}: {self.file}\n"
            self.assertEqual((done.returncode, done.stdout, done.stderr), (0, told, ""))
            self.assertEqual(self.registered(), found)


if __name__ == "__main__":
    unittest.main()
