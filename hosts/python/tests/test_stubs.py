"""The type stub: that it is up to date, and what stands in it."""

from __future__ import annotations

import ast
import contextlib
import io
import json
import os
import shutil
import subprocess
import tempfile
import textwrap
import unittest
from pathlib import Path
from typing import Any, Dict, List
from unittest import mock

from support import FOLDER, TOLD, Case
from test_server import ServerCase
import quenzel7 as q
from quenzel7 import _types, stubs


def named(tree: Any) -> Dict[str, List[Any]]:
    """What is defined in a module or a class, by name."""
    found: Dict[str, List[Any]] = {}
    for node in tree.body:
        if isinstance(node, (ast.ClassDef, ast.FunctionDef)):
            found.setdefault(node.name, []).append(node)
        elif isinstance(node, ast.ImportFrom):
            for alias in node.names:
                found.setdefault(alias.asname or alias.name, []).append(node)
        elif isinstance(node, (ast.Assign, ast.AnnAssign)):
            target = node.targets[0] if isinstance(node, ast.Assign) else node.target
            found.setdefault(ast.unparse(target), []).append(node)
    return found


def head(node: ast.FunctionDef) -> str:
    """A function without its text."""
    return f"{node.name}({ast.unparse(node.args)}) -> {ast.unparse(node.returns or ast.Constant(None))}"


class CommittedTest(ServerCase):
    def test_it_is_what_the_library_tells(self) -> None:
        if stubs.FILE.read_text(encoding="utf-8") != stubs.stub():
            self.fail(f"{stubs.FILE} is out of date; renew it by `python3 -m quenzel7.stubs` in hosts/python")
        self.assertTrue(stubs.FILE.with_name("py.typed").is_file())

    def test_it_has_every_name_of_the_package(self) -> None:
        tree = ast.parse(stubs.FILE.read_text(encoding="utf-8"))
        names = named(tree)
        for name in dir(q):
            self.assertIn(name, names)
        for name in _types.types().class_names():
            info = _types.types().class_info(name)
            (node,) = names[name]
            held = set(named(node))
            for base in node.bases:
                if ast.unparse(base) != "_Object":
                    held |= set(named(names[ast.unparse(base)][0]))
            for interface in info.interfaces:
                members = _types.types().interface(interface).members
                self.assertEqual({m.name for m in members if m.role != "enumerator"} - held, set(), name)

    def test_every_name_in_its_annotations_is_known(self) -> None:
        tree = ast.parse(stubs.FILE.read_text(encoding="utf-8"))
        known = {*named(tree), "int", "str", "bool", "float", "bytes", "bytearray", "memoryview", "property"}
        for node in ast.walk(tree):
            if isinstance(node, ast.FunctionDef):
                places = [node.returns, *(argument.annotation for argument in node.args.args)]
                for place in filter(None, places):
                    for inside in ast.walk(place):
                        if isinstance(inside, ast.Name):
                            self.assertIn(inside.id, known)


