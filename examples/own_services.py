"""A host that brings services of its own, in Python: message boxes that answer by themselves, and a project
database kept in memory by sqlite3. The library knows them by the names of their members alone.

    python3 examples/own_services.py

Checks what came of it: the exit code is 1, and a message tells, when something is not as it should be.
"""

import re
import sqlite3
import sys

import quenzel7 as q


def expect(what, found, wanted):
    """Ends the program when a result is not the right one."""
    if found != wanted:
        sys.exit(f"{what}: found {found!r}, expected {wanted!r}")


class Boxes:
    """Message boxes that nobody has to click away. `show` answers to the library's Show."""

    def __init__(self):
        self.texts = []

    def show(self, text, buttons, caption):
        self.texts.append(f"{caption}: {text}")
        return 1  # OK


# The tables of a project that simple elements use.
TABLES = {
    "HMI_Elements": """
        ID INTEGER PRIMARY KEY AUTOINCREMENT, GUID, Type, Xs, Ys, Dx, Dy, DisplayID, GroupID, ColorBack,
        ColorFore, ColorBackTouch, ColorForeTouch, ColorHatch, PenStyle, PenWidth, HatchStyle,
        TouchOprndAddr, VisibleOpAddr, FontNumber, DescriptionFontNumber, Alignment, Flat3D, VarType,
        VarKeyPadEntry, VarOprndType, VarOprndAddr, GlobalVarID, DefaultDisplay, KeypadSuccessOpAddr,
        EnabledOpAddr, HighlightOpAddr, TabIndex, OrderIndex, Text, Binary, StorageText, StorageLibNum,
        StrStorageOprndType, StrStorageOprndAddr, StrStorageFont
    """,
    "HMI_Operands": "ElementID, OprndType, OprndAddr, OprndNetID, OprndPurpose",
    "Operands": "Type, Address, NetID, Comment, Value",
    "Settings": "Section, Key, Value",
    "Numbers": "Name, Next",
    "DownloadDLUs": "GUID",
}


class Connection:
    """The open database. Statements come in the library's dialect, in which a "*" may follow DELETE."""

    def __init__(self):
        self.database = sqlite3.connect(":memory:", isolation_level=None)
        for name, columns in TABLES.items():
            self.database.execute(f"CREATE TABLE {name} ({columns})")

    def execute(self, statement):
        if statement.upper().startswith("SELECT"):
            rows = Recordset()
            rows.open(statement, self, 0, 1, 1)
            return rows
        self.database.execute(re.sub(r"^DELETE \*", "DELETE", statement, flags=re.IGNORECASE))
        return None

    def create_recordset(self):
        return Recordset()

    def begin_trans(self):
        self.database.execute("BEGIN")

    def commit_trans(self):
        self.database.execute("COMMIT")

    def rollback_trans(self):
        self.database.execute("ROLLBACK")

    def close(self):
        self.database.close()


