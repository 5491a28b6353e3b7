"""The services of the thread: what they show, and objects of Python in their place."""

from __future__ import annotations

import os
import subprocess
import sys
import tempfile
import textwrap
import unittest
from pathlib import Path
from typing import Any, List

from support import FOLDER
from test_server import ServerCase
import quenzel7 as q
from quenzel7 import _platform


class CollectedTest(ServerCase):
    def test_message_boxes(self) -> None:
        boxes = q.platform.message_boxes
        q.create("clsText").Txt = "Ж"
        self.assertEqual(
            boxes.shown, [("Tessaline can't handle Multibyte chars", 0, "Language is not supported")]
        )
        shown = boxes.shown[0]
        self.assertEqual((shown.text, shown.buttons, shown.caption), tuple(shown))
        boxes.clear()
        self.assertEqual(boxes.shown, [])
        self.assertEqual(boxes.answer, 1)
        boxes.answer = 7
        self.assertEqual((boxes.answer, boxes.view.Show("a", 4, "b")), (7, 7))
        self.assertEqual(boxes.shown, [("a", 4, "b")])
        self.assertIs(boxes.printed, False)
        boxes.printed = True
        self.assertIs(q.platform.message_boxes.printed, True)
        boxes.printed = False
        self.assertEqual((boxes, hash(boxes)), (q.platform.message_boxes, hash(q.platform.message_boxes)))
        self.assertNotEqual(boxes, q.platform.messages)

    def test_messages(self) -> None:
        messages = q.platform.messages
        messages.answer = 6
        self.assertEqual(messages.view.ShowMessage(4, q.Ref("x")), 6)
        self.assertEqual(messages.shown, [(4, "message 4: x")])
        self.assertEqual((messages.shown[0].number, messages.shown[0].text), (4, "message 4: x"))
        messages.clear()
        self.assertEqual(messages.shown, [])

    def test_errors(self) -> None:
        errors = q.platform.errors
        errors.view.Report("s", 7, "d", "m", "t", "u", -3)
        self.assertEqual(errors.reports, [("s", 7, "d", "m", "t", "u", -3)])
        report = errors.reports[0]
        self.assertEqual(
            report,
            (report.source, report.number, report.description, report.module, report.text1, report.text2,
             report.value),
        )  # fmt: skip
        errors.clear()
        self.assertEqual(errors.reports, [])

    def test_changes(self) -> None:
        with tempfile.TemporaryDirectory() as folder, q.Project(Path(folder) / "a.qz7") as project:
            project.page = 3
            q.create("clsRectangle").SaveToDB()
            variable = q.create("clsVar", VarType=q.enVarType.eVT_Numeric, Dx=20, Dy=20, KeypadEntry=True)
            variable.SaveToDB()
            changes = q.platform.changes
            self.assertEqual((changes.elements, changes.pages), ([1], [3]))
            self.assertIn(("ElementSaved", 2, False), changes.events)
            event = changes.events[0]
            self.assertEqual((event.kind, event.number, event.keypad_entry), tuple(event))
            changes.clear()
            self.assertEqual((changes.elements, changes.pages, changes.events), ([], [], []))

    def test_the_frame(self) -> None:
        frame = q.platform.frame
        self.assertEqual((frame.outputs, frame.pointers, frame.interruptions, frame.refreshes), ([], [], 0, []))
        frame.clear()
        self.assertIs(frame.printed, False)

    def test_the_frame_tells_what_it_was_told_in_order(self) -> None:
        with tempfile.TemporaryDirectory() as folder, q.Project(Path(folder) / "a.qz7") as project:
            project.page = 1
            q.clsGrpElmntsSrv().InitImageLibrary("plant", q.Ref(q.platform.palette))
            picture = q.clsBitmap()

            def take(pixels: bytes) -> None:
                data, path = q.Ref(pixels), str(Path(folder) / "missing.png")
                picture.SetImage8bppPropsEx(5, 2, 2, data, 6, 2, 2, data, 0, 0, path, 8)

            take(b"\1\2\3\4")
            picture.SaveToDB()
            frame = q.platform.frame
            # The pointer is busy while the picture is made anew.
            self.assertIs(picture.ResizeImageEx(2, 2, 8, 8), True)
            self.assertEqual((frame.pointers, frame.interruptions, frame.refreshes), ([11, 0], 0, []))
            frame.clear()
            # Too few pixels: the host is interrupted and shows its pages anew.
            take(b"\1")
            with q.Surface(20, 20) as surface:
                picture.Draw(surface.hdc, False)
            self.assertEqual((frame.pointers, frame.interruptions, frame.refreshes), ([1, 11], 1, [(-1, 12)]))
            refresh = frame.refreshes[0]
            self.assertEqual((refresh.which, refresh.what), (-1, 12))
            frame.clear()
            self.assertEqual((frame.pointers, frame.interruptions, frame.refreshes), ([], 0, []))

    def test_the_frame_gives_rows_of_the_library_by_name(self) -> None:
        class View:
            Outputs = [["careful", 2], ["done", 1]]
            Refreshes = [[-1, 12], [4, 13]]

        frame = _platform.Frame(View())
        self.assertEqual(frame.outputs, [("careful", 2), ("done", 1)])
        self.assertEqual((frame.outputs[0].text, frame.outputs[0].kind), ("careful", 2))
        self.assertEqual(frame.refreshes, [(-1, 12), (4, 13)])

    def test_the_recorder(self) -> None:
        rectangle = q.create("clsRectangle", Xs=1, Ys=1, Dx=2, Dy=1)
        with q.Surface(4, 4) as surface:
            with q.platform.recorder as calls:
                rectangle.Draw(surface.hdc, False)
                self.assertEqual(calls, [])
            self.assertIn("Rectangle(dc:1, 1, 1, 3, 2)", calls)
            self.assertIs(q.platform.services.Recorder.Recording, False)
            self.assertEqual(q.platform.services.Recorder.Calls, [])
            count = len(calls)
            rectangle.Draw(surface.hdc, False)
            self.assertEqual(len(calls), count)
            recorder = q.platform.recorder
            self.assertEqual((recorder.recording, repr(recorder)), (False, "<Recorder recording=False calls=0>"))
            recorder.start()
            self.assertIs(recorder.recording, True)
            rectangle.Draw(surface.hdc, False)
            recorder.stop()
            rectangle.Draw(surface.hdc, False)
            self.assertEqual((recorder.calls, recorder.recording), (calls, False))
            self.assertEqual(repr(recorder), f"<Recorder recording=False calls={count}>")
            self.assertEqual((recorder.take(), recorder.calls, recorder.take()), (calls, [], []))
            with self.assertRaises(KeyError):
                with q.platform.recorder as calls:
                    rectangle.Draw(surface.hdc, False)
                    raise KeyError
            self.assertEqual(len(calls), count)


