"""The life of a numeric variable, from Python: made, placed, saved, painted, reported, dragged, deleted, and
brought back by an undo.

    python3 examples/numeric_variable.py [FOLDER]

Leaves plant.qz7, numeric_variable.png and dragged.png in the folder, the current one when none is named.
Every step checks what came of it: the exit code is 1, and a message tells, when something is not as it should
be.
"""

import sys
from pathlib import Path

import quenzel7 as q

PANEL, WIDTH, HEIGHT = 7, 320, 240
MEMORY_WORD, PRESSURE = 3, 5
BLUE = 2
KEYPAD = -2  # a touch that opens the keypad has no operand of its own


def expect(what, found, wanted):
    """Ends the program when a result is not the right one."""
    if found != wanted:
        sys.exit(f"{what}: found {found!r}, expected {wanted!r}")


class Printer:
    """What a report is printed on: any object with these members. Here it keeps the lines."""

    def __init__(self):
        self.lines = []

    @property
    def Paragraph(self):
        return self.lines[-1]

    @Paragraph.setter
    def Paragraph(self, line):
        self.lines.append(line)


def paint(element, path):
    """The element alone on an empty page, which is white."""
    surface = q.Surface(WIDTH, HEIGHT, q.platform.rgb(8))
    element.Draw(surface.hdc, False)
    surface.save(path)
    return surface


def box_of(surface):
    """The smallest box, as (x, y, dx, dy), around all that is not white."""
    pixels = surface.pixels.tolist()
    rows = [y for y, row in enumerate(pixels) if any(pixel != 0xFFFFFF for pixel in row)]
    columns = [x for x in range(surface.width) if any(row[x] != 0xFFFFFF for row in pixels)]
    return columns[0], rows[0], columns[-1] - columns[0] + 1, rows[-1] - rows[0] + 1


