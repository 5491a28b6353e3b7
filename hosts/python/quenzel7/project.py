"""Projects: `Project("plant.qz7")` opens a project file for the thread, or makes it, and gives its
elements."""

from __future__ import annotations

import os
import threading
from contextlib import contextmanager
from typing import TYPE_CHECKING, Any, Dict, Iterator, List, Optional, Tuple, Union

from . import _services
from ._attributes import Spelt
from ._types import types
from .errors import AutomationError

if TYPE_CHECKING:
    from . import Connection, Recordset

OPEN_FORWARD_ONLY, OPEN_KEYSET, OPEN_DYNAMIC, OPEN_STATIC = 0, 1, 2, 3
LOCK_READ_ONLY, LOCK_PESSIMISTIC, LOCK_OPTIMISTIC = 1, 2, 3

_MODES = {"open": 0, "create": 1, "read": 2}
_GROUP = "clsGroup"
# Groups that stand deeper than that are given beside the others.
_DEEPEST_GROUP = 32
_ON_TOP = 0x7FFFFFFF


def _class_by_type() -> Dict[int, str]:
    """The classes of elements by the ElementType that they tell."""
    known: Dict[int, str] = {}
    for name in types().class_names():
        info = types().class_info(name)
        if info.creatable and "ItfHmiElement" in info.interfaces:
            known.setdefault(int(_services.create(name).ItfHmiElement.ElementType), name)
    return known


class _Tree:
    """Elements in drawing order, the members of groups in their groups."""

    def __init__(self, elements: List[Any]) -> None:
        groups = {element.ID for element in elements if _is_group(element) and element.ID != -1}
        self._tops: List[Any] = []
        self._members: Dict[int, List[Any]] = {}
        for element in elements:
            owner = element.GroupID
            if owner in groups:
                self._members.setdefault(owner, []).append(element)
            else:
                self._tops.append(element)

    def build(self) -> List[Any]:
        """The elements that stand in no group; all others are in these."""
        placed: List[Tuple[Tuple[int, int], Any]] = []
        while self._tops or self._members:
            if not self._tops:
                self._break_cycle()
            element = self._tops.pop(0)
            placed.append((self._fill(element, 1), element))
        return [element for _, element in sorted(placed, key=lambda one: one[0])]

    def _break_cycle(self) -> None:
        """Takes a group that is in itself, directly or through others, out of its group."""
        seen: List[int] = []
        group = min(self._members)
        while group not in seen:
            seen.append(group)
            group = next(owner for owner, members in self._members.items() if _stands_in(group, members))
        owner = next(owner for owner, members in self._members.items() if _stands_in(group, members))
        member = next(member for member in self._members[owner] if _is_group(member) and member.ID == group)
        self._members[owner].remove(member)
        self._tops.append(member)

    def _fill(self, element: Any, depth: int) -> Tuple[int, int]:
        """Puts the members into a group; gives the element's place in the drawing order."""
        if not _is_group(element):
            return _place_of(element)
        placed = []
        for member in self._members.pop(element.ID, []):
            if depth == _DEEPEST_GROUP and _is_group(member):
                self._tops.append(member)
            else:
                placed.append((self._fill(member, depth + 1), member))
        placed.sort(key=lambda one: one[0])
        for _, member in placed:
            element.ColGroup.Add(member, str(member.ID))
            if _is_group(member):
                element.Depth = max(element.Depth, 1 + member.Depth)
        return placed[0][0] if placed else (_ON_TOP, int(element.ID))


def _is_group(element: Any) -> bool:
    return bool(element._owner == _GROUP)


def _stands_in(group: int, members: List[Any]) -> bool:
    return any(_is_group(member) and member.ID == group for member in members)


def _place_of(element: Any) -> Tuple[int, int]:
    """What a single element is ordered by. Variables lie on top, in the order of their rows."""
    order = _ON_TOP if element._owner == "clsVar" else int(element.ItfHmiElement.OrderIndex)
    return order, int(element.ID)


