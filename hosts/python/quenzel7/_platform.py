"""The services of the thread in the manner of Python, as `quenzel7.platform`: what the library showed, told
and asked, its settings, colours, fonts and texts; and `supply`, by which objects of Python take their
place."""

from __future__ import annotations

import atexit
import os
import threading
from typing import TYPE_CHECKING, Any, Dict, List, NamedTuple, Optional, Sequence, Tuple, Type, Union

from . import _services
from ._attributes import Spelt
from ._dispatch import Dispatch
from .arrays import Ref
from .errors import AutomationError

if TYPE_CHECKING:
    from . import HostServices


class ShownBox(NamedTuple):
    """A message box that was shown."""

    text: str
    buttons: int
    caption: str


class ShownMessage(NamedTuple):
    """A numbered message that was shown, and what was told with it."""

    number: int
    text: str


class ErrorReport(NamedTuple):
    """An error that was written down."""

    source: str
    number: int
    description: str
    module: str
    text1: str
    text2: str
    value: int


class ChangeEvent(NamedTuple):
    """What became of an element: "ElementSaved", "VarKeypad", "GlobalVarKeypad", "ElementDeleted" or
    "GlobalElementDeleted"; its number; whether keys enter its value."""

    kind: str
    number: int
    keypad_entry: bool


class OutputLine(NamedTuple):
    """A line of the host's output list."""

    text: str
    kind: int


class Refresh(NamedTuple):
    """What was to be shown anew."""

    which: int
    what: int


class PanelModel(NamedTuple):
    """A panel: pixels, bits of each, how many colours, and the numbers of the empty panel's and of the
    ink."""

    type: int
    width: int
    height: int
    bits: int
    colors: int
    back: int
    ink: int


class LibraryText(NamedTuple):
    """A text of the project's string library in one language."""

    number: int
    language: int
    text: str
    font: int


def _records(kind: Type[Any], rows: Optional[Sequence[Sequence[Any]]]) -> List[Any]:
    return [kind(*row) for row in rows or ()]


class _View(Spelt):
    """One service: `view` is the library's object for it."""

    __slots__ = ("view",)
    _told: Tuple[str, ...] = ()
    """What tells its state: values, and lists by how many there are."""

    def __init__(self, view: Any) -> None:
        self.view = view

    def __eq__(self, other: object) -> bool:
        return isinstance(other, _View) and bool(self.view == other.view)

    def __hash__(self) -> int:
        return hash(self.view)

    def __repr__(self) -> str:
        told = ""
        for name in self._told:
            try:
                value = getattr(self, name)
            except AutomationError:
                continue
            told += f" {name}={len(value) if isinstance(value, list) else value}"
        return f"<{type(self).__name__}{told}>"


class _Collected(_View):
    """A service that collects what it is told, until `clear`. It keeps the latest; `printed` writes each as a
    line on standard error too."""

    @property
    def printed(self) -> bool:
        return bool(self.view.Printed)

    @printed.setter
    def printed(self, printed: bool) -> None:
        self.view.Printed = printed

    def clear(self) -> None:
        self.view.Clear()


class _Answering(_Collected):
    @property
    def answer(self) -> int:
        """What every question is answered: 1 OK, 6 yes, 7 no."""
        return int(self.view.Answer)

    @answer.setter
    def answer(self, answer: int) -> None:
        self.view.Answer = answer


class MessageBoxes(_Answering):
    """The embedded message boxes."""

    _told = ("answer", "shown")

    @property
    def shown(self) -> List[ShownBox]:
        """The boxes in order."""
        return _records(ShownBox, self.view.Shown)


class Messages(_Answering):
    """The embedded numbered messages."""

    _told = ("answer", "shown")

    @property
    def shown(self) -> List[ShownMessage]:
        """The messages in order."""
        return _records(ShownMessage, self.view.Shown)


