"""What the documents show of Python works, and shows what comes out."""

from __future__ import annotations

import builtins
import doctest
import json
import os
import re
import shlex
import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path
from typing import Any, Dict, List

import support  # noqa: F401
import quenzel7 as q
from quenzel7._library import library
from test_server import ServerCase

ROOT = Path(__file__).resolve().parents[3]


HOST_PAGE = ROOT / "docs" / "writing-a-host.md"


def blocks(path: Path, language: str = "python") -> List[str]:
    """The blocks of a language in a page."""
    pattern = rf"^```{language}\n(.*?)^```$"
    return re.findall(pattern, path.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)


class DocumentTest(ServerCase):
    def setUp(self) -> None:
        super().setUp()
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(os.chdir, os.getcwd())
        os.chdir(folder.name)

    def run_block(self, block: str, names: Dict[str, Any], place: str) -> None:
        """Runs a block, or what stands behind its prompts, whose results have to be those that it shows."""
        if ">>>" not in block:
            exec(compile(block, place, "exec"), names)
            return
        test = doctest.DocTestParser().get_doctest(block, names, place, place, 0)
        told: List[str] = []
        runner = doctest.DocTestRunner(optionflags=doctest.ELLIPSIS)
        found = runner.run(test, out=told.append, clear_globs=False)
        names.update(test.globs)
        # The last value that was shown is kept as at a prompt.
        vars(builtins).pop("_", None)
        self.assertEqual((found.failed, "".join(told)), (0, ""))

    def test_the_page_on_python(self) -> None:
        names: Dict[str, Any] = {}
        found = blocks(ROOT / "docs" / "python.md")
        self.assertGreater(len(found), 10)
        for place, block in enumerate(found):
            self.run_block(block, names, f"block {place + 1} of python.md")
        self.assertTrue(Path("page.png").read_bytes().startswith(b"\x89PNG"))
        names.clear()

    def test_the_readme(self) -> None:
        (block,) = blocks(ROOT / "README.md")
        names: Dict[str, Any] = {}
        self.run_block(block, names, "README.md")
        tank = names["tank"]
        self.assertEqual((tank.ID, tank.Xs, tank.Ys, tank.Dx, tank.Dy), (1, 10, 10, 120, 40))
        self.assertTrue(Path("tank.png").read_bytes().startswith(b"\x89PNG"))
        del tank
        names.clear()


class HostPageTest(ServerCase):
    """The page on writing a host."""

    def compiler(self) -> str:
        compiler = shutil.which("cc")
        if compiler is None:
            self.skipTest("there is no compiler of C")
        return compiler

    def expect_shown(self, shown: Any, told: Any, place: str) -> None:
        """What is shown is told so: what has a name has the same keys, lists have what is shown among theirs, and "..." and "{...}" stand for any text."""
        self.assertIs(type(shown), type(told), place)
        if isinstance(shown, dict):
            for key, value in shown.items():
                self.assertIn(key, told, place)
                self.expect_shown(value, told[key], f"{place}.{key}")
            if "name" in shown:
                self.assertEqual(list(shown), list(told), place)
        elif isinstance(shown, list) and shown and isinstance(shown[0], dict):
            by_name = {one["name"]: one for one in told}
            for one in shown:
                self.assertIn(one["name"], by_name, place)
                self.expect_shown(one, by_name[one["name"]], f"{place}[{one['name']}]")
        elif isinstance(shown, list):
            self.assertEqual([one for one in shown if one not in told], [], place)
        elif shown not in ("...", "{...}"):
            self.assertEqual(shown, told, place)

    def test_the_description_is_as_shown(self) -> None:
        (block,) = blocks(HOST_PAGE, "json")
        self.expect_shown(json.loads(block), json.loads(q.platform.services.Describe()), "Describe")

    def test_the_functions_of_the_snippet_are_declared(self) -> None:
        (block,) = blocks(HOST_PAGE, "c")
        header = (ROOT / "server" / "quenzel7_automation.h").read_text(encoding="utf-8")
        called = re.findall(r"\b(Quenzel7\w+)\(", block)
        self.assertGreater(len(called), 3)
        for name in called:
            self.assertRegex(header, rf"QUENZEL7_API [^;]*\b{name}\(")
            self.assertIsNotNone(getattr(library(), name))

    def test_the_snippet_is_c(self) -> None:
        (block,) = blocks(HOST_PAGE, "c")
        program = f'#include "server/quenzel7_automation.h"\nvoid Paint(void) {{\n{block}}}\n'
        done = subprocess.run(
            [self.compiler(), "-std=c11", "-Wall", "-Werror", "-fsyntax-only", f"-I{ROOT}", "-x", "c", "-"],
            input=program, capture_output=True, text=True,
        )  # fmt: skip
        self.assertEqual((done.returncode, done.stderr), (0, ""))

    def test_the_program_is_compiled_as_told(self) -> None:
        self.compiler()
        lines = blocks(HOST_PAGE, "sh")[0].splitlines()
        self.assertEqual(lines[2], "build/rectangle build/lib/libquenzel7.so")
        with tempfile.TemporaryDirectory() as folder:
            made = str(Path(folder) / "rectangle")
            arguments = [made if word == "build/rectangle" else word for word in shlex.split(lines[1])]
            self.assertIn(made, arguments)
            done = subprocess.run(arguments, cwd=ROOT, capture_output=True, text=True)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            run = subprocess.run([made, library().path], capture_output=True, text=True)
            self.assertEqual((run.returncode, run.stderr), (0, ""))

    def test_registering_is_done_as_told(self) -> None:
        words = shlex.split(blocks(HOST_PAGE, "sh")[1], comments=True)
        self.assertEqual(words[:4], ["PYTHONPATH=hosts/python", "python3", "-m", "quenzel7.register"])
        with tempfile.TemporaryDirectory() as folder:
            environment = {**os.environ, "PYTHONPATH": "hosts/python", "XDG_DATA_HOME": folder}
            for remove in ([], ["--remove"]):
                done = subprocess.run(
                    [sys.executable, *words[2:4], library().path, *remove],
                    cwd=ROOT, env=environment, capture_output=True, text=True,
                )  # fmt: skip
                self.assertEqual((done.returncode, done.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
