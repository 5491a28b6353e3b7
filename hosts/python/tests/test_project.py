"""Projects: opening and closing, rows, transactions, and the elements of a page."""

from __future__ import annotations

import tempfile
import threading
import unittest
from pathlib import Path
from typing import Any, List

from test_server import ServerCase
import quenzel7 as q
from quenzel7 import _abi
from quenzel7 import project as projects


class ProjectCase(ServerCase):
    """A test with a folder of its own and a project in it."""

    def setUp(self) -> None:
        super().setUp()
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name).resolve()
        self.path = self.folder / "plant.qz7"
        self.project = q.Project(self.path)
        self.project.page = 1

    def tearDown(self) -> None:
        self.project.close()
        del self.project
        super().tearDown()

    def saved(self, class_name: str = "clsRectangle", **properties: Any) -> Any:
        element = q.create(class_name, **properties)
        element.SaveToDB()
        return element


class WalkTest(ProjectCase):
    def test_rows_are_walked_over_from_the_one_that_is_stood_on(self) -> None:
        for x in (5, 6, 7):
            self.saved(Xs=x)
        rows = self.project.recordset("SELECT * FROM HMI_Elements ORDER BY ID")
        self.assertEqual([(row is rows, row("Xs").Value) for row in rows], [(True, 5), (True, 6), (True, 7)])
        self.assertTrue(rows.EOF)
        self.assertEqual(list(rows), [])
        rows.MoveFirst()
        rows.MoveNext()
        self.assertEqual([row("Xs").Value for row in rows], [6, 7])

    def test_rows_are_neither_searched_nor_walked_over_backwards(self) -> None:
        self.saved()
        rows = self.project.recordset("SELECT * FROM HMI_Elements")
        for use in (reversed, lambda one: rows in one):
            with self.assertRaises(TypeError):
                use(rows)
        self.assertFalse(rows.EOF)

    def test_what_is_indexed_without_an_end_is_not_walked_over(self) -> None:
        self.saved(Xs=5)
        field = self.project.recordset("SELECT * FROM HMI_Elements")("Xs")
        self.assertEqual(field(), 5)
        self.assertEqual(repr(field), "<Field Name='Xs' Value=5>")
        for use in (iter, list, reversed, lambda one: 5 in one):
            with self.assertRaises(TypeError):
                use(field)


