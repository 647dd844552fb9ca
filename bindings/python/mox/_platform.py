"""Finds and loads libmoxplatform, and declares the exported operations that the client uses."""
import ctypes
import os
import threading
from ctypes import POINTER, c_char_p, c_int, c_uint, c_ushort, c_void_p
from pathlib import Path

from ._abi import GUID, IID_IUNKNOWN, SAFEARRAYBOUND, VARIANT, query_interface, release

_FILE = "libmoxplatform.so"


def _folders():
    """Where the library may lie, the first first; None stands for the loader's own search."""
    package = Path(__file__).resolve().parent
    named = [Path(folder) for folder in os.environ.get("MOX_LIBRARY_PATH", "").split(":") if folder]
    return named + [package.parents[2] / "build" / "lib", None, package]


def _open():
    tried = []
    for folder in _folders():
        if folder is not None and not (folder / _FILE).exists():
            tried.append(str(folder))
            continue
        try:
            return ctypes.CDLL(_FILE if folder is None else str(folder / _FILE))
        except OSError as error:
            if folder is not None:
                raise
            tried.append(f"the system's library path ({error})")
    raise OSError(f"cannot find {_FILE}; looked in: {', '.join(tried)}. Set MOX_LIBRARY_PATH to the folder that has it.")


_pointer, _variant, _guid = POINTER(c_void_p), POINTER(VARIANT), POINTER(GUID)

#: Operations by name: result, arguments. Text in UTF-16 passes as bytes that end in two zeros.
_OPERATIONS = {
    "SysAllocStringByteLen": (c_void_p, c_char_p, c_uint),
    "SysFreeString": (None, c_void_p),
    "SysStringByteLen": (c_uint, c_void_p),
    "VariantCopyInd": (c_int, _variant, _variant),
    "VariantChangeType": (c_int, _variant, _variant, c_ushort, c_ushort),
    "SafeArrayCreate": (c_void_p, c_ushort, c_uint, POINTER(SAFEARRAYBOUND)),
    "SafeArrayCreateEx": (c_void_p, c_ushort, c_uint, POINTER(SAFEARRAYBOUND), c_void_p),
    "SafeArrayGetRecordInfo": (c_int, c_void_p, _pointer),
    "SafeArrayCopy": (c_int, c_void_p, _pointer),
    "SafeArrayDestroy": (c_int, c_void_p),
    "CoTaskMemAlloc": (c_void_p, ctypes.c_size_t),
    "CoTaskMemFree": (None, c_void_p),
    "CLSIDFromProgID": (c_int, c_char_p, _guid),
    "CoInitialize": (c_int, c_void_p),
    "CoGetClassObject": (c_int, _guid, c_uint, c_void_p, _guid, _pointer),
    "CoCreateInstance": (c_int, _guid, c_void_p, c_uint, _guid, _pointer),
    "GetErrorInfo": (c_int, c_uint, _pointer),
    "GetRecordInfoFromGuids": (c_int, _guid, c_uint, c_uint, c_uint, _guid, _pointer),
    "MoxGetPixelSize": (c_int, c_void_p, c_int, POINTER(c_int), POINTER(c_int)),
    "MoxGetPixels": (c_int, c_void_p, c_int, c_int, c_int, c_int, c_int, c_char_p, ctypes.c_size_t),
    "MoxCreatePicture": (c_int, c_int, c_int, c_void_p, ctypes.c_size_t, _guid, _pointer),
    "MoxLoadPicture": (c_int, c_char_p, ctypes.c_size_t, _guid, _pointer),
    "MoxSavePicture": (c_int, c_void_p, c_int, _pointer),
    "MoxControl": (c_int, c_void_p, _pointer),
    "MoxPump": (c_int, c_uint),
}


class _Platform:
    """The library's operations as attributes; it is loaded when the first of them is asked for."""

    def __init__(self):
        self._guard = threading.RLock()
        self._library = None

    def __getattr__(self, name):
        if name.startswith("__"):
            raise AttributeError(name)
        with self._guard:
            if self._library is None:
                self._library = _open()
            function = getattr(self._library, name)
            if name in _OPERATIONS:
                function.restype, *arguments = _OPERATIONS[name]
                function.argtypes = arguments
            setattr(self, name, function)
            return function


platform = _Platform()

CLSCTX_INPROC_SERVER = 1


class _Apartments(threading.local):
    """Makes the calling thread an apartment. It ends with the thread."""

    entered = False

    def enter(self):
        if not self.entered:
            platform.CoInitialize(None)
            self.entered = True


apartments = _Apartments()


def utf16(text):
    """Text as the platform's operations take it: UTF-16 with a zero at the end."""
    return text.encode("utf-16-le", "surrogatepass") + b"\0\0"


def bstr_of(text):
    """A new BSTR, the caller's; lone surrogates and zeros inside survive."""
    data = text.encode("utf-16-le", "surrogatepass")
    return platform.SysAllocStringByteLen(data, len(data))


# From UTF-16 in memory to text in one step; the number says which byte of a unit comes first.
_decode = ctypes.pythonapi.PyUnicode_DecodeUTF16
_decode.argtypes = [c_void_p, ctypes.c_ssize_t, c_char_p, POINTER(c_int)]
_decode.restype = ctypes.py_object
_low_first = ctypes.byref(c_int(-1))


def text_of(bstr):
    """The text of a BSTR, which stays the caller's. An odd byte at the end, which is no character, is not read."""
    if not bstr:
        return ""
    return _decode(bstr, platform.SysStringByteLen(bstr) & ~1, b"surrogatepass", _low_first)


def take_text(bstr):
    """The text of a BSTR, which is freed."""
    try:
        return text_of(bstr)
    finally:
        platform.SysFreeString(bstr)


def interface_of(pointer, iid):
    """The same object under another interface, with a reference, and the status; None if it has none."""
    result = c_void_p()
    status = query_interface(pointer, iid, result)
    return result.value, status


def identity_of(pointer):
    """The number that names an object: the address of its IUnknown. An object of another thread keeps silent about it; then the
    address of the interface at hand, which is the same for the library's own objects."""
    unknown, _ = interface_of(pointer, IID_IUNKNOWN)
    if unknown is None:
        return pointer
    release(unknown)
    return unknown