class AttributesTest(ServerCase):
    def refused(self, text: str, target: Any, name: str) -> None:
        for call in (lambda: getattr(target, name), lambda: setattr(target, name, 1)):
            with self.assertRaises(AttributeError) as caught:
                call()
            self.assertEqual(str(caught.exception), text)

    def test_what_is_misspelt_names_the_nearest(self) -> None:
        self.refused("Platform has no attribute 'paeg'; nearest is 'page'", q.platform, "paeg")
        boxes = q.platform.message_boxes
        self.refused("MessageBoxes has no attribute 'anwser'; nearest is 'answer'", boxes, "anwser")
        self.refused("Settings has no attribute 'gte'; nearest is 'get'", q.platform.settings, "gte")
        with q.Surface(1, 1) as surface:
            self.refused("Surface has no attribute 'widht'; nearest is 'width'", surface, "widht")
        with tempfile.TemporaryDirectory() as folder, q.Project(Path(folder) / "a.qz7") as project:
            self.refused("Project has no attribute 'pgae'; nearest is 'page'", project, "pgae")

    def test_views_show_their_state(self) -> None:
        boxes = q.platform.message_boxes
        boxes.view.Show("a", 0, "b")
        boxes.view.Show("a", 0, "b")
        self.assertEqual(repr(boxes), "<MessageBoxes answer=1 shown=2>")
        q.platform.messages.view.ShowMessage(4, q.Ref("x"))
        self.assertEqual(repr(q.platform.messages), "<Messages answer=1 shown=1>")
        q.platform.errors.view.Report("s", 7, "d", "m", "t", "u", -3)
        self.assertEqual(repr(q.platform.errors), "<ErrorLog reports=1>")
        self.assertEqual(repr(q.platform.changes), "<Changes elements=0 pages=0 events=0>")
        self.assertEqual(repr(q.platform.frame), "<Frame outputs=0 pointers=0 interruptions=0 refreshes=0>")
        self.assertEqual(repr(q.platform.settings), "<Settings>")
        q.platform.panels.select(2)
        self.assertEqual(repr(q.platform.panels), "<Panels current=2>")
        with tempfile.TemporaryDirectory() as folder, q.Project(Path(folder) / "a.qz7"):
            q.platform.strings.set_language(1, "English")
            q.platform.strings.set_language(2, "Deutsch")
            self.assertEqual(repr(q.platform.strings), "<Strings language=1 languages=2>")

    def test_what_cannot_be_read_is_left_out_of_what_they_show(self) -> None:
        class Refusing:
            @property
            def Shown(self) -> Any:
                raise q.AutomationError(5)

            Answer = 3

        self.assertEqual(repr(_platform.MessageBoxes(Refusing())), "<MessageBoxes answer=3>")