class OpeningTest(ProjectCase):
    def test_a_project_that_is_not_there_is_made(self) -> None:
        self.assertTrue(self.path.is_file())
        self.assertEqual(self.project.path, str(self.path))
        self.assertEqual(q.platform.project_database.Path, str(self.folder))
        self.assertEqual(repr(self.project), f"<Project {str(self.path)!r}>")

    def test_the_block_closes_it(self) -> None:
        with self.project as project:
            self.assertIs(project, self.project)
            connection = project.connection
        self.raises(91, "no project is open", q.platform.project_database.OpenConnection)
        with self.assertRaises(q.AutomationError) as caught:
            connection.Execute("SELECT * FROM HMI_Elements")
        self.assertEqual(caught.exception.number, 3704)
        self.raises(91, f"the project {self.path} is closed", lambda: project.connection)
        self.assertEqual(repr(project), f"<Project {str(self.path)!r}, closed>")
        project.close()

    def test_what_was_saved_is_there_again(self) -> None:
        self.saved(Xs=7)
        self.project.close()
        with q.Project(self.path, "open") as project:
            self.assertEqual([element.Xs for element in project.elements(1)], [7])

    def test_modes(self) -> None:
        self.raises(
            5, "a project is opened by the modes 'open', 'create', 'read', not by 'write'",
            q.Project, self.path, "write",
        )  # fmt: skip
        missing = self.folder / "missing.qz7"
        for mode in ("open", "read"):
            with self.assertRaises(q.AutomationError) as caught:
                q.Project(missing, mode)
            self.assertEqual(caught.exception.number, 76)
        self.assertFalse(missing.exists())
        self.project.close()
        with q.Project(self.path, "read") as project:
            with self.assertRaises(q.AutomationError):
                project.execute("DELETE FROM HMI_Elements")
            self.assertEqual(project.elements(1), [])
        with q.Project(self.path, "open") as project:
            project.execute("DELETE FROM HMI_Elements")

    def test_another_one_takes_its_place_and_is_not_closed_with_it(self) -> None:
        connection = self.project.connection
        with q.Project(self.folder / "other.qz7") as other:
            self.project.close()
            with self.assertRaises(q.AutomationError):
                connection.Execute("SELECT * FROM HMI_Elements")
            self.assertEqual(q.platform.project_database.OpenConnection(), other.connection)
            self.assertEqual(other.elements(1), [])

    def test_a_database_of_the_hosts_own_is_left_in_its_place(self) -> None:
        own = object()
        q.platform.supply(project_database=own)
        self.raises(
            5, "the project database is the host's own; platform.supply(project_database=None) ends that",
            q.Project, self.folder / "other.qz7",
        )  # fmt: skip
        self.assertFalse((self.folder / "other.qz7").exists())
        q.platform.supply(project_database=None)

    def left(self) -> None:
        text = (
            f"the project {self.path} is not that of the thread any more: since it was opened platform.reset or "
            "platform.supply put another project database in its place"
        )
        for call in (
            lambda: self.project.connection, lambda: self.project.page, self.project.elements,
            lambda: setattr(self.project, "page", 1), lambda: self.project.execute("SELECT 1"),
            lambda: self.project.recordset("SELECT 1"), lambda: self.project.transaction().__enter__(),
        ):  # fmt: skip
            self.raises(91, text, call)
        self.assertEqual(repr(self.project), f"<Project {str(self.path)!r}, not of the thread any more>")

    def test_after_a_reset_it_is_not_the_threads_any_more(self) -> None:
        connection = self.project.connection
        q.platform.reset()
        self.quiet()
        self.left()
        self.project.close()
        self.assertEqual(repr(self.project), f"<Project {str(self.path)!r}, closed>")
        with self.assertRaises(q.AutomationError):
            connection.Execute("SELECT * FROM HMI_Elements")

    def test_while_a_database_of_the_hosts_own_is_there_it_is_not_the_threads(self) -> None:
        q.platform.supply(project_database=object())
        self.left()
        q.platform.supply(project_database=None)
        self.assertEqual((self.project.page, repr(self.project)), (1, f"<Project {str(self.path)!r}>"))

    def test_another_thread_is_refused_as_by_every_object(self) -> None:
        found: List[Any] = []

        def use() -> None:
            try:
                self.project.execute("SELECT 1")
            except q.AutomationError as error:
                found.append(error.number)
            found.append(repr(self.project))

        thread = threading.Thread(target=use)
        thread.start()
        thread.join()
        self.assertEqual(found, [_abi.RPC_E_WRONG_THREAD, f"<Project {str(self.path)!r}>"])

    def test_a_closed_one_has_no_page(self) -> None:
        self.project.close()
        text = f"the project {self.path} is closed"
        self.raises(91, text, lambda: self.project.page)
        self.raises(91, text, setattr, self.project, "page", 4)
        self.assertEqual(q.platform.page, 1)

    def test_the_page_is_where_elements_are_saved(self) -> None:
        self.project.page = 4
        self.assertEqual((self.project.page, q.platform.page), (4, 4))
        self.saved()
        rows = self.project.execute("SELECT DisplayID FROM HMI_Elements")
        self.assertEqual(rows.Fields("DisplayID").Value, 4)


