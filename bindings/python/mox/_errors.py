"""Errors as Visual Basic clients see them."""
import ctypes
from ctypes import c_void_p

from . import _abi
from ._abi import ErrorInfo, release, status_of
from ._platform import platform, take_text

#: Statuses of the Automation layer that have a run-time error number of their own.
_NUMBERS = {
    0x80004001: 445,  # E_NOTIMPL
    0x80004002: 430,  # E_NOINTERFACE
    0x80070005: 70,  # E_ACCESSDENIED
    0x8007000E: 7,  # E_OUTOFMEMORY
    0x80070057: 5,  # E_INVALIDARG
    0x80020001: 430,  # DISP_E_UNKNOWNINTERFACE
    0x80020003: 438,  # DISP_E_MEMBERNOTFOUND
    0x80020004: 448,  # DISP_E_PARAMNOTFOUND
    0x80020005: 13,  # DISP_E_TYPEMISMATCH
    0x80020006: 438,  # DISP_E_UNKNOWNNAME
    0x80020007: 446,  # DISP_E_NONAMEDARGS
    0x80020008: 13,  # DISP_E_BADVARTYPE
    0x8002000A: 6,  # DISP_E_OVERFLOW
    0x8002000B: 9,  # DISP_E_BADINDEX
    0x8002000D: 10,  # DISP_E_ARRAYISLOCKED
    0x8002000E: 450,  # DISP_E_BADPARAMCOUNT
    0x8002000F: 449,  # DISP_E_PARAMNOTOPTIONAL
    0x80020012: 11,  # DISP_E_DIVBYZERO
    0x80040154: 429,  # REGDB_E_CLASSNOTREG
    0x80040111: 429,  # CLASS_E_CLASSNOTAVAILABLE
    0x800401F3: 429,  # CO_E_CLASSSTRING
    0x800401F8: 429,  # CO_E_DLLNOTFOUND
    0x800401F9: 429,  # CO_E_ERRORINDLL
}

_TEXTS = {
    5: "Invalid procedure call or argument",
    6: "Overflow",
    7: "Out of memory",
    9: "Subscript out of range",
    10: "This array is fixed or temporarily locked",
    11: "Division by zero",
    13: "Type mismatch",
    70: "Permission denied",
    91: "Object variable or With block variable not set",
    429: "ActiveX component can't create object",
    430: "Class does not support Automation or does not support expected interface",
    438: "Object doesn't support this property or method",
    445: "Object doesn't support this action",
    446: "Object doesn't support named arguments",
    448: "Named argument not found",
    449: "Argument not optional",
    450: "Wrong number of arguments or invalid property assignment",
    459: "Object or class does not support the set of events",
    0x8001010E: "The object belongs to another thread",
}


class Error(Exception):
    """A failure of the library.

    ``number`` is the run-time error number as a Visual Basic client sees it, such as 6 for an overflow; a failure without one has
    its status there. ``hresult`` is the status, without sign. ``description`` and ``source`` are what the library says of it,
    ``argument`` is the declared name of the argument that is to blame, or None.
    """

    def __init__(self, number, description=None, *, hresult=None, source=None, argument=None):
        self.number = number
        self.hresult = status_of(0x800A0000 | number) if hresult is None else hresult
        self.description = description or _TEXTS.get(number) or f"Automation error 0x{self.hresult:08X}"
        self.source = source or ""
        self.argument = argument
        super().__init__(number, self.description)

    def __str__(self):
        number = self.number if self.number != self.hresult else f"0x{self.hresult:08X}"
        where = f" (argument {self.argument})" if self.argument else ""
        return f"error {number}: {self.description}{where}"

    def __reduce__(self):
        return _restore, (type(self), self.__dict__)


def _restore(kind, content):
    error = kind(content["number"])
    error.__dict__.update(content)
    return error


class MemberError(Error, AttributeError):
    """There is no such member, or not for this kind of use. Also an AttributeError, so that hasattr and getattr work as ever."""


class MismatchError(Error, TypeError):
    """A Python value that has no counterpart, or none of the type that is asked for."""


def number_of(status):
    """The run-time error number of a failing status; the status itself where there is none."""
    status = status_of(status)
    if status >> 16 == 0x800A:
        return status & 0xFFFF
    return _NUMBERS.get(status, status)


def error_of(status, description=None, *, source=None, argument=None, code=0):
    """The exception for a failing status. ``code`` is an error number that the failing side gave instead of a status."""
    status = status_of(status)
    number = code or number_of(status)
    kind = Error
    if status in (_abi.DISP_E_MEMBERNOTFOUND, _abi.DISP_E_UNKNOWNNAME):
        kind = MemberError
    elif status == _abi.DISP_E_TYPEMISMATCH:
        kind = MismatchError
    return kind(number, description, hresult=status, source=source, argument=argument)


def mismatch(message, argument=None):
    """Error 13 that the client itself finds."""
    return MismatchError(13, f"Type mismatch: {message}", hresult=_abi.DISP_E_TYPEMISMATCH, argument=argument)


def check(status):
    """Raises for a failing status."""
    if status < 0:
        raise error_of(status)


def check_reported(status):
    """Raises for a failing status of an operation that leaves an error object, with what that says."""
    if status >= 0:
        return
    pending = c_void_p()
    platform.GetErrorInfo(0, ctypes.byref(pending))
    if not pending.value:
        raise error_of(status)
    try:
        source, description = c_void_p(), c_void_p()
        ErrorInfo.GetSource(pending.value, source)
        ErrorInfo.GetDescription(pending.value, description)
        raise error_of(status, take_text(description.value), source=take_text(source.value))
    finally:
        release(pending.value)
