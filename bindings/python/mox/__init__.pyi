"""The mox library for Python. What the type library describes comes from the generated stub of its own, ``_library.pyi``."""
from datetime import date, datetime as _datetime
from os import PathLike
from types import TracebackType
from typing import Any, Callable, Iterable, Mapping, Sequence

from . import enums as enums
from ._library import *

__version__: str

class Error(Exception):
    """A failure of the library, with its run-time error number as Visual Basic clients see it."""
    number: int
    """The run-time error number, such as 6 for an overflow; the status where there is none."""
    hresult: int
    """The status, without sign."""
    description: str
    source: str
    argument: str | None
    """The declared name of the argument that is to blame."""
    def __init__(
        self,
        number: int,
        description: str | None = None,
        *,
        hresult: int | None = None,
        source: str | None = None,
        argument: str | None = None,
    ) -> None: ...

class Object:
    """An object of the library. Its members are attributes, their names being case-blind."""
    def put(self, name: str, *arguments: Any, **named: Any) -> None:
        """Sets a property with arguments: ``obj.put("Name", *arguments, value)``."""

class ByRef:
    """An argument that the member may change: ``value`` is what goes in, and afterwards what came out."""
    value: Any
    def __init__(self, value: Any = None) -> None: ...

class Date(float):
    """A date: days since 30 December 1899, the fraction being the time of day."""
    def __new__(cls, value: float | date = 0.0) -> Date: ...
    @property
    def datetime(self) -> _datetime:
        """The same as a naive local time."""

class Array(list[Any]):
    """A list whose first element has the index ``lower`` for the library."""
    lower: int
    def __init__(self, values: Iterable[Any] = (), lower: int = 0) -> None: ...

class ByteArray(bytes):
    """Bytes whose first element has the index ``lower`` for the library."""
    lower: int  # type: ignore[assignment]
    def __new__(cls, values: bytes | Iterable[int] = b"", lower: int = 0) -> ByteArray: ...

class Connection:
    """A handler that is connected to the events of an object."""
    @property
    def connected(self) -> bool: ...
    def disconnect(self) -> None: ...
    def __enter__(self) -> Connection: ...
    def __exit__(self, kind: type[BaseException] | None, error: BaseException | None, trace: TracebackType | None) -> None: ...

class Operation:
    """One operation of the platform, to count its calls or to let them fail in a test."""
    name: str
    @property
    def calls(self) -> int: ...
    def reset(self) -> None: ...
    def fail(self, times: int | None = None) -> None: ...
    def restore(self) -> None: ...

class Registry:
    """Reads and sets values of the machine's registry past the library."""
    NONE: int
    SZ: int
    EXPAND_SZ: int
    BINARY: int
    DWORD: int
    DWORD_BIG_ENDIAN: int
    LINK: int
    MULTI_SZ: int
    QWORD: int
    def get(self, root: int | str, key: str, name: str) -> tuple[int, bytes] | None:
        """A value as ``(type, bytes)``, None if there is no such key or value."""
    def set(self, root: int | str, key: str, name: str, type: int, data: bytes) -> None:
        """Sets a value and makes its key."""

registry: Registry
operations: Mapping[str, Operation]

def connect(object: Object, handler: Mapping[str, Callable[..., Any]] | object) -> Connection:
    """Connects a handler to the events of an object: an object with methods named as the events, or a dictionary of callables."""

def machine(
    *,
    home: str | PathLike[str] = ...,
    memory: bool = ...,
    windows: Sequence[int | str] = ...,
    product_info: int = ...,
    metrics: Mapping[int, int] = ...,
    codepage: int = ...,
    drives: Mapping[str, str | PathLike[str]] = ...,
    trash: str | PathLike[str] = ...,
    visual_style: bool = ...,
) -> None:
    """Says what the machine is made of, before the first object is created."""

def answer(kind: str, /, **reply: Any) -> None:
    """Answers the next dialog of a kind ahead: ``answer("confirm", yes=True)``, ``answer("message_box", button=6)``."""

def dialogs() -> list[dict[str, Any]]:
    """The dialogs that were asked, oldest first: ``kind``, ``caption``, ``text`` and ``answer``."""

def handles() -> dict[str, int]:
    """The platform handles that are open, as numbers by kind."""

def doctor() -> dict[str, str]:
    """What stands behind each service of the machine, as texts by service."""

def pixels(source: Object | int, x: int = 0, y: int = 0, cx: int | None = None, cy: int | None = None) -> bytes:
    """Pixels of a picture object or a device context: rows from the top down, four bytes a pixel: blue, green, red, none."""

def picture(width: int, height: int, bgrx: bytes | bytearray | memoryview) -> StdPicture:
    """A new picture object with a bitmap of such rows."""

def load_picture(path: str | PathLike[str]) -> StdPicture:
    """A new picture object from an image file of this system: BMP, ICO, CUR, WMF, EMF, PNG, JPEG or GIF."""

def save_picture(picture: Object, path: str | PathLike[str]) -> None:
    """Writes a picture object to a file of this system: as PNG by the extension ``.png``, else in the format of its kind."""

def pump(seconds: float = 0) -> None:
    """Runs the message loop of the calling thread for that long."""
