"""The wheels of the package."""

from __future__ import annotations

import base64
import csv
import hashlib
import importlib.util
import os
import re
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile
from pathlib import Path
from unittest import mock

from support import FOLDER
from quenzel7 import __version__, _library

sys.path.insert(0, str(FOLDER / "build_backend"))

import quenzel7_build  # noqa: E402


class WheelTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def contents(self, name: str) -> "dict[str, bytes]":
        with zipfile.ZipFile(self.folder / name) as archive:
            return {entry: archive.read(entry) for entry in archive.namelist()}

    def test_a_wheel_has_every_file_of_the_package(self) -> None:
        name = quenzel7_build.build_wheel(str(self.folder))
        self.assertEqual(name, f"quenzel7-{__version__}-py3-none-any.whl")
        files = self.contents(name)
        sources = [path for path in (FOLDER / "quenzel7").iterdir() if path.suffix in (".py", ".pyi", ".typed")]
        self.assertGreater(len(sources), 10)
        for path in sources:
            self.assertEqual(files.pop(f"quenzel7/{path.name}"), path.read_bytes())
        info = f"quenzel7-{__version__}.dist-info"
        self.assertEqual(
            list(files), ["quenzel7/_origin.py", f"{info}/METADATA", f"{info}/WHEEL", f"{info}/RECORD"]
        )

    def test_a_wheel_tells_what_it_is(self) -> None:
        files = self.contents(quenzel7_build.build_wheel(str(self.folder)))
        info = f"quenzel7-{__version__}.dist-info"
        self.assertEqual(
            files[f"{info}/METADATA"].decode().splitlines(),
            ["Metadata-Version: 2.1", "Name: quenzel7", f"Version: {__version__}",
             "Summary: The elements of operator panels' pages, late-bound over the automation server",
             "Requires-Python: >=3.9"],
        )  # fmt: skip
        self.assertEqual(
            files[f"{info}/WHEEL"].decode().splitlines(),
            ["Wheel-Version: 1.0", "Generator: quenzel7_build", "Root-Is-Purelib: true", "Tag: py3-none-any"],
        )

    def test_the_record_of_a_wheel_has_every_file_with_its_digest(self) -> None:
        files = self.contents(quenzel7_build.build_wheel(str(self.folder)))
        record = f"quenzel7-{__version__}.dist-info/RECORD"
        rows = list(csv.reader(files[record].decode().splitlines()))
        self.assertEqual([row[0] for row in rows], list(files))
        self.assertEqual(rows.pop(), [record, "", ""])
        for name, digest, size in rows:
            expected = base64.urlsafe_b64encode(hashlib.sha256(files[name]).digest()).decode().rstrip("=")
            self.assertEqual((digest, int(size)), (f"sha256={expected}", len(files[name])))

    def test_the_same_files_give_the_same_wheel(self) -> None:
        first = (self.folder / quenzel7_build.build_wheel(str(self.folder))).read_bytes()
        second = (self.folder / quenzel7_build.build_wheel(str(self.folder))).read_bytes()
        self.assertEqual(first, second)

    def test_files_of_a_wheel_can_be_read_by_all(self) -> None:
        with zipfile.ZipFile(self.folder / quenzel7_build.build_wheel(str(self.folder))) as archive:
            self.assertEqual({entry.external_attr >> 16 for entry in archive.infolist()}, {0o644})
            self.assertEqual({entry.compress_type for entry in archive.infolist()}, {zipfile.ZIP_DEFLATED})

    def test_an_editable_wheel_leads_to_the_sources(self) -> None:
        files = self.contents(quenzel7_build.build_editable(str(self.folder)))
        self.assertEqual(files["quenzel7.pth"].decode(), f"{FOLDER}\n")
        self.assertEqual(len(files), 4)

    def test_a_wheel_notes_where_the_sources_are(self) -> None:
        files = self.contents(quenzel7_build.build_wheel(str(self.folder)))
        noted: "dict[str, str]" = {}
        exec(files["quenzel7/_origin.py"], noted)
        self.assertEqual(noted["SOURCE_TREE"], str(FOLDER.parent.parent))
        self.assertFalse((FOLDER / "quenzel7" / "_origin.py").exists())

    def test_a_wheel_made_outside_of_a_source_tree_notes_none(self) -> None:
        shutil.copytree(FOLDER / "quenzel7", self.folder / "a" / "b" / "quenzel7")
        shutil.copy(FOLDER / "pyproject.toml", self.folder / "a" / "b")
        with mock.patch.object(quenzel7_build, "_FOLDER", self.folder / "a" / "b"):
            files = self.contents(quenzel7_build.build_wheel(str(self.folder)))
        self.assertIn("quenzel7/__init__.py", files)
        self.assertNotIn("quenzel7/_origin.py", files)

    def test_versions_are_those_of_the_library(self) -> None:
        project = (FOLDER / "pyproject.toml").read_text(encoding="utf-8")
        self.assertIn(f'\nversion = "{__version__}"\n', project)
        library = (FOLDER.parent.parent / "CMakeLists.txt").read_text(encoding="utf-8")
        self.assertEqual(re.search(r"\n  VERSION ([0-9.]+)", library).group(1), __version__)  # type: ignore[union-attr]


