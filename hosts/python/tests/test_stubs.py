"""The type stub: that it is up to date, and what stands in it."""

from __future__ import annotations

import ast
import contextlib
import io
import json
import tempfile
import unittest
from pathlib import Path
from typing import Any, Dict, List
from unittest import mock

from support import TOLD, Case
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
                if ast.unparse(base) != "_Dispatch":
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
                ("Stretch(self, pDx: int, pDy: Ref, pDirection: int=...) -> enKind", plain),
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
                (
                    "ItfPlainOf(self, from_: bool, kind: int, object: Any, other: int) -> Union[_ItfPlain, Any]",
                    plain,
                ),
                ("Cells(self) -> List[int]", read),
                ("Amount(self) -> Decimal", read),
            ],
        )
        self.assertEqual(ast.get_docstring(named(probe)["Amount"][0]), 'a \\ "b"')
        self.assertEqual(ast.get_docstring(named(probe)["Xs"][0]), "Left edge.")

    def test_contracts_stand_before_those_that_have_them(self) -> None:
        text = stubs.stub(self.library())
        self.assertLess(text.index("class ItfPlain(_Dispatch):"), text.index("class Probe(ItfPlain):"))
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
        self.assertEqual(head(collection), "collection(*items: Any) -> Collection")
        enumeration = "class enKind(IntEnum):\n    eK_None = 0\n    eK_Some = 5"
        self.assertEqual(ast.unparse(names["enKind"][0]), enumeration)
        self.assertEqual(
            ast.unparse(names["_Enumerations"][0]), "class _Enumerations:\n    enKind: Type[_enKind]"
        )
        self.assertEqual(ast.unparse(names["enums"][0]), "enums: _Enumerations")
        for alias in ("enKind", "Plain", "ItfPlain"):
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


if __name__ == "__main__":
    unittest.main()