class ErrorLog(_Collected):
    """The embedded error log."""

    _told = ("reports",)

    @property
    def reports(self) -> List[ErrorReport]:
        """The errors in order."""
        return _records(ErrorReport, self.view.Reports)


class Changes(_View):
    """What the host was told of changes."""

    _told = ("elements", "pages", "events")

    @property
    def elements(self) -> List[int]:
        """The elements that changed, by ID."""
        return list(self.view.Elements)

    @property
    def pages(self) -> List[int]:
        """The pages that changed, by number."""
        return list(self.view.Pages)

    @property
    def events(self) -> List[ChangeEvent]:
        """What became of variables, in order."""
        return _records(ChangeEvent, self.view.Events)

    def clear(self) -> None:
        self.view.Clear()


class Frame(_Collected):
    """What the host's window was told."""

    _told = ("outputs", "pointers", "interruptions", "refreshes")

    @property
    def outputs(self) -> List[OutputLine]:
        """The lines of the output list."""
        return _records(OutputLine, self.view.Outputs)

    @property
    def pointers(self) -> List[int]:
        """The pointers that were asked for."""
        return list(self.view.Pointers)

    @property
    def interruptions(self) -> int:
        """How often work was interrupted."""
        return int(self.view.Interruptions)

    @property
    def refreshes(self) -> List[Refresh]:
        """What was to be shown anew."""
        return _records(Refresh, self.view.Refreshes)


class Settings(_View):
    """The defaults of new elements, texts under a section and a key."""

    def get(self, section: int, key: int, fallback: str = "") -> str:
        """The text, or the fall-back where none was set."""
        return str(self.view.GetSetting(section, key, fallback))

    def set(self, section: int, key: int, text: str) -> None:
        """Sets a text for all projects."""
        self.view.SetSetting(section, key, text)

    def set_in_project(self, section: int, key: int, text: str) -> None:
        """Keeps a text in the open project, where it goes before that for all projects."""
        self.view.SetProjectSetting(section, key, text)

    def read_file(self, path: Union[str, "os.PathLike[str]"]) -> None:
        """Reads settings for all projects from a file."""
        self.view.ReadFile(os.fspath(path))


class Strings(_View):
    """The string library of the open project. Languages are counted from 1."""

    _told = ("language", "languages")

    @property
    def languages(self) -> List[str]:
        """The names of the languages in order."""
        return [str(self.view.LanguageName(number)) for number in range(1, self.view.LanguageCount + 1)]

    @property
    def language(self) -> int:
        """The current language."""
        return int(self.view.Language)

    @language.setter
    def language(self, number: int) -> None:
        self.view.Language = number

    def set_language(self, number: int, name: str) -> None:
        """Names a language; the number after the last adds one."""
        self.view.SetLanguage(number, name)

    @property
    def texts(self) -> List[LibraryText]:
        """All texts."""
        return _records(LibraryText, self.view.Texts)

    def text(self, number: int) -> str:
        """A text in the current language."""
        return str(self.view.Text(number))

    def font(self, number: int) -> int:
        """The font of that text; -1 for none of its own."""
        return int(self.view.FontNumber(number))

    def set_text(self, number: int, language: int, text: str, font: int = -1) -> None:
        """Keeps a text for a language; an empty one takes it away."""
        self.view.SetText(number, language, text, font)


class Panels(_View):
    """The panel models."""

    _told = ("current",)

    @property
    def models(self) -> List[PanelModel]:
        """All of them, by type."""
        return _records(PanelModel, self.view.Models)

    @property
    def current(self) -> int:
        """The panel type that was selected last."""
        return int(self.view.CurrentPanelType)

    def model(self, panel_type: int) -> PanelModel:
        """The model of a type."""
        return PanelModel(*self.view.Model(panel_type))

    def select(self, panel_type: int) -> Tuple[int, int]:
        """Makes a type the current one; gives the numbers of its empty panel's colour and of its ink."""
        back, ink = self.view.SelectPanel(panel_type)
        return back, ink