class RowsTest(ProjectCase):
    def test_a_recordset_stands_on_its_first_row_and_loads_an_element(self) -> None:
        for x in (5, 6):
            self.saved(Xs=x)
        rows = self.project.recordset("SELECT * FROM HMI_Elements ORDER BY ID DESC")
        self.assertEqual((rows.EOF, rows.RecordCount, rows("ID").Value), (False, 2, 2))
        element = q.create("clsRectangle")
        element.ItfHmiElement.LoadFromDB(rows)
        self.assertEqual((element.ID, element.Xs), (2, 6))

    def test_its_rows_can_be_changed_unless_told_otherwise(self) -> None:
        self.saved(Xs=5)
        query = "SELECT * FROM HMI_Elements"
        rows = self.project.recordset(query)
        rows.Fields("Xs").Value = 9
        rows.Update()
        self.assertEqual(self.project.execute(query).Fields("Xs").Value, 9)
        rows = self.project.recordset(query, projects.OPEN_KEYSET, projects.LOCK_READ_ONLY)
        with self.assertRaises(q.AutomationError) as caught:
            rows.Fields("Xs").Value = 1
        self.assertEqual(caught.exception.number, 3251)
        rows = self.project.recordset(query, cursor=projects.OPEN_FORWARD_ONLY)
        self.assertEqual(rows.RecordCount, -1)

    def test_the_kinds_of_recordsets_have_their_published_numbers(self) -> None:
        kinds = ("OPEN_FORWARD_ONLY", "OPEN_KEYSET", "OPEN_DYNAMIC", "OPEN_STATIC")
        self.assertEqual([getattr(projects, name) for name in kinds], [0, 1, 2, 3])
        locks = (projects.LOCK_READ_ONLY, projects.LOCK_PESSIMISTIC, projects.LOCK_OPTIMISTIC)
        self.assertEqual(locks, (1, 2, 3))

    def test_the_recordset_is_a_copy_of_the_rows(self) -> None:
        self.saved(Xs=5)
        rows = self.project.recordset("SELECT * FROM HMI_Elements")
        self.project.execute("UPDATE HMI_Elements SET Xs=8")
        self.assertEqual(rows.Fields("Xs").Value, 5)

    def test_a_transaction_lasts_or_leaves_nothing(self) -> None:
        with self.project.transaction() as same:
            self.assertIs(same, self.project)
            self.saved(Xs=1)
        with self.assertRaises(KeyError):
            with self.project.transaction():
                self.saved(Xs=2)
                raise KeyError
        self.assertEqual([element.Xs for element in self.project.elements()], [1])
        with self.project.transaction():
            with self.assertRaises(q.AutomationError) as caught:
                self.project.transaction().__enter__()
            self.assertEqual(caught.exception.number, 3219)
            self.saved(Xs=3)
        self.assertEqual([element.Xs for element in self.project.elements()], [1, 3])


