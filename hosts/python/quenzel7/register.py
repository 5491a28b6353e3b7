"""Notes for this user where the library is, so that every host finds it: `python3 -m quenzel7.register [PATH]`.

Without a path it is the library that the package finds by itself. `--remove` takes the note away again.
"""

from __future__ import annotations

import argparse
import os
import sys
from typing import Optional, Sequence

from ._library import Library, LibraryNotFoundError, library, registration_file


def main(arguments: Optional[Sequence[str]] = None) -> int:
    """Registers a library or takes its registration away; gives what the program ends with."""
    parser = argparse.ArgumentParser(prog="python3 -m quenzel7.register", description=__doc__)
    parser.add_argument("--remove", action="store_true", help="take the registration away")
    parser.add_argument("path", nargs="?", metavar="PATH", help="the library, libquenzel7.so")
    asked = parser.parse_args(arguments)
    try:
        chosen = Library(os.path.abspath(asked.path)) if asked.path else library()
        result = chosen.DllUnregisterServer() if asked.remove else chosen.DllRegisterServer()
    except LibraryNotFoundError as error:
        print(error, file=sys.stderr)
        return 1
    except (OSError, AttributeError) as error:
        print(f"{asked.path} is not the library: {error}", file=sys.stderr)
        return 1
    if result < 0:
        told = (chosen.Quenzel7LastError() or b"").decode("utf-8", "replace")
        print(told or f"the library refused: 0x{result & 0xFFFFFFFF:08X}", file=sys.stderr)
        return 1
    print(f"{chosen.path} is {'not registered any more' if asked.remove else 'registered'}: {registration_file()}")
    return 0


if __name__ == "__main__":
    sys.exit(main())