def main(folder):
    # Before anything is drawn the library is told which panel the project is for, and its colours.
    service = q.clsGrpElmntsSrv()
    service.ChangeHMIPanel(PANEL)
    service.InitImageLibrary("plant", q.Ref(q.platform.palette))

    path = folder / "plant.qz7"
    path.unlink(missing_ok=True)
    with q.Project(path) as project:
        project.page = 1

        # 1. A variable is a shell; what it shows is told by its type, and done by the handler of that type.
        variable = q.clsVar(VarName="Pressure")
        variable.VarType = q.enVarType.eVT_Numeric
        number = variable.BinaryHandlers(q.enVarType.eVT_Numeric)
        number.Format = "999.9"
        number.Postfix = "bar"
        number.DrawingElement.ColorFore = BLUE
        # The sample text follows the handler's settings when it is told to.
        number.ReSyncDrawingElementParams(variable.DefaultDisplay, variable.FontNumber)
        expect("sample text", number.DrawingElement.Txt, "-999.9 bar")

        # 2. Its place, and the operand whose value it shows. The collision map has a byte for each pixel of
        # the page; another touch element stands at the right.
        variable.Xs, variable.Ys, variable.Dx, variable.Dy = 20, 30, 120, 40
        variable.OperandType, variable.OperandAddress = MEMORY_WORD, PRESSURE
        variable.KeypadEntry = True
        variable.TouchOprndAddr = KEYPAD
        expect("touchable", variable.IsTouchable, True)
        taken = q.CollisionMap(WIDTH, HEIGHT)
        taken.fill(200, 0, 100, 100)
        expect("place", variable.GetTransformState(q.Ref(taken)), q.enCollisionStatus.eCS_Legall)

        # 3. Saving makes the row, writes the handler's settings into its column Binary, and tells the host.
        # The rows of the operands are written from the operand bags.
        with project.transaction():
            variable.SaveToDB()
            variable.BuildOpPropBag()
            variable.RestoreAllOperands()
        expect("number of the row", variable.ID, 1)
        row = project.execute("SELECT * FROM HMI_Elements WHERE ID=1")
        expect("columns", (row("Xs").Value, row("Ys").Value, row("Text").Value), (20, 30, "Pressure"))
        expect("stored postfix", q.property_bag(row("Binary").Value)["Postfix"], "bar")
        expect("saved event", q.platform.changes.events[0].kind, "ElementSaved")
        uses = project.execute("SELECT * FROM HMI_Operands WHERE ElementID=1 ORDER BY OprndType DESC")
        expect("operand row", (uses("OprndType").Value, uses("OprndAddr").Value), (MEMORY_WORD, PRESSURE))

        # 4. The host repaints: the variable clears its area, its drawing element paints the sample text.
        with paint(variable, folder / "numeric_variable.png") as surface:
            expect("painted box", box_of(surface), (20, 30, 120, 40))
            face = surface.pixel(26, 50)
            expect("face", face, q.platform.rgb(variable.ColorBack))
            ink = sum(row.count(q.platform.rgb(BLUE)) for row in surface.pixels.tolist())
            width, height = q.platform.text_size("-999.9 bar", variable.FontNumber)
            if not width < ink < width * height // 2:
                sys.exit(f"a text of {width} x {height} pixels has {ink} of ink")

        # 5. The change key tells whether the panel's copy is up to date; the report is for the documentation.
        key = variable.GetDataCRC()
        number.Postfix = "mbar"
        if variable.GetDataCRC() == key:
            sys.exit("the change key did not change with the postfix")
        number.Postfix = "bar"
        expect("change key", variable.GetDataCRC(), key)
        printer = Printer()
        variable.CreatePrinterReportEX(printer)
        if not any(line.strip() == "Postfix: bar" for line in printer.lines):
            sys.exit("the report does not tell the postfix:\n" + "\n".join(printer.lines))

        drag(variable, taken)
        variable.SaveToDB()
        expect("place at rest", (variable.Xs, variable.Ys), (75, 60))
        with paint(variable, folder / "dragged.png") as surface:
            expect("painted box", box_of(surface), (75, 60, 120, 40))

        # 6. Deleting takes the row and its operand rows; the object lives on, and an undo saves it again, in
        # a new row. Its operand bags bring the operands back.
        variable.DeleteFromDB()
        expect("rows", project.elements(), [])
        expect("operand rows", project.execute("SELECT * FROM HMI_Operands").EOF, True)
        variable.ID = -1
        variable.SaveToDB()
        variable.RestoreAllOperands()
        (again,) = project.elements()
        expect("postfix that was brought back", again.BinaryHandlers(again.VarType).Postfix, "bar")
        expect("place that was brought back", (again.Xs, again.Ys, again.Dx, again.Dy), (75, 60, 120, 40))
        uses = project.execute("SELECT * FROM HMI_Operands ORDER BY OprndType DESC")
        expect("operand that was brought back", uses("OprndAddr").Value, PRESSURE)
        expect("row that uses it", uses("ElementID").Value, 2)


def drag(variable, taken):
    """Drags the variable by three steps of the mouse. Each is told as the whole way since the drag began;
    where the variable may not stay, it is shown where it last could."""
    variable.SaveInitialPosition()
    for dx, dy, wanted in (
        (55, 30, q.enCollisionStatus.eCS_Legall),
        (100, 30, q.enCollisionStatus.eCS_Overlap),
        (-30, 0, q.enCollisionStatus.eCS_OutOfRAnge),
    ):
        variable.Move(dx, dy)
        status = variable.GetTransformState(q.Ref(taken))
        expect(f"step by ({dx}, {dy})", status, wanted)
        if status == q.enCollisionStatus.eCS_Legall:
            variable.SaveLastLegalPosition()
            variable.UpdateDisplayWithTransx()
        else:
            variable.UpdateDisplayWithLastLegal()
    variable.UpdateInitialDescriptor()


if __name__ == "__main__":
    main(Path(sys.argv[1] if len(sys.argv) > 1 else "."))
    print("The numeric variable went all the way")
