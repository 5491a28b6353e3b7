"""How long reading and writing a Long property takes from Python, as ratios measured in one run.

Measured against the plain call: the bound function of Invoke called by ctypes with its nine arguments
prepared once; for information also against the smallest call there is, DllCanUnloadNow.

Run it as `python3 bench.py [LIMIT]`: with a limit the exit code is 1 when a ratio against the plain call is
above it.
"""

from __future__ import annotations

import ctypes
import struct
import sys
import timeit
from pathlib import Path
from typing import Any, Callable, List

sys.path.insert(0, str(Path(__file__).resolve().parent))

import quenzel7 as q  # noqa: E402
from quenzel7 import _abi  # noqa: E402
from quenzel7._library import library  # noqa: E402
from quenzel7._pointers import functions_of  # noqa: E402

ROUNDS = 200
CALLS = 1000


def plain_calls(element: Any, number: int) -> List[Callable[[], Any]]:
    """Reading and writing the property of that number with everything prepared."""
    invoke = functions_of(element._pointer).invoke
    this = ctypes.byref(ctypes.c_char.from_address(element._pointer))
    no_interface, result = ctypes.create_string_buffer(16), ctypes.create_string_buffer(_abi.VARIANT_SIZE)
    info, bad = ctypes.create_string_buffer(_abi.EXCEPINFO.size), ctypes.c_uint32()
    value = ctypes.create_string_buffer(struct.pack("<H6xi12x", _abi.VT_I4, 7), _abi.VARIANT_SIZE)
    name = ctypes.c_int32(_abi.DISPID_PROPERTYPUT)
    nothing = ctypes.create_string_buffer(_abi.DISPPARAMS.size)
    one = ctypes.create_string_buffer(
        _abi.DISPPARAMS.pack(ctypes.addressof(value), ctypes.addressof(name), 1, 1), _abi.DISPPARAMS.size
    )
    places = [ctypes.byref(place) for place in (no_interface, nothing, one, result, info, bad)]
    iid, no_arguments, arguments, out, told, wrong = places
    kept = (no_interface, nothing, one, result, info, bad, value, name)
    element_kept = element

    def read(_: Any = (kept, element_kept)) -> int:
        return invoke(this, number, iid, 0, 2, no_arguments, out, told, wrong)

    def write() -> int:
        return invoke(this, number, iid, 0, 4, arguments, None, told, wrong)

    if read() < 0 or write() < 0:
        raise SystemExit("the plain call does not work")
    return [read, write]


def fastest(functions: List[Callable[[], Any]]) -> List[float]:
    """Nanoseconds of one call of each, the best of rounds in which all take turns."""
    timers = [timeit.Timer(function) for function in functions]
    rounds = [[timer.timeit(CALLS) for timer in timers] for _ in range(ROUNDS)]
    return [min(times) / CALLS * 1e9 for times in zip(*rounds)]


def main() -> int:
    element = q.create("clsRectangle")
    members = q._type_information().interface("_clsRectangle").members
    number = next(member.number for member in members if member.name == "Xs")

    def read() -> Any:
        return element.Xs

    def write() -> None:
        element.Xs = 7

    functions = [read, write, *plain_calls(element, number), library().DllCanUnloadNow]
    got, written, plain_get, plain_put, smallest = fastest(functions)
    print(f"read   {got:6.0f} ns   plain call {plain_get:6.0f} ns   ratio {got / plain_get:.2f}")
    print(f"write  {written:6.0f} ns   plain call {plain_put:6.0f} ns   ratio {written / plain_put:.2f}")
    to_smallest = f"read {got / smallest:.2f}, write {written / smallest:.2f}"
    print(f"against DllCanUnloadNow ({smallest:.0f} ns): {to_smallest}")
    worst = max(got / plain_get, written / plain_put)
    return 1 if len(sys.argv) > 1 and worst > float(sys.argv[1]) else 0


if __name__ == "__main__":
    sys.exit(main())