class Recordset:
    """The rows of a query, read when it is opened; changes go to the database with Update."""

    def open(self, source, connection, cursor, lock, options):
        ((columns, table, rest),) = re.findall(r"^SELECT (.*?) FROM (\w+)(.*)", source, re.IGNORECASE)
        self.table = str(table)
        self.database = connection.database
        # An aggregate has one row, and nothing in it can be changed.
        key = "NULL" if "(" in columns else "rowid"
        found = self.database.execute(f"SELECT {key}, {columns} FROM {self.table}{rest}")
        self.names = [column[0].lower() for column in found.description[1:]]
        rows = found.fetchall()
        self.keys = [row[0] for row in rows]
        self.rows = [list(row[1:]) for row in rows]
        self.at = 0
        self.changed = {}

    def close(self):
        self.rows, self.keys = [], []

    def move(self, rows):
        self.at = max(-1, min(self.at + rows, len(self.rows)))

    def move_next(self):
        self.move(1)

    def move_first(self):
        self.at = 0

    def add_new(self):
        self.at = len(self.rows)
        self.rows.append([None] * len(self.names))
        self.keys.append(None)

    def update(self):
        names, values = list(self.changed), list(self.changed.values())
        self.changed = {}
        if self.keys[self.at] is not None:
            places = ", ".join(f"{name}=?" for name in names)
            statement = f"UPDATE {self.table} SET {places} WHERE rowid=?"
            self.database.execute(statement, (*values, self.keys[self.at]))
            return
        columns, places = ", ".join(names), ", ".join("?" * len(names))
        added = self.database.execute(f"INSERT INTO {self.table} ({columns}) VALUES ({places})", values)
        self.keys[self.at] = added.lastrowid
        if "id" in self.names:
            self.rows[self.at][self.names.index("id")] = added.lastrowid

    def delete(self):
        self.database.execute(f"DELETE FROM {self.table} WHERE rowid=?", (self.keys[self.at],))

    @property
    def eof(self):
        return self.at >= len(self.rows)

    @property
    def bof(self):
        return self.at < 0 or not self.rows

    @property
    def record_count(self):
        return len(self.rows)

    @property
    def field_count(self):
        return len(self.names)

    def fields(self, name):
        return Field(self, name.lower())


class Field:
    """One column of the current row."""

    def __init__(self, rows, name):
        if rows.eof or rows.bof:
            raise q.AutomationError(3021, "the recordset stands on no row")
        if name not in rows.names:
            raise q.AutomationError(3265, f"there is no column {name!r}")
        self.rows, self.name = rows, name

    @property
    def value(self):
        found = self.rows.rows[self.rows.at][self.rows.names.index(self.name)]
        return q.Null if found is None else found

    @value.setter
    def value(self, value):
        kept = None if value is q.Null else value
        self.rows.rows[self.rows.at][self.rows.names.index(self.name)] = kept
        self.rows.changed[self.name] = kept


class ProjectDatabase:
    """Gives the library the connection whenever it asks for it: the same one each time."""

    def __init__(self):
        self.connection = Connection()
        self.asked = 0

    def open_connection(self):
        self.asked += 1
        return self.connection


def main():
    boxes, database = Boxes(), ProjectDatabase()
    q.platform.supply(message_boxes=boxes, project_database=database)
    q.platform.page = 3

    # The library shows a box where a text has a letter that the panel's fonts lack.
    text = q.clsText()
    text.Txt = "Жук"
    expect("boxes", set(boxes.texts), {"Language is not supported: Tessaline can't handle Multibyte chars"})

    # An element saves itself through objects of Python.
    tank = q.clsRectangle(Xs=10, Ys=20, Dx=100, Dy=40, ColorBack=2)
    tank.SaveToDB()
    expect("number of the row", tank.ID, 1)
    tables = database.connection.database
    row = tables.execute("SELECT Xs, Dy, ColorBack, DisplayID FROM HMI_Elements").fetchall()
    expect("row", row, [(10, 40, 2, 3)])
    tank.Move(5, 0)
    tank.SaveLastLegalPosition()
    tank.UpdateInitialDescriptor()
    tank.SaveToDB()
    row = tables.execute("SELECT ID, Xs FROM HMI_Elements").fetchall()
    expect("row that was saved again", row, [(1, 15)])
    expect("whether the database was asked", database.asked > 0, True)

    # And is loaded from rows that Python brings.
    rows = database.connection.execute("SELECT * FROM HMI_Elements")
    again = q.clsRectangle()
    again.LoadFromDB(rows)
    expect("place that was loaded", (again.ID, again.Xs, again.Ys, again.Dx, again.Dy), (1, 15, 20, 100, 40))

    # What Python raises passes through the library and comes back, with its cause.
    tables.execute("DROP TABLE HMI_Elements")
    try:
        tank.SaveToDB()
        sys.exit("saving without a table went well")
    except q.AutomationError as error:
        expect("cause", type(error.__cause__), sqlite3.OperationalError)

    q.platform.supply(message_boxes=None, project_database=None)
    print("The services of this host were used")


if __name__ == "__main__":
    main()
