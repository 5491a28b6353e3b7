"""Makes the wheel of the package, plain or editable, with the standard library alone.

There is nothing to build: a wheel is an archive of the package's files with three files that describe it.
What they say is taken from pyproject.toml. One module, `_origin`, is in wheels alone: it tells the installed
package where the sources are, beside which the library is built.
"""

from __future__ import annotations

import base64
import hashlib
import re
import zipfile
from pathlib import Path
from typing import Any, Dict, Optional

_FOLDER = Path(__file__).resolve().parent.parent
_KEPT = (".py", ".pyi", ".typed")
# Earliest time that an archive can tell; the same files give the same wheel.
_TIME = (1980, 1, 1, 0, 0, 0)


def _project() -> Dict[str, str]:
    """The plain texts of pyproject.toml, by key."""
    text = (_FOLDER / "pyproject.toml").read_text(encoding="utf-8")
    return dict(re.findall(r'^([a-z-]+) = "(.*)"$', text, re.MULTILINE))


def _package_files() -> Dict[str, bytes]:
    """The files of the package by their place in the wheel."""
    files = sorted(path for path in (_FOLDER / "quenzel7").rglob("*") if path.suffix in _KEPT)
    return {path.relative_to(_FOLDER).as_posix(): path.read_bytes() for path in files}


def _origin() -> Dict[str, bytes]:
    """The module that notes the source tree, when the package stands in one."""
    root = _FOLDER.parent.parent
    if not (root / "server" / "quenzel7_automation.h").is_file():
        return {}
    text = f'"""Where the sources are that this package was installed from."""\n\nSOURCE_TREE = {str(root)!r}\n'
    return {"quenzel7/_origin.py": text.encode()}


def _write_wheel(folder: str, files: Dict[str, bytes]) -> str:
    project = _project()
    stem = f"{project['name']}-{project['version']}"
    info = f"{stem}.dist-info"
    metadata = (
        f"Metadata-Version: 2.1\nName: {project['name']}\nVersion: {project['version']}\n"
        f"Summary: {project['description']}\nRequires-Python: {project['requires-python']}\n"
    )
    wheel = "Wheel-Version: 1.0\nGenerator: quenzel7_build\nRoot-Is-Purelib: true\nTag: py3-none-any\n"
    files = {**files, f"{info}/METADATA": metadata.encode(), f"{info}/WHEEL": wheel.encode()}
    record = ""
    for name, data in files.items():
        digest = base64.urlsafe_b64encode(hashlib.sha256(data).digest()).rstrip(b"=").decode()
        record += f"{name},sha256={digest},{len(data)}\n"
    files[f"{info}/RECORD"] = f"{record}{info}/RECORD,,\n".encode()
    wheel_name = f"{stem}-py3-none-any.whl"
    with zipfile.ZipFile(Path(folder) / wheel_name, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, data in files.items():
            entry = zipfile.ZipInfo(name, _TIME)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o644 << 16
            archive.writestr(entry, data)
    return wheel_name


def build_wheel(
    wheel_directory: str, config_settings: Any = None, metadata_directory: Optional[str] = None
) -> str:
    """A wheel with the files of the package; gives its name."""
    return _write_wheel(wheel_directory, {**_package_files(), **_origin()})


def build_editable(
    wheel_directory: str, config_settings: Any = None, metadata_directory: Optional[str] = None
) -> str:
    """A wheel that has Python look for the package where its sources are; gives its name."""
    return _write_wheel(wheel_directory, {"quenzel7.pth": f"{_FOLDER}\n".encode()})
