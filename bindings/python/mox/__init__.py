"""The mox library for Python: late bound, through IDispatch and the type library alone.

    >>> import mox
    >>> hub = mox.create("moxHub")                  # class name, ProgID or class identifier
    >>> hub.Vars.ConvertUnit(1, mox.suINCH, mox.suCM)
    2.5396825396825395

A property without arguments is read and set as an attribute; a property with arguments, even if all can be left out, is called or
indexed. Methods are called. Arguments go by position or by their declared names, and optional ones may be left out:

    >>> vLong = hub.Vars.vLong
    >>> vLong.MinMax(5, MaxValue=3)
    3
    >>> printer.Tag = "invoice"                      # put
    >>> printer.PaperName[2], printer.PaperName(Index=2)
    >>> printer.PaperHeightUser[mox.PRNUN_MM] = 200  # put with an argument
    >>> printer.put("PaperHeightUser", mox.PRNUN_MM, 200)

What a member changes in its arguments comes back in a ``ByRef``. Records are changed in place, wrapped or not:

    >>> value = mox.ByRef(0)
    >>> vLong.SetBit(value, 3, True)
    >>> value.value
    8
    >>> rc = mox.Record("RECT", Left=1, Right=10)
    >>> hub.Vars.vRect.MoveRect(rc, 5)
    >>> rc.Left
    6

Values: Boolean is bool, Date is ``mox.Date`` (a float of days with ``.datetime``; datetimes are taken too), arrays are lists, of
Byte bytes, with ``.lower`` where they do not begin at 0 (``mox.Array``, ``mox.ByteArray``), Currency and Decimal are
``decimal.Decimal``, Nothing and empty variants are None, results of an enum's type are its values. Enums are in ``mox.enums``,
and their values here: ``mox.suINCH``. So are the Python classes of objects and records, for ``isinstance`` and annotations:
``mox.moxHub``, ``mox.RECT``.

Failures raise ``mox.Error`` with the run-time error number as Visual Basic clients see it:

    >>> vLong.MinMax(5, Least=1)
    Traceback (most recent call last):
    mox._errors.Error: error 448: Named argument not found: MinMax has no argument Least (argument Least)

A name that is no member is error 438, which is an AttributeError as well; so is setting what cannot be set. A value that cannot
be passed is error 13 and a TypeError. An object belongs to the thread that created it; on another one its members raise an error
with ``hresult`` 0x8001010E.

    >>> timer = mox.create("moxTimer")
    >>> connection = mox.connect(timer, {"Timer": lambda events, milliseconds: print(events)})
    >>> timer.StartTimer(100)
    >>> mox.pump(0.25)
    1
    2
    >>> connection.disconnect()

Pictures and fonts are run-time objects, ``mox.create("StdFont")``. Their pixels are bytes, rows from the top down with blue, green,
red and a fourth byte that does not count:

    >>> picture = mox.picture(2, 1, bytes([255, 0, 0, 0, 0, 0, 255, 0]))
    >>> picture.Type, mox.pixels(picture, 1, 0)
    (1, b'\\x00\\x00\\xff\\x00')
    >>> mox.save_picture(picture, "picture.png")
    >>> mox.load_picture("picture.png").Width
    53

For tests there are ``mox.machine(memory=True)``, ``mox.operations``, ``mox.registry`` and ``mox.handles()``;
``mox.answer("confirm", yes=True)`` answers the next question ahead, and ``mox.dialogs()`` lists what was asked. ``python3 -m mox``
browses the library and evaluates expressions; with ``MOX_TRACE=dispatch`` in the environment every call is printed.

The libraries are looked for in the folders of ``MOX_LIBRARY_PATH``, in ``build/lib`` of the checkout that this package lies in,
on the system's library path and beside the package.
"""
from . import _objects, _records, _typelib, enums
from ._errors import Error
from ._events import Connection, connect
from ._machine import answer, dialogs, doctor, handles, machine, operations, pump
from ._objects import Object, create
from ._pictures import load_picture, picture, pixels, save_picture
from ._records import Record
from ._registry import registry
from ._values import Array, ByRef, ByteArray, Date

__version__ = "8.10.0"

__all__ = [
    "Array",
    "ByRef",
    "ByteArray",
    "Connection",
    "Date",
    "Error",
    "Object",
    "Record",
    "answer",
    "connect",
    "create",
    "dialogs",
    "doctor",
    "enums",
    "handles",
    "load_picture",
    "machine",
    "operations",
    "picture",
    "pixels",
    "pump",
    "registry",
    "save_picture",
]

for _public in (
    Array,
    ByRef,
    ByteArray,
    Connection,
    Date,
    Error,
    Object,
    Record,
    answer,
    connect,
    create,
    dialogs,
    doctor,
    handles,
    load_picture,
    machine,
    picture,
    pixels,
    pump,
    save_picture,
):
    _public.__module__ = "mox"
del _public


def __getattr__(name):
    if not name.startswith("__"):
        for find in (enums._value_named, _class_named):
            value = find(name)
            if value is not None:
                return value
    raise AttributeError(f"module mox has no attribute {name}")


def _class_named(name):
    """The Python class for a class or a record of the type library, or None."""
    entry = _typelib.find_type(name)
    if entry is None or entry.name != name:
        return None
    return _objects.class_of(entry.content[0]) if entry.is_class else _records.record_class(entry) if entry.is_record else None


def __dir__():
    try:
        names = [entry.name for library in _typelib.libraries() for entry in library.classes + library.records]
        names += enums._values(True)
    except OSError:  # without the library there is only what stands here
        names = []
    return sorted({*globals(), *names})