class Recorder(_View):
    """Notes the calls of the graphics interface: `with platform.recorder as calls: ...` leaves their lines in
    the list `calls`. Without a block there are `start`, `stop`, `calls` and `take`."""

    _told = ("recording", "calls")

    @property
    def recording(self) -> bool:
        """Whether calls are noted."""
        return bool(self.view.Recording)

    @property
    def calls(self) -> List[str]:
        """The calls that were noted, in order."""
        return list(self.view.Calls)

    def start(self) -> None:
        """Begins to note calls."""
        self.view.Start()

    def stop(self) -> None:
        """Ends it; the calls can still be read."""
        self.view.Stop()

    def take(self) -> List[str]:
        """The calls that were noted, which are forgotten then."""
        return list(self.view.Take())

    def __enter__(self) -> List[str]:
        self._calls: List[str] = []
        self.start()
        return self._calls

    def __exit__(self, *exception: Any) -> None:
        self.stop()
        self._calls.extend(self.take())


_KEEP: Any = object()
_supplied = threading.local()


class Platform(Spelt):
    """The services of the calling thread."""

    @property
    def services(self) -> "HostServices":
        """The library's object HostServices."""
        made: "HostServices" = _services.host_services()
        return made

    def _or_own(self, name: str, kind: Type[_View]) -> Any:
        """The embedded service, or the object of Python that stands in its place."""
        found = getattr(self.services, name)
        return kind(found) if isinstance(found, Dispatch) else found

    @property
    def message_boxes(self) -> Union[MessageBoxes, Any]:
        """The message boxes: MessageBoxes, or the object that was supplied."""
        return self._or_own("MessageBoxes", MessageBoxes)

    @property
    def messages(self) -> Union[Messages, Any]:
        """The numbered messages: Messages, or the object that was supplied."""
        return self._or_own("Messages", Messages)

    @property
    def errors(self) -> Union[ErrorLog, Any]:
        """The error log: ErrorLog, or the object that was supplied."""
        return self._or_own("ErrorLog", ErrorLog)

    @property
    def project_database(self) -> Any:
        """Where elements find the open project: the library's object, or the one that was supplied."""
        return self.services.ProjectDatabase

    @property
    def changes(self) -> Changes:
        """What the host was told of changes."""
        return Changes(self.services.Changes)

    @property
    def frame(self) -> Frame:
        """What the host's window was told."""
        return Frame(self.services.Frame)

    @property
    def settings(self) -> Settings:
        """The defaults of new elements."""
        return Settings(self.services.Settings)

    @property
    def strings(self) -> Strings:
        """The string library of the open project."""
        return Strings(self.services.Strings)

    @property
    def panels(self) -> Panels:
        """The panel models."""
        return Panels(self.services.Panels)

    @property
    def recorder(self) -> Recorder:
        """Notes the calls of the graphics interface."""
        return Recorder(self.services.Recorder)

    @property
    def page(self) -> int:
        """The number of the page that is open."""
        return int(self.services.Page)

    @page.setter
    def page(self, number: int) -> None:
        self.services.Page = number

    @property
    def chosen_file(self) -> str:
        """The picture file that is chosen next; "" for none."""
        return str(self.services.ChosenFile)

    @chosen_file.setter
    def chosen_file(self, path: Union[str, "os.PathLike[str]"]) -> None:
        self.services.ChosenFile = os.fspath(path)

    # Colours, as the library has them: 0xBBGGRR. Surfaces have 0xRRGGBB, which `rgb` gives.

    def color(self, number: int) -> int:
        """The colour of a panel colour number, 0xBBGGRR."""
        return int(self.services.Colors.Color(number))

    def rgb(self, number: int) -> int:
        """The colour of a panel colour number as pixels of surfaces have it, 0xRRGGBB."""
        return int.from_bytes(self.color(number).to_bytes(3, "little"), "big")

    def shade_color(self, level: int, number: int) -> int:
        """The colour of a line of a raised frame, 0xBBGGRR: levels 1 to 4 are dark, 5 to 8 light."""
        return int(self.services.Colors.ShadeColor(level, number))

    def face_color(self, number: int) -> int:
        """The colour of the face of a frame, 0xBBGGRR."""
        return int(self.services.Colors.FaceColor(number))

    def closest_gradient_color(self, number: int) -> int:
        """The number of the nearest colour on which a bevel can be read."""
        return int(self.services.Colors.ClosestGradientColor(number))

    @property
    def palette(self) -> List[int]:
        """The colours of all numbers, 0xBBGGRR, as InitImageLibrary takes them."""
        return list(self.services.Colors.Palette)

    # Fonts, by number; None is the font that new elements take.

    def _font(self, font: Optional[int]) -> int:
        return self.default_font if font is None else font

    @property
    def default_font(self) -> int:
        """The font that new elements take."""
        return int(self.services.Fonts.DefaultFontNumber)

    @property
    def default_description_font(self) -> int:
        """The font of the description of a keypad entry."""
        return int(self.services.Fonts.DefaultDescriptionFontNumber)

    def text_size(self, text: str, font: Optional[int] = None) -> Tuple[int, int]:
        """Width and height of a text in pixels."""
        width, height = Ref(0, "Long"), Ref(0, "Long")
        self.services.Fonts.TextSize(text, self._font(font), width, height)
        return width.value, height.value

    def font_name(self, font: Optional[int] = None) -> str:
        """The name of a font."""
        return str(self.services.Fonts.FontName(self._font(font)))

    def char_height(self, font: Optional[int] = None) -> int:
        """The height of a line in pixels."""
        return int(self.services.Fonts.CharHeight(self._font(font)))

    def char_widths(self, font: Optional[int] = None) -> List[int]:
        """The widths of the characters by their ANSI code."""
        return list(self.services.Fonts.CharWidths(self._font(font)))

    def operand(self, operand_type: int = 0, address: int = -1) -> Any:
        """A new operand of that type and address."""
        made = self.services.NewOperand()
        made.OperandType = operand_type
        made.OperandAddress = address
        return made

    def supply(
        self,
        *,
        message_boxes: Any = _KEEP,
        messages: Any = _KEEP,
        error_log: Any = _KEEP,
        project_database: Any = _KEEP,
    ) -> None:
        """Puts objects of Python in the place of services of this thread; None brings the embedded one back.
        While there is a database of one's own, a Project that is open is not the thread's.

        message_boxes: show(text, buttons, caption) gives the answer. messages: show_message(number, argument)
        gives the answer; `argument` is a Ref. error_log: report(source, number, description, module, text1,
        text2, value). project_database: open_connection() gives a connection, of the library or of one's own.
        Names may be written as the library has them too (Show, ShowMessage, Report, OpenConnection).
        """
        given: Dict[str, Any] = {
            "MessageBoxes": message_boxes,
            "Messages": messages,
            "ErrorLog": error_log,
            "ProjectDatabase": project_database,
        }
        services = self.services
        for name, value in given.items():
            if value is not _KEEP:
                _supplied.any = True
                setattr(services, name, value.view if isinstance(value, _View) else value)

    def reset(self) -> None:
        """Makes all services of the thread the embedded ones, anew. Elements keep those that they have. A
        Project that is open is not the thread's any more: it is to be closed, and says so when it is used."""
        self.services.Reset()

    def __repr__(self) -> str:
        return "<services of the thread>"


platform = Platform()


@atexit.register
def _take_back() -> None:
    """Python ends: nothing of it may be called any more."""
    if getattr(_supplied, "any", False):
        platform.supply(message_boxes=None, messages=None, error_log=None, project_database=None)
