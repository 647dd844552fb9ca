"""What a call from Python costs, in bare ctypes calls: calls of a cheap exported function with declared arguments.

Prints the ratio for each kind of call. Ends with 1 if one is above the limit.
"""
import ctypes
import sys
import timeit

import mox
from mox._platform import platform

LIMIT = 20
NUMBER = 1_000
REPEAT = 200


def cost(function):
    """Seconds a call, the best of several rounds."""
    return min(timeit.repeat(function, number=NUMBER, repeat=REPEAT)) / NUMBER


def main():
    mox.machine(memory=True)
    hub = mox.create("moxHub")
    vLong, timer = hub.Vars.vLong, mox.create("moxTimer")
    timer.Tag = "text"
    rectangle = hub.Vars.vRect
    bare_function = platform.SysStringLen
    bare_function.argtypes, bare_function.restype = [ctypes.c_void_p], ctypes.c_uint
    bare = cost(lambda: bare_function(None))
    measured = {
        "python call": cost(lambda: vLong.MinMax(5, 1, 10)),
        "python call, named arguments": cost(lambda: vLong.MinMax(5, MaxValue=10)),
        "python property get": cost(lambda: timer.MinInterval),
        "python property get, text": cost(lambda: timer.Tag),
        "python property get, object": cost(lambda: hub.Vars),
        "python property put": cost(lambda: setattr(timer, "Tag", "text")),
        "python call, record result": cost(lambda: rectangle.RectFromPoints(1, 2, 3, 4)),
    }
    limited = ("python call", "python property get")
    failed = False
    for name, seconds in measured.items():
        ratio = seconds / bare
        limit = f" (limit {LIMIT})" if name in limited else ""
        print(f"{name}: {ratio:.1f} bare ctypes calls{limit}")
        failed |= name in limited and ratio > LIMIT
    return failed


if __name__ == "__main__":
    sys.exit(main())
