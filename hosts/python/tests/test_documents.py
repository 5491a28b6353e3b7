"""What the documents show of Python works, and shows what comes out."""

from __future__ import annotations

import doctest
import os
import re
import tempfile
import unittest
from pathlib import Path
from typing import Any, Dict, List

import support  # noqa: F401
from test_server import ServerCase

ROOT = Path(__file__).resolve().parents[3]


def blocks(path: Path) -> List[str]:
    """The blocks of Python in a page."""
    return re.findall(r"^```python\n(.*?)^```$", path.read_text(encoding="utf-8"), re.MULTILINE | re.DOTALL)


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


if __name__ == "__main__":
    unittest.main()