class ElementsTest(ProjectCase):
    def test_every_class_is_found_by_its_type(self) -> None:
        names = ["clsRectangle", "clsEllipse", "clsRoundRect", "clsLine", "clsText", "clsFrame", "clsVar"]
        for name in names:
            element = q.create(name, Xs=10, Ys=10, Dx=20, Dy=10)
            if name == "clsVar":
                element.VarType = q.enVarType.eVT_Numeric
            element.SaveToDB()
        found = [type(element).__name__ for element in self.project.elements()]
        self.assertEqual(sorted(found), sorted(names))
        self.assertEqual(found[-1], "clsVar")

    def test_the_page_is_that_which_is_open_or_the_one_named(self) -> None:
        self.saved(Xs=1)
        self.project.page = 2
        self.saved(Xs=2)
        self.assertEqual([element.Xs for element in self.project.elements()], [2])
        self.assertEqual([element.Xs for element in self.project.elements(1)], [1])
        self.assertEqual(self.project.elements(3), [])

    def test_they_come_in_drawing_order_the_variables_last(self) -> None:
        variable = q.create("clsVar", VarType=q.enVarType.eVT_Numeric, Xs=10, Ys=10, Dx=40, Dy=20)
        variable.SaveToDB()
        for x in (1, 2, 3):
            self.saved(Xs=x)
        self.project.execute("UPDATE HMI_Elements SET OrderIndex=9 WHERE ID=2")
        self.assertEqual([element.ID for element in self.project.elements()], [3, 4, 2, 1])

    def test_a_type_without_a_class_is_refused(self) -> None:
        self.saved()
        self.project.execute("UPDATE HMI_Elements SET Type=99")
        text = "row 1 of HMI_Elements: there is no class of element type 99"
        self.raises(5, text, self.project.elements)

    def group(self, *members: Any) -> Any:
        made = q.create("clsGroup")
        made.SaveToDB()
        made.AddObjectsToGroup(q.Ref(q.collection(*members)))
        made.SaveToDB()
        return made

    def shape(self, elements: List[Any]) -> List[Any]:
        """IDs, a group as its ID and what is in it."""
        return [
            (element.ID, self.shape(list(element.ColGroup))) if type(element) is q.clsGroup else element.ID
            for element in elements
        ]

    def test_members_are_in_their_groups(self) -> None:
        first, second, third, fourth = (self.saved(Xs=x) for x in range(4))
        inner = self.group(second, third)
        outer = self.group(inner, first)
        self.assertEqual((inner.ID, outer.ID), (5, 6))
        found = self.project.elements()
        self.assertEqual(self.shape(found), [(6, [1, (5, [2, 3])]), 4])
        self.assertEqual((found[0].Depth, found[0].ColGroup(2).Depth), (2, 1))
        self.assertEqual(found[0].ColGroup("1").ID, 1)

    def test_a_group_stands_where_its_lowest_member_does_and_an_empty_one_last(self) -> None:
        low, middle, high = (self.saved(Xs=x) for x in range(3))
        self.group(low, high)
        self.group()
        self.assertEqual(self.shape(self.project.elements()), [(4, [1, 3]), 2, (5, [])])

    def test_a_group_within_itself_is_taken_out_of_it(self) -> None:
        element = self.saved()
        first = self.group(element)
        self.group(first)
        self.project.execute("UPDATE HMI_Elements SET GroupID=3 WHERE ID=2")
        self.project.execute("UPDATE HMI_Elements SET GroupID=2 WHERE ID=3")
        self.assertEqual(self.shape(self.project.elements()), [(2, [1, (3, [])])])
        self.project.execute("UPDATE HMI_Elements SET GroupID=2 WHERE ID=2")
        self.project.execute("UPDATE HMI_Elements SET GroupID=-1 WHERE ID=3")
        self.assertEqual(self.shape(self.project.elements()), [(2, [1]), (3, [])])

    def test_a_cycle_is_broken_within_it_and_not_where_something_hangs_on_it(self) -> None:
        hanging, other = self.group(self.saved()), self.group()
        self.group(self.group(hanging), other)
        # 2 is in 4 and 3 is in 5; 4 and 5 are in each other.
        self.project.execute("UPDATE HMI_Elements SET GroupID=5 WHERE ID=4")
        self.project.execute("UPDATE HMI_Elements SET GroupID=4 WHERE ID=5")
        self.assertEqual(self.shape(self.project.elements()), [(4, [(2, [1]), (5, [(3, [])])])])

    def test_members_of_a_group_come_in_drawing_order(self) -> None:
        self.group(*(self.saved(Xs=x) for x in range(3)))
        self.project.execute("UPDATE HMI_Elements SET OrderIndex=9 WHERE ID=1")
        self.assertEqual(self.shape(self.project.elements()), [(4, [2, 3, 1])])

    def test_a_group_that_is_none_by_its_row_has_not_all_that_are_in_none(self) -> None:
        self.saved()
        self.group()
        self.project.execute("UPDATE HMI_Elements SET ID=-1 WHERE ID=2")
        self.assertEqual(self.shape(self.project.elements()), [1, (-1, [])])

    def test_groups_deeper_than_32_stand_beside_the_others(self) -> None:
        self.saved()
        for number in range(2, 36):
            self.group()
            self.project.execute(f"UPDATE HMI_Elements SET GroupID={number} WHERE ID={number - 1}")
        found = self.project.elements()
        self.assertEqual([element.ID for element in found], [3, 35])
        self.assertEqual(found[1].Depth, 32)
        self.assertEqual(self.shape(found[:1]), [(3, [(2, [1])])])


if __name__ == "__main__":
    unittest.main()