class OfferedTest(ServerCase):
    def test_settings(self) -> None:
        settings = q.platform.settings
        self.assertEqual(settings.get(9999, 1, "none"), "none")
        self.assertEqual(settings.get(9999, 1), "")
        settings.set(9999, 1, "all")
        self.assertEqual(settings.get(9999, 1, "none"), "all")
        with tempfile.TemporaryDirectory() as folder:
            with q.Project(Path(folder) / "a.qz7"):
                settings.set_in_project(9999, 1, "project")
                self.assertEqual(settings.get(9999, 1), "project")
            self.assertEqual(settings.get(9999, 1), "all")
            with self.assertRaises(q.AutomationError):
                settings.read_file(Path(folder) / "missing.ini")

    def test_colors(self) -> None:
        self.assertEqual((q.platform.color(0), q.platform.rgb(0)), (0x0000E0, 0xE00000))
        self.assertEqual((q.platform.color(2), q.platform.rgb(2)), (0xC80000, 0x0000C8))
        self.assertEqual(q.platform.color(8), 0xFFFFFF)
        palette = q.platform.palette
        self.assertEqual(len(palette), 256)
        self.assertEqual(palette[2], 0xC80000)
        services = q.platform.services.Colors
        for level in (1, 8):
            self.assertEqual(q.platform.shade_color(level, 3), services.ShadeColor(level, 3))
        self.assertNotEqual(q.platform.shade_color(1, 3), q.platform.shade_color(8, 3))
        self.assertEqual(q.platform.face_color(3), services.FaceColor(3))
        self.assertEqual(q.platform.closest_gradient_color(8), 104)

    def test_fonts(self) -> None:
        font = q.platform.default_font
        self.assertEqual(font, q.platform.services.Fonts.DefaultFontNumber)
        self.assertEqual(
            q.platform.default_description_font, q.platform.services.Fonts.DefaultDescriptionFontNumber
        )
        self.assertEqual(q.platform.font_name(0), "Unifont 16")
        self.assertEqual(q.platform.text_size("ab", 0), (16, 16))
        self.assertEqual(q.platform.text_size(""), (0, 0))
        self.assertEqual(q.platform.char_height(0), 16)
        self.assertEqual(q.platform.char_widths(0)[65], 8)
        self.assertEqual((font, q.platform.font_name()), (1, "DejaVu Sans 16"))
        self.assertEqual(q.platform.text_size("ab"), q.platform.text_size("ab", font))
        self.assertEqual(q.platform.char_height(), q.platform.char_height(font))
        self.assertEqual(q.platform.char_widths(), q.platform.char_widths(font))

    def test_strings(self) -> None:
        with tempfile.TemporaryDirectory() as folder, q.Project(Path(folder) / "a.qz7"):
            strings = q.platform.strings
            strings.view.SetLanguage(1, "English")
            strings.set_language(2, "Deutsch")
            self.assertEqual(strings.languages, ["English", "Deutsch"])
            strings.set_text(5, 1, "water", 2)
            strings.set_text(5, 2, "Wasser")
            self.assertEqual((strings.language, strings.text(5), strings.font(5)), (1, "water", 2))
            strings.language = 2
            self.assertEqual((strings.language, strings.text(5), strings.font(5)), (2, "Wasser", -1))
            self.assertEqual(strings.texts, [(5, 1, "water", 2), (5, 2, "Wasser", -1)])
            last = strings.texts[1]
            self.assertEqual((last.number, last.language, last.text, last.font), tuple(last))

    def test_panels(self) -> None:
        panels = q.platform.panels
        self.assertEqual(len(panels.models), 14)
        self.assertEqual(panels.model(7), (7, 320, 240, 8, 256, 8, 9))
        self.assertEqual(panels.models[6], panels.model(7))
        self.assertEqual(panels.select(2), (9, 8))
        self.assertEqual(panels.current, 2)
        model = panels.model(4)
        self.assertEqual(
            model, (model.type, model.width, model.height, model.bits, model.colors, model.back, model.ink)
        )

    def test_page_and_chosen_file(self) -> None:
        q.platform.page = 6
        self.assertEqual((q.platform.page, q.platform.services.Page), (6, 6))
        self.assertEqual(q.platform.chosen_file, "")
        q.platform.chosen_file = Path("a.bmp")
        self.assertEqual((q.platform.chosen_file, q.platform.services.ChosenFile), ("a.bmp", "a.bmp"))

    def test_operands(self) -> None:
        with tempfile.TemporaryDirectory() as folder, q.Project(Path(folder) / "a.qz7"):
            operand = q.platform.operand(3, 5)
            self.assertEqual((operand.OperandType, operand.OperandAddress), (3, 5))
            self.assertEqual(operand.OperandText, "MW 5")
            self.assertEqual((q.platform.operand().OperandType, q.platform.operand().OperandAddress), (0, -1))

    def test_reset(self) -> None:
        q.platform.page = 6
        boxes = q.platform.message_boxes
        boxes.view.Show("a", 0, "b")
        q.platform.reset()
        self.assertEqual((q.platform.message_boxes.shown, len(boxes.shown)), ([], 1))
        self.assertNotEqual(boxes, q.platform.message_boxes)
        self.quiet()
        self.assertEqual(repr(q.platform), "<services of the thread>")