class InstalledTest(unittest.TestCase):
    """A package that stands away from its sources finds the library that is built beside them."""

    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name).resolve()
        # Sources of their own, with what was built beside them.
        self.sources = self.root / "sources"
        python = self.sources / "hosts" / "python"
        ignored = shutil.ignore_patterns("__pycache__", "*.egg-info", "build")
        shutil.copytree(FOLDER, python, ignore=ignored)
        (self.sources / "server").mkdir()
        shutil.copy(FOLDER.parent.parent / "server" / "quenzel7_automation.h", self.sources / "server")
        self.library = self.sources / "build" / "lib" / "libquenzel7.so"
        self.library.parent.mkdir(parents=True)
        self.library.symlink_to(Path(_library.library().path).resolve())
        self.target = self.root / "target"

    def environment(self) -> "dict[str, str]":
        kept = {name: value for name, value in os.environ.items() if not name.startswith(("QUENZEL7", "PYTHON"))}
        return {**kept, "PYTHONPATH": str(self.target), "XDG_DATA_HOME": str(self.root / "data")}

    def imported(self) -> "list[str]":
        """Where an installed package stands, which library it found, and that it makes objects."""
        program = (
            "import quenzel7 as q; from quenzel7 import _library; "
            "print(q.__file__, _library.library().path, q.clsRectangle(Xs=7).Xs, sep='\\n')"
        )
        done = subprocess.run(
            [sys.executable, "-c", program], env=self.environment(), cwd=self.root, capture_output=True, text=True
        )
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout.splitlines()

    def test_out_of_a_wheel(self) -> None:
        with mock.patch.object(quenzel7_build, "_FOLDER", self.sources / "hosts" / "python"):
            name = quenzel7_build.build_wheel(str(self.root))
        with zipfile.ZipFile(self.root / name) as archive:
            archive.extractall(self.target)
        self.assertEqual(
            self.imported(), [str(self.target / "quenzel7" / "__init__.py"), str(self.library), "7"]
        )

    def test_by_pip(self) -> None:
        if importlib.util.find_spec("pip") is None:
            self.skipTest("pip is not there")
        folder = self.sources / "hosts" / "python"
        options = ["--no-index", "--no-build-isolation", "--no-deps", "--quiet", "--disable-pip-version-check"]
        done = subprocess.run(
            [sys.executable, "-m", "pip", "install", *options, "--target", str(self.target), str(folder)],
            env={**os.environ, "PIP_BREAK_SYSTEM_PACKAGES": "1", "PIP_ROOT_USER_ACTION": "ignore"},
            cwd=self.root, capture_output=True, text=True,
        )  # fmt: skip
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(
            self.imported(), [str(self.target / "quenzel7" / "__init__.py"), str(self.library), "7"]
        )


if __name__ == "__main__":
    unittest.main()