class WrittenTest(Case):
    def library(self) -> _types.TypeLibrary:
        told = json.loads(json.dumps(TOLD))
        told["interfaces"][0]["members"] += [
            {"name": "Data", "id": 20, "kind": "property", "type": "Byte()", "get": True, "put": True},
            {"name": "Plain", "id": 21, "kind": "property", "type": "Plain", "get": True},
            {"name": "ItfPlainOf", "id": 22, "kind": "method", "type": "ItfPlain", "parameters": [
                {"name": "from", "type": "Boolean"}, {"name": "kind", "type": "enKind"},
                {"name": "object", "type": "Plain"}, {"name": "other", "type": "Unknown"}]},
            {"name": "pass", "id": 23, "kind": "method", "type": ""},
            {"name": "Cells", "id": 24, "kind": "property", "type": "Long()", "get": True},
            {"name": "Amount", "id": 25, "kind": "property", "type": "Currency", "get": True,
             "doc": 'a \\ "b"'},
        ]  # fmt: skip
        told["classes"].append({"name": "ItfPlain", "interfaces": ["ItfPlain"]})
        return _types.TypeLibrary(json.dumps(told))

    def test_members_have_their_types(self) -> None:
        text = stubs.stub(self.library())
        names = named(ast.parse(text))
        (probe,) = names["Probe"]
        self.assertEqual([ast.unparse(base) for base in probe.bases], ["ItfPlain"])
        heads = [
            (head(node), [ast.unparse(one) for one in node.decorator_list])
            for node in probe.body
            if isinstance(node, ast.FunctionDef)
        ]
        read, plain = ["property"], []  # type: ignore[var-annotated]
        self.assertEqual(
            heads,
            [
                ("__init__(self, **properties: Any) -> None", plain),
                ("default(self) -> Probe", read),
                ("__len__(self) -> int", plain),
                ("__call__(self, *arguments: Any) -> Any", plain),
                ("__getitem__(self, index: Any) -> Any", plain),
                ("__iter__(self) -> Iterator[Any]", plain),
                ("Xs(self) -> int", read),
                ("Xs(self, value: int) -> None", ["Xs.setter"]),
                ("Label(self) -> str", read),
                ("Label(self, value: str) -> None", ["Label.setter"]),
                ("Kind(self) -> enKind", read),
                ("Kind(self, value: int) -> None", ["Kind.setter"]),
                ("Owner(self) -> Any", read),
                ("Owner(self, value: Any) -> None", ["Owner.setter"]),
                ("Fixed(self) -> int", read),
                ("Secret(self) -> Any", read),
                ("Secret(self, value: int) -> None", ["Secret.setter"]),
                ("Stretch(self, pDx: SupportsIndex, pDy: Union[Ref, SupportsIndex], pDirection: SupportsIndex=...) -> enKind", plain),
                ("Take(self, pMap: Any) -> None", plain),
                ("Any(self) -> Any", read),
                ("Any(self, value: Any) -> None", ["Any.setter"]),
                ("Count(self) -> int", read),
                ("Part(self) -> Any", read),
                ("Part(self, value: Any) -> None", ["Part.setter"]),
                ("Piece(self) -> Any", read),
                ("Piece(self, value: int) -> None", ["Piece.setter"]),
                ("Item(self, index: Any) -> Any", plain),
                ("Data(self) -> bytes", read),
                ("Data(self, value: _Bytes) -> None", ["Data.setter"]),
                ("Plain(self) -> _Plain", read),
                ("ItfPlainOf(self, from_: bool, kind: int, object: Any, other: int) -> Any", plain),
                ("Cells(self) -> List[int]", read),
                ("Amount(self) -> Decimal", read),
            ],
        )
        self.assertEqual(ast.get_docstring(named(probe)["Amount"][0]), 'a \\ "b"')
        self.assertEqual(ast.get_docstring(named(probe)["Xs"][0]), "Left edge.")

    def test_contracts_stand_before_those_that_have_them(self) -> None:
        text = stubs.stub(self.library())
        self.assertLess(text.index("class ItfPlain(_Object):"), text.index("class Probe(ItfPlain):"))
        contract = named(named(ast.parse(text))["ItfPlain"][0])
        self.assertEqual([head(node) for node in contract["ItfPlain"]], ["ItfPlain(self) -> _ItfPlain"])
        self.assertEqual([head(node) for node in contract["default"]], ["default(self) -> Any"])
        self.assertNotIn("__init__", contract)

    def test_the_functions_and_enumerations(self) -> None:
        tree = ast.parse(stubs.stub(self.library()))
        names = named(tree)
        self.assertEqual(
            [head(node) for node in names["create"]],
            [
                "create(class_name: Literal['Probe'], **properties: Any) -> Probe",
                "create(class_name: str, **properties: Any) -> Any",
            ],
        )
        (collection,) = names["collection"]
        self.assertEqual(head(collection), "collection(*items: Any, **keyed: Any) -> Collection")
        enumeration = "class enKind(IntEnum):\n    eK_None = 0\n    eK_Some = 5"
        self.assertEqual(ast.unparse(names["enKind"][0]), enumeration)
        self.assertEqual(
            ast.unparse(names["_Enumerations"][0]), "class _Enumerations:\n    enKind: Type[_enKind]"
        )
        self.assertEqual(ast.unparse(names["enums"][0]), "enums: _Enumerations")
        for alias in ("enKind", "Plain"):
            self.assertEqual(ast.unparse(names[f"_{alias}"][0]), f"_{alias} = {alias}")
        self.assertNotIn("_Probe", names)

    def test_lines_are_no_wider_than_those_of_the_package(self) -> None:
        parameters = ["self", *(f"parameter_{number}: int" for number in range(12))]
        lines = stubs._function("name", parameters, "None", "word " * 60)
        # In a class they stand four places further in.
        self.assertLessEqual(max(map(len, lines)), 106)
        node = ast.parse("\n".join(lines)).body[0]
        assert isinstance(node, ast.FunctionDef)
        self.assertEqual(len(node.args.args), 13)

    def test_a_head_is_broken_only_when_it_is_too_wide(self) -> None:
        # "def f(", the name and ") -> None:" around it.
        fits = "a" * (102 - len("def f() -> None:"))
        self.assertEqual(stubs._function("f", [fits], "None", ""), [f"def f({fits}) -> None: ..."])
        wide = fits + "a"
        broken = ["def f(", f"    {wide},", ") -> None: ..."]
        self.assertEqual(stubs._function("f", [wide], "None", ""), broken)

    def test_texts_stand_in_quotation_marks_whatever_is_in_them(self) -> None:
        for text in ('back\\slash', 'three """ marks', 'ends "so"'):
            node = ast.parse("\n".join(stubs._function("f", [], "None", text))).body[0]
            assert isinstance(node, ast.FunctionDef)
            self.assertEqual(ast.get_docstring(node), text.replace('"""', "'''"))

    def test_it_is_written_where_the_package_stands(self) -> None:
        self.assertEqual(stubs.FILE, Path(q.__file__).with_name("__init__.pyi"))
        with tempfile.TemporaryDirectory() as folder, contextlib.redirect_stdout(io.StringIO()) as told:
            file = Path(folder) / "stub.pyi"
            with mock.patch.object(stubs, "FILE", file):
                stubs.main()
            self.assertEqual(file.read_text(encoding="utf-8"), stubs.stub())
            self.assertEqual(told.getvalue(), f"{file} is up to date\n")


