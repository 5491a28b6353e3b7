"""Finding and loading the shared library.

`library()` gives it, loaded once, with every function of `_abi.PROTOTYPES` as an attribute. The places where
it is looked for, in this order: the environment's QUENZEL7_LIBRARY, which allows no other; the build folder
beside the sources, those that the package stands in or was installed from; the user's registration file; the
loader of the system.
"""

from __future__ import annotations

import configparser
import ctypes
import ctypes.util
import importlib
import os
import threading
from pathlib import Path
from typing import Any, Iterator, Optional

from ._abi import PROTOTYPES

ENVIRONMENT_VARIABLE = "QUENZEL7_LIBRARY"
_FILE_NAME = "libquenzel7.so"
_REMEDIES = f"""
To mend that, build it beside the sources (cmake --preset release && cmake --build build --target
quenzel7_shared), or set {ENVIRONMENT_VARIABLE} to the path of one that is built, or register that one for this user
(python3 -m quenzel7.register PATH)."""


class LibraryNotFoundError(ImportError):
    """The shared library is nowhere; the text names every place, what was found there, and what helps."""


class Library:
    """A loaded shared library. Functions are bound when they are first asked for."""

    def __init__(self, path: str) -> None:
        self.path = path
        self._loaded = ctypes.CDLL(path)

    def __getattr__(self, name: str) -> Any:
        if name not in PROTOTYPES:
            raise AttributeError(f"the library has no function {name!r}")
        function = getattr(self._loaded, name)
        function.restype, function.argtypes = PROTOTYPES[name]
        setattr(self, name, function)
        return function

    def __repr__(self) -> str:
        return f"<Library {self.path}>"


def source_tree() -> Optional[Path]:
    """The folder of the sources that this package stands in, or that it was installed from; None when neither
    is known."""
    here = Path(__file__).resolve()
    root = here.parents[3] if len(here.parents) > 3 else here.parent
    return root if (root / "server" / "quenzel7_automation.h").is_file() else installed_from()


def installed_from() -> Optional[Path]:
    """The folder of the sources that the wheel of this package was made from, as the wheel notes it; None in a
    package that is not installed."""
    try:
        noted = importlib.import_module(f"{__package__}._origin")
    except ImportError:
        return None
    return Path(noted.SOURCE_TREE)


def registration_file() -> Path:
    """The file in which the library notes, for this user, where it is."""
    data = os.environ.get("XDG_DATA_HOME")
    folder = Path(data) if data else Path(os.environ.get("HOME", "~")).expanduser() / ".local" / "share"
    return folder / "quenzel7" / "server.ini"


def registered_path(file: Path) -> Optional[str]:
    """The library that the first class of a registration file names, or None."""
    parser = configparser.ConfigParser(interpolation=None, strict=False)
    try:
        parser.read(file, encoding="utf-8")
    except (configparser.Error, UnicodeDecodeError):
        return None
    paths = (parser[section].get("InprocServer32") for section in parser.sections())
    return next((path for path in paths if path), None)


def _places() -> Iterator[tuple[str, Optional[str]]]:
    """Where the library may be: what to call the place, and the path there when there is one."""
    chosen = os.environ.get(ENVIRONMENT_VARIABLE)
    if chosen:
        yield f"environment {ENVIRONMENT_VARIABLE}: {chosen}", chosen
        return
    yield f"environment {ENVIRONMENT_VARIABLE}: not set", None
    root = source_tree()
    if root is None:
        yield "build folder beside the sources: not known to this package", None
    else:
        built = str(root / "build" / "lib" / _FILE_NAME)
        yield f"build folder beside the sources: {built}", built
    file = registration_file()
    registered = registered_path(file)
    told = registered or "names none" if file.is_file() else "no such file"
    yield f"registration file {file}: {told}", registered
    yield f"loader of the system: {_FILE_NAME}", ctypes.util.find_library("quenzel7") or _FILE_NAME


def load() -> Library:
    """Loads the library from the first place that has one.

    Raises LibraryNotFoundError naming every place that was looked at.
    """
    tried = []
    for place, path in _places():
        if path is None:
            tried.append(place)
            continue
        try:
            return Library(path)
        except OSError as error:
            tried.append(f"{place}: {str(error).removeprefix(path + ': ')}")
    lines = "".join(f"\n  {place}" for place in tried)
    raise LibraryNotFoundError(f"the library of Quenzel7 was not found; looked at{lines}{_REMEDIES}")


_lock = threading.Lock()
_library: Optional[Library] = None


def library() -> Library:
    """The library, loaded when it is first asked for."""
    global _library
    if _library is None:
        with _lock:
            if _library is None:
                _library = load()
    return _library