class Boxes:
    """Message boxes that keep what they show."""

    def __init__(self) -> None:
        self.kept: List[Any] = []

    def show(self, text: str, buttons: int, caption: str) -> int:
        self.kept.append((text, buttons, caption))
        return 1


class SupplyTest(ServerCase):
    def test_boxes_of_python(self) -> None:
        boxes = Boxes()
        q.platform.supply(message_boxes=boxes)
        self.assertIs(q.platform.message_boxes, boxes)
        q.create("clsText").Txt = "Ж"
        self.assertEqual(boxes.kept, [("Tessaline can't handle Multibyte chars", 0, "Language is not supported")])
        q.platform.supply(message_boxes=None)
        self.assertEqual(q.platform.message_boxes.shown, [])
        q.create("clsText").Txt = "Ж"
        self.assertEqual((len(q.platform.message_boxes.shown), len(boxes.kept)), (1, 1))

    def test_the_embedded_ones_can_be_put_back_as_they_are(self) -> None:
        embedded = q.platform.message_boxes
        q.platform.supply(message_boxes=Boxes())
        q.platform.supply(message_boxes=embedded)
        self.assertEqual(q.platform.message_boxes, embedded)

    def test_only_what_is_named_is_replaced(self) -> None:
        boxes, messages, log, database = Boxes(), object(), object(), object()
        q.platform.supply(message_boxes=boxes)
        q.platform.supply(messages=messages, error_log=log)
        q.platform.supply(project_database=database)
        self.assertIs(q.platform.message_boxes, boxes)
        self.assertIs(q.platform.messages, messages)
        self.assertIs(q.platform.errors, log)
        self.assertIs(q.platform.project_database, database)
        q.platform.supply(message_boxes=None, messages=None, error_log=None, project_database=None)
        self.assertEqual(type(q.platform.messages).__name__, "Messages")
        self.assertEqual(type(q.platform.errors).__name__, "ErrorLog")
        self.assertEqual(type(q.platform.project_database), q.EmbeddedProjectDatabase)
        with self.assertRaises(TypeError):
            q.platform.supply(boxes=boxes)  # type: ignore[call-arg]

    def test_what_they_raise_passes_through(self) -> None:
        class Refusing:
            def show(self, text: str, buttons: int, caption: str) -> int:
                raise q.AutomationError(1234, "no boxes here")

        q.platform.supply(message_boxes=Refusing())
        element = q.create("clsText")
        self.raises(1234, "no boxes here", setattr, element, "Txt", "Ж")

    def test_at_the_end_of_python_everything_is_taken_back(self) -> None:
        program = """
            import atexit

            def look():
                print(_host_objects.exposed_count(), type(q.platform.project_database).__name__)

            # Runs last, since what is registered later runs earlier.
            atexit.register(look)
            import quenzel7 as q
            from quenzel7 import _host_objects

            class Boxes:
                def show(self, text, buttons, caption):
                    print("shown")
                    return 1

            boxes, kept = Boxes(), q.create("clsText")
            q.platform.supply(message_boxes=boxes)
            kept.Txt = "\\u0416"
            q.platform.supply(messages=Boxes(), error_log=Boxes(), project_database=Boxes())
            print(_host_objects.exposed_count())
        """
        environment = {**os.environ, "PYTHONPATH": str(FOLDER)}
        done = subprocess.run(
            [sys.executable, "-c", textwrap.dedent(program)], env=environment, capture_output=True, text=True
        )
        told = "0 EmbeddedProjectDatabase"
        self.assertEqual((done.stdout.split("\n"), done.stderr), (["shown", "4", told, ""], ""))
        self.assertEqual(done.returncode, 0)


if __name__ == "__main__":
    unittest.main()