class Project(Spelt):
    """A project file, open for this thread: elements are saved to it and read from it.

        with Project("plant.qz7") as project:
            project.page = 1
            q.create("clsRectangle", Xs=10, Ys=10, Dx=60, Dy=30).SaveToDB()

    Members are error 91 once it is closed, or once platform.reset or platform.supply put another project
    database in the place of its own; `close` is good at any time.

    mode: "create" makes a project that is not there, "open" wants it to be there, "read" cannot change it. A
    thread has one project open; opening another leaves this one's connection to those who hold it.
    """

    def __init__(self, path: Union[str, "os.PathLike[str]"], mode: str = "create") -> None:
        if mode not in _MODES:
            modes = ", ".join(map(repr, _MODES))
            raise AutomationError(5, f"a project is opened by the modes {modes}, not by {mode!r}")
        database = _services.host_services().ProjectDatabase
        if getattr(database, "_owner", "") != "EmbeddedProjectDatabase":
            text = "the project database is the host's own; platform.supply(project_database=None) ends that"
            raise AutomationError(5, text)
        self._database = database
        self._thread = threading.get_ident()
        self._path = os.fspath(path)
        self._connection: Optional["Connection"] = database.Open(self._path, _MODES[mode])

    @property
    def path(self) -> str:
        """The path that the project was opened by."""
        return self._path

    @property
    def connection(self) -> "Connection":
        """The open connection; error 91 when the project is closed, or is not that of the thread any more."""
        if self._connection is None:
            raise AutomationError(91, f"the project {self._path} is closed")
        if self._is_left():
            text = (
                f"the project {self._path} is not that of the thread any more: since it was opened "
                "platform.reset or platform.supply put another project database in its place"
            )
            raise AutomationError(91, text)
        return self._connection

    def _is_left(self) -> bool:
        """Whether elements of the thread look for their project elsewhere. Another thread's project is not
        judged: its connection refuses every call."""
        if self._thread != threading.get_ident():
            return False
        return bool(self._database != _services.host_services().ProjectDatabase)

    @property
    def page(self) -> int:
        """The number of the page that is open, one for all that the thread does: new elements are saved there."""
        self.connection
        return int(_services.host_services().Page)

    @page.setter
    def page(self, number: int) -> None:
        self.connection
        _services.host_services().Page = number

    def execute(self, sql: str) -> "Recordset":
        """Runs a statement. A query gives a recordset on its first row, to be read once from the front."""
        return self.connection.Execute(sql)

    def recordset(self, sql: str, cursor: int = OPEN_STATIC, lock: int = LOCK_OPTIMISTIC) -> "Recordset":
        """An opened recordset on the first row that a query gives, as LoadFromDB takes it. Rows can be
        changed unless `lock` is LOCK_READ_ONLY."""
        rows = self.connection.CreateRecordset()
        rows.Open(sql, self.connection, cursor, lock)
        return rows

    @contextmanager
    def transaction(self) -> Iterator["Project"]:
        """Makes everything in the `with` block lasting together, or nothing when it is left by an
        exception."""
        connection = self.connection
        connection.BeginTrans()
        try:
            yield self
        except BaseException:
            connection.RollbackTrans()
            raise
        connection.CommitTrans()

    def elements(self, page: Optional[int] = None) -> List[Any]:
        """The elements of a page, that which is open when none is named, in drawing order. Members of a group
        are in its ColGroup. Error 5 for a row of a type without a class."""
        number = self.page if page is None else page
        rows = self.recordset(
            f"SELECT * FROM HMI_Elements WHERE DisplayID={int(number)} ORDER BY ID",
            OPEN_STATIC,
            LOCK_READ_ONLY,
        )
        classes = _class_by_type()
        loaded = []
        while not rows.EOF:
            kind = rows.Fields("Type").Value
            if kind not in classes:
                row = rows.Fields("ID").Value
                text = f"row {row} of HMI_Elements: there is no class of element type {kind}"
                raise AutomationError(5, text)
            element = _services.create(classes[kind])
            element.ItfHmiElement.LoadFromDB(rows)
            loaded.append(element)
            rows.MoveNext()
        rows.Close()
        return _Tree(loaded).build()

    def close(self) -> None:
        """Closes the project. Closing twice does nothing; an open transaction is rolled back."""
        connection, self._connection = self._connection, None
        if connection is None:
            return
        if self._is_held(connection):
            self._database.Close()
        else:
            connection.Close()

    def _is_held(self, connection: "Connection") -> bool:
        """Whether the thread still works with this project."""
        try:
            return bool(self._database.OpenConnection() == connection)
        except AutomationError:
            return False

    def __enter__(self) -> "Project":
        return self

    def __exit__(self, *exception: Any) -> None:
        self.close()

    def __repr__(self) -> str:
        state = ", closed" if self._connection is None else ", not of the thread any more" if self._is_left() else ""
        return f"<Project {self._path!r}{state}>"