class CheckedTest(unittest.TestCase):
    """What a type checker makes of it, where there is one."""

    def checked(self, *programs: Path) -> List[str]:
        """What mypy finds in programs, unannotated functions too: line and text of each error."""
        mypy = shutil.which("mypy")
        if mypy is None:
            self.skipTest("mypy is not there")
        options = ["--check-untyped-defs", "--follow-imports=silent", "--cache-dir", os.devnull]
        done = subprocess.run(
            [mypy, *options, "--no-error-summary", *map(str, programs)],
            env={**os.environ, "MYPYPATH": str(FOLDER)}, capture_output=True, text=True,
        )  # fmt: skip
        self.assertEqual(done.stderr, "")
        return [line.split(":", 1)[1] for line in done.stdout.splitlines() if ": error: " in line]

    def test_the_examples_and_the_stub_pass(self) -> None:
        examples = sorted((FOLDER.parent.parent / "examples").glob("*.py"))
        self.assertGreater(len(examples), 1)
        self.assertEqual(self.checked(*examples, stubs.FILE), [])

    def test_what_is_right_passes_and_what_is_misspelt_is_told(self) -> None:
        program = """\
            import quenzel7 as q
            tank = q.clsRectangle(Xs=1)
            x = q.Ref()
            tank.GetBoundingRect(x, 1, q.Ref(0, "Long"), x)
            tank.Draw(q.Surface(1, 1), False)
            variable = q.create("clsVar")
            variable.BinaryHandlers(q.enVarType.eVT_Numeric).Postfix = "bar"
            with q.Project("a.qz7") as project:
                rows = project.recordset("SELECT 1")
                width: int = rows.RecordCount
                project.execute("SELECT 1").MoveNext()
                project.connection.BeginTrans()
            bag: q.Bag = q.property_bag(b"")
            inner: q.PropertyBag = bag.object
            q.platform.services.NewCollection()
            tank.PenWidht = 2
            tank.Stretsch(1, 2)
            rows.MoveFrist()
            project.connection.Exceute("")
            q.platform.services.NewColection()
            q.platform.color("red")
            q.platform.paeg = 1
            """
        with tempfile.TemporaryDirectory() as folder:
            file = Path(folder) / "program.py"
            file.write_text(textwrap.dedent(program), encoding="utf-8")
            found = self.checked(file)
        self.assertEqual([int(line.split(":")[0]) for line in found], list(range(16, 23)), found)
        for line, name in zip(found, ("PenWidht", "Stretsch", "MoveFrist", "Exceute", "NewColection", "", "paeg")):
            self.assertIn(name, line)


if __name__ == "__main__":
    unittest.main()
